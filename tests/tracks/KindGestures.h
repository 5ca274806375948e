#pragma once

#include "ClipBuilder.h"
#include "container/CTimelineContainer.h"
#include "support/HostFixture.h"
#include "support/Pointer.h"
#include "support/TimelineFixture.h"
#include "tracks/CTimelineTrackBase.h"

#include <QLineEdit>
#include <QtTest>

namespace KestovaTest {

/// One row of a kind in the timeline of a shown window, the active child of a root, and a hand on
/// the mouse. An axis of 1000 frames, not scrolled.
template <class Track>
class RowUnderTheHand
{
public:
    explicit RowUnderTheHand(TL_TRACK_TYPE type, double pixelsPerFrame = 5.0)
        : outside(new QLineEdit), pointer(&fixture.mainWindow)
    {
        fixture.mainWindow.setCentralWidget(outside);
        root = fixture.Root(TL_TRACK_KEY, QStringLiteral("body"));
        fixture.SetEditModes(root, {});
        row = static_cast<Track*>(fixture.Child(root, type, QStringLiteral("row")));
        other = fixture.Child(root, TL_TRACK_KEY, QStringLiteral("other"));
        fixture.manager->SetActiveChildTrack(row);
        fixture.Settle();
        ResetAxis(1000, pixelsPerFrame, 0, 0);
        fixture.ForgetCalls();
    }

    QPoint At(int x) const { return QPoint(x, row->GetRowHeight() / 2); }
    void MoveTo(int x) { pointer.MoveTo(row, At(x)); }
    void Press(int x, Qt::MouseButton button = Qt::LeftButton)
    {
        pointer.Press(row, At(x), button);
    }
    void Release(Qt::MouseButton button = Qt::LeftButton) { pointer.Release(button); }
    QStringList TakeCalls() { return fixture.host.TakeCalls(); }
    CTimelineKey& Key(int index) { return *row->Keys().GetAt(index); }
    bool HasOwnCursor() const { return row->testAttribute(Qt::WA_SetCursor); }

    /// Answers the next callback that is written down as @p line, once.
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
    QLineEdit* outside; ///< something else in the window that can have the focus
    Pointer pointer;
    CTimelineTrackBase* root = nullptr;
    QPointer<Track> row;
    CTimelineTrackBase* other = nullptr;
};

} // namespace KestovaTest
