#pragma once

#include "SceneDocument.h"

#include <QDateTime>
#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <memory>
#include <optional>

class QLockFile;

namespace host {

/// A recovery file that a program which is gone has left behind.
struct Leftover
{
    QString path;
    QString recoveryOf; ///< path of the document that it belongs to; empty when never saved
    QDateTime time;     ///< when it was written
};

/// The file left for that document, or nothing. One that cannot be read is left where it is and not
/// reported: what made it may be a newer program.
std::optional<Leftover> FindLeftoverOf(const QString& documentPath);
/// The files left in the program's own folder, the newest first: of scenes that were never saved,
/// and of documents in folders that could not be written to.
QVector<Leftover> FindLeftovers();
/// Deletes a left file. Nothing happens to one that a running program writes.
void DiscardLeftover(const Leftover& leftover);

/// Keeps a copy of the document under work on the disk, so that nothing is lost when the program
/// ends without saving: beside the document as "walk.ktl.recovery", or in the program's own folder
/// when the scene was never saved, the document's folder cannot be written to, or such a file
/// stands there already. It is written by another thread, and always whole; a lock beside it says
/// that this program is alive.
class RecoveryFile : public QObject
{
    Q_OBJECT
public:
    explicit RecoveryFile(QObject* parent = nullptr);
    /// Writes what waits to be written, and leaves the file.
    ~RecoveryFile() override;

    /// From now on the work is on that document (empty: one that was never saved). The file of the
    /// one before is removed. @p leftover, when given, becomes the file.
    void Start(const QString& documentPath, const std::optional<Leftover>& leftover = {});
    /// Has the document written soon: many edits in a row are written once.
    void Write(const SceneDocument& document);
    /// Writes at once what waits to be written; false when that failed.
    bool Flush();
    /// Removes the file: nothing would be lost.
    void Remove();

    /// Where it is, or was last; empty when nothing was written yet.
    QString Path() const { return m_path; }

signals:
    /// It cannot be written; told once until it can be again.
    void Failed(const QString& error);

private:
    bool Claim(const QString& path);
    bool FindPlace();
    void WriteInBackground();
    void Finish(const QString& error);

    QString m_documentPath;
    QString m_path;
    std::unique_ptr<QLockFile> m_lock;
    std::optional<SceneDocument> m_waiting;
    QTimer m_timer;
    QThreadPool m_writer; ///< of one thread
    bool m_isWriting = false;
    bool m_hasFailed = false;
};

} // namespace host
