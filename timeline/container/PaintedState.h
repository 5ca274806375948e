#pragma once

#include "axis/CFrameInfo.h"

#include <QRgb>
#include <QSize>
#include <QString>

#include <cstdint>
#include <vector>

class CTimelineContainer;
class CTimelineTrackBase;

/// What a picture of the timeline was made from, as far as it can be seen at a glance: enough to
/// tell that something was changed without a repaint. The current frame is not part of it. Of keys
/// it knows what the operations of key arrays changed, wherever the arrays are; keys that were
/// written in place are not looked at: a host that does that says so, by
/// CTimelineManager::InvalidateTimeline.
class PaintedState
{
public:
    PaintedState() = default; ///< of no picture
    explicit PaintedState(const CTimelineContainer& container);

    bool operator==(const PaintedState& other) const;
    bool operator!=(const PaintedState& other) const { return !(*this == other); }

private:
    struct Row
    {
        explicit Row(const CTimelineTrackBase& track);
        bool operator==(const Row& other) const;

        const CTimelineTrackBase* track;
        QString caption;
        int rangeStart;
        int rangeEnd;
        int height;
        bool visible;
        bool active;
        bool showsRange;
        unsigned int switches; ///< of a switch row, in one number
        unsigned int buttons;  ///< the states of those in the caption, in one number
    };

    QSize m_size;
    int m_frameCount = 0;
    int m_scrollX = 0;
    CFrameInfo m_info;
    int m_timeMark[2] = {};
    int m_thumb[2] = {};
    QRgb m_line = 0;
    qint64 m_pictures = 0; ///< changes when the pictures were freed and loaded again
    unsigned int m_relations = 0;
    std::uint64_t m_keys = 0; ///< of all arrays
    std::vector<Row> m_rows;
};
