#pragma once

#include "CArrayList.h"
#include "KestovaExport.h"
#include "TimelineBoundaryRecords.h"
#include "TimelineEnums.h"

#include <QPoint>
#include <QString>

#include <vector>

class CTimelineTrackBase;

/// What the host hears of the user's gestures. The host derives from it, overrides what it wants to
/// know and hands the object to CTimelineManager::CreateTimelineManager; it stays the host's and
/// outlives the manager. Every function is called on the GUI thread, inside the Qt event that
/// caused it, and may call any operation of the manager. The order of the functions is part of the
/// binary interface.
class KESTOVA_EXPORT CTimelineManagerInterface
{
public:
    virtual ~CTimelineManagerInterface();

    /// The user moved the current frame. @p flag is false while the gesture goes on and true once,
    /// when it has come to rest; every false is followed by a true.
    virtual void OnCurrentFrameChanged(int frame, bool flag);
    /// The user moved a marker of the time mark. @p mark: 0 start, 1 end. @p frame: where it is
    /// now; the manager does not clamp it. @p flag: the marker was let go.
    virtual void OnMoveTimeMark(int mark, int frame, bool flag);
    /// Another root or child track became active. Either may be null.
    virtual void OnActiveTrackChanged(CTimelineTrackBase* rootTrack,
                                      CTimelineTrackBase* childTrack);
    /// A click left the active tracks as they were. Either may be null.
    virtual void OnActiveTrackTheSame(CTimelineTrackBase* rootTrack,
                                      CTimelineTrackBase* childTrack);
    /// A track was double-clicked. @p value: index of the key under the pointer (of the sub-key on
    /// a track in sub-key editing), -1 for none.
    virtual void OnTrackLDbClick(CTimelineTrackBase* track, int value);
    /// A button of a switch track was toggled. @p button: its place in the track's button list,
    /// counted from 0, where its new state stands.
    virtual void OnSwitchBtnStateChanged(CTimelineTrackBase* track, int button);
    /// The user edits keys. @p type says how, @p tracks where; the two values depend on the type
    /// (frames of a move, or the clip's index and the amount). The host applies the edit to its own
    /// data.
    /// @return the host's answer: 0 or more accepts, -1 (the default) declines.
    virtual int OnEditingKeys(TLEditType type, const VZ::CArrayList<CTimelineTrackBase*>& tracks,
                              int value1, int value2);
    /// A caption button was clicked. @p button: its id in the skin. @p position: where, in global
    /// coordinates.
    virtual void OnCaptionBtnChanged(CTimelineTrackBase* track, int button, QPoint position);
    /// A context menu is about to open. The host appends its entries to @p menu and keeps owning
    /// them.
    virtual void OnQueryTrackRightMenu(CTimelineTrackBase* track,
                                       std::vector<_tmpTLMenuMapData*>* menu);
    /// An entry was chosen. @p command: the entry's own number.
    virtual void OnSelectedTrackRightMenu(CTimelineTrackBase* track, int command);
    /// The key selection of other tracks was cleared.
    virtual void OnSelectedDataCleared();
    /// The key selection changed.
    virtual void OnSelectedDataChanged();
    /// A file was dropped. @p path: its local path. @return true when the host takes it; false is
    /// the default.
    virtual bool OnTrackDropFile(TLDropFileType type, QString path);
    /// A file (local path @p path) is held over frame @p type of @p track; the host may set the
    /// drop filters for it (CTimelineManager::SetEnableDragEnterFiletype) before it returns.
    virtual void OnCheckDragFile(CTimelineTrackBase* track, QString path, int type);
};
