#pragma once

#include "CArrayList.h"
#include "KestovaExport.h"
#include "TimelineEnums.h"
#include "container/CaptionColumn.h"
#include "container/CaptionPointer.h"
#include "container/DropFileRules.h"
#include "container/FrameStrips.h"
#include "container/MultiTrackKeyDrag.h"
#include "container/PaintedState.h"
#include "container/RowLayout.h"
#include "container/ScrubPictures.h"
#include "container/TrackTree.h"
#include "library/OpenGesture.h"
#include "tracks/CTimelineTrackBaseInterface.h"

#include <QMutex>
#include <QPixmap>
#include <QPointer>
#include <QVariant>
#include <QWidget>

#include <memory>

class CTimelineContainerInterface;
class CTimelineTrackHScroll;
class CTimelineTrackTick;
class CTimelineWndBase;
class QTimelineCaptionArea;

/// The timeline widget: it holds the tree of rows between the ruler and the scroll bar, lays them
/// out, paints them with their captions, keeps the frame axis and turns what tracks report into
/// messages for its owner. Made by the window base, destroyed with it; its Qt parent is the
/// window's widget. Host tracks are its children while they are shown, and are never deleted by it.
/// GUI thread only.
class CTimelineContainer : public QWidget, private CTimelineTrackBaseInterface
{
    Q_OBJECT
public:
    explicit CTimelineContainer(CTimelineWndBase* window);
    ~CTimelineContainer() override;

    /// Puts the widget under @p parent at @p geometry, shows it and makes the ruler and the scroll
    /// bar. False when one of them cannot be made (the skin lacks its style).
    bool Create(QWidget* parent, const QRect& geometry);
    void SetOwnerInterface(CTimelineContainerInterface* owner) { m_owner = owner; }
    /// Forgets window and owner for good: nothing is called any more.
    void Disconnect();

    // ---- The tree ----
    // A track that is shown becomes a child widget of the container, inactive; one that is hidden
    // becomes a hidden child of the parking widget and stays the caller's. Afterwards the rows are
    // laid out (always, or with relayout) and then the window is told (always, or with notify).

    /// Inserts a root at @p index among the roots; an index beyond their count appends. A track
    /// that is shown already stays where it is, untold. @return true.
    bool ShowRootTrack(CTimelineTrackBase* root, unsigned int index, bool notify);
    /// The same for a child among the children of @p root. @return false when @p root is no shown
    /// root, else true.
    bool ShowChildTrack(CTimelineTrackBase* root, CTimelineTrackBase* child, unsigned int index,
                        bool notify);
    /// Hides a root with all its children. @return true, for an unknown track as well.
    bool HideRootTrack(CTimelineTrackBase* root, QWidget* parking, bool relayout, bool notify);
    /// Hides a child. It tells the window before it lays out, and the layout is cut to the
    /// container's present height. @return true, for an unknown track as well.
    bool HideChildTrack(CTimelineTrackBase* child, QWidget* parking, bool relayout, bool notify);
    /// Hides every root, the last one first; deletes none. Always lays out and notifies.
    /// @return true.
    bool DeleteAllTrack(QWidget* parking);
    /// Takes a root out and inserts it at @p index among the others; an index beyond their count
    /// appends. @return true, for an unknown track as well, which changes nothing.
    bool SetRootTrackSortIndex(CTimelineTrackBase* root, unsigned int index, bool relayout,
                               bool notify);
    /// The same for a child, among the children of its root.
    bool SetChildTrackSortIndex(CTimelineTrackBase* child, unsigned int index, bool relayout,
                                bool notify);
    const TrackTree& Tree() const { return m_tree; }

    // ---- Activation and selection across tracks ----
    // Making active what is active already changes nothing and sends nothing; null, or a track
    // that is not shown as what it is asked to be, only makes the active one inactive.

    /// Makes a root and its first child active instead of the active root and its children, and
    /// clears all key selections. @return true.
    bool SetActiveRootTrack(CTimelineTrackBase* root);
    /// Makes a child and its root active instead of the active child and its root. Clears all key
    /// selections when that is another root; from a clip row to the lips row too, but without
    /// telling the host. @return true.
    bool SetActiveChildTrack(CTimelineTrackBase* child);
    /// What a click on a row does: makes it active, takes the focus and tells the host. The ruler
    /// and the scroll bar are left alone. @return whether the host's side answered non-zero.
    bool ActivateTrack(CTimelineTrackBase* track);
    /// Clears the key selection of every child track but @p except (null for none) and tells the
    /// window and the host, even when nothing was selected.
    /// @return whether the container outlived it.
    bool ClearKeySelectionExcept(const CTimelineTrackBase* except);
    /// Appends the children that hold selected keys. An active child in sub-key editing empties
    /// the list, what the caller had in it included, and stands in it alone or not at all.
    void GetSelectedKeyTrack(VZ::CArrayList<CTimelineTrackBase*>& tracks) const;

    // ---- Layout ----
    /// Puts every row in its place and resizes the container; with @p fit it is cut to the height
    /// that it has, else it becomes as high as its rows. Repaints and tells the window.
    /// @return whether the container outlived the window's answer.
    bool Layout(bool fit);
    void RefreshRows();             ///< re-places the rows inside the container's present size
    void Refresh(bool immediately); ///< repaints at once or from the event loop
    /// Brings the picture up to date before it returns. When nothing but the current frame was
    /// changed since the last paint, only the columns that show it then and now are painted.
    void ShowCurrentFrame();
    void InvalidateTimeline(); ///< a new layout; a repaint from within one
    /// Fits the wave rows into a window of @p height pixels and lays out; the width is not used.
    /// @return false, and nothing is done, when one of them is negative.
    bool WndSizeChanged(int width, int height);
    // All heights are pixels.
    int GetTrackHeight() const;     ///< of an ordinary row
    int GetWndMinRestraint() const; ///< the ruler and the scroll bar
    int GetWndMinHeight(); ///< with the visible root switch rows; binds the container to it
    /// All rows. With @p withWave wave rows count three times their picture, which becomes the most
    /// that they grow to.
    int GetWndMaxHeight(bool withWave);
    int GetWndNeedHeight() const; ///< all rows, wave rows in their present height at least
    void GetWndCurrSize(int& width, int& height) const;

    // ---- Frames and view ----
    // Frames are whole numbers from 0, shared by every container of the process. "Sends nothing"
    // means that the owner hears of no message; the window is told that the timeline was refreshed
    // where it says "refreshed".

    /// Stores @p count as it is, leaves the current frame alone and fits the view to the new count;
    /// nothing of it without a scroll bar. Repaints later; refreshed; sends nothing.
    void SetFrameCount(int count);
    /// Clamps @p frame to 0 and the last frame (0 without any), stores it and repaints before it
    /// returns; refreshed. Scrolls nothing and sends nothing. Does nothing without a ruler.
    void SetCurrentFrame(int frame);
    /// 0 without a ruler.
    int GetCurrentFrame() const;
    /// SetCurrentFrame, then scrolls to the middle unless the frame is in view, then sends 1301 and
    /// 1302 with the current frame.
    void GotoFrame(int frame);
    /// Stores the two frames in the ruler in any order and unclamped. Repaints later; refreshed;
    /// sends nothing. Does nothing without a ruler.
    void SetTimeMarkFrame(int start, int end);
    /// 0 and 1 without a ruler.
    void GetTimeMarkFrame(int& start, int& end) const;
    /// Brings @p frame (clamped to the valid ones) into view, unless it is strictly inside it: to
    /// the middle (@p align 0), the right edge (above 0) or the left edge (below 0). Repaints later
    /// when it scrolls. @return false without a scroll bar, else true.
    bool ScrollToFrame(int frame, int align);
    /// @return always false, and nothing changes: the host scrolls vertically.
    bool ScrollToTrack(CTimelineTrackBase* track);
    /// The edges of the scroll bar's thumb as fractions of the bar's width; left untouched without
    /// a scroll bar.
    void GetScrollInfo(float& left, float& right) const;
    /// Sets those edges, and by them zoom and scroll offset, and repaints later. Does nothing
    /// unless 0 <= @p left <= @p right <= 1.
    void SetScrollInfo(float left, float right);
    // Whether the zoom of that name would change the thumb by more than a pixel; false without a
    // scroll bar, without frames and without width.
    bool CanDoZoomIn() const;
    bool CanDoZoomOut() const;
    bool CanDoZoomAll() const;
    bool CanDoUnZoom() const;
    // Each does nothing where it cannot be done, and repaints later where it can.
    void DoZoomIn();  ///< half the thumb's width, then scrolls to the current frame
    void DoZoomOut(); ///< twice the thumb's width, then scrolls to the current frame
    void DoZoomAll(); ///< all frames in view
    void DoUnZoom();  ///< the narrowest thumb, then scrolls to the current frame

    /// Which edit an end-edge drag performs where a track allows both: false loop, true speed.
    void SetLoopSpeedState(bool speed) { m_loopSpeedState = speed; }
    bool GetLoopSpeedState() const { return m_loopSpeedState; }

    // ---- Dropped files ----
    void SetDropFilters(const DropFileRules::Filters& filters) { m_dropRules.SetFilters(filters); }
    const DropFileRules& GetDropRules() const { return m_dropRules; }
    /// Activates the track, clears the selection of all others and selects the clip that starts at
    /// the current frame, when there is one.
    void SetDropTrackFocusAndPickJustLoadClip(CTimelineTrackBase* track);

    // ---- For the parts that the container is made of ----
    CTimelineTrackTick* TickTrack() const { return m_tickTrack; }
    CTimelineTrackHScroll* ScrollTrack() const { return m_scrollTrack; }
    const RowLayout& Rows() const { return m_layout; }
    const CaptionColumn& Captions() const { return m_captions; }
    const CaptionPointer& Pointer() const { return m_captionPointer; }
    /// As large as the widget was when it was last shown, and white; null before that and after a
    /// resize.
    const QPixmap* BackBuffer() const { return m_backBuffer.get(); }
    bool HasOwner() const { return m_owner != nullptr; }
    /// Sends a message to the owner. @p handle is the second track of the messages that name two,
    /// and a plain number or address in others. @return the owner's answer; -1 without an owner.
    int SendToHost(unsigned int code, CTimelineTrackBase* track, HANDLE handle,
                   const QVariant& value1 = QVariant(0), const QVariant& value2 = QVariant(0),
                   const QVariant& value3 = QVariant(0));
    /// Reports an edit of @p tracks to the owner. @return its answer; -1 without an owner.
    int SendEdit(TLEditType type, const VZ::CArrayList<CTimelineTrackBase*>& tracks,
                 const QVariant& value1, const QVariant& value2);
    /// The drag of the selected keys of all tracks; one at a time.
    MultiTrackKeyDrag& KeyDrag() { return m_keyDrag; }
    /// What a track reports, see DispatchTrackMessage. @return -1 for an unknown code and without
    /// an owner, else what the code answers, which is 0 for most.
    int OnTrackMessage(int code, CTimelineTrackBase* track, int number, QVariant value1,
                       QVariant value2, QVariant value3) override;
    /// @return whether the container outlived the call, as the next two do.
    bool NotifyTimelineRefreshed();

public Q_SLOTS:
    // What the keyboard shortcuts do, see Hotkeys. Left and right have no key of their own: a host
    // may connect them to one. The order is that of the meta object.
    void OnHKShiftTab(); ///< selects the previous key of the active child
    void OnHKTab();      ///< selects the next key of the active child
    void OnHKRight();    ///< goes one frame on
    void OnHKLeft();     ///< goes one frame back
    void OnHKEnd();      ///< goes to the last frame
    void OnHKHome();     ///< goes to frame 0
    void OnHKPlus();     ///< zooms in; like the next three, tells the window in any case
    void OnHKMinus();    ///< zooms out
    void OnHKAsterisk(); ///< brings all frames into view
    void OnHKSlash();    ///< zooms in as far as it goes

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool OnTrackDrop(QDropEvent* event, CTimelineTrackBase* track) override;
    bool OnTrackDragCheck(QDropEvent* event, CTimelineTrackBase* track, int frame) override;
    bool MayBeDropped(const QString& path, CTimelineTrackBase* track, int frame);

    template <class Track>
    bool CreateFixedTrack(Track*& track);
    void Attach(CTimelineTrackBase* track);
    void Detach(CTimelineTrackBase* track, QWidget* parking);
    bool NotifyTrackListChanged();
    bool UpdateAndNotify();
    bool ResizeAndNotify(int layoutHeight);
    bool FocusContainer();
    bool CancelCaptionPress();
    void SelectRow(CTimelineTrackBase* track, bool keepOthers);
    void PaintPending();
    void RepaintStep();
    bool MakeScrubPictures();
    void DropScrubPictures();
    FrameStrips Strips() const;
    QRect RulerRect() const;
    QRect RowRect(const CTimelineTrackBase& track, int y) const;
    void Paint(QPainter& painter, FramePaint frame);
    void PaintRow(QPainter& painter, CTimelineTrackBase& track, const QRect& row, FramePaint frame);
    void PaintStep(QPainter& painter);
    void RememberPainted(const QRegion& region);
    /// The host may have changed keys in place, which cannot be seen: the next step of the current
    /// frame repaints everything.
    /// What all of the picture on screen shows; a state of no timeline when that is not known.
    struct OnScreen
    {
        PaintedState state;
        int frame = -1;
    };

    /// Stands on the stack while the host may edit keys in place: what is on screen is not known
    /// meanwhile, and neither is what it stood for before.
    class InHostsHands
    {
    public:
        explicit InHostsHands(CTimelineContainer& container);
        ~InHostsHands();
        InHostsHands(const InHostsHands&) = delete;
        InHostsHands& operator=(const InHostsHands&) = delete;

    private:
        const QPointer<CTimelineContainer> m_container;
    };

    CTimelineWndBase* m_window;
    CTimelineContainerInterface* m_owner = nullptr;
    CTimelineTrackHScroll* m_scrollTrack = nullptr;
    CTimelineTrackTick* m_tickTrack = nullptr;
    TrackTree m_tree;
    RowLayout m_layout;
    CaptionColumn m_captions;
    CaptionPointer m_captionPointer;
    OpenGesture m_captionPress; ///< a caption button is down
    DropFileRules m_dropRules;
    MultiTrackKeyDrag m_keyDrag;
    OnScreen m_onScreen;
    int m_inHostsHands = 0;            ///< how many of those stand on the stack
    int m_steps = 0;                   ///< of the current frame since anything else was painted
    bool m_areStepsRepeated = true;    ///< the last time there were steps, there were several
    bool m_arePicturesPossible = true; ///< as far as is known of the timeline as it is
    FrameStrips m_strips;              ///< of the pictures
    ScrubPictures m_scrubPictures;
    QRegion m_step; ///< while a step of the current frame is being painted
    std::unique_ptr<QPixmap> m_backBuffer;
    QMutex m_paintMutex;
    QTimelineCaptionArea* m_captionArea = nullptr;
    bool m_loopSpeedState = false;
    int m_layoutDepth = 0;
    bool m_isResizing = false; ///< a layout is resizing the container
    int m_owedRefreshes = 0;   ///< notices of layouts that ran inside that resize
};
