#include "support/HostFixture.h"

#include "container/CTimelineContainer.h"
#include "support/TimelineFixture.h"
#include "tracks/CTimelineTrackBase.h"

#include <QApplication>
#include <QtTest>

#include <utility>

namespace KestovaTest {

namespace {

QString NameOf(const CTimelineTrackBase* track)
{
    return track ? track->GetCaption() : QStringLiteral("-");
}

QString BoolText(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

} // namespace

QStringList RecordingHost::TakeCalls()
{
    return std::exchange(calls, {});
}

void RecordingHost::Record(const QString& line)
{
    calls << line;
    if (const auto act = reaction)
        act(line);
}

void RecordingHost::OnCurrentFrameChanged(int frame, bool flag)
{
    Record(QStringLiteral("frame %1 %2").arg(frame).arg(BoolText(flag)));
}

void RecordingHost::OnMoveTimeMark(int mark, int frame, bool flag)
{
    Record(QStringLiteral("mark %1 %2 %3").arg(mark).arg(frame).arg(BoolText(flag)));
}

void RecordingHost::OnActiveTrackChanged(CTimelineTrackBase* root, CTimelineTrackBase* child)
{
    Record(QStringLiteral("active %1 %2").arg(NameOf(root), NameOf(child)));
}

void RecordingHost::OnActiveTrackTheSame(CTimelineTrackBase* root, CTimelineTrackBase* child)
{
    Record(QStringLiteral("same %1 %2").arg(NameOf(root), NameOf(child)));
}

void RecordingHost::OnTrackLDbClick(CTimelineTrackBase* track, int value)
{
    Record(QStringLiteral("double click %1 %2").arg(NameOf(track)).arg(value));
}

void RecordingHost::OnSwitchBtnStateChanged(CTimelineTrackBase* track, int button)
{
    Record(QStringLiteral("switch %1 %2").arg(NameOf(track)).arg(button));
}

int RecordingHost::OnEditingKeys(TLEditType type, const VZ::CArrayList<CTimelineTrackBase*>& tracks,
                                 int value1, int value2)
{
    QStringList names;
    for (const CTimelineTrackBase* track : tracks)
        names << NameOf(track);
    Record(QStringLiteral("edit %1 [%2] %3 %4")
               .arg(static_cast<int>(type))
               .arg(names.join(QLatin1Char(',')))
               .arg(value1)
               .arg(value2));
    return editAnswer;
}

void RecordingHost::OnCaptionBtnChanged(CTimelineTrackBase* track, int button, QPoint position)
{
    Record(QStringLiteral("caption button %1 %2 (%3,%4)")
               .arg(NameOf(track))
               .arg(button)
               .arg(position.x())
               .arg(position.y()));
}

void RecordingHost::OnQueryTrackRightMenu(CTimelineTrackBase* track,
                                          std::vector<_tmpTLMenuMapData*>* menu)
{
    menuList = menu;
    Record(QStringLiteral("menu %1").arg(NameOf(track)));
}

void RecordingHost::OnSelectedTrackRightMenu(CTimelineTrackBase* track, int command)
{
    Record(QStringLiteral("chosen %1 %2").arg(NameOf(track)).arg(command));
}

void RecordingHost::OnSelectedDataCleared()
{
    Record(QStringLiteral("cleared"));
}

void RecordingHost::OnSelectedDataChanged()
{
    Record(QStringLiteral("changed"));
}

bool RecordingHost::OnTrackDropFile(TLDropFileType type, QString path)
{
    Record(QStringLiteral("drop %1 %2").arg(static_cast<int>(type)).arg(path));
    return dropAnswer;
}

void RecordingHost::OnCheckDragFile(CTimelineTrackBase* track, QString path, int type)
{
    Record(QStringLiteral("drag %1 %2 %3").arg(NameOf(track), path).arg(type));
}

TestWindow::TestWindow(QDockWidget* dock) : m_widget(new QWidget(dock)) {}

TestWindow::~TestWindow()
{
    // The timeline widget stands under this one and goes with it, as in most hosts.
    delete m_widget;
}

QStringList TestWindow::TakeCalls()
{
    return std::exchange(calls, {});
}

// The reaction may release this window: nothing of it is touched after Record.

void TestWindow::Record(const QString& line)
{
    calls << line;
    if (const auto act = reaction)
        act(line);
}

bool TestWindow::CreateWnd()
{
    const bool result = createAnswer;
    Record(QStringLiteral("create"));
    return result;
}

void TestWindow::UpdateWnd()
{
    Record(QStringLiteral("update"));
}

void TestWindow::GetInitialGeometry(QRect& rect)
{
    const QString line = QStringLiteral("geometry (%1,%2,%3,%4)")
                             .arg(rect.left())
                             .arg(rect.top())
                             .arg(rect.right())
                             .arg(rect.bottom());
    rect = initialGeometry;
    Record(line);
}

bool TestWindow::EnableWnd(bool enable)
{
    const bool result = answer;
    Record(QStringLiteral("enable %1").arg(BoolText(enable)));
    return result;
}

bool TestWindow::ShowWnd(bool show)
{
    const bool result = answer;
    if (m_widget)
        m_widget->setVisible(show);
    Record(QStringLiteral("show %1").arg(BoolText(show)));
    return result;
}

bool TestWindow::IsWndVisible()
{
    const bool result = answer;
    Record(QStringLiteral("visible"));
    return result;
}

void TestWindow::OnCurrentFrameChanged(int frame)
{
    Record(QStringLiteral("frame %1").arg(frame));
}

void TestWindow::RepaintWnd()
{
    Record(QStringLiteral("repaint"));
}
void TestWindow::OnAfterCreate()
{
    Record(QStringLiteral("after create"));
}
void TestWindow::OnTrackListChanged()
{
    Record(QStringLiteral("track list"));
}
void TestWindow::OnTimelineRefreshed()
{
    Record(QStringLiteral("refreshed"));
}
void TestWindow::OnHostCommand13()
{
    Record(QStringLiteral("13"));
}
void TestWindow::OnHostCommand14()
{
    Record(QStringLiteral("14"));
}
void TestWindow::OnHostCommand15()
{
    Record(QStringLiteral("15"));
}
void TestWindow::OnHostCommand16()
{
    Record(QStringLiteral("16"));
}

CTimelineWndBase* TestFactory::CreateTimelineWnd(QDockWidget* dock)
{
    if (refuses)
        return nullptr;
    ++made;
    window = new TestWindow(dock);
    if (prepare)
        prepare(*window);
    return window;
}

void TestFactory::ReleaseTimelineWnd(CTimelineWndBase** released_)
{
    ++released;
    delete *released_;
    *released_ = nullptr;
    window = nullptr;
}

HostFixture::HostFixture(const QSize& size, const QString& skin)
    : dock(new QDockWidget(&mainWindow)), manager(new CTimelineManager(&mainWindow))
{
    PrepareTimeline();
    if (!skin.isEmpty())
        TimelineLibrary::Instance().skinPath = skin.toStdWString();
    ResetAxis();
    TimelineLibrary::Instance().relations.Set({});
    mainWindow.addDockWidget(Qt::BottomDockWidgetArea, dock);
    mainWindow.resize(size);
    factory.prepare = [size](TestWindow& made) { made.initialGeometry = QRect(QPoint(), size); };
    manager->SetTimelineWndFactoryBase(&factory);
    manager->CreateTimelineManager(&host, TimelineLibrary::Instance().skinPath);
    manager->CreateTimelineMainWidget(dock);
    mainWindow.show();
    mainWindow.activateWindow();
    if (!QTest::qWaitForWindowActive(&mainWindow))
        qWarning("the test window did not become active");
    manager->SetFrameCount(100);
    manager->ShowTimelineWnd(true);
    Settle();
    ForgetCalls();
}

HostFixture::~HostFixture()
{
    manager.reset();
}

CTimelineContainer* HostFixture::Container() const
{
    return factory.window ? factory.window->GetContainer() : nullptr;
}

CTimelineTrackBase* HostFixture::Root(TL_TRACK_TYPE type, const QString& name)
{
    CTimelineTrackBase* const track = manager->CreateTrack(type, name, 1);
    manager->ShowRootTrack(track, 0xFFFFu, true);
    return track;
}

CTimelineTrackBase* HostFixture::Child(CTimelineTrackBase* root, TL_TRACK_TYPE type,
                                       const QString& name)
{
    CTimelineTrackBase* const track = manager->CreateTrack(type, name, 1);
    manager->ShowChildTrack(root, track, 0xFFFFu, true);
    return track;
}

void HostFixture::AddKeys(CTimelineTrackBase* track, std::initializer_list<int> frames)
{
    for (const int frame : frames) {
        VZ::CPointer<CTimelineKey> key(new CTimelineKey);
        key->frame = frame;
        manager->GetKeyDataArray(track)->Add(key, false);
    }
}

void HostFixture::SetEditModes(CTimelineTrackBase* track, std::initializer_list<TLEditType> modes)
{
    VZ::CArrayList<TLEditType> list;
    for (const TLEditType mode : modes)
        list.Add(mode);
    manager->SetTrackEditMode(track, list);
}

void HostFixture::ForgetCalls()
{
    host.calls.clear();
    if (factory.window)
        factory.window->calls.clear();
}

void HostFixture::Settle()
{
    for (int round = 0; round < 5; ++round)
        QApplication::processEvents();
}

} // namespace KestovaTest
