#include "import/TurningPoints.h"

#include <QRandomGenerator>
#include <QVector3D>
#include <QtMath>
#include <QtTest>

using namespace host;

namespace {

QVector<int> FramesOf(const QVector<double>& curve, double threshold)
{
    QVector<int> frames;
    for (const TurningPoint& turn : FindTurningPoints(curve, threshold))
        frames.append(turn.frame);
    return frames;
}

/// A joint that swings about @p axis by the angles that @p degrees gives for each frame.
template <typename Function>
QVector<QQuaternion> Swing(int frames, const QVector3D& axis, Function degrees)
{
    QVector<QQuaternion> rotations;
    for (int frame = 0; frame < frames; ++frame)
        rotations.append(QQuaternion::fromAxisAndAngle(axis, static_cast<float>(degrees(frame))));
    return rotations;
}

} // namespace

class tst_TurningPoints : public QObject
{
    Q_OBJECT

private slots:
    void findsTheTurnsOfACurve_data();
    void findsTheTurnsOfACurve();
    void measuresTheLesserOfTheSwingsAroundATurn();
    void keysTheTurnsOfASwingAndItsEnds();
    void keysTheSameFramesWhateverTheAxis();
    void keysOneFrameOfAJointThatRests();
    void keysOnlyTheEndsOfATurnInOneDirection();
    void staysCalmWhenTheAngleRunsPastAHalfTurn();
    void overlooksTheJitterOfACapture();
    void keepsTheWiderOfTwoTurnsCloseTogether();
    void answersTheShortestMotions();
};

void tst_TurningPoints::findsTheTurnsOfACurve_data()
{
    QTest::addColumn<QVector<double>>("curve");
    QTest::addColumn<QVector<int>>("frames");
    using Curve = QVector<double>;
    using Frames = QVector<int>;
    QTest::newRow("empty") << Curve{} << Frames{};
    QTest::newRow("one frame") << Curve{5} << Frames{};
    QTest::newRow("flat") << Curve{5, 5, 5} << Frames{};
    QTest::newRow("rising") << Curve{0, 2, 4, 6} << Frames{};
    QTest::newRow("a peak") << Curve{0, 4, 8, 4, 0} << Frames{2};
    QTest::newRow("a valley") << Curve{8, 4, 0, 4, 8} << Frames{2};
    QTest::newRow("a peak and a valley") << Curve{0, 4, 0, 4, 0} << Frames{1, 2, 3};
    QTest::newRow("the first frame of a flat top") << Curve{0, 5, 5, 5, 0} << Frames{1};
    QTest::newRow("a swing of just the threshold") << Curve{0, 3, 0} << Frames{1};
    QTest::newRow("a swing below the threshold") << Curve{0, 2.9, 0} << Frames{};
    QTest::newRow("a dent in a rise") << Curve{0, 4, 3, 8, 12} << Frames{};
    QTest::newRow("a peak with a dent") << Curve{0, 8, 7, 9, 0} << Frames{3};
    QTest::newRow("slowly up and down") << Curve{0, 1, 2, 3, 4, 3, 2, 1, 0} << Frames{4};
    QTest::newRow("no turn at an end that swings back too little") << Curve{0, 9, 8} << Frames{};
}

void tst_TurningPoints::findsTheTurnsOfACurve()
{
    QFETCH(QVector<double>, curve);
    QFETCH(QVector<int>, frames);
    QCOMPARE(FramesOf(curve, 3), frames);
}

void tst_TurningPoints::measuresTheLesserOfTheSwingsAroundATurn()
{
    const auto turns = FindTurningPoints({0, 10, 4, 9, 0}, 3);
    QCOMPARE(turns.size(), 3);
    QCOMPARE(turns[0].swing, 6.0);
    QCOMPARE(turns[1].swing, 5.0);
    QCOMPARE(turns[2].swing, 5.0);
}

void tst_TurningPoints::keysTheTurnsOfASwingAndItsEnds()
{
    const auto rotations =
        Swing(41, {1, 0, 0}, [](int frame) { return 30 * std::sin(frame * M_PI / 10); });
    const QVector<int> expected{0, 5, 15, 25, 35, 40};
    QCOMPARE(RotationKeyFrames(rotations), expected);
}

void tst_TurningPoints::keysTheSameFramesWhateverTheAxis()
{
    const auto swing = [](int frame) { return 30 * std::sin(frame * M_PI / 10); };
    const QVector<int> expected = RotationKeyFrames(Swing(41, {1, 0, 0}, swing));
    for (const QVector3D& axis : {QVector3D(0, 1, 0), QVector3D(0, 0, -1), QVector3D(1, 1, 0)})
        QCOMPARE(RotationKeyFrames(Swing(41, axis, swing)), expected);
}

void tst_TurningPoints::keysOneFrameOfAJointThatRests()
{
    const auto still = Swing(50, {0, 1, 0}, [](int) { return 40; });
    QCOMPARE(RotationKeyFrames(still), QVector<int>{0});
}

void tst_TurningPoints::keysOnlyTheEndsOfATurnInOneDirection()
{
    const auto turn = Swing(50, {0, 1, 0}, [](int frame) { return 2 * frame; });
    const QVector<int> expected{0, 49};
    QCOMPARE(RotationKeyFrames(turn), expected);
}

void tst_TurningPoints::staysCalmWhenTheAngleRunsPastAHalfTurn()
{
    const auto threeTurns = Swing(100, {0, 1, 0}, [](int frame) { return 11 * frame; });
    const QVector<int> expected{0, 99};
    QCOMPARE(RotationKeyFrames(threeTurns), expected);
}

void tst_TurningPoints::overlooksTheJitterOfACapture()
{
    QRandomGenerator random(1);
    const auto rotations = Swing(41, {1, 0, 0}, [&random](int frame) {
        return 30 * std::sin(frame * M_PI / 20) + 2 * (random.generateDouble() - 0.5);
    });
    const QVector<int> frames = RotationKeyFrames(rotations);
    QCOMPARE(frames.size(), 4); // two ends, a top and a bottom
    QVERIFY(std::abs(frames[1] - 10) <= 2);
    QVERIFY(std::abs(frames[2] - 30) <= 2);
}

void tst_TurningPoints::keepsTheWiderOfTwoTurnsCloseTogether()
{
    QVector<QQuaternion> rotations;
    for (int frame = 0; frame <= 20; ++frame) {
        const float wide = static_cast<float>(40 - 4 * std::abs(frame - 10));
        const float narrow = static_cast<float>(10 - std::abs(frame - 12));
        rotations.append(QQuaternion::fromAxisAndAngle({1, 0, 0}, wide) *
                         QQuaternion::fromAxisAndAngle({0, 1, 0}, narrow));
    }
    const QVector<int> frames = RotationKeyFrames(rotations);
    QVERIFY(frames.contains(10));
    QVERIFY(!frames.contains(11));
    QVERIFY(!frames.contains(12));
}

void tst_TurningPoints::answersTheShortestMotions()
{
    QVERIFY(RotationKeyFrames({}).isEmpty());
    QCOMPARE(RotationKeyFrames({QQuaternion()}), QVector<int>{0});
}

QTEST_MAIN(tst_TurningPoints)
#include "tst_TurningPoints.moc"
