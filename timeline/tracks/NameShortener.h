#pragma once

#include <QFontMetrics>
#include <QString>

/// Cuts the names of clips to the width there is. Made for one paint with that paint's font.
class NameShortener
{
public:
    explicit NameShortener(const QFontMetrics& metrics) : m_metrics(metrics) {}

    /// The whole name if it is at most @p width pixels wide; else as many of its first characters
    /// as fit with "..." behind them; else "...", "..", or "."; and nothing when not even that
    /// fits.
    QString Fitted(const QString& name, int width) const;

private:
    int WidthOf(const QString& text) const;

    QFontMetrics m_metrics;
};
