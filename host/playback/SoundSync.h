#pragma once

#include "SoundOutput.h"
#include "document/Scene.h"

#include <QObject>
#include <QSet>

namespace host {

/// Keeps the sounds of a scene in step with its pictures: starts them, and sets them anew when
/// others are to be heard or when they have fallen behind, as a device does that ran dry while the
/// program was busy. Times are in seconds since the scene's first frame.
class SoundSync : public QObject
{
    Q_OBJECT
public:
    /// @param output is kept and outlives this object.
    explicit SoundSync(SoundOutput& output) : m_output(output) {}
    ~SoundSync() override;

    /// What is heard no longer fits: silent until the next Follow.
    void Restart();
    /// Silent, with nothing left to be compared.
    void Stop();
    /// The scene has changed: Restart when it sounds otherwise now.
    void Compare(const Scene& scene);
    /// The pictures are at @p seconds: starts what is due, and what has come out of step anew.
    void Follow(const Scene& scene, double seconds);

signals:
    /// One line for the user about sounds that are not heard; each is told once.
    void Told(const QString& text);

private:
    void Start(const SoundPlan& plan, double seconds);
    bool IsOutOfStep(double seconds, double frame);

    SoundOutput& m_output;
    SoundPlan m_plan; ///< what is being heard
    bool m_isDue = false;
    double m_delay = 0;   ///< by which the device is always late
    int m_tries = 0;      ///< how often the same sound was set anew without coming into step
    int m_toleration = 0; ///< frames for which it may be out of step before it is tried again
    QSet<QString> m_told;
};

} // namespace host
