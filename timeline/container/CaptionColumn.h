#pragma once

#include <QFont>
#include <QHash>
#include <QRect>
#include <QString>

#include <vector>

class CTimelineTrackBase;
class ImageTables;
class QFontMetrics;
class QPainter;
struct CaptionButtonStyle;
struct CaptionStyle;
struct TrackStyle;
struct WaveTrackStyle;
class QPixmap;

/// The left column: paints the caption of one row at a time and remembers, for tooltips, where the
/// full text of each caption belongs.
class CaptionColumn
{
public:
    struct TooltipArea
    {
        QRect rect;
        QString text;
    };

    explicit CaptionColumn(const ImageTables& images) : m_images(images) {}

    /// The row's caption picture: the focused one while the track is active. Its height is the
    /// height that the row is painted with (but for wave rows), its width where the row proper
    /// begins.
    const QPixmap& CaptionPicture(const CTimelineTrackBase& track) const;

    void BeginPaint(); ///< forgets the tooltips of the paint before
    /// Paints the caption of @p track in the row that starts at y and is h pixels high. With a clip
    /// set that lies beyond the column nothing is painted, but the tooltip is remembered all the
    /// same.
    void PaintRow(QPainter& painter, const CTimelineTrackBase& track, int y, int h);

    /// The full caption at @p point of the column; empty for none.
    QString TooltipAt(QPoint point) const;
    const std::vector<TooltipArea>& TooltipAreas() const { return m_tooltipAreas; }

    /// The caption as it is shown in @p width pixels: a leading "Right", "Left" or "Upper" is
    /// shortened throughout, and what is still too long ends in "...".
    static QString ShortenedText(const QString& caption, const QFontMetrics& metrics, int width);

    /// The picture of a button in its present state; an empty one for a type without pictures.
    const QPixmap& ButtonPicture(const CaptionButtonStyle& button) const;
    /// Where the mouse hits the button in a row that starts at y and is h pixels high: its picture
    /// and one pixel more to the right and below. Empty for a button without a picture.
    QRect ButtonHitRect(const CaptionButtonStyle& button, int y, int h) const;

private:
    QPoint ButtonCorner(const CaptionButtonStyle& button, int y, int h) const;
    /// The first column right of all that the caption of @p style shows.
    int ColumnsPainted(const TrackStyle& style, const QPixmap& picture, const QRect& textBox) const;
    void PaintWaveGround(QPainter& painter, const WaveTrackStyle& wave, const QRect& rect) const;
    void PaintText(QPainter& painter, const CTimelineTrackBase& track, const CaptionStyle& caption,
                   const QRect& box);
    const QString& ShownText(const QString& caption, const QPainter& painter, int width);

    const ImageTables& m_images;
    std::vector<TooltipArea> m_tooltipAreas;
    QRect m_tooltipRegion;
    // Shortening measures a text many times over, and depends on nothing but text, font and width.
    struct Shortened
    {
        QFont font;
        int width;
        QHash<QString, QString> texts;
    };
    std::vector<Shortened> m_shortened;
};
