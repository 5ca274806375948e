#include "HeaderCompiler.h"

#include <QFileInfo>

namespace {

const QString kWindowsCompiler = QStringLiteral("x86_64-w64-mingw32-g++-posix");

QStringList AsSystem(const QStringList& folders)
{
    QStringList arguments;
    for (const QString& folder : folders)
        arguments << QStringLiteral("-isystem") << folder;
    return arguments;
}

QString QtForWindows()
{
    return qEnvironmentVariable("KESTOVA_QT_WINDOWS",
                                QStringLiteral(KESTOVA_SOURCE_DIR "/build/qt5-mingw")) +
           QStringLiteral("/include");
}

/// Where the compiler that builds for Windows has the standard library's headers.
QStringList StandardLibraryForWindows()
{
    const ProgramResult result = RunProgram(
        kWindowsCompiler, {QStringLiteral("-E"), QStringLiteral("-v"), QStringLiteral("-x"),
                           QStringLiteral("c++"), QStringLiteral("-")});
    QStringList folders;
    for (const QString& line : result.output.split(u'\n')) {
        if (line.startsWith(u' ') && line.contains(QLatin1String("/c++")) &&
            QFileInfo(line.trimmed()).isDir())
            folders << line.trimmed();
    }
    return folders;
}

QStringList Strict()
{
    return {QStringLiteral("-std=c++17"), QStringLiteral("-Wall"),
            QStringLiteral("-Wextra"),    QStringLiteral("-Wpedantic"),
            QStringLiteral("-Wshadow"),   QStringLiteral("-Wconversion"),
            QStringLiteral("-Werror"),    QStringLiteral("-I" KESTOVA_HEADERS_DIR "/..")};
}

QStringList WithQtOnLinux()
{
    return Strict() + QStringList{QStringLiteral("-fPIC")} +
           AsSystem(QStringLiteral(KESTOVA_QT_INCLUDES).split(u':'));
}

} // namespace

HeaderCompiler GnuOnLinux()
{
    return {QStringLiteral("g++"), QStringLiteral("g++"), WithQtOnLinux(), {}};
}

HeaderCompiler ClangOnLinux()
{
    return {QStringLiteral("clang++"), QStringLiteral("clang++"), WithQtOnLinux(), {}};
}

HeaderCompiler ClangForWindows()
{
    HeaderCompiler compiler{
        QStringLiteral("clang++ for Windows"), QStringLiteral("clang++"), {}, {}, true};
    const QString qt = QtForWindows();
    const QStringList library = StandardLibraryForWindows();
    if (library.isEmpty())
        compiler.missing = kWindowsCompiler + QStringLiteral(" is not there");
    else if (!QFileInfo(qt).isDir())
        compiler.missing = qt + QStringLiteral(" is not there (KESTOVA_QT_WINDOWS names another)");
    compiler.arguments =
        Strict() +
        QStringList{QStringLiteral("--target=x86_64-pc-windows-gnu"),
                    QStringLiteral("-nostdinc++")} +
        AsSystem({qt, qt + QStringLiteral("/QtCore"), qt + QStringLiteral("/QtGui"),
                  qt + QStringLiteral("/QtWidgets")}) +
        AsSystem(library);
    return compiler;
}

HeaderCompiler ClangAsOnWindows()
{
    return {QStringLiteral("clang++ as on Windows"),
            QStringLiteral("clang++"),
            Strict() +
                QStringList{QStringLiteral("--target=x86_64-pc-windows-msvc"),
                            QStringLiteral("-fms-compatibility"), QStringLiteral("-fms-extensions"),
                            QStringLiteral("-fno-delayed-template-parsing"),
                            QStringLiteral("-fcxx-exceptions"), QStringLiteral("-fexceptions"),
                            QStringLiteral("-Wmicrosoft"), QStringLiteral("-nostdinc"),
                            QStringLiteral("-isystem"), QStringLiteral(KESTOVA_STAND_INS_DIR)},
            {}};
}

ProgramResult HeaderCompiler::Compile(const QString& source) const
{
    return RunProgram(program,
                      arguments + QStringList{QStringLiteral("-fsyntax-only"), QStringLiteral("-x"),
                                              QStringLiteral("c++"), QStringLiteral("-")},
                      source.toUtf8());
}

QString HeaderCompiler::Preprocess(const QString& source, const QStringList& definitions) const
{
    QStringList flags;
    for (const QString& definition : definitions)
        flags << QStringLiteral("-D") + definition;
    return RunProgram(program,
                      arguments + flags +
                          QStringList{QStringLiteral("-E"), QStringLiteral("-P"),
                                      QStringLiteral("-x"), QStringLiteral("c++"),
                                      QStringLiteral("-")},
                      source.toUtf8())
        .output;
}
