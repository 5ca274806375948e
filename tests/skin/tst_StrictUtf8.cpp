#include "skin/StrictUtf8.h"

#include <QtTest>

#include <string>

namespace {

/// Decodes as the parser does: asks for the size, then for the text. False when either refuses.
template <typename Unit>
bool Decode(const QByteArray& bytes, std::basic_string<Unit>& text)
{
    const StrictUtf8<Unit> decoder(true);
    const auto length = static_cast<std::size_t>(bytes.size());
    const std::size_t size = decoder.SizeFromStore(bytes.constData(), length);
    if (size == static_cast<std::size_t>(-1))
        return false;
    text.assign(size, Unit());
    return decoder.ConvertFromStore(bytes.constData(), length, text.data(), size);
}

} // namespace

class tst_StrictUtf8 : public QObject
{
    Q_OBJECT

private slots:
    void decodesEveryCodePointIntoUtf32();
    void decodesEveryCodePointIntoUtf16WithSurrogates();
    void refusesWhatIsNotWellFormed_data();
    void refusesWhatIsNotWellFormed();
    void refusesABadByteAfterGoodText();
    void decodesZeroBytesLikeAnyOther();
    void refusesAnOutputThatIsTooSmall();
};

/// All code points but the surrogates, as UCS-4 and, encoded by Qt, as UTF-8 and UTF-16.
static std::u32string AllCodePoints()
{
    std::u32string all;
    for (char32_t codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
        if (codePoint < 0xD800 || codePoint > 0xDFFF)
            all.push_back(codePoint);
    }
    return all;
}

void tst_StrictUtf8::decodesEveryCodePointIntoUtf32()
{
    const std::u32string all = AllCodePoints();
    const QByteArray utf8 = QString::fromUcs4(all.data(), static_cast<int>(all.size())).toUtf8();
    std::u32string decoded;
    QVERIFY(Decode(utf8, decoded));
    QVERIFY(decoded == all);
}

void tst_StrictUtf8::decodesEveryCodePointIntoUtf16WithSurrogates()
{
    const std::u32string all = AllCodePoints();
    const QString text = QString::fromUcs4(all.data(), static_cast<int>(all.size()));
    std::u16string decoded;
    QVERIFY(Decode(text.toUtf8(), decoded));
    QVERIFY(decoded == text.toStdU16String());
}

void tst_StrictUtf8::refusesWhatIsNotWellFormed_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("stray continuation byte") << QByteArray("\x80");
    QTest::newRow("0xFF") << QByteArray("\xFF");
    QTest::newRow("0xFE") << QByteArray("\xFE");
    QTest::newRow("lead of a five byte form") << QByteArray("\xF8\x88\x80\x80\x80");
    QTest::newRow("two byte form of zero") << QByteArray("\xC0\x80");
    QTest::newRow("two byte form of U+007F") << QByteArray("\xC1\xBF");
    QTest::newRow("three byte form of U+07FF") << QByteArray("\xE0\x9F\xBF");
    QTest::newRow("four byte form of U+FFFF") << QByteArray("\xF0\x8F\xBF\xBF");
    QTest::newRow("first surrogate") << QByteArray("\xED\xA0\x80");
    QTest::newRow("last surrogate") << QByteArray("\xED\xBF\xBF");
    QTest::newRow("surrogate pair") << QByteArray("\xED\xA0\xBD\xED\xB8\x80");
    QTest::newRow("beyond U+10FFFF") << QByteArray("\xF4\x90\x80\x80");
    QTest::newRow("far beyond U+10FFFF") << QByteArray("\xF7\xBF\xBF\xBF");
    QTest::newRow("two bytes cut to one") << QByteArray("\xC3");
    QTest::newRow("three bytes cut to one") << QByteArray("\xE2");
    QTest::newRow("three bytes cut to two") << QByteArray("\xE2\x82");
    QTest::newRow("four bytes cut to three") << QByteArray("\xF0\x9F\x98");
    QTest::newRow("continued by a letter") << QByteArray("\xC3(");
    QTest::newRow("last byte is a letter") << QByteArray("\xE2\x82(");
    QTest::newRow("continued by a lead") << QByteArray("\xC3\xC3\xA9");
}

void tst_StrictUtf8::refusesWhatIsNotWellFormed()
{
    QFETCH(QByteArray, bytes);
    std::u32string utf32;
    std::u16string utf16;
    QVERIFY(!Decode(bytes, utf32));
    QVERIFY(!Decode(bytes, utf16));
    char16_t room[16];
    QVERIFY(!StrictUtf8<char16_t>(true).ConvertFromStore(
        bytes.constData(), static_cast<std::size_t>(bytes.size()), room, 16));
}

void tst_StrictUtf8::refusesABadByteAfterGoodText()
{
    std::u32string decoded;
    QVERIFY(Decode(QByteArray("abc\xC3\xA9"), decoded));
    QVERIFY(!Decode(QByteArray("abc\xC3\xA9\xA9"), decoded));
}

void tst_StrictUtf8::decodesZeroBytesLikeAnyOther()
{
    std::u32string decoded;
    QVERIFY(Decode(QByteArray("a\0b", 3), decoded));
    QVERIFY(decoded == std::u32string(U"a\0b", 3));
}

void tst_StrictUtf8::refusesAnOutputThatIsTooSmall()
{
    const QByteArray twoUnits("\xF0\x9F\x98\x80"); // one code point, a surrogate pair
    const auto length = static_cast<std::size_t>(twoUnits.size());
    char16_t units[2] = {0, 0};
    QVERIFY(!StrictUtf8<char16_t>(true).ConvertFromStore(twoUnits.constData(), length, units, 1));
    QCOMPARE(units[0], char16_t(0));
    QVERIFY(StrictUtf8<char16_t>(true).ConvertFromStore(twoUnits.constData(), length, units, 2));
    QCOMPARE(units[0], char16_t(0xD83D));
    QCOMPARE(units[1], char16_t(0xDE00));
}

QTEST_MAIN(tst_StrictUtf8)
#include "tst_StrictUtf8.moc"
