#pragma once

#include <QObject>
#include <QPoint>

class CTimelineManager;
class QWheelEvent;

namespace host {

class TimelineWindow;

/// The wheel over the timeline: alone it scrolls the rows, as any scrolled view does; with Shift it
/// moves the view along the frames, with Ctrl it zooms about the current frame.
class TimelineWheel : public QObject
{
    Q_OBJECT
public:
    /// @param window owns this object. @p manager is kept and outlives it.
    TimelineWheel(TimelineWindow& window, CTimelineManager& manager);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool Take(const QWheelEvent& event);
    void Zoom(int notches);
    void MoveView(int notches);

    TimelineWindow& m_window;
    CTimelineManager& m_manager;
    int m_turned = 0; ///< eighths of degrees since the last whole notch; fine wheels give less
    Qt::KeyboardModifiers m_modifiers = Qt::NoModifier; ///< with which it was turned so
};

} // namespace host
