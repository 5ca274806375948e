#include "PictureSizes.h"
#include "skin/ImageTables.h"

#include <QDirIterator>
#include <QPainter>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <climits>
#include <functional>

using namespace KestovaTest;

namespace {

enum class Kind
{
    Picture,
    Brush,
    Glyph
};

/// What a group holds: the numbers of its images in the order of the list.
struct Group
{
    Kind kind;
    int group;
    QVector<int> images;
};

QVector<int> Range(int first, int last)
{
    QVector<int> numbers;
    for (int number = first; number <= last; ++number)
        numbers << number;
    return numbers;
}

const QVector<Group>& AllGroups()
{
    static const QVector<Group> groups = {
        {Kind::Picture, 0, Range(0, 7) << 150},
        {Kind::Picture, 1, Range(8, 13)},
        {Kind::Picture, 2, Range(14, 21)},
        {Kind::Picture, 3, Range(22, 23)},
        {Kind::Picture, 4, Range(24, 31)},
        {Kind::Picture, 5, Range(32, 39)},
        {Kind::Picture, 6, Range(40, 41)},
        {Kind::Brush, 0, Range(42, 48)},
        {Kind::Brush, 1, Range(49, 57)},
        {Kind::Brush, 2, Range(58, 71)},
        {Kind::Glyph, 0, Range(72, 73)},
        {Kind::Glyph, 1, Range(74, 75)},
        {Kind::Glyph, 2, Range(76, 77)},
        {Kind::Glyph, 3, Range(78, 85)},
        {Kind::Glyph, 4, Range(86, 89) << 148 << 149},
        {Kind::Glyph, 5, Range(90, 93)},
        {Kind::Glyph, 6, Range(94, 127)},
        {Kind::Glyph, 7, Range(128, 129)},
    };
    return groups;
}

/// Glyph group 4 is loaded whole in its turn; picture group 0 gets its last image at the very end.
QVector<int> LoadingOrder()
{
    QVector<int> order;
    for (const Group& group : AllGroups())
        order += group.images;
    order.removeOne(150);
    return order << 150;
}

int CountOf(const ImageTables& tables, const Group& group)
{
    switch (group.kind) {
    case Kind::Picture:
        return tables.PictureCount(group.group);
    case Kind::Brush:
        return tables.BrushCount(group.group);
    case Kind::Glyph:
        return tables.GlyphCount(group.group);
    }
    return -1;
}

QImage ImageOf(const ImageTables& tables, const Group& group, int index)
{
    switch (group.kind) {
    case Kind::Picture:
        return tables.Picture(group.group, index).toImage();
    case Kind::Brush:
        return tables.Brush(group.group, index).textureImage();
    case Kind::Glyph:
        return tables.Glyph(group.group, index).toImage();
    }
    return {};
}

bool SamePixels(const QImage& a, const QImage& b)
{
    return a.convertToFormat(QImage::Format_ARGB32_Premultiplied) ==
           b.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

/// A directory of tiny images with the numbers of the tables. The width of image n is n + 1.
class PictureDirectory
{
public:
    PictureDirectory()
    {
        for (const int number : LoadingOrder())
            Add(number);
    }
    QString Prefix() const { return m_directory.path() + '/'; }
    void Remove(int number) const { QFile::remove(Prefix() + QString::number(number)); }
    void Spoil(int number) const
    {
        QFile file(Prefix() + QString::number(number));
        if (!file.open(QIODevice::WriteOnly) || file.write("no picture") <= 0)
            qFatal("cannot write %s", qPrintable(file.fileName()));
    }
    void Add(int number) const
    {
        QImage image(number + 1, 1, QImage::Format_RGB32);
        image.fill(Qt::red);
        if (!image.save(Prefix() + QString::number(number), "PNG"))
            qFatal("cannot write a picture");
    }

private:
    QTemporaryDir m_directory;
};

/// The numbers of the images that a table of a PictureDirectory holds in a group, by their widths.
QVector<int> NumbersIn(const ImageTables& tables, const Group& group)
{
    QVector<int> numbers;
    for (int i = 0; i < CountOf(tables, group); ++i)
        numbers << ImageOf(tables, group, i).width() - 1;
    return numbers;
}

/// Whether a path is of the collections that Qt's own libraries register.
bool IsOfQt(const QString& path)
{
    const QStringList prefixes = {":/qt-project.org/", ":/qgradient/", ":/qpdf/"};
    return std::any_of(prefixes.begin(), prefixes.end(),
                       [&path](const QString& prefix) { return path.startsWith(prefix); });
}

} // namespace

class tst_ImageTables : public QObject
{
    Q_OBJECT

private slots:
    void everyGroupHoldsItsImagesInOrder();
    void pictureGroupZeroHoldsNineImagesWithNumber150Last();
    void glyphGroupFourHoldsSixImagesInOrder();
    void brushesAreTextures();
    void loadingAgainDoesNothing();
    void freeEmptiesEveryTableAndClearsTheFlag();
    void tablesCanBeLoadedAgainAfterFree();

    void aMissingImageStopsTheLoadAndKeepsWhatWasReadBefore();
    void anUndecodableImageStopsTheLoad();
    void picturesAreReadPastTheCacheOfQt();
    void aFailedLoadStaysAndTheNextLoadAppendsBehindIt();
    void freeLeavesTheImagesOfAFailedLoad();

    void everyIndexOutsideATableGivesNothing();
    void aWideStripRepeatsTheTextureToNearly512Pixels();
    void aWideStripPaintsTheSamePixelsAsItsBrush();

    void theCollectionHoldsEveryNumberedImageAtItsSize_data() { AddPictureSizeRows(); }
    void theCollectionHoldsEveryNumberedImageAtItsSize();
    void theCollectionHoldsNothingElse();
    void theCollectionIsRegisteredInFormatVersionOne();
};

void tst_ImageTables::everyGroupHoldsItsImagesInOrder()
{
    ImageTables tables;
    QVERIFY(!tables.IsLoaded());
    QVERIFY(tables.Load());
    QVERIFY(tables.IsLoaded());
    for (const Group& group : AllGroups()) {
        QCOMPARE(CountOf(tables, group), group.images.size());
        for (int i = 0; i < group.images.size(); ++i) {
            const QImage image(QStringLiteral(":/%1").arg(group.images[i]));
            QVERIFY(!image.isNull());
            QVERIFY(SamePixels(ImageOf(tables, group, i), image));
        }
    }
}

void tst_ImageTables::pictureGroupZeroHoldsNineImagesWithNumber150Last()
{
    const PictureDirectory pictures;
    ImageTables tables;
    QVERIFY(tables.Load(pictures.Prefix()));
    QCOMPARE(NumbersIn(tables, {Kind::Picture, 0, {}}),
             (QVector<int>{0, 1, 2, 3, 4, 5, 6, 7, 150}));
}

void tst_ImageTables::glyphGroupFourHoldsSixImagesInOrder()
{
    const PictureDirectory pictures;
    ImageTables tables;
    QVERIFY(tables.Load(pictures.Prefix()));
    QCOMPARE(NumbersIn(tables, {Kind::Glyph, 4, {}}), (QVector<int>{86, 87, 88, 89, 148, 149}));
}

void tst_ImageTables::brushesAreTextures()
{
    ImageTables tables;
    QVERIFY(tables.Load());
    for (int group = 0; group < 3; ++group) {
        for (int i = 0; i < tables.BrushCount(group); ++i)
            QCOMPARE(tables.Brush(group, i).style(), Qt::TexturePattern);
    }
}

void tst_ImageTables::loadingAgainDoesNothing()
{
    ImageTables tables;
    QVERIFY(tables.Load());
    QVERIFY(tables.Load());
    QVERIFY(tables.Load(QStringLiteral("/nowhere/")));
    for (const Group& group : AllGroups())
        QCOMPARE(CountOf(tables, group), group.images.size());
}

void tst_ImageTables::freeEmptiesEveryTableAndClearsTheFlag()
{
    ImageTables tables;
    QVERIFY(tables.Load());
    tables.Free();
    QVERIFY(!tables.IsLoaded());
    for (const Group& group : AllGroups()) {
        QCOMPARE(CountOf(tables, group), 0);
        QVERIFY(ImageOf(tables, group, 0).isNull());
    }
    QVERIFY(tables.WideStrip(kGridBrushes, 0).isNull());
}

void tst_ImageTables::tablesCanBeLoadedAgainAfterFree()
{
    ImageTables tables;
    QVERIFY(tables.Load());
    tables.Free();
    tables.Free();
    QVERIFY(tables.Load());
    for (const Group& group : AllGroups())
        QCOMPARE(CountOf(tables, group), group.images.size());
}

void tst_ImageTables::aMissingImageStopsTheLoadAndKeepsWhatWasReadBefore()
{
    const PictureDirectory pictures;
    const QVector<int> order = LoadingOrder();
    for (const int missing : order) {
        pictures.Remove(missing);
        ImageTables tables;
        QVERIFY(!tables.Load(pictures.Prefix()));
        QVERIFY(!tables.IsLoaded());
        const QVector<int> read = order.mid(0, order.indexOf(missing));
        for (const Group& group : AllGroups()) {
            QVector<int> expected;
            for (const int number : group.images) {
                if (read.contains(number))
                    expected << number;
            }
            QCOMPARE(NumbersIn(tables, group), expected);
        }
        pictures.Add(missing);
    }
}

void tst_ImageTables::anUndecodableImageStopsTheLoad()
{
    const PictureDirectory pictures;
    // A picture, a brush, a glyph, one that joins a group out of turn, and the very last.
    for (const int spoilt : {0, 42, 72, 148, 150}) {
        pictures.Spoil(spoilt);
        ImageTables tables;
        QVERIFY(!tables.Load(pictures.Prefix()));
        pictures.Add(spoilt);
        QVERIFY(tables.Load(pictures.Prefix()));
    }
}

void tst_ImageTables::aFailedLoadStaysAndTheNextLoadAppendsBehindIt()
{
    const PictureDirectory pictures;
    pictures.Remove(43);
    ImageTables tables;
    QVERIFY(!tables.Load(pictures.Prefix()));
    QVERIFY(!tables.Load(pictures.Prefix()));
    pictures.Add(43);
    QVERIFY(tables.Load(pictures.Prefix()));
    const QVector<int> captions = Range(0, 7);
    QCOMPARE(NumbersIn(tables, {Kind::Picture, 0, {}}), captions + captions + captions << 150);
    QCOMPARE(NumbersIn(tables, {Kind::Brush, 0, {}}), QVector<int>({42, 42}) + Range(42, 48));
    QCOMPARE(NumbersIn(tables, {Kind::Brush, 1, {}}), Range(49, 57));
    QCOMPARE(tables.WideStrip(0, 2).width() % 43, 0); // goes with the brush of the same index
    QCOMPARE(tables.WideStrip(0, 3).width() % 44, 0);
    tables.Free();
    QCOMPARE(tables.PictureCount(0), 0);
}

void tst_ImageTables::freeLeavesTheImagesOfAFailedLoad()
{
    const PictureDirectory pictures;
    pictures.Remove(8);
    ImageTables tables;
    QVERIFY(!tables.Load(pictures.Prefix()));
    tables.Free();
    QCOMPARE(tables.PictureCount(0), 8);
}

void tst_ImageTables::everyIndexOutsideATableGivesNothing()
{
    ImageTables loaded;
    QVERIFY(loaded.Load());
    const ImageTables empty;
    for (const ImageTables* tables : {&static_cast<const ImageTables&>(loaded), &empty}) {
        for (const int group : {INT_MIN, -1, 0, 1, 2, 3, 4, 5, 6, 7, 8, INT_MAX}) {
            const int pictures = tables->PictureCount(group);
            const int glyphs = tables->GlyphCount(group);
            const int brushes = tables->BrushCount(group);
            for (const int outside : {INT_MIN, -1, 0, 1, INT_MAX}) {
                const auto index = [outside](int count) {
                    return outside >= 0 && outside <= 1 ? count + outside : outside;
                };
                QVERIFY(tables->Picture(group, index(pictures)).isNull());
                QVERIFY(tables->Glyph(group, index(glyphs)).isNull());
                QCOMPARE(tables->Brush(group, index(brushes)).style(), Qt::NoBrush);
                QVERIFY(tables->WideStrip(group, index(brushes)).isNull());
            }
        }
    }
    QCOMPARE(loaded.PictureCount(7), 0);
    QCOMPARE(loaded.BrushCount(3), 0);
    QCOMPARE(loaded.GlyphCount(8), 0);
    QCOMPARE(loaded.GlyphCount(-1), 0);
}

void tst_ImageTables::aWideStripRepeatsTheTextureToNearly512Pixels()
{
    ImageTables tables;
    QVERIFY(tables.Load());
    for (int group = 0; group < 3; ++group) {
        for (int i = 0; i < tables.BrushCount(group); ++i) {
            const QImage texture = tables.Brush(group, i).textureImage();
            const QImage strip = tables.WideStrip(group, i).toImage();
            QCOMPARE(strip.height(), texture.height());
            QCOMPARE(strip.width() % texture.width(), 0);
            QVERIFY(strip.width() <= 512 && strip.width() > 512 - texture.width());
            for (int x = 0; x < strip.width(); x += texture.width())
                QVERIFY(SamePixels(strip.copy(x, 0, texture.width(), texture.height()), texture));
        }
    }
}

void tst_ImageTables::aWideStripPaintsTheSamePixelsAsItsBrush()
{
    ImageTables tables;
    QVERIFY(tables.Load());
    const QRect area(3, 2, 1200, 40);
    const QPoint origin(5, 2);
    const auto painted = [&](const std::function<void(QPainter&)>& paint) {
        QImage image(1210, 50, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::magenta);
        QPainter painter(&image);
        paint(painter);
        return image;
    };
    for (int group = 0; group < 3; ++group) {
        for (int i = 0; i < tables.BrushCount(group); ++i) {
            const QImage byBrush = painted([&](QPainter& painter) {
                painter.setBrushOrigin(origin);
                painter.fillRect(area, tables.Brush(group, i));
            });
            const QImage byStrip = painted([&](QPainter& painter) {
                const QPixmap& strip = tables.WideStrip(group, i);
                const QPoint first = area.topLeft() - origin;
                painter.drawTiledPixmap(area, strip,
                                        {(first.x() + strip.width()) % strip.width(), first.y()});
            });
            QCOMPARE(byStrip, byBrush);
        }
    }
}

void tst_ImageTables::theCollectionHoldsEveryNumberedImageAtItsSize()
{
    CheckPictureSizes([](int number) { return QImage(QStringLiteral(":/%1").arg(number)); });
}

void tst_ImageTables::theCollectionHoldsNothingElse()
{
    QStringList expected = {":/Bitmap/loop.png", ":/Bitmap/speed.png"};
    for (const int number : LoadingOrder() + QVector<int>{130, 131})
        expected << QStringLiteral(":/%1").arg(number);
    expected.sort();
    QCOMPARE(expected.size(), 137);

    QStringList found;
    QDirIterator entries(QStringLiteral(":/"), QDir::Files, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        if (!IsOfQt(path))
            found << path;
    }
    found.sort();
    QCOMPARE(found.join('\n'), expected.join('\n'));
    for (const char* cursor : {":/Bitmap/loop.png", ":/Bitmap/speed.png"})
        QCOMPARE(QImage(QString::fromLatin1(cursor)).size(), QSize(24, 24));
}

void tst_ImageTables::theCollectionIsRegisteredInFormatVersionOne()
{
    QStringList sources;
    QDirIterator files(QStringLiteral(KESTOVA_BINARY_DIR "/timeline"),
                       {QStringLiteral("qrc_images.cpp")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext())
        sources << files.next();
    QCOMPARE(sources.size(), 1);
    QFile source(sources.first());
    QVERIFY(source.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(source.readAll());
    // Once where it is registered and once where it is taken back.
    const QRegularExpression version(QStringLiteral("int version = (\\d+);"));
    int count = 0;
    for (auto found = version.globalMatch(text); found.hasNext(); ++count)
        QCOMPARE(found.next().captured(1), QString("1"));
    QCOMPARE(count, 2);
}

void tst_ImageTables::picturesAreReadPastTheCacheOfQt()
{
    const PictureDirectory pictures;
    const QFileInfo first(pictures.Prefix() + '0');
    const QDateTime written = first.lastModified();
    const QPixmap cached(first.filePath());
    QVERIFY(!cached.isNull());

    // Other pixels behind the same name, size and time, which is all that the cache looks at.
    QImage blue(1, 1, QImage::Format_RGB32);
    blue.fill(Qt::blue);
    QVERIFY(blue.save(first.filePath(), "PNG"));
    QFile file(first.filePath());
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(written, QFileDevice::FileModificationTime));
    file.close();
    QCOMPARE(QFileInfo(first.filePath()).size(), first.size());
    QCOMPARE(QPixmap(first.filePath()).toImage().pixelColor(0, 0), QColor(Qt::red));

    ImageTables tables;
    QVERIFY(tables.Load(pictures.Prefix()));
    QCOMPARE(tables.Picture(kCaptionPictures, 0).toImage().pixelColor(0, 0), QColor(Qt::blue));
}

QTEST_MAIN(tst_ImageTables)
#include "tst_ImageTables.moc"
