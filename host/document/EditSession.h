#pragma once

#include "Scene.h"

#include <QObject>

#include <optional>

namespace host {

/// The scene that is being edited, and the one edit that may be under way. An edit begins, takes
/// any number of steps, each of which gives the whole scene as it is then, and is committed; until
/// then the scene as it was before is kept, so that each step can start from it.
class EditSession : public QObject
{
    Q_OBJECT
public:
    /// The scene with all steps taken so far.
    const Scene& Current() const { return m_current; }
    /// The scene as it was before the edit under way; the current one when there is none.
    const Scene& Before() const { return m_before ? *m_before : m_current; }
    bool IsOpen() const { return m_before.has_value(); }

    /// Starts over with another scene; an edit under way is dropped.
    void Restart(const Scene& scene);
    /// Goes back (or forth again) to a scene that was current before. An edit under way is
    /// committed first; nothing is committed for this.
    void Restore(const Scene& scene);

    /// Begins an edit; one that is under way is committed first.
    void Begin();
    /// Makes @p scene current. Without an edit under way one begins. @p name is what the edit is
    /// called from now on.
    void Step(const QString& name, const Scene& scene);
    /// Ends the edit; nothing without one.
    void Commit();
    /// An edit of one step.
    void Apply(const QString& name, const Scene& scene);

signals:
    /// Another scene took the place of the one before.
    void Restarted();
    /// A scene that was current before is so again: what shows it has all to show anew.
    void Restored();
    /// The current scene is another than before: after a restart, a return and every step.
    void Changed();
    /// An edit begins; the scene is still as it was.
    void Begun();
    /// An edit that changed something was committed; @p before is the scene as it was before.
    void Committed(const QString& name, const host::Scene& before);
    /// The edit is over, whether it changed something (then this follows Committed) or not.
    void Ended();

private:
    Scene m_current;
    std::optional<Scene> m_before;
    QString m_name;
};

} // namespace host
