#include "skin/SkinSection.h"

#include "skin/SkinFont.h"
#include "skin/SkinValues.h"

#include <utility>

bool SkinSection::Read(const std::wstring& key, int& number) const
{
    return m_source.ReadInt(m_name, key, number);
}

bool SkinSection::Read(const std::wstring& key, QString& text) const
{
    std::wstring wide;
    if (!m_source.ReadText(m_name, key, wide))
        return false;
    text = QString::fromStdWString(wide);
    return true;
}

bool SkinSection::Read(const std::wstring& key, QPoint& point) const
{
    return ReadParsed(key, ParsePoint, point);
}

bool SkinSection::Read(const std::wstring& key, StyleColour& colour) const
{
    return ReadParsed(key, ParseColour, colour);
}

bool SkinSection::ReadWithAlpha(const std::wstring& key, StyleColour& colour) const
{
    return ReadParsed(key, ParseColourWithAlpha, colour);
}

bool SkinSection::Read(const std::wstring& key, StylePen& pen) const
{
    return ReadParsed(key, ParsePen, pen);
}

bool SkinSection::Read(const std::wstring& key, StyleBrush& brush) const
{
    return ReadParsed(key, ParseBrush, brush);
}

bool SkinSection::Read(const std::wstring& key, const std::wstring& selectedKey,
                       StylePenPair& pens) const
{
    return Read(key, pens.entries[0]) && Read(selectedKey, pens.entries[1]);
}

bool SkinSection::Read(const std::wstring& key, const std::wstring& selectedKey,
                       StyleBrushPair& brushes) const
{
    return Read(key, brushes.entries[0]) && Read(selectedKey, brushes.entries[1]);
}

bool SkinSection::Read(const std::wstring& key, const std::wstring& selectedKey,
                       StyleColour (&colours)[2]) const
{
    return Read(key, colours[0]) && Read(selectedKey, colours[1]);
}

bool SkinSection::ReadFontFace(const std::wstring& key, QFont& font) const
{
    QString face;
    if (!Read(key, face))
        return false;
    font.setFamily(face);
    return true;
}

bool SkinSection::ReadPointSize(const std::wstring& key, QFont& font) const
{
    int points = 0;
    if (!Read(key, points))
        return false;
    SetPointSize(font, points);
    return true;
}

std::optional<SkinSection> SkinSection::Follow(const std::wstring& key) const
{
    std::wstring name;
    if (!m_source.ReadText(m_name, key, name))
        return std::nullopt;
    return SkinSection(m_source, std::move(name));
}

template <typename Value>
bool SkinSection::ReadParsed(const std::wstring& key, Value (*parse)(const QString&),
                             Value& value) const
{
    QString text;
    if (!Read(key, text))
        return false;
    value = parse(text);
    return true;
}
