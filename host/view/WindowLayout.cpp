#include "WindowLayout.h"

#include "MainWindow.h"

#include <QEvent>
#include <QSettings>

namespace host {

namespace {

const QString kGeometry = QStringLiteral("window/geometry");
const QString kState = QStringLiteral("window/state");
const QString kSkin = QStringLiteral("view/skin");
const QString kClipSpeed = QStringLiteral("timeline/clipSpeed");

} // namespace

QString RememberedSkin()
{
    return QSettings().value(kSkin).toString();
}

WindowLayout::WindowLayout(MainWindow& window, bool keepSize) : QObject(&window), m_window(window)
{
    const QSettings settings;
    if (!keepSize)
        window.restoreGeometry(settings.value(kGeometry).toByteArray());
    window.restoreState(settings.value(kState).toByteArray());
    window.SetClipSpeed(settings.value(kClipSpeed, false).toBool());
    window.installEventFilter(this);
}

void WindowLayout::Save() const
{
    QSettings settings;
    settings.setValue(kGeometry, m_window.saveGeometry());
    settings.setValue(kState, m_window.saveState());
    settings.setValue(kSkin, m_window.Skin());
    settings.setValue(kClipSpeed, m_window.IsClipSpeed());
}

bool WindowLayout::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &m_window && event->type() == QEvent::Close)
        Save();
    return false;
}

} // namespace host
