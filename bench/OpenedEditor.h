#pragma once

#include "LongScene.h"

#include "files/Document.h"
#include "support/Pointer.h"
#include "view/MainWindow.h"

#include <QString>
#include <QVector>

/// How much of the scene is in view.
enum class View
{
    Everything, ///< the whole hour
    Close       ///< a few seconds in the middle of it
};

/// The program's own window with a document, on the screen, and a hand on its mouse.
class OpenedEditor
{
public:
    /// Makes the window, reads the document and shows it, as the program does; all that is on the
    /// screen has been painted then.
    explicit OpenedEditor(const QString& path);

    host::MainWindow& Window() { return m_window; }
    host::Document& Document() { return m_document; }
    KestovaTest::Pointer& Hand() { return m_hand; }
    const host::Scene& Scene() const { return m_window.CurrentScene(); }

    void Look(View view);
    QWidget* Ruler();
    /// The row of that name, scrolled into view.
    QWidget* Row(const QString& name);
    host::TrackId IdOf(const QString& name) const;

    /// Has a key in the row at that place, by the mouse and the Edit menu.
    void HaveKeyAt(const QString& row, int x);
    void SelectAll(const QString& row);
    void Choose(const QString& command);
    void Undo();
    void Redo();

    /// Handles all that waits, painting too.
    static void Settle();

private:
    QWidget* Timeline();

    host::MainWindow m_window;
    host::Document m_document;
    KestovaTest::Pointer m_hand;
};
