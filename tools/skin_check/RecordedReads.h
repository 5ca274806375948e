#pragma once

#include "SkinLines.h"

#include "skin/SkinSource.h"

#include <QString>
#include <QVector>

/// One value that the library's readers ask a skin for.
struct RecordedRead
{
    QString section;
    QString key;
    QString via; ///< the key of the track's section that named the section; empty: its own
    SkinValueKind kind;
    /// False when the section is not known, because the key that should name it is missing.
    bool sectionIsNamed = true;

    bool NamesSection() const
    {
        return kind == SkinValueKind::Section || kind == SkinValueKind::OptionalSection;
    }
};

/// A track section's base name, for the one section that is not of a track.
extern const QString kMenuSection;

/// The style of a kind of track: KeyTrack 2, say; the ruler and the menu have no number.
struct SkinStyle
{
    QString kind;
    int trackType = 0;
    int number = 1;
    QString section;
};

/// The ruler's and the menu's sections, whether they are there or not, and every section of
/// @p skin that is called as a style of a kind of track is.
QVector<SkinStyle> StylesOf(const SkinLines& skin);
/// One style of every kind, numbered 1.
QVector<SkinStyle> FirstStyles();

/// What the library's own readers ask @p skin for when a track of a style is loaded, each value
/// once, in the order of reading. A missing value ends nothing but the list of buttons, so that
/// all of them are found.
QVector<RecordedRead> ReadsOf(const SkinStyle& style, const SkinLines& skin);
/// The same of a skin that has nothing, with one button: every key that there is.
QVector<RecordedRead> AllReadsOf(const SkinStyle& style);
