#include "MainWindow.h"

#include "EditMenu.h"
#include "ImportCommand.h"
#include "TimelineWindow.h"
#include "WindowDrops.h"
#include "document/EditNames.h"
#include "history/UndoActions.h"
#include "playback/Transport.h"
#include "playback/TransportBar.h"
#include "preview/PreviewPane.h"

#include <QDockWidget>
#include <QMenuBar>
#include <QStatusBar>

namespace host {

namespace {

constexpr int kMessageTime = 5000; ///< milliseconds that a line stays in the status bar
constexpr int kAddKeyButton = 3;   ///< the caption button of that number in the skin

} // namespace

MainWindow::MainWindow()
    : m_dock(new QDockWidget(this)), m_tracks(m_manager), m_gestures(m_tracks, m_session),
      m_commands(m_manager, m_tracks, m_session), m_drops(m_manager, m_tracks, m_session),
      m_manager(this), m_history(m_session, m_manager, m_tracks),
      m_fileMenu(menuBar()->addMenu(tr("File"))),
      m_editMenu(new EditMenu(menuBar()->addMenu(tr("Edit")), m_commands)),
      m_import(new ImportCommand(this, m_manager, m_session)),
      m_transport(new Transport(this, m_manager, m_session))
{
    setWindowTitle(tr("Kestova Host"));
    m_dock->setWindowTitle(tr("Timeline"));
    m_dock->setFeatures(QDockWidget::NoDockWidgetFeatures);
    addDockWidget(Qt::BottomDockWidgetArea, m_dock);
    auto* const preview = new PreviewPane(m_session);
    connect(this, &MainWindow::CurrentFrameChanged, preview, &PreviewPane::ShowFrame);
    setCentralWidget(preview);
    statusBar()->setSizeGripEnabled(false);
    connect(&m_session, &EditSession::Committed, this, &MainWindow::Tell);
    m_drops.told = [this](const QString& text) { Tell(text); };
    m_drops.sceneChanged = [this] { ShowScene(); };
    ConnectTimeline();
    ConnectHistory();
    ConnectImport();
    ConnectPlayback();
}

void MainWindow::ConnectImport()
{
    addAction(m_import->Action()); // its shortcut holds without a menu
    m_import->told = [this](const QString& text) { Tell(text); };
    m_import->sceneChanged = [this] { ShowScene(); };
    const auto* const drops = new WindowDrops(this, m_dock);
    connect(drops, &WindowDrops::FilesDropped, m_import, &ImportCommand::Start);
}

void MainWindow::ConnectPlayback()
{
    m_transport->Bar()->FillMenu(*menuBar()->addMenu(tr("Playback")));
    connect(this, &MainWindow::CurrentFrameChanged, m_transport, &Transport::FollowFrame);
    connect(m_transport, &Transport::StateChanged, m_editMenu, &EditMenu::UpdateActions);
    connect(m_transport, &Transport::Told, this, &MainWindow::Tell);
}

void MainWindow::ConnectHistory()
{
    new UndoActions(static_cast<QMenu*>(m_editMenu->parent()), m_history, m_session);
    connect(this, &MainWindow::CurrentFrameChanged, &m_history, &UndoHistory::FollowFrame);
    connect(&m_session, &EditSession::Restored, this, &MainWindow::ShowScene);
    connect(&m_history, &UndoHistory::Undone, this,
            [this](const QString& name) { Tell(tr("Undone: %1").arg(name)); });
    connect(&m_history, &UndoHistory::Redone, this,
            [this](const QString& name) { Tell(tr("Redone: %1").arg(name)); });
}

void MainWindow::ConnectTimeline()
{
    m_callbacks.situationChanged = [this] { m_editMenu->UpdateActions(); };
    m_callbacks.timeMarkMoved = [this](int mark, int frame, bool isFinal) {
        MoveTimeMark(mark, frame, isFinal);
    };
    m_callbacks.switchButtonToggled = [this](CTimelineTrackBase* track, int button) {
        ToggleRows(track, button);
    };
    m_callbacks.captionButtonClicked = [this](CTimelineTrackBase* track, int button) {
        ClickCaptionButton(track, button);
    };
    m_callbacks.keysEdited = [this](TLEditType type, const TrackList& list, int value1,
                                    int value2) { return EditKeys(type, list, value1, value2); };
    m_callbacks.menuOpening = [this](CTimelineTrackBase* track,
                                     std::vector<_tmpTLMenuMapData*>& menu) {
        m_editMenu->FillRowMenu(track, menu);
    };
    m_callbacks.menuChosen = [this](CTimelineTrackBase* track, int command) {
        m_editMenu->RunFromRow(track, command);
    };
    m_callbacks.fileHeld = [this](CTimelineTrackBase* track, const QString& path) {
        m_drops.Hold(track, path);
    };
    m_callbacks.fileDropped = [this](TLDropFileType type, const QString& path) {
        return m_drops.Drop(type, path);
    };
}

bool MainWindow::CreateTimeline(const QString& skinPath)
{
    m_manager.SetTimelineWndFactoryBase(&m_factory);
    if (!m_manager.CreateTimelineManager(&m_callbacks, skinPath.toStdWString()) ||
        !m_manager.CreateTimelineMainWidget(m_dock))
        return false;
    connect(Window(), &TimelineWindow::CurrentFrameChanged, this, &MainWindow::CurrentFrameChanged);
    return true;
}

bool MainWindow::SetScene(const Scene& scene)
{
    m_session.Restart(scene);
    ShowTimes(scene);
    if (!m_tracks.Show(scene))
        return false;
    if (CTimelineTrackBase* const lips = m_manager.GetLipsTrack())
        m_manager.SetActiveChildTrack(lips);
    return true;
}

void MainWindow::ShowTimes(const Scene& scene)
{
    Window()->SetTimeBase(scene.frameRate, scene.frameCount);
    m_manager.SetFrameCount(scene.frameCount);
    m_manager.SetTimeMarkFrame(scene.timeMark.start, scene.timeMark.end);
}

/// Brings the timeline into line with a scene that may have other rows or another length.
void MainWindow::ShowScene()
{
    ShowTimes(m_session.Current());
    m_tracks.Update(m_session.Current());
    m_manager.SetCurrentFrame(m_manager.GetCurrentFrame()); // and its display
    CTimelineTrackBase* const lips = m_manager.GetLipsTrack();
    if (lips && !m_manager.GetActiveChildTrack())
        m_manager.SetActiveChildTrack(lips);
    m_editMenu->UpdateActions();
    ViewRecord MainWindow::View()
    {
        ViewRecord view;
        m_manager.GetScrollInfo(view.left, view.right);
        view.frame = m_manager.GetCurrentFrame();
        return view;
    }

    void MainWindow::SetView(const ViewRecord& view)
    {
        m_manager.ShowTimelineWnd(true);
        m_manager.SetScrollInfo(view.left, view.right);
        m_manager.SetCurrentFrame(view.frame);
    }

    void MainWindow::GotoFrame(int frame)
    {
        m_manager.ShowTimelineWnd(true);
        Window()->ShowAllFrames();
        m_manager.SetCurrentFrame(frame);
        constexpr int kToTheMiddle = 0;
        m_manager.ScrollToFrame(m_manager.GetCurrentFrame(), kToTheMiddle);
    }

    int MainWindow::EditKeys(TLEditType type, const TrackList& list, int value1, int value2)
    {
        const int answer = type <= TL_EDIT_CLIP_TRIM_END
                               ? m_gestures.Handle(type, list, value1, value2)
                               : m_commands.Handle(type, list);
        m_editMenu->UpdateActions();
        return answer;
    }

    void MainWindow::ToggleRows(CTimelineTrackBase * switchTrack, int button)
    {
        Scene scene = m_session.Current();
        SceneTrack* const row = scene.FindTrack(m_tracks.IdOf(switchTrack));
        std::vector<_tmpTLSwitchBtnData> states;
        if (!row || button < 0 || button >= row->buttons.size() ||
            !m_manager.GetTrackSwitchBtnList(switchTrack, states))
            return;
        constexpr int kFirstStateOn = 2; // on, and on with the pointer above
        m_session.Begin();
        SwitchButton& toggled = row->buttons[button];
        toggled.on = states[static_cast<std::size_t>(button)].state >= kFirstStateOn;
        for (const TrackId track : qAsConst(toggled.tracks))
            m_tracks.SetRowShown(scene, track, toggled.on);
        m_session.Step(RowsName(toggled.text, toggled.on), scene);
        m_session.Commit();
    }

    void MainWindow::MoveTimeMark(int mark, int frame, bool isFinal)
    {
        Scene scene = m_session.Current();
        (mark == 0 ? scene.timeMark.start : scene.timeMark.end) = frame;
        m_session.Step(MarkerName(mark == 0, frame), scene);
        if (isFinal)
            m_session.Commit();
    }

    void MainWindow::ClickCaptionButton(CTimelineTrackBase * track, int button)
    {
        if (button != kAddKeyButton)
            return;
        m_commands.Do(track, TL_EDIT_INSERT_KEY);
        m_editMenu->UpdateActions();
    }

    void MainWindow::Tell(const QString& text)
    {
        statusBar()->showMessage(text, kMessageTime);
    }

    TimelineWindow* MainWindow::Window()
    {
        return static_cast<TimelineWindow*>(m_manager.GetTimelineWnd());
    }

} // namespace host
