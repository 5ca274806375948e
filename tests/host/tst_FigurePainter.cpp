#include "TestFiles.h"

#include "import/BvhReader.h"
#include "import/SceneFiles.h"
#include "preview/FigurePainter.h"
#include "preview/FigureParts.h"
#include "support/PictureCheck.h"

#include <QPainter>

using namespace host;

namespace {

Scene Walk()
{
    ImportError error;
    const auto scene = LoadScene({SamplePath(QStringLiteral("stroll.bvh"))}, error);
    if (!scene)
        qFatal("%s", qPrintable(error.Message()));
    return *scene;
}

QImage Figure(const Scene& scene, int frame, const StageCamera& camera = {},
              const QSize& size = {300, 300}, double pixelRatio = 1)
{
    QImage image(size * pixelRatio, QImage::Format_RGB32);
    image.setDevicePixelRatio(pixelRatio);
    image.fill(Qt::black);
    QPainter painter(&image);
    const FigurePose pose = FigureAt(scene, frame);
    FigurePainter(scene.motion, pose).Paint(painter, QRectF(QPointF(), QSizeF(size)), camera);
    return image;
}

/// A motion of joints with those names, each one unit from the one before.
Motion Chain(const QStringList& names)
{
    Motion motion;
    for (int i = 0; i < names.size(); ++i)
        motion.joints.append({names[i], i - 1, {0, i == 0 ? 0.0F : 1.0F, 0}, {}, 0});
    return motion;
}

QVector<FigurePart> RestParts(const Motion& motion)
{
    return PartsOf(motion, BuildOf(motion), RestPose(motion));
}

} // namespace

class tst_FigurePainter : public QObject
{
    Q_OBJECT

private slots:
    void drawsAStrideInThreeQuarters();
    void drawsTheNextStep();
    void drawsItFromTheSide();
    void drawsItFromTheFront();
    void drawsItFromAboveAndClose();
    void drawsItInRest();
    void drawsAnEmptyStage();
    void isAsSharpAsTheScreen();
    void drawsTheCapturedWalk();
    void drawsInTheSmallestPlaces();
    void aPointAtTheTargetIsInTheMiddle();
    void theFiguresLeftIsOnTheRightFromItsFront();
    void nearThingsAreLarger();
    void aDragTurnsTheCamera();
    void theWheelZoomsWithinLimits();
    void knowsTheSidesOfJoints_data();
    void knowsTheSidesOfJoints();
    void everyBoneHasFlesh();
    void shouldersAndHipsBelongToTheTrunk();
    void headsHandsAndFeetGrowBeyondTheirJoints();
    void lastBonesEndWhereTheCaptureSays();
};

void tst_FigurePainter::drawsAStrideInThreeQuarters()
{
    KESTOVA_COMPARE_PICTURE(Figure(Walk(), 30), "preview/figure-stride");
}

void tst_FigurePainter::drawsTheNextStep()
{
    KESTOVA_COMPARE_PICTURE(Figure(Walk(), 37), "preview/figure-step");
}

void tst_FigurePainter::drawsItFromTheSide()
{
    KESTOVA_COMPARE_PICTURE(Figure(Walk(), 45, {90, 5, 1}), "preview/figure-side");
}

void tst_FigurePainter::drawsItFromTheFront()
{
    KESTOVA_COMPARE_PICTURE(Figure(Walk(), 20, {0, 0, 1}), "preview/figure-front");
}

void tst_FigurePainter::drawsItFromAboveAndClose()
{
    KESTOVA_COMPARE_PICTURE(Figure(Walk(), 20, {-150, 50, 1.8F}), "preview/figure-above");
}

void tst_FigurePainter::drawsItInRest()
{
    KESTOVA_COMPARE_PICTURE(Figure(Walk(), 0), "preview/figure-rest");
}

void tst_FigurePainter::drawsAnEmptyStage()
{
    KESTOVA_COMPARE_PICTURE(Figure(Scene(), 0, {}, {320, 200}), "preview/figure-none");
}

void tst_FigurePainter::isAsSharpAsTheScreen()
{
    KESTOVA_COMPARE_PICTURE(Figure(Walk(), 52, {-35, 10, 1}, {160, 180}, 2),
                            "preview/figure-dense");
}

void tst_FigurePainter::drawsTheCapturedWalk()
{
    const QString walk = SharedDataPath(QStringLiteral("walk.bvh"));
    SKIP_WITHOUT(walk);
    ImportError error;
    const auto scene = LoadScene({walk}, error);
    QVERIFY(scene);
    const QImage image = Figure(*scene, 60);
    image.save(QStringLiteral(KESTOVA_BINARY_DIR "/figure-captured.png"));
    // A figure of this colour (of its middle parts) stands in the middle of the picture.
    int limbs = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 90; x < 210; ++x)
            limbs += image.pixelColor(x, y).lightness() > 110 ? 1 : 0;
    }
    QVERIFY2(limbs > 2000, qPrintable(QString::number(limbs)));
}

void tst_FigurePainter::drawsInTheSmallestPlaces()
{
    const Scene scene = Walk();
    for (const QSize& size : {QSize(1, 1), QSize(1, 200), QSize(200, 2)})
        QCOMPARE(Figure(scene, 10, {}, size).size(), size);
}

void tst_FigurePainter::aPointAtTheTargetIsInTheMiddle()
{
    const StageView view({70, 40, 2}, {3, 4, 5}, 20, {0, 0, 200, 100});
    QCOMPARE(view.Project({3, 4, 5}).place, QPointF(100, 50));
    QCOMPARE(view.Project({3, 4, 5}).depth, 0.0);
}

void tst_FigurePainter::theFiguresLeftIsOnTheRightFromItsFront()
{
    const QRectF area(0, 0, 200, 200);
    const StageView front({0, 0, 1}, {}, 20, area);
    QVERIFY(front.Project({1, 0, 0}).place.x() > 100);
    QVERIFY(front.Project({0, 1, 0}).place.y() < 100);
    const StageView back({180, 0, 1}, {}, 20, area);
    QVERIFY(back.Project({1, 0, 0}).place.x() < 100);
    const StageView side({90, 0, 1}, {}, 20, area);
    QVERIFY(side.Project({0, 0, 1}).place.x() < 100); // it walks to the left
}

void tst_FigurePainter::nearThingsAreLarger()
{
    const StageView view({0, 0, 1}, {}, 20, {0, 0, 200, 200});
    const Projected near = view.Project({0, 0, 5});
    const Projected far = view.Project({0, 0, -5});
    QVERIFY(near.scale > far.scale);
    QVERIFY(near.depth < far.depth);
    // Even what lies behind the eye has a place that can be drawn.
    QVERIFY(std::isfinite(view.Project({1, 1, 1000}).place.x()));
}

void tst_FigurePainter::aDragTurnsTheCamera()
{
    StageCamera camera{10, 20, 1};
    camera.Drag({-20, 10});
    QCOMPARE(camera.turn, 20.0F);
    QCOMPARE(camera.rise, 25.0F);
    camera.Drag({-360, 1000}); // half a turn, and as high as it goes
    QCOMPARE(camera.turn, -160.0F);
    QCOMPARE(camera.rise, kHighestRise);
    camera.Drag({0, -10000});
    QCOMPARE(camera.rise, kLowestRise);
}

void tst_FigurePainter::theWheelZoomsWithinLimits()
{
    StageCamera camera;
    camera.Zoom(1);
    QVERIFY(camera.zoom > 1);
    camera.Zoom(-1);
    QVERIFY(qFuzzyCompare(camera.zoom, 1));
    camera.Zoom(1000);
    QCOMPARE(camera.zoom, kClosestZoom);
    camera.Zoom(-1000);
    QCOMPARE(camera.zoom, kFurthestZoom);
}

void tst_FigurePainter::knowsTheSidesOfJoints_data()
{
    QTest::addColumn<QString>("joint");
    QTest::addColumn<int>("side");
    const auto row = [](const char* joint, BodySide side) {
        QTest::newRow(joint) << QString::fromLatin1(joint) << static_cast<int>(side);
    };
    row("LeftArm", BodySide::Left);
    row("right_fore_arm", BodySide::Right);
    row("LHipJoint", BodySide::Left);
    row("R_Hand", BodySide::Right);
    row("mixer:RightFoot", BodySide::Right);
    row("LowerBack", BodySide::Middle);
    row("Root", BodySide::Middle);
    row("L", BodySide::Middle);
}

void tst_FigurePainter::knowsTheSidesOfJoints()
{
    QFETCH(QString, joint);
    QFETCH(int, side);
    const QVector<FigurePart> parts = RestParts(Chain({joint, QStringLiteral("Left"), joint}));
    QCOMPARE(static_cast<int>(parts.last().side), side);
}

void tst_FigurePainter::everyBoneHasFlesh()
{
    const Motion motion = Chain({QStringLiteral("Hips"), QStringLiteral("odd"), QString()});
    const QVector<FigurePart> parts = RestParts(motion);
    QCOMPARE(parts.size(), 2);
    for (int i = 0; i < parts.size(); ++i) {
        QCOMPARE(parts[i].to - parts[i].from, QVector3D(0, 1, 0));
        QVERIFY(parts[i].fromRadius > 0 && parts[i].toRadius > 0);
    }
    QVERIFY(parts[0].fromRadius > parts[0].toRadius); // hips are thicker
    QVERIFY(PartsOf(motion, BuildOf(motion), FigurePose()).isEmpty());
}

void tst_FigurePainter::shouldersAndHipsBelongToTheTrunk()
{
    const QVector<FigurePart> parts = RestParts(
        Chain({QStringLiteral("Chest"), QStringLiteral("LeftArm"), QStringLiteral("LeftForeArm")}));
    QCOMPARE(parts.size(), 2);
    QVERIFY(parts[0].side == BodySide::Middle);
    QVERIFY(parts[1].side == BodySide::Left);
}

void tst_FigurePainter::headsHandsAndFeetGrowBeyondTheirJoints()
{
    const auto count = [](const char* last) {
        return RestParts(Chain({QStringLiteral("Base"), QLatin1String(last)})).size();
    };
    QCOMPARE(count("Head"), 3); // the head and its nose
    QCOMPARE(count("LeftHand"), 2);
    QCOMPARE(count("LeftFoot"), 2);
    QCOMPARE(count("LeftLeg"), 1);
    // Toes take the foot's place.
    const Motion foot = Chain({QStringLiteral("LeftFoot"), QStringLiteral("LeftToeBase")});
    QCOMPARE(RestParts(foot).size(), 2);
}

void tst_FigurePainter::lastBonesEndWhereTheCaptureSays()
{
    Motion motion = Chain({QStringLiteral("Hips"), QStringLiteral("Knee"), QStringLiteral("Foot")});
    const QVector<FigurePart> grown = RestParts(motion);
    motion.joints[2].ends = {{0.01F, 0, 0}}; // only there for the file's sake
    QCOMPARE(RestParts(motion).last().to, grown.last().to);
    motion.joints[2].ends = {{0.5F, 0, 0}, {0, 0, -0.5F}};
    const QVector<FigurePart> parts = RestParts(motion);
    QCOMPARE(parts.size(), grown.size() + 1); // two in place of one
    const QVector3D foot = RestPose(motion).positions[2];
    QCOMPARE(parts[parts.size() - 2].from, foot);
    QCOMPARE(parts[parts.size() - 2].to, foot + QVector3D(0.5F, 0, 0));
    QCOMPARE(parts.last().to, foot + QVector3D(0, 0, -0.5F));
}

QTEST_MAIN(tst_FigurePainter)
#include "tst_FigurePainter.moc"
