#include "DocumentActions.h"

#include "history/GestureEnd.h"
#include "import/NewScene.h"
#include "storage/DocumentFile.h"
#include "view/ImportCommand.h"
#include "view/MainWindow.h"
#include "view/WindowDrops.h"

#include <QAction>
#include <QCloseEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMenu>

namespace host {

DocumentActions::DocumentActions(MainWindow& window, DocumentPrompts& prompts)
    : m_window(window), m_prompts(prompts), m_document(window)
{
    FillMenu(*window.FileMenu());
    connect(&window.Drops(), &WindowDrops::DocumentDropped, this, &DocumentActions::Open,
            Qt::QueuedConnection);
    connect(&m_document, &Document::Changed, this, &DocumentActions::UpdateTitle);
    connect(&m_document, &Document::RecoveryFailed, &window, [&window](const QString& error) {
        window.Tell(tr("Not kept for recovery: %1").arg(error));
    });
    // The session may end without another word.
    connect(qApp, &QGuiApplication::commitDataRequest, this, [this] { m_document.Secure(); });
    window.installEventFilter(this);
    UpdateTitle();
}

void DocumentActions::FillMenu(QMenu& menu)
{
    const auto add = [&](const QString& text, const QKeySequence& shortcut, auto deed) {
        QAction* const action = new QAction(text, &menu);
        action->setShortcut(shortcut);
        menu.addAction(action);
        // A gesture that is still under way belongs to the document that is left or saved.
        connect(action, &QAction::triggered, this,
                [this, deed] { EndGestureThen(*this, m_window.Session(), deed); });
    };
    add(tr("&New"), QKeySequence(Qt::CTRL | Qt::Key_N), [this] { New(); });
    add(tr("&Open..."), QKeySequence(Qt::CTRL | Qt::Key_O), [this] { AskForFile(); });
    m_recentMenu = menu.addMenu(tr("Open &Recent"));
    connect(m_recentMenu, &QMenu::aboutToShow, this, &DocumentActions::FillRecentMenu);
    menu.addSeparator();
    add(tr("&Save"), QKeySequence(Qt::CTRL | Qt::Key_S), [this] { Save(); });
    add(tr("Save &As..."), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S), [this] { SaveAs(); });
    menu.addSeparator();
    menu.addAction(m_window.Import().Action());
    menu.addSeparator();
    add(tr("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), [this] { m_window.close(); });
}

void DocumentActions::FillRecentMenu()
{
    m_recentMenu->clear();
    const QStringList paths = m_recent.Paths();
    for (const QString& path : paths) {
        QAction* const action =
            m_recentMenu->addAction(QFileInfo(path).fileName(), this, [this, path] { Open(path); });
        action->setStatusTip(path);
        action->setToolTip(path);
    }
    m_recentMenu->addSeparator();
    QAction* const clear =
        m_recentMenu->addAction(tr("&Clear List"), this, [this] { m_recent.Clear(); });
    clear->setEnabled(!paths.isEmpty());
}

bool DocumentActions::New()
{
    SceneDocument document;
    document.scene = NewScene();
    return MayLeave() && (m_document.Show({}, document) || Report(tr("The skin lacks styles")));
}

void DocumentActions::AskForFile()
{
    m_document.Secure();
    const QString path = m_prompts.AskForFileToOpen(QFileInfo(m_document.Path()).absolutePath());
    if (!path.isEmpty())
        Open(path);
}

bool DocumentActions::Open(const QString& path)
{
    // Whether there is anything to open is known before the document here is given up.
    QString error;
    const std::optional<SceneDocument> document = ReadDocument(path, error);
    if (!document && !FindLeftoverOf(path)) {
        m_recent.Remove(path);
        return Report(error);
    }
    if (!MayLeave())
        return false;
    bool isDone = false;
    const bool isRecovered = OpenLeft(path, isDone);
    if (isDone)
        return isRecovered;
    if (!document)
        return Report(error);
    if (!m_document.Show(path, *document))
        return Report(tr("%1: expected a scene that the skin has styles for")
                          .arg(QFileInfo(path).fileName()));
    m_recent.Add(path);
    return true;
}

/// Offers what was left behind of the document. @p isDone: the document itself is not to be opened.
bool DocumentActions::OpenLeft(const QString& path, bool& isDone)
{
    const std::optional<Leftover> leftover = FindLeftoverOf(path);
    if (!leftover)
        return false;
    switch (m_prompts.AskToRecover(QFileInfo(path).fileName(), leftover->time)) {
    case DocumentPrompts::RecoverAnswer::Recover:
        isDone = true;
        if (!Recover(*leftover))
            return false;
        m_recent.Add(path);
        return true;
    case DocumentPrompts::RecoverAnswer::Discard:
        DiscardLeftover(*leftover);
        return false;
    case DocumentPrompts::RecoverAnswer::Leave:
        return false;
    }
    return false;
}

bool DocumentActions::Recover(const Leftover& leftover)
{
    QString error;
    const std::optional<SceneDocument> document = ReadDocument(leftover.path, error);
    if (!document)
        return Report(error);
    return m_document.Recover(leftover, *document) ||
           Report(tr("%1: expected a scene that the skin has styles for")
                      .arg(QFileInfo(leftover.path).fileName()));
}

void DocumentActions::OfferLeftovers()
{
    for (const Leftover& leftover : FindLeftovers()) {
        const QString name = leftover.recoveryOf.isEmpty()
                                 ? tr("Untitled")
                                 : QFileInfo(leftover.recoveryOf).fileName();
        switch (m_prompts.AskToRecover(name, leftover.time)) {
        case DocumentPrompts::RecoverAnswer::Recover:
            if (Recover(leftover))
                return;
            break;
        case DocumentPrompts::RecoverAnswer::Discard:
            DiscardLeftover(leftover);
            break;
        case DocumentPrompts::RecoverAnswer::Leave:
            break;
        }
    }
}

bool DocumentActions::Save()
{
    if (m_document.Path().isEmpty())
        return SaveAs();
    QString error;
    if (!m_document.Save(m_document.Path(), error))
        return Report(error);
    m_recent.Add(m_document.Path());
    m_window.Tell(tr("Saved %1").arg(m_document.Name()));
    return true;
}

bool DocumentActions::SaveAs()
{
    m_document.Secure();
    const QString suggested = m_document.Path().isEmpty()
                                  ? tr("Untitled") + u'.' + QLatin1String(kDocumentSuffix)
                                  : m_document.Path();
    const QString path = m_prompts.AskForFileToSave(suggested);
    QString error;
    if (path.isEmpty())
        return false;
    if (!m_document.Save(path, error))
        return Report(error);
    m_recent.Add(path);
    m_window.Tell(tr("Saved %1").arg(m_document.Name()));
    return true;
}

bool DocumentActions::MayLeave()
{
    m_document.Secure();
    if (!m_document.IsDirty())
        return true;
    switch (m_prompts.AskToSave(m_document.Name())) {
    case DocumentPrompts::SaveAnswer::Save:
        return Save();
    case DocumentPrompts::SaveAnswer::Discard:
        return true;
    case DocumentPrompts::SaveAnswer::Cancel:
        return false;
    }
    return false;
}

bool DocumentActions::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &m_window && event->type() == QEvent::Close) {
        if (!MayLeave()) {
            event->ignore();
            return true;
        }
        m_document.Forget();
    }
    return QObject::eventFilter(watched, event);
}

void DocumentActions::UpdateTitle()
{
    m_window.setWindowTitle(tr("%1[*] - Kestova Host").arg(m_document.Name()));
    m_window.setWindowFilePath(m_document.Path());
    m_window.setWindowModified(m_document.IsDirty());
}

bool DocumentActions::Report(const QString& error)
{
    m_prompts.TellError(error);
    return false;
}

} // namespace host
