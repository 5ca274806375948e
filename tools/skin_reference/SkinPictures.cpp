#include "SkinPictures.h"

#include "KestovaTimelineQU.h"

#include <QApplication>
#include <QDockWidget>
#include <QMainWindow>
#include <QPalette>
#include <QPointer>

namespace {

constexpr QSize kSize(760, 100); ///< the height follows the rows
constexpr int kFrameCount = 117; ///< as many as there is room for
constexpr int kCurrentFrame = 52;
constexpr QRgb kAround = 0xFF1E2024; ///< shows where the timeline paints nothing

/// A window that is nothing but the timeline.
class PlainWindow final : public CTimelineWndBase
{
public:
    ~PlainWindow() override { delete m_pane; }
    bool CreateWnd() override { return true; }
    QWidget* GetWidget() override { return m_pane; }
    void UpdateWnd() override {}
    void GetInitialGeometry(QRect& rect) override { rect = m_pane->rect(); }
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

    QWidget* Timeline() const
    {
        return m_pane->findChild<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    }
    int NeededHeight() { return GetWndNeedHeight() + 1; }

private:
    QPointer<QWidget> m_pane = new QWidget;
};

class PlainFactory final : public CTimelineWndFactoryBase
{
public:
    CTimelineWndBase* CreateTimelineWnd(QDockWidget*) override { return new PlainWindow; }
    void ReleaseTimelineWnd(CTimelineWndBase** window) override
    {
        delete *window;
        *window = nullptr;
    }
};

VZ::CPointer<CTimelineKey> KeyAt(int frame)
{
    VZ::CPointer<CTimelineKey> key(new CTimelineKey);
    key->frame = frame;
    return key;
}

VZ::CPointer<CTimelineKey> ClipAt(int frame, int length, const char* name)
{
    auto key = KeyAt(frame);
    key->clipLength = length;
    key->name = QString::fromLatin1(name);
    key->hostSwitch = true;
    return key;
}

/// One key of everything that a style of the kind has a look for. Every second key is selected.
CTimelineKeyArray::KeyVector KeysFor(int trackType)
{
    CTimelineKeyArray::KeyVector keys;
    switch (trackType) {
    case TL_TRACK_CLIP:
        keys = {ClipAt(2, 18, "Walk"), ClipAt(23, 14, "Turn"), ClipAt(40, 8, "Step"),
                ClipAt(60, 12, "Idle"), ClipAt(76, 16, "Stretch")};
        keys[0]->loopCount = 1;
        keys[2]->lockState = TL_KEY_LOCKED;
        keys[3]->alternateStyle = true;
        keys[4]->clipLength = 8;
        keys[4]->loopCount = 2;
        break;
    case TL_TRACK_TRANSITION_KEY:
        for (const int frame : {15, 35, 62, 80}) {
            keys.push_back(KeyAt(frame));
            keys.back()->transitionFrames = 10;
            keys.back()->kindMask =
                frame < 50 ? int(TL_KEY_TRANSITION_IN) : int(TL_KEY_TRANSITION_OUT);
        }
        break;
    case TL_TRACK_LINK_KEY:
        for (const int frame : {4, 20, 36, 60, 76, 92}) {
            keys.push_back(KeyAt(frame));
            keys.back()->keyType = TL_KEY_LINK_START;
            keys.back()->alternateStyle = frame > 50;
        }
        break;
    case TL_TRACK_VISEME_KEY:
        for (int shape = 0; shape < 12; ++shape) {
            keys.push_back(KeyAt(4 + 8 * shape));
            keys.back()->hostValue6 = shape;
        }
        break;
    default:
        keys = {KeyAt(4), KeyAt(12), ClipAt(24, 14, ""), ClipAt(44, 12, ""), KeyAt(68), KeyAt(80)};
    }
    return keys;
}

void Fill(CTimelineManager& manager, CTimelineTrackBase* track, int trackType)
{
    if (trackType == TL_TRACK_SWITCH) {
        constexpr int kOn = 2;
        std::vector<_tmpTLSwitchBtnData> buttons = {{"Body", kOn}, {"Face", 0}, {"Hands", kOn}};
        manager.SetTrackSwitchBtnList(track, buttons);
        return;
    }
    CTimelineKeyArray* const keys = manager.GetKeyDataArray(track);
    keys->AddKeys(KeysFor(trackType), false);
    for (int index = 1; index < static_cast<int>(keys->GetSize()); index += 2)
        keys->SetSelectionByIndex(index, index, true, TL_KEY_ANY_KIND);
}

} // namespace

QImage PictureOfStyles(const QString& skinPath, const QVector<SkinStyle>& styles)
{
    constexpr unsigned int kLast = 0xFFFFFFFF;
    QMainWindow window;
    window.setPalette(QPalette(QColor(kAround)));
    auto* const dock = new QDockWidget(&window);
    PlainFactory factory;
    CTimelineManagerInterface callbacks;
    CTimelineManager manager(&window);
    manager.SetTimelineWndFactoryBase(&factory);
    if (!manager.CreateTimelineManager(&callbacks, skinPath.toStdWString()) ||
        !manager.CreateTimelineMainWidget(dock))
        return {};
    window.addDockWidget(Qt::TopDockWidgetArea, dock);
    manager.SetFrameCount(kFrameCount);
    for (const SkinStyle& style : styles) {
        CTimelineTrackBase* const track =
            manager.CreateTrack(static_cast<TL_TRACK_TYPE>(style.trackType), style.section,
                                static_cast<unsigned int>(style.number));
        if (!track || !manager.ShowRootTrack(track, kLast, false))
            return {};
        Fill(manager, track, style.trackType);
    }
    auto* const plain = static_cast<PlainWindow*>(manager.GetTimelineWnd());
    window.show();
    manager.ShowTimelineWnd(true);
    manager.SetCurrentFrame(kCurrentFrame);
    QWidget* const timeline = plain->Timeline();
    timeline->resize(kSize.width(), plain->NeededHeight());
    manager.InvalidateTimeline();
    QCoreApplication::processEvents();
    return timeline->grab().toImage().convertToFormat(QImage::Format_RGB32);
}
