#pragma once

#include "skin/SkinSource.h"
#include "skin/TrackStyles.h"

#include <memory>
#include <string>
#include <vector>

/// How the sections of one kind of track are called.
struct SkinTrackKind
{
    int trackType;          ///< a TL_TRACK_TYPE
    const wchar_t* section; ///< base name
    bool numbered;          ///< the style number follows the base name
};

/// Every kind of track that has sections in a skin, in the order of the track types.
std::vector<SkinTrackKind> SkinTrackKinds();

/// Reads the style of a track from the skin file at @p skinPath. @p trackType is a TL_TRACK_TYPE,
/// and
/// @p styleNumber the number of its section, which the ruler has none of. @p record receives the
/// new record of the kind, partly filled when reading failed, or null for a kind that has none (the
/// scroll bar).
/// @return true when every key of the section was there (and for a kind without a section).
bool LoadTrackStyle(const std::wstring& skinPath, int styleNumber, int trackType,
                    std::unique_ptr<StyleRecord>& record);

/// The same from any source of skin values.
bool LoadTrackStyle(const SkinSource& skin, int styleNumber, int trackType,
                    std::unique_ptr<StyleRecord>& record);

/// Reads the font of the context menu from the skin file at @p skinPath: its family and its size in
/// points, any number. False when either is missing; what was read before it is set then.
bool ReadContextMenuFont(const std::wstring& skinPath, QString& face, int& pointSize);

/// The same from any source of skin values.
bool ReadContextMenuFont(const SkinSource& skin, QString& face, int& pointSize);
