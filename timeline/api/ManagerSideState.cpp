#include "ManagerSideState.h"

#include "CMyContainerInterface.h"

#include <memory>
#include <new>
#include <unordered_map>
#include <vector>

namespace ManagerSideState {

namespace {

struct State
{
    std::vector<std::unique_ptr<CMyContainerInterface>> interfaces;
    bool finalNoticeOwed = false;
    std::shared_ptr<bool> isAlive = std::make_shared<bool>(true);
};

std::unordered_map<const CTimelineManager*, State>& States()
{
    static std::unordered_map<const CTimelineManager*, State> states;
    return states;
}

} // namespace

CMyContainerInterface* AddInterface(CTimelineManager* manager)
{
    std::unique_ptr<CMyContainerInterface> made(new (std::nothrow) CMyContainerInterface(manager));
    if (!made)
        return nullptr;
    CMyContainerInterface* const result = made.get();
    States()[manager].interfaces.push_back(std::move(made));
    return result;
}

bool IsFinalNoticeOwed(const CTimelineManager* manager)
{
    const auto found = States().find(manager);
    return found != States().end() && found->second.finalNoticeOwed;
}

void SetFinalNoticeOwed(const CTimelineManager* manager, bool owed)
{
    States()[manager].finalNoticeOwed = owed;
}

std::shared_ptr<const bool> LifeOf(const CTimelineManager* manager)
{
    return States()[manager].isAlive;
}

void Forget(const CTimelineManager* manager)
{
    const auto found = States().find(manager);
    if (found == States().end())
        return;
    *found->second.isAlive = false;
    States().erase(found);
}

} // namespace ManagerSideState
