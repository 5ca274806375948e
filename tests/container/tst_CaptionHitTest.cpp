#include "CaptionScene.h"
#include "container/CaptionHitTest.h"
#include "library/TimelineLibrary.h"
#include "tracks/CTimelineTrackHScroll.h"
#include "tracks/CTimelineTrackTick.h"

using namespace KestovaTest;

class tst_CaptionHitTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<CaptionScene> m_scene;

    CTimelineContainer& Container() const { return m_scene->Container(); }
    CaptionHit At(int x, int y) const { return HitTestCaption(Container(), QPoint(x, y)); }

    static std::vector<CaptionButtonStyle>& ButtonsOf(CTimelineTrackBase* track)
    {
        return track->StyleAs<TrackStyle>()->captionButtons;
    }
    static QSize Picture(int index)
    {
        return TimelineLibrary::Instance().images.Picture(kCaptionPictures, index).size();
    }

private slots:
    void init() { m_scene = std::make_unique<CaptionScene>(); }
    void cleanup() { m_scene.reset(); }

    void withoutFixedTracksNothingIsHit()
    {
        const CTimelineContainer alone(nullptr);
        QVERIFY(!HitTestCaption(alone, QPoint(1, 1)).track);
        QVERIFY(!HitTestCaption(alone, QPoint(0, 0)).track);
    }

    void theRulersCaptionIsItsPicture()
    {
        const QSize size = Picture(kTickCaption);
        const CTimelineTrackBase* const ruler = Container().TickTrack();
        QCOMPARE(At(0, 0).track, ruler);
        QCOMPARE(At(size.width() - 1, size.height() - 1).track, ruler);
        QVERIFY(!At(size.width(), 0).track);
        QVERIFY(!At(-1, 0).track);
        QVERIFY(!At(0, -1).track);
        QCOMPARE(At(0, 0).button, kNoCaptionButton);
    }

    void aRowsCaptionIsAsHighAsTheRowAndAsWideAsItsPicture()
    {
        int y = Picture(kTickCaption).height();
        for (CTimelineTrackBase* const track :
             {m_scene->arm, m_scene->leg, m_scene->clips, m_scene->lips}) {
            QCOMPARE(track->y(), y); // the caption lies beside its row
            const int right = track->x() - 1;
            QCOMPARE(At(0, y).track, track);
            QCOMPARE(At(right, y + track->height() - 1).track, track);
            QVERIFY(!At(right + 1, y).track);
            QVERIFY(!At(-1, y).track);
            y += track->height();
        }
        QVERIFY(At(0, y).track == Container().ScrollTrack());
    }

    void aRootWithChildrenHasNoCaption()
    {
        for (int y = 0; y < Container().height(); ++y) {
            QVERIFY(At(10, y).track != m_scene->body);
            QVERIFY(At(10, y).track != m_scene->face);
        }
    }

    void theScrollBarsCaptionFollowsTheLastRow()
    {
        const QSize size = Picture(kScrollCaption);
        const CTimelineTrackBase* const bar = Container().ScrollTrack();
        const int y = m_scene->lips->y() + m_scene->lips->height();
        QCOMPARE(At(0, y).track, bar);
        QCOMPARE(At(size.width() - 1, y + size.height() - 1).track, bar);
        QVERIFY(!At(size.width(), y).track);
        QVERIFY(!At(0, y + size.height()).track);
    }

    void aWaveRowsCaptionHasTheVariableHeight()
    {
        CTimelineTrackBase* const voice = MakeTrack(TL_TRACK_WAVE, "Voice", 2, &Container());
        Container().ShowChildTrack(m_scene->face, voice, 0, false);
        Container().GetWndMaxHeight(true);
        Container().WndSizeChanged(800, 400);
        const int h = Container().Rows().VariableRowHeight();
        QVERIFY(h > Picture(kFirstRowCaption).height());
        QCOMPARE(At(50, voice->y() + h - 1).track, voice);
        QCOMPARE(At(50, voice->y() + h).track, m_scene->clips);
        // Its button stands in the middle of that height.
        const CaptionHit hit = HitTestCaption(Container(), CaptionScene::ButtonOf(voice, kLockId));
        QCOMPARE(hit.button, 0);
        const int top = voice->y() + (h - (hit.buttonRect.height() - 1)) / 2;
        QCOMPARE(hit.buttonRect.top(), top);
    }

    void aButtonsBoxIsOnePixelLargerThanItsPicture_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("id");
        QTest::addColumn<int>("left");
        QTest::newRow("push button") << 0 << kAddId << 117;
        QTest::newRow("toggle button") << 2 << kLockId << 153;
    }
    void aButtonsBoxIsOnePixelLargerThanItsPicture()
    {
        QFETCH(int, index);
        QFETCH(int, id);
        QFETCH(int, left);
        const QSize size =
            Container().Captions().ButtonPicture(ButtonsOf(m_scene->leg)[size_t(index)]).size();
        const int top = m_scene->leg->y() + (m_scene->leg->height() - size.height()) / 2;
        const QRect box(QPoint(left, top), QPoint(left + size.width(), top + size.height()));

        const CaptionHit hit =
            HitTestCaption(Container(), CaptionScene::ButtonOf(m_scene->leg, id));
        QCOMPARE(hit.track, m_scene->leg);
        QCOMPARE(hit.button, index);
        QCOMPARE(hit.buttonRect, box);
        for (int y = box.top() - 2; y <= box.bottom() + 2; ++y) {
            for (int x = box.left() - 2; x <= box.right() + 2; ++x)
                QCOMPARE(At(x, y).button == index, box.contains(x, y));
        }
    }

    void theBoxFollowsThePictureOfTheButtonsState()
    {
        CaptionButtonStyle& button = ButtonsOf(m_scene->arm)[0];
        const QPoint point = CaptionScene::ButtonOf(m_scene->arm, kAddId);
        QCOMPARE(HitTestCaption(Container(), point).button, 0);
        button.state = 1000; // a state that has no picture
        QCOMPARE(HitTestCaption(Container(), point).button, kNoCaptionButton);
        QCOMPARE(HitTestCaption(Container(), point).track, m_scene->arm);
    }

    void theFirstOfTwoButtonsThatOverlapIsHit()
    {
        auto& buttons = ButtonsOf(m_scene->arm);
        buttons[2].position = buttons[1].position;
        const QPoint point = CaptionScene::ButtonOf(m_scene->arm, kHideId);
        QCOMPARE(HitTestCaption(Container(), point).button, 1);
    }

    void aButtonOfAnotherTypeIsNotHit()
    {
        ButtonsOf(m_scene->arm)[0].type = 2;
        const CaptionHit hit =
            HitTestCaption(Container(), CaptionScene::ButtonOf(m_scene->arm, kAddId));
        QCOMPARE(hit.track, m_scene->arm);
        QCOMPARE(hit.button, kNoCaptionButton);
        QVERIFY(hit.buttonRect.isEmpty());
    }

    void ofTwoButtonsWithOneIdTheFirstIsMeant()
    {
        auto& buttons = ButtonsOf(m_scene->arm);
        const QPoint lock = CaptionScene::ButtonOf(m_scene->arm, kLockId);
        buttons[2].buttonId = buttons[1].buttonId;
        QCOMPARE(HitTestCaption(Container(), lock).button, 1);
    }

    void aButtonWithTheIdOfNoneIsNone()
    {
        const QPoint add = CaptionScene::ButtonOf(m_scene->arm, kAddId);
        ButtonsOf(m_scene->arm)[0].buttonId = -1;
        const CaptionHit hit = HitTestCaption(Container(), add);
        QCOMPARE(hit.track, m_scene->arm);
        QCOMPARE(hit.button, kNoCaptionButton);
    }

    void aPlaceThatTheSkinMadeUpHitsNothing_data()
    {
        QTest::addColumn<int>("position");
        QTest::newRow("largest") << std::numeric_limits<int>::max();
        QTest::newRow("smallest") << std::numeric_limits<int>::min();
    }
    void aPlaceThatTheSkinMadeUpHitsNothing()
    {
        QFETCH(int, position);
        const QPoint add = CaptionScene::ButtonOf(m_scene->arm, kAddId);
        ButtonsOf(m_scene->arm)[0].position = position;
        QCOMPARE(HitTestCaption(Container(), add).button, kNoCaptionButton);
    }

    void theRecordOfAButtonThatIsNotThereIsNull()
    {
        QVERIFY(FindCaptionButton(*m_scene->arm, 0));
        QVERIFY(!FindCaptionButton(*m_scene->arm, 3));
        QVERIFY(!FindCaptionButton(*m_scene->arm, -1));
        QVERIFY(!FindCaptionButton(*Container().TickTrack(), 0));
    }
};

QTEST_MAIN(tst_CaptionHitTest)
#include "tst_CaptionHitTest.moc"
