#pragma once

#include "tracks/RangeMarkers.h"

/// The two time-mark markers of the frame ruler, as frames: in any order and anywhere, as the host
/// sets them. Only a drag keeps them in order.
struct TimeMark
{
    int start = 0;
    int end = 1;

    int FrameOf(int marker) const { return marker == kEndMarker ? end : start; }
    /// Takes @p marker to @p frame, but not past the other one.
    void Drag(int marker, int frame);
};

/// What the left button holds on the frame ruler from its press to its release: nothing, the
/// current frame or one of the time-mark markers.
class RulerGesture
{
public:
    enum class Hold
    {
        kNothing,
        kCurrentFrame,
        kMarker
    };

    Hold Holds() const { return m_hold; }
    bool IsOn() const { return m_hold != Hold::kNothing; }
    /// The marker that is held, kNoMarker while none is.
    int Marker() const { return m_marker; }

    void HoldCurrentFrame() { *this = RulerGesture(Hold::kCurrentFrame, kNoMarker); }
    void HoldMarker(int marker) { *this = RulerGesture(Hold::kMarker, marker); }

    RulerGesture() = default;

private:
    RulerGesture(Hold hold, int marker) : m_hold(hold), m_marker(marker) {}

    Hold m_hold = Hold::kNothing;
    int m_marker = kNoMarker;
};
