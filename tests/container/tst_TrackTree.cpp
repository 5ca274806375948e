#include "TestTracks.h"
#include "container/TrackTree.h"

using namespace KestovaTest;

namespace {

QString Names(const std::vector<CTimelineTrackBase*>& tracks)
{
    QStringList names;
    for (const CTimelineTrackBase* track : tracks)
        names << track->GetCaption();
    return names.join(QLatin1Char(' '));
}

QString Names(const VZ::CArrayList<CTimelineTrackBase*>& tracks)
{
    return Names(std::vector<CTimelineTrackBase*>(tracks.begin(), tracks.end()));
}

constexpr std::size_t kLast = 0xFFFFFFFFu;

} // namespace

/// Trees are written as their rows: roots "a", "b", children "a1", "a2" under "a".
class tst_TrackTree : public QObject
{
    Q_OBJECT

    std::vector<std::unique_ptr<CTimelineTrackBase>> m_tracks;
    std::unique_ptr<TrackTree> m_tree;

    CTimelineTrackBase* Track(const QString& name, TL_TRACK_TYPE type = TL_TRACK_KEY)
    {
        m_tracks.emplace_back(MakeTrack(type, name, kNoStyle));
        return m_tracks.back().get();
    }

    CTimelineTrackBase* Root(const QString& name, TL_TRACK_TYPE type = TL_TRACK_KEY)
    {
        CTimelineTrackBase* const root = Track(name, type);
        m_tree->InsertRoot(root, kLast);
        return root;
    }

    CTimelineTrackBase* Child(CTimelineTrackBase* root, const QString& name,
                              TL_TRACK_TYPE type = TL_TRACK_KEY)
    {
        CTimelineTrackBase* const child = Track(name, type);
        m_tree->InsertChild(*m_tree->FindRoot(root), child, kLast);
        return child;
    }

    QString RootNames() const
    {
        std::vector<CTimelineTrackBase*> roots;
        for (const auto& record : m_tree->Records())
            roots.push_back(record->root);
        return Names(roots);
    }

    static void Select(CTimelineTrackBase* track)
    {
        if (track->Keys().GetSize() == 0)
            AddKeysTo(*track, {3});
        track->Keys().SetSelectionByIndex(0, 0, true, 0xFFFFFFFFu);
    }

    QString SelectedTracks(const QString& before = QString())
    {
        VZ::CArrayList<CTimelineTrackBase*> tracks;
        if (!before.isEmpty())
            tracks.Add(Track(before));
        m_tree->CollectSelectedKeyTracks(tracks);
        return Names(tracks);
    }

private slots:
    void init() { m_tree = std::make_unique<TrackTree>(); }

    void cleanup()
    {
        m_tree.reset();
        m_tracks.clear();
    }

    // ---- Order ----

    void insertsARootWhereAsked_data()
    {
        QTest::addColumn<unsigned int>("index");
        QTest::addColumn<QString>("roots");
        QTest::newRow("at the top") << 0u << "x a b";
        QTest::newRow("between") << 1u << "a x b";
        QTest::newRow("an index equal to the count appends") << 2u << "a b x";
        QTest::newRow("an index larger than the count appends") << 3u << "a b x";
        QTest::newRow("the largest index appends") << 0xFFFFFFFFu << "a b x";
    }
    void insertsARootWhereAsked()
    {
        QFETCH(unsigned int, index);
        Root("a");
        Root("b");
        m_tree->InsertRoot(Track("x"), index);
        QTEST(RootNames(), "roots");
    }

    void insertsAChildWhereAsked_data()
    {
        QTest::addColumn<unsigned int>("index");
        QTest::addColumn<QString>("children");
        QTest::newRow("at the top") << 0u << "x a1 a2";
        QTest::newRow("between") << 1u << "a1 x a2";
        QTest::newRow("an index equal to the count appends") << 2u << "a1 a2 x";
        QTest::newRow("an index larger than the count appends") << 7u << "a1 a2 x";
    }
    void insertsAChildWhereAsked()
    {
        QFETCH(unsigned int, index);
        CTimelineTrackBase* const a = Root("a");
        Child(a, "a1");
        Child(a, "a2");
        m_tree->InsertChild(*m_tree->FindRoot(a), Track("x"), index);
        QTEST(Names(m_tree->FindRoot(a)->children), "children");
    }

    void movesARootWithinTheShortenedList_data()
    {
        QTest::addColumn<QString>("moved");
        QTest::addColumn<unsigned int>("index");
        QTest::addColumn<QString>("roots");
        QTest::newRow("index 0 moves it to the top") << "c" << 0u << "c a b";
        QTest::newRow("beyond the end moves it to the bottom") << "a" << 9u << "b c a";
        QTest::newRow("down by one") << "a" << 1u << "b a c";
        QTest::newRow("the shortened count appends") << "a" << 2u << "b c a";
        QTest::newRow("its own place") << "b" << 1u << "a b c";
    }
    void movesARootWithinTheShortenedList()
    {
        QFETCH(QString, moved);
        QFETCH(unsigned int, index);
        for (const char* name : {"a", "b", "c"}) {
            CTimelineTrackBase* const root = Root(name);
            Child(root, QString(name) + "1");
        }
        for (const auto& record : m_tree->Records()) {
            if (record->root->GetCaption() == moved) {
                m_tree->MoveRoot(record->root, index);
                break;
            }
        }
        QTEST(RootNames(), "roots");
        for (const auto& record : m_tree->Records())
            QCOMPARE(Names(record->children), record->root->GetCaption() + "1");
    }

    void movesAChildAmongItsSiblings_data()
    {
        QTest::addColumn<int>("moved");
        QTest::addColumn<unsigned int>("index");
        QTest::addColumn<QString>("children");
        QTest::newRow("to the top") << 2 << 0u << "a3 a1 a2";
        QTest::newRow("beyond the end") << 0 << 100u << "a2 a3 a1";
        QTest::newRow("down by one") << 0 << 1u << "a2 a1 a3";
    }
    void movesAChildAmongItsSiblings()
    {
        QFETCH(int, moved);
        QFETCH(unsigned int, index);
        CTimelineTrackBase* const a = Root("a");
        const std::vector<CTimelineTrackBase*> children{Child(a, "a1"), Child(a, "a2"),
                                                        Child(a, "a3")};
        m_tree->MoveChild(children[static_cast<std::size_t>(moved)], index);
        QTEST(Names(m_tree->FindRoot(a)->children), "children");
    }

    void movingAnUnknownTrackChangesNothing()
    {
        CTimelineTrackBase* const a = Root("a");
        Child(a, "a1");
        CTimelineTrackBase* const stranger = Track("x");
        m_tree->MoveRoot(stranger, 0);
        m_tree->MoveChild(stranger, 0);
        QCOMPARE(Names(m_tree->AllTracks()), QString("a a1"));
    }

    void tellsPlacesAmongRootsAndChildren()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const b = Root("b");
        CTimelineTrackBase* const b1 = Child(b, "b1");
        CTimelineTrackBase* const b2 = Child(b, "b2");
        QCOMPARE(m_tree->RootIndex(a), 0);
        QCOMPARE(m_tree->RootIndex(b), 1);
        QCOMPARE(m_tree->RootIndex(b1), -1);
        QCOMPARE(m_tree->ChildIndex(b1), 0);
        QCOMPARE(m_tree->ChildIndex(b2), 1);
        QCOMPARE(m_tree->ChildIndex(b), -1);
        CTimelineTrackBase* const stranger = Track("x");
        QCOMPARE(m_tree->RootIndex(stranger), -1);
        QCOMPARE(m_tree->ChildIndex(stranger), -1);
        QVERIFY(m_tree->Contains(b));
        QVERIFY(m_tree->Contains(b2));
        QVERIFY(!m_tree->Contains(stranger));
    }

    void removingAChildLeavesTheOthersInOrder()
    {
        CTimelineTrackBase* const a = Root("a");
        Child(a, "a1");
        CTimelineTrackBase* const a2 = Child(a, "a2");
        Child(a, "a3");
        m_tree->RemoveChild(a2);
        QCOMPARE(Names(m_tree->AllTracks()), QString("a a1 a3"));
    }

    void removingARootTakesItsRecordAway()
    {
        CTimelineTrackBase* const a = Root("a");
        Child(a, "a1");
        Root("b");
        m_tree->RemoveRoot(a);
        QCOMPARE(Names(m_tree->AllTracks()), QString("b"));
    }

    // ---- Rows ----

    void aRootWithoutChildrenIsARow()
    {
        Root("a");
        Root("b");
        QCOMPARE(Names(m_tree->Rows()), QString("a b"));
    }

    void aRootWithChildrenIsNoRowButItsChildrenAre()
    {
        CTimelineTrackBase* const a = Root("a");
        Root("b");
        CTimelineTrackBase* const c = Root("c");
        Child(c, "c1");
        Child(a, "a1");
        Child(a, "a2");
        QCOMPARE(Names(m_tree->Rows()), QString("a1 a2 b c1"));
        QCOMPARE(Names(m_tree->AllTracks()), QString("a a1 a2 b c c1"));
    }

    void aRootBecomesARowAgainWithoutItsLastChild()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        m_tree->RemoveChild(a1);
        QCOMPARE(Names(m_tree->Rows()), QString("a"));
    }

    // ---- Activity ----

    void theActiveRootIsTheFirstActiveOne()
    {
        Root("a");
        CTimelineTrackBase* const b = Root("b");
        CTimelineTrackBase* const c = Root("c");
        QCOMPARE(m_tree->ActiveRoot(), nullptr);
        c->SetActive(true);
        QCOMPARE(m_tree->ActiveRoot(), c);
        b->SetActive(true);
        QCOMPARE(m_tree->ActiveRoot(), b);
    }

    void theActiveChildIsTheLastActiveOneOfTheActiveRoot()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        CTimelineTrackBase* const a2 = Child(a, "a2");
        Child(a, "a3");
        a1->SetActive(true);
        a2->SetActive(true);
        QCOMPARE(m_tree->ActiveChild(), nullptr);
        a->SetActive(true);
        QCOMPARE(m_tree->ActiveChild(), a2);
    }

    void theActiveChildIsSearchedInLaterActiveRootsWhenTheFirstHasNone()
    {
        CTimelineTrackBase* const a = Root("a");
        Child(a, "a1");
        CTimelineTrackBase* const b = Root("b");
        CTimelineTrackBase* const b1 = Child(b, "b1");
        CTimelineTrackBase* const c = Root("c");
        CTimelineTrackBase* const c1 = Child(c, "c1");
        a->SetActive(true);
        c->SetActive(true);
        b1->SetActive(true); // under a root that is not active
        QCOMPARE(m_tree->ActiveChild(), nullptr);
        c1->SetActive(true);
        QCOMPARE(m_tree->ActiveChild(), c1);
    }

    // ---- Kinds ----

    void theLipsTrackIsFoundOnlyAsAChild()
    {
        Root("a", TL_TRACK_VISEME_KEY);
        QCOMPARE(m_tree->LipsTrack(), nullptr);
        CTimelineTrackBase* const b = Root("b");
        CTimelineTrackBase* const lips = Child(b, "b1", TL_TRACK_VISEME_KEY);
        QCOMPARE(m_tree->LipsTrack(), lips);
    }

    void ofTwoLipsChildrenUnderOneRootTheLaterIsReturned()
    {
        CTimelineTrackBase* const a = Root("a");
        Child(a, "a1", TL_TRACK_VISEME_KEY);
        CTimelineTrackBase* const later = Child(a, "a2", TL_TRACK_VISEME_KEY);
        Child(a, "a3");
        CTimelineTrackBase* const b = Root("b");
        Child(b, "b1", TL_TRACK_VISEME_KEY);
        QCOMPARE(m_tree->LipsTrack(), later);
    }

    void theWaveTrackIsTheFirstOfTheLastRootThatHasOne()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1", TL_TRACK_WAVE);
        Child(a, "a2", TL_TRACK_WAVE);
        QCOMPARE(m_tree->WaveTrack(), a1);
        CTimelineTrackBase* const b = Root("b");
        Child(b, "b1");
        CTimelineTrackBase* const b2 = Child(b, "b2", TL_TRACK_WAVE);
        Child(b, "b3", TL_TRACK_WAVE);
        Root("c", TL_TRACK_WAVE);
        QCOMPARE(m_tree->WaveTrack(), b2);
    }

    // ---- Tracks with selected keys ----

    void tracksWithSelectedKeysAreAppendedInOrder()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        Child(a, "a2");
        CTimelineTrackBase* const b = Root("b");
        CTimelineTrackBase* const b1 = Child(b, "b1");
        Select(b1);
        Select(a1);
        QCOMPARE(SelectedTracks("before"), QString("before a1 b1"));
    }

    void rootTracksAreNeverLookedAt()
    {
        Select(Root("a"));
        CTimelineTrackBase* const b = Root("b");
        Select(b);
        Child(b, "b1");
        QCOMPARE(SelectedTracks(), QString());
    }

    void anInactiveSubKeyEditingTrackCountsLikeAnyOther()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        CTimelineTrackBase* const a2 = Child(a, "a2");
        Select(a1);
        Select(a2);
        SetModes(*a1, {TL_EDIT_SUB_KEYS});
        QCOMPARE(SelectedTracks(), QString("a1 a2"));
    }

    void anActiveTrackWithoutSubKeyEditingCountsLikeAnyOther()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        SetModes(*a1, {TL_EDIT_MOVE_KEYS});
        a1->SetActive(true);
        Select(a1);
        QCOMPARE(SelectedTracks(), QString("a1"));
    }

    void anActiveSubKeyEditingTrackEmptiesTheListAndEndsTheSearch_data()
    {
        QTest::addColumn<int>("clips");
        QTest::addColumn<bool>("hasSubKeys");
        QTest::addColumn<bool>("subKeySelected");
        QTest::addColumn<QString>("tracks");
        QTest::newRow("one clip with selected sub-keys stands alone") << 1 << true << true << "a2";
        QTest::newRow("one clip without selected sub-keys") << 1 << true << false << "";
        QTest::newRow("one clip without sub-keys") << 1 << false << false << "";
        QTest::newRow("no clip selected") << 0 << true << true << "";
        QTest::newRow("two clips selected") << 2 << true << true << "";
    }
    void anActiveSubKeyEditingTrackEmptiesTheListAndEndsTheSearch()
    {
        QFETCH(int, clips);
        QFETCH(bool, hasSubKeys);
        QFETCH(bool, subKeySelected);
        CTimelineTrackBase* const a = Root("a");
        Select(Child(a, "a1"));
        CTimelineTrackBase* const a2 = Child(a, "a2");
        Select(Child(a, "a3"));
        SetModes(*a2, {TL_EDIT_SUB_KEYS});
        a2->SetActive(true);
        AddKeysTo(*a2, {10, 20});
        if (hasSubKeys)
            AddSubKeys(*a2, 0, {1, 2});
        if (subKeySelected)
            a2->Keys().GetAt(0)->subKeys->SetSelectionByIndex(0, 0, true, 0xFFFFFFFFu);
        if (clips > 0)
            a2->Keys().SetSelectionByIndex(0, clips - 1, true, 0xFFFFFFFFu);
        QTEST(SelectedTracks("before"), "tracks");
    }
};

QTEST_MAIN(tst_TrackTree)
#include "tst_TrackTree.moc"
