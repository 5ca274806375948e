#include "RandomHand.h"

#include "script/MenuPath.h"
#include "view/ImportCommand.h"

#include <QApplication>
#include <QFileInfo>
#include <QToolButton>
#include <QWheelEvent>

using host::SceneKey;
using host::SceneTrack;
using host::TrackKind;

namespace {

constexpr int kPatience = 30000; // milliseconds; the sanitized program is slow

struct Stroke
{
    int key;
    Qt::KeyboardModifiers modifiers;
    const char* name;
};

constexpr Stroke kEdits[] = {
    {Qt::Key_Insert, Qt::NoModifier, "Ins"},     {Qt::Key_Insert, Qt::NoModifier, "Ins"},
    {Qt::Key_X, Qt::ControlModifier, "Ctrl+X"},  {Qt::Key_C, Qt::ControlModifier, "Ctrl+C"},
    {Qt::Key_C, Qt::ControlModifier, "Ctrl+C"},  {Qt::Key_V, Qt::ControlModifier, "Ctrl+V"},
    {Qt::Key_V, Qt::ControlModifier, "Ctrl+V"},  {Qt::Key_V, Qt::ControlModifier, "Ctrl+V"},
    {Qt::Key_Delete, Qt::NoModifier, "Del"},     {Qt::Key_B, Qt::ControlModifier, "Ctrl+B"},
    {Qt::Key_A, Qt::ControlModifier, "Ctrl+A"},  {Qt::Key_Right, Qt::AltModifier, "Alt+Right"},
    {Qt::Key_Left, Qt::AltModifier, "Alt+Left"}, {Qt::Key_D, Qt::ShiftModifier, "Shift+D"},
    {Qt::Key_F, Qt::ShiftModifier, "Shift+F"},
};

constexpr Stroke kOthers[] = {
    {Qt::Key_R, Qt::ControlModifier, "Ctrl+R"},
    {Qt::Key_Delete, Qt::ControlModifier, "Ctrl+Del"},
    {Qt::Key_Left, Qt::ShiftModifier | Qt::AltModifier, "Alt+Shift+Left"},
    {Qt::Key_Right, Qt::ShiftModifier | Qt::AltModifier, "Alt+Shift+Right"},
    {Qt::Key_Home, Qt::ShiftModifier, "Shift+Home"},
    {Qt::Key_End, Qt::ShiftModifier, "Shift+End"},
    {Qt::Key_M, Qt::ControlModifier, "Ctrl+M"},
    {Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier, "Ctrl+Shift+M"},
    {Qt::Key_L, Qt::ControlModifier, "Ctrl+L"},
    {Qt::Key_E, Qt::ControlModifier, "Ctrl+E"},
};

constexpr Stroke kMoves[] = {
    {Qt::Key_Tab, Qt::NoModifier, "Tab"},    {Qt::Key_Backtab, Qt::ShiftModifier, "Shift+Tab"},
    {Qt::Key_Home, Qt::NoModifier, "Home"},  {Qt::Key_End, Qt::NoModifier, "End"},
    {Qt::Key_Plus, Qt::NoModifier, "+"},     {Qt::Key_Minus, Qt::NoModifier, "-"},
    {Qt::Key_Asterisk, Qt::NoModifier, "*"}, {Qt::Key_Slash, Qt::NoModifier, "/"},
    {Qt::Key_Asterisk, Qt::NoModifier, "*"}, {Qt::Key_Minus, Qt::NoModifier, "-"},
    {Qt::Key_Escape, Qt::NoModifier, "Esc"},
};

} // namespace

void RandomHand::DragKey()
{
    const SceneTrack* const row = SomeRow();
    const SceneKey* const key = SomeKey(row);
    if (!key)
        return;
    Say(row->name + u' ');
    HoldSomething();
    QWidget* const widget = WidgetOf(row->id);
    DragToSomewhere(widget, At(widget, FrameOf(*row, *key)));
}

/// Keys of several rows, held together with Control.
void RandomHand::GatherAndDrag()
{
    QWidget* widget = nullptr;
    QPoint point;
    for (int i = 1 + Below(4); i >= 0; --i) {
        const SceneTrack* const row = SomeRow();
        const SceneKey* const key = SomeKey(row);
        if (!key)
            continue;
        Say(row->name + u' ');
        widget = WidgetOf(row->id);
        point = At(widget, FrameOf(*row, *key));
        Hold(Qt::ControlModifier);
        Click(widget, point);
    }
    if (!widget)
        return;
    Hold(Qt::NoModifier);
    HoldSomething();
    DragToSomewhere(widget, point);
}

void RandomHand::DragAnywhere()
{
    const SceneTrack* const row = SomeRow();
    if (!row)
        return;
    Say(row->name + u' ');
    HoldSomething();
    QWidget* const widget = WidgetOf(row->id);
    DragToSomewhere(widget, At(widget, SomeFrame()));
}

void RandomHand::DragRangeEnd()
{
    for (const SceneTrack& row : m_editor.Scene().tracks) {
        int first = -1;
        int last = -1;
        m_editor.Timeline().GetTrackSelFrame(m_window.Tracks().TrackOf(row.id), first, last);
        QWidget* const widget = WidgetOf(row.id);
        if (first < 0 || first == last || !widget)
            continue;
        Say(row.name + u' ');
        const int edge = LeftOf(OneIn(2) ? first : last) + Below(9) - 4;
        DragToSomewhere(widget, QPoint(edge, Below(widget->height())));
        return;
    }
}

void RandomHand::ClickRow()
{
    const SceneTrack* const row = SomeRow();
    if (!row)
        return;
    Say(row->name + u' ');
    HoldSomething();
    QWidget* const widget = WidgetOf(row->id);
    const SceneKey* const key = OneIn(2) ? SomeKey(row) : nullptr;
    Click(widget, At(widget, key ? FrameOf(*row, *key) : SomeFrame()));
}

void RandomHand::DoubleClick()
{
    const SceneTrack* const row = SomeRow();
    const SceneKey* const key = SomeKey(row);
    if (!key)
        return;
    QWidget* const widget = WidgetOf(row->id);
    const QPoint point = At(widget, FrameOf(*row, *key));
    if (!IsSeen(widget, point))
        return;
    Say(row->name + u' ' + PlaceOf(point));
    m_editor.Begin();
    m_editor.pointer.DoubleClick(widget, point);
    m_editor.End();
}

void RandomHand::DoubleClickCaption()
{
    const SceneTrack* const row = SomeRow();
    if (!row)
        return;
    QWidget* const widget = WidgetOf(row->id);
    const QPoint point(20, widget->y() + widget->height() / 2);
    Say(row->name);
    m_editor.Begin();
    m_editor.pointer.DoubleClick(widget->parentWidget(), point);
    m_editor.End();
}

void RandomHand::ClickCaption()
{
    const SceneTrack* const row = SomeRow();
    if (!row)
        return;
    Say(row->name + u' ');
    QWidget* const widget = WidgetOf(row->id);
    constexpr int kFirstButton = 90; // pixels from a caption's left edge
    Click(widget->parentWidget(),
          QPoint(kFirstButton + Below(80), widget->y() + widget->height() / 2));
    if (auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget()))
        ChooseIn(*menu);
}

/// Lest nothing can be edited any more.
void RandomHand::Unlock()
{
    for (const SceneTrack& row : m_editor.Scene().tracks) {
        QWidget* const widget = WidgetOf(row.id);
        if (!row.locked || !IsSeen(widget, QPoint(4, widget ? widget->height() / 2 : 0)))
            continue;
        Say(row.name + u' ');
        constexpr int kLockButton = 159;
        Click(widget->parentWidget(), QPoint(kLockButton, widget->y() + widget->height() / 2));
        return;
    }
}

void RandomHand::DragClipEnd()
{
    const SceneTrack* const row = SomeRow({TrackKind::Clip});
    const SceneKey* const clip = SomeKey(row);
    if (!clip)
        return;
    Say(row->name + u' ');
    QWidget* const widget = WidgetOf(row->id);
    const int end = clip->frame + clip->clip->length * clip->clip->loops;
    DragToSomewhere(widget, QPoint(LeftOf(end + 1), widget->height() / 2));
}

void RandomHand::DragLeadIn()
{
    const SceneTrack* const row = SomeRow({TrackKind::Clip});
    const SceneKey* const clip = SomeKey(row);
    if (!clip)
        return;
    Say(row->name + u' ');
    QWidget* const widget = WidgetOf(row->id);
    const int edge = LeftOf(clip->frame - clip->clip->leadIn);
    Click(widget, At(widget, clip->frame + 1));
    DragToSomewhere(widget, QPoint(edge, widget->height() / 2));
}

void RandomHand::DragBlend()
{
    const SceneTrack* const row = SomeRow({TrackKind::Transition});
    const SceneKey* const key = SomeKey(row);
    if (!key || !key->transition)
        return;
    Say(row->name + u' ');
    QWidget* const widget = WidgetOf(row->id);
    const bool isOutOf = key->transition->direction == host::BlendDirection::OutOf;
    const int frames = key->transition->frames;
    DragToSomewhere(widget, At(widget, key->frame + (isOutOf ? frames : -frames)));
}

void RandomHand::ClickSwitch()
{
    const SceneTrack* const row = SomeRow({TrackKind::Switch});
    if (!row)
        return;
    Say(row->name + u' ');
    QWidget* const widget = WidgetOf(row->id);
    Click(widget, QPoint(Below(OneIn(2) ? 420 : widget->width()), widget->height() / 2));
}

void RandomHand::DragInRuler()
{
    const SceneTrack* const row = SomeRow();
    if (!row)
        return;
    const host::TimeMark& mark = m_editor.Scene().timeMark;
    QWidget* const widget = WidgetOf(row->id);
    QWidget* ruler = nullptr;
    for (QWidget* const child :
         widget->parentWidget()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (child->y() == 0 && child->x() == widget->x())
            ruler = child;
    }
    if (!ruler)
        return;
    const int frame = OneIn(3) ? SomeFrame() : OneIn(2) ? mark.start : mark.end;
    QPoint from = At(ruler, frame);
    from.setY(Below(ruler->height()));
    DragToSomewhere(ruler, from);
}

void RandomHand::BreakClip()
{
    const SceneTrack* const row = SomeRow({TrackKind::Clip});
    const SceneKey* const clip = SomeKey(row);
    if (!clip)
        return;
    Say(row->name + u' ');
    QWidget* const widget = WidgetOf(row->id);
    Click(widget, At(widget, clip->frame + 1));
    m_editor.Timeline().SetCurrentFrame(clip->frame + 1 + Below(clip->clip->length));
    Say(QStringLiteral("Ctrl+B"));
    Key(Qt::Key_B, Qt::ControlModifier);
}

void RandomHand::EditByKey()
{
    const Stroke& stroke = OneOf(kEdits);
    Say(QLatin1String(stroke.name));
    Key(stroke.key, stroke.modifiers);
}

void RandomHand::EditSelectionByKey()
{
    for (int i = Below(3); i >= 0; --i) {
        const SceneTrack* const row = SomeRow();
        const SceneKey* const key = SomeKey(row);
        if (!key)
            continue;
        Say(row->name + u' ');
        Hold(i == 0 ? Qt::NoModifier : Qt::ControlModifier);
        QWidget* const widget = WidgetOf(row->id);
        Click(widget, At(widget, FrameOf(*row, *key)));
    }
    Hold(Qt::NoModifier);
    EditByKey();
    if (OneIn(2)) {
        Say(QStringLiteral(" and "));
        MoveByKey();
        Say(QStringLiteral(" and Ctrl+V"));
        Key(Qt::Key_V, Qt::ControlModifier);
    }
}

void RandomHand::OtherShortcut()
{
    const Stroke& stroke = OneOf(kOthers);
    Say(QLatin1String(stroke.name));
    Key(stroke.key, stroke.modifiers);
}

void RandomHand::MoveByKey()
{
    const Stroke& stroke = OneOf(kMoves);
    Say(QLatin1String(stroke.name));
    Key(stroke.key, stroke.modifiers);
}

void RandomHand::ChooseInRowMenu()
{
    const SceneTrack* const row = SomeRow();
    if (!row)
        return;
    Say(row->name + u' ');
    QWidget* const widget = WidgetOf(row->id);
    const SceneKey* const key = OneIn(3) ? nullptr : SomeKey(row);
    const QPoint point = At(widget, key ? FrameOf(*row, *key) : SomeFrame());
    if (!IsSeen(widget, point))
        return;
    m_editor.pointer.MoveTo(widget, point);
    m_editor.Begin();
    PressRight(widget, point, [this](QMenu& menu) {
        m_editor.End();
        ChooseIn(menu);
    });
    m_editor.End();
}

void RandomHand::ChooseInMenuBar()
{
    static constexpr const char* kMenus[] = {"Edit", "View", "Timeline"};
    const QLatin1String wanted(OneOf(kMenus));
    QMenuBar* const bar = m_window.menuBar();
    for (QAction* const action : bar->actions()) {
        if (host::PlainText(*action) != wanted)
            continue;
        Say(wanted + QStringLiteral(" "));
        m_editor.Begin();
        m_editor.pointer.Click(bar, bar->actionGeometry(action).center());
        m_editor.End();
        if (auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget()))
            ChooseIn(*menu);
        return;
    }
}

void RandomHand::ClickTool()
{
    QVector<QToolButton*> tools;
    for (QToolButton* const tool : m_window.findChildren<QToolButton*>()) {
        const QAction* const action = tool->defaultAction();
        const bool isPlayback = action && !action->shortcut().isEmpty();
        if (action && !isPlayback && tool->isVisible() && tool->isEnabled())
            tools.append(tool);
    }
    if (tools.isEmpty())
        return;
    QToolButton* const tool = OneOf(tools);
    Say(tool->text() + u' ');
    Click(tool, tool->rect().center());
}

void RandomHand::DropSound()
{
    const SceneTrack* const row = OneIn(4) ? SomeRow() : SomeRow({TrackKind::Clip});
    if (!row)
        return;
    QWidget* const widget = WidgetOf(row->id);
    const QPoint point = At(widget, SomeFrame());
    const QString& path = OneOf(m_files.sounds);
    if (!IsSeen(widget, point))
        return;
    Say(QStringLiteral("%1 on %2 %3").arg(QFileInfo(path).fileName(), row->name, PlaceOf(point)));
    m_editor.Begin();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    QDragEnterEvent enter(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &enter);
    QDragMoveEvent move(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &move);
    if (move.isAccepted()) {
        QDropEvent drop(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(widget, &drop);
    } else {
        QDragLeaveEvent leave;
        QApplication::sendEvent(widget, &leave);
    }
    m_editor.End();
}

void RandomHand::Import()
{
    const QString& path = OneOf(OneIn(4) ? m_files.sounds : m_files.imports);
    Say(QFileInfo(path).fileName());
    m_editor.Begin();
    m_window.Import().Start({path});
    if (!QTest::qWaitFor([this] { return !m_window.Import().IsRunning(); }, kPatience))
        m_editor.Complain(QStringLiteral("the import does not end"));
    m_editor.End();
}

/// As when a long import ends while the hand goes on.
void RandomHand::ImportDuringDrag()
{
    const SceneTrack* const row = SomeRow();
    const SceneKey* const key = SomeKey(row);
    if (!key)
        return;
    Say(row->name + u' ');
    QWidget* widget = WidgetOf(row->id);
    const QPoint point = At(widget, FrameOf(*row, *key));
    const host::TrackId id = row->id;
    if (!Press(widget, point))
        return;
    MoveTo(widget, point + QPoint(Below(100) - 50, 0));
    const QString& path = OneOf(m_files.imports);
    Say(QStringLiteral("import %1 ").arg(QFileInfo(path).fileName()));
    m_window.Import().Start({path});
    if (!QTest::qWaitFor([this] { return !m_window.Import().IsRunning(); }, kPatience))
        m_editor.Complain(QStringLiteral("the import does not end"));
    widget = WidgetOf(id); // its row may have been made anew
    if (widget)
        MoveTo(widget, point + QPoint(Below(100) - 50, 0));
    constexpr int kDragImportAndRest = 3;
    Release(kDragImportAndRest);
}

void RandomHand::TurnWheel()
{
    const SceneTrack* const row = SomeRow();
    if (!row)
        return;
    static constexpr Qt::KeyboardModifiers kModifiers[] = {Qt::NoModifier, Qt::ShiftModifier,
                                                           Qt::ControlModifier};
    const Qt::KeyboardModifiers modifiers = OneOf(kModifiers);
    const int turned = 120 * (Below(5) - 2);
    Say(QStringLiteral("%1 with %2").arg(turned).arg(int(modifiers)));
    QWidget* const widget = WidgetOf(row->id);
    const QPoint point(widget->width() / 2, widget->height() / 2);
    QWheelEvent event(point, widget->mapToGlobal(point), QPoint(), QPoint(0, turned), Qt::NoButton,
                      modifiers, Qt::NoScrollPhase, false);
    m_editor.Begin();
    QApplication::sendEvent(widget, &event);
    m_editor.End();
}

void RandomHand::DragScrollBar()
{
    const SceneTrack* const row = SomeRow();
    if (!row)
        return;
    QWidget* const widget = WidgetOf(row->id);
    QWidget* lowest = nullptr;
    for (QWidget* const child :
         widget->parentWidget()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (child->isVisible() && (!lowest || child->y() > lowest->y()))
            lowest = child;
    }
    const auto somewhere = [&] { return QPoint(Below(lowest->width()), lowest->height() / 2); };
    const QPoint from = somewhere();
    Drag(lowest, from, {somewhere()});
}

/// A drag that something comes into.
void RandomHand::EndOddly()
{
    const SceneTrack* const row = SomeRow();
    const SceneKey* const key = SomeKey(row);
    if (!key)
        return;
    Say(row->name + u' ');
    HoldSomething();
    QWidget* const widget = WidgetOf(row->id);
    const QPoint point = At(widget, FrameOf(*row, *key));
    if (!Press(widget, point))
        return;
    if (!OneIn(4))
        MoveTo(widget, point + QPoint(Below(200) - 100, 0));
    Hold(Qt::NoModifier);
    int most = 1;
    switch (Below(7)) {
    case 0: {
        Say(QStringLiteral("another window "));
        QWidget other;
        other.show();
        other.activateWindow();
        if (!QTest::qWaitForWindowActive(&other))
            qFatal("no window comes up");
        QCoreApplication::processEvents();
        other.close();
        ComeBack();
        break;
    }
    case 1:
        Say(QStringLiteral("the release is lost "));
        m_editor.pointer.LoseButtons();
        m_editor.pointer.MoveTo(widget, point + QPoint(3, 0));
        break;
    case 2:
        Say(QStringLiteral("Esc "));
        QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &m_window,
                        Qt::Key_Escape);
        break;
    case 3:
        Say(QStringLiteral("outside the window "));
        m_editor.pointer.MoveTo(&m_window, QPoint(-50, 2000));
        break;
    case 4: {
        const Stroke& stroke = OneIn(2) ? OneOf(kEdits) : OneOf(kOthers);
        Say(QLatin1String(stroke.name) + QStringLiteral(" "));
        QTest::keyClick(&m_window, static_cast<Qt::Key>(stroke.key), stroke.modifiers);
        constexpr int kDragCommandAndRest = 3;
        most = kDragCommandAndRest;
        break;
    }
    case 5:
        Say(QStringLiteral("the right button "));
        PressRight(widget, point + QPoint(5, 0), [](QMenu&) {});
        break;
    default:
        Say(QStringLiteral("focus "));
        if (QWidget* const focus = QApplication::focusWidget())
            focus->clearFocus();
        break;
    }
    QCoreApplication::processEvents();
    if (OneIn(2))
        MoveTo(widget, point + QPoint(Below(200) - 100, 0));
    Release(most);
}

void RandomHand::GoBackAndForth()
{
    const int steps = 1 + Below(12);
    Say(QString::number(steps));
    for (int i = 0; i < steps; ++i)
        m_editor.Undo();
    for (int i = OneIn(3) ? steps / 2 : steps; i > 0; --i)
        m_editor.Redo();
}

void RandomHand::Undo()
{
    m_editor.Undo();
}

void RandomHand::Redo()
{
    m_editor.Redo();
}
