#pragma once

#include "CArrayList.h"

#include <cstddef>
#include <memory>
#include <vector>

class CTimelineTrackBase;

/// One shown root track and its children, in their order. Owns none of the tracks.
class CTimelineMapData
{
public:
    explicit CTimelineMapData(CTimelineTrackBase* rootTrack) : root(rootTrack) {}
    virtual ~CTimelineMapData() = default;

    CTimelineTrackBase* root;
    std::vector<CTimelineTrackBase*> children;
};

/// The two-level tree of shown tracks: its order, its rows, and who is active in it. It knows no
/// widget but the tracks and tells nobody of a change.
class TrackTree
{
public:
    /// Where a child stands; record is null when it stands nowhere.
    struct ChildPlace
    {
        CTimelineMapData* record = nullptr;
        std::size_t position = 0;
    };

    const std::vector<std::unique_ptr<CTimelineMapData>>& Records() const { return m_records; }
    CTimelineMapData* FindRoot(const CTimelineTrackBase* root) const; ///< null when it is no root
    ChildPlace FindChild(const CTimelineTrackBase* child) const;
    bool Contains(const CTimelineTrackBase* track) const;

    /// At @p index when that is at most the count, else at the end.
    void InsertRoot(CTimelineTrackBase* root, std::size_t index);
    void InsertChild(CTimelineMapData& record, CTimelineTrackBase* child, std::size_t index);
    /// With its record; its children become nobody's.
    void RemoveRoot(const CTimelineTrackBase* root);
    void RemoveChild(const CTimelineTrackBase* child);
    void MoveRoot(CTimelineTrackBase* root, std::size_t index);
    void MoveChild(CTimelineTrackBase* child, std::size_t index);

    int RootIndex(const CTimelineTrackBase* root) const;   ///< -1 for none
    int ChildIndex(const CTimelineTrackBase* child) const; ///< -1 for none

    /// The tracks that are rows on screen, top to bottom.
    std::vector<CTimelineTrackBase*> Rows() const;
    std::vector<CTimelineTrackBase*> RowsOf(const CTimelineMapData& record) const;
    /// Every shown track: each root, then its children.
    std::vector<CTimelineTrackBase*> AllTracks() const;

    CTimelineTrackBase* ActiveRoot() const;
    CTimelineTrackBase* ActiveChild() const;
    CTimelineTrackBase* LipsTrack() const;
    CTimelineTrackBase* WaveTrack() const;
    /// Appends the children that hold selected keys. The first active child in sub-key editing
    /// empties the list, stands in it alone if its one selected clip has selected sub-keys, and
    /// ends the search.
    void CollectSelectedKeyTracks(VZ::CArrayList<CTimelineTrackBase*>& tracks) const;

private:
    // Whether a root with children is a row of its own above them.
    const bool m_showRoots = false;
    std::vector<std::unique_ptr<CTimelineMapData>> m_records;
};
