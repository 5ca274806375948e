#include "MainWindow.h"

#include "AboutBox.h"
#include "EditMenu.h"
#include "ImportCommand.h"
#include "KeptTimeline.h"
#include "KeySelections.h"
#include "PointerWatch.h"
#include "RowMenu.h"
#include "RowModes.h"
#include "SkinMenu.h"
#include "StatusLine.h"
#include "SwitchArrows.h"
#include "Theme.h"
#include "TimelineMenu.h"
#include "TimelinePane.h"
#include "TimelineWheel.h"
#include "TimelineWindow.h"
#include "WindowDrops.h"
#include "document/EditNames.h"
#include "document/SelectionText.h"
#include "history/UndoActions.h"
#include "playback/Transport.h"
#include "playback/TransportBar.h"
#include "preview/PreviewPane.h"

#include <QApplication>
#include <QDockWidget>
#include <QMenuBar>
#include <QStatusBar>

namespace host {

namespace {

constexpr int kMessageTime = 5000; ///< milliseconds that a line stays in the status bar

// The caption buttons of those numbers in the skin.
constexpr int kAddKeyButton = 3;
constexpr int kMenuButton = 4;

} // namespace

MainWindow::MainWindow()
    : m_dock(new QDockWidget(this)), m_tracks(m_manager), m_gestures(m_tracks, m_session),
      m_commands(m_manager, m_tracks, m_session), m_drops(m_manager, m_tracks, m_session),
      m_captionButtons(m_manager, m_tracks, m_session), m_ranges(m_manager, m_tracks, m_session),
      m_manager(this), m_history(m_session, m_manager, m_tracks),
      m_fileMenu(menuBar()->addMenu(tr("File"))),
      m_editMenu(new EditMenu(menuBar()->addMenu(tr("Edit")), m_commands)),
      m_import(new ImportCommand(this, m_manager, m_session)),
      m_windowDrops(new WindowDrops(this, m_dock)),
      m_transport(new Transport(this, m_manager, m_session))
{
    setWindowTitle(tr("Kestova Host"));
    m_dock->setObjectName(QStringLiteral("timeline")); // its place is remembered by it
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
    AddMenus();
    WatchPointer();
    ConnectTimeline();
    ConnectHistory();
    ConnectImport();
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

void MainWindow::ConnectImport()
{
    addAction(m_import->Action()); // its shortcut holds without a menu
    m_import->told = [this](const QString& text) { Tell(text); };
    m_import->sceneChanged = [this] { ShowScene(); };
    connect(m_windowDrops, &WindowDrops::FilesDropped, m_import, &ImportCommand::Start);
}

void MainWindow::AddMenus()
{
    QMenu* const view = menuBar()->addMenu(tr("View"));
    QMenu* const timeline = menuBar()->addMenu(tr("Timeline"));
    m_timelineMenu =
        new TimelineMenu(view, timeline, {m_manager, m_session, m_ranges, m_captionButtons});
    connect(m_timelineMenu, &TimelineMenu::Done, this, &MainWindow::UpdateCommands);
    AddPlayback();
    view->addSeparator();
    m_skinMenu = new SkinMenu(view->addMenu(tr("Skin")),
                              [this](const QString& path) { return ShowSkin(path); });
    menuBar()->addMenu(tr("Help"))->addAction(tr("About Kestova Host"), this, [this] {
        ShowAboutBox(this);
    });
    m_rowMenu = new RowMenu(this, *m_editMenu, m_captionButtons);
}

void MainWindow::AddPlayback()
{
    m_transport->Bar()->FillMenu(*menuBar()->addMenu(tr("Playback")));
    connect(this, &MainWindow::CurrentFrameChanged, m_transport, &Transport::FollowFrame);
    connect(m_transport, &Transport::StateChanged, this, &MainWindow::UpdateCommands);
    connect(m_transport, &Transport::Told, this, &MainWindow::Tell);
}

void MainWindow::WatchPointer()
{
    m_statusLine = new StatusLine(statusBar(), m_session, m_tracks);
    m_statusLine->selectionText = [this] {
        return SelectionText(CurrentScene(), m_commands.Selection());
    };
    connect(m_timelineMenu, &TimelineMenu::Done, m_statusLine, &StatusLine::LookAtSelection);
    auto* const pointer = new PointerWatch(this);
    pointer->setObjectName(QStringLiteral("pointer"));
    connect(pointer, &PointerWatch::Moved, m_statusLine, &StatusLine::Look);
    connect(pointer, &PointerWatch::Left, m_statusLine, &StatusLine::Clear);
    // Keys go where one looks: to the timeline, as soon as one works in it. It gives the focus up
    // itself when some of its gestures end.
    connect(pointer, &PointerWatch::Pressed, this, &MainWindow::FocusTimeline);
    connect(pointer, &PointerWatch::Released, this, &MainWindow::FocusTimeline);
}

void MainWindow::FocusTimeline()
{
    const QWidget* const timeline = Window()->Pane().Timeline();
    const QWidget* const focus = QApplication::focusWidget();
    if (timeline && (!focus || (focus != timeline && !timeline->isAncestorOf(focus))))
        m_manager.SetTimelineWndFocus();
}

void MainWindow::ConnectTimeline()
{
    m_callbacks.frameChanged = [this] { UpdateCommands(); };
    m_callbacks.selectionChanged = [this] {
        UpdateCommands();
        m_statusLine->LookAtSelection();
    };
    m_callbacks.timeMarkMoved = [this](int mark, int frame, bool isFinal) {
        MoveTimeMark(mark, frame, isFinal);
    };
    m_callbacks.switchButtonToggled = [this](CTimelineTrackBase* track, int button) {
        ToggleRows(track, button);
    };
    m_callbacks.captionButtonClicked = [this](CTimelineTrackBase* track, int button, QPoint place) {
        ClickCaptionButton(track, button, place);
    };
    m_callbacks.keysEdited = [this](TLEditType type, const TrackList& list, int value1,
                                    int value2) { return EditKeys(type, list, value1, value2); };
    m_callbacks.menuOpening = [this](CTimelineTrackBase* track,
                                     std::vector<_tmpTLMenuMapData*>& menu) {
        m_rowMenu->Fill(track, menu);
    };
    m_callbacks.menuChosen = [this](CTimelineTrackBase* track, int command) {
        m_rowMenu->Run(track, command);
    };
    m_callbacks.fileHeld = [this](CTimelineTrackBase* track, const QString& path, int frame) {
        if (!m_statusLine->Probe().Answer(track, path, frame))
            m_drops.Hold(track, path, frame);
    };
    m_callbacks.fileDropped = [this](TLDropFileType type, const QString& path) {
        return m_drops.Drop(type, path);
    };
}

bool MainWindow::CreateTimeline(const QString& skinPath)
{
    m_manager.SetTimelineWndFactoryBase(&m_factory);
    if (!DrawIn(skinPath))
        return false;
    m_skinMenu->SetCurrent(skinPath);
    return true;
}

bool MainWindow::DrawIn(const QString& skinPath)
{
    if (!m_manager.CreateTimelineManager(&m_callbacks, skinPath.toStdWString()) ||
        !m_manager.CreateTimelineMainWidget(m_dock))
        return false;
    TimelineWindow* const window = Window();
    connect(window, &TimelineWindow::CurrentFrameChanged, this, &MainWindow::CurrentFrameChanged);
    connect(window, &TimelineWindow::Refreshed, m_timelineMenu, &TimelineMenu::Update);
    connect(&window->Pane(), &TimelinePane::ViewResized, this, &MainWindow::ShowArrows);
    m_timelineMenu->SetWindow(window);
    m_statusLine->SetPane(&window->Pane());
    findChild<PointerWatch*>(QStringLiteral("pointer"))->Watch(window->Pane().Viewport());
    new TimelineWheel(*window, m_manager); // the window's
    return true;
}

bool MainWindow::ShowSkin(const QString& skinPath)
{
    m_session.Commit(); // a gesture would not outlive its track
    const KeptTimeline kept(m_manager, m_tracks, CurrentScene());
    const bool isClipSpeed = IsClipSpeed();
    const int scrolled = Window()->Pane().VerticalScroll();
    const bool isShown = RedrawIn(skinPath);
    if (isShown) {
        m_skinMenu->SetCurrent(skinPath);
    } else {
        RedrawIn(Skin());
        Tell(tr("%1: expected a skin with every section and key").arg(skinPath));
    }
    kept.Restore(m_manager, m_tracks, CurrentScene());
    SetClipSpeed(isClipSpeed);
    m_statusLine->LookAtSelection();
    Window()->Pane().SetVerticalScroll(scrolled);
    UpdateCommands();
    return isShown;
}

bool MainWindow::RedrawIn(const QString& skinPath)
{
    // The window first: a theme that changes the sizes around the timeline has done so by then.
    ApplyTheme(*qApp, ThemeOfSkin(skinPath));
    if (!DrawIn(skinPath) || !m_tracks.Show(CurrentScene()))
        return false;
    ShowRowStates();
    Window()->SetTimeBase(CurrentScene().frameRate, CurrentScene().frameCount);
    m_manager.ShowTimelineWnd(true);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest); // the view takes its place
    return true;
}

/// Beside the rows themselves, which are there.
void MainWindow::ShowRowStates()
{
    m_captionButtons.ShowAll();
    ShowArrows();
}

void MainWindow::ShowArrows()
{
    if (QWidget* const timeline = Window()->Pane().Timeline())
        ShowSwitchArrows(m_manager, m_tracks, CurrentScene(), timeline->width());
}

QString MainWindow::Skin() const
{
    return m_skinMenu->Current();
}

bool MainWindow::IsClipSpeed()
{
    return Window()->IsClipSpeed();
}

void MainWindow::SetClipSpeed(bool isSpeed)
{
    Window()->SetClipSpeed(isSpeed);
}

bool MainWindow::SetScene(const Scene& scene)
{
    m_session.Restart(scene);
    ShowTimes(scene);
    if (!m_tracks.Show(scene))
        return false;
    ShowRowStates();
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
    ShowTimes(CurrentScene());
    m_tracks.Update(CurrentScene());
    ShowRowStates();
    m_manager.SetCurrentFrame(m_manager.GetCurrentFrame()); // and its display
    CTimelineTrackBase* const lips = m_manager.GetLipsTrack();
    if (lips && !m_manager.GetActiveChildTrack())
        m_manager.SetActiveChildTrack(lips);
    UpdateCommands();
}

ViewRecord MainWindow::View()
{
    const ViewFractions view = ViewOf(m_manager);
    return {view.left, view.right, m_manager.GetCurrentFrame()};
}

void MainWindow::SetView(const ViewRecord& view)
{
    m_manager.ShowTimelineWnd(true);
    ShowView(m_manager, {view.left, view.right});
    m_manager.SetCurrentFrame(view.frame);
}

void MainWindow::GotoFrame(int frame)
{
    m_manager.ShowTimelineWnd(true);
    Window()->Do(ViewCommand::ShowAll);
    m_manager.SetCurrentFrame(frame);
    constexpr int kToTheMiddle = 0;
    m_manager.ScrollToFrame(m_manager.GetCurrentFrame(), kToTheMiddle);
}

int MainWindow::EditKeys(TLEditType type, const TrackList& list, int value1, int value2)
{
    TellOfLocks(type, list);
    const int answer = type <= TL_EDIT_CLIP_TRIM_END ? m_gestures.Handle(type, list, value1, value2)
                                                     : m_commands.Handle(type, list);
    UpdateCommands();
    return answer;
}

void MainWindow::TellOfLocks(TLEditType type, const TrackList& list)
{
    const bool isFurtherStep = type > TL_EDIT_BEGIN && type <= TL_EDIT_CLIP_TRIM_END;
    if (isFurtherStep || (type != TL_EDIT_BEGIN && !ChangesKeys(type)))
        return;
    for (const TrackId id : TracksOf(m_tracks, list)) {
        const SceneTrack* const row = CurrentScene().FindTrack(id);
        if (row && row->locked)
            Tell(tr("%1 is locked").arg(row->caption));
    }
}

void MainWindow::UpdateCommands()
{
    m_editMenu->UpdateActions();
    m_timelineMenu->Update();
}

void MainWindow::ToggleRows(CTimelineTrackBase* switchTrack, int button)
{
    Scene scene = m_session.Current();
    SceneTrack* const row = scene.FindTrack(m_tracks.IdOf(switchTrack));
    std::vector<_tmpTLSwitchBtnData> states;
    if (!row || button < 0 || button >= row->buttons.size() ||
        !m_manager.GetTrackSwitchBtnList(switchTrack, states))
        return;
    constexpr int kFirstStateOn = 2; // on, and on with the pointer above
    m_session.Begin();               // before rows that go take what is selected on them along
    SwitchButton& toggled = row->buttons[button];
    toggled.on = states[static_cast<std::size_t>(button)].state >= kFirstStateOn;
    for (const TrackId track : qAsConst(toggled.tracks))
        m_tracks.SetRowShown(scene, track, IsRowShown(scene, track));
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

void MainWindow::ClickCaptionButton(CTimelineTrackBase* track, int button, QPoint place)
{
    if (button == kMenuButton)
        m_rowMenu->Open(track, place);
    else if (button == kAddKeyButton && m_captionButtons.Has(track, RowState::Locked))
        Tell(tr("%1 is locked").arg(CurrentScene().FindTrack(m_tracks.IdOf(track))->caption));
    else if (button == kAddKeyButton)
        m_commands.Do(track, TL_EDIT_INSERT_KEY);
    else
        m_captionButtons.Click(track, button);
    UpdateCommands();
}

FrameProbe& MainWindow::Probe()
{
    return m_statusLine->Probe();
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
