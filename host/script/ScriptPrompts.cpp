#include "ScriptPrompts.h"

#include <utility>

namespace host {

QString ScriptPrompts::Take()
{
    m_file.clear();
    return std::exchange(m_error, {});
}

DocumentPrompts::SaveAnswer ScriptPrompts::AskToSave(const QString& name)
{
    return m_isScripted ? SaveAnswer::Discard : m_people.AskToSave(name);
}

DocumentPrompts::RecoverAnswer
ScriptPrompts::AskToRecover(const QString& name, const QDateTime& time, const QDateTime& savedLater)
{
    return m_isScripted ? RecoverAnswer::Leave : m_people.AskToRecover(name, time, savedLater);
}

bool ScriptPrompts::AskToReplace(const QString& name, const QDateTime& time)
{
    return m_isScripted || m_people.AskToReplace(name, time);
}

QString ScriptPrompts::AskForFileToOpen(const QString& folder)
{
    return m_isScripted ? TakeFile(QStringLiteral("expected a file to open: open FILE"))
                        : m_people.AskForFileToOpen(folder);
}

QString ScriptPrompts::AskForFileToSave(const QString& suggested)
{
    return m_isScripted ? TakeFile(QStringLiteral("expected a file to save in: save FILE"))
                        : m_people.AskForFileToSave(suggested);
}

void ScriptPrompts::TellError(const QString& text)
{
    if (!m_isScripted)
        m_people.TellError(text);
    else if (m_error.isEmpty())
        m_error = text;
}

QString ScriptPrompts::TakeFile(const QString& hint)
{
    if (m_file.isEmpty())
        TellError(hint);
    return std::exchange(m_file, {});
}

} // namespace host
