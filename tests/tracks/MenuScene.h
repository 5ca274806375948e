#pragma once

#include "TimelineBoundaryRecords.h"
#include "library/TimelineLibrary.h"
#include "support/HostFixture.h"
#include "tracks/ClipBuilder.h"
#include "tracks/MenuHand.h"
#include "tracks/RowFixture.h"

#include <QContextMenuEvent>
#include <QtTest>

#include <deque>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace KestovaTest {

using MenuEntry = _tmpTLMenuMapData;
using MenuEntries = std::vector<MenuEntry*>;

/// The host's side of a menu: entries that it owns and may free at any time.
class HostMenu
{
public:
    MenuEntries top;

    /// Makes an entry that stands nowhere yet.
    MenuEntry* Make(int command, const QString& text = QString(), MenuEntries children = {})
    {
        m_entries.push_back(std::make_unique<MenuEntry>());
        MenuEntry* const entry = m_entries.back().get();
        entry->command = command;
        entry->text = text;
        entry->children = std::move(children);
        return entry;
    }
    MenuEntry* Disabled(int command, const QString& text = QString())
    {
        MenuEntry* const entry = Make(command, text);
        entry->enabled = false;
        return entry;
    }
    MenuEntry* Separator() { return Make(-1); }
    void Free() { m_entries.clear(); }

private:
    std::deque<std::unique_ptr<MenuEntry>> m_entries;
};

/// A timeline of a root with two rows of keys that can be edited; the host fills in its menu
/// whenever it is asked.
class MenuScene
{
public:
    HostFixture fixture;
    HostMenu menu;
    CTimelineTrackBase* body;
    CTimelineTrackBase* arm;
    CTimelineTrackBase* leg;
    std::function<void(const QString& line)> alsoReact;

    MenuScene()
        : body(fixture.Root(TL_TRACK_CLIP, "Body")), arm(fixture.Child(body, TL_TRACK_KEY, "Arm")),
          leg(fixture.Child(body, TL_TRACK_KEY, "Leg"))
    {
        for (CTimelineTrackBase* const track : {arm, leg})
            fixture.SetEditModes(track, {TL_EDIT_MOVE_KEYS, TL_EDIT_COPY});
        fixture.AddKeys(arm, {20, 40});
        fixture.AddKeys(leg, {30});
        fixture.Settle();
        fixture.ForgetCalls();
        fixture.host.reaction = [this](const QString& line) {
            if (line.startsWith(QLatin1String("menu ")))
                *fixture.host.menuList = menu.top;
            if (alsoReact)
                alsoReact(line);
        };
    }

    /// Makes the row the active one and forgets what that told the host.
    void Activate(CTimelineTrackBase* track)
    {
        fixture.manager->SetActiveChildTrack(track);
        fixture.ForgetCalls();
    }

    QStringList Calls() { return fixture.host.TakeCalls(); }
};

/// Inside the cell of @p frame, in the middle of the row, where a key's glyph is.
inline QPoint PointAt(const CTimelineTrackBase* track, int frame)
{
    return {track->FrameToPixel(frame) + 2, track->height() / 2};
}

/// @return whether the row took the event.
inline bool RightClick(CTimelineTrackBase* track, QPoint point)
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, point, track->mapToGlobal(point));
    event.ignore();
    QApplication::sendEvent(track, &event);
    return event.isAccepted();
}

inline bool RightClickAt(CTimelineTrackBase* track, int frame)
{
    return RightClick(track, PointAt(track, frame));
}

inline int CurrentFrame()
{
    return TimelineLibrary::Instance().axis.currentFrame;
}

/// A row of clips whose sub-keys are edited: one clip from 10 to 40 with sub-keys at 15 and 25 (5
/// and 15 inside it), one from 60 to 90 with a sub-key at 70.
class SubKeyScene : public MenuScene
{
public:
    CTimelineTrackBase* mouth;
    VZ::CPointer<CTimelineKey> first;
    VZ::CPointer<CTimelineKey> second;

    SubKeyScene()
        : mouth(fixture.Child(body, TL_TRACK_CLIP, "Mouth")), first(ClipWith(10, {5, 15})),
          second(ClipWith(60, {10}))
    {
        fixture.SetEditModes(mouth, {TL_EDIT_MOVE_KEYS, TL_EDIT_SUB_KEYS});
        mouth->Keys().Add(first, false);
        mouth->Keys().Add(second, false);
        fixture.manager->InvalidateTimeline();
        fixture.Settle();
        Activate(mouth);
    }

    /// The point where the row itself finds the sub-key of the clip.
    QPoint PointOfSubKey(int clip, int subKey) const
    {
        const int frame = mouth->Keys().GetAt(clip)->frame;
        const int subFrame = mouth->Keys().GetAt(clip)->subKeys->GetAt(subKey)->frame;
        return PointAt(mouth, frame + subFrame);
    }

    /// A point that hits the sub-key, too, but lies in the cell of another frame.
    QPoint PointBeside(int clip, int subKey) const
    {
        QPoint point = PointOfSubKey(clip, subKey);
        const int frame = mouth->PixelToFrame(point.x());
        while (mouth->PixelToFrame(point.x()) == frame)
            point.rx() -= 1;
        if (mouth->HitTestSubKey(point, clip) != subKey)
            qFatal("no sub-key reaches beyond its frame");
        return point;
    }

private:
    static VZ::CPointer<CTimelineKey> ClipWith(int frame, std::initializer_list<int> subFrames)
    {
        VZ::CPointer<CTimelineKey> clip = MakeClip(frame, 30);
        clip->subKeys = new CTimelineKeyArray;
        for (const int subFrame : subFrames)
            clip->subKeys->Add(NewKey(subFrame), false);
        return clip;
    }
};

} // namespace KestovaTest
