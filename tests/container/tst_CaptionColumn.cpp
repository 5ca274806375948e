#include "TestTracks.h"
#include "container/CaptionColumn.h"
#include "library/TimelineLibrary.h"
#include "support/PictureCheck.h"
#include "support/TimelineFixture.h"

#include <QFontInfo>
#include <QFontMetrics>

using namespace KestovaTest;

namespace {

constexpr int kWide = 10000;
constexpr int kColumnWidth = 171;

// Buttons of key style 1, in order.
constexpr std::size_t kAddButton = 0;
constexpr std::size_t kHideButton = 1;

QFontMetrics Metrics()
{
    return QFontMetrics(QFont(QStringLiteral("DejaVu Sans"), 9));
}

int WidthOf(const QString& text)
{
    return Metrics().size(Qt::TextSingleLine, text).width();
}

QString Shortened(const QString& caption, int width = kWide)
{
    return CaptionColumn::ShortenedText(caption, Metrics(), width);
}

QImage Ground(int height)
{
    QImage image(kColumnWidth, height, QImage::Format_RGB32);
    image.fill(QColor(90, 20, 90)); // what a caption leaves unpainted shows
    return image;
}

} // namespace

class tst_CaptionColumn : public QObject
{
    Q_OBJECT

    std::unique_ptr<CTimelineTrackBase> m_track;
    std::unique_ptr<CaptionColumn> m_column;

    CTimelineTrackBase& Track(const QString& caption, TL_TRACK_TYPE type = TL_TRACK_KEY,
                              int style = 1)
    {
        m_track.reset(MakeTrack(type, caption, style));
        return *m_track;
    }

    CaptionButtonStyle& Button(std::size_t index)
    {
        return m_track->StyleAs<TrackStyle>()->captionButtons[index];
    }

    QImage Paint(const CTimelineTrackBase& track, int height)
    {
        QImage image = Ground(height);
        QPainter painter(&image);
        painter.setBackgroundMode(Qt::TransparentMode);
        m_column->BeginPaint();
        m_column->PaintRow(painter, track, 0, height);
        return image;
    }

private slots:
    void initTestCase() { QVERIFY(PrepareTimeline()); }
    void init() { m_column = std::make_unique<CaptionColumn>(TimelineLibrary::Instance().images); }
    void cleanup()
    {
        m_column.reset();
        m_track.reset();
    }

    // ---- Shortening ----

    void shortensTheWordsThatNameASide_data()
    {
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("shown");
        QTest::newRow("Right Arm is shown as R Arm") << "Right Arm"
                                                     << "R Arm";
        QTest::newRow("Left Arm is shown as L Arm") << "Left Arm"
                                                    << "L Arm";
        QTest::newRow("Upper Lip is shown as Up Lip") << "Upper Lip"
                                                      << "Up Lip";
        QTest::newRow("just the word Left is shown as L") << "Left"
                                                          << "L";
        QTest::newRow("part of a longer word counts") << "RightArm"
                                                      << "RArm";
        QTest::newRow("every occurrence is replaced") << "Left to Left"
                                                      << "L to L";
        QTest::newRow("only the word at the start is replaced") << "Right of Left Upper"
                                                                << "R of Left Upper";
        QTest::newRow("not at the start") << "The Right Arm"
                                          << "The Right Arm";
        QTest::newRow("small letters are another word") << "right Arm"
                                                        << "right Arm";
        QTest::newRow("small letters later are another word") << "Left left"
                                                              << "L left";
        QTest::newRow("capitals are another word") << "LEFT"
                                                   << "LEFT";
        QTest::newRow("others stay") << "Jaw"
                                     << "Jaw";
        QTest::newRow("empty") << ""
                               << "";
    }
    void shortensTheWordsThatNameASide()
    {
        QFETCH(QString, caption);
        QTEST(Shortened(caption), "shown");
    }

    void aTextThatJustFitsIsNotShortened()
    {
        const QString text = "Left elbow joint";
        const int width = WidthOf("L elbow joint");
        QCOMPARE(Shortened(text, width), QString("L elbow joint"));
        QVERIFY(Shortened(text, width - 1).endsWith("..."));
    }

    void aTextThatDoesNotFitIsTheLongestBeginningThatFitsWithDots()
    {
        const QString text = "Fantastically long joint";
        const int fullWidth = WidthOf(text);
        for (int width = WidthOf("..."); width < fullWidth; width += 3) {
            const QString shown = Shortened(text, width);
            QVERIFY(shown.endsWith("..."));
            const QString beginning = shown.chopped(3);
            QVERIFY(text.startsWith(beginning));
            QVERIFY(WidthOf(shown) <= width);
            QVERIFY(WidthOf(text.left(beginning.size() + 1) + "...") > width);
        }
    }

    void theBeginningIsThatOfTheAbbreviatedText()
    {
        QVERIFY(Shortened("Right shoulder blade", WidthOf("R should...")).startsWith("R should"));
    }

    void aBoxTooNarrowForAnythingShowsTheDotsAlone()
    {
        QCOMPARE(Shortened("Jaw bone", 2), QString("..."));
        QCOMPARE(Shortened("Jaw bone", -5), QString("..."));
    }

    // ---- Tooltips ----

    void aTooltipShowsTheFullTextThoughTheCaptionEndsInDots()
    {
        const QString caption = "Right shoulder blade and everything that hangs on it";
        Paint(Track(caption), 20);
        QCOMPARE(m_column->TooltipAreas().size(), std::size_t(1));
        QCOMPARE(m_column->TooltipAt(QPoint(50, 10)), caption);
    }

    void aTooltipAreaIsTheTextsBox()
    {
        Paint(Track("Jaw"), 20); // text position (10,114)
        QCOMPARE(m_column->TooltipAreas().front().rect, QRect(QPoint(10, 0), QPoint(113, 19)));
        QCOMPARE(m_column->TooltipAt(QPoint(10, 0)), QString("Jaw"));
        QCOMPARE(m_column->TooltipAt(QPoint(113, 19)), QString("Jaw"));
        QCOMPARE(m_column->TooltipAt(QPoint(9, 10)), QString());
        QCOMPARE(m_column->TooltipAt(QPoint(114, 10)), QString());
        QCOMPARE(m_column->TooltipAt(QPoint(50, 20)), QString());
    }

    void aRowWithoutCaptionHasNoTooltip()
    {
        Paint(Track(""), 20);
        QVERIFY(m_column->TooltipAreas().empty());
    }

    void theFirstAreaThatHoldsThePointTellsTheTooltip()
    {
        QImage image = Ground(60);
        QPainter painter(&image);
        m_column->PaintRow(painter, Track("upper row"), 0, 26);
        m_column->PaintRow(painter, Track("lower row"), 20, 26);
        QCOMPARE(m_column->TooltipAt(QPoint(50, 22)), QString("upper row"));
        QCOMPARE(m_column->TooltipAt(QPoint(50, 30)), QString("lower row"));
    }

    void aPointOfTheRegionInNoAreaHasNoTooltip()
    {
        QImage image = Ground(80);
        QPainter painter(&image);
        m_column->PaintRow(painter, Track("first"), 0, 20);
        m_column->PaintRow(painter, Track("second"), 50, 20);
        QCOMPARE(m_column->TooltipAt(QPoint(50, 30)), QString());
    }

    void everyPaintStartsWithoutTooltips()
    {
        Paint(Track("Jaw"), 20);
        m_column->BeginPaint();
        QVERIFY(m_column->TooltipAreas().empty());
        QCOMPARE(m_column->TooltipAt(QPoint(50, 10)), QString());
    }

    // ---- Painting a part ----

    void aStripIsPaintedAsItIsInTheWholeAndKeepsTheTooltip_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<int>("buttonPosition");
        QTest::newRow("a short caption") << int(TL_TRACK_KEY) << "Jaw" << 117;
        QTest::newRow("a long one") << int(TL_TRACK_KEY) << "Right shoulder blade rotation" << 117;
        QTest::newRow("a button beyond the picture") << int(TL_TRACK_KEY) << "Jaw" << 250;
        QTest::newRow("a wave row") << int(TL_TRACK_WAVE) << "Voice" << 117;
    }
    void aStripIsPaintedAsItIsInTheWholeAndKeepsTheTooltip()
    {
        QFETCH(int, type);
        QFETCH(QString, caption);
        QFETCH(int, buttonPosition);
        constexpr int kPaintedWidth = 300;
        constexpr int kHeight = 24;
        constexpr int kStripWidth = 3;
        CTimelineTrackBase& track = Track(caption, static_cast<TL_TRACK_TYPE>(type));
        if (!track.StyleAs<TrackStyle>()->captionButtons.empty())
            Button(kAddButton).position = buttonPosition;
        const auto paint = [&](const QRect& clip) {
            QImage image(kPaintedWidth, kHeight, QImage::Format_RGB32);
            image.fill(Qt::magenta);
            QPainter painter(&image);
            painter.setClipRect(clip);
            m_column->BeginPaint();
            m_column->PaintRow(painter, track, 0, kHeight);
            return image;
        };
        const QImage whole = paint(QRect(0, 0, kPaintedWidth, kHeight));
        for (int x = 0; x < kPaintedWidth; x += kStripWidth) {
            const QRect strip(x, 0, kStripWidth, kHeight);
            QCOMPARE(paint(strip).copy(strip), whole.copy(strip));
            QCOMPARE(m_column->TooltipAt(QPoint(50, 10)), caption);
        }
    }

    // ---- Pictures of captions and buttons ----

    void theCaptionPictureIsTheFocusedOneOfAnActiveTrack()
    {
        const ImageTables& images = TimelineLibrary::Instance().images;
        CTimelineTrackBase& track = Track("Jaw"); // BitmapID 0, BitmapFocusID 1
        QCOMPARE(m_column->CaptionPicture(track).toImage(),
                 images.Picture(kCaptionPictures, 4).toImage());
        track.SetActive(true);
        QCOMPARE(m_column->CaptionPicture(track).toImage(),
                 images.Picture(kCaptionPictures, 5).toImage());
    }

    void aTrackWithoutStyleHasNoCaption()
    {
        CTimelineTrackBase& track = Track("Jaw", TL_TRACK_KEY, kNoStyle);
        QVERIFY(m_column->CaptionPicture(track).isNull());
        QCOMPARE(Paint(track, 20), Ground(20));
    }

    void aButtonsPictureFollowsFromItsTypeItsNumberAndItsState_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("bitmapId");
        QTest::addColumn<int>("state");
        QTest::addColumn<int>("group");
        QTest::addColumn<int>("index");
        for (int bitmapId = 0; bitmapId < 2; ++bitmapId) {
            for (int state = 0; state < 3; ++state)
                QTest::addRow("push button %d in state %d", bitmapId, state)
                    << 0 << bitmapId << state << int(kPushButtonPictures) << bitmapId * 3 + state;
            for (int state = 0; state < 4; ++state)
                QTest::addRow("toggle button %d in state %d", bitmapId, state)
                    << 1 << bitmapId << state << int(kToggleButtonPictures) << bitmapId * 4 + state;
        }
        QTest::newRow("another type has none") << 2 << 0 << 0 << -1 << -1;
        QTest::newRow("a number outside the pictures has none") << 0 << 9 << 0 << -1 << -1;
    }
    void aButtonsPictureFollowsFromItsTypeItsNumberAndItsState()
    {
        QFETCH(int, type);
        QFETCH(int, bitmapId);
        QFETCH(int, state);
        QFETCH(int, group);
        QFETCH(int, index);
        CaptionButtonStyle button;
        button.type = type;
        button.bitmapId = bitmapId;
        button.state = state;
        const QPixmap& picture = m_column->ButtonPicture(button);
        QCOMPARE(picture.isNull(), group < 0);
        QCOMPARE(picture.toImage(),
                 TimelineLibrary::Instance().images.Picture(group, index).toImage());
    }

    void aButtonStandsInTheMiddleOfTheRowsHeight()
    {
        CTimelineTrackBase& track = Track("");
        Button(kHideButton).state = 2;
        QCOMPARE(m_column->ButtonPicture(Button(kAddButton)).height(), 11);
        QCOMPARE(m_column->ButtonPicture(Button(kHideButton)).height(), 15);
        for (const int height : {20, 25, 9}) {
            QImage wanted = Ground(height);
            QPainter painter(&wanted);
            painter.drawPixmap(0, 0, m_column->CaptionPicture(track));
            for (const CaptionButtonStyle& button : track.StyleAs<TrackStyle>()->captionButtons) {
                const QPixmap& picture = m_column->ButtonPicture(button);
                painter.drawPixmap(button.position, (height - picture.height()) / 2, picture);
            }
            painter.end();
            QCOMPARE(Paint(track, height), wanted);
        }
    }

    void theTextStandsAtItsLeftEdgeOnItsBaseline_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("plain") << "Jaw joint";
        QTest::newRow("on one line though it has a break") << "Jaw\njoint";
        QTest::newRow("marks are no markup") << "<b>Jaw</b> & joint";
    }
    void theTextStandsAtItsLeftEdgeOnItsBaseline()
    {
        QFETCH(QString, text);
        CTimelineTrackBase& track = Track(text, TL_TRACK_KEY, 2); // no buttons
        const CaptionStyle& caption = track.StyleAs<TrackStyle>()->caption;
        for (const int height : {20, 33}) {
            QImage wanted = Ground(height);
            QPainter painter(&wanted);
            painter.drawPixmap(0, 0, m_column->CaptionPicture(track));
            QFont font = caption.font;
            font.setWeight(QFont::Normal);
            painter.setFont(font);
            painter.setPen(caption.textColour.ToColor());
            const int p = QFontInfo(painter.font()).pointSize();
            painter.drawText(10, static_cast<int>((height - 1 - p) * 0.5) + p, text);
            painter.end();
            QCOMPARE(Paint(track, height), wanted);
        }
    }

    void captionPictures_data()
    {
        QTest::addColumn<bool>("active");
        QTest::addColumn<bool>("isRoot");
        QTest::addColumn<bool>("rootActive");
        QTest::addColumn<QString>("caption");
        QTest::newRow("normal") << false << true << false << "Left hip";
        QTest::newRow("root-active") << true << true << true << "Left hip";
        QTest::newRow("child-active-under-active-root") << true << false << true << "Left hip";
        // Bold on the focused picture, but in the normal colour.
        QTest::newRow("child-active-under-inactive-root") << true << false << false << "Left hip";
        QTest::newRow("child-inactive-under-active-root") << false << false << true << "Left hip";
        QTest::newRow("long") << false << true << false << "Right shoulder blade rotation";
        QTest::newRow("long-active") << true << true << true << "Right shoulder blade rotation";
        QTest::newRow("empty") << false << true << false << "";
    }
    void captionPictures()
    {
        QFETCH(bool, active);
        QFETCH(bool, isRoot);
        QFETCH(bool, rootActive);
        QFETCH(QString, caption);
        CTimelineTrackBase& track = Track(caption);
        const std::unique_ptr<CTimelineTrackBase> root(MakeTrack(TL_TRACK_KEY, "root", kNoStyle));
        track.SetParentTrack(isRoot ? &track : root.get());
        root->SetActive(rootActive);
        track.SetActive(active);
        KESTOVA_COMPARE_PICTURE(Paint(track, 20),
                                QStringLiteral("caption/") + QTest::currentDataTag());
    }

    void buttonPictures_data()
    {
        QTest::addColumn<int>("push");
        QTest::addColumn<int>("toggle");
        QTest::newRow("push-normal-toggle-off") << 0 << 0;
        QTest::newRow("push-hovered-toggle-off-hovered") << 1 << 1;
        QTest::newRow("push-pressed-toggle-on") << 2 << 2;
        QTest::newRow("push-normal-toggle-on-hovered") << 0 << 3;
    }
    void buttonPictures()
    {
        QFETCH(int, push);
        QFETCH(int, toggle);
        CTimelineTrackBase& track = Track("Buttons");
        for (CaptionButtonStyle& button : track.StyleAs<TrackStyle>()->captionButtons)
            button.state = button.type == 0 ? push : toggle;
        QCOMPARE(Button(kAddButton).type, 0);
        KESTOVA_COMPARE_PICTURE(Paint(track, 20),
                                QStringLiteral("caption/buttons-") + QTest::currentDataTag());
    }

    void aTallRowsCaption()
    {
        KESTOVA_COMPARE_PICTURE(Paint(Track("Motion", TL_TRACK_CLIP), 26), "caption/tall");
    }

    void aWaveRowsCaptionIsPaintedFromItsColours_data()
    {
        QTest::addColumn<int>("style");
        QTest::addColumn<int>("height");
        QTest::addColumn<bool>("active");
        QTest::newRow("wave") << 1 << 66 << false;
        QTest::newRow("wave-active") << 1 << 66 << true;
        QTest::newRow("wave-button") << 2 << 54 << false;
    }
    void aWaveRowsCaptionIsPaintedFromItsColours()
    {
        QFETCH(int, style);
        QFETCH(int, height);
        QFETCH(bool, active);
        CTimelineTrackBase& track = Track("Voice", TL_TRACK_WAVE, style);
        track.SetParentTrack(&track);
        track.SetActive(active);
        KESTOVA_COMPARE_PICTURE(Paint(track, height),
                                QStringLiteral("caption/") + QTest::currentDataTag());
    }

    void aWaveRowsCaptionHasItsLinesInTheColoursOfTheSkin()
    {
        CTimelineTrackBase& track = Track("", TL_TRACK_WAVE);
        const auto* wave = track.StyleAs<WaveTrackStyle>();
        const QImage image = Paint(track, 60);
        const int middle = kColumnWidth / 2;
        const auto colour = [](const StyleColour& c) { return c.ToColor().rgb(); };
        QCOMPARE(image.pixel(middle, 0), colour(wave->captionTop.colour));
        QCOMPARE(image.pixel(middle, 30), colour(wave->captionFill.colour));
        QCOMPARE(image.pixel(middle, 58), colour(wave->captionBottomUpper.colour));
        QCOMPARE(image.pixel(middle, 59), colour(wave->captionBottom.colour));
        QCOMPARE(image.pixel(0, 30), colour(wave->captionLeft.colour));
        QCOMPARE(image.pixel(kColumnWidth - 1, 30), colour(wave->captionBorder.colour));
    }
};

QTEST_MAIN(tst_CaptionColumn)
#include "tst_CaptionColumn.moc"
