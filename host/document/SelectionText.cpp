#include "SelectionText.h"

#include "EditNames.h"
#include "KeyList.h"
#include "MouthShapes.h"

#include <QCoreApplication>

namespace host {

namespace {

QString Translated(const char* text)
{
    return QCoreApplication::translate("SelectionText", text);
}

/// Where the only key of the selection stands, and which shape it is.
QString PlaceOf(const Scene& scene, const KeySelection& selected)
{
    const SceneTrack* const row = scene.FindTrack(selected.track);
    const SceneKey* const clip = FindKey(scene, selected.track, selected.clip);
    const QVector<SceneKey> keys = clip ? clip->subKeys : row ? row->keys : QVector<SceneKey>();
    const int index = IndexOfKey(keys, selected.keys.first());
    if (index < 0)
        return {};
    const SceneKey& key = keys[index];
    const QString frame = Translated("frame %1").arg(key.frame + (clip ? clip->frame : 0));
    if (key.clip)
        return QStringLiteral("%1, %2").arg(key.name, frame);
    return clip ? QStringLiteral("%1, %2").arg(ShortNameOfMouthShape(key.mouthShape), frame)
                : frame;
}

} // namespace

QString SelectionText(const Scene& scene, const QVector<KeySelection>& selection)
{
    const KeySelection* only = nullptr;
    int count = 0;
    for (const KeySelection& selected : selection) {
        count += selected.keys.size();
        only = selected.keys.isEmpty() ? only : &selected;
    }
    if (count == 0)
        return {};
    const QString text = Translated("%1 selected").arg(ItemsText(ItemsOf(scene, selection)));
    const QString place = count == 1 ? PlaceOf(scene, *only) : QString();
    return place.isEmpty() ? text : QStringLiteral("%1: %2").arg(text, place);
}

} // namespace host
