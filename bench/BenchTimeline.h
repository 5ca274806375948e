#pragma once

#include "CTimelineManager.h"
#include "CTimelineManagerInterface.h"
#include "CTimelineWndBase.h"
#include "CTimelineWndFactoryBase.h"

#include <QDockWidget>
#include <QMainWindow>

#include <memory>

class CTimelineContainer;

/// The smallest window that holds a timeline.
class BenchWindow : public CTimelineWndBase
{
public:
    explicit BenchWindow(QDockWidget* dock) : m_widget(new QWidget(dock)) {}

    bool CreateWnd() override { return true; }
    QWidget* GetWidget() override { return m_widget; }
    void UpdateWnd() override {}
    void GetInitialGeometry(QRect& rect) override;
    bool EnableWnd(bool) override { return true; }
    bool ShowWnd(bool) override { return true; }
    bool IsWndVisible() override { return true; }
    void OnCurrentFrameChanged(int) override {}
    void RepaintWnd() override {}
    void OnAfterCreate() override {}
    void OnTrackListChanged() override {}
    void OnTimelineRefreshed() override {}
    void OnHostCommand13() override {}
    void OnHostCommand14() override {}
    void OnHostCommand15() override {}
    void OnHostCommand16() override {}

private:
    QWidget* m_widget;
};

class BenchFactory : public CTimelineWndFactoryBase
{
public:
    CTimelineWndBase* CreateTimelineWnd(QDockWidget* dock) override
    {
        return new BenchWindow(dock);
    }
    void ReleaseTimelineWnd(CTimelineWndBase** window) override;
};

/// A shown timeline of 1920 x 1080 pixels with 40 rows of every kind and about 2,000 keys in view;
/// the other keys lie before and behind, as densely as those in view.
class BenchTimeline
{
public:
    explicit BenchTimeline(int keysInAll);
    /// With a host of the caller's, which lives longer.
    BenchTimeline(int keysInAll, CTimelineManagerInterface& host);
    ~BenchTimeline();

    static constexpr int kWidth = 1920;
    static constexpr int kHeight = 1080;
    static constexpr int kRows = 40;
    static constexpr int kKeysInView = 2000;

    CTimelineContainer* Container() const;
    CTimelineManager& Manager() { return *m_manager; }
    /// The keys whose frames lie in view, counted in the key arrays.
    int CountKeysInView() const;

private:
    void AddRow(int row, int keys);

    QMainWindow m_mainWindow;
    QDockWidget* m_dock;
    CTimelineManagerInterface m_silentHost;
    BenchFactory m_factory;
    std::unique_ptr<CTimelineManager> m_manager;
    std::vector<CTimelineTrackBase*> m_rows;
    CTimelineTrackBase* m_root = nullptr;
};
