#include "RandomScene.h"
#include "TestFiles.h"
#include "TestSettings.h"

#include "storage/DocumentFile.h"
#include "storage/PathList.h"

#include <QTemporaryDir>

#ifndef Q_OS_WIN
#include <unistd.h>
#endif

using namespace host;

namespace {

/// Who may write anywhere cannot be kept from it.
bool MayWriteAnywhere()
{
#ifdef Q_OS_WIN
    return false; // a read-only file is read-only for everyone
#else
    return ::geteuid() == 0;
#endif
}

/// A document with one clip that plays that sound.
SceneDocument WithSound(const QString& sound)
{
    SceneDocument document;
    document.scene.frameCount = 10;
    SceneTrack row;
    row.keys = QVector<SceneKey>(2);
    row.keys[1].sound = sound;
    document.scene.AddTrack(row);
    return document;
}

QString SoundOf(const SceneDocument& document)
{
    return document.scene.tracks[0].keys[1].sound;
}

} // namespace

class tst_DocumentFile : public QObject
{
    Q_OBJECT

private slots:
    void isReadAsItWasWritten();
    void isKnownByItsName_data();
    void isKnownByItsName();
    void aFileThatCannotBeReadIsExplained();
    void aDamagedFileIsExplainedAndLeftAlone();
    void aFileThatCannotBeWrittenIsExplainedAndLeftAlone();
    void aReadOnlyFileStaysAsItWas();
    void soundsBesideItMoveWithIt();
    void soundsElsewhereStayWhereTheyAre();
    void theFilesUsedLastComeFirst();
    void noMoreFilesAreRememberedThanAMenuShows();
};

void tst_DocumentFile::isReadAsItWasWritten()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("walk.ktl"));
    RandomScene random(7);
    for (int i = 0; i < 20; ++i) {
        SceneDocument document = random.Document();
        for (SceneTrack& track : document.scene.tracks) {
            for (SceneKey& key : track.keys)
                key.sound.clear(); // paths are made fit for the place of the file
        }
        QString error;
        QVERIFY2(WriteDocument(path, document, error), qPrintable(error));
        const auto read = ReadDocument(path, error);
        QVERIFY2(read, qPrintable(error));
        QVERIFY(*read == document);
    }
}

void tst_DocumentFile::isKnownByItsName_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("isDocument");
    QTest::newRow("a document") << QStringLiteral("/a/walk.ktl") << true;
    QTest::newRow("in capitals") << QStringLiteral("WALK.KTL") << true;
    QTest::newRow("cues") << QStringLiteral("line.json") << false;
    QTest::newRow("a recovery file") << QStringLiteral("walk.ktl.recovery") << false;
    QTest::newRow("nothing") << QString() << false;
}

void tst_DocumentFile::isKnownByItsName()
{
    QFETCH(QString, path);
    QTEST(IsDocument(path), "isDocument");
}

void tst_DocumentFile::aFileThatCannotBeReadIsExplained()
{
    const QTemporaryDir folder;
    QString error;
    QVERIFY(!ReadDocument(folder.filePath(QStringLiteral("none.ktl")), error));
    QVERIFY2(error.startsWith(QLatin1String("none.ktl: expected a readable file (")),
             qPrintable(error));
    QVERIFY(!ReadDocument(folder.path(), error));
    QVERIFY(error.contains(QLatin1String(": expected a readable file")));
}

void tst_DocumentFile::aDamagedFileIsExplainedAndLeftAlone()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("walk.ktl"));
    QString error;
    QVERIFY(WriteDocument(path, WithSound({}), error));
    const QByteArray damaged = BytesOf(path).replace("\"frameCount\": 10", "\"frameCount\": ten");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(damaged);
    file.close();
    QVERIFY(!ReadDocument(path, error));
    QVERIFY2(error.startsWith(QLatin1String("walk.ktl: line 5: expected a whole JSON text (")),
             qPrintable(error));
    QCOMPARE(BytesOf(path), damaged);
}

void tst_DocumentFile::aFileThatCannotBeWrittenIsExplainedAndLeftAlone()
{
    const QTemporaryDir folder;
    QString error;
    QVERIFY(!WriteDocument(folder.filePath(QStringLiteral("no/walk.ktl")), WithSound({}), error));
    QVERIFY2(error.startsWith(QLatin1String("walk.ktl: expected a file that can be written (")),
             qPrintable(error));
    QVERIFY(!WriteDocument(folder.path(), WithSound({}), error));
}

void tst_DocumentFile::aReadOnlyFileStaysAsItWas()
{
    if (MayWriteAnywhere())
        QSKIP("this user may write to read-only files");
    const QTemporaryDir folder;
    QString error;
    const QString path = folder.filePath(QStringLiteral("walk.ktl"));
    QVERIFY(WriteDocument(path, WithSound({}), error));
    const QByteArray before = BytesOf(path);
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner));
    QVERIFY(!WriteDocument(path, SceneDocument(), error));
    QVERIFY2(error.startsWith(QLatin1String("walk.ktl: expected a file that can be written (")),
             qPrintable(error));
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner));
    QCOMPARE(BytesOf(path), before);
}

void tst_DocumentFile::soundsBesideItMoveWithIt()
{
    const QTemporaryDir folder;
    const QDir dir(folder.path());
    QVERIFY(dir.mkpath(QStringLiteral("first")) && dir.mkpath(QStringLiteral("second")));
    const QString sound = dir.filePath(QStringLiteral("first/takes/hello.wav"));
    const QString first = dir.filePath(QStringLiteral("first/walk.ktl"));
    const QString second = dir.filePath(QStringLiteral("second/walk.ktl"));
    QString error;
    QVERIFY(WriteDocument(first, WithSound(sound), error));
    QVERIFY(BytesOf(first).contains("\"takes/hello.wav\""));
    QCOMPARE(SoundOf(*ReadDocument(first, error)), sound);
    QVERIFY(QFile::rename(first, second));
    QCOMPARE(SoundOf(*ReadDocument(second, error)),
             dir.filePath(QStringLiteral("second/takes/hello.wav")));
}

void tst_DocumentFile::soundsElsewhereStayWhereTheyAre()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("walk.ktl"));
    const QString sound = QStringLiteral("/elsewhere/hello.wav");
    QString error;
    QVERIFY(WriteDocument(path, WithSound(sound), error));
    QCOMPARE(SoundOf(*ReadDocument(path, error)), sound);
}

void tst_DocumentFile::theFilesUsedLastComeFirst()
{
    const TestSettings settings;
    const QString one = QFileInfo(QStringLiteral("/a/one.ktl")).absoluteFilePath();
    const QString two = QFileInfo(QStringLiteral("/a/two.ktl")).absoluteFilePath();
    RecentFiles recent;
    QVERIFY(recent.Paths().isEmpty());
    recent.Add(one);
    recent.Add(two);
    recent.Add(one);
    QCOMPARE(recent.Paths(), (QStringList{one, two}));
    recent.Remove(one);
    QCOMPARE(recent.Paths(), QStringList{two});
    recent.Clear();
    QVERIFY(recent.Paths().isEmpty());
}

void tst_DocumentFile::noMoreFilesAreRememberedThanAMenuShows()
{
    const TestSettings settings;
    RecentFiles recent;
    for (int i = 0; i < 20; ++i)
        recent.Add(QStringLiteral("/a/%1.ktl").arg(i));
    QCOMPARE(recent.Paths().size(), 8);
    QCOMPARE(recent.Paths().first(), QFileInfo(QStringLiteral("/a/19.ktl")).absoluteFilePath());
}

QTEST_MAIN(tst_DocumentFile)
#include "tst_DocumentFile.moc"
