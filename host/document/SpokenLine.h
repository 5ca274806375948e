#pragma once

#include <QString>
#include <QVector>

namespace host {

/// One mouth shape held for a while; times in seconds from the start of the line.
struct MouthCue
{
    double start = 0;
    double end = 0;
    int shape = 0; ///< mouth shape variant, see MouthShapes.h
};

/// The mouth shapes of a spoken line in the order of their start.
struct SpokenLine
{
    QString name;        ///< label of the line
    double duration = 0; ///< seconds
    QVector<MouthCue> cues;
};

inline bool operator==(const MouthCue& a, const MouthCue& b)
{
    return a.start == b.start && a.end == b.end && a.shape == b.shape;
}

inline bool operator==(const SpokenLine& a, const SpokenLine& b)
{
    return a.name == b.name && a.duration == b.duration && a.cues == b.cues;
}

} // namespace host
