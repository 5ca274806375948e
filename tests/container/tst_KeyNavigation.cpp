#include "TestTracks.h"
#include "container/CTimelineContainer.h"
#include "container/KeyNavigation.h"
#include "model/TimelineKeyValues.h"
#include "support/HostFixture.h"

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

    void withoutASelectedClipTheFirstWithSubKeysIsWalked()
    {
        SetModes(*m_track, {TL_EDIT_SUB_KEYS});
        AddSubKeys(*m_track, 0, {2, 5});
        SelectNextKey(Container(), m_track);
        QCOMPARE(Selected(*m_track->Keys().GetAt(0)->subKeys), 0);
        QCOMPARE(CurrentFrame(), 12);
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
