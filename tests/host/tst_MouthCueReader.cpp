#include "TestFiles.h"

#include "document/MouthShapes.h"
#include "import/MouthCueReader.h"

using namespace host;

namespace {

const char* const kLine = "{\n"
                          "  \"metadata\": {\n"
                          "    \"duration\": 1.5\n"
                          "  },\n"
                          "  \"mouthCues\": [\n"
                          "    { \"start\": 0, \"end\": 0.5, \"value\": \"X\" },\n"
                          "    { \"start\": 0.5, \"end\": 1, \"value\": \"A\" },\n"
                          "    { \"start\": 1, \"end\": 1.5, \"value\": \"H\" }\n"
                          "  ]\n"
                          "}\n";

std::optional<SpokenLine> Read(const QByteArray& text)
{
    ImportError error;
    return ReadMouthCues(text, QStringLiteral("hello.json"), error);
}

QString MessageFor(const QByteArray& text)
{
    ImportError error;
    return ReadMouthCues(text, QStringLiteral("hello.json"), error) ? QStringLiteral("read")
                                                                    : error.Message();
}

QByteArray With(const char* before, const char* after)
{
    return QByteArray(kLine).replace(before, after);
}

} // namespace

class tst_MouthCueReader : public QObject
{
    Q_OBJECT

private slots:
    void readsTheDurationAndTheCues();
    void numbersTheShapes_data();
    void numbersTheShapes();
    void readsEveryWayOfWriting_data();
    void readsEveryWayOfWriting();
    void sortsCuesThatAreOutOfOrder();
    void cutsACueThatReachesIntoTheNext();
    void cutsACueThatHoldsTheNextWhole();
    void restsInAGap();
    void restsBeforeTheFirstCueAndBehindTheLast();
    void holdsTheShapeThroughAGapOfRounding();
    void namesTheLineAndWhatWasExpected_data();
    void namesTheLineAndWhatWasExpected();
    void survivesBeingCutAnywhere();
    void survivesEveryByteReplaced_data();
    void survivesEveryByteReplaced();
    void readsTheSampleLine();
    void readsTheRealLine();
    void stopsWhenItIsCancelled();
};

void tst_MouthCueReader::readsTheDurationAndTheCues()
{
    const auto line = Read(kLine);
    QVERIFY(line);
    QCOMPARE(line->name, QStringLiteral("hello"));
    QCOMPARE(line->duration, 1.5);
    const QVector<MouthCue> cues{{0, 0.5, 0}, {0.5, 1, 1}, {1, 1.5, 8}};
    QVERIFY(line->cues == cues);
}

void tst_MouthCueReader::numbersTheShapes_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("shape");
    const QString values = QStringLiteral("XABCDEFGH");
    for (int shape = 0; shape < values.size(); ++shape)
        QTest::addRow("%c", values[shape].toLatin1()) << QString(values[shape]) << shape;
}

void tst_MouthCueReader::numbersTheShapes()
{
    QFETCH(QString, value);
    QFETCH(int, shape);
    const auto line = Read(With("\"A\"", qPrintable(u'"' + value + u'"')));
    QVERIFY(line);
    QCOMPARE(line->cues[1].shape, shape);
    QCOMPARE(CueOfMouthShape(shape), value);
}

void tst_MouthCueReader::readsEveryWayOfWriting_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("CR LF") << With("\n", "\r\n");
    QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBF") + kLine;
    QTest::newRow("one line") << With("\n", "");
    QTest::newRow("exponents") << With("1.5", "15e-1");
    QTest::newRow("more members") << With("\"duration\"", "\"soundFile\": \"a.wav\", \"duration\"");
}

void tst_MouthCueReader::readsEveryWayOfWriting()
{
    QFETCH(QByteArray, text);
    ImportError error;
    const auto line = ReadMouthCues(text, QStringLiteral("hello.json"), error);
    QVERIFY2(line, qPrintable(error.Message()));
    QVERIFY(*line == *Read(kLine));
}

void tst_MouthCueReader::sortsCuesThatAreOutOfOrder()
{
    const QByteArray first = "{ \"start\": 0, \"end\": 0.5, \"value\": \"X\" }";
    const QByteArray last = "{ \"start\": 1, \"end\": 1.5, \"value\": \"H\" }";
    const QByteArray text = QByteArray(kLine).replace(first, "*").replace(last, first);
    QVERIFY(*Read(QByteArray(text).replace("*", last)) == *Read(kLine));
}

void tst_MouthCueReader::cutsACueThatReachesIntoTheNext()
{
    QVERIFY(*Read(With("\"end\": 0.5", "\"end\": 0.9")) == *Read(kLine));
}

void tst_MouthCueReader::cutsACueThatHoldsTheNextWhole()
{
    QVERIFY(*Read(With("\"start\": 0, \"end\": 0.5", "\"start\": 0, \"end\": 1.4")) ==
            *Read(kLine));
}

void tst_MouthCueReader::restsInAGap()
{
    const auto line = Read(With("\"end\": 1,", "\"end\": 0.75,"));
    QVERIFY(line);
    const QVector<MouthCue> cues{{0, 0.5, 0}, {0.5, 0.75, 1}, {0.75, 1, 0}, {1, 1.5, 8}};
    QVERIFY(line->cues == cues);
}

void tst_MouthCueReader::restsBeforeTheFirstCueAndBehindTheLast()
{
    const auto line = Read("{\"metadata\": {\"duration\": 3}, \"mouthCues\": "
                           "[{\"start\": 1, \"end\": 2, \"value\": \"C\"}]}");
    QVERIFY(line);
    const QVector<MouthCue> cues{{0, 1, 0}, {1, 2, 3}, {2, 3, 0}};
    QVERIFY(line->cues == cues);
}

void tst_MouthCueReader::holdsTheShapeThroughAGapOfRounding()
{
    QVERIFY(*Read(With("\"end\": 1,", "\"end\": 0.993,")) == *Read(kLine));
    QCOMPARE(Read(With("\"end\": 1,", "\"end\": 0.99,"))->cues.size(), 4);
}

void tst_MouthCueReader::namesTheLineAndWhatWasExpected_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* name, const QByteArray& text, const char* message) {
        QTest::newRow(name) << text << QStringLiteral("hello.json:") + QString::fromUtf8(message);
    };
    row("empty file", "", "1: expected a value");
    row("a list", "[]", "1: expected an object with metadata and mouthCues");
    row("missing comma", With("0.5, \"value\": \"X\"", "0.5 \"value\": \"X\""),
        "6: expected a comma or } in an object");
    row("missing bracket", With("  ]\n", ""), "9: expected a comma or ] in a list");
    row("no metadata", With("metadata", "other"),
        "1: expected metadata with a duration in seconds, above 0");
    row("no duration", With("duration", "other"),
        "2: expected metadata with a duration in seconds, above 0");
    row("duration as text", With("1.5\n", "\"long\"\n"),
        "2: expected metadata with a duration in seconds, above 0");
    row("duration of nothing", With("1.5\n", "0\n"),
        "2: expected metadata with a duration in seconds, above 0");
    row("duration of years", With("1.5\n", "1e12\n"),
        "2: expected metadata with a duration in seconds, above 0");
    row("no cues", With("mouthCues", "cues"), "1: expected mouthCues, a list of cues");
    row("cues as an object", "{\"metadata\": {\"duration\": 1},\n\"mouthCues\": {}}",
        "2: expected mouthCues, a list of cues");
    row("an empty list of cues", "{\"metadata\": {\"duration\": 1},\n\n\"mouthCues\": []}",
        "3: expected mouthCues, a list of cues");
    row("no start", With("\"start\": 0.5", "\"begin\": 0.5"),
        "7: expected a cue with start and end in seconds");
    row("end as text", With("\"end\": 1,", "\"end\": \"1\","),
        "7: expected a cue with start and end in seconds");
    row("negative start", With("\"start\": 0,", "\"start\": -1,"),
        "6: expected a cue with start and end in seconds");
    row("a number for a cue", With("{ \"start\": 0.5, \"end\": 1, \"value\": \"A\" }", "7"),
        "7: expected a cue with start and end in seconds");
    row("ends before its start", With("\"end\": 1,", "\"end\": 0.4,"),
        "7: expected a cue that ends after its start");
    row("unknown value", With("\"H\"", "\"I\""),
        "8: expected a cue with a value from A to H, or X");
    row("small letter", With("\"H\"", "\"h\""), "8: expected a cue with a value from A to H, or X");
    row("empty value", With("\"H\"", "\"\""), "8: expected a cue with a value from A to H, or X");
    row("brackets in text", With("\"A\"", "\"]},\\\"{\""),
        "7: expected a cue with a value from A to H, or X");
    row("misleading text before",
        With("{\n  \"metadata\"", "{ \"text\": \"\\\"mouthCues\\\": [ {\", \n  \"metadata\"")
            .replace("\"H\"", "\"I\""),
        "8: expected a cue with a value from A to H, or X");
}

void tst_MouthCueReader::namesTheLineAndWhatWasExpected()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, message);
    QCOMPARE(MessageFor(text), message);
}

void tst_MouthCueReader::survivesBeingCutAnywhere()
{
    const QByteArray whole = kLine;
    for (int length = 0; length < whole.size() - 1; ++length) {
        ImportError error;
        QVERIFY(!ReadMouthCues(whole.left(length), QStringLiteral("hello.json"), error));
        QVERIFY(error.line >= 1 && error.line <= 11);
        QVERIFY(!error.expected.isEmpty());
    }
}

void tst_MouthCueReader::survivesEveryByteReplaced_data()
{
    QTest::addColumn<char>("byte");
    for (const char byte : {'\0', '\n', '{', ']', '"', '\\', '9', '-', '\xff'})
        QTest::addRow("byte %d", byte) << byte;
}

void tst_MouthCueReader::survivesEveryByteReplaced()
{
    QFETCH(char, byte);
    for (int i = 0; i < static_cast<int>(qstrlen(kLine)); ++i) {
        QByteArray text = kLine;
        text[i] = byte;
        ImportError error;
        const auto line = ReadMouthCues(text, QStringLiteral("hello.json"), error);
        QVERIFY(line ? !line->cues.isEmpty() : error.line >= 1);
    }
}

void tst_MouthCueReader::readsTheSampleLine()
{
    ImportError error;
    const QString path = SamplePath(QStringLiteral("greeting.json"));
    const auto line = ReadMouthCues(BytesOf(path), path, error);
    QVERIFY2(line, qPrintable(error.Message()));
    QCOMPARE(line->duration, 3.0);
    QSet<int> shapes;
    for (const MouthCue& cue : line->cues)
        shapes.insert(cue.shape);
    QCOMPARE(shapes.size(), 9); // the sample shows every shape that a cue can name
}

void tst_MouthCueReader::readsTheRealLine()
{
    const QString path = SharedDataPath(QStringLiteral("dialogue.json"));
    SKIP_WITHOUT(path);
    ImportError error;
    const auto line = ReadMouthCues(BytesOf(path), path, error);
    QVERIFY2(line, qPrintable(error.Message()));
    QCOMPARE(line->duration, 2.69);
    QCOMPARE(line->cues.size(), 19);
}

void tst_MouthCueReader::stopsWhenItIsCancelled()
{
    const QByteArray text = "{\"metadata\":{\"duration\":1},\"mouthCues\":[" +
                            QByteArray("{\"start\":0,\"end\":1,\"value\":\"A\"},").repeated(5000) +
                            "{\"start\":0,\"end\":1,\"value\":\"A\"}]}";
    ImportError error;
    double reached = 0;
    const ImportProgress progress([&reached](double share) {
        reached = share;
        return share < 0.7;
    });
    QVERIFY(!ReadMouthCues(text, QStringLiteral("a"), error, progress));
    QVERIFY(error.isCancelled);
    QVERIFY(reached >= 0.7 && reached < 0.9);
    QVERIFY(ReadMouthCues(text, QStringLiteral("a"), error));
}

QTEST_MAIN(tst_MouthCueReader)
#include "tst_MouthCueReader.moc"
