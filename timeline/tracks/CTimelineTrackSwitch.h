#pragma once

#include "TimelineBoundaryRecords.h"
#include "tracks/CTimelineTrackBase.h"
#include "tracks/SwitchLayout.h"

#include <vector>

/// A row of labelled toggle buttons instead of keys. When the buttons do not fit, two arrows at the
/// row's ends shift them. The host replaces the buttons as a whole and reads their states back.
class CTimelineTrackSwitch : public CTimelineTrackBase
{
    Q_OBJECT
public:
    using Buttons = std::vector<_tmpTLSwitchBtnData>;

    CTimelineTrackSwitch();
    bool Init(QWidget* parent) override;
    int HitTestKey(QPoint point) override; ///< index of the button under the point, or -1
    void DrawKeys(QPainter* painter, QRect rect) override;

    const Buttons& GetButtons() const { return m_buttons; }
    /// Replaces all buttons; repaints nothing and leaves the scroll offset for the next refresh.
    void SetButtons(const Buttons& buttons) { m_buttons = buttons; }

    /// Whether the scroll arrows are drawn; they can be clicked in either case.
    bool AreArrowsShown() const { return m_arrowsShown; }
    void SetArrowsShown(bool shown) { m_arrowsShown = shown; }

    /// Brings the arrows and the scroll offset up to the row's width and buttons, as with the
    /// pointer over neither arrow, and asks the owner for a repaint.
    void RefreshButtonState();

    /// The same with the pointer over @p arrowUnderPointer, pressed or not.
    void RefreshArrows(int arrowUnderPointer, bool pressed);
    /// Shifts the buttons by one click on @p arrow, as far as there is anything to show.
    void ScrollBy(int arrow);

    /// 0 or negative: how far the buttons are shifted, in pixels.
    int ScrollOffset() const { return m_scrollOffset; }
    const SwitchArrowImages& ArrowImages() const { return m_arrows; }

    /// As a release at the pointer's last place: a button toggles when the pointer is still on it.
    void EndGesture() override;

protected:
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override; ///< does nothing

private:
    /// A press of the left button that is under way.
    struct PressState
    {
        bool isDown = false;
        int button = -1;  ///< index of the switch button it began on; -1 for none
        QPoint lastPoint; ///< where the pointer was seen last
    };

    SwitchLayout Layout() const;
    /// Shows the pointer over button @p index, or over none with -1.
    void ShowHover(int index);
    void Release(QPoint point);

    Buttons m_buttons;
    SwitchArrowImages m_arrows;
    int m_scrollOffset = 0;
    bool m_arrowsShown = false;
    PressState m_press;
};
