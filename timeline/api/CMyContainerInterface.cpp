#include "CMyContainerInterface.h"

#include "CTimelineManager.h"

// The host may delete the manager, and this object with it, inside any of these calls: nothing is
// touched after them.

int CMyContainerInterface::OnContainerMessage(unsigned int code, CTimelineTrackBase* track,
                                              HANDLE handle, QVariant value1, QVariant value2,
                                              QVariant value3)
{
    return m_manager->ReceiveMessage(code, track, handle, value1, value2, value3);
}

int CMyContainerInterface::OnContainerTrackEdit(TLEditType type,
                                                const VZ::CArrayList<CTimelineTrackBase*>& tracks,
                                                QVariant value1, QVariant value2)
{
    return m_manager->ReceiveTrackEdit(type, tracks, value1, value2);
}

bool CMyContainerInterface::OnContainerDrop(TLDropFileType type, QString path)
{
    return m_manager->ReceiveTrackDrop(type, path);
}
