#include "BenchTimeline.h"

#include "container/CTimelineContainer.h"
#include "library/TimelineLibrary.h"
#include "model/TimelineKeyValues.h"
#include "tracks/CTimelineTrackBase.h"

#include <QApplication>

#include <algorithm>

namespace {

// 35 frames of 5 pixels for every 10 keys: 50 keys a row in the 350 frames of a view.
constexpr double kPixelsPerFrame = 5.0;
constexpr int kFramesBetweenKeys = 7;

struct RowKind
{
    TL_TRACK_TYPE type;
    unsigned int style;
    int rows;
};
// Mostly rows of 26 pixels, so that 40 of them fill the height.
constexpr RowKind kKinds[] = {{TL_TRACK_CLIP, 2, 8},
                              {TL_TRACK_LINK_KEY, 1, 12},
                              {TL_TRACK_VISEME_KEY, 1, 16},
                              {TL_TRACK_KEY, 2, 2},
                              {TL_TRACK_TRANSITION_KEY, 2, 2}};

const RowKind& KindOfRow(int row)
{
    for (const RowKind& kind : kKinds) {
        if (row < kind.rows)
            return kind;
        row -= kind.rows;
    }
    return kKinds[0];
}

constexpr int kMouthShapes = 17;

VZ::CPointer<CTimelineKey> MakeKey(TL_TRACK_TYPE type, int number)
{
    VZ::CPointer<CTimelineKey> key(new CTimelineKey);
    key->frame = number * kFramesBetweenKeys;
    key->selected = number % 9 == 0;
    if (type == TL_TRACK_CLIP) {
        key->clipLength = kFramesBetweenKeys - 1;
        key->name = QStringLiteral("Step");
    } else if (type == TL_TRACK_LINK_KEY) {
        if (number % 2 == 0)
            key->keyType = TL_KEY_LINK_START;
    } else if (type == TL_TRACK_VISEME_KEY) {
        key->hostValue6 = number % kMouthShapes;
    } else if (type == TL_TRACK_TRANSITION_KEY) {
        key->kindMask = number % 2 ? TL_KEY_TRANSITION_IN : TL_KEY_TRANSITION_OUT;
        key->transitionFrames = 3;
    }
    return key;
}

} // namespace

void BenchWindow::GetInitialGeometry(QRect& rect)
{
    rect = QRect(0, 0, BenchTimeline::kWidth, BenchTimeline::kHeight);
}

void BenchFactory::ReleaseTimelineWnd(CTimelineWndBase** window)
{
    delete *window;
    *window = nullptr;
}

BenchTimeline::BenchTimeline(int keysInAll) : BenchTimeline(keysInAll, m_silentHost) {}

BenchTimeline::BenchTimeline(int keysInAll, CTimelineManagerInterface& host)
    : m_dock(new QDockWidget(&m_mainWindow)),
      m_manager(std::make_unique<CTimelineManager>(&m_mainWindow))
{
    m_mainWindow.addDockWidget(Qt::BottomDockWidgetArea, m_dock);
    m_mainWindow.resize(kWidth, kHeight + 40);
    m_manager->SetTimelineWndFactoryBase(&m_factory);
    m_manager->CreateTimelineManager(
        &host, QStringLiteral(KESTOVA_SOURCE_DIR "/skins/default.ini").toStdWString());
    m_manager->CreateTimelineMainWidget(m_dock);
    const int keysPerRow = keysInAll / kRows;
    m_manager->SetFrameCount(keysPerRow * kFramesBetweenKeys + 1);
    m_root = m_manager->CreateTrack(TL_TRACK_CLIP, QStringLiteral("Root"), 1);
    m_manager->ShowRootTrack(m_root, 0, false);
    for (int row = 0; row < kRows; ++row)
        AddRow(row, keysPerRow);
    m_mainWindow.show();
    m_manager->ShowTimelineWnd(true);

    FrameAxis& axis = TimelineLibrary::Instance().axis;
    axis.info = CFrameInfo(kPixelsPerFrame);
    const int framesInView = kKeysInView / kRows * kFramesBetweenKeys;
    const int firstFrame = std::max(0, (axis.frameCount - framesInView) / 2);
    axis.scrollX = static_cast<int>(firstFrame * kPixelsPerFrame);
    axis.currentFrame = firstFrame + framesInView / 2;
    for (int round = 0; round < 5; ++round)
        QApplication::processEvents();
}

BenchTimeline::~BenchTimeline()
{
    m_manager.reset();
}

CTimelineContainer* BenchTimeline::Container() const
{
    return m_manager->GetTimelineWnd()->GetContainer();
}

void BenchTimeline::AddRow(int row, int keys)
{
    const RowKind& kind = KindOfRow(row);
    CTimelineTrackBase* const track =
        m_manager->CreateTrack(kind.type, QStringLiteral("Right Joint %1").arg(row), kind.style);
    m_manager->ShowChildTrack(m_root, track, static_cast<unsigned int>(row), false);
    CTimelineKeyArray::KeyVector made;
    made.reserve(static_cast<std::size_t>(keys));
    for (int number = 0; number < keys; ++number)
        made.push_back(MakeKey(kind.type, number));
    m_manager->GetKeyDataArray(track)->AddKeys(made, false);
    m_rows.push_back(track);
}

int BenchTimeline::CountKeysInView() const
{
    const FrameAxis& axis = TimelineLibrary::Instance().axis;
    int count = 0;
    for (const CTimelineTrackBase* const track : m_rows) {
        const int first = axis.PixelToFrame(0);
        const int last = axis.PixelToFrame(track->width());
        count += static_cast<int>(std::count_if(
            track->Keys().Keys().begin(), track->Keys().Keys().end(),
            [&](const auto& key) { return key->frame >= first && key->frame <= last; }));
    }
    return count;
}
