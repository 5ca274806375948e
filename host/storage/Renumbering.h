#pragma once

#include "document/Scene.h"

namespace host {

/// Numbers tracks, groups and keys anew, from 1 on and without gaps, as there is an end to numbers.
void Renumber(Scene& scene);

} // namespace host
