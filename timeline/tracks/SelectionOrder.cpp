#include "tracks/SelectionOrder.h"

#include "CTimelineKeyArray.h"

bool IsSelectionInStep(const CTimelineKeyArray& keys)
{
    const auto& selection = keys.SelectedIndexes();
    if (selection.empty())
        return true;
    const auto last = static_cast<std::size_t>(selection.back());
    return last < keys.Keys().size() && keys.Keys()[last]->selected;
}
