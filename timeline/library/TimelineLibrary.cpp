#include "library/TimelineLibrary.h"

TimelineLibrary& TimelineLibrary::Instance()
{
    static TimelineLibrary library;
    return library;
}
