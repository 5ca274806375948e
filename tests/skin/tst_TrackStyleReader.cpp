#include "SkinFiles.h"
#include "SkinSchema.h"
#include "skin/TrackStyleReader.h"

#include <QtTest>

#include <functional>

using namespace KestovaTest;

namespace {

// What a record holds, written as a skin writes it, so that it can be compared with the skin's
// text. A pen or brush that does not go with its colour shows as "odd", a font that has no such
// size as a negative number.

QString Show(int number)
{
    return QString::number(number);
}
QString Show(const QString& text)
{
    return text;
}
QString Show(const QPoint& point)
{
    return QStringLiteral("(%1,%2)").arg(point.x()).arg(point.y());
}
QString Show(const StyleColour& colour)
{
    const QColor c = colour.ToColor();
    const QString alpha = c.alpha() == 255 ? QString() : QStringLiteral(",%1").arg(c.alpha());
    return QStringLiteral("(%1,%2,%3%4)").arg(c.red()).arg(c.green()).arg(c.blue()).arg(alpha);
}
QString Show(const StylePen& pen)
{
    const QPen whole(pen.colour.ToColor(), 1, Qt::SolidLine);
    return pen.pen == whole ? Show(pen.colour) : QStringLiteral("odd");
}
QString Show(const StyleBrush& brush)
{
    const QBrush whole(brush.colour.ToColor(), Qt::SolidPattern);
    return brush.brush == whole ? Show(brush.colour) : QStringLiteral("odd");
}

/// What stands in the list for a key that fills no field, such as the name of a section.
const QString kNoField;

template <typename... Fields>
QStringList ShowAll(const Fields&... fields)
{
    return {Show(fields)...};
}
template <typename Pair>
QStringList ShowBoth(const Pair& pair)
{
    return {Show(pair.entries[0]), Show(pair.entries[1])};
}
QStringList ShowBoth(const StyleColour (&pair)[2])
{
    return {Show(pair[0]), Show(pair[1])};
}

QStringList ShowCommon(const TrackStyle& s, int buttonCount)
{
    QStringList fields = ShowAll(s.backgroundType, s.backgroundId, s.disabled, s.disabledSelected,
                                 kNoField, s.caption.bitmapId, s.caption.bitmapFocusId,
                                 s.caption.textPos, s.caption.textColour, s.caption.textColourFocus,
                                 kNoField, s.caption.font.pixelSize(), s.caption.font.family());
    for (int i = 0; i < buttonCount; ++i) {
        CaptionButtonStyle none;
        none.buttonId = none.type = none.bitmapId = none.position = -1;
        const auto place = static_cast<std::size_t>(i);
        const auto& b = place < s.captionButtons.size() ? s.captionButtons[place] : none;
        fields += ShowAll(kNoField, b.buttonId, b.type, b.bitmapId, b.position, b.tipText);
    }
    return fields;
}

QStringList ShowTick(const TickTrackStyle& s)
{
    return ShowAll(s.markLine, s.textOffset, s.textSizeRatio, s.textMinSize, s.textFace,
                   s.textColour);
}

QStringList ShowSwitch(const SwitchTrackStyle& s)
{
    return ShowAll(kNoField, s.scrollBmpType, s.buttonBmpType, s.buttonGap, s.textColour,
                   s.textColourOn, s.font.pointSize(), s.font.family());
}

QStringList ShowKey(const KeyTrackStyle& s)
{
    return ShowAll(kNoField, s.keyAlign, s.keyBmpType, s.relatedKeyBmpType, s.clipHeight) +
           ShowBoth(s.clipBorder);
}

QStringList ShowLine(const LineKeyTrackStyle::Line& l)
{
    return ShowAll(kNoField, l.keyBmpType, l.lineHeight, l.clipHeight) + ShowBoth(l.border) +
           ShowBoth(l.fill) + ShowBoth(l.border1) + ShowBoth(l.fill1) +
           ShowAll(l.disabled, l.disabledSelected, l.relatedKeyBmpType) +
           ShowBoth(l.relatedBorder) + ShowBoth(l.relatedFill) + ShowBoth(l.clipBorder);
}

QStringList ShowLook(const ClipTrackStyle::Look& l)
{
    return ShowBoth(l.border) + ShowBoth(l.fill) + ShowBoth(l.textColour) +
           ShowBoth(l.textColourTrial) + ShowBoth(l.gradientUp) + ShowBoth(l.gradientDown);
}

QStringList ShowClip(const ClipTrackStyle& s)
{
    return ShowAll(kNoField, s.height) + ShowLook(s.normal) + ShowAll(kNoField) +
           ShowLook(s.locked) + ShowAll(kNoField) + ShowLook(s.alternate) +
           ShowAll(s.font.pointSize(), s.font.family());
}

QStringList ShowWave(const WaveTrackStyle& s)
{
    return ShowAll(kNoField) + ShowBoth(s.wave) + ShowAll(s.clipHeight) + ShowBoth(s.clipBorder) +
           ShowAll(s.captionFill, s.captionBorder, s.captionTop, s.captionBottomUpper,
                   s.captionBottom, s.captionLeft, s.background, s.backgroundTopLine,
                   s.backgroundBottomUpper, s.backgroundBottom);
}

template <typename Style>
const Style& As(const StyleRecord& record)
{
    return dynamic_cast<const Style&>(record);
}

/// One entry for every key of SchemaOf(trackType, buttonCount), in the same order.
QStringList ShowRecord(int trackType, const StyleRecord& record, int buttonCount)
{
    if (trackType == 2)
        return ShowTick(As<TickTrackStyle>(record));
    const QStringList common = ShowCommon(As<TrackStyle>(record), buttonCount);
    switch (trackType) {
    case 3:
        return common + ShowSwitch(As<SwitchTrackStyle>(record));
    case 4:
    case 7:
        return common + ShowKey(As<KeyTrackStyle>(record));
    case 5:
    case 6:
        return common + ShowKey(As<KeyTrackStyle>(record)) +
               ShowLine(As<LineKeyTrackStyle>(record).line);
    case 8:
        return common + ShowClip(As<ClipTrackStyle>(record));
    case 9:
        return common + ShowWave(As<WaveTrackStyle>(record));
    default:
        return {};
    }
}

std::unique_ptr<StyleRecord> EmptyRecord(int trackType)
{
    switch (trackType) {
    case 2:
        return std::make_unique<TickTrackStyle>();
    case 3:
        return std::make_unique<SwitchTrackStyle>();
    case 4:
    case 7:
        return std::make_unique<KeyTrackStyle>();
    case 5:
    case 6:
        return std::make_unique<LineKeyTrackStyle>();
    case 8:
        return std::make_unique<ClipTrackStyle>();
    default:
        return std::make_unique<WaveTrackStyle>();
    }
}

/// The text of the skin, but nothing for keys that fill no field.
QStringList ExpectedFields(int trackType, const QVector<SkinLine>& lines, int buttonCount)
{
    const QVector<SchemaKey> schema = SchemaOf(trackType, buttonCount);
    QStringList fields;
    for (int i = 0; i < lines.size(); ++i) {
        const bool isCaptionPointSize = schema[i].via == "Caption" && schema[i].key == "TxtSize";
        const bool fillsNone = schema[i].value == Value::Section || isCaptionPointSize;
        fields << (fillsNone ? kNoField : lines[i].value);
    }
    return fields;
}

/// Hands on to a parsed skin and notes every question.
class RecordingSkin final : public SkinSource
{
public:
    explicit RecordingSkin(const std::wstring& path) : m_skin(path) {}

    bool ReadText(const std::wstring& section, const std::wstring& key,
                  std::wstring& text) const override
    {
        questions << Question("text", section, key);
        return m_skin.ReadText(section, key, text);
    }
    bool ReadInt(const std::wstring& section, const std::wstring& key, int& number) const override
    {
        questions << Question("int", section, key);
        return m_skin.ReadInt(section, key, number);
    }

    static QString Question(const char* kind, const std::wstring& section, const std::wstring& key)
    {
        return QStringLiteral("%1 [%2] %3")
            .arg(kind, QString::fromStdWString(section), QString::fromStdWString(key));
    }

    mutable QStringList questions;

private:
    ParsedSkin m_skin;
};

constexpr int kButtons = 2;
constexpr int kStyle = 3;

/// A skin in which every kind of track is complete and shares no section with another.
QVector<SkinLine> SkinOfAllKinds()
{
    QVector<SkinLine> lines;
    for (int type = kFirstTrackType; type <= kLastTrackType; ++type)
        lines += CompleteSkin(type, kStyle, kButtons);
    return lines;
}

void AddRowPerKind()
{
    QTest::addColumn<int>("type");
    const char* names[] = {"tick",     "switch",     "key",  "transition key",
                           "link key", "viseme key", "clip", "wave"};
    for (int type = kFirstTrackType; type <= kLastTrackType; ++type)
        QTest::newRow(names[type - kFirstTrackType]) << type;
}

} // namespace

class tst_TrackStyleReader : public QObject
{
    Q_OBJECT

private slots:
    void everyKeyFillsItsField_data() { AddRowPerKind(); }
    void everyKeyFillsItsField();
    void keysAreReadInTheirOrderAndNoOthers_data() { AddRowPerKind(); }
    void keysAreReadInTheirOrderAndNoOthers();
    void readingStopsAtTheFirstMissingKey_data() { AddRowPerKind(); }
    void readingStopsAtTheFirstMissingKey();
    void aMissingKeyFailsExactlyItsKind_data() { AddRowPerKind(); }
    void aMissingKeyFailsExactlyItsKind();
    void aMissingKeyLeavesEarlierFieldsFilledAndLaterOnesAtDefault_data() { AddRowPerKind(); }
    void aMissingKeyLeavesEarlierFieldsFilledAndLaterOnesAtDefault();
    void aMissingSectionHandsOutAnEmptyRecord_data() { AddRowPerKind(); }
    void aMissingSectionHandsOutAnEmptyRecord();
    void aMissingFileHandsOutAnEmptyRecord_data() { AddRowPerKind(); }
    void aMissingFileHandsOutAnEmptyRecord();
    void aTypeWithoutASectionHasNoRecordAndSucceeds_data();
    void aTypeWithoutASectionHasNoRecordAndSucceeds();
    void aNewRecordReplacesTheOld();
    void theStyleNumberIsPartOfTheSectionName();
    void theTickTrackIgnoresTheStyleNumber();
    void namesAreReadWithoutRegardToCase();
    void theFileIsReadAgainForEveryLoad();

    void aTrackWithoutTheFirstCaptionButtonHasNone();
    void theFirstGapEndsTheCaptionButtons();
    void aFailingButtonFailsTheTrackAndKeepsTheButtonsBeforeIt();
    void captionButtonsStartInStateZero();
    void captionButtonsOfTheTrackAndColoursOfTheWaveAreApart();
    void captionPixelSizeOfMinusOneSelectsThePointSize();
    void anyOtherCaptionPixelSizeIsAPixelSize();
    void sizesThatAreNoneLeaveTheFontAndPrintNothing();
    void aMissingCaptionFaceFailsTheTrackWithEveryEarlierFieldFilled();
    void aColourIsMaskedTo255();
    void aColourWithoutParenthesesStillReads();
    void aNumberThatIsNoneReadsAsZero();
    void tracksMayShareSections();

    void theContextMenuFontIsRead();
    void theContextMenuFontNeedsBothKeys();

private:
    std::wstring WriteSkin(const QByteArray& text) { return m_files.Write("skin.ini", text); }
    std::wstring WriteSkin(const QVector<SkinLine>& lines) { return WriteSkin(SkinText(lines)); }

    /// A key track with some of its lines replaced or added.
    std::unique_ptr<StyleRecord> LoadKeyTrack(const QVector<SkinLine>& changes,
                                              const QVector<SkinLine>& leftOut = {})
    {
        const QByteArray text = SkinText(CompleteSkin(4, 1, kButtons), leftOut) + SkinText(changes);
        std::unique_ptr<StyleRecord> record;
        m_loaded = LoadTrackStyle(WriteSkin(text), 1, 4, record);
        return record;
    }

    SkinDirectory m_files;
    bool m_loaded = false;
};

void tst_TrackStyleReader::everyKeyFillsItsField()
{
    QFETCH(int, type);
    const QVector<SkinLine> lines = CompleteSkin(type, kStyle, kButtons);
    std::unique_ptr<StyleRecord> record;
    QVERIFY(LoadTrackStyle(WriteSkin(lines), kStyle, type, record));
    QCOMPARE(ShowRecord(type, *record, kButtons), ExpectedFields(type, lines, kButtons));
}

void tst_TrackStyleReader::keysAreReadInTheirOrderAndNoOthers()
{
    QFETCH(int, type);
    const QVector<SkinLine> lines = CompleteSkin(type, kStyle, kButtons);
    const QVector<SchemaKey> schema = SchemaOf(type, kButtons);
    const QString buttonEnd =
        QStringLiteral("text [%1] CaptionBtn%2").arg(TrackSection(type, kStyle)).arg(kButtons + 1);
    QStringList expected;
    bool buttonsEnded = type == 2;
    for (int i = 0; i < lines.size(); ++i) {
        if (!buttonsEnded && lines[i].key == "TrackKey") {
            expected << buttonEnd;
            buttonsEnded = true;
        }
        expected << QStringLiteral("%1 [%2] %3")
                        .arg(schema[i].value == Value::Int ? "int" : "text", lines[i].section,
                             lines[i].key);
    }
    const RecordingSkin skin(WriteSkin(lines));
    std::unique_ptr<StyleRecord> record;
    QVERIFY(LoadTrackStyle(skin, kStyle, type, record));
    QCOMPARE(skin.questions, expected);
}

void tst_TrackStyleReader::readingStopsAtTheFirstMissingKey()
{
    QFETCH(int, type);
    const QVector<SkinLine> lines = CompleteSkin(type, kStyle, kButtons);
    for (const SkinLine& missing : lines) {
        if (missing.key.startsWith("CaptionBtn") && missing.section == TrackSection(type, kStyle))
            continue; // ends the buttons, not the reading
        const RecordingSkin skin(WriteSkin(SkinText(lines, {missing})));
        std::unique_ptr<StyleRecord> record;
        QVERIFY(!LoadTrackStyle(skin, kStyle, type, record));
        QVERIFY2(skin.questions.last().endsWith(
                     QStringLiteral("[%1] %2").arg(missing.section, missing.key)),
                 qPrintable(skin.questions.last()));
    }
}

void tst_TrackStyleReader::aMissingKeyFailsExactlyItsKind()
{
    QFETCH(int, type);
    const QVector<SkinLine> all = SkinOfAllKinds();
    for (const SkinLine& missing : CompleteSkin(type, kStyle, kButtons)) {
        const bool endsButtons =
            missing.key.startsWith("CaptionBtn") && missing.section == TrackSection(type, kStyle);
        const ParsedSkin skin(WriteSkin(SkinText(all, {missing})));
        for (int other = kFirstTrackType; other <= kLastTrackType; ++other) {
            std::unique_ptr<StyleRecord> record;
            const bool loaded = LoadTrackStyle(skin, kStyle, other, record);
            QVERIFY(record);
            QVERIFY2(loaded == (other != type || endsButtons),
                     qPrintable(QStringLiteral("type %1 without [%2] %3")
                                    .arg(other)
                                    .arg(missing.section, missing.key)));
        }
    }
}

void tst_TrackStyleReader::aMissingKeyLeavesEarlierFieldsFilledAndLaterOnesAtDefault()
{
    QFETCH(int, type);
    const QVector<SkinLine> lines = CompleteSkin(type, kStyle, kButtons);
    const QVector<SchemaKey> schema = SchemaOf(type, kButtons);
    const QStringList full = ExpectedFields(type, lines, kButtons);
    const QStringList empty = ShowRecord(type, *EmptyRecord(type), kButtons);
    for (int cut = 0; cut < lines.size(); ++cut) {
        if (lines[cut].key.startsWith("CaptionBtn") && schema[cut].via.isEmpty())
            continue; // ends the buttons, not the reading
        QStringList expected = full.mid(0, cut) + empty.mid(cut);
        // A button enters the list when it is complete.
        for (int i = 0; i < cut; ++i) {
            if (schema[i].via.startsWith("CaptionBtn") && schema[i].via == schema[cut].via)
                expected[i] = empty[i];
        }
        std::unique_ptr<StyleRecord> record;
        QVERIFY(!LoadTrackStyle(WriteSkin(SkinText(lines, {lines[cut]})), kStyle, type, record));
        // A key that is read twice is missed the first time already.
        bool isRepeat = false;
        for (int i = 0; i < cut; ++i)
            isRepeat = isRepeat ||
                       (lines[i].section == lines[cut].section && lines[i].key == lines[cut].key);
        if (!isRepeat)
            QCOMPARE(ShowRecord(type, *record, kButtons), expected);
    }
}

void tst_TrackStyleReader::aMissingSectionHandsOutAnEmptyRecord()
{
    QFETCH(int, type);
    std::unique_ptr<StyleRecord> record;
    QVERIFY(!LoadTrackStyle(WriteSkin("[Other]\nTrackBgType=1\nMarkLine=(1,2,3)\n"), kStyle, type,
                            record));
    QCOMPARE(ShowRecord(type, *record, kButtons), ShowRecord(type, *EmptyRecord(type), kButtons));
}

void tst_TrackStyleReader::aMissingFileHandsOutAnEmptyRecord()
{
    QFETCH(int, type);
    std::unique_ptr<StyleRecord> record;
    QVERIFY(!LoadTrackStyle(m_files.Path("nowhere.ini"), kStyle, type, record));
    QCOMPARE(ShowRecord(type, *record, kButtons), ShowRecord(type, *EmptyRecord(type), kButtons));
}

void tst_TrackStyleReader::aTypeWithoutASectionHasNoRecordAndSucceeds_data()
{
    QTest::addColumn<int>("type");
    for (const int type : {-1, 0, 1, 10, 1000})
        QTest::newRow(qPrintable(QString::number(type))) << type;
}

void tst_TrackStyleReader::aTypeWithoutASectionHasNoRecordAndSucceeds()
{
    QFETCH(int, type);
    auto record = EmptyRecord(4);
    QVERIFY(LoadTrackStyle(m_files.Path("nowhere.ini"), 1, type, record));
    QVERIFY(!record);
}

void tst_TrackStyleReader::aNewRecordReplacesTheOld()
{
    auto record = EmptyRecord(2);
    QVERIFY(!LoadTrackStyle(m_files.Path("nowhere.ini"), 1, 4, record));
    QVERIFY(dynamic_cast<KeyTrackStyle*>(record.get()));
}

void tst_TrackStyleReader::theStyleNumberIsPartOfTheSectionName()
{
    const auto path = WriteSkin(CompleteSkin(4, 12, 0) + CompleteSkin(4, -1, 0));
    std::unique_ptr<StyleRecord> record;
    QVERIFY(LoadTrackStyle(path, 12, 4, record));
    QVERIFY(LoadTrackStyle(path, -1, 4, record));
    QVERIFY(!LoadTrackStyle(path, 1, 4, record));
    QVERIFY(!LoadTrackStyle(path, 2, 4, record));
    QVERIFY(!LoadTrackStyle(path, 12, 7, record));
}

void tst_TrackStyleReader::theTickTrackIgnoresTheStyleNumber()
{
    const QVector<SkinLine> lines = CompleteSkin(2, 1, 0);
    const auto path = WriteSkin(lines);
    for (const int number : {-5, 0, 1, 2, 99}) {
        std::unique_ptr<StyleRecord> record;
        QVERIFY(LoadTrackStyle(path, number, 2, record));
        QCOMPARE(ShowRecord(2, *record, 0), ExpectedFields(2, lines, 0));
    }
}

void tst_TrackStyleReader::namesAreReadWithoutRegardToCase()
{
    std::unique_ptr<StyleRecord> record;
    QVERIFY(
        LoadTrackStyle(WriteSkin(SkinText(CompleteSkin(8, 1, kButtons)).toUpper()), 1, 8, record));
}

void tst_TrackStyleReader::theFileIsReadAgainForEveryLoad()
{
    std::unique_ptr<StyleRecord> record;
    QVERIFY(LoadTrackStyle(WriteSkin(CompleteSkin(2, 1, 0)), 1, 2, record));
    QVERIFY(!LoadTrackStyle(WriteSkin("[TickTrack]\n"), 1, 2, record));
    QVERIFY(LoadTrackStyle(WriteSkin(CompleteSkin(2, 1, 0)), 1, 2, record));
}

void tst_TrackStyleReader::aTrackWithoutTheFirstCaptionButtonHasNone()
{
    const QVector<SkinLine> first = {{"KeyTrack1", "CaptionBtn1", ""}};
    const auto record = LoadKeyTrack({}, first);
    QVERIFY(m_loaded);
    QCOMPARE(int(As<KeyTrackStyle>(*record).captionButtons.size()), 0);
}

void tst_TrackStyleReader::theFirstGapEndsTheCaptionButtons()
{
    const auto record = LoadKeyTrack({{"KeyTrack1", "CaptionBtn4", "CaptionBtn1 of KeyTrack1"}});
    QVERIFY(m_loaded);
    QCOMPARE(int(As<KeyTrackStyle>(*record).captionButtons.size()), 2);
}

void tst_TrackStyleReader::aFailingButtonFailsTheTrackAndKeepsTheButtonsBeforeIt()
{
    const auto record = LoadKeyTrack({{"KeyTrack1", "CaptionBtn3", "Nowhere"}});
    QVERIFY(!m_loaded);
    QCOMPARE(int(As<KeyTrackStyle>(*record).captionButtons.size()), 2);
}

void tst_TrackStyleReader::captionButtonsStartInStateZero()
{
    const auto record = LoadKeyTrack({});
    QVERIFY(m_loaded);
    for (const CaptionButtonStyle& button : As<KeyTrackStyle>(*record).captionButtons)
        QCOMPARE(button.state, 0);
}

void tst_TrackStyleReader::captionButtonsOfTheTrackAndColoursOfTheWaveAreApart()
{
    // One section that is the track's and the wave's at once: the name of a button section is read
    // as a colour too.
    QVector<SkinLine> lines = CompleteSkin(9, 1, 1);
    for (SkinLine& line : lines) {
        if (line.section == "TrackKey of WaveTrack1")
            line.section = "WaveTrack1";
        if (line.section == "WaveTrack1" && line.key == "TrackKey")
            line.value = "WaveTrack1";
        if (line.section == "WaveTrack1" && line.key == "CaptionBtn1")
            line.value = "(9,8,7)";
        if (line.section == "CaptionBtn1 of WaveTrack1")
            line.section = "(9,8,7)";
        if (line.section == "WaveTrack1" && line.key == "CaptionBtn2")
            line.value = "(9,8,7)";
    }
    std::unique_ptr<StyleRecord> record;
    QVERIFY(LoadTrackStyle(WriteSkin(lines), 1, 9, record));
    const auto& wave = As<WaveTrackStyle>(*record);
    QCOMPARE(int(wave.captionButtons.size()), 2);
    QCOMPARE(Show(wave.captionBottomUpper), QString("(9,8,7)"));
    QCOMPARE(Show(wave.captionBottom), QString("(9,8,7)"));
}

void tst_TrackStyleReader::captionPixelSizeOfMinusOneSelectsThePointSize()
{
    const auto record = LoadKeyTrack(
        {{"Caption of KeyTrack1", "TxtPixSize", "-1"}, {"Caption of KeyTrack1", "TxtSize", "13"}});
    QVERIFY(m_loaded);
    QCOMPARE(As<KeyTrackStyle>(*record).caption.font.pointSize(), 13);
    QCOMPARE(As<KeyTrackStyle>(*record).caption.font.pixelSize(), -1);
}

void tst_TrackStyleReader::anyOtherCaptionPixelSizeIsAPixelSize()
{
    const auto record = LoadKeyTrack(
        {{"Caption of KeyTrack1", "TxtPixSize", "17"}, {"Caption of KeyTrack1", "TxtSize", "13"}});
    QVERIFY(m_loaded);
    QCOMPARE(As<KeyTrackStyle>(*record).caption.font.pixelSize(), 17);
    QCOMPARE(As<KeyTrackStyle>(*record).caption.font.pointSize(), -1);
}

void tst_TrackStyleReader::sizesThatAreNoneLeaveTheFontAndPrintNothing()
{
    static int printed;
    printed = 0;
    const auto before = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString&) { ++printed; });
    const auto zeroPixels = LoadKeyTrack({{"Caption of KeyTrack1", "TxtPixSize", "0"}});
    const auto zeroPoints = LoadKeyTrack(
        {{"Caption of KeyTrack1", "TxtPixSize", "-1"}, {"Caption of KeyTrack1", "TxtSize", "-7"}});
    qInstallMessageHandler(before);
    QCOMPARE(printed, 0);
    for (const StyleRecord* record : {zeroPixels.get(), zeroPoints.get()})
        QCOMPARE(As<KeyTrackStyle>(*record).caption.font.pointSize(), QFont().pointSize());
}

void tst_TrackStyleReader::aMissingCaptionFaceFailsTheTrackWithEveryEarlierFieldFilled()
{
    const auto record = LoadKeyTrack({}, {{"Caption of KeyTrack1", "TxtFace", ""}});
    QVERIFY(!m_loaded);
    const QVector<SkinLine> lines = CompleteSkin(4, 1, kButtons);
    const int face = 12;
    QCOMPARE(lines[face].key, QString("TxtFace"));
    QCOMPARE(ShowRecord(4, *record, kButtons).mid(0, face),
             ExpectedFields(4, lines, kButtons).mid(0, face));
    QCOMPARE(As<KeyTrackStyle>(*record).caption.font.family(), QFont().family());
}

void tst_TrackStyleReader::aColourIsMaskedTo255()
{
    const auto record = LoadKeyTrack({{"Caption of KeyTrack1", "TxtColor", "(300,0,0)"}});
    QCOMPARE(As<KeyTrackStyle>(*record).caption.textColour.ToColor(), QColor(44, 0, 0));
}

void tst_TrackStyleReader::aColourWithoutParenthesesStillReads()
{
    const auto record = LoadKeyTrack({{"Caption of KeyTrack1", "TxtColor", "0,0,255"}});
    QCOMPARE(As<KeyTrackStyle>(*record).caption.textColour.ToColor(), QColor(0, 0, 255));
}

void tst_TrackStyleReader::aNumberThatIsNoneReadsAsZero()
{
    const auto record = LoadKeyTrack({{"KeyTrack1", "TrackBgID", "third"}});
    QVERIFY(m_loaded);
    QCOMPARE(As<KeyTrackStyle>(*record).backgroundId, 0);
}

void tst_TrackStyleReader::tracksMayShareSections()
{
    QVector<SkinLine> lines = CompleteSkin(4, 1, 1);
    for (const SkinLine& line : CompleteSkin(4, 1, 1)) {
        if (line.section == "KeyTrack1")
            lines << SkinLine{"VisemeKeyTrack1", line.key, line.value};
    }
    const auto path = WriteSkin(lines);
    std::unique_ptr<StyleRecord> key;
    std::unique_ptr<StyleRecord> viseme;
    QVERIFY(LoadTrackStyle(path, 1, 4, key));
    QVERIFY(LoadTrackStyle(path, 1, 7, viseme));
    QCOMPARE(ShowRecord(7, *viseme, 1), ShowRecord(4, *key, 1));
}

void tst_TrackStyleReader::theContextMenuFontIsRead()
{
    QString face;
    int size = 0;
    QVERIFY(ReadContextMenuFont(WriteSkin("[TrackRightMenu]\nTxtFace=\"Some Face\"\nTxtSize=11\n"),
                                face, size));
    QCOMPARE(face, QString("Some Face"));
    QCOMPARE(size, 11);
}

void tst_TrackStyleReader::theContextMenuFontNeedsBothKeys()
{
    QString face = "before";
    int size = -1;
    QVERIFY(!ReadContextMenuFont(WriteSkin("[TrackRightMenu]\nTxtSize=11\n"), face, size));
    QCOMPARE(face, QString("before"));
    QCOMPARE(size, -1);
    QVERIFY(!ReadContextMenuFont(WriteSkin("[TrackRightMenu]\nTxtFace=Other\n"), face, size));
    QCOMPARE(face, QString("Other"));
    QCOMPARE(size, -1);
    QVERIFY(!ReadContextMenuFont(m_files.Path("nowhere.ini"), face, size));
}

QTEST_MAIN(tst_TrackStyleReader)
#include "tst_TrackStyleReader.moc"
