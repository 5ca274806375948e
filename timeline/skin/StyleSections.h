#pragma once

#include "skin/SkinSection.h"
#include "skin/TrackStyles.h"

/// The readers of the track sections, one for each kind of record. Each reads its keys in a fixed
/// order and stops at the first that is missing, answering false: what was read before it stays in
/// the record, what would have come after keeps its initial value.

bool ReadTickTrack(const SkinSection& track, TickTrackStyle& style);
bool ReadSwitchTrack(const SkinSection& track, SwitchTrackStyle& style);
bool ReadKeyTrack(const SkinSection& track, KeyTrackStyle& style);
bool ReadLineKeyTrack(const SkinSection& track, LineKeyTrackStyle& style);
bool ReadClipTrack(const SkinSection& track, ClipTrackStyle& style);
bool ReadWaveTrack(const SkinSection& track, WaveTrackStyle& style);
