#pragma once

#include <QWidget>

class QAction;
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

    void SetFrameText(const QString& text);
    void SetZoomEnabled(bool in, bool out, bool all);

    /// The larger part of the window's height; the preview above has the rest.
    QSize sizeHint() const override;

signals:
    void ZoomInRequested();
    void ZoomOutRequested();
    void ZoomAllRequested();
    void ClipSpeedToggled(bool isSpeed); ///< what the end of a clip changes: its speed or its loops
    void ViewResized();                  ///< the view is wider or narrower than before

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QToolBar* m_toolBar;
    QAction* m_zoomIn;
    QAction* m_zoomOut;
    QAction* m_zoomAll;
    QLabel* m_frameLabel;
    QScrollArea* m_view;
};

} // namespace host
