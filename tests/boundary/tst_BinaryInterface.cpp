#include "BoundaryRecord.h"
#include "ExportedNames.h"
#include "RunProgram.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString kRecord = QStringLiteral("linux-x86_64.abi");

/// The description of the boundary as it is now. Nothing in it tells where or on which day it was
/// made, and a type has the same number whatever else there is.
ProgramResult Describe(const QString& path)
{
    return RunProgram(
        QStringLiteral("abidw"),
        {QStringLiteral("--no-corpus-path"), QStringLiteral("--no-comp-dir-path"),
         QStringLiteral("--no-show-locs"), QStringLiteral("--no-elf-needed"),
         QStringLiteral("--no-parameter-names"), QStringLiteral("--exported-interfaces-only"),
         QStringLiteral("--type-id-style"), QStringLiteral("hash"),
         QStringLiteral("--suppressions"), QStringLiteral(KESTOVA_FOREIGN_TYPES),
         QStringLiteral("--out-file"), path, QStringLiteral(KESTOVA_BOUNDARY_LIBRARY)});
}

QStringList Sorted(QStringList lines)
{
    lines.sort();
    return lines;
}

} // namespace

/// The binary interface that hosts are compiled against: layout of the exported classes and
/// records, their virtual tables, the signatures of their operations, the enumerations.
class tst_BinaryInterface : public QObject
{
    Q_OBJECT

private slots:
    void whatIsDescribedIsWhatTheLibraryExports();
    void theInterfaceIsTheRecordedOne();
};

/// What is described is compiled for that purpose alone; here it is held to what hosts get.
void tst_BinaryInterface::whatIsDescribedIsWhatTheLibraryExports()
{
    QString error;
    QStringList described = ExportedNames(QStringLiteral(KESTOVA_BOUNDARY_LIBRARY), error);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    QCOMPARE(described.removeAll(QStringLiteral("KestovaBoundaryTypes")), 1);
    const QStringList exported = ExportedNames(QStringLiteral(KESTOVA_LIBRARY), error);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    QCOMPARE(Sorted(described), Sorted(exported));
}

void tst_BinaryInterface::theInterfaceIsTheRecordedOne()
{
    const QTemporaryDir folder;
    const QString now = folder.filePath(kRecord);
    const ProgramResult description = Describe(now);
    QVERIFY2(description.code == 0, qPrintable(description.output));
    if (BoundaryRecord::IsRenewing()) {
        QFile file(now);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(BoundaryRecord::Write(kRecord, file.readAll()));
        QFAIL(qPrintable(BoundaryRecord::Renewed(kRecord)));
    }
    const ProgramResult difference = RunProgram(
        QStringLiteral("abidiff"), {QStringLiteral("--harmless"), QStringLiteral("--no-show-locs"),
                                    BoundaryRecord::PathOf(kRecord), now});
    const QString changes = QStringLiteral("abidiff answers %1, where 0 is expected:\n%2")
                                .arg(QString::number(difference.code), difference.output);
    QVERIFY2(difference.code == 0 && difference.output.isEmpty(), qPrintable(changes));
}

QTEST_MAIN(tst_BinaryInterface)
#include "tst_BinaryInterface.moc"
