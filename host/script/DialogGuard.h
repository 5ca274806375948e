#pragma once

#include <QObject>

namespace host {

/// Closes every dialog that comes up while nobody is there to answer it, as Escape would, and
/// remembers that it did. What only shows how far something is may stay.
class DialogGuard : public QObject
{
    Q_OBJECT
public:
    DialogGuard();

    /// What came up since the last question, in a line; empty when nothing did.
    QString Take();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QString m_seen;
};

} // namespace host
