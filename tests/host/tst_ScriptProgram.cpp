#include "HostProgram.h"
#include "TestFiles.h"

#include "storage/DocumentFile.h"

#include <QDir>
#include <QImage>
#include <QTemporaryDir>

namespace {

/// What the program says, without the remarks of Qt's offscreen platform.
QString ErrorsOf(const HostRun& run)
{
    QStringList lines = run.errors.split(u'\n');
    lines.erase(std::remove_if(lines.begin(), lines.end(),
                               [](const QString& line) {
                                   return line.startsWith(QLatin1String("This plugin"));
                               }),
                lines.end());
    return lines.join(u'\n');
}

const host::SceneTrack* RowOf(const host::Scene& scene, const char* name)
{
    for (const host::SceneTrack& row : scene.tracks) {
        if (row.name == QLatin1String(name))
            return &row;
    }
    return nullptr;
}

bool HasKey(const host::Scene& scene, const char* name, int frame)
{
    const host::SceneTrack* const row = RowOf(scene, name);
    return row && std::any_of(row->keys.cbegin(), row->keys.cend(),
                              [frame](const host::SceneKey& key) { return key.frame == frame; });
}

/// The lines of a page between the marks of the block that follows @p heading.
QByteArray BlockOf(const QString& page, const char* heading)
{
    QByteArray block;
    bool isBelow = false;
    for (const QByteArray& line : BytesOf(page).split('\n')) {
        isBelow = isBelow || line == heading;
        if (isBelow && line.startsWith("    "))
            block += line.mid(4) + '\n';
        else if (!block.isEmpty() && !line.isEmpty())
            break;
    }
    return block;
}

} // namespace

class tst_ScriptProgram : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void editsUndoesSavesPicturesAndQuits();
    void readsBesideTheScriptAndWritesWhereItWasStarted();
    void opensItsFilesFirst();
    void endsWithOneOnAFaultyLine();
    void endsWithOneOnACommandThatCannotBeDone();
    void needsNoScreenToFindAFaultyLine();
    void takesNoPictureBesides();
    void asksNobodyAboutTheWorkOfAnEarlierRun();
    void leavesNothingToRecover();
    void staysOpenWithoutQuit();
    void runsTheExampleOfItsPage();
    void makesThePicturesOfTheDocs_data();
    void makesThePicturesOfTheDocs();

private:
    QString Path(const QString& name) const { return m_directory->filePath(name); }
    QString Write(const QString& name, const QByteArray& text) const;
    HostRun Run(const QByteArray& script, const QStringList& arguments = {}) const;

    std::unique_ptr<QTemporaryDir> m_directory;
};

/// A folder for each test, which is the working directory of the program too.
void tst_ScriptProgram::init()
{
    QDir::setCurrent(QDir::rootPath());
    m_directory = std::make_unique<QTemporaryDir>();
    QVERIFY(m_directory->isValid());
    QVERIFY(QDir::setCurrent(m_directory->path()));
    qputenv("KESTOVA_HOST_DATA", Path("data").toUtf8());
}

QString tst_ScriptProgram::Write(const QString& name, const QByteArray& text) const
{
    const QString path = Path(name);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("%s cannot be written", qPrintable(path));
    return path;
}

HostRun tst_ScriptProgram::Run(const QByteArray& script, const QStringList& arguments) const
{
    return RunHost(QStringList{"--script", Write("demo.txt", script)} + arguments);
}

void tst_ScriptProgram::editsUndoesSavesPicturesAndQuits()
{
    const HostRun run = Run("size 1000x600\n"
                            "drag \"Left Arm\" 15 by 4\n"
                            "drag \"Left Arm\" 30 by 4\n"
                            "undo\n"
                            "row-menu Lips Lock\n"
                            "save out.ktl\n"
                            "frame 40\n"
                            "screenshot out.png\n"
                            "drag \"Left Arm\" 45 by 4\n"
                            "quit\n");
    QCOMPARE(ErrorsOf(run), QString());
    QCOMPARE(run.exitCode, 0);
    QString error;
    const auto saved = host::ReadDocument(Path("out.ktl"), error);
    QVERIFY2(saved, qPrintable(error));
    QVERIFY(HasKey(saved->scene, "LeftArm", 19));
    QVERIFY(!HasKey(saved->scene, "LeftArm", 15));
    QVERIFY(HasKey(saved->scene, "LeftArm", 30)); // was undone
    QVERIFY(HasKey(saved->scene, "LeftArm", 45)); // came after it was saved
    QVERIFY(RowOf(saved->scene, "Lips")->locked);
    QCOMPARE(QImage(Path("out.png")).size(), QSize(1000, 600));
}

void tst_ScriptProgram::readsBesideTheScriptAndWritesWhereItWasStarted()
{
    Write("scripts/voice.wav", WavBytes(4000, 4000));
    const QString script = Write("scripts/demo.txt", "import voice.wav\nsave out.ktl\nquit\n");
    const HostRun run = RunHost({"--script", script});
    QCOMPARE(ErrorsOf(run), QString());
    QCOMPARE(run.exitCode, 0);
    QVERIFY(QFile::exists(Path("out.ktl")));
}

void tst_ScriptProgram::opensItsFilesFirst()
{
    QCOMPARE(Run("expect key \"Left Arm\" 15\nquit\n").exitCode, 0); // the sample scene
    const HostRun run = Run("expect frame 7\nexpect key Lips 0\nselect \"Left Arm\" 15\nquit\n",
                            {"--frame", "7", SamplePath("greeting.json")});
    QCOMPARE(ErrorsOf(run), Path("demo.txt") + ":3: there is no row \"Left Arm\"\n");
}

void tst_ScriptProgram::endsWithOneOnAFaultyLine()
{
    const HostRun run = Run("screenshot first.png\nframe ten\n");
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(ErrorsOf(run), Path("demo.txt") + ":2: expected frame FRAME, found \"ten\"\n");
    QVERIFY(!QFile::exists(Path("first.png"))); // found before anything is done
    QCOMPARE(ErrorsOf(RunHost({"--script", "none.txt"})),
             QStringLiteral("none.txt: expected a script file\n"));
}

void tst_ScriptProgram::endsWithOneOnACommandThatCannotBeDone()
{
    const HostRun run = Run("screenshot first.png\ndrag \"Left Arm\" 15 by 4\nframe 91\n"
                            "screenshot second.png\n");
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(ErrorsOf(run), Path("demo.txt") + ":3: the last frame is 90\n");
    QVERIFY(QFile::exists(Path("first.png")));
    QVERIFY(!QFile::exists(Path("second.png")));
}

void tst_ScriptProgram::needsNoScreenToFindAFaultyLine()
{
    const HostRun run = RunHostWithoutPlatform({"--script", Write("demo.txt", "jump\n")});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.errors, Path("demo.txt") + ":1: expected a command, found \"jump\"\n");
}

void tst_ScriptProgram::takesNoPictureBesides()
{
    const HostRun run = Run("quit\n", {"--screenshot", Path("a.png")});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(ErrorsOf(run), QStringLiteral("kestova-host: --script: takes its pictures itself, by "
                                           "the command screenshot\n"));
}

void tst_ScriptProgram::asksNobodyAboutTheWorkOfAnEarlierRun()
{
    QCOMPARE(Run("save out.ktl\nquit\n").exitCode, 0);
    QVERIFY(QFile::copy(Path("out.ktl"), Path("out.ktl.recovery")));
    const HostRun run = Run("expect saved\nquit\n", {Path("out.ktl")});
    QCOMPARE(ErrorsOf(run), QString());
    QCOMPARE(run.exitCode, 0);
    QVERIFY(QFile::exists(Path("out.ktl.recovery")));
}

void tst_ScriptProgram::leavesNothingToRecover()
{
    // However the script ends.
    for (const char* end : {"quit\n", "frame 91\n"}) {
        Run(QByteArray("save out.ktl\ndrag \"Left Arm\" 15 by 4\nwait 1500\n") + end);
        QVERIFY(QFile::exists(Path("out.ktl")));
        QVERIFY(!QFile::exists(Path("out.ktl.recovery")));
    }
}

void tst_ScriptProgram::staysOpenWithoutQuit()
{
    QProcess program;
    QProcessEnvironment environment = OffscreenEnvironment();
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_directory->path());
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(KESTOVA_HOST_PROGRAM),
                  QStringList{"--script", Write("demo.txt", "screenshot a.png\n")} +
                      kWithoutScreen);
    QVERIFY(QTest::qWaitFor([this] { return QFile::exists(Path("a.png")); }, 60000));
    QVERIFY(!program.waitForFinished(500));
    program.kill();
    QVERIFY(program.waitForFinished());
}

void tst_ScriptProgram::runsTheExampleOfItsPage()
{
    const QByteArray example =
        BlockOf(QStringLiteral(KESTOVA_DOCS_DIR "/scripting.md"), "## An example");
    QVERIFY(example.contains("quit"));
    const HostRun run = Run(example);
    QCOMPARE(ErrorsOf(run), QString());
    QCOMPARE(run.exitCode, 0);
    QVERIFY(!QImage(Path("arm-moved.png")).isNull());
    QVERIFY(QFile::exists(Path("moved.ktl")));
}

void tst_ScriptProgram::makesThePicturesOfTheDocs_data()
{
    QTest::addColumn<QString>("script");
    const QDir scripts(QStringLiteral(KESTOVA_DOCS_DIR "/scripts"));
    const QStringList names = scripts.entryList({"*.txt"}, QDir::Files);
    QVERIFY(names.contains(QStringLiteral("demo.txt")));
    for (const QString& name : names)
        QTest::newRow(qPrintable(name)) << scripts.filePath(name);
}

void tst_ScriptProgram::makesThePicturesOfTheDocs()
{
    QFETCH(QString, script);
    const HostRun run = RunHost({"--script", script});
    QCOMPARE(ErrorsOf(run), QString());
    QCOMPARE(run.exitCode, 0);
    // Each under the name of its script, beside the one that the page shows.
    const QString name = QFileInfo(script).completeBaseName() + QStringLiteral(".png");
    const QImage made(Path(name));
    QVERIFY(!made.isNull());
    QCOMPARE(QImage(QStringLiteral(KESTOVA_DOCS_DIR "/images/") + name).size(), made.size());
}

QTEST_MAIN(tst_ScriptProgram)
#include "tst_ScriptProgram.moc"
