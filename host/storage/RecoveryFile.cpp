#include "RecoveryFile.h"

#include "DocumentFile.h"

#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QStandardPaths>

#include <utility>

namespace host {

namespace {

constexpr int kDelay = 400; ///< milliseconds that edits are gathered for
constexpr int kMostFiles = 1000;

QString BesideOf(const QString& documentPath)
{
    return documentPath + QStringLiteral(".recovery");
}

QDir OwnFolder()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                QStringLiteral("/recovery"));
}

QString NoPlace()
{
    return OwnFolder().path() + QStringLiteral(": expected a folder that can be written to");
}

/// Not yet locked. What a dead program has locked counts as free, however new it is.
std::unique_ptr<QLockFile> LockOf(const QString& path)
{
    auto lock = std::make_unique<QLockFile>(path + QStringLiteral(".lock"));
    lock->setStaleLockTime(0);
    return lock;
}

/// Whether no running program writes the file.
bool IsFree(const QString& path)
{
    return LockOf(path)->tryLock(0);
}

QString SameFile(const QString& path)
{
    return path.isEmpty() ? path : QFileInfo(path).absoluteFilePath();
}

std::optional<Leftover> LeftoverAt(const QString& path)
{
    QString error;
    if (!QFileInfo(path).isFile() || !IsFree(path))
        return std::nullopt;
    const std::optional<SceneDocument> document = ReadDocument(path, error);
    if (!document)
        return std::nullopt;
    return Leftover{path, document->recoveryOf, QFileInfo(path).lastModified()};
}

} // namespace

std::optional<Leftover> FindLeftoverOf(const QString& documentPath)
{
    std::optional<Leftover> beside = LeftoverAt(BesideOf(SameFile(documentPath)));
    if (beside) {
        beside->recoveryOf = SameFile(documentPath); // the folder may have been moved since
        return beside;
    }
    for (const Leftover& leftover : FindLeftovers()) {
        if (leftover.recoveryOf == SameFile(documentPath))
            return leftover;
    }
    return std::nullopt;
}

QVector<Leftover> FindLeftovers()
{
    QVector<Leftover> found;
    const QFileInfoList files = OwnFolder().entryInfoList(
        {QStringLiteral("*.recovery")}, QDir::Files, QDir::Time); // the newest first
    for (const QFileInfo& file : files) {
        if (const std::optional<Leftover> leftover = LeftoverAt(file.absoluteFilePath()))
            found.append(*leftover);
    }
    return found;
}

void DiscardLeftover(const Leftover& leftover)
{
    if (IsFree(leftover.path))
        QFile::remove(leftover.path);
}

RecoveryFile::RecoveryFile(QObject* parent) : QObject(parent)
{
    m_writer.setMaxThreadCount(1);
    m_timer.setSingleShot(true);
    m_timer.setInterval(kDelay);
    connect(&m_timer, &QTimer::timeout, this, &RecoveryFile::WriteInBackground);
}

RecoveryFile::~RecoveryFile()
{
    Flush();
}

void RecoveryFile::Start(const QString& documentPath, const std::optional<Leftover>& leftover)
{
    Remove();
    m_documentPath = SameFile(documentPath);
    m_hasFailed = false;
    if (leftover)
        Claim(leftover->path);
}

void RecoveryFile::Write(const SceneDocument& document)
{
    m_waiting = document;
    m_waiting->recoveryOf = m_documentPath;
    if (!m_timer.isActive())
        m_timer.start();
}

bool RecoveryFile::Flush()
{
    m_timer.stop();
    m_writer.waitForDone();
    if (!m_waiting)
        return !m_hasFailed;
    QString error = NoPlace();
    if (FindPlace() && WriteDocument(m_path, *m_waiting, error)) {
        m_waiting.reset();
        error.clear();
    }
    Finish(error);
    return error.isEmpty();
}

void RecoveryFile::Remove()
{
    m_timer.stop();
    m_writer.waitForDone();
    m_waiting.reset();
    if (!m_lock)
        return;
    QFile::remove(m_path);
    m_path.clear();
    m_lock.reset();
}

bool RecoveryFile::Claim(const QString& path)
{
    std::unique_ptr<QLockFile> lock = LockOf(path);
    if (!lock->tryLock(0))
        return false;
    m_lock = std::move(lock);
    m_path = path;
    return true;
}

/// Chooses the file when there is none yet. No file that is there already is written over.
bool RecoveryFile::FindPlace()
{
    if (m_lock)
        return true;
    const QString beside = BesideOf(m_documentPath);
    if (!m_documentPath.isEmpty() && !QFile::exists(beside) && Claim(beside))
        return true;
    QDir().mkpath(OwnFolder().path());
    for (int i = 1; i <= kMostFiles; ++i) {
        const QString path =
            OwnFolder().absoluteFilePath(QStringLiteral("scene-%1.recovery").arg(i));
        if (!QFile::exists(path) && Claim(path))
            return true;
    }
    return false;
}

void RecoveryFile::WriteInBackground()
{
    if (!m_waiting || m_isWriting)
        return; // the one under way calls again
    if (!FindPlace()) {
        Finish(NoPlace());
        return;
    }
    m_isWriting = true;
    const SceneDocument document = *std::exchange(m_waiting, std::nullopt);
    const QString path = m_path;
    m_writer.start(QRunnable::create([this, document, path] {
        QString error;
        WriteDocument(path, document, error);
        QMetaObject::invokeMethod(
            this,
            [this, document, error] {
                m_isWriting = false;
                if (!error.isEmpty() && !m_waiting && m_lock) {
                    m_waiting = document; // for the next edit, or the end, to try again
                    Finish(error);
                    return;
                }
                Finish(error);
                if (m_waiting)
                    m_timer.start();
            },
            Qt::QueuedConnection);
    }));
}

void RecoveryFile::Finish(const QString& error)
{
    const bool hasFailed = !error.isEmpty();
    if (hasFailed && !m_hasFailed)
        emit Failed(error);
    m_hasFailed = hasFailed;
}

} // namespace host
