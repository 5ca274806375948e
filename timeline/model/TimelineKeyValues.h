#pragma once

/// @file
/// The values that a host writes into a key's members and the library gives a meaning to. All other
/// bits and values are the host's own.

/// Bits of CTimelineKey::kindMask that decide how a key is drawn.
enum TLKeyMask : int
{
    TL_KEY_MARKED_LINK = 4,     ///< link rows: the other pair of glyphs
    TL_KEY_TRIAL = 8,           ///< clip rows: the name in the trial colours
    TL_KEY_TRANSITION_IN = 16,  ///< a transition that ends at the key
    TL_KEY_TRANSITION_OUT = 32, ///< a transition that starts at the key; wins over the other
    TL_KEY_SEGMENTS = 64        ///< the key's segments are drawn over its glyph
};

/// Bits and values of CTimelineKey::keyType.
enum TLKeyType : int
{
    TL_KEY_LINK_START = 2, ///< this bit: a link bar starts at the key
    TL_KEY_NEVER_THINS = 4 ///< exactly this value: never hides keys of the other origin after it
};

/// The values of CTimelineKey::lockState; any other counts as unlocked.
enum TLKeyLock : int
{
    TL_KEY_UNLOCKED = 0,
    TL_KEY_LOCKED = 1 ///< selection passes over the key, and it is drawn in the locked colours
};

/// The mask of CTimelineKeyArray::SetSelection that takes keys of every kind.
constexpr unsigned int TL_KEY_ANY_KIND = 0xFFFFFFFFu;
