#include "MaterialEdits.h"

#include "RowMerge.h"
#include "SoundClips.h"

#include <QCoreApplication>

namespace host {

namespace {

QString Locked(const QString& caption)
{
    return QCoreApplication::translate("Import", "%1 is locked and cannot be replaced")
        .arg(caption);
}

/// The roots that hold what was brought. Of the face other rows stay: they hold sounds.
struct Part
{
    bool isBrought;
    QString root;
    RowMerge::Others others;
};

TrackId RootNamed(const Scene& scene, const QString& name)
{
    for (const SceneTrack& track : scene.tracks) {
        if (track.parent == kNoTrack && track.name == name)
            return track.id;
    }
    return kNoTrack;
}

bool TakeRows(Scene& scene, const Scene& rows, bool hasSounds, QString& reason)
{
    const Part parts[]{
        {hasSounds || !rows.line.cues.isEmpty(), QStringLiteral("Face"), RowMerge::Others::Stay},
        {!rows.motion.joints.isEmpty(), QStringLiteral("Body"), RowMerge::Others::Go}};
    RowMerge merge(scene, rows);
    for (const Part& part : parts) {
        if (!part.isBrought)
            continue;
        const QString locked = merge.LockedRowUnder(RootNamed(rows, part.root), part.others);
        if (!locked.isEmpty()) {
            reason = Locked(locked);
            return false;
        }
    }
    for (const Part& part : parts) {
        if (part.isBrought)
            merge.Take(RootNamed(rows, part.root), part.others);
    }
    return true;
}

} // namespace

bool AddMaterial(Scene& scene, const Material& material, int frame, QString& reason)
{
    Scene made = scene;
    const Scene& rows = material.rows;
    if (!TakeRows(made, rows, !material.sounds.isEmpty(), reason))
        return false;
    if (!rows.motion.joints.isEmpty())
        made.motion = rows.motion;
    if (!rows.line.cues.isEmpty())
        made.line = rows.line;
    MakeRoomFor(made, rows.frameCount);
    AddSounds(made, material.sounds, frame);
    scene = made;
    return true;
}

} // namespace host
