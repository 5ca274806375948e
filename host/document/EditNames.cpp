#include "EditNames.h"

#include "KeyList.h"
#include "MouthShapes.h"

#include <QCoreApplication>
#include <QSet>
#include <QStringList>

#include <cmath>

namespace host {

namespace {

QString Translated(const char* text)
{
    return QCoreApplication::translate("EditNames", text);
}

QString Counted(int count, const char* one, const char* many)
{
    return count == 1 ? Translated(one) : Translated(many).arg(count);
}

QString Frames(int frames)
{
    return Counted(std::abs(frames), "1 frame", "%1 frames");
}

} // namespace

QString ItemsText(const EditedItems& items)
{
    QStringList parts;
    if (items.keys > 0)
        parts += Counted(items.keys, "1 key", "%1 keys");
    if (items.clips > 0)
        parts += Counted(items.clips, "1 clip", "%1 clips");
    if (items.mouthShapes > 0)
        parts += Counted(items.mouthShapes, "1 mouth shape", "%1 mouth shapes");
    return parts.isEmpty() ? Translated("nothing") : parts.join(Translated(" and "));
}

EditedItems ItemsOf(const Scene& scene, const QVector<KeySelection>& selection)
{
    EditedItems items;
    for (const KeySelection& selected : selection) {
        const SceneTrack* const track = scene.FindTrack(selected.track);
        const SceneKey* const clip = FindKey(scene, selected.track, selected.clip);
        if (!track || (selected.clip != kNoKey && !clip))
            continue;
        const QSet<KeyId> ids(selected.keys.cbegin(), selected.keys.cend());
        for (const SceneKey& key : clip ? clip->subKeys : track->keys) {
            if (key.locked || !ids.contains(key.id))
                continue;
            const bool isMouthShape = track->kind == TrackKind::Viseme && !key.clip;
            ++(key.clip ? items.clips : isMouthShape ? items.mouthShapes : items.keys);
        }
    }
    return items;
}

QString MoveName(const EditedItems& items, int frames)
{
    const char* const text = frames < 0 ? "Move %1 back by %2" : "Move %1 by %2";
    return Translated(text).arg(ItemsText(items), Frames(frames));
}

QString CopyName(const EditedItems& items, int frame)
{
    return Translated("Copy %1 to frame %2").arg(ItemsText(items)).arg(frame);
}

QString PasteName(const EditedItems& items, int frame)
{
    return Translated("Paste %1 at frame %2").arg(ItemsText(items)).arg(frame);
}

QString CutName(const EditedItems& items)
{
    return Translated("Cut %1").arg(ItemsText(items));
}

QString DeleteName(const EditedItems& items)
{
    return Translated("Delete %1").arg(ItemsText(items));
}

QString InsertName(int frame)
{
    return Translated("Insert key at frame %1").arg(frame);
}

QString InsertShapeName(int frame)
{
    return Translated("Insert mouth shape at frame %1").arg(frame);
}

QString ChangeShapesName(const EditedItems& items, int shape)
{
    return Translated("Change %1 to %2").arg(ItemsText(items), ShortNameOfMouthShape(shape));
}

QString BreakName(int frame)
{
    return Translated("Break clip at frame %1").arg(frame);
}

QString LoopName(int passes)
{
    return Counted(passes, "Loop clip once", "Loop clip %1 times");
}

QString SpeedName(int lengthBefore, int length)
{
    const char* const text = length < lengthBefore ? "Speed clip up by %1" : "Slow clip down by %1";
    return Translated(text).arg(Frames(length - lengthBefore));
}

QString TrimName(int frames)
{
    const char* const text =
        frames < 0 ? "Give %1 back to clip's start" : "Trim %1 off clip's start";
    return Translated(text).arg(Frames(frames));
}

QString BlendName(int frames)
{
    return Translated(frames < 0 ? "Shorten blend by %1" : "Lengthen blend by %1")
        .arg(Frames(frames));
}

QString RowsName(const QString& rows, bool shown)
{
    return Translated(shown ? "Show %1" : "Hide %1").arg(rows);
}

QString MarkerName(bool isStart, int frame)
{
    return Translated(isStart ? "Move start marker to frame %1" : "Move end marker to frame %1")
        .arg(frame);
}

} // namespace host
