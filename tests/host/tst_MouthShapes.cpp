#include "HandledEditor.h"

#include "document/MouthShapes.h"
#include "document/SelectionText.h"

#include <QPushButton>

using Frames = QVector<int>;

namespace {

struct ShapeEditor : HandledEditor
{
    const QVector<host::SceneKey>& Shapes() const { return KeysOf("Lips")[0].subKeys; }
    const host::SceneKey* ShapeAt(int frame) const
    {
        for (const host::SceneKey& shape : Shapes()) {
            if (shape.frame == frame)
                return &shape;
        }
        return nullptr;
    }
    int VariantAt(int frame) const { return ShapeAt(frame) ? ShapeAt(frame)->mouthShape : -1; }
    Frames ShapeFrames() const
    {
        Frames frames;
        for (const host::SceneKey& shape : Shapes())
            frames.append(shape.frame);
        return frames;
    }
    Frames SelectedShapes()
    {
        Frames frames;
        const CTimelineKeyArray& inside = *Shown("Lips").GetAt(0)->subKeys;
        for (const int index : inside.SelectedIndexes())
            frames.append(inside.GetAt(index)->frame);
        return frames;
    }
    /// Shapes at 10 (D), 20 (B) and 30 (C) alone, one clip from frame 0 on.
    void MakePlain()
    {
        host::Scene scene = Scene();
        QVector<host::SceneKey> shapes(3);
        for (int i = 0; i < 3; ++i) {
            shapes[i].frame = 10 * (i + 1);
            shapes[i].mouthShape = QVector<int>{4, 2, 3}[i];
        }
        scene.NumberKeys(shapes);
        host::SceneTrack& lips = *scene.FindTrack(Id("Lips"));
        lips.keys[0].subKeys = shapes;
        if (!window.SetScene(scene))
            qFatal("the scene cannot be shown");
        window.GotoFrame(0);
        QCoreApplication::processEvents();
    }
    void ClickShape(int frame, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        pointer.modifiers = modifiers;
        pointer.Click(WidgetOf("Lips"), At("Lips", frame));
        pointer.modifiers = Qt::NoModifier;
    }
    void Type(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }
    bool IsEnabled(const char* command) { return Command(QLatin1String(command))->isEnabled(); }
    QString SelectionLabel()
    {
        QCoreApplication::processEvents();
        return window.findChild<QLabel*>(QStringLiteral("selection"))->text();
    }
    QString UndoText() { return window.History().Stack().undoText(); }
};

constexpr int kShapeD = 4;
constexpr int kShapeB = 2;

} // namespace

class tst_MouthShapes : public QObject
{
    Q_OBJECT

private slots:
    void shapesHaveNames();
    void aClickedShapeCanBeEdited();
    void theDeleteKeyTakesAShapeOut();
    void shapesAreCopiedAndPastedAtTheCurrentFrame();
    void shapesAreCutAndPasted();
    void pastedShapesKeepWithinTheirClip();
    void aShapeIsInsertedAtTheCurrentFrame();
    void noShapeIsInsertedOnAnother();
    void outsideTheClipNothingIsInserted();
    void shapesAreDraggedAsCopies();
    void shapesAreChangedByTheMenu();
    void shapesAreChangedByKeys();
    void theMenuOfTheRowChangesShapes();
    void theMenuOfTheCaptionChangesShapes();
    void otherRowsOfferNoShapes();
    void aLockedRowKeepsItsShapes();
    void editsOfShapesAreUndone();
    void keysOfOtherRowsStayWhenShapesAreDeleted();
    void whatIsCopiedLastIsPasted();
    void theStatusLineTellsWhatIsSelected();
};

void tst_MouthShapes::shapesHaveNames()
{
    QStringList seen;
    for (int shape = 0; shape <= host::kLastCueShape; ++shape) {
        QVERIFY(!host::DescriptionOfMouthShape(shape).isEmpty());
        QVERIFY(!seen.contains(host::DescriptionOfMouthShape(shape)));
        seen.append(host::DescriptionOfMouthShape(shape));
        QCOMPARE(host::ShortNameOfMouthShape(shape), host::CueOfMouthShape(shape));
    }
    QCOMPARE(host::DescriptionOfMouthShape(4), QStringLiteral("wide open (aa)"));
    QCOMPARE(host::ShortNameOfMouthShape(12), QStringLiteral("12"));
    QCOMPARE(host::DescriptionOfMouthShape(12), QString());
    QCOMPARE(host::DescriptionOfMouthShape(-1), QString());
}

void tst_MouthShapes::aClickedShapeCanBeEdited()
{
    ShapeEditor editor;
    editor.MakePlain();
    for (const char* const command : {"Cut", "Copy", "Paste", "Delete"})
        QVERIFY2(!editor.IsEnabled(command), command);
    editor.ClickShape(20);
    QCOMPARE(editor.SelectedShapes(), Frames{20});
    for (const char* const command : {"Cut", "Copy", "Delete"})
        QVERIFY2(editor.IsEnabled(command), command);
    QVERIFY(!editor.IsEnabled("Paste"));
    QVERIFY(!editor.IsEnabled("Insert Key")); // one stands at the frame that became current
}

void tst_MouthShapes::theDeleteKeyTakesAShapeOut()
{
    ShapeEditor editor;
    editor.MakePlain();
    editor.ClickShape(20);
    editor.Type(Qt::Key_Delete);
    QCOMPARE(editor.ShapeFrames(), (Frames{10, 30}));
    QCOMPARE(editor.StatusText(), QStringLiteral("Delete 1 mouth shape"));
    QVERIFY(!editor.IsEnabled("Delete"));
    QCOMPARE(editor.KeysOf("Lips").size(), 1); // the line itself stays
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_MouthShapes::shapesAreCopiedAndPastedAtTheCurrentFrame()
{
    ShapeEditor editor;
    editor.MakePlain();
    editor.ClickShape(10);
    editor.ClickShape(20, Qt::ControlModifier);
    QCOMPARE(editor.SelectedShapes(), (Frames{10, 20}));
    editor.Type(Qt::Key_C, Qt::ControlModifier);
    editor.Timeline().SetCurrentFrame(40);
    QVERIFY(editor.IsEnabled("Paste"));
    editor.Type(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(editor.ShapeFrames(), (Frames{10, 20, 30, 40, 50}));
    QCOMPARE(editor.VariantAt(40), kShapeD);
    QCOMPARE(editor.VariantAt(50), kShapeB);
    QCOMPARE(editor.SelectedShapes(), (Frames{40, 50}));
    QCOMPARE(editor.StatusText(), QStringLiteral("Paste 2 mouth shapes at frame 40"));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_MouthShapes::shapesAreCutAndPasted()
{
    ShapeEditor editor;
    editor.MakePlain();
    editor.ClickShape(10);
    editor.Type(Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(editor.ShapeFrames(), (Frames{20, 30}));
    QCOMPARE(editor.StatusText(), QStringLiteral("Cut 1 mouth shape"));
    editor.Timeline().SetCurrentFrame(30); // what stands there is replaced
    editor.Type(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(editor.ShapeFrames(), (Frames{20, 30}));
    QCOMPARE(editor.VariantAt(30), kShapeD);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_MouthShapes::pastedShapesKeepWithinTheirClip()
{
    ShapeEditor editor;
    editor.MakePlain();
    const int length = editor.KeysOf("Lips")[0].clip->length;
    editor.ClickShape(10);
    editor.ClickShape(20, Qt::ControlModifier);
    editor.Type(Qt::Key_C, Qt::ControlModifier);
    editor.Timeline().SetCurrentFrame(length - 5);
    editor.Type(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(editor.ShapeFrames(), (Frames{10, 20, 30, length - 5}));
}

void tst_MouthShapes::aShapeIsInsertedAtTheCurrentFrame()
{
    ShapeEditor editor;
    editor.MakePlain();
    editor.ClickShape(15);
    QVERIFY(editor.IsEnabled("Insert Key"));
    editor.Type(Qt::Key_Insert);
    QCOMPARE(editor.ShapeFrames(), (Frames{10, 15, 20, 30}));
    QCOMPARE(editor.VariantAt(15), kShapeD); // as the mouth was there
    QCOMPARE(editor.SelectedShapes(), Frames{15});
    QCOMPARE(editor.StatusText(), QStringLiteral("Insert mouth shape at frame 15"));
    editor.Type(Qt::Key_B, Qt::ShiftModifier);
    QCOMPARE(editor.VariantAt(15), kShapeB);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_MouthShapes::noShapeIsInsertedOnAnother()
{
    ShapeEditor editor;
    editor.MakePlain();
    editor.Timeline().SetCurrentFrame(20);
    editor.Timeline().SetActiveChildTrack(editor.Row("Lips"));
    editor.Type(Qt::Key_Insert);
    QCOMPARE(editor.ShapeFrames(), (Frames{10, 20, 30}));
}

void tst_MouthShapes::outsideTheClipNothingIsInserted()
{
    ShapeEditor editor;
    editor.MakePlain();
    host::Scene scene = editor.Scene();
    scene.FindTrack(editor.Id("Lips"))->keys[0].clip->length = 40;
    QVERIFY(editor.window.SetScene(scene));
    editor.window.GotoFrame(41);
    editor.ClickShape(50);
    QVERIFY(!editor.IsEnabled("Insert Key"));
    editor.ClickShape(40);
    QVERIFY(editor.IsEnabled("Insert Key"));
}

void tst_MouthShapes::shapesAreDraggedAsCopies()
{
    ShapeEditor editor;
    editor.MakePlain();
    editor.ClickShape(20);
    editor.pointer.modifiers = Qt::ControlModifier;
    editor.pointer.Press(editor.WidgetOf("Lips"), editor.At("Lips", 20));
    editor.pointer.MoveTo(editor.WidgetOf("Lips"), editor.At("Lips", 23));
    editor.pointer.MoveTo(editor.WidgetOf("Lips"), editor.At("Lips", 25));
    editor.pointer.Release();
    QCOMPARE(editor.ShapeFrames(), (Frames{10, 20, 25, 30}));
    QCOMPARE(editor.VariantAt(25), kShapeB);
    QCOMPARE(editor.StatusText(), QStringLiteral("Copy 1 mouth shape to frame 25"));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_MouthShapes::shapesAreChangedByTheMenu()
{
    ShapeEditor editor;
    editor.MakePlain();
    QVERIFY(!editor.IsEnabled("D  wide open (aa)"));
    editor.ClickShape(20);
    QVERIFY(editor.Command(QStringLiteral("B  teeth closed (s, t, ee)"))->isChecked());
    editor.ClickShape(30, Qt::ControlModifier);
    QVERIFY(!editor.Command(QStringLiteral("B  teeth closed (s, t, ee)"))->isChecked());
    editor.Command(QStringLiteral("D  wide open (aa)"))->trigger();
    QCOMPARE(editor.VariantAt(20), kShapeD);
    QCOMPARE(editor.VariantAt(30), kShapeD);
    QCOMPARE(editor.VariantAt(10), kShapeD); // as it was
    QCOMPARE(editor.StatusText(), QStringLiteral("Change 2 mouth shapes to D"));
    QCOMPARE(editor.SelectedShapes(), (Frames{20, 30}));
    QVERIFY(editor.Command(QStringLiteral("D  wide open (aa)"))->isChecked());
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_MouthShapes::shapesAreChangedByKeys()
{
    ShapeEditor editor;
    editor.MakePlain();
    editor.ClickShape(20);
    for (int shape = 1; shape <= host::kLastCueShape; ++shape) {
        editor.Type(Qt::Key_A + shape - 1, Qt::ShiftModifier);
        QCOMPARE(editor.VariantAt(20), shape);
    }
    editor.Type(Qt::Key_X, Qt::ShiftModifier);
    QCOMPARE(editor.VariantAt(20), host::kClosedMouth);
}

void tst_MouthShapes::theMenuOfTheRowChangesShapes()
{
    ShapeEditor editor;
    editor.MakePlain();
    editor.WithMenu("Lips", editor.At("Lips", 20), [](QMenu& menu) {
        for (const QAction* const action : menu.actions()) {
            if (host::PlainText(*action) != QLatin1String("Mouth Shape"))
                continue;
            QVERIFY(action->isEnabled());
            QMenu& shapes = *action->menu();
            QCOMPARE(shapes.actions().size(), 9);
            menu.setActiveAction(const_cast<QAction*>(action));
            QTest::keyClick(&menu, Qt::Key_Right); // opens it
            QTRY_VERIFY(shapes.isVisible());
            QTest::mouseClick(&shapes, Qt::LeftButton, Qt::NoModifier,
                              shapes.actionGeometry(shapes.actions().at(3)).center());
            return;
        }
        QFAIL("no shapes");
    });
    QCOMPARE(editor.VariantAt(20), kShapeD);
    editor.Choose("Lips", editor.At("Lips", 10), QStringLiteral("Delete"));
    QCOMPARE(editor.ShapeFrames(), (Frames{20, 30}));
}

void tst_MouthShapes::theMenuOfTheCaptionChangesShapes()
{
    constexpr int kMenuButton = 122; // pixels from the left edge to its middle
    ShapeEditor editor;
    editor.MakePlain();
    editor.ClickShape(20);
    QWidget* const row = editor.WidgetOf("Lips");
    editor.pointer.Click(row->parentWidget(), QPoint(kMenuButton, row->y() + row->height() / 2));
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    for (QMenu* const shapes : menu->findChildren<QMenu*>())
        shapes->actions().at(3)->trigger();
    menu->close();
    QCOMPARE(editor.VariantAt(20), kShapeD);
}

void tst_MouthShapes::otherRowsOfferNoShapes()
{
    ShapeEditor editor;
    editor.pointer.Click(editor.WidgetOf("LeftArm"), editor.At("LeftArm", 15));
    QVERIFY(!editor.IsEnabled("D  wide open (aa)"));
    editor.WithMenu("LeftArm", editor.At("LeftArm", 15), [](QMenu& menu) {
        for (const QAction* const action : menu.actions())
            QVERIFY(host::PlainText(*action) != QLatin1String("Mouth Shape"));
    });
}

void tst_MouthShapes::aLockedRowKeepsItsShapes()
{
    ShapeEditor editor;
    editor.MakePlain();
    host::Scene scene = editor.Scene();
    scene.FindTrack(editor.Id("Lips"))->locked = true;
    editor.window.Session().Apply(QStringLiteral("Lock"), scene);
    editor.ClickShape(20);
    QCOMPARE(editor.SelectedShapes(), Frames{20});
    QVERIFY(editor.IsEnabled("Copy"));
    QVERIFY(!editor.IsEnabled("Delete"));
    editor.Type(Qt::Key_Delete);
    editor.Type(Qt::Key_D, Qt::ShiftModifier);
    editor.Timeline().SetCurrentFrame(25);
    editor.Type(Qt::Key_Insert);
    QVERIFY(editor.Scene() == scene);
}

void tst_MouthShapes::editsOfShapesAreUndone()
{
    ShapeEditor editor;
    editor.MakePlain();
    const host::Scene before = editor.Scene();
    editor.ClickShape(20);
    editor.ClickShape(30, Qt::ControlModifier);
    editor.Type(Qt::Key_D, Qt::ShiftModifier);
    QCOMPARE(editor.UndoText(), QStringLiteral("Change 2 mouth shapes to D"));
    editor.Type(Qt::Key_Delete);
    editor.Type(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(editor.SelectedShapes(), (Frames{20, 30}));
    editor.Type(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(editor.Scene().tracks == before.tracks);
    QCOMPARE(editor.SelectedShapes(), (Frames{20, 30}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_MouthShapes::keysOfOtherRowsStayWhenShapesAreDeleted()
{
    ShapeEditor editor;
    editor.MakePlain();
    editor.ClickShape(20);
    editor.SelectToo("LeftArm", {1});
    editor.Command(QStringLiteral("Delete"))->trigger();
    QCOMPARE(editor.ShapeFrames(), (Frames{10, 30}));
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 30, 45, 60, 75, 90}));
    QCOMPARE(editor.StatusText(), QStringLiteral("Delete 1 mouth shape"));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_MouthShapes::whatIsCopiedLastIsPasted()
{
    ShapeEditor editor;
    editor.MakePlain();
    editor.ClickShape(20);
    editor.Type(Qt::Key_C, Qt::ControlModifier);
    editor.pointer.Click(editor.WidgetOf("LeftArm"), editor.At("LeftArm", 15));
    editor.Type(Qt::Key_C, Qt::ControlModifier);
    editor.Timeline().SetCurrentFrame(40);
    editor.Type(Qt::Key_V, Qt::ControlModifier);
    QVERIFY(editor.FramesOf("LeftArm").contains(40));
    QCOMPARE(editor.ShapeFrames(), (Frames{10, 20, 30}));
    editor.ClickShape(35);
    QVERIFY(!editor.IsEnabled("Paste"));
}

void tst_MouthShapes::theStatusLineTellsWhatIsSelected()
{
    ShapeEditor editor;
    editor.MakePlain();
    QCOMPARE(editor.SelectionLabel(), QString());
    editor.ClickShape(10);
    QCOMPARE(editor.SelectionLabel(), QStringLiteral("1 mouth shape selected: D, frame 10"));
    editor.ClickShape(20, Qt::ControlModifier);
    QCOMPARE(editor.SelectionLabel(), QStringLiteral("2 mouth shapes selected"));
    editor.Type(Qt::Key_Delete);
    QCOMPARE(editor.SelectionLabel(), QString());
    editor.Type(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(editor.SelectionLabel(), QStringLiteral("2 mouth shapes selected"));
    editor.pointer.Click(editor.WidgetOf("LeftArm"), editor.At("LeftArm", 15));
    QCOMPARE(editor.SelectionLabel(), QStringLiteral("1 key selected: frame 15"));
    editor.Type(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(editor.SelectionLabel(), QStringLiteral("7 keys selected"));
    editor.pointer.Click(editor.WidgetOf("Motion"), editor.At("Motion", 15));
    QCOMPARE(editor.SelectionLabel(), QStringLiteral("1 clip selected: stroll, frame 0"));
}

QTEST_MAIN(tst_MouthShapes)
#include "tst_MouthShapes.moc"
