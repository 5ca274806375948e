#include "EditSession.h"

namespace host {

void EditSession::Restart(const Scene& scene)
{
    m_before.reset();
    m_current = scene;
    emit Restarted();
    emit Changed();
}

void EditSession::Restore(const Scene& scene)
{
    Commit();
    m_current = scene;
    emit Restored();
    emit Changed();
}

void EditSession::Begin()
{
    Commit();
    m_before = m_current;
    m_name.clear();
    emit Begun();
}

void EditSession::Step(const QString& name, const Scene& scene)
{
    if (!IsOpen())
        Begin();
    m_name = name;
    m_current = scene;
    emit Changed();
}

void EditSession::Commit()
{
    if (!IsOpen())
        return;
    const Scene before = *m_before;
    m_before.reset();
    if (before != m_current)
        emit Committed(m_name, before);
    emit Ended();
}

void EditSession::Apply(const QString& name, const Scene& scene)
{
    Begin();
    Step(name, scene);
    Commit();
}

} // namespace host
