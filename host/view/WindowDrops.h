#pragma once

#include <QObject>
#include <QStringList>

class QDropEvent;
class QWidget;

namespace host {

/// Lets files be dropped anywhere in a window, rows of the timeline included: documents, motion
/// captures and mouth cues, which the rows themselves do not know, several sounds, and one where
/// there is no row. One sound on a row goes the timeline's own way, which says on which row and
/// frame it was dropped.
class WindowDrops : public QObject
{
    Q_OBJECT
public:
    /// @param window this object's parent. @param timeline the part of it that holds the rows.
    WindowDrops(QWidget* window, QWidget* timeline);

signals:
    /// Files to be imported.
    void FilesDropped(const QStringList& files);
    /// A document to be opened; never together with other files.
    void DocumentDropped(const QString& path);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Tell(const QStringList& files);
    /// The files of a drag over the widget that are to be imported, or the one document that is to
    /// be opened; none when it is not for us.
    QStringList FilesFor(const QWidget& widget, const QDropEvent& event) const;

    QWidget* m_window;
    QWidget* m_timeline;
};

} // namespace host
