// The program of the host guide, with its main under another name: it runs as it is written, and
// what is tested is tested in its event loop.
#define main RunHostGuide
#include "HostGuide.cpp"
#undef main

#include "support/Pointer.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <QtTest>

using KestovaTest::Pointer;
using Frames = std::vector<int>;

namespace {

Editor& TheEditor()
{
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        if (auto* const editor = dynamic_cast<Editor*>(widget))
            return *editor;
    }
    qFatal("the guide's program shows no window");
}

QWidget* WidgetOf(const QString& channel)
{
    const void* const track = TheEditor().TrackOf(channel);
    for (QWidget* const widget : TheEditor().findChildren<QWidget*>()) {
        if (widget == track)
            return widget;
    }
    qFatal("no row %s", qPrintable(channel));
}

Frames FramesOf(std::size_t channel)
{
    return TheEditor().Shown().channels[channel].frames;
}

Frames ShownFrames(const QString& channel)
{
    Frames frames;
    for (const auto& key :
         TheEditor().Manager().GetKeyDataArray(TheEditor().TrackOf(channel))->Keys())
        frames.push_back(key->frame);
    return frames;
}

/// The middle of a frame's cell, at the zoom that a timeline begins with.
QPoint At(const QString& channel, int frame)
{
    constexpr int kPixelsPerFrame = 5;
    return {frame * kPixelsPerFrame + kPixelsPerFrame / 2, WidgetOf(channel)->height() / 2};
}

void Drag(const QString& channel, int from, int to, Qt::KeyboardModifiers modifiers)
{
    Pointer pointer(&TheEditor());
    pointer.modifiers = modifiers;
    pointer.Press(WidgetOf(channel), At(channel, from));
    pointer.MoveTo(WidgetOf(channel), At(channel, from + 1));
    pointer.MoveTo(WidgetOf(channel), At(channel, to));
    pointer.Release();
}

} // namespace

class tst_HostGuide : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { TheEditor().Manager().SetCurrentFrame(0); }
    void showsTheAnimation();
    void followsTheCurrentFrame();
    void takesADraggedKeyIntoTheAnimation();
    void takesADragWithCtrlAsCopies();
    void offersWhatCanBeDoneInTheMenu();
    void copiesPastesAndDeletes();
    void takesADroppedSound();
};

void tst_HostGuide::initTestCase()
{
    TheEditor().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&TheEditor()));
}

void tst_HostGuide::showsTheAnimation()
{
    QCOMPARE(ShownFrames("Arm"), (Frames{5, 20, 40}));
    QCOMPARE(ShownFrames("Leg"), (Frames{0, 30}));
    QVERIFY(WidgetOf("Arm")->isVisible());
    QVERIFY(WidgetOf("Leg")->y() > WidgetOf("Arm")->y());
}

void tst_HostGuide::followsTheCurrentFrame()
{
    Pointer(&TheEditor()).Click(WidgetOf("Arm"), At("Arm", 12));
    QCOMPARE(TheEditor().statusBar()->currentMessage(), QString("Frame 12"));
}

void tst_HostGuide::takesADraggedKeyIntoTheAnimation()
{
    Drag("Arm", 20, 26, Qt::NoModifier);
    QCOMPARE(FramesOf(0), (Frames{5, 26, 40}));
    Drag("Arm", 26, 40, Qt::NoModifier); // onto another key
    QCOMPARE(FramesOf(0), (Frames{5, 40}));
    QCOMPARE(ShownFrames("Arm"), FramesOf(0));
}

void tst_HostGuide::takesADragWithCtrlAsCopies()
{
    Pointer(&TheEditor()).Click(WidgetOf("Leg"), At("Leg", 30));
    Drag("Leg", 30, 50, Qt::ControlModifier);
    QCOMPARE(FramesOf(1), (Frames{0, 30, 50}));
    QCOMPARE(ShownFrames("Leg"), FramesOf(1));
}

void tst_HostGuide::offersWhatCanBeDoneInTheMenu()
{
    Pointer(&TheEditor()).Click(WidgetOf("Arm"), At("Arm", 60)); // nothing is selected
    std::vector<_tmpTLMenuMapData*> menu;
    TheEditor().FillMenu(TheEditor().TrackOf("Arm"), menu);
    QCOMPARE(menu.size(), std::size_t(3));
    QCOMPARE(menu[0]->text, QString("Copy"));
    QVERIFY(!menu[0]->enabled);
    Pointer(&TheEditor()).Click(WidgetOf("Arm"), At("Arm", 5));
    menu.clear();
    TheEditor().FillMenu(TheEditor().TrackOf("Arm"), menu);
    QVERIFY(menu[0]->enabled);
}

void tst_HostGuide::copiesPastesAndDeletes()
{
    CTimelineTrackBase* const arm = TheEditor().TrackOf("Arm");
    Pointer(&TheEditor()).Click(WidgetOf("Arm"), At("Arm", 5));
    QVERIFY(TheEditor().Do(arm, TL_EDIT_COPY));
    TheEditor().Manager().SetCurrentFrame(70);
    QVERIFY(TheEditor().Do(arm, TL_EDIT_PASTE));
    QCOMPARE(FramesOf(0), (Frames{5, 40, 70}));
    Pointer(&TheEditor()).Click(WidgetOf("Arm"), At("Arm", 40));
    QVERIFY(TheEditor().Do(arm, TL_EDIT_DELETE));
    QCOMPARE(FramesOf(0), (Frames{5, 70}));
    QCOMPARE(ShownFrames("Arm"), FramesOf(0));
}

void tst_HostGuide::takesADroppedSound()
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile("/sounds/step.wav")});
    QWidget* const row = WidgetOf("Leg");
    QDragEnterEvent enter(At("Leg", 14), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(row, &enter);
    QDragMoveEvent move(At("Leg", 14), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(row, &move);
    QVERIFY(move.isAccepted());
    QDropEvent drop(At("Leg", 14), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(row, &drop);
    QVERIFY(drop.isAccepted());
    QCOMPARE(FramesOf(1), (Frames{0, 14, 30, 50}));
}

namespace {

QStringList testArguments;

/// Run by Qt when the guide's program has made its application.
void TestOnceItRuns()
{
    QTimer::singleShot(0, qApp, [] {
        tst_HostGuide test;
        QApplication::exit(QTest::qExec(&test, testArguments));
    });
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(TestOnceItRuns)

int main(int argc, char** argv)
{
    std::string skin = KESTOVA_SKINS_DIR "/default.ini";
    std::vector<char*> arguments = {argv[0], &skin[0]};
    for (int i = 0; i < argc; ++i) {
        if (argv[i] == QLatin1String("-platform") && i + 1 < argc) {
            arguments.push_back(argv[i]); // for the application, which the guide's program makes
            arguments.push_back(argv[++i]);
        } else {
            testArguments << QString::fromLocal8Bit(argv[i]);
        }
    }
    const int count = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);
    return RunHostGuide(count, arguments.data());
}

#include "tst_HostGuide.moc"
