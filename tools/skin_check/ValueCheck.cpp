#include "ValueCheck.h"

#include <QStringList>

#include <array>

namespace {

QString Expected(const QString& what, const QString& value)
{
    return QStringLiteral("expected %1, found \"%2\"").arg(what, value);
}

QString WithUnit(const QString& range, const KeyFact& fact)
{
    return *fact.unit ? range + ' ' + QLatin1String(fact.unit) : range;
}

/// The whole numbers of "(1,2,3)"; none when it is anything else.
QVector<int> Components(const QString& value)
{
    if (!value.startsWith('(') || !value.endsWith(')'))
        return {};
    QVector<int> components;
    for (const QString& piece : value.mid(1, value.size() - 2).split(',')) {
        bool isNumber = false;
        components << piece.toInt(&isNumber);
        if (!isNumber)
            return {};
    }
    return components;
}

QString FaultOfNumber(const QString& value, SkinValueKind kind, const KeyFact& fact)
{
    bool isNumber = false;
    const int number = value.toInt(&isNumber);
    if (!isNumber)
        return Expected(KindText(kind), value);
    if (!fact.range.Contains(number))
        return Expected(WithUnit(RangeText(fact.range), fact), value);
    return {};
}

QString FaultOfComponents(const QString& value, SkinValueKind kind, int count, const KeyFact& fact)
{
    const QVector<int> components = Components(value);
    if (components.size() != count)
        return Expected(KindText(kind), value);
    for (const int component : components) {
        if (!fact.range.Contains(component)) {
            return Expected(QStringLiteral("%1 of %2 each")
                                .arg(KindText(kind), WithUnit(RangeText(fact.range), fact)),
                            value);
        }
    }
    return {};
}

QString FaultOfText(const QString& value, const KeyFact& fact)
{
    constexpr int kShown = 40;
    if (value.size() < fact.range.least)
        return QStringLiteral("expected a text, found none");
    if (value.size() > fact.range.most) {
        return QStringLiteral("expected at most %1 characters, found %2: \"%3...\"")
            .arg(fact.range.most)
            .arg(value.size())
            .arg(value.left(kShown));
    }
    return {};
}

} // namespace

QString FaultOfValue(const QString& value, SkinValueKind kind, const KeyFact& fact)
{
    switch (kind) {
    case SkinValueKind::Number:
        return FaultOfNumber(value, kind, fact);
    case SkinValueKind::Point:
        return FaultOfComponents(value, kind, 2, fact);
    case SkinValueKind::Colour:
        return FaultOfComponents(value, kind, 3, fact);
    case SkinValueKind::ColourWithAlpha:
        return FaultOfComponents(value, kind, 4, fact);
    case SkinValueKind::Text:
    case SkinValueKind::Section:
    case SkinValueKind::OptionalSection:
        break;
    }
    return FaultOfText(value, fact);
}
