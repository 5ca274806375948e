#include "MouthShapes.h"

#include <QCoreApplication>

#include <array>

namespace host {

namespace {

/// A value's place in the row is its variant.
const QString kCueValues = QStringLiteral("XABCDEFGH");

/// For each variant that has a cue value.
constexpr std::array<const char*, kLastCueShape + 1> kDescriptions{
    QT_TRANSLATE_NOOP("MouthShapes", "at rest"),
    QT_TRANSLATE_NOOP("MouthShapes", "pressed (m, b, p)"),
    QT_TRANSLATE_NOOP("MouthShapes", "teeth closed (s, t, ee)"),
    QT_TRANSLATE_NOOP("MouthShapes", "open (eh, ae)"),
    QT_TRANSLATE_NOOP("MouthShapes", "wide open (aa)"),
    QT_TRANSLATE_NOOP("MouthShapes", "rounded (ao, er)"),
    QT_TRANSLATE_NOOP("MouthShapes", "puckered (uw, w)"),
    QT_TRANSLATE_NOOP("MouthShapes", "teeth on the lip (f, v)"),
    QT_TRANSLATE_NOOP("MouthShapes", "tongue up (l)")};

bool HasCue(int shape)
{
    return shape >= 0 && shape <= kLastCueShape;
}

} // namespace

std::optional<int> MouthShapeOfCue(const QString& value)
{
    if (value.size() != 1)
        return std::nullopt;
    const int shape = kCueValues.indexOf(value);
    if (shape < 0)
        return std::nullopt;
    return shape;
}

QString CueOfMouthShape(int shape)
{
    return HasCue(shape) ? QString(kCueValues.at(shape)) : QString();
}

QString ShortNameOfMouthShape(int shape)
{
    return HasCue(shape) ? CueOfMouthShape(shape) : QString::number(shape);
}

QString DescriptionOfMouthShape(int shape)
{
    if (!HasCue(shape))
        return {};
    return QCoreApplication::translate("MouthShapes",
                                       kDescriptions[static_cast<std::size_t>(shape)]);
}

} // namespace host
