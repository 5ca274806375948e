#pragma once

#include <QString>

#include <functional>
#include <utility>

/// Cuts the names of clips to the width there is. Made for one paint with that paint's font.
class NameShortener
{
public:
    /// @param widthOf gives the width of a text in one line, in pixels.
    explicit NameShortener(std::function<int(const QString&)> widthOf)
        : m_widthOf(std::move(widthOf))
    {
    }

    /// The whole name if it is at most @p width pixels wide; else as many of its first characters
    /// as fit with "..." behind them; else "...", "..", or "."; and nothing when not even that
    /// fits.
    QString Fitted(const QString& name, int width) const;

private:
    int WidthOf(const QString& text) const { return m_widthOf(text); }

    std::function<int(const QString&)> m_widthOf;
};
