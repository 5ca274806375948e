#pragma once

#include "tracks/DisplayKeys.h"

/// Takes out of a link row's keys those that a key of the other origin (own or related copy) before
/// them outranks: the nearest earlier key with another related-copy value removes a key when its
/// own type is not 4 and its priority is higher.
void ThinLinkKeys(DisplayKeyList& list);
