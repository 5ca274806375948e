#pragma once

#include "TimelineBoundaryRecords.h"
#include "tracks/CTimelineTrackBase.h"

#include <vector>

/// A row of toggle buttons.
class CTimelineTrackSwitch : public CTimelineTrackBase
{
    Q_OBJECT
public:
    CTimelineTrackSwitch();
    bool Init(QWidget* parent) override;
    void DrawKeys(QPainter* painter, QRect rect) override;

    const std::vector<_tmpTLSwitchBtnData>& GetButtons() const { return m_buttons; }
    void SetButtons(const std::vector<_tmpTLSwitchBtnData>& buttons) { m_buttons = buttons; }
    bool AreArrowsShown() const { return m_arrowsShown; }
    void SetArrowsShown(bool shown) { m_arrowsShown = shown; }
    /// Brings the arrows and the scroll offset up to date with the row's width, the pointer being
    /// over neither arrow.
    void RefreshButtonState();

private:
    std::vector<_tmpTLSwitchBtnData> m_buttons;
    bool m_arrowsShown = false;
};
