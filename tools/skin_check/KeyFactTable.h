#pragma once

#include "KeyFacts.h"

#include "skin/ImageRuns.h"
#include "tracks/BackgroundPainter.h"

// The table behind KeyFacts.h; included there alone.

namespace KeyFactTable {

constexpr ValueRange kAny;
constexpr ValueRange kByte = {0, 255};
constexpr ValueRange kOneOrMore = {1, kAny.most};
constexpr ValueRange kZeroOrMore = {0, kAny.most};
/// Longer names of fonts are cut by the systems that the timeline runs on.
constexpr ValueRange kFamily = {1, 63};
/// What fits into one line of a tooltip.
constexpr ValueRange kTip = {0, 120};
constexpr ValueRange kSectionName = {1, kAny.most};
/// The column of captions is this wide.
constexpr ValueRange kColumn = {0, 171};

/// The numbers of sets of @p setSize images each in a group.
constexpr ValueRange Sets(ImageTable table, int group, int setSize = 1)
{
    return {0, ImageCount(table, group) / setSize - 1};
}
/// The glyph groups of a kind of track, up to the first one of the next kind.
constexpr ValueRange Glyphs(int first, int end)
{
    return {0, end - first - 1};
}

constexpr ValueRange kCaptions = {0, ImageCount(ImageTable::Pictures, kCaptionPictures) -
                                         kFirstRowCaption - 1};
constexpr ValueRange kGrids = Sets(ImageTable::Brushes, kGridBrushes, kGridBrushCount);
constexpr ValueRange kBands = Sets(ImageTable::Brushes, kBandedBrushes, kBandedBrushCount);
constexpr ValueRange kPushButtons =
    Sets(ImageTable::Pictures, kPushButtonPictures, kPushButtonStates);
constexpr ValueRange kToggleButtons =
    Sets(ImageTable::Pictures, kToggleButtonPictures, kToggleButtonStates);
constexpr ValueRange kSwitchButtons =
    Sets(ImageTable::Pictures, kSwitchButtonPictures, kSwitchButtonStates);
constexpr ValueRange kArrows = Sets(ImageTable::Pictures, kScrollArrowPictures, kScrollArrowStates);
constexpr ValueRange kKeyGroups = Glyphs(kKeyGlyphs, kTransitionGlyphs);
constexpr ValueRange kTransitionGroups = Glyphs(kTransitionGlyphs, kLinkGlyphs);
constexpr ValueRange kLinkGroups = Glyphs(kLinkGlyphs, kVisemeGlyphs);
constexpr ValueRange kVisemeGroups = Glyphs(kVisemeGlyphs, kTimeMarkGlyphs);

constexpr auto kUnpainted = "Required, but not painted.";
constexpr auto kGlyphs = "Picture of the keys.";
constexpr auto kRelatedGlyphs = "Picture of the keys of a group.";

// clang-format off
constexpr KeyFact kFacts[] = {
    // The ruler and the menu.
    {"TickTrack", "", "MarkLine", kByte, "", "Colour of the current-frame line in every row."},
    {"TickTrack", "", "TxtOffset", kAny, "pixels", "Taken off the row's height when the frame numbers are placed: more lifts them."},
    {"TickTrack", "", "TxtSizeRatio", kAny, "", kUnpainted},
    {"TickTrack", "", "TxtMinSize", kOneOrMore, "pixels", "Height of the font of the frame numbers."},
    {"TickTrack", "", "TxtFace", kFamily, "", "Font family of the frame numbers."},
    {"TickTrack", "", "TxtColor", kByte, "", "Colour of the frame numbers."},
    {"TrackRightMenu", "", "TxtFace", kFamily, "", "Required, though the menu keeps its own font family."},
    {"TrackRightMenu", "", "TxtSize", kOneOrMore, "points", "Font size of a track's context menu."},

    // What every other track section begins with.
    {"*", "", "TrackBgType", {0, 1}, "", "Background of the row: 0 the grid of frames, 1 plain bands (in a wave row the colours of its look)."},
    {"*", "", "TrackBgID", kGrids, "", "Which grid.", "TrackBgType", 0},
    {"WaveTrack", "", "TrackBgID", kAny, "", "Not used by the colours of a wave row.", "TrackBgType", 1},
    {"*", "", "TrackBgID", kBands, "", "Which band: 0 plain, 1 raised, 2 sunken.", "TrackBgType", 1},
    {"*", "", "Disable", kByte, "", "Bars that related tracks' clips throw on this row."},
    {"*", "", "DisableSel", kByte, "", "The same bars of selected clips of an active track."},
    {"*", "", "Caption", kSectionName, "", "Section of the row's caption."},
    {"*", "", "CaptionBtn", kSectionName, "", "Sections of the caption's buttons, counted from 1 without a gap; there may be none."},
    {"ClipTrack", "", "TrackKey", kSectionName, "", "Section of the look of clips."},
    {"ClipTrack", "", "TrackKey1", kSectionName, "", "Section of the look of locked clips."},
    {"ClipTrack", "", "3DTrackKey", kSectionName, "", "Section of the look of clips in the alternate style."},
    {"*", "", "TrackKey", kSectionName, "", "Section of what is drawn in the row."},

    // Captions and their buttons.
    {"*", "Caption", "BitmapID", kCaptions, "", "Picture of the caption while the row is not active. Its height is the row's height."},
    {"*", "Caption", "BitmapFocusID", kCaptions, "", "Picture of the caption while the row is active."},
    {"*", "Caption", "TxtPos", kColumn, "pixels", "Left and right edge of the caption's text."},
    {"*", "Caption", "TxtColor", kByte, "", "Colour of the text, unless the row and its parent are active."},
    {"*", "Caption", "TxtColorFocus", kByte, "", "Colour of the text while they are."},
    {"*", "Caption", "TxtSize", kOneOrMore, "points", "Font size; counts when TxtPixSize is -1.", "TxtPixSize", -1},
    {"*", "Caption", "TxtSize", kAny, "points", "Does not count beside a TxtPixSize."},
    {"*", "Caption", "TxtPixSize", {-1, -1}, "", "Takes the size in points from TxtSize.", "TxtPixSize", -1},
    {"*", "Caption", "TxtPixSize", kOneOrMore, "pixels", "Height of the font."},
    {"*", "Caption", "TxtFace", kFamily, "", "Font family of the caption."},
    {"*", "CaptionBtn", "BtnID", kAny, "", "Number by which the host names the button."},
    {"*", "CaptionBtn", "BtnType", {0, 1}, "", "0 push button, 1 toggle button."},
    {"*", "CaptionBtn", "BtnBmpID", kPushButtons, "", "Picture: 0 plus, 1 menu.", "BtnType", 0},
    {"*", "CaptionBtn", "BtnBmpID", kToggleButtons, "", "Picture: 0 padlock, 1 eye.", "BtnType", 1},
    {"*", "CaptionBtn", "BtnPos", kColumn, "pixels", "Left edge of the button in the caption; it stands in the middle of the row's height."},
    {"*", "CaptionBtn", "BtnTipTxt", kTip, "", "A text that the host may show; the timeline does not."},

    // Switch tracks.
    {"SwitchTrack", "TrackKey", "ScrollBmpType", kArrows, "", "Pictures of the scroll arrows."},
    {"SwitchTrack", "TrackKey", "BtnBmpType", kSwitchButtons, "", "Pictures of the buttons: 0 narrow (84 pixels), 1 wide (110)."},
    {"SwitchTrack", "TrackKey", "BtnGapSize", kZeroOrMore, "pixels", "Space between two buttons."},
    {"SwitchTrack", "TrackKey", "TxtColor", kByte, "", "Text of a button that is off."},
    {"SwitchTrack", "TrackKey", "TxtColorOn", kByte, "", "Text of a button that is on."},
    {"SwitchTrack", "TrackKey", "TxtSize", kOneOrMore, "points", "Font size of the buttons."},
    {"SwitchTrack", "TrackKey", "TxtFace", kFamily, "", "Font family of the buttons."},

    // Clip tracks; the three looks have the same keys.
    {"ClipTrack", "TrackKey", "Height", kOneOrMore, "pixels", "Height of a clip, in all three looks."},
    {"ClipTrack", "*", "Border", kByte, "", "Frame of a clip."},
    {"ClipTrack", "*", "BorderSel", kByte, "", "Frame of a selected clip."},
    {"ClipTrack", "*", "Fill", kByte, "", kUnpainted},
    {"ClipTrack", "*", "FillSel", kByte, "", kUnpainted},
    {"ClipTrack", "TrackKey", "TxtColor", kByte, "", "Name of a clip, in all three looks."},
    {"ClipTrack", "TrackKey", "TxtColorSel", kByte, "", "Name of a selected clip, in all three looks."},
    {"ClipTrack", "TrackKey", "TxtColorTrial", kByte, "", "Name of a clip on trial, in all three looks."},
    {"ClipTrack", "TrackKey", "TxtColorSelTrial", kByte, "", "Name of a selected clip on trial, in all three looks."},
    {"ClipTrack", "*", "TxtColor", kByte, "", kUnpainted},
    {"ClipTrack", "*", "TxtColorSel", kByte, "", kUnpainted},
    {"ClipTrack", "*", "TxtColorTrial", kByte, "", kUnpainted},
    {"ClipTrack", "*", "TxtColorSelTrial", kByte, "", kUnpainted},
    {"ClipTrack", "*", "GradientUp", kByte, "", "Upper end of a clip's gradient."},
    {"ClipTrack", "TrackKey1", "GradientUpSel", kByte, "", kUnpainted},
    {"ClipTrack", "*", "GradientUpSel", kByte, "", "Upper end of a selected clip's gradient."},
    {"ClipTrack", "*", "GradientDown", kByte, "", "Lower end of a clip's gradient."},
    {"ClipTrack", "TrackKey1", "GradientDownSel", kByte, "", kUnpainted},
    {"ClipTrack", "*", "GradientDownSel", kByte, "", "Lower end of a selected clip's gradient."},
    {"ClipTrack", "3DTrackKey", "TxtSize", kOneOrMore, "points", "Font size of the names, in all three looks."},
    {"ClipTrack", "3DTrackKey", "TxtFace", kFamily, "", "Font family of the names, in all three looks."},

    // Wave tracks.
    {"WaveTrack", "TrackKey", "WaveColor", kByte, "", kUnpainted},
    {"WaveTrack", "TrackKey", "WaveColorSel", kByte, "", kUnpainted},
    {"WaveTrack", "TrackKey", "ClipHeight", kAny, "pixels", kUnpainted},
    {"WaveTrack", "TrackKey", "ClipBorder", kByte, "", "Frame of a clip."},
    {"WaveTrack", "TrackKey", "ClipBorderSel", kByte, "", "Frame of a selected clip."},
    {"WaveTrack", "TrackKey", "CaptionFill", kByte, "", "Ground of the caption."},
    {"WaveTrack", "TrackKey", "CaptionBorder", kByte, "", "Frame of the caption, under the lines below."},
    {"WaveTrack", "TrackKey", "CaptionTop", kByte, "", "Top line of the caption."},
    {"WaveTrack", "TrackKey", "CaptionBtn1", kByte, "", "The line one pixel above the bottom of the caption."},
    {"WaveTrack", "TrackKey", "CaptionBtn2", kByte, "", "Bottom line of the caption."},
    {"WaveTrack", "TrackKey", "CaptionLeft", kByte, "", "Left line of the caption."},
    {"WaveTrack", "TrackKey", "WaveTrackBg", kByte, "", "Ground of the row."},
    {"WaveTrack", "TrackKey", "WaveTrackBgTopLine", kByte, "", "Top line of the row."},
    {"WaveTrack", "TrackKey", "WaveTrackBgBtnLine1", kByte, "", "The line one pixel above the bottom of the row."},
    {"WaveTrack", "TrackKey", "WaveTrackBgBtnLine2", kByte, "", "Bottom line of the row."},

    // The tracks of keys; all of them share these.
    {"KeyTrack", "TrackKey", "KeyBmpType", kKeyGroups, "", "Picture of the keys: 0 tall key, 1 open diamond, 2 ring."},
    {"TransKeyTrack", "TrackKey", "KeyBmpType", kTransitionGroups, "", kGlyphs},
    {"LinkKeyTrack", "TrackKey", "KeyBmpType", kLinkGroups, "", "Picture of the keys: 0 posts and pennants, 1 beads and open pennants."},
    {"VisemeKeyTrack", "TrackKey", "KeyBmpType", kVisemeGroups, "", "Pictures of the mouth shapes."},
    {"KeyTrack", "TrackKey", "RelKeyBmpType", kKeyGroups, "", kRelatedGlyphs},
    {"TransKeyTrack", "TrackKey", "RelKeyBmpType", kTransitionGroups, "", kRelatedGlyphs},
    {"LinkKeyTrack", "TrackKey", "RelKeyBmpType", kLinkGroups, "", kRelatedGlyphs},
    {"VisemeKeyTrack", "TrackKey", "RelKeyBmpType", kVisemeGroups, "", kRelatedGlyphs},
    {"*", "TrackKey", "KeyAlign", {0, 2}, "", "Where the keys stand: 0 in the middle of the row, 1 at its top, 2 at its bottom."},
    {"*", "TrackKey", "ClipHeight", kOneOrMore, "pixels", "Height of the bar of a key that has a length."},
    {"*", "TrackKey", "ClipBorder", kByte, "", "Frame of that bar."},
    {"*", "TrackKey", "ClipBorderSel", kByte, "", "Frame of a selected bar."},

    // The lines of transition and link tracks.
    {"TransKeyTrack", "TrackKey", "LineHeight", kOneOrMore, "pixels", "Height of the span of a transition."},
    {"TransKeyTrack", "TrackKey", "LineBorder", kByte, "", "Frame of a span."},
    {"TransKeyTrack", "TrackKey", "LineBorderSel", kByte, "", "Frame of a selected span."},
    {"TransKeyTrack", "TrackKey", "LineFill", kByte, "", "Inside of a span."},
    {"TransKeyTrack", "TrackKey", "LineFillSel", kByte, "", "Inside of a selected span."},
    {"LinkKeyTrack", "TrackKey", "LineHeight", kOneOrMore, "pixels", "Height of the bar from a link's start to the next key."},
    {"LinkKeyTrack", "TrackKey", "LineBorder", kByte, "", "Frame of a link's bar."},
    {"LinkKeyTrack", "TrackKey", "LineBorderSel", kByte, "", "Frame of a selected link's bar."},
    {"LinkKeyTrack", "TrackKey", "LineFill", kByte, "", "Inside of a link's bar."},
    {"LinkKeyTrack", "TrackKey", "LineFillSel", kByte, "", "Inside of a selected link's bar."},
    {"LinkKeyTrack", "TrackKey", "LineBorder1", kByte, "", "Frame of a link's bar in the alternate style."},
    {"LinkKeyTrack", "TrackKey", "LineBorderSel1", kByte, "", "The same, selected."},
    {"LinkKeyTrack", "TrackKey", "LineFill1", kByte, "", "Inside of a link's bar in the alternate style."},
    {"LinkKeyTrack", "TrackKey", "LineFillSel1", kByte, "", "The same, selected."},
    {"LinkKeyTrack", "TrackKey", "RelLineBorder", kByte, "", "Frame of the bar of a link that is a copy of another track's."},
    {"LinkKeyTrack", "TrackKey", "RelLineBorderSel", kByte, "", "The same, selected."},
    {"LinkKeyTrack", "TrackKey", "RelLineFill", kByte, "", "Inside of such a bar."},
    {"LinkKeyTrack", "TrackKey", "RelLineFillSel", kByte, "", "The same, selected."},
    {"TransKeyTrack", "TrackKey", "LineBorder1", kByte, "", kUnpainted},
    {"TransKeyTrack", "TrackKey", "LineBorderSel1", kByte, "", kUnpainted},
    {"TransKeyTrack", "TrackKey", "LineFill1", kByte, "", kUnpainted},
    {"TransKeyTrack", "TrackKey", "LineFillSel1", kByte, "", kUnpainted},
    {"TransKeyTrack", "TrackKey", "RelLineBorder", kByte, "", kUnpainted},
    {"TransKeyTrack", "TrackKey", "RelLineBorderSel", kByte, "", kUnpainted},
    {"TransKeyTrack", "TrackKey", "RelLineFill", kByte, "", kUnpainted},
    {"TransKeyTrack", "TrackKey", "RelLineFillSel", kByte, "", kUnpainted},
    {"*", "TrackKey", "Disable", kByte, "", kUnpainted},
    {"*", "TrackKey", "DisableSel", kByte, "", kUnpainted},
};
// clang-format on

} // namespace KeyFactTable
