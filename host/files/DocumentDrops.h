#pragma once

#include <QObject>

class QWidget;

namespace host {

/// Takes documents that are dropped anywhere on a window, where nothing else wants them.
class DocumentDrops : public QObject
{
    Q_OBJECT
public:
    DocumentDrops(QWidget& window, QObject* parent);

signals:
    void Dropped(const QString& path);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace host
