#pragma once

#include "Material.h"

namespace host {

/// Takes what was read into a scene. A motion replaces the rows under the root Body, mouth cues the
/// rows Lips and Mouth Rest under Face, each starting at frame 0; rows of the same kind and name
/// stay what they are and change their keys, and what is missing is added. Sounds are added to the
/// first row Sound with room for them, one behind the other, from @p frame on; another row is made
/// when there is none. The scene gets longer when it must; its other
/// rows stay as they are. False when it is refused, because something to be replaced is locked:
/// then the scene is as it was and @p reason says what.
bool AddMaterial(Scene& scene, const Material& material, int frame, QString& reason);

} // namespace host
