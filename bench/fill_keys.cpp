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
constexpr unsigned int kFirstShuffleSeed = 20240501; ///< of the first track; the next adds 1

enum class Order
{
    ByFrame,
    Shuffled
};

std::vector<int> FramesOfTrack(unsigned int track, int count, Order order)
{
    std::vector<int> frames(static_cast<std::size_t>(count));
    std::iota(frames.begin(), frames.end(), 0);
    for (int& frame : frames)
        frame *= kFramesBetweenKeys;
    if (order == Order::Shuffled)
        std::shuffle(frames.begin(), frames.end(), std::mt19937(kFirstShuffleSeed + track));
    return frames;
}

void Fill(CTimelineKeyArray& array, const std::vector<int>& frames)
{
    CTimelineKeyArray::KeyVector keys;
    keys.reserve(frames.size());
    for (int frame : frames) {
        keys.push_back(new CTimelineKey);
        keys.back()->frame = frame;
    }
    array.AddKeys(keys, false);
}

bool HoldsInOrder(const CTimelineKeyArray& array, std::size_t count)
{
    const auto isBefore = [](const auto& a, const auto& b) { return a->frame < b->frame; };
    const CTimelineKeyArray::KeyVector& keys = array.Keys();
    return keys.size() == count && std::is_sorted(keys.begin(), keys.end(), isBefore);
}

void FillKeys(benchmark::State& state, Order order)
{
    const int keysPerTrack = static_cast<int>(state.range(0)) / kTracks;
    std::vector<std::vector<int>> frames;
    for (unsigned int track = 0; track < kTracks; ++track)
        frames.push_back(FramesOfTrack(track, keysPerTrack, order));
    for (auto _ : state) {
        std::vector<CTimelineKeyArray> arrays(kTracks);
        for (std::size_t track = 0; track < arrays.size(); ++track)
            Fill(arrays[track], frames[track]);

        state.PauseTiming();
        for (std::size_t track = 0; track < arrays.size(); ++track) {
            if (!HoldsInOrder(arrays[track], frames[track].size()))
                state.SkipWithError("keys are missing or out of order");
        }
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
