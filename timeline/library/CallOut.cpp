#include "library/CallOut.h"

#include <QObject>
#include <QPointer>

#include <utility>
#include <vector>

namespace {

int depth = 0;

std::vector<QPointer<QObject>>& PutAside()
{
    static std::vector<QPointer<QObject>> objects;
    return objects;
}

} // namespace

CallOut::CallOut()
{
    ++depth;
}

CallOut::~CallOut()
{
    if (--depth > 0)
        return;
    // Only now: a deferred deletion asked for inside a nested event loop would happen inside that
    // loop, under the frames that still use the object.
    for (const QPointer<QObject>& object : std::exchange(PutAside(), {})) {
        if (object)
            object->deleteLater();
    }
}

bool CallOut::IsUnderWay()
{
    return depth > 0;
}

void CallOut::Delete(QObject* object)
{
    if (!object)
        return;
    if (IsUnderWay())
        PutAside().push_back(object);
    else
        delete object;
}
