#pragma once

#include "InputHand.h"
#include "document/Scene.h"

#include <optional>

namespace host {

class MainWindow;
class TimelinePane;

/// The cell of a frame on a row or on the ruler: pixels of its widget.
struct FrameCell
{
    QWidget* row = nullptr; ///< the timeline's
    int left = 0;           ///< the first pixel
    int right = 0;          ///< the first pixel beyond

    QPoint Middle() const;
    QPoint Start() const; ///< where a clip that begins with the frame has its edge
    QPoint End() const;   ///< where a clip that ends with the frame has its edge
};

/// A hand on the timeline: finds where rows and frames are seen, as a person would by looking, and
/// works there by mouse and keyboard. A row that is scrolled out of sight is scrolled into it.
class TimelineHand
{
public:
    /// Both are kept and outlive this object.
    TimelineHand(MainWindow& window, InputHand& hand) : m_window(window), m_hand(hand) {}

    /// Nothing, and @p error says why, when the row is not shown or the frame is not in view.
    std::optional<FrameCell> Cell(TrackId row, int frame, QString& error);
    /// The same on the ruler.
    std::optional<FrameCell> RulerCell(int frame, QString& error);

    /// Presses at @p from, goes to @p to in steps, and releases there.
    void Drag(QWidget& row, QPoint from, QPoint to,
              Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Drags a file over the row and lets go there. Whether it was taken.
    static bool DropFile(QWidget& widget, QPoint point, const QStringList& files);
    /// Makes the frame, one of the scene, current and brings it into view: by a drag or a click on
    /// the ruler where it has pixels of its own.
    void GoToFrame(int frame);

    /// Chooses the closest view that has these frames in it, the first of them at the left.
    void ShowFrames(int first, int last);

    InputHand& Hand() { return m_hand; }

private:
    QList<QWidget*> ShownRows();
    QWidget* WidgetOf(TrackId row);
    QWidget* Ruler();
    void ScrollTo(const QWidget& row);
    bool IsInView(int frame);
    std::optional<int> FrameAt(QWidget& row, int x);
    int FirstPixelFrom(QWidget& row, int frame);
    std::optional<FrameCell> CellOn(QWidget& row, int frame, QString& error);

    MainWindow& m_window;
    InputHand& m_hand;
};

} // namespace host
