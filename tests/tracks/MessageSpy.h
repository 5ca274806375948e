#pragma once

#include "tracks/CTimelineTrackBase.h"
#include "tracks/CTimelineTrackBaseInterface.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QStringList>
#include <QWidget>
#include <QWindow>

#include <functional>
#include <utility>

namespace KestovaTest {

/// Listens in between a track and its owner: writes down each message and passes it on. Goes before
/// the track does, or takes note of its end by itself.
class MessageSpy : public CTimelineTrackBaseInterface
{
public:
    explicit MessageSpy(CTimelineTrackBase* track) : m_track(track), m_owner(track->GetOwner())
    {
        track->SetOwner(this);
    }
    ~MessageSpy()
    {
        if (CTimelineTrackBase::IsAlive(m_track))
            m_track->SetOwner(m_owner);
    }
    MessageSpy(const MessageSpy&) = delete;
    MessageSpy& operator=(const MessageSpy&) = delete;

    QStringList TakeMessages() { return std::exchange(m_messages, {}); }
    /// Called with the code of each message before it is passed on.
    std::function<void(int)> reaction;

    int OnTrackMessage(int code, CTimelineTrackBase* track, int number, QVariant value1,
                       QVariant value2, QVariant value3) override
    {
        m_messages << QStringLiteral("%1 (%2, %3, %4, %5)")
                          .arg(code)
                          .arg(number)
                          .arg(value1.toInt())
                          .arg(value2.toInt())
                          .arg(value3.toInt());
        if (reaction)
            reaction(code);
        return m_owner->OnTrackMessage(code, track, number, value1, value2, value3);
    }
    bool OnTrackDrop(QDropEvent* event, CTimelineTrackBase* track) override
    {
        return m_owner->OnTrackDrop(event, track);
    }
    bool OnTrackDragCheck(QDropEvent* event, CTimelineTrackBase* track, int frame) override
    {
        return m_owner->OnTrackDragCheck(event, track, frame);
    }

private:
    CTimelineTrackBase* m_track;
    CTimelineTrackBaseInterface* m_owner;
    QStringList m_messages;
};

/// Writes down the mouse events that reach a widget, its own and those that its children pass on.
class MouseEventLog : public QObject
{
public:
    explicit MouseEventLog(QWidget* widget) { widget->installEventFilter(this); }

    QStringList TakeEvents() { return std::exchange(m_events, {}); }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::MouseButtonPress)
            m_events << QStringLiteral("press");
        else if (event->type() == QEvent::MouseMove)
            m_events << QStringLiteral("move");
        else if (event->type() == QEvent::MouseButtonRelease)
            m_events << QStringLiteral("release");
        else if (event->type() == QEvent::MouseButtonDblClick)
            m_events << QStringLiteral("double click");
        return false;
    }

private:
    QStringList m_events;
};

/// Lets the pointer enter the window of @p widget, as the windowing system reports it before the
/// first move: rows follow a pointer without a button only once it has entered them.
inline void EnterWindow(QWidget* widget)
{
    QEnterEvent enter(QPointF(0, 0), QPointF(0, 0), QPointF(0, 0));
    QCoreApplication::sendEvent(widget->window()->windowHandle(), &enter);
}

} // namespace KestovaTest
