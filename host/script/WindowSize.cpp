#include "WindowSize.h"

#include <QRegularExpression>

namespace host {

namespace {

constexpr int kLargestSide = 16384; ///< pixels; a window beyond it cannot be painted

} // namespace

std::optional<QSize> ReadWindowSize(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("^([0-9]{1,5})x([0-9]{1,5})$"));
    const QRegularExpressionMatch match = pattern.match(text);
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    if (!match.hasMatch() || size.isEmpty() || size.width() > kLargestSide ||
        size.height() > kLargestSide)
        return std::nullopt;
    return size;
}

} // namespace host
