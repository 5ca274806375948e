#include "HandledEditor.h"

#include "view/AboutBox.h"
#include "view/Theme.h"
#include "view/TimelinePane.h"
#include "view/TimelineWindow.h"
#include "view/ViewFractions.h"
#include "view/WindowLayout.h"

#include <QDockWidget>
#include <QMessageBox>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QTemporaryDir>
#include <QToolBar>
#include <QWheelEvent>
#include <QWindow>

using Frames = QVector<int>;

namespace {

constexpr int kNotch = 120; // what a notch of the wheel is counted as

QString DefaultSkin()
{
    return QFileInfo(QStringLiteral(KESTOVA_SKINS_DIR "/default.ini")).canonicalFilePath();
}
QString ContrastSkin()
{
    return QFileInfo(QStringLiteral(KESTOVA_SKINS_DIR "/contrast.ini")).canonicalFilePath();
}

struct ViewEditor : HandledEditor
{
    QString PlaceText() { return window.findChild<QLabel*>(QStringLiteral("place"))->text(); }
    host::TimelinePane& Pane() { return *window.findChild<host::TimelinePane*>(); }
    QScrollBar& VerticalBar() { return *Pane().findChild<QScrollArea*>()->verticalScrollBar(); }
    host::ViewFractions View() { return host::ViewOf(Timeline()); }

    QAction* Tool(const char* text)
    {
        for (QAction* const action : Pane().findChild<QToolBar*>()->actions()) {
            if (host::PlainText(*action) == QLatin1String(text))
                return action;
        }
        qFatal("no tool %s", text);
    }
    void ClickTool(const char* text)
    {
        auto* const bar = Pane().findChild<QToolBar*>();
        QWidget* const button = bar->widgetForAction(Tool(text));
        pointer.Click(button, button->rect().center());
    }
    QAction* Entry(const char* text)
    {
        for (QMenu* const menu : window.menuBar()->findChildren<QMenu*>()) {
            for (QAction* const action : menu->actions()) {
                if (host::PlainText(*action) == QLatin1String(text))
                    return action;
            }
        }
        qFatal("no entry %s", text);
    }
    void Turn(const char* name, int angle, Qt::KeyboardModifiers modifiers)
    {
        // Where the windowing system's events enter, so that Qt picks the widgets.
        const QPoint point = WidgetOf(name)->mapTo(&window, At(name, 30));
        QWheelEvent event(point, window.mapToGlobal(point), QPoint(), QPoint(0, angle),
                          Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(window.windowHandle(), &event);
        QCoreApplication::processEvents();
    }
    /// A scene so long that it does not fit, with the current frame in its middle.
    void MakeLong()
    {
        host::Scene scene = Scene();
        scene.frameCount = 2000;
        if (!window.SetScene(scene))
            qFatal("the long scene cannot be shown");
        window.GotoFrame(1000);
        QCoreApplication::processEvents();
    }
    QPair<int, int> RangeOf(const char* name)
    {
        int first = -1;
        int last = -1;
        Timeline().GetTrackSelFrame(Row(name), first, last);
        return {first, last};
    }
    QPair<int, int> TimeMark()
    {
        int start = -1;
        int end = -1;
        Timeline().GetTimeMarkFrame(start, end);
        return {start, end};
    }
};

/// The program's settings in a place of their own.
struct OwnSettings
{
    OwnSettings()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("kestova"));
        QCoreApplication::setApplicationName(QStringLiteral("kestova-host-test"));
        QSettings::setDefaultFormat(QSettings::IniFormat);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, directory.path());
        QSettings().clear();
    }
    QTemporaryDir directory;
};

} // namespace

class tst_HostView : public QObject
{
    Q_OBJECT

private slots:
    void theStatusLineTellsWhatThePointerIsOver();
    void theStatusLineFollowsADragToItsEnd();
    void theStatusLineFollowsTheZoom();
    void theStatusLineIsEmptyOutsideTheTimeline();
    void lookingChangesNothing();
    void theWheelScrollsTheRows();
    void theWheelWithShiftMovesTheView();
    void theWheelWithControlZoomsAboutTheCurrentFrame();
    void aFineWheelAddsUp();
    void zoomToolsFollowWhatIsPossible();
    void everyToolHasATip();
    void nextAndPreviousAreToolsKeysAndEntries();
    void rangesAreSelected();
    void rangesAreDeletedOnAllRowsThatShowThem();
    void rangesAreShiftedWithTheirKeys();
    void rangesStopAtTheEndsOfTheScene();
    void rangesMoveToTheCurrentFrame();
    void lockedRowsKeepTheirKeysInARange();
    void shapesInARangeAreDeleted();
    void rangeCommandsNeedARange();
    void theTimeMarkIsSetAtTheCurrentFrame();
    void aRangeIsMarked();
    void theChoiceForClipEndsStandsInBothPlaces();
    void theSkinIsSwitchedAtRunTime();
    void whatWasCopiedOutlivesASwitchOfSkins();
    void aBrokenSkinLeavesAllAsItIs();
    void aSkinOfTheUsersOwnJoinsTheMenu();
    void theWindowComesBackAsItWasLeft();
    void aGivenSizeIsKept();
    void theAboutBoxTellsTheVersions();
    void aPressInTheTimelineTakesTheFocus();
    void keysStayWithTheTimelineAfterScrubbing();
    void shortcutsDoNotFight();
};

void tst_HostView::theStatusLineTellsWhatThePointerIsOver()
{
    ViewEditor editor;
    editor.pointer.MoveTo(editor.WidgetOf("LeftArm"), editor.At("LeftArm", 15));
    QCOMPARE(editor.PlaceText(), QStringLiteral("Left Arm   frame 15   00:00:15   key"));
    editor.pointer.MoveTo(editor.WidgetOf("LeftArm"), editor.At("LeftArm", 16));
    QCOMPARE(editor.PlaceText(), QStringLiteral("Left Arm   frame 16   00:00:16"));
    editor.pointer.MoveTo(editor.WidgetOf("Motion"), editor.At("Motion", 40));
    QCOMPARE(editor.PlaceText(), QStringLiteral("Motion   frame 40   00:01:10   stroll"));
    editor.pointer.MoveTo(editor.WidgetOf("Lips"), editor.At("Lips", 40));
    QVERIFY(editor.PlaceText().startsWith(QStringLiteral("Lips   frame 40   00:01:10   shape ")));
    editor.pointer.MoveTo(editor.WidgetOf("Layers"), editor.At("Layers", 40));
    QCOMPARE(editor.PlaceText(), QStringLiteral("Layers"));
    QWidget* const timeline = editor.WidgetOf("Lips")->parentWidget();
    editor.pointer.MoveTo(timeline, QPoint(20, editor.WidgetOf("Motion")->y() + 5));
    QCOMPARE(editor.PlaceText(), QStringLiteral("Motion"));
    editor.pointer.MoveTo(timeline, QPoint(editor.WidgetOf("Lips")->x() + 205, 10));
    QCOMPARE(editor.PlaceText(), QStringLiteral("Ruler   frame 20   00:00:20"));
}

void tst_HostView::theStatusLineFollowsADragToItsEnd()
{
    ViewEditor editor;
    editor.Drag("LeftArm", editor.At("LeftArm", 15), {editor.At("LeftArm", 20)});
    QCoreApplication::processEvents();
    QCOMPARE(editor.PlaceText(), QStringLiteral("Left Arm   frame 20   00:00:20   key"));
}

void tst_HostView::theStatusLineFollowsTheZoom()
{
    ViewEditor editor;
    editor.MakeLong();
    const QPoint middle(500, 8);
    for (int zoom = 0; zoom < 4; ++zoom) {
        editor.pointer.MoveTo(editor.WidgetOf("Motion"), middle + QPoint(1, 0));
        editor.pointer.MoveTo(editor.WidgetOf("Motion"), middle);
        const QString told = editor.PlaceText();
        editor.pointer.Click(editor.WidgetOf("LeftArm"), middle); // makes that frame current
        const QString frame = QStringLiteral("frame %1 ").arg(editor.Timeline().GetCurrentFrame());
        QVERIFY2(told.contains(frame), qPrintable(told + u'/' + frame));
        editor.ClickTool("Zoom In");
    }
}

void tst_HostView::theStatusLineIsEmptyOutsideTheTimeline()
{
    ViewEditor editor;
    editor.pointer.MoveTo(editor.WidgetOf("LeftArm"), editor.At("LeftArm", 15));
    QVERIFY(!editor.PlaceText().isEmpty());
    editor.pointer.MoveTo(editor.window.menuBar(), QPoint(300, 5));
    QCOMPARE(editor.PlaceText(), QString());
    editor.pointer.MoveTo(editor.WidgetOf("LeftArm"), editor.At("LeftArm", 100)); // no such frame
    QVERIFY(!editor.PlaceText().contains(QStringLiteral("frame")));
}

void tst_HostView::lookingChangesNothing()
{
    ViewEditor editor;
    const host::Scene before = editor.Scene();
    editor.pointer.MoveTo(editor.WidgetOf("Sound"), editor.At("Sound", 33));
    QCOMPARE(editor.Timeline().GetCurrentFrame(), 0);
    QVERIFY(editor.Scene() == before);
    QCOMPARE(editor.StatusText(), QString());
}

void tst_HostView::theWheelScrollsTheRows()
{
    ViewEditor editor;
    editor.window.resize(1280, 480);
    QCoreApplication::processEvents();
    QVERIFY(editor.VerticalBar().maximum() > 0);
    QCOMPARE(editor.VerticalBar().value(), 0);
    editor.Turn("Lips", -kNotch, Qt::NoModifier);
    const int scrolled = editor.VerticalBar().value();
    QVERIFY(scrolled > 0);
    editor.Turn("Lips", kNotch, Qt::NoModifier);
    QCOMPARE(editor.VerticalBar().value(), 0);
}

void tst_HostView::theWheelWithShiftMovesTheView()
{
    ViewEditor editor;
    editor.MakeLong();
    editor.ClickTool("Zoom In");
    editor.ClickTool("Zoom In");
    const host::ViewFractions before = editor.View();
    editor.Turn("Lips", -kNotch, Qt::ShiftModifier);
    const host::ViewFractions later = editor.View();
    QVERIFY(later.left > before.left + 0.01F);
    QVERIFY(qAbs((later.right - later.left) - (before.right - before.left)) < 0.002F);
    editor.Turn("Lips", kNotch, Qt::ShiftModifier);
    QVERIFY(qAbs(editor.View().left - before.left) < 0.002F);
    for (int i = 0; i < 50; ++i)
        editor.Turn("Lips", kNotch, Qt::ShiftModifier);
    QCOMPARE(editor.View().left, 0.0F);
    for (int i = 0; i < 100; ++i)
        editor.Turn("Lips", -kNotch, Qt::ShiftModifier);
    QVERIFY(editor.View().right > 0.99F);
    QCOMPARE(editor.Timeline().GetCurrentFrame(), 1000);
}

void tst_HostView::theWheelWithControlZoomsAboutTheCurrentFrame()
{
    ViewEditor editor;
    editor.MakeLong();
    const auto width = [&editor] { return editor.View().right - editor.View().left; };
    const float before = width();
    editor.Turn("Lips", kNotch, Qt::ControlModifier);
    QVERIFY(width() < before * 0.6F);
    editor.Turn("Lips", kNotch, Qt::ControlModifier);
    QVERIFY(editor.View().left < 0.5F);
    QVERIFY(editor.View().right > 0.5F); // frame 1000 of 2000
    editor.Turn("Lips", -2 * kNotch, Qt::ControlModifier);
    QVERIFY(qAbs(width() - before) < 0.01F);
    editor.Turn("Lips", -kNotch, Qt::ControlModifier); // no further
    QVERIFY(qAbs(width() - before) < 0.01F);
}

void tst_HostView::aFineWheelAddsUp()
{
    ViewEditor editor;
    editor.MakeLong();
    const float before = editor.View().right - editor.View().left;
    for (int i = 0; i < 3; ++i)
        editor.Turn("Lips", kNotch / 4, Qt::ControlModifier);
    QCOMPARE(editor.View().right - editor.View().left, before);
    editor.Turn("Lips", kNotch / 4, Qt::ControlModifier);
    QVERIFY(editor.View().right - editor.View().left < before * 0.6F);
}

void tst_HostView::zoomToolsFollowWhatIsPossible()
{
    ViewEditor editor;
    editor.MakeLong();
    QVERIFY(editor.Tool("Zoom In")->isEnabled());
    QVERIFY(editor.Tool("Closest")->isEnabled());
    QVERIFY(!editor.Tool("Zoom Out")->isEnabled());
    QVERIFY(!editor.Tool("Show All")->isEnabled());
    QVERIFY(!editor.Entry("Zoom Out")->isEnabled());
    editor.ClickTool("Closest");
    QVERIFY(!editor.Tool("Zoom In")->isEnabled());
    QVERIFY(!editor.Tool("Closest")->isEnabled());
    QVERIFY(editor.Tool("Zoom Out")->isEnabled());
    QVERIFY(editor.Entry("Zoom Out")->isEnabled());
    QVERIFY(!editor.Entry("Zoom In")->isEnabled());
    editor.Entry("Show All Frames")->trigger();
    QVERIFY(editor.Tool("Zoom In")->isEnabled());
    QVERIFY(!editor.Tool("Show All")->isEnabled());
}

void tst_HostView::everyToolHasATip()
{
    ViewEditor editor;
    int tools = 0;
    for (const QAction* const action : editor.Pane().findChild<QToolBar*>()->actions()) {
        if (action->text().isEmpty())
            continue;
        ++tools;
        QVERIFY2(action->toolTip() != action->text(), qPrintable(action->text()));
    }
    QVERIFY(tools >= 7);
}

void tst_HostView::nextAndPreviousAreToolsKeysAndEntries()
{
    ViewEditor editor;
    editor.pointer.Click(editor.WidgetOf("LeftArm"), editor.At("LeftArm", 3));
    editor.ClickTool("Next Key");
    QCOMPARE(editor.SelectedFrames("LeftArm"), Frames{15});
    QCOMPARE(editor.Timeline().GetCurrentFrame(), 15);
    QTest::keyClick(&editor.window, Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(editor.SelectedFrames("LeftArm"), Frames{30});
    editor.Entry("Select Next")->trigger();
    QCOMPARE(editor.SelectedFrames("LeftArm"), Frames{45});
    QTest::keyClick(&editor.window, Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(editor.SelectedFrames("LeftArm"), Frames{30});
    editor.ClickTool("Previous Key");
    QCOMPARE(editor.SelectedFrames("LeftArm"), Frames{15});
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab); // the timeline's own
    QCOMPARE(editor.SelectedFrames("LeftArm"), Frames{30});
}

void tst_HostView::rangesAreSelected()
{
    ViewEditor editor;
    editor.Drag("LeftArm", editor.At("LeftArm", 20), {editor.At("LeftArm", 50)});
    QCOMPARE(editor.RangeOf("LeftArm"), qMakePair(20, 50));
    editor.Shown("LeftArm").ClearAllSelection();
    editor.SelectToo("Spine", {0});
    QTest::keyClick(&editor.window, Qt::Key_R, Qt::ControlModifier);
    QCOMPARE(editor.SelectedFrames("LeftArm"), (Frames{30, 45}));
    QCOMPARE(editor.SelectedFrames("Spine"), Frames());
    QVERIFY(editor.Command(QStringLiteral("Delete"))->isEnabled());
}

void tst_HostView::rangesAreDeletedOnAllRowsThatShowThem()
{
    ViewEditor editor;
    // The joints show the range of the motion.
    editor.Timeline().SetActiveChildTrack(editor.Row("Motion"));
    editor.Timeline().SetTrackSelFrame(editor.Row("Motion"), 40, 20);
    editor.Entry("Delete Range")->setEnabled(true);
    QTest::keyClick(&editor.window, Qt::Key_Delete, Qt::ControlModifier);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 45, 60, 75, 90}));
    QCOMPARE(editor.FramesOf("Spine"), (Frames{0, 15, 45, 53, 60, 68, 75, 90}));
    QCOMPARE(editor.FramesOf("Motion"), Frames{0});
    QCOMPARE(editor.StatusText(), QStringLiteral("Delete 4 keys"));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostView::rangesAreShiftedWithTheirKeys()
{
    ViewEditor editor;
    editor.Drag("LeftArm", editor.At("LeftArm", 20), {editor.At("LeftArm", 50)});
    QTest::keyClick(&editor.window, Qt::Key_Right, Qt::ShiftModifier | Qt::AltModifier);
    QTest::keyClick(&editor.window, Qt::Key_Right, Qt::ShiftModifier | Qt::AltModifier);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 32, 47, 60, 75, 90}));
    QCOMPARE(editor.RangeOf("LeftArm"), qMakePair(22, 52));
    QTest::keyClick(&editor.window, Qt::Key_Left, Qt::ShiftModifier | Qt::AltModifier);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 31, 46, 60, 75, 90}));
    QCOMPARE(editor.RangeOf("LeftArm"), qMakePair(21, 51));
    QCOMPARE(editor.StatusText(), QStringLiteral("Move 2 keys back by 1 frame"));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostView::rangesStopAtTheEndsOfTheScene()
{
    ViewEditor editor;
    editor.Drag("LeftArm", editor.At("LeftArm", 70), {editor.At("LeftArm", 89)});
    editor.Timeline().SetTrackSelFrame(editor.Row("LeftArm"), 70, 90);
    QTest::keyClick(&editor.window, Qt::Key_Right, Qt::ShiftModifier | Qt::AltModifier);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 30, 45, 60, 75, 90}));
    QCOMPARE(editor.RangeOf("LeftArm"), qMakePair(70, 90));
}

void tst_HostView::rangesMoveToTheCurrentFrame()
{
    ViewEditor editor;
    editor.Drag("LeftArm", editor.At("LeftArm", 70), {editor.At("LeftArm", 80)});
    editor.Timeline().SetCurrentFrame(50);
    editor.Entry("Shift Range to Current Frame")->trigger();
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 30, 45, 55, 60, 90}));
    QCOMPARE(editor.RangeOf("LeftArm"), qMakePair(50, 60));
}

void tst_HostView::lockedRowsKeepTheirKeysInARange()
{
    ViewEditor editor;
    host::Scene scene = editor.Scene();
    scene.FindTrack(editor.Id("Spine"))->locked = true;
    editor.window.Session().Apply(QStringLiteral("Lock"), scene);
    editor.Timeline().SetActiveChildTrack(editor.Row("Motion"));
    editor.Timeline().SetTrackSelFrame(editor.Row("Motion"), 20, 40);
    const Frames spine = editor.FramesOf("Spine");
    editor.Entry("Delete Range")->setEnabled(true);
    editor.Entry("Delete Range")->trigger();
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 45, 60, 75, 90}));
    QCOMPARE(editor.FramesOf("Spine"), spine);
}

void tst_HostView::shapesInARangeAreDeleted()
{
    ViewEditor editor;
    const QVector<host::SceneKey> before = editor.KeysOf("Lips")[0].subKeys;
    editor.Timeline().SetActiveChildTrack(editor.Row("Lips"));
    editor.Timeline().SetTrackSelFrame(editor.Row("Lips"), 20, 40);
    editor.Entry("Delete Range")->setEnabled(true);
    editor.Entry("Delete Range")->trigger();
    int outside = 0;
    for (const host::SceneKey& shape : before)
        outside += shape.frame < 20 || shape.frame > 40 ? 1 : 0;
    QVERIFY(outside < before.size());
    QCOMPARE(editor.KeysOf("Lips")[0].subKeys.size(), outside);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostView::rangeCommandsNeedARange()
{
    ViewEditor editor;
    editor.pointer.Click(editor.WidgetOf("LeftArm"), editor.At("LeftArm", 15));
    for (const char* const entry :
         {"Select Range", "Delete Range", "Shift Range Earlier", "Shift Range Later",
          "Shift Range to Current Frame", "Mark Range"})
        QVERIFY2(!editor.Entry(entry)->isEnabled(), entry);
    editor.Drag("LeftArm", editor.At("LeftArm", 20), {editor.At("LeftArm", 50)});
    QVERIFY(editor.Entry("Delete Range")->isEnabled());
}

void tst_HostView::theTimeMarkIsSetAtTheCurrentFrame()
{
    ViewEditor editor;
    editor.Timeline().SetCurrentFrame(25);
    QTest::keyClick(&editor.window, Qt::Key_Home, Qt::ShiftModifier);
    QCOMPARE(editor.TimeMark(), qMakePair(25, 90));
    editor.Timeline().SetCurrentFrame(60);
    QTest::keyClick(&editor.window, Qt::Key_End, Qt::ShiftModifier);
    QCOMPARE(editor.TimeMark(), qMakePair(25, 60));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    editor.Timeline().SetCurrentFrame(70); // a start behind the end takes it along
    QTest::keyClick(&editor.window, Qt::Key_Home, Qt::ShiftModifier);
    QCOMPARE(editor.TimeMark(), qMakePair(70, 70));
    editor.Entry("Mark Whole Scene")->trigger();
    QCOMPARE(editor.TimeMark(), qMakePair(0, 90));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostView::aRangeIsMarked()
{
    ViewEditor editor;
    editor.Drag("LeftArm", editor.At("LeftArm", 20), {editor.At("LeftArm", 50)});
    editor.Entry("Mark Range")->trigger();
    QCOMPARE(editor.TimeMark(), qMakePair(20, 50));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostView::theChoiceForClipEndsStandsInBothPlaces()
{
    ViewEditor editor;
    QVERIFY(!editor.window.IsClipSpeed());
    editor.ClickTool("Speed");
    QVERIFY(editor.window.IsClipSpeed());
    QVERIFY(editor.Entry("Clip Ends Change Speed")->isChecked());
    QTest::keyClick(&editor.window, Qt::Key_E, Qt::ControlModifier);
    QVERIFY(!editor.window.IsClipSpeed());
    QVERIFY(!editor.Tool("Speed")->isChecked());
    QVERIFY(editor.Tool("Loop")->isChecked());
    editor.ClickTool("Loop"); // as it is
    QVERIFY(!editor.window.IsClipSpeed());
    editor.ClickTool("Speed");
    editor.ClickTool("Speed");
    QVERIFY(editor.window.IsClipSpeed());
    editor.ClickTool("Loop");
    QVERIFY(!editor.window.IsClipSpeed());
    QVERIFY(!editor.Entry("Clip Ends Change Speed")->isChecked());
}

void tst_HostView::theSkinIsSwitchedAtRunTime()
{
    ViewEditor editor;
    editor.MakeLong();
    editor.ClickTool("Zoom In");
    editor.ClickTool("Zoom In");
    editor.Turn("Lips", -kNotch, Qt::ShiftModifier);
    editor.Timeline().SetActiveChildTrack(editor.Row("LeftArm"));
    editor.SelectToo("LeftArm", {1, 3});
    editor.SelectToo("Spine", {2});
    editor.SelectToo("Lips", {0});
    editor.Shown("Lips").GetAt(0)->subKeys->SetSelectionByIndex(2, 2, true, TL_KEY_ANY_KIND);
    editor.Timeline().SetTrackSelFrame(editor.Row("LeftArm"), 20, 50);
    editor.ClickTool("Speed");
    host::Scene scene = editor.Scene();
    scene.FindTrack(editor.Id("Spine"))->locked = true;
    editor.window.Session().Apply(QStringLiteral("Lock"), scene);
    const host::ViewFractions view = editor.View();
    const QImage before = editor.window.grab().toImage();
    int changes = 0;
    QObject::connect(&editor.window.Session(), &host::EditSession::Changed,
                     [&changes] { ++changes; });

    for (const char* const skin : {"High Contrast", "Dark"}) {
        editor.Entry(skin)->trigger();
        QCoreApplication::processEvents();
        QVERIFY(editor.Entry(skin)->isChecked());
        QVERIFY(editor.Scene() == scene);
        VERIFY_TIMELINE_EQUALS_SCENE(editor);
        QCOMPARE(editor.Timeline().GetCurrentFrame(), 1000);
        QCOMPARE(editor.View().left, view.left);
        QCOMPARE(editor.View().right, view.right);
        QVERIFY(editor.Timeline().GetActiveChildTrack() == editor.Row("LeftArm"));
        QCOMPARE(editor.SelectedFrames("LeftArm"), (Frames{15, 45}));
        QCOMPARE(editor.SelectedFrames("Spine").size(), 1);
        QCOMPARE(editor.Shown("Lips").GetAt(0)->subKeys->SelectedIndexes(), std::vector<int>{2});
        QCOMPARE(editor.RangeOf("LeftArm"), qMakePair(20, 50));
        QVERIFY(editor.window.IsClipSpeed());
        int lock = -1;
        editor.Timeline().GetTrackCaptionBtnState(editor.Row("Spine"), 2, lock);
        QCOMPARE(lock, 2);
        const bool isContrast = QLatin1String(skin) == QLatin1String("High Contrast");
        QCOMPARE(editor.window.Skin(), isContrast ? ContrastSkin() : DefaultSkin());
        QCOMPARE(QApplication::palette().color(QPalette::Window).lightness() == 0, isContrast);
        QVERIFY(editor.window.grab().toImage() != before || !isContrast);
    }
    QCOMPARE(changes, 0);
    // All goes on in the new timeline.
    editor.Turn("Lips", kNotch, Qt::ControlModifier);
    QVERIFY(editor.View().right - editor.View().left < view.right - view.left);
}

void tst_HostView::whatWasCopiedOutlivesASwitchOfSkins()
{
    ViewEditor editor;
    editor.Select("LeftArm", {1, 2});
    editor.Command(QStringLiteral("Copy"))->setEnabled(true);
    editor.Command(QStringLiteral("Copy"))->trigger();
    QVERIFY(editor.window.ShowSkin(ContrastSkin()));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
    editor.Timeline().SetCurrentFrame(20);
    QTest::keyClick(&editor.window, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 20, 30, 35, 45, 60, 75, 90}));
    QVERIFY(editor.window.ShowSkin(DefaultSkin()));
}

void tst_HostView::aBrokenSkinLeavesAllAsItIs()
{
    ViewEditor editor;
    QTemporaryDir directory;
    QFile good(DefaultSkin());
    QVERIFY(good.open(QIODevice::ReadOnly));
    const QByteArray text = good.readAll();
    for (const QByteArray& section : {QByteArray("[TickTrack]"), QByteArray("[KeyTrack4]")}) {
        const QString path = directory.filePath(QStringLiteral("broken.ini"));
        QFile broken(path);
        QVERIFY(broken.open(QIODevice::WriteOnly));
        broken.write(QByteArray(text).replace(section, "[Elsewhere]"));
        broken.close();
        const host::Scene before = editor.Scene();
        editor.Select("LeftArm", {2});
        QVERIFY(!editor.window.ShowSkin(path));
        QCOMPARE(editor.StatusText(), path + QStringLiteral(": expected a skin with every section "
                                                            "and key"));
        QVERIFY(editor.Scene() == before);
        QCOMPARE(editor.window.Skin(), DefaultSkin());
        VERIFY_TIMELINE_EQUALS_SCENE(editor);
        QCOMPARE(editor.SelectedFrames("LeftArm"), Frames{30});
    }
}

void tst_HostView::aSkinOfTheUsersOwnJoinsTheMenu()
{
    QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("mine.ini"));
    QVERIFY(QFile::copy(DefaultSkin(), path));
    host::MainWindow window;
    QVERIFY(window.CreateTimeline(path));
    bool isThere = false;
    for (QMenu* const menu : window.menuBar()->findChildren<QMenu*>()) {
        for (const QAction* const action : menu->actions())
            isThere = isThere ||
                      (host::PlainText(*action) == QLatin1String("mine") && action->isChecked());
    }
    QVERIFY(isThere);
}

void tst_HostView::theWindowComesBackAsItWasLeft()
{
    const OwnSettings settings;
    {
        ViewEditor editor;
        new host::WindowLayout(editor.window, false);
        editor.window.resize(900, 500);
        editor.window.SetClipSpeed(true);
        QVERIFY(editor.window.ShowSkin(ContrastSkin()));
        editor.window.close();
    }
    QCOMPARE(host::RememberedSkin(), ContrastSkin());
    ViewEditor editor;
    QVERIFY(!editor.window.IsClipSpeed());
    new host::WindowLayout(editor.window, false);
    QCOMPARE(editor.window.size(), QSize(900, 500));
    QVERIFY(editor.window.IsClipSpeed());
    QVERIFY(QDir(settings.directory.path()).exists(QStringLiteral("kestova")));
    QVERIFY(editor.window.ShowSkin(DefaultSkin()));
}

void tst_HostView::aGivenSizeIsKept()
{
    const OwnSettings settings;
    {
        ViewEditor editor;
        const host::WindowLayout layout(editor.window, false);
        editor.window.resize(900, 500);
        layout.Save();
    }
    ViewEditor editor;
    const host::WindowLayout layout(editor.window, true);
    QCOMPARE(editor.window.size(), QSize(1280, 720));
}

void tst_HostView::theAboutBoxTellsTheVersions()
{
    ViewEditor editor;
    editor.Entry("About Kestova Host")->trigger();
    auto* const box = editor.window.findChild<QMessageBox*>();
    QVERIFY(box);
    QVERIFY(box->isVisible());
    QVERIFY(box->text().contains(QStringLiteral("Host " KESTOVA_PROJECT_VERSION)));
    QVERIFY(box->text().contains(QStringLiteral("KestovaTimelineQU ") +
                                 QString::fromLatin1(KestovaTimelineVersion()) + "<br>"));
    QVERIFY(box->text().contains(QStringLiteral("Qt ") + QString::fromLatin1(qVersion())));
    QTest::keyClick(box, Qt::Key_Escape);
    QVERIFY(!box->isVisible());
}

void tst_HostView::aPressInTheTimelineTakesTheFocus()
{
    ViewEditor editor;
    auto* const bar = editor.Pane().findChild<QToolBar*>();
    QWidget* const button = bar->widgetForAction(editor.Tool("Speed"));
    button->setFocus();
    QVERIFY(QApplication::focusWidget() == button);
    QWidget* const timeline = editor.Pane().Timeline();
    editor.pointer.Click(timeline, QPoint(20, editor.WidgetOf("LeftArm")->y() + 5)); // a caption
    QVERIFY(QApplication::focusWidget() == timeline ||
            timeline->isAncestorOf(QApplication::focusWidget()));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_End);
    QCOMPARE(editor.Timeline().GetCurrentFrame(), 90);
    // A tool that is clicked leaves it there.
    editor.ClickTool("Speed");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Home);
    QCOMPARE(editor.Timeline().GetCurrentFrame(), 0);
}

void tst_HostView::keysStayWithTheTimelineAfterScrubbing()
{
    ViewEditor editor;
    QWidget* const ruler = editor.Ruler();
    editor.pointer.Press(ruler, QPoint(205, ruler->height() / 2));
    editor.pointer.MoveTo(ruler, QPoint(305, ruler->height() / 2));
    editor.pointer.Release();
    QCOMPARE(editor.Timeline().GetCurrentFrame(), 30);
    QVERIFY(QApplication::focusWidget());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_End);
    QCOMPARE(editor.Timeline().GetCurrentFrame(), 90);
}

void tst_HostView::shortcutsDoNotFight()
{
    ViewEditor editor;
    QHash<QString, QString> taken;
    for (const QAction* const action : editor.window.findChildren<QAction*>()) {
        for (const QKeySequence& keys : action->shortcuts()) {
            const QString name = keys.toString(QKeySequence::PortableText);
            if (name.isEmpty())
                continue;
            QVERIFY2(!taken.contains(name),
                     qPrintable(name + u' ' + taken.value(name) + u' ' + action->text()));
            taken.insert(name, action->text() + action->objectName());
        }
    }
    QVERIFY(taken.contains(QStringLiteral("Tab"))); // the timeline's are among them
    QVERIFY(taken.contains(QStringLiteral("Ctrl+R")));
}

QTEST_MAIN(tst_HostView)
#include "tst_HostView.moc"
