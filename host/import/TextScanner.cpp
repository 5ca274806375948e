#include "TextScanner.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace host {

namespace {

constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";

bool IsSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f';
}

/// What old systems fill the end of a text with.
bool IsFilling(char c)
{
    constexpr char kEndOfText = 0x1A;
    return c == '\0' || c == kEndOfText || IsSpace(c);
}

int EndOf(const QByteArray& text)
{
    const auto last = std::find_if_not(text.crbegin(), text.crend(), IsFilling);
    const auto filling = std::find_if(text.crbegin(), last, [](char c) { return !IsSpace(c); });
    return filling == last ? text.size() : static_cast<int>(text.crend() - last);
}

bool IsBrace(char c)
{
    return c == '{' || c == '}';
}

} // namespace

TextScanner::TextScanner(QByteArray text) : m_text(std::move(text))
{
    m_text.truncate(EndOf(m_text));
    if (m_text.startsWith(kByteOrderMark))
        m_position = static_cast<int>(std::strlen(kByteOrderMark));
}

QByteArray TextScanner::Peek()
{
    SkipSpace();
    return m_text.mid(m_position, WordEnd() - m_position);
}

QByteArray TextScanner::Take()
{
    const QByteArray word = Peek();
    Advance(m_position + word.size());
    return word;
}

bool TextScanner::TakeIfNext(const char* expected)
{
    SkipSpace();
    const int length = static_cast<int>(std::strlen(expected));
    if (m_text.mid(m_position, length).compare(expected, Qt::CaseInsensitive) != 0)
        return false;
    Advance(m_position + length);
    return true;
}

bool TextScanner::TakeWord(const char* expected)
{
    if (Peek().compare(expected, Qt::CaseInsensitive) != 0)
        return false;
    Take();
    return true;
}

bool TextScanner::AtEnd()
{
    SkipSpace();
    return m_position == m_text.size();
}

bool TextScanner::AtLineEnd()
{
    return AtEnd() || m_line != m_lastLine;
}

int TextScanner::Line()
{
    return AtEnd() ? m_lastLine : m_line;
}

void TextScanner::SkipSpace()
{
    while (m_position < m_text.size() && IsSpace(m_text.at(m_position))) {
        const char c = m_text.at(m_position++);
        const bool pairFollows =
            c == '\r' && m_position < m_text.size() && m_text.at(m_position) == '\n';
        if (c == '\n' || (c == '\r' && !pairFollows))
            ++m_line;
    }
}

int TextScanner::WordEnd() const
{
    int end = m_position;
    if (end < m_text.size() && IsBrace(m_text.at(end)))
        return end + 1;
    while (end < m_text.size() && !IsSpace(m_text.at(end)) && !IsBrace(m_text.at(end)))
        ++end;
    return end;
}

void TextScanner::Advance(int end)
{
    if (end > m_position)
        m_lastLine = m_line;
    m_position = end;
}

} // namespace host
