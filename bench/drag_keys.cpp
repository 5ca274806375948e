// The drag of many selected keys, on one track and spread over 100, among as many that are not
// selected: one step of a move, what the track's message costs until the host has answered, and the
// same with the repaint that follows; the begin and the end of a copy; and the selecting and
// deselecting of a range, with and without tracks that share the selection.

#include "BenchTimeline.h"

#include "container/CTimelineContainer.h"
#include "library/TimelineLibrary.h"
#include "model/MessageCodes.h"
#include "model/TimelineKeyValues.h"
#include "tracks/CTimelineTrackBase.h"

#include <QApplication>

#include <benchmark/benchmark.h>

#include <chrono>

namespace {

constexpr int kFramesBetweenKeys = 3; // every second key is selected
constexpr int kSpareFrames = 100;     // before the first key and behind the last one
constexpr double kPixelsPerFrame = 5.0;

/// Takes every edit.
class WillingHost : public CTimelineManagerInterface
{
public:
    int OnEditingKeys(TLEditType, const VZ::CArrayList<CTimelineTrackBase*>&, int, int) override
    {
        return 0;
    }
};

/// A shown timeline with key rows, scrolled to the middle of its frames.
class DragScene
{
public:
    DragScene(int tracks, int selectedKeys)
        : m_selectedPerTrack(selectedKeys / tracks), m_dock(new QDockWidget(&m_mainWindow)),
          m_manager(std::make_unique<CTimelineManager>(&m_mainWindow))
    {
        m_mainWindow.addDockWidget(Qt::BottomDockWidgetArea, m_dock);
        m_mainWindow.resize(BenchTimeline::kWidth, BenchTimeline::kHeight + 40);
        m_manager->SetTimelineWndFactoryBase(&m_factory);
        m_manager->CreateTimelineManager(
            &m_host, QStringLiteral(KESTOVA_SOURCE_DIR "/skins/default.ini").toStdWString());
        m_manager->CreateTimelineMainWidget(m_dock);
        m_manager->SetFrameCount(FrameCount());
        m_root = m_manager->CreateTrack(TL_TRACK_KEY, QStringLiteral("Root"), 1);
        m_manager->ShowRootTrack(m_root, 0, false);
        for (int track = 0; track < tracks; ++track)
            AddTrack(track);
        m_mainWindow.show();
        m_manager->ShowTimelineWnd(true);
        FrameAxis& axis = TimelineLibrary::Instance().axis;
        axis.info = CFrameInfo(kPixelsPerFrame);
        axis.scrollX = static_cast<int>(axis.frameCount / 2 * kPixelsPerFrame);
        SelectEverySecondKey();
        for (int round = 0; round < 5; ++round)
            QApplication::processEvents();
    }
    ~DragScene()
    {
        TimelineLibrary::Instance().relations.Set({});
        m_manager.reset();
    }

    CTimelineContainer& Container() const { return *m_manager->GetTimelineWnd()->GetContainer(); }
    const std::vector<CTimelineTrackBase*>& Tracks() const { return m_tracks; }
    int FrameCount() const
    {
        return 2 * kSpareFrames + 2 * m_selectedPerTrack * kFramesBetweenKeys;
    }

    int Send(int code, int delta = 0)
    {
        return Container().OnTrackMessage(code, m_tracks.front(), 0, QVariant(0), QVariant(delta),
                                          QVariant(0));
    }

    void SelectEverySecondKey()
    {
        for (CTimelineTrackBase* const track : m_tracks) {
            CTimelineKeyArray::KeyVector second;
            for (std::size_t i = 0; i < track->Keys().GetSize(); i += 2)
                second.push_back(track->Keys().GetAt(static_cast<int>(i)));
            track->Keys().ClearAllSelection();
            track->Keys().SelectFramesOf(second, CTimelineKeyArray::Kinds::Any);
        }
    }

    long long CountKeys() const
    {
        long long count = 0;
        for (const CTimelineTrackBase* const track : m_tracks)
            count += static_cast<long long>(track->Keys().GetSize());
        return count;
    }

    long long CountSelected() const
    {
        long long count = 0;
        for (const CTimelineTrackBase* const track : m_tracks)
            count += static_cast<long long>(track->Keys().SelGetSize());
        return count;
    }

    /// Of the first selected key of the last track.
    int FirstSelectedFrame() const { return m_tracks.back()->Keys().SelGetKeyAt(0)->frame; }

private:
    void AddTrack(int number)
    {
        CTimelineTrackBase* const track = m_manager->CreateTrack(TL_TRACK_KEY, QString(), 2);
        m_manager->ShowChildTrack(m_root, track, static_cast<unsigned int>(number), false);
        CTimelineKeyArray::KeyVector keys;
        for (int i = 0; i < 2 * m_selectedPerTrack; ++i) {
            keys.push_back(new CTimelineKey);
            keys.back()->frame = kSpareFrames + i * kFramesBetweenKeys;
        }
        track->Keys().AddKeys(keys, false);
        m_tracks.push_back(track);
    }

    int m_selectedPerTrack;
    QMainWindow m_mainWindow;
    QDockWidget* m_dock;
    WillingHost m_host;
    BenchFactory m_factory;
    std::unique_ptr<CTimelineManager> m_manager;
    CTimelineTrackBase* m_root = nullptr;
    std::vector<CTimelineTrackBase*> m_tracks;
};

/// Takes the time of one part of an iteration.
class Stopwatch
{
public:
    explicit Stopwatch(benchmark::State& state) : m_state(state) {}
    ~Stopwatch()
    {
        const std::chrono::duration<double> seconds = Clock::now() - m_start;
        m_state.SetIterationTime(seconds.count());
    }
    Stopwatch(const Stopwatch&) = delete;
    Stopwatch& operator=(const Stopwatch&) = delete;

private:
    using Clock = std::chrono::steady_clock;

    benchmark::State& m_state;
    const Clock::time_point m_start = Clock::now();
};

DragScene SceneOf(const benchmark::State& state)
{
    return {static_cast<int>(state.range(0)), static_cast<int>(state.range(1))};
}

void MoveStep(benchmark::State& state, bool repaint)
{
    DragScene scene = SceneOf(state);
    scene.Send(kTrackKeyMoveBegins);
    const int frame = scene.FirstSelectedFrame();
    int delta = 1;
    for (auto _ : state) {
        // There and back again, across the next key.
        scene.Send(kTrackKeyMoveStep, delta * (kFramesBetweenKeys + 1));
        if (repaint)
            scene.Container().repaint();
        delta = -delta;
    }
    const int moved = delta < 0 ? kFramesBetweenKeys + 1 : 0;
    if (scene.FirstSelectedFrame() != frame + moved || scene.CountSelected() != state.range(1))
        state.SkipWithError("the keys did not move");
}

void CopyBegin(benchmark::State& state)
{
    DragScene scene = SceneOf(state);
    for (auto _ : state) {
        {
            const Stopwatch watch(state);
            scene.Send(kTrackKeyCopyBegins);
        }
        if (scene.CountKeys() != 3 * state.range(1) || scene.CountSelected() != state.range(1))
            state.SkipWithError("the keys were not copied");
        scene.Send(kTrackKeyCopyEnds);
        scene.SelectEverySecondKey();
    }
}

void CopyEnd(benchmark::State& state)
{
    DragScene scene = SceneOf(state);
    for (auto _ : state) {
        scene.Send(kTrackKeyCopyBegins);
        scene.Send(kTrackKeyCopyStep, 1);
        {
            const Stopwatch watch(state);
            scene.Send(kTrackKeyCopyEnds);
        }
        if (scene.CountKeys() != 2 * state.range(1) || scene.CountSelected() != 0)
            state.SkipWithError("the copies were not taken out");
        scene.SelectEverySecondKey();
    }
}

enum class Range
{
    Select,
    Deselect
};

/// All keys of all tracks, which is twice as many as are dragged.
void SelectRange(benchmark::State& state, Range range)
{
    DragScene scene = SceneOf(state);
    const auto selectAll = [&scene](bool select) {
        for (CTimelineTrackBase* const track : scene.Tracks())
            track->Keys().SetSelection(0, scene.FrameCount(), select, TL_KEY_ANY_KIND);
    };
    const bool select = range == Range::Select;
    for (auto _ : state) {
        selectAll(!select);
        {
            const Stopwatch watch(state);
            selectAll(select);
        }
        if (scene.CountSelected() != (select ? 2 * state.range(1) : 0))
            state.SkipWithError("the range was not selected");
    }
}

/// What a selected range costs that other tracks share: the message that it changed.
void SharedSelection(benchmark::State& state)
{
    DragScene scene = SceneOf(state);
    TimelineLibrary::Instance().relations.Set({{RelationTable::kSharedSelection, scene.Tracks()}});
    CTimelineKeyArray& keys = scene.Tracks().front()->Keys();
    bool select = true;
    for (auto _ : state) {
        keys.SetSelection(0, scene.FrameCount(), select, TL_KEY_ANY_KIND);
        {
            const Stopwatch watch(state);
            scene.Send(kTrackSelectionChanged);
        }
        if (scene.CountSelected() != (select ? 2 * state.range(1) : 0))
            state.SkipWithError("the selection was not shared");
        select = !select;
    }
}

/// The same for keys that belong together in groups, one of each track.
void GroupSelection(benchmark::State& state)
{
    class Group : public CReltedGroupBase
    {
    };
    DragScene scene = SceneOf(state);
    CTimelineKeyArray& keys = scene.Tracks().front()->Keys();
    for (std::size_t i = 0; i < keys.GetSize(); ++i) {
        const VZ::CPointer<CReltedGroupBase> group(new Group);
        for (CTimelineTrackBase* const track : scene.Tracks())
            track->Keys().GetAt(static_cast<int>(i))->group = group;
    }
    bool select = true;
    for (auto _ : state) {
        keys.SetSelection(0, scene.FrameCount(), select, TL_KEY_ANY_KIND);
        {
            const Stopwatch watch(state);
            scene.Send(kTrackSelectionChanged);
        }
        if (scene.CountSelected() != (select ? 2 * state.range(1) : 0))
            state.SkipWithError("the groups did not follow");
        select = !select;
    }
}

void SizesOn(benchmark::internal::Benchmark* bench, std::initializer_list<int> trackCounts)
{
    for (const int tracks : trackCounts) {
        for (const int keys : {100, 1'000, 10'000, 100'000})
            bench->Args({tracks, keys});
    }
    bench->ArgNames({"tracks", "keys"})->Unit(benchmark::kMillisecond);
}

void Sizes(benchmark::internal::Benchmark* bench)
{
    SizesOn(bench, {1, 100});
}

void TimedSizes(benchmark::internal::Benchmark* bench)
{
    Sizes(bench);
    bench->UseManualTime();
}

/// One track alone has nobody that follows.
void FollowingSizes(benchmark::internal::Benchmark* bench)
{
    SizesOn(bench, {2, 100});
    bench->UseManualTime();
}

} // namespace

BENCHMARK_CAPTURE(MoveStep, without_repaint, false)->Apply(Sizes);
BENCHMARK_CAPTURE(MoveStep, with_repaint, true)->Apply(Sizes);
BENCHMARK(CopyBegin)->Apply(TimedSizes);
BENCHMARK(CopyEnd)->Apply(TimedSizes);
BENCHMARK_CAPTURE(SelectRange, select, Range::Select)->Apply(TimedSizes);
BENCHMARK_CAPTURE(SelectRange, deselect, Range::Deselect)->Apply(TimedSizes);
BENCHMARK(SharedSelection)->Apply(FollowingSizes);
BENCHMARK(GroupSelection)->Apply(FollowingSizes);

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
