#pragma once

class QObject;

/// Stands on the stack while host code runs inside one of the library's own operations. The host
/// may delete tracks, the window or the manager from there; what has frames on the stack is then
/// put aside and freed from the event loop once the outermost call out has returned. GUI thread
/// only.
class CallOut
{
public:
    CallOut();
    ~CallOut();
    CallOut(const CallOut&) = delete;
    CallOut& operator=(const CallOut&) = delete;

    static bool IsUnderWay();
    /// Deletes @p object: at once when no host code is running, else when it is safe.
    static void Delete(QObject* object);
};
