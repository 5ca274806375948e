#include "KindGestures.h"
#include "MessageSpy.h"
#include "model/TimelineKeyValues.h"
#include "tracks/CTimelineTrackTransKey.h"
#include "tracks/TransitionHandles.h"

#include <QDialog>

#include <limits>

using namespace KestovaTest;

namespace {

class TransitionRow : public RowUnderTheHand<CTimelineTrackTransKey>
{
public:
    explicit TransitionRow(std::initializer_list<TLEditType> modes = {TL_EDIT_MOVE_KEYS,
                                                                      TL_EDIT_TIME_RANGE})
        : RowUnderTheHand(TL_TRACK_TRANSITION_KEY)
    {
        VZ::CArrayList<TLEditType> list;
        for (const TLEditType mode : modes)
            list.Add(mode);
        row->SetEditModes(list);
    }

    CTimelineKey& Add(int frame, int kindMask, int transitionFrames)
    {
        VZ::CPointer<CTimelineKey> key(new CTimelineKey);
        key->frame = frame;
        key->kindMask = kindMask;
        key->transitionFrames = transitionFrames;
        row->Keys().Add(key, false);
        return *key;
    }
    /// The host's side of a drag: it changes its key at once.
    void HostAppliesEdits()
    {
        fixture.host.reaction = [this](const QString& line) {
            const QStringList words = line.split(QLatin1Char(' '));
            if (line.startsWith(QLatin1String("edit 5 ")))
                Key(words.value(3).toInt()).transitionFrames += words.value(4).toInt();
        };
    }
};

const QStringList kPressed = {"same body row", "changed"};
const QStringList kBegins = {"edit 0 [row] 0 0"};
const QStringList kEnds = {"edit 9 [row] 0 0", "edit 1 [row] 0 0"};

} // namespace

class tst_TransitionGesture : public QObject
{
    Q_OBJECT
private slots:
    // --- the press ------------------------------------------------------------------------------

    void aPressOnAHandleActivatesTheRowAndSelectsTheKey()
    {
        TransitionRow scene;
        scene.Add(20, TL_KEY_TRANSITION_IN, 5);
        scene.fixture.manager->SetActiveRootTrack(nullptr);
        scene.fixture.ForgetCalls();
        scene.Press(75);
        QCOMPARE(scene.TakeCalls(), QStringList({"cleared", "active body row", "changed"}));
        QCOMPARE(scene.row->Keys().SelectedIndexes(), std::vector<int>{0});
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList());
    }

    void theKeyJoinsWhatIsSelectedAlready()
    {
        TransitionRow scene;
        scene.Add(20, TL_KEY_TRANSITION_IN, 5);
        scene.Add(60, TL_KEY_TRANSITION_IN, 5);
        scene.row->Keys().SetSelectionByIndex(1, 1, true, ~0u);
        scene.Press(75);
        QCOMPARE(scene.TakeCalls(), kPressed);
        QCOMPARE(scene.row->Keys().SelectedIndexes(), (std::vector<int>{0, 1}));
        scene.Release();
    }

    void aHandleIsDraggedInARowWithoutEditModes()
    {
        TransitionRow scene({});
        scene.Add(20, TL_KEY_TRANSITION_IN, 5);
        scene.Press(75);
        scene.MoveTo(65);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kPressed + kBegins + QStringList{"edit 5 [row] 0 2"} + kEnds);
    }

    void handlesOfSelectedKeysWinOverTheLaterOnesTheyLieOn()
    {
        TransitionRow scene;
        scene.Add(10, TL_KEY_TRANSITION_OUT, 5);
        scene.Add(20, TL_KEY_TRANSITION_IN, 5);
        scene.row->Keys().SetSelectionByIndex(0, 0, true, ~0u);
        scene.Press(75);
        scene.MoveTo(85);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kPressed + kBegins + QStringList{"edit 5 [row] 0 2"} + kEnds);
        scene.row->Keys().ClearAllSelection();
        scene.Press(75);
        QCOMPARE(scene.row->Keys().SelectedIndexes(), std::vector<int>{1});
        scene.Release();
    }

    void anotherButtonDragsNoHandle()
    {
        TransitionRow scene;
        scene.Add(20, TL_KEY_TRANSITION_IN, 5);
        scene.Press(75, Qt::MiddleButton);
        scene.MoveTo(50);
        scene.Release(Qt::MiddleButton);
        QCOMPARE(scene.TakeCalls(), QStringList());
        QVERIFY(scene.row->Keys().SelectedIndexes().empty());
    }

    void anotherButtonOnARowWithoutEditModesLeavesTheDragAsItIs_data()
    {
        QTest::addColumn<QString>("how");
        for (const char* how : {"release", "focus", "hide", "press"})
            QTest::newRow(how) << QString(how);
    }
    void anotherButtonOnARowWithoutEditModesLeavesTheDragAsItIs()
    {
        QFETCH(QString, how);
        TransitionRow scene({});
        DragOneStep(scene);
        scene.Press(65, Qt::MiddleButton);
        scene.Release(Qt::MiddleButton);
        QCOMPARE(scene.TakeCalls(), QStringList({"frame 13 false", "frame 13 true"}));

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
        QCOMPARE(scene.TakeCalls().mid(0, 2), kEnds);
    }

    void aHandlePressedWhileTheRowIsToldOfAnotherPressIsDraggedAndWatched()
    {
        TransitionRow scene;
        scene.Add(20, TL_KEY_TRANSITION_IN, 5);
        scene.When("same body row", [&] {
            QMouseEvent press(QEvent::MouseButtonPress, scene.At(75), Qt::LeftButton,
                              Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(scene.row, &press);
        });
        scene.Press(300);
        QCOMPARE(scene.TakeCalls(), QStringList{"same body row"} + kPressed);
        QCOMPARE(scene.row->RangeStart(), -1); // the outer press began no range
        scene.MoveTo(65);
        QCOMPARE(scene.TakeCalls(), kBegins + QStringList{"edit 5 [row] 0 2"});
        scene.outside->setFocus();
        scene.fixture.Settle();
        QCOMPARE(scene.TakeCalls(), kEnds);
    }

    void theOwnerIsToldTheKeyAndTheAmount()
    {
        TransitionRow scene;
        scene.Add(5, 0, 0);
        scene.Add(20, TL_KEY_TRANSITION_IN, 5);
        MessageSpy spy(scene.row);
        scene.Press(75);
        QCOMPARE(spy.TakeMessages(), QStringList({"1108 (0, 0, 0, 0)", "1102 (0, 0, 0, 0)"}));
        scene.MoveTo(65);
        scene.Release();
        QCOMPARE(spy.TakeMessages(),
                 QStringList({"1209 (0, 0, 1, 2)", "1210 (0, 0, 1, 2)", "1211 (0, 0, 1, 0)"}));
    }

    void theKeyIsSelectedAfterTheRowIsActivated()
    {
        TransitionRow scene;
        scene.Add(20, TL_KEY_TRANSITION_IN, 5);
        std::vector<std::vector<int>> selections;
        scene.fixture.host.reaction = [&](const QString&) {
            selections.push_back(scene.row->Keys().SelectedIndexes());
        };
        scene.Press(75);
        QCOMPARE(scene.TakeCalls(), kPressed);
        QCOMPARE(selections, (std::vector<std::vector<int>>{{}, {0}}));
        scene.fixture.host.reaction = nullptr;
        scene.Release();
    }

    void theMenuOpensAfterTheDragHasEnded()
    {
        TransitionRow scene;
        DragOneStep(scene);
        scene.Press(300, Qt::RightButton);
        const QStringList calls = scene.TakeCalls();
        // The pointer moves on to where the other button goes down.
        QCOMPARE(calls,
                 (QStringList{"edit 5 [row] 0 -5"} + kEnds +
                  QStringList{"same body row", "frame 60 false", "frame 60 true", "menu row"}));
        scene.MoveTo(350);
        scene.Release(Qt::RightButton);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList());
    }

    void aDoubleClickEndsTheDragThatLostItsButton()
    {
        TransitionRow scene;
        DragOneStep(scene);
        QMouseEvent press(QEvent::MouseButtonDblClick, scene.At(300), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(scene.row, &press);
        const QStringList calls = scene.TakeCalls();
        QCOMPARE(calls.mid(0, 2), kEnds);
        QCOMPARE(calls.last(), QString("double click row -1"));
        // The release is the double click's, and goes to where the pointer is.
        scene.MoveTo(400);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList({"frame 80 false", "frame 80 true"}));
    }

    void aLockedKeyIsDraggedWithoutBeingSelected()
    {
        TransitionRow scene;
        scene.Add(20, TL_KEY_TRANSITION_IN, 5).lockState = TL_KEY_LOCKED;
        scene.Press(75);
        scene.MoveTo(65);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kPressed + kBegins + QStringList{"edit 5 [row] 0 2"} + kEnds);
        QVERIFY(scene.row->Keys().SelectedIndexes().empty());
    }

    void aPressBesideTheHandlesIsTheCommonOne()
    {
        TransitionRow scene;
        scene.Add(20, TL_KEY_TRANSITION_IN, 5);
        scene.Press(300);
        scene.MoveTo(320);
        scene.Release();
        QCOMPARE(scene.TakeCalls(),
                 QStringList({"same body row", "cleared", "changed", "frame 60 false",
                              "frame 60 true", "changed", "frame 64 false", "frame 64 true"}));
    }

    void theCommonMoveRunsAfterEachStep()
    {
        TransitionRow scene;
        scene.Add(20, TL_KEY_TRANSITION_IN, 5);
        scene.row->SetRange(30, 40);
        scene.Press(75);
        scene.MoveTo(152); // over the range's first marker
        QCOMPARE(scene.row->cursor().shape(), Qt::SizeHorCursor);
        scene.MoveTo(100);
        QVERIFY(!scene.HasOwnCursor());
        scene.Release();
    }

    // --- the drag -------------------------------------------------------------------------------

    void draggingLeftLengthensATransitionIntoTheKey()
    {
        TransitionRow scene;
        CTimelineKey& key = scene.Add(20, TL_KEY_TRANSITION_IN, 5); // its handle at pixel 75
        scene.HostAppliesEdits();
        scene.Press(75);
        QCOMPARE(scene.TakeCalls(), kPressed);
        scene.MoveTo(71); // less than a frame
        QCOMPARE(scene.TakeCalls(), QStringList());
        scene.MoveTo(65);
        QCOMPARE(scene.TakeCalls(), kBegins + QStringList{"edit 5 [row] 0 2"});
        QCOMPARE(key.transitionFrames, 7);
        scene.MoveTo(80);
        QCOMPARE(scene.TakeCalls(), QStringList{"edit 5 [row] 0 -3"});
        QCOMPARE(key.transitionFrames, 4);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kEnds);
    }

    void draggingRightLengthensATransitionOutOfTheKey_data()
    {
        QTest::addColumn<int>("mask");
        QTest::newRow("out") << int(TL_KEY_TRANSITION_OUT);
        QTest::newRow("out wins over in") << int(TL_KEY_TRANSITION_OUT | TL_KEY_TRANSITION_IN);
    }
    void draggingRightLengthensATransitionOutOfTheKey()
    {
        QFETCH(int, mask);
        TransitionRow scene;
        CTimelineKey& key = scene.Add(20, mask, 5); // its handle at pixel 125
        scene.HostAppliesEdits();
        scene.Press(125);
        scene.TakeCalls();
        scene.MoveTo(129);
        QCOMPARE(scene.TakeCalls(), QStringList());
        scene.MoveTo(140);
        QCOMPARE(scene.TakeCalls(), kBegins + QStringList{"edit 5 [row] 0 3"});
        QCOMPARE(key.transitionFrames, 8);
        scene.MoveTo(130);
        QCOMPARE(scene.TakeCalls(), QStringList{"edit 5 [row] 0 -2"});
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kEnds);
    }

    void aTransitionIsShortenedToNothingButNeverBelow_data()
    {
        QTest::addColumn<int>("mask");
        QTest::addColumn<int>("press");
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("further");
        QTest::newRow("into the key") << int(TL_KEY_TRANSITION_IN) << 75 << 300 << 400;
        QTest::newRow("out of the key") << int(TL_KEY_TRANSITION_OUT) << 125 << 20 << 5;
    }
    void aTransitionIsShortenedToNothingButNeverBelow()
    {
        QFETCH(int, mask);
        QFETCH(int, press);
        QFETCH(int, x);
        QFETCH(int, further);
        TransitionRow scene;
        CTimelineKey& key = scene.Add(20, mask, 5);
        scene.HostAppliesEdits();
        scene.Press(press);
        scene.TakeCalls();
        scene.MoveTo(x);
        QCOMPARE(scene.TakeCalls(), kBegins + QStringList{"edit 5 [row] 0 -5"});
        QCOMPARE(key.transitionFrames, 0);
        scene.MoveTo(further);
        QCOMPARE(scene.TakeCalls(), QStringList());
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kEnds);
    }

    void aKeyWithoutATransitionIsSelectedAndNotDragged()
    {
        TransitionRow scene;
        scene.Add(30, 1, 5);
        scene.Press(2); // where its handle stands
        scene.MoveTo(100);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kPressed);
        QCOMPARE(scene.row->Keys().SelectedIndexes(), std::vector<int>{0});
    }

    void aReleaseWithoutAnyChangeSendsNoEndMessage()
    {
        TransitionRow scene;
        scene.Add(20, TL_KEY_TRANSITION_IN, 5);
        scene.Press(75);
        scene.MoveTo(78);
        scene.TakeCalls();
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList());
    }

    void aPixelOfManyFramesChangesThemAll()
    {
        FrameAxis axis;
        axis.frameCount = 1000;
        axis.info.pixelsPerFrame = 0;
        axis.info.framesPerPixel = 49;
        CTimelineKey key;
        key.frame = 490;
        key.kindMask = TL_KEY_TRANSITION_OUT;
        key.transitionFrames = 98; // its end at pixel 12
        QCOMPARE(TransitionDragAmount(axis, key, 13).value(), 49);
        QCOMPARE(TransitionDragAmount(axis, key, 11).value(), -49);
        QCOMPARE(TransitionDragAmount(axis, key, 0).value(), -98);
        QVERIFY(!TransitionDragAmount(axis, key, 12));
        constexpr int kMost = std::numeric_limits<int>::max();
        QCOMPARE(TransitionDragAmount(axis, key, kMost).value(), kMost);
    }

    // --- lost gestures --------------------------------------------------------------------------

    void aMoveThatFindsTheButtonUpEndsTheDrag()
    {
        TransitionRow scene;
        DragOneStep(scene);
        scene.pointer.LoseButtons();
        scene.MoveTo(200);
        QCOMPARE(scene.TakeCalls(), kEnds);
        DragsFromANewPress(scene);
    }

    void aNewPressEndsTheDragThatLostItsButton()
    {
        TransitionRow scene;
        DragOneStep(scene);
        QMouseEvent press(QEvent::MouseButtonPress, scene.At(75), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(scene.row, &press);
        QCOMPARE(scene.TakeCalls(), kEnds + kPressed);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList());
    }

    void theReleaseThatFollowsALostDragIsNotAnotherGestures()
    {
        TransitionRow scene;
        DragOneStep(scene);
        scene.outside->setFocus();
        scene.fixture.Settle();
        QCOMPARE(scene.TakeCalls(), kEnds);
        scene.MoveTo(300);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList());
    }

    void theDragEndsWhenTheFocusLeavesTheTimeline()
    {
        TransitionRow scene;
        DragOneStep(scene);
        scene.outside->setFocus();
        scene.fixture.Settle();
        QCOMPARE(scene.TakeCalls(), kEnds);
        scene.Release();
        DragsFromANewPress(scene);
    }

    void theDragEndsWhenTheWindowIsHidden()
    {
        TransitionRow scene;
        DragOneStep(scene);
        scene.fixture.dock->hide();
        scene.fixture.Settle();
        QCOMPARE(scene.TakeCalls(), kEnds);
    }

    void aRowTakenOutOfTheTimelineEndsItsDragWithoutAWord()
    {
        TransitionRow scene;
        DragOneStep(scene);
        scene.fixture.manager->HideChildTrack(scene.row, true);
        scene.fixture.Settle();
        QCOMPARE(scene.TakeCalls(), QStringList());
        scene.Release();
        scene.fixture.manager->ShowChildTrack(scene.root, scene.row, 0, true);
        scene.fixture.manager->SetActiveChildTrack(scene.row);
        scene.fixture.Settle();
        ResetAxis(1000, 5.0, 0, 0);
        DragsFromANewPress(scene);
    }

    void theDragEndsWhenACallbackOpensAModalDialog_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QStringList>("afterwards");
        QTest::newRow("at the press") << "changed" << QStringList();
        QTest::newRow("at the beginning")
            << "edit 0 [row] 0 0" << QStringList{"edit 5 [row] 0 2"} + kEnds;
        QTest::newRow("at a step") << "edit 5 [row] 0 2" << kEnds;
    }
    void theDragEndsWhenACallbackOpensAModalDialog()
    {
        QFETCH(QString, line);
        QFETCH(QStringList, afterwards);
        TransitionRow scene;
        scene.Add(20, TL_KEY_TRANSITION_IN, 5);
        QDialog dialog(&scene.fixture.mainWindow);
        scene.When(line, [&] { dialog.open(); });
        scene.Press(75);
        scene.MoveTo(65);
        const QStringList calls = scene.TakeCalls();
        QCOMPARE(calls.mid(calls.indexOf(line) + 1), afterwards);
        dialog.close();
        scene.pointer.LoseButtons();
        scene.fixture.Settle();
        DragsFromANewPress(scene);
    }

    // --- a host that acts from its callbacks ----------------------------------------------------

    void aStepStartsFromTheKeyThatTheHostHasPutInPlace()
    {
        TransitionRow scene;
        scene.Add(20, TL_KEY_TRANSITION_IN, 5);
        scene.fixture.host.reaction = [&](const QString& line) {
            if (!line.startsWith("edit 5"))
                return;
            const int frames = scene.Key(0).transitionFrames + line.split(' ').last().toInt();
            scene.row->Keys().RemoveAll();
            scene.Add(20, TL_KEY_TRANSITION_IN, frames);
        };
        scene.Press(75);
        scene.TakeCalls();
        for (const int x : {65, 55, 75})
            scene.MoveTo(x);
        QCOMPARE(scene.TakeCalls(), kBegins + QStringList({"edit 5 [row] 0 2", "edit 5 [row] 0 2",
                                                           "edit 5 [row] 0 -4"}));
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kEnds);
    }

    void theDragFollowsItsKeyToAnotherIndex()
    {
        TransitionRow scene;
        scene.Add(20, TL_KEY_TRANSITION_IN, 5);
        scene.When("edit 0 [row] 0 0", [&] { scene.Add(2, TL_KEY_TRANSITION_OUT, 3); });
        scene.Press(75);
        scene.TakeCalls();
        scene.MoveTo(65);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kBegins + QStringList({"edit 5 [row] 1 2", "edit 9 [row] 1 0",
                                                           "edit 1 [row] 0 0"}));
    }

    void aKeyThatTheHostDeletesIsDraggedNoFurtherAndTheDragIsClosed()
    {
        TransitionRow scene;
        scene.Add(20, TL_KEY_TRANSITION_IN, 5);
        scene.Add(60, TL_KEY_TRANSITION_IN, 5);
        scene.When("edit 5 [row] 0 2", [&] { scene.row->Keys().RemoveAt(0); });
        scene.Press(75);
        scene.TakeCalls();
        scene.MoveTo(65);
        scene.MoveTo(30);
        QCOMPARE(scene.TakeCalls(), kBegins + QStringList{"edit 5 [row] 0 2"});
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kEnds);
    }

    void nothingFollowsFromARowThatACallbackDeletes_data()
    {
        QTest::addColumn<QString>("line");
        for (const char* line : {"same body row", "changed", "edit 0 [row] 0 0", "edit 5 [row] 0 2",
                                 "edit 9 [row] 0 0", "edit 1 [row] 0 0"})
            QTest::newRow(line) << QString(line);
    }
    void nothingFollowsFromARowThatACallbackDeletes()
    {
        QFETCH(QString, line);
        TransitionRow scene;
        scene.Add(20, TL_KEY_TRANSITION_IN, 5);
        const QStringList all = kPressed + kBegins + QStringList{"edit 5 [row] 0 2"} + kEnds;
        scene.When(line, [&] { scene.fixture.manager->DeleteTrack(scene.row); });
        const QPoint away = scene.row->mapTo(&scene.fixture.mainWindow, scene.At(65));
        scene.Press(75);
        scene.pointer.MoveTo(&scene.fixture.mainWindow, away);
        scene.Release();
        scene.fixture.Settle();
        QCOMPARE(scene.TakeCalls().filter("row"), all.mid(0, all.indexOf(line) + 1).filter("row"));
        QVERIFY(!scene.row);
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
        TransitionRow scene;
        scene.Add(20, TL_KEY_TRANSITION_IN, 5);
        scene.Add(60, TL_KEY_TRANSITION_IN, 5);
        scene.When(kPressed[callback], [&] {
            scene.Release();
            scene.Press(275);
        });
        scene.Press(75);
        QCOMPARE(scene.TakeCalls(), kPressed.mid(0, callback + 1) + kPressed);
        // Only the press that went on selected its key, unless the first one had done so by then.
        const std::vector<int> both{0, 1};
        QCOMPARE(scene.row->Keys().SelectedIndexes(), callback == 0 ? std::vector<int>{1} : both);
        scene.MoveTo(260);
        QCOMPARE(scene.TakeCalls(), kBegins + QStringList{"edit 5 [row] 1 3"});
    }

    void aReleaseAndAPressInsideTheFirstReportOfADragLeaveItsKeyAlone()
    {
        TransitionRow scene;
        scene.Add(20, TL_KEY_TRANSITION_IN, 5);
        scene.Add(60, TL_KEY_TRANSITION_IN, 5);
        scene.Press(75);
        scene.TakeCalls();
        scene.When(kBegins[0], [&] {
            scene.Release();
            scene.Press(275);
        });
        scene.MoveTo(50);
        QCOMPARE(scene.TakeCalls(), kBegins + kEnds + kPressed);
        scene.MoveTo(260);
        QCOMPARE(scene.TakeCalls(), kBegins + QStringList{"edit 5 [row] 1 3"});
    }

    void aPressInsideTheReportOfTheEndStaysOn_data()
    {
        QTest::addColumn<bool>("isReleased");
        QTest::newRow("after the release") << true;
        QTest::newRow("after a move without the button") << false;
    }
    void aPressInsideTheReportOfTheEndStaysOn()
    {
        QFETCH(const bool, isReleased);
        TransitionRow scene;
        scene.Add(20, TL_KEY_TRANSITION_IN, 5);
        scene.Press(75);
        scene.MoveTo(50);
        scene.TakeCalls();
        scene.When(kEnds.last(), [&] { scene.Press(400); });
        if (isReleased) {
            scene.Release();
        } else {
            scene.pointer.LoseButtons();
            scene.MoveTo(45);
        }
        QCOMPARE(scene.TakeCalls(), kEnds + QStringList({"same body row", "cleared", "changed",
                                                         "frame 80 false", "frame 80 true"}));
        scene.MoveTo(415);
        QCOMPARE(scene.TakeCalls(), QStringList{"changed"});
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList({"frame 83 false", "frame 83 true"}));
    }

private:
    static void DragOneStep(TransitionRow& scene)
    {
        scene.Add(20, TL_KEY_TRANSITION_IN, 5);
        scene.Press(75);
        scene.MoveTo(65);
        scene.TakeCalls();
    }
    /// A press that follows a lost drag begins a whole new one.
    static void DragsFromANewPress(TransitionRow& scene)
    {
        scene.TakeCalls();
        scene.Press(75);
        scene.MoveTo(65);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kPressed + kBegins + QStringList{"edit 5 [row] 0 2"} + kEnds);
    }
};

QTEST_MAIN(tst_TransitionGesture)
#include "tst_TransitionGesture.moc"
