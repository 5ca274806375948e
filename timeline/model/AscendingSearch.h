#pragma once

/// Where a value stands in a list, or would have to be inserted.
struct SearchResult
{
    int index; ///< of a matching element, else of the first element above the value
    bool found;
};

/// Searches @p count ascending integers, read through @p valueAt(index), for @p value. Among equal
/// elements any may be found. The ends of the interval are looked at before its middle. The search
/// ends, with some index from 0 to @p count, even if the list is out of order.
template <class ValueAt>
SearchResult SearchAscending(int count, int value, ValueAt valueAt)
{
    if (count == 0 || value < valueAt(0))
        return {0, false};
    if (value > valueAt(count - 1))
        return {count, false};

    int index = 0;
    int low = 0;
    int high = count - 1;
    while (low <= high) {
        if (valueAt(low) == value)
            return {low, true};
        if (valueAt(high) == value)
            return {high, true};
        const int middle = low + (high - low) / 2;
        const int middleValue = valueAt(middle);
        if (middleValue == value)
            return {middle, true};
        if (middleValue < value) {
            low = middle + 1;
            index = low;
        } else {
            high = middle - 1;
            index = middle;
        }
    }
    return {index, false};
}
