#pragma once

#include "GestureScene.h"

#include <QMenu>
#include <QTimer>

#include <vector>

namespace KestovaTest {

/// One thing that a hand does, at a point of the main window: what it is done to is whatever is
/// there by then.
struct HandEvent
{
    enum Kind
    {
        Press,
        Move,
        Release,
        DoubleClick,
        RightPress, ///< opens a menu, and is over when that has been closed
        RightRelease,
        Key,
        FileEnter,
        FileMove,
        FileDrop
    };
    Kind kind;
    QPoint point;
    Qt::KeyboardModifiers modifiers;
    Qt::Key key;
    QString path; ///< of the file
};

/// Writes down what a hand does.
class Script
{
public:
    explicit Script(Qt::KeyboardModifiers modifiers = Qt::NoModifier) : m_modifiers(modifiers) {}

    Script& Press(QPoint point) { return Add(HandEvent::Press, point); }
    Script& Move(QPoint point) { return Add(HandEvent::Move, point); }
    Script& Release() { return Add(HandEvent::Release, QPoint()); }
    Script& Click(QPoint point) { return Press(point).Release(); }
    Script& DoubleClick(QPoint point) { return Add(HandEvent::DoubleClick, point); }
    Script& RightClick(QPoint point)
    {
        return Add(HandEvent::RightPress, point).Add(HandEvent::RightRelease, point);
    }
    Script& Key(Qt::Key key) { return Add(HandEvent::Key, QPoint(), key); }
    Script& Enter(QPoint point, const QString& path)
    {
        return File(HandEvent::FileEnter, point, path);
    }
    Script& Hold(QPoint point, const QString& path)
    {
        return File(HandEvent::FileMove, point, path);
    }
    Script& Drop(QPoint point, const QString& path)
    {
        return File(HandEvent::FileDrop, point, path);
    }

    std::vector<HandEvent> events;

private:
    Script& Add(HandEvent::Kind kind, QPoint point, Qt::Key key = Qt::Key_unknown)
    {
        events.push_back({kind, point, m_modifiers, key, QString()});
        return *this;
    }
    Script& File(HandEvent::Kind kind, QPoint point, const QString& path)
    {
        events.push_back({kind, point, m_modifiers, Qt::Key_unknown, path});
        return *this;
    }

    Qt::KeyboardModifiers m_modifiers;
};

/// Does what a script says, in the scene's window.
void Perform(GestureScene& scene, const HandEvent& event);

/// Stands by the menu that a gesture opens: it chooses its first command that can be chosen, or
/// closes it.
class MenuHand : public QObject
{
public:
    explicit MenuHand(bool chooses);

    /// Called once for each menu, while it is open.
    std::function<void()> whenOpen;

private:
    void Look();

    QTimer m_timer;
    bool m_chooses;
    QPointer<QMenu> m_seen;
};

} // namespace KestovaTest
