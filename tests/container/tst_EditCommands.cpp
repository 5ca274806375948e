#include "Journal.h"
#include "TestTracks.h"
#include "container/CTimelineContainer.h"
#include "container/EditCommands.h"
#include "model/TimelineKeyValues.h"
#include "support/HostFixture.h"

using namespace KestovaTest;

class tst_EditCommands : public QObject
{
    Q_OBJECT

    std::unique_ptr<HostFixture> m_fixture;
    CTimelineTrackBase* m_root = nullptr;

    CTimelineContainer& Container() const { return *m_fixture->Container(); }

    /// A child of the given kind with keys at 10, 20 and 30 (clips of 5 frames on a clip track),
    /// the first @p selected of which are selected, and with every edit mode up to 30.
    CTimelineTrackBase* Child(TL_TRACK_TYPE type, int selected, const QString& name = "row")
    {
        CTimelineTrackBase* const track = m_fixture->Child(m_root, type, name);
        for (const int frame : {10, 20, 30}) {
            VZ::CPointer<CTimelineKey> key(new CTimelineKey);
            key->frame = frame;
            key->clipLength = type == TL_TRACK_CLIP ? 5 : 0;
            track->Keys().Add(key, false);
        }
        if (selected > 0)
            track->Keys().SetSelectionByIndex(0, selected - 1, true, TL_KEY_ANY_KIND);
        VZ::CArrayList<TLEditType> modes;
        for (int mode = 0; mode <= 30; ++mode) {
            if (mode != TL_EDIT_SUB_KEYS)
                modes.Add(static_cast<TLEditType>(mode));
        }
        track->SetEditModes(modes);
        return track;
    }

    bool Can(int type, CTimelineTrackBase* track) const
    {
        return CanDoTrackEdit(Container(), static_cast<TLEditType>(type), track);
    }

private slots:
    void init()
    {
        m_fixture = std::make_unique<HostFixture>();
        m_root = m_fixture->Root(TL_TRACK_KEY, "root");
    }
    void cleanup() { m_fixture.reset(); }

    void availability_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("trackType");
        QTest::addColumn<int>("selected");
        QTest::addColumn<int>("currentFrame");
        QTest::addColumn<bool>("can");
        const int key = TL_TRACK_KEY;
        const int clip = TL_TRACK_CLIP;
        const int lips = TL_TRACK_VISEME_KEY;
        for (const int type : {3, 4}) {
            QTest::addRow("%d on a clip", type) << type << clip << 1 << 0 << true;
            QTest::addRow("%d on two clips", type) << type << clip << 2 << 0 << false;
            QTest::addRow("%d on no clip", type) << type << clip << 0 << 0 << false;
            QTest::addRow("%d on a key", type) << type << key << 1 << 0 << false;
        }
        for (const int type : {13, 15}) {
            QTest::addRow("%d with one key", type) << type << key << 1 << 0 << true;
            QTest::addRow("%d with three keys", type) << type << key << 3 << 0 << true;
            QTest::addRow("%d with none", type) << type << key << 0 << 0 << false;
            QTest::addRow("%d on the lips track", type) << type << lips << 2 << 0 << false;
        }
        QTest::newRow("16 beside the keys") << 16 << key << 0 << 11 << true;
        QTest::newRow("16 on a key") << 16 << key << 0 << 20 << false;
        QTest::newRow("16 inside a clip is free") << 16 << clip << 0 << 12 << true;
        QTest::newRow("17 inside a clip") << 17 << clip << 1 << 12 << true;
        QTest::newRow("17 at a clip's first frame") << 17 << clip << 1 << 10 << false;
        QTest::newRow("17 at a clip's last frame") << 17 << clip << 1 << 15 << false;
        QTest::newRow("17 inside a clip that is not selected") << 17 << clip << 1 << 22 << true;
        QTest::newRow("17 between clips") << 17 << clip << 1 << 18 << false;
        QTest::newRow("17 with two selected") << 17 << clip << 2 << 12 << false;
        for (const int type : {18, 20, 27}) {
            QTest::addRow("%d with one key", type) << type << key << 1 << 0 << true;
            QTest::addRow("%d with two keys", type) << type << key << 2 << 0 << false;
            QTest::addRow("%d with none", type) << type << key << 0 << 0 << false;
        }
        for (const int type : {22, 23, 24})
            QTest::addRow("%d with keys", type) << type << key << 0 << 0 << true;
        QTest::newRow("21 by its name") << 21 << -key << 1 << 0 << true;
        QTest::newRow("21 without selection") << 21 << -key << 0 << 0 << false;
        QTest::newRow("21 with another name") << 21 << key << 1 << 0 << false;
        for (const int type : {0, 1, 2, 5, 6, 7, 8, 9, 10, 25, 26, 28, 30})
            QTest::addRow("%d is never available", type) << type << clip << 1 << 12 << false;
        QTest::newRow("19 without a range") << 19 << key << 1 << 12 << false;
        QTest::newRow("14 with an empty clipboard") << 14 << key << 1 << 12 << false;
        QTest::newRow("12 without an active child") << 12 << key << 1 << 12 << false;
    }
    void availability()
    {
        QFETCH(int, type);
        QFETCH(int, trackType);
        QFETCH(int, selected);
        QFETCH(int, currentFrame);
        CTimelineTrackBase* const track =
            Child(static_cast<TL_TRACK_TYPE>(qAbs(trackType)), selected,
                  trackType < 0 ? "An Auto Motion row" : "An auto motion row");
        m_fixture->manager->SetCurrentFrame(currentFrame);
        QTEST(Can(type, track), "can");
    }

    void subKeyEditingItselfIsNeverAvailable()
    {
        CTimelineTrackBase* const track = Child(TL_TRACK_CLIP, 1);
        SetModes(*track, {TL_EDIT_SUB_KEYS});
        AddSubKeys(*track, 0, {0, 2});
        QVERIFY(!Can(TL_EDIT_SUB_KEYS, track));
    }

    void neighboursCanBeSelectedWithAndWithoutSubKeyNavigation()
    {
        CTimelineTrackBase* const track = Child(TL_TRACK_CLIP, 0);
        SetModes(*track, {TL_EDIT_SUB_KEYS, TL_EDIT_SELECT_PREVIOUS, TL_EDIT_SELECT_NEXT});
        QVERIFY(Can(TL_EDIT_SELECT_NEXT, track));
        QVERIFY(Can(TL_EDIT_SELECT_PREVIOUS, track));
        AddSubKeys(*track, 0, {0, 2});
        QVERIFY(Can(TL_EDIT_SELECT_NEXT, track));
        QVERIFY(Can(TL_EDIT_SELECT_PREVIOUS, track));
        track->Keys().RemoveAll();
        QVERIFY(!Can(TL_EDIT_SELECT_NEXT, track));
        QVERIFY(!Can(TL_EDIT_SELECT_PREVIOUS, track));
    }

    void autoMotionIsToldByTheWholeNameInItsCapitals_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("can");
        QTest::newRow("alone") << "Auto Motion" << true;
        QTest::newRow("inside") << "My Auto Motions" << true;
        QTest::newRow("small letters") << "auto motion" << false;
        QTest::newRow("one word") << "AutoMotion" << false;
    }
    void autoMotionIsToldByTheWholeNameInItsCapitals()
    {
        QFETCH(QString, name);
        QTEST(Can(TL_EDIT_AUTO_MOTION, Child(TL_TRACK_KEY, 2, name)), "can");
    }

    void nothingIsAvailableThatTheTracksEditModesDoNotList()
    {
        CTimelineTrackBase* const track = Child(TL_TRACK_KEY, 1);
        SetModes(*track, {TL_EDIT_DELETE});
        QVERIFY(!Can(TL_EDIT_COPY, track));
        QVERIFY(Can(TL_EDIT_DELETE, track));
        SetModes(*track, {TL_EDIT_COPY});
        QVERIFY(Can(TL_EDIT_COPY, track));
        QVERIFY(!Can(TL_EDIT_DELETE, track));
    }

    void pastingNeedsSomethingOnTheClipboard()
    {
        CTimelineTrackBase* const track = Child(TL_TRACK_KEY, 1);
        QVERIFY(!Can(TL_EDIT_PASTE, track));
        track->CopySelectionToClipboard();
        QVERIFY(Can(TL_EDIT_PASTE, track));
        track->Clipboard().Reset();
        QVERIFY(!Can(TL_EDIT_PASTE, track));
    }

    void aCommandOnTheTimeRangeNeedsTwoEndsThatDiffer()
    {
        CTimelineTrackBase* const track = Child(TL_TRACK_KEY, 0);
        QVERIFY(!Can(TL_EDIT_RANGE_COMMAND, track));
        track->SetRange(7, 7);
        QVERIFY(!Can(TL_EDIT_RANGE_COMMAND, track));
        track->SetRange(7, 3);
        QVERIFY(Can(TL_EDIT_RANGE_COMMAND, track));
        track->SetRange(-1, 3);
        QVERIFY(Can(TL_EDIT_RANGE_COMMAND, track));
    }

    void cuttingFollowsTheActiveChildTrackNotTheTrackGiven()
    {
        CTimelineTrackBase* const withSelection = Child(TL_TRACK_KEY, 1, "with");
        CTimelineTrackBase* const without = Child(TL_TRACK_KEY, 0, "without");
        QVERIFY(!Can(TL_EDIT_CUT, withSelection)); // no active child at all
        Container().SetActiveChildTrack(without);
        withSelection->Keys().SetSelectionByIndex(0, 0, true, TL_KEY_ANY_KIND);
        QVERIFY(!Can(TL_EDIT_CUT, withSelection));
        Container().SetActiveChildTrack(withSelection);
        QVERIFY(Can(TL_EDIT_CUT, without));
        // But cutting must be in the list of the track that was asked about.
        SetModes(*without, {TL_EDIT_COPY, TL_EDIT_DELETE});
        QVERIFY(!Can(TL_EDIT_CUT, without));
        SetModes(*without, {TL_EDIT_CUT});
        QVERIFY(Can(TL_EDIT_CUT, without));
        // Copy and delete must both be in the active track's list.
        SetModes(*withSelection, {TL_EDIT_CUT, TL_EDIT_COPY});
        QVERIFY(!Can(TL_EDIT_CUT, without));
    }

    void aNullTrackStandsForTheActiveChild()
    {
        CTimelineTrackBase* const track = Child(TL_TRACK_KEY, 0);
        QVERIFY(!Can(TL_EDIT_SELECT_ALL, nullptr));
        Container().SetActiveChildTrack(track);
        QVERIFY(Can(TL_EDIT_SELECT_ALL, nullptr));
    }

    void withoutKeysThereIsNothingToSelect()
    {
        CTimelineTrackBase* const track = Child(TL_TRACK_KEY, 0);
        track->Keys().RemoveAll();
        for (const int type : {22, 23, 24})
            QVERIFY(!Can(type, track));
    }

    // ---- Doing ----

    void selectsAllKeysAndReportsTheChange()
    {
        CTimelineTrackBase* const track = Child(TL_TRACK_KEY, 1);
        m_fixture->ForgetCalls();
        QVERIFY(DoTrackEdit(Container(), TL_EDIT_SELECT_ALL, track));
        QCOMPARE(track->Keys().SelGetSize(), std::size_t(3));
        // Once for the selection that was cleared, once for the new one.
        QCOMPARE(m_fixture->host.calls, (QStringList{"changed", "changed"}));
    }

    void selectsTheSubKeysOfSelectedClipsOnATrackThatEditsSubKeys()
    {
        CTimelineTrackBase* const track = Child(TL_TRACK_CLIP, 0);
        SetModes(*track, {TL_EDIT_SUB_KEYS});
        AddSubKeys(*track, 0, {0, 2});
        AddSubKeys(*track, 1, {1});
        track->Keys().SetSelectionByIndex(0, 0, true, TL_KEY_ANY_KIND);
        QVERIFY(DoTrackEdit(Container(), TL_EDIT_SELECT_ALL, track));
        QCOMPARE(track->Keys().SelGetSize(), std::size_t(1));
        QCOMPARE(track->Keys().GetAt(0)->subKeys->SelGetSize(), std::size_t(2));
        QCOMPARE(track->Keys().GetAt(1)->subKeys->SelGetSize(), std::size_t(0));
    }

    void selectingAllWithoutTrackAndActiveChildAnswersTrueAndChangesNothing()
    {
        CTimelineTrackBase* const track = Child(TL_TRACK_KEY, 0);
        m_fixture->ForgetCalls();
        QVERIFY(DoTrackEdit(Container(), TL_EDIT_SELECT_ALL, nullptr));
        QCOMPARE(track->Keys().SelGetSize(), std::size_t(0));
        QCOMPARE(m_fixture->host.calls, QStringList());
    }

    void selectingAllWithoutTrackGoesToTheActiveChild()
    {
        CTimelineTrackBase* const track = Child(TL_TRACK_KEY, 0);
        Container().SetActiveChildTrack(track);
        QVERIFY(DoTrackEdit(Container(), TL_EDIT_SELECT_ALL, nullptr));
        QCOMPARE(track->Keys().SelGetSize(), std::size_t(3));
    }

    void doesSelectNextAndPreviousThoughTheEditModesDoNotListThem()
    {
        CTimelineTrackBase* const track = Child(TL_TRACK_KEY, 0);
        track->SetEditModes({});
        QVERIFY(DoTrackEdit(Container(), TL_EDIT_SELECT_NEXT, track));
        QVERIFY(track->Keys().GetAt(0)->selected);
        QVERIFY(DoTrackEdit(Container(), TL_EDIT_SELECT_PREVIOUS, track));
        QVERIFY(track->Keys().GetAt(2)->selected);
    }

    void selectingAllForgetsTheTimeRange()
    {
        CTimelineTrackBase* const track = Child(TL_TRACK_KEY, 0);
        track->SetRange(4, 9);
        QVERIFY(DoTrackEdit(Container(), TL_EDIT_SELECT_ALL, track));
        QCOMPARE(track->RangeStart(), -1);
    }

    void selectingAllPassesOverLockedKeysAndThoseBeyondTheFrames()
    {
        CTimelineTrackBase* const track = Child(TL_TRACK_KEY, 0);
        track->Keys().GetAt(1)->lockState = TL_KEY_LOCKED;
        m_fixture->AddKeys(track, {-1, 100, 101}); // 100 frames: frame 100 still counts
        QVERIFY(DoTrackEdit(Container(), TL_EDIT_SELECT_ALL, track));
        QCOMPARE(track->Keys().SelectedIndexes(), (std::vector<int>{1, 3, 4}));
    }

    void selectingAllOnAHiddenTrackTellsNobody()
    {
        CTimelineTrackBase* const track = Child(TL_TRACK_KEY, 0);
        m_fixture->manager->HideChildTrack(track, true);
        m_fixture->ForgetCalls();
        QVERIFY(DoTrackEdit(Container(), TL_EDIT_SELECT_ALL, track));
        QCOMPARE(track->Keys().SelGetSize(), std::size_t(3));
        QCOMPARE(m_fixture->host.calls, QStringList());
    }

    void selectingAllEndsWhenTheHostDoesItsWorst_data()
    {
        QTest::addColumn<int>("deed");
        QTest::addColumn<int>("line");
        for (int deed = 0; deed < HostDeedCount; ++deed) {
            for (int line = 0; line < 4; ++line)
                QTest::addRow("%s at line %d", kHostDeedNames[deed], line) << deed << line;
        }
    }
    void selectingAllEndsWhenTheHostDoesItsWorst()
    {
        QFETCH(int, deed);
        QFETCH(int, line);
        CTimelineTrackBase* const track = Child(TL_TRACK_KEY, 1);
        m_fixture->ForgetCalls();
        bool done = false;
        {
            Journal journal(*m_fixture);
            int lines = 0;
            journal.reaction = [&](const QString&) {
                if (lines++ != line)
                    return;
                done = true;
                Do(static_cast<HostDeed>(deed), *m_fixture, track, {m_root});
            };
            DoTrackEdit(Container(), TL_EDIT_SELECT_ALL, track);
        }
        QVERIFY(done);
        QVERIFY(WorksAgain(*m_fixture));
    }

    void selectingAllReportsNothingMoreOfATrackThatTheHostTookAway_data()
    {
        QTest::addColumn<int>("deed");
        QTest::newRow("deleted") << int(DeleteTheTrack);
        QTest::newRow("hidden") << int(HideTheTrack);
    }
    void selectingAllReportsNothingMoreOfATrackThatTheHostTookAway()
    {
        QFETCH(int, deed);
        CTimelineTrackBase* const track = Child(TL_TRACK_KEY, 1);
        m_fixture->ForgetCalls();
        m_fixture->host.reaction = [&](const QString&) {
            Do(static_cast<HostDeed>(deed), *m_fixture, track, {m_root});
        };
        DoTrackEdit(Container(), TL_EDIT_SELECT_ALL, track);
        m_fixture->host.reaction = nullptr;
        QCOMPARE(m_fixture->host.calls, QStringList{"changed"});
    }

    void everyOtherEditIsTheHosts_data()
    {
        QTest::addColumn<int>("type");
        for (const int type : {-1, 0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12,
                               13, 14, 15, 16, 17, 18, 19, 20, 21, 25, 26, 27, 28, 99})
            QTest::addRow("%d", type) << type;
    }
    void everyOtherEditIsTheHosts()
    {
        QFETCH(int, type);
        CTimelineTrackBase* const track = Child(TL_TRACK_KEY, 1);
        m_fixture->ForgetCalls();
        QVERIFY(!DoTrackEdit(Container(), static_cast<TLEditType>(type), track));
        QCOMPARE(track->Keys().SelGetSize(), std::size_t(1));
        QCOMPARE(track->Keys().GetSize(), std::size_t(3));
        QCOMPARE(m_fixture->host.calls, QStringList());
    }
};

QTEST_MAIN(tst_EditCommands)
#include "tst_EditCommands.moc"
