#include "DocumentDialogs.h"

#include "storage/DocumentFile.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>

namespace host {

namespace {

QString Translated(const char* text)
{
    return QCoreApplication::translate("DocumentDialogs", text);
}

QString TimeText(const QDateTime& time)
{
    return QLocale().toString(time, QLocale::ShortFormat);
}

QString FoundText(const QString& name, const QDateTime& time, const QDateTime& savedLater)
{
    if (!savedLater.isValid())
        return Translated("%1 was not saved after its last change, on %2.\nRecover the changes?")
            .arg(name, TimeText(time));
    return Translated("Changes to %1 of %2 were not saved, but the file was saved after that, on "
                      "%3.\nRecover the older changes?")
        .arg(name, TimeText(time), TimeText(savedLater));
}

QString Filter()
{
    return Translated("Kestova scenes (*.%1)").arg(QLatin1String(kDocumentSuffix));
}

} // namespace

DocumentPrompts::SaveAnswer DocumentDialogs::AskToSave(const QString& name)
{
    const QMessageBox::StandardButton answer = QMessageBox::warning(
        m_parent, Translated("Unsaved changes"), Translated("Save the changes to %1?").arg(name),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    switch (answer) {
    case QMessageBox::Save:
        return SaveAnswer::Save;
    case QMessageBox::Discard:
        return SaveAnswer::Discard;
    default:
        return SaveAnswer::Cancel;
    }
}

DocumentPrompts::RecoverAnswer DocumentDialogs::AskToRecover(const QString& name,
                                                             const QDateTime& time,
                                                             const QDateTime& savedLater)
{
    QMessageBox box(QMessageBox::Question, Translated("Unsaved work found"),
                    FoundText(name, time, savedLater), QMessageBox::NoButton, m_parent);
    box.setTextFormat(Qt::PlainText); // names may hold anything
    QPushButton* const recover = box.addButton(Translated("Recover"), QMessageBox::AcceptRole);
    const QAbstractButton* const discard =
        box.addButton(Translated("Discard"), QMessageBox::DestructiveRole);
    QPushButton* const leave = box.addButton(Translated("Keep for Later"), QMessageBox::RejectRole);
    box.setDefaultButton(savedLater.isValid() ? leave : recover);
    box.setEscapeButton(leave);
    box.exec();
    if (box.clickedButton() == recover)
        return RecoverAnswer::Recover;
    return box.clickedButton() == discard ? RecoverAnswer::Discard : RecoverAnswer::Leave;
}

bool DocumentDialogs::AskToReplace(const QString& name, const QDateTime& time)
{
    QMessageBox box(QMessageBox::Warning, Translated("Changed by another program"),
                    Translated("%1 was changed by another program, on %2.\nReplace it?")
                        .arg(name, TimeText(time)),
                    QMessageBox::Cancel, m_parent);
    box.setTextFormat(Qt::PlainText);
    const QAbstractButton* const replace =
        box.addButton(Translated("Replace"), QMessageBox::DestructiveRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    return box.clickedButton() == replace;
}

QString DocumentDialogs::AskForFileToOpen(const QString& folder)
{
    return QFileDialog::getOpenFileName(m_parent, Translated("Open"), folder, Filter());
}

QString DocumentDialogs::AskForFileToSave(const QString& suggested)
{
    QFileDialog dialog(m_parent, Translated("Save As"), suggested, Filter());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QLatin1String(kDocumentSuffix)); // before it asks about replacing
    dialog.selectFile(suggested);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

void DocumentDialogs::TellError(const QString& text)
{
    QMessageBox::critical(m_parent, Translated("Error"), text);
}

} // namespace host
