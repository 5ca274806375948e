#pragma once

#include "DocumentPrompts.h"

class QWidget;

namespace host {

/// Asks by dialogs in front of a window.
class DocumentDialogs : public DocumentPrompts
{
public:
    /// @param parent outlives this object.
    explicit DocumentDialogs(QWidget* parent) : m_parent(parent) {}

    SaveAnswer AskToSave(const QString& name) override;
    RecoverAnswer AskToRecover(const QString& name, const QDateTime& time,
                               const QDateTime& savedLater) override;
    bool AskToReplace(const QString& name, const QDateTime& time) override;
    QString AskForFileToOpen(const QString& folder) override;
    QString AskForFileToSave(const QString& suggested) override;
    void TellError(const QString& text) override;

private:
    QWidget* m_parent;
};

} // namespace host
