#include "HandledEditor.h"
#include "TestSettings.h"

#include "files/DocumentActions.h"
#include "files/DocumentDialogs.h"
#include "files/StartOffers.h"
#include "storage/DocumentFile.h"
#include "storage/PathList.h"

#include <QMessageBox>
#include <QPushButton>
#include <QWindow>

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
    bool toReplace = false;
    QString path; ///< to open, or to save in

    SaveAnswer AskToSave(const QString& name) override
    {
        asked += QStringLiteral("save %1?").arg(name);
        return toSave;
    }
    RecoverAnswer AskToRecover(const QString& name, const QDateTime&,
                               const QDateTime& savedLater) override
    {
        asked += (savedLater.isValid() ? QStringLiteral("recover older %1?")
                                       : QStringLiteral("recover %1?"))
                     .arg(name);
        return toRecover;
    }
    bool AskToReplace(const QString& name, const QDateTime&) override
    {
        asked += QStringLiteral("replace %1?").arg(name);
        return toReplace;
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
        Choose("Save As");
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
    void openingWhatIsOpenShowsItAsItWasSaved();
    void openingTheFileThatWasJustSavedInShowsItAsItWasSaved();
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
    void startingAfterACrashOffersTheDocumentThatWasOpen();
    void startingWithADocumentOffersTheRestToo();
    void startingAtAFrameGoesThereWhateverIsRecovered();
    void startingOffersNothingMoreOnceSomethingWasRecovered();
    void whatIsLeftOfOneDocumentIsOfferedOneByOne();
    void whatIsOlderThanTheFileIsOfferedAsSuch();
    void workThatCannotBeTakenOverIsKeptElsewhere();
    void aRecoveryFileThatCannotBeReadIsToldOnce();
    void whatAnotherProgramWroteIsReplacedOnlyOnDemand();
    void whatAnotherProgramRemovedIsWrittenWithoutAQuestion();
    void unsavedChangesInAnotherProgramAreTold();
    void savingCommitsTheEditUnderWay();
    void aFileThatIsDamagedStaysInTheMenu();
    void namesStandInTheMenuAsTheyAre();
    void filesOfOneNameTellTheirFolder();
    void aNameLikeTheMarkForChangesStandsInTheTitle();
    void everyWayOutAsksAboutChanges_data();
    void everyWayOutAsksAboutChanges();
    void theEndOfTheSessionKeepsTheWork();
    void theDialogForOlderWorkSaysSoAndKeepsIt();
    void theDialogForAFileChangedElsewhereLeavesItAlone();
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
    editor.Choose("Open");
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

void tst_Documents::openingWhatIsOpenShowsItAsItWasSaved()
{
    DocumentEditor editor;
    editor.SaveIn("walk.ktl");
    editor.MoveAKey();
    const host::Scene changed = editor.Scene();
    editor.answers.toSave = DocumentPrompts::SaveAnswer::Save;
    QVERIFY(editor.actions->Open(editor.Path("walk.ktl")));
    QCOMPARE(editor.answers.Take(), Asked("save walk.ktl?"));
    QVERIFY(editor.Scene() == changed);
    QVERIFY(SceneIn(editor.Path("walk.ktl")) == changed);
    QVERIFY(!editor.Document().IsDirty());
}

void tst_Documents::openingTheFileThatWasJustSavedInShowsItAsItWasSaved()
{
    DocumentEditor editor;
    editor.SaveIn("walk.ktl");
    editor.Choose("New");
    host::Scene scene = editor.Scene();
    scene.frameCount += 5;
    editor.window.Session().Apply(QStringLiteral("Lengthen"), scene);
    editor.answers.toSave =
        DocumentPrompts::SaveAnswer::Save; // of the untitled one, over the other
    QVERIFY(editor.actions->Open(editor.Path("walk.ktl")));
    QCOMPARE(editor.answers.Take(), (QStringList{QStringLiteral("save Untitled?"),
                                                 QStringLiteral("save where? Untitled.ktl")}));
    QVERIFY(editor.Scene() == scene);
    QVERIFY(SceneIn(editor.Path("walk.ktl")) == scene);
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
    QVERIFY(host::FindLeftovers().leftovers.isEmpty());
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
    QVERIFY(host::FindLeftovers().leftovers.isEmpty());
}

void tst_Documents::startingAfterACrashOffersTheDocumentThatWasOpen()
{
    DocumentEditor editor;
    editor.SaveIn("walk.ktl");
    host::RecentFiles().Clear();
    editor.MoveAKey();
    const host::Scene changed = editor.Scene();
    editor.Crash();
    editor.StartAgain();
    editor.answers.toRecover = DocumentPrompts::RecoverAnswer::Recover;
    editor.actions->OfferLeftovers();
    QCOMPARE(editor.answers.Take(), Asked("recover walk.ktl?"));
    QVERIFY(editor.Scene() == changed);
    QCOMPARE(editor.Document().Path(), editor.Path("walk.ktl"));
}

void tst_Documents::startingWithADocumentOffersTheRestToo()
{
    DocumentEditor editor;
    editor.MoveAKey();
    const host::Scene untitled = editor.Scene();
    editor.Crash();
    editor.StartAgain();
    editor.SaveIn("walk.ktl");
    editor.MoveAKey();
    editor.Crash();
    editor.StartAgain();
    host::OfferAtStart(editor.window, *editor.actions, {editor.Path("walk.ktl"), false, {}});
    QCOMPARE(editor.answers.Take(), (QStringList{QStringLiteral("recover walk.ktl?"),
                                                 QStringLiteral("recover Untitled?")}));
    QCOMPARE(editor.Document().Path(), editor.Path("walk.ktl")); // the others stay for later
    editor.answers.toRecover = DocumentPrompts::RecoverAnswer::Recover;
    host::OfferAtStart(editor.window, *editor.actions, {editor.Path("walk.ktl"), true, {}});
    QCOMPARE(editor.answers.Take(), Asked("recover Untitled?"));
    QVERIFY(editor.Scene() == untitled);
}

void tst_Documents::startingAtAFrameGoesThereWhateverIsRecovered()
{
    DocumentEditor editor;
    editor.SaveIn("walk.ktl");
    editor.MoveAKey();
    editor.Crash();
    editor.StartAgain();
    editor.Timeline().SetCurrentFrame(0);
    editor.answers.toRecover = DocumentPrompts::RecoverAnswer::Recover;
    host::OfferAtStart(editor.window, *editor.actions, {editor.Path("walk.ktl"), false, 33});
    QVERIFY(editor.Document().IsDirty());
    QCOMPARE(editor.Timeline().GetCurrentFrame(), 33);
}

void tst_Documents::startingOffersNothingMoreOnceSomethingWasRecovered()
{
    DocumentEditor editor;
    editor.MoveAKey();
    editor.Crash();
    editor.StartAgain();
    editor.MoveAKey();
    editor.actions->OfferLeftovers();
    QCOMPARE(editor.answers.Take(), QStringList());
}

void tst_Documents::whatIsLeftOfOneDocumentIsOfferedOneByOne()
{
    DocumentEditor editor;
    editor.SaveIn("walk.ktl");
    const host::Scene saved = editor.Scene();
    editor.MoveAKey();
    const host::Scene first = editor.Scene();
    editor.Crash();
    editor.StartAgain();
    QVERIFY(editor.actions->Open(editor.Path("walk.ktl"))); // leaves that for later
    editor.Drag("LeftArm", editor.At("LeftArm", 30), {editor.At("LeftArm", 35)});
    editor.Crash();
    editor.StartAgain();
    editor.answers.Take();
    QVERIFY(editor.actions->Open(editor.Path("walk.ktl")));
    QCOMPARE(editor.answers.Take(), (QStringList{QStringLiteral("recover walk.ktl?"),
                                                 QStringLiteral("recover walk.ktl?")}));
    QVERIFY(editor.Scene() == saved);
    const auto left = host::FindLeftoversOf(editor.Path("walk.ktl")).leftovers;
    QCOMPARE(left.size(), 2);
    host::DiscardLeftover(left[0]); // the newer one
    editor.answers.toRecover = DocumentPrompts::RecoverAnswer::Recover;
    QVERIFY(editor.actions->Open(editor.Path("walk.ktl")));
    QVERIFY(editor.Scene() == first);
}

void tst_Documents::whatIsOlderThanTheFileIsOfferedAsSuch()
{
    DocumentEditor editor;
    editor.SaveIn("walk.ktl");
    editor.MoveAKey();
    editor.Crash();
    QFile file(editor.Path("walk.ktl"));
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(100),
                             QFileDevice::FileModificationTime));
    file.close();
    editor.StartAgain();
    QVERIFY(editor.actions->Open(editor.Path("walk.ktl")));
    QCOMPARE(editor.answers.Take(), Asked("recover older walk.ktl?"));
}

void tst_Documents::workThatCannotBeTakenOverIsKeptElsewhere()
{
    DocumentEditor editor;
    editor.SaveIn("walk.ktl");
    editor.MoveAKey();
    const host::Scene changed = editor.Scene();
    editor.Crash();
    editor.StartAgain();
    const auto left = host::FindLeftoversOf(editor.Path("walk.ktl")).leftovers;
    QCOMPARE(left.size(), 1);
    QString error;
    const auto document = host::ReadDocument(left[0].path, error);
    QVERIFY(document);
    const auto taken = host::RecoveryPlace::Take(left[0].path); // by somebody, meanwhile
    QVERIFY(editor.Document().Recover(left[0], *document));
    editor.Document().Secure();
    const QDir folder = host::RecoveryFolder();
    const QStringList kept = folder.entryList({QStringLiteral("*.recovery")});
    QCOMPARE(kept.size(), 1);
    QVERIFY(SceneIn(folder.filePath(kept[0])) == changed);
}

void tst_Documents::aRecoveryFileThatCannotBeReadIsToldOnce()
{
    DocumentEditor editor;
    editor.SaveIn("walk.ktl");
    QFile file(editor.Path("walk.ktl.recovery"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("{\"format\": \"kestova-scene\", \"version\": 99}");
    file.close();
    QVERIFY(editor.actions->Open(editor.Path("walk.ktl")));
    QCOMPARE(editor.answers.Take(),
             QStringList{file.fileName() +
                         QStringLiteral(" cannot be read: version: expected 1 at most, found 99: "
                                        "written by a newer program. It is left where it is")});
    QVERIFY(editor.actions->Open(editor.Path("walk.ktl")));
    editor.actions->OfferLeftovers();
    QCOMPARE(editor.answers.Take(), QStringList());
    QVERIFY(file.exists());
}

void tst_Documents::whatAnotherProgramWroteIsReplacedOnlyOnDemand()
{
    DocumentEditor editor;
    editor.SaveIn("walk.ktl");
    editor.MoveAKey();
    host::SceneDocument other;
    other.scene = editor.Scene();
    other.scene.frameCount += 1000;
    QString error;
    QVERIFY(host::WriteDocument(editor.Path("walk.ktl"), other, error));
    editor.Choose("Save");
    QCOMPARE(editor.answers.Take(), Asked("replace walk.ktl?"));
    QVERIFY(SceneIn(editor.Path("walk.ktl")) == other.scene);
    QVERIFY(editor.Document().IsDirty());
    editor.answers.toSave = DocumentPrompts::SaveAnswer::Save;
    QVERIFY(!editor.actions->MayLeave()); // nothing is lost here either
    editor.answers.Take();
    editor.answers.toReplace = true;
    editor.Choose("Save");
    QCOMPARE(editor.answers.Take(), Asked("replace walk.ktl?"));
    QVERIFY(SceneIn(editor.Path("walk.ktl")) == editor.Scene());
    editor.window.History().Undo();
    editor.Choose("Save");
    QCOMPARE(editor.answers.Take(), QStringList());
}

void tst_Documents::whatAnotherProgramRemovedIsWrittenWithoutAQuestion()
{
    DocumentEditor editor;
    editor.SaveIn("walk.ktl");
    editor.MoveAKey();
    QVERIFY(QFile::remove(editor.Path("walk.ktl")));
    editor.Choose("Save");
    QCOMPARE(editor.answers.Take(), QStringList());
    QVERIFY(SceneIn(editor.Path("walk.ktl")) == editor.Scene());
}

void tst_Documents::unsavedChangesInAnotherProgramAreTold()
{
    DocumentEditor editor;
    editor.SaveIn("walk.ktl");
    QFile lock(editor.Path("walk.ktl.recovery.lock"));
    QVERIFY(lock.open(QIODevice::WriteOnly));
    lock.write("1\nkestova-host\nanother-computer\n");
    lock.close();
    QVERIFY(editor.actions->Open(editor.Path("walk.ktl")));
    QCOMPARE(editor.StatusText(), QStringLiteral("walk.ktl has unsaved changes in another window"));
}

void tst_Documents::savingCommitsTheEditUnderWay()
{
    DocumentEditor editor;
    host::Scene scene = editor.Scene();
    ++scene.frameCount;
    editor.window.Session().Step(QStringLiteral("Lengthen"), scene);
    QString error;
    QVERIFY(editor.Document().Save(editor.Path("walk.ktl"), error));
    QVERIFY(!editor.Document().IsDirty());
    editor.window.Session().Commit();
    QVERIFY(!editor.Document().IsDirty());
    QVERIFY(SceneIn(editor.Path("walk.ktl")) == scene);
}

void tst_Documents::aFileThatIsDamagedStaysInTheMenu()
{
    DocumentEditor editor;
    editor.SaveIn("one.ktl");
    QVERIFY(QFile::resize(editor.Path("one.ktl"), 100));
    QVERIFY(!editor.actions->Open(editor.Path("one.ktl")));
    QCOMPARE(host::RecentFiles().Paths(), QStringList{editor.Path("one.ktl")});
}

void tst_Documents::namesStandInTheMenuAsTheyAre()
{
    DocumentEditor editor;
    editor.SaveIn("Tom & Ann.ktl");
    QMenu* const recent = editor.Command(QStringLiteral("Open Recent"))->menu();
    emit recent->aboutToShow();
    QCOMPARE(recent->actions()[0]->text(), QStringLiteral("Tom && Ann.ktl"));
}

void tst_Documents::filesOfOneNameTellTheirFolder()
{
    DocumentEditor editor;
    QVERIFY(QDir().mkpath(editor.Path("a")));
    editor.SaveIn("a/walk.ktl");
    editor.SaveIn("run.ktl");
    editor.SaveIn("walk.ktl");
    QMenu* const recent = editor.Command(QStringLiteral("Open Recent"))->menu();
    emit recent->aboutToShow();
    const QDir folder(QFileInfo(editor.Path("walk.ktl")).absolutePath());
    const auto inFolder = [&folder](const char* name) {
        return QStringLiteral("walk.ktl in ") +
               QDir::toNativeSeparators(QDir::cleanPath(folder.filePath(QLatin1String(name))));
    };
    QCOMPARE(recent->actions()[0]->text(), inFolder("."));
    QCOMPARE(recent->actions()[1]->text(), QStringLiteral("run.ktl"));
    QCOMPARE(recent->actions()[2]->text(), inFolder("a"));
}

void tst_Documents::aNameLikeTheMarkForChangesStandsInTheTitle()
{
#ifdef Q_OS_WIN
    QSKIP("no file has a star in its name there");
#endif
    DocumentEditor editor;
    editor.SaveIn("walk[*].ktl");
    QCOMPARE(editor.Title(), QStringLiteral("walk[*][*].ktl[*] - Kestova Host"));
    // The platform's window has it as people see it.
    QCOMPARE(editor.window.windowHandle()->title(), QStringLiteral("walk[*].ktl - Kestova Host"));
}

void tst_Documents::everyWayOutAsksAboutChanges_data()
{
    QTest::addColumn<QString>("way");
    for (const char* const way : {"New", "Open", "Recent", "drop"})
        QTest::newRow(way) << QString::fromLatin1(way);
}

void tst_Documents::everyWayOutAsksAboutChanges()
{
    QFETCH(QString, way);
    DocumentEditor editor;
    editor.SaveIn("other.ktl");
    const host::Scene other = editor.Scene();
    editor.SaveIn("walk.ktl");
    editor.MoveAKey();
    const host::Scene changed = editor.Scene();
    editor.answers.path = editor.Path("other.ktl");
    const auto leave = [&editor, &way] {
        QMenu* const recent = editor.Command(QStringLiteral("Open Recent"))->menu();
        emit recent->aboutToShow();
        if (way == QLatin1String("Recent"))
            recent->actions()[1]->trigger();
        else if (way == QLatin1String("drop"))
            editor.DropFile("Sound", QPoint(30, 5), editor.Path("other.ktl"));
        else
            editor.Command(way)->trigger();
        QCoreApplication::processEvents();
        return editor.answers.Take().filter(QStringLiteral("save"));
    };
    QCOMPARE(leave(), Asked("save walk.ktl?")); // and is cancelled
    QVERIFY(editor.Scene() == changed);
    QVERIFY(editor.Document().IsDirty());
    editor.answers.toSave = DocumentPrompts::SaveAnswer::Discard;
    QCOMPARE(leave(), Asked("save walk.ktl?"));
    QVERIFY(editor.Scene() != changed);
    QVERIFY(way == QLatin1String("New") || editor.Scene() == other);
    QVERIFY(!QFile::exists(editor.Path("walk.ktl.recovery")));
}

void tst_Documents::theEndOfTheSessionKeepsTheWork()
{
    DocumentEditor editor;
    editor.SaveIn("walk.ktl");
    editor.MoveAKey();
    host::Scene scene = editor.Scene();
    ++scene.frameCount;
    editor.window.Session().Step(QStringLiteral("Lengthen"), scene); // under way
    const char unused = 0; // only the session's end itself makes such a manager; nobody asks it
    QMetaObject::invokeMethod(qApp, "commitDataRequest", Qt::DirectConnection,
                              QGenericArgument("QSessionManager&", &unused));
    QVERIFY(SceneIn(editor.Path("walk.ktl.recovery")) == scene);
    QCOMPARE(editor.answers.Take(), QStringList());
}

void tst_Documents::theDialogForOlderWorkSaysSoAndKeepsIt()
{
    host::DocumentDialogs dialogs(nullptr);
    const QDateTime time(QDate(2024, 5, 1), QTime(10, 30));
    const QDateTime later(QDate(2024, 5, 2), QTime(11, 40));
    const auto ask = [&](const QDateTime& savedLater) {
        QString text;
        QTimer::singleShot(0, this, [&text] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            text = box->text();
            box->defaultButton()->click();
        });
        const auto answer = dialogs.AskToRecover(QStringLiteral("walk.ktl"), time, savedLater);
        return qMakePair(answer, text);
    };
    const QString saved = QLocale().toString(later, QLocale::ShortFormat);
    QCOMPARE(ask({}).first, DocumentPrompts::RecoverAnswer::Recover);
    QVERIFY(ask({}).second.contains(QStringLiteral("not saved after its last change")));
    QCOMPARE(ask(later).first, DocumentPrompts::RecoverAnswer::Leave);
    QVERIFY(
        ask(later).second.contains(QStringLiteral("the file was saved after that, on ") + saved));
}

void tst_Documents::theDialogForAFileChangedElsewhereLeavesItAlone()
{
    host::DocumentDialogs dialogs(nullptr);
    const auto ask = [&](const auto& choose) {
        QTimer::singleShot(0, this, [&choose] {
            choose(*qobject_cast<QMessageBox*>(QApplication::activeModalWidget()));
        });
        return dialogs.AskToReplace(QStringLiteral("walk.ktl"), QDateTime::currentDateTime());
    };
    QVERIFY(!ask([](QMessageBox& box) { box.defaultButton()->click(); }));
    QVERIFY(!ask([](QMessageBox& box) { box.reject(); }));
    QVERIFY(ask([](QMessageBox& box) {
        for (QAbstractButton* const button : box.buttons()) {
            if (box.buttonRole(button) == QMessageBox::DestructiveRole)
                button->click();
        }
    }));
}

QTEST_MAIN(tst_Documents)
#include "tst_Documents.moc"
