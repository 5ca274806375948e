#include "DefaultSkin.h"
#include "skin/SkinSource.h"
#include "skin/TrackStyleReader.h"
#include "skin_check/KeyFacts.h"
#include "skin_check/RecordedReads.h"
#include "skin_check/SkinCheck.h"

#include <QRegularExpression>
#include <QSet>
#include <QtTest>

namespace {

QStringList FaultsOf(const QString& text)
{
    QStringList faults;
    for (const SkinFault& fault : CheckSkin(SkinLines(text)))
        faults << fault.Text("skin.ini");
    return faults;
}

/// The default skin with the line @p key of a section written otherwise; a null @p line takes it
/// away.
QString Changed(const QString& section, const QString& key, const QString& line)
{
    const SkinLines skin(DefaultSkin());
    const SkinLines::Entry* const entry = skin.FindEntry(section, key);
    if (!entry)
        qFatal("no [%s] %s", qPrintable(section), qPrintable(key));
    QStringList lines = DefaultSkin().split('\n');
    if (line.isNull())
        lines.removeAt(entry->line - 1);
    else
        lines[entry->line - 1] = line;
    return lines.join('\n');
}

int LineOf(const QString& section, const QString& key)
{
    return SkinLines(DefaultSkin()).FindEntry(section, key)->line;
}

/// A skin given as lines, asked through the reader that the library itself uses.
class TextSkin final : public SkinSource
{
public:
    explicit TextSkin(const QString& text) : m_lines(text) {}
    bool ReadText(const std::wstring& section, const std::wstring& key,
                  std::wstring& text) const override
    {
        const auto* entry = Find(section, key);
        if (entry)
            text = entry->value.toStdWString();
        return entry;
    }
    bool ReadInt(const std::wstring& section, const std::wstring& key, int& number) const override
    {
        const auto* entry = Find(section, key);
        if (entry)
            number = entry->value.toInt();
        return entry;
    }

private:
    const SkinLines::Entry* Find(const std::wstring& section, const std::wstring& key) const
    {
        return m_lines.FindEntry(QString::fromStdWString(section), QString::fromStdWString(key));
    }
    SkinLines m_lines;
};

bool LoadsEveryStyle(const QString& text)
{
    const TextSkin skin(text);
    const QVector<SkinStyle> styles = StylesOf(SkinLines(DefaultSkin()));
    return std::all_of(styles.begin(), styles.end(), [&](const SkinStyle& style) {
        if (style.kind == kMenuSection) {
            QString face;
            int points = 0;
            return ReadContextMenuFont(skin, face, points);
        }
        std::unique_ptr<StyleRecord> record;
        return LoadTrackStyle(skin, style.number, style.trackType, record);
    });
}

} // namespace

class tst_SkinCheck : public QObject
{
    Q_OBJECT

private slots:
    void findsNothingWrongWithTheDefaultSkin();
    void saysWhatIsWrongWithALine_data();
    void saysWhatIsWrongWithALine();
    void namesTheSectionThatAMissingKeyBelongsTo();
    void saysWhichTracksNameASectionThatIsMissing();
    void saysThatARequiredSectionIsMissing();
    void saysOfAMissingKeyWheneverAStyleDoesNotLoad();
    void saysOnceWhatIsWrongWithASharedLook();
    void warnsOfSectionsThatNothingNames();
    void warnsOfAStyleWhoseNumberIsWrittenOtherwise();
    void warnsOfAButtonBehindAGap();
    void warnsOfAKindWithoutAStyle();
    void warnsOfKeysBeforeTheFirstSection();
    void tellsErrorsBeforeWarnings();
    void saysOfAnEmptySkinWhatItNeeds();
    void checksANumberAgainstTheKindThatUsesIt();
    void knowsAFactAboutEveryKeyThatIsRead();
    void hasNoFactAboutAKeyThatIsNotRead();
    void recordsEveryKeyOfTheDefaultSkin();
};

void tst_SkinCheck::findsNothingWrongWithTheDefaultSkin()
{
    QCOMPARE(FaultsOf(DefaultSkin()), QStringList());
}

void tst_SkinCheck::saysWhatIsWrongWithALine_data()
{
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* name, const char* section, const char* key, const char* value,
                        const char* message) {
        QTest::newRow(name) << section << key << value << message;
    };
    row("no number", "ClipLook", "Height", "high", "expected a whole number, found \"high\"");
    row("a number and more", "ClipLook", "Height", "12px",
        "expected a whole number, found \"12px\"");
    row("a comment behind a value", "ClipLook", "Height", "12 ; low",
        "expected a whole number, found \"12 ; low\"");
    row("nothing", "ClipLook", "Height", "", "expected a whole number, found \"\"");
    row("beyond int", "ClipLook", "Height", "99999999999",
        "expected a whole number, found \"99999999999\"");
    row("below the range", "ClipLook", "Height", "0", "expected 1 or more pixels, found \"0\"");
    row("above the range", "KeyLook", "KeyAlign", "3", "expected 0 to 2, found \"3\"");
    row("a picture that is not there", "CaptionPlain", "BitmapID", "9",
        "expected 0 to 4, found \"9\"");
    row("no band", "ClipTrack1", "TrackBgID", "3", "expected 0 to 2, found \"3\"");
    row("no grid", "KeyTrack1", "TrackBgID", "1", "expected 0, found \"1\"");
    row("no push button", "ButtonAdd", "BtnBmpID", "2", "expected 0 to 1, found \"2\"");
    row("no colour", "ClipLook", "Border", "red",
        "expected a colour (red,green,blue), found \"red\"");
    row("a colour without brackets", "ClipLook", "Border", "1,2,3",
        "expected a colour (red,green,blue), found \"1,2,3\"");
    row("a colour of two", "ClipLook", "Border", "(1,2)",
        "expected a colour (red,green,blue), found \"(1,2)\"");
    row("a colour of four", "ClipLook", "Border", "(1,2,3,4)",
        "expected a colour (red,green,blue), found \"(1,2,3,4)\"");
    row("a colour out of range", "ClipLook", "Border", "(300,0,0)",
        "expected a colour (red,green,blue) of 0 to 255 each, found \"(300,0,0)\"");
    row("no alpha", "KeyTrack1", "Disable", "(1,2,3)",
        "expected a colour (red,green,blue,alpha), found \"(1,2,3)\"");
    row("no point", "CaptionPlain", "TxtPos", "10", "expected a point (x,y), found \"10\"");
    row("a point out of range", "CaptionPlain", "TxtPos", "(10,500)",
        "expected a point (x,y) of 0 to 171 pixels each, found \"(10,500)\"");
    row("no text", "CaptionPlain", "TxtFace", "", "expected a text, found none");
    row("no font size", "CaptionPlain", "TxtPixSize", "0",
        "expected 1 or more pixels, found \"0\"");
    row("a string too long", "CaptionPlain", "TxtFace", QByteArray(70, 'x').constData(),
        "expected at most 63 characters, found 70: "
        "\"xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx...\"");
}

void tst_SkinCheck::saysWhatIsWrongWithALine()
{
    QFETCH(QString, section);
    QFETCH(QString, key);
    QFETCH(QString, value);
    QFETCH(QString, message);
    const QString line = QStringLiteral("%1 = %2").arg(key, value);
    const QString expected = QStringLiteral("skin.ini:%1: [%2] %3: %4")
                                 .arg(LineOf(section, key))
                                 .arg(section, key, message);
    QCOMPARE(FaultsOf(Changed(section, key, line)), QStringList{expected});
}

void tst_SkinCheck::namesTheSectionThatAMissingKeyBelongsTo()
{
    const int line = SkinLines(DefaultSkin()).FindSection("ClipLook")->line;
    QCOMPARE(FaultsOf(Changed("ClipLook", "Height", {})),
             QStringList{QStringLiteral("skin.ini:%1: [ClipLook] Height: the key is missing: "
                                        "expected a whole number. Height of a clip, in all three "
                                        "looks.")
                             .arg(line)});
}

void tst_SkinCheck::saysWhichTracksNameASectionThatIsMissing()
{
    const QStringList faults = FaultsOf(Changed("WaveTrack1", "Caption", "Caption = Nowhere"));
    QCOMPARE(faults, QStringList{QStringLiteral("skin.ini:%1: [WaveTrack1] Caption: expected the "
                                                "name of a section, found \"Nowhere\", which is "
                                                "missing")
                                     .arg(LineOf("WaveTrack1", "Caption"))});
}

void tst_SkinCheck::saysThatARequiredSectionIsMissing()
{
    const QStringList faults =
        FaultsOf(DefaultSkin().replace("[TrackRightMenu]", "[SomethingElse]"));
    QCOMPARE(faults.size(), 2);
    QVERIFY(faults[0].endsWith(": [TrackRightMenu]: the section is missing"));
    QVERIFY(faults[1].contains("warning: [SomethingElse]: not used"));
}

void tst_SkinCheck::saysOfAMissingKeyWheneverAStyleDoesNotLoad()
{
    // Takes away each key in turn; the library says whether it missed it.
    int missed = 0;
    const SkinLines skin(DefaultSkin());
    for (const SkinLines::Section& section : skin.Sections()) {
        for (const SkinLines::Entry& entry : section.entries) {
            const QString text = Changed(section.name, entry.name, {});
            const QVector<SkinFault> faults = CheckSkin(SkinLines(text));
            const bool hasError = !faults.isEmpty() && faults[0].weight == SkinFault::Error;
            QVERIFY2(hasError != LoadsEveryStyle(text),
                     qPrintable(section.name + ' ' + entry.name));
            missed += hasError ? 1 : 0;
        }
    }
    QVERIFY(missed > 300);
}

void tst_SkinCheck::saysOnceWhatIsWrongWithASharedLook()
{
    // Three of the four clip styles share this look, and two looks of one style may be the same.
    QCOMPARE(FaultsOf(Changed("ClipLookLocked", "Fill", "Fill = dark")).size(), 1);
}

void tst_SkinCheck::warnsOfSectionsThatNothingNames()
{
    const QString text = DefaultSkin() + "[Spare]\nColour = 1\n";
    const QStringList faults = FaultsOf(text);
    QCOMPARE(faults.size(), 1);
    QVERIFY(faults[0].contains("warning: [Spare]: not used"));
    QCOMPARE(FaultsOf(DefaultSkin() + "[TickTrack]\nColour = 1\n").size(), 2); // key, opened again
}

void tst_SkinCheck::warnsOfAStyleWhoseNumberIsWrittenOtherwise()
{
    const QStringList faults = FaultsOf(DefaultSkin() + "[KeyTrack04]\nTrackBgType = 1\n");
    QCOMPARE(faults.size(), 1);
    QVERIFY(faults[0].contains("warning: [KeyTrack04]: not used"));
}

void tst_SkinCheck::warnsOfAButtonBehindAGap()
{
    const QStringList faults = FaultsOf(Changed("KeyTrack1", "CaptionBtn2", {}));
    QCOMPARE(faults, QStringList{QStringLiteral("skin.ini:%1: warning: [KeyTrack1] CaptionBtn3: "
                                                "not used")
                                     .arg(LineOf("KeyTrack1", "CaptionBtn3") - 1)});
}

void tst_SkinCheck::warnsOfAKindWithoutAStyle()
{
    QString text = DefaultSkin();
    text.replace("[WaveTrack1]", "[Wave1]").replace("[WaveTrack2]", "[Wave2]");
    const QStringList faults = FaultsOf(text);
    QCOMPARE(faults.filter("[WaveTrack1]: the section is missing").size(), 1);
    QCOMPARE(faults.filter("warning: ").size(), faults.size());
}

void tst_SkinCheck::warnsOfKeysBeforeTheFirstSection()
{
    const QStringList faults = FaultsOf("Colour = 1\n" + DefaultSkin());
    QCOMPARE(faults.size(), 1);
    QVERIFY(faults[0].contains("keys before the first section are not used"));
}

void tst_SkinCheck::tellsErrorsBeforeWarnings()
{
    QString text = Changed("VisemeLookLow", "KeyAlign", "KeyAlign = 7");
    text.prepend("[Spare]\n");
    text.append("stray\n");
    const QVector<SkinFault> faults = CheckSkin(SkinLines(text));
    QCOMPARE(faults.size(), 3);
    QCOMPARE(faults[0].weight, SkinFault::Error);
    QCOMPARE(faults[1].weight, SkinFault::Error);
    QVERIFY(faults[0].line < faults[1].line);
    QCOMPARE(faults[2].weight, SkinFault::Warning);
    QCOMPARE(faults[2].line, 1);
}

void tst_SkinCheck::saysOfAnEmptySkinWhatItNeeds()
{
    const QStringList faults = FaultsOf({});
    QCOMPARE(faults.filter("warning").size(), 7); // the kinds with numbered styles
    QCOMPARE(faults.size(), 7 + 2);               // the ruler and the menu
    QVERIFY(faults[0].startsWith("skin.ini:1: [TickTrack]"));
}

void tst_SkinCheck::checksANumberAgainstTheKindThatUsesIt()
{
    // Key tracks have three pictures of keys, mouth shapes one.
    QVERIFY(FaultsOf(Changed("KeyLook", "KeyBmpType", "KeyBmpType = 2")).isEmpty());
    QCOMPARE(FaultsOf(Changed("VisemeLook", "KeyBmpType", "KeyBmpType = 2")).size(), 1);
    // A fact about clips is none about their captions.
    QVERIFY(FaultsOf(Changed("CaptionTall", "TxtColor", {})).first().contains("the row and its"));
    // A size in points counts only without one in pixels.
    QVERIFY(FaultsOf(Changed("CaptionPlain", "TxtSize", "TxtSize = 0")).isEmpty());
    QVERIFY(FaultsOf(Changed("CaptionPlain", "TxtPixSize", "TxtPixSize = -1")).isEmpty());
}

void tst_SkinCheck::knowsAFactAboutEveryKeyThatIsRead()
{
    int keys = 0;
    for (const SkinStyle& style : FirstStyles()) {
        for (const RecordedRead& read : AllReadsOf(style)) {
            QVERIFY2(!FactsOf(style.kind, read).isEmpty(),
                     qPrintable(style.kind + " via " + read.via + ": " + read.key));
            ++keys;
        }
    }
    QVERIFY(keys > 200);
}

void tst_SkinCheck::hasNoFactAboutAKeyThatIsNotRead()
{
    QSet<const KeyFact*> known;
    for (const SkinStyle& style : FirstStyles()) {
        for (const RecordedRead& read : AllReadsOf(style)) {
            for (const KeyFact* fact : FactsOf(style.kind, read))
                known << fact;
        }
    }
    for (const KeyFact* fact : AllFacts()) {
        QVERIFY2(
            known.contains(fact),
            qPrintable(QStringLiteral("%1 via %2: %3").arg(fact->track, fact->via, fact->key)));
    }
}

void tst_SkinCheck::recordsEveryKeyOfTheDefaultSkin()
{
    const SkinLines skin(DefaultSkin());
    QSet<QString> read;
    for (const SkinStyle& style : StylesOf(skin)) {
        for (const RecordedRead& record : ReadsOf(style, skin))
            read << FoldedName(record.section) + '/' + FoldedName(record.key);
    }
    QSet<QString> written;
    for (auto section = skin.Sections().begin(); section != skin.Sections().end(); ++section) {
        for (const QString& key : section->entries.keys())
            written << section.key() + '/' + key;
    }
    QCOMPARE(read, written);
}

QTEST_MAIN(tst_SkinCheck)
#include "tst_SkinCheck.moc"
