#pragma once

#include "skin/CProfile.h"
#include "skin/SkinSource.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <string>

#ifndef Q_OS_WIN
#include <unistd.h>
#endif

namespace KestovaTest {

/// A directory of skin files that goes away with the test.
class SkinDirectory
{
public:
    /// Writes a file and answers its path.
    std::wstring Write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(m_directory.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(file.fileName()));
        return Path(name);
    }
    std::wstring MakeDirectory(const QString& name) const
    {
        if (!QDir(m_directory.path()).mkdir(name))
            qFatal("cannot make %s", qPrintable(m_directory.filePath(name)));
        return Path(name);
    }
    std::wstring Path(const QString& name) const
    {
        return m_directory.filePath(name).toStdWString();
    }

    /// Lets every user look into the directory.
    void OpenToAll() const
    {
        QFile::setPermissions(m_directory.path(), QFileDevice::Permissions(0x7755));
    }

private:
    QTemporaryDir m_directory;
};

#ifndef Q_OS_WIN
/// While it lives, a test run by the superuser, who may read every file, acts as an ordinary user.
class OrdinaryUser
{
public:
    explicit OrdinaryUser(const SkinDirectory& files) : m_before(geteuid())
    {
        constexpr uid_t kNobody = 65534;
        files.OpenToAll();
        if (m_before == 0 && seteuid(kNobody) != 0)
            qFatal("cannot act as an ordinary user");
    }
    ~OrdinaryUser()
    {
        if (seteuid(m_before) != 0)
            qFatal("cannot act as the superuser again");
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    uid_t m_before;
};
#endif

/// A skin file parsed once and asked many times, for tests that would else parse it for every
/// value.
class ParsedSkin final : public SkinSource
{
public:
    explicit ParsedSkin(const std::wstring& path) { m_profile.Load(path, true); }

    bool ReadText(const std::wstring& section, const std::wstring& key,
                  std::wstring& text) const override
    {
        return m_profile.GetString(section, key, text) == VZ::CProfile::kSuccess;
    }
    bool ReadInt(const std::wstring& section, const std::wstring& key, int& number) const override
    {
        return m_profile.GetInt(section, key, number, number) == VZ::CProfile::kSuccess;
    }

private:
    VZ::CProfile m_profile;
};

} // namespace KestovaTest
