#pragma once

#include <QString>

#include <optional>

namespace host {

class DocumentActions;
class MainWindow;

/// How the program was started.
struct StartedWith
{
    QString path;             ///< of the document; empty when there is none
    bool isShown = false;     ///< the document is in the window; else it is opened now
    std::optional<int> frame; ///< to go to, whatever is shown at the end
};

/// Offers what earlier runs have left behind: of the document, then all else.
void OfferAtStart(MainWindow& window, DocumentActions& documents, const StartedWith& start);

} // namespace host
