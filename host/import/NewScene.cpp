#include "NewScene.h"

#include "RowDefaults.h"

namespace host {

namespace {

constexpr int kSeconds = 10;

TrackId AddRow(Scene& scene, TrackKind kind, const QString& name, TrackId parent)
{
    return scene.AddTrack(MakeRow(kind, name, name, parent));
}

} // namespace

Scene NewScene()
{
    Scene scene;
    scene.frameCount = kSeconds * scene.frameRate;
    scene.timeMark = {0, scene.frameCount - 1};
    const TrackId layers = AddRow(scene, TrackKind::Switch, QStringLiteral("Layers"), kNoTrack);
    const TrackId face = AddRow(scene, TrackKind::Key, QStringLiteral("Face"), kNoTrack);
    const TrackId lips = AddRow(scene, TrackKind::Viseme, QStringLiteral("Lips"), face);
    AddRow(scene, TrackKind::Clip, QStringLiteral("Sound"), face);
    const TrackId body = AddRow(scene, TrackKind::Key, QStringLiteral("Body"), kNoTrack);
    const TrackId motion = AddRow(scene, TrackKind::Clip, QStringLiteral("Motion"), body);
    scene.FindTrack(layers)->buttons = {{QStringLiteral("Lips"), true, {lips}},
                                        {QStringLiteral("Motion"), true, {motion}}};
    return scene;
}

} // namespace host
