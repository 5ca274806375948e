#pragma once

#include <QFont>

/// Font sizes as skins give them: one below 1, which Qt refuses with a printed warning, leaves the
/// font as it is, in silence.

/// Sets the size of a font in points.
inline void SetPointSize(QFont& font, int points)
{
    if (points >= 1)
        font.setPointSize(points);
}

/// Sets the size of a font in pixels.
inline void SetPixelSize(QFont& font, int pixels)
{
    if (pixels >= 1)
        font.setPixelSize(pixels);
}
