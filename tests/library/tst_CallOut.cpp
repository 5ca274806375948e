#include "library/CallOut.h"

#include <QObject>
#include <QPointer>
#include <QtTest>

namespace {

void RunPostedDeletions()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

class tst_CallOut : public QObject
{
    Q_OBJECT

private slots:
    void isUnderWayWhileOneStandsOnTheStack();
    void deletesAtOnceWhenNoHostCodeIsRunning();
    void putsAsideWhileHostCodeIsRunning();
    void freesOnlyAfterTheOutermostHasReturned();
    void toleratesWhatWasDeletedMeanwhile();
    void deletesNothingForNull();
    void freesOnceWhatWasGivenTwice();
};

void tst_CallOut::isUnderWayWhileOneStandsOnTheStack()
{
    QVERIFY(!CallOut::IsUnderWay());
    {
        const CallOut outer;
        QVERIFY(CallOut::IsUnderWay());
        {
            const CallOut inner;
            QVERIFY(CallOut::IsUnderWay());
        }
        QVERIFY(CallOut::IsUnderWay());
    }
    QVERIFY(!CallOut::IsUnderWay());
}

void tst_CallOut::deletesAtOnceWhenNoHostCodeIsRunning()
{
    const QPointer<QObject> object = new QObject;
    CallOut::Delete(object);
    QVERIFY(object.isNull());
}

void tst_CallOut::putsAsideWhileHostCodeIsRunning()
{
    const QPointer<QObject> object = new QObject;
    {
        const CallOut callOut;
        CallOut::Delete(object);
        QVERIFY(!object.isNull());
        // A nested event loop must not free what has frames below it.
        RunPostedDeletions();
        QVERIFY(!object.isNull());
    }
    // Whoever called out still uses it on the way back to the event loop.
    QVERIFY(!object.isNull());
    RunPostedDeletions();
    QVERIFY(object.isNull());
}

void tst_CallOut::freesOnlyAfterTheOutermostHasReturned()
{
    const QPointer<QObject> object = new QObject;
    {
        const CallOut outer;
        {
            const CallOut inner;
            CallOut::Delete(object);
        }
        RunPostedDeletions();
        QVERIFY(!object.isNull());
    }
    RunPostedDeletions();
    QVERIFY(object.isNull());
}

void tst_CallOut::toleratesWhatWasDeletedMeanwhile()
{
    const QPointer<QObject> object = new QObject;
    {
        const CallOut callOut;
        CallOut::Delete(object);
        delete object.data();
    }
    RunPostedDeletions();
    QVERIFY(object.isNull());
}

void tst_CallOut::deletesNothingForNull()
{
    CallOut::Delete(nullptr);
    const CallOut callOut;
    CallOut::Delete(nullptr);
    QVERIFY(CallOut::IsUnderWay());
}

void tst_CallOut::freesOnceWhatWasGivenTwice()
{
    const QPointer<QObject> object = new QObject;
    {
        const CallOut callOut;
        CallOut::Delete(object);
        CallOut::Delete(object);
    }
    RunPostedDeletions();
    QVERIFY(object.isNull());
}

QTEST_MAIN(tst_CallOut)
#include "tst_CallOut.moc"
