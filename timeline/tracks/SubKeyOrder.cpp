#include "tracks/SubKeyOrder.h"

#include <algorithm>

namespace {

constexpr int kMostPassesWithoutLength = 1000;

/// The types of keys whose sub-keys show wherever they stand.
constexpr int kTypesDrawnOutOfView[] = {2, 4};

bool IsEarlier(const VZ::CPointer<CTimelineKey>& a, const VZ::CPointer<CTimelineKey>& b)
{
    return a->frame < b->frame;
}

} // namespace

bool IsDrawnOutOfView(const CTimelineKey& clip)
{
    return std::find(std::begin(kTypesDrawnOutOfView), std::end(kTypesDrawnOutOfView),
                     clip.keyType) != std::end(kTypesDrawnOutOfView);
}

long long PassCount(const CTimelineKey& clip)
{
    return clip.clipLength >= 1 ? clip.loopCount
                                : std::min(clip.loopCount, kMostPassesWithoutLength);
}

long long FirstSubKeyFrame(const CTimelineKey& clip)
{
    const auto& subKeys = clip.subKeys->Keys();
    const long long first = (*std::min_element(subKeys.begin(), subKeys.end(), IsEarlier))->frame;
    const long long lastShift = (PassCount(clip) - 1) * clip.clipLength;
    return first + std::min(lastShift, 0LL);
}

bool AreSubKeysInOrder(const CTimelineKey& clip)
{
    const auto& subKeys = clip.subKeys->Keys();
    if (subKeys.empty())
        return true;
    const long long span = 1LL * subKeys.back()->frame - subKeys.front()->frame;
    const bool passesInOrder = PassCount(clip) <= 1 || span <= clip.clipLength;
    return passesInOrder && std::is_sorted(subKeys.begin(), subKeys.end(), IsEarlier);
}
