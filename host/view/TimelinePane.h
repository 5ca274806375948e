#pragma once

#include <QWidget>

class QAction;
class QActionGroup;
class QIcon;
class QLabel;
class QScrollArea;
class QToolBar;

namespace host {

/// What stands in the dock: a tool bar with the zoom, the mode of clips and the current frame, and
/// below it the timeline, which scrolls up and down when its rows need more height than there is.
class TimelinePane : public QWidget
{
    Q_OBJECT
public:
    explicit TimelinePane(QWidget* parent = nullptr);

    /// Moves the timeline, which the library has placed among the pane's children, into the
    /// scrolled view.
    void AdoptTimeline();
    /// Gives the timeline back, without a parent.
    void ReleaseTimeline();
    /// Makes the timeline as wide as the view and @p height pixels high.
    void SetTimelineHeight(int height);

    /// How far the rows are scrolled up, in pixels.
    int VerticalScroll() const;
    void SetVerticalScroll(int pixels);

    void SetFrameText(const QString& text);
    /// Adds a button before that for the ends of clips; the action is the pane's.
    QAction* AddTool(const QIcon& icon, const QString& text, const QString& tip);
    /// Adds what separates buttons.
    void AddSeparator();
    /// What the end of a clip changes: its speed or its loops.
    void SetClipSpeed(bool isSpeed);
    /// The timeline's widget, or null; and the part of the pane that it is seen in.
    QWidget* Timeline() const;
    QWidget* Viewport() const;
    /// How wide the rows are beside their captions, in pixels; 0 without a timeline.
    int RowWidth() const;

    /// The larger part of the window's height; the preview above has the rest.
    QSize sizeHint() const override;

signals:
    void ClipSpeedToggled(bool isSpeed);
    void ViewResized(); ///< the view is wider or narrower than before

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QAction* AddMode(QActionGroup& modes, const QString& text, const QString& tip);

    QToolBar* m_toolBar;
    QAction* m_modesOfClips = nullptr; ///< what stands before the two
    QAction* m_clipLoop = nullptr;
    QAction* m_clipSpeed = nullptr;
    QLabel* m_frameLabel;
    QScrollArea* m_view;
};

} // namespace host
