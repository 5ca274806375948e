#pragma once

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QPen>
#include <QPoint>
#include <QString>

#include <vector>

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

/// A normal and a selected entry; index with 1 for selected.
struct StylePenPair
{
    StylePen entries[2];
    const QPen& operator[](int selected) const { return entries[selected].pen; }
};
struct StyleBrushPair
{
    StyleBrush entries[2];
    const QBrush& operator[](int selected) const { return entries[selected].brush; }
};

/// What a track loads from the skin; owned by the track. The kinds below say what they hold.
struct StyleRecord
{
    virtual ~StyleRecord() = default;
};

struct CaptionStyle
{
    int bitmapId = 0;      ///< caption picture of an inactive row, counted from picture 4
    int bitmapFocusId = 0; ///< the same of an active row
    QPoint textPos;        ///< x: left edge of the caption text; y: its right edge
    StyleColour textColour;
    StyleColour textColourFocus;
    QFont font;
};

struct CaptionButtonStyle
{
    int bitmapId = 0;
    int buttonId = 0;
    int type = 0;     ///< 0 push button, 1 toggle button
    int position = 0; ///< x of its left edge
    int state =
        0; ///< push: 0 normal, 1 hover, 2 pressed; toggle: 0 off, 1 off+hover, 2 on, 3 on+hover
    QString tipText;
};

/// What every kind but the ruler has.
struct TrackStyle : StyleRecord
{
    int backgroundType = 0;       ///< 0 grid, else banded
    int backgroundId = 0;         ///< which set of background brushes
    StyleColour disabled;         ///< related bars
    StyleColour disabledSelected; ///< related bars of a selected key of an active track
    CaptionStyle caption;
    std::vector<CaptionButtonStyle> captionButtons;
};

struct TickTrackStyle : StyleRecord
{
    StyleColour markLine; ///< current-frame line of every row
    int textOffset = 0;
    int textSizeRatio = 0; ///< kept, not used by the ruler
    int textMinSize = 0;   ///< label size in pixels
    QString textFace;
    StyleColour textColour;
};

struct SwitchTrackStyle : TrackStyle
{
    int scrollBmpType = 0;
    int buttonBmpType = 0;
    int buttonGap = 0;
    StyleColour textColour;
    StyleColour textColourOn;
    QFont font;
};

/// Key and viseme-key tracks.
struct KeyTrackStyle : TrackStyle
{
    int keyAlign = 0; ///< 0 centred, 1 top, 2 bottom
    int keyBmpType = 0;
    int relatedKeyBmpType = 0;
    int clipHeight = 0;
    StylePenPair clipBorder;
};

/// Transition-key and link-key tracks: a key style and the line section.
struct LineKeyTrackStyle : KeyTrackStyle
{
    struct Line
    {
        int keyBmpType = 0;
        int lineHeight = 0;
        int clipHeight = 0;
        StylePenPair border;
        StyleBrushPair fill;
        StylePenPair border1;
        StyleBrushPair fill1;
        StyleColour disabled;
        StyleColour disabledSelected;
        int relatedKeyBmpType = 0;
        StylePenPair relatedBorder;
        StyleBrushPair relatedFill;
        StylePenPair clipBorder;
    } line;
};

struct ClipTrackStyle : TrackStyle
{
    struct Look
    {
        StylePenPair border;
        StyleBrushPair fill;
        StyleColour textColour[2]; ///< normal, selected
        StyleColour textColourTrial[2];
        StyleColour gradientUp[2];
        StyleColour gradientDown[2];
    };
    int height = 0; ///< of a clip's bar
    Look normal;    ///< "TrackKey"
    Look locked;    ///< "TrackKey1"
    Look alternate; ///< "3DTrackKey"
    QFont font;
};

struct WaveTrackStyle : TrackStyle
{
    StylePenPair wave;
    int clipHeight = 0;
    StylePenPair clipBorder;
    StyleBrush captionFill;
    StylePen captionBorder;
    StylePen captionTop;
    StylePen captionBottomUpper; ///< "CaptionBtn1": the line one pixel above the bottom
    StylePen captionBottom;      ///< "CaptionBtn2": the bottom line
    StylePen captionLeft;
    StyleColour background;
    StyleColour backgroundTopLine;
    StyleColour backgroundBottomUpper; ///< "WaveTrackBgBtnLine1"
    StyleColour backgroundBottom;      ///< "WaveTrackBgBtnLine2"
};
