#pragma once

#include "Scene.h"

#include <array>

namespace host {

/// What a row's caption buttons and its menu switch on and off.
enum class RowState
{
    Muted,
    Soloed,
    Locked
};

constexpr std::array<RowState, 3> kRowStates{RowState::Muted, RowState::Soloed, RowState::Locked};

/// What a state is called, translated.
struct RowStateTexts
{
    QString name;      ///< "Mute"
    QString switchOn;  ///< the edit, with a place for the row's name: "Mute %1"
    QString switchOff; ///< "Unmute %1"
    QString isOn;      ///< said of a row: "muted"
};
RowStateTexts TextsOf(RowState state);

bool HasState(const SceneTrack& track, RowState state);

/// Switches the state on or off. Changes nothing but @p scene; nothing without the row.
void SetState(Scene& scene, TrackId track, RowState state, bool on);

/// Whether the row, or the root that it hangs under, is in that state.
bool IsInState(const Scene& scene, const SceneTrack& row, RowState state);

/// Whether any row is soloed: those that are not count as muted then.
bool IsAnySoloed(const Scene& scene);

/// Whether the row takes part in what is seen and heard: neither it nor its root is muted, and when
/// any row is soloed it or its root is.
bool TakesPart(const Scene& scene, const SceneTrack& row);

/// Whether the row is to be seen: of all switch buttons that stand for it none is off.
bool IsRowShown(const Scene& scene, TrackId row);

} // namespace host
