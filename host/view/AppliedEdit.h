#pragma once

#include "document/EditSession.h"

namespace host {

class SceneTracks;

/// An edit of one step that a command makes: @p scene becomes current, and the timeline shows it
/// before anybody hears that it was committed.
void ApplyEdit(EditSession& session, SceneTracks& tracks, const QString& name, const Scene& scene);

} // namespace host
