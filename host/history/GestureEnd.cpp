#include "GestureEnd.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>

namespace host {

void EndGestureThen(QObject& context, EditSession& session, std::function<void()> deed)
{
    if (QGuiApplication::mouseButtons() == Qt::NoButton && !session.IsOpen()) {
        deed();
        return;
    }
    // A timeline that loses the keyboard focus ends its gesture, from the event loop.
    const QPointer<QWidget> focus = QApplication::focusWidget();
    if (focus)
        focus->clearFocus();
    const auto goOn = [focus, &session, deed = std::move(deed)] {
        if (focus)
            focus->setFocus();
        session.Commit();
        deed();
    };
    QMetaObject::invokeMethod(&context, goOn, Qt::QueuedConnection);
}

} // namespace host
