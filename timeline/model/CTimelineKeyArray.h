#pragma once

#include "CPointer.h"
#include "CReltedGroupBase.h"
#include "CTimelineKey.h"
#include "KestovaExport.h"

#include <cstddef>
#include <vector>

/// The keys of one track in frame order, with three companion lists: the selection, the move set (a
/// snapshot for a drag) and the related keys (copies of other tracks' keys shown on this track).
/// Owned by its track, or, as the sub-keys of a clip, shared through VZ::CPointer. Indexes given to
/// the accessors are not checked. GUI thread only. The order of the members is part of the binary
/// interface.
class KESTOVA_EXPORT CTimelineKeyArray : public CReltedGroupBase
{
public:
    using KeyVector = std::vector<VZ::CPointer<CTimelineKey>>;

    CTimelineKeyArray();
    /// Copies the count and the four lists; the keys themselves are shared.
    CTimelineKeyArray(const CTimelineKeyArray& other);
    CTimelineKeyArray& operator=(const CTimelineKeyArray& other);
    virtual ~CTimelineKeyArray();

    void IncrementReferences();
    void DecrementReferences(); ///< the last release deletes through the virtual destructor
    unsigned int GetReferences() const;

    void GetInsertIndex(const KeyVector& keys, int frame, bool first, int& index,
                        bool& found) const;
    void GetInsertIndex(int frame, bool first, int& index, bool& found) const;

    int Add(VZ::CPointer<CTimelineKey> key, bool replace);
    void AddKeys(const KeyVector& keys, bool replace);
    int HitKey(int frame, bool first) const;
    int HitClipRange(int frame, bool first, bool exclusive) const;
    void RemoveAt(int index);
    void RemoveAt(CTimelineKey* key);
    void RemoveAll();
    VZ::CPointer<CTimelineKey> GetAt(int index) const;
    std::size_t GetSize() const;

    bool SetSelection(int frameA, int frameB, bool select, unsigned int mask);
    bool SetSelectionByIndex(int first, int last, bool select, unsigned int mask);
    void ClearAllSelection();
    int SelAdd(int keyIndex);
    void SelGetInsertIndex(int keyIndex, int& position, bool& found) const;
    int SelHitKey(int keyIndex) const;
    int SelGetAt(int position) const;
    VZ::CPointer<CTimelineKey> SelGetKeyAt(int position) const;
    std::size_t SelGetSize() const;

    void SetSelToMove();
    VZ::CPointer<CTimelineKey> MoveGetAt(int position) const;
    std::size_t MoveGetSize() const;
    void ClearAllMove();
    void MoveKeys(int delta, bool replace);

    int RelatedAdd(CTimelineKey* key, bool replace);
    int RelatedHitKey(int frame, bool first) const;
    void RelatedRemoveAt(int index);
    void RelatedRemoveAll();
    VZ::CPointer<CTimelineKey> RelatedGetAt(int index) const;
    std::size_t RelatedGetSize() const;

    void UpdateClipDisplayLength(int index);
    void CollectDisplayKeys(KeyVector& out);

    /// The key and related lists for reading, without the counting of GetAt; for painters and hit
    /// tests.
    const KeyVector& Keys() const { return m_keys; }
    const KeyVector& RelatedKeys() const { return m_relatedKeys; }
    const std::vector<int>& SelectedIndexes() const { return m_selection; }

protected:
    int GetSameFrameID(const KeyVector& keys, int index, bool first) const;

private:
    KeyVector m_keys;
    std::vector<int> m_selection;
    KeyVector m_moveSet;
    KeyVector m_relatedKeys;
};
