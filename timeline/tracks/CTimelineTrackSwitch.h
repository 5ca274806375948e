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

private:
    SwitchLayout Layout() const;

    Buttons m_buttons;
    SwitchArrowImages m_arrows;
    int m_scrollOffset = 0;
    bool m_arrowsShown = false;
};
