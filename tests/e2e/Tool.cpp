#include "Tool.h"

#include <QProcess>
#include <QtTest>

QString RunTool(const QStringList& words, bool* isDone)
{
    QProcess tool;
    tool.start(QStringLiteral("xdotool"), words);
    const bool hasEnded = tool.waitForFinished();
    const bool isGood =
        hasEnded && tool.exitStatus() == QProcess::NormalExit && tool.exitCode() == 0;
    if (isDone) {
        *isDone = isGood;
    } else if (!isGood) {
        const QString told =
            QStringLiteral("xdotool %1: %2")
                .arg(words.join(u' '), QString::fromLocal8Bit(tool.readAllStandardError()));
        QTest::qFail(qPrintable(told), __FILE__, __LINE__);
    }
    return QString::fromUtf8(tool.readAllStandardOutput()).trimmed();
}
