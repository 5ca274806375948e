#include "JsonNode.h"

#include <algorithm>
#include <cmath>

namespace host {

int JsonNode::Whole(WholeRange range) const
{
    const double value = m_value.toDouble(std::numeric_limits<double>::quiet_NaN());
    if (!(value == std::floor(value)) || value < std::numeric_limits<int>::min() ||
        value > std::numeric_limits<int>::max()) {
        Refuse(QStringLiteral("a whole number"));
        return std::max(0, range.least);
    }
    const int whole = static_cast<int>(value);
    if (whole < range.least)
        Refuse(QStringLiteral("%1 or more, found %2").arg(range.least).arg(whole));
    if (whole > range.most)
        Refuse(QStringLiteral("%1 or less, found %2").arg(range.most).arg(whole));
    return std::clamp(whole, range.least, range.most);
}

double JsonNode::Real() const
{
    if (!m_value.isDouble())
        Refuse(QStringLiteral("a number"));
    return m_value.toDouble();
}

bool JsonNode::Flag() const
{
    if (!m_value.isBool())
        Refuse(QStringLiteral("true or false"));
    return m_value.toBool();
}

QString JsonNode::Text(int longest) const
{
    if (!m_value.isString())
        Refuse(QStringLiteral("a text"));
    return m_value.toString().left(longest);
}

int JsonNode::ChoiceOf(const char* const* names, int count) const
{
    const QString text = m_value.toString();
    QStringList known;
    for (int i = 0; i < count; ++i) {
        if (text == QLatin1String(names[i]))
            return i;
        known.append(QLatin1String(names[i]));
    }
    Refuse(QStringLiteral("one of ") + known.join(QStringLiteral(", ")));
    return 0;
}

void JsonNode::Refuse(const QString& expected) const
{
    if (!m_fault.isEmpty())
        return;
    const QString path = Path();
    m_fault = (path.isEmpty() ? QString() : path + QStringLiteral(": ")) +
              QStringLiteral("expected ") + expected;
}

QString JsonNode::Path() const
{
    if (!m_above)
        return {};
    const QString above = m_above->Path();
    if (!m_name)
        return QStringLiteral("%1[%2]").arg(above).arg(m_index);
    return above.isEmpty() ? QString::fromLatin1(m_name) : above + u'.' + QLatin1String(m_name);
}

JsonMembers::JsonMembers(const JsonNode& node) : m_node(node), m_object(node.m_value.toObject())
{
    if (!node.m_value.isObject())
        node.Refuse(QStringLiteral("an object"));
}

bool JsonMembers::Find(const char* name)
{
    const bool isThere = m_object.contains(QLatin1String(name));
    m_known.append(name);
    m_found += isThere ? 1 : 0;
    return isThere;
}

JsonNode JsonMembers::Found(const char* name) const
{
    return JsonNode(m_object.value(QLatin1String(name)), m_node, name, 0);
}

JsonNode JsonMembers::At(const char* name)
{
    if (!Find(name))
        m_node.Refuse(QStringLiteral("a member \"%1\"").arg(QLatin1String(name)));
    return Found(name);
}

void JsonMembers::Finish() const
{
    if (m_node.HasFault() || m_found == m_object.size())
        return;
    for (const QString& name : m_object.keys()) {
        const auto isThis = [&name](const char* known) { return name == QLatin1String(known); };
        if (std::none_of(m_known.begin(), m_known.end(), isThis))
            m_node.Refuse(QStringLiteral("no member \"%1\"").arg(name));
    }
}

int JsonMembers::Whole(const char* name, int otherwise, WholeRange range)
{
    return Find(name) ? Found(name).Whole(range) : otherwise;
}

bool JsonMembers::Flag(const char* name)
{
    return Find(name) && Found(name).Flag();
}

QString JsonMembers::Text(const char* name, int longest)
{
    return Find(name) ? Found(name).Text(longest) : QString();
}

} // namespace host
