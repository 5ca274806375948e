#pragma once

#include "ImportError.h"

#include <optional>

namespace host {

/// How the samples of a sound file are written, and where.
struct WavFormat
{
    bool isWhole = false; ///< whole numbers
    bool isFloat = false; ///< floating-point numbers; neither: some other kind, compressed maybe
    int channels = 0;
    int rate = 0;              ///< samples of a channel a second
    int bits = 0;              ///< of a sample
    qint64 bytesPerSecond = 0; ///< reckoned for plain samples, else as the header gives it
    qint64 soundStart = 0;     ///< where the samples begin, in bytes
    qint64 soundBytes = -1;    ///< no more than the file holds; -1 while their place is not known
};

/// What a sound file (RIFF, WAVE) says of its samples, which may be of any kind but have a length.
/// Nothing is returned, and @p error is filled, for a file that cannot be read or is none.
std::optional<WavFormat> ReadWavFormat(const QString& path, ImportError& error);

/// The length in seconds of a sound file (RIFF, WAVE): no more of the samples than the file holds,
/// and all the rest of it where the header gives no length. Nothing is returned, and @p error is
/// filled, for a file that cannot be read or is none.
std::optional<double> ReadWavSeconds(const QString& path, ImportError& error);

} // namespace host
