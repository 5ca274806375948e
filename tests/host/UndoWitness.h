#pragma once

#include "EntryNames.h"
#include "HandledEditor.h"

#include "history/UndoHistory.h"

#include <optional>

/// What the eye sees of the timeline besides the keys: a line for each row and one for all. Read
/// without the help of what is tested.
inline QStringList SeenState(HandledEditor& editor, const QLabel& frameLabel)
{
    CTimelineManager& timeline = editor.Timeline();
    const host::SceneTracks& tracks = editor.window.Tracks();
    const auto selected = [](const CTimelineKeyArray& keys) {
        QStringList ids;
        for (const int index : keys.SelectedIndexes())
            ids += QString::number(host::TimelineKeys::IdOf(*keys.GetAt(index)));
        return ids.join(u',');
    };
    QStringList seen{QStringLiteral("%1 of %2, active %3 in %4")
                         .arg(frameLabel.text())
                         .arg(timeline.GetFrameCount())
                         .arg(tracks.IdOf(timeline.GetActiveChildTrack()))
                         .arg(tracks.IdOf(timeline.GetActiveRootTrack()))};
    for (const host::SceneTrack& track : editor.Scene().tracks) {
        CTimelineTrackBase* const row = tracks.TrackOf(track.id);
        const CTimelineKeyArray* const keys = tracks.KeysOf(track.id);
        if (!row || !keys) {
            seen += track.name + QStringLiteral(" is not there");
            continue;
        }
        QString text = selected(*keys);
        for (const auto& key : keys->Keys()) {
            const QString inside = key->subKeys ? selected(*key->subKeys) : QString();
            if (!inside.isEmpty())
                text +=
                    QStringLiteral(" in %1: %2").arg(host::TimelineKeys::IdOf(*key)).arg(inside);
        }
        int first = -1;
        int last = -1;
        timeline.GetTrackSelFrame(row, first, last);
        constexpr int kFirstStateOn = 2; // on, and on with the pointer above
        QString buttons;
        for (const int button : {1, 2}) {
            int state = -1;
            timeline.GetTrackCaptionBtnState(row, button, state);
            buttons += QString::number(state >= kFirstStateOn);
        }
        std::vector<_tmpTLSwitchBtnData> switches;
        timeline.GetTrackSwitchBtnList(row, switches);
        for (const _tmpTLSwitchBtnData& button : switches)
            buttons += QStringLiteral(" %1:%2").arg(button.text).arg(button.state >= kFirstStateOn);
        seen += QStringLiteral("%1: selected <%2> range %3 %4 place %5 %6 buttons %7")
                    .arg(track.name, text)
                    .arg(first)
                    .arg(last)
                    .arg(timeline.GetRootTrackSortIndex(row))
                    .arg(timeline.GetChildTrackSortIndex(row))
                    .arg(buttons);
    }
    return seen;
}

/// The editor with a witness of every gesture, who notes for each entry of the stack how all was
/// before the gesture that made it and after.
struct WitnessedEditor : HandledEditor
{
    struct Moment
    {
        host::Scene scene;
        QStringList state;
    };
    struct Entry
    {
        QString name;
        Moment before;
        std::optional<Moment> after;
    };

    WitnessedEditor()
    {
        for (QLabel* const label : window.findChildren<QLabel*>()) {
            if (label->text().startsWith(QLatin1String("Frame")))
                frameLabel = label;
        }
        QObject::connect(&window.Session(), &host::EditSession::Begun, [this] {
            NoteAfter();
            // Only the first edit of a gesture starts where the gesture did.
            before = atStart ? *atStart : Now();
            atStart.reset();
        });
        QObject::connect(&window.Session(), &host::EditSession::Committed,
                         [this](const QString& name, const host::Scene& from) {
                             entries.resize(Stack().index() - 1); // undone ones are forgotten
                             entries.append({name, before, {}});
                             names += name;
                             ++made;
                             // It is done when control is back in the event loop.
                             QMetaObject::invokeMethod(
                                 &window, [this] { NoteAfter(); }, Qt::QueuedConnection);
                             Complain(NameProblem(name, from, Scene()));
                         });
    }

    Moment Now() { return {Scene(), SeenState(*this, *frameLabel)}; }
    QUndoStack& Stack() { return window.History().Stack(); }

    /// A gesture begins.
    void Begin()
    {
        atStart = Now();
        sceneAtStart = Scene();
        made = 0;
    }
    /// It is over. @p most: how many entries it may have made.
    void End(int most = 1)
    {
        QCoreApplication::processEvents();
        NoteAfter();
        atStart.reset();
        if (made > most)
            Complain(QStringLiteral("one gesture made %1 entries").arg(made));
        if (made == 0 && Scene() != sceneAtStart)
            Complain(QStringLiteral("the scene is another, without an entry"));
        if (window.Session().IsOpen())
            Complain(QStringLiteral("the edit is still open"));
        // While keys are dragged the timeline's own is another for a moment.
        if (!frameLabel->text().startsWith(
                QStringLiteral("Frame %1 ").arg(Timeline().GetCurrentFrame())))
            Complain(QStringLiteral("the display shows another frame than the current one"));
        Complain(Difference());
    }

    /// By the keyboard; complains unless all is as it was before the edit.
    void Undo() { GoTo(-1); }
    /// By the keyboard; complains unless all is as it was after the edit.
    void Redo() { GoTo(1); }
    void PressUndo() { QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier); }
    void PressRedo()
    {
        QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    }

    void Complain(const QString& problem)
    {
        if (!problem.isEmpty())
            problems += problem;
    }
    /// The first line in which they differ; empty when they do not.
    static QString DifferenceOf(const Moment& is, const Moment& expected)
    {
        if (is.scene != expected.scene)
            return QStringLiteral("the scene is not the same");
        for (int i = 0; i < std::min(is.state.size(), expected.state.size()); ++i) {
            if (is.state[i] != expected.state[i])
                return QStringLiteral("is: %1; was: %2").arg(is.state[i], expected.state[i]);
        }
        return is.state == expected.state ? QString() : QStringLiteral("not as many rows");
    }

    QLabel* frameLabel = nullptr;
    QVector<Entry> entries; ///< those of the stack
    QStringList names;      ///< of all edits, undone and forgotten ones as well
    QStringList problems;

private:
    void NoteAfter()
    {
        if (!entries.isEmpty() && !entries.last().after && entries.size() == Stack().index())
            entries.last().after = Now();
    }
    void GoTo(int direction)
    {
        const int index = Stack().index() + direction;
        direction < 0 ? PressUndo() : PressRedo();
        QCoreApplication::processEvents();
        if (index < 0 || index > Stack().count())
            return;
        const Entry& entry = entries[std::min(index, index - direction)];
        const QString what =
            (direction < 0 ? QStringLiteral("after undoing ") : QStringLiteral("after redoing ")) +
            entry.name + QStringLiteral(": ");
        if (Stack().index() != index)
            Complain(what + QStringLiteral("the stack stands elsewhere"));
        const Moment& expected = direction < 0 ? entry.before : *entry.after;
        const QString unlike = DifferenceOf(Now(), expected);
        if (!unlike.isEmpty())
            Complain(what + unlike);
        const QString shown = Difference();
        if (!shown.isEmpty())
            Complain(what + shown);
    }

    std::optional<Moment> atStart;
    host::Scene sceneAtStart;
    Moment before; ///< the edit under way
    int made = 0;  ///< entries by the gesture
};
