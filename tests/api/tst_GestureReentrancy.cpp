#include "GestureRecorder.h"
#include "Gestures.h"
#include "TimelineKeyValues.h"
#include "container/CTimelineContainer.h"
#include "container/TestTracks.h"
#include "support/TimelineFixture.h"

#include <QDialog>
#include <QtTest>

#include <algorithm>

using namespace KestovaTest;

namespace {

enum DeedTraits : unsigned
{
    Changes = 0,   ///< what rows hold
    TakesAway = 1, ///< rows, the window or the pointer
    Costs = 2,     ///< the making of several tracks afterwards, which reads the skin
    ChangesButtons = 4,
    ChangesSubKeys = 8
};

/// What a host may do in a callback.
struct Deed
{
    const char* name;
    void (*act)(GestureScene& scene, CTimelineTrackBase* track);
    unsigned traits; ///< of DeedTraits
};

void OpenModalDialog(GestureScene& scene, CTimelineTrackBase*)
{
    QDialog dialog(&scene.fixture.mainWindow);
    QTimer::singleShot(0, &dialog, &QDialog::accept);
    dialog.exec();
    scene.Activate();
}

void ReplaceKeys(GestureScene&, CTimelineTrackBase* track)
{
    track->Keys().RemoveAll();
    AddKeysTo(*track, {2, 33});
}

void MakeTheWindowAnew(GestureScene& scene, CTimelineTrackBase*)
{
    scene.fixture.manager->CreateTimelineMainWidget(scene.fixture.dock);
    scene.fixture.manager->ShowTimelineWnd(true);
}

// clang-format off
const Deed kDeeds[] = {
    {"deletes the track", [](GestureScene& s, CTimelineTrackBase* t) { s.fixture.manager->DeleteTrack(t); }, TakesAway},
    {"deletes all tracks", [](GestureScene& s, CTimelineTrackBase*) { for (CTimelineTrackBase* const each : s.Names().keys()) s.fixture.manager->DeleteTrack(each); }, TakesAway | Costs},
    {"takes all tracks out", [](GestureScene& s, CTimelineTrackBase*) { s.fixture.manager->DeleteAllTrack(); }, TakesAway},
    {"hides the track", [](GestureScene& s, CTimelineTrackBase* t) { s.fixture.manager->HideChildTrack(t, true); }, TakesAway},
    {"hides and shows the track", [](GestureScene& s, CTimelineTrackBase* t) { s.fixture.manager->HideChildTrack(t, true); s.fixture.manager->ShowChildTrack(s.Body(), t, 0, true); }, Changes},
    {"replaces the keys", ReplaceKeys, Changes},
    {"removes the keys", [](GestureScene&, CTimelineTrackBase* t) { t->Keys().RemoveAll(); }, Changes},
    {"replaces sub-keys", [](GestureScene&, CTimelineTrackBase* t) { if (t->Keys().GetSize() > 0) AddSubKeys(*t, 0, {3}); }, ChangesSubKeys},
    {"takes all edit modes", [](GestureScene& s, CTimelineTrackBase* t) { s.fixture.SetEditModes(t, {}); }, Changes},
    {"sets sub-key editing", [](GestureScene& s, CTimelineTrackBase* t) { s.fixture.SetEditModes(t, {TL_EDIT_SUB_KEYS, TL_EDIT_TIME_RANGE}); }, Changes},
    {"removes the switch buttons", [](GestureScene& s, CTimelineTrackBase* t) { std::vector<_tmpTLSwitchBtnData> none; s.fixture.manager->SetTrackSwitchBtnList(t, none); }, ChangesButtons},
    {"loads another style", [](GestureScene& s, CTimelineTrackBase* t) { t->LoadStyle(2); s.areRestyled = true; }, Costs},
    {"loads no style", [](GestureScene& s, CTimelineTrackBase* t) { t->LoadStyle(4711); s.areRestyled = true; }, Costs},
    {"shows another track", [](GestureScene& s, CTimelineTrackBase*) { s.AddTrack("Other"); }, Costs},
    {"takes all frames", [](GestureScene& s, CTimelineTrackBase*) { s.fixture.manager->SetFrameCount(0); }, Changes},
    {"moves the frame and the view", [](GestureScene& s, CTimelineTrackBase*) { s.fixture.manager->SetCurrentFrame(66); s.fixture.manager->SetScrollInfo(0.5f, 0.5f); }, Changes},
    {"activates nothing", [](GestureScene& s, CTimelineTrackBase*) { s.fixture.manager->SetActiveRootTrack(nullptr); }, Changes},
    {"disables the timeline", [](GestureScene& s, CTimelineTrackBase*) { s.fixture.manager->SetContainerEnabled(false); s.fixture.manager->SetContainerEnabled(true); }, Changes},
    {"gives the focus away", [](GestureScene& s, CTimelineTrackBase*) { s.elsewhere->setFocus(); }, Changes},
    {"opens a modal dialog", OpenModalDialog, TakesAway},
    {"releases the window", [](GestureScene& s, CTimelineTrackBase*) { s.fixture.manager->ReleaseTimelineWnd(); }, TakesAway},
    {"makes the window anew", MakeTheWindowAnew, TakesAway},
    {"deletes the timeline widget", [](GestureScene& s, CTimelineTrackBase*) { delete s.fixture.Container(); }, TakesAway | Costs},
    {"deletes the dock", [](GestureScene& s, CTimelineTrackBase*) { delete std::exchange(s.fixture.dock, nullptr); }, TakesAway | Costs},
    // Not reset(): that calls the destructor with the pointer already null.
    {"deletes the manager", [](GestureScene& s, CTimelineTrackBase*) { delete s.fixture.manager.release(); }, TakesAway | Costs},
};
// clang-format on

/// A call without its frames.
QString KindOf(const QString& call)
{
    return QString(call).remove(QRegularExpression("(?<!edit )\\b[0-9]+\\b"));
}

/// Whether the row has what the deed changes.
bool IsMeant(const Deed& deed, SceneRow row)
{
    if (deed.traits & ChangesButtons)
        return row == GazeRow;
    if (deed.traits & ChangesSubKeys)
        return row == SpeechRow || row == LipsRow;
    return true;
}

/// Every call there is when KESTOVA_WHOLE_MATRIX is set, which takes several minutes. Otherwise
/// every call to the host for what takes something away, and the first of each kind for what
/// changes something or costs much. Calls to the window come in front of calls to the host, with
/// the same frames on the stack: only what takes something away is tried in them, in the first of
/// each kind.
bool IsChosen(const Deed& deed, const QStringList& calls, int position)
{
    const QString kind = KindOf(calls[position]);
    const bool isFirst = std::none_of(calls.begin(), calls.begin() + position,
                                      [&](const QString& call) { return KindOf(call) == kind; });
    const bool isOfWindow = calls[position].startsWith("window");
    const bool takesAway = deed.traits & TakesAway;
    return isFirst ? takesAway || !isOfWindow : takesAway && !isOfWindow && !(deed.traits & Costs);
}

/// Under Wine and the sanitizers each takes five to ten times as long: there every sixth of them is
/// tried.
bool IsTried(const Deed& deed, const QStringList& calls, int position)
{
    static const bool isWhole = qEnvironmentVariableIsSet("KESTOVA_WHOLE_MATRIX");
    if (isWhole)
        return true;
    if (!IsChosen(deed, calls, position))
        return false;
#if defined(Q_OS_WIN) || defined(__SANITIZE_ADDRESS__)
    constexpr int kEach = 6;
#else
    constexpr int kEach = 1;
#endif
    static int count = 0;
    return count++ % kEach == 0;
}

} // namespace

/// Whatever the host does in whatever callback of whatever gesture: nothing is touched that is
/// gone, nobody speaks of a track that is gone, and the timeline works afterwards.
class tst_GestureReentrancy : public QObject
{
    Q_OBJECT

    std::unique_ptr<GestureScene> m_scene;
    int m_sceneOf = -1;
    int m_tried = 0;

    GestureScene& SceneOf(int gesture);
    QStringList Undisturbed(int gesture);
    QString Try(int gesture, const Deed& deed, int position);
    QString WorksAgain();

private slots:
    void cleanupTestCase();
    void everyGestureReachesTheHost_data();
    void everyGestureReachesTheHost();
    void survivesAHostThat_data();
    void survivesAHostThat();
};

GestureScene& tst_GestureReentrancy::SceneOf(int gesture)
{
    const Gesture& made = Gestures()[std::size_t(gesture)];
    if (!m_scene || m_sceneOf != gesture) {
        m_scene.reset();
        m_scene = std::make_unique<GestureScene>(made.rows);
        m_sceneOf = gesture;
    }
    m_scene->prepare = made.prepare;
    m_scene->Reset();
    return *m_scene;
}

QStringList tst_GestureReentrancy::Undisturbed(int gesture)
{
    static QMap<int, QStringList> known;
    if (!known.contains(gesture)) {
        const Gesture& made = Gestures()[std::size_t(gesture)];
        GestureScene& scene = SceneOf(gesture);
        GestureRecorder recorder(scene);
        recorder.Perform(made.script(scene).events, made.choosesInMenu);
        known[gesture] = recorder.lines;
    }
    return known[gesture];
}

/// A new row, in a new window where that is gone, can be pressed and reports. Empty, or what is
/// wrong.
QString tst_GestureReentrancy::WorksAgain()
{
    HostFixture& fixture = m_scene->fixture;
    m_scene->pointer.LoseButtons();
    fixture.Settle();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_scene->Rebuild();
    fixture.manager->SetFrameCount(100);
    fixture.manager->SetScrollInfo(0.0f, 1.0f);
    fixture.manager->SetCurrentFrame(1);
    CTimelineTrackBase* const fresh = m_scene->ShowFreshRow();
    if (!fresh)
        return "no track can be made";
    fixture.Settle();
    if (!fresh->isVisible())
        return "a new track is not seen";
    fixture.ForgetCalls();
    const QPoint point = m_scene->Find(fresh, [=](QPoint p) { return fresh->HitTestKey(p) == 1; });
    m_scene->pointer.modifiers = Qt::NoModifier;
    m_scene->pointer.Click(&fixture.mainWindow, point);
    const QStringList calls = fixture.host.TakeCalls();
    m_scene->HideFreshRow();
    for (const char* const wanted : {"active Fresh -", "changed", "frame 20 true"}) {
        if (!calls.contains(wanted))
            return QStringLiteral("a press on a new key is told as: %1").arg(calls.join("; "));
    }
    return QString();
}

QString tst_GestureReentrancy::Try(int gesture, const Deed& deed, int position)
{
    const Gesture& made = Gestures()[std::size_t(gesture)];
    GestureScene& scene = SceneOf(gesture);
    const QStringList expected = Undisturbed(gesture);
    const std::vector<HandEvent> events = made.script(scene).events;
    QString fault;
    {
        GestureRecorder recorder(scene);
        recorder.SetDeed(position, [&] { deed.act(scene, scene.Track(made.row)); });
        recorder.Perform(events, made.choosesInMenu);
        // What a lost gesture still has to say comes from the event loop.
        scene.fixture.Settle();
        if (!recorder.IsDeedDone() || recorder.lines[position] != expected[position])
            fault = "the gesture went another way: " + recorder.lines.join("; ");
        else if (!recorder.faults.isEmpty())
            fault = "tracks that are gone were named: " + recorder.faults.join("; ");
    }
    if (fault.isEmpty())
        fault = WorksAgain();
    if (!fault.isEmpty())
        m_scene.reset();
    return fault;
}

void tst_GestureReentrancy::cleanupTestCase()
{
    qInfo("%d gestures, %d deeds, %d cases", int(Gestures().size()), int(std::size(kDeeds)),
          m_tried);
    m_scene.reset();
}

void tst_GestureReentrancy::everyGestureReachesTheHost_data()
{
    AddGestureRows();
}

void tst_GestureReentrancy::everyGestureReachesTheHost()
{
    QFETCH(int, gesture);
    const QStringList lines = Undisturbed(gesture);
    if (qEnvironmentVariableIsSet("KESTOVA_SHOW_GESTURES"))
        qInfo("%s", qPrintable(lines.join("\n    ")));
    QVERIFY(!lines.isEmpty());
}

void tst_GestureReentrancy::survivesAHostThat_data()
{
    QTest::addColumn<int>("gesture");
    QTest::addColumn<int>("deed");
    for (int gesture = 0; gesture < int(Gestures().size()); ++gesture) {
        int deed = 0;
        const Gesture& made = Gestures()[std::size_t(gesture)];
        for (const Deed& each : kDeeds) {
            if (IsMeant(each, made.row))
                QTest::addRow("%s in a callback of %s", each.name, made.name) << gesture << deed;
            ++deed;
        }
    }
}

void tst_GestureReentrancy::survivesAHostThat()
{
    QFETCH(int, gesture);
    QFETCH(int, deed);
    const QStringList expected = Undisturbed(gesture);
    for (int position = 0; position < expected.size(); ++position) {
        if (!IsTried(kDeeds[deed], expected, position))
            continue;
        ++m_tried;
        const QString fault = Try(gesture, kDeeds[deed], position);
        QVERIFY2(
            fault.isEmpty(),
            qPrintable(
                QStringLiteral("in call %1, %2: %3").arg(position).arg(expected[position], fault)));
    }
}

QTEST_MAIN(tst_GestureReentrancy)
#include "tst_GestureReentrancy.moc"
