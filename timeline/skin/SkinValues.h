#pragma once

#include "skin/TrackStyles.h"

#include <QPoint>
#include <QString>

/// How the values of a skin are written. None of these can fail: what is not a number reads as 0.
/// A missing bracket or comma is taken as lying just before the text and, as the end of a piece,
/// just behind it, so "0,0,255" reads as "(0,0,255)" does.

/// "(x,y)".
QPoint ParsePoint(const QString& text);

/// "(r,g,b)", each component masked to 0 to 255; opaque.
StyleColour ParseColour(const QString& text);

/// "(r,g,b,a)", each component masked to 0 to 255.
StyleColour ParseColourWithAlpha(const QString& text);

/// The solid 1-pixel pen of a colour written "(r,g,b)".
StylePen ParsePen(const QString& text);

/// The solid brush of a colour written "(r,g,b)".
StyleBrush ParseBrush(const QString& text);
