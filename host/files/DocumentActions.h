#pragma once

#include "Document.h"
#include "DocumentPrompts.h"
#include "storage/RecentFiles.h"

#include <QObject>

class QAction;
class QMenu;

namespace host {

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
    /// Offers what scenes without a file have left behind, the newest first, until one is taken.
    void OfferLeftovers();
    /// Asks about unsaved changes. False when the user wants to stay.
    bool MayLeave();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void FillMenu(QMenu& menu);
    void FillRecentMenu();
    void UpdateTitle();
    void AskForFile();
    bool OpenLeft(const QString& path, bool& isDone);
    bool Recover(const Leftover& leftover);
    bool Report(const QString& error);

    MainWindow& m_window;
    DocumentPrompts& m_prompts;
    Document m_document;
    RecentFiles m_recent;
    QMenu* m_recentMenu = nullptr; // the File menu's
};

} // namespace host
