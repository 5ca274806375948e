#pragma once

#include <cstdint>

/// How often a key array of this process was changed by its own operations: keys, selections,
/// related keys, or display lengths; not move sets, which nothing shows. Whoever made something
/// from arrays sees by it that one of them may look different now, sub-keys and arrays of hidden
/// tracks included. Keys that were written in place do not count. GUI thread only.
std::uint64_t KeyArrayRevision();

/// For the arrays' operations: something was changed.
void CountKeyArrayChange();
