#include "SoundRows.h"

#include "FaceTracks.h"
#include "RowDefaults.h"
#include "document/RowStates.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <limits>

namespace host {

namespace {

QString Translated(const char* text)
{
    return QCoreApplication::translate("SoundRows", text);
}

/// Why a sound may not go on a row of that kind, in the order of TrackKind; null where it may.
constexpr std::array<const char*, 6> kReasons{
    QT_TRANSLATE_NOOP("SoundRows", "a row of buttons takes no files"),
    QT_TRANSLATE_NOOP("SoundRows", "sounds go on a row of clips"),
    QT_TRANSLATE_NOOP("SoundRows", "sounds go on a row of clips"),
    QT_TRANSLATE_NOOP("SoundRows", "sounds go on a row of clips"),
    QT_TRANSLATE_NOOP("SoundRows",
                      "mouth shapes come from mouth cues, sounds go on a row of clips"),
    nullptr,
};

/// The last frame that the key takes, if no other covers it.
qint64 EndOf(const SceneKey& key)
{
    return key.clip ? key.frame + qint64(key.clip->length) * key.clip->loops : key.frame;
}

/// The key whose frames hold @p frame; null when none does.
const SceneKey* KeyOver(const SceneTrack& row, int frame)
{
    const auto after =
        std::upper_bound(row.keys.cbegin(), row.keys.cend(), frame,
                         [](int place, const SceneKey& key) { return place < key.frame; });
    if (after == row.keys.cbegin())
        return nullptr;
    const SceneKey& key = *(after - 1);
    return EndOf(key) >= frame ? &key : nullptr;
}

/// The first key that begins from @p first to @p last.
const SceneKey* KeyFrom(const SceneTrack& row, int first, int last)
{
    const auto found =
        std::lower_bound(row.keys.cbegin(), row.keys.cend(), first,
                         [](const SceneKey& key, int place) { return key.frame < place; });
    return found != row.keys.cend() && found->frame <= last ? &*found : nullptr;
}

QString NameOf(const SceneKey& key)
{
    return key.name.isEmpty() ? Translated("a clip without a name") : key.name;
}

TrackId AddSoundRowBehind(Scene& scene, int index, int count)
{
    const SceneTrack& last = qAsConst(scene).tracks[index];
    SceneTrack row = MakeRow(TrackKind::Clip, last.name,
                             QStringLiteral("%1 %2").arg(last.name).arg(count + 1), last.parent);
    const TrackId id = scene.AddTrack(row);
    std::rotate(scene.tracks.begin() + index + 1, scene.tracks.end() - 1, scene.tracks.end());
    return id;
}

} // namespace

QString ReasonAgainstSound(const Scene& scene, const SceneTrack* row, int frame)
{
    if (!row)
        return Translated("sounds go on a row of clips");
    if (const char* const reason = kReasons.at(static_cast<std::size_t>(row->kind)))
        return Translated(reason);
    if (IsInState(scene, *row, RowState::Locked))
        return Translated("the row is locked");
    const SceneKey* const key = KeyOver(*row, frame);
    return key && key->locked ? Translated("a locked clip is in the way") : QString();
}

QString CoveredOn(const SceneTrack& row, int first, int last)
{
    if (const SceneKey* const key = KeyOver(row, first)) {
        return (key->frame == first ? Translated("%1 was replaced")
                                    : Translated("the end of %1 is covered"))
            .arg(NameOf(*key));
    }
    if (const SceneKey* const next = KeyFrom(row, first + 1, last))
        return Translated("heard until %1 begins").arg(NameOf(*next));
    return {};
}

TrackId FreeSoundRow(Scene& scene, int first, int last)
{
    int lastRow = -1;
    int count = 0;
    for (int i = 0; i < scene.tracks.size(); ++i) {
        const SceneTrack& row = qAsConst(scene).tracks[i];
        if (!IsSoundRow(row))
            continue;
        lastRow = i;
        ++count;
        if (ReasonAgainstSound(scene, &row, first).isEmpty() && !KeyOver(row, first) &&
            !KeyFrom(row, first, last))
            return row.id;
    }
    return lastRow < 0 ? kNoTrack : AddSoundRowBehind(scene, lastRow, count);
}

bool HasSound(const Scene& scene, const QString& path, int frame)
{
    const auto isIt = [&](const SceneKey& key) {
        return key.clip && key.frame == frame && key.sound == path && key.clip->leadIn == 0;
    };
    return std::any_of(scene.tracks.cbegin(), scene.tracks.cend(), [&](const SceneTrack& row) {
        return IsSoundRow(row) && std::any_of(row.keys.cbegin(), row.keys.cend(), isIt);
    });
}

} // namespace host
