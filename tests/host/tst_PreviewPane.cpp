#include "EditorFixture.h"

#include "document/ClipEdits.h"
#include "preview/FaceView.h"
#include "preview/FigureView.h"
#include "preview/PreviewPane.h"

#include <QApplication>
#include <QDockWidget>
#include <QPainter>
#include <QWheelEvent>

#include <functional>

using namespace host;

namespace {

/// Counts the paints of a widget.
class PaintCount : public QObject
{
public:
    explicit PaintCount(QWidget* watched) { watched->installEventFilter(this); }

    /// The paints since the last look, with those that are due now.
    int Take()
    {
        QCoreApplication::processEvents();
        const int count = m_count;
        m_count = 0;
        return count;
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        m_count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

private:
    int m_count = 0;
};

/// The editor, and what its preview shows.
struct Previewed : EditorFixture
{
    Previewed()
        : face(window.findChild<FaceView*>()), figure(window.findChild<FigureView*>()),
          facePaints(face), figurePaints(figure)
    {
        Settle();
    }

    void Settle()
    {
        facePaints.Take();
        figurePaints.Take();
    }
    void Edit(const std::function<void(host::Scene&)>& change)
    {
        host::Scene scene = Scene();
        change(scene);
        window.Session().Apply(QStringLiteral("Edit"), scene);
    }
    SceneKey& KeyOf(host::Scene& scene, const char* row) const
    {
        return scene.FindTrack(Id(row))->keys[0];
    }
    void Wheel(int angle)
    {
        const QPoint place = figure->rect().center();
        QWheelEvent event(place, figure->mapToGlobal(place), {}, {0, angle}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(figure, &event);
    }

    FaceView* face;
    FigureView* figure;
    PaintCount facePaints;
    PaintCount figurePaints;
};

} // namespace

class tst_PreviewPane : public QObject
{
    Q_OBJECT

private slots:
    void standsAboveTheTimeline();
    void showsTheFaceAndTheFigureOfTheCurrentFrame();
    void followsEveryScrub();
    void followsEditsOfTheLips();
    void followsEveryStepOfAnEdit();
    void followsEditsOfTheMotion();
    void followsTheRowsThatAreMuted();
    void followsAnotherScene();
    void paintsNothingWhenNothingItShowsHasChanged();
    void paintsOnlyTheViewThatChanged();
    void aDragTurnsTheFigure();
    void theWheelBringsItCloser();
    void aDoubleClickLooksFromTheStartAgain();
    void leavesTheKeyboardToTheTimeline();
    void costsLittleForAFrame();
    void staysUsableInASmallWindow();
};

void tst_PreviewPane::standsAboveTheTimeline()
{
    Previewed editor;
    const QWidget* const timeline = editor.window.findChild<QDockWidget*>();
    const int bottom = editor.figure->mapTo(&editor.window, editor.figure->rect().bottomLeft()).y();
    QVERIFY(bottom < timeline->geometry().top());
    QVERIFY(editor.figure->height() > 200);
    QVERIFY(editor.face->width() > 200);
    QVERIFY(timeline->height() > editor.figure->height());
}

void tst_PreviewPane::showsTheFaceAndTheFigureOfTheCurrentFrame()
{
    Previewed editor;
    editor.window.GotoFrame(37);
    QImage expected(editor.face->size(), QImage::Format_RGB32);
    QPainter painter(&expected);
    PaintFace(painter, expected.rect(), {MouthAt(editor.Scene(), 37), 0});
    painter.end();
    const QImage seen = editor.face->grab().toImage().convertToFormat(QImage::Format_RGB32);
    QVERIFY(seen == expected);
}

void tst_PreviewPane::followsEveryScrub()
{
    Previewed editor;
    for (const int frame : {20, 21, 22, 40, 39}) {
        editor.Timeline().SetCurrentFrame(frame);
        QVERIFY2(editor.figurePaints.Take() == 1, qPrintable(QString::number(frame)));
    }
}

void tst_PreviewPane::followsEditsOfTheLips()
{
    Previewed editor;
    editor.window.GotoFrame(15);
    editor.Settle();
    editor.Edit([&editor](host::Scene& scene) {
        for (SceneKey& key : editor.KeyOf(scene, "Lips").subKeys)
            key.mouthShape = 4;
    });
    QCOMPARE(editor.facePaints.Take(), 1);
    QCOMPARE(editor.figurePaints.Take(), 0);
}

void tst_PreviewPane::followsEveryStepOfAnEdit()
{
    Previewed editor;
    editor.window.GotoFrame(40);
    editor.Settle();
    editor.window.Session().Begin();
    for (int i = 1; i <= 3; ++i) {
        host::Scene scene = editor.Scene();
        ChangeLeadIn(scene, editor.Id("Motion"), editor.KeysOf("Motion")[0].id, 1);
        editor.window.Session().Step(QStringLiteral("Trim"), scene);
        QCOMPARE(editor.figurePaints.Take(), 1);
    }
    editor.window.Session().Commit();
    QCOMPARE(editor.figurePaints.Take(), 0); // the end of an edit changes nothing
}

void tst_PreviewPane::followsEditsOfTheMotion()
{
    Previewed editor;
    editor.window.GotoFrame(40);
    editor.Settle();
    editor.Edit([&editor](host::Scene& scene) {
        SetClipLength(scene, editor.Id("Motion"), editor.KeyOf(scene, "Motion").id, 45);
    });
    QCOMPARE(editor.figurePaints.Take(), 1);
    QCOMPARE(editor.facePaints.Take(), 0);
}

void tst_PreviewPane::followsTheRowsThatAreMuted()
{
    Previewed editor;
    editor.window.GotoFrame(40);
    editor.Settle();
    editor.Edit(
        [&editor](host::Scene& scene) { scene.FindTrack(editor.Id("LeftArm"))->muted = true; });
    QCOMPARE(editor.figurePaints.Take(), 1);
    editor.Edit([&editor](host::Scene& scene) {
        scene.FindTrack(editor.Id("Spine"))->soloed = true; // silences the lips
    });
    QCOMPARE(editor.figurePaints.Take(), 1);
    QCOMPARE(editor.facePaints.Take(), 1);
}

void tst_PreviewPane::followsAnotherScene()
{
    Previewed editor;
    editor.window.GotoFrame(40);
    editor.Settle();
    QVERIFY(editor.window.SetScene(host::Scene()));
    QCOMPARE(editor.figurePaints.Take(), 1);
}

void tst_PreviewPane::paintsNothingWhenNothingItShowsHasChanged()
{
    Previewed editor;
    editor.window.GotoFrame(40);
    editor.Settle();
    editor.Edit([](host::Scene& scene) { scene.timeMark.end = 50; });
    editor.Edit([&editor](host::Scene& scene) {
        editor.KeyOf(scene, "LeftArm").alternate = true; // a key's colour
    });
    editor.Timeline().SetCurrentFrame(40); // where it is already
    QCOMPARE(editor.figurePaints.Take(), 0);
    QCOMPARE(editor.facePaints.Take(), 0);
}

void tst_PreviewPane::paintsOnlyTheViewThatChanged()
{
    Previewed editor;
    editor.Edit([&editor](host::Scene& scene) { // the figure stands still from here on
        scene.FindTrack(editor.Id("Motion"))->muted = true;
        for (SceneKey& key : editor.KeyOf(scene, "Lips").subKeys)
            key.mouthShape = 0;
        editor.KeyOf(scene, "Lips").subKeys.last().mouthShape = 4;
    });
    editor.window.GotoFrame(50);
    editor.Settle();
    editor.Timeline().SetCurrentFrame(51);
    QCOMPARE(editor.facePaints.Take(), 0);
}

void tst_PreviewPane::aDragTurnsTheFigure()
{
    Previewed editor;
    const StageCamera before = editor.figure->Camera();
    const QPoint middle = editor.figure->rect().center();
    QTest::mousePress(editor.figure, Qt::LeftButton, Qt::NoModifier, middle);
    editor.figurePaints.Take();
    QMouseEvent move(QEvent::MouseMove, middle + QPoint(40, -10), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(editor.figure, &move);
    QCOMPARE(editor.figurePaints.Take(), 1);
    QTest::mouseRelease(editor.figure, Qt::LeftButton, Qt::NoModifier, middle + QPoint(40, -10));
    StageCamera expected = before;
    expected.Drag({40, -10});
    QVERIFY(editor.figure->Camera() == expected);
    QTest::mouseMove(editor.figure, middle); // without a button
    QVERIFY(editor.figure->Camera() == expected);
}

void tst_PreviewPane::theWheelBringsItCloser()
{
    Previewed editor;
    editor.Wheel(120);
    StageCamera expected;
    expected.Zoom(1);
    QVERIFY(editor.figure->Camera() == expected);
    QCOMPARE(editor.figurePaints.Take(), 1);
    editor.Wheel(0);
    QCOMPARE(editor.figurePaints.Take(), 0);
}

void tst_PreviewPane::aDoubleClickLooksFromTheStartAgain()
{
    Previewed editor;
    editor.Wheel(360);
    QVERIFY(!(editor.figure->Camera() == StageCamera()));
    QTest::mouseDClick(editor.figure, Qt::LeftButton);
    QVERIFY(editor.figure->Camera() == StageCamera());
}

void tst_PreviewPane::leavesTheKeyboardToTheTimeline()
{
    Previewed editor;
    QWidget* const before = QApplication::focusWidget();
    QTest::mouseClick(editor.figure, Qt::LeftButton);
    QTest::mouseClick(editor.face, Qt::LeftButton);
    QVERIFY(QApplication::focusWidget() == before);
}

void tst_PreviewPane::costsLittleForAFrame()
{
    Previewed editor;
    const host::Scene& scene = editor.Scene();
    constexpr int kLooks = 500;
    QElapsedTimer timer;
    timer.start();
    float sum = 0;
    for (int i = 0; i < kLooks; ++i)
        sum += FigureAt(scene, i % 90).positions[1].y() + MouthAt(scene, i % 90).jaw;
    QVERIFY(sum > 0);
    // A frame lasts 33 milliseconds; even a sanitized build needs but a part of one.
    QVERIFY2(timer.elapsed() < kLooks * 10, qPrintable(QString::number(timer.elapsed())));
}

void tst_PreviewPane::staysUsableInASmallWindow()
{
    Previewed editor;
    editor.window.resize(640, 360);
    QCoreApplication::processEvents();
    QVERIFY(editor.window.height() <= 360);
    QVERIFY(editor.figure->height() >= 60 && editor.face->height() >= 60);
    QVERIFY(editor.window.findChild<QDockWidget*>()->height() > 100);
}

QTEST_MAIN(tst_PreviewPane)
#include "tst_PreviewPane.moc"
