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

/// Finds the row and the frame at a point of the timeline. A workaround: the timeline has no
/// question for it, but it names both to its host when a file is held over a row, whatever the
/// zoom. So this pretends to hold a file there, of a name that no real one has, and the host's
/// callback has to hand every held file to Answer first.
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
