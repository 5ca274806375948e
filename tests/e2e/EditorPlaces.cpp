#include "EditorPlaces.h"

#include <QStringList>
#include <QVector>

namespace Places {

namespace {

constexpr int kFirstFrame = 172; ///< where its cell begins
constexpr int kFrameWidth = 10;
constexpr int kRulerY = 348; ///< below the numbers and beside the flags of the time mark
constexpr int kRowsTop = 354;
constexpr int kCaptionX = 40;
constexpr int kMenuX = 104;
constexpr int kMuteX = 141;
constexpr int kLockX = 159;
constexpr int kEdgeX = 2; ///< in the stripe that every caption begins with

constexpr QRgb kRowEdge = qRgb(0x46, 0x4B, 0x53);
constexpr QRgb kActiveRowEdge = qRgb(0xEE, 0xC4, 0x6E);
constexpr QRgb kCurrentMarker = qRgb(0x58, 0xD8, 0xC0);

/// The rows of the sample scene, from the top.
const QStringList kRows{
    QStringLiteral("Layers"),       QStringLiteral("Joints"),    QStringLiteral("Lips"),
    QStringLiteral("Mouth Rest"),   QStringLiteral("Sound"),     QStringLiteral("Motion"),
    QStringLiteral("Motion Blend"), QStringLiteral("L Contact"), QStringLiteral("R Contact"),
    QStringLiteral("Hips"),         QStringLiteral("Spine"),     QStringLiteral("Chest"),
    QStringLiteral("Neck"),         QStringLiteral("Head")};

bool IsRowEdge(QRgb colour)
{
    return colour == kRowEdge || colour == kActiveRowEdge;
}

/// The middle of what is seen of every row.
QVector<int> RowMiddles(const QImage& window)
{
    QVector<int> middles;
    int top = -1;
    for (int y = kRowsTop; y < window.height(); ++y) {
        const bool isRow = IsRowEdge(window.pixel(kEdgeX, y));
        if (isRow && top < 0)
            top = y;
        if (isRow || top < 0)
            continue;
        middles.append((top + y) / 2);
        top = -1;
    }
    return middles;
}

int MiddleOf(const QImage& window, const QString& row)
{
    return RowMiddles(window).value(kRows.indexOf(row), -1);
}

int MiddleOfFrame(int frame)
{
    return kFirstFrame + frame * kFrameWidth + kFrameWidth / 2;
}

QPoint InRow(const QImage& window, const QString& row, int x)
{
    const int y = MiddleOf(window, row);
    return y < 0 ? QPoint() : QPoint(x, y);
}

} // namespace

QPoint Ruler(int frame)
{
    return {MiddleOfFrame(frame), kRulerY};
}

QPoint Cell(const QImage& window, const QString& row, int frame)
{
    return InRow(window, row, MiddleOfFrame(frame));
}

QPoint Caption(const QImage& window, const QString& row)
{
    return InRow(window, row, kCaptionX);
}

QPoint Button(const QImage& window, const QString& row, CaptionButton button)
{
    switch (button) {
    case CaptionButton::Menu:
        return InRow(window, row, kMenuX);
    case CaptionButton::Mute:
        return InRow(window, row, kMuteX);
    case CaptionButton::Lock:
        return InRow(window, row, kLockX);
    }
    return {};
}

int CountOfRows(const QImage& window)
{
    return RowMiddles(window).size();
}

int CurrentFrame(const QImage& window)
{
    for (int x = kFirstFrame - 1; x < window.width(); ++x) {
        if (window.pixel(x, kRulerY) == kCurrentMarker)
            return (x + 1 - kFirstFrame) / kFrameWidth;
    }
    return -1;
}

} // namespace Places
