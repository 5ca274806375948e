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
    Nothing,     ///< the drag is over, and nothing more is sent
    TheArm,      ///< the drag goes on with the arm alone
    AnotherDrag, ///< the host's own drag took the place of ours
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
    {"drags keys itself", [](Scene& s) { s.Drag(kMoveBegins); }, Afterwards::AnotherDrag},
    {"begins to copy keys itself", [](Scene& s) { s.Send(kCopyBegins, 0); }, Afterwards::AnotherDrag},
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
};
constexpr Moment kMoments[] = {{"at the begin of a move", kMoveBegins, "edit 0 "},
                               {"at a step of a move", kMoveBegins, "edit 2 "},
                               {"at the end of a move", kMoveBegins, "edit 6 "},
                               {"at the very end of a move", kMoveBegins, "edit 1 "},
                               {"at the copy of a copy", kCopyBegins, "edit 13 "},
                               {"at the paste of a copy", kCopyBegins, "edit 14 "}};

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
        Scene scene;
        int& currentFrame = TimelineLibrary::Instance().axis.currentFrame;
        currentFrame = kCurrentFrame;
        scene.fixture.ForgetCalls();
        RecordingHost& host = scene.fixture.host;
        host.editAnswer = 0;
        bool isDone = false;
        QStringList callsBefore;
        QStringList callsOfTheDeed;
        host.reaction = [&](const QString& call) {
            if (isDone || !call.startsWith(moment->edit))
                return;
            isDone = true;
            callsBefore = host.TakeCalls();
            deed->run(scene);
            callsOfTheDeed = host.TakeCalls();
        };
        scene.Drag(moment->begin);

        QVERIFY(isDone);
        QVERIFY(!QApplication::overrideCursor());
        QCOMPARE(currentFrame, kCurrentFrame);
        switch (deed->afterwards) {
        case Afterwards::Nothing:
            QCOMPARE(host.calls, QStringList());
            break;
        case Afterwards::TheArm:
            for (const QString& call : host.calls)
                QVERIFY2(call.contains("[arm]"), qPrintable(call));
            break;
        case Afterwards::AllAsIfNothingHappened:
            for (const QString& call : host.calls)
                QVERIFY2(call.contains("[arm,leg]"), qPrintable(call));
            break;
        case Afterwards::AnotherDrag:
            break;
        }
        // No copy stays behind, and no move set.
        if (deed->afterwards != Afterwards::AnotherDrag) {
            const bool isReplaced = KeysWereReplaced(*deed);
            QCOMPARE(scene.armKeys->GetSize(), isReplaced ? std::size_t(1) : std::size_t(3));
            QCOMPARE(scene.legKeys->GetSize(), isReplaced ? std::size_t(1) : std::size_t(2));
            QCOMPARE(scene.armKeys->MoveGetSize(), std::size_t(0));
            QCOMPARE(scene.legKeys->MoveGetSize(), std::size_t(0));
        }
        host.reaction = nullptr;
        WorksAfterwards(scene);
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
        QStringList codes;
        for (const QString& call : scene.fixture.host.calls)
            codes << call.section(' ', 0, 1);
        QCOMPARE(codes, (QStringList{"edit 0", "edit 2", "edit 2", "edit 6", "edit 1"}));
        QCOMPARE(scene.armKeys->MoveGetSize(), std::size_t(0));
    }
};

QTEST_MAIN(tst_KeyDragReentrancy)
#include "tst_KeyDragReentrancy.moc"
