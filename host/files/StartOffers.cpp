#include "StartOffers.h"

#include "DocumentActions.h"
#include "view/MainWindow.h"

namespace host {

void OfferAtStart(MainWindow& window, DocumentActions& documents, const StartedWith& start)
{
    if (start.isShown)
        documents.NoteOpened();
    else if (!start.path.isEmpty())
        documents.Open(start.path);
    documents.OfferLeftovers(start.path);
    if (start.frame)
        window.GotoFrame(*start.frame);
}

} // namespace host
