#include "KeyJson.h"

#include "SceneJsonNames.h"

namespace host {

Transition ReadTransition(const JsonNode& node)
{
    JsonMembers members(node);
    Transition transition;
    transition.direction =
        static_cast<BlendDirection>(members.At("direction").Choice(kBlendDirectionNames));
    transition.frames = members.At("frames").Whole(kFrameLength);
    members.Finish();
    return transition;
}

ClipSpan ReadClip(const JsonNode& node)
{
    JsonMembers members(node);
    ClipSpan clip;
    clip.length = members.At("length").Whole(kFrameSpan);
    clip.material = members.Whole("material", clip.material, kFrameLength);
    clip.loops = members.At("loops").Whole(kFrameSpan);
    clip.leadIn = members.At("leadIn").Whole(kFrameLength);
    clip.shortest = members.At("shortest").Whole(kFrameSpan);
    clip.longest = members.At("longest").Whole({1});
    members.Finish();
    return clip;
}

ViewRecord ReadView(const JsonNode& node, int frameCount)
{
    JsonMembers members(node);
    ViewRecord view;
    view.left = static_cast<float>(members.At("left").Real());
    view.right = static_cast<float>(members.At("right").Real());
    view.frame = members.At("frame").Whole({0, frameCount - 1});
    members.Finish();
    if (view.left < 0 || view.right < view.left || view.right > 1)
        node.Refuse(QStringLiteral("0 or more for left, not less for right, at most 1"));
    return view;
}

} // namespace host
