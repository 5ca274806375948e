#pragma once

#include <QDir>
#include <QProcessEnvironment>
#include <QTemporaryDir>

/// A user's home: what the program keeps, and the user's documents, gone with this object.
class Home
{
public:
    Home()
    {
        const QDir folder(m_folder.path());
        folder.mkdir(QStringLiteral("runtime"));
        QFile::setPermissions(Path(QStringLiteral("runtime")),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    /// Of a file in it.
    QString Path(const QString& name = {}) const { return m_folder.filePath(name); }
    /// Where the program keeps what was never saved.
    QString RecoveryFolder() const
    {
        return Path(QStringLiteral("data/Kestova/kestova-host/recovery"));
    }

    /// What a program of this user runs in, on the screen of the test.
    QProcessEnvironment Environment() const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOME"), m_folder.path());
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), Path(QStringLiteral("config")));
        environment.insert(QStringLiteral("XDG_DATA_HOME"), Path(QStringLiteral("data")));
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), Path(QStringLiteral("runtime")));
        return environment;
    }

private:
    QTemporaryDir m_folder;
};
