#pragma once

#include "CArrayList.h"
#include "CTimelineClipboard.h"
#include "CTimelineKeyArray.h"
#include "TimelineEnums.h"
#include "library/OpenGesture.h"
#include "skin/TrackStyles.h"
#include "tracks/DisplayKeys.h"
#include "tracks/KeyFacts.h"
#include "tracks/KeyGesture.h"

#include <QVariant>
#include <QWidget>

#include <memory>

class CTimelineTrackBaseInterface;
class FrameAxis;
struct TimeRange;

/// One row of the timeline: its keys, its kind, its skin style and its place in the tree, the
/// painting of its background, keys, markers and current-frame line, and its hit tests. Made by the
/// manager (or, for the ruler and the scroll bar, by the container); its Qt parent is the container
/// that shows it, or the parking widget while it is hidden. The container paints it through
/// DrawTrack. GUI thread only.
class CTimelineTrackBase : public QWidget
{
    Q_OBJECT
public:
    using EditModes = VZ::CArrayList<TLEditType>;
    using KeyVector = CTimelineKeyArray::KeyVector;

    CTimelineTrackBase();
    ~CTimelineTrackBase() override;

    /// True while @p track is a track that was made and not yet destroyed, of any manager or
    /// container.
    static bool IsAlive(const CTimelineTrackBase* track);

    // The track's own virtual operations, in slot order. Points are pixels from the row's corner.

    /// Makes the widget a child of @p parent, of the kind's type, size and size policy; false for
    /// the base, which is no kind.
    virtual bool Init(QWidget* parent);
    /// Paints the whole row into @p rect: background, keys, related bars, range markers and the
    /// current-frame line. Restores the painter's pen, brush and font, not its brush origin. With a
    /// clip set, only the row's columns inside it cost anything.
    virtual void DrawTrack(QPainter* painter, QRect rect);
    /// The index of the last key under @p point that is not locked; -1 without one.
    virtual int HitTestKey(QPoint point);
    /// The index of the last sub-key of the clip @p keyIndex under @p point; -1 without one, and
    /// for an index that is none of a clip with sub-keys.
    virtual int HitTestSubKey(QPoint point, int keyIndex);
    /// The end marker of the time range under @p point: 0 start, 1 end, -1 none. The end marker
    /// wins.
    virtual int HitTestRangeMarker(QPoint point);
    /// Paints the kind's keys and gives the widget the size of @p rect.
    virtual void DrawKeys(QPainter* painter, QRect rect);
    /// Does what a press at @p globalPoint (screen coordinates) does to selection and current
    /// frame, then lets the host fill a menu, opens it there and reports what was chosen. Returns
    /// when the menu is closed: whatever the host did meanwhile, the track itself may be gone.
    virtual void BuildContextMenu(QPoint globalPoint);

    /// Ends the gesture that is under way as a release of the button at the pointer's last place
    /// would; nothing without one.
    virtual void EndGesture();

    /// Fetches the style of the track's kind and @p styleIndex from the skin; false when a key is
    /// missing (the style is then partly filled).
    bool LoadStyle(int styleIndex);
    const StyleRecord* GetStyle() const { return m_style.get(); }
    /// The style as a record of type S, or null when the track has none of that type.
    template <class S>
    const S* StyleAs() const
    {
        return dynamic_cast<const S*>(m_style.get());
    }
    template <class S>
    S* StyleAs()
    {
        return dynamic_cast<S*>(m_style.get());
    }

    /// The column, counted from the row's left edge, where @p frame begins on the shared axis; may
    /// lie outside of the row.
    int FrameToPixel(long long frame) const;
    /// The frame at column @p x; may be negative or beyond the last frame.
    int PixelToFrame(int x) const;

    /// The time range with the smaller end first; -1 stands for an end that is not set.
    void GetRangeFrames(int& lo, int& hi) const;
    int RangeStart() const { return m_rangeStart; }
    int RangeEnd() const { return m_rangeEnd; }
    /// Sets the time range, in frames, both ends included and in either order; -1 for no end.
    /// Nobody is told and nothing repainted.
    void SetRange(int start, int end);

    /// Makes the track one of the active tracks, or no longer one. A change clears all key
    /// selection where sub-keys are edited; an inactive track loses its time range where that can
    /// be edited.
    void SetActive(bool active);
    bool IsActive() const { return m_active; }
    /// Where there are edit modes and sub-keys are not edited: clears the time range, deselects the
    /// keys of the timeline and reports that to the owner. Otherwise deselects the sub-keys of the
    /// selected clips, and reports nothing.
    void ClearRangeOrSubSelection();
    /// The keys to draw, in frame order: clips with sub-keys expanded, related keys merged in. What
    /// @p out held before is let go. Painting itself collects only what is in view.
    void CollectDisplayKeys(KeyVector& out);

    /// What is known about all keys, brought up to date when the number of keys has changed since.
    const KeyFacts& Facts();
    /// To be called when keys may have changed in another way than in their number. Costs nothing
    /// here; the next paint or hit test looks at all keys once.
    void InvalidateCaches() { m_facts.valid = false; }

    CTimelineKeyArray& Keys() { return *m_keys; }
    const CTimelineKeyArray& Keys() const { return *m_keys; }
    CTimelineClipboard& Clipboard() { return m_clipboard; }
    const CTimelineClipboard& Clipboard() const { return m_clipboard; }
    /// Fills the clipboard with fresh copies of the selected keys, in frame order; false without
    /// any (the clipboard then keeps what it has).
    bool CopySelectionToClipboard();
    /// Puts aside @p copies of the track's keys, in frame order; false without any (the clipboard
    /// then keeps what it has).
    bool FillClipboard(const KeyVector& copies);

    int GetTrackType() const { return m_trackType; }
    int GetRowHeight() const { return m_rowHeight; }
    /// Pixels; the widget keeps its size until it is laid out or painted.
    void SetRowHeight(int height) { m_rowHeight = height; }

    /// The track's own pointer once it was made for a container; null before.
    CTimelineTrackBase* GetTrackId() const { return m_trackId; }
    void MarkAsOwnTrack() { m_trackId = this; }
    /// Itself for a root track, its root for a child track, null while not in a container.
    CTimelineTrackBase* GetParentTrack() const { return m_parentTrack; }
    void SetParentTrack(CTimelineTrackBase* parent) { m_parentTrack = parent; }
    bool IsRootTrack() const { return m_parentTrack && m_parentTrack == m_trackId; }
    bool IsAttached() const { return m_attached; }
    /// Whether a container shows the track.
    void SetAttached(bool attached) { m_attached = attached; }

    const QString& GetCaption() const { return m_caption; }
    void SetCaption(const QString& caption) { m_caption = caption; }

    const EditModes& GetEditModes() const { return m_editModes; }
    /// What the user may do in the row; replaces what was allowed before.
    void SetEditModes(const EditModes& modes) { m_editModes = modes; }
    bool HasEditMode(TLEditType mode) const { return m_editModes.Contains(mode); }
    /// With fewer than two edit modes a row's keys cannot be selected, nor is there a menu: a press
    /// only sets the current frame.
    bool IsFrameOnlyRow() const;

    CTimelineTrackBaseInterface* GetOwner() const { return m_owner; }
    /// Who gets the track's messages; not owned, null for nobody.
    void SetOwner(CTimelineTrackBaseInterface* owner) { m_owner = owner; }

    /// Sends a message to the owner; -1 without one. The owner may call the host, which may delete
    /// the track: who goes on afterwards asks first.
    int Send(int code, const QVariant& value2 = QVariant(0), const QVariant& value3 = QVariant(0));

protected:
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

    /// Watches the gesture that is under way; every handler has an OpenGesture::Handling of it.
    OpenGesture& Gesture() { return m_gesture; }
    /// The gesture that is common to all rows; the drags of a kind's own make it give way.
    KeyGesture& CommonGesture() { return m_keyGesture; }

    /// What Init does for every kind: parent, type, size (width, current height) and size policy.
    bool InitAs(QWidget* parent, int trackType, int width);
    static FrameAxis& Axis();

    /// Gives the widget @p size unless it has it; true when it changed. A resize in every paint
    /// would ask for the next one.
    bool ResizeTo(const QSize& size);
    /// What the row shows of its clips' sub-keys.
    DisplayScope Scope() const;
    /// The bars of the track's own keys that have a length; see BarPainter.
    void DrawOwnKeyBars(QPainter& painter, const RowView& view);
    /// The glyphs of the keys to draw and the bars over them: all that a row of point keys shows.
    void DrawPointKeys(QPainter* painter, QRect rect);
    /// A transition was seen that is longer than was known.
    void NoteTransition(long long frames);

    int m_trackType = TL_TRACK_NONE;

private:
    /// The time range that the background shows: the track's own, or that of the active track whose
    /// range it shares.
    TimeRange BackgroundRange() const;
    TimeRange OwnRange() const;
    void DrawRelatedTracks(QPainter& painter, const RowView& view);
    void LeaveDrag();

    // The key array is a member by count: one reference is the track's own, so that a pointer a
    // host makes of it can come and go.
    VZ::CPointer<CTimelineKeyArray> m_keys;
    CTimelineClipboard m_clipboard;
    std::unique_ptr<StyleRecord> m_style;
    CTimelineTrackBase* m_parentTrack = nullptr;
    int m_rowHeight = 20;
    CTimelineTrackBase* m_trackId = nullptr;
    QString m_caption;
    bool m_active = false;
    int m_rangeStart = -1;
    int m_rangeEnd = -1;
    EditModes m_editModes;
    CTimelineTrackBaseInterface* m_owner = nullptr;
    bool m_attached = false;
    bool m_isHeldOver = false; ///< something is dragged over the row
    KeyFacts m_facts;
    OpenGesture m_gesture;
    KeyGesture m_keyGesture;
};
