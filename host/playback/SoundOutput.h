#pragma once

#include "SoundPlan.h"

#include <memory>
#include <optional>

namespace host {

/// What makes sounds heard.
class SoundOutput
{
public:
    virtual ~SoundOutput() = default;

    /// Begins to play what the plan holds from @p seconds on, in place of what was played before.
    /// One line for the user about why some or all of it is not heard; empty when all is.
    virtual QString Start(const SoundPlan& plan, double seconds) = 0;
    /// Ends at once; nothing when nothing is played.
    virtual void Stop() = 0;
    /// What is being heard at this moment, in seconds as Start takes them; nothing when nothing is
    /// played or it is not known.
    virtual std::optional<double> Place() const = 0;
};

/// The computer's own, as far as the program was built with it.
std::unique_ptr<SoundOutput> MakeSoundOutput();

} // namespace host
