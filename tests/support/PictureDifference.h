#pragma once

#include <QImage>
#include <QRect>
#include <QString>

/// How many pixels differ, and where.
inline QString DifferenceOf(const QImage& a, const QImage& b)
{
    if (a.size() != b.size())
        return QStringLiteral("%1x%2 against %3x%4")
            .arg(a.width())
            .arg(a.height())
            .arg(b.width())
            .arg(b.height());
    QRect different;
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y)) {
                different |= QRect(x, y, 1, 1);
                ++count;
            }
        }
    }
    return QStringLiteral("%1 pixels differ, between (%2,%3) and (%4,%5)")
        .arg(count)
        .arg(different.left())
        .arg(different.top())
        .arg(different.right())
        .arg(different.bottom());
}
