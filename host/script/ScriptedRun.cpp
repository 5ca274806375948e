#include "ScriptedRun.h"

#include "view/MainWindow.h"

#include <QApplication>

#include <cstdio>

namespace host {

void RunScript(MainWindow& window, ScriptPrompts& prompts, const Script& script)
{
    auto* const runner = new ScriptRunner(window, prompts, script);
    runner->setParent(&window);
    QObject::connect(runner, &ScriptRunner::Finished, runner, &QObject::deleteLater);
    QObject::connect(runner, &ScriptRunner::Failed, &window, [&window](const QString& message) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(message));
        QApplication::setQuitOnLastWindowClosed(false); // that would be a success
        window.close();
        QApplication::exit(EXIT_FAILURE);
    });
    runner->Start();
}

} // namespace host
