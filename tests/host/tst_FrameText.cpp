#include "document/FrameText.h"

#include <QtTest>

using namespace host;

class tst_FrameText : public QObject
{
    Q_OBJECT

private slots:
    void tellsFrameAndTime_data();
    void tellsFrameAndTime();
};

void tst_FrameText::tellsFrameAndTime_data()
{
    QTest::addColumn<int>("frame");
    QTest::addColumn<int>("frameCount");
    QTest::addColumn<int>("frameRate");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, int frame, int count, int rate, const char* text) {
        QTest::newRow(name) << frame << count << rate << QString::fromLatin1(text);
    };
    row("the first frame", 0, 91, 30, "Frame 0 of 90   00:00:00");
    row("within a second", 29, 91, 30, "Frame 29 of 90   00:00:29");
    row("a full second", 30, 91, 30, "Frame 30 of 90   00:01:00");
    row("more than a minute", 30 * 61 + 5, 4000, 30, "Frame 1835 of 3999   01:01:05");
    row("more than an hour", 30 * 3600, 200000, 30, "Frame 108000 of 199999   60:00:00");
    row("another rate", 25, 100, 24, "Frame 25 of 99   00:01:01");
    row("no frame at all", -1, 0, 30, "");
    row("no scene yet", 0, 0, 0, "");
}

void tst_FrameText::tellsFrameAndTime()
{
    QFETCH(int, frame);
    QFETCH(int, frameCount);
    QFETCH(int, frameRate);
    QTEST(FrameText(frame, frameCount, frameRate), "text");
}

QTEST_MAIN(tst_FrameText)
#include "tst_FrameText.moc"
