#include "TimelineKeys.h"

namespace host {

namespace {

// Bits of a timeline key's kind mask and key type that rows draw by.
constexpr int kBlendInto = 16;
constexpr int kBlendOutOf = 32;
constexpr int kStartsLink = 2;

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
    made.kindMask |= transition.direction == BlendDirection::Into ? kBlendInto : kBlendOutOf;
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
    made->lockState = key.locked ? 1 : 0;
    made->alternateStyle = key.alternate;
    made->hostValue6 = key.mouthShape;
    if (key.startsLink)
        made->keyType |= kStartsLink;
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
