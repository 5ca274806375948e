#include "SceneBuilder.h"

#include "BodyTracks.h"
#include "FaceTracks.h"
#include "RowDefaults.h"
#include "document/MotionSampling.h"

#include <algorithm>

namespace host {

namespace {

constexpr int kFewestFrames = 2; ///< a clip of one step shows two frames
constexpr int kWideButtons = 3;
constexpr int kNarrowButtons = 2;

/// As the captions of the timeline show it, which fits a narrow button: "L Fore Arm".
QString Shortened(QString caption)
{
    for (const QString& side : {QStringLiteral("Left "), QStringLiteral("Right ")}) {
        if (caption.startsWith(side))
            caption.remove(1, side.size() - 2);
    }
    return caption;
}

TrackId AddSwitchRow(Scene& scene, const QString& name, int style)
{
    SceneTrack row = MakeRow(TrackKind::Switch, name, name, kNoTrack);
    row.styleNumber = style;
    return scene.AddTrack(row);
}

void AddButton(SceneTrack& row, const QString& text, const QVector<TrackId>& tracks)
{
    if (!tracks.isEmpty())
        row.buttons.append({text, true, tracks});
}

void AddLayerButtons(SceneTrack& row, const FaceRows& face, const BodyRows& body)
{
    QVector<TrackId> blends = body.blends;
    if (face.lips != kNoTrack) {
        AddButton(row, QStringLiteral("Lips"), {face.lips});
        blends.append(face.rests);
    }
    AddButton(row, QStringLiteral("Joints"), body.joints);
    AddButton(row, QStringLiteral("Contacts"), body.contacts);
    AddButton(row, QStringLiteral("Blends"), blends);
}

} // namespace

std::optional<Scene> BuildScene(const Motion& motion, const SpokenLine& line,
                                const SceneBuild& build)
{
    Scene scene;
    scene.frameRate = build.frameRate;
    scene.motion = motion;
    scene.line = line;
    scene.frameCount = std::max({kFewestFrames, SceneFramesOf(motion, scene.frameRate),
                                 SceneFramesOf(line, scene.frameRate)});
    scene.timeMark = {0, scene.frameCount - 1};

    const TrackId layers = AddSwitchRow(scene, QStringLiteral("Layers"), kWideButtons);
    const TrackId joints = motion.joints.isEmpty()
                               ? kNoTrack
                               : AddSwitchRow(scene, QStringLiteral("Joints"), kNarrowButtons);
    FaceRows face;
    std::optional<BodyRows> body = BodyRows();
    if (build.withFace || !line.cues.isEmpty())
        face = AddFaceTracks(scene);
    if (!motion.joints.isEmpty())
        body = AddBodyTracks(scene, build.progress);
    if (!body)
        return std::nullopt;
    AddLayerButtons(*scene.FindTrack(layers), face, *body);
    for (const TrackId joint : qAsConst(body->joints))
        AddButton(*scene.FindTrack(joints), Shortened(scene.FindTrack(joint)->caption), {joint});
    return scene;
}

Scene BuildScene(const Motion& motion, const SpokenLine& line)
{
    return *BuildScene(motion, line, SceneBuild()); // without a listener nothing cancels
}

} // namespace host
