#pragma once

#include <KestovaTimelineQU/KestovaTimelineQU.h>

#include <functional>

namespace host {

/// Hands the timeline's callbacks to whoever of the host they concern. A handler that is not set is
/// not called.
class TimelineCallbacks : public CTimelineManagerInterface
{
public:
    /// Something changed that commands depend on: the selection, the active track, the current
    /// frame.
    std::function<void()> situationChanged;
    /// The selection is another one, or another track is active; told before situationChanged.
    std::function<void()> selectionChanged;
    /// The user has gone to another row. Given are the active root and the active row below a root,
    /// as the timeline tells them.
    std::function<void(CTimelineTrackBase* root, CTimelineTrackBase* child)> activeTrackChanged;
    /// A marker of the ruler stands at @p frame now. @p mark: 0 start, 1 end. @p isFinal: it was
    /// let go.
    std::function<void(int mark, int frame, bool isFinal)> timeMarkMoved;
    /// A button of a switch row was switched on or off.
    std::function<void(CTimelineTrackBase* track, int button)> switchButtonToggled;
    /// A button of a caption, by its number in the skin, was clicked at a place of the screen.
    std::function<void(CTimelineTrackBase* track, int button, QPoint place)> captionButtonClicked;
    /// Keys are edited; 0 or more accepts, -1 refuses.
    std::function<int(TLEditType type, const VZ::CArrayList<CTimelineTrackBase*>& tracks,
                      int value1, int value2)>
        keysEdited;
    /// A menu opens on a track, which can be given entries.
    std::function<void(CTimelineTrackBase* track, std::vector<_tmpTLMenuMapData*>& menu)>
        menuOpening;
    /// An entry of the menu was chosen, by its number.
    std::function<void(CTimelineTrackBase* track, int command)> menuChosen;
    /// A file is held over a frame of a track.
    std::function<void(CTimelineTrackBase* track, const QString& path, int frame)> fileHeld;
    /// A file was dropped on the active track; true takes it.
    std::function<bool(TLDropFileType type, const QString& path)> fileDropped;

    void OnCurrentFrameChanged(int frame, bool flag) override;
    void OnMoveTimeMark(int mark, int frame, bool flag) override;
    void OnActiveTrackChanged(CTimelineTrackBase* rootTrack,
                              CTimelineTrackBase* childTrack) override;
    void OnSwitchBtnStateChanged(CTimelineTrackBase* track, int button) override;
    int OnEditingKeys(TLEditType type, const VZ::CArrayList<CTimelineTrackBase*>& tracks,
                      int value1, int value2) override;
    void OnCaptionBtnChanged(CTimelineTrackBase* track, int button, QPoint position) override;
    void OnQueryTrackRightMenu(CTimelineTrackBase* track,
                               std::vector<_tmpTLMenuMapData*>* menu) override;
    void OnSelectedTrackRightMenu(CTimelineTrackBase* track, int command) override;
    void OnSelectedDataCleared() override;
    void OnSelectedDataChanged() override;
    bool OnTrackDropFile(TLDropFileType type, QString path) override;
    void OnCheckDragFile(CTimelineTrackBase* track, QString path, int frame) override;
};

} // namespace host
