#pragma once

class CTimelineContainer;

/// Gives the container its keyboard shortcuts, one action for each, which become its children. They
/// work while the keyboard focus is on the container or on anything inside it.
void AddHotkeys(CTimelineContainer& container);
