#include "Leftovers.h"

#include "DocumentFile.h"
#include "PathList.h"
#include "RecoveryPlace.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace host {

namespace {

/// Gathers what is found at one path after the other.
class Search
{
public:
    void LookAt(const QString& recoveryPath);
    /// The same beside a document.
    void LookBeside(const QString& documentPath);
    /// At all files in the program's own folder.
    void LookInFolder();

    FoundLeftovers Found();

private:
    FoundLeftovers m_found;
};

void Search::LookAt(const QString& recoveryPath)
{
    if (!QFileInfo(recoveryPath).isFile() || IsTaken(recoveryPath))
        return;
    QString error;
    const std::optional<SceneDocument> document = ReadDocument(recoveryPath, error);
    if (document)
        m_found.leftovers.append(
            {recoveryPath, document->recoveryOf, QFileInfo(recoveryPath).lastModified()});
    else
        m_found.unreadable.append({recoveryPath, error});
}

void Search::LookBeside(const QString& documentPath)
{
    const int before = m_found.leftovers.size();
    LookAt(RecoveryBeside(documentPath));
    if (m_found.leftovers.size() > before) // the folder may have been moved since
        m_found.leftovers.last().recoveryOf = SameFile(documentPath);
}

void Search::LookInFolder()
{
    const QFileInfoList files =
        RecoveryFolder().entryInfoList({QStringLiteral("*.recovery")}, QDir::Files);
    for (const QFileInfo& file : files)
        LookAt(file.absoluteFilePath());
}

FoundLeftovers Search::Found()
{
    std::stable_sort(m_found.leftovers.begin(), m_found.leftovers.end(),
                     [](const Leftover& a, const Leftover& b) { return a.time > b.time; });
    return m_found;
}

} // namespace

FoundLeftovers FindLeftoversOf(const QString& documentPath)
{
    Search search;
    search.LookInFolder();
    search.LookBeside(documentPath);
    FoundLeftovers found = search.Found();
    QVector<Leftover>& leftovers = found.leftovers;
    const QString document = SameFile(documentPath);
    leftovers.erase(std::remove_if(leftovers.begin(), leftovers.end(),
                                   [&document](const Leftover& leftover) {
                                       return leftover.recoveryOf != document;
                                   }),
                    leftovers.end());
    return found;
}

FoundLeftovers FindLeftovers()
{
    Search search;
    search.LookInFolder();
    RecoveredDocuments recovered;
    QStringList documents;
    for (const QString& path : recovered.Paths() + RecentFiles().Paths())
        documents.append(SameFile(path));
    documents.removeDuplicates();
    for (const QString& path : qAsConst(documents))
        search.LookBeside(path);
    for (const QString& path : recovered.Paths()) {
        const QString beside = RecoveryBeside(path);
        if (!QFileInfo::exists(beside) && !IsTaken(beside)) // it was saved or discarded
            recovered.Remove(path);
    }
    return search.Found();
}

void DiscardLeftover(const Leftover& leftover)
{
    if (!IsTaken(leftover.path))
        QFile::remove(leftover.path);
}

} // namespace host
