#pragma once

/// The values of a key's members that the library gives a meaning to; all others are the host's.

/// Bits of a key's kind mask that decide how it is drawn.
enum KeyMask : int
{
    kMarkedLink = 4,     ///< link rows: the other pair of glyphs
    kTrialClip = 8,      ///< clip rows: the name in the trial colours
    kTransitionIn = 16,  ///< a transition that ends at the key
    kTransitionOut = 32, ///< a transition that starts at the key; wins over the other
    kHasSegments = 64    ///< the key's segments are drawn over its glyph
};

/// Bits and values of a key's type.
enum KeyType : int
{
    kLinkStartBit = 2, ///< a link bar starts at the key
    kNeverThins = 4    ///< the key never hides keys of the other origin after it
};

/// The lock state of a locked key: selection passes it over, and it is drawn as locked.
constexpr int kLocked = 1;

/// The mask that lets a selection take keys of every kind.
constexpr unsigned int kAnyKind = 0xFFFFFFFFu;
