#pragma once

#include <string>

/// Where the readers of track styles get single values from, by section and key.
class SkinSource
{
public:
    virtual ~SkinSource() = default;

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
