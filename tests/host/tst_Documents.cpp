#include "HandledEditor.h"
#include "TestSettings.h"

#include "files/DocumentActions.h"
#include "storage/DocumentFile.h"

#include <memory>

using Frames = QVector<int>;
using host::DocumentPrompts;

namespace {

/// Answers as it was told to, and notes what it was asked.
struct Answers : DocumentPrompts
{
    QStringList asked;
    SaveAnswer toSave = SaveAnswer::Cancel;
    RecoverAnswer toRecover = RecoverAnswer::Leave;
    QString path; ///< to open, or to save in

    SaveAnswer AskToSave(const QString& name) override
    {
        asked += QStringLiteral("save %1?").arg(name);
        return toSave;
    }
    RecoverAnswer AskToRecover(const QString& name, const QDateTime&) override
    {
        asked += QStringLiteral("recover %1?").arg(name);
        return toRecover;
    }
    QString AskForFileToOpen(const QString&) override
    {
        asked += QStringLiteral("open which?");
        return path;
    }
    QString AskForFileToSave(const QString& suggested) override
    {
        asked += QStringLiteral("save where? %1").arg(QFileInfo(suggested).fileName());
        return path;
    }
    void TellError(const QString& text) override { asked += text; }

    QStringList Take() { return std::exchange(asked, {}); }
};

/// The editor with its File menu.
struct DocumentEditor : HandledEditor
{
    TestSettings settings;
    Answers answers;
    std::unique_ptr<host::DocumentActions> actions =
        std::make_unique<host::DocumentActions>(window, answers);

    host::Document& Document() { return actions->Current(); }
    QString Path(const char* name) const { return settings.Path(QLatin1String(name)); }
    QString Title() const { return window.windowTitle(); }
    void MoveAKey() { Drag("LeftArm", At("LeftArm", 15), {At("LeftArm", 20)}); }
    void Choose(const char* command)
    {
        Command(QLatin1String(command))->trigger();
        QCoreApplication::processEvents();
    }
    void SaveIn(const char* name)
    {
        answers.path = Path(name);
        Choose("Save As...");
        answers.Take();
    }
    /// The program dies: what it has done is left in a recovery file, and the lock is free.
    void Crash()
    {
        Document().Secure();
        actions.reset();
    }
    /// And is started again.
    void StartAgain()
    {
        window.FileMenu()->clear();
        window.SetScene(Sample());
        actions = std::make_unique<host::DocumentActions>(window, answers);
    }
};

host::Scene SceneIn(const QString& path)
{
    QString error;
    const auto document = host::ReadDocument(path, error);
    return document ? document->scene : host::Scene();
}

QStringList Asked(const char* what)
{
    return {QLatin1String(what)};
}

} // namespace

Q_DECLARE_METATYPE(host::DocumentPrompts::SaveAnswer)

class tst_Documents : public QObject
{
    Q_OBJECT

private slots:
    void aSceneThatWasImportedHasNoFileAndNoChanges();
    void theTitleSaysWhatHasChanged();
    void undoingToWhatWasSavedLeavesNothingToSave();
    void savingTheFirstTimeAsksWhere();
    void savingAgainAsksNothing();
    void savingThatIsCancelledChangesNothing();
    void savingThatFailsIsExplainedAndTheChangesRemain();
    void openingBringsBackSceneAndView();
    void openingWhatIsDamagedIsExplainedAndChangesNothing();
    void openingWhatTheSkinCannotShowIsExplainedAndChangesNothing();
    void openingAsksAboutChanges_data();
    void openingAsksAboutChanges();
    void newStartsWithEmptyRows();
    void closingAsksAboutChanges();
    void closingWithoutChangesAsksNothing();
    void closingLeavesNothingToRecover();
    void aDocumentDroppedOnTheWindowIsOpened();
    void otherFilesDroppedOnTheWindowAreNotTaken();
    void theFilesUsedLastAreInTheMenu();
    void aFileThatIsGoneLeavesTheMenu();
    void savingDuringADragEndsItFirst();
    void editsAreKeptForRecoveryAtOnce();
    void openingAfterACrashRecovers();
    void openingAfterACrashDiscards();
    void openingAfterACrashKeepsForLater();
    void aDamagedDocumentCanBeRecovered();
    void startingAfterACrashOffersWhatWasNeverSaved();
};

void tst_Documents::aSceneThatWasImportedHasNoFileAndNoChanges()
{
    DocumentEditor editor;
    QVERIFY(editor.Document().Path().isEmpty());
    QVERIFY(!editor.Document().IsDirty());
    QCOMPARE(editor.Title(), QStringLiteral("Untitled[*] - Kestova Host"));
    QVERIFY(!editor.window.isWindowModified());
}

void tst_Documents::theTitleSaysWhatHasChanged()
{
    DocumentEditor editor;
    editor.SaveIn("walk.ktl");
    QCOMPARE(editor.Title(), QStringLiteral("walk.ktl[*] - Kestova Host"));
    editor.MoveAKey();
    QVERIFY(editor.window.isWindowModified());
    editor.Choose("Save");
    QVERIFY(!editor.window.isWindowModified());
}

void tst_Documents::undoingToWhatWasSavedLeavesNothingToSave()
{
    DocumentEditor editor;
    editor.MoveAKey();
    editor.SaveIn("walk.ktl");
    editor.window.History().Undo();
    QVERIFY(editor.window.isWindowModified());
    editor.window.History().Redo();
    QVERIFY(!editor.window.isWindowModified());
}

void tst_Documents::savingTheFirstTimeAsksWhere()
{
    DocumentEditor editor;
    editor.MoveAKey();
    editor.answers.path = editor.Path("walk.ktl");
    QTest::keyClick(&editor.window, Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(editor.answers.Take(), Asked("save where? Untitled.ktl"));
    QVERIFY(SceneIn(editor.Path("walk.ktl")) == editor.Scene());
    QCOMPARE(editor.StatusText(), QStringLiteral("Saved walk.ktl"));
}

void tst_Documents::savingAgainAsksNothing()
{
    DocumentEditor editor;
    editor.SaveIn("walk.ktl");
    editor.MoveAKey();
    editor.Choose("Save");
    QVERIFY(editor.answers.Take().isEmpty());
    QVERIFY(SceneIn(editor.Path("walk.ktl")) == editor.Scene());
}

void tst_Documents::savingThatIsCancelledChangesNothing()
{
    DocumentEditor editor;
    editor.MoveAKey();
    QVERIFY(!editor.actions->Save());
    QVERIFY(editor.Document().IsDirty());
    QVERIFY(editor.Document().Path().isEmpty());
}

void tst_Documents::savingThatFailsIsExplainedAndTheChangesRemain()
{
    DocumentEditor editor;
    editor.MoveAKey();
    editor.answers.path = editor.Path("no/walk.ktl");
    QVERIFY(!editor.actions->SaveAs());
    const QStringList asked = editor.answers.Take();
    QCOMPARE(asked.size(), 2);
    QVERIFY(asked[1].startsWith(QLatin1String("walk.ktl: expected a file that can be written")));
    QVERIFY(editor.Document().IsDirty());
    QVERIFY(editor.Document().Path().isEmpty());
}

void tst_Documents::openingBringsBackSceneAndView()
{
    DocumentEditor editor;
    editor.MoveAKey();
    editor.Timeline().SetScrollInfo(0.25F, 0.5F);
    editor.Timeline().SetCurrentFrame(33);
    const host::Scene saved = editor.Scene();
    const host::ViewRecord view = editor.window.View();
    editor.SaveIn("walk.ktl");
    editor.Choose("New");
    QVERIFY(editor.Scene() != saved);
    editor.Choose("Open...");
    QCOMPARE(editor.answers.Take(), Asked("open which?"));
    QVERIFY(editor.Scene() == saved);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    QVERIFY(editor.window.View() == view);
    QCOMPARE(view.frame, 33);
    QCOMPARE(editor.Title(), QStringLiteral("walk.ktl[*] - Kestova Host"));
    QVERIFY(!editor.Document().IsDirty());
    QVERIFY(!editor.window.History().Stack().canUndo());
}

void tst_Documents::openingWhatIsDamagedIsExplainedAndChangesNothing()
{
    DocumentEditor editor;
    editor.MoveAKey();
    const host::Scene before = editor.Scene();
    QFile file(editor.Path("bad.ktl"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("{\"format\": \"kestova-scene\", \"version\": 99}");
    file.close();
    QVERIFY(!editor.actions->Open(file.fileName()));
    QCOMPARE(editor.answers.Take(), Asked("bad.ktl: version: expected 1 at most, found 99: written "
                                          "by a newer program"));
    QVERIFY(editor.Scene() == before);
    QVERIFY(editor.Document().IsDirty());
    QVERIFY(editor.window.History().Stack().canUndo());
}

void tst_Documents::openingWhatTheSkinCannotShowIsExplainedAndChangesNothing()
{
    DocumentEditor editor;
    host::SceneDocument document;
    document.scene = editor.Scene();
    document.scene.tracks[1].styleNumber = 77;
    QString error;
    QVERIFY(host::WriteDocument(editor.Path("odd.ktl"), document, error));
    const host::Scene before = editor.Scene();
    QVERIFY(!editor.actions->Open(editor.Path("odd.ktl")));
    QCOMPARE(editor.answers.Take(),
             Asked("odd.ktl: expected a scene that the skin has styles for"));
    QVERIFY(editor.Scene() == before);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    QVERIFY(editor.Document().Path().isEmpty());
}

void tst_Documents::openingAsksAboutChanges_data()
{
    QTest::addColumn<DocumentPrompts::SaveAnswer>("answer");
    QTest::addColumn<bool>("isOpened");
    QTest::addColumn<bool>("isSaved");
    QTest::newRow("save") << DocumentPrompts::SaveAnswer::Save << true << true;
    QTest::newRow("discard") << DocumentPrompts::SaveAnswer::Discard << true << false;
    QTest::newRow("cancel") << DocumentPrompts::SaveAnswer::Cancel << false << false;
}

void tst_Documents::openingAsksAboutChanges()
{
    QFETCH(DocumentPrompts::SaveAnswer, answer);
    QFETCH(bool, isOpened);
    QFETCH(bool, isSaved);
    DocumentEditor editor;
    editor.SaveIn("other.ktl");
    const host::Scene other = editor.Scene();
    editor.SaveIn("walk.ktl");
    editor.MoveAKey();
    const host::Scene changed = editor.Scene();
    editor.answers.toSave = answer;
    QCOMPARE(editor.actions->Open(editor.Path("other.ktl")), isOpened);
    QCOMPARE(editor.answers.Take(), Asked("save walk.ktl?"));
    QVERIFY(editor.Scene() == (isOpened ? other : changed));
    QVERIFY(SceneIn(editor.Path("walk.ktl")) == (isSaved ? changed : other));
    QCOMPARE(QFile::exists(editor.Path("walk.ktl.recovery")), !isOpened);
}

void tst_Documents::newStartsWithEmptyRows()
{
    DocumentEditor editor;
    editor.SaveIn("walk.ktl");
    QTest::keyClick(&editor.window, Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(editor.Scene().frameCount, 300);
    QVERIFY(editor.KeysOf("Sound").isEmpty());
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    QVERIFY(editor.Document().Path().isEmpty());
    QVERIFY(!editor.Document().IsDirty());
}

void tst_Documents::closingAsksAboutChanges()
{
    DocumentEditor editor;
    editor.MoveAKey();
    QVERIFY(!editor.window.close());
    QVERIFY(editor.window.isVisible());
    QCOMPARE(editor.answers.Take(), Asked("save Untitled?"));
    editor.answers.toSave = DocumentPrompts::SaveAnswer::Save; // but then not saying where
    QVERIFY(!editor.window.close());
    editor.answers.path = editor.Path("walk.ktl");
    QVERIFY(editor.window.close());
    QVERIFY(SceneIn(editor.Path("walk.ktl")) == editor.Scene());
}

void tst_Documents::closingWithoutChangesAsksNothing()
{
    DocumentEditor editor;
    editor.Choose("Quit");
    QVERIFY(!editor.window.isVisible());
    QVERIFY(editor.answers.Take().isEmpty());
}

void tst_Documents::closingLeavesNothingToRecover()
{
    DocumentEditor editor;
    editor.MoveAKey();
    editor.Document().Secure();
    editor.answers.toSave = DocumentPrompts::SaveAnswer::Discard;
    QVERIFY(editor.window.close());
    editor.actions.reset();
    QVERIFY(host::FindLeftovers().isEmpty());
}

void tst_Documents::aDocumentDroppedOnTheWindowIsOpened()
{
    DocumentEditor editor;
    editor.MoveAKey();
    const host::Scene saved = editor.Scene();
    editor.SaveIn("walk.ktl");
    editor.Choose("New");
    // On a row of the timeline, which does not know such files.
    QVERIFY(editor.DropFile("Sound", QPoint(30, 5), editor.Path("walk.ktl")));
    QCoreApplication::processEvents();
    QVERIFY(editor.Scene() == saved);
    QCOMPARE(editor.Title(), QStringLiteral("walk.ktl[*] - Kestova Host"));
}

void tst_Documents::otherFilesDroppedOnTheWindowAreNotTaken()
{
    DocumentEditor editor;
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(editor.Path("notes.txt"))});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(&editor.window, &enter);
    QVERIFY(!enter.isAccepted());
}

void tst_Documents::theFilesUsedLastAreInTheMenu()
{
    DocumentEditor editor;
    editor.SaveIn("one.ktl");
    const host::Scene one = editor.Scene();
    editor.MoveAKey();
    editor.SaveIn("two.ktl");
    QMenu* const recent = editor.Command(QStringLiteral("Open Recent"))->menu();
    emit recent->aboutToShow();
    QCOMPARE(recent->actions()[0]->text(), QStringLiteral("two.ktl"));
    QCOMPARE(recent->actions()[1]->text(), QStringLiteral("one.ktl"));
    recent->actions()[1]->trigger();
    QVERIFY(editor.Scene() == one);
    emit recent->aboutToShow();
    QCOMPARE(recent->actions()[0]->text(), QStringLiteral("one.ktl"));
    recent->actions().last()->trigger(); // clear
    emit recent->aboutToShow();
    QVERIFY(!recent->actions().last()->isEnabled());
}

void tst_Documents::aFileThatIsGoneLeavesTheMenu()
{
    DocumentEditor editor;
    editor.SaveIn("one.ktl");
    QVERIFY(QFile::remove(editor.Path("one.ktl")));
    QVERIFY(!editor.actions->Open(editor.Path("one.ktl")));
    QVERIFY(editor.answers.Take().first().startsWith(
        QLatin1String("one.ktl: expected a readable file")));
    QVERIFY(host::RecentFiles().Paths().isEmpty());
}

void tst_Documents::savingDuringADragEndsItFirst()
{
    DocumentEditor editor;
    editor.SaveIn("walk.ktl");
    QWidget* const row = editor.WidgetOf("LeftArm");
    editor.pointer.Press(row, editor.At("LeftArm", 15));
    editor.pointer.MoveTo(row, editor.At("LeftArm", 20));
    QTest::keyClick(&editor.window, Qt::Key_S, Qt::ControlModifier);
    QCoreApplication::processEvents();
    editor.pointer.Release();
    QVERIFY(!editor.Document().IsDirty());
    QVERIFY(SceneIn(editor.Path("walk.ktl")) == editor.Scene());
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 20, 30, 45, 60, 75, 90}));
}

void tst_Documents::editsAreKeptForRecoveryAtOnce()
{
    DocumentEditor editor;
    editor.SaveIn("walk.ktl");
    const QString recovery = editor.Path("walk.ktl.recovery");
    editor.MoveAKey();
    QTRY_VERIFY(SceneIn(recovery) == editor.Scene());
    editor.window.History().Undo(); // as saved
    QVERIFY(!QFile::exists(recovery));
    editor.window.History().Redo();
    QTRY_VERIFY(SceneIn(recovery) == editor.Scene());
    editor.Choose("Save");
    QVERIFY(!QFile::exists(recovery));
}

void tst_Documents::openingAfterACrashRecovers()
{
    DocumentEditor editor;
    editor.SaveIn("walk.ktl");
    editor.MoveAKey();
    const host::Scene changed = editor.Scene();
    editor.Crash();
    editor.StartAgain();
    editor.answers.toRecover = DocumentPrompts::RecoverAnswer::Recover;
    QVERIFY(editor.actions->Open(editor.Path("walk.ktl")));
    QCOMPARE(editor.answers.Take(), Asked("recover walk.ktl?"));
    QVERIFY(editor.Scene() == changed);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    QCOMPARE(editor.Document().Path(), editor.Path("walk.ktl"));
    QVERIFY(editor.window.isWindowModified());
    QVERIFY(SceneIn(editor.Path("walk.ktl.recovery")) == changed); // safe until it is saved
    editor.Choose("Save");
    QVERIFY(SceneIn(editor.Path("walk.ktl")) == changed);
    QVERIFY(!QFile::exists(editor.Path("walk.ktl.recovery")));
}

void tst_Documents::openingAfterACrashDiscards()
{
    DocumentEditor editor;
    editor.SaveIn("walk.ktl");
    const host::Scene saved = editor.Scene();
    editor.MoveAKey();
    editor.Crash();
    editor.StartAgain();
    editor.answers.toRecover = DocumentPrompts::RecoverAnswer::Discard;
    QVERIFY(editor.actions->Open(editor.Path("walk.ktl")));
    QVERIFY(editor.Scene() == saved);
    QVERIFY(!editor.Document().IsDirty());
    QVERIFY(!QFile::exists(editor.Path("walk.ktl.recovery")));
}

void tst_Documents::openingAfterACrashKeepsForLater()
{
    DocumentEditor editor;
    editor.SaveIn("walk.ktl");
    const host::Scene saved = editor.Scene();
    editor.MoveAKey();
    const host::Scene changed = editor.Scene();
    editor.Crash();
    editor.StartAgain();
    QVERIFY(editor.actions->Open(editor.Path("walk.ktl")));
    QVERIFY(editor.Scene() == saved);
    editor.MoveAKey();
    editor.Choose("Save");
    QVERIFY(SceneIn(editor.Path("walk.ktl.recovery")) == changed);
}

void tst_Documents::aDamagedDocumentCanBeRecovered()
{
    DocumentEditor editor;
    editor.SaveIn("walk.ktl");
    editor.MoveAKey();
    const host::Scene changed = editor.Scene();
    editor.Crash();
    QVERIFY(QFile::resize(editor.Path("walk.ktl"), 100));
    editor.StartAgain();
    editor.answers.toRecover = DocumentPrompts::RecoverAnswer::Recover;
    QVERIFY(editor.actions->Open(editor.Path("walk.ktl")));
    QVERIFY(editor.Scene() == changed);
}

void tst_Documents::startingAfterACrashOffersWhatWasNeverSaved()
{
    DocumentEditor editor;
    editor.MoveAKey();
    const host::Scene changed = editor.Scene();
    editor.Crash();
    editor.StartAgain();
    editor.actions->OfferLeftovers();
    QCOMPARE(editor.answers.Take(), Asked("recover Untitled?"));
    QVERIFY(editor.Scene() != changed);
    editor.answers.toRecover = DocumentPrompts::RecoverAnswer::Recover;
    editor.actions->OfferLeftovers(); // it was kept for later
    QVERIFY(editor.Scene() == changed);
    QVERIFY(editor.Document().Path().isEmpty());
    QVERIFY(editor.Document().IsDirty());
    editor.SaveIn("walk.ktl");
    editor.actions.reset();
    QVERIFY(host::FindLeftovers().isEmpty());
}

QTEST_MAIN(tst_Documents)
#include "tst_Documents.moc"
