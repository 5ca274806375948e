#include "Blink.h"

#include <QtGlobal>

#include <array>

namespace host {

namespace {

constexpr double kRound = 2.6;  ///< seconds; there is one blink in each
constexpr double kStep = 0.034; ///< seconds that the lids stay at one of the values below
constexpr std::array<float, 6> kLids{0.45F, 1.0F, 1.0F, 0.75F, 0.4F, 0.15F};

/// A number, seemingly of no order, below @p below.
quint32 Scattered(quint32 number, quint32 below)
{
    number = (number ^ (number >> 16)) * 0x45D9F3BU + 0x9E3779B9U;
    number = (number ^ (number >> 15)) * 0x2C1B3C6DU;
    number ^= number >> 14;
    return number % below;
}

} // namespace

float LidsAt(int frame, int frameRate)
{
    const double seconds = static_cast<double>(frame) / qMax(1, frameRate);
    const int round = static_cast<int>(seconds / kRound);
    constexpr quint32 kParts = 64;
    const double room = kRound - kStep * kLids.size();
    const double start =
        round * kRound + room * Scattered(static_cast<quint32>(round) + 1, kParts) / kParts;
    // Half a step later than the blink begins, so that no rounding decides.
    const double steps = (seconds - start) / kStep + 0.5;
    if (steps < 0 || steps >= static_cast<double>(kLids.size()))
        return 0;
    return kLids[static_cast<std::size_t>(steps)];
}

} // namespace host
