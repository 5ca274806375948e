#include "MenuPath.h"
#include "RowMenuHand.h"
#include "ScriptDeeds.h"
#include "ScriptScene.h"
#include "view/MainWindow.h"

#include <QAction>

#include <array>

namespace host {

namespace {

const QString kDone;
const QString kRuler = QStringLiteral("ruler");

/// A frame of a row, where it is seen.
struct Place
{
    const SceneTrack* row = nullptr; ///< the scene's; null on the ruler
    FrameCell cell;
};

std::optional<Place> Find(ScriptStage& stage, const QString& name, int frame, QString& error)
{
    if (name == kRuler) {
        const auto cell = stage.timeline.RulerCell(frame, error);
        return cell ? std::optional<Place>({nullptr, *cell}) : std::nullopt;
    }
    const Scene& scene = stage.window.CurrentScene();
    const TrackId row = FindRow(scene, name, error);
    const auto cell = row == kNoTrack ? std::nullopt : stage.timeline.Cell(row, frame, error);
    return cell ? std::optional<Place>({scene.FindTrack(row), *cell}) : std::nullopt;
}

struct View
{
    const char* word;
    const char* entry;
    bool isSufferedAgain; ///< asked for where it is already: nothing is to be done
};

constexpr std::array<View, 4> kViews{{{"in", "View > Zoom In", false},
                                      {"out", "View > Zoom Out", false},
                                      {"all", "View > Show All Frames", true},
                                      {"closest", "View > Show Closest", true}}};

Qt::KeyboardModifiers ModifiersOf(const ScriptCommand& command)
{
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ControlModifier, command.Says("ctrl"));
    modifiers.setFlag(Qt::ShiftModifier, command.Says("shift"));
    return modifiers;
}

QPoint PressPoint(const FrameCell& cell, const ScriptCommand& command)
{
    if (command.Says("start"))
        return cell.Start();
    return command.Says("end") ? cell.End() : cell.Middle();
}

/// Where a row neither has keys nor an end of its time range, both of which a press would grab; -1
/// when there is no such frame between the two.
int EmptyFrame(const SceneTrack& row, int first, int last)
{
    constexpr int kReach = 2; // frames that a handle may be grabbed from, drawn small
    for (int frame = first + kReach; frame <= last - kReach; ++frame) {
        if (!IsOnKey(row, frame))
            return frame;
    }
    return -1;
}

/// Gives the row's time range up, as its ends would be grabbed where a new one is to begin.
void LeaveTimeRange(ScriptStage& stage, const SceneTrack& row)
{
    CTimelineTrackBase* const track = stage.window.Tracks().TrackOf(row.id);
    int first = -1;
    int last = -1;
    stage.window.Timeline().GetTrackSelFrame(track, first, last);
    const int empty = first < 0 ? -1 : EmptyFrame(row, first, last);
    QString ignored;
    const auto cell = empty < 0 ? std::nullopt : stage.timeline.Cell(row.id, empty, ignored);
    if (cell)
        stage.hand.Click(*cell->row, cell->Middle());
}

/// Selects all from one frame to another. A rubber band begins beside the keys; where keys stand at
/// both ends, one is clicked and the other Shift-clicked.
void SelectRange(ScriptStage& stage, const Place& place, int first, const FrameCell& other,
                 int last, Qt::KeyboardModifiers modifiers)
{
    const bool startsOnKey = IsOnKey(*place.row, first);
    const bool endsOnKey = IsOnKey(*place.row, last);
    QWidget& row = *place.cell.row;
    if (!modifiers)
        LeaveTimeRange(stage, *place.row);
    if (!startsOnKey) {
        stage.timeline.Drag(row, place.cell.Middle(), other.Middle(), modifiers);
    } else if (!endsOnKey) {
        stage.timeline.Drag(row, other.Middle(), place.cell.Middle(), modifiers);
    } else {
        const QPointer<QWidget> stillThere(&row);
        stage.hand.Click(row, place.cell.Middle(), modifiers);
        if (stillThere)
            stage.hand.Click(row, other.Middle(), modifiers | Qt::ShiftModifier);
    }
}

bool HasChanged(const Scene& before, int frameBefore, const ScriptStage& stage)
{
    return stage.window.Timeline().GetCurrentFrame() != frameBefore ||
           stage.window.CurrentScene() != before;
}

} // namespace

QString GoToFrame(ScriptStage& stage, const ScriptCommand& command)
{
    const int last = stage.window.CurrentScene().frameCount - 1;
    if (command.numbers[0] > last)
        return QStringLiteral("the last frame is %1").arg(last);
    stage.timeline.GoToFrame(command.numbers[0]);
    return kDone;
}

QString Zoom(ScriptStage& stage, const ScriptCommand& command)
{
    for (const View& view : kViews) {
        if (!command.Says(view.word))
            continue;
        const QString error = ChooseInMenu(stage, QLatin1String(view.entry));
        return view.isSufferedAgain ? kDone : error;
    }
    return kDone;
}

QString ZoomRange(ScriptStage& stage, const ScriptCommand& command)
{
    const int first = command.numbers[0];
    const int last = command.numbers[1];
    const int lastOfScene = stage.window.CurrentScene().frameCount - 1;
    if (first > last)
        return QStringLiteral("expected the first frame before the last");
    if (last > lastOfScene)
        return QStringLiteral("the last frame is %1").arg(lastOfScene);
    stage.timeline.ShowFrames(first, last);
    return kDone;
}

QString Select(ScriptStage& stage, const ScriptCommand& command)
{
    QString error;
    const int first = command.numbers[0];
    const int last = command.numbers.value(1, first);
    const auto place = Find(stage, command.texts[0], first, error);
    const auto other = Find(stage, command.texts[0], last, error);
    if (!place || !other)
        return error;
    if (!place->row)
        return QStringLiteral("the ruler has nothing to select");
    if (first != last) {
        SelectRange(stage, *place, first, other->cell, last, ModifiersOf(command));
        return kDone;
    }
    if (!IsOnKey(*place->row, first))
        return QStringLiteral("\"%1\" has no key at frame %2").arg(command.texts[0]).arg(first);
    stage.hand.Click(*place->cell.row, place->cell.Middle(), ModifiersOf(command));
    return kDone;
}

QString Drag(ScriptStage& stage, const ScriptCommand& command)
{
    QString error;
    const int lastOfScene = stage.window.CurrentScene().frameCount - 1;
    const int from = command.numbers[0];
    const qint64 asked = qint64(from) + command.numbers[1];
    const int to = static_cast<int>(qBound<qint64>(0, asked, lastOfScene));
    const auto place = Find(stage, command.texts[0], from, error);
    const auto target = place ? Find(stage, command.texts[0], to, error) : std::nullopt;
    if (!target)
        return error;
    const Scene before = stage.window.CurrentScene();
    const int frameBefore = stage.window.Timeline().GetCurrentFrame();
    stage.timeline.Drag(*place->cell.row, PressPoint(place->cell, command),
                        PressPoint(target->cell, command), ModifiersOf(command));
    const bool isScrub = !place->row;
    if (HasChanged(before, isScrub ? frameBefore : stage.window.Timeline().GetCurrentFrame(),
                   stage))
        return kDone;
    return QStringLiteral("nothing of \"%1\" could be dragged at frame %2")
        .arg(command.texts[0])
        .arg(from);
}

QString Hover(ScriptStage& stage, const ScriptCommand& command)
{
    QString error;
    const auto place = Find(stage, command.texts[0], command.numbers[0], error);
    if (place)
        stage.hand.MoveTo(*place->cell.row, place->cell.Middle());
    return error;
}

QString ChooseInRowMenu(ScriptStage& stage, const ScriptCommand& command)
{
    QString error;
    const int frame = command.numbers.value(0, stage.window.Timeline().GetCurrentFrame());
    const auto place = Find(stage, command.texts[0], frame, error);
    return place ? ChooseFromRowMenu(stage.hand, place->cell, command.texts[1]) : error;
}

} // namespace host
