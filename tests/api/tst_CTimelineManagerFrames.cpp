#include "container/CTimelineContainer.h"
#include "library/TimelineLibrary.h"
#include "support/HostFixture.h"
#include "tracks/CTimelineTrackHScroll.h"

#include <QtTest>

#include <limits>

using namespace KestovaTest;

/// The manager's frame state, and the operations on the view that it passes on.
class tst_CTimelineManagerFrames : public QObject
{
    Q_OBJECT

private slots:
    void framesAreClampedToZeroAndThenToTheLastOne_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("frame");
        QTest::addColumn<int>("stored");
        const int most = std::numeric_limits<int>::max();
        const int least = std::numeric_limits<int>::min();
        QTest::newRow("inside") << 100 << 42 << 42;
        QTest::newRow("first") << 100 << 0 << 0;
        QTest::newRow("last") << 100 << 99 << 99;
        QTest::newRow("at the count") << 100 << 100 << 99;
        QTest::newRow("beyond") << 100 << most << 99;
        QTest::newRow("below") << 100 << -1 << 0;
        QTest::newRow("far below") << 100 << least << 0;
        QTest::newRow("the upper bound comes last") << 0 << 5 << -1;
        QTest::newRow("a negative count") << -10 << 5 << -11;
        QTest::newRow("the most negative count") << least << 5 << least;
    }
    void framesAreClampedToZeroAndThenToTheLastOne()
    {
        QFETCH(int, count);
        QFETCH(int, frame);
        HostFixture fixture;
        fixture.manager->SetFrameCount(count);
        QCOMPARE(fixture.manager->GetFrameCount(), count);
        fixture.ForgetCalls();
        fixture.manager->SetCurrentFrame(frame);
        QFETCH(int, stored);
        QCOMPARE(fixture.Window().calls.last(), QStringLiteral("frame %1").arg(stored));
        fixture.manager->SetTimeMarkFrame(frame, frame);
        int start = 7;
        int end = 7;
        fixture.manager->GetTimeMarkFrame(start, end);
        QCOMPARE(start, stored);
        QCOMPARE(end, stored);
        QVERIFY(fixture.host.calls.isEmpty());
    }

    void theFrameCountIsTheManagersOwn()
    {
        HostFixture fixture;
        fixture.manager->SetFrameCount(240);
        QCOMPARE(TimelineLibrary::Instance().axis.frameCount, 240);
        TimelineLibrary::Instance().axis.frameCount = 7;
        QCOMPARE(fixture.manager->GetFrameCount(), 240);
    }

    void theCurrentFrameIsTheTimelines()
    {
        HostFixture fixture;
        fixture.manager->SetCurrentFrame(42);
        TimelineLibrary::Instance().axis.currentFrame = 43;
        QCOMPARE(fixture.manager->GetCurrentFrame(), 43);
    }

    void aSmallerFrameCountLeavesFrameAndMarks()
    {
        HostFixture fixture;
        fixture.manager->SetCurrentFrame(80);
        fixture.manager->SetTimeMarkFrame(10, 90);
        fixture.manager->SetFrameCount(50);
        int start = 0;
        int end = 0;
        fixture.manager->GetTimeMarkFrame(start, end);
        QCOMPARE(start, 10);
        QCOMPARE(end, 90);
        QCOMPARE(fixture.manager->GetCurrentFrame(), 80);
    }

    void theTimeMarkBeforeAWindowIsZeroAndOneWhateverWasStored()
    {
        HostFixture fixture;
        fixture.manager->ReleaseTimelineWnd();
        fixture.manager->SetTimeMarkFrame(30, 60);
        int start = 7;
        int end = 7;
        fixture.manager->GetTimeMarkFrame(start, end);
        QCOMPARE(start, 0);
        QCOMPARE(end, 1);
        fixture.manager->CreateTimelineMainWidget(fixture.dock);
        fixture.manager->ShowTimelineWnd(true);
        fixture.manager->GetTimeMarkFrame(start, end);
        QCOMPARE(start, 30);
        QCOMPARE(end, 60);
    }

    void aFrameIsBroughtIntoView_data()
    {
        QTest::addColumn<int>("align");
        QTest::newRow("left") << -1;
        QTest::newRow("middle") << 0;
        QTest::newRow("right") << 1;
    }
    void aFrameIsBroughtIntoView()
    {
        QFETCH(int, align);
        HostFixture fixture;
        fixture.manager->SetFrameCount(10000);
        fixture.manager->SetScrollInfo(0.0f, 0.1f);
        QVERIFY(fixture.manager->ScrollToFrame(5000, align));
        const CTimelineTrackBase& row = *fixture.Container()->ScrollTrack();
        const int first = row.PixelToFrame(0);
        const int last = row.PixelToFrame(row.width());
        // The view starts on whole pixels of the scroll bar, each of them many frames wide.
        const int pixel = 10000 / row.width() + 1;
        QVERIFY(first - pixel <= 5000 && 5000 <= last + pixel);
        const int third = (last - first) / 3;
        QCOMPARE(5000 - first < third, align < 0);
        QCOMPARE(last - 5000 < third, align > 0);
    }

    void scrollingToATrackIsTheHostsAffair()
    {
        HostFixture fixture;
        CTimelineTrackBase* const arm = fixture.Root(TL_TRACK_KEY, "Arm");
        fixture.ForgetCalls();
        QVERIFY(!fixture.manager->ScrollToTrack(arm));
        QVERIFY(fixture.Window().calls.isEmpty());
    }

    void theThumbIsReadAsItWasSet()
    {
        HostFixture fixture;
        fixture.manager->SetFrameCount(10000);
        fixture.manager->SetScrollInfo(0.25f, 0.75f);
        float left = 7;
        float right = 8;
        fixture.manager->GetScrollInfo(left, right);
        const float pixel = 1.5f / float(fixture.Container()->ScrollTrack()->width());
        QVERIFY(qAbs(left - 0.25f) < pixel);
        QVERIFY(qAbs(right - 0.75f) < pixel);
    }

    void aThumbOutsideOfTheBarIsRefused_data()
    {
        QTest::addColumn<float>("left");
        QTest::addColumn<float>("right");
        QTest::newRow("left of the bar") << -0.1f << 0.5f;
        QTest::newRow("right of the bar") << 0.5f << 1.1f;
        QTest::newRow("turned about") << 0.6f << 0.4f;
    }
    void aThumbOutsideOfTheBarIsRefused()
    {
        QFETCH(float, left);
        QFETCH(float, right);
        HostFixture fixture;
        fixture.manager->SetFrameCount(10000);
        fixture.manager->SetScrollInfo(0.25f, 0.75f);
        float wasLeft = 0;
        float wasRight = 0;
        fixture.manager->GetScrollInfo(wasLeft, wasRight);
        fixture.manager->SetScrollInfo(left, right);
        fixture.manager->GetScrollInfo(left, right);
        QCOMPARE(left, wasLeft);
        QCOMPARE(right, wasRight);
    }
};

QTEST_MAIN(tst_CTimelineManagerFrames)
#include "tst_CTimelineManagerFrames.moc"
