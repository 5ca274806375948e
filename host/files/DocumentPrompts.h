#pragma once

#include <QDateTime>
#include <QString>

namespace host {

/// What the user is asked about files. An interface, so that tests can answer.
class DocumentPrompts
{
public:
    enum class SaveAnswer
    {
        Save,
        Discard,
        Cancel
    };
    enum class RecoverAnswer
    {
        Recover,
        Discard,
        Leave ///< open what was saved, and keep what could be recovered for later
    };

    virtual ~DocumentPrompts() = default;

    /// The document has changes that are not saved, and is to be left.
    virtual SaveAnswer AskToSave(const QString& name) = 0;
    /// Work on the document that was not saved, last at @p time, was found. @p savedLater: when the
    /// document itself was saved, if that was after the work; else invalid.
    virtual RecoverAnswer AskToRecover(const QString& name, const QDateTime& time,
                                       const QDateTime& savedLater) = 0;
    /// Another program wrote the document's file, last at @p time, after it was read or saved here.
    /// Whether it is to be replaced.
    virtual bool AskToReplace(const QString& name, const QDateTime& time) = 0;
    // The path that was chosen; empty when none was.
    virtual QString AskForFileToOpen(const QString& folder) = 0;
    virtual QString AskForFileToSave(const QString& suggested) = 0;
    /// Something went wrong; one line says what.
    virtual void TellError(const QString& text) = 0;
};

} // namespace host
