#include <QtTest>

#include "KestovaTimelineQU.h"

#ifdef Q_OS_WIN
#include <windows.h>
#endif

class tst_KestovaVersion : public QObject
{
    Q_OBJECT

private slots:
    void answersTheVersionOfTheHeaders();
    void isMadeOfThreeNumbers();
    void isWrittenIntoTheHistory();
    void standsInThePropertiesOfTheDll();
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

void tst_KestovaVersion::standsInThePropertiesOfTheDll()
{
#ifdef Q_OS_WIN
    const std::wstring dll =
        QCoreApplication::applicationDirPath().append("/KestovaTimelineQU.dll").toStdWString();
    std::vector<char> properties(GetFileVersionInfoSizeW(dll.c_str(), nullptr));
    QVERIFY(!properties.empty());
    QVERIFY(GetFileVersionInfoW(dll.c_str(), 0, static_cast<DWORD>(properties.size()),
                                properties.data()));
    void* found = nullptr;
    UINT size = 0;
    QVERIFY(VerQueryValueW(properties.data(), L"\\", &found, &size));
    const auto* const fixed = static_cast<const VS_FIXEDFILEINFO*>(found);
    QCOMPARE(int(HIWORD(fixed->dwProductVersionMS)), KESTOVA_VERSION_MAJOR);
    QCOMPARE(int(LOWORD(fixed->dwProductVersionMS)), KESTOVA_VERSION_MINOR);
    QCOMPARE(int(HIWORD(fixed->dwProductVersionLS)), KESTOVA_VERSION_PATCH);
#else
    QSKIP("only files of Windows have properties; tst_Installation looks at the name of this one");
#endif
}

QTEST_MAIN(tst_KestovaVersion)
#include "tst_KestovaVersion.moc"
