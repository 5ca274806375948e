#include "ScriptRunner.h"

#include "ScriptDeeds.h"
#include "ScriptReader.h"
#include "view/MainWindow.h"

#include <QFileInfo>

#include <utility>

namespace host {

namespace {

constexpr int kLook = 5; ///< milliseconds between two looks at a command that takes time

} // namespace

ScriptRunner::ScriptRunner(MainWindow& window, ScriptPrompts& prompts, Script script)
    : m_window(window), m_prompts(prompts), m_script(std::move(script)), m_hand(window),
      m_timelineHand(window, m_hand), m_stage{window,
                                              prompts,
                                              m_hand,
                                              m_timelineHand,
                                              QFileInfo(m_script.path).absolutePath(),
                                              nullptr}
{
    m_timer.setSingleShot(true);
}

ScriptRunner::~ScriptRunner() = default;

void ScriptRunner::Start()
{
    m_guard = std::make_unique<DialogGuard>();
    m_prompts.SetScripted(true);
    connect(&m_timer, &QTimer::timeout, this, &ScriptRunner::RunNext);
    m_timer.start(0);
}

/// Does the next command; what it has left to the event loop is done before it is looked at.
void ScriptRunner::RunNext()
{
    if (m_next == m_script.commands.size() || !m_window.isVisible()) {
        End();
        return;
    }
    const ScriptCommand& command = m_script.commands[m_next++];
    m_stage.answer = nullptr;
    const QString error = DeedOf(command.verb)(m_stage, command);
    if (!error.isEmpty())
        m_stage.answer = [error] { return error; };
    m_timer.disconnect(this);
    connect(&m_timer, &QTimer::timeout, this, &ScriptRunner::Look);
    m_timer.start(0);
}

/// Whether the command under way is done, and how.
void ScriptRunner::Look()
{
    const std::optional<QString> answer = m_stage.answer ? m_stage.answer() : QString();
    QString trouble = Trouble();
    if (answer && !answer->isEmpty())
        trouble = *answer;
    if (!trouble.isEmpty()) {
        const int line = m_script.commands[m_next - 1].line;
        emit Failed(ScriptMessage(m_script.path, line, trouble));
        return;
    }
    if (answer) {
        m_timer.disconnect(this);
        connect(&m_timer, &QTimer::timeout, this, &ScriptRunner::RunNext);
    }
    m_timer.start(answer ? 0 : kLook);
}

/// What the window would have told the user in a dialog.
QString ScriptRunner::Trouble()
{
    const QString dialog = m_guard->Take();
    const QString error = m_prompts.Take();
    return error.isEmpty() ? dialog : error;
}

void ScriptRunner::End()
{
    m_guard.reset();
    m_prompts.SetScripted(false);
    emit Finished();
}

} // namespace host
