#include "RowStates.h"

#include <QCoreApplication>

#include <algorithm>

namespace host {

namespace {

/// The member for each RowState, in the order of the enumeration.
constexpr std::array<bool SceneTrack::*, 3> kMembers{&SceneTrack::muted, &SceneTrack::soloed,
                                                     &SceneTrack::locked};

bool SceneTrack::*MemberOf(RowState state)
{
    return kMembers.at(static_cast<std::size_t>(state));
}

struct Texts
{
    const char* name;
    const char* switchOn;
    const char* switchOff;
    const char* isOn;
};

/// In the order of the enumeration.
constexpr std::array<Texts, 3> kTexts{
    {{QT_TRANSLATE_NOOP("RowStates", "Mute"), QT_TRANSLATE_NOOP("RowStates", "Mute %1"),
      QT_TRANSLATE_NOOP("RowStates", "Unmute %1"), QT_TRANSLATE_NOOP("RowStates", "muted")},
     {QT_TRANSLATE_NOOP("RowStates", "Solo"), QT_TRANSLATE_NOOP("RowStates", "Solo %1"),
      QT_TRANSLATE_NOOP("RowStates", "Unsolo %1"), QT_TRANSLATE_NOOP("RowStates", "solo")},
     {QT_TRANSLATE_NOOP("RowStates", "Lock"), QT_TRANSLATE_NOOP("RowStates", "Lock %1"),
      QT_TRANSLATE_NOOP("RowStates", "Unlock %1"), QT_TRANSLATE_NOOP("RowStates", "locked")}}};

QString Translated(const char* text)
{
    return QCoreApplication::translate("RowStates", text);
}

} // namespace

RowStateTexts TextsOf(RowState state)
{
    const Texts& texts = kTexts.at(static_cast<std::size_t>(state));
    return {Translated(texts.name), Translated(texts.switchOn), Translated(texts.switchOff),
            Translated(texts.isOn)};
}

bool HasState(const SceneTrack& track, RowState state)
{
    return track.*MemberOf(state);
}

void SetState(Scene& scene, TrackId track, RowState state, bool on)
{
    if (SceneTrack* const row = scene.FindTrack(track))
        row->*MemberOf(state) = on;
}

bool IsInState(const Scene& scene, const SceneTrack& row, RowState state)
{
    const SceneTrack* const root = scene.FindTrack(row.parent);
    return HasState(row, state) || (root && HasState(*root, state));
}

bool IsAnySoloed(const Scene& scene)
{
    return std::any_of(scene.tracks.cbegin(), scene.tracks.cend(),
                       [](const SceneTrack& row) { return row.soloed; });
}

bool TakesPart(const Scene& scene, const SceneTrack& row)
{
    return !IsInState(scene, row, RowState::Muted) &&
           (IsInState(scene, row, RowState::Soloed) || !IsAnySoloed(scene));
}

bool IsRowShown(const Scene& scene, TrackId row)
{
    for (const SceneTrack& track : scene.tracks) {
        for (const SwitchButton& button : track.buttons) {
            if (!button.on && button.tracks.contains(row))
                return false;
        }
    }
    return true;
}

} // namespace host
