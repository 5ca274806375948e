#include "MouseScene.h"

#include "tracks/RangeMarkers.h"

#include <QToolTip>

using namespace KestovaTest;

// What a row shows of the pointer that moves over it.

namespace {

bool HasResizeCursor(const QWidget& widget)
{
    return widget.testAttribute(Qt::WA_SetCursor) && widget.cursor().shape() == Qt::SizeHorCursor;
}

} // namespace

class tst_PointerFeedback : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void showsTheNameOfTheKeyUnderThePointer();
    void hidesTheNameBesideKeys();
    void showsNoNameOfAKeyWithoutOne();
    void showsTheNameOfTheNextKey();
    void showsTheNameAtThePointer();
    void showsTheNameOfTheSubKeyWhereThoseAreEdited();
    void showsNoNameOfAClipWhereSubKeysAreEdited();
    void looksAgainOnlyWhenThePointerHasMovedOnTheScreen();
    void showsNothingOnARowWithOneMode();
    void showsTheResizeCursorOverARangeMarkerOnly();
    void leavesTheCursorOfClipRowsAlone();
    void saysNothingToAnybody();
};

void tst_PointerFeedback::cleanup()
{
    QToolTip::hideText();
    QTRY_VERIFY(!QToolTip::isVisible());
}

void tst_PointerFeedback::showsTheNameOfTheKeyUnderThePointer()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.Key(0).name = QStringLiteral("heel down");
    scene.MoveTo(20);
    QVERIFY(QToolTip::isVisible());
    QCOMPARE(QToolTip::text(), QStringLiteral("heel down"));
}

void tst_PointerFeedback::hidesTheNameBesideKeys()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.Key(0).name = QStringLiteral("heel down");
    scene.MoveTo(40);
    scene.MoveTo(20);
    QVERIFY(QToolTip::isVisible());
    scene.MoveTo(30);
    QTRY_VERIFY(!QToolTip::isVisible());
}

void tst_PointerFeedback::showsNoNameOfAKeyWithoutOne()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.MoveTo(40);
    scene.MoveTo(20);
    QVERIFY(!QToolTip::isVisible());
}

void tst_PointerFeedback::showsTheNameOfTheNextKey()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20, 24});
    scene.Key(0).name = QStringLiteral("heel down");
    scene.Key(1).name = QStringLiteral("toe down");
    scene.MoveTo(20);
    scene.MoveTo(24);
    QVERIFY(QToolTip::isVisible());
    QCOMPARE(QToolTip::text(), QStringLiteral("toe down"));
}

void tst_PointerFeedback::showsTheNameAtThePointer()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20, 30});
    scene.Key(0).name = QStringLiteral("first");
    scene.Key(1).name = QStringLiteral("later");
    const auto left = [] {
        for (const QWidget* const widget : QApplication::topLevelWidgets()) {
            if (widget->inherits("QTipLabel") && widget->isVisible())
                return widget->x();
        }
        return -1;
    };
    scene.MoveTo(20);
    const int first = left();
    QVERIFY(first >= 0);
    scene.MoveTo(30);
    QCOMPARE(left() - first, 10 * MouseScene::kPixelsPerFrame);
}

void tst_PointerFeedback::showsTheNameOfTheSubKeyWhereThoseAreEdited()
{
    MouseScene scene({TL_EDIT_SUB_KEYS, TL_EDIT_MOVE_KEYS}, TL_TRACK_VISEME_KEY);
    scene.AddKeys({5});
    CTimelineKey& clip = scene.Key(0);
    clip.name = QStringLiteral("line 1");
    clip.clipLength = 20;
    clip.subKeys = new CTimelineKeyArray;
    VZ::CPointer<CTimelineKey> shape(new CTimelineKey);
    shape->frame = 5;
    shape->name = QStringLiteral("Oh");
    clip.subKeys->Add(shape, false);
    scene.Keys().UpdateClipDisplayLength(0);
    scene.MoveTo(10);
    QCOMPARE(QToolTip::text(), QStringLiteral("Oh"));

    scene.fixture.SetEditModes(scene.row, kDragKeys);
    scene.pointer.MoveTo(scene.row, scene.Spot(104));
    QCOMPARE(QToolTip::text(), QStringLiteral("line 1"));
}

void tst_PointerFeedback::showsNoNameOfAClipWhereSubKeysAreEdited()
{
    MouseScene scene({TL_EDIT_SUB_KEYS, TL_EDIT_MOVE_KEYS}, TL_TRACK_VISEME_KEY);
    scene.AddKeys({5});
    scene.Key(0).name = QStringLiteral("line 1");
    scene.Key(0).clipLength = 20;
    scene.Key(0).subKeys = new CTimelineKeyArray;
    scene.Keys().UpdateClipDisplayLength(0);
    scene.MoveTo(10);
    QCOMPARE(scene.row->HitTestKey(scene.At(10)), 0);
    QVERIFY(!QToolTip::isVisible());
}

void tst_PointerFeedback::looksAgainOnlyWhenThePointerHasMovedOnTheScreen()
{
    MouseScene scene(kDragKeys);
    scene.AddKeys({20});
    scene.Key(0).name = QStringLiteral("heel down");
    scene.MoveTo(20);
    scene.Key(0).name = QStringLiteral("toe down");
    const QPoint global = scene.row->mapToGlobal(scene.At(20));
    QMouseEvent again(QEvent::MouseMove, scene.At(20), global, Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(scene.row, &again);
    QCOMPARE(QToolTip::text(), QStringLiteral("heel down"));
    scene.pointer.MoveTo(scene.row, scene.At(20) + QPoint(1, 0));
    QCOMPARE(QToolTip::text(), QStringLiteral("toe down"));
}

void tst_PointerFeedback::showsNothingOnARowWithOneMode()
{
    MouseScene scene({TL_EDIT_TIME_RANGE});
    scene.AddKeys({20});
    scene.Key(0).name = QStringLiteral("heel down");
    scene.row->SetRange(20, 30);
    scene.pointer.MoveTo(scene.row, scene.Spot(202));
    QVERIFY(scene.row->HitTestRangeMarker(scene.Spot(202)) != kNoMarker);
    QVERIFY(!QToolTip::isVisible());
    QVERIFY(!scene.row->testAttribute(Qt::WA_SetCursor));
}

void tst_PointerFeedback::showsTheResizeCursorOverARangeMarkerOnly()
{
    MouseScene scene(kKeepRange);
    scene.row->SetRange(10, 20);
    scene.MoveTo(15);
    QVERIFY(!scene.row->testAttribute(Qt::WA_SetCursor));
    scene.pointer.MoveTo(scene.row, scene.Spot(101));
    QVERIFY(HasResizeCursor(*scene.row));
    scene.MoveTo(15);
    QVERIFY(!scene.row->testAttribute(Qt::WA_SetCursor));
    scene.pointer.MoveTo(scene.row, scene.Spot(208));
    QVERIFY(HasResizeCursor(*scene.row));
    scene.row->SetRange(-1, -1);
    scene.pointer.MoveTo(scene.row, scene.Spot(207));
    QVERIFY(!scene.row->testAttribute(Qt::WA_SetCursor));
}

void tst_PointerFeedback::leavesTheCursorOfClipRowsAlone()
{
    MouseScene scene(kKeepRange, TL_TRACK_CLIP);
    scene.row->SetRange(10, 20);
    PointerFeedback feedback(*scene.row);
    QVERIFY(scene.row->HitTestRangeMarker(scene.Spot(101)) != kNoMarker);
    feedback.ShowCursor(scene.Spot(101));
    QVERIFY(!scene.row->testAttribute(Qt::WA_SetCursor));
    scene.row->setCursor(Qt::CrossCursor);
    feedback.ShowCursor(scene.Spot(150));
    QCOMPARE(scene.row->cursor().shape(), Qt::CrossCursor);
    // Dragging a marker shows on every kind of row.
    feedback.ShowResizeCursor();
    QVERIFY(HasResizeCursor(*scene.row));
}

void tst_PointerFeedback::saysNothingToAnybody()
{
    MouseScene scene(kKeepRange);
    scene.AddKeys({20});
    scene.Key(0).name = QStringLiteral("heel down");
    scene.row->SetRange(10, 30);
    scene.Press(40);
    scene.Release();
    QVERIFY(scene.row->hasFocus());
    scene.TakeCalls();
    MessageSpy spy(scene.row);
    for (const int frame : {20, 10, 30, 45})
        scene.MoveTo(frame);
    QCOMPARE(spy.TakeMessages(), QStringList());
    QCOMPARE(scene.TakeCalls(), QStringList());
    QCOMPARE(scene.CurrentFrame(), 40);
}

QTEST_MAIN(tst_PointerFeedback)
#include "tst_PointerFeedback.moc"
