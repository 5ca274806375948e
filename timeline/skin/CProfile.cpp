#include "skin/CProfile.h"

#include "skin/ProfileFile.h"
#include "skin/StrictUtf8.h"

#include <locale>
#include <sstream>
#include <utility>

// The parser gets our converter and our comparison, so it needs none of its own, which would ask
// for platform headers or further sources. Debian's header keeps its member functions back unless
// told that this is the place for them.
#define SI_NO_CONVERSION
#define SI_IMPLEMENTATION
#include <SimpleIni.h>

namespace VZ {

namespace {

/// Orders names with the ASCII letters folded and no others, whatever the process's locale.
struct AsciiCaseLess
{
    bool operator()(const wchar_t* left, const wchar_t* right) const
    {
        while (*left != 0 && Fold(*left) == Fold(*right)) {
            ++left;
            ++right;
        }
        return Fold(*left) < Fold(*right);
    }

    static constexpr wchar_t Fold(wchar_t c)
    {
        return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
    }
};

using IniParser = CSimpleIniTempl<wchar_t, AsciiCaseLess, StrictUtf8<wchar_t>>;

std::wstring WithoutTrailingSeparator(std::wstring path)
{
    if (!path.empty() && (path.back() == L'\\' || path.back() == L'/'))
        path.pop_back();
    return path;
}

bool IsQuoted(const std::wstring& text)
{
    return text.size() >= 2 && text.front() == L'"' && text.back() == L'"';
}

} // namespace

struct CProfile::Parser
{
    static constexpr bool kStoredAsUtf8 = true;
    static constexpr bool kSeveralValuesPerKey = false;
    static constexpr bool kMultiLineValues = false;

    Parser() : ini(kStoredAsUtf8, kSeveralValuesPerKey, kMultiLineValues) { ini.SetSpaces(true); }

    int LoadFile(const std::wstring& path)
    {
        const FileHandle file = OpenRegularFile(path);
        return file ? ini.LoadFile(file.get()) : SI_FILE;
    }

    IniParser ini;
};

CProfile::CProfile() = default;
CProfile::~CProfile() = default;

unsigned int CProfile::Load(const std::wstring& path, bool mustExist)
{
    if (mustExist && !PathExists(WithoutTrailingSeparator(path)))
        return kFileNotFound;

    m_path = path;
    m_parser = std::make_unique<Parser>();
    m_loadResult = m_parser->LoadFile(m_path);
    if (m_loadResult >= 0)
        return kSuccess;

    m_parser.reset();
    return kFailure;
}

unsigned int CProfile::GetString(const std::wstring& section, const std::wstring& key,
                                 std::wstring& value) const
{
    if (!m_parser || m_loadResult < 0)
        return kFailure;
    const wchar_t* const found = m_parser->ini.GetValue(section.c_str(), key.c_str());
    if (!found)
        return kFailure;

    std::wstring text = found;
    value = IsQuoted(text) ? text.substr(1, text.size() - 2) : std::move(text);
    return kSuccess;
}

unsigned int CProfile::GetInt(const std::wstring& section, const std::wstring& key,
                              int defaultValue, int& value) const
{
    value = defaultValue;
    std::wstring text;
    const unsigned int result = GetString(section, key, text);
    if (result != kSuccess)
        return result;

    std::wistringstream stream(text);
    stream.imbue(std::locale::classic());
    int number = 0;
    stream >> number;
    value = number;
    return kSuccess;
}

} // namespace VZ
