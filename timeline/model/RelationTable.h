#pragma once

#include "TimelineBoundaryRecords.h"

#include <vector>

class CTimelineTrackBase;

/// The ordered rows that relate tracks to each other, replaced as a whole by the host. The tracks
/// are not owned and may be gone; who follows a row asks first whether a track is still alive. Rows
/// without any track and null entries are kept and skipped.
class RelationTable
{
public:
    static constexpr int kSharedTimeRange = 0;
    static constexpr int kSharedSelection = 1;
    static constexpr int kClipBars = 3;

    /// Replaces all rows by copies of @p rows; nothing about them is checked.
    void Set(const std::vector<_tmpTLRelatedMap>& rows)
    {
        m_rows = rows;
        ++m_generation;
    }
    /// How often the rows were set.
    unsigned int Generation() const { return m_generation; }
    /// The rows as they were set, in their order; valid until the next Set.
    const std::vector<_tmpTLRelatedMap>& Rows() const { return m_rows; }

    /// The sources of the rows of @p kind that list @p target after their first entry, in table
    /// order.
    std::vector<CTimelineTrackBase*> SourcesOf(const CTimelineTrackBase* target, int kind) const;

private:
    std::vector<_tmpTLRelatedMap> m_rows;
    unsigned int m_generation = 0;
};
