#include "AboutBox.h"

#include <QCoreApplication>
#include <QMessageBox>

#include <KestovaTimelineQU/KestovaTimelineQU.h>

namespace host {

QString AboutText()
{
    return QCoreApplication::translate(
               "AboutBox", "<h3>Kestova Host</h3>"
                           "<p>A small lip-sync editor around the timeline component.</p>"
                           "<p>Host %1<br>KestovaTimelineQU %2<br>Qt %3</p>")
        .arg(QStringLiteral(KESTOVA_HOST_VERSION), QString::fromLatin1(KestovaTimelineVersion()),
             QString::fromLatin1(qVersion()));
}

void ShowAboutBox(QWidget* parent)
{
    auto* const box = new QMessageBox(QMessageBox::NoIcon,
                                      QCoreApplication::translate("AboutBox", "About Kestova Host"),
                                      AboutText(), QMessageBox::Close, parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open(); // over the window, whose events go on
}

} // namespace host
