#include "skin/StyleSections.h"

#include "skin/SkinFont.h"

#include <string>
#include <vector>

namespace {

/// The pixel size that stands for "use the point size".
constexpr int kNoPixelSize = -1;

bool ReadCaption(const SkinSection& section, CaptionStyle& caption)
{
    int pointSize = 0;
    int pixelSize = 0;
    const bool sized =
        section.Read(L"BitmapID", caption.bitmapId) &&
        section.Read(L"BitmapFocusID", caption.bitmapFocusId) &&
        section.Read(L"TxtPos", caption.textPos) && section.Read(L"TxtColor", caption.textColour) &&
        section.Read(L"TxtColorFocus", caption.textColourFocus) &&
        section.Read(L"TxtSize", pointSize) && section.Read(L"TxtPixSize", pixelSize);
    if (!sized)
        return false;

    if (pixelSize == kNoPixelSize)
        SetPointSize(caption.font, pointSize);
    else
        SetPixelSize(caption.font, pixelSize);
    return section.ReadFontFace(L"TxtFace", caption.font);
}

bool ReadCaptionButton(const SkinSection& section, CaptionButtonStyle& button)
{
    return section.Read(L"BtnID", button.buttonId) && section.Read(L"BtnType", button.type) &&
           section.Read(L"BtnBmpID", button.bitmapId) && section.Read(L"BtnPos", button.position) &&
           section.Read(L"BtnTipTxt", button.tipText);
}

/// Any number of buttons, counted from 1 without a gap; the first number that is missing ends them.
bool ReadCaptionButtons(const SkinSection& track, std::vector<CaptionButtonStyle>& buttons)
{
    for (int number = 1;; ++number) {
        const auto section = track.FollowOptional(L"CaptionBtn" + std::to_wstring(number));
        if (!section)
            return true;
        CaptionButtonStyle button;
        if (!ReadCaptionButton(*section, button))
            return false;
        buttons.push_back(button);
    }
}

/// What every kind but the ruler begins with.
bool ReadCommonPart(const SkinSection& track, TrackStyle& style)
{
    const bool hasBackground = track.Read(L"TrackBgType", style.backgroundType) &&
                               track.Read(L"TrackBgID", style.backgroundId) &&
                               track.ReadWithAlpha(L"Disable", style.disabled) &&
                               track.ReadWithAlpha(L"DisableSel", style.disabledSelected);
    if (!hasBackground)
        return false;
    const auto caption = track.Follow(L"Caption");
    return caption && ReadCaption(*caption, style.caption) &&
           ReadCaptionButtons(track, style.captionButtons);
}

bool ReadClipLook(const SkinSection& section, ClipTrackStyle::Look& look)
{
    return section.Read(L"Border", L"BorderSel", look.border) &&
           section.Read(L"Fill", L"FillSel", look.fill) &&
           section.Read(L"TxtColor", L"TxtColorSel", look.textColour) &&
           section.Read(L"TxtColorTrial", L"TxtColorSelTrial", look.textColourTrial) &&
           section.Read(L"GradientUp", L"GradientUpSel", look.gradientUp) &&
           section.Read(L"GradientDown", L"GradientDownSel", look.gradientDown);
}

} // namespace

bool ReadTickTrack(const SkinSection& track, TickTrackStyle& style)
{
    return track.Read(L"MarkLine", style.markLine) && track.Read(L"TxtOffset", style.textOffset) &&
           track.Read(L"TxtSizeRatio", style.textSizeRatio) &&
           track.Read(L"TxtMinSize", style.textMinSize) && track.Read(L"TxtFace", style.textFace) &&
           track.Read(L"TxtColor", style.textColour);
}

bool ReadSwitchTrack(const SkinSection& track, SwitchTrackStyle& style)
{
    if (!ReadCommonPart(track, style))
        return false;
    const auto section = track.Follow(L"TrackKey");
    return section && section->Read(L"ScrollBmpType", style.scrollBmpType) &&
           section->Read(L"BtnBmpType", style.buttonBmpType) &&
           section->Read(L"BtnGapSize", style.buttonGap) &&
           section->Read(L"TxtColor", style.textColour) &&
           section->Read(L"TxtColorOn", style.textColourOn) &&
           section->ReadPointSize(L"TxtSize", style.font) &&
           section->ReadFontFace(L"TxtFace", style.font);
}

bool ReadKeyTrack(const SkinSection& track, KeyTrackStyle& style)
{
    if (!ReadCommonPart(track, style))
        return false;
    const auto section = track.Follow(L"TrackKey");
    return section && section->Read(L"KeyAlign", style.keyAlign) &&
           section->Read(L"KeyBmpType", style.keyBmpType) &&
           section->Read(L"RelKeyBmpType", style.relatedKeyBmpType) &&
           section->Read(L"ClipHeight", style.clipHeight) &&
           section->Read(L"ClipBorder", L"ClipBorderSel", style.clipBorder);
}

bool ReadLineKeyTrack(const SkinSection& track, LineKeyTrackStyle& style)
{
    if (!ReadKeyTrack(track, style))
        return false;
    const auto section = track.Follow(L"TrackKey");
    LineKeyTrackStyle::Line& line = style.line;
    return section && section->Read(L"KeyBmpType", line.keyBmpType) &&
           section->Read(L"LineHeight", line.lineHeight) &&
           section->Read(L"ClipHeight", line.clipHeight) &&
           section->Read(L"LineBorder", L"LineBorderSel", line.border) &&
           section->Read(L"LineFill", L"LineFillSel", line.fill) &&
           section->Read(L"LineBorder1", L"LineBorderSel1", line.border1) &&
           section->Read(L"LineFill1", L"LineFillSel1", line.fill1) &&
           section->ReadWithAlpha(L"Disable", line.disabled) &&
           section->ReadWithAlpha(L"DisableSel", line.disabledSelected) &&
           section->Read(L"RelKeyBmpType", line.relatedKeyBmpType) &&
           section->Read(L"RelLineBorder", L"RelLineBorderSel", line.relatedBorder) &&
           section->Read(L"RelLineFill", L"RelLineFillSel", line.relatedFill) &&
           section->Read(L"ClipBorder", L"ClipBorderSel", line.clipBorder);
}

bool ReadClipTrack(const SkinSection& track, ClipTrackStyle& style)
{
    if (!ReadCommonPart(track, style))
        return false;
    const auto normal = track.Follow(L"TrackKey");
    if (!normal || !normal->Read(L"Height", style.height) || !ReadClipLook(*normal, style.normal))
        return false;
    const auto locked = track.Follow(L"TrackKey1");
    if (!locked || !ReadClipLook(*locked, style.locked))
        return false;
    const auto alternate = track.Follow(L"3DTrackKey");
    return alternate && ReadClipLook(*alternate, style.alternate) &&
           alternate->ReadPointSize(L"TxtSize", style.font) &&
           alternate->ReadFontFace(L"TxtFace", style.font);
}

bool ReadWaveTrack(const SkinSection& track, WaveTrackStyle& style)
{
    if (!ReadCommonPart(track, style))
        return false;
    const auto section = track.Follow(L"TrackKey");
    return section && section->Read(L"WaveColor", L"WaveColorSel", style.wave) &&
           section->Read(L"ClipHeight", style.clipHeight) &&
           section->Read(L"ClipBorder", L"ClipBorderSel", style.clipBorder) &&
           section->Read(L"CaptionFill", style.captionFill) &&
           section->Read(L"CaptionBorder", style.captionBorder) &&
           section->Read(L"CaptionTop", style.captionTop) &&
           section->Read(L"CaptionBtn1", style.captionBottomUpper) &&
           section->Read(L"CaptionBtn2", style.captionBottom) &&
           section->Read(L"CaptionLeft", style.captionLeft) &&
           section->Read(L"WaveTrackBg", style.background) &&
           section->Read(L"WaveTrackBgTopLine", style.backgroundTopLine) &&
           section->Read(L"WaveTrackBgBtnLine1", style.backgroundBottomUpper) &&
           section->Read(L"WaveTrackBgBtnLine2", style.backgroundBottom);
}
