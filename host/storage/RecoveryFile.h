#pragma once

#include "Leftovers.h"
#include "RecoveryPlace.h"
#include "SceneDocument.h"

#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <memory>
#include <optional>

namespace host {

/// Keeps a copy of the document under work on the disk, so that nothing is lost when the program
/// ends without saving: beside the document as "walk.ktl.recovery", or in the program's own folder
/// when the scene was never saved, the document's folder cannot be written to (any more), or such a
/// file stands there already. It is written by another thread, and always whole; a lock beside it
/// says that this program is alive.
class RecoveryFile : public QObject
{
    Q_OBJECT
public:
    explicit RecoveryFile(QObject* parent = nullptr);
    /// Writes what waits to be written, and leaves the file.
    ~RecoveryFile() override;

    /// From now on the work is on that document (empty: one that was never saved). The file of the
    /// one before is removed. @p leftover, when given, becomes the file; false when that cannot be
    /// had: the work is then kept only once it is written.
    bool Start(const QString& documentPath, const std::optional<Leftover>& leftover = {});
    /// Has the document written soon: many edits in a row are written once.
    void Write(const SceneDocument& document);
    /// Writes at once what waits to be written. False when the last document given is not kept.
    bool Flush();
    /// Removes the file: nothing would be lost.
    void Remove();

    /// Where it is, or was last; empty when nothing was written yet.
    QString Path() const { return m_place ? m_place->Path() : QString(); }

signals:
    /// It cannot be written anywhere; told once until it can be again.
    void Failed(const QString& error);

private:
    bool FindPlace();
    bool FindOtherPlace();
    void WriteInBackground();
    void TakeResult(int number);
    void Finish(const QString& error);

    QString m_documentPath;
    std::unique_ptr<RecoveryPlace> m_place;
    std::unique_ptr<RecoveryPlace> m_failedPlace; ///< where it was; what it holds is older
    std::optional<SceneDocument> m_waiting;
    QTimer m_timer;
    QThreadPool m_writer; ///< of one thread
    int m_number = 0;     ///< of the write by the other thread that began last
    bool m_isWriting = false;
    bool m_hasFailed = false;
    // What the other thread writes: the document, and why that failed.
    SceneDocument m_written;
    QString m_writeError; ///< the other thread's as long as it is writing
};

} // namespace host
