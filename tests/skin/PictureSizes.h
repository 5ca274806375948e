#pragma once

#include <QImage>
#include <QtTest>

#include <functional>

namespace KestovaTest {

/// Consecutive pictures and the sizes that they may have, both ends included.
struct PictureSizes
{
    const char* name;
    int first;
    int last;
    QSize smallest;
    QSize largest;
};

constexpr PictureSizes kPictureSizes[] = {
    {"corner beside the scroll row", 0, 0, {15, 25}, {15, 25}},
    {"scroll row caption", 1, 1, {171, 17}, {171, 27}},
    {"narrow caption", 2, 2, {155, 17}, {155, 27}},
    {"ruler and row captions", 3, 7, {171, 17}, {171, 27}},
    {"push buttons", 8, 13, {10, 11}, {11, 11}},
    {"padlock buttons", 14, 17, {12, 12}, {12, 12}},
    {"eye buttons", 18, 21, {17, 15}, {17, 15}},
    {"spare buttons", 22, 23, {15, 15}, {15, 15}},
    {"switch buttons", 24, 31, {84, 18}, {110, 18}},
    {"scroll arrows", 32, 39, {7, 24}, {7, 24}},
    {"range markers", 40, 41, {7, 26}, {7, 26}},
    {"grid and band textures", 42, 57, {1, 17}, {1, 54}},
    {"flat texture of the scroll row", 58, 58, {15, 1}, {15, 1}},
    {"ruler textures", 59, 65, {1, 17}, {1, 54}},
    {"second flat texture", 66, 66, {13, 1}, {13, 1}},
    {"thumb and current-frame textures", 67, 71, {1, 17}, {1, 54}},
    {"tall keys", 72, 73, {6, 10}, {6, 10}},
    {"small keys and transition keys", 74, 85, {7, 7}, {7, 7}},
    {"link posts", 86, 87, {5, 24}, {5, 24}},
    {"marked links", 88, 89, {9, 9}, {9, 9}},
    {"related link posts", 90, 91, {5, 24}, {5, 24}},
    {"related marked links", 92, 93, {7, 11}, {7, 11}},
    {"mouth shapes", 94, 127, {25, 15}, {25, 15}},
    {"time marks", 128, 129, {11, 25}, {11, 25}},
    {"spare icons", 130, 131, {14, 14}, {14, 14}},
    {"alternate link post", 148, 148, {5, 24}, {5, 24}},
    {"selected alternate link", 149, 149, {9, 9}, {9, 9}},
    {"last caption", 150, 150, {155, 27}, {155, 27}},
};

/// One row of test data for each entry of the table.
inline void AddPictureSizeRows()
{
    QTest::addColumn<int>("entry");
    int entry = 0;
    for (const PictureSizes& sizes : kPictureSizes)
        QTest::newRow(sizes.name) << entry++;
}

/// Checks, in a test on those rows, the pictures that @p pictureOf answers for their numbers.
inline void CheckPictureSizes(const std::function<QImage(int)>& pictureOf)
{
    QFETCH(int, entry);
    const PictureSizes& sizes = kPictureSizes[entry];
    for (int number = sizes.first; number <= sizes.last; ++number) {
        const QSize size = pictureOf(number).size();
        const bool fits = size == size.expandedTo(sizes.smallest).boundedTo(sizes.largest);
        QVERIFY2(
            fits,
            qPrintable(
                QStringLiteral("%1 is %2 x %3").arg(number).arg(size.width()).arg(size.height())));
    }
}

} // namespace KestovaTest
