#include "skin/ImageTables.h"

#include <QtTest>

#include <climits>

/// A host may ask for pictures before it has made its application. Pictures cannot be decoded then,
/// and asking must not end the process.
class tst_ImageTablesWithoutApplication : public QObject
{
    Q_OBJECT

private slots:
    void loadFailsWithoutAnApplication()
    {
        ImageTables tables;
        QVERIFY(!tables.Load());
        QVERIFY(!tables.IsLoaded());
        QCOMPARE(tables.PictureCount(kCaptionPictures), 0);
    }

    void loadFailsWithAnApplicationThatHasNoPictures()
    {
        int argc = 1;
        char name[] = "no-pictures";
        char* argv[] = {name, nullptr};
        const QCoreApplication application(argc, argv);
        ImageTables tables;
        QVERIFY(!tables.Load());
        QCOMPARE(tables.PictureCount(kCaptionPictures), 0);
    }

    void everyIndexGivesNothingWithoutAnApplication()
    {
        const ImageTables tables;
        for (const int index : {INT_MIN, -1, 0, 1, INT_MAX}) {
            QVERIFY(tables.Picture(index, index).isNull());
            QVERIFY(tables.Glyph(index, index).isNull());
            QVERIFY(tables.WideStrip(index, index).isNull());
            QCOMPARE(tables.Brush(index, index).style(), Qt::NoBrush);
        }
    }
};

QTEST_APPLESS_MAIN(tst_ImageTablesWithoutApplication)
#include "tst_ImageTablesWithoutApplication.moc"
