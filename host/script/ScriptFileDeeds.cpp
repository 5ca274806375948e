#include "ScriptDeeds.h"
#include "ScriptPictures.h"
#include "ScriptScene.h"
#include "view/ImportCommand.h"
#include "view/MainWindow.h"
#include "view/WindowPicture.h"

#include <QStatusBar>

namespace host {

namespace {

const QString kDone;

QString StatusText(const ScriptStage& stage)
{
    return stage.window.statusBar()->currentMessage();
}

/// How many edits can be undone: an edit that is done counts one more.
int EditsDone(const ScriptStage& stage)
{
    return stage.window.History().Stack().index();
}

} // namespace

QString OpenFile(ScriptStage& stage, const ScriptCommand& command)
{
    stage.prompts.SetFile(stage.PathToRead(command.texts[0]));
    return ChooseInMenu(stage, QStringLiteral("File > Open"));
}

QString SaveFile(ScriptStage& stage, const ScriptCommand& command)
{
    if (command.texts.isEmpty())
        return ChooseInMenu(stage, QStringLiteral("File > Save"));
    stage.prompts.SetFile(ScriptStage::PathToWrite(command.texts[0]));
    return ChooseInMenu(stage, QStringLiteral("File > Save As"));
}

QString ImportFiles(ScriptStage& stage, const ScriptCommand& command)
{
    QStringList files;
    for (const QString& name : command.texts)
        files.append(stage.PathToRead(name));
    const int edits = EditsDone(stage);
    if (!TimelineHand::DropFile(stage.window, stage.window.rect().center(), files))
        return QStringLiteral("expected motion captures (.bvh), mouth cues (.json, .tsv) or sounds "
                              "(.wav) to import");
    stage.answer = [&stage, edits]() -> std::optional<QString> {
        if (stage.window.Import().IsRunning())
            return std::nullopt;
        return EditsDone(stage) > edits ? kDone : StatusText(stage);
    };
    return kDone;
}

QString DropFileOnRow(ScriptStage& stage, const ScriptCommand& command)
{
    QString error;
    const TrackId row = FindRow(stage.window.CurrentScene(), command.texts[1], error);
    const auto cell =
        row == kNoTrack ? std::nullopt : stage.timeline.Cell(row, command.numbers[0], error);
    if (!cell)
        return error;
    const bool isTaken =
        TimelineHand::DropFile(*cell->row, cell->Middle(), {stage.PathToRead(command.texts[0])});
    return isTaken ? kDone : StatusText(stage);
}

QString ShowSkin(ScriptStage& stage, const ScriptCommand& command)
{
    return stage.window.ShowSkin(stage.PathToRead(command.texts[0])) ? kDone : StatusText(stage);
}

QString WritePicture(ScriptStage& stage, const ScriptCommand& command)
{
    QWidget* const part = PartOfWindow(stage.window, command.words.value(0));
    const QString path = ScriptStage::PathToWrite(command.texts[0]);
    if (!PaintedPicture(*part).save(path, "PNG"))
        return path + QStringLiteral(": expected a file that can be written");
    return kDone;
}

} // namespace host
