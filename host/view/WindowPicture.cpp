#include "WindowPicture.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QPixmap>
#include <QScreen>
#include <QWindow>

namespace host {

namespace {

constexpr int kPatience = 5000; ///< milliseconds until a window that does not come is given up
constexpr int kLook = 50;       ///< milliseconds between two looks

void ProcessEventsFor(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < milliseconds)
        QCoreApplication::processEvents(QEventLoop::AllEvents, milliseconds);
}

QImage Look(QWidget& window)
{
    QScreen* const screen = window.windowHandle()->screen();
    return screen->grabWindow(window.winId()).toImage().convertToFormat(QImage::Format_RGB32);
}

} // namespace

bool WaitUntilExposed(QWidget& window)
{
    QElapsedTimer timer;
    timer.start();
    while (!window.windowHandle() || !window.windowHandle()->isExposed()) {
        if (timer.elapsed() > kPatience)
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents,
                                        kLook);
    }
    QCoreApplication::processEvents();
    return true;
}

QImage PaintedPicture(QWidget& window)
{
    return window.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

QImage PictureOnScreen(QWidget& window)
{
    QElapsedTimer timer;
    timer.start();
    QImage last;
    while (timer.elapsed() < kPatience) {
        ProcessEventsFor(kLook);
        const QImage picture = Look(window);
        if (!picture.isNull() && picture == last)
            return picture;
        last = picture;
    }
    return {};
}

} // namespace host
