#include "SoundSync.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace host {

namespace {

constexpr double kFinestStep = 0.04;   ///< seconds; devices tell their place in steps
constexpr double kLongestDelay = 0.25; ///< seconds that a device may hold back all the time
constexpr int kMostDoublings = 6;      ///< of the frames between tries

} // namespace

SoundSync::~SoundSync()
{
    m_output.Stop();
}

void SoundSync::Restart()
{
    m_isDue = true;
    m_tries = 0;
    m_toleration = 0;
    if (!m_plan.isEmpty())
        m_output.Stop();
}

void SoundSync::Stop()
{
    m_isDue = false;
    m_plan.clear();
    m_output.Stop();
}

void SoundSync::Compare(const Scene& scene)
{
    if (!m_isDue && SoundsOf(scene) != m_plan)
        Restart();
}

void SoundSync::Follow(const Scene& scene, double seconds)
{
    if (m_isDue)
        Start(SoundsOf(scene), seconds);
    else if (!m_plan.isEmpty() && IsOutOfStep(seconds, 1.0 / std::max(1, scene.frameRate)))
        Start(m_plan, seconds);
}

void SoundSync::Start(const SoundPlan& plan, double seconds)
{
    m_isDue = false;
    m_plan = plan;
    if (plan.isEmpty())
        return;
    const QString problem = m_output.Start(plan, seconds);
    if (problem.isEmpty() || m_told.contains(problem))
        return;
    m_told.insert(problem);
    emit Told(problem);
}

/// A device that is late by the same time after it was set anew is so always, which setting it anew
/// once more would not change; and one that answers nothing but nonsense is asked ever more seldom.
bool SoundSync::IsOutOfStep(double seconds, double frame)
{
    const std::optional<double> heard = m_output.Place();
    if (!heard)
        return false;
    const double late = seconds - *heard;
    if (std::abs(late - m_delay) <= std::max(frame, kFinestStep)) {
        m_tries = 0;
        m_toleration = 0;
        return false;
    }
    if (m_tries > 0 && late > 0 && late < kLongestDelay) {
        m_delay = late;
        m_tries = 0;
        return false;
    }
    if (m_toleration > 0) {
        --m_toleration;
        return false;
    }
    m_toleration = (1 << std::min(m_tries, kMostDoublings)) - 1;
    ++m_tries;
    return true;
}

} // namespace host
