#include "tracks/SwitchLayout.h"

#include "axis/ClampedInt.h"

#include <algorithm>

namespace {

/// Half of a free space that may be negative, rounded half up, toward zero below that.
int HalfRounded(int space)
{
    return static_cast<int>(space / 2.0 + 0.5);
}

/// Half of a free space, cut to a whole number before the rounding.
int HalfCut(int space)
{
    return static_cast<int>(space / 2 + 0.5);
}

} // namespace

SwitchLayout::SwitchLayout(QSize row, QSize button, QSize arrow, int gap, int buttonCount)
    : m_row(row), m_button(button), m_arrow(arrow), m_gap(gap), m_buttonCount(buttonCount)
{
}

long long SwitchLayout::TotalWidth() const
{
    const long long count = m_buttonCount;
    return count * m_button.width() + (count - 1) * m_gap + 2LL * m_arrow.width();
}

int SwitchLayout::MaximumScroll() const
{
    return ClampedInt(std::max(TotalWidth() - m_row.width(), 0LL));
}

int SwitchLayout::ClampedOffset(int offset) const
{
    return std::clamp(offset, -MaximumScroll(), 0);
}

int SwitchLayout::ScrolledOffset(int arrow, int offset) const
{
    if (arrow == kRightArrow)
        return std::max(-MaximumScroll(), offset - kScrollStep);
    if (arrow == kLeftArrow)
        return std::min(offset + kScrollStep, 0);
    return offset;
}

int SwitchLayout::HitArrow(QPoint point) const
{
    const int top = ArrowTop();
    if (point.y() < top || point.y() > 2 * top - 1 + m_arrow.height())
        return kNoArrow;
    if (point.x() >= 0 && point.x() <= m_arrow.width() - 1)
        return kLeftArrow;
    if (point.x() >= m_row.width() - m_arrow.width() && point.x() <= m_row.width())
        return kRightArrow;
    return kNoArrow;
}

int SwitchLayout::HitButton(QPoint point, int offset) const
{
    const int top = HalfRounded(m_row.height() - m_button.height());
    if (point.y() < top || point.y() > top + m_button.height() - 1)
        return -1;
    const int lastColumn = m_row.width() - 1 - m_arrow.width();
    for (int i = 0; i < m_buttonCount; ++i) {
        const long long left = ButtonLeft(i, offset);
        const long long right = left + m_button.width() - 1;
        if (left > lastColumn)
            return -1;
        if (right <= lastColumn && point.x() >= left && point.x() <= right)
            return i;
    }
    return -1;
}

SwitchArrowImages SwitchLayout::Refresh(int arrowUnderPointer, bool pressed, int& offset) const
{
    SwitchArrowImages images;
    if (m_buttonCount == 0 || MaximumScroll() == 0) {
        offset = 0;
        return images;
    }
    const int pointed = pressed ? SwitchArrowImages::kPressed : SwitchArrowImages::kHover;
    images.left = arrowUnderPointer == kLeftArrow ? pointed : SwitchArrowImages::kNormal;
    images.right = SwitchArrowImages::kFirstOfRight +
                   (arrowUnderPointer == kRightArrow ? pointed : SwitchArrowImages::kNormal);
    offset = ClampedOffset(offset);
    return images;
}

QRect SwitchLayout::ButtonRect(int index, int offset) const
{
    const int top = HalfCut(m_row.height() - m_button.height());
    return QRect(QPoint(ClampedInt(ButtonLeft(index, offset)), top), m_button);
}

bool SwitchLayout::IsButtonVisible(int index, int offset) const
{
    const long long left = ButtonLeft(index, offset);
    return left + m_button.width() > m_arrow.width() && left < ButtonsEnd();
}

bool SwitchLayout::AreButtonsBeyondEndFrom(int index, int offset) const
{
    // A skin's negative gap may be wider than a button; the buttons then go to the left.
    const bool goesRight = static_cast<long long>(m_button.width()) + m_gap >= 0;
    return goesRight && ButtonLeft(index, offset) >= ButtonsEnd();
}

long long SwitchLayout::ButtonsEnd() const
{
    return static_cast<long long>(m_row.width()) - 1 - m_arrow.width();
}

int SwitchLayout::ArrowTop() const
{
    return HalfRounded(m_row.height() - m_arrow.height());
}

long long SwitchLayout::ButtonLeft(int index, int offset) const
{
    const long long step = static_cast<long long>(m_button.width()) + m_gap;
    return m_arrow.width() + offset + index * step;
}

int WithoutHover(int state)
{
    if (state == kSwitchOnHover)
        return kSwitchOn;
    return state == kSwitchOffHover ? kSwitchOff : state;
}

int WithHover(int state)
{
    if (state == kSwitchOn)
        return kSwitchOnHover;
    return state == kSwitchOff ? kSwitchOffHover : state;
}

int Toggled(int state)
{
    return IsSwitchOn(state) ? kSwitchOffHover : kSwitchOnHover;
}
