#include "CaptionScene.h"
#include "support/PaintCounter.h"
#include "tracks/CTimelineTrackHScroll.h"
#include "tracks/CTimelineTrackTick.h"

#include <QDialog>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QTimer>
#include <QToolTip>

using namespace KestovaTest;

using States = QList<int>;

/// The mouse over the captions. States are those of the push button and the two toggle buttons.
class tst_CaptionPointer : public QObject
{
    Q_OBJECT

    std::unique_ptr<CaptionScene> m_scene;

    CaptionScene& S() const { return *m_scene; }
    CTimelineContainer& Container() const { return m_scene->Container(); }
    QPoint Button(CTimelineTrackBase* track, int id) const { return S().ButtonOf(track, id); }
    QPoint Caption(CTimelineTrackBase* track) const { return S().CaptionOf(track); }

    void Hover(QPoint point) const { S().pointer.MoveTo(&Container(), point); }
    void Press(QPoint point, Qt::MouseButton button = Qt::LeftButton) const
    {
        S().pointer.Press(&Container(), point, button);
    }
    void Release(Qt::MouseButton button = Qt::LeftButton) const { S().pointer.Release(button); }
    void Click(QPoint point) const { S().pointer.Click(&Container(), point); }
    void DoubleClick(QPoint point, Qt::MouseButton button = Qt::LeftButton) const
    {
        S().pointer.DoubleClick(&Container(), point, button);
    }
    /// A click on the push button of the row "Leg", as every press that starts clean leads to.
    void VerifyThatTheNextClickWorks() const
    {
        Hover(Caption(S().leg));
        Journal journal(S().fixture);
        Click(Button(S().leg, kAddId));
        QCOMPARE(journal.Take(), (QStringList{S().Clicked(S().leg, kAddId), "window refreshed"}));
    }

private slots:
    void init();
    void cleanup();

    void theLastPositionIsThatOfTheLastMove();
    void aButtonUnderThePointerShowsIt_data();
    void aButtonUnderThePointerShowsIt();
    void oneButtonAtATimeIsHovered();
    void leavingTheContainerEndsTheHover();
    void goingStraightOntoTheRowEndsTheHover();
    void mouseTrackingIsOnWhileThePointerIsInside();
    void aMoveOverAnotherPartOfTheTimelineRepaintsNothing();

    void clickingAPushButton();
    void clickingAToggleButtonTwice();
    void aToggleButtonClickedWithAStateOfItsOwn_data();
    void aToggleButtonClickedWithAStateOfItsOwn();
    void pressingOneButtonAndReleasingOverAnotherLeavesNonePressed_data();
    void pressingOneButtonAndReleasingOverAnotherLeavesNonePressed();
    void releasingOverTheButtonAgainAfterAnExcursionIsAClick();
    void aButtonPressDoesNotActivateTheRow();
    void rightAndMiddlePressDoNothing_data();
    void rightAndMiddlePressDoNothing();
    void withoutAnOwnerAButtonClicksSilently();

    void clickingACaptionActivatesItsRow();
    void clickingARootsCaptionActivatesIt();
    void clickingTheCaptionsOfRulerAndScrollBarDoesNothing();
    void theMouseOnRulerAndScrollBarTouchesNoCaption();

    void doubleClickingACaptionSelectsTheRowsKeys();
    void aDoubleClickWithCtrlKeepsTheOtherSelections();
    void aDoubleClickWithoutCtrlClearsTheOtherSelections();
    void doubleClickingALipsCaptionSelectsItsFirstKeyWithItsSubKeys();
    void doubleClickingALipsCaptionWithoutKeysSelectsNothing();
    void doubleClickingALipsKeyWithoutSubKeysSelectsIt();
    void doubleClickingASubKeyRowSelectsTheSubKeysOfItsSelectedClips();
    void doubleClickingAToggleButtonTogglesItTwice();
    void rightDoubleClickDoesNothing();
    void doubleClickingRulerAndScrollBarCaptionsDoesNothing();

    void buttonsOfAWaveRowWork();
    void buttonsWorkWhereTheTimelineIsScrolled();

    void theTooltipIsTheCaptionUnderThePointer();
    void aStripThatIsPaintedAloneKeepsTheTooltips();

    void aLostPointerLeavesNoButtonPressed_data();
    void aLostPointerLeavesNoButtonPressed();
    void aPressWithoutReleaseEndsAtTheNextPress();
    void aRowThatIsHiddenUnderThePressComesBackUnpressed();
    void aStyleThatIsReadAnewUnderThePressTakesTheButtonAway();
    void aRowThatIsDeletedUnderThePressIsForgotten();
    void aModalDialogFromTheClickLeavesNoButtonPressed();
};

void tst_CaptionPointer::init()
{
    m_scene = std::make_unique<CaptionScene>();
    S().fixture.ForgetCalls();
}

void tst_CaptionPointer::cleanup()
{
    QToolTip::hideText();
    m_scene.reset();
}

// ---- Hover ----

void tst_CaptionPointer::theLastPositionIsThatOfTheLastMove()
{
    QCOMPARE(Container().Pointer().LastPosition(), QPoint(-1, -1));
    Hover(QPoint(33, 44));
    QCOMPARE(Container().Pointer().LastPosition(), QPoint(33, 44));
}

void tst_CaptionPointer::aButtonUnderThePointerShowsIt_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("hovered");
    QTest::addColumn<int>("after");
    QTest::newRow("push button") << kAddId << 0 << 1 << 0;
    QTest::newRow("push button that shows pressed") << kAddId << 2 << 1 << 0;
    QTest::newRow("toggle button, off") << kLockId << 0 << 1 << 0;
    QTest::newRow("toggle button, on") << kLockId << 2 << 3 << 2;
}

void tst_CaptionPointer::aButtonUnderThePointerShowsIt()
{
    QFETCH(int, id);
    QFETCH(int, before);
    S().fixture.manager->SetTrackCaptionBtnState(S().arm, id, before);
    PaintCounter counter(Container());
    Hover(Button(S().arm, id));
    QTEST(S().StateOf(S().arm, id), "hovered");
    QVERIFY(counter.paints > 0);
    Hover(Caption(S().arm));
    QTEST(S().StateOf(S().arm, id), "after");
    QCOMPARE(S().fixture.host.TakeCalls(), QStringList()); // nobody is told
    QCOMPARE(S().fixture.Window().TakeCalls(), QStringList());
}

void tst_CaptionPointer::oneButtonAtATimeIsHovered()
{
    Hover(Button(S().arm, kAddId));
    QCOMPARE(S().StatesOf(S().arm), (States{1, 0, 0}));
    Hover(Button(S().arm, kHideId));
    QCOMPARE(S().StatesOf(S().arm), (States{0, 1, 0}));
    Hover(Button(S().leg, kLockId));
    QCOMPARE(S().StatesOf(S().arm), (States{0, 0, 0}));
    QCOMPARE(S().StatesOf(S().leg), (States{0, 0, 1}));
}

void tst_CaptionPointer::leavingTheContainerEndsTheHover()
{
    Hover(Button(S().arm, kAddId));
    S().pointer.MoveTo(&S().fixture.mainWindow, QPoint(1, 1));
    QCOMPARE(S().StatesOf(S().arm), (States{0, 0, 0}));
}

void tst_CaptionPointer::goingStraightOntoTheRowEndsTheHover()
{
    Hover(Button(S().arm, kLockId));
    QCOMPARE(S().StatesOf(S().arm), (States{0, 0, 1}));
    S().pointer.MoveTo(S().arm, QPoint(300, 5));
    QCOMPARE(S().StatesOf(S().arm), (States{0, 0, 0}));
}

void tst_CaptionPointer::mouseTrackingIsOnWhileThePointerIsInside()
{
    QVERIFY(!Container().hasMouseTracking());
    Hover(Caption(S().arm));
    QVERIFY(Container().hasMouseTracking());
    S().pointer.MoveTo(&S().fixture.mainWindow, QPoint(1, 1));
    QVERIFY(!Container().hasMouseTracking());
}

void tst_CaptionPointer::aMoveOverAnotherPartOfTheTimelineRepaintsNothing()
{
    Hover(Caption(S().arm));
    S().fixture.Settle();
    PaintCounter counter(Container());
    // As the ruler and the scroll bar pass theirs on.
    QMouseEvent move(QEvent::MouseMove, QPointF(400, 5), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(&Container(), &move);
    S().fixture.Settle();
    QCOMPARE(counter.paints, 0);
    QCOMPARE(Container().Pointer().LastPosition(), QPoint(400, 5));
}

// ---- Buttons ----

void tst_CaptionPointer::clickingAPushButton()
{
    Journal journal(S().fixture);
    Press(Button(S().arm, kAddId));
    QCOMPARE(S().StatesOf(S().arm), (States{2, 0, 0}));
    QVERIFY(Container().Pointer().IsPressed());
    QCOMPARE(journal.Take(), QStringList());
    Release();
    QCOMPARE(journal.Take(), (QStringList{S().Clicked(S().arm, kAddId), "window refreshed"}));
    QVERIFY(!Container().Pointer().IsPressed());
    // It keeps its looks until the pointer moves.
    QCOMPARE(S().StatesOf(S().arm), (States{2, 0, 0}));
    Hover(Button(S().arm, kAddId) + QPoint(1, 0));
    QCOMPARE(S().StatesOf(S().arm), (States{1, 0, 0}));
    Hover(Caption(S().arm));
    QCOMPARE(S().StatesOf(S().arm), (States{0, 0, 0}));
}

void tst_CaptionPointer::clickingAToggleButtonTwice()
{
    const QPoint point = Button(S().arm, kLockId);
    Journal journal(S().fixture);
    Press(point);
    QCOMPARE(S().StateOf(S().arm, kLockId), 1); // hovered, and off until it is released
    Release();
    QCOMPARE(S().StateOf(S().arm, kLockId), 2);
    Hover(point + QPoint(1, 0));
    QCOMPARE(S().StateOf(S().arm, kLockId), 3);
    Press(point);
    QCOMPARE(S().StateOf(S().arm, kLockId), 3);
    Release();
    QCOMPARE(S().StateOf(S().arm, kLockId), 0);
    Hover(point + QPoint(1, 0));
    QCOMPARE(S().StateOf(S().arm, kLockId), 1);
    Hover(Caption(S().arm));
    QCOMPARE(S().StateOf(S().arm, kLockId), 0);
    const QString clicked = S().Clicked(S().arm, kLockId);
    QCOMPARE(journal.Take(),
             (QStringList{clicked, "window refreshed", clicked, "window refreshed"}));
}

void tst_CaptionPointer::aToggleButtonClickedWithAStateOfItsOwn_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("clicked");
    QTest::newRow("below") << -3 << 2;
    QTest::newRow("above") << 9 << 0;
}

void tst_CaptionPointer::aToggleButtonClickedWithAStateOfItsOwn()
{
    QFETCH(int, state);
    // Such a state has no picture to hit, except where it happens to fall on another button's.
    auto& buttons = S().arm->StyleAs<TrackStyle>()->captionButtons;
    CaptionButtonStyle& lock = buttons[2];
    lock.bitmapId = state < 0 ? 1 : -2; // so that there is one
    lock.state = state;
    QVERIFY(!Container().Captions().ButtonPicture(lock).isNull());
    Click(Button(S().arm, kLockId));
    QTEST(S().StateOf(S().arm, kLockId), "clicked");
}

void tst_CaptionPointer::pressingOneButtonAndReleasingOverAnotherLeavesNonePressed_data()
{
    QTest::addColumn<int>("pressed");
    QTest::addColumn<bool>("otherRow");
    QTest::addColumn<int>("released");
    QTest::newRow("a toggle button beside it") << kAddId << false << kHideId;
    QTest::newRow("a push button beside it") << kHideId << false << kAddId;
    QTest::newRow("the same button of another row") << kAddId << true << kAddId;
    QTest::newRow("the same toggle of another row") << kLockId << true << kLockId;
    QTest::newRow("no button") << kAddId << false << 0;
}

void tst_CaptionPointer::pressingOneButtonAndReleasingOverAnotherLeavesNonePressed()
{
    QFETCH(int, pressed);
    QFETCH(bool, otherRow);
    QFETCH(int, released);
    CTimelineTrackBase* const other = otherRow ? S().leg : S().arm;
    Journal journal(S().fixture);
    Press(Button(S().arm, pressed));
    Hover(released == 0 ? Caption(other) : Button(other, released));
    Release();
    QCOMPARE(journal.Take(), QStringList{"window refreshed"}); // no click
    QCOMPARE(S().StatesOf(S().arm), (States{0, 0, 0}));
    QVERIFY(!Container().Pointer().IsPressed());
    VerifyThatTheNextClickWorks();
}

void tst_CaptionPointer::releasingOverTheButtonAgainAfterAnExcursionIsAClick()
{
    Journal journal(S().fixture);
    Press(Button(S().arm, kAddId));
    Hover(Caption(S().leg));
    QCOMPARE(S().StatesOf(S().arm), (States{0, 0, 0}));
    Hover(Button(S().arm, kAddId));
    QCOMPARE(S().StatesOf(S().arm), (States{1, 0, 0}));
    Release();
    QCOMPARE(journal.Take(), (QStringList{S().Clicked(S().arm, kAddId), "window refreshed"}));
}

void tst_CaptionPointer::aButtonPressDoesNotActivateTheRow()
{
    Click(Button(S().arm, kAddId));
    QVERIFY(!S().arm->IsActive());
}

void tst_CaptionPointer::rightAndMiddlePressDoNothing_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<bool>("onAButton");
    for (const bool on : {false, true}) {
        QTest::addRow("right, %s", on ? "on a button" : "beside") << int(Qt::RightButton) << on;
        QTest::addRow("middle, %s", on ? "on a button" : "beside") << int(Qt::MiddleButton) << on;
    }
}

void tst_CaptionPointer::rightAndMiddlePressDoNothing()
{
    QFETCH(int, button);
    QFETCH(bool, onAButton);
    const QPoint point = onAButton ? Button(S().arm, kAddId) : Caption(S().arm);
    Hover(point);
    const States before = S().StatesOf(S().arm);
    Journal journal(S().fixture);
    Press(point, static_cast<Qt::MouseButton>(button));
    QCOMPARE(journal.Take(), QStringList());
    QCOMPARE(S().StatesOf(S().arm), before);
    QVERIFY(!Container().Pointer().IsPressed());
    Release(static_cast<Qt::MouseButton>(button));
    QCOMPARE(journal.Take(), QStringList{"window refreshed"});
    QVERIFY(!S().arm->IsActive());
}

void tst_CaptionPointer::withoutAnOwnerAButtonClicksSilently()
{
    Container().SetOwnerInterface(nullptr);
    Journal journal(S().fixture);
    Click(Button(S().arm, kLockId));
    QCOMPARE(journal.Take(), QStringList{"window refreshed"});
    QCOMPARE(S().StateOf(S().arm, kLockId), 2);
}

// ---- Activation ----

void tst_CaptionPointer::clickingACaptionActivatesItsRow()
{
    Journal journal(S().fixture);
    Click(Caption(S().arm));
    // Another root: all selections are cleared. Then the activation, and the release.
    QCOMPARE(journal.Take(), (QStringList{"window refreshed", "cleared", "window refreshed",
                                          "active Body Arm", "window refreshed"}));
    QVERIFY(S().arm->IsActive());
    QVERIFY(Container().hasFocus());
    Click(Caption(S().leg));
    QCOMPARE(journal.Take(),
             (QStringList{"window refreshed", "active Body Leg", "window refreshed"}));
    Click(Caption(S().leg));
    QCOMPARE(journal.Take(), (QStringList{"same Body Leg", "window refreshed"}));
}

void tst_CaptionPointer::clickingARootsCaptionActivatesIt()
{
    CTimelineTrackBase* const lone = S().fixture.Root(TL_TRACK_KEY, "Lone");
    S().fixture.Settle();
    Journal journal(S().fixture);
    Click(Caption(lone));
    QCOMPARE(journal.Take(), (QStringList{"window refreshed", "cleared", "window refreshed",
                                          "active Lone -", "window refreshed"}));
}

void tst_CaptionPointer::clickingTheCaptionsOfRulerAndScrollBarDoesNothing()
{
    Journal journal(S().fixture);
    Click(QPoint(5, 5));
    QCOMPARE(journal.Take(), QStringList{"window refreshed"});
    Click(QPoint(5, S().lips->y() + S().lips->height() + 2));
    QCOMPARE(journal.Take(), QStringList{"window refreshed"});
}

void tst_CaptionPointer::theMouseOnRulerAndScrollBarTouchesNoCaption()
{
    for (QWidget* const fixed : {static_cast<QWidget*>(Container().TickTrack()),
                                 static_cast<QWidget*>(Container().ScrollTrack())}) {
        Journal journal(S().fixture);
        S().pointer.Press(fixed, QPoint(30, 4));
        QVERIFY(!Container().Pointer().IsPressed());
        S().pointer.MoveTo(fixed, QPoint(60, 4));
        S().pointer.Release();
        S().pointer.DoubleClick(fixed, QPoint(90, 4));
        for (const QString& line : journal.Take())
            QVERIFY2(!line.startsWith("active") && !line.startsWith("caption button"),
                     qPrintable(line));
        QVERIFY(!Container().Pointer().IsPressed());
        QCOMPARE(S().StatesOf(S().arm), (States{0, 0, 0}));
        // They do arrive, at the places that they have in the container: of the scroll bar, which
        // keeps the moves that drag nothing, those of the drag.
        const int x = fixed == Container().TickTrack() ? 90 : 60;
        QCOMPARE(Container().Pointer().LastPosition(), fixed->mapTo(&Container(), QPoint(x, 4)));
    }
}

// ---- Double click ----

void tst_CaptionPointer::doubleClickingACaptionSelectsTheRowsKeys()
{
    S().fixture.SetEditModes(S().arm, {TL_EDIT_MOVE_KEYS, TL_EDIT_COPY});
    S().arm->SetRange(3, 9);
    S().fixture.ForgetCalls();
    Journal journal(S().fixture);
    DoubleClick(Caption(S().arm));
    const QStringList firstClick{"window refreshed", "cleared", "window refreshed",
                                 "active Body Arm", "window refreshed"};
    const QStringList selection{"same Body Arm",    "window refreshed",
                                "cleared", // the other rows' keys
                                "window refreshed",
                                "changed", // the range and the old selection went
                                "window refreshed",
                                "changed", // all keys are selected
                                "window refreshed"};
    const QStringList secondPress{"same Body Arm", "window refreshed"};
    QCOMPARE(journal.Take(), firstClick + selection + secondPress);
    QCOMPARE(S().Selected(S().arm), 3);
    QCOMPARE(S().arm->RangeStart(), -1);
}

void tst_CaptionPointer::aDoubleClickWithCtrlKeepsTheOtherSelections()
{
    Click(Caption(S().arm)); // the activation of another root would clear them
    S().Select(S().leg, 1);
    S().pointer.modifiers = Qt::ControlModifier;
    Journal journal(S().fixture);
    DoubleClick(Caption(S().arm));
    QVERIFY(!journal.Take().contains("cleared"));
    QCOMPARE(S().Selected(S().arm), 3);
    QCOMPARE(S().Selected(S().leg), 1);
}

void tst_CaptionPointer::aDoubleClickWithoutCtrlClearsTheOtherSelections()
{
    Click(Caption(S().arm));
    S().Select(S().leg, 1);
    S().Select(S().clips, 2);
    S().pointer.modifiers = Qt::ShiftModifier;
    Journal journal(S().fixture);
    DoubleClick(Caption(S().arm));
    QCOMPARE(journal.Take().count("cleared"), 1);
    QCOMPARE(S().Selected(S().arm), 3);
    QCOMPARE(S().Selected(S().leg), 0);
    QCOMPARE(S().Selected(S().clips), 0);
}

void tst_CaptionPointer::doubleClickingALipsCaptionSelectsItsFirstKeyWithItsSubKeys()
{
    AddSubKeys(*S().lips, 0, {0, 2, 150});
    AddSubKeys(*S().lips, 1, {0, 1});
    const auto subKeys = S().lips->Keys().GetAt(0)->subKeys;
    subKeys->SetSelectionByIndex(2, 2, true, TL_KEY_ANY_KIND); // beyond the frames
    Click(Caption(S().lips));
    Journal journal(S().fixture);
    DoubleClick(Caption(S().lips));
    const QStringList click{"same Face Lips", "window refreshed"};
    // No change of the selection is reported for the lips.
    QCOMPARE(
        journal.Take(),
        click + (QStringList{"same Face Lips", "window refreshed", "cleared", "window refreshed"}) +
            click);
    QCOMPARE(S().Selected(S().lips), 1);
    QVERIFY(S().lips->Keys().GetAt(0)->selected);
    QCOMPARE(subKeys->SelectedIndexes(), (std::vector<int>{0, 1}));
    QCOMPARE(S().lips->Keys().GetAt(1)->subKeys->SelGetSize(), std::size_t(0));
}

void tst_CaptionPointer::doubleClickingALipsCaptionWithoutKeysSelectsNothing()
{
    S().lips->Keys().RemoveAll();
    Click(Caption(S().lips));
    Journal journal(S().fixture);
    DoubleClick(Caption(S().lips));
    const QStringList click{"same Face Lips", "window refreshed"};
    QCOMPARE(
        journal.Take(),
        click + (QStringList{"same Face Lips", "window refreshed", "cleared", "window refreshed"}) +
            click);
}

void tst_CaptionPointer::doubleClickingALipsKeyWithoutSubKeysSelectsIt()
{
    DoubleClick(Caption(S().lips));
    QCOMPARE(S().lips->Keys().SelectedIndexes(), (std::vector<int>{0}));
}

void tst_CaptionPointer::doubleClickingASubKeyRowSelectsTheSubKeysOfItsSelectedClips()
{
    S().fixture.SetEditModes(S().clips, {TL_EDIT_SUB_KEYS, TL_EDIT_COPY});
    AddSubKeys(*S().clips, 0, {0, 2});
    AddSubKeys(*S().clips, 1, {0, 1});
    Click(Caption(S().clips));
    S().Select(S().clips, 1);
    Journal journal(S().fixture);
    DoubleClick(Caption(S().clips));
    const QStringList click{"same Face Clips", "window refreshed"};
    // One change only: deselecting sub-keys reports none.
    QCOMPARE(journal.Take(), click +
                                 (QStringList{"same Face Clips", "window refreshed", "cleared",
                                              "window refreshed", "changed", "window refreshed"}) +
                                 click);
    QCOMPARE(S().clips->Keys().SelectedIndexes(), (std::vector<int>{1}));
    QCOMPARE(S().clips->Keys().GetAt(1)->subKeys->SelGetSize(), std::size_t(2));
    QCOMPARE(S().clips->Keys().GetAt(0)->subKeys->SelGetSize(), std::size_t(0));
}

void tst_CaptionPointer::doubleClickingAToggleButtonTogglesItTwice()
{
    Click(Caption(S().arm));
    S().pointer.modifiers = Qt::ControlModifier;
    Journal journal(S().fixture);
    DoubleClick(Button(S().arm, kLockId));
    const QString clicked = S().Clicked(S().arm, kLockId);
    // In between the row is activated and its keys are selected, as by any double click on it.
    QCOMPARE(journal.Take(),
             (QStringList{clicked, "window refreshed", "same Body Arm", "window refreshed",
                          "changed", "window refreshed", clicked, "window refreshed"}));
    QCOMPARE(S().StateOf(S().arm, kLockId), 0);
    QCOMPARE(S().Selected(S().arm), 3);
}

void tst_CaptionPointer::rightDoubleClickDoesNothing()
{
    Journal journal(S().fixture);
    DoubleClick(Caption(S().arm), Qt::RightButton);
    QCOMPARE(journal.Take(), (QStringList{"window refreshed", "window refreshed"}));
    QCOMPARE(S().Selected(S().arm), 0);
    QVERIFY(!S().arm->IsActive());
}

void tst_CaptionPointer::doubleClickingRulerAndScrollBarCaptionsDoesNothing()
{
    Journal journal(S().fixture);
    DoubleClick(QPoint(5, 5));
    DoubleClick(QPoint(5, S().lips->y() + S().lips->height() + 2));
    QCOMPARE(journal.Take(), (QStringList{"window refreshed", "window refreshed",
                                          "window refreshed", "window refreshed"}));
}

// ---- Rows in other places ----

void tst_CaptionPointer::buttonsOfAWaveRowWork()
{
    CTimelineTrackBase* const voice = MakeTrack(TL_TRACK_WAVE, "Voice", 2, &Container());
    Container().ShowChildTrack(S().face, voice, 0, false);
    Container().GetWndMaxHeight(true);
    Container().WndSizeChanged(800, 400);
    S().fixture.Settle();
    QVERIFY(voice->height() >= 54);
    Journal journal(S().fixture);
    Click(Button(voice, kLockId));
    QCOMPARE(journal.Take(), (QStringList{S().Clicked(voice, kLockId), "window refreshed"}));
    Click(QPoint(50, voice->y() + voice->height() - 1));
    QVERIFY(voice->IsActive());
    // The rows below it are where its height puts them.
    Click(Caption(S().clips));
    QVERIFY(S().clips->IsActive());
}

void tst_CaptionPointer::buttonsWorkWhereTheTimelineIsScrolled()
{
    Container().move(0, -30);
    S().fixture.Settle();
    Journal journal(S().fixture);
    Click(Button(S().leg, kAddId));
    QCOMPARE(journal.Take(), (QStringList{S().Clicked(S().leg, kAddId), "window refreshed"}));
    Click(Caption(S().lips));
    QVERIFY(S().lips->IsActive());
}

// ---- Tooltips ----

void tst_CaptionPointer::theTooltipIsTheCaptionUnderThePointer()
{
    const auto ask = [&](QPoint point) {
        QToolTip::hideText();
        QWidget* const under = Container().childAt(point);
        QHelpEvent help(QEvent::ToolTip, under->mapFrom(&Container(), point),
                        Container().mapToGlobal(point));
        QCoreApplication::sendEvent(under, &help);
        return Container().toolTip();
    };
    QCOMPARE(ask(Caption(S().leg)), QString("Leg"));
    QCOMPARE(QToolTip::text(), QString("Leg"));
    QCOMPARE(ask(Caption(S().clips)), QString("Clips"));
    QCOMPARE(QToolTip::text(), QString("Clips"));
    QCOMPARE(ask(Button(S().leg, kLockId)), QString()); // beside the text
    QCOMPARE(ask(QPoint(50, 5)), QString());            // the ruler's caption
    ask(Caption(S().leg));
    QCOMPARE(ask(QPoint(400, 5)), QString()); // the ruler
    S().fixture.manager->SetTrackName(S().leg, "");
    S().fixture.Settle();
    QCOMPARE(ask(Caption(S().leg)), QString()); // no caption at all
}

void tst_CaptionPointer::aStripThatIsPaintedAloneKeepsTheTooltips()
{
    S().fixture.Settle();
    const std::size_t areas = Container().Captions().TooltipAreas().size();
    QCOMPARE(areas, std::size_t(4));
    Container().repaint(QRect(500, 0, 3, Container().height()));
    QCOMPARE(Container().Captions().TooltipAreas().size(), areas);
    QCOMPARE(Container().Captions().TooltipAt(Caption(S().leg)), QString("Leg"));
}

// ---- A pointer that is lost ----

void tst_CaptionPointer::aLostPointerLeavesNoButtonPressed_data()
{
    QTest::addColumn<QString>("how");
    for (const char* const how : {"the focus goes elsewhere", "the timeline is hidden",
                                  "a dialog opens", "the button goes up outside"})
        QTest::newRow(how) << QString(how);
}

void tst_CaptionPointer::aLostPointerLeavesNoButtonPressed()
{
    QFETCH(QString, how);
    QWidget outside(&S().fixture.mainWindow);
    outside.setFocusPolicy(Qt::StrongFocus);
    outside.show();
    QDialog dialog(&S().fixture.mainWindow);
    Container().setFocus();
    Journal journal(S().fixture);
    Press(Button(S().arm, kAddId));
    QCOMPARE(S().StatesOf(S().arm), (States{2, 0, 0}));
    QStringList wanted{"window refreshed"};
    if (how.startsWith("the focus")) {
        outside.setFocus();
    } else if (how.startsWith("the timeline")) {
        Container().hide();
    } else if (how.startsWith("a dialog")) {
        dialog.open();
    } else {
        S().pointer.LoseButtons();
        Hover(Caption(S().arm));
    }
    S().fixture.Settle();
    QVERIFY(!Container().Pointer().IsPressed());
    QCOMPARE(S().StatesOf(S().arm), (States{0, 0, 0}));
    QCOMPARE(journal.Take(), wanted); // no click
    dialog.close();
    Container().show();
    S().pointer.LoseButtons();
    S().fixture.Settle();
    VerifyThatTheNextClickWorks();
}

void tst_CaptionPointer::aPressWithoutReleaseEndsAtTheNextPress()
{
    Press(Button(S().arm, kAddId));
    Journal journal(S().fixture);
    const QPoint point = Button(S().leg, kAddId);
    // Without a move in between, which would have told already that the button went up.
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(point), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&Container(), &press);
    QCOMPARE(S().StatesOf(S().arm), (States{0, 0, 0}));
    QCOMPARE(S().StatesOf(S().leg), (States{2, 0, 0}));
    QCOMPARE(journal.Take(), QStringList{"window refreshed"});
    Hover(point);
    Release();
    QCOMPARE(journal.Take(), (QStringList{S().Clicked(S().leg, kAddId), "window refreshed"}));
}

void tst_CaptionPointer::aRowThatIsHiddenUnderThePressComesBackUnpressed()
{
    Press(Button(S().arm, kAddId));
    S().fixture.manager->HideChildTrack(S().arm, true);
    S().fixture.ForgetCalls();
    Journal journal(S().fixture);
    Release();
    QCOMPARE(journal.Take(), QStringList{"window refreshed"});
    S().fixture.manager->ShowChildTrack(S().body, S().arm, 0, true);
    QCOMPARE(S().StatesOf(S().arm), (States{0, 0, 0}));
    S().fixture.Settle();
    VerifyThatTheNextClickWorks();
}

void tst_CaptionPointer::aStyleThatIsReadAnewUnderThePressTakesTheButtonAway()
{
    const QPoint point = Button(S().arm, kAddId);
    Press(point);
    QVERIFY(S().arm->LoadStyle(2)); // without buttons
    Journal journal(S().fixture);
    Hover(point + QPoint(1, 0));
    Release();
    QCOMPARE(journal.Take(), QStringList{"window refreshed"});
    VerifyThatTheNextClickWorks();
}

void tst_CaptionPointer::aRowThatIsDeletedUnderThePressIsForgotten()
{
    const QPoint point = Button(S().arm, kAddId);
    Press(point);
    S().fixture.manager->DeleteTrack(S().arm);
    S().fixture.Settle();
    Journal journal(S().fixture);
    Hover(point + QPoint(1, 0)); // where the row below has moved to
    Release();
    QCOMPARE(journal.Take(), QStringList{"window refreshed"});
    VerifyThatTheNextClickWorks();
}

void tst_CaptionPointer::aModalDialogFromTheClickLeavesNoButtonPressed()
{
    Journal journal(S().fixture);
    bool wasPressed = true;
    journal.reaction = [&](const QString& line) {
        if (!line.startsWith("caption button"))
            return;
        wasPressed = Container().Pointer().IsPressed();
        QDialog dialog(&S().fixture.mainWindow);
        QTimer::singleShot(0, &dialog, &QDialog::accept);
        dialog.exec();
    };
    Click(Button(S().arm, kAddId));
    QVERIFY(!wasPressed); // the button is let go before the host hears of it
    QCOMPARE(journal.Take(), (QStringList{S().Clicked(S().arm, kAddId), "window refreshed"}));
    journal.reaction = nullptr;
    Hover(Caption(S().arm));
    QCOMPARE(S().StatesOf(S().arm), (States{0, 0, 0}));
    Click(Button(S().arm, kAddId));
    QCOMPARE(journal.Take(), (QStringList{S().Clicked(S().arm, kAddId), "window refreshed"}));
}

QTEST_MAIN(tst_CaptionPointer)
#include "tst_CaptionPointer.moc"
