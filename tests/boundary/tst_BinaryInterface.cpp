#include "BoundaryRecord.h"
#include "ExportedNames.h"
#include "RunProgram.h"

#include <QDir>
#include <QRegularExpression>
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

ProgramResult CompareDescriptions(const QStringList& how, const QString& before, const QString& now)
{
    const QStringList everything{QStringLiteral("--harmless"), QStringLiteral("--no-show-locs")};
    return RunProgram(QStringLiteral("abidiff"), how + everything + QStringList{before, now});
}

/// What changed between two descriptions, each type by itself where that says enough: otherwise
/// (pure virtual operations in another order) with all operations that come in touch with it.
QString Changes(const QString& before, const QString& now)
{
    const ProgramResult all = CompareDescriptions({}, before, now);
    if (all.code == 0 && all.output.isEmpty())
        return {};
    const ProgramResult each =
        CompareDescriptions({QStringLiteral("--leaf-changes-only")}, before, now);
    const bool saysEnough =
        each.code > 0 && !each.output.contains(QLatin1String("summary: 0 artifact changed"));
    return saysEnough ? each.output : all.output;
}

QString TextOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly | QIODevice::Text) ? QString::fromUtf8(file.readAll())
                                                            : QString();
}

/// The types that the exported headers define.
QStringList DefinedTypes()
{
    static const QRegularExpression definition(QStringLiteral(
        R"(\b(?:class|struct|enum|union)\s+(?:class\s+|KESTOVA_EXPORT\s+)?(\w+)\s*(?::[^;{}]*)?\{)"));
    QStringList types;
    const QDir folder(QStringLiteral(KESTOVA_HEADERS_DIR));
    for (const QString& header : folder.entryList({QStringLiteral("*.h")})) {
        QRegularExpressionMatchIterator found =
            definition.globalMatch(TextOf(folder.filePath(header)));
        while (found.hasNext())
            types << found.next().captured(1);
    }
    return types;
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
    void everyTypeOfTheHeadersIsRecorded();
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
    const QString changes = Changes(BoundaryRecord::PathOf(kRecord), now);
    if (!changes.isEmpty())
        QFAIL(qPrintable(QStringLiteral("differences from %1:\n%2")
                             .arg(BoundaryRecord::PathOf(kRecord), changes)));
}

/// So that a new record or enumeration cannot be left out of the description.
void tst_BinaryInterface::everyTypeOfTheHeadersIsRecorded()
{
    const QString record = TextOf(BoundaryRecord::PathOf(kRecord));
    const QStringList types = DefinedTypes();
    QVERIFY(types.contains(QStringLiteral("CTimelineManager")));
    QVERIFY(types.contains(QStringLiteral("TLKeyMask")));
    QStringList missing;
    for (const QString& type : types) {
        const QRegularExpression whole(
            QStringLiteral("<(class-decl name='%1('|&lt;)[^>]* size-in-bits=|enum-decl name='%1')")
                .arg(type));
        if (!record.contains(whole))
            missing << type;
    }
    QVERIFY2(missing.isEmpty(),
             qPrintable(QStringLiteral("not described; tests/boundary/KestovaBoundary.cpp.in names "
                                       "what no operation does: ") +
                        missing.join(u' ')));
}

QTEST_MAIN(tst_BinaryInterface)
#include "tst_BinaryInterface.moc"
