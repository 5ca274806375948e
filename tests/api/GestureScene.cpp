#include "GestureScene.h"

#include "TimelineKeyValues.h"
#include "container/CTimelineContainer.h"
#include "container/TestTracks.h"
#include "library/TimelineLibrary.h"
#include "tracks/CTimelineTrackHScroll.h"
#include "tracks/CTimelineTrackTick.h"

#include <QFile>
#include <QMap>
#include <QTemporaryDir>

namespace KestovaTest {

namespace {

constexpr int kFrames = 100;

void AddClip(CTimelineTrackBase& track, int frame, int length)
{
    VZ::CPointer<CTimelineKey> clip(new CTimelineKey);
    clip->frame = frame;
    clip->clipLength = length;
    clip->hostValue2 = 40; // the longest pass
    clip->hostValue3 = 2;  // and the shortest
    clip->name = QStringLiteral("Clip");
    track.Keys().Add(clip, false);
}

/// The default skin without its comments and without the sections that a scene has no use for: a
/// track reads the file anew for each of its values, and a test makes very many.
QString SmallSkin()
{
    static const QTemporaryDir folder;
    const QString path = folder.filePath("small.ini");
    if (QFile::exists(path))
        return path;
    QFile whole(KESTOVA_SOURCE_DIR "/skins/default.ini");
    QFile small(path);
    if (!whole.open(QIODevice::ReadOnly) || !small.open(QIODevice::WriteOnly))
        return QString();
    bool isWanted = true;
    for (const QByteArray& line : whole.readAll().split('\n')) {
        const bool isKept = !line.startsWith("[Wave") && !line.startsWith("[WaveTrack") &&
                            !line.contains("Track3]");
        if (line.startsWith('['))
            isWanted = isKept;
        if (isWanted && !line.isEmpty() && !line.startsWith(';'))
            small.write(line + '\n');
    }
    return path;
}

} // namespace

GestureScene::GestureScene(unsigned rows)
    : fixture(QSize(800, 400), SmallSkin()), pointer(&fixture.mainWindow),
      elsewhere(new QLineEdit(&fixture.mainWindow))
{
    fixture.mainWindow.setMenuWidget(elsewhere);
    m_body = fixture.Root(TL_TRACK_CLIP, "Body");
    m_names[m_body] = "Body";
    struct
    {
        SceneRow row;
        TL_TRACK_TYPE type;
        const char* name;
    } const kinds[] = {
        {ArmRow, TL_TRACK_KEY, "Arm"},
        {LegRow, TL_TRACK_KEY, "Leg"},
        {MotionRow, TL_TRACK_CLIP, "Motion"},
        {SpeechRow, TL_TRACK_CLIP, "Speech"},
        {BlendRow, TL_TRACK_TRANSITION_KEY, "Blend"},
        {GazeRow, TL_TRACK_SWITCH, "Gaze"},
        {LipsRow, TL_TRACK_VISEME_KEY, "Lips"},
        {LinkRow, TL_TRACK_LINK_KEY, "Link"},
    };
    for (const auto& kind : kinds) {
        if (rows & kind.row)
            Add(kind.row, kind.type, kind.name);
    }
    fixture.Settle();
}

GestureScene::~GestureScene()
{
    fixture.host.reaction = nullptr;
    if (fixture.factory.window)
        fixture.factory.window->reaction = nullptr;
}

void GestureScene::Add(SceneRow row, TL_TRACK_TYPE type, const QString& name)
{
    CTimelineTrackBase* const track = fixture.Child(m_body, type, name);
    m_tracks[row] = track;
    m_names[track] = name;
}

CTimelineTrackBase* GestureScene::AddTrack(const QString& name)
{
    CTimelineTrackBase* const track = fixture.Root(TL_TRACK_KEY, name);
    if (track)
        m_names[track] = name;
    return track;
}

CTimelineTrackBase* GestureScene::ShowFreshRow()
{
    CTimelineManager& manager = *fixture.manager;
    if (!manager.IsTrackExist(m_fresh))
        m_fresh = manager.CreateTrack(TL_TRACK_KEY, "Fresh", 1);
    if (!m_fresh)
        return nullptr;
    m_fresh->Keys().RemoveAll();
    AddKeysTo(*m_fresh, {10, 20});
    SetModes(*m_fresh, {TL_EDIT_MOVE_KEYS, TL_EDIT_TIME_RANGE});
    manager.ShowRootTrack(m_fresh, 0xFFFFu, true);
    return m_fresh;
}

void GestureScene::HideFreshRow()
{
    fixture.manager->HideRootTrack(m_fresh, true);
}

void GestureScene::Fill(SceneRow row, CTimelineTrackBase& track)
{
    track.Keys().RemoveAll();
    track.SetRange(-1, -1);
    switch (row) {
    case GazeRow: {
        std::vector<_tmpTLSwitchBtnData> buttons{{"Left", 0}, {"Right", 0}, {"Up", 0}};
        fixture.manager->SetTrackSwitchBtnList(&track, buttons);
        fixture.manager->SetTrackSwitchScrollState(&track, false);
        return;
    }
    case MotionRow:
        AddClip(track, 10, 10);
        AddClip(track, 40, 10);
        SetModes(track, {TL_EDIT_CLIP_LOOP, TL_EDIT_MOVE_KEYS, TL_EDIT_TIME_RANGE});
        return;
    case SpeechRow:
    case LipsRow:
        AddClip(track, 10, 40);
        AddSubKeys(track, 0, {5, 15, 25});
        SetModes(track, {TL_EDIT_MOVE_KEYS, TL_EDIT_SUB_KEYS});
        return;
    default:
        AddKeysTo(track, {10, 20, 40});
        for (const auto& key : track.Keys().Keys()) {
            key->transitionFrames = 5;
            key->kindMask = row == BlendRow ? TL_KEY_TRANSITION_OUT : 0;
        }
        SetModes(track, {TL_EDIT_MOVE_KEYS, TL_EDIT_TIME_RANGE, TL_EDIT_CLIP_TRIM});
    }
}

void GestureScene::Reset()
{
    const auto reaction = std::exchange(fixture.host.reaction, nullptr);
    if (m_body && !m_body->GetParentTrack())
        fixture.manager->ShowRootTrack(m_body, 0, true);
    for (auto each = m_tracks.begin(); each != m_tracks.end(); ++each) {
        if (!each.value())
            continue;
        // Rows that were hidden come back in their order.
        if (!each.value()->GetParentTrack())
            fixture.manager->ShowChildTrack(m_body, each.value(), each.key(), true);
        Fill(each.key(), *each.value());
        if (auto* const style = each.value()->StyleAs<TrackStyle>()) {
            for (CaptionButtonStyle& button : style->captionButtons)
                button.state = 0;
        }
    }
    fixture.manager->SetFrameCount(kFrames);
    fixture.manager->SetScrollInfo(0.0f, 1.0f);
    fixture.manager->SetCurrentFrame(3);
    fixture.manager->SetTimeMarkFrame(50, 80);
    fixture.manager->SetActiveRootTrack(nullptr);
    fixture.manager->SetEnableDragEnterFiletype(true, true, true, true, true, true);
    // Where the pointer and the focus are at first.
    elsewhere->setFocus();
    pointer.LoseButtons();
    pointer.modifiers = Qt::NoModifier;
    pointer.MoveTo(elsewhere, QPoint(2, 2));
    if (fixture.Container())
        fixture.Container()->setFocus();
    if (prepare)
        prepare(*this);
    fixture.manager->InvalidateTimeline();
    fixture.Settle();
    fixture.host.editAnswer = 0;
    fixture.host.dropAnswer = true;
    fixture.ForgetCalls();
    fixture.host.reaction = reaction;
}

QPoint GestureScene::InWindow(QWidget* widget, QPoint point) const
{
    return widget->mapTo(const_cast<QMainWindow*>(&fixture.mainWindow), point);
}

QPoint GestureScene::Cell(QWidget* row, int frame) const
{
    const FrameAxis& axis = TimelineLibrary::Instance().axis;
    return InWindow(
        row, QPoint(axis.FrameToPixel(frame) + axis.info.pixelsPerFrame / 2, row->height() / 2));
}

QPoint GestureScene::Find(QWidget* row, const std::function<bool(QPoint)>& isHit) const
{
    for (int x = 0; x < row->width(); ++x) {
        for (int y = row->height() - 1; y >= 0; --y) {
            if (isHit(QPoint(x, y)))
                return InWindow(row, QPoint(x, y));
        }
    }
    return InWindow(row, QPoint(-1, -1));
}

void GestureScene::Rebuild()
{
    if (!fixture.manager) {
        fixture.manager = std::make_unique<CTimelineManager>(&fixture.mainWindow);
        fixture.manager->SetTimelineWndFactoryBase(&fixture.factory);
        fixture.manager->CreateTimelineManager(&fixture.host, TimelineLibrary::Instance().skinPath);
    }
    if (!fixture.dock) {
        fixture.dock = new QDockWidget(&fixture.mainWindow);
        fixture.mainWindow.addDockWidget(Qt::BottomDockWidgetArea, fixture.dock);
    }
    if (!fixture.Container()) {
        fixture.manager->CreateTimelineMainWidget(fixture.dock);
        fixture.manager->SetFrameCount(kFrames);
        fixture.manager->ShowTimelineWnd(true);
    }
}

} // namespace KestovaTest
