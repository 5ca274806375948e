#include "KestovaVersion.h"

const char* KestovaTimelineVersion()
{
    return KESTOVA_VERSION;
}
