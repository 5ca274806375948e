#include "MouseScene.h"

using namespace KestovaTest;

// The second press of a double click, which stands in for an ordinary press.

namespace {

/// Double-clicks, and returns what the host heard from the second press on.
QStringList CallsOfSecondPress(MouseScene& scene, QPoint point)
{
    scene.pointer.Click(scene.row, point);
    scene.TakeCalls();
    scene.pointer.PressAgain();
    return scene.TakeCalls();
}

} // namespace

class tst_KeyGestureDoubleClick : public QObject
{
    Q_OBJECT

private slots:
    void selectsTheKeyAndReportsItsIndex();
    void reportsEachStepToTheOwner();
    void reportsMinusOneBesideKeys();
    void clearsTheWholeSelectionFirst();
    void selectsWithTheFirstEditMode();
    void selectsNothingWithoutEditModesButReportsTheKey();
    void staysAtThePointersFrameOnAKeyWithSubKeys();
    void onlyGoesToTheLastFrameAtOrBeyondTheEnd_data();
    void onlyGoesToTheLastFrameAtOrBeyondTheEnd();
    void goesToTheFirstFrameInFrontOfIt();
    void anotherButtonDoesNothing();
    void startsNoGesture();
    void reportsNoKeyThatTheHostTookAway();
    void reportsTheKeyAtItsNewIndex();
    void endsWhereALaterEventRunsInsideItsReport_data();
    void endsWhereALaterEventRunsInsideItsReport();
};

void tst_KeyGestureDoubleClick::selectsTheKeyAndReportsItsIndex()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10, 20});
    scene.pointer.DoubleClick(scene.row, scene.At(20));
    QCOMPARE(scene.TakeCalls(),
             QStringList({"same body row", "cleared", "changed", "frame 20 false", "frame 20 true",
                          "same body row", "cleared", "changed", "double click row 1"}));
    QCOMPARE(scene.Selection(), Indexes{1});
    QCOMPARE(scene.CurrentFrame(), 20);
}

void tst_KeyGestureDoubleClick::reportsEachStepToTheOwner()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10, 20});
    scene.Click(20);
    MessageSpy spy(scene.row);
    scene.pointer.PressAgain();
    QCOMPARE(spy.TakeMessages(),
             QStringList({"1108 (0, 0, 0, 0)", "1103 (0, 0, 0, 0)", "1102 (0, 0, 0, 0)",
                          "1104 (0, 0, 0, 0)", "1105 (0, 0, 0, 0)", "1115 (0, 0, 1, 0)"}));
}

void tst_KeyGestureDoubleClick::reportsMinusOneBesideKeys()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.SetCurrentFrame(20);
    scene.Click(20);
    scene.SetCurrentFrame(3);
    const QStringList calls = CallsOfSecondPress(scene, scene.At(30));
    QCOMPARE(calls, QStringList({"same body row", "cleared", "double click row -1"}));
    QCOMPARE(scene.CurrentFrame(), 30);
}

void tst_KeyGestureDoubleClick::clearsTheWholeSelectionFirst()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10, 20, 30});
    scene.Click(20);
    scene.Select(scene.row, 0);
    scene.Select(scene.row, 2);
    scene.fixture.AddKeys(scene.other, {5});
    scene.Select(scene.other, 0);
    scene.pointer.PressAgain();
    QCOMPARE(scene.Selection(), Indexes{1});
    QCOMPARE(scene.other->Keys().SelectedIndexes(), Indexes{});
}

void tst_KeyGestureDoubleClick::selectsWithTheFirstEditMode()
{
    MouseScene scene({TL_EDIT_COPY});
    scene.AddKeys({20});
    const QStringList calls = CallsOfSecondPress(scene, scene.At(20));
    QCOMPARE(calls, QStringList({"same body row", "cleared", "changed", "double click row 0"}));
    QCOMPARE(scene.Selection(), Indexes{0});
}

void tst_KeyGestureDoubleClick::selectsNothingWithoutEditModesButReportsTheKey()
{
    MouseScene scene({});
    scene.AddKeys({20});
    const QStringList calls = CallsOfSecondPress(scene, scene.At(20));
    QCOMPARE(calls, QStringList({"same body row", "cleared", "double click row 0"}));
    QCOMPARE(scene.Selection(), Indexes{});
}

void tst_KeyGestureDoubleClick::staysAtThePointersFrameOnAKeyWithSubKeys()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10});
    scene.Key(0).clipLength = 20;
    scene.Key(0).subKeys = new CTimelineKeyArray;
    scene.Keys().UpdateClipDisplayLength(0);
    const QStringList calls = CallsOfSecondPress(scene, scene.At(15));
    QCOMPARE(calls, QStringList({"same body row", "cleared", "changed", "double click row 0"}));
    QCOMPARE(scene.Selection(), Indexes{0});
    QCOMPARE(scene.CurrentFrame(), 15);
}

void tst_KeyGestureDoubleClick::onlyGoesToTheLastFrameAtOrBeyondTheEnd_data()
{
    QTest::addColumn<int>("frame");
    QTest::newRow("at the frame count") << 50;
    QTest::newRow("beyond") << 54;
}

void tst_KeyGestureDoubleClick::onlyGoesToTheLastFrameAtOrBeyondTheEnd()
{
    QFETCH(const int, frame);
    MouseScene scene(kDragKeys);
    scene.AddKeys({frame}); // a key that stands out there is not hit
    scene.pointer.Click(scene.row, scene.At(frame));
    scene.SetCurrentFrame(3);
    MessageSpy spy(scene.row);
    scene.pointer.PressAgain();
    QCOMPARE(spy.TakeMessages(), QStringList({"1108 (0, 0, 0, 0)", "1103 (0, 0, 0, 0)",
                                              "1104 (0, 0, 0, 0)", "1105 (0, 0, 0, 0)"}));
    QCOMPARE(scene.TakeCalls(),
             QStringList({"same body row", "cleared", "frame 49 false", "frame 49 true"}));
    QCOMPARE(scene.Selection(), Indexes{});
}

void tst_KeyGestureDoubleClick::goesToTheFirstFrameInFrontOfIt()
{
    MouseScene scene(kDragKeys);
    ResetAxis(MouseScene::kFrames, MouseScene::kPixelsPerFrame, -100, 7);
    const QStringList calls = CallsOfSecondPress(scene, scene.Spot(20));
    QCOMPARE(calls, QStringList({"same body row", "cleared", "double click row -1"}));
    QCOMPARE(scene.CurrentFrame(), 0);
}

void tst_KeyGestureDoubleClick::anotherButtonDoesNothing()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.pointer.DoubleClick(scene.row, scene.At(20), Qt::MiddleButton);
    QCOMPARE(scene.TakeCalls(), QStringList());
    QCOMPARE(scene.CurrentFrame(), 0);
}

void tst_KeyGestureDoubleClick::startsNoGesture()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    CallsOfSecondPress(scene, scene.At(20));
    scene.MoveTo(30);
    QCOMPARE(scene.TakeCalls(), QStringList());
    QCOMPARE(scene.Key(0).frame, 20);
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList({"frame 30 false", "frame 30 true"}));
}

void tst_KeyGestureDoubleClick::reportsNoKeyThatTheHostTookAway()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20, 30});
    scene.Click(20);
    scene.TakeCalls();
    scene.When("changed", [&] { scene.Keys().RemoveAt(0); });
    scene.pointer.PressAgain();
    QCOMPARE(scene.TakeCalls(),
             QStringList({"same body row", "cleared", "changed", "double click row -1"}));
}

void tst_KeyGestureDoubleClick::reportsTheKeyAtItsNewIndex()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.Click(20);
    scene.TakeCalls();
    scene.When("changed", [&] { scene.AddKeys({3}); });
    scene.pointer.PressAgain();
    QCOMPARE(scene.TakeCalls(),
             QStringList({"same body row", "cleared", "changed", "double click row 1"}));
}

void tst_KeyGestureDoubleClick::endsWhereALaterEventRunsInsideItsReport_data()
{
    QTest::addColumn<bool>("isPress");
    QTest::addColumn<QStringList>("later");
    QTest::newRow("its release") << false << QStringList({"frame 20 false", "frame 20 true"});
    QTest::newRow("a press") << true
                             << QStringList({"same body row", "cleared", "changed",
                                             "frame 30 false", "frame 30 true"});
}

void tst_KeyGestureDoubleClick::endsWhereALaterEventRunsInsideItsReport()
{
    QFETCH(const bool, isPress);
    QFETCH(const QStringList, later);
    MouseScene scene(kDragKeys);
    scene.AddKeys({20, 30});
    scene.Click(20);
    scene.SetCurrentFrame(0);
    scene.TakeCalls();
    scene.When("cleared", [&] {
        if (isPress)
            scene.Press(30);
        else
            scene.Release();
    });
    scene.pointer.PressAgain();
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "cleared"}) + later);
    QCOMPARE(scene.Selection(), isPress ? Indexes{1} : Indexes{});
}

QTEST_MAIN(tst_KeyGestureDoubleClick)
#include "tst_KeyGestureDoubleClick.moc"
