#include "MouseScene.h"

using namespace KestovaTest;

// Dragging the selected keys of all rows together, to move or to copy them.

namespace {

Indexes FramesOfKeys(MouseScene& scene)
{
    Indexes frames;
    for (const auto& key : scene.Keys().Keys())
        frames.push_back(key->frame);
    return frames;
}

} // namespace

class tst_KeyGestureDrag : public QObject
{
    Q_OBJECT

private slots:
    void movesThePressedKey();
    void movesTheSelectedKeysOfAllRows();
    void reportsEachStepToTheOwner();
    void startsInTheNextFrameWhateverTheDistance();
    void doesNotStartWhileThePointerStaysInTheFrameOfThePress();
    void reportsStepsThatStayInTheirFrame();
    void stepsBackToo();
    void leavesTheKeysWhereTheyCannotGo();
    void needsItsEditMode();
    void needsAPressOnAKey();
    void goesToTheKeyUnderThePointerAtTheRelease();
    void goesToThePointersFrameWhenNoKeyIsUnderIt();
    void copiesWithCtrl();
    void copiesAreLeftOutWhenTheHostRefuses();
    void reportsEachStepOfACopyToTheOwner();
    void endsWithTheFramesSinceTheLastStep_data();
    void endsWithTheFramesSinceTheLastStep();
    void copiesWhatIsSelectedNotWhatIsPressed();
    void copiesNothingWhenNothingIsSelected();
    void escapeStopsNothing();
    void decidesBetweenMoveAndCopyWhenItStarts();
    void togglesNothingAfterADrag();
    void needsNoFocus();
    void measuresStepsOnTheAxisAsItIsNow();
    void goesOnAfterTheHostReplacedTheKeys();
    void aStepInsideACallbackTakesNothingAway();
    void aPressInsideTheReleaseBeginsAnewWhileTheOldDragIsTold();
    void aPressThatEndsADragStopsWhenALaterOneRanInItsEnd();
    void aDragThatLostItsEditModesEndsBeforeItsRelease();
    void aReleaseInsideTheFirstCallbackEndsTheDrag();
};

void tst_KeyGestureDrag::movesThePressedKey()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10, 20, 30});
    scene.Press(20);
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "cleared", "changed",
                                             "frame 20 false", "frame 20 true"}));

    scene.MoveTo(23);
    QCOMPARE(scene.TakeCalls(), QStringList({"edit 0 [row] 0 0", "edit 2 [row] 3 0"}));
    QCOMPARE(scene.Key(1).frame, 23);
    scene.MoveTo(25);
    QCOMPARE(scene.TakeCalls(), QStringList({"edit 2 [row] 2 0"}));
    QCOMPARE(scene.Key(1).frame, 25);
    QCOMPARE(scene.CurrentFrame(), 20);

    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList({"edit 6 [row] 5 0", "edit 1 [row] 0 0",
                                             "frame 25 false", "frame 25 true"}));
    QCOMPARE(scene.Key(1).frame, 25);
    QCOMPARE(scene.Selection(), Indexes{1});
    QCOMPARE(scene.Range(), kNoRange);

    scene.MoveTo(40);
    QCOMPARE(scene.TakeCalls(), QStringList());
}

void tst_KeyGestureDrag::movesTheSelectedKeysOfAllRows()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10, 20});
    scene.fixture.AddKeys(scene.other, {12});
    scene.Select(scene.row, 0);
    scene.Select(scene.row, 1);
    scene.Select(scene.other, 0);
    scene.Press(20);
    scene.MoveTo(25);
    scene.Release();
    QCOMPARE(
        scene.TakeCalls(),
        QStringList({"same body row", "changed", "frame 20 false", "frame 20 true",
                     "edit 0 [row,other] 0 0", "edit 2 [row,other] 5 0", "edit 6 [row,other] 5 0",
                     "edit 1 [row,other] 0 0", "frame 25 false", "frame 25 true"}));
    QCOMPARE(scene.Key(0).frame, 15);
    QCOMPARE(scene.Key(1).frame, 25);
    QCOMPARE(scene.other->Keys().GetAt(0)->frame, 17);
}

void tst_KeyGestureDrag::reportsEachStepToTheOwner()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.Press(20);
    MessageSpy spy(scene.row);
    scene.MoveTo(23);
    QCOMPARE(spy.TakeMessages(), QStringList({"1109 (0, 0, 0, 0)", "1110 (0, 0, 3, 0)"}));
    scene.MoveTo(21);
    QCOMPARE(spy.TakeMessages(), QStringList({"1110 (0, 0, -2, 0)"}));
    scene.Release();
    QCOMPARE(spy.TakeMessages(),
             QStringList({"1111 (0, 0, 0, 0)", "1104 (0, 0, 0, 0)", "1105 (0, 0, 0, 0)"}));
}

void tst_KeyGestureDrag::startsInTheNextFrameWhateverTheDistance()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    ResetAxis(MouseScene::kFrames, 4, 0, 0); // glyphs are wider than a frame
    scene.pointer.Press(scene.row, scene.Spot(20 * 4 + 3));
    scene.TakeCalls();
    scene.pointer.MoveTo(scene.row, scene.Spot(21 * 4)); // one pixel
    QCOMPARE(scene.TakeCalls(), QStringList({"edit 0 [row] 0 0", "edit 2 [row] 1 0"}));
}

/// Wherever it was between two moves: only where a move finds it counts.
void tst_KeyGestureDrag::doesNotStartWhileThePointerStaysInTheFrameOfThePress()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.pointer.Press(scene.row, scene.Spot(202));
    MessageSpy spy(scene.row);
    scene.pointer.MoveTo(scene.row, scene.Spot(209));
    scene.pointer.MoveTo(scene.row, scene.Spot(200));
    QCOMPARE(spy.TakeMessages(), QStringList());
    scene.Release();
    QCOMPARE(spy.TakeMessages(), QStringList({"1104 (0, 0, 0, 0)", "1105 (0, 0, 0, 0)"}));
    QCOMPARE(scene.Key(0).frame, 20);
}

void tst_KeyGestureDrag::reportsStepsThatStayInTheirFrame()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.Press(20);
    scene.MoveTo(23);
    scene.TakeCalls();
    scene.pointer.MoveTo(scene.row, scene.Spot(237));
    QCOMPARE(scene.TakeCalls(), QStringList({"edit 2 [row] 0 0"}));
}

void tst_KeyGestureDrag::stepsBackToo()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.Press(20);
    scene.MoveTo(23);
    scene.MoveTo(20);
    scene.MoveTo(18);
    scene.Release();
    QCOMPARE(scene.TakeCalls().mid(5),
             QStringList({"edit 0 [row] 0 0", "edit 2 [row] 3 0", "edit 2 [row] -3 0",
                          "edit 2 [row] -2 0", "edit 6 [row] -2 0", "edit 1 [row] 0 0",
                          "frame 18 false", "frame 18 true"}));
    QCOMPARE(scene.Key(0).frame, 18);
}

void tst_KeyGestureDrag::leavesTheKeysWhereTheyCannotGo()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({2});
    scene.Press(2);
    scene.MoveTo(-40);
    QCOMPARE(scene.Key(0).frame, 0);
    scene.Release();
    QCOMPARE(scene.Key(0).frame, 0);
    QCOMPARE(scene.CurrentFrame(), 0);
}

void tst_KeyGestureDrag::needsItsEditMode()
{
    MouseScene scene(kSelectOnly);
    scene.AddKeys({20});
    scene.Press(20);
    scene.TakeCalls();
    scene.MoveTo(30);
    QCOMPARE(scene.TakeCalls(), QStringList());
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList({"frame 30 false", "frame 30 true"}));
    QCOMPARE(scene.Key(0).frame, 20);
}

void tst_KeyGestureDrag::needsAPressOnAKey()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.Select(scene.row, 0);
    scene.Press(30);
    scene.MoveTo(35);
    scene.Release();
    QCOMPARE(scene.Key(0).frame, 20);
}

/// A glyph is wider than the cell of a frame: the one at 30 reaches into frame 29.
void tst_KeyGestureDrag::goesToTheKeyUnderThePointerAtTheRelease()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20, 30});
    ResetAxis(MouseScene::kFrames, 4, 0, 0);
    scene.pointer.Press(scene.row, scene.Spot(20 * 4 + 2));
    scene.pointer.MoveTo(scene.row, scene.Spot(29 * 4 + 3));
    scene.TakeCalls();
    // Beside the moved key's cell, on the glyph of the other: it stands further back, so it wins.
    QCOMPARE(scene.row->HitTestKey(scene.Spot(29 * 4 + 3)), 1);
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList({"edit 6 [row] 9 0", "edit 1 [row] 0 0",
                                             "frame 30 false", "frame 30 true"}));
}

void tst_KeyGestureDrag::goesToThePointersFrameWhenNoKeyIsUnderIt()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20, 49});
    scene.Select(scene.row, 0);
    scene.Select(scene.row, 1); // they cannot move to the right
    scene.Press(20);
    scene.MoveTo(35);
    scene.TakeCalls();
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList({"edit 6 [row] 0 0", "edit 1 [row] 0 0",
                                             "frame 35 false", "frame 35 true"}));
    QCOMPARE(scene.Key(0).frame, 20);
}

void tst_KeyGestureDrag::copiesWithCtrl()
{
    MouseScene scene(kDragKeys);
    scene.fixture.host.editAnswer = 0;
    scene.AddKeys({20});
    scene.Click(20);
    scene.TakeCalls();

    scene.Press(20, Qt::ControlModifier);
    scene.MoveTo(25);
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row"})); // the host hears at the end
    QCOMPARE(int(scene.Keys().GetSize()), 2);
    QCOMPARE(scene.Key(0).frame, 20);
    QCOMPARE(scene.Key(1).frame, 25);
    QCOMPARE(scene.Selection(), Indexes{1});

    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList({"edit 13 [row] 0 0", "edit 14 [row] 0 0",
                                             "frame 25 false", "frame 25 true"}));
    QCOMPARE(int(scene.Keys().GetSize()), 1); // pasting is the host's
    QCOMPARE(scene.Key(0).frame, 20);
}

void tst_KeyGestureDrag::copiesAreLeftOutWhenTheHostRefuses()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.Click(20);
    scene.TakeCalls();
    scene.Press(20, Qt::ControlModifier);
    scene.MoveTo(25);
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "edit 13 [row] 0 0", "frame 25 false",
                                             "frame 25 true"}));
    QCOMPARE(int(scene.Keys().GetSize()), 1);
    QCOMPARE(scene.Selection(), Indexes{0});
}

void tst_KeyGestureDrag::reportsEachStepOfACopyToTheOwner()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.Click(20);
    scene.Press(20, Qt::ControlModifier);
    MessageSpy spy(scene.row);
    scene.MoveTo(23);
    QCOMPARE(spy.TakeMessages(), QStringList({"1112 (0, 0, 0, 0)", "1113 (0, 0, 3, 0)"}));
    scene.pointer.MoveTo(scene.row, scene.Spot(237));
    QCOMPARE(spy.TakeMessages(), QStringList({"1113 (0, 0, 0, 0)"}));
    scene.Release();
    QCOMPARE(spy.TakeMessages(),
             QStringList({"1114 (0, 0, 0, 0)", "1104 (0, 0, 0, 0)", "1105 (0, 0, 0, 0)"}));
}

void tst_KeyGestureDrag::endsWithTheFramesSinceTheLastStep_data()
{
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QStringList>("messages");
    QTest::newRow("move") << int(Qt::NoModifier)
                          << QStringList({"1109 (0, 0, 0, 0)", "1110 (0, 0, 3, 0)",
                                          "1111 (0, 0, 2, 0)", "1104 (0, 0, 0, 0)",
                                          "1105 (0, 0, 0, 0)"});
    QTest::newRow("copy") << int(Qt::ControlModifier)
                          << QStringList({"1112 (0, 0, 0, 0)", "1113 (0, 0, 3, 0)",
                                          "1114 (0, 0, 2, 0)", "1104 (0, 0, 0, 0)",
                                          "1105 (0, 0, 0, 0)"});
}

/// The button goes up away from where the last move was, which Qt itself would tell before.
void tst_KeyGestureDrag::endsWithTheFramesSinceTheLastStep()
{
    QFETCH(const int, modifiers);
    QFETCH(const QStringList, messages);
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.Click(20);
    scene.Press(20, Qt::KeyboardModifiers(modifiers));
    MessageSpy spy(scene.row);
    scene.MoveTo(23);
    QMouseEvent release(QEvent::MouseButtonRelease, scene.At(25), Qt::LeftButton, Qt::NoButton,
                        Qt::KeyboardModifiers(modifiers));
    QCoreApplication::sendEvent(scene.row, &release);
    QCOMPARE(spy.TakeMessages(), messages);
    QCOMPARE(scene.CurrentFrame(), 25);
}

void tst_KeyGestureDrag::copiesWhatIsSelectedNotWhatIsPressed()
{
    MouseScene scene(kDragKeys);
    scene.fixture.host.editAnswer = 0;
    scene.AddKeys({10, 20});
    scene.Select(scene.row, 0);
    scene.Press(20, Qt::ControlModifier);
    scene.MoveTo(25);
    QCOMPARE(FramesOfKeys(scene), (Indexes{10, 15, 20}));
    QCOMPARE(scene.Selection(), Indexes{1});
    scene.Release();
    QCOMPARE(scene.TakeCalls(),
             QStringList({"same body row", "frame 20 false", "frame 20 true", "edit 13 [row] 0 0",
                          "edit 14 [row] 0 0", "frame 25 false", "frame 25 true"}));
}

void tst_KeyGestureDrag::copiesNothingWhenNothingIsSelected()
{
    MouseScene scene(kDragKeys);
    scene.fixture.host.editAnswer = 0;
    scene.AddKeys({10, 20});
    MessageSpy spy(scene.row);
    scene.Press(20, Qt::ControlModifier);
    spy.TakeMessages();
    scene.MoveTo(25);
    scene.Release();
    QCOMPARE(spy.TakeMessages(),
             QStringList({"1112 (0, 0, 0, 0)", "1113 (0, 0, 5, 0)", "1114 (0, 0, 0, 0)",
                          "1104 (0, 0, 0, 0)", "1105 (0, 0, 0, 0)"}));
    QCOMPARE(FramesOfKeys(scene), (Indexes{10, 20}));
    QCOMPARE(scene.Selection(), Indexes{});
}

void tst_KeyGestureDrag::escapeStopsNothing()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.Press(20);
    scene.MoveTo(23);
    scene.TakeCalls();
    QTest::keyClick(scene.fixture.mainWindow.windowHandle(), Qt::Key_Escape);
    QCOMPARE(scene.TakeCalls(), QStringList());
    scene.MoveTo(25);
    QCOMPARE(scene.TakeCalls(), QStringList({"edit 2 [row] 2 0"}));
    QCOMPARE(scene.Key(0).frame, 25);
}

void tst_KeyGestureDrag::decidesBetweenMoveAndCopyWhenItStarts()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.Press(20);
    MessageSpy spy(scene.row);
    scene.pointer.modifiers = Qt::ControlModifier; // after the press, before the drag
    scene.MoveTo(23);
    scene.pointer.modifiers = Qt::NoModifier;
    scene.MoveTo(24);
    scene.Release();
    QCOMPARE(spy.TakeMessages(),
             QStringList({"1112 (0, 0, 0, 0)", "1113 (0, 0, 3, 0)", "1113 (0, 0, 1, 0)",
                          "1114 (0, 0, 0, 0)", "1104 (0, 0, 0, 0)", "1105 (0, 0, 0, 0)"}));
}

void tst_KeyGestureDrag::togglesNothingAfterADrag()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.Press(20);
    scene.MoveTo(25);
    scene.TakeCalls();
    scene.pointer.modifiers = Qt::ControlModifier;
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList({"edit 6 [row] 5 0", "edit 1 [row] 0 0",
                                             "frame 25 false", "frame 25 true"}));
    QCOMPARE(scene.Selection(), Indexes{0});
}

void tst_KeyGestureDrag::needsNoFocus()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.Press(20);
    QVERIFY(!scene.row->hasFocus());
    scene.MoveTo(25);
    QCOMPARE(scene.Key(0).frame, 25);
}

void tst_KeyGestureDrag::measuresStepsOnTheAxisAsItIsNow()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.Press(20);
    scene.MoveTo(22);
    scene.TakeCalls();
    TimelineLibrary::Instance().axis.scrollX = 40; // as a wheel does
    scene.MoveTo(24);
    QCOMPARE(scene.TakeCalls(), QStringList({"edit 2 [row] 2 0"}));
}

void tst_KeyGestureDrag::goesOnAfterTheHostReplacedTheKeys()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10, 20});
    scene.Press(20);
    scene.When("edit 2 [row] 3 0", [&] {
        scene.Keys().RemoveAll();
        scene.AddKeys({23});
        scene.Select(scene.row, 0);
    });
    scene.MoveTo(23);
    scene.MoveTo(25);
    scene.Release();
    QCOMPARE(
        scene.TakeCalls().mid(5),
        QStringList({"edit 0 [row] 0 0", "edit 2 [row] 3 0", "edit 2 [row] 2 0", "edit 6 [row] 5 0",
                     "edit 1 [row] 0 0", "frame 25 false", "frame 25 true"}));
    QCOMPARE(scene.Key(0).frame, 25);
}

void tst_KeyGestureDrag::aStepInsideACallbackTakesNothingAway()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.Press(20);
    scene.When("edit 2 [row] 3 0", [&] { scene.MoveTo(27); });
    scene.MoveTo(23);
    scene.Release();
    QCOMPARE(scene.Key(0).frame, 27);
    QCOMPARE(
        scene.TakeCalls().mid(5),
        QStringList({"edit 0 [row] 0 0", "edit 2 [row] 3 0", "edit 2 [row] 4 0", "edit 6 [row] 7 0",
                     "edit 1 [row] 0 0", "frame 27 false", "frame 27 true"}));
}

void tst_KeyGestureDrag::aReleaseInsideTheFirstCallbackEndsTheDrag()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.Press(20);
    scene.When("edit 0 [row] 0 0", [&] { scene.Release(); });
    scene.MoveTo(23);
    QCOMPARE(scene.TakeCalls().mid(5),
             QStringList({"edit 0 [row] 0 0", "edit 6 [row] 3 0", "edit 1 [row] 0 0",
                          "frame 23 false", "frame 23 true"}));
    QCOMPARE(scene.Key(0).frame, 23);
    scene.MoveTo(30);
    QCOMPARE(scene.TakeCalls(), QStringList());
}

void tst_KeyGestureDrag::aPressInsideTheReleaseBeginsAnewWhileTheOldDragIsTold()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10, 30});
    scene.Press(10);
    scene.MoveTo(15);
    scene.TakeCalls();
    MessageSpy spy(scene.row);
    spy.reaction = [&](int code) {
        if (code == 1111) {
            spy.reaction = nullptr;
            scene.Press(30);
        }
    };
    scene.Release();
    QCOMPARE(spy.TakeMessages(),
             QStringList({"1111 (0, 0, 0, 0)", "1108 (0, 0, 0, 0)", "1103 (0, 0, 0, 0)",
                          "1102 (0, 0, 0, 0)", "1104 (0, 0, 0, 0)", "1105 (0, 0, 0, 0)"}));
    scene.MoveTo(32);
    QCOMPARE(spy.TakeMessages(), QStringList({"1109 (0, 0, 0, 0)", "1110 (0, 0, 2, 0)"}));
}

void tst_KeyGestureDrag::aPressThatEndsADragStopsWhenALaterOneRanInItsEnd()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10, 30});
    scene.Press(10);
    scene.MoveTo(15);
    scene.TakeCalls();
    scene.pointer.LoseButtons();
    MessageSpy spy(scene.row);
    spy.reaction = [&](int code) {
        if (code == 1111) {
            spy.reaction = nullptr;
            scene.Press(30);
        }
    };
    QMouseEvent press(QEvent::MouseButtonPress, scene.At(40), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(scene.row, &press);
    QCOMPARE(spy.TakeMessages(),
             QStringList({"1111 (0, 0, 0, 0)", "1108 (0, 0, 0, 0)", "1103 (0, 0, 0, 0)",
                          "1102 (0, 0, 0, 0)", "1104 (0, 0, 0, 0)", "1105 (0, 0, 0, 0)"}));
    scene.MoveTo(32);
    QCOMPARE(spy.TakeMessages(), QStringList({"1109 (0, 0, 0, 0)", "1110 (0, 0, 2, 0)"}));
}

/// The release that comes when the modes are back is that of a drag that has ended.
void tst_KeyGestureDrag::aDragThatLostItsEditModesEndsBeforeItsRelease()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10});
    scene.Press(10);
    scene.MoveTo(15);
    scene.fixture.SetEditModes(scene.row, {});
    scene.TakeCalls();
    MessageSpy spy(scene.row);
    scene.pointer.Press(scene.row, scene.At(18), Qt::MiddleButton);
    QCOMPARE(spy.TakeMessages(),
             QStringList({"1111 (0, 0, 3, 0)", "1104 (0, 0, 0, 0)", "1105 (0, 0, 0, 0)",
                          "1104 (0, 0, 0, 0)", "1105 (0, 0, 0, 0)"}));
    scene.fixture.SetEditModes(scene.row, kDragKeys);
    scene.Release();
    QCOMPARE(spy.TakeMessages(), QStringList());
}

QTEST_MAIN(tst_KeyGestureDrag)
#include "tst_KeyGestureDrag.moc"
