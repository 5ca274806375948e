#pragma once

#include <QDir>
#include <QString>

#include <memory>

class QLockFile;

namespace host {

/// The same text for the same file however it is named: its full path, without links. The file need
/// not exist; an empty text stays empty.
QString SameFile(const QString& path);

/// Where the recovery file of that document stands as a rule: beside it.
QString RecoveryBeside(const QString& documentPath);
/// The program's own folder, for recovery files that cannot stand beside a document.
QDir RecoveryFolder();

/// Whether a program that is alive writes that recovery file: its lock says so. A lock without an
/// owner counts for a minute, as long as a program may take to write its name, one of another
/// computer for a day after the last sign of life.
bool IsTaken(const QString& recoveryPath);
/// The same, for programs other than this one.
bool IsTakenElsewhere(const QString& recoveryPath);

/// A recovery file that is this program's alone, as long as this object lives: the lock beside it
/// says so to all others.
class RecoveryPlace
{
public:
    /// That very file. Null when another program has it, or no lock can be put beside it.
    static std::unique_ptr<RecoveryPlace> Take(const QString& recoveryPath);
    /// A new file beside the document. Null when there is one already, or none can be made.
    static std::unique_ptr<RecoveryPlace> TakeBeside(const QString& documentPath);
    /// A new file in the program's own folder. Null when none can be made.
    static std::unique_ptr<RecoveryPlace> TakeInFolder();

    ~RecoveryPlace();

    QString Path() const { return m_path; }
    /// Deletes the file, if it is there.
    void RemoveFile() const;

private:
    RecoveryPlace(const QString& path, std::unique_ptr<QLockFile> lock);

    QString m_path;
    std::unique_ptr<QLockFile> m_lock;
};

} // namespace host
