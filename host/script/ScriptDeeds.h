#pragma once

#include "ScriptStage.h"

namespace host {

/// Does one command. What was wrong with it, else an empty text; a command that takes time leaves
/// its answer in the stage instead.
using ScriptDeed = QString (*)(ScriptStage& stage, const ScriptCommand& command);

ScriptDeed DeedOf(ScriptVerb verb);

// Each does the command of its name; so are they used by DeedOf.
QString OpenFile(ScriptStage& stage, const ScriptCommand& command);
QString ImportFiles(ScriptStage& stage, const ScriptCommand& command);
QString DropFileOnRow(ScriptStage& stage, const ScriptCommand& command);
QString SaveFile(ScriptStage& stage, const ScriptCommand& command);
QString ShowSkin(ScriptStage& stage, const ScriptCommand& command);
QString WritePicture(ScriptStage& stage, const ScriptCommand& command);

QString GoToFrame(ScriptStage& stage, const ScriptCommand& command);
QString Zoom(ScriptStage& stage, const ScriptCommand& command);
QString ZoomRange(ScriptStage& stage, const ScriptCommand& command);
QString Select(ScriptStage& stage, const ScriptCommand& command);
QString Drag(ScriptStage& stage, const ScriptCommand& command);
QString Hover(ScriptStage& stage, const ScriptCommand& command);
QString ChooseInRowMenu(ScriptStage& stage, const ScriptCommand& command);

QString ExpectFrame(ScriptStage& stage, const ScriptCommand& command);
QString ExpectKey(ScriptStage& stage, const ScriptCommand& command);
QString ExpectNoKey(ScriptStage& stage, const ScriptCommand& command);
QString ExpectSelected(ScriptStage& stage, const ScriptCommand& command);
QString ExpectStatus(ScriptStage& stage, const ScriptCommand& command);
QString ExpectSaved(ScriptStage& stage, const ScriptCommand& command);

/// Chooses an entry of the window's menus by its path.
QString ChooseInMenu(ScriptStage& stage, const QString& path);

} // namespace host
