#include "SkinFiles.h"
#include "skin/ProfileFile.h"

#include <QtTest>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

using namespace KestovaTest;
using VZ::CProfile;

namespace {

const QByteArray kProfile = "[Names]\ncaption=Речь 口型\n";

/// What is read from the file at @p path, which must exist; a word in brackets when nothing is.
QString CaptionIn(const std::wstring& path)
{
    CProfile profile;
    const unsigned int result = profile.Load(path, true);
    if (result != CProfile::kSuccess) {
        return result == CProfile::kFileNotFound ? QStringLiteral("(not found)")
                                                 : QStringLiteral("(failed)");
    }
    std::wstring caption;
    profile.GetString(L"Names", L"caption", caption);
    return QString::fromStdWString(caption);
}

QByteArray BytesIn(const FileHandle& file)
{
    QByteArray bytes(1000, '\0');
    bytes.resize(static_cast<int>(std::fread(bytes.data(), 1, 1000, file.get())));
    return bytes;
}

#ifdef Q_OS_WIN
/// Another program's hold on a file, which shares with others what @p sharing says.
class OtherHandle
{
public:
    OtherHandle(const std::wstring& path, DWORD access, DWORD sharing)
        : m_handle(CreateFileW(path.c_str(), access, sharing, nullptr, OPEN_EXISTING,
                               FILE_ATTRIBUTE_NORMAL, nullptr))
    {
    }
    ~OtherHandle() { CloseHandle(m_handle); }
    Q_DISABLE_COPY(OtherHandle)

    bool IsOpen() const { return m_handle != INVALID_HANDLE_VALUE; }

private:
    void* m_handle;
};
#define SKIP_ELSEWHERE() void(0)
#else
#define SKIP_ELSEWHERE() QSKIP("it is about Windows' own file functions")
#endif

} // namespace

/// The system's file functions, with what names and files may be there.
class tst_ProfileFile : public QObject
{
    Q_OBJECT

private slots:
    void aFileIsFoundAndReadByAnyName_data();
    void aFileIsFoundAndReadByAnyName();
    void aPathOfMoreThan200LettersIsFoundAndRead_data();
    void aPathOfMoreThan200LettersIsFoundAndRead();
    void whatIsNotThereIsNotFound();
    void aTrailingSeparatorIsNotPartOfAName_data();
    void aTrailingSeparatorIsNotPartOfAName();
    void aDirectoryIsFoundButNotOpened_data();
    void aDirectoryIsFoundButNotOpened();
    void aFileThatAnotherHoldsForItselfIsFoundButNotOpened();
    void aFileThatAnotherReadsIsOpened();
    void separatorsMayLeanEitherWay();
    void aWildcardFindsButDoesNotOpen();

private:
    SkinDirectory m_files;
};

void tst_ProfileFile::aFileIsFoundAndReadByAnyName_data()
{
    QTest::addColumn<QString>("directory");
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << "skins"
                           << "default.ini";
    QTest::newRow("blanks") << "my skins"
                            << "a skin .with dots.ini";
    QTest::newRow("Cyrillic") << "Скины"
                              << "тёмная кожа.ini";
    QTest::newRow("Chinese") << "皮肤"
                             << "时间线.ini";
    QTest::newRow("Cyrillic and Chinese") << "Скины 皮肤"
                                          << "кожа-时间线.ini";
    QTest::newRow("beyond the first plane")
        << QString::fromUtf8("\xF0\xA0\x80\x8B") << QString::fromUtf8("\xF0\x9F\x8E\xAC.ini");
}

void tst_ProfileFile::aFileIsFoundAndReadByAnyName()
{
    QFETCH(QString, directory);
    QFETCH(QString, name);
    m_files.MakeDirectory(directory);
    const std::wstring path = m_files.Write(directory + '/' + name, kProfile);
    QVERIFY(PathExists(path));
    const FileHandle file = OpenRegularFile(path);
    QVERIFY(file);
    QCOMPARE(BytesIn(file), kProfile);
    QCOMPARE(CaptionIn(path), QStringLiteral("Речь 口型"));
}

void tst_ProfileFile::aPathOfMoreThan200LettersIsFoundAndRead_data()
{
    QTest::addColumn<QChar>("letter");
    QTest::newRow("plain") << QChar('d');
    QTest::newRow("Cyrillic") << QChar(0x0436);
    QTest::newRow("Chinese") << QChar(0x76AE);
}

void tst_ProfileFile::aPathOfMoreThan200LettersIsFoundAndRead()
{
    QFETCH(QChar, letter);
    constexpr int kLetters = 240; // what Windows takes without a prefix ends at 259
    constexpr int kNameLetters = 70;
    const QString directory(kNameLetters, letter);
    const QString below = directory + '/' + directory;
    m_files.MakeDirectory(directory);
    m_files.MakeDirectory(below);
    const auto rest = kLetters - static_cast<int>(m_files.Path(below).size()) - 5;
    const std::wstring path = m_files.Write(below + '/' + QString(rest, letter) + ".ini", kProfile);
    QCOMPARE(static_cast<int>(path.size()), kLetters);
    QVERIFY(PathExists(path));
    QVERIFY(OpenRegularFile(path));
    QCOMPARE(CaptionIn(path), QStringLiteral("Речь 口型"));
}

void tst_ProfileFile::whatIsNotThereIsNotFound()
{
    const std::wstring path = m_files.Path("нет.ini");
    QVERIFY(!PathExists(path));
    QVERIFY(!OpenRegularFile(path));
    QCOMPARE(CaptionIn(path), QStringLiteral("(not found)"));
}

void tst_ProfileFile::aTrailingSeparatorIsNotPartOfAName_data()
{
    QTest::addColumn<QString>("separator");
    QTest::newRow("slash") << "/";
#ifdef Q_OS_WIN
    QTest::newRow("backslash") << "\\"; // elsewhere it may end a name
#endif
}

void tst_ProfileFile::aTrailingSeparatorIsNotPartOfAName()
{
    QFETCH(QString, separator);
    const std::wstring path = m_files.Write("skin.ini", kProfile) + separator.toStdWString();
    QVERIFY(!OpenRegularFile(path));
    QCOMPARE(CaptionIn(path), QStringLiteral("(failed)")); // looked up without it, opened with it
}

void tst_ProfileFile::aDirectoryIsFoundButNotOpened_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("separator");
    QTest::newRow("plain") << "folder.ini"
                           << "";
    QTest::newRow("Cyrillic") << "папка.ini"
                              << "";
    QTest::newRow("with a slash") << "folder-slash.ini"
                                  << "/";
#ifdef Q_OS_WIN
    QTest::newRow("with a backslash") << "folder-backslash.ini"
                                      << "\\";
#endif
}

void tst_ProfileFile::aDirectoryIsFoundButNotOpened()
{
    QFETCH(QString, name);
    QFETCH(QString, separator);
    const std::wstring directory = m_files.MakeDirectory(name);
    const std::wstring path = directory + separator.toStdWString();
    QVERIFY(PathExists(directory));
    QVERIFY(!OpenRegularFile(path));
    QCOMPARE(CaptionIn(path), QStringLiteral("(failed)"));
}

void tst_ProfileFile::aFileThatAnotherHoldsForItselfIsFoundButNotOpened()
{
    SKIP_ELSEWHERE();
#ifdef Q_OS_WIN
    const std::wstring path = m_files.Write("locked.ini", kProfile);
    {
        const OtherHandle other(path, GENERIC_READ | GENERIC_WRITE, 0);
        QVERIFY(other.IsOpen());
        QVERIFY(PathExists(path));
        QVERIFY(!OpenRegularFile(path));
        QCOMPARE(CaptionIn(path), QStringLiteral("(failed)"));
    }
    QCOMPARE(CaptionIn(path), QStringLiteral("Речь 口型"));
#endif
}

void tst_ProfileFile::aFileThatAnotherReadsIsOpened()
{
    SKIP_ELSEWHERE();
#ifdef Q_OS_WIN
    const std::wstring path = m_files.Write("read.ini", kProfile);
    const OtherHandle other(path, GENERIC_READ, FILE_SHARE_READ);
    QVERIFY(other.IsOpen());
    QCOMPARE(CaptionIn(path), QStringLiteral("Речь 口型"));
#endif
}

void tst_ProfileFile::separatorsMayLeanEitherWay()
{
    SKIP_ELSEWHERE();
    const std::wstring path = m_files.Write("either.ini", kProfile);
    QCOMPARE(CaptionIn(QDir::toNativeSeparators(QString::fromStdWString(path)).toStdWString()),
             QStringLiteral("Речь 口型"));
    QCOMPARE(CaptionIn(path), QStringLiteral("Речь 口型"));
}

void tst_ProfileFile::aWildcardFindsButDoesNotOpen()
{
    SKIP_ELSEWHERE();
    m_files.Write("one.ini", kProfile);
    const std::wstring path = m_files.Path("o*.ini");
    QVERIFY(PathExists(path));
    QVERIFY(!OpenRegularFile(path));
    QCOMPARE(CaptionIn(path), QStringLiteral("(failed)"));
}

QTEST_MAIN(tst_ProfileFile)
#include "tst_ProfileFile.moc"
