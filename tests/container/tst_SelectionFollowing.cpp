// Which selections follow the one of a track that reports a change: tracks that share it, and keys
// of one group.

#include "TestTracks.h"
#include "container/CTimelineContainer.h"
#include "container/SelectionFollowing.h"
#include "library/TimelineLibrary.h"
#include "model/TimelineKeyValues.h"
#include "support/HostFixture.h"

#include <algorithm>
#include <ctime>
#include <random>

using namespace KestovaTest;

namespace {

constexpr int kCases = 1500;

class Token : public CReltedGroupBase
{
};

VZ::CPointer<CReltedGroupBase> NewGroup()
{
    return VZ::CPointer<CReltedGroupBase>(new Token);
}

using Tracks = std::vector<CTimelineTrackBase*>;

/// The rule for groups by itself: each key of the sender in turn, and for each every key of every
/// track.
void FollowGroupsKeyByKey(const Tracks& tracks, CTimelineTrackBase& sender)
{
    for (const auto& key : sender.Keys().Keys()) {
        if (!key->group)
            continue;
        for (CTimelineTrackBase* const track : tracks) {
            const int count = static_cast<int>(track->Keys().GetSize());
            for (int i = 0; i < count; ++i) {
                if (track->Keys().GetAt(i)->group == key->group)
                    track->Keys().SetSelectionByIndex(i, i, key->selected, TL_KEY_ANY_KIND);
            }
        }
    }
}

/// The rule for tracks that share a selection.
void ShareKeyByKey(const std::vector<_tmpTLRelatedMap>& rows, CTimelineTrackBase& sender)
{
    for (const _tmpTLRelatedMap& row : rows) {
        if (row.kind != 1 ||
            std::find(row.tracks.begin(), row.tracks.end(), &sender) == row.tracks.end())
            continue;
        for (const auto& key : sender.Keys().Keys()) {
            for (CTimelineTrackBase* const other : row.tracks) {
                if (other != &sender)
                    other->Keys().SetSelection(key->frame, key->frame, key->selected,
                                               TL_KEY_ANY_KIND);
            }
        }
    }
}

/// The selected keys of each track, by index, as its keys and as its selection list have them.
QStringList SelectionsOf(const Tracks& tracks)
{
    QStringList texts;
    for (CTimelineTrackBase* const track : tracks) {
        QString text = track->GetCaption() + ':';
        for (const auto& key : track->Keys().Keys())
            text += key->selected ? '1' : '0';
        for (std::size_t i = 0; i < track->Keys().SelGetSize(); ++i)
            text += ' ' + QString::number(track->Keys().SelGetAt(static_cast<int>(i)));
        texts << text;
    }
    return texts;
}

/// What tracks hold and what is selected of it, to bring it back.
class Snapshot
{
public:
    explicit Snapshot(const Tracks& tracks) : m_tracks(tracks)
    {
        for (CTimelineTrackBase* const track : tracks) {
            m_arrays.push_back(track->Keys());
            for (const auto& key : track->Keys().Keys())
                m_flags.push_back(key->selected);
        }
    }

    void Restore() const
    {
        std::size_t flag = 0;
        for (std::size_t i = 0; i < m_tracks.size(); ++i) {
            m_tracks[i]->Keys() = m_arrays[i];
            for (const auto& key : m_arrays[i].Keys())
                key->selected = m_flags[flag++];
        }
    }

private:
    Tracks m_tracks;
    std::vector<CTimelineKeyArray> m_arrays;
    std::vector<bool> m_flags;
};

class Dice
{
public:
    explicit Dice(int number) : m_engine(static_cast<unsigned int>(number)) {}
    int Below(int count) { return static_cast<int>(m_engine() % static_cast<unsigned int>(count)); }
    bool OneIn(int chances) { return Below(chances) == 0; }

private:
    std::mt19937 m_engine;
};

/// Keys of few frames and few groups, selected and locked at random. In one case of three some keys
/// stand in two tracks, some are marked without being in the selection list or the other way round,
/// and frames were written in place.
void FillAtRandom(const Tracks& tracks, Dice& dice)
{
    const VZ::CPointer<CReltedGroupBase> groups[] = {NewGroup(), NewGroup(), NewGroup()};
    const int frames = 1 + dice.Below(40);
    const bool isMessy = dice.OneIn(3);
    const bool areFramesWritten = dice.OneIn(6);
    for (CTimelineTrackBase* const track : tracks)
        track->Keys().RemoveAll();
    for (CTimelineTrackBase* const track : tracks) {
        CTimelineKeyArray& keys = track->Keys();
        for (int i = dice.Below(14); i > 0; --i) {
            VZ::CPointer<CTimelineKey> key(new CTimelineKey);
            key->frame = dice.Below(frames);
            if (!dice.OneIn(4))
                key->group = groups[dice.Below(3)];
            keys.Add(key, false);
            if (isMessy && dice.OneIn(4))
                tracks[static_cast<std::size_t>(dice.Below(4))]->Keys().Add(key, false);
        }
    }
    for (CTimelineTrackBase* const track : tracks) {
        CTimelineKeyArray& keys = track->Keys();
        for (int i = 0; i < static_cast<int>(keys.GetSize()); ++i) {
            keys.SetSelectionByIndex(i, i, dice.OneIn(2), TL_KEY_ANY_KIND);
            if (dice.OneIn(4))
                keys.GetAt(i)->lockState = TL_KEY_LOCKED;
            if (isMessy && dice.OneIn(8))
                keys.GetAt(i)->selected = !keys.GetAt(i)->selected;
            if (isMessy && dice.OneIn(8))
                keys.SelAdd(i + dice.Below(3));
            if (areFramesWritten && dice.OneIn(8))
                keys.GetAt(i)->frame = dice.Below(frames);
        }
    }
}

} // namespace

class tst_SelectionFollowing : public QObject
{
    Q_OBJECT

    std::unique_ptr<HostFixture> m_fixture;
    CTimelineTrackBase* m_root = nullptr;
    CTimelineTrackBase* m_track = nullptr;

    void Follow() const { FollowSelection(*m_fixture->Container(), *m_track); }
    CTimelineTrackBase* Child(const QString& name)
    {
        return m_fixture->Child(m_root, TL_TRACK_KEY, name);
    }

private slots:
    void init()
    {
        m_fixture = std::make_unique<HostFixture>();
        m_root = m_fixture->Root(TL_TRACK_KEY, "root");
        m_track = Child("a");
    }
    void cleanup() { m_fixture.reset(); }

    void keysOfOneGroupFollowInEveryShownTrack()
    {
        CTimelineTrackBase* const b = Child("b");
        const VZ::CPointer<CReltedGroupBase> group = NewGroup();
        for (CTimelineTrackBase* track : {m_track, b, m_root}) {
            AddKeysTo(*track, {4, 8});
            track->Keys().GetAt(1)->group = group;
        }
        m_track->Keys().SetSelectionByIndex(0, 1, true, TL_KEY_ANY_KIND);
        Follow();
        for (CTimelineTrackBase* track : {b, m_root}) {
            QVERIFY(!track->Keys().GetAt(0)->selected);
            QVERIFY(track->Keys().GetAt(1)->selected);
        }
        m_track->Keys().ClearAllSelection();
        Follow();
        QVERIFY(!b->Keys().GetAt(1)->selected);
    }

    void ofTwoKeysOfOneGroupInTheSenderTheFirstDecides_data()
    {
        QTest::addColumn<bool>("first");
        QTest::newRow("selected") << true;
        QTest::newRow("not selected") << false;
    }
    void ofTwoKeysOfOneGroupInTheSenderTheFirstDecides()
    {
        QFETCH(bool, first);
        CTimelineTrackBase* const b = Child("b");
        const VZ::CPointer<CReltedGroupBase> group = NewGroup();
        AddKeysTo(*m_track, {4, 8});
        AddKeysTo(*b, {6});
        for (int i : {0, 1})
            m_track->Keys().GetAt(i)->group = group;
        b->Keys().GetAt(0)->group = group;
        const int selected = first ? 0 : 1;
        m_track->Keys().SetSelectionByIndex(selected, selected, true, TL_KEY_ANY_KIND);
        b->Keys().SetSelectionByIndex(0, 0, !first, TL_KEY_ANY_KIND);
        Follow();
        QCOMPARE(m_track->Keys().GetAt(0)->selected, first);
        QCOMPARE(m_track->Keys().GetAt(1)->selected, first);
        QCOMPARE(b->Keys().GetAt(0)->selected, first);
    }

    void tracksThatShareASelectionFollowTheSender()
    {
        CTimelineTrackBase* const b = Child("b");
        CTimelineTrackBase* const c = Child("c");
        CTimelineTrackBase* const d = Child("d");
        for (CTimelineTrackBase* track : {m_track, b, c, d})
            AddKeysTo(*track, {4, 8});
        // Another kind has no part in it, nor has a row that does not list the sender.
        TimelineLibrary::Instance().relations.Set(
            {{1, {b, m_track}}, {0, {m_track, c}}, {1, {c, d}}});
        m_track->Keys().SetSelectionByIndex(1, 1, true, TL_KEY_ANY_KIND);
        b->Keys().SetSelectionByIndex(0, 0, true, TL_KEY_ANY_KIND);
        Follow();
        QVERIFY(!b->Keys().GetAt(0)->selected);
        QVERIFY(b->Keys().GetAt(1)->selected);
        QCOMPARE(c->Keys().SelGetSize(), std::size_t(0));
        QCOMPARE(d->Keys().SelGetSize(), std::size_t(0));
    }

    void aHiddenSenderIsFollowedToo()
    {
        CTimelineTrackBase* const b = Child("b");
        const VZ::CPointer<CReltedGroupBase> group = NewGroup();
        AddKeysTo(*m_track, {4, 8});
        AddKeysTo(*b, {6});
        for (int i : {0, 1})
            m_track->Keys().GetAt(i)->group = group;
        b->Keys().GetAt(0)->group = group;
        m_fixture->manager->HideChildTrack(m_track, true);
        m_track->Keys().SetSelectionByIndex(1, 1, true, TL_KEY_ANY_KIND);
        Follow();
        // Its own keys do not follow each other, so that the last one decides.
        QVERIFY(!m_track->Keys().GetAt(0)->selected);
        QVERIFY(b->Keys().GetAt(0)->selected);
    }

    void groupsFollowAsIfEveryKeyWereComparedWithEveryOther_data()
    {
        QTest::addColumn<bool>("isShown");
        QTest::newRow("of a shown track") << true;
        QTest::newRow("of a hidden track") << false;
    }
    void groupsFollowAsIfEveryKeyWereComparedWithEveryOther()
    {
        QFETCH(bool, isShown);
        const Tracks all{m_root, m_track, Child("b"), Child("c")};
        Tracks shown = all;
        if (!isShown) {
            m_fixture->manager->HideChildTrack(m_track, true);
            shown.erase(shown.begin() + 1);
        }
        for (int number = 0; number < kCases; ++number) {
            Dice dice(number);
            FillAtRandom(all, dice);
            const Snapshot before(all);
            FollowGroupsKeyByKey(shown, *m_track);
            const QStringList wanted = SelectionsOf(all);
            before.Restore();
            Follow();
            QVERIFY2(SelectionsOf(all) == wanted, QByteArray::number(number));
        }
    }

    void tracksShareASelectionAsIfEveryKeyWereSelectedAlone()
    {
        const Tracks all{m_root, m_track, Child("b"), Child("c")};
        for (int number = 0; number < 2 * kCases; ++number) {
            Dice dice(number);
            FillAtRandom(all, dice);
            for (CTimelineTrackBase* const track : all) {
                for (const auto& key : track->Keys().Keys())
                    key->group = nullptr;
            }
            std::vector<_tmpTLRelatedMap> rows(static_cast<std::size_t>(1 + dice.Below(2)));
            for (_tmpTLRelatedMap& row : rows) {
                row.kind = dice.OneIn(8) ? 0 : 1;
                for (int i = 1 + dice.Below(5); i > 0; --i)
                    row.tracks.push_back(all[static_cast<std::size_t>(dice.Below(4))]);
            }
            TimelineLibrary::Instance().relations.Set(rows);
            const Snapshot before(all);
            ShareKeyByKey(rows, *m_track);
            const QStringList wanted = SelectionsOf(all);
            before.Restore();
            Follow();
            QVERIFY2(SelectionsOf(all) == wanted, QByteArray::number(number));
        }
    }
};

QTEST_MAIN(tst_SelectionFollowing)
#include "tst_SelectionFollowing.moc"
