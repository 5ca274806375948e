#include "tracks/NameShortener.h"

#include <algorithm>

namespace {

const QLatin1String kEllipsis("...");

} // namespace

bool IsSetGlyphByGlyph(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) {
        if (!c.isPrint() || c.isMark() || c.isSurrogate())
            return false;
        switch (c.script()) {
        case QChar::Script_Common:
        case QChar::Script_Latin:
        case QChar::Script_Greek:
        case QChar::Script_Cyrillic:
        case QChar::Script_Han:
        case QChar::Script_Hiragana:
        case QChar::Script_Katakana:
            return true;
        default:
            return false;
        }
    });
}

QString NameShortener::Fitted(const QString& name, int width) const
{
    if (width < 0)
        return QString();
    return WidthOf(name) <= width ? name : Cut(name, width);
}

QString NameShortener::Cut(const QString& name, int width) const
{
    const auto shortened = [&](int count) { return name.left(count) + kEllipsis; };
    const auto fits = [&](int count) { return WidthOf(shortened(count)) <= width; };
    if (IsSetGlyphByGlyph(name)) {
        // Walk from where the cut would be if all characters were of one width.
        int tooLong = name.length() + 1;
        int fitting = -1;
        const long long wholeWidth = std::max(WidthOf(name), 1);
        int count = static_cast<int>(name.length() * width / wholeWidth);
        while (tooLong - fitting > 1) {
            count = std::clamp(count, fitting + 1, tooLong - 1);
            if (fits(count))
                fitting = count++;
            else
                tooLong = count--;
        }
        if (fitting >= 0)
            return shortened(fitting);
    } else {
        for (int count = name.length(); count >= 0; --count) {
            if (fits(count))
                return shortened(count);
        }
    }

    for (int dots = kEllipsis.size() - 1; dots > 0; --dots) {
        const QString rest = QString(kEllipsis).left(dots);
        if (WidthOf(rest) <= width)
            return rest;
    }
    return QString();
}

int NameShortener::WidthOf(const QString& text) const
{
    return m_metrics.size(Qt::TextSingleLine, text).width();
}
