#pragma once

#include <string>

/// How a value of a skin is written.
enum class SkinValueKind
{
    Number,
    Text,
    Point,           ///< (x,y)
    Colour,          ///< (red,green,blue)
    ColourWithAlpha, ///< (red,green,blue,alpha)
    Section,         ///< the name of another section
    OptionalSection  ///< the same, and a missing key is no fault
};

/// One value that a reader is about to ask for.
struct SkinRead
{
    const std::wstring& section;
    const std::wstring& key;
    /// The key by which the section was named in a track's section; empty for the track's own.
    const std::wstring& via;
    SkinValueKind kind;
};

/// Where the readers of track styles get single values from, by section and key.
class SkinSource
{
public:
    virtual ~SkinSource() = default;

    /// Told of every value before it is asked for, as what it will be read. Whoever wants to know
    /// what the readers read, as the checker of skins does, records it here.
    virtual void AboutToRead(const SkinRead& /*read*/) const {}

    /// False when the value is missing; @p text is unchanged then.
    virtual bool ReadText(const std::wstring& section, const std::wstring& key,
                          std::wstring& text) const = 0;
    /// False when the value is missing; @p number is unchanged then.
    virtual bool ReadInt(const std::wstring& section, const std::wstring& key,
                         int& number) const = 0;
};

/// A skin file, opened and parsed anew for every value: an edited skin shows as soon as a track
/// loads its style, and nothing is kept between two tracks.
class SkinFile final : public SkinSource
{
public:
    explicit SkinFile(std::wstring path);

    bool ReadText(const std::wstring& section, const std::wstring& key,
                  std::wstring& text) const override;
    bool ReadInt(const std::wstring& section, const std::wstring& key, int& number) const override;

private:
    std::wstring m_path;
};
