#include "KindGestures.h"
#include "MessageSpy.h"
#include "support/PaintCounter.h"
#include "tracks/CTimelineTrackSwitch.h"

#include <QDialog>

using namespace KestovaTest;

namespace {

using States = QVector<int>;
using Images = QPair<int, int>;

class SwitchRow : public RowUnderTheHand<CTimelineTrackSwitch>
{
public:
    explicit SwitchRow(const States& states) : RowUnderTheHand(TL_TRACK_SWITCH)
    {
        SetStates(states);
        row->RefreshButtonState();
    }
    /// A row with so many buttons that they do not fit.
    static States Many() { return States(30, 0); }

    void SetStates(const States& states)
    {
        CTimelineTrackSwitch::Buttons buttons;
        for (const int state : states)
            buttons.push_back({QStringLiteral("Button"), state});
        fixture.manager->SetTrackSwitchBtnList(row, buttons);
    }
    /// What the host reads back.
    States HostsStates()
    {
        CTimelineTrackSwitch::Buttons buttons;
        fixture.manager->GetTrackSwitchBtnList(row, buttons);
        States states;
        for (const auto& button : buttons)
            states << button.state;
        return states;
    }
    /// A column inside of button @p index; one where nothing is for -1.
    int On(int index) const
    {
        for (int x = kArrow; x < row->width(); ++x) {
            if (row->HitTestKey(At(x)) == index && row->HitTestKey(At(x + 5)) == index)
                return x + 5;
        }
        qFatal("there is no such place");
        return 0;
    }
    int OnRightArrow() const { return row->width() - 2; }
    Images Arrows() const { return {row->ArrowImages().left, row->ArrowImages().right}; }

    static constexpr int kOnLeftArrow = 2;
    static constexpr int kArrow = 20; ///< pixels at least as wide as an arrow
};

const QString kPress = "1108 (0, 0, 0, 0)";
const QString kRepaint = "1101 (0, 0, 0, 0)";
const QStringList kPressed = {"same body row"};

} // namespace

class tst_SwitchGesture : public QObject
{
    Q_OBJECT
private slots:
    // --- clicks ---------------------------------------------------------------------------------

    void aClickTogglesTheButtonAndTellsTheHost_data()
    {
        QTest::addColumn<int>("before");
        QTest::addColumn<int>("after");
        QTest::newRow("off") << 0 << 3;
        QTest::newRow("off with hover") << 1 << 3;
        QTest::newRow("on") << 2 << 1;
        QTest::newRow("on with hover") << 3 << 1;
        QTest::newRow("unknown") << 9 << 3;
    }
    void aClickTogglesTheButtonAndTellsTheHost()
    {
        QFETCH(int, before);
        QFETCH(int, after);
        SwitchRow scene({0, before, 2});
        States atTheCallback;
        scene.When("switch row 1", [&] { atTheCallback = scene.HostsStates(); });
        scene.Press(scene.On(1));
        QCOMPARE(scene.TakeCalls(), kPressed);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList{"switch row 1"});
        QCOMPARE(atTheCallback, States({0, after, 2}));
        QCOMPARE(scene.HostsStates(), States({0, after, 2}));
    }

    void twoClicksToggleBackAndForth()
    {
        SwitchRow scene({0});
        scene.pointer.Click(scene.row, scene.At(scene.On(0)));
        QCOMPARE(scene.HostsStates(), States{3});
        scene.pointer.Click(scene.row, scene.At(scene.On(0)));
        QCOMPARE(scene.HostsStates(), States{1});
        QCOMPARE(scene.TakeCalls(),
                 QStringList({"same body row", "switch row 0", "same body row", "switch row 0"}));
    }

    void thePressActivatesTheRow()
    {
        SwitchRow scene({0});
        scene.fixture.manager->SetActiveRootTrack(nullptr);
        scene.fixture.ForgetCalls();
        scene.Press(scene.On(0));
        QCOMPARE(scene.TakeCalls(), QStringList({"cleared", "active body row"}));
        scene.Release();
    }

    void aPressOnOneButtonAndAReleaseOnAnotherTogglesNothing()
    {
        SwitchRow scene({0, 2, 0});
        scene.Press(scene.On(0));
        scene.MoveTo(scene.On(1));
        QCOMPARE(scene.HostsStates(), States({0, 3, 0}));
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kPressed);
        QCOMPARE(scene.HostsStates(), States({0, 2, 0})); // without the hover
    }

    void aPressBesideTheButtonsTogglesNothing()
    {
        SwitchRow scene({0, 2});
        scene.Press(scene.On(-1));
        scene.MoveTo(scene.On(1));
        scene.Release();
        scene.Press(scene.On(1));
        scene.MoveTo(scene.On(-1));
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kPressed + kPressed);
        QCOMPARE(scene.HostsStates(), States({0, 2}));
    }

    void aReleaseBackOnThePressedButtonToggles()
    {
        SwitchRow scene({0, 0});
        scene.Press(scene.On(0));
        scene.MoveTo(scene.On(1));
        scene.MoveTo(scene.On(0));
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kPressed + QStringList{"switch row 0"});
        QCOMPARE(scene.HostsStates(), States({3, 0}));
    }

    void onlyTheLeftButtonClicks_data()
    {
        QTest::addColumn<int>("button");
        QTest::newRow("right") << int(Qt::RightButton);
        QTest::newRow("middle") << int(Qt::MiddleButton);
    }
    void onlyTheLeftButtonClicks()
    {
        QFETCH(int, button);
        SwitchRow scene(SwitchRow::Many());
        const auto other = static_cast<Qt::MouseButton>(button);
        scene.pointer.Click(scene.row, scene.At(scene.On(0)), other);
        QCOMPARE(scene.HostsStates().first(), 1);
        scene.pointer.Click(scene.row, scene.At(scene.OnRightArrow()), other);
        QCOMPARE(scene.row->ScrollOffset(), 0);
        QVERIFY(!scene.TakeCalls().contains("same body row"));
    }

    void theReleaseOfAnotherButtonKeepsThePress()
    {
        SwitchRow scene({0});
        scene.Press(scene.On(0));
        scene.pointer.Release(Qt::RightButton);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), kPressed + QStringList{"switch row 0"});
    }

    void theSecondPressOfADoubleClickIsLost()
    {
        SwitchRow scene({0});
        scene.pointer.DoubleClick(scene.row, scene.At(scene.On(0)));
        QCOMPARE(scene.TakeCalls(), kPressed + QStringList{"switch row 0"});
        QCOMPARE(scene.HostsStates(), States{2}); // on; the second release took the hover away
    }

    void theReleaseGivesUpTheFocus()
    {
        SwitchRow scene({0});
        scene.Press(scene.On(0));
        scene.row->setFocus();
        QVERIFY(scene.row->hasFocus());
        scene.Release();
        QVERIFY(!scene.row->hasFocus());
    }

    void theOwnerIsToldOfEachStepOfAClick()
    {
        SwitchRow scene({0, 0});
        const int x = scene.On(1);
        scene.MoveTo(x);
        MessageSpy spy(scene.row);
        scene.Press(x);
        QCOMPARE(spy.TakeMessages(), QStringList{kPress});
        scene.MoveTo(x + 1); // the arrows, then the hover
        QCOMPARE(spy.TakeMessages(), QStringList({kRepaint, kRepaint}));
        scene.Release();
        QCOMPARE(spy.TakeMessages(), QStringList({"1213 (0, 0, 1, 0)", kRepaint, kRepaint}));
        scene.pointer.PressAgain(); // a double click
        QCOMPARE(spy.TakeMessages(), QStringList());
    }

    void theOwnerIsToldOfEachStepOnAnArrow()
    {
        SwitchRow scene(SwitchRow::Many());
        scene.MoveTo(scene.OnRightArrow());
        MessageSpy spy(scene.row);
        scene.Press(scene.OnRightArrow());
        QCOMPARE(spy.TakeMessages(), QStringList({kPress, "1214 (0, 0, 0, 0)", kRepaint}));
        scene.Release();
        QCOMPARE(spy.TakeMessages(), QStringList({kRepaint, kRepaint}));
        scene.pointer.MoveTo(scene.outside, QPoint(5, 5)); // leaves the row
        QCOMPARE(spy.TakeMessages(), QStringList({kRepaint, kRepaint}));
    }

    // --- hover ----------------------------------------------------------------------------------

    void theButtonUnderThePointerHasTheHover()
    {
        SwitchRow scene({0, 2, 0});
        scene.MoveTo(scene.On(0));
        QCOMPARE(scene.HostsStates(), States({1, 2, 0}));
        scene.MoveTo(scene.On(1));
        QCOMPARE(scene.HostsStates(), States({0, 3, 0}));
        scene.MoveTo(scene.On(-1));
        QCOMPARE(scene.HostsStates(), States({0, 2, 0}));
        QCOMPARE(scene.TakeCalls(), QStringList());
    }

    void leavingTheRowTakesTheHoverAway()
    {
        SwitchRow scene({0, 2});
        scene.MoveTo(scene.On(1));
        QCOMPARE(scene.HostsStates(), States({0, 3}));
        scene.pointer.MoveTo(scene.outside, QPoint(5, 5));
        QCOMPARE(scene.HostsStates(), States({0, 2}));
        QCOMPARE(scene.TakeCalls(), QStringList());
    }

    void hoverAndLeaveRepaint()
    {
        SwitchRow scene({0, 2});
        scene.fixture.Settle();
        PaintCounter paints(*scene.fixture.Container());
        scene.MoveTo(scene.On(1));
        scene.fixture.Settle();
        QVERIFY(paints.paints > 0);
        const int before = paints.paints;
        scene.pointer.MoveTo(scene.outside, QPoint(5, 5));
        scene.fixture.Settle();
        QVERIFY(paints.paints > before);
    }

    // --- the arrows -----------------------------------------------------------------------------

    void theArrowsShowHoverAndPress()
    {
        SwitchRow scene(SwitchRow::Many());
        scene.MoveTo(scene.On(0));
        QCOMPARE(scene.Arrows(), Images(0, 4));
        scene.MoveTo(scene.OnRightArrow());
        QCOMPARE(scene.Arrows(), Images(0, 5));
        scene.Press(scene.OnRightArrow());
        QCOMPARE(scene.Arrows(), Images(0, 6));
        scene.Release();
        QCOMPARE(scene.Arrows(), Images(0, 5));
        scene.MoveTo(SwitchRow::kOnLeftArrow);
        QCOMPARE(scene.Arrows(), Images(1, 4));
        scene.Press(SwitchRow::kOnLeftArrow);
        QCOMPARE(scene.Arrows(), Images(2, 4));
        scene.MoveTo(scene.OnRightArrow()); // still pressed, over the other arrow
        QCOMPARE(scene.Arrows(), Images(0, 6));
        scene.MoveTo(scene.On(0));
        QCOMPARE(scene.Arrows(), Images(0, 4));
        scene.Release();
        scene.MoveTo(scene.OnRightArrow());
        scene.pointer.MoveTo(scene.outside, QPoint(5, 5));
        QCOMPARE(scene.Arrows(), Images(0, 4));
    }

    void withNoButtonsOrButtonsThatFitBothArrowsAreDisabledAndNothingScrolls_data()
    {
        QTest::addColumn<States>("states");
        QTest::newRow("none") << States();
        QTest::newRow("two that fit") << States({0, 0});
    }
    void withNoButtonsOrButtonsThatFitBothArrowsAreDisabledAndNothingScrolls()
    {
        QFETCH(States, states);
        SwitchRow scene(states);
        for (const int x : {scene.OnRightArrow(), SwitchRow::kOnLeftArrow}) {
            scene.MoveTo(x);
            QCOMPARE(scene.Arrows(), Images(3, 7));
            scene.Press(x);
            QCOMPARE(scene.Arrows(), Images(3, 7));
            scene.Release();
            QCOMPARE(scene.Arrows(), Images(3, 7));
            QCOMPARE(scene.row->ScrollOffset(), 0);
        }
        QCOMPARE(scene.TakeCalls(), kPressed + kPressed);
    }

    void aClickOnAnArrowShiftsTheButtonsByTwentyPixels()
    {
        SwitchRow scene(SwitchRow::Many());
        const int before = scene.On(0);
        scene.Press(scene.OnRightArrow());
        QCOMPARE(scene.row->ScrollOffset(), -20);
        QCOMPARE(scene.row->HitTestKey(scene.At(before + 1)), 0);
        scene.Release();
        QCOMPARE(scene.row->ScrollOffset(), -20);
        scene.pointer.Click(scene.row, scene.At(scene.OnRightArrow()));
        QCOMPARE(scene.row->ScrollOffset(), -40);
        scene.pointer.Click(scene.row, scene.At(SwitchRow::kOnLeftArrow));
        QCOMPARE(scene.row->ScrollOffset(), -20);
        QCOMPARE(scene.TakeCalls(), kPressed + kPressed + kPressed);
        QCOMPARE(scene.HostsStates(), SwitchRow::Many());
    }

    void scrollingNeverLeavesItsLimits()
    {
        SwitchRow scene(States(9, 0));
        const int width = scene.row->width();
        scene.pointer.Click(scene.row, scene.At(SwitchRow::kOnLeftArrow));
        QCOMPARE(scene.row->ScrollOffset(), 0); // not right of home
        for (int i = 0; i < 60; ++i)
            scene.pointer.Click(scene.row, scene.At(scene.OnRightArrow()));
        const int furthest = scene.row->ScrollOffset();
        QVERIFY(furthest < 0);
        scene.pointer.Click(scene.row, scene.At(scene.OnRightArrow()));
        QCOMPARE(scene.row->ScrollOffset(), furthest);
        // The last button ends where the right arrow begins.
        int lastColumn = -1;
        for (int x = 0; x < width; ++x) {
            if (scene.row->HitTestKey(scene.At(x)) == 8)
                lastColumn = x;
        }
        int arrow = 0;
        for (scene.MoveTo(width - 1); scene.row->ArrowImages().right == 5; ++arrow)
            scene.MoveTo(width - 2 - arrow);
        QCOMPARE(lastColumn, width - arrow - 1);
    }

    void arrowsAreClickedEvenWhereTheyAreNotDrawn()
    {
        SwitchRow scene(SwitchRow::Many());
        bool shown = true;
        QVERIFY(scene.fixture.manager->GetTrackSwitchScrollState(scene.row, shown));
        QVERIFY(!shown);
        scene.pointer.Click(scene.row, scene.At(scene.OnRightArrow()));
        QCOMPARE(scene.row->ScrollOffset(), -20);
    }

    void aButtonThatReachesUnderAnArrowIsNotPressedThere()
    {
        SwitchRow scene(SwitchRow::Many());
        scene.pointer.Click(scene.row, scene.At(scene.OnRightArrow()));
        QCOMPARE(scene.row->HitTestKey(scene.At(SwitchRow::kOnLeftArrow)), 0);
        scene.TakeCalls();
        scene.pointer.Click(scene.row, scene.At(SwitchRow::kOnLeftArrow));
        QCOMPARE(scene.TakeCalls(), kPressed);
        QCOMPARE(scene.row->ScrollOffset(), 0);
    }

    // --- lost presses ---------------------------------------------------------------------------

    void aMoveThatFindsTheButtonUpEndsThePressWhereThePointerWasLast_data()
    {
        QTest::addColumn<bool>("leavesButton");
        QTest::addColumn<QStringList>("calls");
        QTest::newRow("on the button") << false << QStringList{"switch row 0"};
        QTest::newRow("outside") << true << QStringList();
    }
    void aMoveThatFindsTheButtonUpEndsThePressWhereThePointerWasLast()
    {
        QFETCH(bool, leavesButton);
        SwitchRow scene({0, 0});
        scene.Press(scene.On(0));
        if (leavesButton)
            scene.pointer.MoveTo(scene.row, QPoint(-500, -500));
        scene.TakeCalls();
        scene.pointer.LoseButtons();
        scene.MoveTo(scene.On(0) + 1);
        QTEST(scene.TakeCalls(), "calls");
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList());
        ClicksCleanly(scene);
    }

    void aNewPressEndsThePressThatLostItsButton()
    {
        SwitchRow scene({0, 0});
        scene.Press(scene.On(0));
        QMouseEvent press(QEvent::MouseButtonPress, scene.At(scene.On(1)), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(scene.row, &press);
        QCOMPARE(scene.TakeCalls(), kPressed + QStringList{"switch row 0"} + kPressed);
        scene.MoveTo(scene.On(1));
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList{"switch row 1"});
    }

    void thePressEndsAsAReleaseWhenTheFocusLeavesTheTimeline()
    {
        SwitchRow scene({0, 0});
        scene.Press(scene.On(0));
        scene.TakeCalls();
        scene.outside->setFocus();
        scene.fixture.Settle();
        QCOMPARE(scene.TakeCalls(), QStringList{"switch row 0"});
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList());
        ClicksCleanly(scene);
    }

    void thePressEndsWhenTheWindowIsHidden()
    {
        SwitchRow scene({0, 0});
        scene.Press(scene.On(0));
        scene.MoveTo(scene.On(1));
        scene.TakeCalls();
        scene.fixture.dock->hide();
        scene.fixture.Settle();
        QCOMPARE(scene.TakeCalls(), QStringList());
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList());
    }

    void thePressEndsWhenItsCallbackOpensAModalDialog()
    {
        SwitchRow scene({0, 0});
        QDialog dialog(&scene.fixture.mainWindow);
        scene.When("same body row", [&] { dialog.open(); });
        scene.Press(scene.On(0));
        QCOMPARE(scene.TakeCalls(), kPressed + QStringList{"switch row 0"});
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList());
        dialog.close();
        scene.fixture.Settle();
        ClicksCleanly(scene);
    }

    void aRowTakenOutOfTheTimelineTogglesNothing()
    {
        SwitchRow scene({0, 0});
        scene.Press(scene.On(0));
        scene.TakeCalls();
        scene.fixture.manager->HideChildTrack(scene.row, true);
        scene.fixture.Settle();
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList());
        QCOMPARE(scene.HostsStates(), States({0, 0}));
    }

    // --- a host that acts from its callbacks ----------------------------------------------------

    void aHostMayReplaceTheButtonsWhenItIsToldOfAPress()
    {
        SwitchRow scene({0, 0, 0});
        scene.When("same body row", [&] { scene.SetStates({2}); });
        scene.Press(scene.On(2));
        scene.Release(); // where there is no button any more
        QCOMPARE(scene.TakeCalls(), kPressed);
        QCOMPARE(scene.HostsStates(), States{2});
    }

    void aHostMayReplaceTheButtonsWhenItIsToldOfAToggle()
    {
        SwitchRow scene({0, 0, 0});
        scene.When("switch row 2", [&] { scene.SetStates({2}); });
        scene.pointer.Click(scene.row, scene.At(scene.On(2)));
        QCOMPARE(scene.TakeCalls(), kPressed + QStringList{"switch row 2"});
        QCOMPARE(scene.HostsStates(), States{2});
    }

    void nothingFollowsFromARowThatACallbackDeletes_data()
    {
        QTest::addColumn<QString>("line");
        QTest::newRow("press") << "same body row";
        QTest::newRow("toggle") << "switch row 0";
    }
    void nothingFollowsFromARowThatACallbackDeletes()
    {
        QFETCH(QString, line);
        SwitchRow scene({0, 0});
        const QStringList all = kPressed + QStringList{"switch row 0"};
        scene.When(line, [&] { scene.fixture.manager->DeleteTrack(scene.row); });
        scene.pointer.Click(scene.row, scene.At(scene.On(0)));
        scene.fixture.Settle();
        QCOMPARE(scene.TakeCalls().filter("row"), all.mid(0, all.indexOf(line) + 1));
        QVERIFY(!scene.row);
    }

    void aPressInsideTheReportOfAPressTakesItsPlace_data()
    {
        QTest::addColumn<bool>("onArrow");
        QTest::newRow("of a button") << false;
        QTest::newRow("of an arrow") << true;
    }
    void aPressInsideTheReportOfAPressTakesItsPlace()
    {
        QFETCH(const bool, onArrow);
        SwitchRow scene(SwitchRow::Many());
        const int offset = scene.row->ScrollOffset();
        scene.When(kPressed[0], [&] {
            scene.Release();
            scene.Press(scene.On(1));
        });
        scene.Press(onArrow ? scene.OnRightArrow() : scene.On(0));
        QCOMPARE(scene.TakeCalls(), kPressed + kPressed);
        QCOMPARE(scene.row->ScrollOffset(), offset);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList{"switch row 1"});
    }

    void aPressInsideTheReportOfAToggleStaysOn()
    {
        SwitchRow scene({0, 0, 0});
        scene.Press(scene.On(0));
        scene.TakeCalls();
        scene.When("switch row 0", [&] { scene.Press(scene.On(1)); });
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList{"switch row 0"} + kPressed);
        scene.Release();
        QCOMPARE(scene.TakeCalls(), QStringList{"switch row 1"});
    }

private:
    static void ClicksCleanly(SwitchRow& scene)
    {
        scene.SetStates({0, 0});
        scene.TakeCalls();
        scene.pointer.LoseButtons();
        scene.pointer.Click(scene.row, scene.At(scene.On(1)));
        QCOMPARE(scene.TakeCalls(), kPressed + QStringList{"switch row 1"});
        QCOMPARE(scene.HostsStates(), States({0, 3}));
    }
};

QTEST_MAIN(tst_SwitchGesture)
#include "tst_SwitchGesture.moc"
