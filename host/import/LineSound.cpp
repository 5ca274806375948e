#include "LineSound.h"

#include "WavReader.h"
#include "document/ClipEdits.h"
#include "document/KeyList.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>

namespace host {

namespace {

QString SoundOf(const QByteArray& cues, const QString& path)
{
    const QJsonObject metadata =
        QJsonDocument::fromJson(cues).object().value(QLatin1String("metadata")).toObject();
    const QString sound = metadata.value(QLatin1String("soundFile")).toString();
    if (sound.isEmpty())
        return {};
    return QDir::cleanPath(QFileInfo(path).absoluteDir().absoluteFilePath(sound));
}

/// The row of clips beside the lips.
const SceneTrack* FindSoundRow(const Scene& scene)
{
    for (const SceneTrack& lips : scene.tracks) {
        if (lips.kind != TrackKind::Viseme)
            continue;
        for (const SceneTrack& row : scene.tracks) {
            if (row.kind == TrackKind::Clip && row.parent == lips.parent)
                return &row;
        }
    }
    return nullptr;
}

} // namespace

void AddLineSound(Scene& scene, const QByteArray& cues, const QString& path)
{
    const SceneTrack* const row = FindSoundRow(scene);
    const QString sound = SoundOf(cues, path);
    ImportError ignored;
    const std::optional<double> seconds =
        row && !sound.isEmpty() ? ReadWavSeconds(sound, ignored) : std::nullopt;
    if (!seconds)
        return;
    constexpr double kRounding = 1e-6; // keeps 3.0 seconds at 30 a second from being 91 frames
    const int length =
        std::max(1, static_cast<int>(std::ceil(*seconds * scene.frameRate - kRounding)) - 1);
    if (scene.frameCount <= length) {
        scene.frameCount = length + 1;
        scene.timeMark.end = length;
    }
    const TrackId id = row->id;
    const KeyId clip = AddClip(scene, id, QFileInfo(sound).completeBaseName(), length, 0);
    FindKey(scene, id, clip)->sound = sound;
}

} // namespace host
