#pragma once

#include <KestovaTimelineQU/KestovaTimelineQU.h>

#include <QObject>
#include <QPoint>

#include <vector>

class QMenu;
class QWidget;

namespace host {

class CaptionButtons;
class EditMenu;

/// The menu of a row: the commands on its keys, and mute, solo and lock. It opens by the right
/// button, filled here and shown by the timeline, and by the menu button of the row's caption.
class RowMenu : public QObject
{
    Q_OBJECT
public:
    /// All are kept and outlive this object. @p parent: what the menu opens over.
    RowMenu(QWidget* parent, EditMenu& edits, CaptionButtons& buttons);

    /// Appends the entries for the row, which stay this object's until the next call.
    void Fill(CTimelineTrackBase* track, std::vector<_tmpTLMenuMapData*>& menu);
    /// Does what an entry stands for.
    void Run(CTimelineTrackBase* track, int command);
    /// Opens the menu at a place of the screen and returns at once.
    void Open(CTimelineTrackBase* track, QPoint place);

private:
    void AddEntries(QMenu& menu, CTimelineTrackBase* track,
                    const std::vector<_tmpTLMenuMapData*>& entries);

    QWidget* m_parent;
    EditMenu& m_edits;
    CaptionButtons& m_buttons;
    std::vector<_tmpTLMenuMapData> m_entries;
};

} // namespace host
