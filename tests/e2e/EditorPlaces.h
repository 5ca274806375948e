#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QString>

/// Where things lie in the editor's window, as a user sees it: in pixels of a window of kWindowSize
/// in the default skin, with all frames of the sample scene in view. Rows are found by looking at
/// the picture, so that hidden and scrolled rows are where they are seen.
namespace Places {

constexpr QSize kWindowSize(1280, 720);

constexpr QRect kTransport(20, 22, 180, 28);
constexpr QRect kFace(0, 55, 338, 215);
constexpr QRect kFigure(345, 55, 935, 215);
constexpr QRect kFrameText(1090, 302, 190, 22);
constexpr QRect kTimeline(0, 327, 1265, 373);
/// All but the status line, which tells of what was done last.
constexpr QRect kAllButStatus(0, 0, 1280, 700);

constexpr QPoint kViewMenu(97, 9);

/// The row of buttons that hide groups of rows.
constexpr QPoint kLipsButton(233, 367);
constexpr QPoint kJointsButton(347, 367);

/// The buttons of a joint's caption; other captions have the menu elsewhere.
enum class CaptionButton
{
    Menu,
    Mute,
    Lock
};

/// The frame of the ruler.
QPoint Ruler(int frame);
/// The row's cell of the frame; where the row is not seen, nowhere (0, 0).
QPoint Cell(const QImage& window, const QString& row, int frame);
/// The caption, left of its buttons.
QPoint Caption(const QImage& window, const QString& row);
QPoint Button(const QImage& window, const QString& row, CaptionButton button);

/// How many rows are seen, at least in part.
int CountOfRows(const QImage& window);
/// Where the ruler's marker of the current frame stands; -1 when it is not seen.
int CurrentFrame(const QImage& window);

} // namespace Places
