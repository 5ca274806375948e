#include "container/CTimelineContainer.h"
#include "container/TestTracks.h"
#include "model/TimelineKeyValues.h"
#include "support/TimelineFixture.h"
#include "tracks/ClipBuilder.h"
#include "tracks/DropScene.h"
#include "tracks/HostDeeds.h"

#include <QtTest>

#include <utility>

using namespace KestovaTest;

/// What serves a host that loads dropped files: the pick of the clip it has just loaded, and what
/// lies under a file that is dragged.
class tst_FilesInTheTimeline : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    // After the drop
    void aLoadedClipBecomesTheSelection();
    void theFirstKeyOfTheFrameIsPicked();
    void aLockedClipIsNotPicked();
    void nothingIsPickedWithoutAKeyExactlyAtTheFrame();
    void theActiveTrackIsOnlyTold();
    void aPickLaysTheRowsOut();
    void survivesPicksOfAHostThat_data();
    void survivesPicksOfAHostThat();

    // Queries
    void aLockedClipIsIdleUpToItsLastFrame_data();
    void aLockedClipIsIdleUpToItsLastFrame();
    void thereIsNoIdleClipWithoutATrackOrKeys();
    void filesOverTheWaveRowAreCheckedByItsClips_data();
    void filesOverTheWaveRowAreCheckedByItsClips();
    void theLastRootsWaveRowCounts();
    void withoutAWaveRowNothingLiesUnderAFile();
};

void tst_FilesInTheTimeline::initTestCase()
{
    QVERIFY(PrepareTimeline());
}

// ---- After the drop ----

void tst_FilesInTheTimeline::aLoadedClipBecomesTheSelection()
{
    DropScene scene;
    scene.fixture.AddKeys(scene.arm, {5});
    scene.fixture.AddKeys(scene.leg, {10, 20, 30});
    scene.arm->Keys().SetSelectionByIndex(0, 0, true, 0);
    scene.leg->Keys().SetSelectionByIndex(2, 2, true, 0);
    scene.Manager().SetCurrentFrame(20);
    scene.fixture.ForgetCalls();
    scene.Manager().SetDropTrackFocusAndPickJustLoadClip(scene.leg);
    QCOMPARE(scene.Calls(), (QStringList{"active Body Leg", "cleared"}));
    QVERIFY(scene.leg->IsActive());
    QVERIFY(!scene.arm->IsActive());
    QCOMPARE(scene.arm->Keys().SelectedIndexes(), std::vector<int>{});
    // What the track itself had selected stays.
    QCOMPARE(scene.leg->Keys().SelectedIndexes(), (std::vector<int>{1, 2}));
}

void tst_FilesInTheTimeline::theFirstKeyOfTheFrameIsPicked()
{
    DropScene scene;
    scene.fixture.AddKeys(scene.leg, {10, 20, 20, 20});
    scene.Manager().SetCurrentFrame(20);
    scene.Manager().SetDropTrackFocusAndPickJustLoadClip(scene.leg);
    QCOMPARE(scene.leg->Keys().SelectedIndexes(), std::vector<int>{1});
}

void tst_FilesInTheTimeline::aLockedClipIsNotPicked()
{
    DropScene scene;
    scene.fixture.AddKeys(scene.leg, {20});
    scene.leg->Keys().GetAt(0)->lockState = TL_KEY_LOCKED;
    scene.Manager().SetCurrentFrame(20);
    scene.Manager().SetDropTrackFocusAndPickJustLoadClip(scene.leg);
    QCOMPARE(scene.leg->Keys().SelectedIndexes(), std::vector<int>{});
}

void tst_FilesInTheTimeline::nothingIsPickedWithoutAKeyExactlyAtTheFrame()
{
    DropScene scene;
    scene.fixture.AddKeys(scene.arm, {5});
    scene.arm->Keys().SetSelectionByIndex(0, 0, true, 0);
    // The second covers the frame, but does not start there.
    scene.leg->Keys().Add(MakeClip(2, 5), false);
    scene.leg->Keys().Add(MakeClip(15, 10), false);
    scene.Manager().SetCurrentFrame(20);
    scene.fixture.ForgetCalls();
    scene.Manager().SetDropTrackFocusAndPickJustLoadClip(scene.leg);
    QCOMPARE(scene.Calls(), (QStringList{"active Body Leg", "cleared"}));
    QVERIFY(scene.leg->IsActive());
    QCOMPARE(scene.arm->Keys().SelectedIndexes(), std::vector<int>{});
    QCOMPARE(scene.leg->Keys().SelectedIndexes(), std::vector<int>{});
}

void tst_FilesInTheTimeline::theActiveTrackIsOnlyTold()
{
    DropScene scene;
    scene.fixture.AddKeys(scene.arm, {20});
    scene.Manager().SetCurrentFrame(20);
    scene.fixture.ForgetCalls();
    scene.Manager().SetDropTrackFocusAndPickJustLoadClip(scene.arm);
    QCOMPARE(scene.Calls(), (QStringList{"same Body Arm", "cleared"}));
    QCOMPARE(scene.arm->Keys().SelectedIndexes(), std::vector<int>{0});
}

void tst_FilesInTheTimeline::aPickLaysTheRowsOut()
{
    DropScene scene;
    scene.fixture.AddKeys(scene.arm, {20});
    const QRect place = scene.arm->geometry();
    const auto pickAt = [&](int frame) {
        scene.Manager().SetCurrentFrame(frame);
        scene.arm->setGeometry(place.translated(0, 3));
        // A layout cut to the container's height would leave that.
        scene.fixture.Container()->resize(scene.fixture.Container()->width(), 50);
        scene.arm->setGeometry(place.translated(0, 3));
        scene.Manager().SetDropTrackFocusAndPickJustLoadClip(scene.arm);
    };
    const int height = scene.fixture.Container()->height();
    pickAt(20);
    QCOMPARE(scene.arm->geometry(), place);
    QCOMPARE(scene.fixture.Container()->height(), height);
    // Without a pick nothing moves.
    pickAt(21);
    QCOMPARE(scene.arm->geometry(), place.translated(0, 3));
}

void tst_FilesInTheTimeline::survivesPicksOfAHostThat_data()
{
    QTest::addColumn<QString>("moment");
    QTest::addColumn<int>("deed");
    for (const char* const moment : {"active Body Leg", "cleared"}) {
        for (int deed = 0; deed < HostDeeds; ++deed)
            QTest::newRow(qPrintable(QStringLiteral("%1 when '%2'").arg(kDeedNames[deed], moment)))
                << moment << deed;
    }
}

void tst_FilesInTheTimeline::survivesPicksOfAHostThat()
{
    QFETCH(QString, moment);
    QFETCH(int, deed);
    DropScene scene;
    HostFixture& fixture = scene.fixture;
    fixture.AddKeys(scene.leg, {20});
    const VZ::CPointer<CTimelineKey> key = scene.leg->Keys().GetAt(0);
    scene.Manager().SetCurrentFrame(20);
    fixture.ForgetCalls();
    bool isDone = false;
    QStringList before;
    fixture.host.reaction = [&](const QString& line) {
        if (line != moment || std::exchange(isDone, true))
            return;
        Do(deed, fixture, {scene.leg, scene.arm, scene.body});
        before = fixture.host.calls;
    };
    scene.Manager().SetDropTrackFocusAndPickJustLoadClip(scene.leg);
    QVERIFY(isDone);
    QCOMPARE(fixture.host.calls, before);
    QVERIFY(!key->selected);
    QVERIFY(RowAfterDeed(fixture));
}

// ---- Queries ----

void tst_FilesInTheTimeline::aLockedClipIsIdleUpToItsLastFrame_data()
{
    QTest::addColumn<int>("frame");
    QTest::addColumn<bool>("idle");
    // A locked clip from 10 on, an open one from 40 on.
    QTest::newRow("before") << 9 << false;
    QTest::newRow("its first frame") << 10 << true;
    QTest::newRow("its last frame") << 19 << true;
    QTest::newRow("one frame later") << 20 << false;
    QTest::newRow("in the open one") << 42 << false;
}

void tst_FilesInTheTimeline::aLockedClipIsIdleUpToItsLastFrame()
{
    QFETCH(int, frame);
    DropScene scene;
    const VZ::CPointer<CTimelineKey> locked = MakeClip(10, 9);
    locked->lockState = TL_KEY_LOCKED;
    scene.arm->Keys().Add(locked, false);
    scene.arm->Keys().Add(MakeClip(40, 9), false);
    QCOMPARE(locked->frame + locked->displayLength, 19);
    QTEST(scene.Manager().CheckIdleClip(scene.arm, frame), "idle");
    QCOMPARE(scene.Calls(), QStringList());
}

void tst_FilesInTheTimeline::thereIsNoIdleClipWithoutATrackOrKeys()
{
    DropScene scene;
    QVERIFY(!scene.Manager().CheckIdleClip(nullptr, 0));
    QVERIFY(!scene.Manager().CheckIdleClip(scene.arm, 0));
}

void tst_FilesInTheTimeline::filesOverTheWaveRowAreCheckedByItsClips_data()
{
    QTest::addColumn<int>("frame");
    QTest::addColumn<bool>("covered");
    QTest::newRow("before") << 9 << false;
    QTest::newRow("its first frame") << 10 << true;
    QTest::newRow("its last frame") << 19 << true;
    QTest::newRow("one frame later") << 20 << false;
}

void tst_FilesInTheTimeline::filesOverTheWaveRowAreCheckedByItsClips()
{
    QFETCH(int, frame);
    DropScene scene;
    CTimelineTrackBase* const wave = MakeTrack(TL_TRACK_WAVE, "Wave", 1, &scene.fixture.mainWindow);
    scene.fixture.Container()->ShowChildTrack(scene.body, wave, 0, true);
    QVERIFY(!scene.Manager().CheckDragFileUnderVisemeClip(frame));
    wave->Keys().Add(MakeClip(10, 9), false); // not locked: all clips count
    QTEST(scene.Manager().CheckDragFileUnderVisemeClip(frame), "covered");
}

void tst_FilesInTheTimeline::theLastRootsWaveRowCounts()
{
    DropScene scene;
    CTimelineContainer& container = *scene.fixture.Container();
    const auto addWave = [&](CTimelineTrackBase* root, int frame) {
        CTimelineTrackBase* const wave =
            MakeTrack(TL_TRACK_WAVE, "Wave", 1, &scene.fixture.mainWindow);
        wave->Keys().Add(MakeClip(frame, 5), false);
        container.ShowChildTrack(root, wave, 9, true);
    };
    addWave(scene.body, 10);
    addWave(scene.body, 30); // only the first of a root counts
    QVERIFY(scene.Manager().CheckDragFileUnderVisemeClip(10));
    QVERIFY(!scene.Manager().CheckDragFileUnderVisemeClip(30));
    CTimelineTrackBase* const head = scene.fixture.Root(TL_TRACK_CLIP, "Head");
    addWave(head, 50);
    QVERIFY(scene.Manager().CheckDragFileUnderVisemeClip(50));
    QVERIFY(!scene.Manager().CheckDragFileUnderVisemeClip(10));
    scene.fixture.Root(TL_TRACK_CLIP, "Foot"); // a root without one replaces none
    QVERIFY(scene.Manager().CheckDragFileUnderVisemeClip(50));
}

void tst_FilesInTheTimeline::withoutAWaveRowNothingLiesUnderAFile()
{
    DropScene scene;
    scene.arm->Keys().Add(MakeClip(10, 9), false);
    QVERIFY(!scene.Manager().CheckDragFileUnderVisemeClip(12));
}

QTEST_MAIN(tst_FilesInTheTimeline)
#include "tst_FilesInTheTimeline.moc"
