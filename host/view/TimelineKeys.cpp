#include "TimelineKeys.h"

namespace host {

namespace {

/// Stands for a group; that keys share it is all there is to it.
class GroupToken : public CReltedGroupBase
{
};

void AddClip(CTimelineKey& made, const ClipSpan& clip)
{
    made.clipLength = clip.length;
    made.loopCount = clip.loops;
    made.transitionFrames = clip.leadIn;
    made.hostValue2 = clip.longest;
    made.hostValue3 = clip.shortest;
    made.hostSwitch = true; // rows of keys draw the clip's frame
}

void AddTransition(CTimelineKey& made, const Transition& transition)
{
    made.transitionFrames = transition.frames;
    made.kindMask |=
        transition.direction == BlendDirection::Into ? TL_KEY_TRANSITION_IN : TL_KEY_TRANSITION_OUT;
}

} // namespace

TimelineKeys::KeyVector TimelineKeys::Make(const QVector<SceneKey>& keys)
{
    KeyVector made;
    made.reserve(static_cast<std::size_t>(keys.size()));
    for (const SceneKey& key : keys)
        made.push_back(Make(key));
    return made;
}

VZ::CPointer<CTimelineKey> TimelineKeys::Make(const SceneKey& key)
{
    VZ::CPointer<CTimelineKey> made(new CTimelineKey);
    made->name = key.name;
    made->frame = key.frame;
    made->priority = key.priority;
    made->lockState = key.locked ? TL_KEY_LOCKED : TL_KEY_UNLOCKED;
    made->alternateStyle = key.alternate;
    made->hostValue6 = key.mouthShape;
    if (key.startsLink)
        made->keyType |= TL_KEY_LINK_START;
    if (key.clip)
        AddClip(*made, *key.clip);
    if (key.transition)
        AddTransition(*made, *key.transition);
    if (!key.subKeys.isEmpty()) {
        made->subKeys = new CTimelineKeyArray;
        made->subKeys->AddKeys(Make(key.subKeys), false);
    }
    made->group = TokenOf(key.group);
    return made;
}

VZ::CPointer<CReltedGroupBase> TimelineKeys::TokenOf(GroupId group)
{
    if (group == kNoGroup)
        return {};
    VZ::CPointer<CReltedGroupBase>& token = m_tokens[group];
    if (!token)
        token = new GroupToken;
    return token;
}

} // namespace host
