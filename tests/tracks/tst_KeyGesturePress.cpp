#include "MouseScene.h"

using namespace KestovaTest;

// A row of keys under the left button, up to the point where something is dragged.

class tst_KeyGesturePress : public QObject
{
    Q_OBJECT

private slots:
    void selectsThePressedKeyAndGoesToIt();
    void reportsEachStepOfAClickToTheOwner();
    void activatesTheRowBeforeAnythingElse();
    void clearsTheSelectionOfTheOtherRows();
    void leavesASelectedKeySelectedWithTheOthers();
    void goesToTheFrameOfTheKeyNotToThatOfThePointer();
    void goesToThePointersFrameOnAKeyWithSubKeys();
    void goesToThePointersFrameAtTheReleaseBesideTheKey();
    void doesNotSelectALockedKey();
    void leavesTheSelectionAloneAtAPressWithCtrl();
    void deselectsASelectedKeyWithCtrlAtTheReleaseNotAtThePress();
    void selectsOneMoreKeyWithCtrlAtTheRelease();
    void togglesWhatIsUnderThePointerAtTheRelease();
    void togglesWithCtrlPressedOnlyAfterThePress();
    void togglesNothingWhenCtrlIsLetGoBeforeTheRelease();
    void togglesNothingBesideKeys();
    void togglesNothingWithoutTheModeForDraggingKeys();
    void clearsTheTimeRangeWhenAKeyIsArmed();
    void keepsTheTimeRangeWithoutTheModeForDraggingKeys();
    void forgetsTheRangeThatTheHostSetWhileAKeyWasPressed();

    void aRowWithOneModeOnlyMovesTheCurrentFrame_data();
    void aRowWithOneModeOnlyMovesTheCurrentFrame();
    void anyButtonMovesTheCurrentFrameOfSuchARow();
    void nothingMovesOrEndsOnSuchARow();
    void ignoresOtherButtonsEntirely_data();
    void ignoresOtherButtonsEntirely();
    void ignoresTheReleaseOfOtherButtons();

    void theCurrentFrameStaysInTheTimeline_data();
    void theCurrentFrameStaysInTheTimeline();
    void theCurrentFrameIsMinusOneWithoutFrames();
    void theHostMayMoveTheFrameInACallback();
    void theHostMayTakeFramesAwayInACallback();
    void findsThePressedKeyAtItsNewPlaceAfterACallback();
    void selectsNothingWhenTheHostTookTheKeyAway();
    void acceptsTheEventsItHandles();
    void worksTheSameOnEveryKindOfKeyRow_data();
    void worksTheSameOnEveryKindOfKeyRow();
};

void tst_KeyGesturePress::selectsThePressedKeyAndGoesToIt()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10, 20, 30});
    scene.Select(scene.row, 0);

    scene.Press(20);
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "cleared", "changed",
                                             "frame 20 false", "frame 20 true"}));
    QCOMPARE(scene.Selection(), Indexes{1});
    QCOMPARE(scene.CurrentFrame(), 20);

    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList());
    QCOMPARE(scene.Selection(), Indexes{1});
    QCOMPARE(scene.CurrentFrame(), 20);
    QCOMPARE(scene.Range(), kNoRange);
}

void tst_KeyGesturePress::reportsEachStepOfAClickToTheOwner()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    MessageSpy spy(scene.row);
    scene.Press(20);
    QCOMPARE(spy.TakeMessages(),
             QStringList({"1108 (0, 0, 0, 0)", "1103 (0, 0, 0, 0)", "1102 (0, 0, 0, 0)",
                          "1104 (0, 0, 0, 0)", "1105 (0, 0, 0, 0)"}));
    scene.Release();
    QCOMPARE(spy.TakeMessages(), QStringList({"1104 (0, 0, 0, 0)", "1105 (0, 0, 0, 0)"}));
}

void tst_KeyGesturePress::activatesTheRowBeforeAnythingElse()
{
    MouseScene scene(kDragKeys);
    scene.fixture.AddKeys(scene.other, {20});
    scene.pointer.Press(scene.other, scene.At(20));
    QCOMPARE(scene.TakeCalls(), QStringList({"active body other", "cleared", "changed",
                                             "frame 20 false", "frame 20 true"}));
    QVERIFY(scene.other->IsActive());
    QVERIFY(!scene.row->IsActive());
}

void tst_KeyGesturePress::clearsTheSelectionOfTheOtherRows()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.fixture.AddKeys(scene.other, {5});
    scene.Select(scene.other, 0);
    scene.Click(20);
    QCOMPARE(scene.Selection(), Indexes{0});
    QCOMPARE(scene.other->Keys().SelectedIndexes(), Indexes{});
}

void tst_KeyGesturePress::leavesASelectedKeySelectedWithTheOthers()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10, 20, 30});
    scene.Select(scene.row, 0);
    scene.Select(scene.row, 1);
    scene.Press(20);
    QCOMPARE(scene.TakeCalls(),
             QStringList({"same body row", "changed", "frame 20 false", "frame 20 true"}));
    QCOMPARE(scene.Selection(), (Indexes{0, 1}));
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList());
    QCOMPARE(scene.Selection(), (Indexes{0, 1}));
}

/// A glyph is wider than the cell of a frame.
void tst_KeyGesturePress::goesToTheFrameOfTheKeyNotToThatOfThePointer()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    ResetAxis(MouseScene::kFrames, 4, 0, 0);
    const QPoint beside = scene.Spot(20 * 4 - 1);
    QCOMPARE(scene.row->HitTestKey(beside), 0);
    QCOMPARE(scene.row->PixelToFrame(beside.x()), 19);
    scene.pointer.Click(scene.row, beside);
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "cleared", "changed",
                                             "frame 20 false", "frame 20 true"}));
    QCOMPARE(scene.CurrentFrame(), 20);
}

void tst_KeyGesturePress::goesToThePointersFrameOnAKeyWithSubKeys()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10});
    scene.Key(0).clipLength = 20;
    scene.Key(0).subKeys = new CTimelineKeyArray;
    scene.Keys().UpdateClipDisplayLength(0);
    scene.Press(15);
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "cleared", "changed",
                                             "frame 15 false", "frame 15 true"}));
    QCOMPARE(scene.Selection(), Indexes{0});
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList());
    QCOMPARE(scene.CurrentFrame(), 15);
}

void tst_KeyGesturePress::goesToThePointersFrameAtTheReleaseBesideTheKey()
{
    MouseScene scene(kSelectOnly);
    scene.AddKeys({20});
    scene.Press(20);
    scene.MoveTo(33);
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "cleared", "changed",
                                             "frame 20 false", "frame 20 true"}));
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList({"frame 33 false", "frame 33 true"}));
    QCOMPARE(scene.Selection(), Indexes{0});
}

void tst_KeyGesturePress::doesNotSelectALockedKey()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.Key(0).lockState = TL_KEY_LOCKED;
    scene.Press(20);
    // The pointer falls through to the row: a range begins.
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "cleared", "changed",
                                             "frame 20 false", "frame 20 true"}));
    QCOMPARE(scene.Selection(), Indexes{});
    QCOMPARE(scene.Range(), FrameRange(20, 20));
}

void tst_KeyGesturePress::leavesTheSelectionAloneAtAPressWithCtrl()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10, 20});
    scene.Select(scene.row, 0);
    scene.Press(20, Qt::ControlModifier);
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "frame 20 false", "frame 20 true"}));
    QCOMPARE(scene.Selection(), Indexes{0});
}

void tst_KeyGesturePress::deselectsASelectedKeyWithCtrlAtTheReleaseNotAtThePress()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10, 20});
    scene.Select(scene.row, 0);
    scene.Select(scene.row, 1);
    scene.Press(20, Qt::ControlModifier);
    QCOMPARE(scene.Selection(), (Indexes{0, 1}));
    scene.TakeCalls();
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList({"changed"}));
    QCOMPARE(scene.Selection(), Indexes{0});
    QCOMPARE(scene.CurrentFrame(), 20);
}

void tst_KeyGesturePress::selectsOneMoreKeyWithCtrlAtTheRelease()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10, 20});
    scene.Select(scene.row, 0);
    scene.Click(20, Qt::ControlModifier);
    QCOMPARE(scene.TakeCalls(),
             QStringList({"same body row", "frame 20 false", "frame 20 true", "changed"}));
    QCOMPARE(scene.Selection(), (Indexes{0, 1}));
}

/// Keys whose glyphs stand in one frame's cell: the pointer slides from one onto the other.
void tst_KeyGesturePress::togglesWhatIsUnderThePointerAtTheRelease()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20, 21});
    ResetAxis(MouseScene::kFrames, 0.1, 0, 0);
    // 10 frames a pixel: the two keys are in one place, and the last one is hit.
    scene.pointer.modifiers = Qt::ControlModifier;
    scene.pointer.Press(scene.row, scene.Spot(2));
    scene.TakeCalls();
    scene.Keys().RemoveAt(1);
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList({"changed", "frame 20 false", "frame 20 true"}));
    QCOMPARE(scene.Selection(), Indexes{0});
}

void tst_KeyGesturePress::togglesWithCtrlPressedOnlyAfterThePress()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10, 20});
    scene.Press(20);
    QCOMPARE(scene.Selection(), Indexes{1});
    scene.TakeCalls();
    scene.pointer.modifiers = Qt::ControlModifier;
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList({"changed"}));
    QCOMPARE(scene.Selection(), Indexes{});
}

void tst_KeyGesturePress::togglesNothingWhenCtrlIsLetGoBeforeTheRelease()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10, 20});
    scene.Select(scene.row, 0);
    scene.Press(20, Qt::ControlModifier);
    scene.TakeCalls();
    scene.pointer.modifiers = Qt::NoModifier;
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList());
    QCOMPARE(scene.Selection(), Indexes{0});
}

void tst_KeyGesturePress::togglesNothingBesideKeys()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.Press(20, Qt::ControlModifier);
    scene.TakeCalls();
    scene.Key(0).lockState = TL_KEY_LOCKED; // nothing is hit any more
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList());
    QCOMPARE(scene.Selection(), Indexes{});
    QCOMPARE(scene.CurrentFrame(), 20);
}

void tst_KeyGesturePress::togglesNothingWithoutTheModeForDraggingKeys()
{
    MouseScene scene(kSelectOnly);
    scene.AddKeys({20});
    scene.Click(20, Qt::ControlModifier);
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "frame 20 false", "frame 20 true"}));
    QCOMPARE(scene.Selection(), Indexes{});
}

void tst_KeyGesturePress::clearsTheTimeRangeWhenAKeyIsArmed()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.row->SetRange(3, 7);
    scene.Press(20);
    QCOMPARE(scene.Range(), kNoRange);
}

void tst_KeyGesturePress::keepsTheTimeRangeWithoutTheModeForDraggingKeys()
{
    MouseScene scene(kSelectOnly);
    scene.AddKeys({20});
    scene.row->SetRange(3, 7);
    scene.Click(20);
    QCOMPARE(scene.Range(), FrameRange(3, 7));
}

void tst_KeyGesturePress::forgetsTheRangeThatTheHostSetWhileAKeyWasPressed()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.Press(20);
    scene.row->SetRange(3, 7);
    scene.Release();
    QCOMPARE(scene.Range(), kNoRange);
}

void tst_KeyGesturePress::aRowWithOneModeOnlyMovesTheCurrentFrame_data()
{
    QTest::addColumn<int>("modes");
    QTest::addColumn<int>("frame");
    QTest::newRow("one mode, on a key") << 1 << 20;
    QTest::newRow("one mode, beside keys") << 1 << 25;
    QTest::newRow("one mode, on a range marker") << 1 << 5;
    QTest::newRow("no mode, on a key") << 0 << 20;
}

void tst_KeyGesturePress::aRowWithOneModeOnlyMovesTheCurrentFrame()
{
    QFETCH(const int, modes);
    QFETCH(const int, frame);
    MouseScene scene({});
    if (modes == 1)
        scene.fixture.SetEditModes(scene.row, {TL_EDIT_TIME_RANGE});
    scene.AddKeys({10, 20});
    scene.Select(scene.row, 0);
    scene.row->SetRange(5, 8);
    scene.Press(frame);
    const QString line = QStringLiteral("frame %1 ").arg(frame);
    QCOMPARE(scene.TakeCalls(), QStringList({line + "false", line + "true"}));
    QCOMPARE(scene.Selection(), Indexes{0});
    QCOMPARE(scene.Range(), FrameRange(5, 8));
    QVERIFY(!scene.row->testAttribute(Qt::WA_SetCursor));
}

void tst_KeyGesturePress::anyButtonMovesTheCurrentFrameOfSuchARow()
{
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        MouseScene scene({TL_EDIT_MOVE_KEYS});
        scene.pointer.Click(scene.row, scene.At(12), button);
        QCOMPARE(scene.TakeCalls(), QStringList({"frame 12 false", "frame 12 true"}));
    }
}

void tst_KeyGesturePress::nothingMovesOrEndsOnSuchARow()
{
    MouseScene scene({TL_EDIT_MOVE_KEYS});
    scene.AddKeys({20});
    scene.Press(20);
    scene.TakeCalls();
    MessageSpy spy(scene.row);
    scene.MoveTo(30);
    scene.Release();
    QCOMPARE(spy.TakeMessages(), QStringList());
    QCOMPARE(scene.CurrentFrame(), 20);
}

void tst_KeyGesturePress::ignoresOtherButtonsEntirely_data()
{
    QTest::addColumn<int>("button");
    // The right button opens the menu.
    QTest::newRow("middle") << int(Qt::MiddleButton);
    QTest::newRow("back") << int(Qt::BackButton);
}

void tst_KeyGesturePress::ignoresOtherButtonsEntirely()
{
    QFETCH(const int, button);
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    MessageSpy spy(scene.row);
    scene.pointer.DoubleClick(scene.row, scene.At(20), Qt::MouseButton(button));
    QCOMPARE(spy.TakeMessages(), QStringList());
    QCOMPARE(scene.Selection(), Indexes{});
    QCOMPARE(scene.CurrentFrame(), 0);
}

void tst_KeyGesturePress::ignoresTheReleaseOfOtherButtons()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.Press(20, Qt::ControlModifier);
    scene.TakeCalls();
    MessageSpy spy(scene.row);
    scene.Release(); // of the left button, with Ctrl: toggles
    spy.TakeMessages();
    scene.pointer.modifiers = Qt::ControlModifier;
    scene.pointer.Press(scene.row, scene.At(20));
    spy.TakeMessages();
    scene.pointer.Release(Qt::RightButton);
    QCOMPARE(spy.TakeMessages(), QStringList());
    QCOMPARE(scene.Selection(), Indexes{0});
}

void tst_KeyGesturePress::theCurrentFrameStaysInTheTimeline_data()
{
    QTest::addColumn<int>("modes");
    QTest::addColumn<int>("scrollX");
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("expected");
    for (const int modes : {1, 2}) {
        const QByteArray name = QByteArray::number(modes) + " modes, ";
        QTest::newRow(name + "below the first frame") << modes << -100 << 20 << 0;
        QTest::newRow(name + "on the first frame") << modes << 0 << 5 << 0;
        QTest::newRow(name + "on the last frame") << modes << 0 << 495 << 49;
        QTest::newRow(name + "at the frame count") << modes << 0 << 505 << 49;
        QTest::newRow(name + "beyond the end") << modes << 0 << 550 << 49;
    }
}

void tst_KeyGesturePress::theCurrentFrameStaysInTheTimeline()
{
    QFETCH(const int, modes);
    QFETCH(const int, scrollX);
    QFETCH(const int, x);
    QFETCH(const int, expected);
    MouseScene scene(kDragKeys);
    if (modes == 1)
        scene.fixture.SetEditModes(scene.row, {TL_EDIT_MOVE_KEYS});
    ResetAxis(MouseScene::kFrames, MouseScene::kPixelsPerFrame, scrollX, 7);
    scene.pointer.Press(scene.row, scene.Spot(x));
    QCOMPARE(scene.CurrentFrame(), expected);
    scene.pointer.Release();
    QCOMPARE(scene.CurrentFrame(), expected);
}

void tst_KeyGesturePress::theCurrentFrameIsMinusOneWithoutFrames()
{
    MouseScene scene(kDragKeys);
    ResetAxis(0, MouseScene::kPixelsPerFrame, 0, 0);
    scene.Click(5);
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "cleared", "changed",
                                             "frame -1 false", "frame -1 true"}));
    QCOMPARE(scene.CurrentFrame(), -1);
}

void tst_KeyGesturePress::theHostMayMoveTheFrameInACallback()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.fixture.manager->SetFrameCount(MouseScene::kFrames);
    ResetAxis(MouseScene::kFrames, MouseScene::kPixelsPerFrame, 0, 0);
    scene.When("changed", [&] { scene.fixture.manager->SetCurrentFrame(3); });
    scene.Press(20);
    // The host knows the frame that it has set itself.
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "cleared", "changed"}));
    QCOMPARE(scene.CurrentFrame(), 3);
}

void tst_KeyGesturePress::theHostMayTakeFramesAwayInACallback()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.When("changed", [] { TimelineLibrary::Instance().axis.frameCount = 15; });
    scene.Press(20);
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "cleared", "changed",
                                             "frame 14 false", "frame 14 true"}));
}

void tst_KeyGesturePress::findsThePressedKeyAtItsNewPlaceAfterACallback()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({10, 20});
    scene.When("cleared", [&] { scene.Keys().RemoveAt(0); });
    scene.Press(20);
    QCOMPARE(scene.Selection(), Indexes{0});
    QVERIFY(scene.Key(0).selected);
    QCOMPARE(scene.CurrentFrame(), 20);
}

void tst_KeyGesturePress::selectsNothingWhenTheHostTookTheKeyAway()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20, 30});
    ResetAxis(MouseScene::kFrames, 4, 0, 0);
    const QPoint beside = scene.Spot(20 * 4 - 1); // on its glyph, in the frame before
    QCOMPARE(scene.row->HitTestKey(beside), 0);
    scene.When("cleared", [&] { scene.Keys().RemoveAt(0); });
    scene.pointer.Press(scene.row, beside);
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "cleared", "changed",
                                             "frame 19 false", "frame 19 true"}));
    QCOMPARE(scene.Selection(), Indexes{});
    scene.pointer.MoveTo(scene.row, scene.Spot(25 * 4)); // nothing was taken hold of
    QCOMPARE(scene.TakeCalls(), QStringList());
}

/// What the row handles stays with it; what it does not handle goes on to the timeline.
void tst_KeyGesturePress::acceptsTheEventsItHandles()
{
    MouseScene scene(kDragKeys);
    MouseEventLog log(scene.row->parentWidget());
    scene.pointer.MoveTo(scene.row, scene.At(3));
    log.TakeEvents();
    scene.pointer.DoubleClick(scene.row, scene.At(3));
    QCOMPARE(log.TakeEvents(), QStringList());
    scene.pointer.Click(scene.row, scene.At(3), Qt::MiddleButton);
    QCOMPARE(log.TakeEvents(), QStringList({"press", "release"}));
}

void tst_KeyGesturePress::worksTheSameOnEveryKindOfKeyRow_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("keys") << int(TL_TRACK_KEY);
    QTest::newRow("link keys") << int(TL_TRACK_LINK_KEY);
    QTest::newRow("mouth shapes") << int(TL_TRACK_VISEME_KEY);
}

void tst_KeyGesturePress::worksTheSameOnEveryKindOfKeyRow()
{
    QFETCH(const int, type);
    MouseScene scene(kDragKeys, TL_TRACK_TYPE(type));
    scene.AddKeys({10, 20});
    scene.Press(20);
    scene.MoveTo(23);
    scene.Release();
    QCOMPARE(scene.TakeCalls(),
             QStringList({"same body row", "cleared", "changed", "frame 20 false", "frame 20 true",
                          "edit 0 [row] 0 0", "edit 2 [row] 3 0", "edit 6 [row] 3 0",
                          "edit 1 [row] 0 0", "frame 23 false", "frame 23 true"}));
    QCOMPARE(scene.Key(1).frame, 23);
}

QTEST_MAIN(tst_KeyGesturePress)
#include "tst_KeyGesturePress.moc"
