// Says of a skin file what is wrong with it: kestova-skin-check FILE
#include "SkinCheck.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringList>

#include <cstdio>

namespace {

enum ExitCode
{
    kGood = 0,
    kErrors = 1,
    kUnreadable = 2
};

constexpr auto kUsage =
    "Usage: kestova-skin-check FILE\n"
    "\n"
    "Says of a skin file of the timeline which sections and keys are missing, unreadable, out of\n"
    "range or not used: a line for each, errors first, then the lines marked as warnings.\n"
    "Ends with 0 when there are no errors, 1 when there are, 2 when the file cannot be read.\n";

void Print(std::FILE* stream, const QString& text)
{
    std::fprintf(stream, "%s\n", qUtf8Printable(text));
}

QString Counted(int count, const QString& word)
{
    return QStringLiteral("%1 %2%3").arg(count).arg(word, count == 1 ? "" : "s");
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments == QStringList("--help")) {
        std::fputs(kUsage, stdout);
        return kGood;
    }
    if (arguments.size() != 1 || arguments.first().startsWith('-')) {
        std::fputs(kUsage, stderr);
        return kUnreadable;
    }
    const QString path = arguments.first();
    SkinLines skin;
    QString trouble;
    if (!ReadSkin(path, skin, trouble)) {
        Print(stderr, QStringLiteral("%1: %2").arg(path, trouble));
        return kUnreadable;
    }

    int counts[2] = {};
    for (const SkinFault& fault : CheckSkin(skin)) {
        Print(stdout, fault.Text(path));
        ++counts[fault.weight];
    }
    Print(stdout, QStringLiteral("%1: %2, %3")
                      .arg(path, Counted(counts[SkinFault::Error], "error"),
                           Counted(counts[SkinFault::Warning], "warning")));
    return counts[SkinFault::Error] == 0 ? kGood : kErrors;
}
