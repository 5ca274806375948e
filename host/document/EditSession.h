#pragma once

#include "Scene.h"

#include <functional>
#include <optional>

namespace host {

/// The scene that is being edited, and the one edit that may be under way. An edit begins, takes
/// any number of steps, each of which gives the whole scene as it is then, and is committed; until
/// then the scene as it was before is kept, so that each step can start from it.
class EditSession
{
public:
    /// Called when an edit that changed something was committed, with the scene as it was before.
    std::function<void(const QString& name, const Scene& before)> committed;

    /// The scene with all steps taken so far.
    const Scene& Current() const { return m_current; }
    /// The scene as it was before the edit under way; the current one when there is none.
    const Scene& Before() const { return m_before ? *m_before : m_current; }
    bool IsOpen() const { return m_before.has_value(); }

    /// Starts over with another scene; an edit under way is dropped.
    void Restart(const Scene& scene);

    /// Begins an edit; one that is under way is committed first.
    void Begin();
    /// Makes @p scene current. Without an edit under way one begins. @p name is what the edit is
    /// called from now on.
    void Step(const QString& name, const Scene& scene);
    /// Ends the edit; nothing without one.
    void Commit();
    /// An edit of one step.
    void Apply(const QString& name, const Scene& scene);

private:
    Scene m_current;
    std::optional<Scene> m_before;
    QString m_name;
};

} // namespace host
