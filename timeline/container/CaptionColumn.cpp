#include "container/CaptionColumn.h"

#include "skin/ImageTables.h"
#include "tracks/CTimelineTrackBase.h"
#include "tracks/ShapedTexts.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int kPushButton = 0;
constexpr int kToggleButton = 1;
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
                              const CaptionStyle& caption, int y, int h)
{
    const CTimelineTrackBase* parent = track.GetParentTrack();
    const bool focused = track.IsActive() && parent && parent->IsActive();
    QFont font = caption.font;
    font.setWeight(track.IsActive() ? QFont::Bold : QFont::Normal);
    painter.setFont(font);
    painter.setPen((focused ? caption.textColourFocus : caption.textColour).ToColor());

    // The second component of the text position is the box's right edge, not a vertical place.
    const QRect box(QPoint(caption.textPos.x(), y), QPoint(caption.textPos.y() - 1, y + h - 1));
    m_tooltipAreas.push_back({box, track.GetCaption()});
    m_tooltipRegion |= box;

    const int pointSize = QFontInfo(painter.font()).pointSize();
    const int baseline =
        box.top() + static_cast<int>((box.bottom() - box.top() - pointSize) * 0.5) + pointSize;
    ShapedTexts::For(painter).Draw(painter, QPoint(box.left(), baseline),
                                   ShownText(track.GetCaption(), painter, box.width()));
}

void CaptionColumn::PaintRow(QPainter& painter, const CTimelineTrackBase& track, int y, int h)
{
    const auto* style = track.StyleAs<TrackStyle>();
    if (!style)
        return;
    const CaptionStyle& caption = style->caption;
    const QPixmap& picture = CaptionPicture(track);
    if (const auto* wave = dynamic_cast<const WaveTrackStyle*>(style))
        PaintWaveGround(painter, *wave, QRect(0, y, picture.width(), h));
    else
        painter.drawPixmap(0, y, picture);

    if (!track.GetCaption().isEmpty())
        PaintText(painter, track, caption, y, h);

    for (const CaptionButtonStyle& button : style->captionButtons) {
        const QPixmap& buttonPicture = ButtonPicture(button);
        painter.drawPixmap(button.position, y + (h - buttonPicture.height()) / 2, buttonPicture);
    }
}
