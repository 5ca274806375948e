#include "SoundOutput.h"

#include <QCoreApplication>

namespace host {

namespace {

/// Stands in where the program was built without sound.
class NoSoundOutput : public SoundOutput
{
public:
    QString Start(const SoundPlan&, double) override
    {
        return QCoreApplication::translate(
            "SoundOutput", "This program was built without sound: playing silently");
    }
    void Stop() override {}
    std::optional<double> Place() const override { return std::nullopt; }
};

} // namespace

std::unique_ptr<SoundOutput> MakeSoundOutput()
{
    return std::make_unique<NoSoundOutput>();
}

} // namespace host
