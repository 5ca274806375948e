#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

/// The arrow of a switch row under a point.
enum SwitchArrow : int
{
    kNoArrow = -1,
    kLeftArrow = 0,
    kRightArrow = 1
};

/// Places of the two arrows' pictures in their row of eight: four of the left, four of the right.
struct SwitchArrowImages
{
    static constexpr int kNormal = 0;
    static constexpr int kHover = 1;
    static constexpr int kPressed = 2;
    static constexpr int kDisabled = 3;
    static constexpr int kFirstOfRight = 4;

    int left = kDisabled;
    int right = kFirstOfRight + kDisabled;
};

/// Where a switch row's buttons and arrows lie, without a widget. Pixels from the row's top-left
/// corner; a scroll offset is 0 or negative.
class SwitchLayout
{
public:
    static constexpr int kScrollStep = 20; ///< pixels that one click on an arrow shifts the buttons

    SwitchLayout(QSize row, QSize button, QSize arrow, int gap, int buttonCount);

    /// All buttons, the gaps between them and both arrows.
    long long TotalWidth() const;
    /// How far the buttons can be shifted; 0 when they fit.
    int MaximumScroll() const;
    int ClampedOffset(int offset) const;
    /// The offset after a click on @p arrow; unchanged for neither.
    int ScrolledOffset(int arrow, int offset) const;

    /// kLeftArrow, kRightArrow or kNoArrow, whether or not the arrows are drawn.
    int HitArrow(QPoint point) const;
    /// Index of the button under the point or -1; a button that the right arrow cuts has no box.
    int HitButton(QPoint point, int offset) const;

    /// The arrows' pictures with the pointer over @p arrowUnderPointer, and the offset brought back
    /// into its range.
    SwitchArrowImages Refresh(int arrowUnderPointer, bool pressed, int& offset) const;

    /// Where button @p index is painted, and whether any of it is to be seen between the arrows.
    QRect ButtonRect(int index, int offset) const;
    bool IsButtonVisible(int index, int offset) const;
    /// Whether button @p index and all that follow it begin beyond the right arrow's left edge.
    bool AreButtonsBeyondEndFrom(int index, int offset) const;
    int ArrowTop() const;

private:
    long long ButtonLeft(int index, int offset) const;
    long long ButtonsEnd() const;

    QSize m_row;
    QSize m_button;
    QSize m_arrow;
    int m_gap;
    int m_buttonCount;
};

/// States of a switch button: whether it is on, and whether the pointer is over it.
enum SwitchButtonState : int
{
    kSwitchOff = 0,
    kSwitchOffHover = 1,
    kSwitchOn = 2,
    kSwitchOnHover = 3
};

constexpr bool IsSwitchOn(int state)
{
    return state == kSwitchOn || state == kSwitchOnHover;
}
/// Without the pointer; states other than the two hover states stay.
int WithoutHover(int state);
/// With the pointer; states other than plain off and on stay.
int WithHover(int state);
/// After a click, with the pointer over the button: on becomes off, anything else becomes on.
int Toggled(int state);
