#pragma once

#include <KestovaTimelineQU/KestovaTimelineQU.h>

#include <QObject>

namespace host {

class EditSession;
class SceneTracks;
class ShownScene;
class TimelineCallbacks;
class TimelineWindow;
class TimelineWindowFactory;

/// Draws the timeline in a skin and, while it runs, in another one. A skin is read when the
/// timeline is made: for another one it is made anew, and is given back what it held.
class SkinSwitch : public QObject
{
    Q_OBJECT
public:
    /// All are kept and outlive this object.
    struct Subjects
    {
        CTimelineManager& manager;
        QDockWidget& dock;
        TimelineCallbacks& callbacks;
        TimelineWindowFactory& factory;
        SceneTracks& tracks;
        EditSession& session;
        ShownScene& scene;
    };
    explicit SkinSwitch(const Subjects& subjects) : m_subjects(subjects) {}

    /// Makes the timeline, in this skin. False when it cannot be read or is not complete; there is
    /// no timeline then.
    bool Create(const QString& path);
    /// Draws the timeline in that skin, and the program in the theme that goes with it; scene,
    /// selection, current frame and view stay. False, and all stays, when it is not complete.
    bool Show(const QString& path);
    /// The path of the skin.
    const QString& Current() const { return m_current; }

signals:
    /// The timeline's window was made; the timeline is in it.
    void WindowMade(host::TimelineWindow& window, const QString& path);
    /// The timeline is drawn in this skin.
    void Shown(const QString& path);

private:
    bool Draw(const QString& path);
    bool Redraw(const QString& path);

    Subjects m_subjects;
    QString m_current;
};

} // namespace host
