#pragma once

namespace host {

/// How far the eyes are shut at a frame, 0 (open) to 1. They blink now and then, not quite evenly,
/// and at the same frames every time.
float LidsAt(int frame, int frameRate);

} // namespace host
