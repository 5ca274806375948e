#include "HandledEditor.h"

#include <QTemporaryDir>

using Frames = QVector<int>;

class tst_HostGestures : public QObject
{
    Q_OBJECT

private slots:
    void scrubbingMovesTheFrameDisplay();
    void draggingAKeyMovesItInTheScene();
    void draggingSelectedKeysOfTwoRowsMovesBoth();
    void draggingStopsAtTheLastFrame();
    void draggingAKeyOntoAnotherReplacesIt();
    void draggingWithControlCopies();
    void draggingAMouthShapeMovesItInItsLine();
    void draggingAClipsEndLoopsIt();
    void draggingAClipsEndChangesItsSpeed();
    void draggingAClipsLeadInTrimsIt();
    void draggingABlendsHandleLengthensIt();
    void clickingASwitchHidesItsRows();
    void draggingARulerMarkerMovesIt();
    void theMenuOfARowCopiesAndPastes();
    void theEditMenuBreaksAClip();
    void theKeysOfTheEditMenuWork();
    void theKeysOfTheEditMenuWorkAfterARowsMenuWasClosed();
    void theEditMenuFollowsTheSelection();
    void theEditMenuFollowsTheFrameThatTheHostGoesTo();
    void droppingASoundPlacesAClip();
    void droppingSomethingElseIsRefused();
};

void tst_HostGestures::scrubbingMovesTheFrameDisplay()
{
    HandledEditor editor;
    // A row without edit modes is for scrubbing; so is the empty part of any other.
    const host::Scene before = editor.Scene();
    editor.pointer.Press(editor.WidgetOf("LeftArm"), editor.At("LeftArm", 20));
    QCOMPARE(editor.FrameText(), QStringLiteral("Frame 20 of 90   00:00:20"));
    editor.pointer.Release();
    QCOMPARE(editor.Timeline().GetCurrentFrame(), 20);
    editor.pointer.Click(editor.WidgetOf("LeftArm"), editor.At("LeftArm", 33));
    QCOMPARE(editor.FrameText(), QStringLiteral("Frame 33 of 90   00:01:03"));
    QVERIFY(editor.Scene() == before);
}

void tst_HostGestures::draggingAKeyMovesItInTheScene()
{
    HandledEditor editor;
    QWidget* const row = editor.WidgetOf("LeftArm");
    editor.pointer.Press(row, editor.At("LeftArm", 15));
    editor.pointer.MoveTo(row, editor.At("LeftArm", 18));
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 18, 30, 45, 60, 75, 90}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    editor.pointer.MoveTo(row, editor.At("LeftArm", 12));
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 12, 30, 45, 60, 75, 90}));
    editor.pointer.Release();
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 12, 30, 45, 60, 75, 90}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    QCOMPARE(editor.SelectedFrames("LeftArm"), (Frames{12}));
    QCOMPARE(editor.StatusText(), QStringLiteral("Move 1 key back by 3 frames"));
}

void tst_HostGestures::draggingSelectedKeysOfTwoRowsMovesBoth()
{
    HandledEditor editor;
    editor.Select("LeftArm", {1});
    editor.SelectToo("Spine", {1});
    editor.Drag("LeftArm", editor.At("LeftArm", 15), {editor.At("LeftArm", 17)});
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 17, 30, 45, 60, 75, 90}));
    QCOMPARE(editor.FramesOf("Spine"), (Frames{0, 17, 23, 30, 38, 45, 53, 60, 68, 75, 90}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostGestures::draggingStopsAtTheLastFrame()
{
    HandledEditor editor;
    editor.Drag("LeftArm", editor.At("LeftArm", 75),
                {editor.At("LeftArm", 80), editor.At("LeftArm", 100)});
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 30, 45, 60, 90}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostGestures::draggingAKeyOntoAnotherReplacesIt()
{
    HandledEditor editor;
    const host::KeyId moved = editor.KeysOf("LeftArm")[1].id;
    editor.Drag("LeftArm", editor.At("LeftArm", 15),
                {editor.At("LeftArm", 45), editor.At("LeftArm", 30)});
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 30, 45, 60, 75, 90}));
    QCOMPARE(editor.KeysOf("LeftArm")[1].id, moved);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostGestures::draggingWithControlCopies()
{
    HandledEditor editor;
    editor.Select("LeftArm", {1, 2});
    editor.pointer.modifiers = Qt::ControlModifier;
    editor.Drag("LeftArm", editor.At("LeftArm", 15),
                {editor.At("LeftArm", 20), editor.At("LeftArm", 22)});
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 22, 30, 37, 45, 60, 75, 90}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    QCOMPARE(editor.SelectedFrames("LeftArm"), (Frames{22, 37}));
    QCOMPARE(editor.StatusText(), QStringLiteral("Copy 2 keys to frame 22"));
}

void tst_HostGestures::draggingAMouthShapeMovesItInItsLine()
{
    HandledEditor editor;
    const QVector<host::SceneKey> before = editor.KeysOf("Lips")[0].subKeys;
    int lonely = 1; // a shape with room behind it
    while (before[lonely + 1].frame - before[lonely].frame < 6)
        ++lonely;
    const int frame = before[lonely].frame;
    editor.Drag("Lips", editor.At("Lips", frame), {editor.At("Lips", frame + 2)});
    QCOMPARE(editor.KeysOf("Lips")[0].subKeys[lonely].frame, frame + 2);
    QCOMPARE(editor.FramesOf("Lips"), (Frames{0}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostGestures::draggingAClipsEndLoopsIt()
{
    HandledEditor editor;
    host::Scene scene = editor.Scene();
    scene.FindTrack(editor.Id("Motion"))->keys[0].clip->length = 19;
    QVERIFY(editor.window.SetScene(scene));
    QCoreApplication::processEvents();
    editor.Drag("Motion", editor.EdgeOf("Motion", 19),
                {editor.At("Motion", 30), editor.At("Motion", 70), editor.At("Motion", 45)});
    QCOMPARE(editor.KeysOf("Motion")[0].clip->loops, 3);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    QCOMPARE(editor.StatusText(), QStringLiteral("Loop clip 3 times"));
}

void tst_HostGestures::draggingAClipsEndChangesItsSpeed()
{
    HandledEditor editor;
    host::Scene scene = editor.Scene();
    host::SceneTrack& row = *scene.FindTrack(editor.Id("Motion"));
    row.keys[0].clip->length = 29;
    row.keys[0].clip->longest = 50;
    QVERIFY(editor.window.SetScene(scene));
    QCoreApplication::processEvents();
    for (QAction* const action : editor.window.findChildren<QAction*>()) {
        if (host::PlainText(*action) == QLatin1String("Speed"))
            action->trigger(); // the end of a clip loops it otherwise
    }
    editor.Drag("Motion", editor.EdgeOf("Motion", 29),
                {editor.EdgeOf("Motion", 34), editor.EdgeOf("Motion", 39)});
    QCOMPARE(editor.KeysOf("Motion")[0].clip->length, 39);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    editor.Drag("Motion", editor.EdgeOf("Motion", 39),
                {editor.EdgeOf("Motion", 44), editor.EdgeOf("Motion", 80)});
    QCOMPARE(editor.KeysOf("Motion")[0].clip->length, 50);
    QCOMPARE(editor.StatusText(), QStringLiteral("Slow clip down by 11 frames"));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostGestures::draggingAClipsLeadInTrimsIt()
{
    HandledEditor editor;
    host::Scene scene = editor.Scene();
    host::SceneKey& clip = scene.FindTrack(editor.Id("Motion"))->keys[0];
    clip.frame = 20;
    clip.clip->leadIn = 4;
    QVERIFY(editor.window.SetScene(scene));
    QCoreApplication::processEvents();
    editor.Select("Motion", {0});
    const int y = editor.WidgetOf("Motion")->height() / 2;
    const auto edge = [y](int leadIn) { return QPoint((20 - leadIn) * kPixelsPerFrame, y); };
    editor.Drag("Motion", edge(4), {edge(7), edge(9)});
    QCOMPARE(editor.KeysOf("Motion")[0].clip->leadIn, 9);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    editor.Drag("Motion", edge(9), {edge(5), edge(-10)});
    QCOMPARE(editor.KeysOf("Motion")[0].clip->leadIn, 0);
    QCOMPARE(editor.StatusText(), QStringLiteral("Give 9 frames back to clip's start"));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostGestures::draggingABlendsHandleLengthensIt()
{
    HandledEditor editor;
    // The blend out of the first key ends at frame 12.
    editor.Drag("MotionBlend", editor.At("MotionBlend", 12),
                {editor.At("MotionBlend", 15), editor.At("MotionBlend", 20)});
    QCOMPARE(editor.KeysOf("MotionBlend")[0].transition->frames, 20);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    QCOMPARE(editor.StatusText(), QStringLiteral("Lengthen blend by 8 frames"));
}

void tst_HostGestures::clickingASwitchHidesItsRows()
{
    HandledEditor editor;
    const auto place = [&editor] {
        return editor.Timeline().GetChildTrackSortIndex(editor.Row("Lips"));
    };
    QWidget* const layers = editor.WidgetOf("Layers");
    const QPoint lips(60, layers->height() / 2);
    editor.pointer.Click(layers, lips);
    QCOMPARE(place(), -1);
    QVERIFY(!editor.Scene().FindTrack(editor.Id("Layers"))->buttons[0].on);
    editor.pointer.Click(layers, lips);
    QCOMPARE(place(), 0);
    QVERIFY(editor.Scene().FindTrack(editor.Id("Layers"))->buttons[0].on);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostGestures::draggingARulerMarkerMovesIt()
{
    HandledEditor editor;
    QWidget* const ruler = editor.Ruler(); // its marker's tip stands low
    editor.Timeline().SetCurrentFrame(50); // its thumb would otherwise lie above the marker
    bool isMoved = false;
    for (int y = ruler->height() - 1; y >= 0 && !isMoved; --y) {
        editor.pointer.Press(ruler, QPoint(4, y));
        editor.pointer.MoveTo(ruler, QPoint(105, y));
        editor.pointer.Release();
        isMoved = editor.Scene().timeMark.start > 0;
    }
    QCOMPARE(editor.Scene().timeMark.start, 10);
    QCOMPARE(editor.Scene().timeMark.end, 90);
    QCOMPARE(editor.StatusText(), QStringLiteral("Move start marker to frame 10"));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostGestures::theMenuOfARowCopiesAndPastes()
{
    HandledEditor editor;
    editor.Choose("LeftArm", editor.At("LeftArm", 15), QStringLiteral("Copy"));
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 30, 45, 60, 75, 90}));
    editor.pointer.Click(editor.WidgetOf("LeftArm"), editor.At("LeftArm", 20));
    editor.Choose("LeftArm", editor.At("LeftArm", 20), QStringLiteral("Paste"));
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 20, 30, 45, 60, 75, 90}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    QCOMPARE(editor.SelectedFrames("LeftArm"), (Frames{20}));
    editor.Choose("LeftArm", editor.At("LeftArm", 20), QStringLiteral("Delete"));
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 30, 45, 60, 75, 90}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostGestures::theEditMenuBreaksAClip()
{
    HandledEditor editor;
    editor.pointer.Click(editor.WidgetOf("Motion"), editor.At("Motion", 40));
    editor.pointer.Click(editor.WidgetOf("Motion"), editor.At("Motion", 40));
    editor.Timeline().SetCurrentFrame(40); // a click on a clip makes its first frame current
    editor.Command(QStringLiteral("Break"))->trigger();
    QCOMPARE(editor.FramesOf("Motion"), (Frames{0, 40}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostGestures::theKeysOfTheEditMenuWork()
{
    HandledEditor editor;
    QWidget* const row = editor.WidgetOf("LeftArm");
    editor.pointer.Click(row, editor.At("LeftArm", 15));
    QTest::keyClick(&editor.window, Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 30, 45, 60, 75, 90}));
    editor.pointer.Click(row, editor.At("LeftArm", 10));
    QTest::keyClick(&editor.window, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 10, 30, 45, 60, 75, 90}));
    QTest::keyClick(&editor.window, Qt::Key_Delete);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 30, 45, 60, 75, 90}));
    QTest::keyClick(&editor.window, Qt::Key_Insert);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 10, 30, 45, 60, 75, 90}));
    QTest::keyClick(&editor.window, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(editor.SelectedFrames("LeftArm"), (Frames{0, 10, 30, 45, 60, 75, 90}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostGestures::theKeysOfTheEditMenuWorkAfterARowsMenuWasClosed()
{
    HandledEditor editor;
    editor.WithMenu("LeftArm", editor.At("LeftArm", 15), [](QMenu& menu) {
        for (const QAction* const action : menu.actions()) // the window has them
            QVERIFY2(action->shortcut().isEmpty(), qPrintable(action->text()));
    });
    QTest::keyClick(&editor.window, Qt::Key_Delete);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 30, 45, 60, 75, 90}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostGestures::theEditMenuFollowsTheSelection()
{
    HandledEditor editor;
    QAction* const copy = editor.Command(QStringLiteral("Copy"));
    QAction* const paste = editor.Command(QStringLiteral("Paste"));
    QAction* const insert = editor.Command(QStringLiteral("Insert Key"));
    QWidget* const row = editor.WidgetOf("LeftArm");
    editor.pointer.Click(row, editor.At("LeftArm", 20));
    QVERIFY(!copy->isEnabled());
    QVERIFY(!paste->isEnabled());
    QVERIFY(insert->isEnabled());
    editor.pointer.Click(row, editor.At("LeftArm", 15));
    QVERIFY(copy->isEnabled());
    QVERIFY(!insert->isEnabled());
    copy->trigger();
    QVERIFY(paste->isEnabled());
}

void tst_HostGestures::theEditMenuFollowsTheFrameThatTheHostGoesTo()
{
    HandledEditor editor;
    QAction* const breakClip = editor.Command(QStringLiteral("Break"));
    editor.pointer.Click(editor.WidgetOf("Motion"), editor.At("Motion", 0));
    QVERIFY(!breakClip->isEnabled()); // at the clip's edge
    editor.window.GotoFrame(30);
    QVERIFY(breakClip->isEnabled());
    QTest::keyClick(&editor.window, Qt::Key_B, Qt::ControlModifier);
    QCOMPARE(editor.FramesOf("Motion"), (Frames{0, 30}));
}

void tst_HostGestures::droppingASoundPlacesAClip()
{
    HandledEditor editor;
    QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("hello.wav")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(WavBytes(4000, 4000));
    file.close();
    QVERIFY(editor.DropFile("Sound", editor.At("Sound", 25), file.fileName()));
    QCOMPARE(editor.FramesOf("Sound"), (Frames{0, 25})); // behind the spoken line
    QCOMPARE(editor.KeysOf("Sound")[1].clip->length, 29);
    QCOMPARE(editor.SelectedFrames("Sound"), (Frames{25}));
    QVERIFY(editor.Timeline().GetActiveChildTrack() == editor.Row("Sound"));
    QCOMPARE(editor.Timeline().GetCurrentFrame(), 25);
    QCOMPARE(editor.StatusText(), QStringLiteral("Drop hello.wav: the end of greeting is covered"));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostGestures::droppingSomethingElseIsRefused()
{
    HandledEditor editor;
    const host::Scene before = editor.Scene();
    QVERIFY(!editor.DropFile("Sound", editor.At("Sound", 25), QStringLiteral("/tmp/a.kxmotion")));
    QCOMPARE(editor.StatusText(), QStringLiteral("a.kxmotion: expected a sound file (.wav)"));
    QVERIFY(!editor.DropFile("LeftArm", editor.At("LeftArm", 25), QStringLiteral("/tmp/a.wav")));
    QCOMPARE(editor.StatusText(), QStringLiteral("a.wav: sounds go on a row of clips"));
    QVERIFY(editor.Scene() == before);
}

QTEST_MAIN(tst_HostGestures)
#include "tst_HostGestures.moc"
