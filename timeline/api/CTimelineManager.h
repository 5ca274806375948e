#pragma once

#include "CArrayList.h"
#include "CPointer.h"
#include "CTimelineKey.h"
#include "CTimelineKeyArray.h"
#include "KestovaExport.h"
#include "TimelineBoundaryRecords.h"
#include "TimelineEnums.h"

#include <QString>
#include <QVariant>

#include <string>
#include <vector>

class CMyContainerInterface;
class CTimelineContainer;
class CTimelineManagerInterface;
class CTimelineTrackBase;
class CTimelineWndBase;
class CTimelineWndFactoryBase;
class QDockWidget;
class QWidget;

/// The one object that a host makes to put a timeline into its user interface. It connects the
/// host's callbacks (CTimelineManagerInterface), the host's window (CTimelineWndBase, made by its
/// factory) and the timeline widget in that window, and offers every operation on tracks, frames
/// and edits.
///
/// Order of use: constructor, SetTimelineWndFactoryBase, CreateTimelineManager,
/// CreateTimelineMainWidget, then SetFrameCount, CreateTrack and so on, then ShowTimelineWnd(true).
///
/// Frames count from 0 to the frame count less 1. GUI thread only; no operation throws; a refused
/// call changes nothing and returns the value given with it. A track *exists* from CreateTrack to
/// DeleteTrack (or until Qt destroys it with its parent); the ruler and the scroll bar do not exist
/// in this sense. The order of the members is part of the binary interface.
class KESTOVA_EXPORT CTimelineManager
{
public:
    /// @param parent the widget that hidden tracks are parked in; not owned, outlives the manager.
    /// The first manager loads the library's pictures, which needs a QGuiApplication.
    explicit CTimelineManager(QWidget* parent);
    /// Copies share tracks, window and interfaces; a host has no use for them.
    CTimelineManager(const CTimelineManager&) = default;
    /// As the copy.
    CTimelineManager& operator=(const CTimelineManager&) = default;
    /// Releases the window through its factory and frees the library's pictures.
    virtual ~CTimelineManager();

    // ---- The window ----

    /// @param factory makes and releases the window; not owned.
    void SetTimelineWndFactoryBase(CTimelineWndFactoryBase* factory);
    /// Sets the callbacks (only the first time; a later call keeps the first object) and the path
    /// of the skin file, which is one for the whole process. True.
    bool CreateTimelineManager(CTimelineManagerInterface* hostInterface, std::wstring skinPath);
    /// Makes the window through the factory and the timeline widget in it, and puts the window's
    /// widget into @p dock. False without a factory and when the window or the timeline cannot be
    /// made (a half-made window goes back to the factory). A window that exists already is released
    /// first.
    bool CreateTimelineMainWidget(QDockWidget* dock);
    /// Pushes the remembered frame count, current frame and time mark into the timeline, shows or
    /// hides the window and gives it the keyboard focus. The window's answer; false without a
    /// window.
    bool ShowTimelineWnd(bool show);
    bool EnableTimelineWnd(bool enable); ///< the window's answer; false without one
    bool IsTimelineWndVisible();         ///< the window's answer; false without one
    /// Calls the window's update; nothing without a window.
    void UpdateTimelineWnd();
    /// Hides every track and hands the window back to the factory. Tracks stay alive and can be
    /// shown in the next window. Always true.
    bool ReleaseTimelineWnd();
    /// To be called after the host changed keys or other data of its tracks: recomputes the layout
    /// and repaints.
    void InvalidateTimeline();
    /// Gives the keyboard focus to the window's widget and then to the timeline; nothing without a
    /// window.
    void SetTimelineWndFocus();
    void SetContainerEnabled(bool enable); ///< enables or disables the timeline widget alone
    CTimelineWndBase* GetTimelineWnd();    ///< null without one
    /// As given to the constructor.
    QWidget* GetParentWidget();

    // ---- Tracks: life and place ----

    /// Makes a track of type 3 to 8 in the skin's style @p styleIndex; it is not shown until
    /// ShowRootTrack or ShowChildTrack. Null without a window, for another type, and when the skin
    /// lacks the style. The manager owns the track.
    CTimelineTrackBase* CreateTrack(TL_TRACK_TYPE type, QString name, unsigned int styleIndex);
    /// Hides and deletes the track; its children are only hidden. False for a track that does not
    /// exist.
    bool DeleteTrack(CTimelineTrackBase* track);
    /// With a timeline widget: hides every track and deletes none. Without: deletes every track.
    /// True.
    bool DeleteAllTrack();
    /// Whether the track exists, in the sense above; any address may be asked about.
    bool IsTrackExist(CTimelineTrackBase* track);
    TL_TRACK_TYPE GetTrackType(CTimelineTrackBase* track); ///< -1 when refused
    /// The track's keys, valid while the track exists; null when refused. After a change call
    /// InvalidateTimeline.
    CTimelineKeyArray* GetKeyDataArray(CTimelineTrackBase* track);

    /// Places the track among the roots at @p sortIndex (beyond the end: last). A track that is
    /// shown already stays where it is (true). @p notify: tell the window that the track list
    /// changed. False, as with every operation below that does not say otherwise, for a track that
    /// does not exist and without a timeline widget.
    bool ShowRootTrack(CTimelineTrackBase* track, unsigned int sortIndex, bool notify);
    /// Places @p child under the shown root @p parent; false also when the parent is not a shown
    /// root.
    bool ShowChildTrack(CTimelineTrackBase* parent, CTimelineTrackBase* child,
                        unsigned int sortIndex, bool notify);
    bool HideRootTrack(CTimelineTrackBase* track, bool notify); ///< hides its children too
    /// True also for a track that is not a shown child.
    bool HideChildTrack(CTimelineTrackBase* track, bool notify);
    int GetRootTrackSortIndex(CTimelineTrackBase* track); ///< -1 when refused or not a shown root
    /// 0 for a track that does not exist, -1 for one that is not a shown child.
    int GetChildTrackSortIndex(CTimelineTrackBase* track);
    /// Moves a shown root or child to @p sortIndex among its like (beyond the end: last). True also
    /// for a track that is not shown, which stays so.
    bool SetRootTrackSortIndex(CTimelineTrackBase* track, unsigned int sortIndex, bool notify);
    /// The same for a child among the children of its parent.
    bool SetChildTrackSortIndex(CTimelineTrackBase* track, unsigned int sortIndex, bool notify);
    /// Appends the shown roots in order; the vector is not cleared.
    void GetVisibleRootTrackList(std::vector<CTimelineTrackBase*>& tracks);

    // ---- Tracks: state ----

    /// Makes the child and its root active; the key selections under another root are cleared.
    bool SetActiveChildTrack(CTimelineTrackBase* track);
    /// Makes the root and its first child active. Null is allowed and clears the active root (true,
    /// also without a timeline widget).
    bool SetActiveRootTrack(CTimelineTrackBase* track);
    CTimelineTrackBase* GetActiveRootTrack();  ///< null without one
    CTimelineTrackBase* GetActiveChildTrack(); ///< null without one
    /// The text of the track's caption.
    bool SetTrackName(CTimelineTrackBase* track, QString name);
    /// The track's time range, as given: either frame may be the larger, -1 means none.
    void SetTrackSelFrame(CTimelineTrackBase* track, int frameA, int frameB);
    /// The time range, smaller frame first; untouched when refused.
    void GetTrackSelFrame(CTimelineTrackBase* track, int& first, int& last);
    /// What the user may do on the track; the list is copied. With fewer than two entries the row
    /// is for moving the current frame alone.
    bool SetTrackEditMode(CTimelineTrackBase* track, VZ::CArrayList<TLEditType>& modes);
    /// The state of the first caption button whose id in the skin is @p buttonId: of a push button
    /// 0 normal, 1 hover, 2 pressed; of a toggle 0 off, 2 on, and 1 and 3 the same with the pointer
    /// over it. False (state untouched) for a track without such a button.
    bool GetTrackCaptionBtnState(CTimelineTrackBase* track, int buttonId, int& state);
    /// Sets the state of the caption buttons of that id; nothing is repainted. Always false, also
    /// when it was set.
    bool SetTrackCaptionBtnState(CTimelineTrackBase* track, int buttonId, int& state);
    /// A copy of the buttons, with their states. This and the next three are refused (false, and
    /// nothing changes) for any track but a switch track.
    bool GetTrackSwitchBtnList(CTimelineTrackBase* track,
                               std::vector<_tmpTLSwitchBtnData>& buttons);
    /// Replaces the buttons; nothing is repainted.
    bool SetTrackSwitchBtnList(CTimelineTrackBase* track,
                               std::vector<_tmpTLSwitchBtnData>& buttons);
    /// Whether the scroll arrows are drawn at the ends of the row.
    bool GetTrackSwitchScrollState(CTimelineTrackBase* track, bool& shown);
    /// Draws the scroll arrows or not; nothing is repainted.
    bool SetTrackSwitchScrollState(CTimelineTrackBase* track, bool shown);

    /// A copy of the relation table; false without a timeline widget.
    bool GetTrackRelMapTable(std::vector<_tmpTLRelatedMap>& table);
    /// Replaces the relation table, one for the whole process; nothing is repainted. False without
    /// a timeline widget.
    bool SetTrackRelMapTable(const std::vector<_tmpTLRelatedMap>& table);
    CTimelineTrackBase* GetLipsTrack(); ///< the shown viseme-key child track, or null

    // ---- Keys: selection, clipboard, edits ----

    /// Appends the child tracks that hold selected keys; root tracks are never listed. An active
    /// track in sub-key editing empties the list and stands in it alone, if sub-keys of it are
    /// selected.
    void GetSelectedKeyTrack(VZ::CArrayList<CTimelineTrackBase*>& tracks);
    /// Empties the track's clipboard; needs no window.
    bool ResetClipboard(CTimelineTrackBase* track);
    /// Puts copies of the track's selected keys aside, in frame order; false for an unknown track
    /// or without selected keys (the clipboard then keeps what it has).
    bool CopySelectionToClipboard(CTimelineTrackBase* track);
    /// What was put aside, and the first copied key's frame; false for an unknown track or an empty
    /// clipboard (the outputs are then untouched).
    bool GetClipboardKeys(CTimelineTrackBase* track, std::vector<VZ::CPointer<CTimelineKey>>& keys,
                          int& sourceValue);
    /// Whether the edit can be done now; a null track stands for the active child track. False
    /// without a timeline widget or a track.
    bool CanDoTrackEdit(CTimelineTrackBase* track, TLEditType type);
    /// Does the edits 22, 23 and 24; false for any other.
    bool DoTrackEdit(CTimelineTrackBase* track, TLEditType type);

    // ---- Files ----

    /// The six drop filters; any of them lets a known file be held over a track, the last two say
    /// what a sound file is dropped as.
    void SetEnableDragEnterFiletype(bool filter1, bool filter2, bool filter3, bool filter4,
                                    bool filter5, bool filter6);
    /// Whether a locked clip of the track covers @p frame, both its ends included; false for null.
    bool CheckIdleClip(CTimelineTrackBase* track, int frame);
    /// Whether a clip of the wave row covers @p frame, both its ends included; false without such a
    /// row.
    bool CheckDragFileUnderVisemeClip(int frame);
    /// After a dropped file was loaded: activates the track, clears the key selection of all other
    /// tracks, tells the host of both, and selects the clip that starts at the current frame in
    /// addition to what the track has selected already. Nothing for null and for a track that is
    /// gone.
    void SetDropTrackFocusAndPickJustLoadClip(CTimelineTrackBase* track);

    // ---- Frames and view ----

    /// Stored as given; the current frame and the time mark are not adjusted.
    void SetFrameCount(int count);
    int GetFrameCount(); ///< as the manager remembers it
    /// Clamped to at least 0, then to at most the frame count less 1. Shown at once, and with it
    /// what was changed before; the window is told, the host's callbacks are not. Changes of keys
    /// are sure to be shown only after InvalidateTimeline.
    void SetCurrentFrame(int frame);
    int GetCurrentFrame(); ///< as the timeline shows it; 0 without one
    /// Clamped like the current frame.
    void SetTimeMarkFrame(int start, int end);
    void GetTimeMarkFrame(int& start, int& end); ///< 0 and 1 without a timeline widget
    /// Brings the frame into view. @p align: 0 to the middle, above 0 to the right edge, below 0 to
    /// the left one; a frame that is in view stays where it is. False without a timeline widget.
    bool ScrollToFrame(int frame, int align);
    bool ScrollToTrack(CTimelineTrackBase* track); ///< always false: the host scrolls vertically
    /// The thumb's edges as fractions, 0 to 1, of the scroll bar; untouched without a timeline
    /// widget.
    void GetScrollInfo(float& left, float& right);
    void SetScrollInfo(float left, float right); ///< refused unless 0 <= left <= right <= 1

    // ---- The road from the timeline to the host; a host may inject events here ----

    /// 0 for the codes 1301 to 1314, -1 for any other. This and the next two call the host's
    /// callbacks unchecked and must not be called before CreateTimelineManager.
    int ReceiveMessage(unsigned int code, CTimelineTrackBase* track, HANDLE handle, QVariant value1,
                       QVariant value2, QVariant value3);
    /// The host's answer to the edit.
    int ReceiveTrackEdit(TLEditType type, const VZ::CArrayList<CTimelineTrackBase*>& tracks,
                         QVariant value1, QVariant value2);
    /// The host's answer to the drop.
    bool ReceiveTrackDrop(TLDropFileType type, QString path);

private:
    CTimelineContainer* Container() const;
    int ClampedFrame(int frame) const;
    bool PlaceContainer();
    void ReleaseWindow();
    void LayoutAndRepaint();
    void ReceiveCurrentFrame(int frame, bool isFinal);
    void ParkUnplacedTracks(CTimelineContainer* container);

    QWidget* m_parent;
    CTimelineWndBase* m_window;
    CTimelineWndFactoryBase* m_factory;
    CTimelineManagerInterface* m_hostInterface;
    CMyContainerInterface* m_containerInterface;
    std::vector<CTimelineTrackBase*> m_tracks;
    int m_frameCount;
    int m_currentFrame;
    int m_timeMarkStart;
    int m_timeMarkEnd;
};
