#include "ScriptDeeds.h"
#include "ScriptScene.h"
#include "view/MainWindow.h"

#include <QStatusBar>

namespace host {

namespace {

const QString kDone;

QString Compared(int expected, int found, const char* what)
{
    return expected == found ? kDone
                             : QStringLiteral("expected %1 %2, found %3")
                                   .arg(QLatin1String(what))
                                   .arg(expected)
                                   .arg(found);
}

QString CompareKey(const ScriptStage& stage, const ScriptCommand& command, bool isExpected)
{
    QString error;
    const Scene& scene = stage.window.CurrentScene();
    const TrackId row = FindRow(scene, command.texts[0], error);
    if (row == kNoTrack)
        return error;
    if (HasKeyAt(*scene.FindTrack(row), command.numbers[0]) == isExpected)
        return kDone;
    return QStringLiteral("expected %1 key of \"%2\" at frame %3")
        .arg(QLatin1String(isExpected ? "a" : "no"), command.texts[0])
        .arg(command.numbers[0]);
}

/// Where keys inside a clip are selected these count, and not the clip.
int SelectedOn(const CTimelineKeyArray& keys)
{
    int count = 0;
    for (const int index : keys.SelectedIndexes()) {
        const auto key = keys.GetAt(index);
        const auto inside =
            key->subKeys ? static_cast<int>(key->subKeys->SelectedIndexes().size()) : 0;
        count += std::max(1, inside);
    }
    return count;
}

} // namespace

QString ExpectFrame(ScriptStage& stage, const ScriptCommand& command)
{
    return Compared(command.numbers[0], stage.window.Timeline().GetCurrentFrame(), "frame");
}

QString ExpectKey(ScriptStage& stage, const ScriptCommand& command)
{
    return CompareKey(stage, command, true);
}

QString ExpectNoKey(ScriptStage& stage, const ScriptCommand& command)
{
    return CompareKey(stage, command, false);
}

QString ExpectSelected(ScriptStage& stage, const ScriptCommand& command)
{
    int count = 0;
    for (const SceneTrack& row : stage.window.CurrentScene().tracks) {
        if (const CTimelineKeyArray* const keys = stage.window.Tracks().KeysOf(row.id))
            count += SelectedOn(*keys);
    }
    return Compared(command.numbers[0], count, "selected keys:");
}

QString ExpectStatus(ScriptStage& stage, const ScriptCommand& command)
{
    const QString found = stage.window.statusBar()->currentMessage();
    return found == command.texts[0] ? kDone
                                     : QStringLiteral("expected the status \"%1\", found \"%2\"")
                                           .arg(command.texts[0], found);
}

QString ExpectSaved(ScriptStage& stage, const ScriptCommand& command)
{
    const bool isSaved = !stage.window.isWindowModified();
    if (isSaved == command.Says("saved"))
        return kDone;
    return isSaved ? QStringLiteral("expected changes that are not saved, found none")
                   : QStringLiteral("expected a saved scene, found changes that are not saved");
}

} // namespace host
