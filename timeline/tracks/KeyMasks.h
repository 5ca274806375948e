#pragma once

/// Bits of a key's kind mask that decide how it is drawn.
enum KeyMask : int
{
    kMarkedLink = 4,     ///< link rows: the other pair of glyphs
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
