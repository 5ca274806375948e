#include "TestFiles.h"
#include "TestSettings.h"

#include "storage/DocumentFile.h"
#include "storage/RecoveryFile.h"

#include <QProcess>

#include <cstdlib>

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

int Crash(const QStringList& arguments)
{
    auto* const recovery = new RecoveryFile;
    recovery->Start(arguments.value(2));
    recovery->Write(Frames(arguments.value(3).toInt()));
    recovery->Flush();
    std::abort();
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
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    QVERIFY(first.Path().startsWith(folder));
    QVERIFY(second.Path().startsWith(folder));
    QVERIFY(first.Path() != second.Path());
}

void tst_RecoveryFile::standsInTheProgramsFolderWhenTheDocumentsCannotBeWritten()
{
    const QString document = QStringLiteral("/proc/walk.ktl");
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
    QVERIFY(FindLeftovers().isEmpty());
    DiscardLeftover({untitled.Path(), {}, {}});
    QVERIFY(QFile::exists(untitled.Path()));
}

void tst_RecoveryFile::ofACrashedProgramIsOffered()
{
    CrashOn({}, 42);
    const QVector<Leftover> found = FindLeftovers();
    QCOMPARE(found.size(), 1);
    QCOMPARE(FramesIn(found[0].path), 42);
    QCOMPARE(found[0].recoveryOf, QString());
    QVERIFY(qAbs(found[0].time.secsTo(QDateTime::currentDateTime())) < 60);
}

void tst_RecoveryFile::ofACrashedProgramIsOfferedForItsDocumentOnly()
{
    CrashOn(Document(), 42);
    QVERIFY(FindLeftovers().isEmpty());
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
    qputenv("XDG_DATA_HOME", "/proc/nowhere");
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

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("KestovaTest"));
    if (application.arguments().value(1) == QLatin1String(kCrash))
        return Crash(application.arguments());
    tst_RecoveryFile test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_RecoveryFile.moc"
