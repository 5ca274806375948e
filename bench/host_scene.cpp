// The reference host with a scene of an hour: 200 rows, 200,000 keys, and once more with a captured
// motion of an hour. Writing and reading the document, opening it until it is painted, and one step
// each of what a hand does then, from the mouse event that enters where the windowing system's do
// to the window that is up to date, preview and recovery file included. Times are those that pass;
// "work_ms" is what the interface's thread works for a step, "worst_ms" for the worst of the run.

#include "OpenedEditor.h"

#include "Sweep.h"
#include "playback/Transport.h"
#include "storage/DocumentFile.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <chrono>
#include <ctime>
#include <memory>

namespace {

using Clock = std::chrono::steady_clock;

double MillisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

/// Milliseconds that this thread has worked so far. Unlike the time that passes it does not depend
/// on what else the machine does.
double WorkSoFar()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// The documents, written once, and the editor that has one of them open.
class Workshop
{
public:
    static Workshop& Instance()
    {
        static Workshop workshop;
        return workshop;
    }

    const host::SceneDocument& Content(Capture capture)
    {
        auto& content = m_contents[static_cast<int>(capture)];
        if (!content)
            content = host::SceneDocument{MakeLongScene(capture), {}, {}};
        return *content;
    }

    QString PathOf(Capture capture)
    {
        const QString path =
            m_folder.filePath(capture == Capture::None ? QStringLiteral("hour.ktl")
                                                       : QStringLiteral("hour-motion.ktl"));
        QString error;
        if (!QFileInfo::exists(path) && !host::WriteDocument(path, Content(capture), error))
            qFatal("%s", qPrintable(error));
        return path;
    }

    OpenedEditor& Editor(Capture capture, View view)
    {
        if (!m_editor || m_capture != capture) {
            m_editor.reset();
            m_editor = std::make_unique<OpenedEditor>(PathOf(capture));
            m_capture = capture;
        }
        m_editor->Look(view);
        return *m_editor;
    }
    void Close() { m_editor.reset(); }

private:
    QTemporaryDir m_folder;
    std::optional<host::SceneDocument> m_contents[2];
    std::unique_ptr<OpenedEditor> m_editor;
    Capture m_capture = Capture::None;
};

Capture CaptureOf(const benchmark::State& state)
{
    return state.range(0) != 0 ? Capture::WholeScene : Capture::None;
}

View ViewOf(const benchmark::State& state)
{
    return state.range(1) != 0 ? View::Close : View::Everything;
}

/// Takes the time of each step of a run, and the work that the interface's thread has with it.
class Steps
{
public:
    explicit Steps(benchmark::State& state) : m_state(state) {}
    ~Steps()
    {
        m_state.counters["work_ms"] =
            benchmark::Counter(m_work, benchmark::Counter::kAvgIterations);
        m_state.counters["worst_ms"] = m_worst;
    }

    template <class Deed>
    void Take(Deed deed)
    {
        const double before = WorkSoFar();
        const auto start = Clock::now();
        deed();
        m_state.SetIterationTime(MillisecondsSince(start) / 1000);
        const double work = WorkSoFar() - before;
        m_work += work;
        m_worst = std::max(m_worst, work);
    }

private:
    benchmark::State& m_state;
    double m_work = 0;
    double m_worst = 0;
};

void WriteFile(benchmark::State& state)
{
    Workshop& workshop = Workshop::Instance();
    const host::SceneDocument& content = workshop.Content(CaptureOf(state));
    const QString path = workshop.PathOf(CaptureOf(state)) + QStringLiteral(".copy");
    QString error;
    for (auto _ : state) {
        if (!host::WriteDocument(path, content, error))
            state.SkipWithError(qPrintable(error));
    }
    const KeyCount count = CountKeys(content.scene);
    state.counters["tracks"] = content.scene.tracks.size();
    state.counters["keys"] = count.onRows;
    state.counters["inside"] = count.inside;
    state.counters["MB"] = static_cast<double>(QFileInfo(path).size()) / 1e6;
    QFile::remove(path);
}

void ReadFile(benchmark::State& state)
{
    Workshop& workshop = Workshop::Instance();
    const QString path = workshop.PathOf(CaptureOf(state));
    QString error;
    for (auto _ : state) {
        const auto read = host::ReadDocument(path, error);
        state.PauseTiming();
        if (!read || read->scene != workshop.Content(CaptureOf(state)).scene)
            state.SkipWithError("not what was written");
        state.ResumeTiming();
    }
}

/// As the program starts: the window, the file, the timeline, all painted.
void Open(benchmark::State& state)
{
    Workshop& workshop = Workshop::Instance();
    workshop.Close();
    const QString path = workshop.PathOf(CaptureOf(state));
    std::unique_ptr<OpenedEditor> editor;
    for (auto _ : state) {
        Steps(state).Take([&] { editor = std::make_unique<OpenedEditor>(path); });
        editor.reset();
    }
}

void Scrub(benchmark::State& state)
{
    OpenedEditor& editor = Workshop::Instance().Editor(CaptureOf(state), ViewOf(state));
    QWidget* const ruler = editor.Ruler();
    Sweep sweep(ruler->width(), 7);
    Steps steps(state);
    int moved = 0;
    const auto counting = QObject::connect(&editor.Window(), &host::MainWindow::CurrentFrameChanged,
                                           [&moved] { ++moved; });
    editor.Hand().Press(ruler, QPoint(0, 2));
    moved = 0;
    for (auto _ : state)
        steps.Take([&] { editor.Hand().MoveTo(ruler, QPoint(sweep.Next(), 2)); });
    editor.Hand().Release();
    QObject::disconnect(counting);
    state.counters["moved"] = static_cast<double>(moved) / static_cast<double>(state.iterations());
}

/// The pointer above the rows, with no button down.
void Hover(benchmark::State& state)
{
    OpenedEditor& editor = Workshop::Instance().Editor(CaptureOf(state), ViewOf(state));
    QWidget* const row = editor.Row(QStringLiteral("Joint6"));
    Sweep sweep(row->width(), 7);
    Steps steps(state);
    for (auto _ : state)
        steps.Take([&] { editor.Hand().MoveTo(row, QPoint(sweep.Next(), row->height() / 2)); });
}

QPoint MiddleOf(const QWidget& row)
{
    return {row.width() / 2, row.height() / 2};
}

enum class Dragged
{
    OneKey,     ///< of a row that nothing depends on
    RelatedKey, ///< of a row whose keys another one shows too
    AllKeys     ///< of a row
};

void Drag(benchmark::State& state, Dragged dragged)
{
    OpenedEditor& editor = Workshop::Instance().Editor(CaptureOf(state), ViewOf(state));
    const QString name =
        dragged == Dragged::RelatedKey ? QStringLiteral("LeftContact") : QStringLiteral("Joint6");
    QWidget* const row = editor.Row(name);
    const int edits = editor.Window().History().Stack().index();
    const QPoint from = MiddleOf(*row);
    editor.HaveKeyAt(name, from.x());
    if (dragged == Dragged::AllKeys)
        editor.SelectAll(name);
    const host::Scene before = editor.Scene();
    int changes = 0;
    const auto counting = QObject::connect(&editor.Window().Session(), &host::EditSession::Changed,
                                           [&changes] { ++changes; });
    editor.Hand().Press(row, from);
    Sweep sweep(row->width() / 4, 11); // no key comes to the scene's end
    for (int i = 0; i < 3; ++i)
        editor.Hand().MoveTo(row, from + QPoint(sweep.Next(), 0));
    changes = 0;
    {
        Steps steps(state);
        for (auto _ : state)
            steps.Take([&] { editor.Hand().MoveTo(row, from + QPoint(sweep.Next(), 0)); });
    }
    state.counters["changed"] =
        static_cast<double>(changes) / static_cast<double>(state.iterations());
    editor.Hand().MoveTo(row, from + QPoint(33, 0)); // not where it came from
    const double start = WorkSoFar();
    editor.Hand().Release();
    state.counters["release_ms"] = WorkSoFar() - start;
    QObject::disconnect(counting);
    editor.Undo();
    if (editor.Scene() != before)
        state.SkipWithError("not undone");
    while (editor.Window().History().Stack().index() > edits)
        editor.Undo();
}

void UndoAndRedo(benchmark::State& state, bool isUndo)
{
    OpenedEditor& editor = Workshop::Instance().Editor(CaptureOf(state), ViewOf(state));
    const QString name = QStringLiteral("Joint6");
    QWidget* const row = editor.Row(name);
    const QPoint from = MiddleOf(*row);
    editor.HaveKeyAt(name, from.x());
    editor.Hand().Press(row, from);
    editor.Hand().MoveTo(row, from + QPoint(33, 0));
    editor.Hand().Release();
    Steps steps(state);
    for (auto _ : state) {
        if (!isUndo)
            editor.Undo();
        steps.Take([&] { isUndo ? editor.Undo() : editor.Redo(); });
        if (isUndo)
            editor.Redo();
    }
    editor.Undo();
}

/// One command: a key comes, and goes.
void Insert(benchmark::State& state)
{
    OpenedEditor& editor = Workshop::Instance().Editor(CaptureOf(state), ViewOf(state));
    const QString name = QStringLiteral("Joint6");
    QWidget* const row = editor.Row(name);
    editor.HaveKeyAt(name, MiddleOf(*row).x());
    editor.Choose(QStringLiteral("Delete"));
    Steps steps(state);
    for (auto _ : state) {
        steps.Take([&] { editor.Choose(QStringLiteral("Insert Key")); });
        editor.Undo();
    }
}

/// Sleeps for a while or until something is to be done, and does it; the work that it was.
double WaitForEvents()
{
    constexpr int kWhile = 5; // milliseconds
    QTimer alarm;
    alarm.start(kWhile);
    const double start = WorkSoFar();
    QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return WorkSoFar() - start;
}

/// What a recovery write takes of the interface: from the end of an edit until the file is there,
/// the time that the interface's thread works (manual time) and the longest it is away from its
/// events; "written_ms" is how long all of it takes.
void Recovery(benchmark::State& state)
{
    OpenedEditor& editor = Workshop::Instance().Editor(CaptureOf(state), ViewOf(state));
    const QString file =
        Workshop::Instance().PathOf(CaptureOf(state)) + QStringLiteral(".recovery");
    const QString name = QStringLiteral("Joint6");
    editor.HaveKeyAt(name, MiddleOf(*editor.Row(name)).x());
    editor.Document().Secure();
    double longest = 0;
    double written = 0;
    for (auto _ : state) {
        editor.Choose(QStringLiteral("Delete"));
        editor.Document().Secure();
        QFile::remove(file);
        editor.Undo(); // changes the stack again: the scene is still another than saved
        const auto start = Clock::now();
        const double before = WorkSoFar();
        while (!QFileInfo::exists(file))
            longest = std::max(longest, WaitForEvents());
        state.SetIterationTime((WorkSoFar() - before) / 1000);
        written += MillisecondsSince(start);
    }
    state.counters["longest_ms"] = longest;
    state.counters["written_ms"] = written / static_cast<double>(state.iterations());
    editor.Undo();
}

void PlayStep(benchmark::State& state)
{
    OpenedEditor& editor = Workshop::Instance().Editor(CaptureOf(state), ViewOf(state));
    Steps steps(state);
    for (auto _ : state) {
        steps.Take([&] {
            editor.Window().Player().Player().Step(1);
            QApplication::processEvents();
        });
    }
}

/// Playing for two seconds: how many of the frames are seen.
void Play(benchmark::State& state)
{
    constexpr double kSeconds = 2;
    OpenedEditor& editor = Workshop::Instance().Editor(CaptureOf(state), ViewOf(state));
    host::Playback& playback = editor.Window().Player().Player();
    int seen = 0;
    const auto counting = QObject::connect(&editor.Window(), &host::MainWindow::CurrentFrameChanged,
                                           [&seen] { ++seen; });
    for (auto _ : state) {
        const auto start = Clock::now();
        playback.Play();
        while (MillisecondsSince(start) < kSeconds * 1000)
            WaitForEvents();
        playback.Pause();
    }
    QObject::disconnect(counting);
    state.counters["seen_of_60"] = seen;
}

/// All that is measured, with or without the motion: editors are opened no more often than needed.
void RegisterAll(int motion)
{
    const auto add = [](const char* name, auto function) {
        return benchmark::RegisterBenchmark(name, function)->Unit(benchmark::kMillisecond);
    };
    const auto addFile = [&](const char* name, auto function) {
        return add(name, function)->ArgName("motion")->Arg(motion);
    };
    const auto addClose = [&](const char* name, auto function) {
        return add(name, function)
            ->ArgNames({"motion", "close"})
            ->Args({motion, 1})
            ->UseManualTime();
    };
    const auto addViews = [&](const char* name, auto function) {
        return addClose(name, function)->Args({motion, 0});
    };
    const auto drag = [](Dragged dragged) {
        return [dragged](benchmark::State& state) { Drag(state, dragged); };
    };
    addFile("WriteFile", WriteFile)->UseRealTime();
    addFile("ReadFile", ReadFile)->UseRealTime();
    addFile("Open", Open)->UseManualTime()->Iterations(1);
    addViews("Scrub", Scrub);
    addViews("Hover", Hover);
    addViews("DragOneKey", drag(Dragged::OneKey));
    addClose("DragRelatedKey", drag(Dragged::RelatedKey));
    addClose("DragAllKeysOfRow", drag(Dragged::AllKeys));
    addViews("Undo", [](benchmark::State& state) { UndoAndRedo(state, true); });
    addViews("Redo", [](benchmark::State& state) { UndoAndRedo(state, false); });
    addClose("Insert", Insert);
    addClose("Recovery", Recovery)->Iterations(3);
    addViews("PlayStep", PlayStep);
    addClose("Play", Play)->Iterations(1);
}

} // namespace

int main(int argc, char** argv)
{
    QStandardPaths::setTestModeEnabled(true); // nobody's own files are touched
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("host_scene"));
    benchmark::Initialize(&argc, argv);
    RegisterAll(0);
    RegisterAll(1);
    benchmark::RunSpecifiedBenchmarks();
    Workshop::Instance().Close();
    return 0;
}
