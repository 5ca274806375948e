#include "EditorFixture.h"

#include <QTemporaryDir>

using Frames = QVector<int>;
Q_DECLARE_METATYPE(TLEditType)
Q_DECLARE_METATYPE(TLDropFileType)

namespace {

/// The editor, hearing of gestures as the timeline tells of them.
struct ToldEditor : EditorFixture
{
    host::TrackList rows; ///< that the gesture is on

    void On(std::initializer_list<const char*> names)
    {
        rows.RemoveAll();
        for (const char* const name : names)
            rows.Add(Row(name));
    }
    int Edit(TLEditType type, int value1 = 0, int value2 = 0)
    {
        return Timeline().ReceiveTrackEdit(type, rows, value1, value2);
    }
    /// One step of a drag: the timeline moves its keys and tells of it.
    int Drag(int frames)
    {
        for (CTimelineTrackBase* const row : rows)
            Timeline().GetKeyDataArray(row)->MoveKeys(frames, false);
        return Edit(TL_EDIT_MOVE_KEYS, frames);
    }
    /// The end of keys that were dragged as copies. When a copy is accepted the timeline puts the
    /// selected keys aside.
    void PasteCopiesAt(int frame)
    {
        QCOMPARE(Edit(TL_EDIT_COPY), 0);
        Timeline().SetCurrentFrame(frame);
        QCOMPARE(Edit(TL_EDIT_PASTE), 0);
    }
    /// Writes a file and returns its path.
    QString File(const QString& name, const QByteArray& bytes)
    {
        const QString path = directory.filePath(name);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(path));
        return path;
    }

    QTemporaryDir directory;
};

} // namespace

class tst_HostEdits : public QObject
{
    Q_OBJECT

private slots:
    void startsWithTheSceneShown();
    void draggedKeysMoveInTheSceneAtEveryStep();
    void theEndOfADragBringsItsLastPiece();
    void keysOfSeveralRowsMoveTogether();
    void aKeyThatIsOnlyPassedOverStays();
    void aKeyThatIsLandedOnGivesWayAtTheEnd();
    void aDragThereAndBackChangesNothing();
    void draggedMouthShapesMoveInsideTheirLine();
    void aCommandDuringADragEndsItAndItGoesOnFromThere();
    void copiedKeysArePastedWhereTheyWereDropped();
    void copiesOfSeveralRowsKeepTheirDistances();
    void copyingMouthShapesIsRefused();
    void loopsSpeedAndTrimChangeTheClipInSteps_data();
    void loopsSpeedAndTrimChangeTheClipInSteps();
    void aBlendChangesByItsHandle();
    void editsOfWhatIsNotThereAreRefused_data();
    void editsOfWhatIsNotThereAreRefused();
    void aRulerMarkerMovesInTheScene();
    void aSwitchButtonHidesRowsInTheScene();
    void theAddButtonOfACaptionInsertsAKey();
    void theRowMenuOffersWhatIsPossible();
    void theRowMenuDoesWhatIsChosen();
    void pastesNothingOlderThanTheLastCopy();
    void cutKeysComeBackByPasting();
    void breakingKeepsTheFirstPartSelected();
    void aDroppedSoundBecomesAClipOfItsLength();
    void aFileThatIsNoSoundIsExplained_data();
    void aFileThatIsNoSoundIsExplained();
    void onlySoundsOverClipsAreWelcome_data();
    void onlySoundsOverClipsAreWelcome();
};

void tst_HostEdits::startsWithTheSceneShown()
{
    ToldEditor editor;
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 30, 45, 60, 75, 90}));
    QCOMPARE(editor.FramesOf("Spine"), (Frames{0, 15, 23, 30, 38, 45, 53, 60, 68, 75, 90}));
}

void tst_HostEdits::draggedKeysMoveInTheSceneAtEveryStep()
{
    ToldEditor editor;
    editor.Select("LeftArm", {1});
    editor.On({"LeftArm"});
    QCOMPARE(editor.Edit(TL_EDIT_BEGIN), 0);
    QCOMPARE(editor.Drag(2), 0);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 17, 30, 45, 60, 75, 90}));
    QCOMPARE(editor.Drag(-5), 0);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 12, 30, 45, 60, 75, 90}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    QCOMPARE(editor.Edit(TL_EDIT_MOVE_KEYS_END, -3), 0);
    QCOMPARE(editor.Edit(TL_EDIT_END), 0);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    QCOMPARE(editor.SelectedFrames("LeftArm"), (Frames{12}));
    QCOMPARE(editor.StatusText(), QStringLiteral("Move 1 key back by 3 frames"));
}

void tst_HostEdits::theEndOfADragBringsItsLastPiece()
{
    ToldEditor editor;
    editor.Select("LeftArm", {1});
    editor.On({"LeftArm"});
    editor.Edit(TL_EDIT_BEGIN);
    editor.Drag(2);
    editor.Shown("LeftArm").MoveKeys(4, false); // the release moves too, and no step tells of it
    editor.Edit(TL_EDIT_MOVE_KEYS_END, 6);
    editor.Edit(TL_EDIT_END);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 21, 30, 45, 60, 75, 90}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostEdits::keysOfSeveralRowsMoveTogether()
{
    ToldEditor editor;
    editor.Select("LeftArm", {1, 2});
    editor.SelectToo("Spine", {1});
    editor.On({"Spine", "LeftArm"});
    editor.Edit(TL_EDIT_BEGIN);
    editor.Drag(3);
    editor.Edit(TL_EDIT_MOVE_KEYS_END, 3);
    editor.Edit(TL_EDIT_END);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 18, 33, 45, 60, 75, 90}));
    QCOMPARE(editor.FramesOf("Spine"), (Frames{0, 18, 23, 30, 38, 45, 53, 60, 68, 75, 90}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostEdits::aKeyThatIsOnlyPassedOverStays()
{
    ToldEditor editor;
    editor.Select("LeftArm", {1});
    editor.On({"LeftArm"});
    editor.Edit(TL_EDIT_BEGIN);
    editor.Drag(15);
    editor.Drag(5);
    editor.Edit(TL_EDIT_MOVE_KEYS_END, 20);
    editor.Edit(TL_EDIT_END);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 30, 35, 45, 60, 75, 90}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostEdits::aKeyThatIsLandedOnGivesWayAtTheEnd()
{
    ToldEditor editor;
    const host::KeyId moved = editor.KeysOf("LeftArm")[1].id;
    editor.Select("LeftArm", {1});
    editor.On({"LeftArm"});
    editor.Edit(TL_EDIT_BEGIN);
    editor.Drag(15);
    editor.Edit(TL_EDIT_MOVE_KEYS_END, 15);
    editor.Edit(TL_EDIT_END);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 30, 45, 60, 75, 90}));
    QCOMPARE(editor.KeysOf("LeftArm")[1].id, moved);
    QCOMPARE(editor.SelectedFrames("LeftArm"), (Frames{30}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostEdits::aDragThereAndBackChangesNothing()
{
    ToldEditor editor;
    const host::Scene before = editor.Scene();
    editor.Select("LeftArm", {1});
    editor.On({"LeftArm"});
    editor.Edit(TL_EDIT_BEGIN);
    editor.Drag(15);
    editor.Drag(-15);
    editor.Edit(TL_EDIT_MOVE_KEYS_END, 0);
    editor.Edit(TL_EDIT_END);
    QVERIFY(editor.Scene() == before);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    QVERIFY(editor.StatusText().isEmpty());
}

void tst_HostEdits::draggedMouthShapesMoveInsideTheirLine()
{
    ToldEditor editor;
    editor.Select("Lips", {0});
    CTimelineKeyArray& inside = *editor.Shown("Lips").GetAt(0)->subKeys;
    inside.SetSelectionByIndex(1, 1, true, TL_KEY_ANY_KIND);
    const int frame = inside.GetAt(1)->frame;
    editor.On({"Lips"});
    QCOMPARE(editor.Edit(TL_EDIT_BEGIN), 0);
    inside.MoveKeys(1, false);
    QCOMPARE(editor.Edit(TL_EDIT_MOVE_KEYS, 1), 0);
    QCOMPARE(editor.KeysOf("Lips")[0].subKeys[1].frame, frame + 1);
    editor.Edit(TL_EDIT_MOVE_KEYS_END, 1);
    editor.Edit(TL_EDIT_END);
    QCOMPARE(editor.FramesOf("Lips"), (Frames{0}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    QCOMPARE(static_cast<int>(editor.Shown("Lips").GetAt(0)->subKeys->SelGetSize()), 1);
}

void tst_HostEdits::aCommandDuringADragEndsItAndItGoesOnFromThere()
{
    ToldEditor editor;
    editor.Select("LeftArm", {1});
    editor.On({"LeftArm"});
    editor.Edit(TL_EDIT_BEGIN);
    editor.Drag(3);
    editor.Timeline().SetCurrentFrame(10);
    // Inserting selects what was inserted: the timeline now drags that key.
    editor.Timeline().ReceiveMessage(1311, editor.Row("LeftArm"), nullptr, 0, TL_EDIT_INSERT_KEY,
                                     0);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 10, 18, 30, 45, 60, 75, 90}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    editor.Drag(2);
    editor.Edit(TL_EDIT_MOVE_KEYS_END, 5);
    editor.Edit(TL_EDIT_END);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 12, 18, 30, 45, 60, 75, 90}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostEdits::copiedKeysArePastedWhereTheyWereDropped()
{
    ToldEditor editor;
    editor.Select("LeftArm", {1, 2});
    editor.On({"LeftArm"});
    editor.PasteCopiesAt(18);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 18, 30, 33, 45, 60, 75, 90}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostEdits::copiesOfSeveralRowsKeepTheirDistances()
{
    ToldEditor editor;
    editor.Select("LeftArm", {2});
    editor.SelectToo("Spine", {2});
    editor.On({"LeftArm", "Spine"});
    editor.PasteCopiesAt(24); // the first of them, on the spine, comes from 23
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 30, 31, 45, 60, 75, 90}));
    QCOMPARE(editor.FramesOf("Spine"), (Frames{0, 15, 23, 24, 30, 38, 45, 53, 60, 68, 75, 90}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostEdits::copyingMouthShapesIsRefused()
{
    ToldEditor editor;
    editor.Select("Lips", {0});
    editor.On({"Lips"});
    QCOMPARE(editor.Edit(TL_EDIT_COPY), -1);
    QCOMPARE(editor.Edit(TL_EDIT_PASTE), -1);
}

void tst_HostEdits::loopsSpeedAndTrimChangeTheClipInSteps_data()
{
    QTest::addColumn<TLEditType>("step");
    QTest::addColumn<TLEditType>("end");
    QTest::addColumn<Frames>("amounts");
    QTest::addColumn<Frames>("expected"); // length, loops, lead-in
    QTest::newRow("loop") << TL_EDIT_CLIP_LOOP << TL_EDIT_CLIP_LOOP_END << Frames{1, 2, -1}
                          << Frames{90, 3, 0};
    QTest::newRow("loop below one")
        << TL_EDIT_CLIP_LOOP << TL_EDIT_CLIP_LOOP_END << Frames{-4} << Frames{90, 1, 0};
    QTest::newRow("speed") << TL_EDIT_CLIP_SPEED << TL_EDIT_CLIP_SPEED_END << Frames{-10, -20, 5}
                           << Frames{65, 1, 0};
    QTest::newRow("speed below the shortest")
        << TL_EDIT_CLIP_SPEED << TL_EDIT_CLIP_SPEED_END << Frames{-10, -100} << Frames{22, 1, 0};
    QTest::newRow("trim") << TL_EDIT_CLIP_TRIM << TL_EDIT_CLIP_TRIM_END << Frames{4, 4, -3}
                          << Frames{90, 1, 5};
    QTest::newRow("trim below none")
        << TL_EDIT_CLIP_TRIM << TL_EDIT_CLIP_TRIM_END << Frames{4, -9} << Frames{90, 1, 0};
}

void tst_HostEdits::loopsSpeedAndTrimChangeTheClipInSteps()
{
    QFETCH(TLEditType, step);
    QFETCH(TLEditType, end);
    QFETCH(Frames, amounts);
    QFETCH(Frames, expected);
    ToldEditor editor;
    editor.Select("Motion", {0});
    editor.On({"Motion"});
    QCOMPARE(editor.Edit(TL_EDIT_BEGIN), 0);
    for (const int amount : amounts) {
        QCOMPARE(editor.Edit(step, 0, amount), 0);
        VERIFY_TIMELINE_EQUALS_SCENE(editor); // the next step counts from what the clip is now
    }
    QCOMPARE(editor.Edit(end, 0), 0);
    QCOMPARE(editor.Edit(TL_EDIT_END), 0);
    const host::ClipSpan clip = *editor.KeysOf("Motion")[0].clip;
    QCOMPARE((Frames{clip.length, clip.loops, clip.leadIn}), expected);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    QCOMPARE(editor.SelectedFrames("Motion"), (Frames{0}));
}

void tst_HostEdits::aBlendChangesByItsHandle()
{
    ToldEditor editor;
    editor.Select("MotionBlend", {1});
    editor.On({"MotionBlend"});
    QCOMPARE(editor.Edit(TL_EDIT_BEGIN), 0);
    QCOMPARE(editor.Edit(TL_EDIT_CLIP_TRIM, 1, 5), 0);
    QCOMPARE(editor.Edit(TL_EDIT_CLIP_TRIM, 1, -2), 0);
    QCOMPARE(editor.Edit(TL_EDIT_CLIP_TRIM_END, 1), 0);
    QCOMPARE(editor.Edit(TL_EDIT_END), 0);
    QCOMPARE(editor.KeysOf("MotionBlend")[1].transition->frames, 15);
    QCOMPARE(editor.StatusText(), QStringLiteral("Lengthen blend by 3 frames"));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostEdits::editsOfWhatIsNotThereAreRefused_data()
{
    QTest::addColumn<TLEditType>("type");
    QTest::addColumn<int>("index");
    QTest::newRow("loop of a clip too many") << TL_EDIT_CLIP_LOOP << 1;
    QTest::newRow("speed of a clip before the first") << TL_EDIT_CLIP_SPEED << -1;
    QTest::newRow("trim of a clip too many") << TL_EDIT_CLIP_TRIM << 1000;
    QTest::newRow("a host's own edit") << TL_EDIT_HOST_18 << 0;
}

void tst_HostEdits::editsOfWhatIsNotThereAreRefused()
{
    QFETCH(TLEditType, type);
    QFETCH(int, index);
    ToldEditor editor;
    const host::Scene before = editor.Scene();
    editor.On({"Motion"});
    QCOMPARE(editor.Edit(type, index, 1), -1);
    editor.rows.RemoveAll();
    QCOMPARE(editor.Edit(type, 0, 1), -1);
    QCOMPARE(editor.Edit(TL_EDIT_BEGIN), -1);
    QVERIFY(editor.Scene() == before);
}

void tst_HostEdits::aRulerMarkerMovesInTheScene()
{
    ToldEditor editor;
    CTimelineManager& timeline = editor.Timeline();
    timeline.ReceiveMessage(1303, nullptr, nullptr, 0, 0, 12);
    QCOMPARE(editor.Scene().timeMark.start, 12);
    QVERIFY(editor.StatusText().isEmpty());
    timeline.ReceiveMessage(1304, nullptr, nullptr, 0, 0, 14);
    timeline.ReceiveMessage(1304, nullptr, nullptr, 0, 1, 60);
    QCOMPARE(editor.Scene().timeMark.start, 14);
    QCOMPARE(editor.Scene().timeMark.end, 60);
    QCOMPARE(editor.StatusText(), QStringLiteral("Move end marker to frame 60"));
}

void tst_HostEdits::aSwitchButtonHidesRowsInTheScene()
{
    ToldEditor editor;
    CTimelineTrackBase* const layers = editor.Row("Layers");
    std::vector<_tmpTLSwitchBtnData> buttons;
    QVERIFY(editor.Timeline().GetTrackSwitchBtnList(layers, buttons));
    buttons[0].state = 1; // off, with the pointer above
    editor.Timeline().SetTrackSwitchBtnList(layers, buttons);
    editor.Timeline().ReceiveMessage(1308, layers, nullptr, 0, 0, 0);
    const host::SceneTrack* const row = editor.Scene().FindTrack(editor.Id("Layers"));
    QVERIFY(!row->buttons[0].on);
    QVERIFY(row->buttons[1].on);
    QCOMPARE(editor.Timeline().GetChildTrackSortIndex(editor.Row("Lips")), -1);
    QCOMPARE(editor.StatusText(), QStringLiteral("Hide Lips"));
    editor.Timeline().ReceiveMessage(1308, layers, nullptr, 0, 9, 0); // no such button
}

void tst_HostEdits::theAddButtonOfACaptionInsertsAKey()
{
    ToldEditor editor;
    editor.Timeline().SetCurrentFrame(7);
    constexpr int kAddButton = 3;
    constexpr int kHideButton = 1;
    editor.Timeline().ReceiveMessage(1309, editor.Row("LeftArm"), nullptr, 0, kHideButton,
                                     QPoint());
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 30, 45, 60, 75, 90}));
    editor.Timeline().ReceiveMessage(1309, editor.Row("LeftArm"), nullptr, 0, kAddButton, QPoint());
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 7, 15, 30, 45, 60, 75, 90}));
    QCOMPARE(editor.SelectedFrames("LeftArm"), (Frames{7}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostEdits::theRowMenuOffersWhatIsPossible()
{
    ToldEditor editor;
    editor.Select("LeftArm", {1});
    editor.Timeline().SetCurrentFrame(15);
    const auto entries = [&editor] {
        std::vector<_tmpTLMenuMapData*> menu;
        editor.Timeline().ReceiveMessage(1310, editor.Row("LeftArm"), &menu, 0, 0, 0);
        QStringList lines;
        for (const _tmpTLMenuMapData* const entry : menu) {
            lines.append(entry->command < 0
                             ? QStringLiteral("-")
                             : QString(entry->text).remove(u'&') + (entry->enabled ? "" : " off"));
        }
        return lines.join(QStringLiteral(", "));
    };
    QCOMPARE(entries(),
             QStringLiteral(
                 "Cut, Copy, Paste off, Delete, -, Insert Key off, "
                 "Break off, -, Select All, Select Previous, Select Next, -, Mute, Solo, Lock"));
    editor.Timeline().CopySelectionToClipboard(editor.Row("LeftArm"));
    editor.Shown("LeftArm").ClearAllSelection();
    editor.Timeline().SetCurrentFrame(16);
    QCOMPARE(entries(),
             QStringLiteral("Cut off, Copy off, Paste, Delete off, -, Insert Key, Break off, -, "
                            "Select All, Select Previous, Select Next, -, Mute, Solo, Lock"));
}

void tst_HostEdits::theRowMenuDoesWhatIsChosen()
{
    ToldEditor editor;
    editor.Select("LeftArm", {1, 2});
    const auto choose = [&editor](TLEditType command) {
        editor.Timeline().ReceiveMessage(1311, editor.Row("LeftArm"), nullptr, 0, command, 0);
    };
    choose(TL_EDIT_COPY);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 30, 45, 60, 75, 90}));
    editor.Timeline().SetCurrentFrame(18);
    choose(TL_EDIT_PASTE);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 18, 30, 33, 45, 60, 75, 90}));
    QCOMPARE(editor.SelectedFrames("LeftArm"), (Frames{18, 33}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    choose(TL_EDIT_DELETE);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 30, 45, 60, 75, 90}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    choose(TL_EDIT_DELETE); // nothing is selected any more
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 30, 45, 60, 75, 90}));
    choose(TL_EDIT_SELECT_ALL);
    QCOMPARE(editor.SelectedFrames("LeftArm"), (Frames{0, 15, 30, 45, 60, 75, 90}));
}

void tst_HostEdits::pastesNothingOlderThanTheLastCopy()
{
    ToldEditor editor;
    const auto choose = [&editor](const char* row, TLEditType command) {
        editor.Timeline().ReceiveMessage(1311, editor.Row(row), nullptr, 0, command, 0);
    };
    editor.Select("Spine", {0});
    choose("Spine", TL_EDIT_COPY);
    editor.Select("LeftArm", {0});
    choose("LeftArm", TL_EDIT_COPY);
    editor.Timeline().SetCurrentFrame(5);
    choose("LeftArm", TL_EDIT_PASTE);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 5, 15, 30, 45, 60, 75, 90}));
    QCOMPARE(editor.FramesOf("Spine"), (Frames{0, 15, 23, 30, 38, 45, 53, 60, 68, 75, 90}));
}

void tst_HostEdits::cutKeysComeBackByPasting()
{
    ToldEditor editor;
    editor.Select("LeftArm", {1});
    editor.SelectToo("Motion", {0});
    const host::SceneKey clip = editor.KeysOf("Motion")[0];
    const auto choose = [&editor](TLEditType command) {
        editor.Timeline().ReceiveMessage(1311, editor.Row("LeftArm"), nullptr, 0, command, 0);
    };
    choose(TL_EDIT_CUT);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 30, 45, 60, 75, 90}));
    QVERIFY(editor.KeysOf("Motion").isEmpty());
    QCOMPARE(editor.StatusText(), QStringLiteral("Cut 1 key and 1 clip"));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    editor.Timeline().SetCurrentFrame(3);
    choose(TL_EDIT_PASTE);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 18, 30, 45, 60, 75, 90}));
    QCOMPARE(editor.FramesOf("Motion"), (Frames{3}));
    const host::SceneKey pasted = editor.KeysOf("Motion")[0];
    QVERIFY(pasted.clip == clip.clip);
    QCOMPARE(pasted.name, clip.name);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostEdits::breakingKeepsTheFirstPartSelected()
{
    ToldEditor editor;
    editor.Select("Motion", {0});
    editor.Timeline().SetCurrentFrame(40);
    editor.Timeline().ReceiveMessage(1311, editor.Row("Motion"), nullptr, 0, TL_EDIT_BREAK, 0);
    QCOMPARE(editor.FramesOf("Motion"), (Frames{0, 40}));
    QCOMPARE(editor.KeysOf("Motion")[1].clip->leadIn, 40);
    QCOMPARE(editor.SelectedFrames("Motion"), (Frames{0}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostEdits::aDroppedSoundBecomesAClipOfItsLength()
{
    ToldEditor editor;
    const QString path = editor.File(QStringLiteral("hello.there.wav"), WavBytes(8000, 4000));
    editor.Timeline().SetActiveChildTrack(editor.Row("Sound"));
    editor.Timeline().SetCurrentFrame(20);
    QVERIFY(editor.Timeline().ReceiveTrackDrop(TL_DROP_SOUND_FIRST, path));
    QCOMPARE(editor.FramesOf("Sound"), (Frames{0, 20})); // behind the spoken line
    const host::SceneKey clip = editor.KeysOf("Sound")[1];
    QCOMPARE(clip.name, QStringLiteral("hello.there"));
    QCOMPARE(clip.clip->length, 59); // two seconds are the sixty frames 20 to 79
    QCOMPARE(editor.SelectedFrames("Sound"), (Frames{20}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostEdits::aFileThatIsNoSoundIsExplained_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("row");
    QTest::addColumn<TLDropFileType>("type");
    QTest::addColumn<QString>("expected");
    QTest::newRow("text in a sound file")
        << "fake.wav" << QByteArray("hello, this is no sound") << "Sound" << TL_DROP_SOUND_FIRST
        << "fake.wav: expected a sound file that starts with RIFF and WAVE";
    QTest::newRow("another kind of sound")
        << "voice.mp3" << QByteArray("ID3") << "Sound" << TL_DROP_SOUND_FIRST
        << "voice.mp3: expected a sound file (.wav)";
    QTest::newRow("a motion") << "walk.kxmotion" << QByteArray("x") << "Motion" << TL_DROP_MOTION
                              << "walk.kxmotion: expected a sound file (.wav)";
    QTest::newRow("a sound on a row of keys")
        << "voice.wav" << WavBytes(100, 10) << "LeftArm" << TL_DROP_SOUND_FIRST
        << "voice.wav: sounds go on a row of clips";
}

void tst_HostEdits::aFileThatIsNoSoundIsExplained()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, row);
    QFETCH(TLDropFileType, type);
    QFETCH(QString, expected);
    ToldEditor editor;
    const host::Scene before = editor.Scene();
    editor.Timeline().SetActiveChildTrack(editor.Row(row.toLatin1()));
    QVERIFY(!editor.Timeline().ReceiveTrackDrop(type, editor.File(name, bytes)));
    QVERIFY2(editor.StatusText().endsWith(expected), qPrintable(editor.StatusText()));
    QVERIFY(!editor.StatusText().contains(QLatin1Char('\n')));
    QVERIFY(editor.Scene() == before);
}

void tst_HostEdits::onlySoundsOverClipsAreWelcome_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("told");
    QTest::newRow("sound over clips") << "voice.WAV"
                                      << "Sound"
                                      << "";
    QTest::newRow("sound over keys") << "voice.wav"
                                     << "LeftArm"
                                     << "voice.wav: sounds go on a row of clips";
    QTest::newRow("other over clips") << "walk.kxanim"
                                      << "Sound"
                                      << "walk.kxanim: expected a sound file (.wav)";
}

void tst_HostEdits::onlySoundsOverClipsAreWelcome()
{
    QFETCH(QString, name);
    QFETCH(QString, row);
    QFETCH(QString, told);
    ToldEditor editor;
    editor.Timeline().ReceiveMessage(1314, editor.Row(row.toLatin1()), nullptr, 0, name, 5);
    QCOMPARE(editor.StatusText(), told);
}

QTEST_MAIN(tst_HostEdits)
#include "tst_HostEdits.moc"
