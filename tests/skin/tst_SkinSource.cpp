#include "SkinFiles.h"

#include <QtTest>

using namespace KestovaTest;

/// The skin file as a source of single values.
class tst_SkinSource : public QObject
{
    Q_OBJECT

private slots:
    void everyTextIsReadFromTheFileAnew();
    void everyNumberIsReadFromTheFileAnew();
    void aFileThatIsGoneAnswersNothingAnyMore();

private:
    SkinDirectory m_files;
};

void tst_SkinSource::everyTextIsReadFromTheFileAnew()
{
    const SkinFile skin(m_files.Write("skin.ini", "[Look]\nTxtFace=Before\n"));
    std::wstring text;
    QVERIFY(skin.ReadText(L"Look", L"TxtFace", text));
    QCOMPARE(text, std::wstring(L"Before"));
    m_files.Write("skin.ini", "[Look]\nTxtFace=Behind\n");
    QVERIFY(skin.ReadText(L"Look", L"TxtFace", text));
    QCOMPARE(text, std::wstring(L"Behind"));
}

void tst_SkinSource::everyNumberIsReadFromTheFileAnew()
{
    const SkinFile skin(m_files.Write("skin.ini", "[Look]\nTxtSize=11\n"));
    int number = 0;
    QVERIFY(skin.ReadInt(L"Look", L"TxtSize", number));
    QCOMPARE(number, 11);
    m_files.Write("skin.ini", "[Look]\nTxtSize=22\n");
    QVERIFY(skin.ReadInt(L"Look", L"TxtSize", number));
    QCOMPARE(number, 22);
}

void tst_SkinSource::aFileThatIsGoneAnswersNothingAnyMore()
{
    const SkinFile skin(m_files.Write("skin.ini", "[Look]\nTxtFace=Before\nTxtSize=11\n"));
    std::wstring text;
    QVERIFY(skin.ReadText(L"Look", L"TxtFace", text));
    QVERIFY(QFile::remove(QString::fromStdWString(m_files.Path("skin.ini"))));
    int number = 7;
    QVERIFY(!skin.ReadText(L"Look", L"TxtFace", text));
    QVERIFY(!skin.ReadInt(L"Look", L"TxtSize", number));
    QCOMPARE(text, std::wstring(L"Before"));
    QCOMPARE(number, 7);
}

QTEST_MAIN(tst_SkinSource)
#include "tst_SkinSource.moc"
