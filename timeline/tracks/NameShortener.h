#pragma once

#include <QFontMetrics>
#include <QString>

/// True for a text of separate letters, digits and signs of scripts that are set one glyph beside
/// the other from left to right: every further character makes it wider. Marks, joining scripts and
/// halves of surrogate pairs can make a longer text narrower.
bool IsSetGlyphByGlyph(const QString& text);

/// Cuts the names of clips to the width there is. Made for one paint with that paint's font.
class NameShortener
{
public:
    explicit NameShortener(const QFontMetrics& metrics) : m_metrics(metrics) {}

    /// The whole name if it is at most @p width pixels wide; else as many of its first characters
    /// as fit with "..." behind them; else "...", "..", or "."; and nothing when not even that
    /// fits.
    QString Fitted(const QString& name, int width) const;
    /// The same for a name that is known to be wider than @p width.
    QString Cut(const QString& name, int width) const;
    /// The width of @p text on a single line.
    int WidthOf(const QString& text) const;

private:
    QFontMetrics m_metrics;
};
