#include "container/Hotkeys.h"

#include "container/CTimelineContainer.h"

#include <QAction>
#include <QKeySequence>

namespace {

struct Hotkey
{
    const char* objectName;
    int key; ///< with its modifiers
    void (CTimelineContainer::*slot)();
};

// Plain keys: where a keyboard needs Shift for "+" or "*", Qt still reports them as such. "=" is
// the same key without Shift on many keyboards.
constexpr Hotkey kHotkeys[] = {
    {"SelectNext", Qt::Key_Tab, &CTimelineContainer::OnHKTab},
    {"SelectPrev", int(Qt::SHIFT) | int(Qt::Key_Tab), &CTimelineContainer::OnHKShiftTab},
    {"ZeroFrame", Qt::Key_Home, &CTimelineContainer::OnHKHome},
    {"EndFrame", Qt::Key_End, &CTimelineContainer::OnHKEnd},
    {"EndFrame2", Qt::Key_Period, &CTimelineContainer::OnHKEnd},
    {"ZoominFrame", Qt::Key_Plus, &CTimelineContainer::OnHKPlus},
    {"ZoominFrame2", Qt::Key_Equal, &CTimelineContainer::OnHKPlus},
    {"ZoomoutFrame", Qt::Key_Minus, &CTimelineContainer::OnHKMinus},
    {"ZoomAllFrame", Qt::Key_Asterisk, &CTimelineContainer::OnHKAsterisk},
    {"UnZoomFrame", Qt::Key_Slash, &CTimelineContainer::OnHKSlash},
};

} // namespace

void AddHotkeys(CTimelineContainer& container)
{
    for (const Hotkey& hotkey : kHotkeys) {
        auto* const action = new QAction(&container);
        action->setObjectName(QLatin1String(hotkey.objectName));
        action->setShortcut(QKeySequence(hotkey.key));
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        QObject::connect(action, &QAction::triggered, &container, hotkey.slot);
        container.addAction(action);
    }
}
