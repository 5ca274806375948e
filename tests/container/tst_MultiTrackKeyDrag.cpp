// The drag of the selected keys of all tracks, message by message, with a host that answers.

#include "TestTracks.h"
#include "TimelineKeyValues.h"
#include "container/CTimelineContainer.h"
#include "container/CTimelineContainerInterface.h"
#include "library/TimelineLibrary.h"
#include "support/HostFixture.h"
#include "support/PaintCounter.h"

#include <climits>

using namespace KestovaTest;

namespace {

constexpr int kMoveBegins = 1109;
constexpr int kMoveStep = 1110;
constexpr int kMoveEnds = 1111;
constexpr int kCopyBegins = 1112;
constexpr int kCopyStep = 1113;
constexpr int kCopyEnds = 1114;
constexpr int kCodes[] = {kMoveBegins, kMoveStep, kMoveEnds, kCopyBegins, kCopyStep, kCopyEnds};

using KeyVector = CTimelineKeyArray::KeyVector;

/// The frames of an array's keys, the selected ones with a star. An index that is in the selection
/// list without its key being marked, or the other way round, shows as a question mark.
QString Text(const CTimelineKeyArray& keys)
{
    QStringList texts;
    for (int index = 0; index < static_cast<int>(keys.GetSize()); ++index) {
        const bool isListed = keys.SelHitKey(index) >= 0;
        const bool isMarked = keys.GetAt(index)->selected;
        texts << QString::number(keys.GetAt(index)->frame) +
                     (isListed != isMarked ? "?" : (isMarked ? "*" : ""));
    }
    return texts.join(' ');
}

QString Text(CTimelineTrackBase* track)
{
    return Text(track->Keys());
}

QString MoveSetText(const CTimelineKeyArray& keys)
{
    QStringList texts;
    for (const auto& key : keys.MoveSet())
        texts << QString::number(key->frame);
    return texts.join(' ');
}

QString MoveSetText(CTimelineTrackBase* track)
{
    return MoveSetText(track->Keys());
}

CTimelineKeyArray& SubKeysOf(CTimelineTrackBase* track, int index)
{
    return *track->Keys().GetAt(index)->subKeys;
}

void Select(CTimelineTrackBase* track, std::initializer_list<int> frames)
{
    for (const int frame : frames)
        track->Keys().SetSelection(frame, frame, true, TL_KEY_ANY_KIND);
}

bool IsWaiting()
{
    const QCursor* const cursor = QApplication::overrideCursor();
    return cursor && cursor->shape() == Qt::WaitCursor;
}

/// Deletes the last track of each edit, and looks at the list again.
class DeletingOwner : public CTimelineContainerInterface
{
public:
    explicit DeletingOwner(CTimelineManager& manager) : m_manager(manager) {}

    QVector<int> sizes;

    int OnContainerMessage(unsigned int, CTimelineTrackBase*, HANDLE, QVariant, QVariant,
                           QVariant) override
    {
        return 0;
    }
    int OnContainerTrackEdit(TLEditType, const VZ::CArrayList<CTimelineTrackBase*>& tracks,
                             QVariant, QVariant) override
    {
        sizes << tracks.GetSize();
        m_manager.DeleteTrack(tracks[tracks.GetSize() - 1]);
        sizes << tracks.GetSize();
        return 0;
    }
    bool OnContainerDrop(TLDropFileType, QString) override { return false; }

private:
    CTimelineManager& m_manager;
};

} // namespace

class tst_MultiTrackKeyDrag : public QObject
{
    Q_OBJECT

    std::unique_ptr<HostFixture> m_fixture;
    CTimelineTrackBase* m_root = nullptr;
    CTimelineTrackBase* m_arm = nullptr;
    CTimelineTrackBase* m_leg = nullptr;

    CTimelineContainer& Container() const { return *m_fixture->Container(); }
    RecordingHost& Host() const { return m_fixture->host; }
    static int& CurrentFrame() { return TimelineLibrary::Instance().axis.currentFrame; }

    int Send(int code, int delta = 0, CTimelineTrackBase* track = nullptr) const
    {
        return Container().OnTrackMessage(code, track ? track : m_arm, 0, QVariant(0),
                                          QVariant(delta), QVariant(0));
    }

    CTimelineTrackBase* Child(const QString& name, std::initializer_list<int> frames,
                              TL_TRACK_TYPE type = TL_TRACK_KEY) const
    {
        CTimelineTrackBase* const track = m_fixture->Child(m_root, type, name);
        AddKeysTo(*track, frames);
        return track;
    }

    /// What the host sees at each edit, beside the edit itself.
    void Watch(const std::function<QString()>& look, QStringList& seen) const
    {
        Host().reaction = [look, &seen](const QString& call) {
            seen << call.section(' ', 0, 1) + ": " + look();
        };
    }

    /// Makes the arm a track in sub-key editing with a selected clip of 30 frames at frame 20 whose
    /// sub-keys at 5 and 8 of 2, 5, 8 are selected.
    void EditSubKeys() const
    {
        m_arm->Keys().RemoveAll();
        AddKeysTo(*m_arm, {20});
        m_arm->Keys().GetAt(0)->clipLength = 30;
        AddSubKeys(*m_arm, 0, {2, 5, 8});
        SetModes(*m_arm, {TL_EDIT_MOVE_KEYS, TL_EDIT_SUB_KEYS});
        m_arm->SetActive(true);
        Select(m_arm, {20});
        SubKeysOf(m_arm, 0).SetSelection(5, 8, true, TL_KEY_ANY_KIND);
    }

private slots:
    void init()
    {
        m_fixture = std::make_unique<HostFixture>();
        m_root = m_fixture->Root(TL_TRACK_KEY, "root");
        m_arm = Child("arm", {10, 20, 30});
        m_leg = Child("leg", {15, 40});
        CurrentFrame() = 42;
        Host().editAnswer = 7;
        m_fixture->ForgetCalls();
    }
    void cleanup()
    {
        Host().reaction = nullptr;
        m_fixture.reset();
        QVERIFY(!QApplication::overrideCursor());
    }

    // --- Who takes part

    void withoutSelectedKeysNothingIsSent_data()
    {
        QTest::addColumn<int>("code");
        for (const int code : kCodes)
            QTest::addRow("%d", code) << code;
    }
    void withoutSelectedKeysNothingIsSent()
    {
        QFETCH(int, code);
        m_fixture->Settle();
        PaintCounter counter(Container());
        QCOMPARE(Send(code, 5), -1);
        QCOMPARE(Host().calls, QStringList());
        QCOMPARE(Text(m_arm), QStringLiteral("10 20 30"));
        QVERIFY(!QApplication::overrideCursor());
        // Even then the container is updated.
        QCOMPARE(counter.paints, 0);
        m_fixture->Settle();
        QCOMPARE(counter.paints, 1);
    }

    void everyCodeUpdatesTheContainer_data() { withoutSelectedKeysNothingIsSent_data(); }
    void everyCodeUpdatesTheContainer()
    {
        QFETCH(int, code);
        Select(m_arm, {20});
        if (code != kMoveBegins && code != kCopyBegins)
            Send(code < kCopyBegins ? kMoveBegins : kCopyBegins);
        m_fixture->Settle();
        PaintCounter counter(Container());
        Send(code, 1);
        QCOMPARE(counter.paints, 0);
        m_fixture->Settle();
        QCOMPARE(counter.paints, 1);
    }

    void withoutAnOwnerEveryCodeIsRefused_data() { withoutSelectedKeysNothingIsSent_data(); }
    void withoutAnOwnerEveryCodeIsRefused()
    {
        QFETCH(int, code);
        Select(m_arm, {20});
        Container().SetOwnerInterface(nullptr);
        m_fixture->Settle();
        PaintCounter counter(Container());
        QCOMPARE(Send(code, 5), -1);
        QCOMPARE(Text(m_arm), QStringLiteral("10 20* 30"));
        QCOMPARE(MoveSetText(m_arm), QString());
        m_fixture->Settle();
        QCOMPARE(counter.paints, 0);
    }

    void allTracksWithSelectedKeysTakePartInTheOrderOfTheTree()
    {
        CTimelineTrackBase* const hand = Child("hand", {50});
        AddKeysTo(*m_root, {60});
        for (CTimelineTrackBase* const track : {hand, m_leg, m_root})
            track->Keys().SetSelection(0, 100, true, TL_KEY_ANY_KIND);
        // The pointer drags on a track that has none itself; keys of roots stay where they are.
        Send(kMoveBegins);
        Send(kMoveStep, 3);
        QCOMPARE(Host().calls, (QStringList{"edit 0 [leg,hand] 0 0", "edit 2 [leg,hand] 3 0"}));
        QCOMPARE(Text(m_leg), QStringLiteral("18* 43*"));
        QCOMPARE(Text(hand), QStringLiteral("53*"));
        QCOMPARE(Text(m_root), QStringLiteral("60*"));
    }

    void aTrackThatIsSelectedLaterDoesNotTakePart()
    {
        Select(m_arm, {20});
        Send(kMoveBegins);
        Select(m_leg, {15});
        Send(kMoveStep, 1);
        QCOMPARE(Host().calls.last(), QStringLiteral("edit 2 [arm] 1 0"));
        QCOMPARE(Text(m_leg), QStringLiteral("15* 40"));
    }

    void aStepWithoutABeginMovesNothing()
    {
        Select(m_arm, {20});
        for (const int code : {kMoveStep, kMoveEnds, kCopyStep, kCopyEnds})
            QCOMPARE(Send(code, 5), -1);
        QCOMPARE(Text(m_arm), QStringLiteral("10 20* 30"));
        QCOMPARE(Host().calls, QStringList());
    }

    void afterTheEndNothingTakesPart_data()
    {
        QTest::addColumn<int>("begin");
        QTest::addColumn<int>("end");
        QTest::newRow("move") << kMoveBegins << kMoveEnds;
        QTest::newRow("copy") << kCopyBegins << kCopyEnds;
    }
    void afterTheEndNothingTakesPart()
    {
        QFETCH(int, begin);
        QFETCH(int, end);
        for (const int answer : {7, -1}) {
            Select(m_arm, {20});
            Host().editAnswer = answer;
            Send(begin);
            Send(end);
            Host().calls.clear();
            QCOMPARE(Send(kMoveStep, 5), -1);
            QCOMPARE(Host().calls, QStringList());
        }
    }

    // --- The bounds

    void theKeysStayInsideTheFrames_data()
    {
        QTest::addColumn<QList<int>>("deltas");
        QTest::addColumn<QList<int>>("moved"); // the values of the host's edits
        QTest::addColumn<QString>("keys");
        // The first selected key stands at 20, the last at 30, and frames are 0 to 99.
        QTest::newRow("to the first frame") << QList<int>{-20} << QList<int>{-20} << "0* 10 10*";
        QTest::newRow("not beyond it") << QList<int>{-21} << QList<int>{-20} << "0* 10 10*";
        QTest::newRow("to the last frame") << QList<int>{69} << QList<int>{69} << "10 89* 99*";
        QTest::newRow("not beyond that") << QList<int>{70} << QList<int>{69} << "10 89* 99*";
        QTest::newRow("in steps") << QList<int>{-15, -15, 3} << QList<int>{-15, -5, 3}
                                  << "3* 10 13*";
        QTest::newRow("stuck at the end")
            << QList<int>{80, 1, 0} << QList<int>{69, 0, 0} << "10 89* 99*";
        QTest::newRow("as far as numbers go")
            << QList<int>{INT_MAX, INT_MIN, INT_MAX} << QList<int>{69, -89, 89} << "10 89* 99*";
    }
    void theKeysStayInsideTheFrames()
    {
        QFETCH(QList<int>, deltas);
        QFETCH(QList<int>, moved);
        Select(m_arm, {20, 30});
        Send(kMoveBegins);
        Host().calls.clear();
        QStringList edits;
        for (int i = 0; i < deltas.size(); ++i) {
            QCOMPARE(Send(kMoveStep, deltas[i]), 7);
            edits << QStringLiteral("edit 2 [arm] %1 0").arg(moved[i]);
        }
        QCOMPARE(Host().calls, edits);
        QTEST(Text(m_arm), "keys");
    }

    void everyTrackNarrowsTheBounds()
    {
        // The lower bound comes from the arm, the upper one from the leg.
        Select(m_arm, {10});
        Select(m_leg, {40});
        Send(kMoveBegins);
        Send(kMoveStep, -50);
        QCOMPARE(Host().calls.last(), QStringLiteral("edit 2 [arm,leg] -10 0"));
        Send(kMoveStep, 500);
        QCOMPARE(Host().calls.last(), QStringLiteral("edit 2 [arm,leg] 69 0"));
        QCOMPARE(Text(m_arm), QStringLiteral("20 30 69*"));
        QCOMPARE(Text(m_leg), QStringLiteral("15 99*"));
    }

    void aLaterTrackThatReachesLessFarWidensNothing()
    {
        Select(m_arm, {10, 30});
        Select(m_leg, {15});
        Send(kMoveBegins);
        Send(kMoveStep, -50);
        QCOMPARE(Host().calls.last(), QStringLiteral("edit 2 [arm,leg] -10 0"));
        Send(kMoveStep, 500);
        QCOMPARE(Host().calls.last(), QStringLiteral("edit 2 [arm,leg] 79 0"));
    }

    void keysWiderThanTheFramesEndAtTheLastOne()
    {
        m_fixture->manager->SetFrameCount(15);
        Select(m_arm, {10, 30});
        Send(kMoveBegins);
        Host().calls.clear();
        for (const int delta : {0, 5, -40})
            Send(kMoveStep, delta);
        // The first step takes the last key to the last frame, the first one to a negative frame.
        QCOMPARE(Host().calls,
                 (QStringList{"edit 2 [arm] -16 0", "edit 2 [arm] 0 0", "edit 2 [arm] 0 0"}));
        QCOMPARE(Text(m_arm), QStringLiteral("-6* 14* 20"));
    }

    void theBoundsAreThoseOfTheBegin()
    {
        Select(m_arm, {10});
        Send(kMoveBegins);
        m_fixture->manager->SetFrameCount(1000);
        Select(m_arm, {30});
        Send(kMoveStep, 500);
        QCOMPARE(Host().calls.last(), QStringLiteral("edit 2 [arm] 89 0"));
    }

    void entriesThatMeanNoKeySetNoBounds()
    {
        Select(m_arm, {20});
        m_arm->Keys().SelAdd(50);
        m_arm->Keys().SelAdd(-3);
        m_leg->Keys().SelAdd(9);
        Send(kMoveBegins);
        Send(kMoveStep, -50);
        QCOMPARE(Host().calls.last(), QStringLiteral("edit 2 [arm,leg] -20 0"));
    }

    void withoutAnyBoundsNothingMoves()
    {
        m_leg->Keys().SelAdd(9);
        Send(kMoveBegins);
        Send(kMoveStep, -50);
        QCOMPARE(Host().calls.last(), QStringLiteral("edit 2 [leg] 0 0"));
        QCOMPARE(Text(m_leg), QStringLiteral("15 40"));
    }

    // --- A move

    void theBeginAsksTheHostAndMovesNoKey()
    {
        Select(m_arm, {10, 30});
        m_leg->Keys().SetSelToMove();
        QCOMPARE(Send(kMoveBegins, 5), 7);
        QCOMPARE(Host().calls, QStringList{"edit 0 [arm] 0 0"});
        QCOMPARE(Text(m_arm), QStringLiteral("10* 20 30*"));
        QCOMPARE(MoveSetText(m_arm), QStringLiteral("10 30"));
        QVERIFY(m_arm->Keys().MoveGetAt(0) != m_arm->Keys().GetAt(0));
    }

    void theMoveSetIsThereWhenTheHostHearsOfTheBegin()
    {
        Select(m_arm, {20});
        QStringList seen;
        Watch([this] { return MoveSetText(m_arm); }, seen);
        Send(kMoveBegins);
        QCOMPARE(seen, QStringList{"edit 0: 20"});
    }

    void aStepMovesTheKeysAndThenAsksTheHost()
    {
        Select(m_arm, {10});
        Send(kMoveBegins);
        QStringList seen;
        Watch([this] { return Text(m_arm); }, seen);
        Host().editAnswer = 3;
        QCOMPARE(Send(kMoveStep, 4), 3);
        Host().editAnswer = -1;
        QCOMPARE(Send(kMoveStep, 0), -1);
        QCOMPARE(seen, (QStringList{"edit 2: 14* 20 30", "edit 2: 14* 20 30"}));
        QCOMPARE(MoveSetText(m_arm), QStringLiteral("10")); // what they were
        QVERIFY(!QApplication::overrideCursor());
    }

    void aMovedKeyStandsBehindTheKeysOfItsFrameAndReplacesNone()
    {
        Select(m_arm, {10});
        Send(kMoveBegins);
        Send(kMoveStep, 10);
        QCOMPARE(Text(m_arm), QStringLiteral("20 20* 30"));
        Send(kMoveEnds);
        QCOMPARE(Text(m_arm), QStringLiteral("20 20* 30"));
    }

    void lockedKeysThatAreSelectedMoveToo()
    {
        Select(m_arm, {10});
        m_arm->Keys().GetAt(0)->lockState = TL_KEY_LOCKED;
        Send(kMoveBegins);
        Send(kMoveStep, 2);
        QCOMPARE(Text(m_arm), QStringLiteral("12* 20 30"));
    }

    void theEndMovesOnceMoreAndReportsTheWhole()
    {
        Select(m_arm, {10});
        Select(m_leg, {15});
        Send(kMoveBegins);
        Send(kMoveStep, 4);
        Send(kMoveStep, -1);
        Host().calls.clear();
        Host().reaction = [this](const QString& call) {
            Host().editAnswer = call.startsWith("edit 6") ? 5 : 9;
        };
        QCOMPARE(Send(kMoveEnds, 2), 9);
        QCOMPARE(Host().calls, (QStringList{"edit 6 [arm,leg] 5 0", "edit 1 [arm,leg] 0 0"}));
        QCOMPARE(Text(m_arm), QStringLiteral("15* 20 30"));
        QCOMPARE(Text(m_leg), QStringLiteral("20* 40"));
    }

    void theLastMoveOfTheEndStaysInsideTheFrames()
    {
        Select(m_arm, {10});
        Send(kMoveBegins);
        Send(kMoveEnds, -50);
        QVERIFY(Host().calls.contains("edit 6 [arm] -10 0"));
    }

    void theEndShowsTheWaitCursorAndThenEmptiesTheMoveSets()
    {
        Select(m_arm, {10});
        Select(m_leg, {15});
        Send(kMoveBegins);
        QStringList seen;
        Watch(
            [this] {
                return QStringList{IsWaiting() ? "waiting" : "-", MoveSetText(m_arm),
                                   MoveSetText(m_leg)}
                    .join('/');
            },
            seen);
        Send(kMoveEnds);
        QCOMPARE(seen, (QStringList{"edit 6: waiting/10/15", "edit 1: waiting/10/15"}));
        QCOMPARE(MoveSetText(m_arm), QString());
        QCOMPARE(MoveSetText(m_leg), QString());
        QVERIFY(!QApplication::overrideCursor());
    }

    void aNewDragStartsFromZero()
    {
        Select(m_arm, {10});
        Send(kMoveBegins);
        Send(kMoveStep, 4);
        Send(kMoveBegins);
        Host().calls.clear();
        Send(kMoveEnds, 1);
        QCOMPARE(Host().calls.first(), QStringLiteral("edit 6 [arm] 1 0"));
    }

    // --- A copy

    void copiesStandSelectedBehindTheirOriginals()
    {
        Select(m_arm, {10, 30});
        const VZ::CPointer<CTimelineKey> original = m_arm->Keys().GetAt(0);
        QCOMPARE(Send(kCopyBegins, 5), -1);
        QCOMPARE(Host().calls, QStringList());
        QCOMPARE(Text(m_arm), QStringLiteral("10 10* 20 30 30*"));
        QVERIFY(m_arm->Keys().GetAt(0) == original);
        QCOMPARE(MoveSetText(m_arm), QStringLiteral("10 30"));
        QVERIFY(!QApplication::overrideCursor());
    }

    void copiesAreLikeTheirOriginals()
    {
        AddSubKeys(*m_arm, 0, {1});
        m_arm->Keys().GetAt(0)->name = "wave";
        m_arm->Keys().GetAt(0)->clipLength = 4;
        Select(m_arm, {10});
        Send(kCopyBegins);
        QCOMPARE(m_arm->Keys().GetAt(1)->name, QStringLiteral("wave"));
        QVERIFY(m_arm->Keys().GetAt(1)->subKeys == m_arm->Keys().GetAt(0)->subKeys);
        // And each has the length that its next neighbour leaves.
        QCOMPARE(m_arm->Keys().GetAt(0)->displayLength, -1);
        QCOMPARE(m_arm->Keys().GetAt(1)->displayLength, 4);
    }

    void theSelectionInsideTheOriginalClipsIsCleared()
    {
        AddSubKeys(*m_arm, 0, {1, 2});
        SubKeysOf(m_arm, 0).SetSelection(1, 1, true, TL_KEY_ANY_KIND);
        Select(m_arm, {10});
        Send(kCopyBegins);
        QCOMPARE(Text(SubKeysOf(m_arm, 0)), QStringLiteral("1 2"));
    }

    void theCopiesMoveAndNotTheirOriginals()
    {
        Select(m_arm, {10});
        Select(m_leg, {40});
        Send(kCopyBegins);
        QCOMPARE(Send(kCopyStep, 5), 0);
        QCOMPARE(Send(kCopyStep, 7), 0);
        QCOMPARE(Host().calls, QStringList());
        QCOMPARE(Text(m_arm), QStringLiteral("10 20 22* 30"));
        QCOMPARE(Text(m_leg), QStringLiteral("15 40 52*"));
        QCOMPARE(MoveSetText(m_arm), QStringLiteral("10"));
    }

    void copiesStayInsideTheFrames()
    {
        Select(m_arm, {10});
        Select(m_leg, {40});
        Send(kCopyBegins);
        Send(kCopyStep, -500);
        QCOMPARE(Text(m_leg), QStringLiteral("15 30* 40"));
        Send(kCopyStep, 500);
        QCOMPARE(Text(m_leg), QStringLiteral("15 40 99*"));
        QCOMPARE(Text(m_arm), QStringLiteral("10 20 30 69*"));
    }

    void copiesOfLockedKeysStayWhereTheyAre()
    {
        Select(m_arm, {10, 20});
        Select(m_leg, {15});
        m_arm->Keys().GetAt(0)->lockState = TL_KEY_LOCKED;
        m_leg->Keys().GetAt(0)->lockState = TL_KEY_LOCKED;
        Send(kCopyBegins);
        QCOMPARE(Text(m_arm), QStringLiteral("10 10 20 20* 30"));
        QCOMPARE(Text(m_leg), QStringLiteral("15 15 40"));
        // A track of which nothing is selected now sets no bounds.
        Send(kCopyStep, -500);
        QCOMPARE(Text(m_arm), QStringLiteral("0* 10 10 20 30"));
        QCOMPARE(MoveSetText(m_arm), QStringLiteral("20"));
        QCOMPARE(MoveSetText(m_leg), QString());
        // In the end they are gone, and the locked originals not selected again.
        Send(kCopyEnds);
        QCOMPARE(Text(m_arm), QStringLiteral("10 20 30"));
        QCOMPARE(Text(m_leg), QStringLiteral("15 40"));
    }

    void withLockedCopiesOnlyNothingMoves()
    {
        Select(m_leg, {15});
        m_leg->Keys().GetAt(0)->lockState = TL_KEY_LOCKED;
        Send(kCopyBegins);
        QCOMPARE(Send(kCopyStep, 5), 0);
        QCOMPARE(Text(m_leg), QStringLiteral("15 15 40"));
        Send(kCopyEnds);
        QCOMPARE(Text(m_leg), QStringLiteral("15 40"));
    }

    /// The whole story of a copy that the host takes, with what it finds at each edit.
    void theEndOfACopyAsksForACopyAndForAPaste()
    {
        Select(m_arm, {10, 20});
        Select(m_leg, {40});
        Send(kCopyBegins);
        Send(kCopyStep, 5);
        QStringList seen;
        Host().reaction = [this, &seen](const QString& call) {
            seen << QStringList{call,
                                Text(m_arm),
                                Text(m_leg),
                                MoveSetText(m_arm),
                                QString::number(CurrentFrame()),
                                IsWaiting() ? "waiting" : "-"}
                        .join(" / ");
            Host().editAnswer = 0;
            if (call.startsWith("edit 14")) {
                AddKeysTo(*m_arm, {17, 27});
                AddKeysTo(*m_leg, {47, 50});
                Host().editAnswer = 8;
            }
        };
        QCOMPARE(Send(kCopyEnds, 2), 8);
        // The copies are gone by then and the originals selected; the paste goes to the first
        // frame of all keys, moved.
        QCOMPARE(seen,
                 (QStringList{"edit 13 [arm,leg] 0 0 / 10* 20* 30 / 15 40* / 10 20 / 42 / waiting",
                              "edit 14 [arm,leg] 0 0 / 10* 20* 30 / 15 40* / 10 20 / 17 / "
                              "waiting"}));
        // What the host made at the places of the copies is selected now.
        QCOMPARE(Text(m_arm), QStringLiteral("10 17* 20 27* 30"));
        QCOMPARE(Text(m_leg), QStringLiteral("15 40 47* 50"));
        QCOMPARE(MoveSetText(m_arm), QString());
        QCOMPARE(MoveSetText(m_leg), QString());
        QCOMPARE(CurrentFrame(), 42);
        QVERIFY(!QApplication::overrideCursor());
    }

    void withoutTheHostsPasteNothingIsSelected()
    {
        Select(m_arm, {10});
        Send(kCopyBegins);
        Send(kCopyEnds, 2);
        QCOMPARE(Text(m_arm), QStringLiteral("10 20 30"));
    }

    void aRefusedCopyLeavesTheOriginalsSelected()
    {
        Select(m_arm, {10});
        Send(kCopyBegins);
        Send(kCopyStep, 5);
        Host().editAnswer = -1;
        QCOMPARE(Send(kCopyEnds, 2), 0);
        QCOMPARE(Host().calls, QStringList{"edit 13 [arm] 0 0"});
        QCOMPARE(Text(m_arm), QStringLiteral("10* 20 30"));
        QCOMPARE(MoveSetText(m_arm), QStringLiteral("10"));
        QCOMPARE(CurrentFrame(), 42);
        QVERIFY(!QApplication::overrideCursor());
    }

    void aRefusedPasteIsTheResult()
    {
        Select(m_arm, {10, 30});
        Send(kCopyBegins);
        Host().reaction = [this](const QString& call) {
            Host().editAnswer = call.startsWith("edit 14") ? -4 : 0;
        };
        QCOMPARE(Send(kCopyEnds, 10), -4);
        QCOMPARE(Host().calls, (QStringList{"edit 13 [arm] 0 0", "edit 14 [arm] 0 0"}));
        QCOMPARE(Text(m_arm), QStringLiteral("10 20* 30")); // what stands at a copy's frame
        QCOMPARE(MoveSetText(m_arm), QString());
    }

    void theOriginalsAreSelectedAgainByFrameAndKind()
    {
        m_arm->Keys().RemoveAll();
        AddKeysTo(*m_arm, {10, 10, 10, 20});
        m_arm->Keys().GetAt(0)->kindMask = 2;
        m_arm->Keys().GetAt(1)->kindMask = 4;
        m_arm->Keys().GetAt(2)->kindMask = 6;
        m_arm->Keys().GetAt(3)->kindMask = 0;
        m_arm->Keys().SetSelectionByIndex(0, 0, true, TL_KEY_ANY_KIND);
        m_arm->Keys().SetSelectionByIndex(3, 3, true, TL_KEY_ANY_KIND);
        Host().editAnswer = -1;
        Send(kCopyBegins);
        Send(kCopyEnds, 5);
        // The third key shares a kind with the first one; a key of no kind is not found again.
        QCOMPARE(Text(m_arm), QStringLiteral("10* 10 10* 20"));
    }

    void theKeysAtTheCopiesFramesAreSelectedWhateverTheirKind()
    {
        Select(m_arm, {10});
        Send(kCopyBegins);
        m_arm->Keys().GetAt(2)->kindMask = 0; // at 20
        Send(kCopyEnds, 10);
        QCOMPARE(Text(m_arm), QStringLiteral("10 20* 30"));
    }

    void theCurrentFrameOfThePasteIsNeitherClampedNorPainted()
    {
        m_fixture->manager->SetFrameCount(15);
        Select(m_arm, {20, 30});
        Send(kCopyBegins);
        m_fixture->Settle();
        PaintCounter counter(Container());
        QStringList seen;
        Watch([&] { return QString::number(CurrentFrame()); }, seen);
        Send(kCopyEnds, 3);
        // No frame of the keys is below the frame count, which stands for them: -16 + 15.
        QCOMPARE(seen.last(), QStringLiteral("edit 14: -1"));
        QCOMPARE(counter.paints, 0);
    }

    void aFrameThatTheHostSetsDuringThePasteIsLost()
    {
        Select(m_arm, {10});
        Send(kCopyBegins);
        Host().reaction = [this](const QString& call) {
            if (call.startsWith("edit 14"))
                m_fixture->manager->SetCurrentFrame(77);
        };
        Send(kCopyEnds, 3);
        QCOMPARE(CurrentFrame(), 42);
    }

    void theCopiedKeysArePutAside()
    {
        Select(m_arm, {10, 30});
        Send(kCopyBegins);
        Host().reaction = [this](const QString& call) {
            if (call.startsWith("edit 13"))
                m_arm->Keys().RemoveAll();
        };
        Send(kCopyEnds, 5);
        std::vector<VZ::CPointer<CTimelineKey>> keys;
        int source = 0;
        QVERIFY(m_fixture->manager->GetClipboardKeys(m_arm, keys, source));
        QCOMPARE(source, 10);
        QCOMPARE(keys.size(), std::size_t(2));
        QCOMPARE(keys[1]->frame, 30);
        QVERIFY(!m_leg->Clipboard().HasData());
    }

    void aRefusedCopyPutsNothingAside()
    {
        Select(m_arm, {10});
        Send(kCopyBegins);
        Host().editAnswer = -1;
        Send(kCopyEnds, 5);
        QVERIFY(!m_arm->Clipboard().HasData());
    }

    // --- Sub-keys

    void aloneATrackInSubKeyEditingMovesSubKeys()
    {
        EditSubKeys();
        Send(kMoveBegins);
        QCOMPARE(MoveSetText(SubKeysOf(m_arm, 0)), QStringLiteral("5 8"));
        QCOMPARE(MoveSetText(m_arm), QString());
        Send(kMoveStep, -9);
        QCOMPARE(Host().calls.last(), QStringLiteral("edit 2 [arm] -5 0"));
        QCOMPARE(Text(SubKeysOf(m_arm, 0)), QStringLiteral("0* 2 3*"));
        // The last one may go one frame beyond the clip.
        Send(kMoveStep, 90);
        QCOMPARE(Host().calls.last(), QStringLiteral("edit 2 [arm] 27 0"));
        QCOMPARE(Text(SubKeysOf(m_arm, 0)), QStringLiteral("2 27* 30*"));
        QCOMPARE(Text(m_arm), QStringLiteral("20*"));
        Send(kMoveEnds);
        QCOMPARE(MoveSetText(SubKeysOf(m_arm, 0)), QString());
    }

    void copiedSubKeysArePastedInsideTheirClip()
    {
        EditSubKeys();
        Send(kCopyBegins);
        QCOMPARE(Text(SubKeysOf(m_arm, 0)), QStringLiteral("2 5 5* 8 8*"));
        Send(kCopyStep, 4);
        QStringList seen;
        Host().reaction = [&](const QString& call) {
            seen << call.section(' ', 1, 1) + ": " + Text(SubKeysOf(m_arm, 0)) + " / " +
                        QString::number(CurrentFrame());
            if (call.startsWith("edit 14")) {
                VZ::CPointer<CTimelineKey> key(new CTimelineKey);
                key->frame = 9;
                SubKeysOf(m_arm, 0).Add(key, false);
            }
        };
        QCOMPARE(Send(kCopyEnds), 7);
        // 4 frames after the first sub-key, in the clip at frame 20.
        QCOMPARE(seen, (QStringList{"13: 2 5* 8* / 42", "14: 2 5* 8* / 29"}));
        QCOMPARE(Text(SubKeysOf(m_arm, 0)), QStringLiteral("2 5 8 9*"));
        QCOMPARE(Text(m_arm), QStringLiteral("20*"));
        QCOMPARE(MoveSetText(SubKeysOf(m_arm, 0)), QString());
    }

    void theSubKeysOfAClipThatTheHostPutInPlaceAreSelected_data()
    {
        QTest::addColumn<QString>("edit");
        QTest::newRow("with the copy") << "edit 13";
        QTest::newRow("with the paste") << "edit 14";
    }
    void theSubKeysOfAClipThatTheHostPutInPlaceAreSelected()
    {
        QFETCH(QString, edit);
        EditSubKeys();
        const VZ::CPointer<CTimelineKeyArray> former(&SubKeysOf(m_arm, 0));
        Send(kCopyBegins);
        Send(kCopyStep, 4);
        Host().reaction = [&](const QString& call) {
            if (!call.startsWith(edit))
                return;
            m_arm->Keys().RemoveAll();
            AddKeysTo(*m_arm, {20});
            m_arm->Keys().GetAt(0)->clipLength = 30;
            AddSubKeys(*m_arm, 0, {2, 9, 12, 15});
            Select(m_arm, {20});
        };
        Send(kCopyEnds);
        QCOMPARE(Text(SubKeysOf(m_arm, 0)), QStringLiteral("2 9* 12* 15"));
        QCOMPARE(former->MoveGetSize(), std::size_t(0));
    }

    void theSubKeysOfAClipThatWasReplacedKeepNoMoveSet()
    {
        EditSubKeys();
        const VZ::CPointer<CTimelineKeyArray> former(&SubKeysOf(m_arm, 0));
        Send(kMoveBegins);
        QCOMPARE(former->MoveGetSize(), std::size_t(2));
        EditSubKeys(); // with another clip
        QVERIFY(former.Get() != &SubKeysOf(m_arm, 0));
        Send(kMoveStep, 1);
        Send(kMoveEnds);
        QCOMPARE(former->MoveGetSize(), std::size_t(0));
        QCOMPARE(MoveSetText(SubKeysOf(m_arm, 0)), QString());
    }

    void togetherWithAnotherTrackItsClipsMove()
    {
        EditSubKeys();
        m_arm->SetActive(false); // an active track in sub-key editing stands alone
        Select(m_arm, {20});
        Select(m_leg, {15});
        Send(kMoveBegins);
        Send(kMoveStep, 2);
        QCOMPARE(Host().calls.last(), QStringLiteral("edit 2 [arm,leg] 2 0"));
        QCOMPARE(Text(m_arm), QStringLiteral("22*"));
        QCOMPARE(Text(SubKeysOf(m_arm, 0)), QStringLiteral("2 5 8"));
    }

    void withoutSubKeyEditingTheClipMovesWithItsSubKeys()
    {
        EditSubKeys();
        SetModes(*m_arm, {TL_EDIT_MOVE_KEYS, TL_EDIT_CLIP_LOOP});
        Send(kMoveBegins);
        Send(kMoveStep, 2);
        QCOMPARE(Text(m_arm), QStringLiteral("22*"));
        QCOMPARE(Text(SubKeysOf(m_arm, 0)), QStringLiteral("2 5* 8*"));
    }

    void aClipWithoutSubKeysHasNothingToMove_data() { afterTheEndNothingTakesPart_data(); }
    void aClipWithoutSubKeysHasNothingToMove()
    {
        QFETCH(int, begin);
        QFETCH(int, end);
        EditSubKeys();
        m_arm->SetActive(false); // then one selected clip is enough to take part
        Select(m_arm, {20});
        m_arm->Keys().GetAt(0)->subKeys = nullptr;
        Send(begin);
        QCOMPARE(Send(begin + 1, 5), begin == kMoveBegins ? 7 : 0);
        QCOMPARE(Text(m_arm), QStringLiteral("20*"));
        QCOMPARE(Send(end, 5), 7);
        QCOMPARE(Text(m_arm), QStringLiteral("20*"));
    }

    void theClipThatTheHostPutsInItsPlaceMovesOn()
    {
        EditSubKeys();
        Send(kMoveBegins);
        Host().reaction = [this](const QString&) {
            Host().reaction = nullptr;
            EditSubKeys();
        };
        Send(kMoveStep, 1);
        Send(kMoveStep, 2);
        QCOMPARE(Text(SubKeysOf(m_arm, 0)), QStringLiteral("2 7* 10*"));
    }

    void withTheClipsGoneTheDragMovesNothing()
    {
        EditSubKeys();
        Send(kMoveBegins);
        m_arm->Keys().RemoveAll();
        QCOMPARE(Send(kMoveStep, 1), 7);
        QCOMPARE(Send(kMoveEnds), 7);
    }

    void copiesOfSubKeysComeOutOfTheClipThatTheyWentInto()
    {
        EditSubKeys();
        const VZ::CPointer<CTimelineKey> clip = m_arm->Keys().GetAt(0);
        Send(kCopyBegins);
        EditSubKeys(); // another clip
        Send(kCopyStep, 3);
        QCOMPARE(Text(SubKeysOf(m_arm, 0)), QStringLiteral("2 5* 8*"));
        Send(kCopyEnds);
        QCOMPARE(clip->subKeys->GetSize(), std::size_t(3));
    }

    // --- Tracks that go meanwhile

    void withoutTheTrackThatItCameFromTheDragIsOver_data() { afterTheEndNothingTakesPart_data(); }
    void withoutTheTrackThatItCameFromTheDragIsOver()
    {
        QFETCH(int, begin);
        QFETCH(int, end);
        Select(m_arm, {10});
        Select(m_leg, {15});
        Send(begin);
        Send(begin + 1, 5);
        Host().calls.clear();
        m_fixture->manager->HideChildTrack(m_arm, true);
        QCOMPARE(Host().calls, QStringList());
        const bool isCopy = begin == kCopyBegins;
        QCOMPARE(Text(m_arm), isCopy ? QStringLiteral("10* 20 30") : QStringLiteral("15* 20 30"));
        QCOMPARE(Text(m_leg), isCopy ? QStringLiteral("15* 40") : QStringLiteral("20* 40"));
        for (CTimelineTrackBase* const track : {m_arm, m_leg})
            QCOMPARE(MoveSetText(track), QString());
        QCOMPARE(Send(begin + 1, 5), -1);
        QCOMPARE(Send(end, 5), -1);
        QCOMPARE(Host().calls, QStringList());
    }

    void anotherTrackLeavesTheDrag_data()
    {
        QTest::addColumn<int>("begin");
        QTest::addColumn<bool>("isDeleted");
        QTest::newRow("a move, hidden") << kMoveBegins << false;
        QTest::newRow("a move, deleted") << kMoveBegins << true;
        QTest::newRow("a copy, hidden") << kCopyBegins << false;
        QTest::newRow("a copy, deleted") << kCopyBegins << true;
    }
    void anotherTrackLeavesTheDrag()
    {
        QFETCH(int, begin);
        QFETCH(bool, isDeleted);
        Select(m_arm, {10});
        Select(m_leg, {15});
        const VZ::CPointer<CTimelineKeyArray> legKeys(&m_leg->Keys());
        Send(begin);
        Send(begin + 1, 5);
        if (isDeleted)
            m_fixture->manager->DeleteTrack(m_leg);
        else
            m_fixture->manager->HideChildTrack(m_leg, true);
        const bool isCopy = begin == kCopyBegins;
        QCOMPARE(Text(*legKeys), isCopy ? QStringLiteral("15* 40") : QStringLiteral("20* 40"));
        QCOMPARE(MoveSetText(*legKeys), QString());
        Host().calls.clear();
        Send(begin + 2, 5);
        const QString first = isCopy ? "edit 13 [arm] 0 0" : "edit 6 [arm] 10 0";
        const QString second = isCopy ? "edit 14 [arm] 0 0" : "edit 1 [arm] 0 0";
        QCOMPARE(Host().calls, (QStringList{first, second}));
        QCOMPARE(Text(*legKeys), isCopy ? QStringLiteral("15* 40") : QStringLiteral("20* 40"));
    }

    void aTrackThatDiesWithItsParentLeavesTheDrag()
    {
        Select(m_arm, {10});
        Select(m_leg, {15});
        const VZ::CPointer<CTimelineKeyArray> legKeys(&m_leg->Keys());
        Send(kCopyBegins);
        // Not through the manager: the container is not told, as when Qt deletes a widget. Its
        // place in the tree goes too, or the next paint would find it.
        const_cast<TrackTree&>(Container().Tree()).RemoveChild(m_leg);
        delete m_leg;
        QCOMPARE(Send(kCopyStep, 5), 0);
        QCOMPARE(Text(*legKeys), QStringLiteral("15* 40"));
        QCOMPARE(Text(m_arm), QStringLiteral("10 15* 20 30"));
    }

    void whenNobodyTakesPartAnyMoreNothingIsSent()
    {
        Select(m_leg, {15});
        Send(kMoveBegins); // on the arm
        m_fixture->manager->HideChildTrack(m_leg, true);
        Host().calls.clear();
        QCOMPARE(Send(kMoveStep, 5), -1);
        QCOMPARE(Send(kMoveEnds, 5), -1);
        QCOMPARE(Host().calls, QStringList());
    }

    void theHostsListStaysAsItWas()
    {
        Select(m_arm, {10});
        Select(m_leg, {15});
        DeletingOwner owner(*m_fixture->manager);
        Container().SetOwnerInterface(&owner);
        Send(kMoveBegins);
        QCOMPARE(owner.sizes, (QVector<int>{2, 2}));
        Send(kMoveStep, 1); // the arm alone, which is deleted as well
        QCOMPARE(owner.sizes, (QVector<int>{2, 2, 1, 1}));
        Container().SetOwnerInterface(nullptr);
    }

    void aNewDragTakesTheCopiesOfAnUnfinishedOneOut()
    {
        Select(m_arm, {10});
        Send(kCopyBegins);
        Send(kCopyStep, 5);
        Send(kMoveBegins);
        QCOMPARE(Text(m_arm), QStringLiteral("10* 20 30"));
        QCOMPARE(MoveSetText(m_arm), QStringLiteral("10"));
    }

    void aMoveEndAfterACopyBeginLeavesNoCopies()
    {
        Select(m_arm, {10});
        Send(kCopyBegins);
        Send(kMoveEnds, 5);
        QCOMPARE(Text(m_arm), QStringLiteral("10* 20 30"));
    }

    void withTheTimelineTheCopiesGo()
    {
        Select(m_arm, {10});
        const VZ::CPointer<CTimelineKeyArray> armKeys(&m_arm->Keys());
        Send(kCopyBegins);
        delete m_fixture->dock;
        QCOMPARE(armKeys->GetSize(), std::size_t(3));
    }
};

QTEST_MAIN(tst_MultiTrackKeyDrag)
#include "tst_MultiTrackKeyDrag.moc"
