#include "RandomHand.h"

#include "script/MenuPath.h"
#include "view/ImportCommand.h"
#include "view/TimelinePane.h"

#include <QApplication>
#include <QScrollBar>
#include <QToolButton>
#include <QWheelEvent>

#include <cmath>

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

QString PlaceOf(QPoint point)
{
    return QStringLiteral("(%1,%2)").arg(point.x()).arg(point.y());
}

} // namespace

struct RandomHand::Kind
{
    const char* name;
    int weight;
    void (RandomHand::*act)();
};

const RandomHand::Kind RandomHand::kKinds[] = {
    {"drag a key", 30, &RandomHand::DragKey},
    {"gather keys and drag them", 8, &RandomHand::GatherAndDrag},
    {"drag anywhere", 10, &RandomHand::DragAnywhere},
    {"drag an end of the range", 3, &RandomHand::DragRangeEnd},
    {"click", 10, &RandomHand::ClickRow},
    {"double-click", 2, &RandomHand::DoubleClick},
    {"double-click a caption", 3, &RandomHand::DoubleClickCaption},
    {"click on a caption", 8, &RandomHand::ClickCaption},
    {"unlock", 6, &RandomHand::Unlock},
    {"drag a clip's end", 6, &RandomHand::DragClipEnd},
    {"drag a lead-in", 4, &RandomHand::DragLeadIn},
    {"drag a blend", 6, &RandomHand::DragBlend},
    {"click on a switch", 5, &RandomHand::ClickSwitch},
    {"drag in the ruler", 6, &RandomHand::DragInRuler},
    {"break a clip", 4, &RandomHand::BreakClip},
    {"edit by key", 10, &RandomHand::EditByKey},
    {"edit a selection by key", 10, &RandomHand::EditSelectionByKey},
    {"other shortcut", 8, &RandomHand::OtherShortcut},
    {"move by key", 10, &RandomHand::MoveByKey},
    {"choose in a row's menu", 4, &RandomHand::ChooseInRowMenu},
    {"choose in the menu bar", 4, &RandomHand::ChooseInMenuBar},
    {"click on a tool", 3, &RandomHand::ClickTool},
    {"drop a sound", 3, &RandomHand::DropSound},
    {"import", 2, &RandomHand::Import},
    {"import during a drag", 1, &RandomHand::ImportDuringDrag},
    {"turn the wheel", 5, &RandomHand::TurnWheel},
    {"drag in the scroll bar", 2, &RandomHand::DragScrollBar},
    {"end oddly", 8, &RandomHand::EndOddly},
    {"go back and forth", 2, &RandomHand::GoBackAndForth},
    {"undo", 6, &RandomHand::Undo},
    {"redo", 4, &RandomHand::Redo},
};

QString RandomHand::Act(quint32 seed, int step)
{
    const quint32 numbers[] = {seed, static_cast<quint32>(step)};
    m_random = QRandomGenerator(numbers);
    m_said.clear();
    Hold(Qt::NoModifier);
    int sum = 0;
    for (const Kind& kind : kKinds)
        sum += kind.weight;
    int pick = Below(sum);
    for (const Kind& kind : kKinds) {
        pick -= kind.weight;
        if (pick >= 0)
            continue;
        LookAtScale();
        (this->*kind.act)();
        Hold(Qt::NoModifier);
        ComeBack();
        return QLatin1String(kind.name) + QStringLiteral(": ") + m_said.trimmed();
    }
    return {};
}

// ---- What there is, and where ----

QWidget* RandomHand::WidgetOf(host::TrackId row)
{
    const void* const track = m_window.Tracks().TrackOf(row);
    for (QWidget* const widget : m_window.findChildren<QWidget*>()) {
        if (track && widget == track)
            return widget;
    }
    return nullptr;
}

bool RandomHand::IsSeen(QWidget* widget, QPoint point)
{
    if (!widget || !widget->isVisible())
        return false;
    QWidget* const there = m_window.childAt(widget->mapTo(&m_window, point));
    return there && (there == widget || widget->isAncestorOf(there));
}

const SceneTrack* RandomHand::SomeRow(std::initializer_list<TrackKind> kinds)
{
    QVector<const SceneTrack*> rows;
    for (const SceneTrack& track : m_editor.Scene().tracks) {
        QWidget* const widget = WidgetOf(track.id);
        const bool isKind = kinds.size() == 0
                                ? track.kind != TrackKind::Switch
                                : std::find(kinds.begin(), kinds.end(), track.kind) != kinds.end();
        if (isKind && IsSeen(widget, QPoint(4, widget ? widget->height() / 2 : 0)))
            rows.append(&track);
    }
    return rows.isEmpty() ? nullptr : OneOf(rows);
}

const SceneTrack* RandomHand::RowNamed(const char* name)
{
    for (const SceneTrack& track : m_editor.Scene().tracks) {
        QWidget* const widget = WidgetOf(track.id);
        if (track.name == QLatin1String(name) &&
            IsSeen(widget, QPoint(4, widget ? widget->height() / 2 : 0)))
            return &track;
    }
    return nullptr;
}

const SceneKey* RandomHand::SomeKey(const SceneTrack* row)
{
    return row && !row->keys.isEmpty() ? &OneOf(row->keys) : nullptr;
}

/// How frames lie on the rows, as the status line tells of the places under the pointer.
void RandomHand::LookAtScale()
{
    const SceneTrack* const row = SomeRow();
    const auto* const label = m_window.findChild<QLabel*>(QStringLiteral("place"));
    if (!row || !label)
        return;
    QWidget* const widget = WidgetOf(row->id);
    const auto frameAt = [&](int x) {
        static const QRegularExpression number(QStringLiteral("frame (\\d+)"));
        m_editor.pointer.MoveTo(widget, QPoint(x, widget->height() / 2));
        const auto match = number.match(label->text());
        return match.hasMatch() ? match.captured(1).toInt() : -1;
    };
    int right = widget->width() - 1;
    while (right > 1 && frameAt(right) < 0)
        right = right * 3 / 4;
    const int first = frameAt(0);
    const int last = frameAt(right);
    if (first < 0 || last <= first)
        return;
    const auto edgeOf = [&](int frame, int from) { // the first pixel that shows a later frame
        int x = from;
        while (x < widget->width() && frameAt(x) <= frame)
            ++x;
        return x;
    };
    const int leftEdge = edgeOf(first, 0);
    const double guess = double(right - leftEdge) / (last - first);
    const int rightEdge = edgeOf(last - 1, std::max(leftEdge, right - int(guess) - 2));
    m_pixelsPerFrame = last - 1 > first ? double(rightEdge - leftEdge) / (last - 1 - first) : guess;
    if (m_pixelsPerFrame > 1)
        m_pixelsPerFrame = std::round(m_pixelsPerFrame);
    m_origin = leftEdge - (first + 1) * m_pixelsPerFrame;
}

int RandomHand::LeftOf(int frame)
{
    return static_cast<int>(std::floor(m_origin + frame * m_pixelsPerFrame));
}

/// The middle of a frame's cell.
QPoint RandomHand::At(QWidget* row, int frame)
{
    return {static_cast<int>(std::floor(m_origin + (frame + 0.5) * m_pixelsPerFrame)),
            row->height() / 2};
}

/// The frame of the key, or of one of those inside it.
int RandomHand::FrameOf(const SceneTrack& row, const SceneKey& key)
{
    const bool isInside = row.kind == TrackKind::Viseme && !key.subKeys.isEmpty() && !OneIn(6);
    return isInside ? key.frame + OneOf(key.subKeys).frame : key.frame;
}

// ---- What a hand can do ----

void RandomHand::HoldSomething()
{
    static constexpr Qt::KeyboardModifiers kModifiers[] = {
        Qt::NoModifier, Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier};
    Hold(OneOf(kModifiers));
    if (m_editor.pointer.modifiers == Qt::ControlModifier)
        Say(QStringLiteral("Ctrl+"));
    if (m_editor.pointer.modifiers == Qt::ShiftModifier)
        Say(QStringLiteral("Shift+"));
}

bool RandomHand::Press(QWidget* widget, QPoint point)
{
    if (!IsSeen(widget, point)) {
        Say(PlaceOf(point) + QStringLiteral(" is out of sight "));
        return false;
    }
    Say(QStringLiteral("press ") + PlaceOf(widget->mapTo(&m_window, point)) + u' ');
    m_editor.pointer.MoveTo(widget, point);
    m_editor.Begin();
    m_editor.pointer.Press(widget, point);
    return true;
}

void RandomHand::MoveTo(QWidget* widget, QPoint point)
{
    Say(QStringLiteral("move ") + PlaceOf(widget->mapTo(&m_window, point)) + u' ');
    m_editor.pointer.MoveTo(widget, point);
}

void RandomHand::Release(int most)
{
    Say(QStringLiteral("release "));
    m_editor.pointer.Release();
    m_editor.End(most);
}

void RandomHand::Drag(QWidget* widget, QPoint from, QVector<QPoint> way)
{
    if (OneIn(8))
        way.append(from); // and back
    if (!Press(widget, from))
        return;
    for (const QPoint& point : qAsConst(way))
        MoveTo(widget, point);
    Release();
}

void RandomHand::DragToSomewhere(QWidget* row, QPoint from)
{
    QVector<QPoint> way;
    for (int i = Below(3); i >= 0; --i) {
        const int frame = SomeFrame();
        const int near = static_cast<int>((Below(21) - 10) * m_pixelsPerFrame);
        way.append(OneIn(2) ? At(row, frame) : from + QPoint(near, Below(60) - 30));
    }
    Drag(row, from, way);
}

void RandomHand::Click(QWidget* widget, QPoint point)
{
    if (Press(widget, point))
        Release();
}

void RandomHand::Key(int key, Qt::KeyboardModifiers modifiers)
{
    QWidget* const focus = QApplication::focusWidget();
    m_editor.Begin();
    QTest::keyClick(focus ? focus : &m_window, static_cast<Qt::Key>(key), modifiers);
    m_editor.End();
}

/// And releases. @p deed is done while the menu is open, if one opens: it does so at the press.
void RandomHand::PressRight(QWidget* widget, QPoint point, const std::function<void(QMenu&)>& deed)
{
    QTimer timer; // until the menu's own event loop runs
    bool isReleased = false;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            return;
        timer.stop();
        isReleased = true;
        m_editor.pointer.Release(Qt::RightButton);
        deed(*menu);
        if (QApplication::activePopupWidget() == menu)
            menu->close();
    });
    timer.start(0);
    m_editor.pointer.Press(widget, point, Qt::RightButton);
    timer.stop();
    if (!isReleased)
        m_editor.pointer.Release(Qt::RightButton);
}

/// Clicks on one of its entries, or leaves it.
void RandomHand::ChooseIn(QMenu& menu)
{
    QVector<QAction*> possible;
    for (QAction* const action : menu.actions()) {
        if (action->isEnabled() && !action->isSeparator() && !action->menu() &&
            !host::PlainText(*action).startsWith(QLatin1String("Undo")) &&
            !host::PlainText(*action).startsWith(QLatin1String("Redo")))
            possible.append(action);
    }
    m_editor.Begin();
    if (possible.isEmpty() || OneIn(8)) {
        Say(QStringLiteral("leave the menu "));
        menu.close();
    } else {
        QAction* const action = OneOf(possible);
        Say(QStringLiteral("choose ") + action->text() + u' ');
        QTest::mouseClick(&menu, Qt::LeftButton, Qt::NoModifier,
                          menu.actionGeometry(action).center());
    }
    m_editor.End();
}

/// This platform does not give the window back what a menu or another window has taken.
void RandomHand::ComeBack()
{
    while (QWidget* const popup = QApplication::activePopupWidget())
        popup->close();
    if (QApplication::activeWindow() == &m_window)
        return;
    m_window.activateWindow();
    if (!QTest::qWaitForWindowActive(&m_window))
        qFatal("the window does not come back");
    QCoreApplication::processEvents();
}

// ---- Kinds of gestures ----

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
