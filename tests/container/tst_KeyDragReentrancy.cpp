// A host that turns the timeline upside down from inside the edits of a key drag.

#include "TestTracks.h"
#include "TimelineKeyValues.h"
#include "container/CTimelineContainer.h"
#include "library/TimelineLibrary.h"
#include "support/HostFixture.h"

#include <functional>

using namespace KestovaTest;

namespace {

constexpr int kMoveBegins = 1109;
constexpr int kCopyBegins = 1112;
constexpr int kCurrentFrame = 42;

/// A timeline with two tracks whose keys are dragged together.
struct Scene
{
    HostFixture fixture;
    CTimelineTrackBase* const root = fixture.Root(TL_TRACK_KEY, "root");
    QPointer<CTimelineTrackBase> arm = Child("arm", {10, 20, 30});
    QPointer<CTimelineTrackBase> leg = Child("leg", {15, 40});
    // Kept beyond the tracks, to see that no copies are left behind.
    const VZ::CPointer<CTimelineKeyArray> armKeys{&arm->Keys()};
    const VZ::CPointer<CTimelineKeyArray> legKeys{&leg->Keys()};

    CTimelineTrackBase* Child(const QString& name, std::initializer_list<int> frames)
    {
        CTimelineTrackBase* const track = fixture.Child(root, TL_TRACK_KEY, name);
        AddKeysTo(*track, frames);
        track->Keys().SetSelection(0, 20, true, TL_KEY_ANY_KIND);
        return track;
    }

    /// What a track does: without an owner it sends nothing.
    void Send(int code, int delta)
    {
        if (arm)
            arm->Send(code, QVariant(delta));
    }

    /// No copy is left, and no move set.
    void VerifyNothingStaysBehind(std::size_t armKeyCount, std::size_t legKeyCount) const
    {
        QCOMPARE(armKeys->GetSize(), armKeyCount);
        QCOMPARE(legKeys->GetSize(), legKeyCount);
        QCOMPARE(armKeys->MoveGetSize(), std::size_t(0));
        QCOMPARE(legKeys->MoveGetSize(), std::size_t(0));
    }

    /// The messages of one drag, of which @p begin is the first.
    void Drag(int begin)
    {
        Send(begin, 0);
        Send(begin + 1, 3);
        Send(begin + 1, 4);
        Send(begin + 2, -2);
    }
};

enum class Afterwards
{
    Nothing,         ///< the drag is over, and nothing more is sent
    TheArm,          ///< the drag goes on with the arm alone
    HostsDragIsOver, ///< the host's own drag took the place of ours, and is over, too
    HostsDragGoesOn, ///< the same, and what is left of our messages goes to it
    AllAsIfNothingHappened
};

struct Deed
{
    const char* name;
    void (*run)(Scene& scene);
    Afterwards afterwards;
};

// clang-format off
const Deed kDeeds[] = {
    {"deletes the sender", [](Scene& s) { s.fixture.manager->DeleteTrack(s.arm); }, Afterwards::Nothing},
    {"hides the sender", [](Scene& s) { s.fixture.manager->HideChildTrack(s.arm, true); }, Afterwards::Nothing},
    {"hides the sender and shows it again", [](Scene& s) {
        s.fixture.manager->HideChildTrack(s.arm, true);
        s.fixture.manager->ShowChildTrack(s.root, s.arm, 0, true);
    }, Afterwards::Nothing},
    {"deletes the other track", [](Scene& s) { s.fixture.manager->DeleteTrack(s.leg); }, Afterwards::TheArm},
    {"hides the other track", [](Scene& s) { s.fixture.manager->HideChildTrack(s.leg, true); }, Afterwards::TheArm},
    {"hides the root", [](Scene& s) { s.fixture.manager->HideRootTrack(s.root, true); }, Afterwards::Nothing},
    {"deletes all tracks", [](Scene& s) { s.fixture.manager->DeleteAllTrack(); }, Afterwards::Nothing},
    {"replaces all keys", [](Scene& s) {
        for (CTimelineKeyArray* const keys : {s.armKeys.Get(), s.legKeys.Get()}) {
            keys->RemoveAll();
            VZ::CPointer<CTimelineKey> key(new CTimelineKey);
            key->frame = 50;
            key->selected = true;
            keys->Add(key, false);
        }
    }, Afterwards::AllAsIfNothingHappened},
    {"clears the selection", [](Scene& s) {
        s.armKeys->ClearAllSelection();
        s.legKeys->ClearAllSelection();
    }, Afterwards::AllAsIfNothingHappened},
    {"lays out", [](Scene& s) { s.fixture.manager->InvalidateTimeline(); }, Afterwards::AllAsIfNothingHappened},
    {"scrubs", [](Scene& s) { s.fixture.manager->SetCurrentFrame(kCurrentFrame); }, Afterwards::AllAsIfNothingHappened},
    {"drags keys itself", [](Scene& s) { s.Drag(kMoveBegins); }, Afterwards::HostsDragIsOver},
    {"begins to copy keys itself", [](Scene& s) { s.Send(kCopyBegins, 0); }, Afterwards::HostsDragGoesOn},
    {"releases the window", [](Scene& s) { s.fixture.manager->ReleaseTimelineWnd(); }, Afterwards::Nothing},
    {"makes another window", [](Scene& s) { s.fixture.manager->CreateTimelineMainWidget(s.fixture.dock); }, Afterwards::Nothing},
    {"deletes the dock", [](Scene& s) { delete s.fixture.dock; }, Afterwards::Nothing},
    {"deletes the manager", [](Scene& s) { s.fixture.manager.reset(); }, Afterwards::Nothing},
};
// clang-format on

struct Moment
{
    const char* name;
    int begin;
    const char* edit;
    bool isLastMessage; ///< of the track
};
constexpr Moment kMoments[] = {{"at the begin of a move", kMoveBegins, "edit 0 ", false},
                               {"at a step of a move", kMoveBegins, "edit 2 ", false},
                               {"at the end of a move", kMoveBegins, "edit 6 ", true},
                               {"at the very end of a move", kMoveBegins, "edit 1 ", true},
                               {"at the copy of a copy", kCopyBegins, "edit 13 ", true},
                               {"at the paste of a copy", kCopyBegins, "edit 14 ", true}};

/// What a host hears of a drag that it leaves alone.
QStringList CallsOfADrag(int begin)
{
    Scene scene;
    scene.fixture.ForgetCalls();
    scene.fixture.host.editAnswer = 0;
    scene.Drag(begin);
    return scene.fixture.host.TakeCalls();
}

/// The calls that come after the first one that starts with @p prefix.
QStringList CallsAfter(const QStringList& calls, const char* prefix)
{
    for (int i = 0; i < calls.size(); ++i) {
        if (calls[i].startsWith(prefix))
            return calls.mid(i + 1);
    }
    qFatal("there is no such call");
}

/// The kinds of the edits without what is told of them.
QStringList Kinds(const QStringList& calls)
{
    QStringList kinds;
    for (const QString& call : calls)
        kinds << call.section(' ', 0, 1);
    return kinds;
}

} // namespace

Q_DECLARE_METATYPE(const Moment*)
Q_DECLARE_METATYPE(const Deed*)

class tst_KeyDragReentrancy : public QObject
{
    Q_OBJECT

private slots:
    void theHostMayDoAnything_data()
    {
        QTest::addColumn<const Moment*>("moment");
        QTest::addColumn<const Deed*>("deed");
        for (const Moment& moment : kMoments) {
            for (const Deed& deed : kDeeds)
                QTest::addRow("%s %s", deed.name, moment.name) << &moment << &deed;
        }
    }
    void theHostMayDoAnything()
    {
        QFETCH(const Moment*, moment);
        QFETCH(const Deed*, deed);
        const QStringList undisturbed = CallsOfADrag(moment->begin);
        const QStringList rest = CallsAfter(undisturbed, moment->edit);
        Scene scene;
        int& currentFrame = TimelineLibrary::Instance().axis.currentFrame;
        currentFrame = kCurrentFrame;
        scene.fixture.ForgetCalls();
        RecordingHost& host = scene.fixture.host;
        host.editAnswer = 0;
        bool isDone = false;
        QStringList callsBefore;
        host.reaction = [&](const QString& call) {
            if (isDone || !call.startsWith(moment->edit))
                return;
            isDone = true;
            callsBefore = host.TakeCalls();
            deed->run(scene);
            host.calls.clear(); // of the deed
        };
        scene.Drag(moment->begin);

        QVERIFY(isDone);
        QCOMPARE(callsBefore + rest, undisturbed);
        QVERIFY(!QApplication::overrideCursor());
        QCOMPARE(currentFrame, kCurrentFrame);
        switch (deed->afterwards) {
        case Afterwards::Nothing:
            QCOMPARE(host.calls, QStringList());
            break;
        case Afterwards::TheArm:
            QCOMPARE(host.calls, QStringList(rest).replaceInStrings("[arm,leg]", "[arm]"));
            break;
        case Afterwards::AllAsIfNothingHappened:
            QCOMPARE(host.calls, rest);
            break;
        case Afterwards::HostsDragIsOver:
            QCOMPARE(host.calls, QStringList());
            break;
        case Afterwards::HostsDragGoesOn:
            QCOMPARE(Kinds(host.calls), moment->isLastMessage ? QStringList() : Kinds(rest));
            break;
        }
        host.reaction = nullptr;
        const bool isReplaced = KeysWereReplaced(*deed);
        const std::size_t armKeyCount = isReplaced ? 1 : 3;
        const std::size_t legKeyCount = isReplaced ? 1 : 2;
        const bool isDragOn =
            deed->afterwards == Afterwards::HostsDragGoesOn && moment->isLastMessage;
        if (!isDragOn)
            scene.VerifyNothingStaysBehind(armKeyCount, legKeyCount);
        WorksAfterwards(scene);
        scene.VerifyNothingStaysBehind(armKeyCount, legKeyCount);
    }

private:
    static bool KeysWereReplaced(const Deed& deed)
    {
        return QByteArray(deed.name) == "replaces all keys";
    }

    /// Drags once more, on what is still there.
    static void WorksAfterwards(Scene& scene)
    {
        if (!scene.fixture.manager || !scene.arm || !scene.arm->GetOwner())
            return;
        scene.armKeys->SetSelection(-100, 100, true, TL_KEY_ANY_KIND);
        scene.fixture.host.calls.clear();
        scene.Drag(kMoveBegins);
        QCOMPARE(Kinds(scene.fixture.host.calls),
                 (QStringList{"edit 0", "edit 2", "edit 2", "edit 6", "edit 1"}));
    }
};

QTEST_MAIN(tst_KeyDragReentrancy)
#include "tst_KeyDragReentrancy.moc"
