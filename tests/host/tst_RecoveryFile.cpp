#include "TestFiles.h"
#include "TestSettings.h"

#include "storage/DocumentFile.h"
#include "storage/PathList.h"
#include "storage/RecoveryFile.h"

#include <QProcess>

#include <cstdlib>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

using namespace host;

namespace {

constexpr const char* kCrash = "--crash"; ///< the test's program then is one that crashes

SceneDocument Frames(int count)
{
    SceneDocument document;
    document.scene.frameCount = count;
    return document;
}

int FramesIn(const QString& path)
{
    QString error;
    const auto document = ReadDocument(path, error);
    return document ? document->scene.frameCount : -1;
}

/// A program that works on the document and dies.
void CrashOn(const QString& documentPath, int frames)
{
    QProcess program;
    program.start(QCoreApplication::applicationFilePath(),
                  {QLatin1String(kCrash), documentPath, QString::number(frames)});
    QVERIFY(program.waitForFinished());
    QCOMPARE(program.exitStatus(), QProcess::CrashExit);
}

/// Makes the file look as if it was written so many seconds ago.
void Age(const QString& path, int seconds)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(-seconds),
                             QFileDevice::FileModificationTime));
}

/// Leaves a lock that holds @p text.
void WriteLock(const QString& path, const QByteArray& text, int age)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
    file.close();
    Age(path, age);
}

/// The newest file left for the document.
std::optional<Leftover> FindLeftoverOf(const QString& documentPath)
{
    const QVector<Leftover> found = FindLeftoversOf(documentPath).leftovers;
    return found.isEmpty() ? std::nullopt : std::optional<Leftover>(found.first());
}

[[noreturn]] void Die()
{
#ifdef Q_OS_WIN
    // As an access violation ends a program: what aborts there counts as having ended by itself.
    TerminateProcess(GetCurrentProcess(), EXCEPTION_ACCESS_VIOLATION);
#endif
    std::abort();
}

int Crash(const QStringList& arguments)
{
    // The settings are those of the test, as is the folder for recovery files.
    UseSettingsFile();
    auto* const recovery = new RecoveryFile;
    recovery->Start(arguments.value(2));
    recovery->Write(Frames(arguments.value(3).toInt()));
    recovery->Flush();
    Die();
}

} // namespace

class tst_RecoveryFile : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_settings.reset(); }

    void isWrittenSoonAfterAnEdit();
    void manyEditsAreWrittenOnce();
    void standsBesideTheDocument();
    void standsInTheProgramsFolderWithoutADocument();
    void theProgramsFolderIsTheUsersUnlessAnotherIsChosen();
    void standsInTheProgramsFolderWhenTheDocumentsCannotBeWritten();
    void isRemovedWithNothingToRecover();
    void isRemovedWhenAnotherDocumentIsStarted();
    void isLeftWhenTheProgramEndsWithoutAWord();
    void ofARunningProgramIsNotOffered();
    void ofACrashedProgramIsOffered();
    void ofACrashedProgramIsOfferedForItsDocumentOnly();
    void thatIsTakenOverIsWrittenOn();
    void thatIsKeptIsNotWrittenOver();
    void thatIsDamagedIsNeitherOfferedNorWrittenOver();
    void thatIsDiscardedIsGone();
    void failureIsToldOnce();
    void goesOnElsewhereWhenTheFolderIsGone_data();
    void goesOnElsewhereWhenTheFolderIsGone();
    void goesOnWhereItWasWhenThereIsNoOtherPlace();
    void takesOnlyTheNewestResult();
    void whatCouldNotBeWrittenIsTriedAgain();
    void ofTheSameDocumentAreOfferedTheNewestFirst();
    void besideADocumentIsFoundAtTheStart();
    void thatIsDamagedIsFoundToBeSo();
    void aLockThatSaysNothingIsForgotten();
    void aLockOfAnotherComputerIsForgottenAfterADay();
    void aLockThatCannotBeMadeTakesNothing();
    void anotherProgramIsKnownByItsLock();
    void aLinkedDocumentIsTheSameAsItsFile();

private:
    QString Document() const { return m_settings->Path(QStringLiteral("walk.ktl")); }
    QString Beside() const { return Document() + QStringLiteral(".recovery"); }

    std::unique_ptr<TestSettings> m_settings;
};

void tst_RecoveryFile::init()
{
    m_settings = std::make_unique<TestSettings>();
}

void tst_RecoveryFile::isWrittenSoonAfterAnEdit()
{
    RecoveryFile recovery;
    recovery.Start(Document());
    recovery.Write(Frames(5));
    QTRY_COMPARE(FramesIn(Beside()), 5);
    recovery.Write(Frames(6));
    QTRY_COMPARE(FramesIn(Beside()), 6);
}

void tst_RecoveryFile::manyEditsAreWrittenOnce()
{
    RecoveryFile recovery;
    recovery.Start(Document());
    for (int frames = 1; frames <= 100; ++frames)
        recovery.Write(Frames(frames));
    QVERIFY(!QFile::exists(Beside())); // the hand is not held up
    QTRY_COMPARE(FramesIn(Beside()), 100);
}

void tst_RecoveryFile::standsBesideTheDocument()
{
    RecoveryFile recovery;
    recovery.Start(Document());
    recovery.Write(Frames(5));
    QVERIFY(recovery.Flush());
    QCOMPARE(recovery.Path(), Beside());
    QCOMPARE(FramesIn(Beside()), 5);
}

void tst_RecoveryFile::standsInTheProgramsFolderWithoutADocument()
{
    RecoveryFile first;
    RecoveryFile second;
    for (RecoveryFile* const recovery : {&first, &second}) {
        recovery->Start({});
        recovery->Write(Frames(5));
        QVERIFY(recovery->Flush());
    }
    const QString folder = RecoveryFolder().path();
    QVERIFY(first.Path().startsWith(folder));
    QVERIFY(second.Path().startsWith(folder));
    QVERIFY(first.Path() != second.Path());
}

void tst_RecoveryFile::theProgramsFolderIsTheUsersUnlessAnotherIsChosen()
{
    QCOMPARE(RecoveryFolder().path(), m_settings->Path(QStringLiteral("recovery")));
    qunsetenv("KESTOVA_HOST_DATA");
    QCOMPARE(RecoveryFolder().path(),
             QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                 QStringLiteral("/recovery"));
}

void tst_RecoveryFile::standsInTheProgramsFolderWhenTheDocumentsCannotBeWritten()
{
    const QString document = QFileInfo(QStringLiteral("/proc/walk.ktl")).absoluteFilePath();
    {
        RecoveryFile recovery;
        recovery.Start(document);
        recovery.Write(Frames(5));
        QVERIFY(recovery.Flush());
        QVERIFY(recovery.Path() != document + QStringLiteral(".recovery"));
    }
    const auto leftover = FindLeftoverOf(document);
    QVERIFY(leftover);
    QCOMPARE(leftover->recoveryOf, document);
    QCOMPARE(FramesIn(leftover->path), 5);
}

void tst_RecoveryFile::isRemovedWithNothingToRecover()
{
    RecoveryFile recovery;
    recovery.Start(Document());
    recovery.Write(Frames(5));
    QVERIFY(recovery.Flush());
    recovery.Write(Frames(6));
    recovery.Remove();
    QVERIFY(!QFile::exists(Beside()));
    QVERIFY(!QFile::exists(Beside() + QStringLiteral(".lock")));
    QTest::qWait(600); // what was waiting is not written any more
    QVERIFY(!QFile::exists(Beside()));
}

void tst_RecoveryFile::isRemovedWhenAnotherDocumentIsStarted()
{
    RecoveryFile recovery;
    recovery.Start(Document());
    recovery.Write(Frames(5));
    QVERIFY(recovery.Flush());
    recovery.Start({});
    QVERIFY(!QFile::exists(Beside()));
}

void tst_RecoveryFile::isLeftWhenTheProgramEndsWithoutAWord()
{
    {
        RecoveryFile recovery;
        recovery.Start(Document());
        recovery.Write(Frames(5));
    }
    QCOMPARE(FramesIn(Beside()), 5);
    QVERIFY(FindLeftoverOf(Document()));
}

void tst_RecoveryFile::ofARunningProgramIsNotOffered()
{
    RecoveryFile recovery;
    recovery.Start(Document());
    recovery.Write(Frames(5));
    QVERIFY(recovery.Flush());
    QVERIFY(!FindLeftoverOf(Document()));
    RecoveryFile untitled;
    untitled.Start({});
    untitled.Write(Frames(5));
    QVERIFY(untitled.Flush());
    QVERIFY(FindLeftovers().leftovers.isEmpty());
    DiscardLeftover({untitled.Path(), {}, {}});
    QVERIFY(QFile::exists(untitled.Path()));
}

void tst_RecoveryFile::ofACrashedProgramIsOffered()
{
    CrashOn({}, 42);
    const QVector<Leftover> found = FindLeftovers().leftovers;
    QCOMPARE(found.size(), 1);
    QCOMPARE(FramesIn(found[0].path), 42);
    QCOMPARE(found[0].recoveryOf, QString());
    QVERIFY(qAbs(found[0].time.secsTo(QDateTime::currentDateTime())) < 60);
}

void tst_RecoveryFile::ofACrashedProgramIsOfferedForItsDocumentOnly()
{
    CrashOn(Document(), 42);
    QVERIFY(!FindLeftoverOf(m_settings->Path(QStringLiteral("other.ktl"))));
    const auto leftover = FindLeftoverOf(Document());
    QVERIFY(leftover);
    QCOMPARE(FramesIn(leftover->path), 42);
    QCOMPARE(leftover->recoveryOf, Document());
}

void tst_RecoveryFile::thatIsTakenOverIsWrittenOn()
{
    CrashOn(Document(), 42);
    RecoveryFile recovery;
    recovery.Start(Document(), FindLeftoverOf(Document()));
    QCOMPARE(FramesIn(Beside()), 42);
    QVERIFY(!FindLeftoverOf(Document()));
    recovery.Write(Frames(43));
    QVERIFY(recovery.Flush());
    QCOMPARE(FramesIn(Beside()), 43);
    recovery.Remove();
    QVERIFY(!QFile::exists(Beside()));
}

void tst_RecoveryFile::thatIsKeptIsNotWrittenOver()
{
    CrashOn(Document(), 42);
    RecoveryFile recovery;
    recovery.Start(Document());
    recovery.Write(Frames(5));
    QVERIFY(recovery.Flush());
    QVERIFY(recovery.Path() != Beside());
    QCOMPARE(FramesIn(Beside()), 42);
}

void tst_RecoveryFile::thatIsDamagedIsNeitherOfferedNorWrittenOver()
{
    QFile file(Beside());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("{");
    file.close();
    QVERIFY(!FindLeftoverOf(Document()));
    RecoveryFile recovery;
    recovery.Start(Document());
    recovery.Write(Frames(5));
    QVERIFY(recovery.Flush());
    QCOMPARE(BytesOf(Beside()), QByteArray("{"));
}

void tst_RecoveryFile::thatIsDiscardedIsGone()
{
    CrashOn(Document(), 42);
    DiscardLeftover(*FindLeftoverOf(Document()));
    QVERIFY(!QFile::exists(Beside()));
    QVERIFY(!FindLeftoverOf(Document()));
}

void tst_RecoveryFile::failureIsToldOnce()
{
    qputenv("KESTOVA_HOST_DATA", "/proc/nowhere");
    RecoveryFile recovery;
    QStringList told;
    connect(&recovery, &RecoveryFile::Failed, [&told](const QString& error) { told += error; });
    recovery.Start({});
    recovery.Write(Frames(5));
    QVERIFY(!recovery.Flush());
    QCOMPARE(told.size(), 1);
    QVERIFY(told[0].contains(QLatin1String("/proc/nowhere")));
    recovery.Write(Frames(6));
    QVERIFY(!recovery.Flush());
    QCOMPARE(told.size(), 1);
    recovery.Start(Document()); // there it works again
    recovery.Write(Frames(7));
    QVERIFY(recovery.Flush());
    QCOMPARE(FramesIn(Beside()), 7);
}

void tst_RecoveryFile::goesOnElsewhereWhenTheFolderIsGone_data()
{
    QTest::addColumn<bool>("inBackground");
    QTest::newRow("in the background") << true;
    QTest::newRow("at once") << false;
}

void tst_RecoveryFile::goesOnElsewhereWhenTheFolderIsGone()
{
    QFETCH(bool, inBackground);
    const QString folder = m_settings->Path(QStringLiteral("work"));
    QVERIFY(QDir().mkpath(folder));
    QStringList told;
    {
        RecoveryFile recovery;
        connect(&recovery, &RecoveryFile::Failed, [&told](const QString& error) { told += error; });
        recovery.Start(folder + QStringLiteral("/walk.ktl"));
        recovery.Write(Frames(5));
        QVERIFY(recovery.Flush());
        QVERIFY(QDir().rename(folder, m_settings->Path(QStringLiteral("renamed"))));
        recovery.Write(Frames(6));
        if (!inBackground)
            QVERIFY(recovery.Flush());
        QTRY_VERIFY(recovery.Path().startsWith(RecoveryFolder().path()));
        QTRY_COMPARE(FramesIn(recovery.Path()), 6);
        recovery.Write(Frames(7));
        QTRY_COMPARE(FramesIn(recovery.Path()), 7);
        QVERIFY(recovery.Flush());
    }
    QCOMPARE(told, QStringList());
    const auto leftover = FindLeftoverOf(folder + QStringLiteral("/walk.ktl"));
    QVERIFY(leftover);
    QCOMPARE(FramesIn(leftover->path), 7);
}

void tst_RecoveryFile::goesOnWhereItWasWhenThereIsNoOtherPlace()
{
    const QString folder = m_settings->Path(QStringLiteral("work"));
    const QString away = m_settings->Path(QStringLiteral("away"));
    QVERIFY(QDir().mkpath(folder));
    RecoveryFile recovery;
    QStringList told;
    connect(&recovery, &RecoveryFile::Failed, [&told](const QString& error) { told += error; });
    recovery.Start(folder + QStringLiteral("/walk.ktl"));
    recovery.Write(Frames(5));
    QVERIFY(recovery.Flush());
    QVERIFY(QDir().rename(folder, away));
    qputenv("KESTOVA_HOST_DATA", "/proc/nowhere");
    recovery.Write(Frames(6));
    QTRY_COMPARE(told.size(), 1);
    QVERIFY(!recovery.Flush());
    QCOMPARE(told.size(), 1);
    QVERIFY(QDir().rename(away, folder));
    QVERIFY(recovery.Flush());
    QCOMPARE(FramesIn(folder + QStringLiteral("/walk.ktl.recovery")), 6);
}

void tst_RecoveryFile::takesOnlyTheNewestResult()
{
    const QString folder = m_settings->Path(QStringLiteral("work"));
    const QString away = m_settings->Path(QStringLiteral("away"));
    QVERIFY(QDir().mkpath(folder));
    RecoveryFile recovery;
    recovery.Start(folder + QStringLiteral("/walk.ktl"));
    recovery.Write(Frames(5));
    QVERIFY(recovery.Flush());
    QVERIFY(QDir().rename(folder, away));
    recovery.Write(Frames(6));
    bool isFlushed = false;
    auto* const timer = recovery.findChild<QTimer*>();
    connect(timer, &QTimer::timeout, &recovery, [&] { // right after the other thread was started
        timer->disconnect();
        QThread::msleep(200); // it fails
        QDir().rename(away, folder);
        recovery.Write(Frames(7));
        isFlushed = recovery.Flush();
    });
    QTRY_VERIFY(isFlushed);
    QTest::qWait(50); // now its result arrives
    QVERIFY(recovery.Flush());
    QCOMPARE(FramesIn(recovery.Path()), 7);
}

void tst_RecoveryFile::whatCouldNotBeWrittenIsTriedAgain()
{
    const QByteArray home = qgetenv("KESTOVA_HOST_DATA");
    qputenv("KESTOVA_HOST_DATA", "/proc/nowhere");
    RecoveryFile recovery;
    recovery.Start({});
    recovery.Write(Frames(5));
    QVERIFY(!recovery.Flush());
    QVERIFY(!recovery.Flush());
    qputenv("KESTOVA_HOST_DATA", home);
    QVERIFY(recovery.Flush());
    QCOMPARE(FramesIn(recovery.Path()), 5);
    QVERIFY(recovery.Flush());
}

void tst_RecoveryFile::ofTheSameDocumentAreOfferedTheNewestFirst()
{
    CrashOn(Document(), 42);
    CrashOn(Document(), 43); // in the program's folder
    Age(Beside(), 3600);
    QVector<Leftover> found = FindLeftoversOf(Document()).leftovers;
    QCOMPARE(found.size(), 2);
    QCOMPARE(FramesIn(found[0].path), 43);
    QCOMPARE(FramesIn(found[1].path), 42);
    Age(Beside(), -3600);
    found = FindLeftoversOf(Document()).leftovers;
    QCOMPARE(FramesIn(found[0].path), 42);
}

void tst_RecoveryFile::besideADocumentIsFoundAtTheStart()
{
    CrashOn(Document(), 42);
    CrashOn({}, 43);
    QVector<Leftover> found = FindLeftovers().leftovers;
    QCOMPARE(found.size(), 2);
    const bool isFirst = found[0].recoveryOf == Document();
    QCOMPARE(found[isFirst ? 0 : 1].recoveryOf, Document());
    QCOMPARE(found[isFirst ? 1 : 0].recoveryOf, QString());
    // Nor is it forgotten once it was found.
    QCOMPARE(FindLeftovers().leftovers.size(), 2);
    QVERIFY(QFile::remove(Beside()));
    QCOMPARE(FindLeftovers().leftovers.size(), 1);
    QVERIFY(RecoveredDocuments().Paths().isEmpty());
    // A document that was only opened may have been worked on by another user of the settings.
    RecentFiles().Add(Document());
    CrashOn(Document(), 44);
    RecoveredDocuments().Clear();
    QCOMPARE(FindLeftovers().leftovers.size(), 2);
}

void tst_RecoveryFile::thatIsDamagedIsFoundToBeSo()
{
    QFile file(Beside());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("{\"format\": \"kestova-scene\", \"version\": 2}");
    file.close();
    const FoundLeftovers found = FindLeftoversOf(Document());
    QVERIFY(found.leftovers.isEmpty());
    QCOMPARE(found.unreadable.size(), 1);
    QCOMPARE(found.unreadable[0].path, Beside());
    QCOMPARE(found.unreadable[0].error,
             QStringLiteral("walk.ktl.recovery: version: expected 1 at most, found 2: written by a "
                            "newer program"));
}

void tst_RecoveryFile::aLockThatSaysNothingIsForgotten()
{
    CrashOn(Document(), 42);
    const QString lock = Beside() + QStringLiteral(".lock");
    WriteLock(lock, {}, 0);
    QVERIFY(!FindLeftoverOf(Document())); // it may be being written
    WriteLock(lock, {}, 100);
    QVERIFY(FindLeftoverOf(Document()));
    DiscardLeftover(*FindLeftoverOf(Document()));
    QVERIFY(!QFile::exists(Beside()));
}

void tst_RecoveryFile::aLockOfAnotherComputerIsForgottenAfterADay()
{
    constexpr int kDay = 24 * 60 * 60;
    CrashOn(Document(), 42);
    const QString lock = Beside() + QStringLiteral(".lock");
    const QByteArray elsewhere = "1\nkestova-host\nanother-computer\n";
    WriteLock(lock, elsewhere, kDay + 100);
    QVERIFY(!FindLeftoverOf(Document())); // the file was written just now
    Age(Beside(), kDay + 100);
    QVERIFY(FindLeftoverOf(Document()));
    WriteLock(lock, elsewhere, kDay - 100);
    QVERIFY(!FindLeftoverOf(Document()));
}

void tst_RecoveryFile::aLockThatCannotBeMadeTakesNothing()
{
    constexpr int kLongestName = 255;
    const QString suffix = QStringLiteral(".recovery");
    const QString document =
        m_settings->Path(QString(kLongestName - suffix.size(), QLatin1Char('w')));
    QString error;
    QVERIFY(WriteDocument(Document(), Frames(5), error));
    QVERIFY(QFile::copy(Document(), document + suffix)); // its lock's name would be too long
    QVERIFY(FindLeftoverOf(document));
}

void tst_RecoveryFile::anotherProgramIsKnownByItsLock()
{
    RecoveryFile recovery;
    recovery.Start(Document());
    recovery.Write(Frames(5));
    QVERIFY(recovery.Flush());
    QVERIFY(IsTaken(Beside()));
    QVERIFY(!IsTakenElsewhere(Beside()));
    recovery.Remove();
    QVERIFY(!IsTakenElsewhere(Beside()));
    WriteLock(Beside() + QStringLiteral(".lock"), "1\nkestova-host\nanother-computer\n", 0);
    QVERIFY(IsTakenElsewhere(Beside()));
}

void tst_RecoveryFile::aLinkedDocumentIsTheSameAsItsFile()
{
#ifdef Q_OS_WIN
    QSKIP("what Qt makes there is a shortcut of the desktop, no link in the file system");
#endif
    QString error;
    QVERIFY(WriteDocument(Document(), Frames(5), error));
    const QString link = m_settings->Path(QStringLiteral("link.ktl"));
    QVERIFY(QFile::link(Document(), link));
    CrashOn(link, 42);
    QCOMPARE(FramesIn(Beside()), 42);
    QVERIFY(!QFile::exists(link + QStringLiteral(".recovery")));
    QVERIFY(FindLeftoverOf(Document()));
    QVERIFY(FindLeftoverOf(link));
}

int main(int argc, char** argv)
{
    QCoreApplication::setOrganizationName(QStringLiteral("KestovaTest"));
    if (argc > 1 && argv[1] == QLatin1String(kCrash)) {
        const QCoreApplication application(argc, argv);
        return Crash(QCoreApplication::arguments());
    }
    const QGuiApplication application(argc, argv);
    tst_RecoveryFile test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_RecoveryFile.moc"
