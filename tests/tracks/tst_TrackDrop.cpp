#include "container/CTimelineContainer.h"
#include "library/TimelineLibrary.h"
#include "support/HostFixture.h"
#include "support/TimelineFixture.h"
#include "tracks/DropScene.h"
#include "tracks/FileDrag.h"
#include "tracks/HostDeeds.h"

#include <QtTest>

#include <algorithm>

using namespace KestovaTest;

namespace {

QPoint PointAt(const CTimelineTrackBase* track, int frame)
{
    return {track->FrameToPixel(frame) + 1, track->height() / 2};
}

int CurrentFrame()
{
    return TimelineLibrary::Instance().axis.currentFrame;
}

} // namespace

/// Files dragged onto rows and dropped there. The drags enter as those of the windowing system do.
class tst_TrackDrop : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    // Held over a row
    void aDragStory();
    void enteringARowIsAlwaysAccepted();
    void leavingARowIsIgnored();
    void aRecognisedFileIsRefusedWhenAllSixFlagsAreFalse();
    void anyOneFlagAcceptsARecognisedFile_data();
    void anyOneFlagAcceptsARecognisedFile();
    void theHostMaySetTheFlagsWhenItIsAsked();
    void anAcceptedDragGetsTheProposedAction();
    void everyRecognisedExtensionAsksTheHost();
    void aRefusedFileAsksNobody_data();
    void aRefusedFileAsksNobody();
    void theFirstFileCounts();
    void theHostIsAskedForTheFrameUnderThePointer_data();
    void theHostIsAskedForTheFrameUnderThePointer();
    void aDragBeyondTheFrameCountIsRefusedBeforeTheHostIsAsked();
    void aDragWithNoTrackSkipsTheFrameTest();
    void theCaptionColumnRefusesEveryFile();
    void theContainerItselfTakesNoFile();
    void everyRowTakesPart();

    // Dropped
    void aDropOnTheActiveTrack();
    void aDropOnAnInactiveTrackFirstActivatesIt();
    void theHostsAnswerDecidesOverTheDrop();
    void everyExtensionDropsAsItsType();
    void aSoundDropsByTheLastTwoFlags_data();
    void aSoundDropsByTheLastTwoFlags();
    void anAutomaticMotionIsRefusedWhileDraggingYetDrops();
    void aDropOfNoFileIsRefused();
    void theCurrentFrameStaysInsideTheTimeline_data();
    void theCurrentFrameStaysInsideTheTimeline();

    // The host
    void nothingFollowsFromAHostThat_data();
    void nothingFollowsFromAHostThat();
    void aHostThatDeletesATrackHeldOverRefusesTheFile();
    void aDragGoesOnOverTheCaptionsWhenItsTrackIsGone_data();
    void aDragGoesOnOverTheCaptionsWhenItsTrackIsGone();
    void withoutAnOwnerNoFileIsTaken();
};

void tst_TrackDrop::initTestCase()
{
    QVERIFY(PrepareTimeline());
}

// ---- Held over a row ----

void tst_TrackDrop::aDragStory()
{
    DropScene scene;
    FileDrag drag(&scene.fixture.mainWindow, "/files/walk.kxmotion");
    scene.fixture.host.reaction = [&](const QString& line) {
        // The host has room for the file from frame 30 on.
        scene.SetFilter(line.endsWith(" 35") ? 1 : -1);
    };
    scene.fixture.host.dropAnswer = true;
    QVERIFY(drag.EnterAt(scene.leg, PointAt(scene.leg, 20)));
    QVERIFY(!drag.MoveTo(scene.leg, PointAt(scene.leg, 20)));
    QVERIFY(drag.MoveTo(scene.leg, PointAt(scene.leg, 35)));
    QVERIFY(drag.Drop());
    QCOMPARE(scene.Calls(),
             (QStringList{"drag Leg /files/walk.kxmotion 20", "drag Leg /files/walk.kxmotion 35",
                          "frame 35 false", "frame 35 true", "active Body Leg",
                          "drop 2 /files/walk.kxmotion"}));
}

void tst_TrackDrop::enteringARowIsAlwaysAccepted()
{
    DropScene scene;
    QVERIFY(FileDrag(&scene.fixture.mainWindow, "/a.png").EnterAt(scene.arm, QPoint(5, 5)));
    FileDrag text(&scene.fixture.mainWindow, QList<QUrl>());
    text.data.setText("no file at all");
    QVERIFY(text.EnterAt(scene.leg, QPoint(5, 5)));
    QCOMPARE(scene.Calls(), QStringList());
}

void tst_TrackDrop::leavingARowIsIgnored()
{
    DropScene scene;
    FileDrag drag(&scene.fixture.mainWindow, "/a.kxs");
    drag.EnterAt(scene.arm, QPoint(5, 5));
    // Caught on its way back from the row.
    struct Watch : QObject
    {
        QPointer<QWidget> row;
        int leaves = 0;
        bool eventFilter(QObject* watched, QEvent* event) override
        {
            if (watched != row || event->type() != QEvent::DragLeave)
                return false;
            ++leaves;
            event->accept();
            watched->event(event);
            wasAccepted = event->isAccepted();
            return true;
        }
        bool wasAccepted = true;
    } watch;
    watch.row = scene.arm;
    scene.arm->installEventFilter(&watch);
    drag.Leave();
    QCOMPARE(watch.leaves, 1);
    QVERIFY(!watch.wasAccepted);
    QCOMPARE(scene.Calls(), QStringList());
}

void tst_TrackDrop::aRecognisedFileIsRefusedWhenAllSixFlagsAreFalse()
{
    DropScene scene;
    FileDrag drag(&scene.fixture.mainWindow, "/a.kxs");
    drag.EnterAt(scene.arm, PointAt(scene.arm, 20));
    QVERIFY(!drag.MoveTo(scene.arm, PointAt(scene.arm, 20)));
    QCOMPARE(scene.Calls(), QStringList("drag Arm /a.kxs 20"));
    // The flags are read after the message, so that it can take them away as well.
    scene.SetFilter(2);
    scene.fixture.host.reaction = [&](const QString&) { scene.SetFilter(-1); };
    QVERIFY(!drag.MoveTo(scene.arm, PointAt(scene.arm, 20)));
    QCOMPARE(scene.Calls(), QStringList("drag Arm /a.kxs 20"));
}

void tst_TrackDrop::anyOneFlagAcceptsARecognisedFile_data()
{
    QTest::addColumn<int>("flag");
    for (int flag = 0; flag < 6; ++flag)
        QTest::addRow("f%d", flag + 1) << flag;
}

void tst_TrackDrop::anyOneFlagAcceptsARecognisedFile()
{
    QFETCH(int, flag);
    DropScene scene;
    scene.SetFilter(flag);
    FileDrag drag(&scene.fixture.mainWindow, "/a.kxs");
    drag.EnterAt(scene.arm, PointAt(scene.arm, 20));
    QVERIFY(drag.MoveTo(scene.arm, PointAt(scene.arm, 20)));
}

void tst_TrackDrop::theHostMaySetTheFlagsWhenItIsAsked()
{
    DropScene scene;
    scene.fixture.host.reaction = [&](const QString&) { scene.SetFilter(3); };
    FileDrag drag(&scene.fixture.mainWindow, "/a.kxs");
    drag.EnterAt(scene.arm, PointAt(scene.arm, 20));
    QVERIFY(drag.MoveTo(scene.arm, PointAt(scene.arm, 20)));
}

void tst_TrackDrop::anAcceptedDragGetsTheProposedAction()
{
    DropScene scene;
    scene.SetFilter(0);
    FileDrag drag(&scene.fixture.mainWindow, "/a.kxs");
    // Another action was agreed on before, as over another row.
    struct Watch : QObject
    {
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() == QEvent::DragMove)
                static_cast<QDragMoveEvent*>(event)->setDropAction(Qt::MoveAction);
            return false;
        }
    } watch;
    drag.EnterAt(scene.arm, PointAt(scene.arm, 20));
    scene.arm->installEventFilter(&watch);
    QVERIFY(drag.MoveTo(scene.arm, PointAt(scene.arm, 20)));
    QCOMPARE(drag.proposed, Qt::CopyAction);
    QCOMPARE(drag.action, Qt::CopyAction);
    scene.SetFilter(-1);
    QVERIFY(!drag.MoveTo(scene.arm, PointAt(scene.arm, 20)));
    QCOMPARE(drag.action, Qt::MoveAction);
}

void tst_TrackDrop::everyRecognisedExtensionAsksTheHost()
{
    DropScene scene;
    scene.SetFilter(0);
    for (const char* const each :
         {"a.kx7idle", "a.kxmotion", "a.kxanim", "a.kxfcs", "a.kxperform", "a.kx3dmotion",
          "a.kxs2idle", "a.kxs", "a.clp", "a.wav", "a.mp3", "A.KXMOTION", "take.final.Kxs"}) {
        const QString name = QLatin1String(each);
        FileDrag drag(&scene.fixture.mainWindow, "/" + name);
        drag.EnterAt(scene.arm, PointAt(scene.arm, 20));
        QVERIFY2(drag.MoveTo(scene.arm, PointAt(scene.arm, 20)), each);
        QCOMPARE(scene.Calls(), QStringList(QStringLiteral("drag Arm /%1 20").arg(name)));
        drag.Leave();
    }
}

void tst_TrackDrop::aRefusedFileAsksNobody_data()
{
    QTest::addColumn<QList<QUrl>>("urls");
    const auto file = [](const char* path) { return QList<QUrl>{QUrl::fromLocalFile(path)}; };
    QTest::newRow("kx7automotion") << file("/a.kx7automotion");
    QTest::newRow("archive.kxs.bak") << file("/archive.kxs.bak");
    QTest::newRow("another extension") << file("/a.png");
    QTest::newRow("no dot") << file("/kxs");
    QTest::newRow("no url") << QList<QUrl>();
    QTest::newRow("an empty path") << QList<QUrl>{QUrl()};
    QTest::newRow("a file of another machine's")
        << QList<QUrl>{QUrl("https://files.example/a.kxs")};
}

void tst_TrackDrop::aRefusedFileAsksNobody()
{
    QFETCH(QList<QUrl>, urls);
    DropScene scene;
    scene.SetFilter(0);
    FileDrag drag(&scene.fixture.mainWindow, urls);
    drag.EnterAt(scene.arm, PointAt(scene.arm, 20));
    QVERIFY(!drag.MoveTo(scene.arm, PointAt(scene.arm, 20)));
    QCOMPARE(scene.Calls(), QStringList());
}

void tst_TrackDrop::theFirstFileCounts()
{
    DropScene scene;
    scene.SetFilter(0);
    const QUrl clip = QUrl::fromLocalFile("/a.clp");
    const QUrl other = QUrl::fromLocalFile("/a.png");
    FileDrag first(&scene.fixture.mainWindow, {clip, other});
    first.EnterAt(scene.arm, PointAt(scene.arm, 20));
    QVERIFY(first.MoveTo(scene.arm, PointAt(scene.arm, 20)));
    FileDrag second(&scene.fixture.mainWindow, {other, clip});
    QVERIFY(!second.MoveTo(scene.arm, PointAt(scene.arm, 20)));
    QCOMPARE(scene.Calls(), QStringList("drag Arm /a.clp 20"));
}

void tst_TrackDrop::theHostIsAskedForTheFrameUnderThePointer_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("scrollX");
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("frame");
    QTest::newRow("the first pixel of a frame") << 7.0 << 0 << 14 << 2;
    QTest::newRow("its last pixel") << 7.0 << 0 << 20 << 2;
    QTest::newRow("the first pixel of the next") << 7.0 << 0 << 21 << 3;
    QTest::newRow("scrolled") << 7.0 << 100 << 20 << 17;
    // Through a rounded 1/49 it would be 48.
    QTest::newRow("frames per pixel") << 1.0 / 48.5 << 0 << 1 << 49;
    QTest::newRow("frames per pixel, scrolled") << 1.0 / 48.5 << 10 << 1 << 11 * 49;
}

void tst_TrackDrop::theHostIsAskedForTheFrameUnderThePointer()
{
    QFETCH(double, scale);
    QFETCH(int, scrollX);
    QFETCH(int, x);
    QFETCH(int, frame);
    DropScene scene;
    scene.SetFilter(0);
    ResetAxis(1000, scale, scrollX);
    FileDrag drag(&scene.fixture.mainWindow, "/a.clp");
    drag.EnterAt(scene.arm, QPoint(x, 5));
    drag.MoveTo(scene.arm, QPoint(x, 5));
    QCOMPARE(scene.Calls(), QStringList(QStringLiteral("drag Arm /a.clp %1").arg(frame)));
}

void tst_TrackDrop::aDragBeyondTheFrameCountIsRefusedBeforeTheHostIsAsked()
{
    DropScene scene;
    scene.SetFilter(0);
    ResetAxis(100, 4.0);
    FileDrag drag(&scene.fixture.mainWindow, "/a.clp");
    drag.EnterAt(scene.arm, PointAt(scene.arm, 120));
    QVERIFY(!drag.MoveTo(scene.arm, PointAt(scene.arm, 120)));
    QVERIFY(!drag.MoveTo(scene.arm, PointAt(scene.arm, 101)));
    QCOMPARE(scene.Calls(), QStringList());
    // The frame after the last one is still allowed.
    QVERIFY(drag.MoveTo(scene.arm, PointAt(scene.arm, 100)));
    QCOMPARE(scene.Calls(), QStringList("drag Arm /a.clp 100"));
}

void tst_TrackDrop::aDragWithNoTrackSkipsTheFrameTest()
{
    DropScene scene;
    scene.SetFilter(0);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile("/a.clp")});
    QDropEvent event(QPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QVERIFY(scene.arm->GetOwner()->OnTrackDragCheck(&event, nullptr, 120));
    QVERIFY(event.isAccepted());
    QCOMPARE(scene.Calls(), QStringList("drag - /a.clp 120"));
}

void tst_TrackDrop::theCaptionColumnRefusesEveryFile()
{
    DropScene scene;
    scene.SetFilter(0);
    CTimelineContainer* const container = scene.fixture.Container();
    const QPoint caption(5, scene.arm->geometry().center().y());
    FileDrag drag(&scene.fixture.mainWindow, "/a.clp");
    QVERIFY(!drag.EnterAt(container, caption));
    // Coming from a row the drag enters the captions and is refused there as well.
    QVERIFY(drag.MoveTo(scene.arm, PointAt(scene.arm, 20)));
    scene.Calls();
    QVERIFY(!drag.MoveTo(container, caption));
    QCOMPARE(scene.Calls(), QStringList());
}

void tst_TrackDrop::theContainerItselfTakesNoFile()
{
    DropScene scene;
    scene.SetFilter(0);
    CTimelineContainer* const container = scene.fixture.Container();
    QVERIFY(!container->acceptDrops());
    container->resize(container->width(), container->height() + 100);
    scene.fixture.Window().GetWidget()->resize(container->size());
    QPoint below;
    for (int y = container->height() - 1; y > 0 && below.isNull(); --y) {
        if (!container->childAt(container->width() / 2, y))
            below = QPoint(container->width() / 2, y);
    }
    QVERIFY(!below.isNull());
    FileDrag drag(&scene.fixture.mainWindow, "/a.clp");
    QVERIFY(!drag.EnterAt(container, below));
    QCOMPARE(scene.Calls(), QStringList());
}

void tst_TrackDrop::everyRowTakesPart()
{
    DropScene scene;
    scene.SetFilter(0);
    // Edit modes have no part in it.
    CTimelineTrackBase* const other = scene.fixture.Root(TL_TRACK_KEY, "Plain");
    scene.fixture.Settle();
    scene.fixture.ForgetCalls();
    FileDrag drag(&scene.fixture.mainWindow, "/a.clp");
    drag.EnterAt(other, PointAt(other, 7));
    QVERIFY(drag.MoveTo(other, PointAt(other, 7)));
    QCOMPARE(scene.Calls(), QStringList("drag Plain /a.clp 7"));
}

// ---- Dropped ----

void tst_TrackDrop::aDropOnTheActiveTrack()
{
    DropScene scene;
    scene.fixture.host.dropAnswer = true;
    FileDrag drag(&scene.fixture.mainWindow, "/a.clp");
    drag.EnterAt(scene.arm, PointAt(scene.arm, 20));
    QVERIFY(drag.Drop());
    QCOMPARE(scene.Calls(), (QStringList{"frame 20 false", "frame 20 true", "drop 9 /a.clp"}));
}

void tst_TrackDrop::aDropOnAnInactiveTrackFirstActivatesIt()
{
    DropScene scene;
    scene.fixture.host.dropAnswer = true;
    CTimelineTrackBase* const head = scene.fixture.Root(TL_TRACK_CLIP, "Head");
    scene.fixture.Settle();
    scene.fixture.ForgetCalls();
    FileDrag drag(&scene.fixture.mainWindow, "/a.clp");
    drag.EnterAt(scene.leg, PointAt(scene.leg, 20));
    QVERIFY(drag.Drop());
    QCOMPARE(scene.Calls(),
             (QStringList{"frame 20 false", "frame 20 true", "active Body Leg", "drop 9 /a.clp"}));
    QVERIFY(scene.leg->IsActive());
    // Another root clears the selections of the first, as a press there would.
    drag.EnterAt(head, PointAt(head, 20));
    QVERIFY(drag.Drop());
    QCOMPARE(scene.Calls(), (QStringList{"cleared", "active Head -", "drop 9 /a.clp"}));
}

void tst_TrackDrop::theHostsAnswerDecidesOverTheDrop()
{
    DropScene scene;
    FileDrag drag(&scene.fixture.mainWindow, "/a.clp");
    for (const bool answer : {true, false}) {
        scene.fixture.host.dropAnswer = answer;
        drag.EnterAt(scene.arm, PointAt(scene.arm, 20));
        QCOMPARE(drag.Drop(), answer);
    }
}

void tst_TrackDrop::everyExtensionDropsAsItsType()
{
    DropScene scene;
    scene.fixture.host.dropAnswer = true;
    const std::pair<const char*, int> rows[] = {{"/a.kxanim", 1},
                                                {"/a.kxmotion", 2},
                                                {"/a.kx3dmotion", 3},
                                                {"/a.kxperform", 4},
                                                {"/a.kx7idle", 6},
                                                {"/a.kxs2idle", 6},
                                                {"/a.kxfcs", 7},
                                                {"/a.kxs", 8},
                                                {"/a.clp", 9},
                                                {"/a.kx7automotion", 10},
                                                {"/take.final.kxs", 8},
                                                {"/A.ClP", 9},
                                                {"/archive.kxs.bak", 0},
                                                {"/a.png", 0},
                                                {"/a.wav", 0},
                                                {"/a.mp3", 0},
                                                {"/kxs", 0}};
    int frame = 20;
    for (const auto& [path, type] : rows) {
        ++frame;
        FileDrag drag(&scene.fixture.mainWindow, path);
        drag.EnterAt(scene.arm, PointAt(scene.arm, frame));
        QVERIFY2(drag.Drop() == (type != 0), path);
        QStringList calls{QStringLiteral("frame %1 false").arg(frame),
                          QStringLiteral("frame %1 true").arg(frame)};
        if (type != 0)
            calls << QStringLiteral("drop %1 %2").arg(type).arg(path);
        QCOMPARE(scene.Calls(), calls);
    }
}

void tst_TrackDrop::aSoundDropsByTheLastTwoFlags_data()
{
    QTest::addColumn<bool>("fifth");
    QTest::addColumn<bool>("sixth");
    QTest::addColumn<int>("type");
    QTest::newRow("f5") << true << false << 12;
    QTest::newRow("f5 and f6") << true << true << 12;
    QTest::newRow("only f6") << false << true << 13;
    QTest::newRow("neither") << false << false << 0;
}

void tst_TrackDrop::aSoundDropsByTheLastTwoFlags()
{
    QFETCH(bool, fifth);
    QFETCH(bool, sixth);
    QFETCH(int, type);
    for (const bool others : {false, true}) {
        DropScene scene;
        scene.fixture.host.dropAnswer = true;
        scene.Manager().SetEnableDragEnterFiletype(others, others, others, others, fifth, sixth);
        FileDrag drag(&scene.fixture.mainWindow, "/Voice.WAV");
        drag.EnterAt(scene.arm, PointAt(scene.arm, 20));
        QCOMPARE(drag.Drop(), type != 0);
        QStringList calls{"frame 20 false", "frame 20 true"};
        if (type != 0)
            calls << QStringLiteral("drop %1 /Voice.WAV").arg(type);
        QCOMPARE(scene.Calls(), calls);
    }
}

void tst_TrackDrop::anAutomaticMotionIsRefusedWhileDraggingYetDrops()
{
    DropScene scene;
    scene.SetFilter(0);
    scene.fixture.host.dropAnswer = true;
    FileDrag drag(&scene.fixture.mainWindow, "/a.kx7automotion");
    drag.EnterAt(scene.arm, PointAt(scene.arm, 20));
    QVERIFY(!drag.MoveTo(scene.arm, PointAt(scene.arm, 20)));
    QVERIFY(drag.Drop());
    QCOMPARE(scene.Calls(),
             (QStringList{"frame 20 false", "frame 20 true", "drop 10 /a.kx7automotion"}));
}

void tst_TrackDrop::aDropOfNoFileIsRefused()
{
    DropScene scene;
    scene.fixture.host.dropAnswer = true;
    for (const QList<QUrl>& urls :
         {QList<QUrl>(), QList<QUrl>{QUrl("https://files.example/a.kxs")}}) {
        FileDrag drag(&scene.fixture.mainWindow, urls);
        drag.EnterAt(scene.arm, PointAt(scene.arm, 20));
        QVERIFY(!drag.Drop());
    }
    QCOMPARE(scene.Calls(), (QStringList{"frame 20 false", "frame 20 true"}));
}

void tst_TrackDrop::theCurrentFrameStaysInsideTheTimeline_data()
{
    QTest::addColumn<int>("frameCount");
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("frame");
    QTest::newRow("inside") << 100 << 40 << 10;
    QTest::newRow("the last frame") << 100 << 4 * 99 << 99;
    QTest::newRow("beyond the last frame") << 100 << 4 * 100 << 99;
    QTest::newRow("far beyond") << 10 << 400 << 9;
    QTest::newRow("without frames") << 0 << 400 << 0;
}

void tst_TrackDrop::theCurrentFrameStaysInsideTheTimeline()
{
    QFETCH(int, frameCount);
    QFETCH(int, x);
    QFETCH(int, frame);
    DropScene scene;
    ResetAxis(frameCount, 4.0);
    FileDrag drag(&scene.fixture.mainWindow, "/a.clp");
    drag.EnterAt(scene.arm, QPoint(x, 5));
    drag.Drop();
    QCOMPARE(CurrentFrame(), frame);
    QCOMPARE(scene.fixture.host.calls.last(), QString("drop 9 /a.clp"));
}

// ---- The host ----

void tst_TrackDrop::nothingFollowsFromAHostThat_data()
{
    QTest::addColumn<QString>("moment");
    QTest::addColumn<int>("deed");
    for (const char* const moment : {"drag Hand /a.clp 20", "frame 20 false", "frame 20 true",
                                     "cleared", "active Head Hand", "drop 9 /a.clp"}) {
        for (int deed = 0; deed < HostDeeds; ++deed)
            QTest::newRow(qPrintable(QStringLiteral("%1 when '%2'").arg(kDeedNames[deed], moment)))
                << moment << deed;
    }
}

void tst_TrackDrop::nothingFollowsFromAHostThat()
{
    QFETCH(QString, moment);
    QFETCH(int, deed);
    DropScene scene;
    HostFixture& fixture = scene.fixture;
    CTimelineTrackBase* const head = fixture.Root(TL_TRACK_CLIP, "Head");
    CTimelineTrackBase* const hand = fixture.Child(head, TL_TRACK_CLIP, "Hand");
    fixture.Settle();
    fixture.ForgetCalls();
    fixture.host.dropAnswer = true;
    scene.SetFilter(0);
    QStringList before;
    fixture.host.reaction = [&](const QString& line) {
        if (line != moment || !before.isEmpty())
            return;
        before = fixture.host.calls;
        Do(deed, fixture, {hand, head, scene.arm, scene.leg, scene.body});
        before = fixture.host.calls;
    };
    FileDrag drag(&scene.fixture.mainWindow, "/a.clp");
    drag.EnterAt(hand, PointAt(hand, 20));
    const bool isAccepted = drag.MoveTo(hand, PointAt(hand, 20));
    if (before.isEmpty()) {
        // The host's own answer stands, whatever it did before it gave it.
        QCOMPARE(drag.Drop(), moment.startsWith("drop"));
    } else {
        QVERIFY(!isAccepted);
    }
    QVERIFY(!before.isEmpty());
    const QStringList after = fixture.host.calls.mid(before.size());
    QCOMPARE(after.filter("Hand"), QStringList());
    if (moment != "cleared")
        QCOMPARE(after, QStringList());

    CTimelineTrackBase* const again = RowAfterDeed(fixture);
    QVERIFY(again);
    FileDrag next(&fixture.mainWindow, "/b.kxs");
    next.EnterAt(again, PointAt(again, 30));
    QVERIFY(next.Drop());
    QCOMPARE(fixture.host.calls.last(), QString("drop 8 /b.kxs"));
}

void tst_TrackDrop::aHostThatDeletesATrackHeldOverRefusesTheFile()
{
    DropScene scene;
    scene.fixture.host.reaction = [&](const QString&) {
        scene.SetFilter(0);
        scene.Manager().DeleteTrack(scene.arm);
    };
    FileDrag drag(&scene.fixture.mainWindow, "/a.clp");
    const QPoint point = PointAt(scene.arm, 20);
    drag.EnterAt(scene.arm, point);
    QVERIFY(!drag.MoveTo(scene.arm, point));
    QCOMPARE(scene.Calls(), QStringList("drag Arm /a.clp 20"));
}

void tst_TrackDrop::aDragGoesOnOverTheCaptionsWhenItsTrackIsGone_data()
{
    QTest::addColumn<bool>("asked"); // or later, when nothing moves
    QTest::newRow("deleted when the host is asked") << true;
    QTest::newRow("deleted while the pointer rests") << false;
}

void tst_TrackDrop::aDragGoesOnOverTheCaptionsWhenItsTrackIsGone()
{
    QFETCH(bool, asked);
    DropScene scene;
    scene.SetFilter(0);
    if (asked)
        scene.fixture.host.reaction = [&](const QString&) {
            scene.Manager().DeleteTrack(scene.arm);
        };
    const QPointer<CTimelineTrackBase> arm(scene.arm);
    FileDrag drag(&scene.fixture.mainWindow, "/a.clp");
    const QPoint point = PointAt(arm, 20);
    drag.EnterAt(arm, point);
    QCOMPARE(drag.MoveTo(arm, point), !asked);
    scene.fixture.host.reaction = nullptr;
    if (!asked)
        scene.Manager().DeleteTrack(arm);
    scene.fixture.Settle();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!arm);
    CTimelineContainer* const container = scene.fixture.Container();
    const QPoint caption(5, scene.leg->geometry().center().y());
    QVERIFY(!drag.MoveTo(container, caption));
    QVERIFY(!drag.MoveTo(container, caption + QPoint(3, 0)));
    QVERIFY(drag.MoveTo(scene.leg, PointAt(scene.leg, 30)));
}

void tst_TrackDrop::withoutAnOwnerNoFileIsTaken()
{
    DropScene scene;
    scene.SetFilter(0);
    scene.fixture.host.dropAnswer = true;
    scene.fixture.Container()->SetOwnerInterface(nullptr);
    FileDrag drag(&scene.fixture.mainWindow, "/a.clp");
    drag.EnterAt(scene.arm, PointAt(scene.arm, 20));
    QVERIFY(!drag.Drop());
    QCOMPARE(scene.Calls(), QStringList());
}

QTEST_MAIN(tst_TrackDrop)
#include "tst_TrackDrop.moc"
