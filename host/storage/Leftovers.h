#pragma once

#include <QDateTime>
#include <QString>
#include <QVector>

namespace host {

/// A recovery file that a program which is gone has left behind.
struct Leftover
{
    QString path;
    QString recoveryOf; ///< path of the document that it belongs to; empty when never saved
    QDateTime time;     ///< when it was written
};

/// One that cannot be read. It is left where it is: what made it may be a newer program.
struct UnreadableLeftover
{
    QString path;
    QString error; ///< why, in one line that begins with the file's name
};

struct FoundLeftovers
{
    QVector<Leftover> leftovers; ///< the newest first
    QVector<UnreadableLeftover> unreadable;
};

/// All files left for that document: beside it and in the program's own folder.
FoundLeftovers FindLeftoversOf(const QString& documentPath);
/// All files left in the program's own folder (of scenes that were never saved, and of documents in
/// folders that could not be written to) and beside the documents that were worked on.
FoundLeftovers FindLeftovers();
/// Deletes a left file. Nothing happens to one that a running program writes.
void DiscardLeftover(const Leftover& leftover);

} // namespace host
