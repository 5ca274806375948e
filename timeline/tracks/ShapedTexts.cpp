#include "tracks/ShapedTexts.h"

#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <list>

namespace {

// A skin has a handful of fonts, each upright and bold; a timeline some thousand names.
constexpr std::size_t kMostFonts = 24;
constexpr int kMostTexts = 20000;

/// From the top of the laid-out text to its baseline, in pixels: more than the font's own ascent
/// where another font stands in for a character and raises the line.
qreal AscentOf(const QString& text, const QPainter& painter)
{
    QTextLayout layout(text, painter.font(), painter.device());
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return line.isValid() ? line.ascent() : 0;
}

/// The texts of all fonts; the one used last stands first.
std::list<ShapedTexts>& All()
{
    static std::list<ShapedTexts> all;
    return all;
}

} // namespace

void ShapedTexts::ClearAll()
{
    All().clear();
}

std::size_t ShapedTexts::FontCount()
{
    return All().size();
}

ShapedTexts& ShapedTexts::For(const QPainter& painter)
{
    std::list<ShapedTexts>& all = All();
    const QFont& font = painter.font();
    const int dpi = painter.device()->logicalDpiY();
    const auto found = std::find_if(all.begin(), all.end(), [&](const ShapedTexts& each) {
        return each.m_dpi == dpi && each.m_font == font;
    });
    if (found != all.end()) {
        all.splice(all.begin(), all, found);
        return all.front();
    }
    if (all.size() == kMostFonts)
        all.pop_back();
    all.push_front(ShapedTexts(font, painter.fontMetrics(), dpi));
    return all.front();
}

ShapedTexts::ShapedTexts(const QFont& font, const QFontMetrics& metrics, int dpi)
    : m_font(font), m_metrics(metrics), m_dpi(dpi)
{
}

ShapedTexts::Entry& ShapedTexts::EntryOf(const QString& text)
{
    auto found = m_entries.find(text);
    if (found != m_entries.end())
        return found.value();
    if (m_entries.size() >= kMostTexts)
        m_entries.clear();
    return m_entries[text];
}

int ShapedTexts::Width(const QString& text)
{
    Entry& entry = EntryOf(text);
    if (entry.width < 0)
        entry.width = m_metrics.size(Qt::TextSingleLine, text).width();
    return entry.width;
}

void ShapedTexts::Draw(QPainter& painter, QPoint baseline, const QString& text)
{
    Entry& entry = EntryOf(text);
    if (!entry.isLaidOut) {
        entry.text.setTextFormat(Qt::PlainText);
        entry.text.setText(text);
        entry.text.prepare(QTransform(), painter.font());
        entry.ascent = AscentOf(text, painter);
        entry.isLaidOut = true;
    }
    painter.drawStaticText(QPointF(baseline) - QPointF(0, entry.ascent), entry.text);
}
