#include "ImportCommand.h"

#include "import/MaterialEdits.h"

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QProgressDialog>

namespace host {

namespace {

constexpr int kPatience = 400; ///< milliseconds that an import may take before it shows itself
constexpr int kWhole = 1000;   ///< thousandths

/// "walk.bvh", or the number of files.
QString NameOf(const QStringList& files)
{
    return files.size() == 1 ? QFileInfo(files.first()).fileName()
                             : ImportCommand::tr("%1 Files").arg(files.size());
}

} // namespace

ImportCommand::ImportCommand(QWidget* window, CTimelineManager& manager, EditSession& session)
    : QObject(window), m_manager(manager), m_session(session),
      m_action(new QAction(tr("&Import…"), this))
{
    m_action->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_I));
    m_action->setToolTip(tr("Bring a motion capture, mouth cues or sounds into the scene"));
    connect(m_action, &QAction::triggered, this, &ImportCommand::AskForFiles);
    // What is being read was meant for the scene that was open when it began.
    connect(&m_session, &EditSession::Restarted, this, [this] {
        if (m_job)
            m_job->Cancel();
    });
}

ImportCommand::~ImportCommand() = default;

void ImportCommand::AskForFiles()
{
    const QString filter =
        tr("Motion, mouth cues and sounds (%1)").arg(PatternsOfMaterial().join(QLatin1Char(' ')));
    auto* const dialog =
        new QFileDialog(static_cast<QWidget*>(parent()), tr("Import"), m_directory, filter);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFiles);
    connect(dialog, &QFileDialog::filesSelected, this, [this](const QStringList& files) {
        m_directory = QFileInfo(files.first()).absolutePath();
        Start(files);
    });
    dialog->open();
}

void ImportCommand::Start(const QStringList& files)
{
    if (files.isEmpty())
        return;
    if (IsRunning()) {
        Tell(tr("%1: another import is still under way").arg(NameOf(files)));
        return;
    }
    m_job = std::make_unique<ImportJob>(files, m_session.Current().frameRate);
    connect(m_job.get(), &ImportJob::Finished, this, &ImportCommand::Finish);
    ShowProgress();
    m_job->Start();
}

void ImportCommand::ShowProgress()
{
    m_progress =
        std::make_unique<QProgressDialog>(tr("Importing %1").arg(NameOf(m_job->Files())),
                                          tr("Cancel"), 0, kWhole, static_cast<QWidget*>(parent()));
    m_progress->setWindowTitle(tr("Import"));
    m_progress->setWindowModality(Qt::WindowModal);
    m_progress->setMinimumDuration(kPatience);
    m_progress->setAutoReset(false);
    m_progress->setAutoClose(false);
    m_progress->setValue(0);
    connect(m_progress.get(), &QProgressDialog::canceled, m_job.get(), &ImportJob::Cancel);
    connect(m_job.get(), &ImportJob::Advanced, m_progress.get(), &QProgressDialog::setValue);
}

void ImportCommand::Finish()
{
    // Gone before the scene changes: whoever hears of that may import again.
    const std::unique_ptr<ImportJob> job = std::move(m_job);
    // A dialog that shows how far it is handles events meanwhile, and this may be one of them.
    m_progress->hide();
    m_progress.release()->deleteLater();
    const QString name = NameOf(job->Files());
    if (job->Result())
        Apply(*job->Result(), name);
    else if (job->Error().isCancelled)
        Tell(tr("Import of %1 cancelled").arg(name));
    else
        Tell(job->Error().Message());
    job.get()->disconnect(this);
}

void ImportCommand::Apply(const Material& material, const QString& name)
{
    const bool hasLine = !material.rows.line.cues.isEmpty();
    Scene scene = m_session.Current();
    QString reason;
    if (!AddMaterial(scene, material, hasLine ? 0 : m_manager.GetCurrentFrame(), reason)) {
        Tell(tr("%1: %2").arg(name, reason));
        return;
    }
    if (scene == m_session.Current()) {
        Tell(tr("%1 is in the scene already").arg(name));
        return;
    }
    m_session.Begin();
    m_session.Step(tr("Import %1").arg(name), scene);
    if (sceneChanged)
        sceneChanged();
    m_session.Commit();
    if (!material.problems.isEmpty()) // in place of the name of the edit, which is told by others
        Tell(tr("Import %1, silent: %2").arg(name, material.problems.join(QStringLiteral("; "))));
}

void ImportCommand::Tell(const QString& text) const
{
    if (told)
        told(text);
}

} // namespace host
