#include "Document.h"

#include "view/MainWindow.h"

#include <QFileInfo>

namespace host {

Document::Document(MainWindow& window) : m_window(window)
{
    QUndoStack& stack = window.History().Stack();
    connect(&stack, &QUndoStack::cleanChanged, this, &Document::Changed);
    connect(&stack, &QUndoStack::indexChanged, this, &Document::FollowEdits);
    connect(&m_recovery, &RecoveryFile::Failed, this, &Document::RecoveryFailed);
}

QString Document::Name() const
{
    return m_path.isEmpty() ? tr("Untitled") : QFileInfo(m_path).fileName();
}

bool Document::IsDirty() const
{
    return !m_window.History().Stack().isClean();
}

bool Document::Show(const QString& path, const SceneDocument& document, const FileStamp& stamp)
{
    if (!m_window.CanShow(document.scene))
        return false;
    m_recovery.Start(path); // what was edited before is saved, or given up
    m_path = path.isEmpty() ? path : QFileInfo(path).absoluteFilePath();
    m_stamp = stamp;
    ShowScene(document);
    emit Changed();
    return true;
}

bool Document::Recover(const Leftover& leftover, const SceneDocument& document)
{
    if (!m_window.CanShow(document.scene))
        return false;
    m_path = leftover.recoveryOf;
    m_stamp = StampOf(m_path);
    ShowScene(document);
    m_window.History().Stack().resetClean();
    if (!m_recovery.Start(m_path, leftover)) // not before: a new scene has nothing to be kept
        m_recovery.Write(Current());
    emit Changed();
    return true;
}

void Document::Adopt()
{
    m_recovery.Start({});
    m_path.clear();
    emit Changed();
}

void Document::ShowScene(const SceneDocument& document)
{
    m_window.SetScene(document.scene);
    m_window.SetView(document.view);
}

bool Document::IsChangedElsewhere() const
{
    return QFileInfo::exists(m_path) && StampOf(m_path) != m_stamp;
}

bool Document::Save(const QString& path, QString& error)
{
    m_window.Session().Commit(); // or the edit would count as made after saving
    if (!WriteDocument(path, Current(), error))
        return false;
    m_path = QFileInfo(path).absoluteFilePath();
    m_stamp = StampOf(m_path);
    m_recovery.Start(m_path);
    m_window.History().Stack().setClean();
    emit Changed();
    return true;
}

void Document::Secure()
{
    m_window.Session().Commit();
    m_recovery.Flush();
}

SceneDocument Document::Current() const
{
    return {m_window.CurrentScene(), m_window.View(), {}};
}

void Document::FollowEdits()
{
    if (IsDirty())
        m_recovery.Write(Current());
    else
        m_recovery.Remove();
}

} // namespace host
