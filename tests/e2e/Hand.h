#pragma once

#include <QPoint>
#include <QString>
#include <QVector>

/// The user's hand on the mouse and the keyboard of the screen. It knows nothing of the program:
/// what it does enters where a real mouse and keyboard would. Places are pixels of the screen. A
/// hand that cannot be moved fails the running test.
namespace Hand {

constexpr int kLeftButton = 1;
constexpr int kRightButton = 3;

void MoveTo(QPoint place);
/// To the corner of the screen, where the pointer is over nothing.
void MoveAway();
/// Never counts as the second half of a double click.
void Click(QPoint place, int button = kLeftButton);
/// Presses the left button at the first place and goes to the others; Release() lets it go.
void PressAndMove(const QVector<QPoint>& way);
void Release();
/// From the first place to the last one, in small steps.
void Drag(QPoint from, QPoint to);
/// Turns the wheel over the place, away from the user when @p notches is above 0, while the
/// modifier key ("ctrl", "shift", or none) is held.
void Turn(QPoint place, int notches, const QString& modifier = {});
/// Keeps a key down until it is let go.
void Hold(const QString& key);
void LetGo(const QString& key);
/// Strikes the keys, such as "ctrl+z", one after the other.
void Strike(const QStringList& keys);
void Type(const QString& text);

} // namespace Hand
