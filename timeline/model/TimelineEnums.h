#pragma once

/// What a track shows. The numbers are part of the binary interface.
enum TL_TRACK_TYPE : int
{
    TL_TRACK_NONE = -1,          ///< answer for a track that does not exist
    TL_TRACK_HSCROLL = 1,        ///< horizontal scroll and zoom bar, made by the library
    TL_TRACK_TICK = 2,           ///< frame ruler, made by the library
    TL_TRACK_SWITCH = 3,         ///< row of toggle buttons
    TL_TRACK_KEY = 4,            ///< point keys
    TL_TRACK_TRANSITION_KEY = 5, ///< keys with a blend into or out of them
    TL_TRACK_LINK_KEY = 6,       ///< keys joined by link bars
    TL_TRACK_VISEME_KEY = 7,     ///< mouth shapes, the lips track
    TL_TRACK_CLIP = 8,           ///< frame ranges that may loop
    TL_TRACK_WAVE = 9 ///< a clip track drawn as a sound-wave row; never made by CreateTrack
};

/// The edit modes of a track and the edit commands reported to the host. What 18, 20 and 27 do is
/// the host's own; the library only tells when they are available. It gives no meaning at all to
/// 25, 26, and 28 and above.
enum TLEditType : int
{
    TL_EDIT_BEGIN = 0,          ///< an edit begins
    TL_EDIT_END = 1,            ///< an edit ended; commit it
    TL_EDIT_MOVE_KEYS = 2,      ///< mode: keys can be dragged; command: one step of a key drag
    TL_EDIT_CLIP_LOOP = 3,      ///< mode and command: change a clip's loop count
    TL_EDIT_CLIP_SPEED = 4,     ///< mode and command: change a clip's pass length
    TL_EDIT_CLIP_TRIM = 5,      ///< mode and command: change a clip's lead-in or a transition
    TL_EDIT_MOVE_KEYS_END = 6,  ///< a key drag ended
    TL_EDIT_CLIP_LOOP_END = 7,  ///< a loop drag ended
    TL_EDIT_CLIP_SPEED_END = 8, ///< a speed drag ended
    TL_EDIT_CLIP_TRIM_END = 9,  ///< a trim or transition drag ended
    TL_EDIT_TIME_RANGE = 10,    ///< mode: time-range selection with end markers
    TL_EDIT_SUB_KEYS = 11,      ///< mode: the sub-keys of a clip are edited
    TL_EDIT_CUT = 12,
    TL_EDIT_COPY = 13,
    TL_EDIT_PASTE = 14,
    TL_EDIT_DELETE = 15,
    TL_EDIT_INSERT_KEY = 16,
    TL_EDIT_BREAK = 17,         ///< split the selected clip at the current frame
    TL_EDIT_HOST_18 = 18,       ///< the host's; available with exactly one selected key
    TL_EDIT_RANGE_COMMAND = 19, ///< a command on the time range
    TL_EDIT_HOST_20 = 20,       ///< the host's; available with exactly one selected key
    TL_EDIT_AUTO_MOTION = 21,
    TL_EDIT_SELECT_PREVIOUS = 22,
    TL_EDIT_SELECT_NEXT = 23,
    TL_EDIT_SELECT_ALL = 24,
    TL_EDIT_HOST_27 = 27 ///< the host's; available with exactly one selected key
};

/// What kind of file was dropped.
enum TLDropFileType : int
{
    TL_DROP_NONE = 0,         ///< unrecognised; never reported to the host
    TL_DROP_ANIMATION = 1,    ///< .kxanim
    TL_DROP_MOTION = 2,       ///< .kxmotion
    TL_DROP_MOTION_3D = 3,    ///< .kx3dmotion
    TL_DROP_PERFORM = 4,      ///< .kxperform
    TL_DROP_IDLE = 6,         ///< .kx7idle, .kxs2idle
    TL_DROP_FACIAL = 7,       ///< .kxfcs
    TL_DROP_SCRIPT = 8,       ///< .kxs
    TL_DROP_CLIP = 9,         ///< .clp
    TL_DROP_AUTO_MOTION = 10, ///< .kx7automotion
    TL_DROP_SOUND_FIRST = 12, ///< .wav or .mp3 while the fifth drop filter is on
    TL_DROP_SOUND_SECOND = 13 ///< .wav or .mp3 while only the sixth drop filter is on
};
