#include "ScriptDeeds.h"

#include "MenuPath.h"
#include "playback/Transport.h"
#include "view/MainWindow.h"

#include <QAction>
#include <QDir>
#include <QElapsedTimer>
#include <QKeySequence>

#include <array>

namespace host {

namespace {

const QString kDone;

QString Resize(ScriptStage& stage, const ScriptCommand& command)
{
    stage.window.resize(command.numbers[0], command.numbers[1]);
    QCoreApplication::processEvents();
    return kDone;
}

QString Menu(ScriptStage& stage, const ScriptCommand& command)
{
    return ChooseInMenu(stage, command.texts[0]);
}

QString Strike(ScriptStage& stage, const ScriptCommand& command)
{
    const QKeySequence keys(command.texts[0], QKeySequence::PortableText);
    for (int i = 0; i < keys.count(); ++i) {
        if (keys[static_cast<uint>(i)] == Qt::Key_unknown)
            return QStringLiteral("expected keys such as Ctrl+Z, found \"%1\"")
                .arg(command.texts[0]);
    }
    stage.hand.Strike(keys);
    return kDone;
}

QString Undo(ScriptStage& stage, const ScriptCommand&)
{
    return ChooseInMenu(stage, QStringLiteral("Edit > Undo"));
}

QString Redo(ScriptStage& stage, const ScriptCommand&)
{
    return ChooseInMenu(stage, QStringLiteral("Edit > Redo"));
}

bool IsPlaying(const ScriptStage& stage)
{
    return stage.window.Player().Player().IsPlaying();
}

QString Halt(ScriptStage& stage)
{
    return IsPlaying(stage) ? ChooseInMenu(stage, QStringLiteral("Playback > Pause")) : kDone;
}

QString Pause(ScriptStage& stage, const ScriptCommand&)
{
    return Halt(stage);
}

QString Play(ScriptStage& stage, const ScriptCommand& command)
{
    if (!IsPlaying(stage)) {
        const QString error = ChooseInMenu(stage, QStringLiteral("Playback > Play"));
        if (!error.isEmpty())
            return error;
    }
    if (!command.numbers.isEmpty())
        stage.Wait(command.numbers[0], [&stage] { return Halt(stage); });
    return kDone;
}

QString Wait(ScriptStage& stage, const ScriptCommand& command)
{
    stage.Wait(command.numbers[0]);
    return kDone;
}

QString Quit(ScriptStage& stage, const ScriptCommand&)
{
    return ChooseInMenu(stage, QStringLiteral("File > Quit"));
}

/// In the order of ScriptVerb.
constexpr std::array<ScriptDeed, 28> kDeeds{
    OpenFile,     ImportFiles, DropFileOnRow, SaveFile,        ShowSkin,
    Resize,       GoToFrame,   Zoom,          ZoomRange,       Select,
    Drag,         Hover,       Menu,          ChooseInRowMenu, Strike,
    Undo,         Redo,        Play,          Pause,           Wait,
    WritePicture, ExpectFrame, ExpectKey,     ExpectNoKey,     ExpectSelected,
    ExpectStatus, ExpectSaved, Quit,
};

} // namespace

QString ScriptStage::PathToRead(const QString& name) const
{
    return QDir::cleanPath(QDir(folder).absoluteFilePath(name));
}

QString ScriptStage::PathToWrite(const QString& name)
{
    return QDir::cleanPath(QDir::current().absoluteFilePath(name));
}

void ScriptStage::Wait(int milliseconds, std::function<QString()> then)
{
    QElapsedTimer timer;
    timer.start();
    answer = [timer, milliseconds, then = std::move(then)]() -> std::optional<QString> {
        if (timer.elapsed() < milliseconds)
            return std::nullopt;
        return then();
    };
}

ScriptDeed DeedOf(ScriptVerb verb)
{
    return kDeeds[static_cast<std::size_t>(verb)];
}

QString ChooseInMenu(ScriptStage& stage, const QString& path)
{
    QString error;
    QAction* const entry = FindMenuEntry(*stage.window.menuBar(), path, error);
    if (!entry)
        return error;
    entry->trigger();
    return {};
}

} // namespace host
