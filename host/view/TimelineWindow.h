#pragma once

#include <KestovaTimelineQU/KestovaTimelineQU.h>

#include <QObject>
#include <QPointer>

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

    /// Zooms so that every frame of the scene is in view, or as many as the zoom allows.
    void ShowAllFrames();
    /// What the frame display counts in.
    void SetTimeBase(int frameRate, int frameCount);

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
    /// Another frame is current, whoever made it so: the user, the host or the timeline itself.
    void CurrentFrameChanged(int frame);

private:
    void FitHeight();

    QDockWidget* m_dock;
    QPointer<TimelinePane> m_pane; // a child of the dock, which may go first
    int m_frameRate = 0;
    int m_frameCount = 0;
};

} // namespace host
