#include "WindowLayout.h"

#include "MainWindow.h"
#include "playback/Playback.h"
#include "playback/Transport.h"
#include "preview/PreviewPane.h"

#include <QEvent>
#include <QSettings>

namespace host {

namespace {

const QString kGeometry = QStringLiteral("window/geometry");
const QString kState = QStringLiteral("window/state");
const QString kSkin = QStringLiteral("view/skin");
const QString kPreview = QStringLiteral("window/preview");
const QString kPreviewShown = QStringLiteral("window/previewShown");
const QString kLoop = QStringLiteral("playback/loop");
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
    window.Preview().restoreState(settings.value(kPreview).toByteArray());
    window.Preview().setVisible(settings.value(kPreviewShown, true).toBool());
    window.Player().Player().SetLooping(settings.value(kLoop, false).toBool());
    window.SetClipSpeed(settings.value(kClipSpeed, false).toBool());
    window.installEventFilter(this);
}

void WindowLayout::Save() const
{
    QSettings settings;
    settings.setValue(kGeometry, m_window.saveGeometry());
    settings.setValue(kState, m_window.saveState());
    settings.setValue(kPreview, m_window.Preview().saveState());
    settings.setValue(kPreviewShown, !m_window.Preview().isHidden());
    settings.setValue(kLoop, m_window.Player().Player().IsLooping());
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
