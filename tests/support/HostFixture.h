#pragma once

#include "CTimelineManager.h"
#include "CTimelineManagerInterface.h"
#include "CTimelineWndBase.h"
#include "CTimelineWndFactoryBase.h"

#include <QDockWidget>
#include <QMainWindow>
#include <QPointer>
#include <QStringList>

#include <functional>
#include <memory>

namespace KestovaTest {

/// A host that writes down every callback, in order, as one line each; tracks are named by their
/// names. Its answers can be set.
class RecordingHost : public CTimelineManagerInterface
{
public:
    QStringList calls;
    int editAnswer = -1;
    bool dropAnswer = false;
    std::vector<_tmpTLMenuMapData*>* menuList = nullptr; ///< of the last menu query
    /// Called after each line was written, with the line: room for a host that acts from a
    /// callback.
    std::function<void(const QString&)> reaction;

    QStringList TakeCalls();

    void OnCurrentFrameChanged(int frame, bool flag) override;
    void OnMoveTimeMark(int mark, int frame, bool flag) override;
    void OnActiveTrackChanged(CTimelineTrackBase* root, CTimelineTrackBase* child) override;
    void OnActiveTrackTheSame(CTimelineTrackBase* root, CTimelineTrackBase* child) override;
    void OnTrackLDbClick(CTimelineTrackBase* track, int value) override;
    void OnSwitchBtnStateChanged(CTimelineTrackBase* track, int button) override;
    int OnEditingKeys(TLEditType type, const VZ::CArrayList<CTimelineTrackBase*>& tracks,
                      int value1, int value2) override;
    void OnCaptionBtnChanged(CTimelineTrackBase* track, int button, QPoint position) override;
    void OnQueryTrackRightMenu(CTimelineTrackBase* track,
                               std::vector<_tmpTLMenuMapData*>* menu) override;
    void OnSelectedTrackRightMenu(CTimelineTrackBase* track, int command) override;
    void OnSelectedDataCleared() override;
    void OnSelectedDataChanged() override;
    bool OnTrackDropFile(TLDropFileType type, QString path) override;
    void OnCheckDragFile(CTimelineTrackBase* track, QString path, int type) override;

private:
    void Record(const QString& line);
};

/// A timeline window that writes down what the library calls on it.
class TestWindow : public CTimelineWndBase
{
public:
    explicit TestWindow(QDockWidget* dock);
    ~TestWindow() override;

    QStringList calls;
    QStringList TakeCalls();
    bool createAnswer = true;
    bool answer = true; ///< of enable, show and visibility
    QRect initialGeometry = QRect(0, 0, 800, 300);
    std::function<void(const QString&)> reaction;

    bool CreateWnd() override;
    QWidget* GetWidget() override { return m_widget; }
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
    void OnHostCommand13() override;
    void OnHostCommand14() override;
    void OnHostCommand15() override;
    void OnHostCommand16() override;

    // What the base keeps for derived windows, opened for the tests.
    using CTimelineWndBase::CanDoSelectNextKey;
    using CTimelineWndBase::CanDoSelectPreviousKey;
    using CTimelineWndBase::CanDoUnZoom;
    using CTimelineWndBase::CanDoZoomAll;
    using CTimelineWndBase::CanDoZoomIn;
    using CTimelineWndBase::CanDoZoomOut;
    using CTimelineWndBase::DoSelectNextKey;
    using CTimelineWndBase::DoSelectPreviousKey;
    using CTimelineWndBase::DoUnZoom;
    using CTimelineWndBase::DoZoomAll;
    using CTimelineWndBase::DoZoomIn;
    using CTimelineWndBase::DoZoomOut;
    using CTimelineWndBase::GetTrackHeight;
    using CTimelineWndBase::GetWndCurrSize;
    using CTimelineWndBase::GetWndMaxHeight;
    using CTimelineWndBase::GetWndMinHeight;
    using CTimelineWndBase::GetWndMinRestraint;
    using CTimelineWndBase::GetWndNeedHeight;
    using CTimelineWndBase::GotoFrame;
    using CTimelineWndBase::IsWndVScrollable;
    using CTimelineWndBase::ProcessScrollEventBase;
    using CTimelineWndBase::SetLoopSpeedState;
    using CTimelineWndBase::WndSizeChanged;

private:
    void Record(const QString& line);

    QPointer<QWidget> m_widget; ///< the dock's once it was put there
};

class TestFactory : public CTimelineWndFactoryBase
{
public:
    TestWindow* window = nullptr; ///< the one that is made and not released, or null
    int made = 0;
    int released = 0;
    bool refuses = false;                     ///< CreateTimelineWnd answers null
    std::function<void(TestWindow&)> prepare; ///< called on each window when it is made

    CTimelineWndBase* CreateTimelineWnd(QDockWidget* dock) override;
    void ReleaseTimelineWnd(CTimelineWndBase** released) override;
};

/// A timeline in the dock of a shown main window, as a host has it.
class HostFixture
{
public:
    /// @p skin is a skin file's path; empty for the default skin.
    explicit HostFixture(const QSize& size = QSize(800, 400), const QString& skin = QString());
    ~HostFixture();

    QMainWindow mainWindow;
    QDockWidget* dock;
    RecordingHost host;
    TestFactory factory;
    std::unique_ptr<CTimelineManager> manager;

    CTimelineContainer* Container() const;
    TestWindow& Window() const { return *factory.window; }
    /// A track of the given kind in style 1, named, and shown as the last root.
    CTimelineTrackBase* Root(TL_TRACK_TYPE type, const QString& name);
    CTimelineTrackBase* Child(CTimelineTrackBase* root, TL_TRACK_TYPE type, const QString& name);
    /// Adds a key at each frame.
    void AddKeys(CTimelineTrackBase* track, std::initializer_list<int> frames);
    void SetEditModes(CTimelineTrackBase* track, std::initializer_list<TLEditType> modes);
    /// Forgets what host and window have written down so far.
    void ForgetCalls();
    /// Lets everything that is pending happen.
    void Settle();
};

} // namespace KestovaTest
