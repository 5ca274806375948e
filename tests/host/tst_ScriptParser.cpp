#include "TestFiles.h"

#include "script/ScriptGrammar.h"
#include "script/ScriptReader.h"
#include "script/ScriptScene.h"
#include "script/ScriptWords.h"
#include "script/WindowSize.h"

#include <QTemporaryDir>

using host::ScriptVerb;

namespace {

/// The commands of a script; none, and @p error is filled, for a faulty one.
QVector<host::ScriptCommand> Read(const QByteArray& text, QString& error)
{
    const auto script = host::ReadScript(QStringLiteral("demo.txt"), text, error);
    return script ? script->commands : QVector<host::ScriptCommand>();
}

QVector<host::ScriptCommand> Read(const QByteArray& text)
{
    QString error;
    const QVector<host::ScriptCommand> commands = Read(text, error);
    if (!error.isEmpty())
        qWarning("%s", qPrintable(error));
    return commands;
}

host::ScriptCommand ReadOne(const QByteArray& line)
{
    return Read(line).value(0);
}

host::SceneKey KeyAt(int frame)
{
    host::SceneKey key;
    key.frame = frame;
    return key;
}

host::SceneKey ClipAt(int frame, int length, int loops)
{
    host::SceneKey key = KeyAt(frame);
    key.clip.emplace();
    key.clip->length = length;
    key.clip->loops = loops;
    return key;
}

host::SceneTrack Row(const QString& name, const QString& caption)
{
    host::SceneTrack row;
    row.name = name;
    row.caption = caption;
    return row;
}

} // namespace

class tst_ScriptParser : public QObject
{
    Q_OBJECT

private slots:
    void cutsALineIntoWords_data();
    void cutsALineIntoWords();
    void wantsQuotesClosed();
    void readsEveryCommand_data();
    void readsEveryCommand();
    void readsNumbersAndChoices();
    void keepsTheNumbersOfItsLines();
    void readsLinesEndedAnyWayAndAByteOrderMark();
    void readsAnEmptyScript();
    void saysInWhichLineWhatIsWrong_data();
    void saysInWhichLineWhatIsWrong();
    void tellsTheFirstFaultyLineAlone();
    void refusesWhatIsNoFile();
    void readsSizes();
    void everyCommandIsOnItsPage();
    void findsRowsByCaptionAndThenByName();
    void tellsRowsThatAreNotThereOrNotAlone();
    void knowsWhereKeysBegin();
    void knowsWhereAPressFallsOnAKey();
};

void tst_ScriptParser::cutsALineIntoWords_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("words");
    QTest::newRow("words") << "a  bc\td " << QStringList{"a", "bc", "d"};
    QTest::newRow("nothing") << "" << QStringList{};
    QTest::newRow("blanks") << " \t " << QStringList{};
    QTest::newRow("a comment") << " # frame 3" << QStringList{};
    QTest::newRow("a comment behind words") << "a b # c" << QStringList{"a", "b"};
    QTest::newRow("a sharp inside a word") << "a#b c" << QStringList{"a#b", "c"};
    QTest::newRow("quotes") << R"(a "b c" d)" << QStringList{"a", "b c", "d"};
    QTest::newRow("a quoted part") << R"(a"b c"d)" << QStringList{"ab cd"};
    QTest::newRow("a quoted sharp") << R"("# a")" << QStringList{"# a"};
    QTest::newRow("a doubled quote") << R"("a ""b"" c")" << QStringList{R"(a "b" c)"};
    QTest::newRow("empty quotes") << R"(a "")" << QStringList{"a", ""};
    QTest::newRow("backslashes") << R"(C:\a "C:\b c\")" << QStringList{R"(C:\a)", R"(C:\b c\)"};
    QTest::newRow("a carriage return") << "a b\r" << QStringList{"a", "b"};
}

void tst_ScriptParser::cutsALineIntoWords()
{
    QFETCH(QString, line);
    QFETCH(QStringList, words);
    const auto found = host::WordsOfLine(line);
    QVERIFY(found);
    QCOMPARE(*found, words);
}

void tst_ScriptParser::wantsQuotesClosed()
{
    QVERIFY(!host::WordsOfLine(QStringLiteral("a \"b c")));
    QVERIFY(!host::WordsOfLine(QStringLiteral("a \"b \"\"")));
}

void tst_ScriptParser::readsEveryCommand_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("verb");
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QVector<int>>("numbers");
    QTest::addColumn<QStringList>("words");
    const auto row = [](const char* line, ScriptVerb verb, const QStringList& texts = {},
                        const QVector<int>& numbers = {}, const QStringList& words = {}) {
        QTest::newRow(line) << QByteArray(line) << static_cast<int>(verb) << texts << numbers
                            << words;
    };
    row("open walk.ktl", ScriptVerb::Open, {"walk.ktl"});
    row("import a.bvh b.json", ScriptVerb::Import, {"a.bvh", "b.json"});
    row("drop a.wav Sound 12", ScriptVerb::Drop, {"a.wav", "Sound"}, {12});
    row("save", ScriptVerb::Save);
    row("save out.ktl", ScriptVerb::Save, {"out.ktl"});
    row("skin red.ini", ScriptVerb::Skin, {"red.ini"});
    row("size 900x500", ScriptVerb::Size, {}, {900, 500});
    row("frame 12", ScriptVerb::Frame, {}, {12});
    row("zoom in", ScriptVerb::Zoom, {}, {}, {"in"});
    row("zoom closest", ScriptVerb::Zoom, {}, {}, {"closest"});
    row("zoom range 3 40", ScriptVerb::ZoomRange, {}, {3, 40});
    row("select Lips 3", ScriptVerb::Select, {"Lips"}, {3});
    row("select Lips 3 9", ScriptVerb::Select, {"Lips"}, {3, 9});
    row("select Lips 3 ctrl", ScriptVerb::Select, {"Lips"}, {3}, {"ctrl"});
    row("select Lips 3 9 ctrl", ScriptVerb::Select, {"Lips"}, {3, 9}, {"ctrl"});
    row("drag Arm 15 by -4", ScriptVerb::Drag, {"Arm"}, {15, -4});
    row("drag Arm 15 by +4 shift", ScriptVerb::Drag, {"Arm"}, {15, 4}, {"shift"});
    row("drag Motion 89 end by 10 ctrl", ScriptVerb::Drag, {"Motion"}, {89, 10}, {"end", "ctrl"});
    row("hover \"Left Arm\" 3", ScriptVerb::Hover, {"Left Arm"}, {3});
    row("menu \"Edit > Undo\"", ScriptVerb::Menu, {"Edit > Undo"});
    row("row-menu Arm Solo", ScriptVerb::RowMenu, {"Arm", "Solo"});
    row("row-menu Arm 7 Solo", ScriptVerb::RowMenu, {"Arm", "Solo"}, {7});
    row("key Ctrl+Z", ScriptVerb::Key, {"Ctrl+Z"});
    row("undo", ScriptVerb::Undo);
    row("redo", ScriptVerb::Redo);
    row("play", ScriptVerb::Play);
    row("play 300", ScriptVerb::Play, {}, {300});
    row("pause", ScriptVerb::Pause);
    row("wait 20", ScriptVerb::Wait, {}, {20});
    row("screenshot a.png", ScriptVerb::Screenshot, {"a.png"});
    row("screenshot a.png face", ScriptVerb::Screenshot, {"a.png"}, {}, {"face"});
    row("expect frame 12", ScriptVerb::ExpectFrame, {}, {12});
    row("expect key Lips 40", ScriptVerb::ExpectKey, {"Lips"}, {40});
    row("expect no-key Lips 40", ScriptVerb::ExpectNoKey, {"Lips"}, {40});
    row("expect selected 0", ScriptVerb::ExpectSelected, {}, {0});
    row("expect status \"\xC3\xA4 b\"", ScriptVerb::ExpectStatus, {QString::fromUtf8("\u00e4 b")});
    row("expect unsaved", ScriptVerb::ExpectSaved, {}, {}, {"unsaved"});
    row("quit", ScriptVerb::Quit);
}

void tst_ScriptParser::readsEveryCommand()
{
    QFETCH(QByteArray, line);
    const host::ScriptCommand command = ReadOne(line);
    QTEST(static_cast<int>(command.verb), "verb");
    QTEST(command.texts, "texts");
    QTEST(command.numbers, "numbers");
    QTEST(command.words, "words");
    QCOMPARE(command.line, 1);
}

void tst_ScriptParser::readsNumbersAndChoices()
{
    const host::ScriptCommand drag = ReadOne("drag Arm 15 start by -4 shift");
    QVERIFY(drag.Says("start"));
    QVERIFY(drag.Says("shift"));
    QVERIFY(!drag.Says("ctrl"));
    QVERIFY(!drag.Says("by")); // there was no choice
}

void tst_ScriptParser::keepsTheNumbersOfItsLines()
{
    const auto commands = Read("# a film\n\nundo\n   \nredo # twice\nredo");
    QCOMPARE(commands.size(), 3);
    QCOMPARE(commands[0].line, 3);
    QCOMPARE(commands[1].line, 5);
    QCOMPARE(commands[2].line, 6);
}

void tst_ScriptParser::readsLinesEndedAnyWayAndAByteOrderMark()
{
    const auto commands = Read("\xEF\xBB\xBFundo\r\nmenu \"a b\"\r\nredo");
    QCOMPARE(commands.size(), 3);
    QCOMPARE(commands[1].texts, QStringList{"a b"});
}

void tst_ScriptParser::readsAnEmptyScript()
{
    QString error;
    QVERIFY(Read("", error).isEmpty());
    QVERIFY(Read("# nothing\n", error).isEmpty());
    QVERIFY2(error.isEmpty(), qPrintable(error));
}

void tst_ScriptParser::saysInWhichLineWhatIsWrong_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* name, const QByteArray& text, const char* message) {
        QTest::newRow(name) << text << QString::fromUtf8(message);
    };
    row("an unknown command", "undo\njump 3\n", "demo.txt:2: expected a command, found \"jump\"");
    row("another case", "Undo", "demo.txt:1: expected a command, found \"Undo\"");
    row("too few words", "frame", "demo.txt:1: expected frame FRAME, found the end of the line");
    row("too many words", "undo twice", "demo.txt:1: expected undo, found \"twice\"");
    row("no number", "frame ten", "demo.txt:1: expected frame FRAME, found \"ten\"");
    row("half a number", "frame 1.5", "demo.txt:1: expected frame FRAME, found \"1.5\"");
    row("a number below zero", "frame -1", "demo.txt:1: expected frame FRAME, found \"-1\"");
    row("a number too large", "wait 99999999999",
        "demo.txt:1: expected wait MS, found \"99999999999\"");
    row("no steps", "drag Arm 15 by left",
        "demo.txt:1: expected drag ROW FRAME [start|end] by STEPS [ctrl|shift], found \"left\"");
    row("a word left out", "drag Arm 15 4",
        "demo.txt:1: expected drag ROW FRAME [start|end] by STEPS [ctrl|shift], found \"4\"");
    row("another key held", "select Lips 3 alt",
        "demo.txt:1: expected select ROW FRAME [FRAME] [ctrl], found \"alt\"");
    row("no such zoom", "zoom sideways",
        "demo.txt:1: expected zoom in|out|all|closest or zoom range FRAME FRAME, found "
        "\"sideways\"");
    row("half a range", "zoom range 3",
        "demo.txt:1: expected zoom range FRAME FRAME, found the end of the line");
    row("no size", "size wide", "demo.txt:1: expected size WxH, found \"wide\"");
    row("no such part", "screenshot a.png legs",
        "demo.txt:1: expected screenshot FILE [window|timeline|preview|face|figure], found "
        "\"legs\"");
    row("a name without letters", "open \"\"", "demo.txt:1: expected open FILE, found \"\"");
    row("nothing to import", "import",
        "demo.txt:1: expected import FILE..., found the end of the line");
    row("an open quote", "\n\nmenu \"Edit", "demo.txt:3: expected a closing quote");
    row("other bytes", "menu \xFF\xFE", "demo.txt:1: expected text in UTF-8");
    row("a letter cut off", "menu \xC3", "demo.txt:1: expected text in UTF-8");
    row("a control character", QByteArray("menu a \x01", 8),
        "demo.txt:1: expected menu ENTRY, found \" \"");
}

void tst_ScriptParser::saysInWhichLineWhatIsWrong()
{
    QFETCH(QByteArray, text);
    QString error;
    QVERIFY(Read(text, error).isEmpty());
    QTEST(error, "message");
}

void tst_ScriptParser::tellsTheFirstFaultyLineAlone()
{
    QString error;
    QVERIFY(Read("undo\nfram 3\nmenu \"\n", error).isEmpty());
    QCOMPARE(error, QStringLiteral("demo.txt:2: expected a command, found \"fram\""));
}

void tst_ScriptParser::refusesWhatIsNoFile()
{
    const QTemporaryDir directory;
    for (const QString& path : {directory.path(), directory.filePath(QStringLiteral("none.txt"))}) {
        QString error;
        QVERIFY(!host::ReadScript(path, error));
        QCOMPARE(error, path + QStringLiteral(": expected a script file"));
    }
}

void tst_ScriptParser::readsSizes()
{
    QCOMPARE(host::ReadWindowSize(QStringLiteral("1280x720")), std::optional<QSize>({1280, 720}));
    QCOMPARE(host::ReadWindowSize(QStringLiteral("16384x1")), std::optional<QSize>({16384, 1}));
    for (const char* text : {"", "x", "10", "0x10", "10x0", "16385x1", "-1x5", "1x2x3", " 1x2"})
        QVERIFY2(!host::ReadWindowSize(QLatin1String(text)), text);
}

void tst_ScriptParser::everyCommandIsOnItsPage()
{
    const QString page =
        QString::fromUtf8(BytesOf(QStringLiteral(KESTOVA_DOCS_DIR "/scripting.md")));
    QVERIFY(!page.isEmpty());
    for (QString form : host::ScriptForms()) {
        form.replace(u'|', QLatin1String("\\|")); // as tables have it
        QVERIFY2(page.contains(QStringLiteral("\n| `%1` |").arg(form)), qPrintable(form));
    }
}

void tst_ScriptParser::findsRowsByCaptionAndThenByName()
{
    host::Scene scene;
    const host::TrackId arm = scene.AddTrack(Row("LeftArm", "Left Arm"));
    const host::TrackId other = scene.AddTrack(Row("Left Arm", "Other"));
    QString error;
    QCOMPARE(host::FindRow(scene, QStringLiteral("Left Arm"), error), arm);
    QCOMPARE(host::FindRow(scene, QStringLiteral("LeftArm"), error), arm);
    QCOMPARE(host::FindRow(scene, QStringLiteral("Other"), error), other);
    QVERIFY2(error.isEmpty(), qPrintable(error));
}

void tst_ScriptParser::tellsRowsThatAreNotThereOrNotAlone()
{
    host::Scene scene;
    scene.AddTrack(Row("a:Hand", "Hand"));
    const host::TrackId second = scene.AddTrack(Row("b:Hand", "Hand"));
    QString error;
    QCOMPARE(host::FindRow(scene, QStringLiteral("Hand"), error), host::kNoTrack);
    QCOMPARE(error, QStringLiteral("2 rows are called \"Hand\""));
    QCOMPARE(host::FindRow(scene, QStringLiteral("b:Hand"), error), second); // its own name does
    QCOMPARE(host::FindRow(scene, QStringLiteral("hand"), error), host::kNoTrack);
    QCOMPARE(error, QStringLiteral("there is no row \"hand\""));
}

void tst_ScriptParser::knowsWhereKeysBegin()
{
    host::SceneTrack row;
    row.keys = {KeyAt(3), ClipAt(10, 4, 2)};
    row.keys[1].subKeys = {KeyAt(0), KeyAt(2)};
    for (const int frame : {3, 10, 12})
        QVERIFY(host::HasKeyAt(row, frame));
    for (const int frame : {0, 2, 4, 11, 13, 14, 18})
        QVERIFY(!host::HasKeyAt(row, frame));
}

void tst_ScriptParser::knowsWhereAPressFallsOnAKey()
{
    host::SceneTrack row;
    row.keys = {KeyAt(3), ClipAt(10, 4, 2)};
    row.keys[1].subKeys = {KeyAt(0), KeyAt(2)};
    for (const int frame : {3, 10, 11, 18})
        QVERIFY(host::IsOnKey(row, frame));
    for (const int frame : {2, 4, 9, 19})
        QVERIFY(!host::IsOnKey(row, frame));
    row.editModes = {host::EditMode::EditSubKeys};
    QVERIFY(host::IsOnKey(row, 12));
    QVERIFY(!host::IsOnKey(row, 11));
}

QTEST_MAIN(tst_ScriptParser)
#include "tst_ScriptParser.moc"
