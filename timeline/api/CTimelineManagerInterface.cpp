#include "CTimelineManagerInterface.h"

CTimelineManagerInterface::~CTimelineManagerInterface() = default;

void CTimelineManagerInterface::OnCurrentFrameChanged(int, bool) {}
void CTimelineManagerInterface::OnMoveTimeMark(int, int, bool) {}
void CTimelineManagerInterface::OnActiveTrackChanged(CTimelineTrackBase*, CTimelineTrackBase*) {}
void CTimelineManagerInterface::OnActiveTrackTheSame(CTimelineTrackBase*, CTimelineTrackBase*) {}
void CTimelineManagerInterface::OnTrackLDbClick(CTimelineTrackBase*, int) {}
void CTimelineManagerInterface::OnSwitchBtnStateChanged(CTimelineTrackBase*, int) {}

int CTimelineManagerInterface::OnEditingKeys(TLEditType, const VZ::CArrayList<CTimelineTrackBase*>&,
                                             int, int)
{
    return -1;
}

void CTimelineManagerInterface::OnCaptionBtnChanged(CTimelineTrackBase*, int, QPoint) {}
void CTimelineManagerInterface::OnQueryTrackRightMenu(CTimelineTrackBase*,
                                                      std::vector<_tmpTLMenuMapData*>*)
{
}
void CTimelineManagerInterface::OnSelectedTrackRightMenu(CTimelineTrackBase*, int) {}
void CTimelineManagerInterface::OnSelectedDataCleared() {}
void CTimelineManagerInterface::OnSelectedDataChanged() {}

bool CTimelineManagerInterface::OnTrackDropFile(TLDropFileType, QString)
{
    return false;
}

void CTimelineManagerInterface::OnCheckDragFile(CTimelineTrackBase*, QString, int) {}
