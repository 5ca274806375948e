#pragma once

#include "skin/SkinSource.h"
#include "skin/TrackStyles.h"

#include <memory>
#include <string>

/// Reads the style of a track from the skin file at @p skinPath. @p record receives the record of
/// the kind, partly filled when reading failed, or null for a kind that has none (the scroll bar).
/// @return true when every key of the section was there (and for a kind without a section).
bool LoadTrackStyle(const std::wstring& skinPath, int styleNumber, int trackType,
                    std::unique_ptr<StyleRecord>& record);

/// The same from any source of skin values.
bool LoadTrackStyle(const SkinSource& skin, int styleNumber, int trackType,
                    std::unique_ptr<StyleRecord>& record);

/// Reads the font of the context menu; false leaves both outputs as far as they were read.
bool ReadContextMenuFont(const std::wstring& skinPath, QString& face, int& pointSize);
bool ReadContextMenuFont(const SkinSource& skin, QString& face, int& pointSize);
