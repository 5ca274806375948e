#pragma once

#include "TimelineBoundaryRecords.h"
#include "skin/TrackStyles.h"
#include "tracks/SwitchLayout.h"

#include <vector>

class QPainter;
class QPixmap;
struct RowView;

/// The pictures of a switch row as its style names them.
class SwitchPictures
{
public:
    explicit SwitchPictures(const SwitchTrackStyle& style) : m_style(style) {}

    /// An empty picture for a state other than 0 to 3.
    const QPixmap& Button(int state) const;
    const QPixmap& Arrow(int image) const;

    /// The layout of @p count buttons in a row of @p row pixels: all buttons have the size of the
    /// first state's picture, both arrows that of the first arrow's.
    SwitchLayout Layout(QSize row, int count) const;

private:
    const SwitchTrackStyle& m_style;
};

/// What a switch row shows at the moment.
struct SwitchRow
{
    const std::vector<_tmpTLSwitchBtnData>& buttons;
    int scrollOffset = 0;
    bool arrowsShown = false;
    SwitchArrowImages arrows;
};

/// Paints @p row with the painter's font; leaves its pen changed.
void DrawSwitchRow(QPainter& painter, const RowView& view, const SwitchTrackStyle& style,
                   const SwitchRow& row);
