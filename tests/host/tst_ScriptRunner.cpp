#include "ScriptedEditor.h"

#include "playback/Transport.h"
#include "preview/FaceView.h"
#include "preview/PreviewPane.h"
#include "view/TimelinePane.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QTimer>

using Frames = QVector<int>;

namespace {

QByteArray Sample(const char* name)
{
    return QByteArray(KESTOVA_SAMPLES_DIR "/") + name;
}

/// A widget that answers with a dialog, as hosts do by menus.
void AddDialog(host::MainWindow& window)
{
    window.FileMenu()->addAction(QStringLiteral("Ask"), &window, [&window] {
        QMessageBox::question(&window, QStringLiteral("Sure"), QStringLiteral("Are you sure?"));
    });
}

} // namespace

class tst_ScriptRunner : public QObject
{
    Q_OBJECT

private slots:
    void makesAFrameCurrent_data();
    void makesAFrameCurrent();
    void makesAFrameCurrentThatIsOutOfView();
    void makesAFrameCurrentUnderAMarkerAndLeavesThatAlone();
    void makesAFrameCurrentThatHasNoPixelOfItsOwn();
    void zoomsByTheMenu();
    void zoomsToARange();
    void selectsAKeyByAClick();
    void selectsInAdditionWithControl();
    void selectsWithARubberBand();
    void selectsFromKeyToKey();
    void selectsAMouthShape();
    void dragsAKey();
    void dragsACopyWithControl();
    void dragsNoFartherThanTheScene();
    void dragsTheEndOfAClip();
    void dragsTheHandleOfABlend();
    void dragsAMarkerOnTheRuler();
    void scrubsOnTheRuler();
    void worksOnRowsThatAreScrolledOutOfSight();
    void choosesFromTheMenus();
    void choosesFromTheMenuOfARow();
    void strikesKeys();
    void undoesAndRedoes();
    void tellsWhatThePointerIsOver();
    void playsForATimeAndPauses();
    void playsOnUntilItIsPaused();
    void waits();
    void resizesTheWindow();
    void showsASkin();
    void writesPicturesOfTheWindowAndItsParts();
    void savesAndOpensAgain();
    void opensFilesBesideTheScript();
    void importsFiles();
    void dropsASoundOnARow();
    void givesTheWindowBackAtTheEnd();
    void quitsWithoutAsking();
    void stopsWhenTheWindowIsClosed();
    void stopsAtTheFirstFaultyCommand();
    void says_data();
    void says();
    void saysWhatADialogWouldHaveAsked();
    void saysThatADocumentIsDamaged();
    void leavesWorkOfAnEarlierRunAlone();
};

void tst_ScriptRunner::makesAFrameCurrent_data()
{
    QTest::addColumn<int>("frame");
    QTest::newRow("in the middle") << 37;
    QTest::newRow("the current one") << 0;
    QTest::newRow("the last one") << 90;
}

void tst_ScriptRunner::makesAFrameCurrent()
{
    QFETCH(int, frame);
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "frame " + QByteArray::number(frame));
    QCOMPARE(editor.Timeline().GetCurrentFrame(), frame);
    QCOMPARE(editor.window.History().Stack().count(), 0);
}

void tst_ScriptRunner::makesAFrameCurrentThatIsOutOfView()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "size 600x600\nzoom closest\nframe 88\nframe 3\nframe 70\nexpect frame 70");
    QCOMPARE(editor.Timeline().GetCurrentFrame(), 70);
}

void tst_ScriptRunner::makesAFrameCurrentUnderAMarkerAndLeavesThatAlone()
{
    ScriptedEditor editor;
    host::Scene scene = editor.Scene();
    scene.timeMark = {20, 40};
    QVERIFY(editor.window.SetScene(scene));
    VERIFY_RUNS(editor, "frame 20\nexpect frame 20\nframe 40\nexpect frame 40\nframe 21\n"
                        "expect frame 21\nframe 39\nexpect frame 39");
    QCOMPARE(editor.Scene().timeMark.start, 20);
    QCOMPARE(editor.Scene().timeMark.end, 40);
}

void tst_ScriptRunner::makesAFrameCurrentThatHasNoPixelOfItsOwn()
{
    ScriptedEditor editor;
    host::Scene scene = editor.Scene();
    scene.frameCount = 50000;
    QVERIFY(editor.window.SetScene(scene));
    VERIFY_RUNS(editor, "zoom all\nframe 12347\nexpect frame 12347\nframe 3\nexpect frame 3");
    QCOMPARE(editor.Run("select \"Left Arm\" 13"),
             QStringLiteral("1: frame 13 has no pixel of its own: zoom in"));
}

void tst_ScriptRunner::zoomsByTheMenu()
{
    ScriptedEditor editor;
    host::Scene scene = editor.Scene();
    scene.frameCount = 1000;
    QVERIFY(editor.window.SetScene(scene));
    const auto shown = [&editor] {
        const host::ViewRecord view = editor.window.View();
        return view.right - view.left;
    };
    VERIFY_RUNS(editor, "zoom all");
    QVERIFY(shown() > 0.99);
    VERIFY_RUNS(editor, "zoom in");
    const float once = shown();
    QVERIFY(once < 0.6);
    VERIFY_RUNS(editor, "zoom closest\nzoom closest"); // what is so already may be asked for
    QVERIFY(shown() < once);
    VERIFY_RUNS(editor, "zoom all\nzoom all");
    QVERIFY(shown() > 0.99);
    QCOMPARE(editor.Run("zoom out"),
             QStringLiteral("1: the menu entry \"View > Zoom Out\" cannot be chosen now"));
}

void tst_ScriptRunner::zoomsToARange()
{
    ScriptedEditor editor;
    host::Scene scene = editor.Scene();
    scene.frameCount = 1000;
    QVERIFY(editor.window.SetScene(scene));
    // Each end of the range is in view, and what is far away is not.
    VERIFY_RUNS(editor, "zoom range 200 420\nhover ruler 200\nhover ruler 420");
    QCOMPARE(editor.Run("hover ruler 150"), QStringLiteral("1: frame 150 is out of view"));
    QCOMPARE(editor.Run("hover ruler 800"), QStringLiteral("1: frame 800 is out of view"));
    VERIFY_RUNS(editor, "zoom range 990 999\nhover ruler 990\nhover ruler 999");
    QCOMPARE(editor.Run("zoom range 5 4"),
             QStringLiteral("1: expected the first frame before the last"));
    QCOMPARE(editor.Run("zoom range 5 1000"), QStringLiteral("1: the last frame is 999"));
}

void tst_ScriptRunner::selectsAKeyByAClick()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "select \"Left Arm\" 15\nexpect selected 1\nexpect frame 15");
    QCOMPARE(editor.SelectedFrames("LeftArm"), (Frames{15}));
    VERIFY_RUNS(editor, "select LeftArm 45"); // a row's name does as well
    QCOMPARE(editor.SelectedFrames("LeftArm"), (Frames{45}));
}

void tst_ScriptRunner::selectsInAdditionWithControl()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "select \"Left Arm\" 15\nselect \"Left Arm\" 45 ctrl\nexpect selected 2");
    QCOMPARE(editor.SelectedFrames("LeftArm"), (Frames{15, 45}));
}

void tst_ScriptRunner::selectsWithARubberBand()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "select \"Left Arm\" 10 50");
    QCOMPARE(editor.SelectedFrames("LeftArm"), (Frames{15, 30, 45}));
    int first = -1;
    int last = -1;
    editor.Timeline().GetTrackSelFrame(editor.Row("LeftArm"), first, last);
    QCOMPARE(first, 10);
    QCOMPARE(last, 50);
    VERIFY_RUNS(editor, "select \"Left Arm\" 30 50"); // from the end that is beside the keys
    QCOMPARE(editor.SelectedFrames("LeftArm"), (Frames{30, 45}));
}

void tst_ScriptRunner::selectsFromKeyToKey()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "select \"Left Arm\" 30 60");
    QCOMPARE(editor.SelectedFrames("LeftArm"), (Frames{30, 45, 60}));
}

void tst_ScriptRunner::selectsAMouthShape()
{
    ScriptedEditor editor;
    const int frame = editor.KeysOf("Lips")[0].subKeys[3].frame;
    VERIFY_RUNS(editor, "select Lips " + QByteArray::number(frame) + "\nexpect selected 1");
    const auto line = editor.Shown("Lips").GetAt(0);
    QCOMPARE(line->subKeys->SelectedIndexes(), (std::vector<int>{3}));
}

void tst_ScriptRunner::dragsAKey()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "drag \"Left Arm\" 15 by 4\nexpect key \"Left Arm\" 19\n"
                        "expect no-key \"Left Arm\" 15\n"
                        "expect status \"Move 1 key by 4 frames\"\n"
                        "drag \"Left Arm\" 19 by -7");
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 12, 30, 45, 60, 75, 90}));
    QCOMPARE(editor.window.History().Stack().count(), 2);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_ScriptRunner::dragsACopyWithControl()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "select \"Left Arm\" 15\ndrag \"Left Arm\" 15 by 5 ctrl");
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 20, 30, 45, 60, 75, 90}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_ScriptRunner::dragsNoFartherThanTheScene()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "drag \"Left Arm\" 75 by 2000000000");
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 30, 45, 60, 90}));
    VERIFY_RUNS(editor, "drag \"Left Arm\" 60 by -2147483648");
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 30, 45, 90}));
}

void tst_ScriptRunner::dragsTheEndOfAClip()
{
    ScriptedEditor editor;
    host::Scene scene = editor.Scene();
    scene.FindTrack(editor.Id("Motion"))->keys[0].clip->length = 19;
    QVERIFY(editor.window.SetScene(scene));
    VERIFY_RUNS(editor, "drag Motion 19 end by 26");
    QCOMPARE(editor.KeysOf("Motion")[0].clip->loops, 3);
    QCOMPARE(editor.KeysOf("Motion")[0].frame, 0);
}

void tst_ScriptRunner::dragsTheHandleOfABlend()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "drag \"Motion Blend\" 12 by 8");
    QCOMPARE(editor.KeysOf("MotionBlend")[0].transition->frames, 20);
}

void tst_ScriptRunner::dragsAMarkerOnTheRuler()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "frame 50\ndrag ruler 0 start by 10\nexpect frame 50");
    QCOMPARE(editor.Scene().timeMark.start, 10);
}

void tst_ScriptRunner::scrubsOnTheRuler()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "frame 50\ndrag ruler 50 by -20\nexpect frame 30");
    QVERIFY(editor.Scene() == EditorFixture::Sample());
}

void tst_ScriptRunner::worksOnRowsThatAreScrolledOutOfSight()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "size 1280x400\ndrag \"Left Arm\" 15 by 4\nframe 20\n"
                        "drag \"Left Arm\" 19 by 4\nexpect key \"Left Arm\" 23\nexpect frame 23");
}

void tst_ScriptRunner::choosesFromTheMenus()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "select \"Left Arm\" 15\nmenu \"Edit > Delete\"\n"
                        "menu \"Edit > Undo\"\n" // goes on with what it undoes
                        "menu \"View > Skin > High Contrast\"\nmenu \"Timeline>Mute Row\"");
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 30, 45, 60, 75, 90}));
    QVERIFY(editor.window.Skin().endsWith(QLatin1String("contrast.ini")));
    QVERIFY(editor.Scene().FindTrack(editor.Id("LeftArm"))->muted);
}

void tst_ScriptRunner::choosesFromTheMenuOfARow()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "row-menu \"Left Arm\" Solo");
    QVERIFY(editor.Scene().FindTrack(editor.Id("LeftArm"))->soloed);
    VERIFY_RUNS(editor, "row-menu \"Left Arm\" 15 Delete\nexpect no-key \"Left Arm\" 15\n"
                        "key Ctrl+Z\nexpect key \"Left Arm\" 15"); // keys work afterwards
    QCOMPARE(editor.Run("row-menu \"Left Arm\" 20 Paste"),
             QStringLiteral("1: the entry \"Paste\" of the row's menu cannot be chosen now"));
    QVERIFY(!QApplication::activePopupWidget());
    QCOMPARE(editor.Run("row-menu \"Left Arm\" Fly"),
             QStringLiteral("1: the row's menu has no entry \"Fly\""));
    QCOMPARE(editor.Run("row-menu Layers Solo"), QStringLiteral("1: the row has no menu"));
    QVERIFY(!QApplication::activePopupWidget());
}

void tst_ScriptRunner::strikesKeys()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "select \"Left Arm\" 15\nkey Ctrl+X\nexpect no-key \"Left Arm\" 15\n"
                        "frame 20\nkey Ctrl+V\nexpect key \"Left Arm\" 20\n"
                        "key End\nexpect frame 90\n" // the timeline's own
                        "key \"Home, Right\"\nexpect frame 1");
    QCOMPARE(editor.Run("key Hyper+Q"),
             QStringLiteral("1: expected keys such as Ctrl+Z, found \"Hyper+Q\""));
}

void tst_ScriptRunner::undoesAndRedoes()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "drag \"Left Arm\" 15 by 4\nundo\nexpect key \"Left Arm\" 15\n"
                        "expect status \"Undone: Move 1 key by 4 frames\"\n"
                        "redo\nexpect key \"Left Arm\" 19\nundo");
    QVERIFY(editor.Scene() == EditorFixture::Sample());
    QCOMPARE(editor.Run("undo"),
             QStringLiteral("1: the menu entry \"Edit > Undo\" cannot be chosen now"));
    QCOMPARE(editor.Run("redo\nredo"),
             QStringLiteral("2: the menu entry \"Edit > Redo\" cannot be chosen now"));
}

void tst_ScriptRunner::tellsWhatThePointerIsOver()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "hover \"Left Arm\" 15");
    bool isTold = false;
    for (const QLabel* const label : editor.window.statusBar()->findChildren<QLabel*>())
        isTold = isTold || label->text().startsWith(QLatin1String("Left Arm   frame 15 "));
    QVERIFY(isTold);
}

void tst_ScriptRunner::playsForATimeAndPauses()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "play 300");
    QVERIFY(!editor.window.Player().Player().IsPlaying());
    const int frame = editor.Timeline().GetCurrentFrame();
    QVERIFY2(frame >= 5, qPrintable(QString::number(frame))); // of 9; the machine may be busy
}

void tst_ScriptRunner::playsOnUntilItIsPaused()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "play\nplay");
    QVERIFY(editor.window.Player().Player().IsPlaying());
    VERIFY_RUNS(editor, "pause\npause");
    QVERIFY(!editor.window.Player().Player().IsPlaying());
}

void tst_ScriptRunner::waits()
{
    ScriptedEditor editor;
    QElapsedTimer timer;
    timer.start();
    VERIFY_RUNS(editor, "wait 120");
    QVERIFY(timer.elapsed() >= 120);
}

void tst_ScriptRunner::resizesTheWindow()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "size 900x600");
    QCOMPARE(editor.window.size(), QSize(900, 600));
}

void tst_ScriptRunner::showsASkin()
{
    ScriptedEditor editor;
    const QByteArray skin = BytesOf(QStringLiteral(KESTOVA_SKINS_DIR "/contrast.ini"));
    QVERIFY(editor.Write(QStringLiteral("scripts/mine.ini"), skin)); // beside the script
    QVERIFY(editor.Write(QStringLiteral("scripts/poor.ini"), "[TickTrack]\n"));
    VERIFY_RUNS(editor, "skin mine.ini");
    QVERIFY(editor.window.Skin().endsWith(QLatin1String("scripts/mine.ini")));
    QVERIFY(editor.Run("skin poor.ini")
                .endsWith(QLatin1String("poor.ini: expected a skin with every section and key")));
}

void tst_ScriptRunner::writesPicturesOfTheWindowAndItsParts()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "screenshot whole.png\nscreenshot same.png window\nframe 20\n"
                        "screenshot later.png\nscreenshot timeline.png timeline\n"
                        "screenshot preview.png preview\nscreenshot face.png face\n"
                        "screenshot figure.png figure");
    const QImage whole = editor.Picture(QStringLiteral("whole.png"));
    QCOMPARE(whole.size(), editor.window.size());
    QVERIFY(whole == editor.Picture(QStringLiteral("same.png")));
    QVERIFY(whole != editor.Picture(QStringLiteral("later.png")));
    const auto sizeOf = [&editor](const char* name) {
        return editor.Picture(QLatin1String(name)).size();
    };
    QCOMPARE(sizeOf("timeline.png"), editor.window.findChild<host::TimelinePane*>()->size());
    QCOMPARE(sizeOf("preview.png"), editor.window.centralWidget()->size());
    QCOMPARE(sizeOf("face.png"), editor.window.findChild<host::FaceView*>()->size());
    QVERIFY(sizeOf("figure.png").width() > sizeOf("face.png").width());
}

void tst_ScriptRunner::savesAndOpensAgain()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "drag \"Left Arm\" 15 by 4\nexpect unsaved\nsave scripts/out.ktl\n"
                        "expect saved\ndrag \"Left Arm\" 19 by 4\nsave\nexpect saved\n"
                        "drag \"Left Arm\" 23 by 4\nexpect unsaved\nopen out.ktl\nexpect saved\n"
                        "expect key \"Left Arm\" 23");
    QCOMPARE(editor.documents.Current().Path(), editor.settings.Path("scripts/out.ktl"));
    QVERIFY2(editor.people.asked.isEmpty(), qPrintable(editor.people.asked.join(u'\n')));
}

void tst_ScriptRunner::opensFilesBesideTheScript()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "save here.ktl"); // in the working directory
    QVERIFY(QFile::exists(editor.settings.Path("here.ktl")));
    const QString message = editor.Run("open here.ktl");
    QVERIFY2(message.startsWith(QLatin1String("1: here.ktl: ")), qPrintable(message));
    VERIFY_RUNS(editor, "open ../here.ktl");
}

void tst_ScriptRunner::importsFiles()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "menu \"File > New\"\nimport " + Sample("stroll.bvh") + ' ' +
                            Sample("greeting.json") +
                            "\nexpect status \"Import 2 Files\"\nexpect key \"Left Arm\" 15\n"
                            "undo\nredo");
    QCOMPARE(editor.Run("import none.bvh").left(3), QStringLiteral("1: "));
    QVERIFY(editor.Run("import none.bvh").contains(QLatin1String("expected a readable file")));
    QCOMPARE(editor.Run("import notes.txt"),
             QStringLiteral("1: expected motion captures (.bvh), mouth cues (.json, .tsv) or "
                            "sounds (.wav) to import"));
}

void tst_ScriptRunner::dropsASoundOnARow()
{
    ScriptedEditor editor;
    QVERIFY(editor.Write(QStringLiteral("scripts/hello.wav"), WavBytes(4000, 4000)));
    VERIFY_RUNS(editor, "drop hello.wav Sound 25\nexpect frame 25\nexpect key Sound 25");
    QCOMPARE(editor.KeysOf("Sound")[1].clip->length, 29);
    QCOMPARE(editor.Run("drop hello.wav \"Left Arm\" 25"),
             QStringLiteral("1: hello.wav: sounds go on a row of clips"));
    QVERIFY(editor.Write(QStringLiteral("scripts/poor.wav"), "RIFF"));
    QVERIFY(editor.Run("drop poor.wav Sound 25").contains(QLatin1String("poor.wav")));
}

void tst_ScriptRunner::givesTheWindowBackAtTheEnd()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "drag \"Left Arm\" 15 by 4");
    QVERIFY(editor.window.isVisible());
    QVERIFY(editor.people.asked.isEmpty());
    QVERIFY(!editor.window.close()); // people are asked again
    QCOMPARE(editor.people.asked, QStringList{"save Untitled?"});
    QMessageBox box(&editor.window);
    box.show();
    QTest::qWait(20);
    QVERIFY(box.isVisible());
}

void tst_ScriptRunner::quitsWithoutAsking()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "drag \"Left Arm\" 15 by 4\nquit\nexpect frame 80");
    QVERIFY(!editor.window.isVisible());
    QVERIFY(editor.people.asked.isEmpty());
}

void tst_ScriptRunner::stopsWhenTheWindowIsClosed()
{
    ScriptedEditor editor;
    QTimer::singleShot(50, &editor.window, &QWidget::close);
    VERIFY_RUNS(editor, "wait 200\nexpect frame 80");
}

void tst_ScriptRunner::stopsAtTheFirstFaultyCommand()
{
    ScriptedEditor editor;
    QCOMPARE(editor.Run("frame 5\n\n# far away\nframe 91\nframe 6"),
             QStringLiteral("4: the last frame is 90"));
    QTest::qWait(20);
    QCOMPARE(editor.Timeline().GetCurrentFrame(), 5);
}

void tst_ScriptRunner::says_data()
{
    QTest::addColumn<QByteArray>("commands");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* commands, const char* message) {
        QTest::newRow(commands) << QByteArray(commands) << QLatin1String("1: ") + message;
    };
    row("select Wings 3", "there is no row \"Wings\"");
    row("select \"Left Arm\" 16", "\"Left Arm\" has no key at frame 16");
    row("select \"Left Arm\" 91", "the last frame is 90");
    row("select Face 3", "the row \"Face\" is not shown");
    row("select ruler 3", "the ruler has nothing to select");
    row("drag \"Left Arm\" 17 by 2", "nothing of \"Left Arm\" could be dragged at frame 17");
    row("drag Wings 17 by 2", "there is no row \"Wings\"");
    row("hover \"Left Arm\" 91", "the last frame is 90");
    row("drop a.wav Wings 3", "there is no row \"Wings\"");
    row("menu \"Edit > Fly\"", "there is no menu entry \"Edit > Fly\"");
    row("menu Fly", "there is no menu entry \"Fly\"");
    row("menu \"Edit > Undo > Fly\"", "the menu entry \"Edit > Undo > Fly\" cannot be chosen now");
    row("menu \"View > Skin\"", "\"View > Skin\" is a menu, not an entry");
    row("menu \"File > Save\"", "expected a file to save in: save FILE");
    row("menu \"File > Open\"", "expected a file to open: open FILE");
    row("save", "expected a file to save in: save FILE");
    row("screenshot no/such/a.png", "");
    row("expect frame 3", "expected frame 3, found 0");
    row("expect key Lips 89", "expected a key of \"Lips\" at frame 89");
    row("expect no-key \"Left Arm\" 15", "expected no key of \"Left Arm\" at frame 15");
    row("expect key Wings 3", "there is no row \"Wings\"");
    row("expect selected 2", "expected selected keys: 2, found 0");
    row("expect status Gone", "expected the status \"Gone\", found \"\"");
    row("expect unsaved", "expected changes that are not saved, found none");
}

void tst_ScriptRunner::says()
{
    QFETCH(QByteArray, commands);
    QFETCH(QString, message);
    ScriptedEditor editor;
    if (commands.startsWith("screenshot"))
        message += editor.settings.Path("no/such/a.png: expected a file that can be written");
    QCOMPARE(editor.Run(commands), message);
}

void tst_ScriptRunner::saysWhatADialogWouldHaveAsked()
{
    ScriptedEditor editor;
    AddDialog(editor.window);
    QCOMPARE(editor.Run("menu \"File > Ask\""),
             QStringLiteral("1: a dialog came up that nobody answers: Are you sure?"));
    QCOMPARE(editor.Run("menu \"Help > About Kestova Host\""),
             QStringLiteral("1: a dialog came up that nobody answers: About Kestova Host"));
    QCOMPARE(editor.Run("menu \"File > Import\""),
             QStringLiteral("1: a dialog came up that nobody answers: Import"));
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_ScriptRunner::saysThatADocumentIsDamaged()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "save scripts/cut.ktl\ndrag \"Left Arm\" 15 by 4");
    QVERIFY(QFile::resize(editor.settings.Path("scripts/cut.ktl"), 1000));
    const QString message = editor.Run("open cut.ktl");
    QVERIFY2(message.startsWith(QLatin1String("1: cut.ktl: line ")), qPrintable(message));
    QCOMPARE(editor.FramesOf("LeftArm").at(1), 19); // what was open still is
    QVERIFY(editor.people.asked.isEmpty());
}

void tst_ScriptRunner::leavesWorkOfAnEarlierRunAlone()
{
    ScriptedEditor editor;
    VERIFY_RUNS(editor, "save scripts/left.ktl");
    const QString left = editor.settings.Path("scripts/left.ktl.recovery");
    QVERIFY(QFile::copy(editor.settings.Path("scripts/left.ktl"), left));
    VERIFY_RUNS(editor, "open left.ktl\nexpect saved");
    QVERIFY(QFile::exists(left));
    QVERIFY(editor.people.asked.isEmpty());
}

QTEST_MAIN(tst_ScriptRunner)
#include "tst_ScriptRunner.moc"
