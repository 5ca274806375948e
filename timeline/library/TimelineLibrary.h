#pragma once

#include "axis/FrameAxis.h"
#include "model/RelationTable.h"
#include "skin/ImageTables.h"

#include <QColor>

#include <string>

/// Everything that is one for the whole process and shared by every manager and container: the
/// frame axis, the relation rows, the skin file's path, the pictures, and the colour of the
/// current-frame line. GUI thread only, no locking. Lives as long as the library is loaded.
struct TimelineLibrary
{
    FrameAxis axis;
    RelationTable relations;
    std::wstring skinPath;
    ImageTables images;
    /// Until a ruler style has been loaded; that style's "MarkLine" from then on.
    QColor currentFrameLine = QColor(60, 90, 59);

    static TimelineLibrary& Instance();
};
