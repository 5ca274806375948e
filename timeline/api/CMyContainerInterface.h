#pragma once

#include "container/CTimelineContainerInterface.h"

class CTimelineManager;

/// The manager's ear: what the container sends goes on to the manager unchanged.
class CMyContainerInterface : public CTimelineContainerInterface
{
public:
    explicit CMyContainerInterface(CTimelineManager* manager) : m_manager(manager) {}

    int OnContainerMessage(unsigned int code, CTimelineTrackBase* track, HANDLE handle,
                           QVariant value1, QVariant value2, QVariant value3) override;
    int OnContainerTrackEdit(TLEditType type, const VZ::CArrayList<CTimelineTrackBase*>& tracks,
                             QVariant value1, QVariant value2) override;
    bool OnContainerDrop(TLDropFileType type, QString path) override;

private:
    CTimelineManager* m_manager;
};
