#pragma once

/// The kinds of caption buttons, as the skin numbers them. Others have no picture and cannot be
/// pressed.
enum CaptionButtonType : int
{
    kPushButton = 0,
    kToggleButton = 1
};

enum PushButtonState : int
{
    kPushNormal = 0,
    kPushHovered = 1,
    kPushPressed = 2
};

enum ToggleButtonState : int
{
    kToggleOff = 0,
    kToggleOffHovered = 1,
    kToggleOn = 2,
    kToggleOnHovered = 3
};

/// An index of a caption button that stands for none, and the id that no button goes by.
constexpr int kNoCaptionButton = -1;
