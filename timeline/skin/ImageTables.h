#pragma once

#include <QBrush>
#include <QPixmap>
#include <QString>

#include <vector>

/// What each group of the picture table is used for.
enum PictureGroup : int
{
    kCaptionPictures = 0, ///< 0 to 7 and 150; 1: scroll row, 3: ruler row, 4 and up: captions
    kPushButtonPictures = 1,
    kToggleButtonPictures = 2,
    kUnusedPictures = 3,
    kSwitchButtonPictures = 4,
    kScrollArrowPictures = 5,
    kRangeMarkerPictures = 6
};

/// How many pictures of a group make one button or one pair of arrows: one for each state.
enum PictureSetSize : int
{
    kPushButtonStates = 3,   ///< normal, hover, pressed
    kToggleButtonStates = 4, ///< off, off and hover, on, on and hover
    kSwitchButtonStates = 4, ///< as those of a toggle button
    kScrollArrowStates = 8   ///< four of the left arrow, then four of the right one
};

/// The index of the picture or brush at @p place of the set with the number @p set, in a group that
/// is a row of sets of @p setSize each. Skins number the sets, so @p set may be any number; what
/// lies outside the group is outside for every table.
constexpr long long IndexInSets(int set, int setSize, int place)
{
    return 1LL * set * setSize + place;
}

/// What each group of the brush table is used for.
enum BrushGroup : int
{
    kGridBrushes = 0,
    kBandedBrushes = 1,
    kRulerBrushes = 2
};

/// The pictures of the caption group that have a place of their own.
enum CaptionPicture : int
{
    kScrollCaption = 1,  ///< the scroll row's; only its size is used
    kTickCaption = 3,    ///< the ruler row's
    kFirstRowCaption = 4 ///< a row's is this one and the number in its style
};

/// The place in the caption group of the row caption with the number @p bitmapId, any number.
constexpr long long RowCaptionIndex(int bitmapId)
{
    return IndexInSets(bitmapId, 1, kFirstRowCaption);
}

/// Offsets of the track kinds in the glyph table, added to the skin's key bitmap type.
enum GlyphGroup : int
{
    kKeyGlyphs = 0,
    kTransitionGlyphs = 3,
    kLinkGlyphs = 4,
    kVisemeGlyphs = 6,
    kTimeMarkGlyphs = 7
};

/// The compiled-in pictures, decoded once for the whole process and named by group and place. A
/// group or an index outside a table gives an empty picture or brush. Pictures go away when any
/// manager is destroyed, so nobody keeps a reference longer than one call.
class ImageTables
{
public:
    /// Decodes all tables; true at once when they are loaded, false at the first picture that
    /// cannot be decoded (what was read so far stays) and without a QGuiApplication.
    bool Load();
    /// The same with the images of another place: image n is read from @p prefix followed by n.
    bool Load(const QString& prefix);
    /// Empties all tables when they are loaded.
    void Free();
    bool IsLoaded() const { return m_loaded; }

    /// A picture of the group @p group (a PictureGroup), counted from 0. The index is wide, here
    /// and below, because skins make it up.
    const QPixmap& Picture(int group, long long index) const;
    /// A glyph of a group of the glyph table (a GlyphGroup and the skin's number).
    const QPixmap& Glyph(int group, long long index) const;
    /// The texture brush of the group @p group (a BrushGroup), for whoever paints with a brush.
    /// The rows fill with its wide strip, which is faster.
    const QBrush& Brush(int group, long long index) const;
    /// The brush's texture repeated side by side to nearly 512 pixels: tiling this fills fast and
    /// gives the same pixels as the brush does.
    const QPixmap& WideStrip(int group, long long index) const;
    /// How many images a group holds; 0 for a group that does not exist.
    int PictureCount(int group) const;
    int GlyphCount(int group) const;
    int BrushCount(int group) const;

private:
    bool AppendPicture(std::vector<std::vector<QPixmap>>& groups, int group, const QString& path);
    bool AppendBrush(int group, const QString& path);

    bool m_loaded = false;
    std::vector<std::vector<QPixmap>> m_pictures;
    std::vector<std::vector<QPixmap>> m_glyphs;
    std::vector<std::vector<QBrush>> m_brushes;
    std::vector<std::vector<QPixmap>> m_wideStrips;
};
