#include "skin/SkinSection.h"

#include "skin/SkinFont.h"
#include "skin/SkinValues.h"

#include <utility>

bool SkinSection::Read(const std::wstring& key, int& number) const
{
    m_source.AboutToRead({m_name, key, m_via, SkinValueKind::Number});
    return m_source.ReadInt(m_name, key, number);
}

bool SkinSection::Read(const std::wstring& key, QString& text) const
{
    return ReadText(key, SkinValueKind::Text, text);
}

bool SkinSection::Read(const std::wstring& key, QPoint& point) const
{
    return ReadParsed(key, SkinValueKind::Point, ParsePoint, point);
}

bool SkinSection::Read(const std::wstring& key, StyleColour& colour) const
{
    return ReadParsed(key, SkinValueKind::Colour, ParseColour, colour);
}

bool SkinSection::ReadWithAlpha(const std::wstring& key, StyleColour& colour) const
{
    return ReadParsed(key, SkinValueKind::ColourWithAlpha, ParseColourWithAlpha, colour);
}

bool SkinSection::Read(const std::wstring& key, StylePen& pen) const
{
    return ReadParsed(key, SkinValueKind::Colour, ParsePen, pen);
}

bool SkinSection::Read(const std::wstring& key, StyleBrush& brush) const
{
    return ReadParsed(key, SkinValueKind::Colour, ParseBrush, brush);
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
    return FollowAs(SkinValueKind::Section, key);
}

std::optional<SkinSection> SkinSection::FollowOptional(const std::wstring& key) const
{
    return FollowAs(SkinValueKind::OptionalSection, key);
}

std::optional<SkinSection> SkinSection::FollowAs(SkinValueKind kind, const std::wstring& key) const
{
    std::wstring name;
    if (!ReadText(key, kind, name))
        return std::nullopt;
    return SkinSection(m_source, std::move(name), key);
}

bool SkinSection::ReadText(const std::wstring& key, SkinValueKind kind, std::wstring& text) const
{
    m_source.AboutToRead({m_name, key, m_via, kind});
    return m_source.ReadText(m_name, key, text);
}

bool SkinSection::ReadText(const std::wstring& key, SkinValueKind kind, QString& text) const
{
    std::wstring wide;
    if (!ReadText(key, kind, wide))
        return false;
    text = QString::fromStdWString(wide);
    return true;
}

template <typename Value>
bool SkinSection::ReadParsed(const std::wstring& key, SkinValueKind kind,
                             Value (*parse)(const QString&), Value& value) const
{
    QString text;
    if (!ReadText(key, kind, text))
        return false;
    value = parse(text);
    return true;
}
