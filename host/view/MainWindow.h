#pragma once

#include "CaptionButtons.h"
#include "EditRequests.h"
#include "FileDrops.h"
#include "GestureEdits.h"
#include "KeyCommands.h"
#include "RangeCommands.h"
#include "SceneTracks.h"
#include "ShownScene.h"
#include "SkinSwitch.h"
#include "TimelineCallbacks.h"
#include "TimelineWindowFactory.h"
#include "document/EditSession.h"
#include "history/UndoHistory.h"
#include "storage/SceneDocument.h"

#include <KestovaTimelineQU/KestovaTimelineQU.h>

#include <QMainWindow>

namespace host {

class EditMenu;
class FrameProbe;
class ImportCommand;
class PointerWatch;
class PreviewPane;
class RowMenu;
class SkinMenu;
class StatusLine;
class TimelineMenu;
class Transport;
class WindowDrops;

/// The editor's window: holds the scene and the timeline that shows it in a dock, and applies to
/// the scene what the user does there.
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    MainWindow();

    /// Puts the timeline into the dock, drawn in that skin. False when the skin cannot be read or
    /// is not complete; the window is then of no use.
    bool CreateTimeline(const QString& skinPath);
    /// Shows @p scene in place of the one before. False when the skin lacks a style that it needs.
    bool SetScene(const Scene& scene);
    /// Whether SetScene can: the skin has all that the scene asks for.
    bool CanShow(const Scene& scene) const { return m_tracks.CanShow(scene); }
    /// How the scene is looked at, and looking at it so.
    ViewRecord View();
    void SetView(const ViewRecord& view);
    /// Makes @p frame current, or the last one when there are fewer, and brings it into view.
    void GotoFrame(int frame);

    /// Draws the timeline in that skin, and the window in the theme that goes with it; scene,
    /// selection, current frame and view stay. False, and all stays, when the skin is not complete.
    bool ShowSkin(const QString& skinPath);
    /// The path of the skin.
    QString Skin() const;
    /// What the end of a clip changes: its speed or its loops.
    bool IsClipSpeed();
    void SetClipSpeed(bool isSpeed);

    /// The scene with all edits so far.
    const Scene& CurrentScene() const { return m_session.Current(); }
    /// The scene and the edit under way; its signals tell of every change.
    EditSession& Session() { return m_session; }
    /// The timeline, and which of its tracks stands for which of the scene.
    CTimelineManager& Timeline() { return m_manager; }
    ImportCommand& Import() { return *m_import; }
    /// The files that are dropped on the window.
    WindowDrops& Drops() { return *m_windowDrops; }
    PreviewPane& Preview() { return *m_preview; }
    Transport& Player() { return *m_transport; }
    const SceneTracks& Tracks() const { return m_tracks; }
    /// Says what lies at a point of the timeline.
    FrameProbe& Probe();
    /// What was done, to be undone.
    UndoHistory& History() { return m_history; }
    /// The first menu, which is empty as long as nobody fills it.
    QMenu* FileMenu() { return m_fileMenu; }
    /// Shows a line to the user for a while.
    void Tell(const QString& text);

signals:
    /// Another frame is current, whoever made it so.
    void CurrentFrameChanged(int frame);

private:
    void AddParts();
    void AddMenus();
    void AddPlayback();
    void ConnectTimeline();
    void ConnectHistory();
    void ConnectImport();
    void ConnectPointer();
    void TakeWindow(TimelineWindow& window, const QString& skinPath);
    void FocusTimeline();
    void ShowScene();
    void ShowFrame(int frame);
    void UpdateCommands();
    void ClickCaptionButton(CTimelineTrackBase* track, int button, QPoint place);

    // Destroyed from the last to the first: the manager goes before what it calls.
    EditSession m_session;
    QDockWidget* m_dock;
    TimelineCallbacks m_callbacks;
    TimelineWindowFactory m_factory;
    SceneTracks m_tracks;
    GestureEdits m_gestures;
    KeyCommands m_commands;
    EditRequests m_requests;
    FileDrops m_drops;
    CaptionButtons m_captionButtons;
    SwitchRows m_switchRows;
    RangeCommands m_ranges;
    ShownScene m_scene;
    SkinSwitch m_skins;
    CTimelineManager m_manager;
    UndoHistory m_history;
    // The window's:
    QMenu* m_fileMenu;
    QMenu* m_edit;
    EditMenu* m_editMenu;
    PreviewPane* m_preview;
    ImportCommand* m_import;
    WindowDrops* m_windowDrops;
    Transport* m_transport;
    TimelineMenu* m_timelineMenu = nullptr;
    SkinMenu* m_skinMenu = nullptr;
    RowMenu* m_rowMenu = nullptr;
    PointerWatch* m_pointer;
    StatusLine* m_statusLine;
};

} // namespace host
