#include "GestureRecorder.h"
#include "Gestures.h"
#include "container/CTimelineContainer.h"

#include <QDialog>
#include <QtTest>

using namespace KestovaTest;

namespace {

/// How a gesture loses its pointer half way.
enum Loss
{
    ButtonLost,
    FocusLost,
    RowHidden,
    ModalDialog,
    LossCount
};
const char* const kLossNames[] = {"the button is lost", "the focus goes", "the row is hidden",
                                  "a callback opens a dialog"};

/// A modal dialog under which the button goes up.
void OpenDialog(GestureScene& scene)
{
    QDialog dialog(&scene.fixture.mainWindow);
    QTimer::singleShot(0, &dialog, [&] {
        scene.pointer.LoseButtons();
        dialog.accept();
    });
    dialog.exec();
    scene.Activate();
}

/// The row, or the whole timeline where the gesture is made on what cannot be hidden alone.
void HideAndShow(GestureScene& scene, SceneRow row, bool hides)
{
    CTimelineContainer* const container = scene.fixture.Container();
    CTimelineTrackBase* const track = scene.Track(row);
    container->setVisible(!hides);
    if (hides)
        scene.fixture.manager->HideChildTrack(track, true);
    else
        scene.fixture.manager->ShowChildTrack(scene.Body(), track, 0, true);
}

bool HoldsTheButton(const std::vector<HandEvent>& events)
{
    return events.size() > 1 && events.front().kind == HandEvent::Press;
}

} // namespace

/// A gesture that loses its pointer ends by itself, and the next press starts clean.
class tst_GestureEnds : public QObject
{
    Q_OBJECT

    std::unique_ptr<GestureScene> m_scene;
    int m_sceneOf = -1;

    GestureScene& SceneOf(int gesture)
    {
        if (!m_scene || m_sceneOf != gesture) {
            m_scene.reset();
            m_scene = std::make_unique<GestureScene>(Gestures()[std::size_t(gesture)].rows);
            m_sceneOf = gesture;
        }
        m_scene->prepare = Gestures()[std::size_t(gesture)].prepare;
        m_scene->Reset();
        return *m_scene;
    }

    /// The whole gesture from the first state.
    QStringList Whole(int gesture)
    {
        const Gesture& made = Gestures()[std::size_t(gesture)];
        GestureScene& scene = SceneOf(gesture);
        GestureRecorder recorder(scene);
        recorder.Perform(made.script(scene).events, made.choosesInMenu);
        return recorder.lines;
    }

    /// Its first events, up to the one before the last, and then what takes the pointer from it.
    /// @return the calls of the host from then on.
    QStringList Interrupt(int gesture, Loss loss)
    {
        const Gesture& made = Gestures()[std::size_t(gesture)];
        GestureScene& scene = SceneOf(gesture);
        const std::vector<HandEvent> events = made.script(scene).events;
        const std::size_t half = std::max<std::size_t>(1, events.size() / 2);
        GestureRecorder recorder(scene);
        if (loss == ModalDialog)
            recorder.SetDeed(0, [&] { OpenDialog(scene); });
        recorder.Perform(events, made.choosesInMenu, 0, half);
        const int before = recorder.lines.size();
        if (loss == FocusLost)
            scene.elsewhere->setFocus();
        else if (loss == RowHidden)
            HideAndShow(scene, made.row, true);
        scene.fixture.Settle();
        scene.pointer.LoseButtons();
        if (loss == RowHidden)
            HideAndShow(scene, made.row, false);
        else
            // A move onto the point where the pointer is would be none.
            scene.pointer.MoveTo(&scene.fixture.mainWindow, events[half - 1].point + QPoint(1, 0));
        scene.fixture.Settle();
        return recorder.lines.mid(before);
    }

private slots:
    void cleanupTestCase() { m_scene.reset(); }

    void theNextPressStartsCleanAfter_data()
    {
        QTest::addColumn<int>("gesture");
        QTest::addColumn<int>("loss");
        int index = 0;
        for (const Gesture& gesture : Gestures()) {
            for (int loss = 0; loss < LossCount; ++loss)
                QTest::addRow("%s in %s", kLossNames[loss], gesture.name) << index << loss;
            ++index;
        }
    }
    void theNextPressStartsCleanAfter()
    {
        QFETCH(int, gesture);
        QFETCH(int, loss);
        const QStringList wanted = Whole(gesture);
        // A gesture that is over with its first event has nothing to lose.
        if (HoldsTheButton(Gestures()[std::size_t(gesture)].script(SceneOf(gesture)).events))
            Interrupt(gesture, Loss(loss));
        QCOMPARE(Whole(gesture), wanted);
    }

    void aMoveWithoutTheButtonDoesNotGoOn_data() { AddGestureRows(); }
    void aMoveWithoutTheButtonDoesNotGoOn()
    {
        QFETCH(int, gesture);
        const Gesture& made = Gestures()[std::size_t(gesture)];
        GestureScene& scene = SceneOf(gesture);
        const std::vector<HandEvent> events = made.script(scene).events;
        if (!HoldsTheButton(events))
            return;
        for (const Loss loss : {ButtonLost, FocusLost, RowHidden, ModalDialog}) {
            Interrupt(gesture, loss);
            GestureRecorder recorder(*m_scene);
            // Back and forth on the same points, with no button down.
            for (const HandEvent& event : events) {
                if (event.kind == HandEvent::Move || event.kind == HandEvent::Press)
                    m_scene->pointer.MoveTo(&m_scene->fixture.mainWindow, event.point);
            }
            QVERIFY2(recorder.lines.isEmpty(),
                     qPrintable(QString(kLossNames[loss]) + ": " + recorder.lines.join("; ")));
        }
    }

    void aLostDragIsFinishedOnce_data()
    {
        QTest::addColumn<int>("gesture");
        QTest::addColumn<int>("loss");
        QTest::addColumn<QString>("end");
        const QMap<QString, QString> ends = {
            {"scrub", "frame \\d+ true"},
            {"start mark", "mark 0 \\d+ true"},
            {"end mark", "mark 1 \\d+ true"},
            {"key drag", "edit 1 \\[Arm\\] 0 0"},
            {"clip drag", "edit 1 \\[Motion\\] 0 0"},
            {"sub-key drag", "edit 1 \\[Speech\\] 0 0"},
            {"loop edge", "edit 1 \\[Motion\\] 0 0"},
            {"speed edge", "edit 1 \\[Motion\\] 0 0"},
            {"trim edge", "edit 1 \\[Motion\\] 0 0"},
            {"transition handle", "edit 1 \\[Blend\\] 0 0"},
            {"range drag that leaves a range", "frame \\d+ true"},
            {"end marker of a range", "frame \\d+ true"},
            {"key drag that copies", "edit 14 \\[Arm\\] 0 0"},
        };
        for (auto each = ends.begin(); each != ends.end(); ++each) {
            int index = 0;
            for (const Gesture& gesture : Gestures()) {
                // A row that was taken out of the timeline has nothing more to say.
                for (const Loss loss : {ButtonLost, FocusLost}) {
                    if (each.key() == gesture.name)
                        QTest::addRow("%s in %s", kLossNames[loss], gesture.name)
                            << index << int(loss) << each.value();
                }
                ++index;
            }
        }
    }
    void aLostDragIsFinishedOnce()
    {
        QFETCH(int, gesture);
        QFETCH(int, loss);
        QFETCH(QString, end);
        const QStringList calls = Interrupt(gesture, Loss(loss));
        QVERIFY2(calls.filter(QRegularExpression("^" + end + "$")).size() == 1,
                 qPrintable(calls.join("; ")));
    }
};

QTEST_MAIN(tst_GestureEnds)
#include "tst_GestureEnds.moc"
