#pragma once

#include <QCoreApplication>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>

/// Keeps what the test's program stores (settings, recovery files) out of the user's folders: in a
/// folder that goes with this object.
class TestSettings
{
public:
    TestSettings()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("KestovaTest"));
        QSettings::setDefaultFormat(QSettings::IniFormat);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder.path());
        qputenv("XDG_DATA_HOME", m_folder.path().toUtf8());
    }

    QString Path(const QString& name) const { return m_folder.filePath(name); }

private:
    QTemporaryDir m_folder;
};
