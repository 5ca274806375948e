#include "StatusLine.h"

#include "SceneTracks.h"
#include "TimelinePane.h"
#include "document/EditSession.h"
#include "document/FrameText.h"
#include "document/PlaceText.h"

#include <QLabel>
#include <QStatusBar>

#include <algorithm>

namespace host {

namespace {

constexpr int kMargin = 8; ///< pixels between the text and the edge

} // namespace

StatusLine::StatusLine(QStatusBar* bar, const EditSession& session, const SceneTracks& tracks)
    : QObject(bar), m_selection(new QLabel), m_label(new QLabel), m_session(session),
      m_tracks(tracks)
{
    m_label->setObjectName(QStringLiteral("place"));
    m_label->setContentsMargins(0, 0, kMargin, 0);
    m_selection->setObjectName(QStringLiteral("selection"));
    m_selection->setContentsMargins(0, 0, kMargin, 0);
    bar->addPermanentWidget(m_selection);
    bar->addPermanentWidget(m_label);
    m_later.setSingleShot(true);
    connect(&m_later, &QTimer::timeout, this,
            [this] { m_selection->setText(selectionText ? selectionText() : QString()); });
    connect(&session, &EditSession::Changed, this, &StatusLine::LookAtSelection);
}

void StatusLine::SetPane(TimelinePane* pane)
{
    m_pane = pane;
    Clear();
}

void StatusLine::Look(QPoint place)
{
    m_label->setText(TextAt(place));
}

void StatusLine::Clear()
{
    m_label->clear();
}

void StatusLine::LookAtSelection()
{
    if (!m_later.isActive())
        m_later.start(0);
}

QString StatusLine::TextAt(QPoint place)
{
    QWidget* const timeline = m_pane ? m_pane->Timeline() : nullptr;
    if (!timeline)
        return {};
    const QPoint point = timeline->mapFromGlobal(place);
    // At the right edge there is nothing but rows, also beside the captions.
    QWidget* const row = timeline->childAt(timeline->width() - 1, point.y());
    if (!row || row->parentWidget() != timeline)
        return {};
    const int x = point.x() - row->x();
    const auto found = m_probe.At(*row, QPoint(std::max(0, x), row->height() / 2));
    const Scene& scene = m_session.Current();
    if (!found)
        return {};
    const TrackId track = m_tracks.IdOf(found->track);
    if (x < 0)
        return RowText(scene, track);
    if (found->frame >= scene.frameCount)
        return RowText(scene, track);
    if (track != kNoTrack)
        return PlaceText(scene, track, found->frame);
    const bool isRuler = row->y() == 0; // the scroll bar has no frames of its own
    return isRuler ? tr("Ruler   frame %1   %2")
                         .arg(found->frame)
                         .arg(TimeText(found->frame, scene.frameRate))
                   : QString();
}

} // namespace host
