#pragma once

#include "files/DocumentPrompts.h"

namespace host {

/// Answers in place of the user while a script runs: changes are dropped, what could be recovered
/// is left for later, files are those that the script names and are replaced. Before and after, the
/// user is asked.
class ScriptPrompts : public DocumentPrompts
{
public:
    /// @param people is kept and outlives this object.
    explicit ScriptPrompts(DocumentPrompts& people) : m_people(people) {}

    /// Whether a script answers.
    void SetScripted(bool isScripted) { m_isScripted = isScripted; }
    /// The next question for a file is answered so, once.
    void SetFile(const QString& path) { m_file = path; }
    /// What went wrong since the last question, in a line; empty when nothing did. A file that was
    /// set and not asked for is forgotten.
    QString Take();

    SaveAnswer AskToSave(const QString& name) override;
    RecoverAnswer AskToRecover(const QString& name, const QDateTime& time,
                               const QDateTime& savedLater) override;
    bool AskToReplace(const QString& name, const QDateTime& time) override;
    QString AskForFileToOpen(const QString& folder) override;
    QString AskForFileToSave(const QString& suggested) override;
    void TellError(const QString& text) override;

private:
    QString TakeFile(const QString& hint);

    DocumentPrompts& m_people;
    bool m_isScripted = false;
    QString m_file;
    QString m_error;
};

} // namespace host
