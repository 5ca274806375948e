#include "tracks/BackgroundCache.h"
#include "tracks/PaintCaches.h"
#include "tracks/ShapedTexts.h"

#include <QtTest>

#include "tracks/RowScenes.h"

#include <functional>

using namespace KestovaTest;

namespace {

constexpr int kHeight = 27;
const QSize kSize(200, kHeight);

/// A row's background, painted through a cache onto a picture of its own.
class Canvas
{
public:
    explicit Canvas(qreal ratio = 1.0) : m_image(kSize * ratio, QImage::Format_RGB32)
    {
        m_image.setDevicePixelRatio(ratio);
        m_image.fill(Qt::magenta);
    }

    QImage Paint(BackgroundCache& cache, const TrackStyle& style,
                 const std::function<void(QPainter&)>& prepare = {}, TimeRange range = {})
    {
        QPainter painter(&m_image);
        if (prepare)
            prepare(painter);
        const RowView view(painter, QRect(QPoint(), m_size), SceneAxis());
        cache.Draw(painter, view, style, range);
        return m_image;
    }
    QSize m_size = kSize;

private:
    QImage m_image;
};

} // namespace

class tst_PaintCaches : public QObject
{
    Q_OBJECT

    std::unique_ptr<CTimelineTrackBase> m_row;

    const TrackStyle& Style() const { return *m_row->StyleAs<TrackStyle>(); }

private slots:
    void initTestCase()
    {
        QVERIFY(PrepareTimeline());
        m_row = MakeTrack(TL_TRACK_KEY);
    }
    void cleanupTestCase() { m_row.reset(); }
    void init()
    {
        ResetAxis(40, 10.0);
        ClearPaintCaches();
    }

    void aRowWithoutWidthOrHeightPaintsNothingAndSaysNothing()
    {
        static int messages;
        messages = 0;
        const auto before = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext&, const QString&) { ++messages; });
        QImage painted[2];
        for (const QSize& size : {QSize(0, kHeight), QSize(kSize.width(), 0)}) {
            BackgroundCache cache;
            Canvas canvas;
            canvas.m_size = size;
            painted[size.width() == 0] = canvas.Paint(cache, Style());
        }
        qInstallMessageHandler(before);
        QCOMPARE(messages, 0);
        for (const QImage& image : painted) {
            QImage untouched = image;
            untouched.fill(Qt::magenta);
            QVERIFY(image == untouched);
        }
    }

    void rowsThatLookAlikeShareOnePicture()
    {
        BackgroundCache cache;
        const QImage first = Canvas().Paint(cache, Style());
        QCOMPARE(Canvas().Paint(cache, Style()), first);
        QCOMPARE(cache.Size(), std::size_t(1));
    }

    void pictureIsNotUsedForARowThatLooksOtherwise_data()
    {
        QTest::addColumn<int>("what");
        QTest::newRow("scrolled") << 0;
        QTest::newRow("other frame count") << 1;
        QTest::newRow("other zoom") << 2;
        QTest::newRow("other range") << 3;
        QTest::newRow("other height") << 4;
    }
    void pictureIsNotUsedForARowThatLooksOtherwise()
    {
        QFETCH(int, what);
        BackgroundCache cache;
        const QImage first = Canvas().Paint(cache, Style());
        Canvas canvas;
        TimeRange range;
        switch (what) {
        case 0:
            SceneAxis().scrollX = 230;
            break;
        case 1:
            SceneAxis().frameCount = 12;
            break;
        case 2:
            SceneAxis().info = CFrameInfo(3.0);
            break;
        case 3:
            range.lo = 3;
            range.hi = 7;
            break;
        default:
            canvas.m_size.setHeight(kHeight - 5);
        }
        const QImage got = canvas.Paint(cache, Style(), {}, range);
        QVERIFY(got != first);
        QCOMPARE(cache.Size(), std::size_t(2));
        BackgroundCache fresh;
        Canvas other;
        other.m_size = canvas.m_size;
        QCOMPARE(got, other.Paint(fresh, Style(), {}, range));
    }

    void repaintOfAPartMakesNoPictureButUsesOne()
    {
        BackgroundCache cache;
        const auto clip = [](QPainter& painter) { painter.setClipRect(20, 0, 30, kHeight); };
        const QImage part = Canvas().Paint(cache, Style(), clip);
        QCOMPARE(cache.Size(), std::size_t(0));
        const QImage whole = Canvas().Paint(cache, Style());
        QCOMPARE(cache.Size(), std::size_t(1));
        QCOMPARE(Canvas().Paint(cache, Style(), clip), part);
        QCOMPARE(part.copy(20, 0, 30, kHeight), whole.copy(20, 0, 30, kHeight));
        QCOMPARE(QColor(part.pixel(50, 5)), QColor(Qt::magenta));
    }

    void scaledPaintersAndOtherPixelRatiosGetNoPicture()
    {
        BackgroundCache cache;
        Canvas().Paint(cache, Style(), [](QPainter& painter) { painter.scale(2, 2); });
        QCOMPARE(cache.Size(), std::size_t(0));
        Canvas(2.0).Paint(cache, Style());
        QCOMPARE(cache.Size(), std::size_t(0));
        Canvas().Paint(cache, Style(), [](QPainter& painter) { painter.translate(1, 1); });
        QCOMPARE(cache.Size(), std::size_t(1));
    }

    void sixteenPicturesAreKeptAtMost()
    {
        BackgroundCache cache;
        for (int scroll = 0; scroll < 20; ++scroll) {
            SceneAxis().scrollX = scroll;
            Canvas().Paint(cache, Style());
            QCOMPARE(cache.Size(), std::size_t(std::min(scroll + 1, 16)));
        }
        cache.Clear();
        QCOMPARE(cache.Size(), std::size_t(0));
    }

    void pictureIsMadeAnewWhenTheSkinsPicturesWereLoadedAgain()
    {
        BackgroundCache cache;
        const QImage first = Canvas().Paint(cache, Style());
        TimelineLibrary& library = TimelineLibrary::Instance();
        library.images.Free();
        Canvas().Paint(cache, Style());
        QCOMPARE(cache.Size(), std::size_t(1)); // without pictures there is nothing to keep
        QVERIFY(PrepareTimeline());
        ResetAxis(40, 10.0);
        QCOMPARE(Canvas().Paint(cache, Style()), first);
        QCOMPARE(cache.Size(), std::size_t(2));
    }

    void clearingLetsGoOfPicturesAndTexts()
    {
        const QImage first = ShowRow(*m_row, kSize);
        QCOMPARE(BackgroundCache::Shared().Size(), std::size_t(1));
        QImage image(kSize, QImage::Format_RGB32);
        QPainter painter(&image);
        ShapedTexts::For(painter).Width(QStringLiteral("walk"));
        QCOMPARE(ShapedTexts::FontCount(), std::size_t(1));

        ClearPaintCaches();
        QCOMPARE(BackgroundCache::Shared().Size(), std::size_t(0));
        QCOMPARE(ShapedTexts::FontCount(), std::size_t(0));
        QCOMPARE(ShowRow(*m_row, kSize), first);
    }

    void textsOfTwentyFourFontsAreKept()
    {
        QImage image(kSize, QImage::Format_RGB32);
        QPainter painter(&image);
        const QString text = QStringLiteral("walk");
        for (int size = 6; size < 36; ++size) {
            QFont font = painter.font();
            font.setPixelSize(size);
            painter.setFont(font);
            QCOMPARE(ShapedTexts::For(painter).Width(text),
                     painter.fontMetrics().size(Qt::TextSingleLine, text).width());
        }
        QCOMPARE(ShapedTexts::FontCount(), std::size_t(24));
    }

    void devicesOfAnotherResolutionHaveTextsOfTheirOwn()
    {
        QImage coarse(kSize, QImage::Format_RGB32);
        QImage fine(kSize, QImage::Format_RGB32);
        fine.setDotsPerMeterY(2 * coarse.dotsPerMeterY());
        fine.setDotsPerMeterX(2 * coarse.dotsPerMeterX());
        QFont font;
        font.setPointSize(12);
        const QString text = QStringLiteral("walk cycle");
        const auto widthOn = [&](QImage& image) {
            QPainter painter(&image);
            painter.setFont(font);
            return ShapedTexts::For(painter).Width(text);
        };
        const int width = widthOn(coarse);
        QVERIFY(widthOn(fine) > width);
        QCOMPARE(widthOn(coarse), width);
    }

    void twentyThousandTextsAreKeptOfAFont()
    {
        QImage image(kSize, QImage::Format_RGB32);
        QPainter painter(&image);
        ShapedTexts& texts = ShapedTexts::For(painter);
        for (int i = 0; i < 20000; ++i)
            texts.Width(QString::number(i));
        QCOMPARE(texts.TextCount(), 20000);
        const QString another = QStringLiteral("another");
        QCOMPARE(texts.Width(another),
                 painter.fontMetrics().size(Qt::TextSingleLine, another).width());
        QCOMPARE(texts.TextCount(), 1);
    }
};

QTEST_MAIN(tst_PaintCaches)
#include "tst_PaintCaches.moc"
