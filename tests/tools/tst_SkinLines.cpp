#include "DefaultSkin.h"
#include "skin/CProfile.h"
#include "skin_check/SkinLines.h"

#include <QTemporaryDir>
#include <QtTest>

#include <random>

/// The lines of a skin must be those that the library's reader sees.
class tst_SkinLines : public QObject
{
    Q_OBJECT

private slots:
    void knowsTheLineOfEverySectionAndKey();
    void countsLinesOfEveryKindOfLineEnd_data();
    void countsLinesOfEveryKindOfLineEnd();
    void comparesNamesAsTheReaderDoes();
    void remembersRepeatedKeysAndSections();
    void keepsWhatIsNoLineOfASkin();
    void endsAtAZeroAsTheReaderDoes();
    void skipsAByteOrderMarkAsTheReaderDoes();
    void agreesWithTheReaderOnDamagedSkins();

private:
    void CompareWithReader(const QByteArray& bytes);
    QTemporaryDir m_directory;
};

void tst_SkinLines::CompareWithReader(const QByteArray& bytes)
{
    QFile file(m_directory.filePath("skin.ini"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
    file.close();
    VZ::CProfile profile;
    QCOMPARE(profile.Load(file.fileName().toStdWString(), true), VZ::CProfile::kSuccess);

    const SkinLines skin(QString::fromUtf8(bytes));
    for (const SkinLines::Section& section : skin.Sections()) {
        for (const SkinLines::Entry& entry : section.entries) {
            std::wstring text = L"(absent)";
            profile.GetString(section.name.toStdWString(), entry.name.toStdWString(), text);
            QVERIFY2(entry.value == QString::fromStdWString(text),
                     qPrintable(QStringLiteral("line %1, [%2] %3: %4")
                                    .arg(entry.line)
                                    .arg(section.name, entry.name, entry.value)));
        }
    }
    // And the other way: what the reader finds of the good skin is found here.
    const SkinLines good(DefaultSkin());
    for (const SkinLines::Section& section : good.Sections()) {
        for (const SkinLines::Entry& entry : section.entries) {
            std::wstring text;
            const bool has = profile.GetString(section.name.toStdWString(),
                                               entry.name.toStdWString(), text) == 0;
            QCOMPARE(skin.FindEntry(section.name, entry.name) != nullptr, has);
        }
    }
}

void tst_SkinLines::knowsTheLineOfEverySectionAndKey()
{
    const QStringList lines = DefaultSkin().split('\n');
    const SkinLines skin(DefaultSkin());
    int entries = 0;
    for (const SkinLines::Section& section : skin.Sections()) {
        QCOMPARE(lines[section.line - 1], '[' + section.name + ']');
        for (const SkinLines::Entry& entry : section.entries) {
            QVERIFY(lines[entry.line - 1].startsWith(entry.name + " = "));
            ++entries;
        }
    }
    QVERIFY(entries > 300);
}

void tst_SkinLines::countsLinesOfEveryKindOfLineEnd_data()
{
    QTest::addColumn<QString>("end");
    QTest::newRow("line feed") << "\n";
    QTest::newRow("return and line feed") << "\r\n";
    QTest::newRow("return") << "\r";
}

void tst_SkinLines::countsLinesOfEveryKindOfLineEnd()
{
    QFETCH(QString, end);
    const QStringList lines = {"; one", "", "[Three]", "", "", "six = 6", "# seven", "eight = 8"};
    const SkinLines skin(lines.join(end));
    QCOMPARE(skin.FindSection("Three")->line, 3);
    QCOMPARE(skin.FindEntry("Three", "six")->line, 6);
    QCOMPARE(skin.FindEntry("Three", "eight")->line, 8);
    QCOMPARE(skin.LineCount(), 8);
}

void tst_SkinLines::comparesNamesAsTheReaderDoes()
{
    const SkinLines skin(QStringLiteral("[KeyLook]\nClipHeight = 4\n\u00C4 = 1\n"));
    QVERIFY(skin.FindEntry("KEYLOOK", "clipheight"));
    QVERIFY(skin.FindEntry("keylook", "\u00C4"));
    QVERIFY(!skin.FindEntry("keylook", "\u00E4"));
}

void tst_SkinLines::remembersRepeatedKeysAndSections()
{
    const SkinLines skin("[A]\nk = 1\n[B]\n[a]\nK = 2\n");
    QCOMPARE(skin.FindSection("A")->openedAgainAt, QVector<int>{4});
    QCOMPARE(skin.FindEntry("A", "k")->value, QString("2"));
    QCOMPARE(skin.FindEntry("A", "k")->repeatedAt, 2);
    QCOMPARE(skin.FindEntry("A", "k")->line, 5);
}

void tst_SkinLines::keepsWhatIsNoLineOfASkin()
{
    const SkinLines skin("[A]\nstray\n[open\n= 4\nlost = 1\n[a]\nk = 1\n");
    QVERIFY(!skin.FindEntry("A", "lost"));
    QCOMPARE(skin.StrayLines().size(), 3);
    QCOMPARE(skin.StrayLines()[0].line, 2);
    QCOMPARE(skin.StrayLines()[1].line, 3);
    QCOMPARE(skin.StrayLines()[1].text, QString("[open"));
    QCOMPARE(skin.StrayLines()[2].line, 4);
    QVERIFY(skin.FindEntry("A", "k"));
}

void tst_SkinLines::endsAtAZeroAsTheReaderDoes()
{
    QByteArray bytes = DefaultSkin().toUtf8();
    CompareWithReader(bytes.insert(bytes.size() / 2, '\0'));
}

void tst_SkinLines::skipsAByteOrderMarkAsTheReaderDoes()
{
    const QByteArray bytes = "\xEF\xBB\xBF[TickTrack]\nTxtOffset = 3\n";
    QVERIFY(SkinLines(QString::fromUtf8(bytes)).FindEntry("TickTrack", "TxtOffset"));
    CompareWithReader(bytes);
}

void tst_SkinLines::agreesWithTheReaderOnDamagedSkins()
{
    constexpr int kSkins = 300;
    constexpr int kWrongBytes = 30;
    const QByteArray likely("[]=;#\"\r\n\t (),<\0 [=", 19);
    std::mt19937 random(7); // the same skins in every run
    const auto below = [&random](int end) {
        return static_cast<int>(random() % static_cast<unsigned>(end));
    };
    for (int i = 0; i < kSkins; ++i) {
        QByteArray bytes = DefaultSkin().toUtf8();
        for (int n = 0; n < kWrongBytes; ++n) {
            const char wrong = likely[below(likely.size())];
            if (wrong != 0 || n % 10 == 0) // a zero hides all that follows
                bytes[below(bytes.size())] = wrong;
        }
        CompareWithReader(bytes);
        if (QTest::currentTestFailed())
            return;
    }
}

QTEST_MAIN(tst_SkinLines)
#include "tst_SkinLines.moc"
