#pragma once

/// Lets go of what rows keep from one paint to the next: the pictures of their backgrounds and the
/// texts that were laid out. To be called when the skin's pictures are freed, and before the
/// application object goes, which pictures and fonts must not outlive. Painting afterwards makes
/// anew what it needs.
void ClearPaintCaches();
