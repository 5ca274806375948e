#pragma once

#include "TestTracks.h"
#include "container/CTimelineContainer.h"
#include "model/TimelineKeyValues.h"
#include "support/HostFixture.h"

namespace KestovaTest {

/// A timeline with a row of every kind, in three roots: switches, a body of motion, key, transition
/// and link rows, and a face of lips and voice. Every row but the switches holds keys in several
/// states.
struct FullScene
{
    explicit FullScene(HostFixture& fixture);

    /// Selects a key of every row; activating a row of another root deselects them all.
    void SelectSome();

    CTimelineTrackBase* switches;
    CTimelineTrackBase* body;
    CTimelineTrackBase* motion;
    std::vector<CTimelineTrackBase*> joints;
    CTimelineTrackBase* blend;
    CTimelineTrackBase* path;
    CTimelineTrackBase* face;
    CTimelineTrackBase* lips;
    CTimelineTrackBase* voice;

private:
    static VZ::CPointer<CTimelineKey> Add(CTimelineTrackBase* track, int frame, int clipLength = 0)
    {
        VZ::CPointer<CTimelineKey> key(new CTimelineKey);
        key->frame = frame;
        key->clipLength = clipLength;
        key->hostSwitch = clipLength > 0;
        track->Keys().Add(key, false);
        return key;
    }
    static void Select(CTimelineTrackBase* track, int index)
    {
        track->Keys().SetSelectionByIndex(index, index, true, TL_KEY_ANY_KIND);
    }
    void FillMotion();
    void FillJoints();
    void FillBlendAndPath();
    void FillFace();
};

inline FullScene::FullScene(HostFixture& fixture)
{
    fixture.manager->SetFrameCount(140);
    switches = fixture.Root(TL_TRACK_SWITCH, "Switches");
    body = fixture.Root(TL_TRACK_KEY, "Body");
    motion = fixture.Child(body, TL_TRACK_CLIP, "Motion");
    for (const char* name : {"Hips", "Left Upper Leg", "Left Lower Leg", "Left Foot",
                             "Right Upper Leg", "Right Lower Leg", "Right Foot", "Spine", "Neck",
                             "Head", "Jaw", "Left shoulder blade", "Right shoulder blade"})
        joints.push_back(fixture.Child(body, TL_TRACK_KEY, name));
    blend = fixture.Child(body, TL_TRACK_TRANSITION_KEY, "Blend");
    path = fixture.Child(body, TL_TRACK_LINK_KEY, "Path");
    face = fixture.Root(TL_TRACK_KEY, "Face");
    lips = fixture.Child(face, TL_TRACK_VISEME_KEY, "Lips");
    voice = MakeTrack(TL_TRACK_WAVE, "Voice", 1, fixture.Container());
    fixture.Container()->ShowChildTrack(face, voice, 0xFFFFu, false);

    std::vector<_tmpTLSwitchBtnData> buttons{
        {"Gaze", 0}, {"Breath", 2}, {"Feet on ground", 0}, {"Secondary", 2}};
    fixture.manager->SetTrackSwitchBtnList(switches, buttons);
    FillMotion();
    FillJoints();
    FillBlendAndPath();
    FillFace();
    SelectSome();
}

inline void FullScene::SelectSome()
{
    Select(motion, 1);
    for (std::size_t i = 0; i < joints.size(); ++i)
        Select(joints[i], static_cast<int>(i) % 3 + 1);
    Select(blend, 2);
    Select(path, 1);
    Select(lips, 3);
    Select(voice, 1);
}

inline void FullScene::FillMotion()
{
    Add(motion, 0, 24)->name = "Stand";
    const auto walk = Add(motion, 25, 20);
    walk->name = "Walk";
    walk->loopCount = 2;
    const auto turn = Add(motion, 70, 25);
    turn->name = "Turn";
    turn->lockState = TL_KEY_LOCKED;
    const auto wave = Add(motion, 100, 60);
    wave->name = "Wave";
    wave->alternateStyle = true;
    motion->Keys().UpdateClipDisplayLength(1);
}

inline void FullScene::FillJoints()
{
    for (std::size_t i = 0; i < joints.size(); ++i) {
        const int step = 5 + static_cast<int>(i) * 2;
        for (int frame = static_cast<int>(i); frame < 150; frame += step)
            Add(joints[i], frame);
    }
    Add(joints[0], 90, 12);
}

inline void FullScene::FillBlendAndPath()
{
    const struct
    {
        int frame, frames, kind;
    } transitions[] = {{12, 8, TL_KEY_TRANSITION_IN},
                       {40, 12, TL_KEY_TRANSITION_OUT},
                       {80, 15, TL_KEY_TRANSITION_IN},
                       {110, 6, TL_KEY_TRANSITION_OUT}};
    for (const auto& each : transitions) {
        const auto key = Add(blend, each.frame);
        key->transitionFrames = each.frames;
        key->kindMask = each.kind;
    }

    for (const int frame : {5, 30, 55, 85, 120}) {
        const auto key = Add(path, frame);
        if (frame != 55)
            key->keyType = TL_KEY_LINK_START;
        key->alternateStyle = frame == 85;
    }
}

inline void FullScene::FillFace()
{
    int shape = 0;
    for (int frame = 2; frame < 138; frame += 8)
        Add(lips, frame)->hostValue6 = shape++ % 17;
    Add(voice, 6, 60);
    Add(voice, 80, 40);
}

} // namespace KestovaTest
