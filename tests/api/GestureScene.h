#pragma once

#include "support/HostFixture.h"
#include "support/Pointer.h"
#include "tracks/CTimelineTrackBase.h"

#include <QLineEdit>
#include <QMap>

#include <vector>

namespace KestovaTest {

/// The rows that gestures are made on. A scene holds only those that it is asked for, since making
/// a track reads the skin.
enum SceneRow : unsigned
{
    ArmRow = 1,    ///< plain keys, the second child
    LegRow = 2,    ///< plain keys, below it
    MotionRow = 4, ///< clips
    SpeechRow = 8, ///< clips with sub-keys
    BlendRow = 16, ///< transitions
    GazeRow = 32,  ///< switches
    LipsRow = 64,  ///< a lips clip with sub-keys
    LinkRow = 128  ///< link keys
};

/// A shown timeline with a root "Body" and rows under it, a line edit outside, and a hand.
class GestureScene
{
public:
    explicit GestureScene(unsigned rows);
    ~GestureScene();

    /// Makes what is missing of manager, dock, window and tracks; puts keys, edit modes, ranges,
    /// selection, frames, marks, buttons and view back to what they are at first; and lets
    /// everything settle.
    void Reset();
    /// Tracks have lost their first style; Reset gives it back to them.
    bool areRestyled = false;
    /// A further step of the scene's own, run at the end of every Reset.
    std::function<void(GestureScene&)> prepare;

    CTimelineTrackBase* Track(SceneRow row) const { return m_tracks.value(row); }
    CTimelineTrackBase* Body() const { return m_body; }
    /// Every track that was made, and its name.
    const QMap<CTimelineTrackBase*, QString>& Names() const { return m_names; }
    CTimelineTrackBase* AddTrack(const QString& name);
    /// A row of keys "Fresh" at the end, with keys at 10 and 20; made once, and shown here.
    CTimelineTrackBase* ShowFreshRow();
    void HideFreshRow();

    /// Points of the main window. In the cell of @p frame, at half the height of the row.
    QPoint Cell(QWidget* row, int frame) const;
    /// A point of the row where @p isHit holds; (-1, -1) of the row when there is none.
    QPoint Find(QWidget* row, const std::function<bool(QPoint)>& isHit) const;
    QPoint InWindow(QWidget* widget, QPoint point) const;

    /// Waits until the window is the active one, as the windowing system makes it after a dialog.
    void Activate();
    /// Makes what the host has destroyed: manager, dock, window.
    void Rebuild();

    HostFixture fixture;
    Pointer pointer;
    QLineEdit* elsewhere;

private:
    void MakeRows();
    void Fill(SceneRow row, CTimelineTrackBase& track);

    unsigned m_rows;
    QPointer<CTimelineTrackBase> m_body;
    QPointer<CTimelineTrackBase> m_fresh;
    QMap<SceneRow, QPointer<CTimelineTrackBase>> m_tracks;
    std::vector<QPointer<CTimelineTrackBase>> m_added; ///< besides the rows
    /// Those that are gone keep theirs until the next reset: compared only, never looked into.
    QMap<CTimelineTrackBase*, QString> m_names;
};

} // namespace KestovaTest
