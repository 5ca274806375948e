#include "skin/SkinSource.h"

#include "skin/CProfile.h"

#include <utility>

using VZ::CProfile;

SkinFile::SkinFile(std::wstring path) : m_path(std::move(path)) {}

bool SkinFile::ReadText(const std::wstring& section, const std::wstring& key,
                        std::wstring& text) const
{
    CProfile profile;
    return profile.Load(m_path, true) == CProfile::kSuccess &&
           profile.GetString(section, key, text) == CProfile::kSuccess;
}

bool SkinFile::ReadInt(const std::wstring& section, const std::wstring& key, int& number) const
{
    CProfile profile;
    return profile.Load(m_path, true) == CProfile::kSuccess &&
           profile.GetInt(section, key, number, number) == CProfile::kSuccess;
}
