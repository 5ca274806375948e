#pragma once

#include "document/EditSession.h"
#include "import/ImportJob.h"

#include <KestovaTimelineQU/KestovaTimelineQU.h>

#include <functional>

class QAction;
class QProgressDialog;

namespace host {

/// Brings files into the open scene: reads them while a dialog shows how far that is, and applies
/// what they hold as one edit. Until then, and when the reading fails or is given up, the scene
/// stays as it is.
class ImportCommand : public QObject
{
    Q_OBJECT
public:
    /// @param window the dialogs' parent, and this object's. The others are kept and outlive it.
    ImportCommand(QWidget* window, CTimelineManager& manager, EditSession& session);
    ~ImportCommand() override;

    /// Called when the session's scene has rows, or a length, that the timeline does not show yet.
    std::function<void()> sceneChanged;
    /// Called with one line for the user.
    std::function<void(const QString& text)> told;

    /// The entry for a menu: asks for files, and imports them.
    QAction* Action() const { return m_action; }
    /// Imports the files; refused, and told, while others are being read. Sounds that come with
    /// mouth cues start with them at frame 0, others at the current frame.
    void Start(const QStringList& files);
    bool IsRunning() const { return m_job != nullptr; }

private:
    void AskForFiles();
    void ShowProgress();
    void Finish();
    void Apply(const Material& material, const QString& name);
    void Tell(const QString& text) const;

    CTimelineManager& m_manager;
    EditSession& m_session;
    QAction* m_action;
    QString m_directory; ///< where files were chosen last
    std::unique_ptr<ImportJob> m_job;
    std::unique_ptr<QProgressDialog> m_progress;
};

} // namespace host
