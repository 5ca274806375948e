#include "DocumentActions.h"

#include "RecentMenu.h"
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

#include <algorithm>

namespace host {

namespace {

QString NotShown(const QString& path)
{
    return DocumentActions::tr("%1: expected a scene that the skin has styles for")
        .arg(QFileInfo(path).fileName());
}

} // namespace

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
    m_recent = new RecentMenu(menu.addMenu(tr("Open &Recent")));
    connect(m_recent, &RecentMenu::Chosen, this, &DocumentActions::Open);
    menu.addSeparator();
    add(tr("&Save"), QKeySequence(Qt::CTRL | Qt::Key_S), [this] { Save(); });
    add(tr("Save &As..."), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S), [this] { SaveAs(); });
    menu.addSeparator();
    menu.addAction(m_window.Import().Action());
    menu.addSeparator();
    add(tr("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), [this] { m_window.close(); });
}

bool DocumentActions::New()
{
    SceneDocument document;
    document.scene = NewScene();
    return MayLeave() && (m_document.Show({}, document, {}) ||
                          Report(tr("The skin lacks styles for an empty scene")));
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
    FileStamp stamp = StampOf(path);
    std::optional<SceneDocument> document = ReadDocument(path, error);
    const FoundLeftovers found = FindLeftoversOf(path);
    if (!document && found.leftovers.isEmpty()) {
        if (!QFileInfo::exists(path))
            m_recent->Files().Remove(path);
        return Report(error);
    }
    m_document.Secure();
    const bool mayBeSaved = m_document.IsDirty();
    if (!MayLeave())
        return false;
    if (mayBeSaved) { // perhaps in this very file
        stamp = StampOf(path);
        document = ReadDocument(path, error);
    }
    if (Offer(found))
        return true;
    if (!document)
        return Report(error);
    if (!m_document.Show(path, *document, stamp))
        return Report(NotShown(path));
    NoteOpened();
    return true;
}

void DocumentActions::NoteOpened()
{
    if (m_document.Path().isEmpty())
        return;
    m_recent->Files().Add(m_document.Path());
    if (IsTakenElsewhere(RecoveryBeside(m_document.Path())))
        m_window.Tell(tr("%1 has unsaved changes in another window").arg(m_document.Name()));
}

void DocumentActions::OfferLeftovers(const QString& besidesOf)
{
    if (m_document.IsDirty())
        return;
    FoundLeftovers found = FindLeftovers();
    const auto isKnown = [document = SameFile(besidesOf)](const Leftover& leftover) {
        return !document.isEmpty() && leftover.recoveryOf == document;
    };
    QVector<Leftover>& leftovers = found.leftovers;
    leftovers.erase(std::remove_if(leftovers.begin(), leftovers.end(), isKnown), leftovers.end());
    Offer(found);
}

/// Once for each file: it may stay for long.
void DocumentActions::TellOf(const QVector<UnreadableLeftover>& unreadable)
{
    ToldLeftovers told;
    for (const UnreadableLeftover& leftover : unreadable) {
        if (told.Paths().contains(leftover.path))
            continue;
        told.Add(leftover.path);
        const QString reason = leftover.error.mid(QFileInfo(leftover.path).fileName().size());
        Report(tr("%1 cannot be read%2. It is left where it is").arg(leftover.path, reason));
    }
}

/// Offers one after the other. True as soon as one is taken.
bool DocumentActions::Offer(const FoundLeftovers& found)
{
    TellOf(found.unreadable);
    for (const Leftover& leftover : found.leftovers) {
        const DocumentPrompts::RecoverAnswer answer = Ask(leftover);
        if (answer == DocumentPrompts::RecoverAnswer::Recover && Recover(leftover))
            return true;
        if (answer == DocumentPrompts::RecoverAnswer::Discard)
            DiscardLeftover(leftover);
    }
    return false;
}

DocumentPrompts::RecoverAnswer DocumentActions::Ask(const Leftover& leftover)
{
    if (leftover.recoveryOf.isEmpty())
        return m_prompts.AskToRecover(tr("Untitled"), leftover.time, {});
    const QFileInfo file(leftover.recoveryOf);
    const QDateTime saved = file.lastModified(); // invalid when it is gone
    return m_prompts.AskToRecover(file.fileName(), leftover.time,
                                  saved > leftover.time ? saved : QDateTime());
}

bool DocumentActions::Recover(const Leftover& leftover)
{
    QString error;
    const std::optional<SceneDocument> document = ReadDocument(leftover.path, error);
    if (!document)
        return Report(error);
    if (!m_document.Recover(leftover, *document))
        return Report(NotShown(leftover.path));
    NoteOpened();
    return true;
}

bool DocumentActions::Save()
{
    const QString path = m_document.Path();
    if (path.isEmpty())
        return SaveAs();
    if (m_document.IsChangedElsewhere() &&
        !m_prompts.AskToReplace(m_document.Name(), QFileInfo(path).lastModified()))
        return false;
    return SaveIn(path);
}

bool DocumentActions::SaveAs()
{
    m_document.Secure();
    const QString suggested = m_document.Path().isEmpty()
                                  ? tr("Untitled") + u'.' + QLatin1String(kDocumentSuffix)
                                  : m_document.Path();
    const QString path = m_prompts.AskForFileToSave(suggested);
    return !path.isEmpty() && SaveIn(path);
}

bool DocumentActions::SaveIn(const QString& path)
{
    QString error;
    if (!m_document.Save(path, error))
        return Report(error);
    m_recent->Files().Add(path);
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
    const QString mark = QStringLiteral("[*]"); // for changes; a name writes it twice
    m_window.setWindowTitle(
        tr("%1[*] - Kestova Host").arg(m_document.Name().replace(mark, mark + mark)));
    m_window.setWindowFilePath(m_document.Path());
    m_window.setWindowModified(m_document.IsDirty());
}

bool DocumentActions::Report(const QString& error)
{
    m_prompts.TellError(error);
    return false;
}

} // namespace host
