#include "HeaderCompiler.h"

#include <QDir>
#include <QRegularExpression>
#include <QThreadPool>
#include <QtTest>

#include <algorithm>
#include <vector>

namespace {

/// Something that one compiler takes and another refuses, or takes for something else.
struct Unportable
{
    const char* pattern;
    const char* reason;
};

constexpr Unportable kUnportable[] = {
    {R"(__attribute__|\[\[gnu::|\[\[clang::|__declspec)", "only KestovaExport.h marks anything"},
    {R"(__builtin_|__extension__|\b__?typeof|\b__int128\b|\b(__)?asm)", "an extension"},
    {R"(__PRETTY_FUNCTION__|__COUNTER__|__has_)", "a macro of some compilers"},
    {R"(#\s*(warning|include_next|import|ident))", "an extension of the preprocessor"},
    {R"(#\s*pragma\s+(?!once\b))", "every pragma but once is for some compilers"},
    {R"((?<!long )\blong\b(?!\s+long))", "has 4 bytes on one platform and 8 on another"},
    {R"(\b(and|or|not|xor|bitand|bitor|compl|and_eq|or_eq|xor_eq|not_eq)\b)",
     "not known as an operator everywhere"},
};

/// Includes of the public headers, in that order.
QString Including(const QStringList& headers)
{
    QString source;
    for (const QString& header : headers)
        source += QStringLiteral("#include <KestovaTimelineQU/%1>\n").arg(header);
    return source;
}

QString WithoutComments(QString text)
{
    static const QRegularExpression comment(QStringLiteral(R"(//[^\n]*|/\*.*?\*/)"),
                                            QRegularExpression::DotMatchesEverythingOption);
    return text.remove(comment);
}

QString TextOf(const QString& header)
{
    QFile file(QStringLiteral(KESTOVA_HEADERS_DIR "/") + header);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

/// The headers that a host includes, as they lie beside each other once installed.
class tst_PublicHeaders : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void compileAloneAndInAnyOrder_data();
    void compileAloneAndInAnyOrder();
    void areWrittenInPlainCpp_data();
    void areWrittenInPlainCpp();
    void theExportMarkIsTheOneOfThePlatform_data();
    void theExportMarkIsTheOneOfThePlatform();

private:
    struct Job
    {
        HeaderCompiler compiler;
        QString what;
        QString source;
        ProgramResult result = {-1, {}};
    };

    void AddJobs(const HeaderCompiler& compiler);

    QStringList m_headers;
    std::vector<Job> m_jobs;
};

void tst_PublicHeaders::AddJobs(const HeaderCompiler& compiler)
{
    if (!compiler.missing.isEmpty()) {
        m_jobs.push_back({compiler, QStringLiteral("everything"), {}});
        return;
    }
    for (const QString& header : qAsConst(m_headers))
        m_jobs.push_back({compiler, header, Including({header})});
    // Between them these two have every header before and after every other.
    QStringList reversed = m_headers;
    std::reverse(reversed.begin(), reversed.end());
    m_jobs.push_back({compiler, QStringLiteral("all"), Including(m_headers)});
    m_jobs.push_back({compiler, QStringLiteral("all, in reverse order"), Including(reversed)});
    if (compiler.hasWindowsH) {
        const QString windows = QStringLiteral("#include <windows.h>\n");
        m_jobs.push_back(
            {compiler, QStringLiteral("after windows.h"), windows + Including(m_headers)});
        m_jobs.push_back(
            {compiler, QStringLiteral("before windows.h"), Including(m_headers) + windows});
    }
}

/// Compiles everything, on as many processors as there are.
void tst_PublicHeaders::initTestCase()
{
    m_headers = QDir(QStringLiteral(KESTOVA_HEADERS_DIR)).entryList({QStringLiteral("*.h")});
    QVERIFY(m_headers.contains(QStringLiteral("KestovaTimelineQU.h")));
    for (const HeaderCompiler& compiler :
         {GnuOnLinux(), ClangOnLinux(), ClangForWindows(), ClangAsOnWindows()})
        AddJobs(compiler);
    QThreadPool pool;
    for (Job& job : m_jobs) {
        if (job.compiler.missing.isEmpty())
            pool.start([&job] { job.result = job.compiler.Compile(job.source); });
    }
    pool.waitForDone();
}

void tst_PublicHeaders::compileAloneAndInAnyOrder_data()
{
    QTest::addColumn<int>("job");
    for (std::size_t i = 0; i < m_jobs.size(); ++i) {
        const Job& job = m_jobs[i];
        QTest::addRow("%s: %s", qPrintable(job.compiler.name), qPrintable(job.what))
            << static_cast<int>(i);
    }
}

void tst_PublicHeaders::compileAloneAndInAnyOrder()
{
    QFETCH(int, job);
    const Job& done = m_jobs[static_cast<std::size_t>(job)];
    if (!done.compiler.missing.isEmpty())
        QSKIP(qPrintable(done.compiler.missing));
    if (done.result.code != 0)
        QFAIL(qPrintable(done.result.output));
}

void tst_PublicHeaders::areWrittenInPlainCpp_data()
{
    QTest::addColumn<QString>("header");
    for (const QString& header : qAsConst(m_headers))
        QTest::newRow(qPrintable(header)) << header;
}

void tst_PublicHeaders::areWrittenInPlainCpp()
{
    QFETCH(QString, header);
    const QString text = WithoutComments(TextOf(header));
    QVERIFY(text.contains(QLatin1String("#pragma once")));
    const bool marks = header == QLatin1String("KestovaExport.h");
    for (const Unportable& each : kUnportable) {
        if (marks && &each == &kUnportable[0])
            continue;
        const QRegularExpressionMatch match =
            QRegularExpression(QString::fromLatin1(each.pattern)).match(text);
        QVERIFY2(!match.hasMatch(),
                 qPrintable(QStringLiteral("%1: %2").arg(match.captured(0), each.reason)));
    }
}

void tst_PublicHeaders::theExportMarkIsTheOneOfThePlatform_data()
{
    QTest::addColumn<bool>("windows");
    QTest::addColumn<QStringList>("definitions");
    QTest::addColumn<QString>("mark");
    const QString building = QStringLiteral("KESTOVA_BUILDING");
    const QString objects = QStringLiteral("KESTOVA_STATIC");
    const QString visible = QStringLiteral("__attribute__((visibility(\"default\")))");
    QTest::newRow("elsewhere, host") << false << QStringList{} << visible;
    QTest::newRow("elsewhere, library") << false << QStringList{building} << visible;
    QTest::newRow("Windows, host")
        << true << QStringList{} << QStringLiteral("__declspec(dllimport)");
    QTest::newRow("Windows, library")
        << true << QStringList{building} << QStringLiteral("__declspec(dllexport)");
    QTest::newRow("Windows, the objects") << true << QStringList{objects} << QString();
}

void tst_PublicHeaders::theExportMarkIsTheOneOfThePlatform()
{
    QFETCH(bool, windows);
    QFETCH(QStringList, definitions);
    QFETCH(QString, mark);
    const HeaderCompiler compiler = windows ? ClangAsOnWindows() : GnuOnLinux();
    const QString text =
        compiler.Preprocess(Including({QStringLiteral("KestovaExport.h")}) +
                                QStringLiteral("class KESTOVA_EXPORT Something;\n"),
                            definitions);
    const QString line = text.trimmed().section(u'\n', -1);
    QCOMPARE(line.simplified(), QStringLiteral("class %1 Something;").arg(mark).simplified());
}

QTEST_MAIN(tst_PublicHeaders)
#include "tst_PublicHeaders.moc"
