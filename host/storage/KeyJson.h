#pragma once

#include "JsonNode.h"
#include "SceneDocument.h"

namespace host {

/// No row of a file is longer: sums of two frames stay numbers.
constexpr int kMostFrames = 100'000'000;
constexpr WholeRange kFrames{-kMostFrames, kMostFrames};
constexpr WholeRange kFrameLength{0, kMostFrames};
constexpr WholeRange kFrameSpan{1, kMostFrames}; ///< a length of at least one frame

// Parts of a file that speak of nothing else in it; faults are noted in the node.

Transition ReadTransition(const JsonNode& node);
ClipSpan ReadClip(const JsonNode& node);
ViewRecord ReadView(const JsonNode& node, int frameCount);

} // namespace host
