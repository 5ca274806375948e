#include "MouseScene.h"

#include "container/CTimelineContainer.h"
#include "support/PaintCounter.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTimer>

#include <iterator>
#include <memory>

using namespace KestovaTest;

// Gestures that end without a release that the row would see, and hosts that take the row away
// under the hand. In all of them a key stands at 20, a time range at 2 to 6.

namespace {

enum Gesture
{
    PressedKey,
    PressedKeyWithCtrl,
    KeyDrag,
    CopyDrag,
    RubberBand,
    MarkerDrag
};

struct Story
{
    const char* name;
    Gesture gesture;
    QStringList begin;      ///< what the host hears from the press to the last move
    QStringList end;        ///< and when the gesture ends where the pointer is
    FrameRange range;       ///< left behind
    int pressed;            ///< how much of the beginning is the press
    QStringList endOfPress; ///< what the host hears when the gesture ends right after that
};

/// Each gesture up to the place where its pointer is lost: keys and bands at frame 30.
const Story kStories[] = {
    {"a pressed key",
     PressedKey,
     {"same body row", "cleared", "changed", "frame 20 false", "frame 20 true"},
     {},
     kNoRange,
     5,
     {}},
    {"a key pressed with Ctrl",
     PressedKeyWithCtrl,
     {"same body row", "frame 20 false", "frame 20 true"},
     {"changed"},
     kNoRange,
     3,
     {"changed"}},
    {"a key drag",
     KeyDrag,
     {"same body row", "cleared", "changed", "frame 20 false", "frame 20 true", "edit 0 [row] 0 0",
      "edit 2 [row] 10 0"},
     {"edit 6 [row] 10 0", "edit 1 [row] 0 0", "frame 30 false", "frame 30 true"},
     kNoRange,
     5,
     {}},
    {"a copy drag",
     CopyDrag,
     {"same body row", "frame 20 false", "frame 20 true"},
     {"edit 13 [row] 0 0", "frame 30 false", "frame 30 true"},
     kNoRange,
     3,
     {"changed"}},
    {"a rubber band",
     RubberBand,
     {"same body row", "cleared", "changed", "frame 15 false", "frame 15 true", "changed"},
     {"frame 30 false", "frame 30 true"},
     {15, 30},
     5,
     {}},
    {"a marker drag",
     MarkerDrag,
     {"same body row", "frame 6 false", "frame 6 true", "changed"},
     {"frame 30 false", "frame 30 true"},
     {2, 30},
     3,
     {}},
};

class LostScene : public MouseScene
{
public:
    explicit LostScene() : MouseScene(kKeepRange), outside(new QLineEdit)
    {
        fixture.mainWindow.setCentralWidget(outside);
        fixture.Settle();
        Restart();
    }

    /// As it was at first, whatever was played in it, as long as the host has taken nothing away.
    void Restart()
    {
        fixture.host.reaction = nullptr;
        row->EndGesture();
        row->unsetCursor();
        pointer.LoseButtons();
        pointer.modifiers = Qt::NoModifier;
        Keys().RemoveAll();
        AddKeys({20});
        fixture.SetEditModes(row, kKeepRange);
        row->SetRange(2, 6);
        fixture.Container()->setFocus();
        fixture.Settle();
        SetCurrentFrame(0);
        ResetAxis(kFrames, kPixelsPerFrame, 0, 0);
        fixture.ForgetCalls();
    }

    void BeginPress(Gesture gesture)
    {
        switch (gesture) {
        case PressedKey:
        case KeyDrag:
            Press(20);
            return;
        case CopyDrag:
            Select(row, 0);
            Press(20, Qt::ControlModifier);
            return;
        case PressedKeyWithCtrl:
            Press(20, Qt::ControlModifier);
            return;
        case RubberBand:
            Press(15);
            return;
        case MarkerDrag:
            pointer.modifiers = Qt::NoModifier;
            pointer.Press(row, Spot(68));
            return;
        }
    }
    void Begin(Gesture gesture)
    {
        BeginPress(gesture);
        if (gesture != PressedKey && gesture != PressedKeyWithCtrl)
            MoveTo(30);
    }

    QLineEdit* outside; ///< something beside the timeline that can have the focus
};

/// One scene for all stories after which the row is still where it was: to make a timeline takes
/// longer than to play in it.
std::unique_ptr<LostScene> sharedScene;

LostScene& SharedScene()
{
    if (sharedScene)
        sharedScene->Restart();
    else
        sharedScene = std::make_unique<LostScene>();
    return *sharedScene;
}

/// The gesture is over: moves say nothing, and the next click is a click.
void CheckThatTheNextPressStartsClean(LostScene& scene)
{
    scene.pointer.LoseButtons();
    scene.pointer.modifiers = Qt::NoModifier;
    scene.MoveTo(40);
    QCOMPARE(scene.TakeCalls(), QStringList());
    scene.Keys().RemoveAll();
    scene.AddKeys({10});
    scene.row->SetRange(-1, -1);
    scene.SetCurrentFrame(0);
    scene.Click(10);
    QCOMPARE(scene.TakeCalls(), QStringList({"same body row", "cleared", "changed",
                                             "frame 10 false", "frame 10 true"}));
    QCOMPARE(scene.Key(0).frame, 10);
    QCOMPARE(scene.Selection(), Indexes{0});
}

void CheckThatNothingRuns(LostScene& scene)
{
    QTest::qWait(100);
    PaintCounter counter(*scene.fixture.Container());
    QTest::qWait(200);
    QCOMPARE(counter.paints, 0);
    QList<QObject*> objects = scene.fixture.Container()->findChildren<QObject*>();
    objects << scene.fixture.Container();
    for (QObject* const object : qAsConst(objects))
        QVERIFY(QAbstractEventDispatcher::instance()->registeredTimers(object).isEmpty());
}

void OpenAModalDialog(QWidget* parent)
{
    QDialog dialog(parent);
    QTimer::singleShot(0, &dialog, &QDialog::accept);
    dialog.exec();
}

/// Where the pointer is after Begin, and one pixel beside it.
QPoint Nudged(const LostScene& scene, Gesture gesture)
{
    const bool isPressed = gesture == PressedKey || gesture == PressedKeyWithCtrl;
    return scene.At(isPressed ? 20 : 30) + QPoint(1, 0);
}

void AddStories()
{
    QTest::addColumn<int>("story");
    for (int i = 0; i < int(std::size(kStories)); ++i)
        QTest::newRow(kStories[i].name) << i;
}

/// The first callback of a story that no other story has in the same place: drags of keys begin
/// as pressed keys do.
int FirstOwnCallback(const Story& story)
{
    return story.gesture == KeyDrag || story.gesture == CopyDrag ? story.pressed : 0;
}

/// Each story up to each of its callbacks, of the whole gesture or of its press only.
void AddCallbacks(bool pressOnly)
{
    QTest::addColumn<int>("story");
    QTest::addColumn<int>("callback");
    for (int i = 0; i < int(std::size(kStories)); ++i) {
        const Story& story = kStories[i];
        const QStringList all = story.begin.mid(0, pressOnly ? story.pressed : -1);
        for (int callback = FirstOwnCallback(story); callback < all.size(); ++callback) {
            const QString name = QStringLiteral("%1, in \"%2\", callback %3")
                                     .arg(story.name, all[callback])
                                     .arg(callback + 1);
            QTest::newRow(qPrintable(name)) << i << callback;
        }
    }
}

/// Has the host act in its callback of that number, counted from 0 and from now on.
void InCallback(MouseScene& scene, int callback, const std::function<void()>& act)
{
    RecordingHost& host = scene.fixture.host;
    host.reaction = [&host, callback, act](const QString&) {
        if (host.calls.size() != callback + 1)
            return;
        host.reaction = nullptr;
        act();
    };
}

enum Deed
{
    DeleteTheRow,
    HideTheRow,
    HideTheRoot,
    DeleteAllRows,
    ReleaseTheWindow,
    DeleteTheDock
};
const char* const kDeedNames[] = {"deletes the row",  "hides the row",       "hides the root",
                                  "deletes all rows", "releases the window", "deletes the dock"};

void Do(Deed deed, MouseScene& scene)
{
    HostFixture& fixture = scene.fixture;
    switch (deed) {
    case DeleteTheRow:
        fixture.manager->DeleteTrack(scene.row);
        return;
    case HideTheRow:
        fixture.manager->HideChildTrack(scene.row, true);
        return;
    case HideTheRoot:
        fixture.manager->HideRootTrack(scene.root, true);
        return;
    case DeleteAllRows:
        fixture.manager->DeleteAllTrack();
        return;
    case ReleaseTheWindow:
        fixture.manager->ReleaseTimelineWnd();
        return;
    case DeleteTheDock:
        delete fixture.dock;
        return;
    }
}

} // namespace

class tst_KeyGestureLost : public QObject
{
    Q_OBJECT

private slots:
    void cleanupTestCase() { sharedScene.reset(); }

    void eachStoryEndsWithItsRelease_data() { AddStories(); }
    void eachStoryEndsWithItsRelease();

    void endsWhenTheButtonIsLostOutside_data() { AddStories(); }
    void endsWhenTheButtonIsLostOutside();
    void endsWhereThePointerComesBack();
    void endsWhenAnotherButtonGoesDown_data() { AddStories(); }
    void endsWhenAnotherButtonGoesDown();
    void endsWhenTheFocusGoes_data() { AddStories(); }
    void endsWhenTheFocusGoes();
    void endsWhenTheWindowIsDeactivated_data() { AddStories(); }
    void endsWhenTheWindowIsDeactivated();
    void endsWithTheModifiersThatItSawLast();
    void endsWhenTheRowIsHidden_data() { AddStories(); }
    void endsWhenTheRowIsHidden();
    void endsWhenADialogOpens_data() { AddStories(); }
    void endsWhenADialogOpens();
    void endsWhenACallbackOpensAModalDialog_data() { AddCallbacks(false); }
    void endsWhenACallbackOpensAModalDialog();
    void endsBeforeTheNextPress_data() { AddStories(); }
    void endsBeforeTheNextPress();
    void endsWhenTheEditModesAreTakenAway_data() { AddStories(); }
    void endsWhenTheEditModesAreTakenAway();
    void endsOnDemandAndOnlyOnce_data() { AddStories(); }
    void endsOnDemandAndOnlyOnce();
    void aLateReleaseIsNoNews_data() { AddStories(); }
    void aLateReleaseIsNoNews();

    void aReleaseInsideThePressLeavesNothingBehind_data() { AddCallbacks(true); }
    void aReleaseInsideThePressLeavesNothingBehind();

    void nothingFollowsFromARowThatTheHostTakesAway_data();
    void nothingFollowsFromARowThatTheHostTakesAway();
    void nothingFollowsWhenItIsTakenAwayAtTheEnd_data();
    void nothingFollowsWhenItIsTakenAwayAtTheEnd();
    void aRowThatWasTakenOutEndsItsGestureInSilence_data() { AddStories(); }
    void aRowThatWasTakenOutEndsItsGestureInSilence();

    void neitherPaintsNorTimersRunWhileTheButtonIsHeldStill_data() { AddStories(); }
    void neitherPaintsNorTimersRunWhileTheButtonIsHeldStill();
    void neitherPaintsNorTimersRunAfterwards_data() { AddStories(); }
    void neitherPaintsNorTimersRunAfterwards();
};

#define FETCH_TOLD()                                                                               \
    QFETCH(const int, story);                                                                      \
    const Story& told = kStories[story]

#define FETCH_STORY()                                                                              \
    FETCH_TOLD();                                                                                  \
    LostScene& scene = SharedScene()

/// For those after which nobody can play in the scene any more.
#define FETCH_STORY_OF_ITS_OWN()                                                                   \
    FETCH_TOLD();                                                                                  \
    sharedScene.reset();                                                                           \
    LostScene scene

#define BEGIN_STORY()                                                                              \
    scene.Begin(told.gesture);                                                                     \
    QCOMPARE(scene.TakeCalls(), told.begin)

void tst_KeyGestureLost::eachStoryEndsWithItsRelease()
{
    FETCH_STORY();
    BEGIN_STORY();
    scene.Release();
    QCOMPARE(scene.TakeCalls(), told.end);
    QCOMPARE(scene.Range(), told.range);
    CheckThatTheNextPressStartsClean(scene);
}

void tst_KeyGestureLost::endsWhenTheButtonIsLostOutside()
{
    FETCH_STORY();
    BEGIN_STORY();
    scene.pointer.LoseButtons();
    scene.pointer.MoveTo(scene.row, Nudged(scene, told.gesture));
    QCOMPARE(scene.TakeCalls(), told.end);
    QCOMPARE(scene.Range(), told.range);
    CheckThatTheNextPressStartsClean(scene);
}

/// The first move that finds the button up is where it ends.
void tst_KeyGestureLost::endsWhereThePointerComesBack()
{
    LostScene& scene = SharedScene();
    scene.Begin(KeyDrag);
    scene.TakeCalls();
    scene.pointer.LoseButtons();
    scene.MoveTo(34);
    QCOMPARE(scene.TakeCalls(), QStringList({"edit 6 [row] 14 0", "edit 1 [row] 0 0",
                                             "frame 34 false", "frame 34 true"}));
    CheckThatTheNextPressStartsClean(scene);
}

void tst_KeyGestureLost::endsWhenAnotherButtonGoesDown()
{
    FETCH_STORY();
    BEGIN_STORY();
    scene.pointer.PressAgain(Qt::MiddleButton);
    QCOMPARE(scene.TakeCalls(), QStringList());
    scene.pointer.MoveTo(scene.row, Nudged(scene, told.gesture));
    QCOMPARE(scene.TakeCalls(), told.end);
    scene.pointer.Release(Qt::MiddleButton);
    scene.pointer.Release();
    QCOMPARE(scene.TakeCalls(), QStringList());
    CheckThatTheNextPressStartsClean(scene);
}

void tst_KeyGestureLost::endsWhenTheFocusGoes()
{
    FETCH_STORY();
    BEGIN_STORY();
    scene.outside->setFocus();
    scene.fixture.Settle();
    QCOMPARE(scene.TakeCalls(), told.end);
    QCOMPARE(scene.Range(), told.range);
    CheckThatTheNextPressStartsClean(scene);
}

/// The focus goes to no widget at all.
void tst_KeyGestureLost::endsWhenTheWindowIsDeactivated()
{
    FETCH_STORY();
    BEGIN_STORY();
    QApplication::setActiveWindow(nullptr);
    QVERIFY(!QApplication::focusWidget());
    QCOMPARE(scene.TakeCalls(), QStringList()); // never from inside the change of focus
    scene.fixture.Settle();
    QCOMPARE(scene.TakeCalls(), told.end);
    QCOMPARE(scene.Range(), told.range);
    QApplication::setActiveWindow(&scene.fixture.mainWindow);
    CheckThatTheNextPressStartsClean(scene);
}

/// Keys of the keyboard are not watched, and once the focus is gone nobody could.
void tst_KeyGestureLost::endsWithTheModifiersThatItSawLast()
{
    LostScene& scene = SharedScene();
    scene.Begin(PressedKeyWithCtrl);
    scene.TakeCalls();
    scene.pointer.modifiers = Qt::NoModifier; // let go without a move
    scene.outside->setFocus();
    scene.fixture.Settle();
    QCOMPARE(scene.TakeCalls(), QStringList({"changed"}));
    QCOMPARE(scene.Selection(), Indexes{0});

    scene.Restart();
    scene.Begin(PressedKeyWithCtrl);
    scene.TakeCalls();
    scene.pointer.modifiers = Qt::NoModifier;
    scene.pointer.MoveTo(scene.row, Nudged(scene, PressedKeyWithCtrl));
    scene.outside->setFocus();
    scene.fixture.Settle();
    QCOMPARE(scene.TakeCalls(), QStringList());
    QCOMPARE(scene.Selection(), Indexes{});
}

void tst_KeyGestureLost::endsWhenTheRowIsHidden()
{
    FETCH_STORY();
    BEGIN_STORY();
    scene.fixture.dock->hide();
    scene.fixture.Settle();
    QCOMPARE(scene.TakeCalls(), told.end);
    QCOMPARE(scene.Range(), told.range);
    scene.fixture.dock->show();
    scene.fixture.Settle();
    ResetAxis(MouseScene::kFrames, MouseScene::kPixelsPerFrame, 0, scene.CurrentFrame());
    CheckThatTheNextPressStartsClean(scene);
}

void tst_KeyGestureLost::endsWhenADialogOpens()
{
    FETCH_STORY();
    BEGIN_STORY();
    OpenAModalDialog(&scene.fixture.mainWindow);
    scene.fixture.Settle();
    QCOMPARE(scene.TakeCalls(), told.end);
    QCOMPARE(scene.Range(), told.range);
    CheckThatTheNextPressStartsClean(scene);
}

void tst_KeyGestureLost::endsWhenACallbackOpensAModalDialog()
{
    QFETCH(const int, callback);
    FETCH_STORY();
    InCallback(scene, callback, [&] { OpenAModalDialog(&scene.fixture.mainWindow); });
    scene.Begin(told.gesture);
    const QStringList expected = callback < told.pressed
                                     ? told.begin.mid(0, told.pressed) + told.endOfPress
                                     : told.begin + told.end;
    QCOMPARE(scene.TakeCalls(), expected);
    CheckThatTheNextPressStartsClean(scene);
}

void tst_KeyGestureLost::endsBeforeTheNextPress()
{
    FETCH_STORY();
    BEGIN_STORY();
    scene.pointer.LoseButtons();
    scene.pointer.modifiers = Qt::NoModifier;
    // In the same place, so that no move comes first.
    const bool isPressed = told.gesture == PressedKey || told.gesture == PressedKeyWithCtrl;
    scene.pointer.Press(scene.row, scene.At(isPressed ? 20 : 30));
    const QStringList calls = scene.TakeCalls();
    const QStringList end = told.end + QStringList("same body row");
    QCOMPARE(calls.mid(0, end.size()), end);
    QCOMPARE(calls.count("same body row"), 1);
    scene.Release();
    scene.TakeCalls();
    CheckThatTheNextPressStartsClean(scene);
}

void tst_KeyGestureLost::endsWhenTheEditModesAreTakenAway()
{
    FETCH_STORY();
    BEGIN_STORY();
    const auto modes = scene.row->GetEditModes();
    scene.row->SetEditModes({});
    scene.pointer.MoveTo(scene.row, Nudged(scene, told.gesture));
    QCOMPARE(scene.TakeCalls(), told.end);
    QCOMPARE(scene.Range(), kNoRange);
    scene.Release();
    QCOMPARE(scene.TakeCalls(), QStringList());
    scene.row->SetEditModes(modes);
    CheckThatTheNextPressStartsClean(scene);
}

void tst_KeyGestureLost::endsOnDemandAndOnlyOnce()
{
    FETCH_STORY();
    BEGIN_STORY();
    scene.row->EndGesture();
    QCOMPARE(scene.TakeCalls(), told.end);
    MessageSpy spy(scene.row);
    scene.row->EndGesture();
    QCOMPARE(spy.TakeMessages(), QStringList());
    CheckThatTheNextPressStartsClean(scene);
}

void tst_KeyGestureLost::aLateReleaseIsNoNews()
{
    FETCH_STORY();
    BEGIN_STORY();
    scene.row->EndGesture();
    MessageSpy spy(scene.row);
    scene.MoveTo(45);
    scene.Release();
    QCOMPARE(spy.TakeMessages(), QStringList());
}

/// As with a host that runs the event loop in its callbacks.
void tst_KeyGestureLost::aReleaseInsideThePressLeavesNothingBehind()
{
    QFETCH(const int, callback);
    FETCH_STORY();
    InCallback(scene, callback, [&] { scene.Release(); });
    scene.BeginPress(told.gesture);

    // A press whose release came before it has taken hold of something only sets the frame.
    const int frames = told.pressed - 2; // where the callbacks of the current frame begin
    QStringList expected = told.begin.mid(0, callback + 1);
    if (callback >= frames)
        expected += told.endOfPress;
    const int next = qMax(callback + 1, frames);
    expected += told.begin.mid(next, told.pressed - next);
    QCOMPARE(scene.TakeCalls(), expected);

    const bool isKey = told.gesture == PressedKey || told.gesture == PressedKeyWithCtrl;
    QCOMPARE(scene.Selection(), isKey && expected.contains("changed") ? Indexes{0} : Indexes{});
    QCOMPARE(scene.CurrentFrame(), isKey ? 20 : told.gesture == RubberBand ? 15 : 6);
    QVERIFY(!scene.row->hasFocus());
    CheckThatTheNextPressStartsClean(scene);
}

void tst_KeyGestureLost::nothingFollowsFromARowThatTheHostTakesAway_data()
{
    QTest::addColumn<int>("story");
    QTest::addColumn<int>("callback");
    QTest::addColumn<int>("deed");
    for (int i = 0; i < int(std::size(kStories)); ++i) {
        for (int callback = FirstOwnCallback(kStories[i]); callback < kStories[i].begin.size();
             ++callback) {
            // Each deed in some callback of each story.
            const int deed = (i + callback) % int(std::size(kDeedNames));
            const QString name = QStringLiteral("%1, in callback %2: %3")
                                     .arg(kStories[i].name)
                                     .arg(callback + 1)
                                     .arg(kDeedNames[deed]);
            QTest::newRow(qPrintable(name)) << i << callback << deed;
        }
    }
}

void tst_KeyGestureLost::nothingFollowsFromARowThatTheHostTakesAway()
{
    QFETCH(const int, callback);
    QFETCH(const int, deed);
    FETCH_STORY_OF_ITS_OWN();
    InCallback(scene, callback, [&] { Do(Deed(deed), scene); });
    scene.Begin(told.gesture);
    QCOMPARE(scene.TakeCalls(), told.begin.mid(0, callback + 1));
    scene.Release();
    scene.fixture.Settle();
    QCOMPARE(scene.TakeCalls(), QStringList());
}

void tst_KeyGestureLost::nothingFollowsWhenItIsTakenAwayAtTheEnd_data()
{
    QTest::addColumn<int>("story");
    QTest::addColumn<int>("callback");
    QTest::addColumn<int>("deed");
    std::size_t rows = 0;
    for (int i = 0; i < int(std::size(kStories)); ++i) {
        for (int callback = 0; callback < kStories[i].end.size(); ++callback) {
            constexpr Deed kDeeds[] = {DeleteTheRow, HideTheRoot, DeleteTheDock};
            const Deed deed = kDeeds[rows++ % std::size(kDeeds)];
            const QString name = QStringLiteral("%1, in callback %2: %3")
                                     .arg(kStories[i].name)
                                     .arg(callback + 1)
                                     .arg(kDeedNames[deed]);
            QTest::newRow(qPrintable(name)) << i << callback << int(deed);
        }
    }
}

void tst_KeyGestureLost::nothingFollowsWhenItIsTakenAwayAtTheEnd()
{
    QFETCH(const int, callback);
    QFETCH(const int, deed);
    FETCH_STORY_OF_ITS_OWN();
    BEGIN_STORY();
    InCallback(scene, callback, [&] { Do(Deed(deed), scene); });
    scene.Release();
    scene.fixture.Settle();
    QCOMPARE(scene.TakeCalls(), told.end.mid(0, callback + 1));
}

void tst_KeyGestureLost::aRowThatWasTakenOutEndsItsGestureInSilence()
{
    FETCH_STORY_OF_ITS_OWN();
    BEGIN_STORY();
    const int currentFrame = scene.CurrentFrame();
    scene.fixture.manager->HideChildTrack(scene.row, true);
    scene.fixture.Settle();
    QCOMPARE(scene.TakeCalls(), QStringList());
    QCOMPARE(scene.CurrentFrame(), currentFrame);

    scene.fixture.manager->ShowChildTrack(scene.root, scene.row, 0, true);
    scene.fixture.manager->SetActiveChildTrack(scene.row);
    scene.fixture.Settle();
    ResetAxis(MouseScene::kFrames, MouseScene::kPixelsPerFrame, 0, currentFrame);
    scene.TakeCalls();
    CheckThatTheNextPressStartsClean(scene);
}

void tst_KeyGestureLost::neitherPaintsNorTimersRunWhileTheButtonIsHeldStill()
{
    FETCH_STORY();
    BEGIN_STORY();
    CheckThatNothingRuns(scene);
    QCOMPARE(scene.TakeCalls(), QStringList());
}

void tst_KeyGestureLost::neitherPaintsNorTimersRunAfterwards()
{
    FETCH_STORY();
    BEGIN_STORY();
    scene.Release();
    CheckThatNothingRuns(scene);
}

QTEST_MAIN(tst_KeyGestureLost)
#include "tst_KeyGestureLost.moc"
