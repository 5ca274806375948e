#include "FrameProbe.h"

#include <QDragMoveEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace host {

namespace {

/// The timeline asks of sounds; no file has this name.
const QString kQuestion = QStringLiteral("/.kestova-host-pointer.wav");

} // namespace

std::optional<TimelinePlace> FrameProbe::At(QWidget& row, QPoint point)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(kQuestion)});
    QDragMoveEvent question(point, Qt::CopyAction, &data, Qt::NoButton, Qt::NoModifier);
    m_answer.reset();
    // Straight to the row: the application would look for a drag that goes on.
    static_cast<QObject&>(row).event(&question);
    return m_answer;
}

bool FrameProbe::Answer(CTimelineTrackBase* track, const QString& path, int frame)
{
    if (path != kQuestion)
        return false;
    m_answer = TimelinePlace{track, frame};
    return true;
}

} // namespace host
