#include "tracks/PaintCaches.h"

#include "tracks/BackgroundCache.h"
#include "tracks/ShapedTexts.h"

void ClearPaintCaches()
{
    BackgroundCache::Shared().Clear();
    ShapedTexts::ClearAll();
}
