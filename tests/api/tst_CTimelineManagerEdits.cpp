#include "TimelineKeyValues.h"
#include "container/CTimelineContainer.h"
#include "container/TestTracks.h"
#include "support/HostFixture.h"

#include <QtTest>

using namespace KestovaTest;

/// The manager's operations on keys, edits and files reach the timeline and bring its answer back.
class tst_CTimelineManagerEdits : public QObject
{
    Q_OBJECT

    std::unique_ptr<HostFixture> m_fixture;
    CTimelineTrackBase* m_body = nullptr;
    CTimelineTrackBase* m_arm = nullptr;
    CTimelineTrackBase* m_leg = nullptr;

    CTimelineManager& Manager() { return *m_fixture->manager; }
    void Select(CTimelineTrackBase* track, int index)
    {
        track->Keys().SetSelectionByIndex(index, index, true, TL_KEY_ANY_KIND);
    }

private slots:
    void init()
    {
        m_fixture = std::make_unique<HostFixture>();
        m_body = m_fixture->Root(TL_TRACK_CLIP, "Body");
        m_arm = m_fixture->Child(m_body, TL_TRACK_KEY, "Arm");
        m_leg = m_fixture->Child(m_body, TL_TRACK_KEY, "Leg");
        for (CTimelineTrackBase* const track : {m_body, m_arm, m_leg})
            m_fixture->AddKeys(track, {10, 20});
        m_fixture->ForgetCalls();
    }
    void cleanup() { m_fixture.reset(); }

    void tracksWithSelectedKeysAreAppended()
    {
        VZ::CArrayList<CTimelineTrackBase*> tracks;
        Manager().GetSelectedKeyTrack(tracks);
        QCOMPARE(tracks.GetSize(), 0);
        Select(m_body, 0);
        Select(m_leg, 1);
        tracks.Add(m_arm);
        Manager().GetSelectedKeyTrack(tracks);
        // What stood there stays, and roots are never listed.
        QCOMPARE(tracks.GetSize(), 2);
        QCOMPARE(tracks[0], m_arm);
        QCOMPARE(tracks[1], m_leg);
    }

    void whetherAnEditCanBeDoneDependsOnTheTracksModes()
    {
        QVERIFY(!Manager().CanDoTrackEdit(m_arm, TL_EDIT_SELECT_ALL));
        m_fixture->SetEditModes(m_arm, {TL_EDIT_SELECT_ALL, TL_EDIT_COPY});
        QVERIFY(Manager().CanDoTrackEdit(m_arm, TL_EDIT_SELECT_ALL));
        QVERIFY(!Manager().CanDoTrackEdit(m_leg, TL_EDIT_SELECT_ALL));
        QVERIFY(!Manager().CanDoTrackEdit(nullptr, TL_EDIT_SELECT_ALL));
        Manager().SetActiveChildTrack(m_arm);
        QVERIFY(Manager().CanDoTrackEdit(nullptr, TL_EDIT_SELECT_ALL));
    }

    void anEditThatTheTimelineDoesIsDone()
    {
        QVERIFY(Manager().DoTrackEdit(m_arm, TL_EDIT_SELECT_ALL));
        QCOMPARE(m_arm->Keys().SelGetSize(), std::size_t(2));
        QVERIFY(m_fixture->host.calls.contains("changed"));
    }

    void anEditOfTheHostsIsNot()
    {
        for (const TLEditType type : {TL_EDIT_CUT, TL_EDIT_COPY, TL_EDIT_PASTE, TL_EDIT_DELETE})
            QVERIFY(!Manager().DoTrackEdit(m_arm, type));
        QVERIFY(m_fixture->host.calls.isEmpty());
    }

    void aLockedClipThatCoversTheFrameIsIdle()
    {
        const VZ::CPointer<CTimelineKey> clip = m_body->Keys().GetAt(1);
        clip->clipLength = 5;
        m_body->Keys().UpdateClipDisplayLength(1);
        QVERIFY(!Manager().CheckIdleClip(m_body, 22));
        clip->lockState = TL_KEY_LOCKED;
        QVERIFY(!Manager().CheckIdleClip(m_body, 19));
        QVERIFY(Manager().CheckIdleClip(m_body, 20));
        QVERIFY(Manager().CheckIdleClip(m_body, 20 + clip->displayLength));
        QVERIFY(!Manager().CheckIdleClip(m_body, 21 + clip->displayLength));
        QVERIFY(!Manager().CheckIdleClip(nullptr, 20));
    }

    void aLockedKeyWithoutALengthIsIdleOnItsOwnFrameOnly()
    {
        m_body->Keys().GetAt(1)->lockState = TL_KEY_LOCKED;
        QVERIFY(!Manager().CheckIdleClip(m_body, 19));
        QVERIFY(Manager().CheckIdleClip(m_body, 20));
        QVERIFY(!Manager().CheckIdleClip(m_body, 21));
    }

    void theWaveRowSaysWhetherAFrameLiesUnderItsSound()
    {
        QVERIFY(!Manager().CheckDragFileUnderVisemeClip(10));
        CTimelineTrackBase* const wave =
            MakeTrack(TL_TRACK_WAVE, "Wave", 1, m_fixture->Container());
        AddKeysTo(*wave, {30});
        m_fixture->Container()->ShowChildTrack(m_body, wave, 0, false);
        QVERIFY(!Manager().CheckDragFileUnderVisemeClip(10));
        QVERIFY(Manager().CheckDragFileUnderVisemeClip(30));
        QVERIFY(!Manager().CheckDragFileUnderVisemeClip(31));
    }

    void theDroppedFilesClipBecomesTheSelection()
    {
        Select(m_leg, 0);
        Manager().SetCurrentFrame(20);
        m_fixture->ForgetCalls();
        Manager().SetDropTrackFocusAndPickJustLoadClip(m_arm);
        QCOMPARE(Manager().GetActiveChildTrack(), m_arm);
        QVERIFY(!m_leg->Keys().GetAt(0)->selected);
        QVERIFY(!m_arm->Keys().GetAt(0)->selected);
        QVERIFY(m_arm->Keys().GetAt(1)->selected);
        QVERIFY(m_fixture->host.calls.contains("active Body Arm"));
    }

    void aFileDroppedOnARootActivatesItAndSelectsItsClip()
    {
        CTimelineTrackBase* const face = m_fixture->Root(TL_TRACK_CLIP, "Face");
        m_fixture->AddKeys(face, {20});
        Manager().SetActiveRootTrack(m_body);
        Select(m_leg, 0);
        Manager().SetCurrentFrame(20);
        m_fixture->ForgetCalls();
        Manager().SetDropTrackFocusAndPickJustLoadClip(face);
        QCOMPARE(m_fixture->host.TakeCalls(), QStringList({"cleared", "active Face -", "cleared"}));
        QCOMPARE(Manager().GetActiveRootTrack(), face);
        QVERIFY(face->Keys().GetAt(0)->selected);
        QVERIFY(!m_leg->Keys().GetAt(0)->selected);
    }
};

QTEST_MAIN(tst_CTimelineManagerEdits)
#include "tst_CTimelineManagerEdits.moc"
