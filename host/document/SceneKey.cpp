#include "SceneKey.h"

#include <tuple>

namespace host {

namespace {

auto Members(const Transition& transition)
{
    return std::tie(transition.direction, transition.frames);
}

auto Members(const ClipSpan& clip)
{
    return std::tie(clip.length, clip.loops, clip.leadIn, clip.shortest, clip.longest,
                    clip.material);
}

auto Members(const SceneKey& key)
{
    return std::tie(key.id, key.frame, key.name, key.priority, key.locked, key.alternate, key.group,
                    key.mouthShape, key.startsLink, key.transition, key.clip, key.sound,
                    key.subKeys);
}

} // namespace

bool operator==(const Transition& a, const Transition& b)
{
    return Members(a) == Members(b);
}

bool operator==(const ClipSpan& a, const ClipSpan& b)
{
    return Members(a) == Members(b);
}

bool operator==(const SceneKey& a, const SceneKey& b)
{
    return Members(a) == Members(b);
}

} // namespace host
