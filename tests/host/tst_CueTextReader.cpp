#include "TestFiles.h"

#include "import/CueTextReader.h"
#include "import/MouthCueReader.h"

using namespace host;

namespace {

const char* const kLine = "0.00\tX\n"
                          "0.50\tA\n"
                          "1.00\tH\n"
                          "1.50\tX\n";

std::optional<SpokenLine> Read(const QByteArray& text)
{
    ImportError error;
    return ReadCueText(text, QStringLiteral("hello.tsv"), error);
}

QString MessageFor(const QByteArray& text)
{
    ImportError error;
    return ReadCueText(text, QStringLiteral("hello.tsv"), error) ? QStringLiteral("read")
                                                                 : error.Message();
}

QByteArray With(const char* before, const char* after)
{
    return QByteArray(kLine).replace(before, after);
}

} // namespace

class tst_CueTextReader : public QObject
{
    Q_OBJECT

private slots:
    void holdsEachShapeUntilTheNext();
    void readsEveryWayOfWriting_data();
    void readsEveryWayOfWriting();
    void sortsCuesThatAreOutOfOrder();
    void restsBeforeTheFirstCue();
    void endsWithTheLastCueWhateverItsShape();
    void givesNoTimeToTheFirstOfTwoCuesOfOneTime();
    void readsASingleCue();
    void namesTheLineAndWhatWasExpected_data();
    void namesTheLineAndWhatWasExpected();
    void survivesEveryByteReplaced_data();
    void survivesEveryByteReplaced();
    void readsTheRealLineAsItsJsonDoes();
    void stopsWhenItIsCancelled();
};

void tst_CueTextReader::holdsEachShapeUntilTheNext()
{
    const auto line = Read(kLine);
    QVERIFY(line);
    QCOMPARE(line->name, QStringLiteral("hello"));
    QCOMPARE(line->duration, 1.5);
    const QVector<MouthCue> cues{{0, 0.5, 0}, {0.5, 1, 1}, {1, 1.5, 8}, {1.5, 1.5, 0}};
    QVERIFY(line->cues == cues);
}

void tst_CueTextReader::readsEveryWayOfWriting_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("Windows line ends") << With("\n", "\r\n");
    QTest::newRow("CR alone") << With("\n", "\r");
    QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBF") + kLine;
    QTest::newRow("missing last line end") << QByteArray(kLine).chopped(1);
    QTest::newRow("exponents") << With("0.50", "5e-1").replace("1.00", "1E+0");
    QTest::newRow("two tabs") << With("\t", "\t\t");
    QTest::newRow("double spaces") << With("\t", "  ");
    QTest::newRow("space at line ends") << With("\n", " \t\n");
    QTest::newRow("empty lines") << With("\n", "\n\n");
    QTest::newRow("no digits behind the point") << With("1.00", "1.");
}

void tst_CueTextReader::readsEveryWayOfWriting()
{
    QFETCH(QByteArray, text);
    ImportError error;
    const auto line = ReadCueText(text, QStringLiteral("hello.tsv"), error);
    QVERIFY2(line, qPrintable(error.Message()));
    QVERIFY(*line == *Read(kLine));
}

void tst_CueTextReader::sortsCuesThatAreOutOfOrder()
{
    QVERIFY(*Read("1.00\tH\n1.50\tX\n0.00\tX\n0.50\tA\n") == *Read(kLine));
}

void tst_CueTextReader::restsBeforeTheFirstCue()
{
    const auto line = Read("0.3\tB\n0.6\tX\n");
    QVERIFY(line);
    const QVector<MouthCue> cues{{0, 0.3, 0}, {0.3, 0.6, 2}, {0.6, 0.6, 0}};
    QVERIFY(line->cues == cues);
}

void tst_CueTextReader::endsWithTheLastCueWhateverItsShape()
{
    const auto line = Read("0\tX\n0.6\tD\n");
    QVERIFY(line);
    QCOMPARE(line->duration, 0.6);
    QCOMPARE(line->cues.last().shape, 4);
}

void tst_CueTextReader::givesNoTimeToTheFirstOfTwoCuesOfOneTime()
{
    const auto line = Read("0\tX\n0.5\tA\n0.5\tB\n1\tX\n");
    QVERIFY(line);
    const QVector<MouthCue> cues{{0, 0.5, 0}, {0.5, 0.5, 1}, {0.5, 1, 2}, {1, 1, 0}};
    QVERIFY(line->cues == cues);
}

void tst_CueTextReader::readsASingleCue()
{
    const auto line = Read("0\tA");
    QVERIFY(line);
    QCOMPARE(line->cues.size(), 1);
    QCOMPARE(line->duration, 0.0);
}

void tst_CueTextReader::namesTheLineAndWhatWasExpected_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* name, const QByteArray& text, const char* message) {
        QTest::newRow(name) << text << QStringLiteral("hello.tsv:") + QString::fromLatin1(message);
    };
    row("empty file", "", "1: expected a time in seconds, found the end of the file");
    row("nothing but line ends", "\r\n\r\n",
        "1: expected a time in seconds, found the end of the file");
    row("nothing but a byte order mark", "\xEF\xBB\xBF",
        "1: expected a time in seconds, found the end of the file");
    row("unknown shape", With("A", "I"), "2: expected a shape from A to H, or X, found \"I\"");
    row("small letter", With("A", "a"), "2: expected a shape from A to H, or X, found \"a\"");
    row("two letters", With("A", "AA"), "2: expected a shape from A to H, or X, found \"AA\"");
    row("no shape", With("\tA", ""), "2: expected a shape from A to H, or X, behind the time");
    row("no shape at the end", "0\tX\n1", "2: expected a shape from A to H, or X, behind the time");
    row("no time", With("1.00\t", ""), "3: expected a time in seconds, found \"H\"");
    row("no tab", With("\tA", "A"), "2: expected a time in seconds, found \"0.50A\"");
    row("negative time", With("1.00", "-1"), "3: expected a time in seconds, found \"-1\"");
    row("not a number", With("1.00", "nan"), "3: expected a time in seconds, found \"nan\"");
    row("infinite time", With("1.00", "inf"), "3: expected a time in seconds, found \"inf\"");
    row("time of years", With("1.00", "1e12"), "3: expected a time in seconds, found \"1e12\"");
    row("comma for a point", With("1.00", "1,00"), "3: expected a time in seconds, found \"1,00\"");
    row("more behind the shape", With("A", "A\t1.00"),
        "2: expected the end of the line behind the shape, found \"1.00\"");
    row("another format", "\x89PNG\r\n", "1: expected a time in seconds, found \"?PNG\"");
    row("behind Windows line ends", With("\n", "\r\n").replace("H", "I"),
        "3: expected a shape from A to H, or X, found \"I\"");
}

void tst_CueTextReader::namesTheLineAndWhatWasExpected()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, message);
    QCOMPARE(MessageFor(text), message);
}

void tst_CueTextReader::survivesEveryByteReplaced_data()
{
    QTest::addColumn<char>("byte");
    for (const char byte : {'\0', '\n', '\t', '{', '9', '-', 'X', '\xff'})
        QTest::addRow("byte %d", byte) << byte;
}

void tst_CueTextReader::survivesEveryByteReplaced()
{
    QFETCH(char, byte);
    for (int i = 0; i < static_cast<int>(qstrlen(kLine)); ++i) {
        QByteArray text = kLine;
        text[i] = byte;
        ImportError error;
        const auto line = ReadCueText(text, QStringLiteral("hello.tsv"), error);
        QVERIFY(line ? !line->cues.isEmpty() : error.line >= 1);
    }
}

/// What a cue tool would write of the line as text.
void tst_CueTextReader::readsTheRealLineAsItsJsonDoes()
{
    const QString path = SharedDataPath(QStringLiteral("dialogue.json"));
    SKIP_WITHOUT(path);
    ImportError error;
    const auto json = ReadMouthCues(BytesOf(path), path, error);
    QVERIFY2(json, qPrintable(error.Message()));
    QByteArray text;
    const QByteArray shapes = "XABCDEFGH";
    for (const MouthCue& cue : json->cues)
        text += QByteArray::number(cue.start, 'f', 2) + '\t' + shapes[cue.shape] + '\n';
    const auto line = Read(text + QByteArray::number(json->duration, 'f', 2) + "\tX\n");
    QVERIFY(line);
    QCOMPARE(line->duration, json->duration);
    QVERIFY(line->cues.mid(0, json->cues.size()) == json->cues);
}

void tst_CueTextReader::stopsWhenItIsCancelled()
{
    const QByteArray text = QByteArray("0.1\tA\n").repeated(5000);
    ImportError error;
    double reached = 0;
    const ImportProgress progress([&reached](double share) {
        reached = share;
        return share < 0.7;
    });
    QVERIFY(!ReadCueText(text, QStringLiteral("a"), error, progress));
    QVERIFY(error.isCancelled);
    QVERIFY(reached >= 0.7 && reached < 0.9);
    QVERIFY(ReadCueText(text, QStringLiteral("a"), error));
}

QTEST_MAIN(tst_CueTextReader)
#include "tst_CueTextReader.moc"
