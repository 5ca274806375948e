// One step of dragging the current frame on the ruler of a timeline of 1920 x 1080 pixels, 40 rows
// and about 2,000 keys in view, for 2,000 to 1,000,000 keys in all: from the mouse move that enters
// where the windowing system's do, through the host's callback, which sets the frame as hosts do,
// to the picture that is up to date.

#include "BenchTimeline.h"
#include "Sweep.h"

#include "container/CTimelineContainer.h"
#include "library/TimelineLibrary.h"
#include "tracks/CTimelineTrackTick.h"

#include <QApplication>
#include <QMouseEvent>

#include <benchmark/benchmark.h>

namespace {

/// A host that shows the frame which the ruler was dragged to.
class ScrubbedHost : public CTimelineManagerInterface
{
public:
    CTimelineManager* manager = nullptr;
    int moves = 0;

    void OnCurrentFrameChanged(int frame, bool final) override
    {
        if (!final)
            ++moves;
        manager->SetCurrentFrame(frame);
    }
};

/// The left button on the ruler.
class RulerHand
{
public:
    explicit RulerHand(CTimelineTrackTick* ruler) : m_ruler(ruler) {}

    void Press(int x) { Send(QEvent::MouseButtonPress, x, Qt::LeftButton, Qt::LeftButton); }
    void MoveTo(int x) { Send(QEvent::MouseMove, x, Qt::NoButton, Qt::LeftButton); }
    void Release(int x) { Send(QEvent::MouseButtonRelease, x, Qt::LeftButton, Qt::NoButton); }

private:
    void Send(QEvent::Type type, int x, Qt::MouseButton button, Qt::MouseButtons buttons)
    {
        const QPoint point(x, m_ruler->height() / 2);
        QMouseEvent event(type, point, m_ruler->mapToGlobal(point), button, buttons,
                          Qt::NoModifier);
        QApplication::sendEvent(m_ruler, &event);
    }

    CTimelineTrackTick* m_ruler;
};

void DragRuler(benchmark::State& state)
{
    ScrubbedHost host;
    BenchTimeline timeline(static_cast<int>(state.range(0)), host);
    host.manager = &timeline.Manager();
    CTimelineTrackTick* const ruler = timeline.Container()->TickTrack();
    RulerHand hand(ruler);
    Sweep sweep(ruler->width(), static_cast<int>(state.range(1)));

    hand.Press(ruler->width() / 2); // beside the markers
    host.moves = 0;
    for (auto _ : state)
        hand.MoveTo(sweep.Next());
    state.counters["steps"] = static_cast<double>(state.iterations());
    state.counters["moved"] = host.moves;
    hand.Release(0);
}

void SizesAndStrides(benchmark::internal::Benchmark* bench)
{
    constexpr int kNextFrame = 5; // pixels of a frame: every step moves it by one
    constexpr int kFarAway = 83;  // a fast hand
    for (const int stride : {kNextFrame, kFarAway}) {
        for (const int keys : {2'000, 20'000, 200'000, 1'000'000})
            bench->Args({keys, stride});
    }
}

} // namespace

BENCHMARK(DragRuler)
    ->ArgNames({"keys", "stride"})
    ->Apply(SizesAndStrides)
    ->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
