#pragma once

#include "CPointer.h"
#include "CReltedGroupBase.h"
#include "CTimelineKey.h"
#include "KestovaExport.h"

#include <cstddef>
#include <vector>

/// The keys of one track in frame order, with three companion lists: the selection, the move set (a
/// snapshot for a drag) and the related keys (copies of other tracks' keys shown on this track).
/// Owned by its track, or, as the sub-keys of a clip, shared through VZ::CPointer. Several keys may
/// stand on one frame; they keep the order they were added in. Frames may be negative. A key's
/// `selected` member is kept in step with the selection, except where a comment says otherwise.
/// Who writes `frame` of a key that is in an array takes it out first. Indexes and positions given
/// to the accessors are not checked. GUI thread only. The order of the members is part of the
/// binary interface.
class KESTOVA_EXPORT CTimelineKeyArray : public CReltedGroupBase
{
public:
    /// Keys in any list: a place in it is counted from 0.
    using KeyVector = std::vector<VZ::CPointer<CTimelineKey>>;

    /// An empty array with a count of 0.
    CTimelineKeyArray();
    /// Copies the count and the four lists; the keys themselves are shared, none is duplicated.
    CTimelineKeyArray(const CTimelineKeyArray& other);
    /// As the copy constructor: the count and the four lists, with shared keys.
    CTimelineKeyArray& operator=(const CTimelineKeyArray& other);
    /// Releases the keys.
    virtual ~CTimelineKeyArray();

    /// Adds one reference.
    void IncrementReferences();
    /// Takes one reference off; the last release deletes the array through its virtual destructor.
    /// A count of 0 wraps and deletes nothing.
    void DecrementReferences();
    /// The number of references held at present.
    unsigned int GetReferences() const;

    /// @name Keys
    /// @{

    /// Searches any frame-ordered list. When keys stand at exactly @p frame, @p found is true and
    /// @p index is the first (@p first true) or the last of them. Otherwise @p found is false and
    /// @p index is where such a key would be inserted: 0 to the size. A list out of order gives
    /// some index in that range.
    void GetInsertIndex(const KeyVector& keys, int frame, bool first, int& index,
                        bool& found) const;
    /// The same search on this array's keys.
    void GetInsertIndex(int frame, bool first, int& index, bool& found) const;

    /// Inserts @p key after the keys of its frame, or, with @p replace, puts it in the place of the
    /// last key of its frame, if there is one, which is released. Settles the display lengths of
    /// the key and of the one before it, and takes the selection anew from the keys' `selected`
    /// members, so that a key that arrives selected becomes part of it.
    /// @return the index where the key now stands; -1 for a null key, which changes nothing.
    int Add(VZ::CPointer<CTimelineKey> key, bool replace);
    /// Adds many keys: leaves exactly what adding them one by one with Add, in the given order,
    /// leaves. Takes n log n time for n keys of both lists together, as long as the array is in
    /// frame order; if a host wrote frames of its keys in place, the keys are indeed added one by
    /// one. Null keys are passed over.
    void AddKeys(const KeyVector& keys, bool replace);
    /// Adds many keys and selects them: leaves exactly what adding each without replacement, and
    /// selecting it by the index that Add gave, leaves, one after the other. A locked key is added
    /// only. Takes the time of AddKeys.
    void AddSelected(const KeyVector& keys);
    /// Index of the first (@p first true) or last key at exactly @p frame; -1 if there is none.
    int HitKey(int frame, bool first) const;
    /// Index of the clip whose drawn range, start to start + display length, contains @p frame; -1
    /// if there is none. Looks only at the key at @p frame (of several: the first or last, as
    /// @p first says) or else the one before it. @p exclusive leaves out both ends of the range.
    int HitClipRange(int frame, bool first, bool exclusive) const;
    /// Takes out the key at @p index, 0 to GetSize() - 1 and not checked, and releases it, and
    /// computes the display lengths of all keys before it. Taking out a selected key corrects the
    /// selection. Taking out an unselected one does not: selected indexes above it then mean one
    /// key further on, the last of them perhaps none at all, until the selection is next rebuilt.
    /// So clear the selection first, or take out selected keys only.
    void RemoveAt(int index);
    /// Finds @p key itself (its first place, if it stands at several) and takes it out as above; a
    /// key that is not in the array, or null, changes nothing.
    void RemoveAt(CTimelineKey* key);
    /// Takes out many keys: leaves exactly what taking them out one by one, in the given order,
    /// with RemoveAt(CTimelineKey*) leaves. Takes n log n time for n keys of both lists together.
    void RemoveKeys(const KeyVector& keys);
    /// Releases all keys, and empties the selection, the move set and the related keys.
    void RemoveAll();
    /// The key at @p index, 0 to GetSize() - 1.
    VZ::CPointer<CTimelineKey> GetAt(int index) const;
    /// Number of keys.
    std::size_t GetSize() const;
    /// @}

    /// @name Selection
    /// Ascending indexes into the keys, each once; a position is a place in that list.
    /// @{

    /// Selects or deselects the keys from @p frameA to @p frameB, both included, in either order.
    /// Passes over locked keys (lock state 1), and, unless @p mask is TL_KEY_ANY_KIND, keys whose
    /// kind mask has no bit in common with it. @return false only for an empty array.
    bool SetSelection(int frameA, int frameB, bool select, unsigned int mask);
    /// Which keys of a frame SelectFramesOf selects.
    enum class Kinds
    {
        Any,
        Theirs ///< those that have a kind bit in common with a given key of their frame
    };
    /// Selects what stands at the frames of @p keys: leaves exactly what SetSelection leaves for
    /// each of them in turn, from its frame to its frame, with its kind mask or with
    /// TL_KEY_ANY_KIND. Takes n log n time for n keys of both lists together, as long as the array
    /// is in frame order.
    void SelectFramesOf(const KeyVector& keys, Kinds kinds);
    /// The same for the keys from index @p first to @p last, both included, except that @p mask is
    /// not used. @return false if either index is outside 0 to GetSize() - 1; true, without a
    /// change, if @p first is above @p last.
    bool SetSelectionByIndex(int first, int last, bool select, unsigned int mask);
    /// A key by its index, and whether to select or to deselect it.
    struct Choice
    {
        int index;   ///< 0 to GetSize() - 1
        bool select; ///< false deselects
    };
    /// Selects some keys and deselects others: leaves exactly what SetSelectionByIndex leaves for
    /// each choice in turn. @p choices are in ascending order, each index once and in range. Takes
    /// the time of one range.
    void SetSelectionOfKeys(const std::vector<Choice>& choices);
    /// Deselects every key, locked ones too, and clears the selections inside the sub-keys of the
    /// keys that were selected. Sub-keys of other keys are left alone.
    void ClearAllSelection();
    /// Makes the key at @p index the only selected one. Deselects all others, locked ones too, and
    /// clears the selections inside their sub-keys, whether they were selected or not; sub-keys
    /// that a clip shares with the key at @p index are left alone. That key is selected unless it
    /// is locked: then it stays as it is. With an @p index outside 0 to GetSize() - 1, none is left
    /// selected.
    void SelectOnly(int index);
    /// Puts @p keyIndex into the selection list, where it may stand already, and leaves the key's
    /// `selected` member as it is. @return its position.
    int SelAdd(int keyIndex);
    /// The position of @p keyIndex with @p found true, or else where it would be inserted, 0 to
    /// SelGetSize(), with @p found false.
    void SelGetInsertIndex(int keyIndex, int& position, bool& found) const;
    /// The position of @p keyIndex; -1 if it is not selected.
    int SelHitKey(int keyIndex) const;
    /// The key index at @p position, 0 to SelGetSize() - 1. It can lie past the last key after
    /// unselected keys were taken out.
    int SelGetAt(int position) const;
    /// The key at @p position, 0 to SelGetSize() - 1; null when its index lies past the last key.
    VZ::CPointer<CTimelineKey> SelGetKeyAt(int position) const;
    /// Fresh copies of the selected keys, in their order.
    KeyVector CopySelected() const;
    /// Number of entries in the selection list.
    std::size_t SelGetSize() const;
    /// @}

    /// @name Move set
    /// Copies of the selected keys as they were when a drag began. Never written back and not
    /// drawn: the end of a drag of copies selects what lies in their frames.
    /// @{

    /// Replaces the move set by fresh copies of the selected keys, in their order.
    void SetSelToMove();
    /// The copy at @p position, 0 to MoveGetSize() - 1.
    VZ::CPointer<CTimelineKey> MoveGetAt(int position) const;
    /// Number of copies in the move set.
    std::size_t MoveGetSize() const;
    /// Empties the move set and releases its copies.
    void ClearAllMove();
    /// Moves the selected keys, locked ones too, by @p delta frames, to negative frames if need be,
    /// and adds them to the others again as Add does, in their order: with @p replace, a moved key
    /// takes the place of the last key of its new frame, which leaves the track; without it, the
    /// moved key stands after the keys of that frame. Frames stop at the ends of the int range. The
    /// selection is taken anew from the keys' `selected` members, so the keys stay selected.
    void MoveKeys(int delta, bool replace);
    /// @}

    /// @name Related keys
    /// Frame-ordered copies of keys of other tracks, marked by `relatedCopy` 1.
    /// @{

    /// Places a fresh copy of @p key by the rule of Add; the array keeps nothing of @p key itself.
    /// No display length and no selection changes. @return the index of the copy; -1 for null.
    int RelatedAdd(CTimelineKey* key, bool replace);
    /// Index of the first (@p first true) or last related key at exactly @p frame; -1 if none.
    int RelatedHitKey(int frame, bool first) const;
    /// Takes out the related key at @p index, 0 to RelatedGetSize() - 1.
    void RelatedRemoveAt(int index);
    /// Takes out all related keys.
    void RelatedRemoveAll();
    /// The related key at @p index, 0 to RelatedGetSize() - 1.
    VZ::CPointer<CTimelineKey> RelatedGetAt(int index) const;
    /// Number of related keys.
    std::size_t RelatedGetSize() const;
    /// @}

    /// Computes the display lengths of the key at @p index, 0 to GetSize() - 1 and not checked,
    /// and of the key before it: loop count times clip length, but at most up to the frame before
    /// the next key. Add, RemoveAt and MoveKeys do this; a host that changes a clip's length in
    /// place calls it for that clip.
    void UpdateClipDisplayLength(int index);
    /// Appends what is displayed to @p out, which should be empty: the keys merged with the related
    /// keys in frame order. On a frame that a key holds already, a related key takes the place of
    /// the last one there if its priority is greater, and is left out otherwise. Keys that @p out
    /// held before count as the array's own. Takes linear time when all of them are in frame order.
    void CollectDisplayKeys(KeyVector& out) const;

    /// @name Lists for reading
    /// Without the counting of the accessors above, for painters and hit tests; valid until the
    /// next change of the array.
    /// @{
    const KeyVector& Keys() const { return m_keys; } ///< all keys, in frame order
    /// The copies of other tracks' keys, in frame order.
    const KeyVector& RelatedKeys() const { return m_relatedKeys; }
    /// The selection: ascending indexes of keys.
    const std::vector<int>& SelectedIndexes() const { return m_selection; }
    /// The copies made when a drag began.
    const KeyVector& MoveSet() const { return m_moveSet; }
    /// @}

protected:
    /// The first (@p first true) or last index of the run of keys around @p index that share its
    /// frame; -1 if @p index is outside the list.
    int GetSameFrameID(const KeyVector& keys, int index, bool first) const;

private:
    int Place(KeyVector& keys, VZ::CPointer<CTimelineKey> key, bool replace);
    int HitKey(const KeyVector& keys, int frame, bool first) const;
    void UpdateDisplayLengthsBelow(std::size_t index);

    bool IsKeyIndex(int index) const;
    const VZ::CPointer<CTimelineKey>& KeyAt(int index) const;
    void SelectIndexes(int first, int last, bool select, unsigned int mask);
    void ChangeEntries(const std::vector<int>& changed, bool select);
    void RebuildSelection();
    KeyVector TakeOutSelectedKeys();

    KeyVector m_keys;
    std::vector<int> m_selection;
    KeyVector m_moveSet;
    KeyVector m_relatedKeys;
};
