#pragma once

#include "tracks/CTimelineTrackClip.h"
#include "tracks/CTimelineTrackKey.h"
#include "tracks/CTimelineTrackLinkKey.h"
#include "tracks/CTimelineTrackSwitch.h"
#include "tracks/CTimelineTrackTransKey.h"
#include "tracks/CTimelineTrackVisemeKey.h"

#include <QtTest>

#include <memory>

namespace KestovaTest {

inline CTimelineTrackBase* NewTrack(TL_TRACK_TYPE type)
{
    switch (type) {
    case TL_TRACK_SWITCH:
        return new CTimelineTrackSwitch;
    case TL_TRACK_TRANSITION_KEY:
        return new CTimelineTrackTransKey;
    case TL_TRACK_LINK_KEY:
        return new CTimelineTrackLinkKey;
    case TL_TRACK_VISEME_KEY:
        return new CTimelineTrackVisemeKey;
    case TL_TRACK_CLIP:
    case TL_TRACK_WAVE:
        return new CTimelineTrackClip;
    default:
        return new CTimelineTrackKey;
    }
}

constexpr int kNoStyle = 0;

/// A track of any host kind, the wave row included, which no manager makes; styled (unless with
/// kNoStyle, which is quicker to make), named and placed nowhere. Owned by the caller until it is
/// shown or gets a parent.
inline CTimelineTrackBase* MakeTrack(TL_TRACK_TYPE type, const QString& name, int styleIndex = 1,
                                     QWidget* parent = nullptr)
{
    CTimelineTrackBase* const track = NewTrack(type);
    if (!track->Init(parent))
        qFatal("a track could not be made");
    if (type == TL_TRACK_WAVE)
        static_cast<CTimelineTrackClip*>(track)->MakeWave();
    if (styleIndex != kNoStyle && !track->LoadStyle(styleIndex))
        qFatal("a track's style could not be read");
    track->MarkAsOwnTrack();
    track->SetCaption(name);
    return track;
}

/// Adds a key at each frame; the keys are returned through the array.
inline void AddKeysTo(CTimelineTrackBase& track, std::initializer_list<int> frames)
{
    for (const int frame : frames) {
        VZ::CPointer<CTimelineKey> key(new CTimelineKey);
        key->frame = frame;
        track.Keys().Add(key, false);
    }
}

inline void SetModes(CTimelineTrackBase& track, std::initializer_list<TLEditType> modes)
{
    VZ::CArrayList<TLEditType> list;
    for (const TLEditType mode : modes)
        list.Add(mode);
    track.SetEditModes(list);
}

/// Gives the key at @p index a sub-key array with a key at each frame, counted from the clip's.
inline void AddSubKeys(CTimelineTrackBase& track, int index, std::initializer_list<int> frames)
{
    VZ::CPointer<CTimelineKeyArray> subKeys(new CTimelineKeyArray);
    for (const int frame : frames) {
        VZ::CPointer<CTimelineKey> key(new CTimelineKey);
        key->frame = frame;
        subKeys->Add(key, false);
    }
    track.Keys().GetAt(index)->subKeys = subKeys;
}

} // namespace KestovaTest
