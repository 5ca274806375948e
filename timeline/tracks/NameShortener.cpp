#include "tracks/NameShortener.h"

#include <algorithm>

namespace {

const QLatin1String kEllipsis("...");

/// True when every further character makes a text wider: separate letters, digits and signs of
/// scripts that are set one glyph beside the other. Marks, joining scripts and halves of surrogate
/// pairs can make a longer text narrower.
bool GrowsWithEachCharacter(const QString& text)
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

} // namespace

QString NameShortener::Fitted(const QString& name, int width) const
{
    if (width < 0)
        return QString();
    const int wholeWidth = WidthOf(name);
    if (wholeWidth <= width)
        return name;

    const auto shortened = [&](int count) { return name.left(count) + kEllipsis; };
    const auto fits = [&](int count) { return WidthOf(shortened(count)) <= width; };
    if (GrowsWithEachCharacter(name)) {
        // Walk from where the cut would be if all characters were of one width.
        int tooLong = name.length() + 1;
        int fitting = -1;
        int count = static_cast<int>(static_cast<long long>(name.length()) * width / wholeWidth);
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
