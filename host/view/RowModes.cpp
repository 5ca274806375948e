#include "RowModes.h"

#include <algorithm>
#include <array>

namespace host {

namespace {

struct Mode
{
    TLEditType type;
    bool changesKeys;
};

/// For each EditMode, in the order of the enumeration.
constexpr std::array<Mode, 15> kModes{{{TL_EDIT_MOVE_KEYS, true},
                                       {TL_EDIT_CLIP_LOOP, true},
                                       {TL_EDIT_CLIP_SPEED, true},
                                       {TL_EDIT_CLIP_TRIM, true},
                                       {TL_EDIT_TIME_RANGE, false},
                                       {TL_EDIT_SUB_KEYS, false},
                                       {TL_EDIT_CUT, true},
                                       {TL_EDIT_COPY, false},
                                       {TL_EDIT_PASTE, true},
                                       {TL_EDIT_DELETE, true},
                                       {TL_EDIT_INSERT_KEY, true},
                                       {TL_EDIT_BREAK, true},
                                       {TL_EDIT_SELECT_PREVIOUS, false},
                                       {TL_EDIT_SELECT_NEXT, false},
                                       {TL_EDIT_SELECT_ALL, false}}};

} // namespace

VZ::CArrayList<TLEditType> EditTypesOf(const SceneTrack& track)
{
    VZ::CArrayList<TLEditType> types;
    for (const EditMode editMode : track.editModes) {
        const Mode& mode = kModes.at(static_cast<std::size_t>(editMode));
        if (!track.locked || !mode.changesKeys)
            types.Add(mode.type);
    }
    return types;
}

bool ChangesKeys(TLEditType type)
{
    return std::any_of(kModes.begin(), kModes.end(),
                       [type](const Mode& mode) { return mode.type == type && mode.changesKeys; });
}

} // namespace host
