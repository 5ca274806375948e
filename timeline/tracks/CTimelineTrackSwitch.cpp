#include "tracks/CTimelineTrackSwitch.h"

#include "model/MessageCodes.h"
#include "tracks/RowView.h"
#include "tracks/SwitchPainter.h"

#include <QPainter>

namespace {

constexpr int kInitialWidth = 10; ///< pixels, until the first paint or layout

} // namespace

CTimelineTrackSwitch::CTimelineTrackSwitch()
{
    setAccessibleName(QStringLiteral("CTimelineTrackSwitch"));
}

bool CTimelineTrackSwitch::Init(QWidget* parent)
{
    return InitAs(parent, TL_TRACK_SWITCH, kInitialWidth);
}

int CTimelineTrackSwitch::HitTestKey(QPoint point)
{
    return Layout().HitButton(point, m_scrollOffset);
}

void CTimelineTrackSwitch::DrawKeys(QPainter* painter, QRect rect)
{
    ResizeTo(rect.size());
    const auto* style = StyleAs<SwitchTrackStyle>();
    if (!style)
        return;
    painter->setFont(style->font);
    DrawSwitchRow(*painter, RowView(*painter, rect, Axis()), *style,
                  {m_buttons, m_scrollOffset, m_arrowsShown, m_arrows});
}

void CTimelineTrackSwitch::RefreshButtonState()
{
    RefreshArrows(kNoArrow, false);
}

void CTimelineTrackSwitch::RefreshArrows(int arrowUnderPointer, bool pressed)
{
    m_arrows = Layout().Refresh(arrowUnderPointer, pressed, m_scrollOffset);
    Send(kTrackRepaint);
}

void CTimelineTrackSwitch::ScrollBy(int arrow)
{
    m_scrollOffset = Layout().ScrolledOffset(arrow, m_scrollOffset);
}

SwitchLayout CTimelineTrackSwitch::Layout() const
{
    const int count = static_cast<int>(m_buttons.size());
    const QSize row(width(), GetRowHeight());
    if (const auto* style = StyleAs<SwitchTrackStyle>())
        return SwitchPictures(*style).Layout(row, count);
    return SwitchLayout(row, QSize(0, 0), QSize(0, 0), 0, count);
}
