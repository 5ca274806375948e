// Fills the key arrays of 40 tracks, key objects included, and gives the time of one filling of all
// of them. Freeing the keys afterwards is not counted.

#include "CTimelineKeyArray.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <vector>

namespace {

constexpr int kTracks = 40;
constexpr int kFramesBetweenKeys = 3;
constexpr unsigned int kShuffleSeed = 20240501;

enum class Order
{
    ByFrame,
    Shuffled
};

std::vector<int> FramesOfOneTrack(int count, Order order)
{
    std::vector<int> frames(static_cast<std::size_t>(count));
    std::iota(frames.begin(), frames.end(), 0);
    for (int& frame : frames)
        frame *= kFramesBetweenKeys;
    if (order == Order::Shuffled)
        std::shuffle(frames.begin(), frames.end(), std::mt19937(kShuffleSeed));
    return frames;
}

void Fill(CTimelineKeyArray& array, const std::vector<int>& frames)
{
    CTimelineKeyArray::KeyVector keys;
    keys.reserve(frames.size());
    for (int frame : frames) {
        keys.emplace_back(new CTimelineKey);
        keys.back()->frame = frame;
    }
    array.AddKeys(keys, false);
}

void FillKeys(benchmark::State& state, Order order)
{
    const std::vector<int> frames =
        FramesOfOneTrack(static_cast<int>(state.range(0)) / kTracks, order);
    for (auto _ : state) {
        std::vector<CTimelineKeyArray> arrays(kTracks);
        for (CTimelineKeyArray& array : arrays)
            Fill(array, frames);

        state.PauseTiming();
        if (arrays.back().GetSize() != frames.size())
            state.SkipWithError("keys are missing");
        arrays.clear();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void KeyCounts(benchmark::internal::Benchmark* bench)
{
    for (int keys : {2'000, 20'000, 200'000, 1'000'000})
        bench->Arg(keys);
    bench->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(FillKeys, by_frame, Order::ByFrame)->Apply(KeyCounts);
BENCHMARK_CAPTURE(FillKeys, shuffled, Order::Shuffled)->Apply(KeyCounts);

} // namespace

BENCHMARK_MAIN();
