#include "document/KeyList.h"
#include "document/SelectionText.h"
#include "document/ShapeEdits.h"

#include <QtTest>

using namespace host;

namespace {

SceneKey Shape(int frame, int variant)
{
    SceneKey key;
    key.frame = frame;
    key.mouthShape = variant;
    return key;
}

/// A row with a line from frame 10 to 30, played twice (to 50), and one from 50 to 60.
struct Lines
{
    Lines()
    {
        SceneTrack row;
        row.kind = TrackKind::Viseme;
        SceneKey first;
        first.name = QStringLiteral("first");
        first.frame = 10;
        first.clip = ClipSpan{20, 2, 0, 20, 20};
        first.subKeys = {Shape(0, 4), Shape(12, 2)};
        SceneKey second = first;
        second.name = QStringLiteral("second");
        second.frame = 50;
        second.clip = ClipSpan{10, 1, 0, 10, 10};
        row.keys = {first, second};
        scene.frameCount = 100;
        id = scene.AddTrack(row);
    }
    const SceneKey& Line(int index) const { return scene.tracks[0].keys[index]; }
    SceneKey& Line(int index) { return scene.tracks[0].keys[index]; }
    QVector<int> FramesIn(int index) const
    {
        QVector<int> frames;
        for (const SceneKey& shape : Line(index).subKeys)
            frames.append(shape.frame);
        return frames;
    }

    Scene scene;
    TrackId id = kNoTrack;
};

} // namespace

class tst_ShapeEdits : public QObject
{
    Q_OBJECT

private slots:
    void aFrameLiesInALine_data();
    void aFrameLiesInALine();
    void theSelectedLineComesFirst();
    void aLockedLineHasNoPlace();
    void anInsertedShapeKeepsTheMouthAsItIs();
    void pastedShapesStayInTheirLine();
    void lockedShapesStayAsTheyAre();
    void aSingleShapeIsNamed();
};

void tst_ShapeEdits::aFrameLiesInALine_data()
{
    QTest::addColumn<int>("frame");
    QTest::addColumn<int>("line"); // -1: none
    QTest::addColumn<int>("within");
    QTest::newRow("before all") << 9 << -1 << 0;
    QTest::newRow("first frame") << 10 << 0 << 0;
    QTest::newRow("inside") << 25 << 0 << 15;
    QTest::newRow("second pass") << 35 << 0 << 5;
    QTest::newRow("where two lines meet") << 50 << 1 << 0;
    QTest::newRow("last frame") << 60 << 1 << 10;
    QTest::newRow("behind all") << 61 << -1 << 0;
}

void tst_ShapeEdits::aFrameLiesInALine()
{
    QFETCH(int, frame);
    QFETCH(int, line);
    QFETCH(int, within);
    const Lines lines;
    const std::optional<ShapePlace> place = ShapePlaceAt(lines.scene, lines.id, frame);
    QCOMPARE(place.has_value(), line >= 0);
    if (!place)
        return;
    QCOMPARE(place->clip, lines.Line(line).id);
    QCOMPARE(place->frame, within);
}

void tst_ShapeEdits::theSelectedLineComesFirst()
{
    const Lines lines;
    const auto place = ShapePlaceAt(lines.scene, lines.id, 50, lines.Line(0).id);
    QVERIFY(place.has_value());
    QCOMPARE(place->clip, lines.Line(0).id);
    QCOMPARE(place->frame, 20); // its end, not the start of another pass
    QCOMPARE(ShapePlaceAt(lines.scene, lines.id, 55, lines.Line(0).id)->clip, lines.Line(1).id);
}

void tst_ShapeEdits::aLockedLineHasNoPlace()
{
    Lines lines;
    lines.Line(0).locked = true;
    QVERIFY(!ShapePlaceAt(lines.scene, lines.id, 20));
    QVERIFY(PasteShapes(lines.scene, lines.id, lines.Line(0).id, {Shape(3, 1)}, 0).isEmpty());
}

void tst_ShapeEdits::anInsertedShapeKeepsTheMouthAsItIs()
{
    Lines lines;
    const KeyId line = lines.Line(0).id;
    const KeyId made = InsertShape(lines.scene, lines.id, {line, 5});
    QVERIFY(made != kNoKey);
    QCOMPARE(lines.FramesIn(0), (QVector<int>{0, 5, 12}));
    QCOMPARE(lines.Line(0).subKeys[1].mouthShape, 4);
    QCOMPARE(lines.Line(0).subKeys[1].id, made);
    QCOMPARE(InsertShape(lines.scene, lines.id, {line, 12}), kNoKey); // one stands there
    QCOMPARE(lines.FramesIn(0).size(), 3);
}

void tst_ShapeEdits::pastedShapesStayInTheirLine()
{
    Lines lines;
    const QVector<SceneKey> shapes{Shape(0, 1), Shape(6, 2), Shape(20, 3)};
    const auto made = PasteShapes(lines.scene, lines.id, lines.Line(1).id, shapes, -3);
    QCOMPARE(made.size(), 1);
    QCOMPARE(lines.FramesIn(1), (QVector<int>{0, 3, 12}));
}

void tst_ShapeEdits::lockedShapesStayAsTheyAre()
{
    Lines lines;
    lines.Line(0).subKeys[0].locked = true;
    const KeySelection both{
        lines.id, lines.Line(0).id, {lines.Line(0).subKeys[0].id, lines.Line(0).subKeys[1].id}};
    ChangeShapes(lines.scene, {both}, 7);
    QCOMPARE(lines.Line(0).subKeys[0].mouthShape, 4);
    QCOMPARE(lines.Line(0).subKeys[1].mouthShape, 7);
}

void tst_ShapeEdits::aSingleShapeIsNamed()
{
    const Lines lines;
    const KeyId line = lines.Line(0).id;
    const QVector<SceneKey>& shapes = lines.Line(0).subKeys;
    QCOMPARE(SelectionText(lines.scene, {}), QString());
    QCOMPARE(SelectionText(lines.scene, {{lines.id, line, {shapes[1].id}}}),
             QStringLiteral("1 mouth shape selected: B, frame 22"));
    QCOMPARE(SelectionText(lines.scene, {{lines.id, line, {shapes[0].id, shapes[1].id}}}),
             QStringLiteral("2 mouth shapes selected"));
}

QTEST_MAIN(tst_ShapeEdits)
#include "tst_ShapeEdits.moc"
