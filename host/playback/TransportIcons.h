#pragma once

#include <QIcon>

namespace host {

enum class TransportSymbol
{
    Start,
    StepBack,
    Play,
    Pause,
    Stop,
    StepForward,
    End,
    Loop
};

/// The symbol as an icon that is drawn anew in every size and resolution, in the colour of the
/// program's button texts.
QIcon TransportIcon(TransportSymbol symbol);

} // namespace host
