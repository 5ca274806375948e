#include "container/CaptionColumn.h"

#include "container/CaptionButtons.h"
#include "skin/ImageTables.h"
#include "tracks/CTimelineTrackBase.h"
#include "tracks/ShapedTexts.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int kRememberedTexts = 4096;
constexpr std::size_t kRememberedFonts = 32;

struct Abbreviation
{
    const char* word;
    const char* shortForm;
};
// Only the word that the caption starts with is shortened, but wherever it occurs.
constexpr Abbreviation kAbbreviations[] = {{"Right", "R"}, {"Left", "L"}, {"Upper", "Up"}};

QString Abbreviated(QString text)
{
    for (const Abbreviation& abbreviation : kAbbreviations) {
        const QLatin1String word(abbreviation.word);
        if (text.startsWith(word))
            return text.replace(word, QLatin1String(abbreviation.shortForm));
    }
    return text;
}

/// A place that the skin made up, kept within arithmetic and far beyond any column.
int WithinReach(int x)
{
    constexpr int kReach = 1 << 20;
    return std::clamp(x, -kReach, kReach);
}

/// The second component of the text position is the box's right edge, not a vertical place.
QRect TextBox(const CaptionStyle& caption, int y, int h)
{
    return QRect(QPoint(WithinReach(caption.textPos.x()), y),
                 QPoint(WithinReach(caption.textPos.y()) - 1, y + h - 1));
}

/// Whether what is painted shows anything left of column @p right.
bool IsExposedLeftOf(const QPainter& painter, int right)
{
    return !painter.hasClipping() || painter.clipBoundingRect().left() < right;
}

int SingleLineWidth(const QFontMetrics& metrics, const QString& text)
{
    return metrics.size(Qt::TextSingleLine, text).width();
}

} // namespace

const QPixmap& CaptionColumn::CaptionPicture(const CTimelineTrackBase& track) const
{
    const auto* style = track.StyleAs<TrackStyle>();
    if (!style)
        return m_images.Picture(-1, -1);
    const CaptionStyle& caption = style->caption;
    const int bitmapId = track.IsActive() ? caption.bitmapFocusId : caption.bitmapId;
    return m_images.Picture(kCaptionPictures, RowCaptionIndex(bitmapId));
}

void CaptionColumn::BeginPaint()
{
    m_tooltipAreas.clear();
    m_tooltipRegion = QRect();
}

QString CaptionColumn::TooltipAt(QPoint point) const
{
    if (!m_tooltipRegion.contains(point))
        return QString();
    for (const TooltipArea& area : m_tooltipAreas) {
        if (area.rect.contains(point))
            return area.text;
    }
    return QString();
}

QString CaptionColumn::ShortenedText(const QString& caption, const QFontMetrics& metrics, int width)
{
    const QString text = Abbreviated(caption);
    if (SingleLineWidth(metrics, text) <= width)
        return text;
    for (int n = text.length(); n > 0; --n) {
        const QString candidate = text.left(n) + QLatin1String("...");
        if (SingleLineWidth(metrics, candidate) <= width)
            return candidate;
    }
    return QStringLiteral("...");
}

const QString& CaptionColumn::ShownText(const QString& caption, const QPainter& painter, int width)
{
    const QFont& font = painter.font();
    auto known = std::find_if(m_shortened.begin(), m_shortened.end(), [&](const Shortened& each) {
        return each.width == width && each.font == font;
    });
    if (known == m_shortened.end()) {
        if (m_shortened.size() >= kRememberedFonts)
            m_shortened.clear();
        known = m_shortened.insert(m_shortened.end(), {font, width, {}});
    }
    QHash<QString, QString>& texts = known->texts;
    if (texts.size() >= kRememberedTexts)
        texts.clear();
    auto found = texts.find(caption);
    if (found == texts.end())
        found = texts.insert(caption, ShortenedText(caption, painter.fontMetrics(), width));
    return found.value();
}

const QPixmap& CaptionColumn::ButtonPicture(const CaptionButtonStyle& button) const
{
    if (button.type == kPushButton)
        return m_images.Picture(kPushButtonPictures,
                                IndexInSets(button.bitmapId, kPushButtonStates, button.state));
    if (button.type == kToggleButton)
        return m_images.Picture(kToggleButtonPictures,
                                IndexInSets(button.bitmapId, kToggleButtonStates, button.state));
    return m_images.Picture(-1, -1);
}

QPoint CaptionColumn::ButtonCorner(const CaptionButtonStyle& button, int y, int h) const
{
    return QPoint(WithinReach(button.position), y + (h - ButtonPicture(button).height()) / 2);
}

QRect CaptionColumn::ButtonHitRect(const CaptionButtonStyle& button, int y, int h) const
{
    const QPixmap& picture = ButtonPicture(button);
    if (picture.isNull())
        return QRect();
    return QRect(ButtonCorner(button, y, h), picture.size() + QSize(1, 1));
}

void CaptionColumn::PaintWaveGround(QPainter& painter, const WaveTrackStyle& wave,
                                    const QRect& rect) const
{
    painter.fillRect(rect, wave.captionFill.brush);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(wave.captionBorder.pen);
    painter.drawRect(rect.adjusted(0, 0, -1, -1));
    painter.setPen(wave.captionTop.pen);
    painter.drawLine(rect.topLeft(), rect.topRight());
    painter.setPen(wave.captionBottomUpper.pen);
    painter.drawLine(rect.left(), rect.bottom() - 1, rect.right(), rect.bottom() - 1);
    painter.setPen(wave.captionBottom.pen);
    painter.drawLine(rect.bottomLeft(), rect.bottomRight());
    painter.setPen(wave.captionLeft.pen);
    painter.drawLine(rect.topLeft(), rect.bottomLeft());
}

void CaptionColumn::PaintText(QPainter& painter, const CTimelineTrackBase& track,
                              const CaptionStyle& caption, const QRect& box)
{
    const CTimelineTrackBase* parent = track.GetParentTrack();
    const bool focused = track.IsActive() && parent && parent->IsActive();
    QFont font = caption.font;
    font.setWeight(track.IsActive() ? QFont::Bold : QFont::Normal);
    painter.setFont(font);
    painter.setPen((focused ? caption.textColourFocus : caption.textColour).ToColor());

    const int pointSize = QFontInfo(painter.font()).pointSize();
    const int baseline =
        box.top() + static_cast<int>((box.bottom() - box.top() - pointSize) * 0.5) + pointSize;
    ShapedTexts::For(painter).Draw(painter, QPoint(box.left(), baseline),
                                   ShownText(track.GetCaption(), painter, box.width()));
}

int CaptionColumn::ColumnsPainted(const TrackStyle& style, const QPixmap& picture,
                                  const QRect& textBox) const
{
    // The dots of a text that fits into no box, and a slanted last letter, go a little beyond it.
    int columns = std::max(picture.width(), textBox.right() + 1 + textBox.height());
    for (const CaptionButtonStyle& button : style.captionButtons)
        columns = std::max(columns, WithinReach(button.position) + ButtonPicture(button).width());
    return columns;
}

void CaptionColumn::PaintRow(QPainter& painter, const CTimelineTrackBase& track, int y, int h)
{
    const auto* style = track.StyleAs<TrackStyle>();
    if (!style)
        return;
    const CaptionStyle& caption = style->caption;
    const QRect textBox = TextBox(caption, y, h);
    const bool hasText = !track.GetCaption().isEmpty();
    if (hasText) {
        m_tooltipAreas.push_back({textBox, track.GetCaption()});
        m_tooltipRegion |= textBox;
    }
    // While the current frame moves only strips of the rows are painted again.
    const QPixmap& picture = CaptionPicture(track);
    if (!IsExposedLeftOf(painter, ColumnsPainted(*style, picture, textBox)))
        return;

    if (const auto* wave = dynamic_cast<const WaveTrackStyle*>(style))
        PaintWaveGround(painter, *wave, QRect(0, y, picture.width(), h));
    else
        painter.drawPixmap(0, y, picture);
    if (hasText)
        PaintText(painter, track, caption, textBox);
    for (const CaptionButtonStyle& button : style->captionButtons)
        painter.drawPixmap(ButtonCorner(button, y, h), ButtonPicture(button));
}
