#include "JsonWriter.h"

#include <QLocale>

#include <algorithm>
#include <array>
#include <charconv>

namespace host {

namespace {

constexpr int kIndent = 1;        ///< spaces; scenes are deep, and every key is indented
constexpr int kFloatDigits = 9;   ///< enough to tell any two floats apart
constexpr int kLongestFloat = 24; ///< characters, with room to spare
constexpr ushort kFirstPrintable = 0x20;

/// Whether the surrogate at @p index lacks its partner: UTF-8 cannot hold it.
bool IsLoneSurrogate(const QString& text, int index)
{
    const QChar c = text[index];
    if (c.isHighSurrogate())
        return index + 1 >= text.size() || !text[index + 1].isLowSurrogate();
    return c.isLowSurrogate() && (index == 0 || !text[index - 1].isHighSurrogate());
}

QString Escaped(const QString& text)
{
    QString escaped;
    escaped.reserve(text.size() + 2);
    for (int i = 0; i < text.size(); ++i) {
        const ushort c = text[i].unicode();
        if (c == u'"' || c == u'\\')
            escaped += QLatin1Char('\\') + text[i];
        else if (c < kFirstPrintable || c == QChar::ByteOrderMark || IsLoneSurrogate(text, i))
            escaped += QStringLiteral("\\u%1").arg(c, 4, 16, QLatin1Char('0'));
        else
            escaped += text[i];
    }
    return escaped;
}

} // namespace

void JsonWriter::BeginObject(Layout layout)
{
    Begin('{', layout);
}

void JsonWriter::BeginArray(Layout layout)
{
    Begin('[', layout);
}

void JsonWriter::Name(const char* name)
{
    BeforeValue();
    m_text.append('"').append(name).append("\": ");
    m_isNamed = true;
}

void JsonWriter::Value(int value)
{
    Write(QByteArray::number(value));
}

void JsonWriter::Value(bool value)
{
    Write(value ? QByteArrayLiteral("true") : QByteArrayLiteral("false"));
}

void JsonWriter::Value(float value)
{
    // A motion has millions of them: the fewest digits, written without a detour.
    std::array<char, kLongestFloat> text{};
    char* const begin = text.data();
    char* end = std::to_chars(begin, begin + text.size(), value).ptr;
    // Readers make a double of the digits first, which may round them the wrong way.
    double read = 0;
    std::from_chars(begin, end, read);
    if (static_cast<float>(read) != value) {
        end = std::to_chars(begin, begin + text.size(), static_cast<double>(value),
                            std::chars_format::general, kFloatDigits)
                  .ptr;
    }
    BeforeValue();
    m_text.append(begin, static_cast<int>(end - begin));
}

void JsonWriter::Value(double value)
{
    Write(QByteArray::number(value, 'g', QLocale::FloatingPointShortest));
}

void JsonWriter::Value(const QString& text)
{
    Write('"' + Escaped(text).toUtf8() + '"');
}

void JsonWriter::Begin(char bracket, Layout layout)
{
    BeforeValue();
    m_text.append(bracket);
    m_levels.append({layout, true});
}

void JsonWriter::End(char bracket)
{
    const Level ended = m_levels.takeLast();
    if (ended.layout == Layout::Lines && !ended.isEmpty)
        BreakLine();
    m_text.append(bracket);
    if (m_levels.isEmpty())
        m_text.append('\n');
}

void JsonWriter::BeforeValue()
{
    if (m_isNamed) {
        m_isNamed = false;
        return;
    }
    if (m_levels.isEmpty())
        return;
    Level& level = m_levels.last();
    if (!level.isEmpty)
        m_text.append(level.layout == Layout::Lines ? "," : ", ");
    level.isEmpty = false;
    if (level.layout == Layout::Lines)
        BreakLine();
}

void JsonWriter::BreakLine()
{
    const auto isOfLines = [](const Level& level) { return level.layout == Layout::Lines; };
    const auto depth = std::count_if(m_levels.cbegin(), m_levels.cend(), isOfLines);
    m_text.append('\n').append(static_cast<int>(depth) * kIndent, ' ');
}

void JsonWriter::Write(const QByteArray& token)
{
    BeforeValue();
    m_text.append(token);
}

} // namespace host
