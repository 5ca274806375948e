#include "Journal.h"
#include "TestTracks.h"
#include "container/CTimelineContainer.h"
#include "container/KeyNavigation.h"
#include "model/TimelineKeyValues.h"
#include "support/HostFixture.h"

#include <limits>

using namespace KestovaTest;

namespace {

constexpr int kNone = -1;

} // namespace

class tst_KeyNavigation : public QObject
{
    Q_OBJECT

    std::unique_ptr<HostFixture> m_fixture;
    CTimelineTrackBase* m_track = nullptr;

    CTimelineContainer& Container() const { return *m_fixture->Container(); }
    int CurrentFrame() const { return Container().GetCurrentFrame(); }

    /// The only selected index of @p keys; -1 for none.
    static int Selected(const CTimelineKeyArray& keys)
    {
        if (keys.SelGetSize() != 1)
            return kNone;
        const int index = keys.SelGetAt(0);
        return keys.GetAt(index)->selected ? index : kNone;
    }

    void Select(int index)
    {
        m_track->Keys().SetSelectionByIndex(index, index, true, TL_KEY_ANY_KIND);
    }

    /// Puts the track into sub-key editing with its second clip selected, which stands at frame 20
    /// and has sub-keys at 0, 4 and 6 of its own. The first key has some too, which makes sub-key
    /// navigation possible.
    VZ::CPointer<CTimelineKey> ClipWithSubKeys()
    {
        SetModes(*m_track, {TL_EDIT_SUB_KEYS});
        AddSubKeys(*m_track, 0, {0, 3});
        AddSubKeys(*m_track, 1, {0, 4, 6});
        Select(1);
        return m_track->Keys().GetAt(1);
    }

private slots:
    void init()
    {
        m_fixture = std::make_unique<HostFixture>();
        CTimelineTrackBase* const root = m_fixture->Root(TL_TRACK_KEY, "root");
        m_track = m_fixture->Child(root, TL_TRACK_CLIP, "a");
        Container().SetActiveChildTrack(m_track);
        m_fixture->AddKeys(m_track, {10, 20, 30});
        m_fixture->ForgetCalls();
    }
    void cleanup()
    {
        m_fixture->host.reaction = nullptr;
        m_fixture.reset();
    }

    void theNextKeyIsTheFirstAfterTheCurrentFrame_data()
    {
        QTest::addColumn<int>("current");
        QTest::addColumn<int>("index");
        QTest::newRow("before all") << 0 << 0;
        QTest::newRow("on a key goes to the one after it") << 10 << 1;
        QTest::newRow("between") << 25 << 2;
        QTest::newRow("at the last key selects the first") << 30 << 0;
        QTest::newRow("after the last key selects the first") << 50 << 0;
    }
    void theNextKeyIsTheFirstAfterTheCurrentFrame()
    {
        QFETCH(int, current);
        QFETCH(int, index);
        Container().SetCurrentFrame(current);
        SelectNextKey(Container(), nullptr);
        QCOMPARE(Selected(m_track->Keys()), index);
        QCOMPARE(CurrentFrame(), 10 + index * 10);
    }

    void theFrameMovesBeforeTheNextKeyIsSelected()
    {
        SelectNextKey(Container(), m_track);
        QCOMPARE(m_fixture->host.calls,
                 (QStringList{"frame 10 false", "frame 10 true", "cleared", "changed"}));
    }

    void theNextKeyMayBeLocked()
    {
        m_track->Keys().GetAt(0)->lockState = 1;
        SelectNextKey(Container(), m_track);
        QCOMPARE(Selected(m_track->Keys()), 0);
    }

    void thePreviousKeyIsTheOneBeforeTheFirstSelectedOrTheCurrentFrame_data()
    {
        QTest::addColumn<int>("selected");
        QTest::addColumn<int>("current");
        QTest::addColumn<int>("index");
        QTest::newRow("the first selected goes to the last") << 0 << 15 << 2;
        QTest::newRow("the second goes to the first, whatever the frame") << 1 << 50 << 0;
        QTest::newRow("nothing selected: before the frame") << kNone << 25 << 1;
        QTest::newRow("nothing selected: a key on the frame is passed") << kNone << 20 << 0;
        QTest::newRow("nothing selected: before all goes to the last") << kNone << 5 << 2;
        QTest::newRow("nothing selected: after all") << kNone << 50 << 2;
    }
    void thePreviousKeyIsTheOneBeforeTheFirstSelectedOrTheCurrentFrame()
    {
        QFETCH(int, selected);
        QFETCH(int, current);
        QFETCH(int, index);
        Container().SetCurrentFrame(current);
        if (selected != kNone)
            Select(selected);
        SelectPreviousKey(Container(), nullptr);
        QCOMPARE(Selected(m_track->Keys()), index);
        QCOMPARE(CurrentFrame(), 10 + index * 10);
    }

    void theFrameMovesAfterThePreviousKeyWasSelected()
    {
        SelectPreviousKey(Container(), m_track);
        QCOMPARE(m_fixture->host.calls,
                 (QStringList{"cleared", "changed", "frame 30 false", "frame 30 true"}));
    }

    void lockedKeysArePassedOverBackwards()
    {
        m_track->Keys().GetAt(2)->lockState = 1;
        Select(0);
        SelectPreviousKey(Container(), m_track);
        QCOMPARE(Selected(m_track->Keys()), 1);
        m_track->Keys().GetAt(0)->lockState = 1;
        SelectPreviousKey(Container(), m_track);
        QCOMPARE(Selected(m_track->Keys()), 1); // round to itself
    }

    void withAllKeysLockedNothingHappens()
    {
        for (int i = 0; i < 3; ++i)
            m_track->Keys().GetAt(i)->lockState = 1;
        SelectPreviousKey(Container(), m_track);
        QCOMPARE(Selected(m_track->Keys()), kNone);
        QCOMPARE(m_fixture->host.calls, QStringList());
    }

    void withoutKeysNothingHappens()
    {
        m_track->Keys().RemoveAll();
        QVERIFY(!CanSelectNeighbourKey(Container(), m_track));
        SelectNextKey(Container(), m_track);
        SelectPreviousKey(Container(), m_track);
        QCOMPARE(CurrentFrame(), 0);
        QCOMPARE(m_fixture->host.calls, QStringList());
    }

    void withoutATrackNothingHappens()
    {
        Container().SetActiveRootTrack(nullptr);
        m_fixture->ForgetCalls();
        QVERIFY(!CanSelectNeighbourKey(Container(), nullptr));
        SelectNextKey(Container(), nullptr);
        SelectPreviousKey(Container(), nullptr);
        QCOMPARE(m_fixture->host.calls, QStringList());
    }

    void subKeysOfTheSelectedClipAreWalkedFromTheirClipsFrame()
    {
        SetModes(*m_track, {TL_EDIT_SUB_KEYS});
        AddSubKeys(*m_track, 0, {0, 3});
        AddSubKeys(*m_track, 1, {0, 4, 6});
        Select(1);
        Container().SetCurrentFrame(22);
        const auto clip = m_track->Keys().GetAt(1);
        SelectNextKey(Container(), m_track);
        QCOMPARE(Selected(*clip->subKeys), 1);
        QCOMPARE(CurrentFrame(), 24);
        QCOMPARE(Selected(m_track->Keys()), 1); // the clip stays selected
        SelectPreviousKey(Container(), m_track);
        QCOMPARE(Selected(*clip->subKeys), 0);
        QCOMPARE(CurrentFrame(), 20);
        SelectPreviousKey(Container(), m_track);
        QCOMPARE(Selected(*clip->subKeys), 2);
        QCOMPARE(CurrentFrame(), 26);
        SelectNextKey(Container(), m_track);
        QCOMPARE(Selected(*clip->subKeys), 0);
    }

    // ---- Sub-keys ----

    void theNextSubKeyIsTheFirstAfterTheCurrentFrame_data()
    {
        QTest::addColumn<int>("current");
        QTest::addColumn<int>("index");
        QTest::newRow("before the clip") << 0 << 0;
        QTest::newRow("on the first goes to the one after it") << 20 << 1;
        QTest::newRow("between") << 25 << 2;
        QTest::newRow("on the last selects the first") << 26 << 0;
        QTest::newRow("behind the clip selects the first") << 60 << 0;
    }
    void theNextSubKeyIsTheFirstAfterTheCurrentFrame()
    {
        QFETCH(int, current);
        QFETCH(int, index);
        const auto clip = ClipWithSubKeys();
        Container().SetCurrentFrame(current);
        SelectNextKey(Container(), m_track);
        QCOMPARE(Selected(*clip->subKeys), index);
        QCOMPARE(CurrentFrame(), 20 + clip->subKeys->GetAt(index)->frame);
        QCOMPARE(Selected(m_track->Keys()), 1); // the clip stays selected
    }

    void thePreviousSubKeyIsTheOneBeforeTheFirstSelectedOrTheCurrentFrame_data()
    {
        QTest::addColumn<int>("selected");
        QTest::addColumn<int>("current");
        QTest::addColumn<int>("index");
        QTest::newRow("the first selected goes to the last") << 0 << 25 << 2;
        QTest::newRow("the third goes to the second, whatever the frame") << 2 << 0 << 1;
        QTest::newRow("nothing selected: before the frame") << kNone << 25 << 1;
        QTest::newRow("nothing selected: a sub-key on the frame is passed") << kNone << 24 << 0;
        QTest::newRow("nothing selected: before all goes to the last") << kNone << 5 << 2;
        QTest::newRow("nothing selected: after all") << kNone << 60 << 2;
    }
    void thePreviousSubKeyIsTheOneBeforeTheFirstSelectedOrTheCurrentFrame()
    {
        QFETCH(int, selected);
        QFETCH(int, current);
        QFETCH(int, index);
        const auto clip = ClipWithSubKeys();
        if (selected != kNone)
            clip->subKeys->SetSelectionByIndex(selected, selected, true, TL_KEY_ANY_KIND);
        Container().SetCurrentFrame(current);
        SelectPreviousKey(Container(), m_track);
        QCOMPARE(Selected(*clip->subKeys), index);
        QCOMPARE(CurrentFrame(), 20 + clip->subKeys->GetAt(index)->frame);
        QCOMPARE(Selected(m_track->Keys()), 1);
    }

    void subKeysAreReportedInTheOrderOfThePlainCommands()
    {
        ClipWithSubKeys();
        Container().SetCurrentFrame(22);
        m_fixture->ForgetCalls();
        SelectNextKey(Container(), m_track);
        QCOMPARE(m_fixture->host.TakeCalls(),
                 (QStringList{"frame 24 false", "frame 24 true", "cleared", "changed"}));
        SelectPreviousKey(Container(), m_track);
        QCOMPARE(m_fixture->host.TakeCalls(),
                 (QStringList{"cleared", "changed", "frame 20 false", "frame 20 true"}));
    }

    void anEntryThatMeansNoKeyDoesNotHideTheSelectedClip_data()
    {
        QTest::addColumn<int>("entry");
        QTest::newRow("a negative one") << -1;
        QTest::newRow("one past the last key") << 7;
    }
    void anEntryThatMeansNoKeyDoesNotHideTheSelectedClip()
    {
        QFETCH(int, entry);
        const auto clip = ClipWithSubKeys();
        m_track->Keys().SelAdd(entry);
        Container().SetCurrentFrame(22);
        SelectNextKey(Container(), m_track);
        QCOMPARE(Selected(*clip->subKeys), 1);
        QCOMPARE(CurrentFrame(), 24);
    }

    void lockedSubKeysArePassedOverBackwardsOnly()
    {
        const auto clip = ClipWithSubKeys();
        clip->subKeys->GetAt(1)->lockState = TL_KEY_LOCKED;
        clip->subKeys->SetSelectionByIndex(2, 2, true, TL_KEY_ANY_KIND);
        SelectPreviousKey(Container(), m_track);
        QCOMPARE(Selected(*clip->subKeys), 0);
        SelectNextKey(Container(), m_track);
        QCOMPARE(Selected(*clip->subKeys), 1);
    }

    void withAllSubKeysLockedThereIsNoPreviousOne()
    {
        const auto clip = ClipWithSubKeys();
        for (int i = 0; i < 3; ++i)
            clip->subKeys->GetAt(i)->lockState = TL_KEY_LOCKED;
        m_fixture->ForgetCalls();
        SelectPreviousKey(Container(), m_track);
        QCOMPARE(m_fixture->host.calls, QStringList());
    }

    void ofSeveralSelectedClipsTheFirstIsWalked()
    {
        const auto clip = ClipWithSubKeys();
        AddSubKeys(*m_track, 2, {0, 1});
        Select(2);
        Container().SetCurrentFrame(0);
        SelectNextKey(Container(), m_track);
        QCOMPARE(Selected(*clip->subKeys), 0);
        QCOMPARE(m_track->Keys().GetAt(2)->subKeys->SelGetSize(), std::size_t(0));
        QCOMPARE(m_track->Keys().SelGetSize(), std::size_t(2));
    }

    void aSelectedKeyWithoutSubKeysIsNoClipToWalk()
    {
        AddSubKeys(*m_track, 0, {1});
        AddSubKeys(*m_track, 2, {0, 1});
        SetModes(*m_track, {TL_EDIT_SUB_KEYS});
        Select(1);
        Select(2);
        SelectNextKey(Container(), m_track);
        QCOMPARE(CurrentFrame(), 30);
    }

    void withoutASelectedClipTheFirstWithSubKeysIsWalked()
    {
        SetModes(*m_track, {TL_EDIT_SUB_KEYS});
        AddSubKeys(*m_track, 0, {2, 5});
        SelectNextKey(Container(), m_track);
        QCOMPARE(Selected(*m_track->Keys().GetAt(0)->subKeys), 0);
        QCOMPARE(CurrentFrame(), 12);
        QCOMPARE(m_track->Keys().SelGetSize(), std::size_t(0)); // it is not selected for that
    }

    void withoutTheEditModeOrSubKeysOfTheFirstKeyTheKeysAreWalked_data()
    {
        QTest::addColumn<bool>("mode");
        QTest::addColumn<int>("clip");
        QTest::newRow("no mode") << false << 0;
        QTest::newRow("the first key has none") << true << 1;
    }
    void withoutTheEditModeOrSubKeysOfTheFirstKeyTheKeysAreWalked()
    {
        QFETCH(bool, mode);
        QFETCH(int, clip);
        if (mode)
            SetModes(*m_track, {TL_EDIT_SUB_KEYS});
        AddSubKeys(*m_track, clip, {2, 5});
        Select(clip);
        Container().SetCurrentFrame(15);
        SelectNextKey(Container(), m_track);
        QCOMPARE(Selected(m_track->Keys()), 1);
        QCOMPARE(CurrentFrame(), 20);
        QCOMPARE(m_track->Keys().GetAt(clip)->subKeys->SelGetSize(), std::size_t(0));
    }

    void anEmptyListOfSubKeysCountsAsNone()
    {
        SetModes(*m_track, {TL_EDIT_SUB_KEYS});
        AddSubKeys(*m_track, 0, {});
        SelectNextKey(Container(), m_track);
        QCOMPARE(Selected(m_track->Keys()), 0);
    }

    void framesFarOutStayWithinTheFrames()
    {
        SetModes(*m_track, {TL_EDIT_SUB_KEYS});
        m_track->Keys().RemoveAll();
        m_fixture->AddKeys(m_track, {std::numeric_limits<int>::max() - 1});
        AddSubKeys(*m_track, 0, {7});
        SelectNextKey(Container(), m_track);
        QCOMPARE(CurrentFrame(), 99);
        m_track->Keys().RemoveAll();
        m_fixture->AddKeys(m_track, {std::numeric_limits<int>::min() + 1});
        AddSubKeys(*m_track, 0, {-7});
        SelectPreviousKey(Container(), m_track);
        QCOMPARE(CurrentFrame(), 0);
    }

    // ---- Other tracks, and a host that acts meanwhile ----

    void theOtherTracksSelectionsAreCleared()
    {
        CTimelineTrackBase* const other =
            m_fixture->Child(m_track->GetParentTrack(), TL_TRACK_KEY, "b");
        m_fixture->AddKeys(other, {1, 2});
        other->Keys().SetSelectionByIndex(0, 1, true, TL_KEY_ANY_KIND);
        SelectNextKey(Container(), m_track);
        QCOMPARE(other->Keys().SelGetSize(), std::size_t(0));
        QCOMPARE(Selected(m_track->Keys()), 0);
    }

    void severalSelectedKeysBecomeOne()
    {
        m_track->Keys().SetSelectionByIndex(1, 2, true, TL_KEY_ANY_KIND);
        SelectPreviousKey(Container(), m_track);
        QCOMPARE(Selected(m_track->Keys()), 0); // before the first selected
        m_track->Keys().SetSelectionByIndex(0, 2, true, TL_KEY_ANY_KIND);
        Container().SetCurrentFrame(25);
        SelectNextKey(Container(), m_track);
        QCOMPARE(Selected(m_track->Keys()), 2);
    }

    void aHiddenTracksKeysAreSelectedWithoutReport()
    {
        m_fixture->manager->HideChildTrack(m_track, true);
        m_fixture->ForgetCalls();
        SelectNextKey(Container(), m_track);
        QCOMPARE(Selected(m_track->Keys()), 0);
        QCOMPARE(m_fixture->host.calls, (QStringList{"frame 10 false", "frame 10 true"}));
    }

    void aClipThatTheHostTakesAwayMeanwhileIsLeftAlone_data()
    {
        QTest::addColumn<bool>("onlyItsSubKeys");
        QTest::newRow("the clip") << false;
        QTest::newRow("its sub-keys") << true;
    }
    void aClipThatTheHostTakesAwayMeanwhileIsLeftAlone()
    {
        QFETCH(bool, onlyItsSubKeys);
        const auto clip = ClipWithSubKeys();
        const auto subKeys = clip->subKeys;
        m_fixture->ForgetCalls();
        m_fixture->host.reaction = [&](const QString& call) {
            if (call != "frame 20 true")
                return;
            if (onlyItsSubKeys)
                AddSubKeys(*m_track, 1, {1});
            else
                m_track->Keys().RemoveAt(1);
        };
        SelectNextKey(Container(), m_track);
        QCOMPARE(m_fixture->host.calls, (QStringList{"frame 20 false", "frame 20 true"}));
        QCOMPARE(subKeys->SelGetSize(), std::size_t(0));
    }

    void survivesAHostThat_data()
    {
        QTest::addColumn<bool>("next");
        QTest::addColumn<int>("deed");
        QTest::addColumn<int>("line");
        for (int deed = 0; deed < HostDeedCount; ++deed) {
            for (int line = 0; line < 8; ++line) {
                QTest::addRow("next sub-key: %s at line %d", kHostDeedNames[deed], line)
                    << true << deed << line;
                QTest::addRow("previous sub-key: %s at line %d", kHostDeedNames[deed], line)
                    << false << deed << line;
            }
        }
    }
    void survivesAHostThat()
    {
        QFETCH(bool, next);
        QFETCH(int, deed);
        QFETCH(int, line);
        ClipWithSubKeys();
        bool done = false;
        {
            Journal journal(*m_fixture);
            int heard = 0;
            journal.reaction = [&](const QString&) {
                if (heard++ != line)
                    return;
                done = true;
                Do(static_cast<HostDeed>(deed), *m_fixture, m_track, {m_track->GetParentTrack()});
            };
            if (next)
                SelectNextKey(Container(), m_track);
            else
                SelectPreviousKey(Container(), m_track);
        }
        QVERIFY(done);
        QVERIFY(WorksAgain(*m_fixture));
    }

    void aHostMayRearrangeTheKeysWhileTheFrameMoves()
    {
        m_fixture->host.reaction = [this](const QString& call) {
            if (call == "frame 10 false")
                m_fixture->AddKeys(m_track, {2, 4});
        };
        SelectNextKey(Container(), m_track);
        QCOMPARE(Selected(m_track->Keys()), 2); // the key of frame 10 has moved on by two
        QCOMPARE(m_track->Keys().GetAt(2)->frame, 10);
    }

    void aHostMayDeleteTheTrackWhileTheFrameMoves()
    {
        m_fixture->host.reaction = [this](const QString& call) {
            if (call == "frame 10 true")
                m_fixture->manager->DeleteTrack(m_track);
        };
        SelectNextKey(Container(), m_track);
        QVERIFY(!m_fixture->manager->IsTrackExist(m_track));
        QTRY_VERIFY(!CTimelineTrackBase::IsAlive(m_track)); // once nothing runs in it any more
    }
};

QTEST_MAIN(tst_KeyNavigation)
#include "tst_KeyNavigation.moc"
