#include "BoundaryRecord.h"
#include "ExportedNames.h"

#include <QtTest>

#include <cxxabi.h>

#include <cstdlib>

#ifdef Q_OS_WIN
static const QString kRecord = QStringLiteral("windows.txt");
#else
static const QString kRecord = QStringLiteral("linux.txt");
#endif

namespace {

/// The name as a source would write it; empty for a name that is no C++ one.
QString Readable(const QString& name)
{
    int status = 0;
    char* const text = abi::__cxa_demangle(name.toLatin1().constData(), nullptr, nullptr, &status);
    const QString readable = status == 0 ? QString::fromLatin1(text) : QString();
    std::free(text);
    return readable;
}

QStringList WithReadable(const QStringList& names)
{
    QStringList lines;
    for (const QString& name : names)
        lines << (name + u' ' + Readable(name)).trimmed();
    return lines;
}

} // namespace

/// What the shared library exports, name by name.
class tst_ExportedSymbols : public QObject
{
    Q_OBJECT

private slots:
    void whatIsRecordedIsExportedAndNothingElse();
};

void tst_ExportedSymbols::whatIsRecordedIsExportedAndNothingElse()
{
    QString error;
    const QStringList names = ExportedNames(QStringLiteral(KESTOVA_LIBRARY), error);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    const QString difference = BoundaryRecord::Compare(kRecord, WithReadable(names));
    if (!difference.isEmpty())
        QFAIL(qPrintable(difference));
}

QTEST_MAIN(tst_ExportedSymbols)
#include "tst_ExportedSymbols.moc"
