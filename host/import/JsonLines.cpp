#include "JsonLines.h"

#include <algorithm>

namespace host {

namespace {

constexpr char kSpace[] = " \t\r\n";

bool IsOneOf(char c, const char* set)
{
    for (; *set != '\0'; ++set) {
        if (*set == c)
            return true;
    }
    return false;
}

} // namespace

int JsonLines::LineAt(int offset) const
{
    const auto end = m_text.begin() + std::clamp(offset, 0, m_text.size());
    return 1 + static_cast<int>(std::count(m_text.begin(), end, '\n'));
}

int JsonLines::LineOfTokenBefore(int offset) const
{
    int end = std::clamp(offset, 0, m_text.size());
    while (end > 0 && IsOneOf(m_text.at(end - 1), kSpace))
        --end;
    return LineAt(end);
}

int JsonLines::LineOf(const QByteArray& key) const
{
    return LineAt(FindValue(key));
}

int JsonLines::LineOfElement(const QByteArray& key, int index) const
{
    const int array = FindValue(key);
    if (array >= m_text.size() || m_text.at(array) != '[')
        return LineAt(array);
    int position = SkipSpace(array + 1);
    for (int i = 0; position < m_text.size() && m_text.at(position) != ']'; ++i) {
        if (i == index)
            return LineAt(position);
        position = SkipSpace(SkipValue(position));
        if (position < m_text.size() && m_text.at(position) == ',')
            position = SkipSpace(position + 1);
    }
    return LineAt(array);
}

int JsonLines::FindValue(const QByteArray& key) const
{
    const int object = std::max(0, m_text.indexOf('{'));
    int position = SkipSpace(object + 1);
    while (position < m_text.size() && m_text.at(position) == '"') {
        const int nameEnd = SkipString(position);
        const QByteArray name = m_text.mid(position + 1, nameEnd - position - 2);
        const int value = SkipSpace(SkipSpace(nameEnd) + 1); // past the colon
        if (name == key)
            return value;
        position = SkipSpace(SkipValue(value));
        if (position < m_text.size() && m_text.at(position) == ',')
            position = SkipSpace(position + 1);
    }
    return SkipSpace(object);
}

int JsonLines::SkipSpace(int position) const
{
    while (position < m_text.size() && IsOneOf(m_text.at(position), kSpace))
        ++position;
    return position;
}

int JsonLines::SkipValue(int position) const
{
    int depth = 0;
    while (position < m_text.size()) {
        const char c = m_text.at(position);
        if (depth == 0 && IsOneOf(c, ",]}"))
            return position;
        if (c == '"') {
            position = SkipString(position);
            continue;
        }
        depth += IsOneOf(c, "[{") ? 1 : IsOneOf(c, "]}") ? -1 : 0;
        ++position;
    }
    return position;
}

int JsonLines::SkipString(int position) const
{
    for (++position; position < m_text.size(); ++position) {
        if (m_text.at(position) == '\\')
            ++position;
        else if (m_text.at(position) == '"')
            return position + 1;
    }
    return m_text.size();
}

} // namespace host
