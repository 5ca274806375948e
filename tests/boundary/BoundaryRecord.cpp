#include "BoundaryRecord.h"

#include <QFile>

#include <algorithm>

namespace BoundaryRecord {

namespace {

QStringList LinesOf(const QString& name)
{
    QFile file(PathOf(name));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
}

/// Those lines of @p lines that are not among @p others, each behind @p mark. Both are sorted.
QStringList Missing(const QStringList& lines, const QStringList& others, const QString& mark)
{
    QStringList missing;
    for (const QString& line : lines) {
        if (!std::binary_search(others.begin(), others.end(), line))
            missing << mark + line;
    }
    return missing;
}

} // namespace

QString PathOf(const QString& name)
{
    return QStringLiteral(KESTOVA_SOURCE_DIR "/timeline/api/exports/") + name;
}

bool IsRenewing()
{
    return qEnvironmentVariableIntValue("KESTOVA_RENEW_BOUNDARY") == 1;
}

bool Write(const QString& name, const QByteArray& text)
{
    QFile file(PathOf(name));
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
}

QString Renewed(const QString& name)
{
    return QStringLiteral("record %1 renewed: look at what changed before you commit it")
        .arg(PathOf(name));
}

QString Compare(const QString& name, QStringList lines)
{
    lines.sort();
    lines.removeDuplicates();
    if (IsRenewing()) {
        const bool written = Write(name, (lines.join(u'\n') + u'\n').toUtf8());
        return written ? Renewed(name) : PathOf(name) + QStringLiteral(" could not be written");
    }
    QStringList recorded = LinesOf(name);
    recorded.sort();
    const QStringList changes = Missing(recorded, lines, QStringLiteral("  went: ")) +
                                Missing(lines, recorded, QStringLiteral("  came: "));
    if (changes.isEmpty())
        return {};
    return QStringLiteral("%1 differences from %2:\n").arg(changes.size()).arg(PathOf(name)) +
           changes.join(u'\n');
}

} // namespace BoundaryRecord
