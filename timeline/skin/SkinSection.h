#pragma once

#include "skin/SkinSource.h"
#include "skin/TrackStyles.h"

#include <QString>

#include <optional>
#include <string>
#include <utility>

/// One section of a skin, read key by key into the fields of a style. The type of the field decides
/// how the value is written. Every read answers false, and leaves the field alone, when the key is
/// missing; so a section is read as a chain of reads joined by &&, which stops at the first key
/// that is missing.
class SkinSection
{
public:
    /// @p via is the key by which a track's section named this one; empty for the track's own.
    SkinSection(const SkinSource& source, std::wstring name, std::wstring via = {})
        : m_source(source), m_name(std::move(name)), m_via(std::move(via))
    {
    }

    bool Read(const std::wstring& key, int& number) const;
    bool Read(const std::wstring& key, QString& text) const;
    bool Read(const std::wstring& key, QPoint& point) const;
    bool Read(const std::wstring& key, StyleColour& colour) const;
    bool ReadWithAlpha(const std::wstring& key, StyleColour& colour) const;
    bool Read(const std::wstring& key, StylePen& pen) const;
    bool Read(const std::wstring& key, StyleBrush& brush) const;
    /// Two keys: the normal pen under @p key and the selected one under @p selectedKey.
    bool Read(const std::wstring& key, const std::wstring& selectedKey, StylePenPair& pens) const;
    bool Read(const std::wstring& key, const std::wstring& selectedKey,
              StyleBrushPair& brushes) const;
    bool Read(const std::wstring& key, const std::wstring& selectedKey,
              StyleColour (&colours)[2]) const;

    /// The family of a font.
    bool ReadFontFace(const std::wstring& key, QFont& font) const;
    /// The size of a font in points.
    bool ReadPointSize(const std::wstring& key, QFont& font) const;

    /// The section that a key of this one names; none when the key is missing.
    std::optional<SkinSection> Follow(const std::wstring& key) const;
    /// The same for a key that may be missing without fault.
    std::optional<SkinSection> FollowOptional(const std::wstring& key) const;

private:
    bool ReadText(const std::wstring& key, SkinValueKind kind, std::wstring& text) const;
    bool ReadText(const std::wstring& key, SkinValueKind kind, QString& text) const;
    template <typename Value>
    bool ReadParsed(const std::wstring& key, SkinValueKind kind, Value (*parse)(const QString&),
                    Value& value) const;
    std::optional<SkinSection> FollowAs(SkinValueKind kind, const std::wstring& key) const;

    const SkinSource& m_source;
    std::wstring m_name;
    std::wstring m_via;
};
