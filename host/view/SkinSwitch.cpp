#include "SkinSwitch.h"

#include "KeptTimeline.h"
#include "ShownScene.h"
#include "Theme.h"
#include "TimelineCallbacks.h"
#include "TimelinePane.h"
#include "TimelineWindowFactory.h"
#include "document/EditSession.h"

#include <QApplication>

namespace host {

bool SkinSwitch::Create(const QString& path)
{
    m_subjects.manager.SetTimelineWndFactoryBase(&m_subjects.factory);
    if (!Draw(path))
        return false;
    m_current = path;
    emit Shown(path);
    return true;
}

bool SkinSwitch::Show(const QString& path)
{
    m_subjects.session.Commit(); // a gesture would not outlive its track
    const Scene& scene = m_subjects.session.Current();
    const KeptTimeline kept(m_subjects.manager, m_subjects.tracks, scene);
    const TimelineWindow* const before = m_subjects.factory.Window();
    const bool isClipSpeed = before && before->IsClipSpeed();
    const int scrolled = before && before->Pane() ? before->Pane()->VerticalScroll() : 0;
    const bool isShown = Redraw(path);
    if (isShown)
        m_current = path;
    else
        Redraw(m_current);
    kept.Restore(m_subjects.manager, m_subjects.tracks, scene);
    TimelineWindow* const window = m_subjects.factory.Window();
    if (window && window->Pane()) {
        window->SetClipSpeed(isClipSpeed);
        window->Pane()->SetVerticalScroll(scrolled);
    }
    emit Shown(m_current);
    return isShown;
}

bool SkinSwitch::Draw(const QString& path)
{
    if (!m_subjects.manager.CreateTimelineManager(&m_subjects.callbacks, path.toStdWString()) ||
        !m_subjects.manager.CreateTimelineMainWidget(&m_subjects.dock))
        return false;
    emit WindowMade(*m_subjects.factory.Window(), path);
    return true;
}

bool SkinSwitch::Redraw(const QString& path)
{
    // The window first: a theme that changes the sizes around the timeline has done so by then.
    ApplyTheme(*qApp, ThemeOfSkin(path));
    if (!Draw(path) || !m_subjects.scene.ShowRows())
        return false;
    m_subjects.manager.ShowTimelineWnd(true);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest); // the view takes its place
    return true;
}

} // namespace host
