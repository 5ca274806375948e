#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QHash>
#include <QPoint>
#include <QStaticText>
#include <QString>

class QPainter;

/// The texts of one font, measured and laid out once each. Shaping is what drawing text costs, and
/// a row draws the same names at every paint. A text's layout depends on nothing but the font, so
/// an entry never goes stale; what is drawn is what QPainter::drawText draws.
class ShapedTexts
{
public:
    /// The texts of the painter's font on the painter's device. Valid until the next call.
    static ShapedTexts& For(const QPainter& painter);
    /// Lets go of the texts of all fonts; what For gave before is then gone.
    static void ClearAll();
    /// The number of fonts whose texts are kept, and of the texts of this one.
    static std::size_t FontCount();
    int TextCount() const { return m_entries.size(); }

    /// The width of the text in one line, in pixels, as QFontMetrics::size has it.
    int Width(const QString& text);
    /// Draws the text with the painter's pen from @p baseline on. The painter's font is the one
    /// that these texts were asked for with.
    void Draw(QPainter& painter, QPoint baseline, const QString& text);

    const QFontMetrics& Metrics() const { return m_metrics; }

private:
    struct Entry
    {
        int width = -1; ///< not measured yet
        bool isLaidOut = false;
        qreal ascent = 0; ///< of the laid-out text
        QStaticText text;
    };

    ShapedTexts(const QFont& font, const QFontMetrics& metrics, int dpi);
    Entry& EntryOf(const QString& text);

    QFont m_font;
    QFontMetrics m_metrics;
    int m_dpi;
    QHash<QString, Entry> m_entries;
};
