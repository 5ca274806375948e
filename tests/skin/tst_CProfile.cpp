#include "SkinFiles.h"
#include "skin/CProfile.h"

#include <QtTest>

#include <locale>
#include <type_traits>

using KestovaTest::SkinDirectory;
using VZ::CProfile;

static_assert(std::has_virtual_destructor_v<CProfile>);

namespace {

constexpr unsigned int kSuccess = 0;
constexpr unsigned int kFailure = 0x80000000u;
constexpr unsigned int kFileNotFound = 0x80000007u;

/// Groups digits by three with a comma, which a stream that follows it would read as part of a
/// number.
class GroupedDigits : public std::numpunct<wchar_t>
{
    wchar_t do_thousands_sep() const override { return L','; }
    std::string do_grouping() const override { return "\3"; }
};

} // namespace

class tst_CProfile : public QObject
{
    Q_OBJECT

private slots:
    void answersNothingBeforeALoad();
    void loadAnswersNotFoundForAPathThatMustExist();
    void loadAnswersFailureForAMissingFileThatNeedNotExist();
    void loadAnswersNotFoundForAnEmptyPath();
    void aPathThatIsNotFoundLeavesTheLoadedProfile();
    void aFailedLoadDropsTheLoadedProfile();
    void aSecondLoadReplacesTheFirst();
    void loadsAFileWhetherItMustExistOrNot();
    void loadsAFileWithANonAsciiName();
    void pathEndingInASeparatorIsLookedUpWithoutItButOpenedWithIt_data();
    void pathEndingInASeparatorIsLookedUpWithoutItButOpenedWithIt();
    void aPathWithItsBackslashIsTheFileThatIsOpened();
    void onlyOneTrailingSeparatorIsRemoved();
    void aDirectoryFailsAsAFileError_data();
    void aDirectoryFailsAsAFileError();
    void aFileThatEndsBeforeItsSizeFailsAsAFileError();
    void aFileThatMayNotBeOpenedFailsAsAFileError();

    void stripsOnePairOfQuotesAroundAValue_data();
    void stripsOnePairOfQuotesAroundAValue();
    void namesAreComparedWithoutRegardToAsciiCase();
    void lettersBeyondAsciiKeepTheirCase();
    void aMissingSectionOrKeyFailsAndLeavesTheValue();
    void getIntReadsTheNumberATextBeginsWith_data();
    void getIntReadsTheNumberATextBeginsWith();
    void getIntOfAMissingKeyGivesTheDefaultAndAFailure();
    void getIntReadsInTheClassicLocale();

    void anEmptyFileLoadsAndHoldsNothing();
    void aFileWithOnlyAByteOrderMarkAndCommentsLoadsAndYieldsNoKeys();
    void aByteOrderMarkIsSkipped();
    void commentLinesAreIgnored();
    void blanksAroundNamesAndValuesAreTrimmed();
    void theLaterOfRepeatedKeysCounts();
    void aSectionOpenedTwiceIsOneSection();
    void valuesAreSingleLines();
    void linesMayEndInAnyWay();
    void keysBeforeAnySectionBelongToTheNamelessOne();
    void textIsDecodedAsUtf8();
    void bytesThatAreNotUtf8FailAsAParseError_data();
    void bytesThatAreNotUtf8FailAsAParseError();
    void theTextEndsAtAZeroByte();
    void aBadByteBehindAZeroByteStillFails();
    void aVeryLongLineIsReadWhole();

private:
    CProfile& Loaded(CProfile& profile, const QByteArray& text)
    {
        if (profile.Load(m_files.Write("profile.ini", text), true) != kSuccess)
            QTest::qFail("the profile does not load", __FILE__, __LINE__);
        return profile;
    }
    QString Text(const CProfile& profile, const wchar_t* section, const wchar_t* key)
    {
        std::wstring value = L"(none)";
        profile.GetString(section, key, value);
        return QString::fromStdWString(value);
    }

    SkinDirectory m_files;
};

void tst_CProfile::answersNothingBeforeALoad()
{
    const CProfile profile;
    std::wstring text = L"kept";
    int number = 0;
    QCOMPARE(profile.GetString(L"a", L"b", text), kFailure);
    QCOMPARE(text, std::wstring(L"kept"));
    QCOMPARE(profile.GetInt(L"a", L"b", 7, number), kFailure);
    QCOMPARE(number, 7);
}

void tst_CProfile::loadAnswersNotFoundForAPathThatMustExist()
{
    CProfile profile;
    QCOMPARE(profile.Load(m_files.Path("nowhere.ini"), true), kFileNotFound);
}

void tst_CProfile::loadAnswersFailureForAMissingFileThatNeedNotExist()
{
    CProfile profile;
    QCOMPARE(profile.Load(m_files.Path("nowhere.ini"), false), kFailure);
    QCOMPARE(profile.LoadResult(), -3);
}

void tst_CProfile::loadAnswersNotFoundForAnEmptyPath()
{
    CProfile profile;
    QCOMPARE(profile.Load(L"", true), kFileNotFound);
    QCOMPARE(profile.Load(L"", false), kFailure);
}

void tst_CProfile::aPathThatIsNotFoundLeavesTheLoadedProfile()
{
    CProfile profile;
    Loaded(profile, "[a]\nb=1\n");
    QCOMPARE(profile.Load(m_files.Path("nowhere.ini"), true), kFileNotFound);
    QCOMPARE(Text(profile, L"a", L"b"), QString("1"));
    QVERIFY(profile.LoadResult() >= 0);
}

void tst_CProfile::aFailedLoadDropsTheLoadedProfile()
{
    CProfile profile;
    Loaded(profile, "[a]\nb=1\n");
    QCOMPARE(profile.Load(m_files.Write("bad.ini", "\xFF"), true), kFailure);
    std::wstring text;
    QCOMPARE(profile.GetString(L"a", L"b", text), kFailure);
    int number = 0;
    QCOMPARE(profile.GetInt(L"a", L"b", 5, number), kFailure);
    QCOMPARE(number, 5);
}

void tst_CProfile::aSecondLoadReplacesTheFirst()
{
    CProfile profile;
    Loaded(profile, "[a]\nb=1\nc=2\n");
    Loaded(profile, "[a]\nb=3\n");
    QCOMPARE(Text(profile, L"a", L"b"), QString("3"));
    QCOMPARE(Text(profile, L"a", L"c"), QString("(none)"));
}

void tst_CProfile::loadsAFileWhetherItMustExistOrNot()
{
    const std::wstring path = m_files.Write("plain.ini", "[a]\nb=1\n");
    for (const bool mustExist : {false, true}) {
        CProfile profile;
        QCOMPARE(profile.Load(path, mustExist), kSuccess);
        QCOMPARE(profile.LoadResult(), 0);
        QCOMPARE(Text(profile, L"a", L"b"), QString("1"));
    }
}

void tst_CProfile::loadsAFileWithANonAsciiName()
{
    const QString name = QStringLiteral("h\u00E9llo \u4E16\U0001F600.ini");
    CProfile profile;
    QCOMPARE(profile.Load(m_files.Write(name, "[a]\nb=1\n"), true), kSuccess);
    QCOMPARE(Text(profile, L"a", L"b"), QString("1"));
}

void tst_CProfile::pathEndingInASeparatorIsLookedUpWithoutItButOpenedWithIt_data()
{
    QTest::addColumn<QString>("separator");
    QTest::newRow("backslash") << "\\";
    QTest::newRow("slash") << "/";
}

void tst_CProfile::pathEndingInASeparatorIsLookedUpWithoutItButOpenedWithIt()
{
    QFETCH(QString, separator);
    const std::wstring path = m_files.Write("found.ini", "[a]\nb=1\n") + separator.toStdWString();
    CProfile profile;
    // Found, or the answer would be another; not opened, because no file has that name.
    QCOMPARE(profile.Load(path, true), kFailure);
    QCOMPARE(profile.LoadResult(), -3);
}

void tst_CProfile::aPathWithItsBackslashIsTheFileThatIsOpened()
{
#ifdef Q_OS_WIN
    QSKIP("a file name cannot end in a backslash here");
#endif
    const std::wstring path = m_files.Write("twin.ini", "[a]\nb=without\n") + L"\\";
    m_files.Write("twin.ini\\", "[a]\nb=with\n");
    CProfile profile;
    QCOMPARE(profile.Load(path, true), kSuccess);
    QCOMPARE(Text(profile, L"a", L"b"), QString("with"));
}

void tst_CProfile::onlyOneTrailingSeparatorIsRemoved()
{
    CProfile profile;
    const std::wstring path = m_files.Write("once.ini", "[a]\nb=1\n");
    QCOMPARE(profile.Load(path + L"\\\\", true), kFileNotFound);
    QCOMPARE(profile.Load(path + L"//", true), kFileNotFound);
}

void tst_CProfile::aDirectoryFailsAsAFileError_data()
{
    QTest::addColumn<QString>("path");
    const QString path = QString::fromStdWString(m_files.MakeDirectory("directory.ini"));
    QTest::newRow("directory") << path;
    QTest::newRow("directory with a slash") << path + "/";
}

void tst_CProfile::aDirectoryFailsAsAFileError()
{
    QFETCH(QString, path);
    CProfile profile;
    QCOMPARE(profile.Load(path.toStdWString(), true), kFailure);
    QCOMPARE(profile.LoadResult(), -3);
}

void tst_CProfile::aFileThatEndsBeforeItsSizeFailsAsAFileError()
{
    // The kernel gives this file a size of one page and only a few bytes to read.
    const QString shortFile = QStringLiteral("/sys/class/net/lo/mtu");
    if (QFileInfo(shortFile).size() <= 0)
        QSKIP("no file here whose size is more than it holds");
    CProfile profile;
    QCOMPARE(profile.Load(shortFile.toStdWString(), true), kFailure);
    QCOMPARE(profile.LoadResult(), -3);
}

void tst_CProfile::aFileThatMayNotBeOpenedFailsAsAFileError()
{
#ifdef Q_OS_WIN
    QSKIP("reading cannot be forbidden by a permission bit here");
#else
    const std::wstring path = m_files.Write("secret.ini", "[a]\nb=1\n");
    QVERIFY(QFile::setPermissions(QString::fromStdWString(path), QFileDevice::WriteOwner));
    const KestovaTest::OrdinaryUser notTheSuperuser(m_files);
    CProfile profile;
    QCOMPARE(profile.Load(path, true), kFailure);
    QCOMPARE(profile.LoadResult(), -3);
#endif
}

void tst_CProfile::stripsOnePairOfQuotesAroundAValue_data()
{
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("read");
    QTest::newRow("a font name in quotes reads as the bare name") << "\"Segoe Sans\""
                                                                  << "Segoe Sans";
    QTest::newRow("a lone quote stays as it is") << "\""
                                                 << "\"";
    QTest::newRow("two quotes are empty") << "\"\""
                                          << "";
    QTest::newRow("three quotes leave one") << "\"\"\""
                                            << "\"";
    QTest::newRow("only the outer pair goes") << "\"\"a\"\""
                                              << "\"a\"";
    QTest::newRow("blanks inside stay") << "\" a \""
                                        << " a ";
    QTest::newRow("quote in front only") << "\"a"
                                         << "\"a";
    QTest::newRow("quote behind only") << "a\""
                                       << "a\"";
    QTest::newRow("single quotes stay") << "'a'"
                                        << "'a'";
    QTest::newRow("no quotes") << "a"
                               << "a";
    QTest::newRow("nothing") << ""
                             << "";
}

void tst_CProfile::stripsOnePairOfQuotesAroundAValue()
{
    QFETCH(QString, written);
    QFETCH(QString, read);
    CProfile profile;
    Loaded(profile, "[a]\nb=" + written.toUtf8() + "\n");
    std::wstring text = L"(none)";
    QCOMPARE(profile.GetString(L"a", L"b", text), kSuccess);
    QCOMPARE(QString::fromStdWString(text), read);
}

void tst_CProfile::namesAreComparedWithoutRegardToAsciiCase()
{
    CProfile profile;
    Loaded(profile, "[TickTrack]\nTxtColor=1\n[ticktrack]\nAZ@[`{=2\n");
    QCOMPARE(Text(profile, L"TickTrack", L"TxtColor"), QString("1"));
    QCOMPARE(Text(profile, L"TickTrack", L"TXTCOLOR"), QString("1"));
    QCOMPARE(Text(profile, L"TICKTRACK", L"txtcolor"), QString("1"));
    QCOMPARE(Text(profile, L"ticktrack", L"az@[`{"), QString("2"));
    QCOMPARE(Text(profile, L"ticktrack", L"az`{@["), QString("(none)"));
    QCOMPARE(Text(profile, L"TickTrack", L"TxtColo"), QString("(none)"));
    QCOMPARE(Text(profile, L"TickTrack", L"TxtColors"), QString("(none)"));
}

void tst_CProfile::lettersBeyondAsciiKeepTheirCase()
{
    CProfile profile;
    Loaded(profile, "[a]\n\xC3\x84=capital\n\xC3\xA4=small\n");
    QCOMPARE(Text(profile, L"a", L"\u00C4"), QString("capital"));
    QCOMPARE(Text(profile, L"a", L"\u00E4"), QString("small"));
}

void tst_CProfile::aMissingSectionOrKeyFailsAndLeavesTheValue()
{
    CProfile profile;
    Loaded(profile, "[a]\nb=1\n");
    std::wstring text = L"kept";
    QCOMPARE(profile.GetString(L"other", L"b", text), kFailure);
    QCOMPARE(profile.GetString(L"a", L"other", text), kFailure);
    QCOMPARE(text, std::wstring(L"kept"));
}

void tst_CProfile::getIntReadsTheNumberATextBeginsWith_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("number");
    QTest::newRow("12px yields 12") << QByteArray("12px") << 12;
    QTest::newRow("px yields 0") << QByteArray("px") << 0;
    QTest::newRow("plain") << QByteArray("42") << 42;
    QTest::newRow("negative") << QByteArray("-42") << -42;
    QTest::newRow("explicitly positive") << QByteArray("+42") << 42;
    QTest::newRow("leading blanks inside quotes") << QByteArray("\" \t 42\"") << 42;
    QTest::newRow("blanks alone") << QByteArray("\"  \"") << 0;
    QTest::newRow("empty") << QByteArray("") << 0;
    QTest::newRow("sign alone") << QByteArray("-") << 0;
    QTest::newRow("sign apart") << QByteArray("- 4") << 0;
    QTest::newRow("quoted") << QByteArray("\"42\"") << 42;
    QTest::newRow("leading zeros are not octal") << QByteArray("0012") << 12;
    QTest::newRow("not hexadecimal") << QByteArray("0x10") << 0;
    QTest::newRow("fraction cut") << QByteArray("1.9") << 1;
    QTest::newRow("up to a comma") << QByteArray("1,000") << 1;
    QTest::newRow("up to a blank") << QByteArray("1 2") << 1;
    QTest::newRow("digits of other scripts") << QByteArray("\xD9\xA3") << 0;
    QTest::newRow("largest") << QByteArray("2147483647") << 2147483647;
    QTest::newRow("smallest") << QByteArray("-2147483648") << -2147483647 - 1;
    QTest::newRow("too large") << QByteArray("2147483648") << 2147483647;
    QTest::newRow("much too large") << QByteArray("99999999999999999999999") << 2147483647;
    QTest::newRow("too small") << QByteArray("-99999999999") << -2147483647 - 1;
}

void tst_CProfile::getIntReadsTheNumberATextBeginsWith()
{
    QFETCH(QByteArray, text);
    QFETCH(int, number);
    CProfile profile;
    Loaded(profile, "[a]\nb=" + text + "\n");
    int read = -1;
    QCOMPARE(profile.GetInt(L"a", L"b", 77, read), kSuccess);
    QCOMPARE(read, number);
}

void tst_CProfile::getIntOfAMissingKeyGivesTheDefaultAndAFailure()
{
    CProfile profile;
    Loaded(profile, "[a]\nb=1\n");
    int number = -1;
    QCOMPARE(profile.GetInt(L"a", L"missing", 77, number), kFailure);
    QCOMPARE(number, 77);
}

void tst_CProfile::getIntReadsInTheClassicLocale()
{
    CProfile profile;
    Loaded(profile, "[a]\nb=1,000\n");
    const std::locale before =
        std::locale::global(std::locale(std::locale::classic(), new GroupedDigits));
    int number = -1;
    profile.GetInt(L"a", L"b", 0, number);
    std::locale::global(before);
    QCOMPARE(number, 1);
}

void tst_CProfile::anEmptyFileLoadsAndHoldsNothing()
{
    CProfile profile;
    QCOMPARE(profile.Load(m_files.Write("empty.ini", ""), true), kSuccess);
    QCOMPARE(profile.LoadResult(), 0);
    std::wstring text;
    QCOMPARE(profile.GetString(L"", L"", text), kFailure);
}

void tst_CProfile::aFileWithOnlyAByteOrderMarkAndCommentsLoadsAndYieldsNoKeys()
{
    for (const QByteArray& text :
         {QByteArray("\xEF\xBB\xBF"), QByteArray("\xEF\xBB\xBF; one=1\n# two=2\n\n;three=3")}) {
        CProfile profile;
        QCOMPARE(profile.Load(m_files.Write("comments.ini", text), true), kSuccess);
        for (const wchar_t* key : {L"one", L"; one", L"two", L"three", L""})
            QCOMPARE(Text(profile, L"", key), QString("(none)"));
    }
}

void tst_CProfile::aByteOrderMarkIsSkipped()
{
    CProfile profile;
    Loaded(profile, "\xEF\xBB\xBF[a]\nb=1\n");
    QCOMPARE(Text(profile, L"a", L"b"), QString("1"));
}

void tst_CProfile::commentLinesAreIgnored()
{
    CProfile profile;
    Loaded(profile,
           "; top\n# top too\n[a]\n; b=comment\nb=1\n#b=comment\n  ; c=comment\nd=2;kept\n");
    QCOMPARE(Text(profile, L"a", L"b"), QString("1"));
    QCOMPARE(Text(profile, L"a", L"c"), QString("(none)"));
    QCOMPARE(Text(profile, L"a", L"d"), QString("2;kept"));
}

void tst_CProfile::blanksAroundNamesAndValuesAreTrimmed()
{
    CProfile profile;
    Loaded(profile, "  [  a name ] \n\t b key \t=\t a value  \n");
    QCOMPARE(Text(profile, L"a name", L"b key"), QString("a value"));
}

void tst_CProfile::theLaterOfRepeatedKeysCounts()
{
    CProfile profile;
    Loaded(profile, "[a]\nb=1\nB=2\n[c]\nb=3\n[A]\nb=4\n");
    QCOMPARE(Text(profile, L"a", L"b"), QString("4"));
    QCOMPARE(Text(profile, L"c", L"b"), QString("3"));
}

void tst_CProfile::aSectionOpenedTwiceIsOneSection()
{
    CProfile profile;
    Loaded(profile, "[a]\nb=1\n[other]\nb=2\n[a]\nc=3\n");
    QCOMPARE(Text(profile, L"a", L"b"), QString("1"));
    QCOMPARE(Text(profile, L"a", L"c"), QString("3"));
}

void tst_CProfile::valuesAreSingleLines()
{
    CProfile profile;
    Loaded(profile, "[a]\nb=<<<END\nc=1\nEND\nd=2\n");
    QCOMPARE(Text(profile, L"a", L"b"), QString("<<<END"));
    QCOMPARE(Text(profile, L"a", L"c"), QString("1"));
    QCOMPARE(Text(profile, L"a", L"d"), QString("2"));
}

void tst_CProfile::linesMayEndInAnyWay()
{
    for (const QByteArray& end : {QByteArray("\n"), QByteArray("\r\n"), QByteArray("\r")}) {
        CProfile profile;
        Loaded(profile, "[a]" + end + "b=1" + end + "b2=" + end + "c=2");
        QCOMPARE(Text(profile, L"a", L"b"), QString("1"));
        QCOMPARE(Text(profile, L"a", L"b2"), QString(""));
        QCOMPARE(Text(profile, L"a", L"c"), QString("2"));
    }
}

void tst_CProfile::keysBeforeAnySectionBelongToTheNamelessOne()
{
    CProfile profile;
    Loaded(profile, "b=1\n[a]\nc=2\n");
    QCOMPARE(Text(profile, L"", L"b"), QString("1"));
    QCOMPARE(Text(profile, L"a", L"b"), QString("(none)"));
}

void tst_CProfile::textIsDecodedAsUtf8()
{
    CProfile profile;
    Loaded(profile, "[\xE4\xB8\x96]\nb=\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\n");
    QCOMPARE(Text(profile, L"\u4E16", L"b"), QStringLiteral("\u00E9\u20AC\U0001F600"));
}

void tst_CProfile::bytesThatAreNotUtf8FailAsAParseError_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("overlong") << QByteArray("\xC0\xAF");
    QTest::newRow("surrogate") << QByteArray("\xED\xA0\x80");
    QTest::newRow("cut sequence") << QByteArray("\xE2\x82");
    QTest::newRow("0xFF") << QByteArray("\xFF");
    QTest::newRow("Latin-1") << QByteArray("caf\xE9");
}

void tst_CProfile::bytesThatAreNotUtf8FailAsAParseError()
{
    QFETCH(QByteArray, bytes);
    for (const QByteArray& text :
         {"[a]\nb=" + bytes, "; comment " + bytes, "\xEF\xBB\xBF" + bytes}) {
        CProfile profile;
        QCOMPARE(profile.Load(m_files.Write("bad.ini", text), true), kFailure);
        QCOMPARE(profile.LoadResult(), -1);
    }
}

void tst_CProfile::theTextEndsAtAZeroByte()
{
    CProfile profile;
    Loaded(profile, QByteArray("[a]\nb=1\0 2\nc=3\n", 14));
    QCOMPARE(Text(profile, L"a", L"b"), QString("1"));
    QCOMPARE(Text(profile, L"a", L"c"), QString("(none)"));
    Loaded(profile, QByteArray("\0[a]\nb=1\n", 9));
    QCOMPARE(Text(profile, L"a", L"b"), QString("(none)"));
}

void tst_CProfile::aBadByteBehindAZeroByteStillFails()
{
    CProfile profile;
    QCOMPARE(profile.Load(m_files.Write("zero.ini", QByteArray("[a]\nb=1\n\0\xFF", 10)), true),
             kFailure);
    QCOMPARE(profile.LoadResult(), -1);
}

void tst_CProfile::aVeryLongLineIsReadWhole()
{
    const QByteArray line(3'000'000, 'x');
    CProfile profile;
    Loaded(profile, "[a]\nb=" + line + "\n" + line + "=1\n");
    QCOMPARE(Text(profile, L"a", L"b"), QString::fromLatin1(line));
    std::wstring text;
    QCOMPARE(profile.GetString(L"a", QString::fromLatin1(line).toStdWString(), text), kSuccess);
}

QTEST_MAIN(tst_CProfile)
#include "tst_CProfile.moc"
