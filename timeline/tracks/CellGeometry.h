#pragma once

#include "axis/FrameAxis.h"

/// Whole-pixel places inside and around frame cells. All of them are computed exactly, in integers;
/// every truncation is toward zero. Positions are pixels from the row's left edge.

/// trunc(frameX + (scale - width) / 2): the left edge of something @p width pixels wide that is
/// centred on the cell of the frame at @p frameX.
int CentredInCell(const FrameAxis& axis, int frameX, int width);

/// trunc(frameX + scale / 2): the centre of the cell of the frame at @p frameX.
int CellCentre(const FrameAxis& axis, int frameX);

/// trunc(frame * scale - scrollX + (scale - width) / 2): as CentredInCell, with a single truncation
/// at the end.
int CentredOnFrame(const FrameAxis& axis, long long frame, int width);

/// The column of the current-frame line: the frame's position, and in frames-per-pixel mode the
/// position of the middle of its cell, rounded.
int CurrentFrameLineX(const FrameAxis& axis);

/// The columns that the ruler shows the current frame in, both included; none (last before first)
/// when it is no valid frame.
struct CurrentFrameCell
{
    explicit CurrentFrameCell(const FrameAxis& axis);

    long long first = 0;
    long long last = -1;
    bool isPlain = true; ///< too narrow for more than one colour

    bool IsEmpty() const { return last < first; }
};

/// How the skin places glyphs and bars in a row.
enum VerticalAlign : int
{
    kAlignCentre = 0,
    kAlignTop = 1,
    kAlignBottom = 2
};

/// The top of something @p height pixels high in a row of @p rowHeight pixels; an unknown alignment
/// centres.
int AlignedTop(int align, int rowHeight, int height);
