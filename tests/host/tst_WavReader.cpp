#include "import/WavReader.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace host;

namespace {

QByteArray Number(quint32 value, int bytes)
{
    QByteArray made;
    for (int i = 0; i < bytes; ++i)
        made.append(static_cast<char>((value >> (8 * i)) & 0xFF));
    return made;
}

QByteArray Chunk(const QByteArray& tag, const QByteArray& content)
{
    const QByteArray padding(content.size() % 2, '\0');
    return tag + Number(static_cast<quint32>(content.size()), 4) + content + padding;
}

/// Two channels of two bytes at that rate.
QByteArray Format(quint32 rate)
{
    return Chunk("fmt ", Number(1, 2) + Number(2, 2) + Number(rate, 4) + Number(rate * 4, 4) +
                             Number(4, 2) + Number(16, 2));
}

QByteArray Riff(const QByteArray& chunks)
{
    return "RIFF" + Number(static_cast<quint32>(chunks.size()) + 4, 4) + "WAVE" + chunks;
}

QByteArray Samples(int bytes)
{
    return Chunk("data", QByteArray(bytes, '\0'));
}

} // namespace

class tst_WavReader : public QObject
{
    Q_OBJECT

private slots:
    void readsTheLengthFromTheHeader_data();
    void readsTheLengthFromTheHeader();
    void refusesWhatIsNoSound_data();
    void refusesWhatIsNoSound();
    void refusesAFileThatIsNotThere();
    void refusesADirectory();
};

void tst_WavReader::readsTheLengthFromTheHeader_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<double>("seconds");
    QTest::newRow("plain") << Riff(Format(1000) + Samples(6000)) << 1.5;
    QTest::newRow("other chunks, one of odd length")
        << Riff(Chunk("LIST", "odd") + Format(1000) + Chunk("fact", "1234") + Samples(2000)) << 0.5;
    QTest::newRow("more after the samples")
        << Riff(Format(1000) + Samples(4000) + Chunk("LIST", "name")) << 1.0;
    const QByteArray promised = "data" + Number(0xFFFFFFFF, 4) + QByteArray(2000, '\0');
    const auto format = [](quint32 kind, quint32 bits, quint32 bytesPerSecond) {
        return Chunk("fmt ", Number(kind, 2) + Number(2, 2) + Number(1000, 4) +
                                 Number(bytesPerSecond, 4) + Number(4, 2) + Number(bits, 2));
    };
    QTest::newRow("a wrong number of bytes a second")
        << Riff(format(1, 16, 12345) + Samples(6000)) << 1.5;
    QTest::newRow("no number of bytes a second") << Riff(format(3, 32, 0) + Samples(8000)) << 1.0;
    QTest::newRow("compressed, as the header says")
        << Riff(format(17, 4, 500) + Samples(1000)) << 2.0;
    QTest::newRow("compressed, with whole bytes")
        << Riff(format(85, 16, 500) + Samples(1000)) << 2.0;
    QTest::newRow("a length that was never written")
        << Riff(Format(1000) + "data" + Number(0, 4) + QByteArray(4000, '\0')) << 1.0;
    QTest::newRow("an odd chunk without its filling byte")
        << Riff("LIST" + Number(3, 4) + "odd" + Format(1000) + Samples(2000)) << 0.5;
    QTest::newRow("an odd chunk of text with its filling byte")
        << Riff("LIST" + Number(3, 4) + "odd " + Format(1000) + Samples(2000)) << 0.5;
    QTest::newRow("fewer samples than promised") << Riff(Format(1000) + promised) << 0.5;
}

void tst_WavReader::readsTheLengthFromTheHeader()
{
    QFETCH(QByteArray, bytes);
    QFETCH(double, seconds);
    QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("a.wav")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();
    ImportError error;
    const auto read = ReadWavSeconds(file.fileName(), error);
    QVERIFY2(read, qPrintable(error.Message()));
    QCOMPARE(*read, seconds);
}

void tst_WavReader::refusesWhatIsNoSound_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");
    const QString riff = QStringLiteral("a sound file that starts with RIFF and WAVE");
    const QString format = QStringLiteral("a format chunk with the bytes of a second");
    const QString data = QStringLiteral("a data chunk with samples");
    QTest::newRow("empty") << QByteArray() << riff;
    QTest::newRow("cut in the first header") << QByteArray("RIFF\1\0\0\0WA", 10) << riff;
    QTest::newRow("text") << QByteArray("hello, this is no sound") << riff;
    QTest::newRow("another form") << QByteArray("RIFF\4\0\0\0AVI ", 12) << riff;
    QTest::newRow("no chunks") << Riff({}) << format;
    QTest::newRow("samples without a format") << Riff(Samples(100)) << format;
    QTest::newRow("no bytes in a second") << Riff(Format(0) + Samples(100)) << format;
    QTest::newRow("a format cut short") << Riff(Chunk("fmt ", "1234") + Samples(100)) << format;
    QTest::newRow("no samples") << Riff(Format(1000)) << data;
    QTest::newRow("an empty data chunk") << Riff(Format(1000) + Samples(0)) << data;
    QTest::newRow("a cut chunk header") << Riff(Format(1000) + "dat") << data;
    QTest::newRow("a chunk beyond the end")
        << Riff(Format(1000) + "LIST" + Number(0xFFFFFFFF, 4)) << data;
    const QByteArray slow = Chunk("fmt ", Number(1, 2) + Number(1, 2) + Number(1, 4) +
                                              Number(1, 4) + Number(1, 2) + Number(8, 2));
    QTest::newRow("longer than a day")
        << Riff(slow + Samples(86401)) << QStringLiteral("a sound of at most a day");
}

void tst_WavReader::refusesWhatIsNoSound()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, expected);
    QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("a.wav")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();
    ImportError error;
    QVERIFY(!ReadWavSeconds(file.fileName(), error));
    QCOMPARE(error.expected, expected);
    QCOMPARE(error.file, file.fileName());
}

void tst_WavReader::refusesAFileThatIsNotThere()
{
    ImportError error;
    QVERIFY(!ReadWavSeconds(QStringLiteral("/nowhere/a.wav"), error));
    QVERIFY(!error.Message().isEmpty());
}

void tst_WavReader::refusesADirectory()
{
    QTemporaryDir directory;
    ImportError error;
    QVERIFY(!ReadWavSeconds(directory.path(), error));
    QCOMPARE(error.expected, QStringLiteral("a readable file"));
}

QTEST_MAIN(tst_WavReader)
#include "tst_WavReader.moc"
