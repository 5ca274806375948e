#include "Contrast.h"
#include "PictureSizes.h"

#include "artwork/Artwork.h"

#include <QDir>
#include <QDirIterator>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QString kFolder = QStringLiteral(KESTOVA_SOURCE_DIR "/timeline/skin/images");
constexpr int kNumberedCount = 135;
constexpr int kCursorCount = 2;

QImage Committed(const QString& name)
{
    return QImage(kFolder + QLatin1Char('/') + name + QLatin1String(".png"))
        .convertToFormat(QImage::Format_ARGB32);
}
QImage Committed(int number)
{
    return Committed(QString::number(number));
}

/// Paths below @p folder, without its own.
QStringList PicturesIn(const QString& folder)
{
    QStringList names;
    QDirIterator files(folder, {QStringLiteral("*.png")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext())
        names.append(QDir(folder).relativeFilePath(files.next()));
    names.sort();
    return names;
}

/// How many of the pixels of two glyphs, laid on the same ground with a common middle, differ
/// clearly in luminance alone.
int PixelsToldApartInGrey(const QImage& one, const QImage& other, const QColor& ground)
{
    constexpr double kClearly = 1.5;
    const int width = qMax(one.width(), other.width());
    const int height = qMax(one.height(), other.height());
    const auto shown = [&](const QImage& image, int x, int y) {
        const int imageX = x - (width - image.width()) / 2;
        const int imageY = y - (height - image.height()) / 2;
        return image.valid(imageX, imageY) ? LaidOver(image.pixelColor(imageX, imageY), ground)
                                           : ground;
    };
    int count = 0;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            if (ContrastRatio(shown(one, x, y), shown(other, x, y)) >= kClearly)
                ++count;
    return count;
}

constexpr int kSheetZoom = 4;

/// The gallery with the right-most column of each picture in a colour that no other picture has.
Artwork::Gallery MarkedAtTheRight()
{
    Artwork::Gallery gallery = Artwork::DrawAll();
    int place = 0;
    for (auto& [name, image] : gallery) {
        const QColor mark(255, place++, 255);
        for (int y = 0; y < image.height(); ++y)
            image.setPixelColor(image.width() - 1, y, mark);
    }
    return gallery;
}

QRgb MarkOf(const QImage& image)
{
    return image.pixel(image.width() - 1, 0);
}

QHash<QRgb, int> CountColours(const QImage& image)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            ++counts[image.pixel(x, y)];
    return counts;
}

} // namespace

/// The committed pictures: their sizes, their number, and that the program draws them.
class tst_Artwork : public QObject
{
    Q_OBJECT
private slots:
    void hasEverySize_data() { KestovaTest::AddPictureSizeRows(); }
    void hasEverySize()
    {
        KestovaTest::CheckPictureSizes([](int number) { return Committed(number); });
    }

    void hasCursorsOf24Pixels()
    {
        QCOMPARE(Committed("Bitmap/loop").size(), QSize(24, 24));
        QCOMPARE(Committed("Bitmap/speed").size(), QSize(24, 24));
    }

    void hasExactlyTheNumberedPicturesAndTheCursors()
    {
        QStringList expected = {"Bitmap/loop.png", "Bitmap/speed.png"};
        for (int number = 0; number <= 150; ++number)
            if (number < 132 || number > 147)
                expected.append(QString::number(number) + QLatin1String(".png"));
        expected.sort();
        QCOMPARE(expected.size(), kNumberedCount + kCursorCount);
        QCOMPARE(PicturesIn(kFolder), expected);
    }

    void keepsPairsOfOneSize_data()
    {
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("last");
        QTest::newRow("low caption") << 4 << 5;
        QTest::newRow("tall caption") << 6 << 7;
        QTest::newRow("plus button") << 8 << 10;
        QTest::newRow("menu button") << 11 << 13;
        QTest::newRow("narrow switch buttons") << 24 << 27;
        QTest::newRow("wide switch buttons") << 28 << 31;
    }
    void keepsPairsOfOneSize()
    {
        QFETCH(int, first);
        QFETCH(int, last);
        for (int number = first + 1; number <= last; ++number)
            QCOMPARE(Committed(number).size(), Committed(first).size());
    }

    void isWhatTheProgramDraws()
    {
        const Artwork::Gallery gallery = Artwork::DrawAll();
        QCOMPARE(int(gallery.size()), kNumberedCount + kCursorCount);
        for (const auto& [name, image] : gallery)
            QVERIFY2(image.convertToFormat(QImage::Format_ARGB32) == Committed(name),
                     qPrintable(name));
    }

    void writesWhatItDrew()
    {
        const QTemporaryDir folder;
        QVERIFY(folder.isValid());
        QCOMPARE(Artwork::Write(Artwork::DrawAll(), folder.path()), QString());
        QCOMPARE(PicturesIn(folder.path()), PicturesIn(kFolder));
        for (const QString& name : PicturesIn(kFolder))
            QVERIFY2(QImage(folder.filePath(name)) == QImage(kFolder + QLatin1Char('/') + name),
                     qPrintable(name));
    }

    void namesTheFileItCannotWrite()
    {
        const QTemporaryDir folder;
        QFile blocker(folder.filePath("taken"));
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        const QString failure = Artwork::Write(Artwork::DrawAll(), blocker.fileName());
        QVERIFY2(failure.contains(blocker.fileName()), qPrintable(failure));
    }

    void showsEveryPictureWholeOnTheContactSheet()
    {
        const Artwork::Gallery marked = MarkedAtTheRight();
        const QHash<QRgb, int> counts = CountColours(Artwork::DrawContactSheet(marked));
        for (const auto& [name, image] : marked) {
            const int count = counts.value(MarkOf(image));
            const int shown = image.height() * (1 + kSheetZoom * kSheetZoom);
            QVERIFY2(count >= shown, qPrintable(name));
        }
    }

    void showsKeyGlyphsOnPlainAndSelectedGroundOfTheContactSheet()
    {
        const Artwork::Gallery marked = MarkedAtTheRight();
        const QHash<QRgb, int> counts = CountColours(Artwork::DrawContactSheet(marked));
        QVector<int> glyphs = {148, 149};
        for (int number = 72; number <= 93; ++number)
            glyphs << number;
        for (const int number : glyphs) {
            const QImage& image = marked.at(QString::number(number));
            const int shown = image.height() * (1 + kSheetZoom * kSheetZoom);
            QCOMPARE(counts.value(MarkOf(image)), 2 * shown);
        }
    }

    void paintsGroundsWithoutHoles_data()
    {
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("last");
        QTest::newRow("grids") << 42 << 48;
        QTest::newRow("bands") << 49 << 57;
        QTest::newRow("thumb, ruler and its shaded cell") << 59 << 62;
    }
    void paintsGroundsWithoutHoles()
    {
        QFETCH(int, first);
        QFETCH(int, last);
        for (int number = first; number <= last; ++number) {
            const QImage strip = Committed(number);
            for (int y = 0; y < strip.height(); ++y)
                QVERIFY2(strip.pixelColor(0, y).alpha() == 255,
                         qPrintable(QString::number(number)));
        }
    }

    void servesTheRowsThatItsStripsLieIn()
    {
        const int tallestRow = qMax(Committed(4).height(), Committed(6).height());
        for (int number = 42; number <= 57; ++number)
            QVERIFY(Committed(number).height() >= tallestRow);
        for (const int number : {60, 61, 62, 63, 65, 68, 69, 70, 71})
            QCOMPARE(Committed(number).height(), Committed(3).height());
        // The thumb reaches one pixel below the scroll bar's row.
        QVERIFY(Committed(59).height() > Committed(1).height());
        QVERIFY(Committed(67).height() > Committed(1).height());
    }

    void tellsGlyphsApartInGreyAlone_data()
    {
        QTest::addColumn<QList<int>>("glyphs");
        QTest::addColumn<int>("atLeast");
        const auto every = [](int first, int last, int step) {
            QList<int> numbers;
            for (int number = first; number <= last; number += step)
                numbers.append(number);
            return numbers;
        };
        QTest::newRow("keys and related keys") << every(72, 77, 1) << 8;
        QTest::newRow("transition keys and handles") << every(78, 85, 1) << 8;
        QTest::newRow("link keys, starts, alternates and related ones")
            << every(86, 93, 1) + QList<int>{148, 149} << 8;
        QTest::newRow("mouth shapes") << every(94, 127, 2) << 16;
        QTest::newRow("selected mouth shapes") << every(95, 127, 2) << 16;
        for (int number = 94; number < 127; number += 2)
            QTest::addRow("mouth shape %d and its selected one", (number - 94) / 2)
                << every(number, number + 1, 1) << 200;
    }
    void tellsGlyphsApartInGreyAlone()
    {
        QFETCH(QList<int>, glyphs);
        QFETCH(int, atLeast);
        const QColor grounds[] = {Committed(42).pixelColor(0, 10), Committed(43).pixelColor(0, 10)};
        for (const QColor& ground : grounds)
            for (int i = 0; i < glyphs.size(); ++i)
                for (int k = 0; k < i; ++k) {
                    const int apart =
                        PixelsToldApartInGrey(Committed(glyphs[i]), Committed(glyphs[k]), ground);
                    QVERIFY2(apart >= atLeast, qPrintable(QStringLiteral("%1 and %2: %3 pixels")
                                                              .arg(glyphs[k])
                                                              .arg(glyphs[i])
                                                              .arg(apart)));
                }
    }
};

QTEST_MAIN(tst_Artwork)
#include "tst_Artwork.moc"
