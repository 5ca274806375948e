#pragma once

#include "Editor.h"
#include "Hand.h"
#include "SavedScene.h"
#include "support/PictureDifference.h"
#include "support/VirtualScreen.h"

#include <QGuiApplication>
#include <QStandardPaths>
#include <QtTest>

#include <cstdio>
#include <memory>

/// Every test is a story of one user, with a home of its own.
class Story : public QObject
{
    Q_OBJECT

protected:
    const Home& MyHome() const { return *m_home; }
    QString Path(const QString& name) const { return m_home->Path(name); }
    /// Fails the test when the picture does not become the expected one.
    static void ExpectPicture(const Editor& editor, const QRect& part, const QImage& expected)
    {
        Hand::MoveAway();
        QImage actual;
        const bool isSame = Sees([&] {
            actual = editor.Picture(part);
            return actual == expected;
        });
        if (!isSame) {
            KeepPicture(actual, QStringLiteral("got"));
            KeepPicture(expected, QStringLiteral("expected"));
        }
        QVERIFY2(isSame, qPrintable(DifferenceOf(actual, expected)));
    }

private slots:
    void init() { m_home = std::make_unique<Home>(); }

    void cleanup() { m_home.reset(); }

private:
    std::unique_ptr<Home> m_home;
};

/// Runs the stories of that class on a screen of their own. Where there can be none, says so and
/// gives the code by which the test runner knows that nothing was tested.
template <class Stories>
int TellStories(int argc, char** argv)
{
    constexpr int kSkipped = 77;
    for (const char* const program : {"Xvfb", "xdotool"}) {
        if (QStandardPaths::findExecutable(QLatin1String(program)).isEmpty()) {
            std::printf("SKIPPED: %s is not installed\n", program);
            return kSkipped;
        }
    }
    // Two windows find place beside each other, and the pointer below them.
    const VirtualScreen screen(
        {2 * Places::kWindowSize.width(), Places::kWindowSize.height() + 80});
    if (screen.Display().isEmpty()) {
        std::printf("Expected Xvfb to start\n");
        return EXIT_FAILURE;
    }
    qputenv("DISPLAY", screen.Display().toLatin1());
    qputenv("QT_QPA_PLATFORM", "xcb");
    // Nothing here draws by OpenGL, whose plugin leaks and is gone when leaks are named.
    qputenv("QT_XCB_GL_INTEGRATION", "none");
    QGuiApplication application(argc, argv);
    Stories stories;
    return QTest::qExec(&stories, argc, argv);
}
