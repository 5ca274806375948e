#pragma once

#include <QImage>
#include <QString>

namespace KestovaTest {

/// Compares @p got with tests/pictures/<name>.png, pixel for pixel, on Windows with
/// tests/pictures/windows/<name>.png where that exists. On a difference writes
/// <build>/pictures/<name>.got.png and <name>.diff.png (differing pixels in red over a dimmed copy)
/// and returns a sentence that says what differs and where the files lie; returns an empty string
/// when they are the same. With KESTOVA_RENEW_PICTURES=1 in the environment the reference is
/// written instead, and the returned sentence says so, which keeps a renewing run from passing for
/// a checking one.
QString ComparePicture(const QImage& got, const QString& name);

} // namespace KestovaTest

/// Fails the running test with the sentence of ComparePicture.
#define KESTOVA_COMPARE_PICTURE(got, name)                                                         \
    do {                                                                                           \
        const QString pictureDifference_ = KestovaTest::ComparePicture((got), (name));             \
        QVERIFY2(pictureDifference_.isEmpty(), qPrintable(pictureDifference_));                    \
    } while (false)
