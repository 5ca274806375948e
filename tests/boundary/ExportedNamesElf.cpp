#include "ExportedNames.h"
#include "RunProgram.h"

QStringList ExportedNames(const QString& library, QString& error)
{
    const ProgramResult result = RunProgram(
        QStringLiteral("nm"), {QStringLiteral("--dynamic"), QStringLiteral("--defined-only"),
                               QStringLiteral("--format=posix"), library});
    if (result.code != 0) {
        error = result.output;
        return {};
    }
    QStringList names;
    for (const QString& line : result.output.split(u'\n', Qt::SkipEmptyParts))
        names << line.section(u' ', 0, 0);
    if (names.isEmpty())
        error = library + QStringLiteral(" exports nothing");
    return names;
}
