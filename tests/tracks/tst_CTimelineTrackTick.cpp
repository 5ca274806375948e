#include "support/PictureCheck.h"
#include "support/TimelineFixture.h"
#include "tracks/CTimelineTrackTick.h"

#include <QScopedValueRollback>
#include <QTemporaryFile>
#include <QtTest>

#include <climits>

#include <limits>
#include <memory>
#include <random>

namespace {

constexpr int kWidth = 600;
constexpr int kHeight = 27; // of the ruler row's caption picture
constexpr int kMarkerWidth = 11;
constexpr int kMarkerHeight = 25;
constexpr int kOffTheView = -100000; // a time mark that no picture shows
constexpr int kLargestInt = std::numeric_limits<int>::max();
constexpr int kSmallestInt = std::numeric_limits<int>::min();

FrameAxis& Axis()
{
    return TimelineLibrary::Instance().axis;
}

std::unique_ptr<CTimelineTrackTick> StyledRuler()
{
    auto track = std::make_unique<CTimelineTrackTick>();
    track->Init(nullptr);
    track->SetRowHeight(kHeight);
    return track->LoadStyle(1) ? std::move(track) : nullptr;
}

QImage Drawn(CTimelineTrackTick& track)
{
    return KestovaTest::DrawRow(track, QSize(kWidth, kHeight));
}

/// Paints the ruler the plain way: a walk over every step of the row with texture brushes, whatever
/// of it can be seen.
class PlainRuler
{
public:
    PlainRuler(QPainter& painter, const QRect& rect, const CTimelineTrackTick& track)
        : m_painter(painter), m_rect(rect), m_track(track),
          m_style(*track.StyleAs<TickTrackStyle>()),
          m_stepX(Axis().IsFramesPerPixel() ? 1 : Axis().info.pixelsPerFrame)
    {
    }

    void Paint()
    {
        m_painter.setBrushOrigin(m_rect.topLeft());
        PaintGround();
        QFont font(m_style.textFace);
        font.setPixelSize(m_style.textMinSize);
        m_painter.setFont(font);
        m_painter.setPen(m_style.textColour.ToColor());
        const CFrameInfo& info = Axis().info;
        long long frame = Axis().PixelToFrame(0);
        for (int x = Axis().FrameToPixel(frame); x < m_rect.width(); x += m_stepX) {
            if (frame % info.step2 == 0)
                PaintTick(frame, x);
            frame += info.step3;
        }
        PaintMarkers();
        PaintCurrentFrame();
    }

private:
    void Fill(int x1, int x2, int brush)
    {
        m_painter.fillRect(QRect(QPoint(m_rect.left() + x1, m_rect.top()),
                                 QPoint(m_rect.left() + x2, m_rect.bottom())),
                           TimelineLibrary::Instance().images.Brush(kRulerBrushes, brush));
    }

    void PaintGround()
    {
        const int endX = Axis().FrameToPixel(Axis().frameCount);
        const int last = m_rect.width() - 1;
        if (endX > m_rect.width()) {
            Fill(0, last, 2);
        } else if (endX > 0) {
            Fill(0, endX, 2);
            Fill(endX, last, 3);
        } else {
            Fill(0, last, 3);
        }
    }

    void PaintTick(long long frame, int x)
    {
        const int interval = Axis().info.step2;
        const bool major = frame % (5LL * interval) == 0;
        if (x >= Axis().FrameToPixel(Axis().frameCount)) {
            Fill(x, x + 1, 3);
        } else if (!major) {
            Fill(x, x + 1, 5);
        } else if (interval > 1) {
            Fill(x, x + 1, 7);
        } else {
            Fill(x - m_stepX, x + 1, 4);
            Fill(x - m_stepX, x - m_stepX + 1, 7);
        }
        if (!major)
            return;
        const QFontMetrics metrics = m_painter.fontMetrics();
        const QString text = QString::number(frame);
        const int textX =
            m_rect.left() - 1 +
            static_cast<int>(x - metrics.averageCharWidth() * text.length() * 0.5 - m_stepX * 0.5);
        const auto height = static_cast<float>(m_rect.height());
        const int textY =
            m_rect.top() + static_cast<int>((height - static_cast<float>(m_style.textOffset)) -
                                            (height - static_cast<float>(metrics.height())) * 0.5f);
        m_painter.drawText(textX, textY, text);
    }

    void PaintMarkers()
    {
        const ImageTables& images = TimelineLibrary::Instance().images;
        const int startX = m_rect.left() + Axis().FrameToPixel(m_track.TimeMarkStart());
        const int endX = m_rect.left() + Axis().FrameToPixel(m_track.TimeMarkEnd() + 1) -
                         images.Glyph(kTimeMarkGlyphs, 0).width();
        m_painter.drawPixmap(startX, m_rect.top(), images.Glyph(kTimeMarkGlyphs, 0));
        if (endX < m_rect.right())
            m_painter.drawPixmap(endX, m_rect.top(), images.Glyph(kTimeMarkGlyphs, 1));
    }

    void PaintCurrentFrame()
    {
        const FrameAxis& axis = Axis();
        if (axis.currentFrame < 0 || axis.currentFrame >= axis.frameCount)
            return;
        const int x0 = axis.FrameToPixel(axis.currentFrame);
        const int x1 = static_cast<int>(axis.Scale() + x0 + 1.0);
        if (x1 - x0 < 3 || axis.IsFramesPerPixel()) {
            Fill(x0, x0 + 1, 13);
            return;
        }
        Fill(x0, x1, 10);
        Fill(x0 + 1, x1 - 1, 11);
        Fill((x1 + x0) / 2, (x1 + x0) / 2 + 1, 12);
    }

    QPainter& m_painter;
    QRect m_rect;
    const CTimelineTrackTick& m_track;
    const TickTrackStyle& m_style;
    int m_stepX;
};

QImage PaintedPlainly(const CTimelineTrackTick& track, const QSize& size = {kWidth, kHeight},
                      const QRect& rect = {0, 0, kWidth, kHeight})
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    PlainRuler(painter, rect, track).Paint();
    painter.end();
    return image;
}

/// Whether a column of the picture shows a brush of the ruler below the numbers. Its textures are
/// one pixel wide.
bool ShowsBrush(const QImage& image, int x, int brush)
{
    QImage wanted(1, kHeight, image.format());
    wanted.fill(Qt::magenta);
    QPainter painter(&wanted);
    painter.fillRect(wanted.rect(), TimelineLibrary::Instance().images.Brush(kRulerBrushes, brush));
    painter.end();
    constexpr int belowNumbers = kHeight - 6;
    for (int y = belowNumbers; y < kHeight; ++y)
        if (image.pixel(x, y) != wanted.pixel(0, y))
            return false;
    return true;
}

/// An axis and time marks of any sort that a user can bring about, and some more.
void SetAnything(std::mt19937& random, CTimelineTrackTick& track)
{
    const auto upTo = [&](int count) { return static_cast<int>(random() % unsigned(count)); };
    const double scale = upTo(2) ? 2 + upTo(9) : 1.0 / (0.5 + upTo(60));
    const int frameCount = upTo(10) ? upTo(4000) : 0;
    FrameAxis& axis = KestovaTest::ResetAxis(frameCount, scale);
    axis.scrollX = upTo(8) ? upTo(1 + axis.SpanToPixel(frameCount)) : upTo(40) - 20;
    axis.currentFrame = axis.PixelToFrame(upTo(kWidth));
    track.SetTimeMark(axis.PixelToFrame(upTo(kWidth)), axis.PixelToFrame(upTo(kWidth + 50)));
}

} // namespace

class tst_CTimelineTrackTick : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init();

    void isARowOfItsKindAfterInit();
    void marksFrames0And1WhenItIsNew();
    void keepsTimeMarksInAnyOrder();
    void coloursTheCurrentFrameLineWhenItsStyleIsLoaded();
    void leavesTheCurrentFrameLineAloneWhenItsStyleIsIncomplete();
    void paintsWithoutAWordWhateverTheLabelSize_data();
    void paintsWithoutAWordWhateverTheLabelSize();

    void paintsEveryStateOfTheAxis_data();
    void paintsEveryStateOfTheAxis();
    void paintsAsThePlainWalkForAnyAxis();
    void paintsAsThePlainWalkAnywhere();
    void paintsTheSamePixelsColumnByColumn();
    void takesTheSizeOfTheRectangleItPaints();
    void leavesThePaintersBrushOrigin();
    void paintsNothingOutsideTheClip();

    void ticksEveryFrameFromFivePixelsPerFrame();
    void ticksEveryFiveFramesBelowFivePixelsPerFrame();
    void ticksEveryTenPixelsInFramesPerPixelMode();
    void startsAtAMultipleOfFramesPerPixelSoThatTicksLineUp();
    void centresANumberHalfAStepLeftOfItsTick();
    void shadesTheNumberedCellLeftOfItsTick();
    void goesOnNumberingBeyondTheLastFrame();
    void fillsTheWholeRowBeyondTheEndWhenScrolledPastIt();
    void drawsNoCurrentFrameAtTheFrameCount();
    void drawsTheCurrentFrameAsACellOrAColumn();
    void drawsTheEndMarkerOnlyLeftOfTheRightEdge();
    void paintsWithoutAStyleButForTheNumbers();
    void survivesExtremeValues();

    void hitsTheEndMarkerBeforeTheStartMarker_data();
    void hitsTheEndMarkerBeforeTheStartMarker();
    void hitsMarkersWithoutEditModeOrRange();
    void hitsTheCellOfTheCurrentFrame_data();
    void hitsTheCellOfTheCurrentFrame();
    void hitsNoCellInFramesPerPixelMode();

private:
    std::unique_ptr<CTimelineTrackTick> m_track;
};

void tst_CTimelineTrackTick::initTestCase()
{
    QVERIFY(KestovaTest::PrepareTimeline());
    const QPixmap& marker = TimelineLibrary::Instance().images.Glyph(kTimeMarkGlyphs, 0);
    QCOMPARE(marker.size(), QSize(kMarkerWidth, kMarkerHeight));
}

void tst_CTimelineTrackTick::init()
{
    KestovaTest::ResetAxis(100, 10.0);
    m_track = StyledRuler();
    QVERIFY(m_track);
    m_track->SetTimeMark(kOffTheView, kOffTheView);
}

void tst_CTimelineTrackTick::isARowOfItsKindAfterInit()
{
    QWidget parent;
    auto* track = new CTimelineTrackTick;
    QVERIFY(track->Init(&parent));
    QCOMPARE(track->parentWidget(), &parent);
    QCOMPARE(track->GetTrackType(), int{TL_TRACK_TICK});
    QCOMPARE(track->size(), QSize(10, track->GetRowHeight()));
    QCOMPARE(track->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(track->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(track->accessibleName(), QStringLiteral("CTimelineTrackTick"));
}

void tst_CTimelineTrackTick::marksFrames0And1WhenItIsNew()
{
    const CTimelineTrackTick track;
    QCOMPARE(track.TimeMarkStart(), 0);
    QCOMPARE(track.TimeMarkEnd(), 1);
}

void tst_CTimelineTrackTick::keepsTimeMarksInAnyOrder()
{
    m_track->SetTimeMark(50, -3);
    QCOMPARE(m_track->TimeMarkStart(), 50);
    QCOMPARE(m_track->TimeMarkEnd(), -3);
}

void tst_CTimelineTrackTick::coloursTheCurrentFrameLineWhenItsStyleIsLoaded()
{
    TimelineLibrary& library = TimelineLibrary::Instance();
    library.currentFrameLine = Qt::black;
    QVERIFY(m_track->LoadStyle(1));
    QCOMPARE(library.currentFrameLine, m_track->StyleAs<TickTrackStyle>()->markLine.ToColor());
    QVERIFY(library.currentFrameLine != QColor(Qt::black));
}

void tst_CTimelineTrackTick::leavesTheCurrentFrameLineAloneWhenItsStyleIsIncomplete()
{
    TimelineLibrary& library = TimelineLibrary::Instance();
    QTemporaryFile skin;
    QVERIFY(skin.open());
    skin.write("[TickTrack]\nMarkLine=(1,2,3)\nTxtOffset=8\nTxtSizeRatio=1\nTxtMinSize=10\n"
               "TxtFace=Some Face\n"); // and no TxtColor
    skin.close();
    const QScopedValueRollback<std::wstring> path(library.skinPath, skin.fileName().toStdWString());
    const QScopedValueRollback<QColor> line(library.currentFrameLine, QColor(4, 5, 6));
    QVERIFY(!m_track->LoadStyle(1));
    QCOMPARE(m_track->StyleAs<TickTrackStyle>()->markLine.ToColor(), QColor(1, 2, 3));
    QCOMPARE(library.currentFrameLine, QColor(4, 5, 6));
}

void tst_CTimelineTrackTick::paintsWithoutAWordWhateverTheLabelSize_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {INT_MIN, -1, 0, 1})
        QTest::addRow("%d", size) << size;
}

void tst_CTimelineTrackTick::paintsWithoutAWordWhateverTheLabelSize()
{
    QFETCH(int, size);
    static QStringList printed;
    printed.clear();
    m_track->StyleAs<TickTrackStyle>()->textMinSize = size;
    const auto before = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString& text) { printed << text; });
    KestovaTest::DrawRow(*m_track, QSize(300, 26));
    qInstallMessageHandler(before);
    QCOMPARE(printed, QStringList());
}

void tst_CTimelineTrackTick::paintsEveryStateOfTheAxis_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("frameCount");
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("scrollX");
    QTest::addColumn<int>("currentFrame");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    const int none = kOffTheView;
    QTest::newRow("10 pixels per frame") << "10-pixels" << 100 << 10.0 << 0 << 7 << none << none;
    QTest::newRow("5 pixels per frame") << "5-pixels" << 200 << 5.0 << 0 << 7 << none << none;
    QTest::newRow("3 pixels per frame") << "3-pixels" << 300 << 3.0 << 0 << 7 << none << none;
    QTest::newRow("2 pixels per frame") << "2-pixels" << 300 << 2.0 << 0 << 7 << none << none;
    QTest::newRow("1 frame per pixel") << "1-frame" << 700 << 1.5 << 0 << 77 << none << none;
    QTest::newRow("7 frames per pixel") << "7-frames" << 9000 << 0.15 << 0 << 777 << none << none;
    QTest::newRow("scrolled within a frame")
        << "scrolled-10-pixels" << 100 << 10.0 << 243 << 40 << none << none;
    QTest::newRow("scrolled, 3 pixels per frame")
        << "scrolled-3-pixels" << 400 << 3.0 << 301 << 150 << none << none;
    QTest::newRow("scrolled, 7 frames per pixel")
        << "scrolled-7-frames" << 9000 << 0.15 << 333 << 2500 << none << none;
    QTest::newRow("last frame in view") << "end-in-view" << 41 << 10.0 << 0 << 38 << none << none;
    QTest::newRow("last frame in view, frames per pixel")
        << "end-in-view-frames" << 3000 << 0.15 << 100 << 2990 << none << none;
    QTest::newRow("scrolled past the end")
        << "past-the-end" << 20 << 10.0 << 400 << 3 << none << none;
    QTest::newRow("no frames") << "no-frames" << 0 << 10.0 << 0 << 0 << none << none;
    QTest::newRow("current frame at the left edge, cut off")
        << "current-cut-off" << 100 << 10.0 << 74 << 7 << none << none;
    QTest::newRow("current frame at the count")
        << "current-at-count" << 41 << 10.0 << 0 << 41 << none << none;
    QTest::newRow("time marks of a new ruler") << "marks-new" << 100 << 10.0 << 0 << 7 << 0 << 1;
    QTest::newRow("time marks") << "marks" << 100 << 10.0 << 0 << 7 << 12 << 40;
    QTest::newRow("time marks crossed") << "marks-crossed" << 100 << 10.0 << 0 << 7 << 40 << 12;
    QTest::newRow("time marks on one frame") << "marks-one" << 100 << 10.0 << 0 << 7 << 20 << 20;
    QTest::newRow("time marks beyond the end")
        << "marks-beyond" << 30 << 10.0 << 0 << 7 << 35 << 50;
    QTest::newRow("end mark at the right edge")
        << "marks-at-edge" << 100 << 10.0 << 0 << 7 << 30 << 60;
    QTest::newRow("time marks, frames per pixel")
        << "marks-frames" << 9000 << 0.15 << 0 << 777 << 700 << 2100;
    QTest::newRow("scrolled left of the first frame")
        << "left-of-start" << 100 << 10.0 << -25 << 2 << none << none;
}

void tst_CTimelineTrackTick::paintsEveryStateOfTheAxis()
{
    QFETCH(QString, name);
    QFETCH(int, frameCount);
    QFETCH(double, scale);
    QFETCH(int, scrollX);
    QFETCH(int, currentFrame);
    QFETCH(int, start);
    QFETCH(int, end);
    KestovaTest::ResetAxis(frameCount, scale, scrollX, currentFrame);
    m_track->SetTimeMark(start, end);
    const QImage image = Drawn(*m_track);
    QCOMPARE(image, PaintedPlainly(*m_track));
    KESTOVA_COMPARE_PICTURE(image, "ruler/" + name);
}

void tst_CTimelineTrackTick::paintsAsThePlainWalkForAnyAxis()
{
    std::mt19937 random(5);
    for (int round = 0; round < 400; ++round) {
        SetAnything(random, *m_track);
        QVERIFY2(Drawn(*m_track) == PaintedPlainly(*m_track), qPrintable(QString::number(round)));
    }
}

void tst_CTimelineTrackTick::paintsAsThePlainWalkAnywhere()
{
    KestovaTest::ResetAxis(45, 10.0, 33, 20);
    m_track->SetTimeMark(12, 40);
    const QRect rect(90, 30, 400, kHeight);
    QImage image(600, 80, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    m_track->DrawTrack(&painter, rect);
    painter.end();
    QCOMPARE(image.copy(rect), PaintedPlainly(*m_track, image.size(), rect).copy(rect));
}

void tst_CTimelineTrackTick::paintsTheSamePixelsColumnByColumn()
{
    std::mt19937 random(6);
    for (int round = 0; round < 300; ++round) {
        SetAnything(random, *m_track);
        const QImage whole = Drawn(*m_track);
        const int x = static_cast<int>(random() % kWidth);
        const QRect clip(x, 0, 1 + static_cast<int>(random() % 40), kHeight);
        QImage part(whole.size(), whole.format());
        part.fill(Qt::magenta);
        QPainter painter(&part);
        painter.setClipRect(clip);
        m_track->DrawTrack(&painter, part.rect());
        painter.end();
        const QRect shown = clip & whole.rect();
        QVERIFY2(part.copy(shown) == whole.copy(shown), qPrintable(QString::number(round)));
    }
}

void tst_CTimelineTrackTick::takesTheSizeOfTheRectangleItPaints()
{
    KestovaTest::DrawRow(*m_track, QSize(321, kHeight));
    QCOMPARE(m_track->size(), QSize(321, kHeight));
}

void tst_CTimelineTrackTick::leavesThePaintersBrushOrigin()
{
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setBrushOrigin(7, 9);
    m_track->DrawTrack(&painter, image.rect());
    QCOMPARE(painter.brushOrigin(), QPoint(7, 9));
}

void tst_CTimelineTrackTick::paintsNothingOutsideTheClip()
{
    QImage image(kWidth, 80, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    const QImage untouched = image;
    QPainter painter(&image);
    painter.setClipRect(QRect(0, 50, kWidth, 30));
    m_track->DrawTrack(&painter, QRect(0, 0, kWidth, kHeight));
    painter.end();
    QCOMPARE(image, untouched);
}

void tst_CTimelineTrackTick::ticksEveryFrameFromFivePixelsPerFrame()
{
    for (const int pixels : {5, 10}) {
        KestovaTest::ResetAxis(500, pixels);
        const QImage image = Drawn(*m_track);
        for (const int frame : {1, 2, 3, 6, 7, 8}) {
            QVERIFY(ShowsBrush(image, frame * pixels, 5));
            QVERIFY(ShowsBrush(image, frame * pixels + 1, 5));
            QVERIFY(!ShowsBrush(image, frame * pixels + 2, 5));
        }
        // The numbered frame's tick stands one step to the left, over its neighbour's.
        for (const int frame : {5, 10, 15})
            QVERIFY(ShowsBrush(image, (frame - 1) * pixels, 7));
    }
}

void tst_CTimelineTrackTick::ticksEveryFiveFramesBelowFivePixelsPerFrame()
{
    for (const int pixels : {2, 3, 4}) {
        KestovaTest::ResetAxis(500, pixels);
        const QImage image = Drawn(*m_track);
        for (int frame = 1; frame < 100; ++frame) {
            QCOMPARE(ShowsBrush(image, frame * pixels, 7), frame % 25 == 0);
            QCOMPARE(ShowsBrush(image, frame * pixels, 5), frame % 5 == 0 && frame % 25 != 0);
        }
    }
}

void tst_CTimelineTrackTick::ticksEveryTenPixelsInFramesPerPixelMode()
{
    for (const double scale : {1.5, 0.7, 0.15, 0.0201}) {
        KestovaTest::ResetAxis(100000, scale);
        const QImage image = Drawn(*m_track);
        for (int x = 1; x < 500; ++x) {
            const int sinceTick = x % 10;
            const int sinceNumber = x % 50;
            QCOMPARE(ShowsBrush(image, x, 7), sinceNumber < 2);
            QCOMPARE(ShowsBrush(image, x, 5), sinceTick < 2 && sinceNumber >= 2);
        }
    }
}

void tst_CTimelineTrackTick::startsAtAMultipleOfFramesPerPixelSoThatTicksLineUp()
{
    // k = 49, 93 and 98 are those that a rounded 1 / k would put one column off.
    for (const int k : {3, 49, 93, 98, 103}) {
        KestovaTest::ResetAxis(1000000);
        Axis().info = CFrameInfo(1.0 / (k - 0.5));
        QCOMPARE(Axis().info.framesPerPixel, k);
        const QImage atStart = Drawn(*m_track);
        Axis().scrollX = 50;
        const QImage scrolled = Drawn(*m_track);
        for (int x = 2; x < kWidth - 50; ++x)
            QCOMPARE(ShowsBrush(scrolled, x, 5), ShowsBrush(atStart, x, 5));
        Axis().scrollX = 53;
        const QImage further = Drawn(*m_track);
        for (int x = 2; x < kWidth - 53; ++x)
            QCOMPARE(ShowsBrush(further, x, 5), ShowsBrush(atStart, x + 3, 5));
    }
}

void tst_CTimelineTrackTick::centresANumberHalfAStepLeftOfItsTick()
{
    KestovaTest::ResetAxis(5000, 10.0, 10000 - 300);
    // Frame 1000 has its tick at column 300; its number is centred at 295.
    const QImage image = Drawn(*m_track);
    const QColor textColour = m_track->StyleAs<TickTrackStyle>()->textColour.ToColor();
    int first = kWidth;
    int last = 0;
    for (int x = 275; x < 325; ++x) {
        for (int y = 0; y < kHeight; ++y) {
            const QColor got = image.pixelColor(x, y);
            if (std::abs(got.lightness() - textColour.lightness()) < 60) {
                first = std::min(first, x);
                last = std::max(last, x);
            }
        }
    }
    QVERIFY2(first < last, "no number found");
    const int centre = (first + last) / 2;
    QVERIFY2(std::abs(centre - 295) <= 2, qPrintable(QString::number(centre)));
}

void tst_CTimelineTrackTick::shadesTheNumberedCellLeftOfItsTick()
{
    const QImage image = Drawn(*m_track);
    QVERIFY(ShowsBrush(image, 39, 2));
    QVERIFY(ShowsBrush(image, 40, 7));
    QVERIFY(ShowsBrush(image, 41, 7));
    for (int x = 42; x <= 51; ++x)
        QVERIFY(ShowsBrush(image, x, 4));
    QVERIFY(ShowsBrush(image, 52, 2));
}

void tst_CTimelineTrackTick::goesOnNumberingBeyondTheLastFrame()
{
    KestovaTest::ResetAxis(20, 10.0);
    const QImage image = Drawn(*m_track);
    // Ground and ticks beyond the end are one brush, so whatever else is there is a number.
    QImage ground(image.size(), image.format());
    QPainter painter(&ground);
    painter.fillRect(ground.rect(), TimelineLibrary::Instance().images.Brush(kRulerBrushes, 3));
    painter.end();
    for (const int frame : {25, 30, 35, 40}) {
        const QRect number(frame * 10 - 15, 0, 20, kHeight);
        QVERIFY(image.copy(number) != ground.copy(number));
        const QRect between(frame * 10 + 15, 0, 15, kHeight);
        QCOMPARE(image.copy(between), ground.copy(between));
    }
}

void tst_CTimelineTrackTick::fillsTheWholeRowBeyondTheEndWhenScrolledPastIt()
{
    for (const int scrollX : {200, 201, 5000}) {
        KestovaTest::ResetAxis(20, 10.0, scrollX);
        const QImage image = Drawn(*m_track);
        for (int x = 0; x < kWidth; ++x)
            QVERIFY(ShowsBrush(image, x, 3));
    }
}

void tst_CTimelineTrackTick::drawsNoCurrentFrameAtTheFrameCount()
{
    for (const double scale : {10.0, 0.4}) {
        KestovaTest::ResetAxis(50, scale, 0, -1);
        const QImage none = Drawn(*m_track);
        Axis().currentFrame = 50;
        QCOMPARE(Drawn(*m_track), none);
        Axis().currentFrame = 51;
        QCOMPARE(Drawn(*m_track), none);
        Axis().currentFrame = 49;
        QVERIFY(Drawn(*m_track) != none);
    }
}

void tst_CTimelineTrackTick::drawsTheCurrentFrameAsACellOrAColumn()
{
    KestovaTest::ResetAxis(500, 10.0, 0, 7);
    const QImage cell = Drawn(*m_track);
    const int cellBrushes[] = {10, 11, 11, 11, 11, 12, 12, 11, 11, 11, 11, 10};
    for (int column = 0; column < 12; ++column)
        QVERIFY(ShowsBrush(cell, 70 + column, cellBrushes[column]));
    QVERIFY(!ShowsBrush(cell, 69, 10));
    QVERIFY(!ShowsBrush(cell, 82, 10));

    KestovaTest::ResetAxis(500, 2.0, 0, 7);
    const QImage narrow = Drawn(*m_track);
    const int narrowBrushes[] = {10, 12, 12, 10}; // the middle of 14 and 17 is 15
    for (int column = 0; column < 4; ++column)
        QVERIFY(ShowsBrush(narrow, 14 + column, narrowBrushes[column]));

    KestovaTest::ResetAxis(500, 0.4, 0, 21);
    const QImage column = Drawn(*m_track);
    QVERIFY(ShowsBrush(column, 7, 13));
    QVERIFY(ShowsBrush(column, 8, 13));
    QVERIFY(!ShowsBrush(column, 9, 13));
}

void tst_CTimelineTrackTick::drawsTheEndMarkerOnlyLeftOfTheRightEdge()
{
    const QPixmap& marker = TimelineLibrary::Instance().images.Glyph(kTimeMarkGlyphs, 1);
    const auto drawnAt = [&](int width, int end) {
        m_track->SetTimeMark(kOffTheView, kOffTheView);
        const QImage without = KestovaTest::DrawRow(*m_track, QSize(width, kHeight));
        m_track->SetTimeMark(kOffTheView, end);
        return KestovaTest::DrawRow(*m_track, QSize(width, kHeight)) != without;
    };
    // Frame 41 begins at column 410, so the marker of end 40 begins at 399.
    QCOMPARE(marker.width(), kMarkerWidth);
    QVERIFY(!drawnAt(400, 40));
    QVERIFY(drawnAt(401, 40));
}

void tst_CTimelineTrackTick::paintsWithoutAStyleButForTheNumbers()
{
    CTimelineTrackTick plain;
    QVERIFY(plain.Init(nullptr));
    plain.SetTimeMark(kOffTheView, kOffTheView);
    const QImage image = KestovaTest::DrawRow(plain, QSize(kWidth, kHeight));
    QVERIFY(ShowsBrush(image, 25, 2));
    QVERIFY(ShowsBrush(image, 30, 5));
    QVERIFY(ShowsBrush(image, 45, 4));
    // Without numbers the shaded cell is its texture all over.
    QCOMPARE(image.copy(QRect(42, 0, 8, kHeight)), image.copy(QRect(92, 0, 8, kHeight)));
}

void tst_CTimelineTrackTick::survivesExtremeValues()
{
    const int extremes[] = {kSmallestInt, kSmallestInt + 1, -1, 0, 1, kLargestInt - 1, kLargestInt};
    const double scales[] = {10.0, 2.0, 1.5, 0.3, 1e-300};
    for (const double scale : scales) {
        for (const int scrollX : extremes) {
            for (const int value : extremes) {
                KestovaTest::ResetAxis(value, scale, scrollX, value);
                m_track->SetTimeMark(value, value);
                const QImage image = Drawn(*m_track);
                QVERIFY(image.pixelColor(kWidth / 2, kHeight - 1) != QColor(Qt::magenta));
                m_track->HitTestRangeMarker(QPoint(value, 5));
                m_track->HitTestCurrentFrame(QPoint(value, 5));
            }
        }
    }
}

void tst_CTimelineTrackTick::hitsTheEndMarkerBeforeTheStartMarker_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<int>("marker");
    // Start at column 200; the end marker ends before frame 31's column, 310.
    QTest::newRow("left of the start marker") << 20 << 30 << QPoint(199, 5) << -1;
    QTest::newRow("first column of the start marker") << 20 << 30 << QPoint(200, 5) << 0;
    QTest::newRow("last column of the start marker") << 20 << 30 << QPoint(210, 5) << 0;
    QTest::newRow("right of the start marker") << 20 << 30 << QPoint(211, 5) << -1;
    QTest::newRow("top of the start marker") << 20 << 30 << QPoint(205, 0) << 0;
    QTest::newRow("above the start marker") << 20 << 30 << QPoint(205, -1) << -1;
    QTest::newRow("bottom of the start marker") << 20 << 30 << QPoint(205, 24) << 0;
    QTest::newRow("below the start marker") << 20 << 30 << QPoint(205, 25) << -1;
    QTest::newRow("left of the end marker") << 20 << 30 << QPoint(298, 5) << -1;
    QTest::newRow("first column of the end marker") << 20 << 30 << QPoint(299, 5) << 1;
    QTest::newRow("last column of the end marker") << 20 << 30 << QPoint(309, 5) << 1;
    QTest::newRow("right of the end marker") << 20 << 30 << QPoint(310, 5) << -1;
    QTest::newRow("both on one frame, where they overlap") << 20 << 20 << QPoint(205, 5) << 1;
    QTest::newRow("both on one frame, beside the end marker") << 20 << 20 << QPoint(210, 5) << 0;
    QTest::newRow("crossed") << 30 << 20 << QPoint(305, 5) << 0;
}

void tst_CTimelineTrackTick::hitsTheEndMarkerBeforeTheStartMarker()
{
    QFETCH(int, start);
    QFETCH(int, end);
    QFETCH(QPoint, point);
    m_track->SetTimeMark(start, end);
    QTEST(m_track->HitTestRangeMarker(point), "marker");
}

void tst_CTimelineTrackTick::hitsMarkersWithoutEditModeOrRange()
{
    m_track->SetTimeMark(20, 30);
    QVERIFY(!m_track->HasEditMode(TL_EDIT_TIME_RANGE));
    QCOMPARE(m_track->RangeStart(), -1);
    QCOMPARE(m_track->HitTestRangeMarker(QPoint(205, 5)), 0);
}

void tst_CTimelineTrackTick::hitsTheCellOfTheCurrentFrame_data()
{
    QTest::addColumn<int>("pixelsPerFrame");
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<bool>("hit");
    QTest::newRow("left of the cell") << 10 << QPoint(69, 5) << false;
    QTest::newRow("first column") << 10 << QPoint(70, 5) << true;
    QTest::newRow("last column") << 10 << QPoint(80, 5) << true;
    QTest::newRow("right of the cell") << 10 << QPoint(81, 5) << false;
    QTest::newRow("top") << 10 << QPoint(75, 0) << true;
    QTest::newRow("above") << 10 << QPoint(75, -1) << false;
    QTest::newRow("bottom") << 10 << QPoint(75, kHeight - 1) << true;
    QTest::newRow("below") << 10 << QPoint(75, kHeight) << false;
    QTest::newRow("last column at 2 pixels per frame") << 2 << QPoint(16, 5) << true;
    QTest::newRow("right of the cell at 2 pixels per frame") << 2 << QPoint(17, 5) << false;
}

void tst_CTimelineTrackTick::hitsTheCellOfTheCurrentFrame()
{
    QFETCH(int, pixelsPerFrame);
    QFETCH(QPoint, point);
    KestovaTest::ResetAxis(100, pixelsPerFrame, 0, 7);
    QTEST(m_track->HitTestCurrentFrame(point), "hit");
}

void tst_CTimelineTrackTick::hitsNoCellInFramesPerPixelMode()
{
    KestovaTest::ResetAxis(1000, 0.3, 0, 40);
    for (int x = 5; x <= 15; ++x)
        QVERIFY(!m_track->HitTestCurrentFrame(QPoint(x, 5)));
}

QTEST_MAIN(tst_CTimelineTrackTick)
#include "tst_CTimelineTrackTick.moc"
