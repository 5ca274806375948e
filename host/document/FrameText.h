#pragma once

#include <QString>

namespace host {

/// The moment of a frame in minutes, seconds and frames: "00:01:12".
QString TimeText(int frame, int frameRate);

/// The current frame for reading: its number, the number of the last frame, and the time in
/// minutes, seconds and frames: "Frame 42 of 90   00:01:12".
QString FrameText(int frame, int frameCount, int frameRate);

} // namespace host
