#include "DropFiles.h"
#include "EditorFixture.h"

#include "view/ImportCommand.h"

#include <QAction>
#include <QDropEvent>
#include <QFileDialog>
#include <QMimeData>
#include <QProgressDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace host;

namespace {

constexpr int kPatience = 30000; // milliseconds; the sanitized program is slow

const char* const kCues = "0\tX\n0.5\tB\n1\tE\n4\tX\n";

/// A capture of some size: at a million numbers, some hundred milliseconds.
QByteArray LongCapture(int samples)
{
    QByteArray text = "HIERARCHY\nROOT Hips\n{\nOFFSET 0 0 0\nCHANNELS 6 Xposition Yposition "
                      "Zposition Zrotation Xrotation Yrotation\nJOINT Arm\n{\nOFFSET 0 1 0\n"
                      "CHANNELS 3 Zrotation Xrotation Yrotation\n}\n}\nMOTION\nFrames: " +
                      QByteArray::number(samples) + "\nFrame Time: 0.0083333\n";
    return text +
           QByteArray("0.00 95.123 1.2e-05 12.5 -3.25 0.125 45.001 -0.33 7.75\n").repeated(samples);
}

struct ImportingEditor : EditorFixture
{
    ImportingEditor()
    {
        QObject::connect(&window.Session(), &EditSession::Committed, &window,
                         [this](const QString& name) { edits.append(name); });
    }

    QTemporaryDir directory;
    QStringList edits;

    QString File(const char* name, const QByteArray& bytes)
    {
        const QString path = directory.filePath(QLatin1String(name));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("%s cannot be written", name);
        return path;
    }
    bool Finishes()
    {
        return QTest::qWaitFor([this] { return !window.Import().IsRunning(); }, kPatience);
    }
    bool Import(const QStringList& files)
    {
        window.Import().Start(files);
        return Finishes();
    }
    /// The dialog, once it has come up; null when the import ends without.
    QProgressDialog* Progress()
    {
        const auto isDecided = [this] {
            const auto* const dialog = window.findChild<QProgressDialog*>();
            return !dialog || dialog->isVisible();
        };
        return QTest::qWaitFor(isDecided, kPatience) ? window.findChild<QProgressDialog*>()
                                                     : nullptr;
    }
    /// Drags files over the widget and lets go there. Whether they were taken.
    static bool DropOn(QWidget* widget, const QStringList& files)
    {
        return DropFiles(widget, {20, 5}, files);
    }
    /// A row of the timeline, which knows only the files of its own list.
    QWidget* WidgetOf(const char* name)
    {
        const void* const track = Row(name);
        for (QWidget* const widget : window.findChildren<QWidget*>()) {
            if (widget == track)
                return widget;
        }
        qFatal("the row %s has no widget", name);
    }
};

} // namespace

class tst_ImportCommand : public QObject
{
    Q_OBJECT

private slots:
    void isOneEditThatTheTimelineShows();
    void aMotionWithOtherJointsIsShown();
    void newRowsLeaveTheSelectionAndTheCopiesOfOthers();
    void hiddenRowsStayHidden();
    void aLongerSceneCanBeScrubbedToItsEnd();
    void aSoundStartsAtTheCurrentFrame();
    void aSoundThatIsThereAlreadyIsNoEdit();
    void aSoundStartsWithTheCuesItCameWith();
    void severalFilesAreOneEdit();
    void saysWhatIsWrongAndChangesNothing_data();
    void saysWhatIsWrongAndChangesNothing();
    void aLongImportShowsProgressAndCanBeCancelled();
    void refusesASecondImportMeanwhile();
    void isGivenUpWhenAnotherSceneIsOpened();
    void isGivenUpWhenTheWindowCloses();
    void theSceneCanBeEditedMeanwhile();
    void theMenuAsksForFiles();
    void filesAreDroppedOnRows();
    void soundsAreDroppedBesideTheRows();
    void severalSoundsOnARowAreAllTaken();
    void saysWhichSoundsAreSilent();
    void otherFilesAreNotTaken();
    void aDroppedSoundMakesTheSceneLonger();
    void saysWhatADroppedSoundCovers_data();
    void saysWhatADroppedSoundCovers();
};

void tst_ImportCommand::isOneEditThatTheTimelineShows()
{
    ImportingEditor editor;
    QVERIFY(editor.Import({editor.File("hello.tsv", kCues)}));
    QCOMPARE(editor.edits, QStringList{QStringLiteral("Import hello.tsv")});
    QCOMPARE(editor.StatusText(), QStringLiteral("Import hello.tsv"));
    QCOMPARE(editor.KeysOf("Lips")[0].subKeys.size(), 4);
    QCOMPARE(editor.Timeline().GetFrameCount(), editor.Scene().frameCount);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_ImportCommand::aMotionWithOtherJointsIsShown()
{
    ImportingEditor editor;
    QVERIFY(editor.Import({editor.File("arm.bvh", LongCapture(60))}));
    QVERIFY(editor.Row("Arm"));
    QVERIFY(editor.Timeline().GetChildTrackSortIndex(editor.Row("Arm")) >= 0);
    QVERIFY(editor.Timeline().GetActiveChildTrack());
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_ImportCommand::newRowsLeaveTheSelectionAndTheCopiesOfOthers()
{
    ImportingEditor editor;
    editor.Select("MouthRest", {1});
    editor.Timeline().CopySelectionToClipboard(editor.Row("MouthRest"));
    editor.Timeline().SetCurrentFrame(12);
    const QVector<int> selected = editor.SelectedFrames("MouthRest");
    QCOMPARE(selected.size(), 1);
    QVERIFY(editor.Import({editor.File("arm.bvh", LongCapture(60))}));
    QCOMPARE(editor.SelectedFrames("MouthRest"), selected);
    QVERIFY(editor.Timeline().GetActiveChildTrack() == editor.Row("MouthRest"));
    QCOMPARE(editor.Timeline().GetCurrentFrame(), 12);
    QVERIFY(editor.Timeline().CanDoTrackEdit(editor.Row("MouthRest"), TL_EDIT_PASTE));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_ImportCommand::hiddenRowsStayHidden()
{
    ImportingEditor editor;
    Scene scene = editor.Scene();
    for (SwitchButton& button : scene.FindTrack(editor.Id("Layers"))->buttons)
        button.on = button.text != QLatin1String("Joints");
    QVERIFY(editor.window.SetScene(scene));
    QVERIFY(editor.Import({editor.File("arm.bvh", LongCapture(60))}));
    QCOMPARE(editor.Timeline().GetChildTrackSortIndex(editor.Row("Arm")), -1);
    QVERIFY(editor.Timeline().GetChildTrackSortIndex(editor.Row("Motion")) >= 0);
}

void tst_ImportCommand::aLongerSceneCanBeScrubbedToItsEnd()
{
    ImportingEditor editor;
    QVERIFY(editor.Import({editor.File("hello.tsv", kCues)}));
    QCOMPARE(editor.Scene().frameCount, 121); // the last mouth shape has its frame
    editor.window.GotoFrame(1000);
    QCOMPARE(editor.Timeline().GetCurrentFrame(), 120);
}

void tst_ImportCommand::aSoundStartsAtTheCurrentFrame()
{
    ImportingEditor editor;
    editor.Timeline().SetCurrentFrame(12);
    const QString path = editor.File("hello.wav", WavBytes(4000, 4000));
    QVERIFY(editor.Import({path}));
    QCOMPARE(editor.FramesOf("Sound"), QVector<int>{0}); // the sample's own, and this one beside
    const auto added =
        std::find_if(editor.Scene().tracks.cbegin(), editor.Scene().tracks.cend(),
                     [](const SceneTrack& row) { return row.caption == QLatin1String("Sound 2"); });
    QVERIFY(added != editor.Scene().tracks.cend());
    QCOMPARE(added->keys[0].frame, 12);
    QCOMPARE(added->keys[0].sound, path);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_ImportCommand::aSoundThatIsThereAlreadyIsNoEdit()
{
    ImportingEditor editor;
    const QString path = editor.File("hello.wav", WavBytes(4000, 4000));
    QVERIFY(editor.Import({path}));
    QVERIFY(editor.Import({path}));
    QCOMPARE(editor.edits, QStringList{QStringLiteral("Import hello.wav")});
    QCOMPARE(editor.StatusText(), QStringLiteral("hello.wav is in the scene already"));
}

void tst_ImportCommand::aSoundStartsWithTheCuesItCameWith()
{
    ImportingEditor editor;
    editor.Timeline().SetCurrentFrame(12);
    QVERIFY(editor.Import(
        {editor.File("hello.wav", WavBytes(4000, 4000)), editor.File("hello.tsv", kCues)}));
    QCOMPARE(editor.FramesOf("Sound"), QVector<int>{0});
}

void tst_ImportCommand::severalFilesAreOneEdit()
{
    ImportingEditor editor;
    QVERIFY(
        editor.Import({editor.File("arm.bvh", LongCapture(60)), editor.File("hello.tsv", kCues)}));
    QCOMPARE(editor.edits, QStringList{QStringLiteral("Import 2 Files")});
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_ImportCommand::saysWhatIsWrongAndChangesNothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("message");
    QTest::newRow("an unknown shape")
        << "hello.tsv" << QByteArray("0\tX\n1\tQ\n")
        << "hello.tsv:2: expected a shape from A to H, or X, found \"Q\"";
    QTest::newRow("a cut capture")
        << "arm.bvh" << LongCapture(60).chopped(200) << "arm.bvh:71: expected 9 numbers, found 3";
    QTest::newRow("an empty file")
        << "arm.bvh" << QByteArray() << "arm.bvh:1: expected HIERARCHY, found the end of the file";
    QTest::newRow("no sound") << "hello.wav" << QByteArray("hello")
                              << "hello.wav: expected a sound file that starts with RIFF and WAVE";
    QTest::newRow("another kind") << "notes.txt" << QByteArray("hello")
                                  << "notes.txt: expected a motion capture (.bvh), mouth cues "
                                     "(.json, .tsv) or a sound (.wav)";
}

void tst_ImportCommand::saysWhatIsWrongAndChangesNothing()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, message);
    ImportingEditor editor;
    const Scene before = editor.Scene();
    QVERIFY(editor.Import({editor.File(qPrintable(name), bytes)}));
    QCOMPARE(editor.StatusText(), editor.directory.filePath(message));
    QVERIFY(editor.Scene() == before);
    QVERIFY(editor.edits.isEmpty());
}

void tst_ImportCommand::aLongImportShowsProgressAndCanBeCancelled()
{
    ImportingEditor editor;
    const Scene before = editor.Scene();
    editor.window.Import().Start({editor.File("long.bvh", LongCapture(600000))});
    QProgressDialog* const progress = editor.Progress();
    QVERIFY(progress);
    QCOMPARE(progress->labelText(), QStringLiteral("Importing long.bvh"));
    QVERIFY(QTest::qWaitFor([progress] { return progress->value() > 0; }, kPatience));
    QVERIFY(progress->value() < progress->maximum());
    QTest::mouseClick(progress->findChild<QPushButton*>(), Qt::LeftButton);
    QVERIFY(editor.Finishes());
    QVERIFY(editor.Scene() == before);
    QVERIFY(editor.edits.isEmpty());
    QCOMPARE(editor.StatusText(), QStringLiteral("Import of long.bvh cancelled"));
    QVERIFY(!editor.window.findChild<QProgressDialog*>());
}

void tst_ImportCommand::refusesASecondImportMeanwhile()
{
    ImportingEditor editor;
    editor.window.Import().Start({editor.File("long.bvh", LongCapture(20000))});
    editor.window.Import().Start({editor.File("hello.tsv", kCues)});
    QCOMPARE(editor.StatusText(), QStringLiteral("hello.tsv: another import is still under way"));
    QVERIFY(editor.Finishes());
    QCOMPARE(editor.edits, QStringList{QStringLiteral("Import long.bvh")});
}

void tst_ImportCommand::isGivenUpWhenAnotherSceneIsOpened()
{
    ImportingEditor editor;
    editor.window.Import().Start({editor.File("long.bvh", LongCapture(600000))});
    const Scene other = editor.Scene();
    QVERIFY(editor.window.SetScene(other));
    QVERIFY(editor.Finishes());
    QVERIFY(editor.Scene() == other);
}

void tst_ImportCommand::isGivenUpWhenTheWindowCloses()
{
    QElapsedTimer clock;
    {
        ImportingEditor editor;
        editor.window.Import().Start({editor.File("long.bvh", LongCapture(600000))});
        QTest::qWait(20);
        QVERIFY(editor.window.Import().IsRunning());
        clock.start();
    }
    QVERIFY(clock.elapsed() < kPatience);
}

/// The rows are merged into the scene as it is when the reading is done.
void tst_ImportCommand::theSceneCanBeEditedMeanwhile()
{
    ImportingEditor editor;
    editor.window.Import().Start({editor.File("arm.bvh", LongCapture(2000))});
    Scene scene = editor.Scene();
    scene.FindTrack(editor.Id("Lips"))->muted = true;
    editor.window.Session().Apply(QStringLiteral("Mute"), scene);
    QVERIFY(editor.Finishes());
    QVERIFY(editor.Scene().FindTrack(editor.Id("Lips"))->muted);
    QCOMPARE(editor.edits.size(), 2);
}

void tst_ImportCommand::theMenuAsksForFiles()
{
    ImportingEditor editor;
    const QString path = editor.File("hello.tsv", kCues);
    editor.window.Import().Action()->trigger();
    auto* const dialog = editor.window.findChild<QFileDialog*>();
    QVERIFY(dialog);
    QVERIFY(dialog->nameFilters().first().contains(QStringLiteral("*.tsv")));
    dialog->setDirectory(editor.directory.path());
    dialog->selectFile(path);
    static_cast<QDialog*>(dialog)->accept();
    QVERIFY(editor.Finishes());
    QCOMPARE(editor.edits, QStringList{QStringLiteral("Import hello.tsv")});
}

void tst_ImportCommand::filesAreDroppedOnRows()
{
    ImportingEditor editor;
    QVERIFY(ImportingEditor::DropOn(editor.WidgetOf("Lips"), {editor.File("hello.tsv", kCues)}));
    QVERIFY(editor.Finishes());
    QVERIFY(ImportingEditor::DropOn(
        editor.WidgetOf("Motion"),
        {editor.File("arm.bvh", LongCapture(60)), editor.File("a.wav", WavBytes(4000, 4000))}));
    QVERIFY(editor.Finishes());
    QCOMPARE(editor.edits,
             (QStringList{QStringLiteral("Import hello.tsv"), QStringLiteral("Import 2 Files")}));
}

void tst_ImportCommand::soundsAreDroppedBesideTheRows()
{
    ImportingEditor editor;
    QVERIFY(editor.window.acceptDrops());
    QVERIFY(ImportingEditor::DropOn(&editor.window, {editor.File("a.wav", WavBytes(4000, 4000))}));
    QVERIFY(editor.Finishes());
    QCOMPARE(editor.FramesOf("Sound"), QVector<int>{0});
}

void tst_ImportCommand::severalSoundsOnARowAreAllTaken()
{
    ImportingEditor editor;
    editor.Timeline().SetCurrentFrame(95); // behind the sample's own
    host::Scene scene = editor.Scene();
    scene.frameCount = 200;
    QVERIFY(editor.window.SetScene(scene));
    editor.Timeline().SetCurrentFrame(95);
    QVERIFY(ImportingEditor::DropOn(
        editor.WidgetOf("Sound"),
        {editor.File("a.wav", WavBytes(4000, 4000)), editor.File("b.wav", WavBytes(4000, 4000))}));
    QVERIFY(editor.Finishes());
    QCOMPARE(editor.FramesOf("Sound"), (QVector<int>{0, 95, 125}));
    QCOMPARE(editor.edits, QStringList{QStringLiteral("Import 2 Files")});
}

void tst_ImportCommand::saysWhichSoundsAreSilent()
{
    ImportingEditor editor;
    QByteArray compressed = WavBytes(4000, 4000);
    compressed[20] = 0x55; // the kind of samples
    const QString a = editor.File("a.wav", compressed);
    const QString b = editor.File("b.wav", compressed);
    QVERIFY(editor.Import({a, b}));
    QCOMPARE(editor.edits, QStringList{QStringLiteral("Import 2 Files")});
    const QString reason =
        QStringLiteral(": expected samples that are not compressed, to be heard");
    QCOMPARE(editor.StatusText(), QStringLiteral("Import 2 Files, silent: ") + a + reason +
                                      QStringLiteral("; ") + b + reason);
    const QString cues =
        editor.File("line.json", "{\"metadata\":{\"duration\":1,\"soundFile\":\"none.wav\"},"
                                 "\"mouthCues\":[{\"start\":0,\"end\":1,\"value\":\"A\"}]}");
    QVERIFY(editor.Import({cues}));
    QCOMPARE(editor.StatusText(), QStringLiteral("Import line.json, silent: ") +
                                      editor.directory.filePath(QStringLiteral("none.wav")) +
                                      QStringLiteral(": expected a readable file"));
}

void tst_ImportCommand::otherFilesAreNotTaken()
{
    ImportingEditor editor;
    QVERIFY(!ImportingEditor::DropOn(editor.WidgetOf("Lips"), {editor.File("notes.txt", "hello")}));
    QVERIFY(!ImportingEditor::DropOn(&editor.window, {editor.File("notes.txt", "hello")}));
    QVERIFY(!ImportingEditor::DropOn(&editor.window, {}));
    QVERIFY(editor.edits.isEmpty());
}

void tst_ImportCommand::aDroppedSoundMakesTheSceneLonger()
{
    ImportingEditor editor;
    const QString path = editor.File("long.wav", WavBytes(4000, 1000));
    editor.Timeline().SetActiveChildTrack(editor.Row("Sound"));
    editor.Timeline().SetCurrentFrame(30);
    QVERIFY(editor.Timeline().ReceiveTrackDrop(TL_DROP_SOUND_FIRST, path));
    QCOMPARE(editor.Scene().frameCount, 150);
    QCOMPARE(editor.Timeline().GetFrameCount(), 150);
    QCOMPARE(editor.KeysOf("Sound")[1].sound, path);
    QCOMPARE(editor.edits, QStringList{QStringLiteral("Drop long.wav")});
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_ImportCommand::saysWhatADroppedSoundCovers_data()
{
    QTest::addColumn<int>("frame");
    QTest::addColumn<QString>("text");
    QTest::newRow("a clip") << 20 << QStringLiteral("Drop hello.wav: one was replaced");
    QTest::newRow("its end") << 25 << QStringLiteral("Drop hello.wav: the end of one is covered");
    QTest::newRow("itself") << 10 << QStringLiteral("Drop hello.wav: heard until one begins");
    QTest::newRow("nothing") << 40 << QStringLiteral("Drop hello.wav");
}

void tst_ImportCommand::saysWhatADroppedSoundCovers()
{
    QFETCH(int, frame);
    QFETCH(QString, text);
    ImportingEditor editor;
    host::Scene scene = editor.Scene();
    SceneKey clip;
    clip.name = QStringLiteral("one");
    clip.frame = 20;
    clip.clip = ClipSpan{10, 1, 0, 10, 10};
    scene.FindTrack(editor.Id("Sound"))->keys = {clip};
    scene.NumberKeys(scene.FindTrack(editor.Id("Sound"))->keys);
    QVERIFY(editor.window.SetScene(scene));
    editor.Timeline().SetActiveChildTrack(editor.Row("Sound"));
    editor.Timeline().SetCurrentFrame(frame);
    const QString path = editor.File("hello.wav", WavBytes(4000, 4000));
    QVERIFY(editor.Timeline().ReceiveTrackDrop(TL_DROP_SOUND_FIRST, path));
    QCOMPARE(editor.StatusText(), text);
}

QTEST_MAIN(tst_ImportCommand)
#include "tst_ImportCommand.moc"
