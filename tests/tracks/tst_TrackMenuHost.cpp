#include "support/Pointer.h"
#include "tracks/HostDeeds.h"
#include "tracks/MenuScene.h"

#include <QtTest>

using namespace KestovaTest;

/// The host may do anything while a menu is asked for, open or answered: nothing is touched that is
/// gone, and no message follows from a track that is.
class tst_TrackMenuHost : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void theHostMayFreeItsEntriesWhileTheMenuIsOpen();
    void theHostMayReplaceTheKeysInAnyCallback_data();
    void theHostMayReplaceTheKeysInAnyCallback();
    void theHostMayReplaceClipsAndSubKeysInAnyCallback_data();
    void theHostMayReplaceClipsAndSubKeysInAnyCallback();
    void nothingFollowsFromAHostThat_data();
    void nothingFollowsFromAHostThat();
    void goesToNoSubKeyThatTheHostReplaced_data();
    void goesToNoSubKeyThatTheHostReplaced();
    void aMenuInsideTheReportOfAPressLeavesNothingPressed();
    void aPressInsideTheReportOfAMenuKeepsItShut();
    void aTrackHiddenWhileTheMenuIsOpenReportsNothing();
};

void tst_TrackMenuHost::initTestCase()
{
    QVERIFY(PrepareTimeline());
}

void tst_TrackMenuHost::theHostMayFreeItsEntriesWhileTheMenuIsOpen()
{
    MenuScene scene;
    HostMenu& m = scene.menu;
    m.top = {m.Make(1, "One"), m.Make(2, "Menu", {m.Make(3, "Two")})};
    MenuHand hand([&](QMenu&) {
        scene.fixture.host.menuList->clear();
        m.Free();
        QWindow* const window = scene.fixture.mainWindow.windowHandle();
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Right, Qt::Key_Return})
            QTest::keyClick(window, key);
    });
    RightClickAt(scene.arm, 60);
    QCOMPARE(scene.fixture.host.calls.last(), QString("chosen Arm 3"));
}

void tst_TrackMenuHost::theHostMayReplaceTheKeysInAnyCallback_data()
{
    QTest::addColumn<int>("call");
    QTest::addColumn<int>("frame"); // that is current in the end
    QTest::newRow("active") << 0 << 20;
    QTest::newRow("cleared") << 1 << 20;
    QTest::newRow("changed") << 2 << 20;
    QTest::newRow("frame false") << 3 << 20;
    QTest::newRow("frame true") << 4 << 20;
    QTest::newRow("menu") << 5 << 20;
}

void tst_TrackMenuHost::theHostMayReplaceTheKeysInAnyCallback()
{
    QFETCH(int, call);
    QFETCH(int, frame);
    MenuScene scene;
    scene.menu.top = {scene.menu.Make(7, "Insert")};
    scene.Activate(scene.arm);
    int count = 0;
    scene.alsoReact = [&](const QString&) {
        if (count++ != call)
            return;
        scene.arm->Keys().RemoveAll();
        scene.fixture.AddKeys(scene.arm, {70});
    };
    MenuHand hand;
    RightClickAt(scene.arm, 20);
    scene.alsoReact = nullptr;
    QCOMPARE(hand.opened, 1);
    // What is new was never pressed.
    QVERIFY(!scene.arm->Keys().GetAt(0)->selected);
    QCOMPARE(scene.arm->Keys().SelectedIndexes(), std::vector<int>{});
    QCOMPARE(CurrentFrame(), frame);
    // Replaced in the first call, the press found no key.
    const QStringList press = call == 0 ? QStringList() : QStringList{"cleared", "changed"};
    const QStringList end{"frame 20 false", "frame 20 true", "menu Arm"};
    QCOMPARE(scene.Calls(), QStringList("same Body Arm") + press + end);
}

void tst_TrackMenuHost::theHostMayReplaceClipsAndSubKeysInAnyCallback_data()
{
    QTest::addColumn<int>("call");
    QTest::addColumn<bool>("clips"); // or the clip's sub-keys alone
    for (const bool clips : {false, true}) {
        const char* const what = clips ? "the clips" : "the sub-keys";
        QTest::addRow("%s in cleared", what) << 1 << clips;
        QTest::addRow("%s in the clip's changed", what) << 2 << clips;
        QTest::addRow("%s in the sub-key's changed", what) << 3 << clips;
    }
}

void tst_TrackMenuHost::theHostMayReplaceClipsAndSubKeysInAnyCallback()
{
    QFETCH(int, call);
    QFETCH(bool, clips);
    SubKeyScene scene;
    scene.menu.top = {scene.menu.Make(7, "Insert")};
    int count = 0;
    scene.alsoReact = [&](const QString&) {
        if (count++ != call)
            return;
        if (clips) {
            scene.first = nullptr;
            scene.second = nullptr;
            scene.mouth->Keys().RemoveAll();
            scene.mouth->Keys().Add(MakeClip(0, 5), false);
        } else {
            scene.first->subKeys = nullptr;
        }
    };
    MenuHand hand;
    RightClick(scene.mouth, scene.PointOfSubKey(0, 1));
    scene.alsoReact = nullptr;
    QCOMPARE(hand.opened, 1);
    QCOMPARE(scene.fixture.host.calls.last(), QString("menu Mouth"));
    if (clips)
        QVERIFY(!scene.mouth->Keys().GetAt(0)->selected);
}

void tst_TrackMenuHost::nothingFollowsFromAHostThat_data()
{
    QTest::addColumn<QString>("moment");
    QTest::addColumn<int>("deed");
    for (const char* const moment :
         {"cleared", "active Body Arm", "changed", "frame 20 false", "frame 20 true", "menu Arm",
          "the menu is open", "chosen Arm 7"}) {
        for (int deed = 0; deed < HostDeeds; ++deed)
            QTest::newRow(qPrintable(QStringLiteral("%1 when '%2'").arg(kDeedNames[deed], moment)))
                << moment << deed;
    }
}

void tst_TrackMenuHost::nothingFollowsFromAHostThat()
{
    QFETCH(QString, moment);
    QFETCH(int, deed);
    MenuScene scene;
    HostFixture& fixture = scene.fixture;
    scene.menu.top = {scene.menu.Make(7, "Insert")};
    QStringList before;
    const auto act = [&] {
        if (!before.isEmpty())
            return;
        before = fixture.host.calls;
        Do(deed, fixture, {scene.arm, scene.leg, scene.body});
        before = fixture.host.calls;
    };
    scene.alsoReact = [&](const QString& line) {
        if (line == moment)
            act();
    };
    MenuHand hand([&](QMenu& menu) {
        if (moment == "the menu is open")
            act();
        menu.setActiveAction(menu.actions().first());
        QTest::keyClick(&menu, Qt::Key_Return);
    });
    RightClickAt(scene.arm, 20);
    scene.alsoReact = nullptr;
    QVERIFY(!before.isEmpty());
    const QStringList after = fixture.host.calls.mid(before.size());
    QCOMPARE(after.filter("Arm"), QStringList());
    // From the second call on nobody but the row would have said anything.
    if (moment != "cleared")
        QCOMPARE(after, QStringList());
    const bool wasOpen = moment == "the menu is open" || moment == "chosen Arm 7";
    QCOMPARE(hand.opened, wasOpen ? 1 : 0);

    CTimelineTrackBase* const again = RowAfterDeed(fixture);
    QVERIFY(again);
    fixture.host.reaction = [&](const QString& line) {
        if (line == "menu Again")
            *fixture.host.menuList = scene.menu.top;
    };
    MenuHand next;
    QVERIFY(RightClickAt(again, 30));
    QCOMPARE(next.opened, 1);
}

void tst_TrackMenuHost::aTrackHiddenWhileTheMenuIsOpenReportsNothing()
{
    MenuScene scene;
    scene.menu.top = {scene.menu.Make(7, "Insert")};
    MenuHand hand([&](QMenu& menu) {
        scene.fixture.manager->HideChildTrack(scene.arm, true);
        menu.setActiveAction(menu.actions().first());
        QTest::keyClick(&menu, Qt::Key_Return);
    });
    RightClickAt(scene.arm, 60);
    QCOMPARE(scene.fixture.host.calls.last(), QString("menu Arm"));
    QVERIFY(scene.fixture.manager->IsTrackExist(scene.arm));
}

void tst_TrackMenuHost::goesToNoSubKeyThatTheHostReplaced_data()
{
    QTest::addColumn<bool>("clips");
    QTest::newRow("clips") << true;
    QTest::newRow("sub-keys") << false;
}

void tst_TrackMenuHost::goesToNoSubKeyThatTheHostReplaced()
{
    QFETCH(const bool, clips);
    SubKeyScene scene;
    const QPoint point = scene.PointBeside(0, 1);
    const int frame = scene.mouth->PixelToFrame(point.x());
    int changes = 0;
    scene.alsoReact = [&](const QString& line) {
        if (line != "changed" || changes++ > 0)
            return;
        const VZ::CPointer<CTimelineKeyArray> anew(new CTimelineKeyArray);
        anew->Add(NewKey(15), false);
        if (clips) {
            scene.mouth->Keys().RemoveAll();
            scene.mouth->Keys().Add(MakeClip(10, 30), false);
            scene.mouth->Keys().GetAt(0)->subKeys = anew.Get();
        } else {
            scene.first->subKeys = anew.Get();
        }
    };
    RightClick(scene.mouth, point);
    QCOMPARE(scene.Calls(), QStringList({"same Body Mouth", "cleared", "changed",
                                         QString("frame %1 false").arg(frame),
                                         QString("frame %1 true").arg(frame), "menu Mouth"}));
    QVERIFY(!scene.mouth->Keys().GetAt(0)->subKeys->GetAt(0)->selected);
}

void tst_TrackMenuHost::aMenuInsideTheReportOfAPressLeavesNothingPressed()
{
    MenuScene scene;
    scene.menu.top = {scene.menu.Make(7, "Insert")};
    scene.Activate(scene.arm);
    bool isFirst = true;
    scene.alsoReact = [&](const QString& line) {
        if (line == "same Body Arm" && std::exchange(isFirst, false))
            RightClickAt(scene.arm, 40);
    };
    MenuHand hand;
    Pointer pointer(&scene.fixture.mainWindow);
    pointer.Press(scene.arm, PointAt(scene.arm, 20));
    const QStringList menu = {"same Body Arm",  "cleared",       "changed",
                              "frame 40 false", "frame 40 true", "menu Arm"};
    QCOMPARE(scene.Calls(), QStringList{"same Body Arm"} + menu);
    QCOMPARE(hand.opened, 1);
    QCOMPARE(scene.arm->Keys().SelectedIndexes(), std::vector<int>{1});
    pointer.MoveTo(scene.arm, PointAt(scene.arm, 30)); // the button seems to be down still
    QCOMPARE(scene.Calls(), QStringList());
}

void tst_TrackMenuHost::aPressInsideTheReportOfAMenuKeepsItShut()
{
    MenuScene scene;
    scene.menu.top = {scene.menu.Make(7, "Insert")};
    scene.Activate(scene.arm);
    Pointer pointer(&scene.fixture.mainWindow);
    scene.alsoReact = [&](const QString& line) {
        if (line != "changed")
            return;
        scene.alsoReact = nullptr;
        pointer.Press(scene.arm, PointAt(scene.arm, 20));
    };
    MenuHand hand;
    RightClickAt(scene.arm, 40);
    const QStringList press = {"same Body Arm", "cleared", "changed", "frame 20 false",
                               "frame 20 true"};
    QCOMPARE(scene.Calls(), QStringList({"same Body Arm", "cleared", "changed"}) + press);
    QCOMPARE(hand.opened, 0);
    pointer.MoveTo(scene.arm, PointAt(scene.arm, 22));
    QCOMPARE(scene.Calls(), QStringList({"edit 0 [Arm] 0 0", "edit 2 [Arm] 2 0"}));
}

QTEST_MAIN(tst_TrackMenuHost)
#include "tst_TrackMenuHost.moc"
