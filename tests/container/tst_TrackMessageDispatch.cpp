#include "TestTracks.h"
#include "container/CTimelineContainer.h"
#include "container/CTimelineContainerInterface.h"
#include "container/TrackMessageDispatch.h"
#include "library/TimelineLibrary.h"
#include "model/TimelineKeyValues.h"
#include "support/HostFixture.h"
#include "support/PaintCounter.h"

#include <functional>
#include <random>

using namespace KestovaTest;

namespace {

QString Text(const QVariant& value)
{
    return value.toString();
}

/// Writes down what the container sends, values and handle included.
class RecordingOwner : public CTimelineContainerInterface
{
public:
    QStringList sent;
    int editAnswer = 7;
    std::function<void()> reaction; ///< called after a message was written down

    int OnContainerMessage(unsigned int code, CTimelineTrackBase* track, HANDLE handle,
                           QVariant value1, QVariant value2, QVariant value3) override
    {
        sent << QStringLiteral("%1 %2 #%3 (%4,%5,%6)")
                    .arg(code)
                    .arg(track ? track->GetCaption() : "-")
                    .arg(reinterpret_cast<qintptr>(handle))
                    .arg(Text(value1), Text(value2), Text(value3));
        if (reaction)
            reaction();
        return 0;
    }

    int OnContainerTrackEdit(TLEditType type, const VZ::CArrayList<CTimelineTrackBase*>& tracks,
                             QVariant value1, QVariant value2) override
    {
        QStringList names;
        for (const CTimelineTrackBase* track : tracks)
            names << track->GetCaption();
        sent << QStringLiteral("edit %1 [%2] (%3,%4)")
                    .arg(int(type))
                    .arg(names.join(','), Text(value1), Text(value2));
        return editAnswer;
    }

    bool OnContainerDrop(TLDropFileType, QString) override { return false; }
};

/// When the container is painted because of a message.
enum class Repaint
{
    None,
    Later,
    AtOnce
};

class Token : public CReltedGroupBase
{
};

VZ::CPointer<CReltedGroupBase> NewGroup()
{
    return VZ::CPointer<CReltedGroupBase>(new Token);
}

/// The rule by itself: each key of the sender in turn, and for each every key of every track.
void FollowGroupsKeyByKey(const std::vector<CTimelineTrackBase*>& tracks,
                          CTimelineTrackBase& sender)
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

/// The selected keys of each track, by index, as its keys and as its selection list have them.
QStringList SelectionsOf(const std::vector<CTimelineTrackBase*>& tracks)
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

} // namespace

Q_DECLARE_METATYPE(Repaint)

class tst_TrackMessageDispatch : public QObject
{
    Q_OBJECT

    std::unique_ptr<HostFixture> m_fixture;
    RecordingOwner m_owner;
    CTimelineTrackBase* m_root = nullptr;
    CTimelineTrackBase* m_track = nullptr;

    CTimelineContainer& Container() const { return *m_fixture->Container(); }

    int Send(int code) { return Send(code, m_track); }
    int Send(int code, CTimelineTrackBase* track)
    {
        return DispatchTrackMessage(
            Container(), {code, track, 5, QVariant("one"), QVariant("two"), QVariant("three")});
    }

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
        m_owner.sent.clear();
        m_owner.reaction = nullptr;
        Container().SetOwnerInterface(&m_owner);
        Container().SetCurrentFrame(42);
        m_fixture->ForgetCalls();
    }
    void cleanup()
    {
        // They refer to variables of the test that is over.
        m_owner.reaction = nullptr;
        m_fixture->Window().reaction = nullptr;
        m_fixture.reset();
    }

    void aCodeIsTranslated_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<int>("result");
        QTest::addColumn<QStringList>("sent");
        QTest::addColumn<Repaint>("repaint");
        const QString values = " a #5 (one,two,three)";
        const QString framed = " a #5 (42,two,three)";
        const QString nothing = " [a] (0,0)";
        const QString edited = " [a] (two,three)";
        QTest::newRow("1101") << 1101 << 0 << QStringList{} << Repaint::Later;
        QTest::newRow("1102") << 1102 << 0 << QStringList{"1313" + values} << Repaint::Later;
        QTest::newRow("1103") << 1103 << 0 << QStringList{"1312 - #0 (0,0,0)"} << Repaint::Later;
        QTest::newRow("1104 replaces the first value by the current frame")
            << 1104 << 0 << QStringList{"1301" + framed} << Repaint::AtOnce;
        QTest::newRow("1105 likewise")
            << 1105 << 0 << QStringList{"1302" + framed} << Repaint::AtOnce;
        QTest::newRow("1106") << 1106 << 0 << QStringList{"1303" + values} << Repaint::Later;
        QTest::newRow("1107") << 1107 << 0 << QStringList{"1304" + values} << Repaint::Later;
        QTest::newRow("1115") << 1115 << 0 << QStringList{"1307" + values} << Repaint::None;
        QTest::newRow("1117") << 1117 << 0 << QStringList{"1311" + values} << Repaint::None;
        QTest::newRow("1201") << 1201 << 0 << QStringList{} << Repaint::Later;
        QTest::newRow("1202") << 1202 << 0 << QStringList{} << Repaint::Later;
        for (const int code : {1203, 1206, 1209})
            QTest::addRow("%d answers what the host answers", code)
                << code << 7 << QStringList{"edit 0" + nothing} << Repaint::None;
        QTest::newRow("1204") << 1204 << 0 << QStringList{"edit 3" + edited} << Repaint::None;
        QTest::newRow("1205 makes exactly two edits")
            << 1205 << 0 << QStringList{"edit 7" + edited, "edit 1" + nothing} << Repaint::None;
        QTest::newRow("1207") << 1207 << 0 << QStringList{"edit 4" + edited} << Repaint::None;
        QTest::newRow("1208") << 1208 << 0 << QStringList{"edit 8" + edited, "edit 1" + nothing}
                              << Repaint::None;
        QTest::newRow("1210") << 1210 << 0 << QStringList{"edit 5" + edited} << Repaint::None;
        QTest::newRow("1211") << 1211 << 0 << QStringList{"edit 9" + edited, "edit 1" + nothing}
                              << Repaint::None;
        QTest::newRow("1212 answers loop") << 1212 << 3 << QStringList{} << Repaint::None;
        QTest::newRow("1213") << 1213 << 0 << QStringList{"1308" + values} << Repaint::None;
        QTest::newRow("1214") << 1214 << 0 << QStringList{} << Repaint::Later;
        for (const int code : {0, -1, 1100, 1118, 1150, 1200, 1215, 1301, 9999})
            QTest::addRow("%d is none", code) << code << -1 << QStringList{} << Repaint::None;
    }
    void aCodeIsTranslated()
    {
        QFETCH(int, code);
        QFETCH(QStringList, sent);
        QFETCH(Repaint, repaint);
        Container().SetCurrentFrame(41);
        m_fixture->Settle();
        // As a track writes it before it reports: on screen is still the frame before.
        TimelineLibrary::Instance().axis.currentFrame = 42;
        PaintCounter counter(Container());
        QTEST(Send(code), "result");
        QCOMPARE(m_owner.sent, sent);
        QCOMPARE(counter.paints, repaint == Repaint::AtOnce ? 1 : 0);
        m_fixture->Settle();
        QCOMPARE(counter.paints > 0, repaint != Repaint::None);
    }

    void movedRowsAreRepaintedThoughThereAreNone()
    {
        Container().DeleteAllTrack(m_fixture->manager->GetParentWidget());
        m_fixture->Settle();
        PaintCounter counter(Container());
        QCOMPARE(Send(1202), 0);
        QCOMPARE(counter.paints, 0);
        m_fixture->Settle();
        QCOMPARE(counter.paints, 1);
    }

    void withoutAnOwnerEveryCodeIsRefusedAndChangesNothing()
    {
        Container().SetOwnerInterface(nullptr);
        m_track->Keys().Add(VZ::CPointer<CTimelineKey>(new CTimelineKey), false);
        m_track->Keys().SetSelectionByIndex(0, 0, true, TL_KEY_ANY_KIND);
        for (const int code : {1101, 1102, 1103, 1104, 1108, 1202, 1203, 1205, 1212})
            QCOMPARE(Send(code, m_root), -1);
        QCOMPARE(m_track->Keys().SelGetSize(), std::size_t(1));
        QVERIFY(!m_root->IsActive());
        QCOMPARE(m_fixture->Window().calls, QStringList());
    }

    void theSpeedStateAnswersSpeed()
    {
        Container().SetLoopSpeedState(true);
        QCOMPARE(Send(1212), 4);
        Container().SetLoopSpeedState(false);
        QCOMPARE(Send(1212), 3);
    }

    void theMenusListGoesOnAsHandle()
    {
        int list = 0;
        const QVariant address = QVariant::fromValue<void*>(&list);
        DispatchTrackMessage(Container(), {1116, m_track, 5, address, QVariant(0), QVariant(0)});
        QCOMPARE(m_owner.sent.size(), 1);
        QVERIFY(m_owner.sent.front().startsWith(
            QStringLiteral("1310 a #%1 ").arg(reinterpret_cast<qintptr>(&list))));
    }

    void aPressedTrackIsActivated()
    {
        QCOMPARE(Send(1108), 0);
        QVERIFY(m_track->IsActive());
        QVERIFY(m_root->IsActive());
        const auto child = reinterpret_cast<qintptr>(static_cast<void*>(m_track));
        QCOMPARE(m_owner.sent.last(), QStringLiteral("1305 root #%1 (0,0,0)").arg(child));
        // And once more, when it is active already.
        m_owner.sent.clear();
        QCOMPARE(Send(1108), 0);
        QCOMPARE(m_owner.sent, QStringList{QStringLiteral("1306 root #%1 (0,0,0)").arg(child)});
    }

    void theHostHearsOfAMovedTimeMarkBeforeTheContainerIsUpdated_data()
    {
        QTest::addColumn<int>("code");
        QTest::newRow("moved") << 1106;
        QTest::newRow("set") << 1107;
    }
    void theHostHearsOfAMovedTimeMarkBeforeTheContainerIsUpdated()
    {
        QFETCH(int, code);
        m_fixture->Settle();
        PaintCounter counter(Container());
        int paintsBeforeTheUpdate = -1;
        m_owner.reaction = [&] {
            m_fixture->Settle();
            paintsBeforeTheUpdate = counter.paints;
        };
        Send(code);
        QCOMPARE(paintsBeforeTheUpdate, 0);
        m_fixture->Settle();
        QCOMPARE(counter.paints, 1);
    }

    void aClearedSelectionSparesTheSender()
    {
        CTimelineTrackBase* const b = Child("b");
        for (CTimelineTrackBase* track : {m_track, b}) {
            AddKeysTo(*track, {4});
            track->Keys().SetSelectionByIndex(0, 0, true, TL_KEY_ANY_KIND);
        }
        Send(1103);
        QCOMPARE(m_track->Keys().SelGetSize(), std::size_t(1));
        QCOMPARE(b->Keys().SelGetSize(), std::size_t(0));
    }

    void aChangedSelectionTellsTheWindowBeforeTheHost()
    {
        QStringList order;
        m_fixture->Window().reaction = [&](const QString& call) { order << call; };
        m_owner.reaction = [&] { order << m_owner.sent.last().section(' ', 0, 0); };
        Send(1102);
        QCOMPARE(order, (QStringList{"refreshed", "1313"}));
    }

    void keysOfOneGroupFollowInEveryShownTrack()
    {
        CTimelineTrackBase* const b = Child("b");
        const VZ::CPointer<CReltedGroupBase> group = NewGroup();
        for (CTimelineTrackBase* track : {m_track, b, m_root}) {
            AddKeysTo(*track, {4, 8});
            track->Keys().GetAt(1)->group = group;
        }
        m_track->Keys().SetSelectionByIndex(0, 1, true, TL_KEY_ANY_KIND);
        Send(1102);
        for (CTimelineTrackBase* track : {b, m_root}) {
            QVERIFY(!track->Keys().GetAt(0)->selected);
            QVERIFY(track->Keys().GetAt(1)->selected);
        }
        m_track->Keys().ClearAllSelection();
        Send(1102);
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
        Send(1102);
        QCOMPARE(m_track->Keys().GetAt(0)->selected, first);
        QCOMPARE(m_track->Keys().GetAt(1)->selected, first);
        QCOMPARE(b->Keys().GetAt(0)->selected, first);
    }

    void groupsFollowAsIfEveryKeyWereComparedWithEveryOther()
    {
        const std::vector<CTimelineTrackBase*> tracks{m_root, m_track, Child("b"), Child("c")};
        std::mt19937 random(38);
        const auto below = [&random](unsigned int n) { return static_cast<int>(random() % n); };
        for (int round = 0; round < 200; ++round) {
            const VZ::CPointer<CReltedGroupBase> groups[] = {NewGroup(), NewGroup(), NewGroup()};
            for (CTimelineTrackBase* const track : tracks) {
                track->Keys().RemoveAll();
                for (int i = below(12); i > 0; --i)
                    AddKeysTo(*track, {below(60)});
                for (const auto& key : track->Keys().Keys()) {
                    if (below(4) > 0)
                        key->group = groups[below(3)];
                }
            }
            // The selection, and then locks, which keep what is selected as it is.
            std::vector<std::vector<int>> selected;
            for (CTimelineTrackBase* const track : tracks) {
                selected.emplace_back();
                for (int i = 0; i < static_cast<int>(track->Keys().GetSize()); ++i) {
                    if (below(2) == 0)
                        selected.back().push_back(i);
                }
            }
            std::vector<std::vector<int>> locked;
            for (CTimelineTrackBase* const track : tracks) {
                locked.emplace_back();
                for (int i = 0; i < static_cast<int>(track->Keys().GetSize()); ++i) {
                    if (below(4) == 0)
                        locked.back().push_back(i);
                }
            }
            const auto prepare = [&] {
                for (std::size_t t = 0; t < tracks.size(); ++t) {
                    CTimelineKeyArray& keys = tracks[t]->Keys();
                    for (const auto& key : keys.Keys())
                        key->lockState = TL_KEY_UNLOCKED;
                    keys.ClearAllSelection();
                    for (const int i : selected[t])
                        keys.SetSelectionByIndex(i, i, true, TL_KEY_ANY_KIND);
                    for (const int i : locked[t])
                        keys.GetAt(i)->lockState = TL_KEY_LOCKED;
                }
            };
            prepare();
            FollowGroupsKeyByKey(tracks, *m_track);
            const QStringList wanted = SelectionsOf(tracks);
            prepare();
            Send(1102);
            QCOMPARE(SelectionsOf(tracks), wanted);
        }
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
        Send(1102);
        QVERIFY(!b->Keys().GetAt(0)->selected);
        QVERIFY(b->Keys().GetAt(1)->selected);
        QCOMPARE(c->Keys().SelGetSize(), std::size_t(0));
        QCOMPARE(d->Keys().SelGetSize(), std::size_t(0));
    }
};

QTEST_MAIN(tst_TrackMessageDispatch)
#include "tst_TrackMessageDispatch.moc"
