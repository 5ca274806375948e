#include "HandledEditor.h"

#include "history/UndoHistory.h"

#include <QRandomGenerator>

using Frames = QVector<int>;

namespace {

constexpr int kGestures = 2000; ///< as many as keep the test below 20 seconds
constexpr const char* kGesturesVariable = "KESTOVA_UNDO_GESTURES";

/// What the eye sees of the timeline besides the scene, read without the help of what is tested.
QString SeenState(HandledEditor& editor, const QLabel& frameLabel)
{
    QStringList seen{frameLabel.text()};
    const auto selected = [](const CTimelineKeyArray& keys) {
        QStringList frames;
        for (const int index : keys.SelectedIndexes())
            frames += QString::number(keys.GetAt(index)->frame);
        return frames.join(u',');
    };
    for (const host::SceneTrack& track : editor.Scene().tracks) {
        const CTimelineKeyArray& keys = *editor.window.Tracks().KeysOf(track.id);
        CTimelineTrackBase* const row = editor.window.Tracks().TrackOf(track.id);
        QString text = selected(keys);
        for (const auto& key : keys.Keys()) {
            if (key->subKeys)
                text += u'<' + selected(*key->subKeys) + u'>';
        }
        int first = -1;
        int last = -1;
        editor.Timeline().GetTrackSelFrame(row, first, last);
        const bool isShown = editor.Timeline().GetRootTrackSortIndex(row) >= 0 ||
                             editor.Timeline().GetChildTrackSortIndex(row) >= 0;
        seen += QStringLiteral("%1: %2 [%3 %4] %5")
                    .arg(track.name, text)
                    .arg(first)
                    .arg(last)
                    .arg(isShown);
    }
    return seen.join(u'\n');
}

/// The editor with a witness of every edit.
struct WitnessedEditor : HandledEditor
{
    struct Moment
    {
        host::Scene scene;
        QString state;
    };
    struct Edit
    {
        QString name;
        Moment before;
        Moment after;
    };

    WitnessedEditor()
    {
        for (QLabel* const label : window.findChildren<QLabel*>()) {
            if (label->text().startsWith(QLatin1String("Frame")))
                frameLabel = label;
        }
        QObject::connect(&window.Session(), &host::EditSession::Begun, [this] { before = Now(); });
        QObject::connect(&window.Session(), &host::EditSession::Committed,
                         [this](const QString& name) {
                             edits.resize(Stack().index() - 1); // undone ones are forgotten
                             edits.append({name, before, {}});
                             ++commits;
                         });
    }

    Moment Now() { return {Scene(), SeenState(*this, *frameLabel)}; }
    QUndoStack& Stack() { return window.History().Stack(); }
    void PressUndo() { QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier); }
    void PressRedo()
    {
        QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    }
    /// As the row's menu has it done.
    void ChooseDelete(const char* row)
    {
        Timeline().ReceiveMessage(1311, Row(row), nullptr, 0, TL_EDIT_DELETE, 0);
    }
    /// Does it, and notes the state that it leaves.
    template <class Deed>
    void Do(Deed deed)
    {
        commits = 0;
        deed();
        QCoreApplication::processEvents();
        if (commits > 0)
            edits.last().after = Now();
    }

    QLabel* frameLabel = nullptr;
    Moment before;
    QVector<Edit> edits; ///< those of the stack
    int commits = 0;     ///< by the last deed
};

QString DifferenceOf(const WitnessedEditor::Moment& a, const WitnessedEditor::Moment& b)
{
    if (a.scene != b.scene)
        return QStringLiteral("the scenes differ");
    const QStringList linesA = a.state.split(u'\n');
    const QStringList linesB = b.state.split(u'\n');
    for (int i = 0; i < std::min(linesA.size(), linesB.size()); ++i) {
        if (linesA[i] != linesB[i])
            return linesA[i] + QStringLiteral(" / ") + linesB[i];
    }
    return a.state == b.state ? QString() : QStringLiteral("not as many rows");
}

/// A hand that does whatever comes to its mind, the same for the same seed.
class RandomHand
{
public:
    RandomHand(WitnessedEditor& editor, quint32 seed) : m_editor(editor), m_random(seed) {}

    /// A gesture or a command; its name.
    QString Act()
    {
        static constexpr struct
        {
            const char* name;
            int weight;
            void (RandomHand::*act)();
        } kActs[] = {
            {"drag a key", 30, &RandomHand::DragKey},
            {"drag anywhere", 8, &RandomHand::DragAnywhere},
            {"click", 12, &RandomHand::ClickRow},
            {"drag a clip's end", 6, &RandomHand::DragClipEnd},
            {"drag a lead-in", 4, &RandomHand::DragLeadIn},
            {"drag a blend", 8, &RandomHand::DragBlend},
            {"click a switch", 4, &RandomHand::ClickSwitch},
            {"drag in the ruler", 6, &RandomHand::DragInRuler},
            {"break a clip", 4, &RandomHand::BreakClip},
            {"press a key", 20, &RandomHand::PressKey},
            {"choose in a menu", 2, &RandomHand::ChooseInMenu},
            {"toggle the speed", 1, &RandomHand::ToggleSpeed},
            {"undo", 4, &RandomHand::Undo},
            {"redo", 3, &RandomHand::Redo},
        };
        int sum = 0;
        for (const auto& each : kActs)
            sum += each.weight;
        int pick = Below(sum);
        for (const auto& each : kActs) {
            pick -= each.weight;
            if (pick >= 0)
                continue;
            (this->*each.act)();
            return QString::fromLatin1(each.name);
        }
        return {};
    }

private:
    int Below(int count) { return m_random.bounded(count); }
    int Frame() { return Below(95) - 2; }
    const char* Row()
    {
        static constexpr const char* kRows[] = {"LeftArm", "Spine", "MotionBlend",     "Lips",
                                                "Motion",  "Sound", "LeftFootContact", "MouthRest"};
        for (;;) {
            const char* const row = kRows[Below(static_cast<int>(std::size(kRows)))];
            if (IsThere(row))
                return row;
        }
    }
    bool IsThere(const char* row)
    {
        for (const host::SceneTrack& track : m_editor.Scene().tracks) {
            if (track.name == QLatin1String(row))
                return m_editor.Timeline().GetChildTrackSortIndex(m_editor.Row(row)) >= 0;
        }
        return false;
    }
    void DragFrom(const char* row, QPoint from)
    {
        QVector<QPoint> way;
        for (int i = Below(3); i >= 0; --i)
            way.append(m_editor.At(row, Frame()));
        if (Below(8) == 0)
            way.append(from); // and back
        m_editor.Drag(row, from, way);
    }
    void HoldModifier()
    {
        static constexpr Qt::KeyboardModifier kModifiers[] = {
            Qt::NoModifier, Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier};
        m_editor.pointer.modifiers = kModifiers[Below(static_cast<int>(std::size(kModifiers)))];
    }
    void DragKey()
    {
        HoldModifier();
        const char* const row = Row();
        const QVector<host::SceneKey>& keys = m_editor.KeysOf(row);
        if (!keys.isEmpty()) {
            const host::SceneKey& key = keys[Below(keys.size())];
            const bool isInside = !key.subKeys.isEmpty() && Below(2) == 0;
            const int frame =
                isInside ? key.frame + key.subKeys[Below(key.subKeys.size())].frame : key.frame;
            DragFrom(row, m_editor.At(row, frame));
        }
        m_editor.pointer.modifiers = Qt::NoModifier;
    }
    void DragAnywhere()
    {
        HoldModifier();
        const char* const row = Row();
        DragFrom(row, m_editor.At(row, Frame()));
        m_editor.pointer.modifiers = Qt::NoModifier;
    }
    void ClickRow()
    {
        HoldModifier();
        const char* const row = Row();
        m_editor.pointer.Click(m_editor.WidgetOf(row), m_editor.At(row, Frame()));
        m_editor.pointer.modifiers = Qt::NoModifier;
    }
    const host::SceneKey* SomeClip(const char* row)
    {
        const QVector<host::SceneKey>& keys = m_editor.KeysOf(row);
        return IsThere(row) && !keys.isEmpty() ? &keys[Below(keys.size())] : nullptr;
    }
    void DragClipEnd()
    {
        const char* const row = Below(2) == 0 ? "Motion" : "Sound";
        if (const host::SceneKey* const clip = SomeClip(row)) {
            const int end = clip->frame + clip->clip->length * clip->clip->loops;
            DragFrom(row, m_editor.EdgeOf(row, std::min(end, 100)));
        }
    }
    void DragLeadIn()
    {
        const char* const row = "Motion";
        if (const host::SceneKey* const clip = SomeClip(row)) {
            m_editor.pointer.Click(m_editor.WidgetOf(row), m_editor.At(row, clip->frame + 1));
            const int edge = clip->frame - clip->clip->leadIn;
            DragFrom(row, m_editor.EdgeOf(row, edge - 1));
        }
    }
    void DragBlend()
    {
        const char* const row = "MotionBlend";
        const QVector<host::SceneKey>& keys = m_editor.KeysOf(row);
        if (!IsThere(row) || keys.isEmpty())
            return;
        const host::SceneKey& key = keys[Below(keys.size())];
        const bool isOutOf = key.transition->direction == host::BlendDirection::OutOf;
        const int frames = key.transition->frames;
        DragFrom(row, m_editor.At(row, key.frame + (isOutOf ? frames : -frames)));
    }
    void ClickSwitch()
    {
        QWidget* const layers = m_editor.WidgetOf("Layers");
        m_editor.pointer.Click(layers, QPoint(20 + Below(500), layers->height() / 2));
    }
    void DragInRuler()
    {
        QWidget* const ruler = m_editor.Ruler();
        const host::TimeMark& mark = m_editor.Scene().timeMark;
        const int frame = Below(2) == 0 ? mark.start : mark.end;
        const int y = Below(ruler->height());
        m_editor.pointer.Press(ruler, QPoint(frame * kPixelsPerFrame + 4, y));
        for (int i = Below(3); i >= 0; --i)
            m_editor.pointer.MoveTo(ruler, QPoint(Frame() * kPixelsPerFrame + 4, y));
        m_editor.pointer.Release();
    }
    void BreakClip()
    {
        const char* const row = Below(2) == 0 ? "Motion" : "Sound";
        const host::SceneKey* const clip = SomeClip(row);
        if (!clip)
            return;
        const int frame = clip->frame + 1 + Below(clip->clip->length);
        m_editor.pointer.Click(m_editor.WidgetOf(row), m_editor.At(row, clip->frame + 1));
        m_editor.pointer.Click(m_editor.Ruler(), QPoint(frame * kPixelsPerFrame + 4, 2));
        QTest::keyClick(&m_editor.window, Qt::Key_B, Qt::ControlModifier);
    }
    void PressKey()
    {
        static constexpr struct
        {
            Qt::Key key;
            Qt::KeyboardModifier modifier;
        } kKeys[] = {
            {Qt::Key_Delete, Qt::NoModifier}, {Qt::Key_Insert, Qt::NoModifier},
            {Qt::Key_Insert, Qt::NoModifier}, {Qt::Key_X, Qt::ControlModifier},
            {Qt::Key_C, Qt::ControlModifier}, {Qt::Key_C, Qt::ControlModifier},
            {Qt::Key_V, Qt::ControlModifier}, {Qt::Key_V, Qt::ControlModifier},
            {Qt::Key_V, Qt::ControlModifier}, {Qt::Key_B, Qt::ControlModifier},
            {Qt::Key_B, Qt::ControlModifier}, {Qt::Key_A, Qt::ControlModifier},
            {Qt::Key_Tab, Qt::NoModifier},    {Qt::Key_Backtab, Qt::ShiftModifier},
            {Qt::Key_Home, Qt::NoModifier},   {Qt::Key_End, Qt::NoModifier},
        };
        const auto& pick = kKeys[Below(static_cast<int>(std::size(kKeys)))];
        QTest::keyClick(&m_editor.window, pick.key, pick.modifier);
    }
    void ChooseInMenu()
    {
        const char* const row = Row();
        m_editor.WithMenu(row, m_editor.At(row, Below(90)), [this](QMenu& menu) {
            QVector<QAction*> possible;
            for (QAction* const action : menu.actions()) {
                if (action->isEnabled() && !action->isSeparator())
                    possible.append(action);
            }
            if (possible.isEmpty())
                return;
            QAction* const action = possible[Below(possible.size())];
            const QPoint place = menu.actionGeometry(action).center();
            QTest::mouseClick(&menu, Qt::LeftButton, Qt::NoModifier, place);
        });
    }
    void ToggleSpeed()
    {
        for (QAction* const action : m_editor.window.findChildren<QAction*>()) {
            if (host::PlainText(*action) == QLatin1String("Speed"))
                action->trigger();
        }
    }
    void Undo() { m_editor.PressUndo(); }
    void Redo() { m_editor.PressRedo(); }

    WitnessedEditor& m_editor;
    QRandomGenerator m_random;
};

/// The sample with clips that can be looped and sped up, and a sound.
host::Scene Livelier(host::Scene scene)
{
    for (host::SceneTrack& track : scene.tracks) {
        host::SceneKey clip;
        clip.frame = 5;
        clip.clip = host::ClipSpan{20, 1, 2, 5, 60};
        if (track.name == QLatin1String("Sound")) {
            scene.NumberKeys(track.keys = {clip});
        } else if (track.name == QLatin1String("Motion")) {
            track.keys[0].frame = 10;
            track.keys[0].clip = clip.clip;
        }
    }
    return scene;
}

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
    void thousandsOfGesturesAreUndoneAndRedone();
};

void tst_UndoHistory::aDragIsUndoneAsAWhole()
{
    WitnessedEditor editor;
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
    WitnessedEditor editor;
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
    WitnessedEditor editor;
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
    WitnessedEditor editor;
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
    WitnessedEditor editor;
    editor.Timeline().ReceiveMessage(1304, nullptr, nullptr, 0, 0, 14);
    QCOMPARE(editor.Scene().timeMark.start, 14);
    editor.PressUndo();
    QCOMPARE(editor.Scene().timeMark.start, 0);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_UndoHistory::anUndoneLengthIsShownAtOnce()
{
    WitnessedEditor editor;
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
    WitnessedEditor editor;
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
    WitnessedEditor editor;
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
    WitnessedEditor editor;
    host::Scene scene = editor.Scene();
    ++scene.frameCount;
    editor.window.Session().Apply(QStringLiteral("Add Tom & Ann"), scene);
    QVERIFY(editor.Command(QStringLiteral("Undo Add Tom && Ann"))->isEnabled());
    editor.PressUndo();
    QVERIFY(editor.Command(QStringLiteral("Redo Add Tom && Ann"))->isEnabled());
}

void tst_UndoHistory::undoDuringADragEndsItFirst()
{
    WitnessedEditor editor;
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
    WitnessedEditor editor;
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
    WitnessedEditor editor;
    const WitnessedEditor::Moment before = editor.Now();
    editor.window.History().Undo();
    editor.window.History().Redo();
    QCOMPARE(DifferenceOf(editor.Now(), before), QString());
}

void tst_UndoHistory::addedRowsAreTakenAwayAgain()
{
    WitnessedEditor editor;
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
    WitnessedEditor editor;
    editor.Drag("LeftArm", editor.At("LeftArm", 15), {editor.At("LeftArm", 20)});
    QVERIFY(editor.window.SetScene(EditorFixture::Sample()));
    QCOMPARE(editor.Stack().count(), 0);
    const host::Scene before = editor.Scene();
    editor.PressUndo();
    QVERIFY(editor.Scene() == before);
}

void tst_UndoHistory::thousandsOfGesturesAreUndoneAndRedone()
{
    WitnessedEditor editor;
    QVERIFY(editor.window.SetScene(Livelier(editor.Scene())));
    editor.Select("LeftArm", {1});
    QCoreApplication::processEvents();
    const WitnessedEditor::Moment start = editor.Now();
    editor.Do([&editor] { editor.ChooseDelete("LeftArm"); });
    QCOMPARE(editor.commits, 1);

    const int wanted = qEnvironmentVariableIntValue(kGesturesVariable);
    RandomHand hand(editor, 4711);
    for (int i = 0; i < (wanted > 0 ? wanted : kGestures); ++i) {
        QString name;
        editor.Do([&] { name = hand.Act(); });
        QVERIFY2(editor.commits <= 1,
                 qPrintable(QStringLiteral("%1: %2 entries").arg(name).arg(editor.commits)));
        QVERIFY2(editor.Difference().isEmpty(), qPrintable(name + u' ' + editor.Difference()));
        QVERIFY(!editor.window.Session().IsOpen());
    }
    while (editor.Stack().canRedo())
        editor.PressRedo();
    const WitnessedEditor::Moment end = editor.Now();
    QCOMPARE(editor.edits.size(), editor.Stack().count());
    QStringList names;
    for (const WitnessedEditor::Edit& edit : qAsConst(editor.edits))
        names += edit.name;
    for (const char* const kind :
         {"Break", "Copy", "Cut", "Delete", "Give", "Hide", "Insert", "Lengthen", "Loop", "Move 1",
          "Move end marker", "Move start marker", "Paste", "Shorten", "Show", "Slow", "Speed",
          "Trim"}) {
        const QRegularExpression begins(u'^' + QLatin1String(kind));
        QVERIFY2(!names.filter(begins).isEmpty(), kind); // the hand came to all of them
    }

    for (int i = editor.edits.size() - 1; i >= 0; --i) {
        editor.PressUndo();
        const WitnessedEditor::Edit& edit = editor.edits[i];
        const QString unlike = DifferenceOf(editor.Now(), edit.before);
        QVERIFY2(unlike.isEmpty(), qPrintable(edit.name + u' ' + unlike));
        VERIFY_TIMELINE_EQUALS_SCENE(editor);
    }
    QCOMPARE(DifferenceOf(editor.Now(), start), QString());
    QVERIFY(!editor.Stack().canUndo());
    for (const WitnessedEditor::Edit& edit : qAsConst(editor.edits)) {
        editor.PressRedo();
        const QString unlike = DifferenceOf(editor.Now(), edit.after);
        QVERIFY2(unlike.isEmpty(), qPrintable(edit.name + u' ' + unlike));
        VERIFY_TIMELINE_EQUALS_SCENE(editor);
    }
    QVERIFY(editor.Scene() == end.scene);
    QVERIFY(!editor.Stack().canRedo());
}

QTEST_MAIN(tst_UndoHistory)
#include "tst_UndoHistory.moc"
