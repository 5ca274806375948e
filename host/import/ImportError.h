#pragma once

#include <QByteArray>
#include <QString>

namespace host {

/// Why a file could not be taken in.
struct ImportError
{
    QString file;
    int line = 0; ///< from 1; 0 when no line is to blame, as for a file that does not exist
    QString expected;
    bool isCancelled = false; ///< nothing is wrong: the user did not want to wait any longer

    /// One line of text without control characters: "walk.bvh:12: expected 3 numbers, found "x"".
    QString Message() const;
};

/// A piece of a damaged file fit for a message: in quotes, cut short, unprintable bytes as "?".
QString Quoted(const QByteArray& found);

} // namespace host
