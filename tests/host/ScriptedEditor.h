#pragma once

#include "EditorFixture.h"
#include "TestSettings.h"

#include "files/DocumentActions.h"
#include "script/ScriptReader.h"
#include "script/ScriptRunner.h"

#include <QDir>
#include <QSignalSpy>

/// Nobody should be asked anything while a script runs; afterwards people are.
struct AskedPeople : host::DocumentPrompts
{
    QStringList asked;

    SaveAnswer AskToSave(const QString& name) override
    {
        asked += QStringLiteral("save %1?").arg(name);
        return SaveAnswer::Cancel;
    }
    RecoverAnswer AskToRecover(const QString& name, const QDateTime&, const QDateTime&) override
    {
        asked += QStringLiteral("recover %1?").arg(name);
        return RecoverAnswer::Leave;
    }
    bool AskToReplace(const QString& name, const QDateTime&) override
    {
        asked += QStringLiteral("replace %1?").arg(name);
        return false;
    }
    QString AskForFileToOpen(const QString&) override
    {
        asked += QStringLiteral("open which?");
        return {};
    }
    QString AskForFileToSave(const QString&) override
    {
        asked += QStringLiteral("save where?");
        return {};
    }
    void TellError(const QString& text) override { asked += text; }
};

/// The editor with its File menu, in which scripts run. What they write goes into a folder of its
/// own, which is the working directory meanwhile; the scripts stand in its folder "scripts".
struct ScriptedEditor : EditorFixture
{
    ScriptedEditor()
    {
        QDir().mkpath(settings.Path(QStringLiteral("scripts")));
        QDir::setCurrent(settings.Path(QString()));
    }
    ~ScriptedEditor() { QDir::setCurrent(before); }
    ScriptedEditor(const ScriptedEditor&) = delete;
    ScriptedEditor& operator=(const ScriptedEditor&) = delete;

    QString before = QDir::currentPath();
    TestSettings settings;
    AskedPeople people;
    host::ScriptPrompts prompts{people};
    host::DocumentActions documents{window, prompts};

    /// Runs the commands to their end. Empty when all were done, else the message without the
    /// script's path: "3: what was wrong".
    QString Run(const QByteArray& commands)
    {
        const QString path = settings.Path(QStringLiteral("scripts/demo.txt"));
        QString message;
        const auto script = host::ReadScript(path, commands, message);
        if (!script)
            qFatal("%s", qPrintable(message));
        host::ScriptRunner runner(window, prompts, *script);
        QSignalSpy finished(&runner, &host::ScriptRunner::Finished);
        QSignalSpy failed(&runner, &host::ScriptRunner::Failed);
        runner.Start();
        constexpr int kPatience = 60000; // milliseconds; the sanitized program is slow
        if (!QTest::qWaitFor([&] { return finished.count() + failed.count() > 0; }, kPatience))
            qFatal("the script does not end");
        message = failed.count() > 0 ? failed[0][0].toString() : QString();
        return message.startsWith(path) ? message.mid(path.size() + 1) : message;
    }

    bool Write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(settings.Path(name));
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    }
    QImage Picture(const QString& name) const { return QImage(settings.Path(name)); }
};

#define VERIFY_RUNS(editor, commands) QCOMPARE((editor).Run(commands), QString())
