#include "FrameText.h"

namespace host {

QString TimeText(int frame, int frameRate)
{
    constexpr int kSecondsPerMinute = 60;
    if (frame < 0 || frameRate < 1)
        return {};
    const int seconds = frame / frameRate;
    const auto twoDigits = [](int number) {
        return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
    };
    return QStringLiteral("%1:%2:%3")
        .arg(twoDigits(seconds / kSecondsPerMinute), twoDigits(seconds % kSecondsPerMinute),
             twoDigits(frame % frameRate));
}

QString FrameText(int frame, int frameCount, int frameRate)
{
    const QString time = TimeText(frame, frameRate);
    if (time.isEmpty())
        return {};
    return QStringLiteral("Frame %1 of %2   %3").arg(frame).arg(frameCount - 1).arg(time);
}

} // namespace host
