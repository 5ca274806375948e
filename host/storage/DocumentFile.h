#pragma once

#include "SceneDocument.h"

#include <QDateTime>
#include <QString>

#include <optional>

namespace host {

constexpr const char* kDocumentSuffix = "ktl";

/// Whether the file is a document by its name.
bool IsDocument(const QString& path);

/// What shows that a file is another one than before.
struct FileStamp
{
    qint64 size = -1; ///< in bytes; -1 when there is no file
    QDateTime changed;
};

inline bool operator!=(const FileStamp& a, const FileStamp& b)
{
    return a.size != b.size || a.changed != b.changed;
}

FileStamp StampOf(const QString& path);

/// Reads the document. Nothing is returned, and @p error says why in one line that starts with the
/// file's name, when it cannot be read or holds no scene.
std::optional<SceneDocument> ReadDocument(const QString& path, QString& error);

/// Writes the document. A file that is there already is replaced only when all was written; after
/// false, which @p error explains in one line, it is as before.
/// Sounds in the document's folder or below are noted by their place there, so that the folder may
/// be moved; reading gives their full paths again.
bool WriteDocument(const QString& path, const SceneDocument& document, QString& error);

} // namespace host
