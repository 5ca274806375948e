#include "EditorFixture.h"
#include "script/MenuPath.h"

#include "playback/Transport.h"
#include "playback/TransportBar.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QToolButton>

using namespace host;

namespace {

constexpr int kPatience = 30000; // milliseconds; the sanitized program is slow

struct PlayingEditor : EditorFixture
{
    Playback& Player() { return window.Player().Player(); }
    int Frame() { return Timeline().GetCurrentFrame(); }

    QAction* Command(const QString& text)
    {
        for (QAction* const action : window.Player().Bar()->actions()) {
            if (host::PlainText(*action) == text)
                return action;
        }
        qFatal("no button %s", qPrintable(text));
    }
    void Click(const QString& text)
    {
        QWidget* const button = window.Player().Bar()->widgetForAction(Command(text));
        QTest::mouseClick(button, Qt::LeftButton);
    }
    bool Reaches(int frame)
    {
        return QTest::qWaitFor([this, frame] { return Frame() >= frame; }, kPatience);
    }
    QWidget* WidgetOf(const char* name)
    {
        const void* const track = Row(name);
        for (QWidget* const widget : window.findChildren<QWidget*>()) {
            if (widget == track)
                return widget;
        }
        qFatal("the row %s has no widget", name);
    }
    /// A scene that does not end while a test looks at it.
    void ShowLongScene()
    {
        host::Scene scene = Sample();
        scene.frameCount = 10000;
        scene.timeMark = {0, 9999};
        if (!window.SetScene(scene))
            qFatal("the scene cannot be shown");
        window.GotoFrame(0);
    }
    /// The view's left and right edge as parts of the whole.
    std::pair<float, float> View()
    {
        float left = 0;
        float right = 0;
        Timeline().GetScrollInfo(left, right);
        return {left, right};
    }
};

/// Presses a key where the focus is, as the keyboard does: shortcuts first.
void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QWidget* const focus = QApplication::focusWidget();
    QTest::keyClick(focus ? focus : QApplication::activeWindow(), key, modifiers);
}

} // namespace

class tst_Transport : public QObject
{
    Q_OBJECT

private slots:
    void everyButtonHasAnIconAndATooltip();
    void theButtonsPlayPauseAndStop();
    void theButtonsStepAndGoToTheEnds();
    void theMenuHasTheSameCommands();
    void playingMovesTheTimeline();
    void theViewFollowsTheFrame();
    void theViewStaysWhileTheFrameIsInIt();
    void loopingRepeatsTheTimeMark();
    void scrubbingWhilePlayingMovesThePlayhead();
    void editingWhilePlayingIsAllowed();
    void undoLeavesThePlayheadAlone_data();
    void undoLeavesThePlayheadAlone();
    void commandsKnowTheFrameWherePlayingEnded();
    void noShortcutIsGivenTwice();
    void keysWorkWhereverTheFocusIs_data();
    void keysWorkWhereverTheFocusIs();
    void textFieldsKeepTheirKeys_data();
    void textFieldsKeepTheirKeys();
    void theTimelineKeepsItsKeys();
    void aMissingDeviceIsToldOnce();
    void anotherSceneEndsThePlaying();
    void aShorterSceneHoldsTheFrameInside();
    void theWindowMayCloseWhilePlaying();
    void noTimerRunsAtRest();
};

void tst_Transport::everyButtonHasAnIconAndATooltip()
{
    PlayingEditor editor;
    QList<QImage> seen;
    for (QAction* const action : editor.window.Player().Bar()->actions()) {
        const QImage icon = action->icon().pixmap(32, 32).toImage();
        QVERIFY(!icon.isNull());
        QVERIFY(!seen.contains(icon));
        seen.append(icon);
        const QString keys = action->shortcut().toString(QKeySequence::NativeText);
        QVERIFY(!keys.isEmpty());
        QCOMPARE(action->toolTip(), QStringLiteral("%1 (%2)").arg(host::PlainText(*action), keys));
    }
    QCOMPARE(seen.size(), 7);
    QAction* const play = editor.Command(QStringLiteral("Play"));
    play->trigger();
    QCOMPARE(host::PlainText(*play), QStringLiteral("Pause"));
    QVERIFY(!seen.contains(play->icon().pixmap(32, 32).toImage()));
}

void tst_Transport::theButtonsPlayPauseAndStop()
{
    PlayingEditor editor;
    editor.window.GotoFrame(5);
    editor.Click(QStringLiteral("Play"));
    QVERIFY(editor.Reaches(8));
    editor.Click(QStringLiteral("Pause"));
    QCOMPARE(editor.Player().CurrentState(), Playback::State::Paused);
    const int paused = editor.Frame();
    QTest::qWait(100);
    QCOMPARE(editor.Frame(), paused);
    editor.Click(QStringLiteral("Play"));
    QVERIFY(editor.Reaches(paused + 2));
    editor.Click(QStringLiteral("Stop"));
    QCOMPARE(editor.Frame(), 5);
}

void tst_Transport::theButtonsStepAndGoToTheEnds()
{
    PlayingEditor editor;
    editor.Click(QStringLiteral("Step Forwards"));
    editor.Click(QStringLiteral("Step Forwards"));
    editor.Click(QStringLiteral("Step Backwards"));
    QCOMPARE(editor.Frame(), 1);
    editor.Click(QStringLiteral("Go to End"));
    QCOMPARE(editor.Frame(), 90);
    editor.Click(QStringLiteral("Go to Start"));
    QCOMPARE(editor.Frame(), 0);
}

void tst_Transport::theMenuHasTheSameCommands()
{
    PlayingEditor editor;
    QList<QAction*> commands;
    for (QAction* const entry : editor.window.menuBar()->actions()) {
        if (host::PlainText(*entry) == QLatin1String("Playback"))
            commands = entry->menu()->actions();
    }
    QVERIFY(!commands.isEmpty());
    QVERIFY(commands == editor.window.Player().Bar()->actions());
}

void tst_Transport::playingMovesTheTimeline()
{
    PlayingEditor editor;
    QVector<int> frames;
    QObject::connect(&editor.window, &MainWindow::CurrentFrameChanged, &editor.window,
                     [&frames](int frame) { frames.append(frame); });
    editor.Player().Play();
    QVERIFY(editor.Reaches(10));
    editor.Player().Pause();
    QVERIFY(std::is_sorted(frames.cbegin(), frames.cend()));
    QCOMPARE(frames.last(), editor.Frame());
    QCOMPARE(editor.Player().Frame(), editor.Frame());
}

void tst_Transport::theViewFollowsTheFrame()
{
    PlayingEditor editor;
    editor.ShowLongScene();
    editor.Timeline().SetScrollInfo(0, 0.01F);
    const auto before = editor.View();
    int outside = 0; // the first frame that is not in view
    while (editor.View() == before)
        editor.Timeline().ScrollToFrame(++outside, 1);
    editor.Timeline().SetScrollInfo(before.first, before.second);
    editor.Timeline().SetCurrentFrame(outside - 3);
    QVERIFY(editor.View() == before);
    editor.Player().Play();
    QVERIFY(editor.Reaches(outside));
    editor.Player().Pause();
    // It stands at the left edge now: a little further on the view stays.
    const auto after = editor.View();
    QVERIFY(after.first > before.first);
    editor.Timeline().ScrollToFrame(editor.Frame(), -1);
    editor.Timeline().ScrollToFrame(editor.Frame() + outside / 2, -1);
    QVERIFY(editor.View() == after);
}

void tst_Transport::theViewStaysWhileTheFrameIsInIt()
{
    PlayingEditor editor;
    editor.ShowLongScene();
    editor.Timeline().SetScrollInfo(0, 0.01F);
    const auto before = editor.View();
    editor.Player().Play();
    QVERIFY(editor.Reaches(10));
    editor.Player().Pause();
    QVERIFY(editor.View() == before);
}

void tst_Transport::loopingRepeatsTheTimeMark()
{
    PlayingEditor editor;
    Scene scene = editor.Scene();
    scene.timeMark = {10, 13};
    QVERIFY(editor.window.SetScene(scene));
    editor.window.GotoFrame(10);
    editor.Click(QStringLiteral("Loop the Time Mark"));
    QVERIFY(editor.Player().IsLooping());
    QSet<int> frames;
    int passes = 0;
    int last = 10;
    QObject::connect(&editor.window, &MainWindow::CurrentFrameChanged, &editor.window,
                     [&](int frame) {
                         frames.insert(frame);
                         passes += frame < last ? 1 : 0;
                         last = frame;
                     });
    editor.Click(QStringLiteral("Play"));
    QVERIFY(QTest::qWaitFor([&passes] { return passes >= 3; }, kPatience));
    for (const int frame : qAsConst(frames))
        QVERIFY(frame >= 10 && frame <= 13);
}

void tst_Transport::scrubbingWhilePlayingMovesThePlayhead()
{
    PlayingEditor editor;
    editor.ShowLongScene();
    editor.Timeline().SetScrollInfo(0, 0.1F);
    editor.Player().Play();
    QVERIFY(editor.Reaches(2));
    QWidget* const row = editor.WidgetOf("LeftArm");
    QTest::mouseClick(row, Qt::LeftButton, Qt::NoModifier, QPoint(row->width() / 2, 5));
    const int clicked = editor.Frame();
    QVERIFY2(clicked > 100, qPrintable(QString::number(clicked)));
    QVERIFY(editor.Player().IsPlaying());
    QVERIFY(editor.Reaches(clicked + 3));
    editor.Player().Stop();
    QVERIFY(qAbs(editor.Frame() - clicked) <= 2); // the click itself takes its time
}

void tst_Transport::editingWhilePlayingIsAllowed()
{
    PlayingEditor editor;
    editor.ShowLongScene();
    editor.Player().Play();
    QVERIFY(editor.Reaches(2));
    editor.Select("LeftArm", {1});
    const int keys = editor.KeysOf("LeftArm").size();
    editor.Timeline().ReceiveMessage(1311, editor.Row("LeftArm"), nullptr, 0, TL_EDIT_DELETE, 0);
    QCOMPARE(editor.KeysOf("LeftArm").size(), keys - 1);
    QVERIFY(editor.Player().IsPlaying());
    QVERIFY(editor.Reaches(editor.Frame() + 2));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_Transport::undoLeavesThePlayheadAlone_data()
{
    QTest::addColumn<bool>("isPaused");
    QTest::newRow("while playing") << false;
    QTest::newRow("while paused") << true;
}

void tst_Transport::undoLeavesThePlayheadAlone()
{
    QFETCH(bool, isPaused);
    PlayingEditor editor;
    editor.ShowLongScene();
    editor.Timeline().SetCurrentFrame(200);
    host::Scene scene = editor.Scene();
    scene.FindTrack(editor.Id("Lips"))->muted = true;
    editor.window.Session().Apply(QStringLiteral("Mute"), scene);
    QCoreApplication::processEvents(); // the edit is through
    editor.Timeline().SetCurrentFrame(1000);
    editor.Player().Play();
    QVERIFY(editor.Reaches(1002));
    if (isPaused)
        editor.Player().Pause();
    editor.window.History().Undo();
    QCOMPARE(editor.window.History().Stack().index(), 0);
    QVERIFY(!editor.Scene().FindTrack(editor.Id("Lips"))->muted);
    QVERIFY(editor.Frame() >= 1002);
    QCOMPARE(editor.Player().IsPlaying(), !isPaused);
    editor.window.History().Redo();
    QVERIFY(editor.Frame() >= 1002);
    editor.Player().Stop();
    QCOMPARE(editor.Frame(), 1000);
    editor.window.History().Undo(); // at rest it goes where the edit was made
    QCOMPARE(editor.Frame(), 200);
}

void tst_Transport::commandsKnowTheFrameWherePlayingEnded()
{
    PlayingEditor editor;
    editor.Timeline().SetActiveChildTrack(editor.Row("LeftArm"));
    QAction* insert = nullptr;
    for (QAction* const action : editor.window.findChildren<QAction*>()) {
        if (host::PlainText(*action) == QLatin1String("Insert Key"))
            insert = action;
    }
    QVERIFY(insert);
    QVERIFY(!insert->isEnabled()); // the row has a key at frame 0
    editor.Player().Play();
    QVERIFY(editor.Reaches(2));
    editor.Player().Pause();
    QVERIFY(!editor.FramesOf("LeftArm").contains(editor.Frame()));
    QVERIFY(insert->isEnabled());
}

void tst_Transport::noShortcutIsGivenTwice()
{
    PlayingEditor editor;
    QHash<QString, QString> owners;
    for (const QAction* const action : editor.window.findChildren<QAction*>()) {
        for (const QKeySequence& keys : action->shortcuts()) {
            const QString text = keys.toString();
            QVERIFY2(!owners.contains(text) || owners[text] == action->text(),
                     qPrintable(text + u' ' + action->text() + u' ' + owners.value(text)));
            owners[text] = action->text();
        }
    }
    QVERIFY(owners.contains(QStringLiteral("Home"))); // the timeline's are among them
    QVERIFY(owners.contains(QStringLiteral("Space")));
}

void tst_Transport::keysWorkWhereverTheFocusIs_data()
{
    QTest::addColumn<QString>("place");
    for (const char* place : {"timeline", "button", "window", "list"})
        QTest::newRow(place) << QString::fromLatin1(place);
}

void tst_Transport::keysWorkWhereverTheFocusIs()
{
    QFETCH(QString, place);
    PlayingEditor editor;
    QToolButton button(&editor.window);
    QWidget list(&editor.window);
    list.setFocusPolicy(Qt::StrongFocus);
    button.setFocusPolicy(Qt::StrongFocus);
    button.show();
    list.show();
    if (place == QLatin1String("timeline"))
        editor.Timeline().SetTimelineWndFocus();
    else if (place == QLatin1String("button"))
        button.setFocus();
    else if (place == QLatin1String("list"))
        list.setFocus();
    else if (QApplication::focusWidget())
        QApplication::focusWidget()->clearFocus();

    Press(Qt::Key_Space);
    QVERIFY(editor.Player().IsPlaying());
    QVERIFY(editor.Reaches(2));
    Press(Qt::Key_Space);
    QVERIFY(!editor.Player().IsPlaying());
    Press(Qt::Key_Space, Qt::ShiftModifier);
    QCOMPARE(editor.Frame(), 0);
    Press(Qt::Key_Right);
    Press(Qt::Key_Right);
    Press(Qt::Key_Left);
    QCOMPARE(editor.Frame(), 1);
    Press(Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(editor.Frame(), 90);
    Press(Qt::Key_Home, Qt::ControlModifier);
    QCOMPARE(editor.Frame(), 0);
    Press(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(editor.Player().IsLooping());
}

void tst_Transport::textFieldsKeepTheirKeys_data()
{
    QTest::addColumn<QString>("field");
    for (const char* field : {"line", "text", "plain text", "number"})
        QTest::newRow(field) << QString::fromLatin1(field);
}

void tst_Transport::textFieldsKeepTheirKeys()
{
    QFETCH(QString, field);
    PlayingEditor editor;
    std::unique_ptr<QWidget> widget;
    if (field == QLatin1String("line"))
        widget = std::make_unique<QLineEdit>(QStringLiteral("1 2"));
    else if (field == QLatin1String("text"))
        widget = std::make_unique<QTextEdit>(QStringLiteral("1 2"));
    else if (field == QLatin1String("plain text"))
        widget = std::make_unique<QPlainTextEdit>(QStringLiteral("1 2"));
    else
        widget = std::make_unique<QSpinBox>();
    widget->setParent(&editor.window);
    widget->show();
    editor.window.GotoFrame(5); // gives the timeline the focus
    widget->setFocus();
    QVERIFY(widget->hasFocus() || widget->focusWidget()->hasFocus());
    Press(Qt::Key_Space);
    Press(Qt::Key_Space, Qt::ShiftModifier);
    Press(Qt::Key_Left);
    Press(Qt::Key_Right);
    Press(Qt::Key_Home, Qt::ControlModifier);
    Press(Qt::Key_End, Qt::ControlModifier);
    QVERIFY(!editor.Player().IsPlaying());
    QCOMPARE(editor.Frame(), 5);
}

void tst_Transport::theTimelineKeepsItsKeys()
{
    PlayingEditor editor;
    editor.Timeline().SetTimelineWndFocus();
    Press(Qt::Key_End);
    QCOMPARE(editor.Frame(), 90);
    Press(Qt::Key_Home);
    QCOMPARE(editor.Frame(), 0);
    Press(Qt::Key_Period);
    QCOMPARE(editor.Frame(), 90);
}

void tst_Transport::aMissingDeviceIsToldOnce()
{
    PlayingEditor editor;
    QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("hello.wav"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(WavBytes(16000, 8000));
    file.close();
    Scene scene = editor.Scene();
    SceneKey clip;
    clip.clip = ClipSpan{59, 1, 0, 59, 59};
    clip.sound = path;
    scene.FindTrack(editor.Id("Sound"))->keys = {clip};
    scene.NumberKeys(scene.FindTrack(editor.Id("Sound"))->keys);
    QVERIFY(editor.window.SetScene(scene));
    const QString problem = MakeSoundOutput()->Start(SoundsOf(scene), 0);
    if (problem.isEmpty())
        QSKIP("there is a sound device here");
    QStringList told;
    QObject::connect(editor.window.statusBar(), &QStatusBar::messageChanged, &editor.window,
                     [&told](const QString& text) { told.append(text); });
    for (int i = 0; i < 2; ++i) {
        editor.Player().Play();
        QVERIFY(editor.Reaches(2));
        editor.Player().Stop();
    }
    QCOMPARE(told, QStringList{problem});
    QVERIFY(problem.endsWith(QStringLiteral("playing silently")));
}

void tst_Transport::anotherSceneEndsThePlaying()
{
    PlayingEditor editor;
    editor.Player().Play();
    QVERIFY(editor.window.SetScene(editor.Sample()));
    QVERIFY(!editor.Player().IsPlaying());
    QVERIFY(editor.Command(QStringLiteral("Play")));
}

void tst_Transport::aShorterSceneHoldsTheFrameInside()
{
    PlayingEditor editor;
    editor.ShowLongScene();
    editor.Timeline().SetCurrentFrame(5000);
    int told = -1;
    QObject::connect(&editor.window, &MainWindow::CurrentFrameChanged, &editor.window,
                     [&told](int frame) { told = frame; });
    const host::Scene shorter = editor.Sample();
    QVERIFY(editor.window.SetScene(shorter));
    QCOMPARE(editor.Frame(), shorter.frameCount - 1);
    QCOMPARE(told, shorter.frameCount - 1);
    QCOMPARE(editor.Player().Frame(), shorter.frameCount - 1);
}

void tst_Transport::theWindowMayCloseWhilePlaying()
{
    PlayingEditor editor;
    editor.Player().Play();
    QVERIFY(editor.Reaches(2));
    editor.window.close();
    QTest::qWait(100);
}

void tst_Transport::noTimerRunsAtRest()
{
    PlayingEditor editor;
    QVERIFY(!editor.Player().IsTimerActive());
    editor.Click(QStringLiteral("Step Forwards"));
    QVERIFY(!editor.Player().IsTimerActive());
    editor.Player().Play();
    QVERIFY(editor.Player().IsTimerActive());
    editor.Player().Stop();
    QVERIFY(!editor.Player().IsTimerActive());
}

QTEST_MAIN(tst_Transport)
#include "tst_Transport.moc"
