#include "document/EditSession.h"

#include <QtTest>

using namespace host;

namespace {

Scene SceneOf(int frameCount)
{
    Scene scene;
    scene.frameCount = frameCount;
    return scene;
}

/// A session at ten frames that writes down what it commits.
struct Recorded
{
    EditSession session;
    QStringList commits;

    Recorded()
    {
        session.Restart(SceneOf(10));
        QObject::connect(&session, &EditSession::Committed,
                         [this](const QString& name, const Scene& before) {
                             commits.append(QStringLiteral("%1: %2 to %3")
                                                .arg(name)
                                                .arg(before.frameCount)
                                                .arg(session.Current().frameCount));
                         });
    }
};

} // namespace

class tst_EditSession : public QObject
{
    Q_OBJECT

private slots:
    void keepsTheSceneAsItWasBeforeUntilTheCommit();
    void stepsOfOneEditAreCommittedOnce();
    void anEditThatChangedNothingIsNotCommitted();
    void anEditIsToldToEndWhetherItChangedAnythingOrNot();
    void beginningCommitsTheEditUnderWay();
    void aStepWithoutABeginBeginsAnEdit();
    void aCommitWithoutAnEditDoesNothing();
    void anEditOfOneStepLeavesNothingOpen();
    void restartingDropsTheEditUnderWay();
    void tellsOfABeginningBeforeAnythingChanges();
    void tellsOfTheEndOfEveryEdit();
    void goingBackCommitsNothing();
    void goingBackCommitsTheEditUnderWayFirst();
};

void tst_EditSession::keepsTheSceneAsItWasBeforeUntilTheCommit()
{
    Recorded r;
    r.session.Begin();
    QVERIFY(r.session.IsOpen());
    r.session.Step(QStringLiteral("Grow"), SceneOf(11));
    r.session.Step(QStringLiteral("Grow"), SceneOf(12));
    QCOMPARE(r.session.Before().frameCount, 10);
    QCOMPARE(r.session.Current().frameCount, 12);
    r.session.Commit();
    QVERIFY(!r.session.IsOpen());
    QCOMPARE(r.session.Before().frameCount, 12);
}

void tst_EditSession::stepsOfOneEditAreCommittedOnce()
{
    Recorded r;
    r.session.Begin();
    r.session.Step(QStringLiteral("Grow"), SceneOf(11));
    r.session.Step(QStringLiteral("Grow"), SceneOf(12));
    QVERIFY(r.commits.isEmpty());
    r.session.Commit();
    QCOMPARE(r.commits, QStringList{QStringLiteral("Grow: 10 to 12")});
}

void tst_EditSession::anEditThatChangedNothingIsNotCommitted()
{
    Recorded r;
    r.session.Begin();
    r.session.Step(QStringLiteral("Grow"), SceneOf(11));
    r.session.Step(QStringLiteral("Grow"), SceneOf(10)); // and back
    r.session.Commit();
    QVERIFY(r.commits.isEmpty());
}

void tst_EditSession::anEditIsToldToEndWhetherItChangedAnythingOrNot()
{
    Recorded r;
    connect(&r.session, &EditSession::Ended, [&r] {
        r.commits.append(r.session.IsOpen() ? QStringLiteral("still open")
                                            : QStringLiteral("ended"));
    });
    r.session.Begin();
    r.session.Commit();
    QCOMPARE(r.commits, QStringList{QStringLiteral("ended")});
    r.session.Apply(QStringLiteral("Grow"), SceneOf(11));
    QCOMPARE(r.commits, (QStringList{QStringLiteral("ended"), QStringLiteral("Grow: 10 to 11"),
                                     QStringLiteral("ended")}));
    r.session.Commit(); // nothing is open
    QCOMPARE(r.commits.size(), 3);
}

void tst_EditSession::beginningCommitsTheEditUnderWay()
{
    Recorded r;
    r.session.Begin();
    r.session.Step(QStringLiteral("Grow"), SceneOf(11));
    r.session.Begin();
    QCOMPARE(r.commits, QStringList{QStringLiteral("Grow: 10 to 11")});
    QCOMPARE(r.session.Before().frameCount, 11);
}

void tst_EditSession::aStepWithoutABeginBeginsAnEdit()
{
    Recorded r;
    r.session.Step(QStringLiteral("Grow"), SceneOf(11));
    QVERIFY(r.session.IsOpen());
    QCOMPARE(r.session.Before().frameCount, 10);
}

void tst_EditSession::aCommitWithoutAnEditDoesNothing()
{
    Recorded r;
    r.session.Commit();
    QVERIFY(r.commits.isEmpty());
    QCOMPARE(r.session.Current().frameCount, 10);
}

void tst_EditSession::anEditOfOneStepLeavesNothingOpen()
{
    Recorded r;
    r.session.Apply(QStringLiteral("Cut"), SceneOf(5));
    QVERIFY(!r.session.IsOpen());
    QCOMPARE(r.commits, QStringList{QStringLiteral("Cut: 10 to 5")});
}

void tst_EditSession::restartingDropsTheEditUnderWay()
{
    Recorded r;
    r.session.Step(QStringLiteral("Grow"), SceneOf(11));
    r.session.Restart(SceneOf(3));
    r.session.Commit();
    QVERIFY(r.commits.isEmpty());
    QCOMPARE(r.session.Current().frameCount, 3);
}

void tst_EditSession::tellsOfABeginningBeforeAnythingChanges()
{
    Recorded r;
    QVector<int> begun;
    connect(&r.session, &EditSession::Begun, [&] { begun.append(r.session.Current().frameCount); });
    r.session.Step(QStringLiteral("Grow"), SceneOf(11));
    QCOMPARE(begun, QVector<int>{10});
    r.session.Begin(); // commits first
    QCOMPARE(begun, (QVector<int>{10, 11}));
}

void tst_EditSession::tellsOfTheEndOfEveryEdit()
{
    Recorded r;
    QVector<int> ended; // how many commits had been told of
    connect(&r.session, &EditSession::Ended, [&] {
        ended.append(r.commits.size());
        QVERIFY(!r.session.IsOpen());
    });
    r.session.Apply(QStringLiteral("Grow"), SceneOf(11));
    QCOMPARE(ended, QVector<int>{1});
    r.session.Apply(QStringLiteral("Stay"), SceneOf(11));
    QCOMPARE(ended, (QVector<int>{1, 1}));
    r.session.Commit(); // nothing is under way
    QCOMPARE(ended.size(), 2);
}

void tst_EditSession::goingBackCommitsNothing()
{
    Recorded r;
    QStringList told;
    connect(&r.session, &EditSession::Restored, [&] { told += QStringLiteral("restored"); });
    connect(&r.session, &EditSession::Changed, [&] { told += QStringLiteral("changed"); });
    r.session.Restore(SceneOf(4));
    QCOMPARE(r.session.Current().frameCount, 4);
    QCOMPARE(told, (QStringList{QStringLiteral("restored"), QStringLiteral("changed")}));
    QVERIFY(!r.session.IsOpen());
    QVERIFY(r.commits.isEmpty());
}

void tst_EditSession::goingBackCommitsTheEditUnderWayFirst()
{
    Recorded r;
    r.session.Step(QStringLiteral("Grow"), SceneOf(11));
    r.session.Restore(SceneOf(4));
    QCOMPARE(r.commits, QStringList{QStringLiteral("Grow: 10 to 11")});
    QCOMPARE(r.session.Current().frameCount, 4);
}

QTEST_MAIN(tst_EditSession)
#include "tst_EditSession.moc"
