#pragma once

#include "document/EditSession.h"
#include "document/RangeEdits.h"

#include <KestovaTimelineQU/KestovaTimelineQU.h>

#include <QCoreApplication>

namespace host {

class SceneTracks;

/// The commands on the time range that is selected on the active row: they concern the keys in it,
/// on that row and on those that show its range with it. Locked rows keep theirs.
class RangeCommands
{
    Q_DECLARE_TR_FUNCTIONS(RangeCommands)
public:
    /// All are kept and outlive this object.
    RangeCommands(CTimelineManager& manager, SceneTracks& tracks, EditSession& session);

    /// Whether a time range is selected. The commands do nothing without one.
    bool HasRange() const;
    /// Selects its keys, and no others.
    void Select();
    void Delete();
    /// Moves its keys and the range by @p frames, less when a key would leave the scene.
    void Shift(int frames);
    /// Moves them so that the range starts at the current frame.
    void ShiftToCurrentFrame();
    /// Puts the ruler's markers at its ends.
    void Mark();
    /// A row that loses its range keeps the frame where it ended, and would be drawn as selected
    /// from the first frame to there: takes that away as well.
    void DropLeftEnds();

private:
    struct Range
    {
        TrackId row = kNoTrack;
        int first = -1;
        int last = -1;
    };
    Range Current() const;
    QVector<KeySelection> Keys(const Range& range, bool forChange) const;

    CTimelineManager& m_manager;
    SceneTracks& m_tracks;
    EditSession& m_session;
};

} // namespace host
