#include "StatusLine.h"

#include "CaptionButtons.h"
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

void StatusLine::SetTimeline(TimelinePane* pane, const QString& skinPath)
{
    m_pane = pane;
    m_skin = SkinFile(skinPath);
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

std::optional<StatusLine::Spot> StatusLine::SpotAt(QPoint place)
{
    QWidget* const timeline = m_pane ? m_pane->Timeline() : nullptr;
    if (!timeline)
        return std::nullopt;
    const QPoint point = timeline->mapFromGlobal(place);
    // At the right edge there is nothing but rows, also beside the captions.
    QWidget* const row = timeline->childAt(timeline->width() - 1, point.y());
    if (!row || row->parentWidget() != timeline)
        return std::nullopt;
    const int x = point.x() - row->x();
    // The row is asked at its start: beyond the last frame it gives no answer.
    const auto start = m_probe.At(*row, QPoint(0, row->height() / 2));
    if (!start)
        return std::nullopt;
    const auto found = m_probe.At(*row, QPoint(std::max(0, x), row->height() / 2));
    Spot spot;
    spot.track = m_tracks.IdOf(start->track);
    spot.isRuler = row->y() == 0; // the scroll bar has no frames of its own
    if (x >= 0 && found && found->frame < m_session.Current().frameCount)
        spot.frame = found->frame;
    if (const SceneTrack* const track = m_session.Current().FindTrack(spot.track))
        spot.tip = x < 0 ? TipOnCaption(*track, point.x()) : TipOnSwitches(*track, x, row->width());
    return spot;
}

QString StatusLine::TipOnCaption(const SceneTrack& row, int x) const
{
    const std::optional<int> button = m_skin.CaptionButtonAt(row.kind, row.styleNumber, x);
    return button ? NameOfCaptionButton(*button) : QString();
}

QString StatusLine::TipOnSwitches(const SceneTrack& row, int x, int width) const
{
    const bool isAtEnd = x < SkinFile::WidthOfArrow() || x >= width - SkinFile::WidthOfArrow();
    const bool scrolls = row.kind == TrackKind::Switch && isAtEnd &&
                         m_skin.WidthOfSwitches(row.styleNumber, row.buttons.size()) > width;
    return scrolls ? tr("Scroll the buttons") : QString();
}

QString StatusLine::TipAt(QPoint place)
{
    const std::optional<Spot> spot = SpotAt(place);
    return spot ? spot->tip : QString();
}

QString StatusLine::TextAt(QPoint place)
{
    const std::optional<Spot> spot = SpotAt(place);
    if (!spot)
        return {};
    const Scene& scene = m_session.Current();
    if (!spot->tip.isEmpty())
        return QStringLiteral("%1   %2").arg(RowText(scene, spot->track), spot->tip);
    if (spot->track != kNoTrack)
        return spot->frame ? PlaceText(scene, spot->track, *spot->frame)
                           : RowText(scene, spot->track);
    return spot->isRuler && spot->frame ? tr("Ruler   frame %1   %2")
                                              .arg(*spot->frame)
                                              .arg(TimeText(*spot->frame, scene.frameRate))
                                        : QString();
}

} // namespace host
