#pragma once

#include "KeyEdits.h"

namespace host {

/// What is selected, for reading: "3 keys selected", of a single one also where it stands and of a
/// single mouth shape which it is: "1 mouth shape selected: D, frame 32". Empty for nothing.
QString SelectionText(const Scene& scene, const QVector<KeySelection>& selection);

} // namespace host
