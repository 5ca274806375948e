#pragma once

#include "Document.h"
#include "DocumentPrompts.h"

#include <QObject>

class QMenu;

namespace host {

class RecentMenu;

/// The File menu, and what happens to the document when it is left: unsaved changes are asked
/// about, and what an earlier run has left behind is offered. Also opens documents that are dropped
/// on the window, keeps the window's title and follows its closing.
class DocumentActions : public QObject
{
    Q_OBJECT
public:
    /// Both are kept and outlive this object.
    DocumentActions(MainWindow& window, DocumentPrompts& prompts);

    Document& Current() { return m_document; }

    /// Opens a document after asking about the one before. False when that one stays.
    bool Open(const QString& path);
    /// Saves to the document's own file, or asks for one. False when nothing was saved.
    bool Save();
    bool SaveAs();
    /// Starts over with an empty scene after asking about the one before.
    bool New();
    /// The document in the window was opened by somebody else than this object.
    void NoteOpened();
    /// Offers what earlier runs have left behind, the newest first, until one is taken, unless
    /// there are changes here. @p besidesOf: the document whose were offered already.
    void OfferLeftovers(const QString& besidesOf = {});
    /// Asks about unsaved changes. False when the user wants to stay.
    bool MayLeave();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void FillMenu(QMenu& menu);
    void UpdateTitle();
    void AskForFile();
    void TellOf(const QVector<UnreadableLeftover>& unreadable);
    bool Offer(const FoundLeftovers& found);
    DocumentPrompts::RecoverAnswer Ask(const Leftover& leftover);
    bool Recover(const Leftover& leftover);
    bool SaveIn(const QString& path);
    bool Report(const QString& error);

    MainWindow& m_window;
    DocumentPrompts& m_prompts;
    Document m_document;
    RecentMenu* m_recent = nullptr; // the File menu's
};

} // namespace host
