#include "CTimelineWndFactoryBase.h"

CTimelineWndFactoryBase::~CTimelineWndFactoryBase() = default;
