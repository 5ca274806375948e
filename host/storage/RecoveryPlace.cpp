#include "RecoveryPlace.h"

#include "DataFolder.h"
#include "PathList.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>
#include <QLockFile>
#include <QSysInfo>

#include <utility>

namespace host {

namespace {

constexpr int kMostFiles = 1000;
constexpr qint64 kSecondsWithoutOwner = 60;
constexpr qint64 kSecondsOfAnotherComputer = 24 * 60 * 60;

QString LockPath(const QString& recoveryPath)
{
    return recoveryPath + QStringLiteral(".lock");
}

/// Not yet locked. What a dead program has locked counts as free, however new it is.
std::unique_ptr<QLockFile> LockOf(const QString& recoveryPath)
{
    auto lock = std::make_unique<QLockFile>(LockPath(recoveryPath));
    lock->setStaleLockTime(0);
    return lock;
}

/// Seconds since the file was written; a large number when it is not there.
qint64 AgeOf(const QString& path)
{
    const QFileInfo file(path);
    return file.exists() ? file.lastModified().secsTo(QDateTime::currentDateTime())
                         : std::numeric_limits<qint64>::max();
}

/// Whether a lock that holds this name is of this computer. On Windows locks hold the short name,
/// in capitals.
bool IsThisComputer(const QString& name)
{
#ifdef Q_OS_WIN
    if (name.compare(qEnvironmentVariable("COMPUTERNAME"), Qt::CaseInsensitive) == 0)
        return true;
#endif
    return name == QSysInfo::machineHostName();
}

/// Whether nobody can be alive who has written the lock, which the system cannot tell.
bool IsForgotten(const QLockFile& lock, const QString& recoveryPath)
{
    qint64 process = 0;
    QString computer;
    QString program;
    const qint64 age = std::min(AgeOf(recoveryPath), AgeOf(LockPath(recoveryPath)));
    if (!lock.getLockInfo(&process, &computer, &program))
        return AgeOf(LockPath(recoveryPath)) > kSecondsWithoutOwner;
    return !computer.isEmpty() && !IsThisComputer(computer) && age > kSecondsOfAnotherComputer;
}

/// Locks it. What kept it from that is in the lock's error.
bool TryLock(QLockFile& lock, const QString& recoveryPath)
{
    if (lock.tryLock(0))
        return true;
    return lock.error() == QLockFile::LockFailedError && IsForgotten(lock, recoveryPath) &&
           lock.removeStaleLockFile() && lock.tryLock(0);
}

} // namespace

QString SameFile(const QString& path)
{
    if (path.isEmpty())
        return path;
    const QFileInfo file(path);
    const QString real = file.canonicalFilePath();
    if (!real.isEmpty())
        return real;
    const QString folder = QFileInfo(file.absolutePath()).canonicalFilePath();
    return folder.isEmpty() ? file.absoluteFilePath() : QDir(folder).filePath(file.fileName());
}

QString RecoveryBeside(const QString& documentPath)
{
    return SameFile(documentPath) + QStringLiteral(".recovery");
}

QDir RecoveryFolder()
{
    return QDir(DataFolder() + QStringLiteral("/recovery"));
}

bool IsTaken(const QString& recoveryPath)
{
    // Where no lock can be made, nobody else could make one either.
    const std::unique_ptr<QLockFile> lock = LockOf(recoveryPath);
    return !TryLock(*lock, recoveryPath) && lock->error() == QLockFile::LockFailedError;
}

bool IsTakenElsewhere(const QString& recoveryPath)
{
    qint64 process = 0;
    QString computer;
    QString program;
    if (!QFileInfo::exists(LockPath(recoveryPath)) || !IsTaken(recoveryPath))
        return false;
    const bool isNamed = LockOf(recoveryPath)->getLockInfo(&process, &computer, &program);
    return !isNamed || process != QCoreApplication::applicationPid() || !IsThisComputer(computer);
}

RecoveryPlace::RecoveryPlace(const QString& path, std::unique_ptr<QLockFile> lock)
    : m_path(path), m_lock(std::move(lock))
{
}

RecoveryPlace::~RecoveryPlace() = default;

std::unique_ptr<RecoveryPlace> RecoveryPlace::Take(const QString& recoveryPath)
{
    std::unique_ptr<QLockFile> lock = LockOf(recoveryPath);
    if (!TryLock(*lock, recoveryPath))
        return nullptr;
    return std::unique_ptr<RecoveryPlace>(new RecoveryPlace(recoveryPath, std::move(lock)));
}

std::unique_ptr<RecoveryPlace> RecoveryPlace::TakeBeside(const QString& documentPath)
{
    const QString path = RecoveryBeside(documentPath);
    if (documentPath.isEmpty() || QFile::exists(path))
        return nullptr;
    std::unique_ptr<RecoveryPlace> place = Take(path);
    if (place)
        RecoveredDocuments().Add(documentPath); // for the next start to look there
    return place;
}

std::unique_ptr<RecoveryPlace> RecoveryPlace::TakeInFolder()
{
    QDir().mkpath(RecoveryFolder().path());
    for (int i = 1; i <= kMostFiles; ++i) {
        const QString path =
            RecoveryFolder().absoluteFilePath(QStringLiteral("scene-%1.recovery").arg(i));
        if (QFile::exists(path))
            continue;
        if (std::unique_ptr<RecoveryPlace> place = Take(path))
            return place;
    }
    return nullptr;
}

void RecoveryPlace::RemoveFile() const
{
    QFile::remove(m_path);
}

} // namespace host
