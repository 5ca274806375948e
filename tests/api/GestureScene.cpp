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
#include <QtTest>

#include <utility>

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

/// The sections of a skin with their lines, comments left out.
QMap<QByteArray, QByteArrayList> SectionsOf(const QString& path)
{
    QMap<QByteArray, QByteArrayList> sections;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return sections;
    QByteArray current;
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.startsWith('['))
            current = line.mid(1, line.indexOf(']') - 1);
        else if (!line.isEmpty() && !line.startsWith(';'))
            sections[current] << line;
    }
    return sections;
}

/// Adds the section, and those that its values name.
void Take(const QMap<QByteArray, QByteArrayList>& sections, const QByteArray& name,
          QByteArrayList& taken)
{
    if (!sections.contains(name) || taken.contains(name))
        return;
    taken << name;
    for (const QByteArray& line : sections[name])
        Take(sections, line.mid(line.indexOf('=') + 1).trimmed(), taken);
}

struct RowKind
{
    SceneRow row;
    TL_TRACK_TYPE type;
    const char* name;
    const char* section; ///< of the skin, without the style's number
};
const RowKind kRowKinds[] = {
    {ArmRow, TL_TRACK_KEY, "Arm", "KeyTrack"},
    {LegRow, TL_TRACK_KEY, "Leg", "KeyTrack"},
    {MotionRow, TL_TRACK_CLIP, "Motion", "ClipTrack"},
    {SpeechRow, TL_TRACK_CLIP, "Speech", "ClipTrack"},
    {BlendRow, TL_TRACK_TRANSITION_KEY, "Blend", "TransKeyTrack"},
    {GazeRow, TL_TRACK_SWITCH, "Gaze", "SwitchTrack"},
    {LipsRow, TL_TRACK_VISEME_KEY, "Lips", "VisemeKeyTrack"},
    {LinkRow, TL_TRACK_LINK_KEY, "Link", "LinkKeyTrack"},
};

/// What the default skin has for these rows: a track reads the whole file anew for each of its
/// values, and the tests make very many tracks.
QString SmallSkin(unsigned rows)
{
    static const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("%1.ini").arg(rows));
    if (QFile::exists(path))
        return path;
    const auto sections = SectionsOf(KESTOVA_SOURCE_DIR "/skins/default.ini");
    QByteArrayList taken;
    for (const char* const always : {"TickTrack", "TrackRightMenu", "KeyTrack1"})
        Take(sections, always, taken);
    for (const RowKind& kind : kRowKinds) {
        if (rows & kind.row) {
            Take(sections, QByteArray(kind.section) + '1', taken);
            Take(sections, QByteArray(kind.section) + '2', taken);
        }
    }
    QFile small(path);
    if (!small.open(QIODevice::WriteOnly))
        qFatal("the small skin could not be written");
    for (const QByteArray& section : taken)
        small.write('[' + section + "]\n" + sections[section].join('\n') + '\n');
    return path;
}

} // namespace

GestureScene::GestureScene(unsigned rows)
    : fixture(QSize(800, 400), SmallSkin(rows)), pointer(&fixture.mainWindow),
      elsewhere(new QLineEdit(&fixture.mainWindow)), m_rows(rows)
{
    fixture.mainWindow.setMenuWidget(elsewhere);
}

GestureScene::~GestureScene()
{
    fixture.host.reaction = nullptr;
    if (fixture.factory.window)
        fixture.factory.window->reaction = nullptr;
}

/// Makes the tracks that are missing and shows all in their order.
void GestureScene::MakeRows()
{
    CTimelineManager& manager = *fixture.manager;
    const auto isThere = [&](CTimelineTrackBase* track) { return manager.IsTrackExist(track); };
    for (const QPointer<CTimelineTrackBase>& track : std::exchange(m_added, {})) {
        if (track)
            manager.DeleteTrack(track);
    }
    m_names.clear();
    if (!isThere(m_body))
        m_body = manager.CreateTrack(TL_TRACK_KEY, "Body", 1);
    m_names[m_body] = "Body";
    if (!m_body->GetParentTrack())
        manager.ShowRootTrack(m_body, 0, true);
    unsigned int index = 0;
    for (const RowKind& kind : kRowKinds) {
        if (!(m_rows & kind.row))
            continue;
        QPointer<CTimelineTrackBase>& track = m_tracks[kind.row];
        if (!isThere(track))
            track = manager.CreateTrack(kind.type, kind.name, 1);
        m_names[track] = kind.name;
        if (areRestyled)
            track->LoadStyle(1);
        if (!track->GetParentTrack())
            manager.ShowChildTrack(m_body, track, index, true);
        manager.SetChildTrackSortIndex(track, index++, true);
        Fill(kind.row, *track);
    }
    areRestyled = false;
}

CTimelineTrackBase* GestureScene::AddTrack(const QString& name)
{
    CTimelineTrackBase* const track = fixture.Root(TL_TRACK_KEY, name);
    if (track) {
        m_names[track] = name;
        m_added.push_back(track);
    }
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
    SetModes(track, {});
    if (auto* const style = track.StyleAs<TrackStyle>()) {
        for (CaptionButtonStyle& button : style->captionButtons)
            button.state = 0;
    }
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
    Activate();
    Rebuild();
    MakeRows();
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

void GestureScene::Activate()
{
    fixture.mainWindow.activateWindow();
    if (!QTest::qWaitForWindowActive(&fixture.mainWindow))
        qFatal("the window does not become active again");
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
