#pragma once

#include "DialogGuard.h"
#include "ScriptStage.h"

#include <QPointer>
#include <QTimer>

#include <memory>

namespace host {

/// Runs a script in the editor's window, a command at a time from the event loop, as a person would
/// work there. It stops at the first command that cannot be done, and when the window is closed.
class ScriptRunner : public QObject
{
    Q_OBJECT
public:
    /// @param window is kept and outlives this object; so are @p prompts, which the window's
    /// documents ask.
    ScriptRunner(MainWindow& window, ScriptPrompts& prompts, Script script);
    ~ScriptRunner() override;

    /// Begins as soon as control is back in the event loop; once.
    void Start();

signals:
    /// The script has ended; the window is the user's again. Sent once, unless Failed is.
    void Finished();
    /// A command could not be done: "FILE:LINE: what was wrong". Nothing further is run, and still
    /// nobody is asked anything.
    void Failed(const QString& message);

private:
    void RunNext();
    void Look();
    void End();
    QString Trouble();

    MainWindow& m_window;
    ScriptPrompts& m_prompts;
    Script m_script;
    InputHand m_hand;
    TimelineHand m_timelineHand;
    ScriptStage m_stage;
    std::unique_ptr<DialogGuard> m_guard; ///< while the script runs
    QTimer m_timer;
    int m_next = 0; ///< of the commands
};

} // namespace host
