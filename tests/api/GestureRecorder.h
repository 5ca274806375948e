#pragma once

#include "GestureHand.h"

namespace KestovaTest {

/// Writes down, in one list, what host and window hear of a gesture, and lets the host do a deed
/// in one of those calls. It fills the menus that are asked for.
class GestureRecorder
{
public:
    explicit GestureRecorder(GestureScene& scene);
    ~GestureRecorder();
    GestureRecorder(const GestureRecorder&) = delete;
    GestureRecorder& operator=(const GestureRecorder&) = delete;

    /// Performs the events from @p first to before @p last of the script, choosing in menus or
    /// closing them.
    void Perform(const std::vector<HandEvent>& events, bool choosesInMenu, std::size_t first = 0,
                 std::size_t last = ~std::size_t(0));

    /// The host does @p deed in the call at @p position, counted from 0.
    void SetDeed(int position, std::function<void()> deed);
    bool IsDeedDone() const { return m_isDone; }
    /// What was heard, without what the deed itself caused.
    QStringList lines;
    /// Calls that name a track which was no longer shown after the deed.
    QStringList faults;

private:
    void Hear(const QString& line);
    void FillMenu();
    void NoteGoneTracks();

    GestureScene& m_scene;
    std::function<void(TestWindow&)> m_prepare;
    _tmpTLMenuMapData m_entries[3];
    std::function<void()> m_deed;
    int m_deedAt = -1;
    bool m_isInDeed = false;
    bool m_isDone = false;
    QStringList m_gone;
};

} // namespace KestovaTest
