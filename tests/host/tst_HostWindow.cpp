#include "HostProgram.h"
#include "TestFiles.h"

#include <QImage>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace {

constexpr int kPatience = 20000; // milliseconds

/// An X server without a screen to look at, for as long as the object lives.
class VirtualScreen
{
public:
    /// Starts the server, which chooses a free display. An empty name when there is none.
    VirtualScreen()
    {
        // The window (at the top left) leaves the pointer, which starts in the middle, alone.
        m_server.start(QStringLiteral("Xvfb"),
                       {QStringLiteral("-displayfd"), QStringLiteral("1"),
                        QStringLiteral("-screen"), QStringLiteral("0"),
                        QStringLiteral("2800x1600x24"), QStringLiteral("-nolisten"),
                        QStringLiteral("tcp")});
        while (m_server.waitForReadyRead(kPatience)) {
            const QByteArray line = m_server.readLine().trimmed();
            if (!line.isEmpty()) {
                m_display = QStringLiteral(":") + QString::fromLatin1(line);
                return;
            }
        }
    }

    ~VirtualScreen()
    {
        m_server.terminate();
        m_server.waitForFinished(kPatience);
    }

    QString Display() const { return m_display; }

private:
    QProcess m_server;
    QString m_display;
};

QString DifferenceOf(const QImage& a, const QImage& b)
{
    if (a.size() != b.size())
        return QStringLiteral("%1x%2 against %3x%4")
            .arg(a.width())
            .arg(a.height())
            .arg(b.width())
            .arg(b.height());
    QRect different;
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y)) {
                different |= QRect(x, y, 1, 1);
                ++count;
            }
        }
    }
    return QStringLiteral("%1 pixels differ, between (%2,%3) and (%4,%5)")
        .arg(count)
        .arg(different.left())
        .arg(different.top())
        .arg(different.right())
        .arg(different.bottom());
}

} // namespace

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
    const VirtualScreen screen;
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
        RunHost(scene + QStringList{QStringLiteral("--grab-screen"), grabbed}, onScreen);
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
