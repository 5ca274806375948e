#include "RelationTable.h"

#include <algorithm>

std::vector<CTimelineTrackBase*> RelationTable::SourcesOf(const CTimelineTrackBase* target,
                                                          int kind) const
{
    std::vector<CTimelineTrackBase*> sources;
    if (!target)
        return sources;
    for (const _tmpTLRelatedMap& row : m_rows) {
        if (row.kind != kind || row.tracks.empty() || !row.tracks.front())
            continue;
        if (std::find(row.tracks.begin() + 1, row.tracks.end(), target) != row.tracks.end())
            sources.push_back(row.tracks.front());
    }
    return sources;
}
