#pragma once

#include "ViewCommand.h"

#include <KestovaTimelineQU/KestovaTimelineQU.h>

#include <QObject>
#include <QPointer>

#include <vector>

class QAction;
class QDockWidget;

namespace host {

class TimelinePane;

/// The host's timeline window: says where in the dock the timeline goes, how high it is, and what
/// stands around it. Made and destroyed by TimelineWindowFactory; the dock holds its pane.
class TimelineWindow : public QObject, public CTimelineWndBase
{
    Q_OBJECT
public:
    explicit TimelineWindow(QDockWidget* dock);
    ~TimelineWindow() override;

    bool Can(ViewCommand command);
    /// Does it when it can be done.
    void Do(ViewCommand command);
    /// What the end of a clip changes where it could change both: its speed or its loops.
    bool IsClipSpeed() const { return m_isClipSpeed; }
    void SetClipSpeed(bool isSpeed);
    /// What stands in the dock; null when the dock has gone and taken it along.
    TimelinePane* Pane() const;
    /// Shows a text beside the tool bar: what the host has to say of CurrentFrameChanged.
    void SetFrameText(const QString& text);

    bool CreateWnd() override;
    QWidget* GetWidget() override;
    void UpdateWnd() override;
    void GetInitialGeometry(QRect& rect) override;
    bool EnableWnd(bool enable) override;
    bool ShowWnd(bool show) override;
    bool IsWndVisible() override;
    void OnCurrentFrameChanged(int frame) override;
    void RepaintWnd() override;
    void OnAfterCreate() override;
    void OnTrackListChanged() override;
    void OnTimelineRefreshed() override;
    // This host gives itself no commands through the window.
    void OnHostCommand13() override {}
    void OnHostCommand14() override {}
    void OnHostCommand15() override {}
    void OnHostCommand16() override {}

signals:
    /// The timeline shows something else than before, or something else can be done with it.
    void Refreshed();
    void ClipSpeedChanged(bool isSpeed);
    /// Another frame is current, whoever made it so: the user, the host or the timeline itself.
    void CurrentFrameChanged(int frame);

private:
    struct Tool;
    static const Tool kTools[];

    void AddTools();
    void TakeClipSpeed(bool isSpeed);
    void FitHeight();

    QPointer<QDockWidget> m_dock;
    QPointer<TimelinePane> m_pane; // a child of the dock, which may go first
    std::vector<QAction*> m_tools; ///< in the order of ViewCommand
    bool m_isClipSpeed = false;
};

} // namespace host
