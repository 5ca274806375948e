#pragma once

#include "JsonNode.h"
#include "document/Motion.h"
#include "document/SpokenLine.h"

namespace host {

/// The captured motion that a file holds; faults are noted in the node.
Motion ReadMotion(const JsonNode& node);
/// The spoken line that a file holds; faults are noted in the node.
SpokenLine ReadSpokenLine(const JsonNode& node);

} // namespace host
