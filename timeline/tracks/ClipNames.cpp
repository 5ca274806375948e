#include "tracks/ClipNames.h"

#include "tracks/NameShortener.h"

#include <QFontMetrics>
#include <QPaintDevice>
#include <QPainter>
#include <QTextLayout>

namespace {

/// More names than any view holds; beyond it all are forgotten, to bound what a long scroll keeps.
constexpr int kMostNames = 4096;

} // namespace

void ClipNames::Draw(QPainter& painter, const QPoint& baseline, const QString& name, int width)
{
    if (width < 0)
        return;
    PrepareFor(painter);
    const SetText& set = Fitted(painter, name, width);
    // Glyphs are set for whole pixels; a scaled or turned painter sets them anew.
    if (set.glyphs.isEmpty() || painter.transform().type() > QTransform::TxTranslate) {
        painter.drawText(baseline, set.text);
        return;
    }
    for (const QGlyphRun& run : set.glyphs)
        painter.drawGlyphRun(baseline, run);
}

void ClipNames::PrepareFor(const QPainter& painter)
{
    const int resolution = painter.device()->logicalDpiY();
    if (m_resolution == resolution && m_font == painter.font())
        return;
    m_font = painter.font();
    m_resolution = resolution;
    Clear();
}

const ClipNames::SetText& ClipNames::Fitted(QPainter& painter, const QString& name, int width)
{
    auto entry = m_names.find(name);
    if (entry == m_names.end()) {
        if (m_names.size() >= kMostNames)
            Clear();
        entry = m_names.insert(name, Name());
        entry->wholeWidth = NameShortener(painter.fontMetrics()).WidthOf(name);
        entry->whole = Set(painter, name);
    }
    if (entry->wholeWidth <= width)
        return entry->whole;
    if (entry->cutWidth != width) {
        entry->cut = Set(painter, NameShortener(painter.fontMetrics()).Cut(name, width));
        entry->cutWidth = width;
    }
    return entry->cut;
}

ClipNames::SetText ClipNames::Set(QPainter& painter, const QString& text)
{
    SetText set;
    set.text = text;
    if (text.isEmpty() || !IsSetGlyphByGlyph(text))
        return set;
    QTextLayout layout(text, painter.font(), painter.device());
    layout.beginLayout();
    QTextLine line = layout.createLine();
    layout.endLayout(); // the line has its metrics only now
    line.setPosition(QPointF(0, -line.ascent()));
    set.glyphs = layout.glyphRuns();
    return set;
}
