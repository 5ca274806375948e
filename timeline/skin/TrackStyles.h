#pragma once

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QPen>
#include <QPoint>
#include <QString>

#include <vector>

// What the sections of a skin say, field by field. Sizes and places are in pixels, font sizes
// excepted; all numbers are as the skin has them, of any size and sign. A field that the skin must
// have though no row is painted with it says "kept, not painted". Everything starts empty: there
// are no default looks.

/// A skin colour: components 0 to 1.
struct StyleColour
{
    float red = 0, green = 0, blue = 0, alpha = 0;

    /// Each component times 255, truncated.
    QColor ToColor() const;
};

/// A colour and the solid 1-pixel, opaque pen made of it.
struct StylePen
{
    StyleColour colour;
    QPen pen;
};

/// A colour and the solid, opaque brush made of it.
struct StyleBrush
{
    StyleColour colour;
    QBrush brush;
};

/// A normal and a selected entry.
struct StylePenPair
{
    StylePen entries[2];
    const QPen& operator[](bool selected) const { return entries[selected ? 1 : 0].pen; }
};
/// A normal and a selected entry.
struct StyleBrushPair
{
    StyleBrush entries[2];
    const QBrush& operator[](bool selected) const { return entries[selected ? 1 : 0].brush; }
};

/// What a track loads from the skin; owned by the track. The kinds below say what they hold.
struct StyleRecord
{
    virtual ~StyleRecord() = default;
};

/// The caption of a row, in the left column.
struct CaptionStyle
{
    int bitmapId = 0;            ///< caption picture of an inactive row; its size is the row's
    int bitmapFocusId = 0;       ///< the same of an active row
    QPoint textPos;              ///< x: left edge of the caption text; y: its right edge
    StyleColour textColour;      ///< unless both the row and its parent are active
    StyleColour textColourFocus; ///< when they are
    QFont font;                  ///< bold while the row is active
};

/// A button of a caption, centred in the row's height.
struct CaptionButtonStyle
{
    int bitmapId = 0; ///< which set of button pictures
    int buttonId = 0; ///< what the host names the button by
    int type = 0;     ///< 0 push button, 1 toggle button; others have no pictures
    int position = 0; ///< x of its left edge
    /// Push: 0 normal, 1 hover, 2 pressed; toggle: 0 off, 1 off and hover, 2 on, 3 on and hover.
    /// Not from the skin: it starts at 0 and changes with the button.
    int state = 0;
    QString tipText; ///< kept, not painted
};

/// What every kind but the ruler has.
struct TrackStyle : StyleRecord
{
    int backgroundType = 0;       ///< 0 grid, else banded or, in a wave row, its colours
    int backgroundId = 0;         ///< which set of background brushes
    StyleColour disabled;         ///< bars of related tracks
    StyleColour disabledSelected; ///< the same of selected keys of an active track
    CaptionStyle caption;
    std::vector<CaptionButtonStyle> captionButtons; ///< in the order of their numbers
};

/// The ruler.
struct TickTrackStyle : StyleRecord
{
    StyleColour markLine;   ///< current-frame line of every row
    int textOffset = 0;     ///< taken off the row's height when the labels are placed
    int textSizeRatio = 0;  ///< kept, not painted
    int textMinSize = 0;    ///< label size in pixels; below 1 the font's own size
    QString textFace;       ///< family of the labels
    StyleColour textColour; ///< of the labels
};

/// A row of switch buttons.
struct SwitchTrackStyle : TrackStyle
{
    int scrollBmpType = 0;    ///< which set of arrow pictures
    int buttonBmpType = 0;    ///< which set of button pictures
    int buttonGap = 0;        ///< between two buttons
    StyleColour textColour;   ///< of a button that is off
    StyleColour textColourOn; ///< of one that is on
    QFont font;
};

/// Key and viseme-key tracks.
struct KeyTrackStyle : TrackStyle
{
    int keyAlign = 0;          ///< of the glyphs: 0 centred, 1 top, 2 bottom
    int keyBmpType = 0;        ///< glyph group of the keys, counted from the kind's first
    int relatedKeyBmpType = 0; ///< the same of keys of a related group
    int clipHeight = 0;        ///< height of the bar of a key with a length
    StylePenPair clipBorder;   ///< frame of that bar
};

/// Transition-key and link-key tracks: a key style, and what the same section says of their lines.
/// Transition rows paint their spans from lineHeight, border and fill, their glyphs and bars from
/// the key style, and nothing else of the line.
struct LineKeyTrackStyle : KeyTrackStyle
{
    struct Line
    {
        int keyBmpType = 0;           ///< as that of the key style
        int lineHeight = 0;           ///< height of a span or of the bar of a link
        int clipHeight = 0;           ///< as that of the key style
        StylePenPair border;          ///< of a span or of the bar of a link
        StyleBrushPair fill;          ///< inside that border
        StylePenPair border1;         ///< of the bar of a link in the alternate style
        StyleBrushPair fill1;         ///< inside that border
        StyleColour disabled;         ///< kept, not painted
        StyleColour disabledSelected; ///< kept, not painted
        int relatedKeyBmpType = 0;    ///< as that of the key style
        StylePenPair relatedBorder;   ///< of the bar of a link copied from another track
        StyleBrushPair relatedFill;   ///< inside that border
        StylePenPair clipBorder;      ///< as that of the key style
    } line;
};

/// Clip tracks.
struct ClipTrackStyle : TrackStyle
{
    /// Entries of two are the normal and the selected one.
    struct Look
    {
        StylePenPair border;
        StyleBrushPair fill;            ///< kept, not painted: the gradient fills a clip
        StyleColour textColour[2];      ///< of the name; painted from the normal look only
        StyleColour textColourTrial[2]; ///< of the name of a clip on trial; the same
        StyleColour gradientUp[2];   ///< the selected one of the locked look is kept, not painted
        StyleColour gradientDown[2]; ///< the same
    };
    int height = 0; ///< of a clip's bar
    Look normal;    ///< "TrackKey"
    Look locked;    ///< "TrackKey1"
    Look alternate; ///< "3DTrackKey"
    QFont font;     ///< of the names
};

/// The wave row, which is painted from colours instead of pictures.
struct WaveTrackStyle : TrackStyle
{
    StylePenPair wave;       ///< kept, not painted
    int clipHeight = 0;      ///< kept, not painted: a clip is as high as the row
    StylePenPair clipBorder; ///< of a clip's bar
    StyleBrush captionFill;
    StylePen captionBorder; ///< around the caption, under the lines below
    StylePen captionTop;
    StylePen captionBottomUpper; ///< "CaptionBtn1": the line one pixel above the bottom
    StylePen captionBottom;      ///< "CaptionBtn2": the bottom line
    StylePen captionLeft;
    StyleColour background;
    StyleColour backgroundTopLine;
    StyleColour backgroundBottomUpper; ///< "WaveTrackBgBtnLine1": one pixel above the bottom
    StyleColour backgroundBottom;      ///< "WaveTrackBgBtnLine2": the bottom line
};
