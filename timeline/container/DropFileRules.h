#pragma once

#include "TimelineEnums.h"

#include <QString>

#include <array>

class CTimelineKeyArray;

/// What a file dragged onto a track is, by its extension, and the six filters that the host sets.
class DropFileRules
{
public:
    /// The six filters in the order of CTimelineManager::SetEnableDragEnterFiletype; all off at
    /// first.
    using Filters = std::array<bool, 6>;

    void SetFilters(const Filters& filters) { m_filters = filters; }
    bool IsAnyFilterOn() const;

    /// The text after the last "." in lower case; the whole path when it has none.
    static QString ExtensionOf(const QString& path);
    /// What a drop of the file is; a sound file depends on the last two filters.
    TLDropFileType Classify(const QString& path) const;
    /// Whether a file may be held over a track at all. An automatic motion may not, though it can
    /// be dropped.
    static bool IsKnownWhileDragging(const QString& path);

    /// Whether some key's drawn range, both ends included, covers @p frame; with @p lockedOnly a
    /// locked key's.
    static bool CoversFrame(const CTimelineKeyArray& keys, int frame, bool lockedOnly);

private:
    Filters m_filters{};
};
