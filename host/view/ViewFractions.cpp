#include "ViewFractions.h"

#include <algorithm>

namespace host {

namespace {

/// A little more than the error of the fractions and much less than a pixel of any scroll bar: the
/// timeline cuts fractions down to whole pixels.
constexpr float kBitMore = 5e-5F;

float Padded(float fraction)
{
    return std::clamp(fraction + kBitMore, 0.0F, 1.0F);
}

} // namespace

ViewFractions ViewOf(CTimelineManager& manager)
{
    ViewFractions view;
    manager.GetScrollInfo(view.left, view.right);
    return view;
}

void ShowView(CTimelineManager& manager, ViewFractions view)
{
    manager.SetScrollInfo(Padded(view.left), Padded(view.right));
}

} // namespace host
