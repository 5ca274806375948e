#pragma once

/// @file
/// Everything a host needs: the manager, the host's callbacks, the window bases, the key
/// classes, and the version.

#include "CArrayList.h"
#include "CPointer.h"
#include "CReltedGroupBase.h"
#include "CTimelineKey.h"
#include "CTimelineKeyArray.h"
#include "CTimelineManager.h"
#include "CTimelineManagerInterface.h"
#include "CTimelineWndBase.h"
#include "CTimelineWndFactoryBase.h"
#include "KestovaExport.h"
#include "KestovaVersion.h"
#include "TimelineBoundaryRecords.h"
#include "TimelineEnums.h"
#include "TimelineKeyValues.h"
