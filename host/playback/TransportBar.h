#pragma once

#include <QToolBar>

class QMenu;

namespace host {

class Playback;

/// The buttons that play the scene. Their shortcuts work wherever the keyboard focus is in the
/// window, except in text fields, which take these keys for themselves; they are others than those
/// of the timeline.
class TransportBar : public QToolBar
{
    Q_OBJECT
public:
    /// @param playback is kept and outlives this object.
    explicit TransportBar(Playback& playback, QWidget* parent = nullptr);

    /// Adds the same commands to a menu.
    void FillMenu(QMenu& menu) const;

private:
    struct Entry;
    static const Entry kEntries[];

    void ShowState();

    Playback& m_playback;
    QAction* m_play = nullptr;
    QAction* m_loop = nullptr;
};

} // namespace host
