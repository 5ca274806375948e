#include "tracks/CTimelineTrackSwitch.h"

#include "support/PictureCheck.h"
#include "support/TimelineFixture.h"
#include "tracks/CTimelineTrackBaseInterface.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <random>

using KestovaTest::ResetAxis;

namespace {

constexpr int kRowHeight = 27;
constexpr int kMargin = 20; // room left of the row, where the right arrow is drawn
const QColor kGround(Qt::magenta);

class RecordingOwner : public CTimelineTrackBaseInterface
{
public:
    int OnTrackMessage(int code, CTimelineTrackBase*, int, QVariant, QVariant, QVariant) override
    {
        codes << code;
        return 0;
    }
    bool OnTrackDrop(QDropEvent*, CTimelineTrackBase*) override { return false; }
    bool OnTrackDragCheck(QDropEvent*, CTimelineTrackBase*, int) override { return false; }

    QVector<int> codes;
};

/// The library's pictures with another image in the place of one, for as long as it lives.
class OtherPictures
{
public:
    OtherPictures(int number, const QImage& image)
    {
        const QDir pictures(":/");
        const QStringList names = pictures.entryList(QDir::Files);
        for (const QString& name : names)
            QFile::copy(pictures.filePath(name), m_directory.filePath(name));
        const QString path = m_directory.filePath(QString::number(number));
        QFile::remove(path);
        const bool saved = image.save(path, "PNG");
        m_loaded = saved && Reload(m_directory.path() + '/');
    }
    ~OtherPictures()
    {
        if (!Reload(":/"))
            qFatal("the library's own pictures are gone");
    }
    OtherPictures(const OtherPictures&) = delete;
    OtherPictures& operator=(const OtherPictures&) = delete;

    bool AreLoaded() const { return m_loaded; }

private:
    static bool Reload(const QString& prefix)
    {
        TimelineLibrary::Instance().images.Free();
        return TimelineLibrary::Instance().images.Load(prefix);
    }

    QTemporaryDir m_directory;
    bool m_loaded = false;
};

} // namespace

Q_DECLARE_METATYPE(CTimelineTrackSwitch::Buttons)

class tst_CTimelineTrackSwitch : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { QVERIFY(KestovaTest::PrepareTimeline()); }

    void init()
    {
        ResetAxis(100, 5.0);
        m_track.reset(new CTimelineTrackSwitch);
        QVERIFY(m_track->Init(nullptr));
        QVERIFY(m_track->LoadStyle(1));
        m_track->SetRowHeight(kRowHeight);
        m_track->resize(400, kRowHeight);
        m_arrow = Arrow(0).size();
        m_button = Button(0).size();
        QVERIFY(!m_arrow.isEmpty() && !m_button.isEmpty());
    }

    // --- the track ------------------------------------------------------------------------------

    void startsWithoutButtonsAndWithDisabledHiddenArrows()
    {
        CTimelineTrackSwitch track;
        QCOMPARE(track.accessibleName(), QString("CTimelineTrackSwitch"));
        QVERIFY(track.Init(nullptr));
        QCOMPARE(track.GetTrackType(), int(TL_TRACK_SWITCH));
        QCOMPARE(track.size(), QSize(10, 20));
        QCOMPARE(track.sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
        QCOMPARE(track.sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
        QVERIFY(track.GetButtons().empty());
        QVERIFY(!track.AreArrowsShown());
        QCOMPARE(track.ScrollOffset(), 0);
        QCOMPARE(track.ArrowImages().left, 3);
        QCOMPARE(track.ArrowImages().right, 7);
    }

    void givesBackTheButtonsAndTheArrowFlagItWasGiven()
    {
        m_track->SetButtons({{"Talk", 2}, {"Rest", 0}});
        QCOMPARE(m_track->GetButtons().size(), std::size_t(2));
        QCOMPARE(m_track->GetButtons()[0].text, QString("Talk"));
        QCOMPARE(m_track->GetButtons()[0].state, 2);
        m_track->SetButtons({{"Smile", 1}});
        QCOMPARE(m_track->GetButtons().size(), std::size_t(1));
        m_track->SetArrowsShown(true);
        QVERIFY(m_track->AreArrowsShown());
    }

    void aTrackWithoutAStyleDrawsAndHitsNothing()
    {
        CTimelineTrackSwitch track;
        track.Init(nullptr);
        track.SetButtons({{"Talk", 2}});
        track.SetArrowsShown(true);
        QCOMPARE(Draw(track, 200), Blank(200));
        QCOMPARE(track.HitTestKey(QPoint(0, 10)), -1);
    }

    void drawingGivesTheWidgetTheRowsSizeAndThePainterTheStylesFont()
    {
        QImage image(321, kRowHeight, QImage::Format_RGB32);
        QPainter painter(&image);
        m_track->DrawKeys(&painter, image.rect());
        QCOMPARE(m_track->size(), QSize(321, kRowHeight));
        QCOMPARE(painter.font().pointSize(), 8);
        QCOMPARE(painter.font().family(), QString("DejaVu Sans"));
    }

    // --- hits and refreshing --------------------------------------------------------------------

    void itsKeysAreItsButtons()
    {
        m_track->SetButtons({{"Talk", 0}, {"Rest", 0}, {"Smile", 0}});
        const int step = m_button.width() + Style().buttonGap;
        for (int i = 0; i < 3; ++i) {
            const QPoint middle(m_arrow.width() + i * step + 5, kRowHeight / 2);
            QCOMPARE(m_track->HitTestKey(middle), i);
        }
        QCOMPARE(m_track->HitTestKey(QPoint(m_arrow.width() - 1, kRowHeight / 2)), -1);
    }

    void refreshingEnablesTheArrowsWhenTheButtonsDoNotFit()
    {
        RecordingOwner owner;
        m_track->SetOwner(&owner);
        m_track->SetButtons(NamedButtons(8));
        m_track->RefreshButtonState();
        QCOMPARE(m_track->ArrowImages().left, 0);
        QCOMPARE(m_track->ArrowImages().right, 4);
        QCOMPARE(owner.codes, QVector<int>({1101}));
    }

    void withNoButtonsOrButtonsThatFitBothArrowsAreDisabledAndNothingIsScrolled_data()
    {
        QTest::addColumn<int>("count");
        QTest::newRow("none") << 0;
        QTest::newRow("three that fit") << 3;
    }
    void withNoButtonsOrButtonsThatFitBothArrowsAreDisabledAndNothingIsScrolled()
    {
        QFETCH(int, count);
        RecordingOwner owner;
        m_track->SetOwner(&owner);
        m_track->SetButtons(NamedButtons(8));
        m_track->RefreshButtonState();
        m_track->SetButtons(NamedButtons(count));
        m_track->RefreshButtonState();
        QCOMPARE(m_track->ArrowImages().left, 3);
        QCOMPARE(m_track->ArrowImages().right, 7);
        QCOMPARE(m_track->ScrollOffset(), 0);
        QCOMPARE(owner.codes, QVector<int>({1101, 1101}));
    }

    void scrollingStaysBetweenHomeAndTheMaximumScroll()
    {
        m_track->SetButtons(NamedButtons(5));
        const int step = m_button.width() + Style().buttonGap;
        const int maximum = 5 * step - Style().buttonGap + 2 * m_arrow.width() - m_track->width();
        QVERIFY(maximum > 20);
        m_track->ScrollBy(kLeftArrow);
        QCOMPARE(m_track->ScrollOffset(), 0);
        m_track->ScrollBy(kRightArrow);
        QCOMPARE(m_track->ScrollOffset(), -20);
        for (int i = 0; i < 100; ++i)
            m_track->ScrollBy(kRightArrow);
        QCOMPARE(m_track->ScrollOffset(), -maximum);
        for (int i = 0; i < 100; ++i)
            m_track->ScrollBy(kLeftArrow);
        QCOMPARE(m_track->ScrollOffset(), 0);
    }

    void aWiderRowBringsScrolledButtonsBack()
    {
        m_track->SetButtons(NamedButtons(5));
        for (int i = 0; i < 100; ++i)
            m_track->ScrollBy(kRightArrow);
        const int before = m_track->ScrollOffset();
        m_track->resize(m_track->width() + 30, kRowHeight);
        m_track->RefreshButtonState();
        QCOMPARE(m_track->ScrollOffset(), before + 30);
        m_track->resize(2000, kRowHeight);
        m_track->RefreshButtonState();
        QCOMPARE(m_track->ScrollOffset(), 0);
    }

    // --- drawing --------------------------------------------------------------------------------

    void aButtonShowsThePictureOfItsState_data()
    {
        QTest::addColumn<int>("state");
        for (int state = 0; state < 4; ++state)
            QTest::addRow("state %d", state) << state;
    }
    void aButtonShowsThePictureOfItsState()
    {
        QFETCH(int, state);
        m_track->SetButtons({{"", state}});
        QImage expected = Blank(400);
        QPainter painter(&expected);
        const int top = (kRowHeight - m_button.height()) / 2;
        painter.drawPixmap(QRect(QPoint(kMargin + m_arrow.width(), top), m_button), Button(state));
        painter.end();
        QCOMPARE(Draw(*m_track, 400), expected);
    }

    void theStylesRowOfPicturesDecidesTheButtonsSize()
    {
        QVERIFY(m_track->LoadStyle(2));
        const QSize narrow = Button(0).size();
        QVERIFY(narrow != m_button);
        m_track->SetButtons({{"", 2}});
        const QImage image = Draw(*m_track, 400);
        const int left = kMargin + m_arrow.width();
        QVERIFY(image.pixelColor(left + narrow.width() / 2, kRowHeight / 2) != kGround);
        for (int x = left + narrow.width(); x < image.width(); ++x)
            QCOMPARE(image.pixelColor(x, kRowHeight / 2), kGround);
    }

    void aPictureOfAnotherSizeIsScaledToTheFirstOnes()
    {
        QVERIFY(m_track->LoadStyle(2));
        QCOMPARE(Style().buttonBmpType, 0);
        const QSize first = Button(kSwitchOff).size();
        const int numberOfOn = 24 + kSwitchOn;
        QImage green(first.width() / 2, first.height() * 2, QImage::Format_RGB32);
        green.fill(Qt::green);
        const OtherPictures pictures(numberOfOn, green);
        QVERIFY(pictures.AreLoaded());
        QCOMPARE(Button(kSwitchOn).size(), green.size());

        m_track->SetButtons({{"", kSwitchOn}});
        QImage expected = Blank(400);
        const int top = (kRowHeight - first.height()) / 2;
        QPainter painter(&expected);
        painter.fillRect(QRect(QPoint(kMargin + m_arrow.width(), top), first), Qt::green);
        painter.end();
        QCOMPARE(Draw(*m_track, 400), expected);
    }

    void anUnknownStateHasNoPicture_data()
    {
        QTest::addColumn<int>("state");
        QTest::newRow("4") << 4;
        QTest::newRow("-1") << -1;
        QTest::newRow("huge") << INT_MAX;
    }
    void anUnknownStateHasNoPicture()
    {
        QFETCH(int, state);
        m_track->SetButtons({{"", state}});
        QCOMPARE(Draw(*m_track, 400), Blank(400));
    }

    void aSkinsPictureRowOutsideTheTableDrawsNothing()
    {
        for (const int row : {-1, 99, INT_MAX, INT_MIN}) {
            Style().buttonBmpType = row;
            Style().scrollBmpType = row;
            m_track->SetButtons({{"", 0}});
            m_track->SetArrowsShown(true);
            QCOMPARE(Draw(*m_track, 400), Blank(400));
        }
    }

    void aTextIsCentredAndHasTheColourOfItsState_data()
    {
        QTest::addColumn<int>("state");
        QTest::addColumn<bool>("on");
        QTest::newRow("off") << 0 << false;
        QTest::newRow("off, hover") << 1 << false;
        QTest::newRow("on") << 2 << true;
        QTest::newRow("on, hover") << 3 << true;
    }
    void aTextIsCentredAndHasTheColourOfItsState()
    {
        QFETCH(int, state);
        QFETCH(bool, on);
        m_track->SetButtons({{"", state}});
        QImage expected = Draw(*m_track, 400);
        QPainter painter(&expected);
        painter.setFont(Style().font);
        painter.setPen((on ? Style().textColourOn : Style().textColour).ToColor());
        const QFontMetrics metrics(Style().font);
        const int width = metrics.horizontalAdvance("Smiling");
        const int x = static_cast<int>((m_button.width() - width) / 2.0 + 0.5);
        const int bottom = (kRowHeight - m_button.height()) / 2 + m_button.height();
        // The gap between the buttons lowers the text by half of it.
        const double space = (kRowHeight - metrics.height() - Style().buttonGap) * 0.5;
        painter.drawText(kMargin + m_arrow.width() + x, static_cast<int>(bottom - space),
                         "Smiling");
        painter.end();
        m_track->SetButtons({{"Smiling", state}});
        QCOMPARE(Draw(*m_track, 400), expected);
    }

    void aWiderGapLowersTheText()
    {
        m_track->SetButtons({{"Talk", 0}});
        const int before = FirstTextRow();
        Style().buttonGap += 4;
        QCOMPARE(FirstTextRow(), before + 2);
    }

    void buttonsStandAGapApart()
    {
        m_track->SetButtons({{"", 0}, {"", 2}});
        const QImage image = Draw(*m_track, 400);
        const int end = kMargin + m_arrow.width() + m_button.width();
        QVERIFY(image.pixelColor(end - 1, kRowHeight / 2) != kGround);
        for (int i = 0; i < Style().buttonGap; ++i)
            QCOMPARE(image.pixelColor(end + i, kRowHeight / 2), kGround);
        QVERIFY(image.pixelColor(end + Style().buttonGap, kRowHeight / 2) != kGround);
    }

    void arrowsAreDrawnOnlyWhenShown()
    {
        QCOMPARE(Draw(*m_track, 400), Blank(400));
        m_track->SetArrowsShown(true);
        QVERIFY(Draw(*m_track, 400) != Blank(400));
    }

    void theLeftArrowStandsInTheRowAndTheRightArrowLeftOfIt()
    {
        m_track->SetArrowsShown(true);
        m_track->SetButtons(NamedButtons(8));
        m_track->RefreshButtonState();
        m_track->SetButtons({});
        QImage expected = Blank(400);
        QPainter painter(&expected);
        const int top = static_cast<int>((kRowHeight - m_arrow.height()) / 2.0 + 0.5);
        painter.drawPixmap(kMargin, top, Arrow(0));
        painter.drawPixmap(kMargin - m_arrow.width(), top, Arrow(4));
        painter.end();
        QCOMPARE(Draw(*m_track, 400), expected);
    }

    void aRepaintOfSomeColumnsPaintsExactlyTheirPixels()
    {
        m_track->SetButtons({{"Talking without any end at all", 0},
                             {"A", 1},
                             {"", 2},
                             {"Surprise, and some more of it", 3},
                             {"Cut", 0}});
        m_track->SetArrowsShown(true);
        std::mt19937 random(46);
        const QImage whole = Draw(*m_track, 300);
        for (int round = 0; round < 200; ++round) {
            const QRect columns(static_cast<int>(random() % 320), 0,
                                1 + static_cast<int>(random() % 12), kRowHeight);
            const QImage part = Draw(*m_track, 300, columns);
            const QRect shown = columns & part.rect();
            QCOMPARE(part.copy(shown), whole.copy(shown));
        }
    }

    void pictures_data()
    {
        QTest::addColumn<Buttons>("buttons");
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("scrolls");
        QTest::addColumn<bool>("arrows");
        const Buttons four = {{"Neutral", 0}, {"Happy", 1}, {"Sad", 2}, {"Angry", 3}};
        QTest::newRow("all-four-states") << four << 500 << 0 << false;
        QTest::newRow("cut-at-the-right") << four << 300 << 0 << false;
        QTest::newRow("scrolled") << four << 300 << 2 << true;
        QTest::newRow("scrolled-to-the-end") << four << 300 << 50 << true;
        QTest::newRow("without-buttons") << Buttons() << 300 << 0 << true;
        QTest::newRow("buttons-that-fit-with-arrows") << four << 500 << 0 << true;
        QTest::newRow("text-wider-than-its-button")
            << Buttons{{"A much too long description of it", 0}, {"Short", 2}} << 300 << 0 << false;
    }
    void pictures()
    {
        QFETCH(Buttons, buttons);
        QFETCH(int, width);
        QFETCH(int, scrolls);
        QFETCH(bool, arrows);
        m_track->SetButtons(buttons);
        m_track->SetArrowsShown(arrows);
        m_track->resize(width, kRowHeight);
        m_track->RefreshButtonState();
        for (int i = 0; i < scrolls; ++i)
            m_track->ScrollBy(kRightArrow);
        KESTOVA_COMPARE_PICTURE(DrawWhole(width),
                                QString("switch/%1").arg(QTest::currentDataTag()));
    }

    void arrowPictures_data()
    {
        QTest::addColumn<int>("arrow");
        QTest::addColumn<bool>("pressed");
        QTest::newRow("neither") << int(kNoArrow) << false;
        QTest::newRow("left-hover") << int(kLeftArrow) << false;
        QTest::newRow("left-pressed") << int(kLeftArrow) << true;
        QTest::newRow("right-hover") << int(kRightArrow) << false;
        QTest::newRow("right-pressed") << int(kRightArrow) << true;
    }
    void arrowPictures()
    {
        QFETCH(int, arrow);
        QFETCH(bool, pressed);
        m_track->SetButtons(NamedButtons(4));
        m_track->SetArrowsShown(true);
        m_track->resize(200, kRowHeight);
        m_track->RefreshArrows(arrow, pressed);
        KESTOVA_COMPARE_PICTURE(DrawWhole(200),
                                QString("switch/arrows-%1").arg(QTest::currentDataTag()));
    }

    void narrowButtonsOnTheGrid()
    {
        QVERIFY(m_track->LoadStyle(2));
        m_track->SetButtons({{"Neutral", 0}, {"Happy", 1}, {"Sad", 2}, {"Angry", 3}});
        KESTOVA_COMPARE_PICTURE(DrawWhole(420), "switch/narrow-buttons-on-the-grid");
    }

private:
    using Buttons = CTimelineTrackSwitch::Buttons;

    static Buttons NamedButtons(int count)
    {
        Buttons buttons;
        for (int i = 0; i < count; ++i)
            buttons.push_back({QString("Pose %1").arg(i + 1), i % 2 * 2});
        return buttons;
    }

    SwitchTrackStyle& Style() { return *m_track->StyleAs<SwitchTrackStyle>(); }
    const QPixmap& Button(int state)
    {
        return TimelineLibrary::Instance().images.Picture(kSwitchButtonPictures,
                                                          Style().buttonBmpType * 4 + state);
    }
    const QPixmap& Arrow(int image)
    {
        return TimelineLibrary::Instance().images.Picture(kScrollArrowPictures,
                                                          Style().scrollBmpType * 8 + image);
    }

    static QImage Blank(int width)
    {
        QImage image(kMargin + width, kRowHeight, QImage::Format_RGB32);
        image.fill(kGround);
        return image;
    }

    /// Only the buttons and arrows, on a plain ground, with room left of the row.
    static QImage Draw(CTimelineTrackSwitch& track, int width, const QRect& clip = QRect())
    {
        QImage image = Blank(width);
        QPainter painter(&image);
        if (clip.isValid())
            painter.setClipRect(clip);
        track.DrawKeys(&painter, QRect(kMargin, 0, width, kRowHeight));
        return image;
    }

    /// The row as it is seen, with room left of it.
    QImage DrawWhole(int width)
    {
        QImage image = Blank(width);
        QPainter painter(&image);
        m_track->DrawTrack(&painter, QRect(kMargin, 0, width, kRowHeight));
        return image;
    }

    /// The first row in which the text changes the button's picture.
    int FirstTextRow()
    {
        const QImage with = Draw(*m_track, 400);
        const Buttons buttons = m_track->GetButtons();
        m_track->SetButtons({{"", buttons[0].state}});
        const QImage without = Draw(*m_track, 400);
        m_track->SetButtons(buttons);
        for (int y = 0; y < with.height(); ++y) {
            if (with.copy(0, y, with.width(), 1) != without.copy(0, y, with.width(), 1))
                return y;
        }
        return -1;
    }

    std::unique_ptr<CTimelineTrackSwitch> m_track;
    QSize m_arrow;
    QSize m_button;
};

QTEST_MAIN(tst_CTimelineTrackSwitch)
#include "tst_CTimelineTrackSwitch.moc"
