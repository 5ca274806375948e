#include "FacePainter.h"

#include "Backdrop.h"
#include "MouthPainter.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace host {

namespace {

// The face is laid out on a sheet of this size and scaled to the place it is given.
constexpr QSizeF kSheet(240, 240);
constexpr double kMiddle = 120;
constexpr double kEyeLine = 104;
constexpr double kEyeDistance = 31; ///< from the middle
constexpr double kMouthLine = 171;
constexpr double kMouthHalfWidth = 30;
constexpr double kChin = 207;
constexpr double kJawDrop = 13; ///< that the chin goes down with the mouth wide open
constexpr double kBrowRise = 3;

const QColor kSkin(216, 178, 152);
const QColor kSkinLight(230, 195, 170);
const QColor kSkinShade(176, 136, 113);
const QColor kSkinDeep(146, 108, 90);
const QColor kHair(58, 48, 50);
const QColor kHairLight(82, 68, 68);
const QColor kShirt(62, 98, 104);
const QColor kShirtShade(46, 76, 82);
const QColor kEyeWhite(238, 238, 234);
const QColor kIris(64, 148, 136);
const QColor kPupil(26, 28, 32);
const QColor kLash(60, 44, 42);

/// A path of the left half, mirrored about the middle of the face.
QPainterPath Mirrored(const QPainterPath& left)
{
    const QTransform mirror(-1, 0, 0, 1, 2 * kMiddle, 0);
    return mirror.map(left);
}

void PaintShoulders(QPainter& painter)
{
    QPainterPath neck;
    neck.addRoundedRect(QRectF(kMiddle - 27, 176, 54, 64), 16, 16);
    QPainterPath shirt(QPointF(34, 252));
    shirt.cubicTo(44, 224, 74, 222, 92, 216);
    shirt.quadTo(kMiddle, 240, 148, 216);
    shirt.cubicTo(166, 222, 196, 224, 206, 252);
    shirt.closeSubpath();
    painter.fillPath(neck, kSkinDeep);
    painter.fillPath(shirt, kShirt);
    painter.strokePath(shirt, QPen(kShirtShade, 2));
}

void PaintHairBehind(QPainter& painter)
{
    QPainterPath hair;
    hair.addEllipse(QPointF(kMiddle, 92), 76, 74);
    painter.fillPath(hair, kHair);
}

void PaintEars(QPainter& painter)
{
    QPainterPath ear;
    ear.addEllipse(QPointF(50, 116), 10, 17);
    QPainterPath inner;
    inner.addEllipse(QPointF(50, 117), 5, 10);
    for (const QPainterPath& each : {ear, Mirrored(ear)})
        painter.fillPath(each, kSkinShade);
    for (const QPainterPath& each : {inner, Mirrored(inner)})
        painter.fillPath(each, kSkinDeep);
}

void PaintHead(QPainter& painter, double chin)
{
    QPainterPath head(QPointF(52, 96));
    head.cubicTo(52, 50, 80, 28, kMiddle, 28);
    head.cubicTo(160, 28, 188, 50, 188, 96);
    head.cubicTo(188, 150, 174, chin - 14, 146, chin - 3);
    head.cubicTo(134, chin + 3, 106, chin + 3, 94, chin - 3);
    head.cubicTo(66, chin - 14, 52, 150, 52, 96);
    head.closeSubpath();
    QLinearGradient light(52, 60, 188, 150);
    light.setColorAt(0, kSkinLight);
    light.setColorAt(0.55, kSkin);
    light.setColorAt(1, kSkinShade);
    painter.fillPath(head, light);
    painter.strokePath(head, QPen(kSkinShade.darker(112), 1.2));
}

void PaintFringe(QPainter& painter)
{
    QPainterPath fringe(QPointF(49, 104));
    fringe.cubicTo(44, 44, 82, 16, 124, 17);
    fringe.cubicTo(168, 18, 196, 48, 191, 104);
    fringe.cubicTo(184, 80, 176, 70, 160, 62);
    fringe.cubicTo(132, 68, 96, 66, 82, 54);
    fringe.cubicTo(66, 66, 56, 80, 49, 104);
    fringe.closeSubpath();
    QLinearGradient light(60, 20, 180, 90);
    light.setColorAt(0, kHairLight);
    light.setColorAt(1, kHair);
    painter.fillPath(fringe, light);
}

QPainterPath EyeShape(double x)
{
    QPainterPath eye(QPointF(x - 15, kEyeLine + 1));
    eye.cubicTo(x - 9, kEyeLine - 12, x + 9, kEyeLine - 12, x + 15, kEyeLine + 1);
    eye.cubicTo(x + 9, kEyeLine + 10, x - 9, kEyeLine + 10, x - 15, kEyeLine + 1);
    return eye;
}

/// The lid's edge: from the eye's upper rim when it is open to the lower one when it is shut.
double LidBend(float lids)
{
    constexpr double kOpen = -12;
    constexpr double kShut = 9;
    return kEyeLine + kOpen + (kShut - kOpen) * lids;
}

void PaintEye(QPainter& painter, double x, float lids)
{
    const QPainterPath shape = EyeShape(x);
    painter.fillPath(shape, kEyeWhite);
    painter.save();
    painter.setClipPath(shape, Qt::IntersectClip);
    painter.setPen(Qt::NoPen);
    painter.setBrush(kIris);
    painter.drawEllipse(QPointF(x, kEyeLine - 0.5), 7.4, 7.8);
    painter.setBrush(kPupil);
    painter.drawEllipse(QPointF(x, kEyeLine - 0.5), 3.6, 3.8);
    painter.setBrush(QColor(255, 255, 255, 220));
    painter.drawEllipse(QPointF(x - 2.6, kEyeLine - 3.4), 1.7, 1.7);
    painter.restore();

    const double bend = LidBend(lids);
    QPainterPath lid(QPointF(x - 15, kEyeLine + 1));
    lid.cubicTo(x - 9, bend, x + 9, bend, x + 15, kEyeLine + 1);
    if (lids > 0) {
        QPainterPath cover = lid;
        cover.cubicTo(x + 10, kEyeLine - 14, x - 10, kEyeLine - 14, x - 15, kEyeLine + 1);
        painter.fillPath(cover, kSkinShade);
    }
    painter.strokePath(lid, QPen(kLash, 2.6, Qt::SolidLine, Qt::RoundCap));
}

void PaintBrow(QPainter& painter, double x, double outwards, double rise)
{
    const double y = kEyeLine - 23 - rise;
    QPainterPath brow(QPointF(x - outwards * 14, y + 3));
    brow.quadTo(x + outwards * 2, y - 5, x + outwards * 17, y + 3);
    painter.strokePath(brow, QPen(kHair, 4.2, Qt::SolidLine, Qt::RoundCap));
}

void PaintNose(QPainter& painter)
{
    QPainterPath nose(QPointF(kMiddle - 3, 106));
    nose.cubicTo(kMiddle - 6, 124, kMiddle - 12, 136, kMiddle - 8, 140);
    nose.quadTo(kMiddle, 146, kMiddle + 8, 140);
    painter.strokePath(nose, QPen(kSkinShade.darker(108), 2, Qt::SolidLine, Qt::RoundCap));
}

void PaintCheeks(QPainter& painter)
{
    for (const double x : {kMiddle - 44, kMiddle + 44}) {
        QRadialGradient blush(QPointF(x, 140), 20);
        blush.setColorAt(0, QColor(206, 120, 104, 70));
        blush.setColorAt(1, QColor(206, 120, 104, 0));
        painter.fillRect(QRectF(x - 20, 120, 40, 40), blush);
    }
}

} // namespace

void PaintFace(QPainter& painter, const QRectF& area, const FacePose& pose)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    PaintBackdrop(painter, area);
    const double scale = std::min(area.width() / kSheet.width(), area.height() / kSheet.height());
    painter.setClipRect(area, Qt::IntersectClip);
    painter.translate(area.center().x() - kMiddle * scale, area.bottom() - kSheet.height() * scale);
    painter.scale(scale, scale);

    const double drop = kJawDrop * pose.mouth.jaw;
    PaintHairBehind(painter);
    PaintShoulders(painter);
    PaintEars(painter);
    PaintHead(painter, kChin + drop);
    PaintCheeks(painter);
    PaintFringe(painter);
    PaintNose(painter);
    for (const double side : {-1.0, 1.0}) {
        PaintEye(painter, kMiddle + side * kEyeDistance, pose.lids);
        PaintBrow(painter, kMiddle + side * kEyeDistance, side, kBrowRise * pose.mouth.jaw);
    }
    painter.translate(kMiddle, kMouthLine);
    painter.scale(kMouthHalfWidth, kMouthHalfWidth);
    PaintMouth(painter, pose.mouth);
    painter.restore();
}

} // namespace host
