#include "Story.h"

/// Saving, opening and leaving.
class tst_UserSaves : public Story
{
    Q_OBJECT

private slots:
    void savesADraggedKeyWhereItWasDragged();
    void seesTheSavedSceneAgainAsItWasLeft_data();
    void seesTheSavedSceneAgainAsItWasLeft();
    void leavesWithoutAQuestionWhenNothingWasChanged();
    void isAskedAboutUnsavedChangesAndStays();
    void isAskedAboutUnsavedChangesAndLosesThemOnDemand();
    void isAskedAboutUnsavedChangesAndSavesThem();
    void isToldOfADamagedFileOnTheCommandLine_data();
    void isToldOfADamagedFileOnTheCommandLine();
    void keepsTheSceneWhenADamagedFileIsOpened();
};

namespace {

const QString kUnsaved = QStringLiteral("Unsaved changes");
const QStringList kStay{QStringLiteral("Escape")};
const QStringList kSave{QStringLiteral("Return")};
const QStringList kDiscard{QStringLiteral("Right"), QStringLiteral("space")};

QByteArray BytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

void Write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size());
}

} // namespace

void tst_UserSaves::savesADraggedKeyWhereItWasDragged()
{
    const QString path = Path(QStringLiteral("walk.ktl"));
    const QString title = QStringLiteral("walk.ktl - Kestova Host");
    const QString changed = QStringLiteral("walk.ktl* - Kestova Host");
    Editor editor(MyHome());
    QVERIFY(editor.Opens());
    QCOMPARE(editor.Title(), QStringLiteral("Untitled - Kestova Host"));
    QVERIFY(editor.SaveAs(path));
    const SavedScene start(path);
    QVERIFY(start.Frames(QStringLiteral("Hips")).contains(15));
    editor.ClickKey(QStringLiteral("Hips"), 15); // what the drag begins with, and undo restores
    QVERIFY(Sees([&] { return editor.CurrentFrame() == 15; }));
    const QImage before = editor.StillPicture(Places::kTimeline);

    editor.DragKey(QStringLiteral("Hips"), 15, 20);
    QVERIFY(editor.Becomes(changed));
    const QImage dragged = editor.StillPicture(Places::kTimeline);
    QVERIFY(dragged != before);
    editor.Strike(QStringLiteral("ctrl+z"));
    QVERIFY(editor.Becomes(title));
    ExpectPicture(editor, Places::kTimeline, before);
    editor.Strike(QStringLiteral("ctrl+shift+z"));
    QVERIFY(editor.Becomes(changed));
    ExpectPicture(editor, Places::kTimeline, dragged);

    QVERIFY(editor.Save());
    QCOMPARE(editor.Quit(), EXIT_SUCCESS);
    const SavedScene end(path);
    QVector<int> expected = start.Frames(QStringLiteral("Hips"));
    expected.replace(expected.indexOf(15), 20);
    QCOMPARE(end.Frames(QStringLiteral("Hips")), expected);
    QCOMPARE(end.OtherRows(QStringLiteral("Hips")), start.OtherRows(QStringLiteral("Hips")));
    QCOMPARE(end.CurrentFrame(), 20);
}

void tst_UserSaves::seesTheSavedSceneAgainAsItWasLeft_data()
{
    QTest::addColumn<bool>("isOnCommandLine");
    QTest::newRow("on the command line") << true;
    QTest::newRow("by the keyboard") << false;
}

void tst_UserSaves::seesTheSavedSceneAgainAsItWasLeft()
{
    QFETCH(bool, isOnCommandLine);
    const QString path = Path(QStringLiteral("walk.ktl"));
    QImage left;
    {
        Editor editor(MyHome());
        QVERIFY(editor.Opens());
        editor.DragKey(QStringLiteral("Spine"), 15, 19);
        editor.DragKey(QStringLiteral("Motion Blend"), 0, 4);
        editor.ClickKey(QStringLiteral("Hips"), 37); // an empty place: nothing is selected now
        editor.Click(Places::Caption(editor.Picture(), QStringLiteral("Lips")));
        QVERIFY(editor.SaveAs(path));
        left = editor.StillPicture();
        QCOMPARE(Places::CurrentFrame(left), 37);
        QCOMPARE(editor.Quit(), EXIT_SUCCESS);
    }
    Editor editor(MyHome(), isOnCommandLine ? QStringList{path} : QStringList());
    QVERIFY(editor.Opens());
    if (!isOnCommandLine) {
        QVERIFY(editor.Picture() != left);
        editor.Strike(QStringLiteral("ctrl+o"));
        QVERIFY(editor.AnswerFile(QStringLiteral("Open"), path));
    }
    QVERIFY(editor.Becomes(QStringLiteral("walk.ktl - Kestova Host")));
    ExpectPicture(editor, Places::kAllButStatus, left);
}

void tst_UserSaves::leavesWithoutAQuestionWhenNothingWasChanged()
{
    Editor editor(MyHome());
    QVERIFY(editor.Opens());
    editor.Click(Places::Ruler(40)); // looking is no change
    QVERIFY(Sees([&] { return editor.CurrentFrame() == 40; }));
    QCOMPARE(editor.Quit(), EXIT_SUCCESS);
}

void tst_UserSaves::isAskedAboutUnsavedChangesAndStays()
{
    Editor editor(MyHome());
    QVERIFY(editor.Opens());
    editor.DragKey(QStringLiteral("Hips"), 15, 20);
    QVERIFY(editor.Becomes(QStringLiteral("Untitled* - Kestova Host")));
    const QImage changed = editor.StillPicture();
    editor.Strike(QStringLiteral("ctrl+q"));
    QVERIFY(editor.Answer(kUnsaved, kStay));
    ExpectPicture(editor, Places::kAllButStatus, changed);
    QCOMPARE(editor.Title(), QStringLiteral("Untitled* - Kestova Host"));
    QVERIFY(editor.SaveAs(Path(QStringLiteral("kept.ktl"))));
    QVERIFY(
        SavedScene(Path(QStringLiteral("kept.ktl"))).Frames(QStringLiteral("Hips")).contains(20));
}

void tst_UserSaves::isAskedAboutUnsavedChangesAndLosesThemOnDemand()
{
    const QString path = Path(QStringLiteral("walk.ktl"));
    {
        Editor editor(MyHome());
        QVERIFY(editor.Opens());
        QVERIFY(editor.SaveAs(path));
        const QByteArray saved = BytesOf(path);
        editor.DragKey(QStringLiteral("Hips"), 15, 20);
        QVERIFY(editor.Becomes(QStringLiteral("walk.ktl* - Kestova Host")));
        editor.Strike(QStringLiteral("ctrl+q"));
        QVERIFY(editor.Answer(kUnsaved, kDiscard));
        QCOMPARE(editor.ExitCode(), EXIT_SUCCESS);
        QCOMPARE(BytesOf(path), saved);
    }
    Editor editor(MyHome(), {path}); // does not ask whether to recover them
    QVERIFY(editor.Opens());
    QCOMPARE(editor.Title(), QStringLiteral("walk.ktl - Kestova Host"));
}

void tst_UserSaves::isAskedAboutUnsavedChangesAndSavesThem()
{
    const QString path = Path(QStringLiteral("walk.ktl"));
    Editor editor(MyHome());
    QVERIFY(editor.Opens());
    editor.DragKey(QStringLiteral("Hips"), 15, 20);
    QVERIFY(editor.Becomes(QStringLiteral("Untitled* - Kestova Host")));
    editor.Strike(QStringLiteral("ctrl+q"));
    QVERIFY(editor.Answer(kUnsaved, kSave));
    QVERIFY(editor.AnswerFile(QStringLiteral("Save As"), path));
    QCOMPARE(editor.ExitCode(), EXIT_SUCCESS);
    QVERIFY(SavedScene(path).Frames(QStringLiteral("Hips")).contains(20));
}

void tst_UserSaves::isToldOfADamagedFileOnTheCommandLine_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("told"); ///< a part of the message that says what is wrong
    QTest::newRow("cut off") << QStringLiteral("cut.ktl")
                             << QByteArray("{\"format\": \"kestova-scene\", \"version\": 1, \"fra")
                             << QStringLiteral("cut.ktl: line 1");
    QTest::newRow("no scene at all")
        << QStringLiteral("letter.ktl") << QByteArray("Dear animator,\n")
        << QStringLiteral("letter.ktl: line 1");
    QTest::newRow("empty") << QStringLiteral("empty.ktl") << QByteArray()
                           << QStringLiteral("empty.ktl");
    QTest::newRow("of a newer program")
        << QStringLiteral("newer.ktl")
        << QByteArray("{\"format\": \"kestova-scene\", \"version\": 1000}")
        << QStringLiteral("newer");
    QTest::newRow("a capture that is cut off")
        << QStringLiteral("cut.bvh") << QByteArray("HIERARCHY\nROOT Hips\n{\n")
        << QStringLiteral("cut.bvh:");
}

void tst_UserSaves::isToldOfADamagedFileOnTheCommandLine()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, told);
    const QString path = Path(name);
    Write(path, bytes);
    QProcess program;
    program.setProcessEnvironment(MyHome().Environment());
    program.start(QStringLiteral(KESTOVA_HOST_PROGRAM), {path});
    QVERIFY(program.waitForFinished(kPatience));
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), EXIT_FAILURE);
    const QString message = QString::fromUtf8(program.readAllStandardError());
    QVERIFY2(message.contains(told), qPrintable(message));
    QCOMPARE(message.count(u'\n'), 1); // one line
    QCOMPARE(program.readAllStandardOutput(), QByteArray());
    QCOMPARE(BytesOf(path), bytes);
}

void tst_UserSaves::keepsTheSceneWhenADamagedFileIsOpened()
{
    const QString path = Path(QStringLiteral("cut.ktl"));
    const QByteArray bytes("{\"format\": \"kestova-scene\", \"version\": 1, \"fra");
    Write(path, bytes);
    Editor editor(MyHome());
    QVERIFY(editor.Opens());
    editor.DragKey(QStringLiteral("Hips"), 15, 20);
    QVERIFY(editor.Becomes(QStringLiteral("Untitled* - Kestova Host")));
    const QImage changed = editor.StillPicture();
    editor.Strike(QStringLiteral("ctrl+o"));
    QVERIFY(editor.AnswerFile(QStringLiteral("Open"), path));
    QVERIFY(editor.Answer(QStringLiteral("Error"), {QStringLiteral("Return")}));
    ExpectPicture(editor, Places::kAllButStatus, changed);
    QCOMPARE(editor.Title(), QStringLiteral("Untitled* - Kestova Host"));
    QCOMPARE(BytesOf(path), bytes);
}

int main(int argc, char** argv)
{
    return TellStories<tst_UserSaves>(argc, argv);
}
#include "tst_UserSaves.moc"
