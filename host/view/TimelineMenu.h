#pragma once

#include "CommandList.h"

#include <QPointer>

class CTimelineManager;

namespace host {

class CaptionButtons;
class EditSession;
class RangeCommands;
class TimelineWindow;
enum class RowState;

/// The menus View and Timeline: how the timeline is looked at; the commands on the selected time
/// range, the ruler's markers and the state of the active row; and what the ends of clips change.
class TimelineMenu : public QObject
{
    Q_OBJECT
public:
    /// What the commands work on; all are kept and outlive the menus.
    struct Subjects
    {
        CTimelineManager& manager;
        EditSession& session;
        RangeCommands& ranges;
        CaptionButtons& rows;
    };
    TimelineMenu(QMenu* view, QMenu* timeline, const Subjects& subjects);

    /// The commands are for this window from now on.
    void SetWindow(TimelineWindow* window);
    /// Enables what is possible now.
    void Update();

signals:
    /// A command was done.
    void Done();

private:
    void AddViews(QMenu* menu);
    void AddRanges(QMenu* menu);
    void AddMarks(QMenu* menu);
    void AddRowStates(QMenu* menu);
    void AddClipEnds(QMenu* menu);
    void MarkFrames(const QString& name, int start, int end);

    Subjects m_subjects;
    CommandList m_commands;
    QPointer<TimelineWindow> m_window;
    std::vector<QAction*> m_rowStates; ///< in the order of RowState
    QAction* m_clipSpeed = nullptr;
};

} // namespace host
