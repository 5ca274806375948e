// The smallest host that shows a timeline: a window with a dock, two rows, a few keys. Click and
// drag in it; the current frame is told in the status line.
#include <KestovaTimelineQU/KestovaTimelineQU.h>

#include <QApplication>
#include <QDockWidget>
#include <QLabel>
#include <QMainWindow>
#include <QStatusBar>
#include <QTimer>
#include <QVBoxLayout>

// Where the skins lie was found out when this was built. A program that is given to others brings a
// copy.
constexpr const char* kSkin = SKINS_DIR "/default.ini";

// What the timeline stands in. A larger host has its zoom buttons here.
class TimelineWindow : public CTimelineWndBase
{
public:
    explicit TimelineWindow(QDockWidget* dock) : m_dock(dock), m_pane(new QWidget)
    {
        auto* const layout = new QVBoxLayout(m_pane);
        layout->setContentsMargins(0, 0, 0, 0);
    }

    QWidget* GetWidget() override { return m_pane; }
    void OnAfterCreate() override
    {
        const auto children = m_pane->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
        for (QWidget* const child : children)
            m_pane->layout()->addWidget(child); // the timeline
    }
    void OnTrackListChanged() override { m_pane->setMinimumHeight(GetWndNeedHeight()); }
    void GetInitialGeometry(QRect& rect) override { rect = m_pane->rect(); }

    bool EnableWnd(bool enable) override { return m_dock->setEnabled(enable), true; }
    bool ShowWnd(bool show) override { return m_dock->setVisible(show), true; }
    bool IsWndVisible() override { return m_dock->isVisible(); }

    bool CreateWnd() override { return true; }
    void UpdateWnd() override {}
    void OnCurrentFrameChanged(int) override {}
    void RepaintWnd() override {}
    void OnTimelineRefreshed() override {}
    void OnHostCommand13() override {}
    void OnHostCommand14() override {}
    void OnHostCommand15() override {}
    void OnHostCommand16() override {}

private:
    QDockWidget* m_dock;
    QWidget* m_pane; // the dock owns it once the manager has put it there
};

class TimelineWindowFactory : public CTimelineWndFactoryBase
{
public:
    CTimelineWndBase* CreateTimelineWnd(QDockWidget* dock) override
    {
        return new TimelineWindow(dock);
    }
    void ReleaseTimelineWnd(CTimelineWndBase** window) override
    {
        delete *window;
        *window = nullptr;
    }
};

// What the user does is heard here. Whatever is not overridden declines.
class TimelineCallbacks : public CTimelineManagerInterface
{
public:
    explicit TimelineCallbacks(QStatusBar* status) : m_status(status) {}

    void OnCurrentFrameChanged(int frame, bool) override
    {
        m_status->showMessage(QString("Frame %1").arg(frame));
    }

private:
    QStatusBar* m_status;
};

class Window : public QMainWindow
{
public:
    bool Open()
    {
        auto* const scene = new QLabel("Your scene", this);
        scene->setAlignment(Qt::AlignCenter);
        setCentralWidget(scene);
        addDockWidget(Qt::BottomDockWidgetArea, m_dock);
        m_timeline.SetTimelineWndFactoryBase(&m_factory);
        if (!m_timeline.CreateTimelineManager(&m_callbacks, QString(kSkin).toStdWString()) ||
            !m_timeline.CreateTimelineMainWidget(m_dock))
            return false;
        m_timeline.SetFrameCount(90);
        AddRow("Arm", {5, 20, 40});
        AddRow("Leg", {0, 30, 60});
        m_timeline.ShowTimelineWnd(true);
        return true;
    }

private:
    void AddRow(const QString& caption, const std::vector<int>& frames)
    {
        constexpr unsigned int kStyle = 1;         // KeyTrack1 of the skin
        constexpr unsigned int kLast = 0xFFFFFFFF; // below the other rows
        CTimelineTrackBase* const track = m_timeline.CreateTrack(TL_TRACK_KEY, caption, kStyle);
        m_timeline.ShowRootTrack(track, kLast, true);
        for (const int frame : frames) {
            const VZ::CPointer<CTimelineKey> key(new CTimelineKey);
            key->frame = frame;
            m_timeline.GetKeyDataArray(track)->Add(key, false);
        }
    }

    QDockWidget* m_dock = new QDockWidget("Timeline", this);
    TimelineWindowFactory m_factory;
    TimelineCallbacks m_callbacks{statusBar()};
    CTimelineManager m_timeline{this}; // the last: it goes before what it uses
};

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    Window window;
    window.resize(800, 480);
    if (!window.Open()) {
        qCritical("The timeline cannot be made with the skin %s", kSkin);
        return 1;
    }
    window.show();

    const QStringList arguments = QApplication::arguments();
    if (arguments.size() == 3 && arguments[1] == "--picture") { // to look at it without a screen
        QTimer::singleShot(0, &window,
                           [&] { QApplication::exit(window.grab().save(arguments[2]) ? 0 : 1); });
    }
    return QApplication::exec();
}
