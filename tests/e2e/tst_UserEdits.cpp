#include "Story.h"

using Places::CaptionButton;

/// Working on keys and rows. What came of it is read in the document that is saved at the end.
class tst_UserEdits : public Story
{
    Q_OBJECT

private slots:
    void deletesKeysThatWereDraggedOver();
    void copiesAKeyToTheCurrentFrame();
    void dragsACopyWithCtrl();
    void hidesAndShowsRowsByASwitchButton();
    void mutesARowByItsCaptionButton();
    void cannotDragAKeyOfALockedRow();
    void cutsAKeyByTheMenuOfItsRow();
    void solosARowByItsMenuButton();
    void leavesNoMarkBehindWhenGoingToAnotherRow();
    void undoesAllThatWasDoneAndDoesItAgain();

private:
    /// Saves what was done, and reads it.
    SavedScene Saved(Editor& editor) const
    {
        return SavedScene(editor.SaveAs(Path(QStringLiteral("done.ktl")))
                              ? Path(QStringLiteral("done.ktl"))
                              : QString());
    }
    static bool IsChanged(const Editor& editor)
    {
        return editor.Becomes(QStringLiteral("Untitled* - Kestova Host"));
    }
};

namespace {

const QString kHips = QStringLiteral("Hips");
const QString kSpine = QStringLiteral("Spine");
const QString kLips = QStringLiteral("Lips");
const QString kDelete = QStringLiteral("Delete");
const QString kUndo = QStringLiteral("ctrl+z");
const QString kRedo = QStringLiteral("ctrl+shift+z");

/// The frames of the sample scene's keys on the rows Hips and Spine.
const QVector<int> kHipsFrames{0, 15, 23, 30, 38, 45, 53, 60, 68, 75, 90};

QVector<int> Without(QVector<int> frames, const QVector<int>& gone)
{
    for (const int frame : gone)
        frames.removeOne(frame);
    return frames;
}

QVector<int> With(QVector<int> frames, int added)
{
    frames.append(added);
    std::sort(frames.begin(), frames.end());
    return frames;
}

bool IsOn(const SavedScene& scene, const QString& row, const char* state)
{
    return scene.Row(row)[QLatin1String(state)].toBool();
}

} // namespace

void tst_UserEdits::deletesKeysThatWereDraggedOver()
{
    Editor editor(MyHome());
    QVERIFY(editor.Opens());
    editor.DragKey(kHips, 12, 33); // from an empty place to an empty place
    editor.Strike(kDelete);
    QVERIFY(IsChanged(editor));
    const SavedScene saved = Saved(editor);
    QCOMPARE(saved.Frames(kHips), Without(kHipsFrames, {15, 23, 30}));
    QCOMPARE(saved.Frames(kSpine), kHipsFrames);
}

void tst_UserEdits::copiesAKeyToTheCurrentFrame()
{
    Editor editor(MyHome());
    QVERIFY(editor.Opens());
    editor.ClickKey(kHips, 15);
    editor.Strike(QStringLiteral("ctrl+c"));
    editor.Click(Places::Ruler(20));
    QVERIFY(Sees([&] { return editor.CurrentFrame() == 20; }));
    QCOMPARE(editor.Title(), QStringLiteral("Untitled - Kestova Host"));
    editor.Strike(QStringLiteral("ctrl+v"));
    QVERIFY(IsChanged(editor));
    const SavedScene saved = Saved(editor);
    QCOMPARE(saved.Frames(kHips), With(kHipsFrames, 20));
    QCOMPARE(saved.Frames(kSpine), kHipsFrames);
}

void tst_UserEdits::dragsACopyWithCtrl()
{
    Editor editor(MyHome());
    QVERIFY(editor.Opens());
    editor.ClickKey(kHips, 15);
    Hand::Hold(QStringLiteral("ctrl"));
    editor.DragKey(kHips, 15, 19);
    Hand::LetGo(QStringLiteral("ctrl"));
    QVERIFY(IsChanged(editor));
    QCOMPARE(Saved(editor).Frames(kHips), With(kHipsFrames, 19));
}

void tst_UserEdits::hidesAndShowsRowsByASwitchButton()
{
    Editor editor(MyHome());
    QVERIFY(editor.Opens());
    const QImage all = editor.StillPicture(Places::kTimeline);
    const int rows = Places::CountOfRows(editor.Picture());
    QVERIFY(rows > 9);
    editor.Click(Places::kJointsButton);
    QVERIFY(Sees([&] { return Places::CountOfRows(editor.Picture()) == 9; })); // above the joints
    editor.Click(Places::kLipsButton);
    QVERIFY(Sees([&] { return Places::CountOfRows(editor.Picture()) == 8; }));
    const SavedScene hidden = Saved(editor);
    const QJsonArray buttons =
        hidden.Row(QStringLiteral("Layers"))[QStringLiteral("buttons")].toArray();
    QCOMPARE(buttons.at(0).toObject()[QStringLiteral("on")].toBool(true), false);
    QCOMPARE(buttons.at(1).toObject()[QStringLiteral("on")].toBool(true), false);
    QCOMPARE(buttons.at(2).toObject()[QStringLiteral("on")].toBool(false), true);
    QCOMPARE(hidden.Frames(kHips), kHipsFrames); // nothing is lost by it

    editor.Click(Places::kLipsButton);
    editor.Click(Places::kJointsButton);
    QVERIFY(Sees([&] { return Places::CountOfRows(editor.Picture()) == rows; }));
    editor.Click(Places::Caption(editor.Picture(), kLips)); // active again, as it was
    ExpectPicture(editor, Places::kTimeline, all);
}

void tst_UserEdits::mutesARowByItsCaptionButton()
{
    Editor editor(MyHome());
    QVERIFY(editor.Opens());
    editor.Click(Places::Ruler(36)); // in the midst of a word
    QVERIFY(Sees([&] { return editor.CurrentFrame() == 36; }));
    const QImage speaking = editor.StillPicture();
    editor.ClickButton(kLips, CaptionButton::Mute);
    QVERIFY(Sees([&] { return editor.Picture(Places::kFace) != speaking.copy(Places::kFace); }));
    ExpectPicture(editor, Places::kFigure, speaking.copy(Places::kFigure));
    const SavedScene saved = Saved(editor);
    QVERIFY(IsOn(saved, kLips, "muted"));
    QVERIFY(!IsOn(saved, QStringLiteral("Motion"), "muted"));
    editor.ClickButton(kLips, CaptionButton::Mute);
    ExpectPicture(editor, Places::kAllButStatus, speaking);
}

void tst_UserEdits::cannotDragAKeyOfALockedRow()
{
    Editor editor(MyHome());
    QVERIFY(editor.Opens());
    editor.ClickButton(kHips, CaptionButton::Lock);
    QVERIFY(IsChanged(editor));
    editor.DragKey(kHips, 15, 20);
    editor.DragKey(kSpine, 15, 20); // a row beside it is not
    const SavedScene saved = Saved(editor);
    QVERIFY(IsOn(saved, kHips, "locked"));
    QCOMPARE(saved.Frames(kHips), kHipsFrames);
    QCOMPARE(saved.Frames(kSpine), With(Without(kHipsFrames, {15}), 20));
}

void tst_UserEdits::cutsAKeyByTheMenuOfItsRow()
{
    Editor editor(MyHome());
    QVERIFY(editor.Opens());
    editor.ClickKey(kHips, 15, Hand::kRightButton);
    QVERIFY(Sees([&] { return editor.CountOfWindows() == 2; }));
    Hand::Strike({QStringLiteral("Escape")}); // changes nothing
    QVERIFY(Sees([&] { return editor.CountOfWindows() == 1; }));
    QCOMPARE(editor.Title(), QStringLiteral("Untitled - Kestova Host"));

    editor.ClickKey(kHips, 23, Hand::kRightButton);
    QVERIFY(Sees([&] { return editor.CountOfWindows() == 2; }));
    Hand::Strike({QStringLiteral("Down"), QStringLiteral("Return")}); // the first entry is Cut
    QVERIFY(IsChanged(editor));
    editor.Click(Places::Ruler(27));
    QVERIFY(Sees([&] { return editor.CurrentFrame() == 27; }));
    editor.Strike(QStringLiteral("ctrl+v"));
    const SavedScene saved = Saved(editor);
    QCOMPARE(saved.Frames(kHips), With(Without(kHipsFrames, {23}), 27));
}

void tst_UserEdits::solosARowByItsMenuButton()
{
    Editor editor(MyHome());
    QVERIFY(editor.Opens());
    const QImage before = editor.StillPicture(Places::kTimeline);
    editor.ClickButton(kHips, CaptionButton::Menu);
    QVERIFY(Sees([&] { return editor.CountOfWindows() == 2; }));
    // From the end: Lock, Solo.
    Hand::Strike({QStringLiteral("Up"), QStringLiteral("Up"), QStringLiteral("Return")});
    QVERIFY(IsChanged(editor));
    QVERIFY(editor.StillPicture(Places::kTimeline) != before);
    QVERIFY(IsOn(Saved(editor), kHips, "soloed"));
}

void tst_UserEdits::leavesNoMarkBehindWhenGoingToAnotherRow()
{
    const QString lips = kLips;
    Editor editor(MyHome());
    QVERIFY(editor.Opens());
    editor.Click(Places::Ruler(37));
    QVERIFY(Sees([&] { return editor.CurrentFrame() == 37; }));
    const QImage before = editor.StillPicture();
    editor.ClickKey(kHips, 37); // an empty place
    QVERIFY(Sees([&] { return editor.Picture() != before; }));
    editor.Click(Places::Caption(editor.Picture(), lips));
    ExpectPicture(editor, Places::kAllButStatus, before);
    editor.DragKey(kSpine, 33, 37); // a range of time, which stays marked while one is there
    editor.Click(Places::Caption(editor.Picture(), lips));
    ExpectPicture(editor, Places::kAllButStatus, before);
}

void tst_UserEdits::undoesAllThatWasDoneAndDoesItAgain()
{
    Editor editor(MyHome());
    QVERIFY(editor.Opens());
    QVERIFY(editor.SaveAs(Path(QStringLiteral("start.ktl"))));
    const QString changed = QStringLiteral("start.ktl* - Kestova Host");
    editor.DragKey(kHips, 15, 20);
    QVERIFY(editor.Becomes(changed));
    editor.ClickKey(kSpine, 30);
    editor.Strike(kDelete);
    editor.ClickButton(kLips, CaptionButton::Mute);
    editor.Click(Places::kJointsButton);
    QVERIFY(Sees([&] { return Places::CountOfRows(editor.Picture()) == 9; }));

    editor.Strike({kUndo, kUndo, kUndo, kUndo});
    QVERIFY(editor.Becomes(QStringLiteral("start.ktl - Kestova Host")));
    QVERIFY(editor.SaveAs(Path(QStringLiteral("undone.ktl"))));
    QCOMPARE(SavedScene(Path(QStringLiteral("undone.ktl"))).Rows(),
             SavedScene(Path(QStringLiteral("start.ktl"))).Rows());

    editor.Strike({kRedo, kRedo, kRedo, kRedo});
    QVERIFY(Sees([&] { return Places::CountOfRows(editor.Picture()) == 9; }));
    const SavedScene redone = Saved(editor);
    QCOMPARE(redone.Frames(kHips), With(Without(kHipsFrames, {15}), 20));
    QCOMPARE(redone.Frames(kSpine), Without(kHipsFrames, {30}));
    QVERIFY(IsOn(redone, kLips, "muted"));
}

int main(int argc, char** argv)
{
    return TellStories<tst_UserEdits>(argc, argv);
}
#include "tst_UserEdits.moc"
