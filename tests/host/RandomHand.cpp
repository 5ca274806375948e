#include "RandomHand.h"

#include "script/MenuPath.h"

#include <QApplication>

#include <cmath>

using host::SceneKey;
using host::SceneTrack;
using host::TrackKind;

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

/// Whether the hand may choose the entry: skins have other sizes, and one asks for a file; undoing
/// has gestures of its own.
bool RandomHand::IsOffered(const QAction& action)
{
    static constexpr const char* kLeftOut[] = {"Undo", "Redo", "Skin"};
    const QString text = host::PlainText(action);
    return action.isEnabled() && !action.isSeparator() &&
           std::none_of(std::begin(kLeftOut), std::end(kLeftOut), [&text](const char* begin) {
               return text.startsWith(QLatin1String(begin));
           });
}

/// Clicks on one of its entries, or of a menu in it, or leaves it.
void RandomHand::ChooseIn(QMenu& menu)
{
    QVector<QAction*> possible;
    for (QAction* const action : menu.actions()) {
        if (IsOffered(*action))
            possible.append(action);
    }
    m_editor.Begin();
    if (possible.isEmpty() || OneIn(8)) {
        Say(QStringLiteral("leave the menu "));
        menu.close();
        m_editor.End();
        return;
    }
    QAction* const action = OneOf(possible);
    QMenu* const below = action->menu();
    Say(QStringLiteral("choose ") + host::PlainText(*action) + u' ');
    QTest::mouseClick(&menu, Qt::LeftButton, Qt::NoModifier, menu.actionGeometry(action).center());
    m_editor.End();
    if (below && below->isVisible())
        ChooseIn(*below);
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
