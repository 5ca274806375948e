#pragma once

#include <memory>
#include <string>

namespace VZ {

/// One INI-style text file, opened and answered value by value. The file is UTF-8, with or without
/// a byte-order mark; section and key names are compared without regard to ASCII case; of a key
/// repeated inside one section the last value counts; values are single lines. Not thread-safe.
class CProfile
{
public:
    static constexpr unsigned int kSuccess = 0;
    static constexpr unsigned int kFailure = 0x80000000u; ///< not loaded, or no such key
    static constexpr unsigned int kFileNotFound = 0x80000007u;

    CProfile();
    virtual ~CProfile();
    CProfile(const CProfile&) = delete;
    CProfile& operator=(const CProfile&) = delete;

    /// Opens and parses the file at @p path, in place of what was loaded before. With @p mustExist
    /// the path, less one trailing slash or backslash, is looked up first: kFileNotFound when
    /// nothing is there, and nothing changes. kFailure when the file cannot be read or is not
    /// well-formed UTF-8; nothing is loaded then. An empty file loads and holds nothing.
    unsigned int Load(const std::wstring& path, bool mustExist);

    /// The text of a key, less one pair of double quotes around it. kFailure when nothing is loaded
    /// or the section or key is absent; @p value is unchanged then.
    unsigned int GetString(const std::wstring& section, const std::wstring& key,
                           std::wstring& value) const;

    /// The decimal number that the text of a key begins with, 0 when it begins with none; a number
    /// beyond the range of int gives the nearest end of it. Returns what GetString returns; on
    /// failure @p value is @p defaultValue.
    unsigned int GetInt(const std::wstring& section, const std::wstring& key, int defaultValue,
                        int& value) const;

    /// The parser's own result of the last load: 0 or more, or -1 not well-formed text, -2 out of
    /// memory, -3 file error.
    int LoadResult() const { return m_loadResult; }

private:
    struct Parser;

    std::wstring m_path;
    std::unique_ptr<Parser> m_parser; ///< null until a load succeeds
    int m_loadResult = 0;
};

} // namespace VZ
