#include "RandomScene.h"
#include "TestFiles.h"

#include "import/SceneFiles.h"
#include "storage/SceneJson.h"

using namespace host;

namespace {

/// A small scene whose text the tests damage: a group, a root, a row of keys and one of clips.
SceneDocument Small()
{
    SceneDocument document;
    Scene& scene = document.scene;
    scene.frameCount = 50;
    scene.timeMark = {0, 49};
    const GroupId group = scene.AddGroup(QStringLiteral("step"));
    SceneTrack root;
    root.kind = TrackKind::Switch;
    root.buttons = {{QStringLiteral("All"), true, {3}}};
    const TrackId parent = scene.AddTrack(root);
    SceneTrack row;
    row.parent = parent;
    row.editModes = {EditMode::MoveKeys};
    SceneKey key;
    key.frame = 5;
    key.group = group;
    key.transition = Transition{BlendDirection::Into, 3};
    SceneKey clip;
    clip.frame = 10;
    clip.clip = ClipSpan{9, 1, 2, 4, 20};
    SceneKey inside;
    inside.frame = 1;
    inside.mouthShape = 4;
    clip.subKeys = {inside};
    row.keys = {key, clip};
    scene.AddTrack(row);
    scene.relations = {{RelationKind::SharedSelection, {2, 3}}};
    scene.motion.sampleTime = 0.5;
    scene.motion.channelCount = 2;
    scene.motion.sampleCount = 1;
    scene.motion.joints = {
        {QStringLiteral("Hips"), -1, {}, {Channel::XPosition, Channel::YRotation}, 0, {{0, 1, 2}}}};
    scene.motion.samples = {1, 2};
    scene.line.cues = {{0, 1, 2}};
    return document;
}

/// The first line in which the texts of the documents differ.
QString DifferenceOf(const SceneDocument& a, const SceneDocument& b)
{
    const QList<QByteArray> linesA = WriteSceneJson(a).split('\n');
    const QList<QByteArray> linesB = WriteSceneJson(b).split('\n');
    for (int i = 0; i < std::min(linesA.size(), linesB.size()); ++i) {
        if (linesA[i] != linesB[i])
            return QString::fromUtf8(linesA[i].left(200) + " / " + linesB[i].left(200));
    }
    return QStringLiteral("no line differs");
}

QString ErrorOf(const QByteArray& text)
{
    QString error;
    return ReadSceneJson(text, error) ? QStringLiteral("(read)") : error;
}

} // namespace

class tst_SceneJson : public QObject
{
    Q_OBJECT

private slots:
    void everythingIsReadAsItWasWritten();
    void theSampleSceneIsReadAsItWasWritten();
    void everyKeyStandsOnALineOfItsOwn();
    void aTextThatIsCutOffAnywhereIsRefused();
    void aTextWithAnyByteDamagedIsReadOrRefusedInOneLine();
    void damageIsNamedByItsPlace_data();
    void damageIsNamedByItsPlace();
    void aBrokenTextIsNamedByItsLine();
    void aMemberThatIsThereTwiceIsNamedByItsLine_data();
    void aMemberThatIsThereTwiceIsNamedByItsLine();
    void theSameNameInAnotherObjectIsNoDouble();
    void longTextsAreCut();
    void theLargestValuesAreReadAsTheyWereWritten();
    void atTheEndOfNumbersAllIsNumberedAnew();
    void anHourLongSceneIsReadQuickly();
};

void tst_SceneJson::everythingIsReadAsItWasWritten()
{
    RandomScene random(20240601);
    for (int i = 0; i < 400; ++i) {
        const SceneDocument document = random.Document();
        QString error;
        const auto read = ReadSceneJson(WriteSceneJson(document), error);
        QVERIFY2(read, qPrintable(error));
        QVERIFY2(*read == document, qPrintable(DifferenceOf(*read, document)));
    }
}

void tst_SceneJson::theSampleSceneIsReadAsItWasWritten()
{
    ImportError importError;
    const auto scene = LoadScene(
        {SamplePath(QStringLiteral("stroll.bvh")), SamplePath(QStringLiteral("greeting.json"))},
        importError);
    QVERIFY(scene);
    const SceneDocument document{*scene, {0.25F, 0.5F, 7}, {}};
    QString error;
    const auto read = ReadSceneJson(WriteSceneJson(document), error);
    QVERIFY2(read, qPrintable(error));
    QVERIFY(*read == document);
}

void tst_SceneJson::everyKeyStandsOnALineOfItsOwn()
{
    const QByteArray text = WriteSceneJson(Small());
    QVERIFY2(text.contains("\n    {\"id\": 4, \"frame\": 5, \"group\": 1, \"transition\": "
                           "{\"direction\": \"into\", \"frames\": 3}},\n"),
             text.mid(500, 500).constData());
}

void tst_SceneJson::aTextThatIsCutOffAnywhereIsRefused()
{
    const QByteArray text = WriteSceneJson(Small()).trimmed();
    for (int length = 0; length < text.size(); ++length) {
        const QString error = ErrorOf(text.left(length));
        QVERIFY2(error.startsWith(QLatin1String("line ")), qPrintable(error));
    }
}

void tst_SceneJson::aTextWithAnyByteDamagedIsReadOrRefusedInOneLine()
{
    const QByteArray text = WriteSceneJson(Small());
    int refused = 0;
    for (int place = 0; place < text.size(); ++place) {
        for (const char byte : {'0', '"', '}', ',', 'x', '\n', '-', '\xff'}) {
            QByteArray damaged = text;
            damaged[place] = byte;
            const QString error = ErrorOf(damaged);
            QVERIFY(!error.isEmpty());
            QVERIFY2(!error.contains(u'\n'), qPrintable(error));
            refused += error == QLatin1String("(read)") ? 0 : 1;
        }
    }
    QVERIFY(refused > text.size() * 3);
}

void tst_SceneJson::damageIsNamedByItsPlace_data()
{
    QTest::addColumn<QByteArray>("piece");
    QTest::addColumn<QByteArray>("damaged");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* name, const char* piece, const char* damaged,
                        const char* error) {
        QTest::newRow(name) << QByteArray(piece) << QByteArray(damaged)
                            << QString::fromLatin1(error);
    };
    row("another format", "kestova-scene", "kestova-skin", "format: expected \"kestova-scene\"");
    row("a newer version", "\"version\": 1", "\"version\": 2",
        "version: expected 1 at most, found 2: written by a newer program");
    row("no version", "\"version\"", "\"versoin\"", "expected a member \"version\"");
    row("a fraction", "\"frame\": 5", "\"frame\": 5.5",
        "tracks[1].keys[0].frame: expected a whole number");
    row("a text for a number", "\"frame\": 5", "\"frame\": \"5\"",
        "tracks[1].keys[0].frame: expected a whole number");
    row("a number for a text", "\"text\": \"All\"", "\"text\": 1",
        "tracks[0].buttons[0].text: expected a text");
    row("a number for a switch", "\"on\": true", "\"on\": 1",
        "tracks[0].buttons[0].on: expected true or false");
    row("a member that is missing", "\"frame\": 5, ", "",
        "tracks[1].keys[0]: expected a member \"frame\"");
    row("a member that is misspelt", "\"group\": 1", "\"gruop\": 1",
        "tracks[1].keys[0]: expected no member \"gruop\"");
    row("an unknown kind", "\"kind\": \"key\"", "\"kind\": \"keys\"",
        "tracks[1].kind: expected one of switch, key, transition, link, viseme, clip");
    row("a double id", "\"id\": 5", "\"id\": 4",
        "tracks[1].keys[1].id: expected a number that nothing else has, found 4 again");
    row("an id that is too high", "\"id\": 5", "\"id\": 50",
        "tracks[1].keys[1].id: expected 6 or less, found 50");
    row("an id of nothing", "\"id\": 5", "\"id\": 0",
        "tracks[1].keys[1].id: expected 1 or more, found 0");
    row("an unknown parent", "\"parent\": 2", "\"parent\": 3",
        "tracks[1].parent: expected the id of a root track before this one, found 3");
    row("an unknown group", "\"group\": 1", "\"group\": 2",
        "tracks[1].keys[0].group: expected the id of a group, found 2");
    row("an unknown row of a button", "\"tracks\": [3]", "\"tracks\": [4]",
        "tracks[0].buttons[0].tracks[0]: expected the id of a track, found 4");
    row("an unknown track of a relation", "\"tracks\": [2, 3]", "\"tracks\": [2, 1]",
        "relations[0].tracks[1]: expected the id of a track, found 1");
    row("keys out of order", "\"frame\": 10", "\"frame\": 4",
        "tracks[1].keys[1]: expected keys in the order of their frames, found frame 4 after "
        "frame 5");
    row("a negative blend", "\"frames\": 3", "\"frames\": -3",
        "tracks[1].keys[0].transition.frames: expected 0 or more, found -3");
    row("a clip without length", "\"length\": 9", "\"length\": 0",
        "tracks[1].keys[1].clip.length: expected 1 or more, found 0");
    row("a negative lead-in", "\"leadIn\": 2", "\"leadIn\": -1",
        "tracks[1].keys[1].clip.leadIn: expected 0 or more, found -1");
    row("an unknown mouth", "\"mouthShape\": 4", "\"mouthShape\": 17",
        "tracks[1].keys[1].subKeys[0].mouthShape: expected 16 or less, found 17");
    row("no frames", "\"frameCount\": 50", "\"frameCount\": 0",
        "frameCount: expected 1 or more, found 0");
    row("a marker outside", "\"end\": 49", "\"end\": 50",
        "timeMark.end: expected 49 or less, found 50");
    row("a joint before its parent", "\"parent\": -1", "\"parent\": 0",
        "motion.joints[0].parent: expected -1 or less, found 0");
    row("an array for an object", "\"view\": {\"left\": 0, \"right\": 1, \"frame\": 0}",
        "\"view\": []", "view: expected an object");
    row("a view turned over", "\"left\": 0,", "\"left\": 1.5,",
        "view: expected 0 or more for left, not less for right, at most 1");
    row("a sample that is cut", "[1, 2]", "[1]", "motion.samples[0]: expected 2 numbers, found 1");
    row("a sample that is missing", "[1, 2]", "", "motion.samples: expected 1 samples, found 0");
    row("a number that no float holds", "[1, 2]", "[1, 1e300]",
        "motion.samples[0][1]: expected a smaller number");
    row("time that stands", "\"sampleTime\": 0.5", "\"sampleTime\": 0",
        "motion.sampleTime: expected a time above 0");
}

void tst_SceneJson::damageIsNamedByItsPlace()
{
    QFETCH(QByteArray, piece);
    QFETCH(QByteArray, damaged);
    QFETCH(QString, error);
    QByteArray text = WriteSceneJson(Small());
    const int place = text.indexOf(piece);
    QVERIFY(place >= 0);
    text.replace(place, piece.size(), damaged);
    QCOMPARE(ErrorOf(text), error);
}

void tst_SceneJson::aBrokenTextIsNamedByItsLine()
{
    QVERIFY(ErrorOf({}).startsWith(QLatin1String("line 1: expected a whole JSON text")));
    QVERIFY(ErrorOf("HIERARCHY").startsWith(QLatin1String("line 1: ")));
    QCOMPARE(ErrorOf("[]"), QStringLiteral("expected an object"));
    const QByteArray text = WriteSceneJson(Small());
    const int place = text.indexOf("\"id\": 5");
    const auto line = text.left(place).count('\n') + 1;
    QByteArray broken = text;
    broken.replace(place, 4, "\"id ");
    const QString error = ErrorOf(broken);
    QVERIFY2(error.startsWith(QStringLiteral("line %1: ").arg(line)), qPrintable(error));
}

void tst_SceneJson::aMemberThatIsThereTwiceIsNamedByItsLine_data()
{
    QTest::addColumn<QByteArray>("again");
    QTest::newRow("as it is") << QByteArray("\"frame\": 6, ");
    QTest::newRow("with an escape") << QByteArray("\"fr\\u0061me\": 6, ");
}

void tst_SceneJson::aMemberThatIsThereTwiceIsNamedByItsLine()
{
    QFETCH(QByteArray, again);
    QByteArray text = WriteSceneJson(Small());
    const int place = text.indexOf("\"frame\": 5");
    text.insert(place, again);
    const auto line = text.left(place).count('\n') + 1;
    QCOMPARE(
        ErrorOf(text),
        QStringLiteral("line %1: expected every member once, found \"frame\" again").arg(line));
}

void tst_SceneJson::theSameNameInAnotherObjectIsNoDouble()
{
    // Names look like texts, and texts hold what looks like names.
    SceneDocument document = Small();
    document.scene.tracks[1].name = QStringLiteral("\"id\": 5, \\\"id\": {\"id\": 5");
    document.scene.tracks[1].caption = QStringLiteral("name");
    QString error;
    const auto read = ReadSceneJson(WriteSceneJson(document), error);
    QVERIFY2(read, qPrintable(error));
    QVERIFY(*read == document);
}

void tst_SceneJson::longTextsAreCut()
{
    SceneDocument document = Small();
    const QString caption(20000, QLatin1Char('w'));
    document.scene.tracks[1].caption = caption;
    document.scene.tracks[1].keys[1].sound = caption; // a path would be another one
    QString error;
    const auto read = ReadSceneJson(WriteSceneJson(document), error);
    QVERIFY2(read, qPrintable(error));
    QCOMPARE(read->scene.tracks[1].caption, caption.left(1000));
    QCOMPARE(read->scene.tracks[1].keys[1].sound, caption);
}

void tst_SceneJson::theLargestValuesAreReadAsTheyWereWritten()
{
    constexpr int kMost = std::numeric_limits<int>::max();
    constexpr int kFrames = 100'000'000;
    SceneDocument document = Small();
    Scene& scene = document.scene;
    scene.frameRate = 1000;
    scene.frameCount = kFrames;
    scene.timeMark = {kFrames - 1, kFrames - 1};
    scene.lastId = 1'000'000'000;
    SceneTrack& row = scene.tracks[1];
    row.styleNumber = kMost;
    row.name = QString(1000, QLatin1Char('w'));
    row.keys[0].frame = -kFrames;
    row.keys[0].id = scene.lastId;
    row.keys[0].priority = std::numeric_limits<int>::min();
    row.keys[0].transition->frames = kFrames;
    row.keys[1].frame = kFrames;
    row.keys[1].priority = kMost;
    row.keys[1].mouthShape = 16;
    row.keys[1].clip = ClipSpan{kFrames, kFrames, kFrames, kFrames, kMost, kFrames};
    document.view = {1, 1, kFrames - 1};
    scene.motion.sampleTime = std::numeric_limits<double>::denorm_min();
    scene.motion.samples = {std::numeric_limits<float>::max(), -std::numeric_limits<float>::min()};
    scene.line.duration = std::numeric_limits<double>::max();
    QString error;
    const auto read = ReadSceneJson(WriteSceneJson(document), error);
    QVERIFY2(read, qPrintable(error));
    QVERIFY2(*read == document, qPrintable(DifferenceOf(*read, document)));
}

void tst_SceneJson::atTheEndOfNumbersAllIsNumberedAnew()
{
    constexpr int kShift = std::numeric_limits<int>::max() - 6; // Small() has six
    const SceneDocument document = Small();
    SceneDocument last = document;
    const auto shift = [](int& number) { number += number == 0 ? 0 : kShift; };
    shift(last.scene.lastId);
    shift(last.scene.groups[0].id);
    shift(last.scene.tracks[0].id);
    shift(last.scene.tracks[0].buttons[0].tracks[0]);
    SceneTrack& row = last.scene.tracks[1];
    for (int* const number : {&row.id, &row.parent, &row.keys[0].id, &row.keys[0].group,
                              &row.keys[1].id, &row.keys[1].subKeys[0].id})
        shift(*number);
    for (int& number : last.scene.relations[0].tracks)
        shift(number);
    QCOMPARE(last.scene.lastId, std::numeric_limits<int>::max());
    QString error;
    const auto read = ReadSceneJson(WriteSceneJson(last), error);
    QVERIFY2(read, qPrintable(error));
    QVERIFY2(*read == document, qPrintable(DifferenceOf(*read, document)));
}

void tst_SceneJson::anHourLongSceneIsReadQuickly()
{
    SceneDocument document;
    document.scene.frameCount = 108000;
    for (int row = 0; row < 200; ++row) {
        SceneTrack track;
        track.parent = row == 0 ? kNoTrack : 1;
        for (int i = 0; i < 1000; ++i) {
            SceneKey key;
            key.frame = i * 108;
            track.keys.append(key);
        }
        document.scene.AddTrack(track);
    }
    const QByteArray text = WriteSceneJson(document);
    QElapsedTimer timer;
    timer.start();
    QString error;
    const auto read = ReadSceneJson(text, error);
    qInfo("%d bytes with 200,000 keys are read in %lld ms", text.size(), timer.elapsed());
    QVERIFY2(read, qPrintable(error));
    QVERIFY(*read == document);
    constexpr qint64 kPatience = 20000; // milliseconds; a twentieth of it is usual
    QVERIFY(timer.elapsed() < kPatience);
}

QTEST_MAIN(tst_SceneJson)
#include "tst_SceneJson.moc"
