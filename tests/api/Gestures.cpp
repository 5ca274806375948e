#include "Gestures.h"

#include "TimelineKeyValues.h"
#include "container/CTimelineContainer.h"
#include "container/CaptionHitTest.h"
#include "library/TimelineLibrary.h"
#include "tracks/CTimelineTrackClip.h"
#include "tracks/CTimelineTrackHScroll.h"
#include "tracks/CTimelineTrackSwitch.h"
#include "tracks/CTimelineTrackTick.h"
#include "tracks/CTimelineTrackTransKey.h"

#include <QtTest>

namespace KestovaTest {

namespace {

using S = GestureScene;

const QString kMotion = QStringLiteral("/tmp/walk.kxmotion");

// ---- Where things are ----

CTimelineTrackBase* Arm(S& s)
{
    return s.Track(ArmRow);
}
QWidget* Ruler(S& s)
{
    return s.fixture.Container()->TickTrack();
}
QWidget* Bar(S& s)
{
    return s.fixture.Container()->ScrollTrack();
}

/// A point of the row at the frame of the key with the given index, on the key.
QPoint Key(S& s, SceneRow row, int index)
{
    CTimelineTrackBase* const track = s.Track(row);
    return s.Find(track, [=](QPoint p) { return track->HitTestKey(p) == index; });
}

QPoint SubKey(S& s, SceneRow row, int index)
{
    CTimelineTrackBase* const track = s.Track(row);
    return s.Find(track, [=](QPoint p) { return track->HitTestSubKey(p, 0) == index; });
}

QPoint Marker(S& s, CTimelineTrackBase* row, int marker)
{
    return s.Find(row, [=](QPoint p) { return row->HitTestRangeMarker(p) == marker; }) +
           QPoint(1, 0);
}

QPoint Edge(S& s, int kind)
{
    auto* const row = qobject_cast<CTimelineTrackClip*>(s.Track(MotionRow));
    return s.Find(row, [=](QPoint p) { return row->HitTestEdge(p).kind == kind; });
}

QPoint Handle(S& s)
{
    auto* const row = qobject_cast<CTimelineTrackTransKey*>(s.Track(BlendRow));
    return s.Find(row, [=](QPoint p) { return row->HitTestHandle(p) >= 0; });
}

QPoint Button(S& s, int index)
{
    return Key(s, GazeRow, index);
}

/// Of the scroll bar, at a fraction of its width.
QPoint OnBar(S& s, double fraction)
{
    return s.InWindow(Bar(s), QPoint(int(Bar(s)->width() * fraction), Bar(s)->height() / 2));
}

/// On a caption button of the row: the first whose type (0 push, 1 toggle) fits, after @p skip.
QPoint CaptionButton(S& s, SceneRow row, int type, int skip = 0)
{
    CTimelineContainer& container = *s.fixture.Container();
    CTimelineTrackBase* const track = s.Track(row);
    const auto& buttons = track->StyleAs<TrackStyle>()->captionButtons;
    return s.Find(&container, [&](QPoint p) {
        const CaptionHit hit = HitTestCaption(container, p);
        if (hit.track != track || hit.button == kNoCaptionButton)
            return false;
        int before = 0;
        for (int i = 0; i < hit.button; ++i)
            before += buttons[std::size_t(i)].type == type ? 1 : 0;
        return buttons[std::size_t(hit.button)].type == type && before == skip;
    }) + QPoint(2, -2);
}

QPoint Caption(S& s, SceneRow row)
{
    return s.InWindow(s.fixture.Container(), QPoint(20, s.Track(row)->geometry().center().y()));
}

// ---- What has to be so before ----

void SetModes(S& s, SceneRow row, std::initializer_list<TLEditType> modes)
{
    s.fixture.SetEditModes(s.Track(row), modes);
}

void ZoomIn(S& s)
{
    s.fixture.manager->SetFrameCount(1000);
    s.fixture.manager->SetScrollInfo(0.4f, 0.6f);
}

void WithoutRange(S& s)
{
    SetModes(s, ArmRow, {TL_EDIT_MOVE_KEYS, TL_EDIT_CUT});
}

void WithRange(S& s)
{
    s.fixture.manager->SetActiveChildTrack(Arm(s));
    s.fixture.manager->SetTrackSelFrame(Arm(s), 25, 35);
}

/// Keys of several rows, of which another one than the pressed is active: the press then leaves the
/// selection alone.
void SelectTwo(S& s)
{
    s.fixture.manager->SetActiveChildTrack(s.Track(LegRow) ? s.Track(LegRow) : Arm(s));
    for (const SceneRow row : {ArmRow, LegRow}) {
        if (s.Track(row))
            s.Track(row)->Keys().SetSelectionByIndex(0, 1, true, TL_KEY_ANY_KIND);
    }
}

void Modes(S& s, TLEditType first, TLEditType second)
{
    SetModes(s, MotionRow, {first, second});
    s.Track(MotionRow)->Keys().SetSelectionByIndex(0, 0, true, TL_KEY_ANY_KIND);
    s.Track(MotionRow)->Keys().GetAt(0)->transitionFrames = 4;
}

void ManyButtons(S& s)
{
    std::vector<_tmpTLSwitchBtnData> buttons(40, _tmpTLSwitchBtnData{"Wide button", 0});
    s.fixture.manager->SetTrackSwitchBtnList(s.Track(GazeRow), buttons);
    s.fixture.manager->SetTrackSwitchScrollState(s.Track(GazeRow), true);
}

void Activate(S& s)
{
    s.fixture.manager->SetActiveChildTrack(Arm(s));
}

void ActivateZoomed(S& s)
{
    Activate(s);
    ZoomIn(s);
}

// ---- Scripts that differ only in what they are made on ----

Script DragFrames(S& s, QWidget* row, QPoint from, int first, int second,
                  Qt::KeyboardModifiers m = {})
{
    const int y = from.y();
    const QPoint a(s.Cell(row, first).x(), y);
    const QPoint b(s.Cell(row, second).x(), y);
    return Script(m).Press(from).Move(a).Move(b).Release();
}

Script HotKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
{
    return Script(modifiers).Key(key);
}

Script DropOn(S& s, SceneRow row)
{
    QWidget* const track = s.Track(row);
    return Script()
        .Enter(s.Cell(track, 5), kMotion)
        .Hold(s.Cell(track, 8), kMotion)
        .Hold(s.Cell(track, 12), kMotion)
        .Drop(s.Cell(track, 12), kMotion);
}

} // namespace

// clang-format off
const std::vector<Gesture>& Gestures()
{
    constexpr auto kShift = Qt::ShiftModifier;
    constexpr auto kCtrl = Qt::ControlModifier;
    static const std::vector<Gesture> gestures = {
        // The ruler
        {"scrub", ArmRow, ArmRow, nullptr, [](S& s) { return DragFrames(s, Ruler(s), s.Cell(Ruler(s), 20), 25, 30); }},
        {"double click on the ruler", ArmRow, ArmRow, nullptr, [](S& s) { return Script().DoubleClick(s.Cell(Ruler(s), 20)); }},
        {"start mark", ArmRow, ArmRow, nullptr, [](S& s) { return DragFrames(s, Ruler(s), Marker(s, s.fixture.Container()->TickTrack(), 0), 55, 60); }},
        {"end mark", ArmRow, ArmRow, nullptr, [](S& s) { return DragFrames(s, Ruler(s), Marker(s, s.fixture.Container()->TickTrack(), 1), 75, 70); }},
        // The scroll bar
        {"thumb body", ArmRow, ArmRow, ZoomIn, [](S& s) { return Script().Press(OnBar(s, 0.5)).Move(OnBar(s, 0.55)).Move(OnBar(s, 0.6)).Release(); }},
        {"thumb left edge", ArmRow, ArmRow, ZoomIn, [](S& s) { return Script().Press(OnBar(s, 0.4)).Move(OnBar(s, 0.35)).Move(OnBar(s, 0.3)).Release(); }},
        {"thumb right edge", ArmRow, ArmRow, ZoomIn, [](S& s) { return Script().Press(OnBar(s, 0.6)).Move(OnBar(s, 0.65)).Move(OnBar(s, 0.7)).Release(); }},
        {"page left", ArmRow, ArmRow, ZoomIn, [](S& s) { return Script().Click(OnBar(s, 0.1)); }},
        {"page right", ArmRow, ArmRow, ZoomIn, [](S& s) { return Script().Click(OnBar(s, 0.9)); }},
        // Presses on a row of keys
        {"press on a key", ArmRow | LegRow, ArmRow, nullptr, [](S& s) { return Script().Click(Key(s, ArmRow, 0)); }},
        {"press on a selected key", ArmRow | LegRow, ArmRow, SelectTwo, [](S& s) { return Script().Click(Key(s, ArmRow, 0)); }},
        {"press on nothing", ArmRow | LegRow, ArmRow, SelectTwo, [](S& s) { return Script().Click(s.Cell(Arm(s), 30)); }},
        {"press with Shift", ArmRow | LegRow, ArmRow, SelectTwo, [](S& s) { return Script(kShift).Click(Key(s, ArmRow, 2)); }},
        {"press with Ctrl", ArmRow | LegRow, ArmRow, SelectTwo, [](S& s) { return Script(kCtrl).Click(Key(s, ArmRow, 2)); }},
        {"press with Ctrl on nothing", ArmRow | LegRow, ArmRow, SelectTwo, [](S& s) { return Script(kCtrl).Click(s.Cell(Arm(s), 30)); }},
        {"press on a row that only shows the frame", ArmRow, ArmRow, [](S& s) { SetModes(s, ArmRow, {TL_EDIT_MOVE_KEYS}); }, [](S& s) { return Script().Click(Key(s, ArmRow, 1)); }},
        {"press on a link key", LinkRow, LinkRow, nullptr, [](S& s) { return Script().Click(Key(s, LinkRow, 1)); }},
        {"press on a clip", MotionRow, MotionRow, nullptr, [](S& s) { return Script().Click(Key(s, MotionRow, 0)); }},
        {"hover over keys", ArmRow | MotionRow, ArmRow, nullptr, [](S& s) { return Script().Move(Key(s, ArmRow, 0)).Move(Key(s, ArmRow, 1)).Move(Key(s, MotionRow, 0)).Move(Key(s, ArmRow, 2)).Click(Key(s, ArmRow, 2)); }},
        // Ranges
        {"range drag that leaves a range", ArmRow | LegRow, ArmRow, nullptr, [](S& s) { return DragFrames(s, Arm(s), s.Cell(Arm(s), 30), 18, 8); }},
        {"range drag that leaves none", ArmRow | LegRow, ArmRow, WithoutRange, [](S& s) { return DragFrames(s, Arm(s), s.Cell(Arm(s), 30), 18, 8); }},
        {"range drag with Shift", ArmRow | LegRow, ArmRow, SelectTwo, [](S& s) { return DragFrames(s, Arm(s), s.Cell(Arm(s), 30), 35, 45, kShift); }},
        {"range drag with Ctrl", ArmRow | LegRow, ArmRow, SelectTwo, [](S& s) { return DragFrames(s, Arm(s), s.Cell(Arm(s), 30), 35, 45, kCtrl); }},
        {"start marker of a range", ArmRow, ArmRow, WithRange, [](S& s) { return DragFrames(s, Arm(s), Marker(s, Arm(s), 0), 18, 8); }},
        {"end marker of a range", ArmRow, ArmRow, WithRange, [](S& s) { return DragFrames(s, Arm(s), Marker(s, Arm(s), 1), 38, 45); }},
        // Key drags
        {"key drag", ArmRow | LegRow, ArmRow, nullptr, [](S& s) { return DragFrames(s, Arm(s), Key(s, ArmRow, 1), 25, 28); }},
        {"key drag over several rows", ArmRow | LegRow, ArmRow, SelectTwo, [](S& s) { return DragFrames(s, Arm(s), Key(s, ArmRow, 1), 25, 28); }},
        {"key drag that copies", ArmRow | LegRow, ArmRow, [](S& s) { s.fixture.manager->SetActiveChildTrack(s.Track(LegRow)); Arm(s)->Keys().SetSelectionByIndex(1, 1, true, TL_KEY_ANY_KIND); }, [](S& s) { return DragFrames(s, Arm(s), Key(s, ArmRow, 1), 25, 28, kCtrl); }},
        {"key drag that copies on several rows", ArmRow | LegRow, ArmRow, SelectTwo, [](S& s) { return DragFrames(s, Arm(s), Key(s, ArmRow, 1), 25, 28, kCtrl); }},
        {"clip drag", MotionRow | ArmRow, MotionRow, nullptr, [](S& s) { return DragFrames(s, s.Track(MotionRow), Key(s, MotionRow, 0), 15, 22); }},
        {"transition key drag", BlendRow | ArmRow, BlendRow, [](S& s) { SetModes(s, BlendRow, {TL_EDIT_MOVE_KEYS, TL_EDIT_CUT}); }, [](S& s) { return DragFrames(s, s.Track(BlendRow), Key(s, BlendRow, 2), 45, 50); }},
        // Sub-keys
        {"press on a sub-key", SpeechRow | ArmRow, SpeechRow, SelectTwo, [](S& s) { return Script().Click(SubKey(s, SpeechRow, 1)); }},
        {"press on a sub-key with Ctrl", SpeechRow, SpeechRow, nullptr, [](S& s) { return Script(kCtrl).Click(SubKey(s, SpeechRow, 1)); }},
        {"press beside clips with sub-keys", SpeechRow | ArmRow, SpeechRow, SelectTwo, [](S& s) { return Script().Click(s.Cell(s.Track(SpeechRow), 70)); }},
        {"sub-key drag", SpeechRow, SpeechRow, nullptr, [](S& s) { return DragFrames(s, s.Track(SpeechRow), SubKey(s, SpeechRow, 1), 28, 31); }},
        {"sub-key range drag", SpeechRow, SpeechRow, nullptr, [](S& s) { return DragFrames(s, s.Track(SpeechRow), s.Cell(s.Track(SpeechRow), 21), 30, 40); }},
        {"sub-key range drag with Shift", SpeechRow, SpeechRow, nullptr, [](S& s) { return DragFrames(s, s.Track(SpeechRow), s.Cell(s.Track(SpeechRow), 21), 30, 40, kShift); }},
        {"mouth shape drag", LipsRow, LipsRow, nullptr, [](S& s) { return DragFrames(s, s.Track(LipsRow), SubKey(s, LipsRow, 1), 28, 31); }},
        // Double clicks
        {"double click on a key", ArmRow | LegRow, ArmRow, SelectTwo, [](S& s) { return Script().DoubleClick(Key(s, ArmRow, 1)); }},
        {"double click on nothing", ArmRow | LegRow, ArmRow, SelectTwo, [](S& s) { return Script().DoubleClick(s.Cell(Arm(s), 30)); }},
        {"double click on a sub-key", SpeechRow, SpeechRow, nullptr, [](S& s) { return Script().DoubleClick(SubKey(s, SpeechRow, 1)); }},
        // Clip edges, transitions
        {"loop edge", MotionRow | ArmRow, MotionRow, [](S& s) { Modes(s, TL_EDIT_CLIP_LOOP, TL_EDIT_CUT); }, [](S& s) { return DragFrames(s, s.Track(MotionRow), Edge(s, TL_EDIT_CLIP_LOOP), 35, 36); }},
        {"speed edge", MotionRow | ArmRow, MotionRow, [](S& s) { Modes(s, TL_EDIT_CLIP_SPEED, TL_EDIT_CUT); }, [](S& s) { return DragFrames(s, s.Track(MotionRow), Edge(s, TL_EDIT_CLIP_SPEED), 25, 28); }},
        {"loop or speed edge", MotionRow, MotionRow, [](S& s) { Modes(s, TL_EDIT_CLIP_SPEED, TL_EDIT_CLIP_LOOP); }, [](S& s) { return DragFrames(s, s.Track(MotionRow), Edge(s, TL_EDIT_CLIP_LOOP), 35, 36); }},
        {"trim edge", MotionRow | ArmRow, MotionRow, [](S& s) { Modes(s, TL_EDIT_CLIP_TRIM, TL_EDIT_CUT); }, [](S& s) { return DragFrames(s, s.Track(MotionRow), Edge(s, TL_EDIT_CLIP_TRIM), 3, 1); }},
        {"transition handle", BlendRow | ArmRow, BlendRow, nullptr, [](S& s) { return DragFrames(s, s.Track(BlendRow), Handle(s), 17, 19); }},
        // Switches
        {"switch", GazeRow | ArmRow, GazeRow, nullptr, [](S& s) { return Script().Click(Button(s, 1)); }},
        {"switch left for another", GazeRow, GazeRow, nullptr, [](S& s) { return Script().Press(Button(s, 0)).Move(Button(s, 1)).Release(); }},
        {"double click on a switch", GazeRow, GazeRow, nullptr, [](S& s) { return Script().DoubleClick(Button(s, 1)); }},
        {"switch arrow", GazeRow, GazeRow, ManyButtons, [](S& s) { QWidget* const row = s.Track(GazeRow); return Script().Click(s.InWindow(row, QPoint(row->width() - 4, row->height() / 2))).Click(s.InWindow(row, QPoint(4, row->height() / 2))); }},
        {"hover over switches", GazeRow | ArmRow, GazeRow, nullptr, [](S& s) { return Script().Move(Button(s, 0)).Move(Button(s, 2)).Move(s.Cell(Arm(s), 30)).Move(Button(s, 1)).Click(Button(s, 1)); }},
        // Captions
        {"caption", ArmRow | LegRow, ArmRow, SelectTwo, [](S& s) { return Script().Click(Caption(s, ArmRow)); }},
        {"push button", ArmRow | LegRow, ArmRow, nullptr, [](S& s) { return Script().Move(CaptionButton(s, ArmRow, 0)).Click(CaptionButton(s, ArmRow, 0)); }},
        {"toggle button", ArmRow | LegRow, ArmRow, nullptr, [](S& s) { return Script().Click(CaptionButton(s, ArmRow, 1)).Click(CaptionButton(s, ArmRow, 1)); }},
        {"caption button left for another", ArmRow, ArmRow, nullptr, [](S& s) { return Script().Press(CaptionButton(s, ArmRow, 0)).Move(CaptionButton(s, ArmRow, 1)).Release(); }},
        {"double click on a caption", ArmRow | LegRow, ArmRow, SelectTwo, [](S& s) { return Script().DoubleClick(Caption(s, ArmRow)); }},
        {"double click on a caption with Ctrl", ArmRow | LegRow, ArmRow, SelectTwo, [](S& s) { return Script(kCtrl).DoubleClick(Caption(s, ArmRow)); }},
        {"double click on the caption of the lips", LipsRow | ArmRow | LegRow, LipsRow, SelectTwo, [](S& s) { return Script().DoubleClick(Caption(s, LipsRow)); }},
        {"double click on a button", ArmRow, ArmRow, nullptr, [](S& s) { return Script().DoubleClick(CaptionButton(s, ArmRow, 1)); }},
        // Hotkeys
        {"Tab", ArmRow, ArmRow, Activate, [](S&) { return HotKey(Qt::Key_Tab); }},
        {"Shift+Tab", ArmRow, ArmRow, Activate, [](S&) { return HotKey(Qt::Key_Backtab, Qt::ShiftModifier); }},
        {"Tab in sub-keys", SpeechRow, SpeechRow, [](S& s) { s.fixture.manager->SetActiveChildTrack(s.Track(SpeechRow)); }, [](S&) { return HotKey(Qt::Key_Tab); }},
        {"Shift+Tab in sub-keys", SpeechRow, SpeechRow, [](S& s) { s.fixture.manager->SetActiveChildTrack(s.Track(SpeechRow)); }, [](S&) { return HotKey(Qt::Key_Backtab, Qt::ShiftModifier); }},
        {"Home", ArmRow, ArmRow, Activate, [](S&) { return HotKey(Qt::Key_Home); }},
        {"End", ArmRow, ArmRow, Activate, [](S&) { return HotKey(Qt::Key_End); }},
        {"period", ArmRow, ArmRow, Activate, [](S&) { return HotKey(Qt::Key_Period); }},
        {"plus", ArmRow, ArmRow, ActivateZoomed, [](S&) { return HotKey(Qt::Key_Plus); }},
        {"equals", ArmRow, ArmRow, ActivateZoomed, [](S&) { return HotKey(Qt::Key_Equal); }},
        {"minus", ArmRow, ArmRow, ActivateZoomed, [](S&) { return HotKey(Qt::Key_Minus); }},
        {"asterisk", ArmRow, ArmRow, ActivateZoomed, [](S&) { return HotKey(Qt::Key_Asterisk); }},
        {"slash", ArmRow, ArmRow, ActivateZoomed, [](S&) { return HotKey(Qt::Key_Slash); }},
        // The menu
        {"menu on a key, chosen", ArmRow | LegRow, ArmRow, nullptr, [](S& s) { return Script().RightClick(Key(s, ArmRow, 1)); }, true},
        {"menu on a key, closed", ArmRow | LegRow, ArmRow, nullptr, [](S& s) { return Script().RightClick(Key(s, ArmRow, 1)); }},
        {"menu on nothing, chosen", ArmRow, ArmRow, SelectTwo, [](S& s) { return Script().RightClick(s.Cell(Arm(s), 30)); }, true},
        {"menu on a sub-key, chosen", SpeechRow, SpeechRow, nullptr, [](S& s) { return Script().RightClick(SubKey(s, SpeechRow, 1)); }, true},
        {"menu on a clip, chosen", MotionRow, MotionRow, nullptr, [](S& s) { return Script().RightClick(Key(s, MotionRow, 1)); }, true},
        {"menu in a key drag", ArmRow | LegRow, ArmRow, nullptr, [](S& s) { return Script().Press(Key(s, ArmRow, 1)).Move(s.Cell(Arm(s), 25)).RightClick(s.Cell(Arm(s), 27)).Move(s.Cell(Arm(s), 28)).Release(); }},
        // Files
        {"file on a row", ArmRow | LegRow, ArmRow, nullptr, [](S& s) { return DropOn(s, ArmRow); }},
        {"file on the active row", ArmRow | LegRow, ArmRow, Activate, [](S& s) { return DropOn(s, ArmRow); }},
        {"file on a clip row", MotionRow, MotionRow, nullptr, [](S& s) { return DropOn(s, MotionRow); }},
    };
    return gestures;
}
// clang-format on

void AddGestureRows()
{
    QTest::addColumn<int>("gesture");
    int index = 0;
    for (const Gesture& gesture : Gestures())
        QTest::addRow("%s", gesture.name) << index++;
}

} // namespace KestovaTest
