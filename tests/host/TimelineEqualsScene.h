#pragma once

#include "view/SceneTracks.h"

/// One line about the first thing in which a key of the timeline and the scene's differ; empty when
/// they are the same.
inline QString DifferenceOf(const CTimelineKey& shown, const host::SceneKey& key)
{
    const auto differ = [&](const char* what, int a, int b) {
        return QStringLiteral("%1 is shown as %2, not %3").arg(QLatin1String(what)).arg(a).arg(b);
    };
    const bool isInto = key.transition && key.transition->direction == host::BlendDirection::Into;
    const bool isOutOf = key.transition && !isInto;
    const host::ClipSpan span = key.clip.value_or(host::ClipSpan{0, 1, 0, 0, 0});
    const struct
    {
        const char* what;
        int shown;
        int expected;
    } rows[] = {
        {"number", shown.hostValue7, key.id},
        {"frame", shown.frame, key.frame},
        {"priority", shown.priority, key.priority},
        {"lock", shown.lockState, key.locked ? 1 : 0},
        {"alternate", shown.alternateStyle, key.alternate},
        {"mouth shape", shown.hostValue6, key.mouthShape},
        {"link", (shown.keyType & TL_KEY_LINK_START) != 0, key.startsLink},
        {"group", static_cast<bool>(shown.group), key.group != host::kNoGroup},
        {"clip length", shown.clipLength, span.length},
        {"loops", shown.loopCount, span.loops},
        {"shortest length", shown.hostValue3, span.shortest},
        {"longest length", shown.hostValue2, span.longest},
        {"material", shown.hostValue4, span.material},
        {"blend or lead-in", shown.transitionFrames,
         key.transition ? key.transition->frames : span.leadIn},
        {"blend into", (shown.kindMask & TL_KEY_TRANSITION_IN) != 0, isInto},
        {"blend out of", (shown.kindMask & TL_KEY_TRANSITION_OUT) != 0, isOutOf},
    };
    for (const auto& row : rows) {
        if (row.shown != row.expected)
            return differ(row.what, row.shown, row.expected);
    }
    return shown.name == key.name ? QString() : QStringLiteral("name is shown as ") + shown.name;
}

inline QString DifferenceOf(const CTimelineKeyArray& shown, const QVector<host::SceneKey>& keys)
{
    const int count = static_cast<int>(shown.GetSize());
    if (count != keys.size())
        return QStringLiteral("%1 keys are shown, not %2").arg(count).arg(keys.size());
    for (int i = 0; i < count; ++i) {
        const auto key = shown.GetAt(i);
        QString difference = DifferenceOf(*key, keys[i]);
        if (difference.isEmpty() && key->subKeys)
            difference = DifferenceOf(*key->subKeys, keys[i].subKeys);
        else if (difference.isEmpty() && !keys[i].subKeys.isEmpty())
            difference = QStringLiteral("keys inside are not shown");
        if (!difference.isEmpty())
            return QStringLiteral("key %1: %2").arg(i).arg(difference);
    }
    return {};
}

/// One line about the first thing in which the timeline differs from the scene: its tracks' keys
/// and its ruler's markers. Empty when it shows just the scene.
inline QString TimelineDifference(CTimelineManager& manager, const host::SceneTracks& tracks,
                                  const host::Scene& scene)
{
    for (const host::SceneTrack& track : scene.tracks) {
        const CTimelineKeyArray* const keys = tracks.KeysOf(track.id);
        const QString difference =
            keys ? DifferenceOf(*keys, track.keys) : QStringLiteral("is not shown");
        if (!difference.isEmpty())
            return QStringLiteral("%1: %2").arg(track.caption, difference);
    }
    int start = -1;
    int end = -1;
    manager.GetTimeMarkFrame(start, end);
    if (start != scene.timeMark.start || end != scene.timeMark.end)
        return QStringLiteral("the markers stand at %1 and %2").arg(start).arg(end);
    return {};
}
