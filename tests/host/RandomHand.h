#pragma once

#include "UndoWitness.h"

#include <QRandomGenerator>

/// Small files for the hand to bring in.
struct HandFiles
{
    QStringList sounds;  ///< to be dropped on rows as well
    QStringList imports; ///< all others
};

/// A hand that does whatever comes to its mind, through real events, and the same for the same
/// numbers. Every gesture begins and ends before the eyes of the editor's witness.
class RandomHand
{
public:
    RandomHand(WitnessedEditor& editor, const HandFiles& files)
        : m_editor(editor), m_window(editor.window), m_files(files)
    {
    }

    /// Does what comes at that step for that seed. What comes does not depend on the steps before:
    /// any of them can be left out. Returns what was done.
    QString Act(quint32 seed, int step);

private:
    struct Kind;
    static const Kind kKinds[];

    // What there is to choose from, and a choice.
    int Below(int count) { return m_random.bounded(count); }
    bool OneIn(int count) { return Below(count) == 0; }
    template <class List>
    auto& OneOf(List& list)
    {
        const auto count = static_cast<int>(std::end(list) - std::begin(list));
        return *(std::begin(list) + Below(count));
    }
    const host::SceneTrack* SomeRow(std::initializer_list<host::TrackKind> kinds = {});
    const host::SceneKey* SomeKey(const host::SceneTrack* row);
    int SomeFrame() { return Below(m_editor.Scene().frameCount + 4) - 2; }

    // Where things are.
    QWidget* WidgetOf(host::TrackId row);
    bool IsSeen(QWidget* widget, QPoint point);
    void LookAtScale();
    int LeftOf(int frame);
    QPoint At(QWidget* row, int frame);
    int FrameOf(const host::SceneTrack& row, const host::SceneKey& key);

    // What a hand and ten fingers can do; each is a gesture for the witness.
    static QString PlaceOf(QPoint point)
    {
        return QStringLiteral("(%1,%2)").arg(point.x()).arg(point.y());
    }
    void Say(const QString& text) { m_said += text; }
    void Hold(Qt::KeyboardModifiers modifiers) { m_editor.pointer.modifiers = modifiers; }
    void HoldSomething();
    bool Press(QWidget* widget, QPoint point);
    void MoveTo(QWidget* widget, QPoint point);
    void Release(int most = 1);
    void Drag(QWidget* widget, QPoint from, QVector<QPoint> way);
    void DragToSomewhere(QWidget* row, QPoint from);
    void Click(QWidget* widget, QPoint point);
    void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void PressRight(QWidget* widget, QPoint point, const std::function<void(QMenu&)>& deed);
    static bool IsOffered(const QAction& action);
    void ChooseIn(QMenu& menu);
    void ComeBack();

    // Kinds of gestures.
    void DragKey();
    void GatherAndDrag();
    void DragAnywhere();
    void DragRangeEnd();
    void ClickRow();
    void DoubleClick();
    void DoubleClickCaption();
    void ClickCaption();
    void Unlock();
    void DragClipEnd();
    void DragLeadIn();
    void DragBlend();
    void ClickSwitch();
    void DragInRuler();
    void BreakClip();
    void EditByKey();
    void EditSelectionByKey();
    void OtherShortcut();
    void MoveByKey();
    void ChooseInRowMenu();
    void ChooseInMenuBar();
    void ClickTool();
    void DropSound();
    void Import();
    void ImportDuringDrag();
    void TurnWheel();
    void DragScrollBar();
    void EndOddly();
    void GoBackAndForth();
    void Undo();
    void Redo();

    WitnessedEditor& m_editor;
    host::MainWindow& m_window;
    HandFiles m_files;
    QRandomGenerator m_random;
    QString m_said;
    double m_pixelsPerFrame = 1;
    double m_origin = 0; ///< pixels from a row's left edge to that of frame 0
};
