#include "DialogGuard.h"

#include <QApplication>
#include <QMessageBox>
#include <QProgressDialog>
#include <QTimer>

#include <utility>

namespace host {

namespace {

/// What the dialog says, or is for.
QString TextOf(const QDialog& dialog)
{
    const auto* const box = qobject_cast<const QMessageBox*>(&dialog);
    return box && box->icon() != QMessageBox::NoIcon ? box->text() : dialog.windowTitle();
}

} // namespace

DialogGuard::DialogGuard()
{
    qApp->installEventFilter(this);
}

QString DialogGuard::Take()
{
    return std::exchange(m_seen, {});
}

bool DialogGuard::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Show)
        return false;
    auto* const dialog = qobject_cast<QDialog*>(watched);
    if (!dialog || qobject_cast<QProgressDialog*>(dialog))
        return false;
    m_seen = QStringLiteral("a dialog came up that nobody answers: %1").arg(TextOf(*dialog));
    QTimer::singleShot(0, dialog, &QDialog::reject);
    return false;
}

} // namespace host
