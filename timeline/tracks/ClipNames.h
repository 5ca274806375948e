#pragma once

#include <QFont>
#include <QGlyphRun>
#include <QHash>
#include <QList>
#include <QString>

class QPainter;
class QPoint;

/// Draws the names of a row's clips, cut to the width there is, and remembers how they were set:
/// measuring and setting a name costs many times what drawing it does. What is remembered follows
/// from the name, the width, the font and the device's resolution alone, so it holds for as long as
/// the fonts installed stay the same. Kept by the row between paints.
class ClipNames
{
public:
    /// Draws @p name, cut to @p width pixels, from @p baseline on with the painter's font and pen:
    /// the same pixels as drawText with what NameShortener leaves of it.
    void Draw(QPainter& painter, const QPoint& baseline, const QString& name, int width);
    /// Forgets everything; to be called when fonts were added or removed.
    void Clear() { m_names.clear(); }

private:
    /// A text and, when it is set from left to right glyph by glyph, its glyphs.
    struct SetText
    {
        QString text;
        QList<QGlyphRun> glyphs;
    };
    struct Name
    {
        int wholeWidth = 0;
        SetText whole;
        int cutWidth = -1; ///< the width that the cut was made for
        SetText cut;
    };

    void PrepareFor(const QPainter& painter);
    const SetText& Fitted(QPainter& painter, const QString& name, int width);
    static SetText Set(QPainter& painter, const QString& text);

    QFont m_font;
    int m_resolution = 0;
    QHash<QString, Name> m_names;
};
