#pragma once

#include "GestureHand.h"

namespace KestovaTest {

/// One gesture of the user's hand.
struct Gesture
{
    const char* name;
    unsigned rows;                        ///< that the scene needs
    SceneRow row;                         ///< that it is made on, or that a host would act on
    void (*prepare)(GestureScene& scene); ///< beyond the scene's own state; null for nothing
    Script (*script)(GestureScene& scene);
    bool choosesInMenu = false;
};

/// All gestures there are.
const std::vector<Gesture>& Gestures();

/// Adds a test row per gesture, by its index.
void AddGestureRows();

} // namespace KestovaTest
