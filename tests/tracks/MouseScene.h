#pragma once

#include "MessageSpy.h"
#include "model/TimelineKeyValues.h"
#include "support/HostFixture.h"
#include "support/Pointer.h"
#include "support/TimelineFixture.h"
#include "tracks/CTimelineTrackBase.h"

#include <QtTest>

#include <initializer_list>
#include <vector>

namespace KestovaTest {

/// Rows of a kind in the timeline of a shown window, and a hand on the mouse: "row", the active
/// child of the root "body", and "other", its second child. 50 frames of 10 pixels each, so that
/// the row shows more than there is; the current frame is 0.
class MouseScene
{
public:
    static constexpr int kFrames = 50;
    static constexpr int kPixelsPerFrame = 10;

    explicit MouseScene(std::initializer_list<TLEditType> modes, TL_TRACK_TYPE type = TL_TRACK_KEY)
        : pointer(&fixture.mainWindow)
    {
        root = fixture.Root(TL_TRACK_KEY, QStringLiteral("body"));
        row = fixture.Child(root, type, QStringLiteral("row"));
        other = fixture.Child(root, TL_TRACK_KEY, QStringLiteral("other"));
        fixture.SetEditModes(row, modes);
        fixture.SetEditModes(other, modes);
        fixture.manager->SetActiveChildTrack(row);
        fixture.Settle();
        ResetAxis(kFrames, kPixelsPerFrame, 0, 0);
        fixture.ForgetCalls();
    }

    /// The middle of the row in the middle of @p frame's cell, which may lie outside of the row.
    QPoint At(int frame) const { return Spot(frame * kPixelsPerFrame + kPixelsPerFrame / 2); }
    QPoint Spot(int x) const { return QPoint(x, row ? row->GetRowHeight() / 2 : 0); }

    // A row that the host has deleted is passed over.
    void Press(int frame, Qt::KeyboardModifiers held = Qt::NoModifier)
    {
        pointer.modifiers = held;
        if (row)
            pointer.Press(row, At(frame));
    }
    void MoveTo(int frame)
    {
        if (row)
            pointer.MoveTo(row, At(frame));
    }
    void Release() { pointer.Release(); }
    void Click(int frame, Qt::KeyboardModifiers held = Qt::NoModifier)
    {
        Press(frame, held);
        Release();
        pointer.modifiers = Qt::NoModifier;
    }

    void AddKeys(std::initializer_list<int> frames) { fixture.AddKeys(row, frames); }
    CTimelineKeyArray& Keys() { return row->Keys(); }
    CTimelineKey& Key(int index) { return *row->Keys().GetAt(index); }
    void Select(CTimelineTrackBase* track, int index)
    {
        track->Keys().SetSelectionByIndex(index, index, true, TL_KEY_ANY_KIND);
    }
    std::vector<int> Selection() const { return row->Keys().SelectedIndexes(); }
    QPair<int, int> Range() const { return {row->RangeStart(), row->RangeEnd()}; }
    int CurrentFrame() const { return TimelineLibrary::Instance().axis.currentFrame; }
    void SetCurrentFrame(int frame)
    {
        fixture.manager->SetCurrentFrame(frame);
        fixture.ForgetCalls();
    }
    QStringList TakeCalls() { return fixture.host.TakeCalls(); }

    /// Has the host act in the next callback that is written down as @p line, once.
    void When(const QString& line, const std::function<void()>& act)
    {
        fixture.host.reaction = [this, line, act](const QString& called) {
            if (called != line)
                return;
            fixture.host.reaction = nullptr;
            act();
        };
    }

    HostFixture fixture;
    Pointer pointer;
    CTimelineTrackBase* root = nullptr;
    QPointer<CTimelineTrackBase> row;
    CTimelineTrackBase* other = nullptr;
};

using Indexes = std::vector<int>;
using FrameRange = QPair<int, int>;

// Rows that differ in what can be done by dragging.
constexpr std::initializer_list<TLEditType> kSelectOnly = {TL_EDIT_COPY, TL_EDIT_PASTE};
constexpr std::initializer_list<TLEditType> kDragKeys = {TL_EDIT_MOVE_KEYS, TL_EDIT_COPY};
constexpr std::initializer_list<TLEditType> kKeepRange = {TL_EDIT_MOVE_KEYS, TL_EDIT_TIME_RANGE};

constexpr FrameRange kNoRange(-1, -1);

} // namespace KestovaTest
