#pragma once

#include "FrameProbe.h"
#include "SkinFile.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <functional>

class QLabel;
class QStatusBar;

namespace host {

class EditSession;
class SceneTracks;
class TimelinePane;

/// Says at the right of the status bar what is selected, which on a line of mouth shapes cannot be
/// seen, and what the pointer is over: the row, the frame, its time, and the key, clip or mouth
/// shape that stands there.
class StatusLine : public QObject
{
    Q_OBJECT
public:
    /// All are kept and outlive this object.
    StatusLine(QStatusBar* bar, const EditSession& session, const SceneTracks& tracks);

    /// Where the timeline stands from now on, and the skin that it is drawn in.
    void SetTimeline(TimelinePane* pane, const QString& skinPath);
    /// What gives the text about the selection; not set: none.
    std::function<QString()> selectionText;
    FrameProbe& Probe() { return m_probe; }

    /// What a button of a caption, or an arrow that scrolls buttons, does; empty beside them.
    QString TipAt(QPoint place);

public slots:
    /// The pointer is at this place of the screen.
    void Look(QPoint place);
    void Clear();
    /// Something else may be selected: says so as soon as the event that did it is over.
    void LookAtSelection();

private:
    /// A point of the timeline, as far as it can be told.
    struct Spot
    {
        TrackId track = kNoTrack;
        bool isRuler = false;
        std::optional<int> frame; ///< not on a caption
        QString tip;              ///< what a click there does, where that is not to be seen
    };
    std::optional<Spot> SpotAt(QPoint place);
    QString TipOnCaption(const SceneTrack& row, int x) const;
    QString TipOnSwitches(const SceneTrack& row, int x, int width) const;
    QString TextAt(QPoint place);

    QLabel* m_selection;
    QLabel* m_label;
    QTimer m_later; ///< one look at the selection, whatever number of edits have touched it
    const EditSession& m_session;
    const SceneTracks& m_tracks;
    QPointer<TimelinePane> m_pane;
    FrameProbe m_probe;
    SkinFile m_skin;
};

} // namespace host
