#pragma once

#include <QImage>
#include <QPixmap>
#include <QRect>

#include <functional>

class QPainter;
class QWidget;
struct FrameStrips;

/// How a paint of the timeline treats the current frame.
enum class FramePaint
{
    kShown,     ///< as it is
    kHidden,    ///< neither its line nor its cell
    kEverywhere ///< its line in every column of every row, its cell nowhere
};

/// Two ready pictures of a timeline, from which any step of the current frame is copied: one that
/// shows it nowhere and one that shows its line everywhere. A column of the second is pixel for
/// pixel what a paint with the line in that column gives, with all that is painted over the line.
/// They are as good as the timeline stays unchanged; whoever holds them drops them in time.
class ScrubPictures
{
public:
    /// Paints the timeline onto the painter, which stands in the container's coordinates.
    using Paint = std::function<void(QPainter& painter, FramePaint frame)>;

    /// Makes the pictures of the part of @p widget that is in view.
    /// @return false, and there are none, where they would not give what a paint gives: on screens
    /// with fractional pixel ratios, or when some of the strips is not painted over wholly.
    bool Make(const QWidget& widget, const FrameStrips& strips, const Paint& paint);
    void Drop() { *this = ScrubPictures(); }
    bool AreReady() const { return !m_without.isNull(); }

    /// Copies @p rect (container coordinates) without the current frame, or with its line. Leaves
    /// the painter clipped to it.
    void CopyWithout(QPainter& painter, const QRect& rect) const;
    void CopyLine(QPainter& painter, const QRect& rect) const;

private:
    QImage Painted(const QWidget& widget, const QRect& part, const Paint& paint,
                   FramePaint frame) const;
    void Copy(QPainter& painter, const QRect& rect, const QPixmap& picture) const;

    QRect m_part; ///< of the container
    int m_pixelRatio = 1;
    QPixmap m_without;
    QPixmap m_withLine;
};
