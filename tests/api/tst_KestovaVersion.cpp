#include <QtTest>

#include "KestovaTimelineQU.h"

class tst_KestovaVersion : public QObject
{
    Q_OBJECT

private slots:
    void answersTheVersionOfTheHeaders();
    void isMadeOfThreeNumbers();
    void isWrittenIntoTheHistory();
};

void tst_KestovaVersion::answersTheVersionOfTheHeaders()
{
    QCOMPARE(KestovaTimelineVersion(), KESTOVA_VERSION);
}

void tst_KestovaVersion::isMadeOfThreeNumbers()
{
    QCOMPARE(QString(KESTOVA_VERSION), QString("%1.%2.%3")
                                           .arg(KESTOVA_VERSION_MAJOR)
                                           .arg(KESTOVA_VERSION_MINOR)
                                           .arg(KESTOVA_VERSION_PATCH));
}

void tst_KestovaVersion::isWrittenIntoTheHistory()
{
    QFile history(QStringLiteral(KESTOVA_SOURCE_DIR "/CHANGELOG.md"));
    QVERIFY(history.open(QIODevice::ReadOnly));
    QVERIFY(history.readAll().contains("\n## " KESTOVA_VERSION "\n"));
}

QTEST_MAIN(tst_KestovaVersion)
#include "tst_KestovaVersion.moc"
