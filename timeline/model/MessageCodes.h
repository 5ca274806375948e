#pragma once

/// What a track reports to the container. The container turns most of them into host messages or
/// edits.
enum TrackCode : int
{
    kTrackRepaint = 1101, ///< repaint, nothing else changed
    kTrackSelectionChanged = 1102,
    kTrackSelectionCleared = 1103, ///< the other tracks' selections are to be cleared as well
    kTrackFrameMoved = 1104,       ///< the current frame was set; always followed by the next
    kTrackFrameSet = 1105,
    kTrackTimeMarkMoved = 1106,
    kTrackTimeMarkSet = 1107,
    kTrackPressed = 1108,
    kTrackKeyMoveBegins = 1109,
    kTrackKeyMoveStep = 1110, ///< value 2: frames since the last step
    kTrackKeyMoveEnds = 1111, ///< value 2: frames since the last step
    kTrackKeyCopyBegins = 1112,
    kTrackKeyCopyStep = 1113,
    kTrackKeyCopyEnds = 1114,
    kTrackDoubleClicked = 1115,
    kTrackMenuQuery = 1116, ///< value 1: the address of the list that the host fills
    kTrackMenuChosen = 1117,
    kTrackViewChanged = 1201, ///< zoom or scroll offset
    kTrackRowsMoved = 1202,
    kTrackLoopBegins = 1203,
    kTrackLoopStep = 1204,
    kTrackLoopEnds = 1205,
    kTrackSpeedBegins = 1206,
    kTrackSpeedStep = 1207,
    kTrackSpeedEnds = 1208,
    kTrackTrimBegins = 1209,
    kTrackTrimStep = 1210,
    kTrackTrimEnds = 1211,
    kTrackLoopOrSpeed = 1212, ///< asks which edit an end-edge drag performs
    kTrackSwitchToggled = 1213,
    kTrackButtonsScrolled = 1214
};

/// What the container sends to the manager, which calls the host.
enum HostCode : unsigned int
{
    kHostFrameMoved = 1301,
    kHostFrameSet = 1302,
    kHostTimeMarkMoved = 1303,
    kHostTimeMarkSet = 1304,
    kHostActiveTrackChanged = 1305,
    kHostActiveTrackTheSame = 1306,
    kHostDoubleClicked = 1307,
    kHostSwitchToggled = 1308,
    kHostCaptionButton = 1309,
    kHostMenuQuery = 1310,
    kHostMenuChosen = 1311,
    kHostSelectionCleared = 1312,
    kHostSelectionChanged = 1313,
    kHostDragCheck = 1314
};
