#include "HostProgram.h"
#include "TestFiles.h"

#include "import/SceneFiles.h"
#include "storage/DocumentFile.h"

#include <QColor>
#include <QImage>
#include <QTemporaryDir>

#include <algorithm>

namespace {

/// The colour of the current-frame line in the default skin.
const QRgb kMarkLine = qRgb(88, 216, 192);

QString SkinPath()
{
    return QStringLiteral(KESTOVA_SKINS_DIR "/default.ini");
}

void WriteFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

/// The place of the column that is in the current-frame line's colour over most of the rows'
/// height.
int CurrentFrameColumn(const QImage& picture)
{
    int best = -1;
    int most = 20; // a line crosses at least the height of a row
    for (int x = 0; x < picture.width(); ++x) {
        int count = 0;
        for (int y = 0; y < picture.height(); ++y)
            count += picture.pixel(x, y) == kMarkLine ? 1 : 0;
        if (count > most) {
            most = count;
            best = x;
        }
    }
    return best;
}

/// Writes the sample scene as a document that is looked at like that.
bool WriteSample(const QString& path, const host::ViewRecord& view, int frameCount = 0,
                 int styleNumber = 0)
{
    host::ImportError importError;
    auto scene = host::LoadScene(
        {SamplePath(QStringLiteral("stroll.bvh")), SamplePath(QStringLiteral("greeting.json"))},
        importError);
    QString error;
    if (!scene)
        return false;
    scene->frameCount = std::max(scene->frameCount, frameCount);
    if (styleNumber > 0)
        scene->tracks[1].styleNumber = styleNumber;
    return host::WriteDocument(path, {*scene, view, {}}, error);
}

} // namespace

class tst_HostCommandLine : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void opensTheSampleSceneWithoutFiles();
    void writesAPictureOfTheAskedSize();
    void writesTheSamePictureEveryTime();
    void paintsTwiceAsFineOnAFineScreen();
    void drawsTheCurrentFrameLineAtTheAskedFrame();
    void staysOnTheLastFrameWhenAskedForMore();
    void drawsInTheAskedSkin();
    void opensTheRealFiles();
    void opensADocument();
    void opensADocumentAsItWasLookedAt();
    void leavesADamagedDocumentAlone();
    void listsItsOptions();
    void listsTheToolkitsOptionsToo();
    void leavesTheToolkitItsOptions_data();
    void leavesTheToolkitItsOptions();
    void startsWithoutARememberedSkinThatIsDamaged();
    void saysInOneLineWhatIsWrong_data();
    void saysInOneLineWhatIsWrong();
    void refusesASkinCutAnywhere();
    void needsNoScreenToFindAnError();

private:
    QImage Picture(const QStringList& arguments);
    QString InDirectory(const QString& name) const { return m_directory.filePath(name); }

    QTemporaryDir m_directory;
};

void tst_HostCommandLine::initTestCase()
{
    QVERIFY(m_directory.isValid());
}

/// The picture that the program writes when started with @p arguments; null when it fails.
QImage tst_HostCommandLine::Picture(const QStringList& arguments)
{
    const QString path = InDirectory(QStringLiteral("window.png"));
    QFile::remove(path);
    const HostRun run = RunHost(arguments + QStringList{QStringLiteral("--screenshot"), path});
    if (run.exitCode != 0)
        qWarning("%s", qPrintable(run.errors));
    return run.exitCode == 0 ? QImage(path) : QImage();
}

void tst_HostCommandLine::opensTheSampleSceneWithoutFiles()
{
    const QImage picture = Picture({});
    QCOMPARE(picture.size(), QSize(1280, 720));
    QVERIFY(picture == Picture({SamplePath(QStringLiteral("stroll.bvh")),
                                SamplePath(QStringLiteral("greeting.json"))}));
    QVERIFY(picture != Picture({SamplePath(QStringLiteral("stroll.bvh"))}));
}

void tst_HostCommandLine::writesAPictureOfTheAskedSize()
{
    QCOMPARE(Picture({QStringLiteral("--size"), QStringLiteral("900x500")}).size(),
             QSize(900, 500));
}

void tst_HostCommandLine::writesTheSamePictureEveryTime()
{
    const QImage picture = Picture({QStringLiteral("--frame"), QStringLiteral("7")});
    QVERIFY(!picture.isNull());
    QVERIFY(picture == Picture({QStringLiteral("--frame"), QStringLiteral("7")}));
}

void tst_HostCommandLine::paintsTwiceAsFineOnAFineScreen()
{
    qputenv("QT_SCALE_FACTOR", "2"); // the program inherits it
    const QImage fine = Picture({QStringLiteral("--size"), QStringLiteral("900x500")});
    qunsetenv("QT_SCALE_FACTOR");
    QCOMPARE(fine.size(), QSize(1800, 1000));
    const QImage plain = Picture({QStringLiteral("--size"), QStringLiteral("900x500")});
    QVERIFY(fine != plain.scaled(fine.size())); // texts gain
}

void tst_HostCommandLine::drawsTheCurrentFrameLineAtTheAskedFrame()
{
    const auto columnAt = [this](int frame) {
        return CurrentFrameColumn(Picture({QStringLiteral("--frame"), QString::number(frame)}));
    };
    const int first = columnAt(10);
    const int second = columnAt(20);
    const int third = columnAt(30);
    QVERIFY(first > 0);
    QVERIFY(second > first);
    QCOMPARE(third - second, second - first);
}

void tst_HostCommandLine::staysOnTheLastFrameWhenAskedForMore()
{
    const QImage last = Picture({QStringLiteral("--frame"), QStringLiteral("90")});
    QVERIFY(!last.isNull());
    QVERIFY(last == Picture({QStringLiteral("--frame"), QStringLiteral("2000000000")}));
}

void tst_HostCommandLine::drawsInTheAskedSkin()
{
    const QString skin = InDirectory(QStringLiteral("red.ini"));
    WriteFile(skin, BytesOf(SkinPath()).replace("MarkLine = (88,216,192)", "MarkLine = (255,0,0)"));
    const QImage picture = Picture({QStringLiteral("--skin"), skin});
    QVERIFY(!picture.isNull());
    QCOMPARE(CurrentFrameColumn(picture), -1);
    QVERIFY(CurrentFrameColumn(Picture({QStringLiteral("--skin"), SkinPath()})) > 0);
}

void tst_HostCommandLine::opensTheRealFiles()
{
    const QString walk = SharedDataPath(QStringLiteral("walk.bvh"));
    SKIP_WITHOUT(walk);
    const QString dialogue = SharedDataPath(QStringLiteral("dialogue.json"));
    SKIP_WITHOUT(dialogue);
    QCOMPARE(Picture({walk, dialogue}).size(), QSize(1280, 720));
}

void tst_HostCommandLine::opensADocument()
{
    const QString path = InDirectory(QStringLiteral("stroll.ktl"));
    QVERIFY(WriteSample(path, {}));
    const QStringList frame{QStringLiteral("--frame"), QStringLiteral("7")};
    const QImage picture = Picture(QStringList{path} + frame);
    QVERIFY(!picture.isNull());
    QVERIFY(picture == Picture(frame));
}

void tst_HostCommandLine::opensADocumentAsItWasLookedAt()
{
    const QString path = InDirectory(QStringLiteral("stroll.ktl"));
    constexpr int kFrames = 600; // more than fit into the window at the closest
    QVERIFY(WriteSample(path, {0, 1, 7}, kFrames));
    const QImage all = Picture({path});
    QVERIFY(!all.isNull());
    QVERIFY(WriteSample(path, {0, 1, 20}, kFrames));
    QVERIFY(Picture({path}) != all);
    QVERIFY(WriteSample(path, {0.25F, 0.5F, 7}, kFrames));
    QVERIFY(Picture({path}) != all);
}

void tst_HostCommandLine::leavesADamagedDocumentAlone()
{
    const QString path = InDirectory(QStringLiteral("cut.ktl"));
    QVERIFY(WriteSample(path, {}));
    QVERIFY(QFile::resize(path, 1000));
    const QByteArray before = BytesOf(path);
    const HostRun run = RunHost({path});
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.errors.startsWith(QLatin1String("cut.ktl: line ")), qPrintable(run.errors));
    QCOMPARE(run.errors.count(u'\n'), 1);
    QCOMPARE(BytesOf(path), before);
}

void tst_HostCommandLine::listsItsOptions()
{
    const HostRun run = RunHost({QStringLiteral("--help")});
    QCOMPARE(run.exitCode, 0);
    for (const char* option :
         {"--skin <FILE>", "--size <WxH>", "--frame <N>", "--screenshot <PNG>", "[FILES...]"})
        QVERIFY2(run.output.contains(QLatin1String(option)), option);
}

void tst_HostCommandLine::listsTheToolkitsOptionsToo()
{
    const HostRun run = RunHost({QStringLiteral("--help-all")});
    QCOMPARE(run.exitCode, 0);
    for (const char* option :
         {"--skin <FILE>", "[FILES...]", "-platform <NAME", "-style <NAME>", "-display <NAME>"})
        QVERIFY2(run.output.contains(QLatin1String(option)), option);
}

void tst_HostCommandLine::leavesTheToolkitItsOptions_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::newRow("with a value") << QStringList{QStringLiteral("-style"),
                                                 QStringLiteral("fusion")};
    QTest::newRow("with two dashes")
        << QStringList{QStringLiteral("--platform"), QStringLiteral("offscreen")};
    QTest::newRow("joined to its value") << QStringList{QStringLiteral("-style=fusion")};
    QTest::newRow("without a value") << QStringList{QStringLiteral("-widgetcount")};
}

void tst_HostCommandLine::leavesTheToolkitItsOptions()
{
    QFETCH(QStringList, options);
    const QString size = QStringLiteral("900x500"); // what follows is still the program's own
    QCOMPARE(Picture(options + QStringList{QStringLiteral("--size"), size}).size(),
             QSize(900, 500));
}

void tst_HostCommandLine::startsWithoutARememberedSkinThatIsDamaged()
{
    const QTemporaryDir home;
    const QString skin = home.filePath(QStringLiteral("damaged.ini"));
    WriteFile(skin, "[TickTrack]\n");
    QVERIFY(QDir().mkpath(home.filePath(QStringLiteral("Kestova"))));
    WriteFile(home.filePath(QStringLiteral("Kestova/kestova-host.ini")),
              "[view]\nskin=" + skin.toUtf8() + '\n');
    QProcessEnvironment environment = OffscreenEnvironment();
    for (const char* const folder : {"HOME", "KESTOVA_HOST_DATA", "XDG_RUNTIME_DIR"})
        environment.insert(QLatin1String(folder), home.path());
    QProcess program;
    program.setProcessEnvironment(environment);
    program.setReadChannel(QProcess::StandardError);
    program.start(QStringLiteral(KESTOVA_HOST_PROGRAM), kWithoutScreen);
    QByteArray errors;
    const QByteArray expected =
        skin.toUtf8() + ": expected a skin with every section and key; the usual skin stands in\n";
    constexpr int kPatience = 30000; // milliseconds
    while (!errors.contains(expected) && program.waitForReadyRead(kPatience))
        errors += program.readAllStandardError().replace("\r\n", "\n");
    QVERIFY2(errors.contains(expected), errors.constData());
    QVERIFY(!program.waitForFinished(1000)); // it goes on
    program.kill();
    QVERIFY(program.waitForFinished());
}

void tst_HostCommandLine::saysInOneLineWhatIsWrong_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* name, const QStringList& arguments, const QString& message) {
        QTest::newRow(name) << arguments << message;
    };
    const QString broken = InDirectory(QStringLiteral("broken.bvh"));
    WriteFile(broken, BytesOf(SamplePath(QStringLiteral("stroll.bvh"))).replace("Frames: ", "N: "));
    const QString cut = InDirectory(QStringLiteral("cut.json"));
    WriteFile(cut, "{\n\"metadata\" 5}\n");
    const QString poorSkin = InDirectory(QStringLiteral("poor.ini"));
    WriteFile(poorSkin, "[TickTrack]\n");
    const QString missing = InDirectory(QStringLiteral("missing.bvh"));
    const QString directory = InDirectory(QStringLiteral("folder.bvh"));
    QVERIFY(QDir().mkpath(directory));

    row("a file that is not there", {missing},
        missing + QStringLiteral(": expected a readable file (%1)").arg(ReasonAgainst(missing)));
    row("a directory", {directory},
        directory + QStringLiteral(": expected a readable file, found a directory"));
    row("a damaged motion", {broken},
        broken + QStringLiteral(":108: expected Frames:, found \"N:\""));
    row("damaged mouth cues", {cut}, cut + QStringLiteral(":2: expected a colon after a name"));
    row("a file of another kind", {QStringLiteral("notes.txt")},
        QStringLiteral("notes.txt: expected a motion capture (.bvh), mouth cues (.json, .tsv) or a "
                       "sound (.wav)"));
    row("a skin that is not there", {QStringLiteral("--skin"), QStringLiteral("none.ini")},
        QStringLiteral("none.ini: expected a skin file"));
    row("a directory for a skin", {QStringLiteral("--skin"), directory},
        directory + QStringLiteral(": expected a skin file"));
    row("a skin without styles", {QStringLiteral("--skin"), poorSkin},
        poorSkin + QStringLiteral(": expected a skin with every section and key"));
    for (const char* size : {"wide", "0x10", "10x", "1280x720x3", "-1x5", "99999x10"}) {
        row(qPrintable(QStringLiteral("the size %1").arg(QLatin1String(size))),
            {QStringLiteral("--size=") + QLatin1String(size)},
            QStringLiteral(
                "kestova-host: --size: expected WIDTHxHEIGHT in pixels, such as 1280x720"));
    }
    for (const char* frame : {"-1", "x", "1.5", "99999999999"}) {
        row(qPrintable(QStringLiteral("the frame %1").arg(QLatin1String(frame))),
            {QStringLiteral("--frame=") + QLatin1String(frame)},
            QStringLiteral("kestova-host: --frame: expected a frame number, 0 or more"));
    }
    row("an unknown option", {QStringLiteral("--colour")},
        QStringLiteral("kestova-host: Unknown option 'colour'."));
    row("an option without its value", {QStringLiteral("--skin")},
        QStringLiteral("kestova-host: Missing value after '--skin'."));
    const QString odd = InDirectory(QStringLiteral("odd.ktl"));
    QVERIFY(WriteSample(odd, {}, 0, 77));
    row("a document with a style that no skin has", {odd},
        odd + QStringLiteral(": expected a scene that the skin has styles for"));
    const QString document = InDirectory(QStringLiteral("whole.ktl"));
    QVERIFY(WriteSample(document, {}));
    const QString alone = document + QStringLiteral(": a document is opened alone, without other "
                                                    "files");
    row("a document and a sound", {document, QStringLiteral("a.wav")}, alone);
    row("a sound and a document", {QStringLiteral("a.wav"), document}, alone);
    row("two documents", {document, document}, alone);
    row("two pictures",
        {QStringLiteral("--screenshot=a.png"), QStringLiteral("--grab-screen=b.png")},
        QStringLiteral("kestova-host: --grab-screen: expected no --screenshot with it"));
    row("a toolkit option's value where it may not be", {QStringLiteral("--platform=offscreen")},
        QStringLiteral("kestova-host: Unknown option 'platform'."));
    const QString nowhere = InDirectory(QStringLiteral("no/such/folder.png"));
    row("a picture that cannot be written", {QStringLiteral("--screenshot"), nowhere},
        nowhere + QStringLiteral(": expected a file that can be written"));
}

void tst_HostCommandLine::saysInOneLineWhatIsWrong()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);
    const HostRun run = RunHost(arguments);
    QVERIFY2(run.exitCode > 0, qPrintable(run.errors));
    QString errors = run.errors;
    // A remark of Qt's offscreen platform on every window that is shown there.
    errors.remove(QStringLiteral("This plugin does not support propagateSizeHints()\n"));
    QCOMPARE(errors, message + u'\n');
}

void tst_HostCommandLine::refusesASkinCutAnywhere()
{
    const QByteArray whole = BytesOf(SkinPath());
    QVERIFY(!whole.isEmpty());
    const QString skin = InDirectory(QStringLiteral("cut.ini"));
    // The library's own tests cut the skin at every byte; here it is that the program tells.
    for (const int part : {0, 1, 2, 3}) {
        WriteFile(skin, whole.left(whole.size() * part / 8));
        const HostRun run = RunHost({QStringLiteral("--skin"), skin, QStringLiteral("--screenshot"),
                                     InDirectory(QStringLiteral("cut.png"))});
        QVERIFY2(run.exitCode > 0, qPrintable(run.errors));
        QVERIFY(run.errors.contains(QStringLiteral("expected a skin with every section and key")));
    }
}

void tst_HostCommandLine::needsNoScreenToFindAnError()
{
    const HostRun run = RunHostWithoutPlatform({QStringLiteral("notes.txt")});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(
        run.errors,
        QStringLiteral("notes.txt: expected a motion capture (.bvh), mouth cues (.json, .tsv) or a "
                       "sound (.wav)\n"));
}

QTEST_MAIN(tst_HostCommandLine)
#include "tst_HostCommandLine.moc"
