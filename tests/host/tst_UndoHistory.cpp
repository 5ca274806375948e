#include "UndoWitness.h"

#include "playback/Transport.h"

#include <QTemporaryDir>

using Frames = QVector<int>;

namespace {

constexpr int kPatience = 30000; // milliseconds; the sanitized program is slow

struct UndoEditor : WitnessedEditor
{
    /// As the row's menu has it done.
    void ChooseDelete(const char* row)
    {
        Timeline().ReceiveMessage(1311, Row(row), nullptr, 0, TL_EDIT_DELETE, 0);
    }
    void ClickCaption(const char* name, int x)
    {
        QWidget* const row = WidgetOf(name);
        pointer.Click(row->parentWidget(), QPoint(x, row->y() + row->height() / 2));
    }
    /// The first button of the row of layers: the lips.
    void ClickLipsSwitch()
    {
        QWidget* const layers = WidgetOf("Layers");
        pointer.Click(layers, QPoint(60, layers->height() / 2));
    }
    QString LastEntry() { return Stack().undoText(); }
};

// Pixels from the left edge of a caption to the middle of its buttons.
constexpr int kMute = 140;
constexpr int kLock = 159;

} // namespace

class tst_UndoHistory : public QObject
{
    Q_OBJECT

private slots:
    void aDragIsUndoneAsAWhole();
    void anUndoneEditBringsBackSelectionAndFrame();
    void aDragOfCopiesIsOneEntry();
    void anUndoneSwitchShowsItsRowsAgain();
    void anUndoneMarkerGoesBack();
    void anUndoneLengthIsShownAtOnce();
    void theMenuSaysWhatWillBeUndone();
    void aDragThereAndBackLeavesTheMenuAsItWas();
    void theMenuShowsNamesAsTheyAre();
    void undoDuringADragEndsItFirst();
    void undoDuringADragOfCopiesEndsItFirst();
    void undoWithNothingToUndoDoesNothing();
    void addedRowsAreTakenAwayAgain();
    void anotherSceneForgetsWhatWasDone();
    void anUndoneDragGivesBackWhatWasSelectedBeforeItsPress();
    void aKeyAfterAClickStartsFromWhatTheClickSelected();
    void anUndoneDropGivesBackFrameAndActiveRow();
    void anUndoneSwitchGivesBackTheActiveRow();
    void anUndoneLockLetsTheRowBeEditedAgain();
    void aGestureThatEndsWhereItStartedLeavesNoEntry_data();
    void aGestureThatEndsWhereItStartedLeavesNoEntry();
    void pastingKeysOverThemselvesLeavesNoEntry();
    void aMarkerThatIsBroughtBackLeavesNoEntry();
    void entriesSayWhatTheGestureDid();
    void aCommandDuringADragIsAnEntryOfItsOwn();
    void editsWhilePlayingAreUndoneWhilePlaying();
    void aDragWhilePlayingIsOneEntry();
};

void tst_UndoHistory::aDragIsUndoneAsAWhole()
{
    UndoEditor editor;
    const host::Scene before = editor.Scene();
    editor.Drag("LeftArm", editor.At("LeftArm", 15),
                {editor.At("LeftArm", 17), editor.At("LeftArm", 30), editor.At("LeftArm", 20)});
    QCOMPARE(editor.Stack().count(), 1);
    QCOMPARE(editor.Stack().undoText(), QStringLiteral("Move 1 key by 5 frames"));
    const host::Scene after = editor.Scene();
    editor.PressUndo();
    QVERIFY(editor.Scene() == before);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    QCOMPARE(editor.StatusText(), QStringLiteral("Undone: Move 1 key by 5 frames"));
    editor.PressRedo();
    QVERIFY(editor.Scene() == after);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    QCOMPARE(editor.StatusText(), QStringLiteral("Redone: Move 1 key by 5 frames"));
    editor.PressUndo();
    QTest::keyClick(&editor.window, Qt::Key_Y, Qt::ControlModifier);
    QVERIFY(editor.Scene() == after);
}

void tst_UndoHistory::anUndoneEditBringsBackSelectionAndFrame()
{
    UndoEditor editor;
    editor.Select("LeftArm", {1, 2});
    editor.SelectToo("Spine", {3});
    editor.Timeline().SetCurrentFrame(40);
    editor.ChooseDelete("LeftArm");
    QCOMPARE(editor.Stack().undoText(), QStringLiteral("Delete 3 keys"));
    QCoreApplication::processEvents(); // what changes from now on is no part of it
    editor.Select("MotionBlend", {0});
    editor.Timeline().SetCurrentFrame(3);
    editor.PressUndo();
    QCOMPARE(editor.SelectedFrames("LeftArm"), (Frames{15, 30}));
    QCOMPARE(editor.SelectedFrames("Spine"), (Frames{30}));
    QCOMPARE(editor.SelectedFrames("MotionBlend"), Frames());
    QVERIFY(editor.Timeline().GetActiveChildTrack() == editor.Row("LeftArm"));
    QCOMPARE(editor.Timeline().GetCurrentFrame(), 40);
    editor.Timeline().SetCurrentFrame(3);
    editor.PressRedo();
    QCOMPARE(editor.SelectedFrames("LeftArm"), Frames());
    QCOMPARE(editor.Timeline().GetCurrentFrame(), 40);
}

void tst_UndoHistory::aDragOfCopiesIsOneEntry()
{
    UndoEditor editor;
    editor.Select("LeftArm", {1, 2});
    const host::Scene before = editor.Scene();
    editor.pointer.modifiers = Qt::ControlModifier;
    editor.Drag("LeftArm", editor.At("LeftArm", 15), {editor.At("LeftArm", 22)});
    QCOMPARE(editor.Stack().count(), 1);
    QCOMPARE(editor.Stack().undoText(), QStringLiteral("Copy 2 keys to frame 22"));
    const int frame = editor.Timeline().GetCurrentFrame();
    editor.PressUndo();
    QVERIFY(editor.Scene() == before);
    QCOMPARE(editor.SelectedFrames("LeftArm"), (Frames{15, 30}));
    editor.PressRedo();
    QCOMPARE(editor.SelectedFrames("LeftArm"), (Frames{22, 37}));
    QCOMPARE(editor.Timeline().GetCurrentFrame(), frame);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_UndoHistory::anUndoneSwitchShowsItsRowsAgain()
{
    UndoEditor editor;
    QWidget* const layers = editor.WidgetOf("Layers");
    editor.pointer.Click(layers, QPoint(60, layers->height() / 2));
    QCOMPARE(editor.Timeline().GetChildTrackSortIndex(editor.Row("Lips")), -1);
    editor.PressUndo();
    QCOMPARE(editor.Timeline().GetChildTrackSortIndex(editor.Row("Lips")), 0);
    std::vector<_tmpTLSwitchBtnData> buttons;
    QVERIFY(editor.Timeline().GetTrackSwitchBtnList(editor.Row("Layers"), buttons));
    QVERIFY(buttons[0].state >= 2);
    editor.PressRedo();
    QCOMPARE(editor.Timeline().GetChildTrackSortIndex(editor.Row("Lips")), -1);
}

void tst_UndoHistory::anUndoneMarkerGoesBack()
{
    UndoEditor editor;
    editor.Timeline().ReceiveMessage(1304, nullptr, nullptr, 0, 0, 14);
    QCOMPARE(editor.Scene().timeMark.start, 14);
    editor.PressUndo();
    QCOMPARE(editor.Scene().timeMark.start, 0);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_UndoHistory::anUndoneLengthIsShownAtOnce()
{
    UndoEditor editor;
    host::Scene longer = editor.Scene();
    longer.frameCount += 100;
    editor.window.Session().Apply(QStringLiteral("Lengthen"), longer);
    editor.PressUndo();
    QCOMPARE(editor.FrameText(), QStringLiteral("Frame 0 of 90   00:00:00"));
    editor.PressRedo();
    QCOMPARE(editor.FrameText(), QStringLiteral("Frame 0 of 190   00:00:00"));
    QCOMPARE(editor.Timeline().GetFrameCount(), 191);
    editor.Timeline().SetCurrentFrame(150); // there are fewer after the next undo
    editor.PressUndo();
    QCOMPARE(editor.Timeline().GetCurrentFrame(), 0);
    QCOMPARE(editor.FrameText(), QStringLiteral("Frame 0 of 90   00:00:00"));
}

void tst_UndoHistory::theMenuSaysWhatWillBeUndone()
{
    UndoEditor editor;
    QVERIFY(!editor.Command(QStringLiteral("Undo"))->isEnabled());
    QVERIFY(!editor.Command(QStringLiteral("Redo"))->isEnabled());
    editor.Drag("LeftArm", editor.At("LeftArm", 15), {editor.At("LeftArm", 20)});
    QAction* const undo = editor.Command(QStringLiteral("Undo Move 1 key by 5 frames"));
    QVERIFY(undo->isEnabled());
    undo->trigger();
    QVERIFY(!editor.Command(QStringLiteral("Undo"))->isEnabled());
    QVERIFY(editor.Command(QStringLiteral("Redo Move 1 key by 5 frames"))->isEnabled());
}

void tst_UndoHistory::aDragThereAndBackLeavesTheMenuAsItWas()
{
    UndoEditor editor;
    editor.Drag("LeftArm", editor.At("LeftArm", 15), {editor.At("LeftArm", 20)});
    editor.PressUndo();
    const host::Scene before = editor.Scene();
    editor.Drag("LeftArm", editor.At("LeftArm", 15),
                {editor.At("LeftArm", 18), editor.At("LeftArm", 15)});
    QVERIFY(editor.Scene() == before);
    QVERIFY(!editor.Command(QStringLiteral("Undo"))->isEnabled());
    QVERIFY(editor.Command(QStringLiteral("Redo Move 1 key by 5 frames"))->isEnabled());
    editor.PressRedo();
    QVERIFY(editor.Scene() != before);
}

void tst_UndoHistory::theMenuShowsNamesAsTheyAre()
{
    UndoEditor editor;
    host::Scene scene = editor.Scene();
    ++scene.frameCount;
    editor.window.Session().Apply(QStringLiteral("Add Tom & Ann"), scene);
    QVERIFY(editor.Command(QStringLiteral("Undo Add Tom & Ann"))->isEnabled());
    editor.PressUndo();
    QVERIFY(editor.Command(QStringLiteral("Redo Add Tom & Ann"))->isEnabled());
}

void tst_UndoHistory::undoDuringADragEndsItFirst()
{
    UndoEditor editor;
    const host::Scene before = editor.Scene();
    QWidget* const row = editor.WidgetOf("LeftArm");
    editor.pointer.Press(row, editor.At("LeftArm", 15));
    editor.pointer.MoveTo(row, editor.At("LeftArm", 20));
    editor.PressUndo();
    QCoreApplication::processEvents();
    QVERIFY(editor.Scene() == before);
    QVERIFY(!editor.window.Session().IsOpen());
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    editor.pointer.MoveTo(row, editor.At("LeftArm", 25));
    editor.pointer.Release();
    QVERIFY(editor.Scene() == before);
    QCOMPARE(editor.Stack().count(), 1);
    editor.PressRedo();
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 20, 30, 45, 60, 75, 90}));
    // The timeline has the keyboard again.
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_End);
    QCOMPARE(editor.Timeline().GetCurrentFrame(), 90);
}

void tst_UndoHistory::undoDuringADragOfCopiesEndsItFirst()
{
    UndoEditor editor;
    editor.Drag("LeftArm", editor.At("LeftArm", 75), {editor.At("LeftArm", 80)});
    const host::Scene before = editor.Scene();
    QWidget* const row = editor.WidgetOf("LeftArm");
    editor.pointer.modifiers = Qt::ControlModifier;
    editor.pointer.Press(row, editor.At("LeftArm", 15));
    editor.pointer.MoveTo(row, editor.At("LeftArm", 20));
    editor.PressUndo();
    QCoreApplication::processEvents();
    QVERIFY(editor.Scene() == before);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    editor.pointer.Release();
    QVERIFY(editor.Scene() == before);
    QCOMPARE(editor.Stack().count(), 2);
}

void tst_UndoHistory::undoWithNothingToUndoDoesNothing()
{
    UndoEditor editor;
    const UndoEditor::Moment before = editor.Now();
    editor.window.History().Undo();
    editor.window.History().Redo();
    QCOMPARE(UndoEditor::DifferenceOf(editor.Now(), before), QString());
}

void tst_UndoHistory::addedRowsAreTakenAwayAgain()
{
    UndoEditor editor;
    const host::Scene before = editor.Scene();
    host::Scene scene = before;
    host::SceneTrack row = *scene.FindTrack(editor.Id("Spine"));
    row.name = QStringLiteral("Tail");
    scene.AddTrack(row);
    scene.frameCount += 10;
    editor.window.Session().Begin();
    editor.window.Session().Step(QStringLiteral("Add Tail"), scene);
    editor.window.Session().Commit();
    editor.PressUndo();
    QVERIFY(editor.Scene() == before);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    QCOMPARE(editor.Timeline().GetFrameCount(), before.frameCount);
    editor.PressRedo();
    QVERIFY(editor.Scene() == scene);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    QVERIFY(editor.Row("Tail"));
    QCOMPARE(editor.Timeline().GetFrameCount(), scene.frameCount);
}

void tst_UndoHistory::anotherSceneForgetsWhatWasDone()
{
    UndoEditor editor;
    editor.Drag("LeftArm", editor.At("LeftArm", 15), {editor.At("LeftArm", 20)});
    QVERIFY(editor.window.SetScene(EditorFixture::Sample()));
    QCOMPARE(editor.Stack().count(), 0);
    const host::Scene before = editor.Scene();
    editor.PressUndo();
    QVERIFY(editor.Scene() == before);
}

void tst_UndoHistory::anUndoneDragGivesBackWhatWasSelectedBeforeItsPress()
{
    UndoEditor editor;
    editor.Select("Spine", {1, 2});
    editor.Timeline().SetCurrentFrame(40);
    const UndoEditor::Moment before = editor.Now();
    editor.Drag("LeftArm", editor.At("LeftArm", 15), {editor.At("LeftArm", 20)});
    QCOMPARE(editor.SelectedFrames("Spine"), Frames());
    const UndoEditor::Moment after = editor.Now();
    editor.PressUndo();
    QCOMPARE(UndoEditor::DifferenceOf(editor.Now(), before), QString());
    QCOMPARE(editor.SelectedFrames("Spine"), (Frames{15, 23}));
    QVERIFY(editor.Timeline().GetActiveChildTrack() == editor.Row("Spine"));
    QCOMPARE(editor.Timeline().GetCurrentFrame(), 40);
    editor.PressRedo();
    QCOMPARE(UndoEditor::DifferenceOf(editor.Now(), after), QString());
}

void tst_UndoHistory::aKeyAfterAClickStartsFromWhatTheClickSelected()
{
    UndoEditor editor;
    editor.Select("Spine", {1, 2});
    editor.pointer.Click(editor.WidgetOf("LeftArm"), editor.At("LeftArm", 15));
    QTest::keyClick(&editor.window, Qt::Key_Delete);
    QCOMPARE(editor.LastEntry(), QStringLiteral("Delete 1 key"));
    editor.PressUndo();
    QCOMPARE(editor.SelectedFrames("LeftArm"), Frames{15});
    QCOMPARE(editor.SelectedFrames("Spine"), Frames());
}

void tst_UndoHistory::anUndoneDropGivesBackFrameAndActiveRow()
{
    UndoEditor editor;
    editor.Select("LeftArm", {1});
    editor.Timeline().SetCurrentFrame(40);
    QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("hello.wav")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(WavBytes(4000, 4000));
    file.close();
    const UndoEditor::Moment before = editor.Now();
    QVERIFY(editor.DropFile("Sound", editor.At("Sound", 85), file.fileName()));
    QCoreApplication::processEvents();
    QCOMPARE(editor.LastEntry(), QStringLiteral("Drop hello.wav"));
    QCOMPARE(editor.Timeline().GetCurrentFrame(), 85);
    const UndoEditor::Moment after = editor.Now();
    editor.PressUndo();
    QCOMPARE(UndoEditor::DifferenceOf(editor.Now(), before), QString());
    editor.PressRedo();
    QCOMPARE(UndoEditor::DifferenceOf(editor.Now(), after), QString());
}

void tst_UndoHistory::anUndoneSwitchGivesBackTheActiveRow()
{
    UndoEditor editor;
    editor.Select("Lips", {});
    const UndoEditor::Moment before = editor.Now();
    editor.ClickLipsSwitch();
    const UndoEditor::Moment after = editor.Now();
    QVERIFY(editor.Timeline().GetActiveRootTrack() == editor.Row("Layers"));
    editor.PressUndo();
    QCOMPARE(UndoEditor::DifferenceOf(editor.Now(), before), QString());
    editor.PressRedo();
    QCOMPARE(UndoEditor::DifferenceOf(editor.Now(), after), QString());
    editor.PressUndo();
    QCOMPARE(UndoEditor::DifferenceOf(editor.Now(), before), QString());
}

void tst_UndoHistory::anUndoneLockLetsTheRowBeEditedAgain()
{
    UndoEditor editor;
    editor.ClickCaption("LeftArm", kLock);
    editor.PressUndo();
    int state = -1;
    editor.Timeline().GetTrackCaptionBtnState(editor.Row("LeftArm"), 2, state);
    QVERIFY(state < 2);
    editor.Drag("LeftArm", editor.At("LeftArm", 15), {editor.At("LeftArm", 20)});
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 20, 30, 45, 60, 75, 90}));
    editor.PressUndo();
    editor.ClickCaption("LeftArm", kMute);
    editor.PressUndo();
    editor.Timeline().GetTrackCaptionBtnState(editor.Row("LeftArm"), 1, state);
    QVERIFY(state < 2);
}

void tst_UndoHistory::aGestureThatEndsWhereItStartedLeavesNoEntry_data()
{
    QTest::addColumn<QByteArray>("row");
    QTest::addColumn<int>("pixel");
    QTest::addColumn<int>("way");  // pixels
    QTest::addColumn<int>("last"); // pixel
    QTest::addColumn<bool>("isCopy");
    constexpr int kMiddle = kPixelsPerFrame / 2;
    const auto add = [](const char* what, const char* row, int pixel, int way, int last,
                        bool isCopy) {
        QTest::newRow(what) << QByteArray(row) << pixel << way << last << isCopy;
    };
    add("a key", "LeftArm", 150 + kMiddle, 100, 150 + kMiddle, false);
    add("a key, held with Control", "LeftArm", 150 + kMiddle, 100, 150 + kMiddle, true);
    add("a clip's end", "Motion", 910, -300, 910, false);
    add("a blend", "MotionBlend", 120 + kMiddle, 60, 120, false);
    add("a mouth shape", "Lips", kMiddle, 20, kMiddle, false);
}

void tst_UndoHistory::aGestureThatEndsWhereItStartedLeavesNoEntry()
{
    QFETCH(QByteArray, row);
    QFETCH(int, pixel);
    QFETCH(int, way);
    QFETCH(int, last);
    QFETCH(bool, isCopy);
    UndoEditor editor;
    editor.window.SetClipSpeed(true);
    editor.Drag("Spine", editor.At("Spine", 15), {editor.At("Spine", 18)});
    editor.PressUndo(); // something that can be redone
    editor.Select("LeftArm", {1});
    const host::Scene before = editor.Scene();
    const QPoint from(pixel, editor.WidgetOf(row)->height() / 2);
    editor.pointer.modifiers = isCopy ? Qt::ControlModifier : Qt::NoModifier;
    int steps = 0;
    QObject::connect(&editor.window.Session(), &host::EditSession::Changed, [&] { ++steps; });
    editor.Begin();
    editor.Drag(row, from, {from + QPoint(way, 0), QPoint(last, from.y())});
    editor.End();
    QVERIFY(isCopy || steps > 0); // copies are pasted at the end
    QVERIFY(editor.Scene() == before);
    QCOMPARE(editor.problems, QStringList());
    QCOMPARE(editor.Stack().index(), 0);
    QCOMPARE(editor.Stack().count(), 1);
    QVERIFY(!editor.Command(QStringLiteral("Undo"))->isEnabled());
    QVERIFY(editor.Command(QStringLiteral("Redo Move 1 key by 3 frames"))->isEnabled());
}

void tst_UndoHistory::pastingKeysOverThemselvesLeavesNoEntry()
{
    UndoEditor editor;
    editor.pointer.Click(editor.WidgetOf("LeftArm"), editor.At("LeftArm", 15));
    const host::Scene before = editor.Scene();
    QTest::keyClick(&editor.window, Qt::Key_C, Qt::ControlModifier);
    editor.Begin();
    QTest::keyClick(&editor.window, Qt::Key_V, Qt::ControlModifier);
    editor.End();
    QVERIFY(editor.Scene() == before);
    QCOMPARE(editor.Stack().count(), 0);
    QCOMPARE(editor.problems, QStringList());
    QCOMPARE(editor.SelectedFrames("LeftArm"), Frames{15});
}

void tst_UndoHistory::aMarkerThatIsBroughtBackLeavesNoEntry()
{
    UndoEditor editor;
    QWidget* const ruler = editor.Ruler();
    const QPoint marker(907, ruler->height() - 5);
    int steps = 0;
    QObject::connect(&editor.window.Session(), &host::EditSession::Changed, [&] { ++steps; });
    editor.pointer.Press(ruler, marker);
    editor.pointer.MoveTo(ruler, marker - QPoint(300, 0));
    QCOMPARE(editor.Scene().timeMark.end, 60);
    editor.pointer.MoveTo(ruler, marker);
    editor.pointer.Release();
    QVERIFY(steps > 0);
    QCOMPARE(editor.Scene().timeMark.end, 90);
    QCOMPARE(editor.Stack().count(), 0);
    QVERIFY(!editor.Command(QStringLiteral("Undo"))->isEnabled());
}

void tst_UndoHistory::entriesSayWhatTheGestureDid()
{
    UndoEditor editor;
    editor.Select("LeftArm", {1, 2, 3, 4, 5});
    editor.SelectToo("Spine", {1, 2, 3, 4, 5, 6, 7});
    editor.Drag("LeftArm", editor.At("LeftArm", 15),
                {editor.At("LeftArm", 30), editor.At("LeftArm", 18)});
    QCOMPARE(editor.LastEntry(), QStringLiteral("Move 12 keys by 3 frames"));
    editor.ClickCaption("LeftArm", kMute);
    QCOMPARE(editor.LastEntry(), QStringLiteral("Mute Left Arm"));
    editor.ClickCaption("LeftArm", kMute);
    QCOMPARE(editor.LastEntry(), QStringLiteral("Unmute Left Arm"));
    editor.ClickCaption("MotionBlend", kLock);
    QCOMPARE(editor.LastEntry(), QStringLiteral("Lock Motion Blend"));
    editor.Choose("LeftArm", editor.At("LeftArm", 3), QStringLiteral("Solo"));
    QCOMPARE(editor.LastEntry(), QStringLiteral("Solo Left Arm"));
    editor.Timeline().SetCurrentFrame(7);
    QTest::keyClick(&editor.window, Qt::Key_Home, Qt::ShiftModifier);
    QCOMPARE(editor.LastEntry(), QStringLiteral("Move start marker to frame 7"));
    editor.ClickLipsSwitch();
    QCOMPARE(editor.LastEntry(), QStringLiteral("Hide Lips"));
    QCOMPARE(editor.problems, QStringList());
}

void tst_UndoHistory::aCommandDuringADragIsAnEntryOfItsOwn()
{
    UndoEditor editor;
    const host::Scene before = editor.Scene();
    QWidget* const row = editor.WidgetOf("LeftArm");
    editor.Begin();
    editor.pointer.Press(row, editor.At("LeftArm", 15));
    editor.pointer.MoveTo(row, editor.At("LeftArm", 20));
    QTest::keyClick(&editor.window, Qt::Key_M, Qt::ControlModifier);
    editor.pointer.MoveTo(row, editor.At("LeftArm", 24));
    editor.pointer.Release();
    constexpr int kDragCommandAndRest = 3;
    editor.End(kDragCommandAndRest);
    QCOMPARE(editor.names,
             (QStringList{"Move 1 key by 5 frames", "Mute Left Arm", "Move 1 key by 4 frames"}));
    QCOMPARE(editor.problems, QStringList());
    for (int i = 0; i < 3; ++i)
        editor.Undo();
    QVERIFY(editor.Scene() == before);
    for (int i = 0; i < 3; ++i)
        editor.Redo();
    QCOMPARE(editor.problems, QStringList());
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 24, 30, 45, 60, 75, 90}));
}

void tst_UndoHistory::editsWhilePlayingAreUndoneWhilePlaying()
{
    UndoEditor editor;
    host::Scene scene = editor.Scene();
    scene.frameCount = 10000; // does not end while this looks at it
    QVERIFY(editor.window.SetScene(scene));
    editor.window.GotoFrame(0);
    editor.window.Player().Player().Play();
    const auto reaches = [&editor](int frame) {
        return QTest::qWaitFor([&] { return editor.Timeline().GetCurrentFrame() >= frame; },
                               kPatience);
    };
    QVERIFY(reaches(2));
    editor.Timeline().SetScrollInfo(0, 0.01F);
    const host::Scene before = editor.Scene();
    editor.Select("LeftArm", {1});
    QVERIFY(reaches(editor.Timeline().GetCurrentFrame() + 1)); // the menus know the selection then
    QTest::keyClick(&editor.window, Qt::Key_Delete);
    QCOMPARE(editor.LastEntry(), QStringLiteral("Delete 1 key"));
    const host::Scene after = editor.Scene();
    QVERIFY(reaches(editor.Timeline().GetCurrentFrame() + 3));
    editor.PressUndo();
    QVERIFY(editor.Scene() == before);
    QCOMPARE(editor.SelectedFrames("LeftArm"), Frames{15});
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    QVERIFY(editor.window.Player().Player().CurrentState() == host::Playback::State::Playing);
    QVERIFY(reaches(editor.Timeline().GetCurrentFrame() + 3)); // it goes on from there
    editor.PressRedo();
    QVERIFY(editor.Scene() == after);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_UndoHistory::aDragWhilePlayingIsOneEntry()
{
    UndoEditor editor;
    const host::Scene before = editor.Scene();
    editor.window.Player().Player().Play();
    QWidget* const row = editor.WidgetOf("LeftArm");
    editor.pointer.Press(row, editor.At("LeftArm", 15));
    for (const int frame : {17, 19, 22}) {
        editor.pointer.MoveTo(row, editor.At("LeftArm", frame));
        QTest::qWait(40); // more than a frame
    }
    editor.pointer.Release();
    QCoreApplication::processEvents();
    QCOMPARE(editor.names, QStringList{QStringLiteral("Move 1 key by 7 frames")});
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 22, 30, 45, 60, 75, 90}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    editor.PressUndo();
    QVERIFY(editor.Scene() == before);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

QTEST_MAIN(tst_UndoHistory)
#include "tst_UndoHistory.moc"
