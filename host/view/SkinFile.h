#pragma once

#include "document/SceneTrack.h"

#include <QHash>
#include <QPair>
#include <QString>

#include <optional>

namespace host {

/// What the host has to know of the places of things, which the timeline does not tell it: read
/// from the skin file, whatever skin it is. The widths of the pictures themselves are the
/// library's and stand in no file; those that the host needs are constants of this class.
class SkinFile
{
public:
    explicit SkinFile(const QString& path = {});

    /// A button of a row's caption: the number that the timeline names it by, and its left edge in
    /// pixels from that of the caption.
    struct CaptionButton
    {
        int number = 0;
        int left = 0;
    };
    /// The number of the caption button at @p x, in pixels from the caption's left edge; nothing
    /// beside all buttons.
    std::optional<int> CaptionButtonAt(TrackKind kind, int style, int x) const;

    /// Pixels that so many buttons of a switch row take with the arrows at both ends.
    int WidthOfSwitches(int style, int buttons) const;
    /// Pixels of one of those arrows.
    static int WidthOfArrow();

private:
    using Look = QPair<int, int>; ///< kind and number of the style
    struct Switches
    {
        int button = 0; ///< pixels
        int gap = 0;
    };

    QHash<Look, QVector<CaptionButton>> m_captions;
    QHash<int, Switches> m_switches; ///< by style
};

} // namespace host
