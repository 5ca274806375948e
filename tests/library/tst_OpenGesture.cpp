#include "library/OpenGesture.h"
#include "support/Pointer.h"

#include <QDialog>
#include <QLineEdit>
#include <QTimer>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

using namespace KestovaTest;

namespace {

/// A widget inside a home widget whose gesture counts how often it was finished by the watch.
class Pad : public QWidget
{
public:
    explicit Pad(QWidget* parent) : QWidget(parent)
    {
        setMinimumSize(50, 50);
        setFocusPolicy(Qt::StrongFocus);
    }

    OpenGesture gesture{*this, [this] { Finish(); }};
    int finished = 0;
    bool diesOfIt = false; ///< as when the host deletes it in the last callback

private:
    void Finish()
    {
        gesture.End();
        ++finished;
        if (diesOfIt)
            delete this;
    }
};

/// A window with a home, a pad in it, and an edit field beside the home.
struct Scene
{
    Scene() : home(new QWidget(&window)), pad(new Pad(home)), outside(new QLineEdit(&window))
    {
        auto* const layout = new QVBoxLayout(&window);
        layout->addWidget(home);
        layout->addWidget(outside);
        (new QVBoxLayout(home))->addWidget(pad);
        window.show();
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window))
            qFatal("the window does not become active");
        pad->setFocus();
    }

    QWidget window;
    QWidget* home;
    Pad* pad;
    QLineEdit* outside;
};

} // namespace

class tst_OpenGesture : public QObject
{
    Q_OBJECT

private slots:
    void finishesWhenTheFocusLeavesTheTimeline();
    void goesOnWhenTheFocusStaysInTheTimeline();
    void finishesWhenTheWidgetIsHidden();
    void finishesWhenAModalDialogOpens();
    void waitsForTheHandlerThatIsRunning();
    void finishesALostGestureBeforeTheNextHandlerStarts();
    void finishesAGestureThatBeginsAfterADialogInItsHandler();
    void startsCleanInTheHandlerAfterADialog();
    void watchesNothingAfterTheEnd();
    void survivesItsWidgetsEndInsideAHandler();
    void aSecondBeginWhileItIsOnChangesNothing();
    void theFinishMayDeleteTheWidget();
    void theFinishMayDeleteTheWidgetBeforeAHandlerStarts();
};

void tst_OpenGesture::finishesWhenTheFocusLeavesTheTimeline()
{
    Scene scene;
    scene.pad->gesture.Begin();
    scene.outside->setFocus();
    QCOMPARE(scene.pad->finished, 0); // never from inside the change of focus
    QCoreApplication::processEvents();
    QCOMPARE(scene.pad->finished, 1);
    QVERIFY(!scene.pad->gesture.IsOn());
}

void tst_OpenGesture::goesOnWhenTheFocusStaysInTheTimeline()
{
    Scene scene;
    scene.pad->gesture.Begin();
    scene.home->setFocus();
    scene.window.setFocus();
    scene.pad->setFocus();
    QCoreApplication::processEvents();
    QCOMPARE(scene.pad->finished, 0);
    QVERIFY(scene.pad->gesture.IsOn());
}

void tst_OpenGesture::finishesWhenTheWidgetIsHidden()
{
    Scene scene;
    scene.pad->gesture.Begin();
    scene.window.hide();
    QCoreApplication::processEvents();
    QCOMPARE(scene.pad->finished, 1);
}

void tst_OpenGesture::finishesWhenAModalDialogOpens()
{
    Scene scene;
    QDialog dialog(&scene.window);
    scene.pad->gesture.Begin();
    dialog.open();
    QCoreApplication::processEvents();
    QCOMPARE(scene.pad->finished, 1);
}

void tst_OpenGesture::waitsForTheHandlerThatIsRunning()
{
    Scene scene;
    scene.pad->gesture.Begin();
    {
        const OpenGesture::Handling outer(scene.pad->gesture);
        {
            const OpenGesture::Handling inner(scene.pad->gesture);
            scene.outside->setFocus();
            QCoreApplication::processEvents();
        }
        QCOMPARE(scene.pad->finished, 0);
    }
    QCOMPARE(scene.pad->finished, 1);
}

void tst_OpenGesture::finishesALostGestureBeforeTheNextHandlerStarts()
{
    Scene scene;
    scene.pad->gesture.Begin();
    scene.outside->setFocus();
    const OpenGesture::Handling handling(scene.pad->gesture);
    QCOMPARE(scene.pad->finished, 1);
}

void tst_OpenGesture::finishesAGestureThatBeginsAfterADialogInItsHandler()
{
    Scene scene;
    {
        const OpenGesture::Handling handling(scene.pad->gesture);
        QDialog dialog(&scene.window);
        QTimer::singleShot(0, &dialog, &QDialog::accept);
        dialog.exec();
        scene.pad->gesture.Begin();
        QCOMPARE(scene.pad->finished, 0);
    }
    QCOMPARE(scene.pad->finished, 1);
}

void tst_OpenGesture::startsCleanInTheHandlerAfterADialog()
{
    Scene scene;
    {
        const OpenGesture::Handling handling(scene.pad->gesture);
        QDialog dialog(&scene.window);
        QTimer::singleShot(0, &dialog, &QDialog::accept);
        dialog.exec();
    }
    {
        const OpenGesture::Handling handling(scene.pad->gesture);
        scene.pad->gesture.Begin();
    }
    QCOMPARE(scene.pad->finished, 0);
    QVERIFY(scene.pad->gesture.IsOn());
}

void tst_OpenGesture::watchesNothingAfterTheEnd()
{
    Scene scene;
    scene.pad->gesture.Begin();
    scene.outside->setFocus();
    scene.pad->gesture.End();
    scene.pad->setFocus();
    scene.outside->setFocus();
    scene.window.hide();
    QCoreApplication::processEvents();
    QCOMPARE(scene.pad->finished, 0);
}

void tst_OpenGesture::survivesItsWidgetsEndInsideAHandler()
{
    Scene scene;
    scene.pad->gesture.Begin();
    const QPointer<Pad> pad(scene.pad);
    {
        const OpenGesture::Handling handling(scene.pad->gesture);
        delete scene.pad;
    }
    QVERIFY(!pad);
}

void tst_OpenGesture::aSecondBeginWhileItIsOnChangesNothing()
{
    Scene scene;
    scene.pad->gesture.Begin();
    scene.outside->setFocus();
    scene.pad->gesture.Begin(); // it is lost all the same
    QVERIFY(scene.pad->gesture.IsOn());
    QCoreApplication::processEvents();
    QCOMPARE(scene.pad->finished, 1);

    scene.pad->setFocus();
    scene.pad->gesture.Begin();
    scene.pad->gesture.Begin();
    scene.pad->gesture.End(); // of both
    QVERIFY(!scene.pad->gesture.IsOn());
    scene.outside->setFocus();
    QCoreApplication::processEvents();
    QCOMPARE(scene.pad->finished, 1);
}

void tst_OpenGesture::theFinishMayDeleteTheWidget()
{
    Scene scene;
    const QPointer<Pad> pad(scene.pad);
    scene.pad->diesOfIt = true;
    scene.pad->gesture.Begin();
    scene.outside->setFocus();
    QVERIFY(pad);
    QCoreApplication::processEvents();
    QVERIFY(!pad);
}

void tst_OpenGesture::theFinishMayDeleteTheWidgetBeforeAHandlerStarts()
{
    Scene scene;
    const QPointer<Pad> pad(scene.pad);
    scene.pad->diesOfIt = true;
    scene.pad->gesture.Begin();
    scene.outside->setFocus();
    {
        const OpenGesture::Handling handling(scene.pad->gesture);
        QVERIFY(!pad);
    }
    QCoreApplication::processEvents(); // what was queued finds nobody
    QVERIFY(!pad);
}

QTEST_MAIN(tst_OpenGesture)
#include "tst_OpenGesture.moc"
