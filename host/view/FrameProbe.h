#pragma once

#include <KestovaTimelineQU/KestovaTimelineQU.h>

#include <QPoint>

#include <optional>

class QWidget;

namespace host {

/// What lies at a point of the timeline.
struct TimelinePlace
{
    CTimelineTrackBase* track = nullptr; ///< the row's, or one that is not the host's (the ruler)
    int frame = 0;
};

/// Finds the row and the frame at a point of the timeline. The timeline names both to its host when
/// a file is held over a row: asked so, it answers for any point, whatever the zoom.
class FrameProbe
{
public:
    /// The place at @p point, in pixels of @p row, a widget of the timeline. Nothing when no row is
    /// there or the point lies beyond the last frame.
    std::optional<TimelinePlace> At(QWidget& row, QPoint point);

    /// To be called first with whatever is held over a row. True when it was this object's question
    /// and no file of the user's.
    bool Answer(CTimelineTrackBase* track, const QString& path, int frame);

private:
    std::optional<TimelinePlace> m_answer;
};

} // namespace host
