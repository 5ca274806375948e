#pragma once

#include <array>

namespace host {

// How the values of the scene's enumerations are called in files, in their order.

constexpr std::array<const char*, 6> kTrackKindNames{"switch", "key",    "transition",
                                                     "link",   "viseme", "clip"};
constexpr std::array<const char*, 15> kEditModeNames{"moveKeys",
                                                     "loopClip",
                                                     "changeClipSpeed",
                                                     "trimClip",
                                                     "selectTimeRange",
                                                     "editSubKeys",
                                                     "cut",
                                                     "copy",
                                                     "paste",
                                                     "delete",
                                                     "insertKey",
                                                     "breakClip",
                                                     "selectPrevious",
                                                     "selectNext",
                                                     "selectAll"};
constexpr std::array<const char*, 2> kBlendDirectionNames{"into", "outOf"};
constexpr std::array<const char*, 4> kRelationKindNames{"sharedTimeRange", "sharedSelection",
                                                        "clipBars", "relatedKeys"};
constexpr std::array<const char*, 6> kChannelNames{"xPosition", "yPosition", "zPosition",
                                                   "xRotation", "yRotation", "zRotation"};

constexpr const char* kFormatName = "kestova-scene";

template <class Names, class Enumeration>
const char* NameOf(const Names& names, Enumeration value)
{
    return names.at(static_cast<std::size_t>(value));
}

} // namespace host
