#pragma once

#include <functional>
#include <utility>

namespace host {

/// Through which a long import says how far it is and hears whether to go on. May be called from
/// another thread than the one that the user is in.
class ImportProgress
{
public:
    /// Hears a part done from 0 to 1 and answers false to give up.
    using Listener = std::function<bool(double share)>;

    /// Nobody listens and nothing is given up.
    ImportProgress() = default;
    explicit ImportProgress(Listener listener) : m_listener(std::move(listener)) {}

    /// Tells that @p share of the work is done, from 0 to 1. False: it is to end without a result.
    bool Advance(double share) const
    {
        return !m_listener || m_listener(m_from + share * (m_to - m_from));
    }

    /// For a step of the work that takes it from @p from to @p to.
    ImportProgress Part(double from, double to) const
    {
        ImportProgress part(m_listener);
        part.m_from = m_from + from * (m_to - m_from);
        part.m_to = m_from + to * (m_to - m_from);
        return part;
    }

private:
    Listener m_listener;
    double m_from = 0;
    double m_to = 1;
};

} // namespace host
