#pragma once

#include "storage/DocumentFile.h"
#include "storage/RecoveryFile.h"

#include <QObject>

namespace host {

class MainWindow;

/// The file that the scene in the window belongs to: where it was saved, whether it has changed
/// since, and its recovery file, which follows every edit. Asks nobody anything.
class Document : public QObject
{
    Q_OBJECT
public:
    /// @param window is kept and outlives this object.
    explicit Document(MainWindow& window);

    /// Empty as long as the scene was never saved.
    QString Path() const { return m_path; }
    /// For people: the file's name.
    QString Name() const;
    bool IsDirty() const;

    /// Shows @p document, which was read from @p path (empty: made anew) when that had @p stamp.
    /// False, and nothing changes, when the skin cannot show it.
    bool Show(const QString& path, const SceneDocument& document, const FileStamp& stamp);
    /// The same with what was left behind of that document; it then counts as changed.
    bool Recover(const Leftover& leftover, const SceneDocument& document);
    /// Takes the scene that the window shows already for a new one without a file.
    void Adopt();
    /// Whether somebody else wrote the document's file after it was read or saved here.
    bool IsChangedElsewhere() const;
    /// Commits an edit under way and writes the scene. False, and @p error says why, when that
    /// fails; the document then still belongs to the file before.
    bool Save(const QString& path, QString& error);

    /// Has all edits so far in the recovery file: to be called before anything risky.
    void Secure();
    /// Nothing of this scene need be kept: the user has said so.
    void Forget() { m_recovery.Remove(); }

signals:
    /// Path() or IsDirty() is another than before.
    void Changed();
    /// The recovery file cannot be written.
    void RecoveryFailed(const QString& error);

private:
    SceneDocument Current() const;
    void FollowEdits();
    void ShowScene(const SceneDocument& document);

    MainWindow& m_window;
    QString m_path;
    FileStamp m_stamp; ///< the file's, when it was read or saved
    RecoveryFile m_recovery;
};

} // namespace host
