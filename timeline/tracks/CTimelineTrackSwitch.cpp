#include "tracks/CTimelineTrackSwitch.h"

#include "model/MessageCodes.h"
#include "tracks/RowView.h"
#include "tracks/SwitchPainter.h"
#include "tracks/TrackReport.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

#include <utility>

namespace {

constexpr int kInitialSwitchWidth = 10; ///< pixels, until the first paint or layout

} // namespace

CTimelineTrackSwitch::CTimelineTrackSwitch()
{
    setAccessibleName(QStringLiteral("CTimelineTrackSwitch"));
}

bool CTimelineTrackSwitch::Init(QWidget* parent)
{
    return InitAs(parent, TL_TRACK_SWITCH, kInitialSwitchWidth);
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

void CTimelineTrackSwitch::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const OpenGesture::PressHandling handling(Gesture());
    if (!handling.MayGoOn())
        return;

    Gesture().Begin();
    m_press = {true, -1, event->pos()};
    // The press may end while the host is being told of it.
    TrackReport report(*this, Gesture().TakeTurn(OpenGesture::Until::NextPressOrEnd));
    if (!report.Send(kTrackPressed))
        return;
    const int arrow = Layout().HitArrow(event->pos());
    if (arrow == kNoArrow) {
        m_press.button = HitTestKey(event->pos());
        return;
    }
    ScrollBy(arrow);
    if (report.Send(kTrackButtonsScrolled))
        RefreshArrows(arrow, true);
}

void CTimelineTrackSwitch::mouseMoveEvent(QMouseEvent* event)
{
    const QPointer<CTimelineTrackSwitch> self(this);
    const OpenGesture::Handling handling(Gesture());
    if (self && m_press.isDown && !(event->buttons() & Qt::LeftButton))
        EndGesture(); // the button went up where nobody saw it
    if (!self)
        return;

    m_press.lastPoint = event->pos();
    RefreshArrows(Layout().HitArrow(event->pos()), m_press.isDown);
    if (!self)
        return;
    ShowHover(HitTestKey(event->pos()));
    Send(kTrackRepaint);
}

void CTimelineTrackSwitch::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const OpenGesture::Handling handling(Gesture());
    if (handling.MayGoOn())
        Release(event->pos());
}

void CTimelineTrackSwitch::mouseDoubleClickEvent(QMouseEvent*) {}

void CTimelineTrackSwitch::leaveEvent(QEvent* event)
{
    // Not as in other handlers, where a gesture that was lost is finished first: Qt has the pointer
    // leave a row from inside its hiding, where the host is not to be called.
    const CallOut callOut;
    const QPointer<CTimelineTrackSwitch> self(this);
    RefreshArrows(kNoArrow, m_press.isDown);
    if (!self)
        return;
    ShowHover(-1);
    Send(kTrackRepaint);
    if (self)
        CTimelineTrackBase::leaveEvent(event);
}

void CTimelineTrackSwitch::EndGesture()
{
    if (m_press.isDown)
        Release(m_press.lastPoint);
}

void CTimelineTrackSwitch::Release(QPoint point)
{
    const CallOut callOut;
    Gesture().End();
    const int button = std::exchange(m_press, PressState()).button;
    clearFocus();

    TrackReport report(*this);
    // A row that was taken out of the timeline has nobody to tell and keeps its states.
    if (button >= 0 && HitTestKey(point) == button && report.IsThere()) {
        int& state = m_buttons[static_cast<std::size_t>(button)].state;
        state = Toggled(state);
        if (!report.Send(kTrackSwitchToggled, button))
            return;
    } else {
        ShowHover(-1);
    }
    if (report.Send(kTrackRepaint))
        RefreshArrows(Layout().HitArrow(point), m_press.isDown);
}

void CTimelineTrackSwitch::ShowHover(int index)
{
    for (_tmpTLSwitchBtnData& button : m_buttons)
        button.state = WithoutHover(button.state);
    if (index < 0)
        return;
    int& state = m_buttons[static_cast<std::size_t>(index)].state;
    state = WithHover(state);
}
