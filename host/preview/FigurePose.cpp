#include "FigurePose.h"

#include "FigurePoser.h"

namespace host {

FigurePose FigureAt(const Scene& scene, int frame)
{
    return FigurePoser(scene).At(frame);
}

} // namespace host
