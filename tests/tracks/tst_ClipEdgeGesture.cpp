#include "KindGestures.h"
#include "MessageSpy.h"
#include "tracks/CTimelineTrackClip.h"

#include <QDialog>
#include <QMouseEvent>

#include <utility>

using namespace KestovaTest;

namespace {

/// The host's side of an edge drag: it changes its clip at once and says so.
void Apply(CTimelineTrackClip& row, const QString& line)
{
    const QStringList words = line.split(QLatin1Char(' '));
    if (words.value(0) != QLatin1String("edit"))
        return;
    const int type = words.value(1).toInt();
    if (type != TL_EDIT_CLIP_LOOP && type != TL_EDIT_CLIP_SPEED && type != TL_EDIT_CLIP_TRIM)
        return;
    const int index = words.value(3).toInt();
    const int amount = words.value(4).toInt();
    CTimelineKey& clip = *row.Keys().GetAt(index);
    if (type == TL_EDIT_CLIP_LOOP)
        clip.loopCount += amount;
    else if (type == TL_EDIT_CLIP_SPEED)
        clip.clipLength += amount / clip.loopCount;
    else
        clip.transitionFrames += amount;
    row.Keys().UpdateClipDisplayLength(index);
}

class ClipRow : public RowUnderTheHand<CTimelineTrackClip>
{
public:
    explicit ClipRow(std::initializer_list<TLEditType> modes, double pixelsPerFrame = 5.0)
        : RowUnderTheHand(TL_TRACK_CLIP, pixelsPerFrame)
    {
        VZ::CArrayList<TLEditType> list;
        for (const TLEditType mode : modes)
            list.Add(mode);
        row->SetEditModes(list);
    }

    /// A clip on the row, with room for speed drags between 5 and 15 frames.
    CTimelineKey& Add(int frame, int length, int loops = 1)
    {
        const auto clip = MakeClip(frame, length, loops);
        clip->hostValue2 = 15;
        clip->hostValue3 = 5;
        row->Keys().Add(clip, false);
        return *clip;
    }
    void HostAppliesEdits()
    {
        fixture.host.reaction = [this](const QString& line) { Apply(*row, line); };
    }
    bool ShowsCursor(const QCursor& cursor) const
    {
        return HasOwnCursor() && row->cursor().pixmap().cacheKey() == cursor.pixmap().cacheKey();
    }
    bool IsIdle() const
    {
        return row->GetEdgeDrag().Edge().clip == -1 && !row->GetEdgeDrag().IsOn();
    }
};

/// Counts the events of one type that reach a widget.
class EventCount : public QObject
{
public:
    EventCount(QWidget* widget, QEvent::Type type) : m_type(type)
    {
        widget->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == m_type ? 1 : 0;
        return false;
    }
    int count = 0;

private:
    QEvent::Type m_type;
};

const QStringList kPressed = {"same body row", "cleared", "changed"};
const QStringList kBegins = {"edit 0 [row] 0 0"};
const QStringList kLoopEnds = {"edit 7 [row] 0 0", "edit 1 [row] 0 0"};
const QStringList kSpeedEnds = {"edit 8 [row] 0 0", "edit 1 [row] 0 0"};
const QStringList kTrimEnds = {"edit 9 [row] 0 0", "edit 1 [row] 0 0"};

} // namespace

class tst_ClipEdgeGesture : public QObject
{
    Q_OBJECT
private slots:
    // --- the press ------------------------------------------------------------------------------

    void aPressOnAnEdgeActivatesTheRowAndSelectsTheClip()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.Add(10, 10);
        scene.fixture.manager->SetActiveRootTrack(nullptr);
        scene.fixture.ForgetCalls();
        scene.Press(105);
        QCOMPARE(scene.TakeCalls(),
                 QStringList({"cleared", "active body row", "cleared", "changed"}));
        QCOMPARE(scene.row->Keys().SelectedIndexes(), std::vector<int>{0});
        QCOMPARE(scene.row->GetEdgeDrag().Edge().clip, 0);
        QCOMPARE(scene.row->GetEdgeDrag().Edge().kind, int(TL_EDIT_CLIP_LOOP));
        QVERIFY(!scene.row->GetEdgeDrag().HasMoved());
        scene.Release();
    }

    void aPressInTheActiveRowDeselectsAllOtherKeys()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.Add(10, 10);
        scene.Add(40, 10);
        scene.row->Keys().SetSelectionByIndex(1, 1, true, ~0u);
        scene.fixture.AddKeys(scene.other, {5});
        scene.other->Keys().SetSelectionByIndex(0, 0, true, ~0u);
        scene.Press(105);
        QCOMPARE(scene.TakeCalls(), kPressed);
        QCOMPARE(scene.row->Keys().SelectedIndexes(), std::vector<int>{0});
        QVERIFY(scene.other->Keys().SelectedIndexes().empty());
        scene.Release();
    }

    void aReleaseWithoutAnyChangeSendsNoEndMessage()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.Add(10, 10);
        scene.Press(105);
        scene.MoveTo(100); // the end of the only pass
        QCOMPARE(scene.TakeCalls(), kPressed);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList());
        QVERIFY(scene.IsIdle());
    }

    void aLockedClipIsDraggedWithoutBeingSelected()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.Add(10, 10).lockState = 1;
        scene.Press(105);
        QCOMPARE(scene.TakeCalls(), kPressed);
        QVERIFY(scene.row->Keys().SelectedIndexes().empty());
        scene.MoveTo(120);
        QCOMPARE(scene.TakeCalls(), kBegins + QStringList{"edit 3 [row] 0 1"});
        scene.Release();
    }

    void anotherButtonDragsNoEdge()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP, TL_EDIT_MOVE_KEYS});
        scene.Add(10, 10);
        scene.Press(105, Qt::MiddleButton);
        scene.MoveTo(120);
        QVERIFY(scene.IsIdle());
        scene.Release(Qt::MiddleButton);
        QCOMPARE(scene.TakeCalls(), QStringList());
        QVERIFY(scene.row->Keys().SelectedIndexes().empty());
    }

    void theRightButtonOverAnEdgeOpensTheMenuAndDragsNothing()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP, TL_EDIT_MOVE_KEYS});
        scene.Add(10, 10);
        scene.Press(105, Qt::RightButton);
        QVERIFY(scene.IsIdle());
        scene.MoveTo(120);
        scene.Release(Qt::RightButton);
        QCOMPARE(scene.TakeCalls(),
                 (kPressed + QStringList{"frame 10 false", "frame 10 true", "menu row"}));
    }

    void anotherButtonLeavesADragAsItIs()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP, TL_EDIT_MOVE_KEYS});
        scene.Add(10, 10);
        scene.Press(105);
        scene.MoveTo(120);
        scene.TakeCalls();
        scene.Press(120, Qt::MiddleButton);
        scene.Release(Qt::MiddleButton);
        scene.MoveTo(170);
        QCOMPARE(scene.TakeCalls(), QStringList{"edit 3 [row] 0 2"});
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kLoopEnds);
    }

    void anotherButtonOnARowOfOneEditModeLeavesTheDragAsItIs_data()
    {
        QTest::addColumn<QString>("how");
        for (const char* how : {"release", "focus", "hide", "press"})
            QTest::newRow(how) << QString(how);
    }
    void anotherButtonOnARowOfOneEditModeLeavesTheDragAsItIs()
    {
        QFETCH(QString, how);
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.Add(10, 10);
        scene.Press(105);
        scene.MoveTo(120);
        scene.TakeCalls();
        scene.Press(120, Qt::MiddleButton);
        scene.Release(Qt::MiddleButton);
        QCOMPARE(scene.TakeCalls(), QStringList({"frame 24 false", "frame 24 true"}));
        QVERIFY(!scene.IsIdle());

        if (how == "release") {
            scene.Release();
        } else if (how == "focus") {
            scene.outside->setFocus();
        } else if (how == "hide") {
            scene.fixture.dock->hide();
        } else {
            QMouseEvent press(QEvent::MouseButtonPress, scene.At(300), Qt::LeftButton,
                              Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(scene.row, &press);
        }
        scene.fixture.Settle();
        QCOMPARE(scene.TakeCalls().mid(0, 2), kLoopEnds);
        QVERIFY(scene.IsIdle());
    }

    void anEdgePressedWhileTheRowIsToldOfAnotherPressIsDraggedAndWatched()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP, TL_EDIT_MOVE_KEYS});
        scene.Add(10, 10);
        scene.When("same body row", [&] {
            QMouseEvent press(QEvent::MouseButtonPress, scene.At(105), Qt::LeftButton,
                              Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(scene.row, &press);
        });
        scene.Press(300);
        QCOMPARE(scene.TakeCalls(), QStringList{"same body row"} + kPressed);
        QVERIFY(!scene.IsIdle());
        QCOMPARE(scene.row->RangeStart(), -1); // the outer press began no range
        scene.MoveTo(120);
        QCOMPARE(scene.TakeCalls(), kBegins + QStringList{"edit 3 [row] 0 1"});
        scene.outside->setFocus();
        scene.fixture.Settle();
        QCOMPARE(scene.TakeCalls(), kLoopEnds);
        QVERIFY(scene.IsIdle());
    }

    // --- without edit modes ---------------------------------------------------------------------

    void aPressWithoutEditModesMovesTheCurrentFrame_data()
    {
        QTest::addColumn<int>("scrollX");
        QTest::addColumn<int>("frameCount");
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("button");
        QTest::addColumn<int>("frame");
        QTest::newRow("inside") << 0 << 100 << 205 << int(Qt::LeftButton) << 41;
        QTest::newRow("on an edge") << 0 << 100 << 105 << int(Qt::LeftButton) << 21;
        QTest::newRow("any button") << 0 << 100 << 205 << int(Qt::MiddleButton) << 41;
        QTest::newRow("beyond the end") << 0 << 30 << 205 << int(Qt::LeftButton) << 29;
        QTest::newRow("negative") << -300 << 100 << 205 << int(Qt::LeftButton) << 0;
    }
    void aPressWithoutEditModesMovesTheCurrentFrame()
    {
        QFETCH(int, scrollX);
        QFETCH(int, frameCount);
        QFETCH(int, x);
        QFETCH(int, button);
        QFETCH(int, frame);
        ClipRow scene({});
        scene.Add(10, 10);
        scene.fixture.manager->SetCurrentFrame(7); // the host hears of changes only
        ResetAxis(frameCount, 5.0, scrollX, 7);
        scene.Press(x, static_cast<Qt::MouseButton>(button));
        scene.MoveTo(x + 50);
        scene.Release(static_cast<Qt::MouseButton>(button));
        QCOMPARE(scene.TakeCalls(), QStringList({QString("frame %1 false").arg(frame),
                                                 QString("frame %1 true").arg(frame)}));
        QCOMPARE(scene.fixture.manager->GetCurrentFrame(), frame);
        QVERIFY(!scene.HasOwnCursor());
    }

    // --- beside the edges -----------------------------------------------------------------------

    void aPressBesideTheEdgesIsTheCommonOne()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP, TL_EDIT_MOVE_KEYS});
        scene.Add(10, 10);
        scene.Press(300);
        scene.MoveTo(320);
        scene.Release();
        QCOMPARE(scene.TakeCalls(),
                 QStringList({"same body row", "cleared", "changed", "frame 60 false",
                              "frame 60 true", "changed", "frame 64 false", "frame 64 true"}));
    }

    void aRowOfOneEditModeDragsEdgesAndElsewhereMovesTheCurrentFrame()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.Add(10, 10);
        scene.Press(300);
        scene.MoveTo(320);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList({"frame 60 false", "frame 60 true"}));
        DragsFromANewPress(scene);
    }

    void aDragOfAnEdgeIsNoneOfTheClipItself()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP, TL_EDIT_MOVE_KEYS});
        scene.Add(10, 10);
        scene.Press(104); // inside the clip, and on its edge
        scene.MoveTo(180);
        scene.Release();
        QCOMPARE(scene.TakeCalls(),
                 kPressed + kBegins + QStringList{"edit 3 [row] 0 2"} + kLoopEnds);
    }

    void theRangeThatIsDraggedOverAnEdgeGoesOn()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP, TL_EDIT_MOVE_KEYS});
        scene.Add(10, 10);
        scene.Press(300);
        scene.TakeCalls();
        scene.MoveTo(105);
        QCOMPARE(scene.TakeCalls(), QStringList{"changed"});
        QVERIFY(scene.ShowsCursor(scene.row->LoopCursor()));
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList({"frame 21 false", "frame 21 true"}));
        QVERIFY(scene.IsIdle());
    }

    // --- loop -----------------------------------------------------------------------------------

    void aLoopDragAddsAndTakesPasses()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        CTimelineKey& clip = scene.Add(10, 10);
        scene.HostAppliesEdits();
        scene.Press(105);
        QCOMPARE(scene.TakeCalls(), kPressed);

        // The first change, within two pixels of the edge, only begins the drag.
        scene.MoveTo(106);
        QCOMPARE(scene.TakeCalls(), kBegins);
        QVERIFY(scene.row->GetEdgeDrag().HasMoved());
        scene.MoveTo(107);
        QCOMPARE(scene.TakeCalls(), QStringList{"edit 3 [row] 0 1"});
        QCOMPARE(clip.loopCount, 2);
        scene.MoveTo(150); // still in the second pass
        QCOMPARE(scene.TakeCalls(), QStringList());
        scene.MoveTo(260); // the fifth begins at 251
        QCOMPARE(scene.TakeCalls(), QStringList{"edit 3 [row] 0 3"});
        scene.MoveTo(130);
        QCOMPARE(scene.TakeCalls(), QStringList{"edit 3 [row] 0 -3"});
        QCOMPARE(clip.loopCount, 2);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kLoopEnds);
        QVERIFY(scene.IsIdle());
    }

    void aFirstChangeFarFromTheEdgeBeginsAndSteps()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.Add(10, 10);
        scene.Press(105);
        scene.TakeCalls();
        scene.MoveTo(108);
        QCOMPARE(scene.TakeCalls(), kBegins + QStringList{"edit 3 [row] 0 1"});
        scene.Release();
    }

    void aHostThatKeepsItsClipIsAskedForTheSameAmountAgain()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.Add(10, 10);
        scene.Press(105);
        scene.TakeCalls();
        scene.MoveTo(120);
        scene.MoveTo(125);
        QCOMPARE(scene.TakeCalls(),
                 kBegins + QStringList({"edit 3 [row] 0 1", "edit 3 [row] 0 1"}));
        scene.Release();
    }

    void aLoopDragLeftOfTheClipsStartChangesNothing()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.Add(10, 10, 3);
        scene.Press(205);
        scene.TakeCalls();
        for (const int x : {50, 49, 10})
            scene.MoveTo(x);
        QCOMPARE(scene.TakeCalls(), QStringList());
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList());
    }

    void theLoopCountNeverDropsBelowOne()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        CTimelineKey& clip = scene.Add(10, 10, 3);
        scene.HostAppliesEdits();
        scene.Press(205);
        scene.TakeCalls();
        scene.MoveTo(51);
        QCOMPARE(scene.TakeCalls(), kBegins + QStringList{"edit 3 [row] 0 -2"});
        QCOMPARE(clip.loopCount, 1);
        for (const int x : {60, 51, 50, 20})
            scene.MoveTo(x);
        QCOMPARE(scene.TakeCalls(), QStringList());
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kLoopEnds);
    }

    // --- speed ----------------------------------------------------------------------------------

    void aSpeedDragChangesTheWholeLength()
    {
        ClipRow scene({TL_EDIT_CLIP_SPEED});
        CTimelineKey& clip = scene.Add(10, 10, 2); // ends at pixel 155
        scene.HostAppliesEdits();
        scene.Press(155);
        QCOMPARE(scene.TakeCalls(), kPressed);
        scene.MoveTo(164); // one frame, half a frame for each pass
        QCOMPARE(scene.TakeCalls(), QStringList());
        scene.MoveTo(175); // four frames over two passes
        QCOMPARE(scene.TakeCalls(), kBegins + QStringList{"edit 4 [row] 0 2"});
        QCOMPARE(clip.clipLength, 11);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kSpeedEnds);
        QVERIFY(scene.IsIdle());
    }

    void aSpeedDragCannotPassTheClipsLongestLength()
    {
        ClipRow scene({TL_EDIT_CLIP_SPEED});
        CTimelineKey& clip = scene.Add(10, 10, 2); // at most 15 frames a pass
        scene.HostAppliesEdits();
        scene.Press(155);
        scene.TakeCalls();
        scene.MoveTo(500);
        QCOMPARE(scene.TakeCalls(), kBegins + QStringList{"edit 4 [row] 0 10"});
        QCOMPARE(clip.clipLength, 15);
        scene.MoveTo(600);
        QCOMPARE(scene.TakeCalls(), QStringList());
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kSpeedEnds);
    }

    void aSpeedDragCannotPassTheClipsShortestLength()
    {
        ClipRow scene({TL_EDIT_CLIP_SPEED});
        CTimelineKey& clip = scene.Add(10, 10, 2); // at least 5 frames a pass
        scene.HostAppliesEdits();
        scene.Press(155);
        scene.TakeCalls();
        scene.MoveTo(5);
        QCOMPARE(scene.TakeCalls(), kBegins + QStringList{"edit 4 [row] 0 -10"});
        QCOMPARE(clip.clipLength, 5);
        scene.MoveTo(0);
        QCOMPARE(scene.TakeCalls(), QStringList());
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kSpeedEnds);
    }

    void aFirstSpeedChangeNearTheEdgeOnlyBegins()
    {
        ClipRow scene({TL_EDIT_CLIP_SPEED}, 1.0);
        FrameAxis& axis = ResetAxis(1000, 0, 0, 0);
        axis.info.pixelsPerFrame = 1;
        scene.Add(100, 10); // ends at pixel 111
        scene.Press(111);
        scene.TakeCalls();
        scene.MoveTo(113);
        QCOMPARE(scene.TakeCalls(), kBegins);
        scene.MoveTo(112);
        QCOMPARE(scene.TakeCalls(), QStringList{"edit 4 [row] 0 1"});
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kSpeedEnds);
    }

    // --- trim -----------------------------------------------------------------------------------

    void aTrimDragToTheLeftLengthensTheLeadIn()
    {
        ClipRow scene({TL_EDIT_CLIP_TRIM});
        CTimelineKey& clip = scene.Add(40, 10);
        clip.transitionFrames = 4; // the lead-in begins at pixel 180
        scene.row->Keys().SetSelectionByIndex(0, 0, true, ~0u);
        scene.HostAppliesEdits();
        scene.Press(180);
        QCOMPARE(scene.TakeCalls(), kPressed);
        QCOMPARE(scene.row->GetEdgeDrag().Edge().kind, int(TL_EDIT_CLIP_TRIM));
        scene.MoveTo(176); // less than a frame
        QCOMPARE(scene.TakeCalls(), QStringList());
        scene.MoveTo(165);
        QCOMPARE(scene.TakeCalls(), kBegins + QStringList{"edit 5 [row] 0 3"});
        QCOMPARE(clip.transitionFrames, 7);
        scene.MoveTo(170);
        QCOMPARE(scene.TakeCalls(), QStringList{"edit 5 [row] 0 -1"});
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kTrimEnds);
        QVERIFY(scene.IsIdle());
    }

    void aTrimDragCannotMakeTheLeadInNegative()
    {
        ClipRow scene({TL_EDIT_CLIP_TRIM});
        CTimelineKey& clip = scene.Add(40, 10);
        clip.transitionFrames = 4;
        scene.row->Keys().SetSelectionByIndex(0, 0, true, ~0u);
        scene.HostAppliesEdits();
        scene.Press(180);
        scene.TakeCalls();
        scene.MoveTo(300);
        QCOMPARE(scene.TakeCalls(), kBegins + QStringList{"edit 5 [row] 0 -4"});
        QCOMPARE(clip.transitionFrames, 0);
        scene.MoveTo(400);
        QCOMPARE(scene.TakeCalls(), QStringList());
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kTrimEnds);
    }

    void aFirstTrimChangeNearTheEdgeOnlyBegins()
    {
        ClipRow scene({TL_EDIT_CLIP_TRIM});
        FrameAxis& axis = ResetAxis(1000, 0, 0, 0);
        axis.info.pixelsPerFrame = 1;
        scene.Add(100, 10).transitionFrames = 20; // the lead-in begins at pixel 80
        scene.row->Keys().SetSelectionByIndex(0, 0, true, ~0u);
        scene.Press(80);
        scene.TakeCalls();
        scene.MoveTo(78);
        QCOMPARE(scene.TakeCalls(), kBegins);
        scene.MoveTo(77);
        QCOMPARE(scene.TakeCalls(), QStringList{"edit 5 [row] 0 3"});
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kTrimEnds);
    }

    // --- what the owner is told -----------------------------------------------------------------

    void theOwnerIsToldTheClipAndTheAmount_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("press");
        QTest::addColumn<int>("x");
        QTest::addColumn<QStringList>("messages");
        QTest::newRow("loop") << int(TL_EDIT_CLIP_LOOP) << 255 << 270
                              << QStringList({"1203 (0, 0, 1, 1)", "1204 (0, 0, 1, 1)",
                                              "1205 (0, 0, 1, 0)"});
        QTest::newRow("speed") << int(TL_EDIT_CLIP_SPEED) << 255 << 270
                               << QStringList({"1206 (0, 0, 1, 3)", "1207 (0, 0, 1, 3)",
                                               "1208 (0, 0, 1, 0)"});
        QTest::newRow("trim") << int(TL_EDIT_CLIP_TRIM) << 180 << 165
                              << QStringList({"1209 (0, 0, 1, 3)", "1210 (0, 0, 1, 3)",
                                              "1211 (0, 0, 1, 0)"});
    }
    void theOwnerIsToldTheClipAndTheAmount()
    {
        QFETCH(int, mode);
        QFETCH(int, press);
        QFETCH(int, x);
        ClipRow scene({static_cast<TLEditType>(mode)});
        scene.Add(10, 10);
        scene.Add(40, 10).transitionFrames = 4;
        scene.row->Keys().SetSelectionByIndex(1, 1, true, ~0u);
        MessageSpy spy(scene.row);
        scene.Press(press);
        QCOMPARE(spy.TakeMessages(),
                 QStringList({"1108 (0, 0, 0, 0)", "1103 (0, 0, 0, 0)", "1102 (0, 0, 0, 0)"}));
        scene.MoveTo(x);
        scene.Release();
        QTEST(spy.TakeMessages(), "messages");
    }

    void theClipIsSelectedBetweenTheTwoReports()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.Add(10, 10);
        scene.Add(40, 10);
        scene.row->Keys().SetSelectionByIndex(1, 1, true, ~0u);
        std::vector<std::vector<int>> selections;
        scene.fixture.host.reaction = [&](const QString&) {
            selections.push_back(scene.row->Keys().SelectedIndexes());
        };
        scene.Press(105);
        QCOMPARE(scene.TakeCalls(), kPressed);
        QCOMPARE(selections, (std::vector<std::vector<int>>{{1}, {}, {0}}));
        scene.fixture.host.reaction = nullptr;
        scene.Release();
    }

    void theEdgesOfAWaveRowAreDragged()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.row->MakeWave();
        scene.row->LoadStyle(0);
        scene.Add(10, 10);
        scene.Press(105);
        scene.MoveTo(120);
        scene.Release();
        QCOMPARE(scene.TakeCalls(),
                 kPressed + kBegins + QStringList{"edit 3 [row] 0 1"} + kLoopEnds);
    }

    void theMenuOpensAfterTheDragHasEnded()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP, TL_EDIT_MOVE_KEYS});
        scene.Add(10, 10);
        scene.Press(105);
        scene.MoveTo(120);
        scene.TakeCalls();
        scene.Press(300, Qt::RightButton);
        const QStringList calls = scene.TakeCalls();
        // The pointer moves on to where the other button goes down.
        QCOMPARE(calls,
                 (QStringList{"edit 3 [row] 0 4"} + kLoopEnds +
                  QStringList{"same body row", "frame 60 false", "frame 60 true", "menu row"}));
        QVERIFY(scene.IsIdle());
        scene.MoveTo(350);
        scene.Release(Qt::RightButton);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList());
    }

    // --- loop or speed --------------------------------------------------------------------------

    void theHostsChoiceDecidesBetweenLoopAndSpeed_data()
    {
        QTest::addColumn<bool>("speed");
        QTest::addColumn<QStringList>("drag");
        QTest::newRow("loop") << false << kBegins + QStringList{"edit 3 [row] 0 1"} + kLoopEnds;
        QTest::newRow("speed") << true << kBegins + QStringList{"edit 4 [row] 0 3"} + kSpeedEnds;
    }
    void theHostsChoiceDecidesBetweenLoopAndSpeed()
    {
        QFETCH(bool, speed);
        ClipRow scene({TL_EDIT_CLIP_LOOP, TL_EDIT_CLIP_SPEED});
        scene.Add(10, 10);
        scene.fixture.Window().SetLoopSpeedState(speed);
        scene.Press(105);
        QCOMPARE(scene.TakeCalls(), kPressed);
        scene.MoveTo(120);
        scene.Release();
        QTEST(scene.TakeCalls(), "drag");
    }

    void aChoiceMadeDuringADragCountsForTheNextOne()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP, TL_EDIT_CLIP_SPEED});
        scene.Add(10, 10);
        scene.Press(105);
        scene.fixture.Window().SetLoopSpeedState(true);
        scene.TakeCalls();
        scene.MoveTo(120);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kBegins + QStringList{"edit 3 [row] 0 1"} + kLoopEnds);
        scene.Press(105);
        QCOMPARE(scene.row->GetEdgeDrag().Edge().kind, int(TL_EDIT_CLIP_SPEED));
        scene.Release();
    }

    // --- cursors --------------------------------------------------------------------------------

    void hoveringShowsTheCursorOfTheEdge()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP, TL_EDIT_CLIP_SPEED, TL_EDIT_CLIP_TRIM});
        scene.Add(40, 10).transitionFrames = 4;
        scene.row->Keys().SetSelectionByIndex(0, 0, true, ~0u);
        scene.MoveTo(255);
        QVERIFY(scene.ShowsCursor(scene.row->LoopCursor()));
        scene.MoveTo(220);
        QVERIFY(!scene.HasOwnCursor());
        scene.MoveTo(180); // the trim edge has the cursor of speed
        QVERIFY(scene.ShowsCursor(scene.row->SpeedCursor()));
        scene.fixture.Window().SetLoopSpeedState(true);
        scene.MoveTo(254);
        QVERIFY(scene.ShowsCursor(scene.row->SpeedCursor()));
        QCOMPARE(scene.TakeCalls(), QStringList());
    }

    void hoveringWithoutEditModesShowsNoCursor()
    {
        ClipRow scene({});
        scene.Add(40, 10);
        scene.MoveTo(255);
        QVERIFY(!scene.HasOwnCursor());
    }

    void theCursorGoesWithTheEditModes()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.Add(40, 10);
        scene.MoveTo(255);
        QVERIFY(scene.ShowsCursor(scene.row->LoopCursor()));
        scene.row->SetEditModes({});
        scene.MoveTo(254);
        QVERIFY(!scene.HasOwnCursor());
    }

    void aPointerAlongAnEdgeSetsItsCursorOnce()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.Add(40, 10);
        EventCount cursors(scene.row, QEvent::CursorChange);
        for (const int x : {253, 254, 255, 256})
            scene.MoveTo(x);
        QCOMPARE(cursors.count, 1);
        scene.MoveTo(300);
        scene.MoveTo(310);
        QCOMPARE(cursors.count, 2);
    }

    void thePressShowsTheCursorAndTheDragTakesItAway_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("x");
        QTest::addColumn<bool>("loop");
        QTest::newRow("loop") << int(TL_EDIT_CLIP_LOOP) << 255 << true;
        QTest::newRow("speed") << int(TL_EDIT_CLIP_SPEED) << 255 << false;
        QTest::newRow("trim") << int(TL_EDIT_CLIP_TRIM) << 180 << false;
    }
    void thePressShowsTheCursorAndTheDragTakesItAway()
    {
        QFETCH(int, mode);
        QFETCH(int, x);
        QFETCH(bool, loop);
        ClipRow scene({static_cast<TLEditType>(mode)});
        scene.Add(40, 10).transitionFrames = 4;
        scene.row->Keys().SetSelectionByIndex(0, 0, true, ~0u);
        scene.MoveTo(x);
        scene.row->unsetCursor();
        scene.Press(x);
        QVERIFY(scene.ShowsCursor(loop ? scene.row->LoopCursor() : scene.row->SpeedCursor()));
        scene.MoveTo(x + 1);
        QVERIFY(!scene.HasOwnCursor());
        scene.Release();
        QVERIFY(!scene.HasOwnCursor());
    }

    // --- focus ----------------------------------------------------------------------------------

    void theReleaseGivesUpTheFocus()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.Add(10, 10);
        scene.Press(105);
        scene.row->setFocus();
        QVERIFY(scene.row->hasFocus());
        scene.Release();
        QVERIFY(!scene.row->hasFocus());
    }

    // --- lost gestures --------------------------------------------------------------------------

    void aMoveThatFindsTheButtonUpEndsTheDrag()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.Add(10, 10);
        scene.Press(105);
        scene.MoveTo(120);
        scene.TakeCalls();
        scene.pointer.LoseButtons();
        scene.MoveTo(300);
        QCOMPARE(scene.TakeCalls(), kLoopEnds);
        QVERIFY(scene.IsIdle());
        DragsFromANewPress(scene);
    }

    void aNewPressEndsTheDragThatLostItsButton()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.Add(10, 10);
        scene.Press(105);
        scene.MoveTo(120);
        scene.TakeCalls();
        // The second press arrives without a move or release in between.
        QMouseEvent press(QEvent::MouseButtonPress, scene.At(105), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(scene.row, &press);
        QCOMPARE(scene.TakeCalls(), kLoopEnds + kPressed);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList());
    }

    void aDoubleClickEndsTheDragThatLostItsButton()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP, TL_EDIT_MOVE_KEYS});
        scene.Add(10, 10);
        scene.Press(105);
        scene.MoveTo(120);
        scene.TakeCalls();
        QMouseEvent press(QEvent::MouseButtonDblClick, scene.At(300), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(scene.row, &press);
        const QStringList calls = scene.TakeCalls();
        QCOMPARE(calls.mid(0, 2), kLoopEnds);
        QCOMPARE(calls.last(), QString("double click row -1"));
        // The release is the double click's, and goes to where the pointer is.
        scene.MoveTo(400);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList({"frame 80 false", "frame 80 true"}));
    }

    void theReleaseThatFollowsALostDragIsNotAnotherGestures()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP, TL_EDIT_MOVE_KEYS});
        scene.Add(10, 10);
        scene.Press(105);
        scene.MoveTo(120);
        scene.outside->setFocus();
        scene.fixture.Settle();
        scene.TakeCalls();
        scene.MoveTo(300);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList());
    }

    void theDragEndsWhenTheFocusLeavesTheTimeline()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.Add(10, 10);
        scene.Press(105);
        scene.MoveTo(120);
        scene.TakeCalls();
        scene.outside->setFocus();
        scene.fixture.Settle();
        QCOMPARE(scene.TakeCalls(), kLoopEnds);
        scene.MoveTo(300);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList());
        DragsFromANewPress(scene);
    }

    void theDragEndsWhenTheWindowIsHidden()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.Add(10, 10);
        scene.Press(105);
        scene.MoveTo(120);
        scene.TakeCalls();
        scene.fixture.dock->hide();
        scene.fixture.Settle();
        QCOMPARE(scene.TakeCalls(), kLoopEnds);
        QVERIFY(scene.IsIdle());
    }

    void aRowTakenOutOfTheTimelineEndsItsDragWithoutAWord()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.Add(10, 10);
        scene.Press(105);
        scene.MoveTo(120);
        scene.TakeCalls();
        scene.fixture.manager->HideChildTrack(scene.row, true);
        scene.fixture.Settle();
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList());
        QVERIFY(scene.IsIdle());
    }

    void theDragEndsWhenACallbackOpensAModalDialog_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QStringList>("afterwards");
        QTest::newRow("at the press") << "changed" << QStringList();
        QTest::newRow("at the beginning")
            << "edit 0 [row] 0 0" << QStringList{"edit 3 [row] 0 1"} + kLoopEnds;
        QTest::newRow("at a step") << "edit 3 [row] 0 1" << kLoopEnds;
    }
    void theDragEndsWhenACallbackOpensAModalDialog()
    {
        QFETCH(QString, line);
        QFETCH(QStringList, afterwards);
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.Add(10, 10);
        QDialog dialog(&scene.fixture.mainWindow);
        scene.When(line, [&] { dialog.open(); });
        scene.Press(105);
        scene.MoveTo(120);
        const QStringList calls = scene.TakeCalls();
        QCOMPARE(calls.mid(calls.indexOf(line) + 1), afterwards);
        QVERIFY(scene.IsIdle());
        dialog.close();
        scene.pointer.LoseButtons();
        scene.fixture.Settle();
        DragsFromANewPress(scene);
    }

    void aHostThatTakesTheEditModesAwayEndsTheDragAtTheRelease()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.Add(10, 10);
        scene.Press(105);
        scene.MoveTo(120);
        scene.TakeCalls();
        scene.row->SetEditModes({});
        scene.MoveTo(300);
        QCOMPARE(scene.TakeCalls(), QStringList());
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kLoopEnds);
    }

    // --- a host that acts from its callbacks ----------------------------------------------------

    void aStepStartsFromTheClipThatTheHostHasPutInPlace()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.Add(10, 10);
        scene.fixture.host.reaction = [&](const QString& line) {
            if (!line.startsWith("edit 3"))
                return;
            const int loops = scene.Key(0).loopCount + line.split(' ').last().toInt();
            scene.row->Keys().RemoveAll();
            scene.Add(10, 10, loops);
        };
        scene.Press(105);
        scene.TakeCalls();
        for (const int x : {120, 170, 220, 120})
            scene.MoveTo(x);
        QCOMPARE(scene.TakeCalls(),
                 kBegins + QStringList({"edit 3 [row] 0 1", "edit 3 [row] 0 1", "edit 3 [row] 0 1",
                                        "edit 3 [row] 0 -2"}));
        QCOMPARE(scene.Key(0).loopCount, 2);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kLoopEnds);
    }

    void theDragFollowsItsClipToAnotherIndex()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.Add(10, 10);
        scene.When("edit 0 [row] 0 0", [&] { scene.Add(2, 3); });
        scene.Press(105);
        scene.TakeCalls();
        scene.MoveTo(120);
        scene.MoveTo(170);
        scene.Release();
        QCOMPARE(scene.TakeCalls(),
                 kBegins + QStringList({"edit 3 [row] 1 1", "edit 3 [row] 1 2", "edit 7 [row] 1 0",
                                        "edit 1 [row] 0 0"}));
    }

    void aClipReplacedInTheRebuiltRowIsFoundByItsFrame()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.Add(10, 10);
        scene.When("edit 0 [row] 0 0", [&] {
            scene.row->Keys().RemoveAll();
            scene.Add(2, 3);
            scene.Add(10, 10);
        });
        scene.Press(105);
        scene.TakeCalls();
        scene.MoveTo(120);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kBegins + QStringList({"edit 3 [row] 1 1", "edit 7 [row] 1 0",
                                                           "edit 1 [row] 0 0"}));
    }

    void aClipThatTheHostDeletesIsDraggedNoFurtherAndTheDragIsClosed()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.Add(10, 10);
        scene.Add(40, 10); // comes to stand where the dragged one stood
        scene.When("edit 3 [row] 0 1", [&] { scene.row->Keys().RemoveAt(0); });
        scene.Press(105);
        scene.TakeCalls();
        scene.MoveTo(120);
        scene.MoveTo(300);
        QCOMPARE(scene.TakeCalls(), kBegins + QStringList{"edit 3 [row] 0 1"});
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kLoopEnds);
    }

    void nothingFollowsFromARowThatACallbackDeletes_data()
    {
        QTest::addColumn<QString>("line");
        for (const char* line : {"same body row", "cleared", "changed", "edit 0 [row] 0 0",
                                 "edit 3 [row] 0 1", "edit 7 [row] 0 0", "edit 1 [row] 0 0"})
            QTest::newRow(line) << QString(line);
    }
    void nothingFollowsFromARowThatACallbackDeletes()
    {
        QFETCH(QString, line);
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.Add(10, 10);
        const QStringList all = kPressed + kBegins + QStringList{"edit 3 [row] 0 1"} + kLoopEnds;
        scene.When(line, [&] { scene.fixture.manager->DeleteTrack(scene.row); });
        const QPoint away = scene.row->mapTo(&scene.fixture.mainWindow, scene.At(120));
        scene.Press(105);
        scene.pointer.MoveTo(&scene.fixture.mainWindow, away);
        scene.Release();
        scene.fixture.Settle();
        // What the mouse does over the other rows then is not the deleted one's.
        QCOMPARE(scene.TakeCalls().filter("row"), all.mid(0, all.indexOf(line) + 1).filter("row"));
        QVERIFY(!scene.row);
    }

    void nothingFollowsFromAWindowThatACallbackReleases()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP});
        scene.Add(10, 10);
        scene.When("edit 3 [row] 0 1", [&] { scene.fixture.manager->ReleaseTimelineWnd(); });
        scene.Press(105);
        scene.TakeCalls();
        scene.MoveTo(120);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kBegins + QStringList{"edit 3 [row] 0 1"});
    }

    // --- presses that run inside a report -------------------------------------------------------

    void aPressInsideTheReportOfAPressTakesItsPlace_data()
    {
        QTest::addColumn<int>("callback");
        for (int i = 0; i < kPressed.size(); ++i)
            QTest::newRow(qPrintable(kPressed[i])) << i;
    }
    void aPressInsideTheReportOfAPressTakesItsPlace()
    {
        QFETCH(const int, callback);
        ClipRow scene({TL_EDIT_CLIP_LOOP, TL_EDIT_MOVE_KEYS});
        scene.Add(10, 10);
        scene.Add(40, 10);
        scene.When(kPressed[callback], [&] {
            scene.Release();
            scene.Press(255);
        });
        scene.Press(105);
        QCOMPARE(scene.TakeCalls(), kPressed.mid(0, callback + 1) + kPressed);
        QCOMPARE(scene.row->Keys().SelectedIndexes(), std::vector<int>{1});
        QCOMPARE(scene.row->GetEdgeDrag().Edge().clip, 1);
        scene.MoveTo(270);
        QCOMPARE(scene.TakeCalls(), kBegins + QStringList{"edit 3 [row] 1 1"});
    }

    void aReleaseAndAPressInsideTheFirstReportOfADragLeaveItsClipAlone()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP, TL_EDIT_MOVE_KEYS});
        scene.Add(10, 10);
        scene.Add(40, 10);
        scene.Press(105);
        scene.TakeCalls();
        scene.When(kBegins[0], [&] {
            scene.Release();
            scene.Press(255);
        });
        scene.MoveTo(320);
        QCOMPARE(scene.TakeCalls(), kBegins + kLoopEnds + kPressed);
        scene.MoveTo(270);
        QCOMPARE(scene.TakeCalls(), kBegins + QStringList{"edit 3 [row] 1 1"});
    }

    void aReleaseInsideTheFirstReportOfADragLeavesItWithoutAStep()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP, TL_EDIT_MOVE_KEYS});
        scene.Add(10, 10);
        scene.Press(105);
        scene.TakeCalls();
        scene.When(kBegins[0], [&] { scene.Release(); });
        scene.MoveTo(140);
        QCOMPARE(scene.TakeCalls(), kBegins + kLoopEnds);
        QVERIFY(scene.IsIdle());
    }

    void aPressInsideTheReportOfTheEndStaysOn_data()
    {
        QTest::addColumn<int>("x");
        QTest::newRow("on an edge") << 255;
        QTest::newRow("on nothing") << 400;
    }
    void aPressInsideTheReportOfTheEndStaysOn()
    {
        QFETCH(const int, x);
        ClipRow scene({TL_EDIT_CLIP_LOOP, TL_EDIT_MOVE_KEYS});
        scene.Add(10, 10);
        scene.Add(40, 10);
        scene.Press(105);
        scene.MoveTo(140);
        scene.TakeCalls();
        scene.When(kLoopEnds.last(), [&] { scene.Press(x); });
        scene.Release();
        const bool isEdge = x == 255;
        const QStringList band = {"same body row", "cleared", "changed", "frame 80 false",
                                  "frame 80 true"};
        QCOMPARE(scene.TakeCalls(), kLoopEnds + (isEdge ? kPressed : band));
        scene.MoveTo(x + 15);
        QCOMPARE(scene.TakeCalls(),
                 isEdge ? kBegins + QStringList{"edit 3 [row] 1 1"} : QStringList{"changed"});
        scene.Release();
        QCOMPARE(scene.TakeCalls(), isEdge ? QStringList({"edit 7 [row] 1 0", "edit 1 [row] 0 0"})
                                           : QStringList({"frame 83 false", "frame 83 true"}));
    }

    void aPressThatEndsADragStopsWhenALaterOneRanInItsEnd()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP, TL_EDIT_MOVE_KEYS});
        scene.Add(10, 10);
        scene.Add(40, 10);
        scene.Press(105);
        scene.MoveTo(140);
        scene.TakeCalls();
        scene.pointer.LoseButtons();
        scene.When(kLoopEnds.last(), [&] {
            scene.Release();
            scene.Press(255);
        });
        QMouseEvent press(QEvent::MouseButtonPress, scene.At(400), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(scene.row, &press);
        QCOMPARE(scene.TakeCalls(), kLoopEnds + kPressed);
        scene.MoveTo(270);
        QCOMPARE(scene.TakeCalls(), kBegins + QStringList{"edit 3 [row] 1 1"});
    }

    void theSecondNoticeOfAFrameFollowsTheFirstInWhichAnEdgeWasPressed()
    {
        ClipRow scene({TL_EDIT_CLIP_LOOP, TL_EDIT_MOVE_KEYS});
        scene.Add(10, 10);
        MessageSpy spy(scene.row);
        bool isFirst = true;
        spy.reaction = [&](int code) {
            if (code == 1104 && std::exchange(isFirst, false))
                scene.Press(105);
        };
        scene.Press(400);
        QCOMPARE(spy.TakeMessages(),
                 QStringList({"1108 (0, 0, 0, 0)", "1103 (0, 0, 0, 0)", "1102 (0, 0, 0, 0)",
                              "1104 (0, 0, 0, 0)", "1102 (0, 0, 0, 0)", "1104 (0, 0, 0, 0)",
                              "1105 (0, 0, 0, 0)", "1108 (0, 0, 0, 0)", "1103 (0, 0, 0, 0)",
                              "1102 (0, 0, 0, 0)", "1105 (0, 0, 0, 0)"}));
        QCOMPARE(scene.row->GetEdgeDrag().Edge().clip, 0);
    }

private:
    /// A press that follows a lost drag begins a whole new one.
    static void DragsFromANewPress(ClipRow& scene)
    {
        scene.TakeCalls();
        scene.Press(105);
        scene.MoveTo(120);
        scene.Release();
        QCOMPARE(scene.TakeCalls(),
                 kPressed + kBegins + QStringList{"edit 3 [row] 0 1"} + kLoopEnds);
    }
};

QTEST_MAIN(tst_ClipEdgeGesture)
#include "tst_ClipEdgeGesture.moc"
