#pragma once

#include "document/EditSession.h"

#include <functional>

namespace host {

/// Ends what the hand has under way on the timeline, as letting go there would, and then does
/// @p deed, unless @p context is gone by then. At once when nothing is under way, or else when
/// control is back in the event loop.
void EndGestureThen(QObject& context, EditSession& session, std::function<void()> deed);

} // namespace host
