#include "PlaceText.h"

#include "FrameText.h"
#include "MouthShapes.h"
#include "RowStates.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>

namespace host {

namespace {

QString Translated(const char* text)
{
    return QCoreApplication::translate("PlaceText", text);
}

/// The last of @p keys, which are in frame order, that stands at @p frame or before it; null when
/// there is none.
const SceneKey* LastUpTo(const QVector<SceneKey>& keys, int frame)
{
    const auto next =
        std::upper_bound(keys.cbegin(), keys.cend(), frame,
                         [](int wanted, const SceneKey& key) { return wanted < key.frame; });
    return next == keys.cbegin() ? nullptr : &*std::prev(next);
}

QString ShapeText(const SceneKey& clip, int frame)
{
    const int within = (frame - clip.frame) % std::max(1, clip.clip->length);
    const SceneKey* const shape = LastUpTo(clip.subKeys, within);
    if (!shape)
        return clip.name;
    return Translated("shape %1 of %2").arg(ShortNameOfMouthShape(shape->mouthShape), clip.name);
}

QString ClipText(const SceneKey& clip, int frame)
{
    if (clip.clip->loops < 2)
        return clip.name;
    const int pass = std::min((frame - clip.frame) / clip.clip->length + 1, clip.clip->loops);
    return Translated("%1, pass %2 of %3").arg(clip.name).arg(pass).arg(clip.clip->loops);
}

QString PointText(const SceneKey& key)
{
    if (key.transition)
        return Translated(key.transition->direction == BlendDirection::Into
                              ? "key, blend of %1 frames into it"
                              : "key, blend of %1 frames out of it")
            .arg(key.transition->frames);
    return Translated(key.startsLink ? "key, starts a link" : "key");
}

QString KeyText(const SceneTrack& row, int frame)
{
    const SceneKey* const key = LastUpTo(row.keys, frame);
    if (!key)
        return {};
    if (!key->clip)
        return key->frame == frame ? PointText(*key) : QString();
    const qint64 last = key->frame + qint64(key->clip->length) * key->clip->loops;
    if (frame > last)
        return {};
    return row.kind == TrackKind::Viseme ? ShapeText(*key, frame) : ClipText(*key, frame);
}

} // namespace

QString RowText(const Scene& scene, TrackId track)
{
    const SceneTrack* const row = scene.FindTrack(track);
    if (!row)
        return {};
    QStringList states;
    for (const RowState state : kRowStates) {
        if (HasState(*row, state))
            states.append(TextsOf(state).isOn);
    }
    return states.isEmpty() ? row->caption
                            : QStringLiteral("%1 (%2)").arg(row->caption, states.join(", "));
}

QString PlaceText(const Scene& scene, TrackId track, int frame)
{
    const SceneTrack* const row = scene.FindTrack(track);
    if (!row)
        return {};
    QStringList parts{RowText(scene, track)};
    if (row->kind != TrackKind::Switch) {
        parts.append(Translated("frame %1").arg(frame));
        parts.append(TimeText(frame, scene.frameRate));
        parts.append(KeyText(*row, frame));
    }
    parts.removeAll(QString());
    return parts.join(QStringLiteral("   "));
}

} // namespace host
