#include "RandomHand.h"

#include <QElapsedTimer>
#include <QTemporaryDir>

#include <numeric>

namespace {

// To be set for longer runs, and for a run that failed.
constexpr const char* kSeedVariable = "KESTOVA_UNDO_SEED";         ///< the first, or the only one
constexpr const char* kSeedsVariable = "KESTOVA_UNDO_SEEDS";       ///< how many
constexpr const char* kGesturesVariable = "KESTOVA_UNDO_GESTURES"; ///< for each seed
constexpr const char* kStepsVariable = "KESTOVA_UNDO_STEPS";       ///< "3,17": these gestures only

constexpr int kFirstSeed = 1;
constexpr int kSeeds = 4;
constexpr int kGestures = 600;
constexpr qint64 kTimeToShorten = 90000; ///< milliseconds

int Given(const char* variable, int otherwise)
{
    bool isNumber = false;
    const int number = qEnvironmentVariableIntValue(variable, &isNumber);
    return isNumber ? number : otherwise;
}

QByteArray Capture(std::initializer_list<const char*> joints, int samples)
{
    QByteArray text = "HIERARCHY\nROOT Hips\n{\nOFFSET 0 0 0\nCHANNELS 6 Xposition Yposition "
                      "Zposition Zrotation Xrotation Yrotation\n";
    for (const char* const joint : joints)
        text += QByteArray("JOINT ") + joint +
                "\n{\nOFFSET 0 1 0\nCHANNELS 3 Zrotation Xrotation Yrotation\n}\n";
    text += "}\nMOTION\nFrames: " + QByteArray::number(samples) + "\nFrame Time: 0.0333333\n";
    for (int sample = 0; sample < samples; ++sample) {
        const QByteArray turn = QByteArray::number(sample % 20 < 10 ? sample : 40 - sample);
        text += "0 90 0 0 0 0";
        for (std::size_t i = 0; i < joints.size(); ++i)
            text += " 0 " + turn + " 0";
        text += '\n';
    }
    return text;
}

class Files : public HandFiles
{
public:
    Files()
    {
        sounds = QStringList{Write("ping.wav", WavBytes(2000, 8000)),
                             Write("bang.wav", WavBytes(900, 1000))};
        imports = QStringList{Write("again.tsv", "0\tX\n0.5\tB\n1\tE\n2\tA\n2.5\tX\n"),
                              Write("short.tsv", "0\tA\n0.2\tB\n0.6\tX\n"),
                              Write("other.bvh", Capture({"Spine", "LeftArm"}, 60)),
                              Write("tail.bvh", Capture({"Spine", "Tail", "RightArm"}, 40))};
    }

private:
    QString Write(const char* name, const QByteArray& bytes)
    {
        const QString path = m_directory.filePath(QLatin1String(name));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("%s cannot be written", name);
        return path;
    }

    QTemporaryDir m_directory;
};

/// The sample with clips that can be looped and sped up, and a second sound.
host::Scene Livelier(host::Scene scene)
{
    for (host::SceneTrack& track : scene.tracks) {
        host::SceneKey clip;
        clip.frame = 5;
        clip.clip = host::ClipSpan{20, 1, 2, 5, 60};
        if (track.name == QLatin1String("Sound")) {
            scene.NumberKeys(track.keys = {clip});
        } else if (track.name == QLatin1String("Motion")) {
            track.keys[0].frame = 10;
            track.keys[0].clip = clip.clip;
        }
    }
    return scene;
}

struct Trial
{
    QString problem; ///< empty when all went well
    QStringList said;
    QStringList names; ///< of all edits
    int gestures = 0;
};

/// Makes the gestures, then undoes, redoes and undoes them all.
Trial Try(quint32 seed, const QVector<int>& steps, const HandFiles& files)
{
    Trial trial;
    WitnessedEditor editor;
    if (!editor.window.SetScene(Livelier(editor.Scene())))
        qFatal("the scene cannot be shown");
    QCoreApplication::processEvents();
    const WitnessedEditor::Moment start = editor.Now();
    const auto isWrong = [&](const QString& when) {
        if (!editor.problems.isEmpty() && trial.problem.isEmpty())
            trial.problem = when + QStringLiteral(": ") + editor.problems.first();
        return !editor.problems.isEmpty();
    };
    RandomHand hand(editor, files);
    for (const int step : steps) {
        trial.said += QStringLiteral("%1: %2").arg(step).arg(hand.Act(seed, step));
        ++trial.gestures;
        if (isWrong(QStringLiteral("at step %1").arg(step)))
            return trial;
    }
    while (editor.Stack().canRedo() && editor.problems.isEmpty())
        editor.Redo();
    const host::Scene end = editor.Scene();
    trial.names = editor.names;
    const auto undoAll = [&editor] {
        while (editor.Stack().canUndo() && editor.problems.isEmpty())
            editor.Undo();
    };
    undoAll();
    if (isWrong(QStringLiteral("undoing all")))
        return trial;
    while (editor.Stack().canRedo() && editor.problems.isEmpty())
        editor.Redo();
    if (editor.Scene() != end)
        editor.Complain(QStringLiteral("the end is another"));
    if (isWrong(QStringLiteral("redoing all")))
        return trial;
    undoAll();
    if (editor.Scene() != start.scene)
        editor.Complain(QStringLiteral("the start is another"));
    isWrong(QStringLiteral("undoing all again"));
    return trial;
}

/// Leaves out gestures as long as something still goes wrong, and time is left.
QVector<int> Shortened(quint32 seed, QVector<int> steps, const HandFiles& files)
{
    QElapsedTimer timer;
    timer.start();
    for (int size = std::max(1, steps.size() / 2); size > 0; size /= 2) {
        for (int from = steps.size(); from > 0; from -= size) {
            if (timer.elapsed() > kTimeToShorten)
                return steps;
            from = std::min(from, steps.size());
            const int first = std::max(0, from - size);
            QVector<int> fewer = steps;
            fewer.remove(first, from - first);
            if (!fewer.isEmpty() && !Try(seed, fewer, files).problem.isEmpty())
                steps = fewer;
        }
    }
    return steps;
}

QString Listed(const QVector<int>& steps)
{
    QStringList texts;
    for (const int step : steps)
        texts += QString::number(step);
    return texts.join(u',');
}

} // namespace

class tst_RandomUndo : public QObject
{
    Q_OBJECT

private slots:
    void allGesturesAreUndoneAndRedone_data();
    void allGesturesAreUndoneAndRedone();
    void theHandCameToAllKindsOfEdits();

private:
    Files m_files;
    QStringList m_names; ///< of all edits for all seeds
    int m_gestures = 0;
};

void tst_RandomUndo::allGesturesAreUndoneAndRedone_data()
{
    QTest::addColumn<quint32>("seed");
    const int first = Given(kSeedVariable, kFirstSeed);
    const bool isOne = qEnvironmentVariableIsSet(kSeedVariable);
    for (int i = 0; i < Given(kSeedsVariable, isOne ? 1 : kSeeds); ++i)
        QTest::addRow("seed %d", first + i) << static_cast<quint32>(first + i);
}

void tst_RandomUndo::allGesturesAreUndoneAndRedone()
{
    QFETCH(quint32, seed);
    QVector<int> steps;
    for (const QString& step : qEnvironmentVariable(kStepsVariable).split(u',', Qt::SkipEmptyParts))
        steps += step.toInt();
    if (steps.isEmpty()) {
        steps.resize(Given(kGesturesVariable, kGestures));
        std::iota(steps.begin(), steps.end(), 0);
    }
    Trial trial = Try(seed, steps, m_files);
    m_names += trial.names;
    m_gestures += trial.gestures;
    if (trial.problem.isEmpty())
        return;
    qWarning("%s", qPrintable(trial.problem));
    steps.resize(trial.gestures);
    steps = Shortened(seed, steps, m_files);
    trial = Try(seed, steps, m_files);
    QFAIL(
        qPrintable(QStringLiteral("%1\nto be repeated with %2=%3 %4=%5; the gestures:\n%6")
                       .arg(trial.problem, QLatin1String(kSeedVariable))
                       .arg(seed)
                       .arg(QLatin1String(kStepsVariable), Listed(steps), trial.said.join(u'\n'))));
}

void tst_RandomUndo::theHandCameToAllKindsOfEdits()
{
    if (m_gestures < kSeeds * kGestures)
        QSKIP("fewer gestures than by default");
    for (const char* const kind : {"Break",
                                   "Change 1 mouth shape",
                                   "Copy",
                                   "Cut",
                                   "Delete",
                                   "Drop",
                                   "Give",
                                   "Hide",
                                   "Import",
                                   "Insert key",
                                   "Insert mouth shape",
                                   "Lengthen",
                                   "Lock",
                                   "Loop",
                                   "Mark",
                                   "Move \\d+ keys? and",
                                   "Move 1 key",
                                   "Move 1 mouth shape",
                                   "Move end marker",
                                   "Move start marker",
                                   "Mute",
                                   "Paste",
                                   "Shorten",
                                   "Show",
                                   "Slow",
                                   "Solo",
                                   "Speed",
                                   "Trim",
                                   "Unlock"}) {
        const QRegularExpression begins(u'^' + QLatin1String(kind));
        QVERIFY2(!m_names.filter(begins).isEmpty(), kind);
    }
}

QTEST_MAIN(tst_RandomUndo)
#include "tst_RandomUndo.moc"
