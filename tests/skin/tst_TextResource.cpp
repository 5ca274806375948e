#include "skin/TextResource.h"

#include <QDir>
#include <QTemporaryFile>
#include <QtTest>

class tst_TextResource : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void textIsReadUpToTheFirstZeroByte_data();
    void textIsReadUpToTheFirstZeroByte();
    void whatCannotBeOpenedReadsAsEmptyText();
    void theStyleSheetOfTheContextMenuComesFromTheHost();
};

void tst_TextResource::initTestCase()
{
    Q_CLEANUP_RESOURCE(contextmenu); // until a test plays the host
}

void tst_TextResource::textIsReadUpToTheFirstZeroByte_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("whole") << QByteArray("a { }\n") << "a { }\n";
    QTest::newRow("empty") << QByteArray() << "";
    QTest::newRow("zero byte inside") << QByteArray("ab\0cd", 5) << "ab";
    QTest::newRow("zero byte first") << QByteArray("\0cd", 3) << "";
    QTest::newRow("UTF-8") << QByteArray("\xC3\xA9") << QStringLiteral("\u00E9");
}

void tst_TextResource::textIsReadUpToTheFirstZeroByte()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    QTemporaryFile file;
    QVERIFY(file.open());
    file.write(bytes);
    file.close();
    QCOMPARE(ReadTextResource(file.fileName()), text);
}

void tst_TextResource::whatCannotBeOpenedReadsAsEmptyText()
{
    QCOMPARE(ReadTextResource(QStringLiteral("/nowhere/at/all")), QString());
    QCOMPARE(ReadTextResource(QDir::tempPath()), QString());
}

void tst_TextResource::theStyleSheetOfTheContextMenuComesFromTheHost()
{
    const QString path = QStringLiteral(":/ui/contextmenu.css");
    QCOMPARE(ReadTextResource(path), QString());
    Q_INIT_RESOURCE(contextmenu);
    QCOMPARE(ReadTextResource(path), QString("QMenu { color: #dee3e9; }\n"));
    Q_CLEANUP_RESOURCE(contextmenu);
    QCOMPARE(ReadTextResource(path), QString());
}

QTEST_MAIN(tst_TextResource)
#include "tst_TextResource.moc"
