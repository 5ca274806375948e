#pragma once

#include "KeyMakers.h"

#include <algorithm>
#include <vector>

/// The operations of a key array written down one plain step after another, without any thought of
/// speed: what the real array must leave behind. Shares no code with it.
class PlainKeyArray
{
public:
    using KeyVector = std::vector<VZ::CPointer<CTimelineKey>>;

    KeyVector keys;
    std::vector<int> selection;

    int Add(const VZ::CPointer<CTimelineKey>& key, bool replace)
    {
        if (!key)
            return -1;
        int index = 0;
        bool found = false;
        Find(key->frame, false, index, found);
        if (found && replace) {
            keys[At(index)] = key;
        } else {
            if (found)
                ++index;
            keys.insert(keys.begin() + index, key);
        }
        UpdateLength(index);
        RebuildSelection();
        return index;
    }

    void RemoveAt(int index)
    {
        const auto entry = std::find(selection.begin(), selection.end(), index);
        if (entry != selection.end()) {
            for (auto later = entry + 1; later != selection.end(); ++later)
                --*later;
            selection.erase(entry);
        }
        keys.erase(keys.begin() + index);
        for (int i = 0; i < index; ++i)
            UpdateLength(i);
    }

    bool SetSelection(int frameA, int frameB, bool select, unsigned int mask)
    {
        if (keys.empty())
            return false;
        const int low = std::min(frameA, frameB);
        const int high = std::max(frameA, frameB);
        int first = 0;
        bool found = false;
        Find(low, true, first, found);
        if (first >= Size())
            return true;
        if (high < keys[0]->frame)
            return true;
        int last = 0;
        Find(high, false, last, found);
        if (!found)
            --last;
        for (int index = first; index <= last; ++index) {
            if (mask != 0xFFFFFFFFu &&
                (static_cast<unsigned int>(keys[At(index)]->kindMask) & mask) == 0)
                continue;
            SelectOne(index, select);
        }
        return true;
    }

    bool SetSelectionByIndex(int first, int last, bool select)
    {
        if (first < 0 || first >= Size() || last < 0 || last >= Size())
            return false;
        for (int index = first; index <= last; ++index)
            SelectOne(index, select);
        return true;
    }

    void ClearAllSelection()
    {
        for (int index : selection) {
            if (index < Size())
                keys[At(index)]->selected = false;
        }
        selection.clear();
    }

    int SelAdd(int keyIndex)
    {
        const auto place = std::lower_bound(selection.begin(), selection.end(), keyIndex);
        const int position = static_cast<int>(place - selection.begin());
        if (place == selection.end() || *place != keyIndex)
            selection.insert(place, keyIndex);
        return position;
    }

    void MoveKeys(int delta, bool replace)
    {
        for (int index : selection) {
            if (index < Size())
                keys[At(index)]->frame += delta;
        }
        KeyVector taken;
        for (auto entry = selection.rbegin(); entry != selection.rend(); ++entry) {
            if (*entry >= Size())
                continue;
            taken.push_back(keys[At(*entry)]);
            keys.erase(keys.begin() + *entry);
        }
        for (auto key = taken.rbegin(); key != taken.rend(); ++key)
            Add(*key, replace);
        for (int index = 0; index < Size(); ++index)
            UpdateLength(index);
        RebuildSelection();
    }

    void UpdateLength(int index)
    {
        CTimelineKey& key = *keys[At(index)];
        int length = key.loopCount * key.clipLength;
        if (index + 1 < Size()) {
            const CTimelineKey& next = *keys[At(index + 1)];
            if (next.frame <= key.frame + length)
                length = next.frame - key.frame - 1;
        }
        if (index - 1 >= 0) {
            CTimelineKey& previous = *keys[At(index - 1)];
            int previousLength = previous.loopCount * previous.clipLength;
            if (previous.frame + previousLength >= key.frame)
                previousLength = key.frame - previous.frame - 1;
            previous.displayLength = previousLength;
        }
        key.displayLength = length;
    }

private:
    static std::size_t At(int index) { return static_cast<std::size_t>(index); }
    int Size() const { return static_cast<int>(keys.size()); }
    int FrameAt(int index) const { return keys[At(index)]->frame; }

    void Find(int frame, bool first, int& index, bool& found) const
    {
        found = false;
        const int size = Size();
        if (size == 0 || frame < FrameAt(0)) {
            index = 0;
            return;
        }
        if (frame > FrameAt(size - 1)) {
            index = size;
            return;
        }
        int hit = -1;
        for (int low = 0, high = size - 1; low <= high && hit < 0;) {
            const int middle = low + (high - low) / 2;
            if (FrameAt(low) == frame) {
                hit = low;
            } else if (FrameAt(high) == frame) {
                hit = high;
            } else if (FrameAt(middle) < frame) {
                low = middle + 1;
                index = middle + 1;
            } else if (FrameAt(middle) == frame) {
                hit = middle;
            } else {
                index = middle;
                high = middle - 1;
            }
        }
        if (hit < 0)
            return;
        found = true;
        if (first) {
            while (hit > 0 && FrameAt(hit - 1) == frame)
                --hit;
        } else {
            while (hit + 1 < size && FrameAt(hit + 1) == frame)
                ++hit;
        }
        index = hit;
    }

    void SelectOne(int index, bool select)
    {
        CTimelineKey& key = *keys[At(index)];
        if (key.selected == select || key.lockState == 1)
            return;
        if (select)
            SelAdd(index);
        else
            selection.erase(std::remove(selection.begin(), selection.end(), index),
                            selection.end());
        key.selected = select;
    }

    void RebuildSelection()
    {
        selection.clear();
        for (int index = 0; index < Size(); ++index) {
            if (keys[At(index)]->selected)
                selection.push_back(index);
        }
    }
};
