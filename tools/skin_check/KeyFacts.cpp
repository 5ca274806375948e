#include "KeyFacts.h"

#include "KeyFactTable.h"

namespace {

const QString kButton = QStringLiteral("CaptionBtn");
constexpr auto kAnyName = "*";

bool Matches(const char* pattern, const QString& name)
{
    return QLatin1String(pattern) == QLatin1String(kAnyName) || name == QLatin1String(pattern);
}

/// Of two facts about a key the one that names more counts: its section first, then its track.
int Exactness(const KeyFact& fact)
{
    return (QLatin1String(fact.via) != QLatin1String(kAnyName) ? 2 : 0) +
           (QLatin1String(fact.track) != QLatin1String(kAnyName) ? 1 : 0);
}

bool SameCondition(const KeyFact& one, const KeyFact& other)
{
    return QLatin1String(one.whenKey) == QLatin1String(other.whenKey) &&
           one.whenValue == other.whenValue;
}

} // namespace

QString ButtonlessName(const QString& name, bool namesButton)
{
    return namesButton && name.startsWith(kButton) ? kButton : name;
}

QVector<const KeyFact*> FactsOf(const QString& trackKind, const RecordedRead& read)
{
    const QString via = ButtonlessName(read.via, true);
    const QString key = ButtonlessName(read.key, read.kind == SkinValueKind::OptionalSection);
    QVector<const KeyFact*> facts;
    for (const KeyFact& fact : KeyFactTable::kFacts) {
        // "*" stands for the looks that a track's section names, not for the section itself.
        const bool viaFits =
            via.isEmpty() ? QLatin1String(fact.via).isEmpty() : Matches(fact.via, via);
        if (!Matches(fact.track, trackKind) || !viaFits || key != QLatin1String(fact.key))
            continue;
        bool isReplaced = false;
        for (const KeyFact*& known : facts) {
            if (!SameCondition(*known, fact))
                continue;
            isReplaced = true;
            if (Exactness(fact) > Exactness(*known))
                known = &fact;
        }
        if (!isReplaced)
            facts << &fact;
    }
    return facts;
}

const KeyFact* FactOf(const QString& trackKind, const RecordedRead& read,
                      const std::function<int(const QString&)>& numberOf)
{
    for (const KeyFact* fact : FactsOf(trackKind, read)) {
        if (!fact->whenKey || numberOf(QLatin1String(fact->whenKey)) == fact->whenValue)
            return fact;
    }
    return nullptr;
}

QVector<const KeyFact*> AllFacts()
{
    QVector<const KeyFact*> facts;
    for (const KeyFact& fact : KeyFactTable::kFacts)
        facts << &fact;
    return facts;
}

QString RangeText(const ValueRange& range)
{
    constexpr ValueRange kAny;
    if (range.IsSingle())
        return QString::number(range.least);
    if (range.least == kAny.least && range.most == kAny.most)
        return QStringLiteral("any");
    if (range.most == kAny.most)
        return QStringLiteral("%1 or more").arg(range.least);
    return QStringLiteral("%1 to %2").arg(range.least).arg(range.most);
}

QString KindText(SkinValueKind kind)
{
    switch (kind) {
    case SkinValueKind::Number:
        return QStringLiteral("a whole number");
    case SkinValueKind::Text:
        return QStringLiteral("a text");
    case SkinValueKind::Point:
        return QStringLiteral("a point (x,y)");
    case SkinValueKind::Colour:
        return QStringLiteral("a colour (red,green,blue)");
    case SkinValueKind::ColourWithAlpha:
        return QStringLiteral("a colour (red,green,blue,alpha)");
    case SkinValueKind::Section:
    case SkinValueKind::OptionalSection:
        break;
    }
    return QStringLiteral("the name of a section");
}
