#include "HostProgram.h"
#include "TestFiles.h"
#include "support/PictureDifference.h"
#include "support/VirtualScreen.h"

#include <QImage>
#include <QStandardPaths>
#include <QTemporaryDir>

class tst_HostWindow : public QObject
{
    Q_OBJECT

private slots:
    void looksOnARealScreenAsItDoesOffscreen_data();
    void looksOnARealScreenAsItDoesOffscreen();
};

void tst_HostWindow::looksOnARealScreenAsItDoesOffscreen_data()
{
    QTest::addColumn<QString>("size");
    QTest::newRow("every row in view") << QStringLiteral("1280x720");
    QTest::newRow("rows that need scrolling") << QStringLiteral("800x400");
}

void tst_HostWindow::looksOnARealScreenAsItDoesOffscreen()
{
    QFETCH(QString, size);
    if (QStandardPaths::findExecutable(QStringLiteral("Xvfb")).isEmpty())
        QSKIP("Xvfb is not installed");
    // The window (at the top left) leaves the pointer, which starts in the middle, alone.
    const VirtualScreen screen({2800, 1600});
    QVERIFY(!screen.Display().isEmpty());
    QTemporaryDir directory;
    const QString grabbed = directory.filePath(QStringLiteral("grabbed.png"));
    const QString painted = directory.filePath(QStringLiteral("painted.png"));
    const QStringList scene{QStringLiteral("--size"), size, QStringLiteral("--frame"),
                            QStringLiteral("12")};

    QProcessEnvironment onScreen = QProcessEnvironment::systemEnvironment();
    onScreen.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    onScreen.insert(QStringLiteral("DISPLAY"), screen.Display());
    // Nothing here draws by OpenGL, whose plugin leaks and is gone when leaks are named.
    onScreen.insert(QStringLiteral("QT_XCB_GL_INTEGRATION"), QStringLiteral("none"));
    const HostRun screenRun =
        RunHostIn(onScreen, scene + QStringList{QStringLiteral("--grab-screen"), grabbed});
    QVERIFY2(screenRun.exitCode == 0, qPrintable(screenRun.errors));
    const HostRun offscreenRun =
        RunHost(scene + QStringList{QStringLiteral("--screenshot"), painted});
    QVERIFY2(offscreenRun.exitCode == 0, qPrintable(offscreenRun.errors));

    const QImage expected(painted);
    const QImage actual(grabbed);
    QVERIFY(!expected.isNull());
    QVERIFY2(actual == expected, qPrintable(DifferenceOf(actual, expected)));
}

QTEST_MAIN(tst_HostWindow)
#include "tst_HostWindow.moc"
