#pragma once

#include <QObject>

class QWidget;

namespace host {

/// Takes documents that are dropped anywhere on a window. It looks at drags before the widgets of
/// the window do: the timeline's rows take whatever enters them, and refuse it only afterwards.
class DocumentDrops : public QObject
{
    Q_OBJECT
public:
    /// @param window is kept and outlives this object.
    DocumentDrops(QWidget& window, QObject* parent);

signals:
    void Dropped(const QString& path);

protected:
    /// Of all events of the program.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& m_window;
};

} // namespace host
