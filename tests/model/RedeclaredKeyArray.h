#pragma once

#include "KeyMakers.h"

/// Declares every operation of a key array again: a call through the base would end up here, and be
/// counted, if the operation were virtual.
class RedeclaredKeyArray : public CTimelineKeyArray
{
public:
    static constexpr int kNone = -1;
    mutable int calls = 0;

    /// Calls each operation through the base once at least.
    static void CallEveryOperationOfTheBase(CTimelineKeyArray& array);

    CTimelineKeyArray& operator=(const CTimelineKeyArray&) { return ++calls, *this; }
    void IncrementReferences() { ++calls; }
    void DecrementReferences() { ++calls; }
    unsigned int GetReferences() const { return ++calls, 0; }

    void GetInsertIndex(const KeyVector&, int, bool, int&, bool&) const { ++calls; }
    void GetInsertIndex(int, bool, int&, bool&) const { ++calls; }
    int Add(VZ::CPointer<CTimelineKey>, bool) { return ++calls, kNone; }
    void AddKeys(const KeyVector&, bool) { ++calls; }
    int HitKey(int, bool) const { return ++calls, kNone; }
    int HitClipRange(int, bool, bool) const { return ++calls, kNone; }
    void RemoveAt(int) { ++calls; }
    void RemoveAt(CTimelineKey*) { ++calls; }
    void RemoveAll() { ++calls; }
    VZ::CPointer<CTimelineKey> GetAt(int) const { return ++calls, nullptr; }
    std::size_t GetSize() const { return ++calls, 0; }

    bool SetSelection(int, int, bool, unsigned int) { return ++calls, false; }
    bool SetSelectionByIndex(int, int, bool, unsigned int) { return ++calls, false; }
    void ClearAllSelection() { ++calls; }
    int SelAdd(int) { return ++calls, kNone; }
    void SelGetInsertIndex(int, int&, bool&) const { ++calls; }
    int SelHitKey(int) const { return ++calls, kNone; }
    int SelGetAt(int) const { return ++calls, kNone; }
    VZ::CPointer<CTimelineKey> SelGetKeyAt(int) const { return ++calls, nullptr; }
    std::size_t SelGetSize() const { return ++calls, 0; }

    void SetSelToMove() { ++calls; }
    VZ::CPointer<CTimelineKey> MoveGetAt(int) const { return ++calls, nullptr; }
    std::size_t MoveGetSize() const { return ++calls, 0; }
    void ClearAllMove() { ++calls; }
    void MoveKeys(int, bool) { ++calls; }

    int RelatedAdd(CTimelineKey*, bool) { return ++calls, kNone; }
    int RelatedHitKey(int, bool) const { return ++calls, kNone; }
    void RelatedRemoveAt(int) { ++calls; }
    void RelatedRemoveAll() { ++calls; }
    VZ::CPointer<CTimelineKey> RelatedGetAt(int) const { return ++calls, nullptr; }
    std::size_t RelatedGetSize() const { return ++calls, 0; }

    void UpdateClipDisplayLength(int) { ++calls; }
    void CollectDisplayKeys(KeyVector&) const { ++calls; }
    const KeyVector& Keys() const { return ++calls, CTimelineKeyArray::Keys(); }
    const KeyVector& RelatedKeys() const { return ++calls, CTimelineKeyArray::RelatedKeys(); }
    const std::vector<int>& SelectedIndexes() const
    {
        return ++calls, CTimelineKeyArray::SelectedIndexes();
    }

protected:
    int GetSameFrameID(const KeyVector&, int, bool) const { return ++calls, kNone; }
};

inline void RedeclaredKeyArray::CallEveryOperationOfTheBase(CTimelineKeyArray& array)
{
    array = CTimelineKeyArray();
    array.IncrementReferences();
    array.IncrementReferences();
    array.DecrementReferences();
    array.GetReferences();

    int index = 0;
    bool found = false;
    array.Add(MakeKey(5), false);
    array.AddKeys({MakeKey(10), MakeKey(15), MakeKey(20)}, true);
    array.GetInsertIndex(array.Keys(), 5, true, index, found); // looks for the end of the run, too
    array.GetInsertIndex(5, true, index, found);
    array.HitKey(5, true);
    array.HitClipRange(5, true, false);
    array.GetAt(0);
    array.GetSize();

    array.SetSelection(5, 10, true, kEveryKind);
    array.SetSelectionByIndex(2, 2, true, kEveryKind);
    array.SelAdd(3);
    array.SelGetInsertIndex(3, index, found);
    array.SelHitKey(3);
    array.SelGetAt(0);
    array.SelGetKeyAt(0);
    array.SelGetSize();
    array.SelectedIndexes();

    array.SetSelToMove();
    array.MoveGetAt(0);
    array.MoveGetSize();
    array.ClearAllMove();
    array.MoveKeys(1, false);
    array.ClearAllSelection();

    array.RelatedAdd(MakeKey(7).Get(), false);
    array.RelatedHitKey(7, true);
    array.RelatedGetAt(0);
    array.RelatedGetSize();
    array.RelatedKeys();
    array.UpdateClipDisplayLength(0);
    CTimelineKeyArray::KeyVector shown;
    array.CollectDisplayKeys(shown);
    array.RelatedRemoveAt(0);
    array.RelatedRemoveAll();

    array.RemoveAt(0);
    array.RemoveAt(array.Keys().front().Get());
    array.RemoveAll();
}
