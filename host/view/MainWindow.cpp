#include "MainWindow.h"

#include "AboutBox.h"
#include "EditMenu.h"
#include "ImportCommand.h"
#include "PointerWatch.h"
#include "RowMenu.h"
#include "SkinMenu.h"
#include "StatusLine.h"
#include "TimelineMenu.h"
#include "TimelinePane.h"
#include "TimelineWheel.h"
#include "ViewFractions.h"
#include "WindowDrops.h"
#include "document/FrameText.h"
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

/// An entry that shows and hides a part of the window.
void AddPart(QMenu& menu, const QString& text, QWidget& part)
{
    QAction* const action = menu.addAction(text);
    action->setCheckable(true);
    action->setChecked(!part.isHidden());
    QObject::connect(action, &QAction::toggled, &part, &QWidget::setVisible);
    QObject::connect(&menu, &QMenu::aboutToShow, action,
                     [action, &part] { action->setChecked(!part.isHidden()); });
}

} // namespace

MainWindow::MainWindow()
    : m_dock(new QDockWidget(this)), m_tracks(m_manager), m_gestures(m_tracks, m_session),
      m_commands(m_manager, m_tracks, m_session),
      m_requests(m_tracks, m_session, m_gestures, m_commands),
      m_drops(m_manager, m_tracks, m_session), m_captionButtons(m_manager, m_tracks, m_session),
      m_switchRows(m_manager, m_tracks, m_session), m_ranges(m_manager, m_tracks, m_session),
      m_scene({m_manager, m_tracks, m_session, m_captionButtons, m_switchRows, m_factory}),
      m_skins({m_manager, *m_dock, m_callbacks, m_factory, m_tracks, m_session, m_scene}),
      m_manager(this), m_history(m_session, m_manager, m_tracks),
      m_fileMenu(menuBar()->addMenu(tr("&File"))), m_edit(menuBar()->addMenu(tr("&Edit"))),
      m_editMenu(new EditMenu(m_edit, m_commands)), m_preview(new PreviewPane(m_session)),
      m_import(new ImportCommand(this, m_manager, m_session)),
      m_windowDrops(new WindowDrops(this, m_dock)),
      m_transport(new Transport(this, m_manager, m_session)), m_pointer(new PointerWatch(this)),
      m_statusLine(new StatusLine(statusBar(), m_session, m_tracks))
{
    setWindowTitle(tr("Kestova Host"));
    AddParts();
    AddMenus();
    ConnectPointer();
    ConnectTimeline();
    ConnectHistory();
    ConnectImport();
}

void MainWindow::AddParts()
{
    m_dock->setObjectName(QStringLiteral("timeline")); // its place is remembered by it
    m_dock->setWindowTitle(tr("Timeline"));
    m_dock->setFeatures(QDockWidget::NoDockWidgetFeatures);
    m_dock->setTitleBarWidget(new QWidget(m_dock)); // none: there is nothing to take hold of it for
    addDockWidget(Qt::BottomDockWidgetArea, m_dock);
    m_preview->setObjectName(QStringLiteral("preview"));
    connect(this, &MainWindow::CurrentFrameChanged, m_preview, &PreviewPane::ShowFrame);
    setCentralWidget(m_preview);
    statusBar()->setSizeGripEnabled(false);
    const auto tell = [this](const QString& text) { Tell(text); };
    connect(&m_session, &EditSession::Committed, this, tell);
    m_requests.told = tell;
    m_drops.told = tell;
    m_drops.sceneChanged = [this] { ShowScene(); };
}

void MainWindow::ConnectHistory()
{
    new UndoActions(m_edit, m_history, m_session);
    connect(this, &MainWindow::CurrentFrameChanged, &m_history, &UndoHistory::FollowFrame);
    connect(&m_session, &EditSession::Restored, this, &MainWindow::ShowScene);
    // What is edited while it plays is heard and seen where it plays.
    m_history.keepsFrame = [this] { return m_transport->IsUnderWay(); };
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
    QMenu* const view = menuBar()->addMenu(tr("&View"));
    QMenu* const timeline = menuBar()->addMenu(tr("&Timeline"));
    m_timelineMenu =
        new TimelineMenu(view, timeline, {m_manager, m_session, m_ranges, m_captionButtons});
    connect(m_timelineMenu, &TimelineMenu::Done, this, &MainWindow::UpdateCommands);
    AddPlayback();
    view->addSeparator();
    AddPart(*view, tr("P&review"), *m_preview);
    AddPart(*view, tr("Playback &Bar"), *m_transport->Bar());
    view->addSeparator();
    m_skinMenu = new SkinMenu(view->addMenu(tr("&Skin")),
                              [this](const QString& path) { return ShowSkin(path); });
    menuBar()->addMenu(tr("&Help"))->addAction(tr("&About Kestova Host"), this, [this] {
        ShowAboutBox(this);
    });
    m_rowMenu = new RowMenu(this, *m_editMenu, m_captionButtons);
}

void MainWindow::AddPlayback()
{
    m_transport->Bar()->FillMenu(*menuBar()->addMenu(tr("&Playback")));
    connect(this, &MainWindow::CurrentFrameChanged, m_transport, &Transport::FollowFrame);
    connect(m_transport, &Transport::StateChanged, this, &MainWindow::UpdateCommands);
    connect(m_transport, &Transport::Told, this, &MainWindow::Tell);
}

void MainWindow::ConnectPointer()
{
    m_statusLine->selectionText = [this] {
        return SelectionText(CurrentScene(), m_commands.Selection());
    };
    connect(m_timelineMenu, &TimelineMenu::Done, m_statusLine, &StatusLine::LookAtSelection);
    connect(m_pointer, &PointerWatch::Moved, m_statusLine, &StatusLine::Look);
    connect(m_pointer, &PointerWatch::Left, m_statusLine, &StatusLine::Clear);
    m_pointer->tip = [this](QPoint place) { return m_statusLine->TipAt(place); };
    connect(m_pointer, &PointerWatch::Grasped, &m_history, &UndoHistory::BeginGesture);
    connect(m_pointer, &PointerWatch::LetGo, &m_history, &UndoHistory::EndGesture);
    // Keys go where one looks: to the timeline, as soon as one works in it. It gives the focus up
    // itself when some of its gestures end.
    connect(m_pointer, &PointerWatch::Pressed, this, &MainWindow::FocusTimeline);
    connect(m_pointer, &PointerWatch::Released, this, &MainWindow::FocusTimeline);
}

void MainWindow::FocusTimeline()
{
    const TimelineWindow* const window = m_factory.Window();
    const QWidget* const timeline = window && window->Pane() ? window->Pane()->Timeline() : nullptr;
    const QWidget* const focus = QApplication::focusWidget();
    if (timeline && (!focus || (focus != timeline && !timeline->isAncestorOf(focus))))
        m_manager.SetTimelineWndFocus();
}

void MainWindow::ConnectTimeline()
{
    connect(&m_skins, &SkinSwitch::WindowMade, this, &MainWindow::TakeWindow);
    connect(&m_skins, &SkinSwitch::Shown, m_skinMenu, &SkinMenu::SetCurrent);
    connect(&m_skins, &SkinSwitch::Shown, m_statusLine, &StatusLine::LookAtSelection);
    m_callbacks.situationChanged = [this] { UpdateCommands(); };
    connect(this, &MainWindow::CurrentFrameChanged, this, &MainWindow::UpdateCommands);
    m_callbacks.selectionChanged = [this] {
        m_ranges.DropLeftEnds();
        m_statusLine->LookAtSelection();
    };
    m_callbacks.activeTrackChanged = [this](CTimelineTrackBase* root, CTimelineTrackBase* child) {
        m_scene.LeaveOtherRoot(root, child);
    };
    m_callbacks.timeMarkMoved = [this](int mark, int frame, bool isFinal) {
        m_requests.MoveTimeMark(mark, frame, isFinal);
    };
    m_callbacks.switchButtonToggled = [this](CTimelineTrackBase* track, int button) {
        m_switchRows.Toggle(track, button);
    };
    m_callbacks.captionButtonClicked = [this](CTimelineTrackBase* track, int button, QPoint place) {
        ClickCaptionButton(track, button, place);
    };
    m_callbacks.keysEdited = [this](TLEditType type, const TrackList& list, int value1,
                                    int value2) {
        const int answer = m_requests.EditKeys(type, list, value1, value2);
        UpdateCommands();
        return answer;
    };
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

void MainWindow::TakeWindow(TimelineWindow& window, const QString& skinPath)
{
    connect(&window, &TimelineWindow::CurrentFrameChanged, this, &MainWindow::ShowFrame);
    connect(&window, &TimelineWindow::Refreshed, m_timelineMenu, &TimelineMenu::Update);
    connect(window.Pane(), &TimelinePane::ViewResized, this, [this] { m_scene.ShowArrows(); });
    m_timelineMenu->SetWindow(&window);
    m_switchRows.SetSkin(skinPath);
    m_statusLine->SetTimeline(window.Pane(), skinPath);
    m_pointer->Watch(window.Pane()->Viewport());
    new TimelineWheel(window, m_manager); // the window's
}

bool MainWindow::CreateTimeline(const QString& skinPath)
{
    return m_skins.Create(skinPath);
}

bool MainWindow::ShowSkin(const QString& skinPath)
{
    const bool isShown = m_skins.Show(skinPath);
    if (!isShown)
        Tell(tr("%1: expected a skin with every section and key").arg(skinPath));
    UpdateCommands();
    return isShown;
}

QString MainWindow::Skin() const
{
    return m_skins.Current();
}

bool MainWindow::IsClipSpeed()
{
    return m_factory.Window()->IsClipSpeed();
}

void MainWindow::SetClipSpeed(bool isSpeed)
{
    m_factory.Window()->SetClipSpeed(isSpeed);
}

bool MainWindow::SetScene(const Scene& scene)
{
    m_session.Restart(scene);
    return m_scene.Show();
}

void MainWindow::ShowScene()
{
    m_scene.Update();
    UpdateCommands();
}

void MainWindow::ShowFrame(int frame)
{
    const Scene& scene = CurrentScene();
    m_factory.Window()->SetFrameText(FrameText(frame, scene.frameCount, scene.frameRate));
    emit CurrentFrameChanged(frame);
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
    m_factory.Window()->Do(ViewCommand::ShowAll);
    m_manager.SetCurrentFrame(frame);
    constexpr int kToTheMiddle = 0;
    m_manager.ScrollToFrame(m_manager.GetCurrentFrame(), kToTheMiddle);
}

void MainWindow::UpdateCommands()
{
    m_editMenu->UpdateActions();
    m_timelineMenu->Update();
}

void MainWindow::ClickCaptionButton(CTimelineTrackBase* track, int button, QPoint place)
{
    if (button == kMenuButton)
        m_rowMenu->Open(track, place);
    else if (button != kAddKeyButton)
        m_captionButtons.Click(track, button);
    else if (!m_requests.IsLocked(m_tracks.IdOf(track)))
        m_commands.Do(track, TL_EDIT_INSERT_KEY);
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

} // namespace host
