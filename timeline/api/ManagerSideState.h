#pragma once

#include <memory>

class CMyContainerInterface;
class CTimelineManager;

/// What a manager has to remember beside its members, whose layout is fixed: the container
/// interfaces that it made (a container may still use an earlier one) and whether the host is owed
/// a final notice of the current frame. Kept for the whole process by the manager's address.
namespace ManagerSideState {

/// The interface lives until Forget of this manager.
CMyContainerInterface* AddInterface(CTimelineManager* manager);
bool IsFinalNoticeOwed(const CTimelineManager* manager);
void SetFinalNoticeOwed(const CTimelineManager* manager, bool owed);
/// True while the manager lives. Whoever goes on after host code has run keeps it and asks.
std::shared_ptr<const bool> LifeOf(const CTimelineManager* manager);
/// Deletes the manager's interfaces.
void Forget(const CTimelineManager* manager);

} // namespace ManagerSideState
