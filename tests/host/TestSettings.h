#pragma once

#include "storage/DataFolder.h"

#include <QCoreApplication>
#include <QTemporaryDir>

/// Keeps what the test's program stores (settings, recovery files) out of the user's folders: in a
/// folder that goes with this object.
class TestSettings
{
public:
    TestSettings()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("KestovaTest"));
        qputenv("KESTOVA_HOST_DATA", m_folder.path().toUtf8());
        host::UseSettingsFile();
    }

    QString Path(const QString& name) const { return m_folder.filePath(name); }

private:
    QTemporaryDir m_folder;
};
