#pragma once

#include <QRgb>

/// The colours of the default artwork, by role. Grounds stay within a narrow band of dark greys;
/// what the animator works on is lighter, and what is selected is the lightest of all, so that
/// states differ in luminance and not in hue alone.
namespace Palette {

// Rows.
constexpr QRgb kRowLine = qRgb(30, 32, 36); ///< the line on top of every row
constexpr QRgb kGround = qRgb(43, 46, 51);
constexpr QRgb kGroundDeep = qRgb(37, 40, 45);
constexpr QRgb kGroundRaised = qRgb(50, 54, 60);
constexpr QRgb kBeyond = qRgb(30, 32, 36);
constexpr QRgb kBeyondHatch = qRgb(35, 37, 41);
constexpr QRgb kSelection = qRgb(56, 66, 82);
constexpr QRgb kSelectionDeep = qRgb(50, 60, 76);
constexpr QRgb kSelectionRaised = qRgb(62, 72, 88);
constexpr QRgb kMajorBand = qRgb(49, 52, 58);
constexpr QRgb kMajorBandSelected = qRgb(63, 74, 91);
constexpr QRgb kGridTick = qRgb(56, 60, 66);
constexpr QRgb kGridTickSelected = qRgb(76, 88, 106);

// Captions.
constexpr QRgb kCaption = qRgb(50, 53, 59);
constexpr QRgb kCaptionFocus = qRgb(66, 77, 94);
constexpr QRgb kCaptionEdge = qRgb(24, 26, 29); ///< between the captions and the rows
constexpr QRgb kCaptionGutter = qRgb(70, 75, 83);
constexpr QRgb kCaptionGutterFocus = qRgb(238, 196, 110);

// Ruler and scroll bar.
constexpr QRgb kRuler = qRgb(37, 39, 43);
constexpr QRgb kRulerBeyond = qRgb(26, 27, 30);
constexpr QRgb kRulerBeyondHatch = qRgb(31, 32, 36);
constexpr QRgb kRulerCell = qRgb(50, 54, 60);
constexpr QRgb kRulerBottomLine = qRgb(20, 21, 24);
constexpr QRgb kMinorTick = qRgb(98, 105, 114);
constexpr QRgb kMajorTick = qRgb(170, 178, 188);
constexpr QRgb kScrollGround = qRgb(28, 30, 33);
constexpr QRgb kThumb = qRgb(84, 91, 101);
constexpr QRgb kThumbLight = qRgb(106, 114, 125);
constexpr QRgb kThumbDark = qRgb(66, 71, 79);

// Current frame, time mark and range markers.
constexpr QRgb kCurrent = qRgb(88, 216, 192);
constexpr QRgb kTimeMark = qRgb(150, 172, 250);
constexpr QRgb kTimeMarkDark = qRgb(60, 72, 120);

// Keys.
constexpr QRgb kKeyOutline = qRgb(20, 22, 25);
constexpr QRgb kKey = qRgb(138, 162, 186);
constexpr QRgb kKeyLight = qRgb(168, 190, 212);
constexpr QRgb kRelatedLight = qRgb(200, 184, 234);
constexpr QRgb kSelected = qRgb(250, 206, 110);
constexpr QRgb kSelectedLight = qRgb(255, 244, 214);
constexpr QRgb kSelectedCore = qRgb(58, 40, 8);

// Buttons.
constexpr QRgb kButton = qRgb(58, 62, 69);
constexpr QRgb kButtonHover = qRgb(72, 78, 87);
constexpr QRgb kButtonEdge = qRgb(26, 28, 31);
constexpr QRgb kButtonLight = qRgb(84, 90, 99);
constexpr QRgb kButtonOn = qRgb(222, 180, 96);
constexpr QRgb kButtonOnHover = qRgb(244, 206, 124);
constexpr QRgb kButtonOnLight = qRgb(252, 228, 168);
constexpr QRgb kSign = qRgb(158, 166, 176);
constexpr QRgb kSignHover = qRgb(232, 237, 243);
constexpr QRgb kSignDisabled = qRgb(82, 87, 95);

// Mouth shapes.
constexpr QRgb kMouthPlate = qRgb(54, 58, 65);
constexpr QRgb kMouthPlateEdge = qRgb(96, 103, 113);
constexpr QRgb kLip = qRgb(222, 138, 126);
constexpr QRgb kMouthInside = qRgb(18, 11, 13);
constexpr QRgb kTeeth = qRgb(246, 244, 236);
constexpr QRgb kTongue = qRgb(184, 76, 88);
constexpr QRgb kLipSelected = qRgb(150, 42, 38);
constexpr QRgb kMouthInsideSelected = qRgb(38, 8, 8);
constexpr QRgb kTeethSelected = qRgb(255, 254, 248);
constexpr QRgb kTongueSelected = qRgb(216, 96, 92);

} // namespace Palette
