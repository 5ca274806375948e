#include "container/CTimelineContainer.h"
#include "library/TimelineLibrary.h"
#include "model/TimelineKeyValues.h"
#include "support/HostFixture.h"
#include "support/TimelineFixture.h"
#include "tracks/CTimelineTrackBase.h"

#include <QWheelEvent>
#include <QtTest>

using namespace KestovaTest;

/// What the window base offers to the host's own window.
class tst_CTimelineWndBase : public QObject
{
    Q_OBJECT

private slots:
    void theBaseMakesTheContainerAndTakesItAlong();
    void withoutAContainerEverythingAnswersZeroOrFalse();
    void aCopySharesTheContainer();

    void zoomQueriesAndCommandsAreForwarded();
    void zoomingInFollowsTheCurrentFrameAndZoomingAllDoesNot();
    void goingToAFrameTellsTheHostTwice();
    void bothNeighbourQueriesAgree_data();
    void bothNeighbourQueriesAgree();
    void neighbourCommandsWalkTheActiveChild();
    void heightsAreForwarded();
    void sizeIsForwarded();
    void verticalScrollingIsNeverTaken();
    void loopSpeedStateIsForwarded();
};

void tst_CTimelineWndBase::theBaseMakesTheContainerAndTakesItAlong()
{
    QPointer<CTimelineContainer> container;
    {
        TestWindow window(nullptr);
        container = window.GetContainer();
        QVERIFY(container);
        QVERIFY(!container->parentWidget());
        QVERIFY(window.calls.isEmpty());
    }
    QVERIFY(container.isNull());
}

void tst_CTimelineWndBase::withoutAContainerEverythingAnswersZeroOrFalse()
{
    TestWindow window(nullptr);
    delete window.GetContainer();
    QVERIFY(!window.GetContainer());
    QVERIFY(!window.CanDoZoomIn());
    QVERIFY(!window.CanDoZoomOut());
    QVERIFY(!window.CanDoZoomAll());
    QVERIFY(!window.CanDoUnZoom());
    QVERIFY(!window.CanDoSelectNextKey());
    QVERIFY(!window.CanDoSelectPreviousKey());
    window.DoZoomIn();
    window.DoZoomOut();
    window.DoZoomAll();
    window.DoUnZoom();
    window.DoSelectNextKey();
    window.DoSelectPreviousKey();
    window.GotoFrame(4);
    window.SetLoopSpeedState(true);
    QCOMPARE(window.GetTrackHeight(), 0);
    QCOMPARE(window.GetWndMinRestraint(), 0);
    QCOMPARE(window.GetWndMinHeight(), 0);
    QCOMPARE(window.GetWndMaxHeight(true), 0);
    QCOMPARE(window.GetWndNeedHeight(), 0);
    int width = 7;
    int height = 7;
    window.GetWndCurrSize(width, height);
    QCOMPARE(width, 0);
    QCOMPARE(height, 0);
    // The one that answers true: there is nothing that could refuse.
    QVERIFY(window.WndSizeChanged(10, 10));
    QVERIFY(window.calls.isEmpty());
}

void tst_CTimelineWndBase::aCopySharesTheContainer()
{
    TestWindow window(nullptr);
    auto* const copy = new TestWindow(window);
    QCOMPARE(copy->GetContainer(), window.GetContainer());
    // Both believe the container to be theirs: a copy must be made to let go before it ends. A new
    // window assigned to it does that, and is in turn left without a container of its own.
    TestWindow empty(nullptr);
    delete empty.GetContainer();
    static_cast<CTimelineWndBase&>(*copy) = empty;
    QVERIFY(!copy->GetContainer());
    delete copy;
    QVERIFY(window.GetContainer());
}

void tst_CTimelineWndBase::zoomQueriesAndCommandsAreForwarded()
{
    HostFixture fixture;
    TestWindow& window = fixture.Window();
    fixture.manager->SetFrameCount(1000);
    window.DoZoomAll();
    QVERIFY(window.CanDoZoomIn());
    QVERIFY(window.CanDoUnZoom());
    QVERIFY(!window.CanDoZoomOut());
    QVERIFY(!window.CanDoZoomAll());
    const double all = TimelineLibrary::Instance().axis.Scale();
    window.DoZoomIn();
    const double closer = TimelineLibrary::Instance().axis.Scale();
    QVERIFY(closer > all);
    QVERIFY(window.CanDoZoomOut());
    QVERIFY(window.CanDoZoomAll());
    window.DoUnZoom();
    QVERIFY(TimelineLibrary::Instance().axis.Scale() > closer);
    QVERIFY(!window.CanDoZoomIn());
    QVERIFY(!window.CanDoUnZoom());
    window.DoZoomAll();
    QCOMPARE(TimelineLibrary::Instance().axis.Scale(), all);
}

void tst_CTimelineWndBase::zoomingInFollowsTheCurrentFrameAndZoomingAllDoesNot()
{
    HostFixture fixture;
    TestWindow& window = fixture.Window();
    fixture.manager->SetFrameCount(5000);
    window.DoZoomAll();
    fixture.manager->SetCurrentFrame(4800);
    window.DoUnZoom();
    const FrameAxis& axis = TimelineLibrary::Instance().axis;
    QVERIFY(axis.PixelToFrame(0) < 4800);
    QVERIFY(axis.PixelToFrame(600) > 4800);
    window.DoZoomAll();
    QCOMPARE(axis.scrollX, 0);
}

void tst_CTimelineWndBase::goingToAFrameTellsTheHostTwice()
{
    HostFixture fixture;
    fixture.Window().GotoFrame(4711);
    QCOMPARE(fixture.manager->GetCurrentFrame(), 99);
    QCOMPARE(fixture.host.calls, (QStringList{"frame 99 false", "frame 99 true"}));
}

void tst_CTimelineWndBase::bothNeighbourQueriesAgree_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("wanted");
    QTest::newRow("no active track") << 0 << false;
    QTest::newRow("active track without keys") << 1 << false;
    QTest::newRow("active track with keys") << 2 << true;
    QTest::newRow("active track with its key selected") << 3 << true;
    QTest::newRow("active track with its only key locked") << 4 << true;
    QTest::newRow("active track that edits sub-keys") << 5 << true;
}

void tst_CTimelineWndBase::bothNeighbourQueriesAgree()
{
    QFETCH(int, state);
    QFETCH(bool, wanted);
    HostFixture fixture;
    CTimelineTrackBase* const body = fixture.Root(TL_TRACK_CLIP, "Body");
    CTimelineTrackBase* const arm = fixture.Child(body, TL_TRACK_KEY, "Arm");
    if (state >= 1)
        fixture.manager->SetActiveChildTrack(arm);
    if (state >= 2)
        fixture.AddKeys(arm, {10});
    if (state >= 3)
        arm->Keys().SetSelectionByIndex(0, 0, true, 0);
    if (state == 4)
        arm->Keys().GetAt(0)->lockState = TL_KEY_LOCKED;
    if (state == 5) {
        fixture.SetEditModes(arm, {TL_EDIT_SUB_KEYS});
        arm->Keys().GetAt(0)->subKeys = new CTimelineKeyArray;
        arm->Keys().GetAt(0)->subKeys->Add(new CTimelineKey, false);
    }
    QCOMPARE(fixture.Window().CanDoSelectNextKey(), wanted);
    QCOMPARE(fixture.Window().CanDoSelectPreviousKey(), wanted);
}

void tst_CTimelineWndBase::neighbourCommandsWalkTheActiveChild()
{
    HostFixture fixture;
    CTimelineTrackBase* const body = fixture.Root(TL_TRACK_CLIP, "Body");
    CTimelineTrackBase* const arm = fixture.Child(body, TL_TRACK_KEY, "Arm");
    fixture.AddKeys(arm, {10, 20, 30});
    fixture.manager->SetActiveChildTrack(arm);
    fixture.manager->SetCurrentFrame(15);
    fixture.Window().DoSelectNextKey();
    QCOMPARE(fixture.manager->GetCurrentFrame(), 20);
    QCOMPARE(arm->Keys().SelGetAt(0), 1);
    fixture.Window().DoSelectPreviousKey();
    QCOMPARE(fixture.manager->GetCurrentFrame(), 10);
    fixture.Window().DoSelectPreviousKey();
    QCOMPARE(fixture.manager->GetCurrentFrame(), 30);
}

void tst_CTimelineWndBase::heightsAreForwarded()
{
    HostFixture fixture;
    const ImageTables& images = TimelineLibrary::Instance().images;
    const int fixedHeight =
        images.Picture(kCaptionPictures, 1).height() + images.Picture(kCaptionPictures, 3).height();
    TestWindow& window = fixture.Window();
    QCOMPARE(window.GetTrackHeight(), images.Picture(kCaptionPictures, 4).height());
    QCOMPARE(window.GetWndMinRestraint(), fixedHeight);
    QCOMPARE(window.GetWndNeedHeight(), fixedHeight);
    CTimelineTrackBase* const arm = fixture.Root(TL_TRACK_KEY, "Arm");
    QCOMPARE(window.GetWndNeedHeight(), fixedHeight + arm->GetRowHeight());
    QCOMPARE(window.GetWndMaxHeight(true), fixedHeight + arm->GetRowHeight());
    QCOMPARE(window.GetWndMinHeight(), fixedHeight);
    QCOMPARE(fixture.Container()->minimumHeight(), fixedHeight);
}

void tst_CTimelineWndBase::sizeIsForwarded()
{
    HostFixture fixture;
    int width = 0;
    int height = 0;
    fixture.Window().GetWndCurrSize(width, height);
    QCOMPARE(QSize(width, height), fixture.Container()->size());
    QVERIFY(fixture.Window().WndSizeChanged(100, 100));
    QVERIFY(!fixture.Window().WndSizeChanged(-1, 100));
    QVERIFY(!fixture.Window().WndSizeChanged(100, -1));
}

void tst_CTimelineWndBase::verticalScrollingIsNeverTaken()
{
    HostFixture fixture;
    QVERIFY(!fixture.Window().IsWndVScrollable());
    QWheelEvent wheel(QPointF(5, 5), QPointF(5, 5), QPoint(), QPoint(0, 120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QVERIFY(!fixture.Window().ProcessScrollEventBase(&wheel));
    TestWindow bare(nullptr);
    delete bare.GetContainer();
    QVERIFY(!bare.IsWndVScrollable());
    QVERIFY(!bare.ProcessScrollEventBase(&wheel));
}

void tst_CTimelineWndBase::loopSpeedStateIsForwarded()
{
    HostFixture fixture;
    CTimelineTrackBase* const clips = fixture.Root(TL_TRACK_CLIP, "Clips");
    // The track asks which edit its clips' end edges perform.
    QCOMPARE(fixture.Container()->OnTrackMessage(1212, clips, 0, 0, 0, 0), 3);
    fixture.Window().SetLoopSpeedState(true);
    QCOMPARE(fixture.Container()->OnTrackMessage(1212, clips, 0, 0, 0, 0), 4);
    fixture.Window().SetLoopSpeedState(false);
    QCOMPARE(fixture.Container()->OnTrackMessage(1212, clips, 0, 0, 0, 0), 3);
}

QTEST_MAIN(tst_CTimelineWndBase)
#include "tst_CTimelineWndBase.moc"
