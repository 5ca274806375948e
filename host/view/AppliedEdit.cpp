#include "AppliedEdit.h"

#include "SceneTracks.h"

namespace host {

void ApplyEdit(EditSession& session, SceneTracks& tracks, const QString& name, const Scene& scene)
{
    session.Begin();
    session.Step(name, scene);
    tracks.ShowKeys(scene);
    session.Commit();
}

} // namespace host
