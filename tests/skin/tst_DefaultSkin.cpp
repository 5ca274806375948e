#include "SkinSchema.h"
#include "skin/ImageTables.h"
#include "skin/TrackStyleReader.h"

#include <QApplication>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

#include <cstdio>

using namespace KestovaTest;

namespace {

QString skinPath; ///< of the skin that is looked at

struct Style
{
    int type;
    int number;
};

/// How a value of a kind is written when nothing about it is left to the reader's leniency.
QString PatternOf(Value value)
{
    const QString component = QStringLiteral("(25[0-5]|2[0-4]\\d|1\\d\\d|[1-9]?\\d)");
    switch (value) {
    case Value::Int:
        return QStringLiteral("-?\\d{1,9}");
    case Value::Point:
        return QStringLiteral("\\(-?\\d+,-?\\d+\\)");
    case Value::Colour:
        return QStringLiteral("\\(%1,%1,%1\\)").arg(component);
    case Value::ColourWithAlpha:
        return QStringLiteral("\\(%1,%1,%1,%1\\)").arg(component);
    case Value::Text:
    case Value::Section:
        break;
    }
    return QStringLiteral(".+");
}

} // namespace

/// The skins that come with the library are complete and well written.
class tst_DefaultSkin : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void everyKindHasStylesFromOneWithoutAGap_data();
    void everyKindHasStylesFromOneWithoutAGap();
    void noSectionIsShortOfAKey_data() { AddStyles(); }
    void noSectionIsShortOfAKey();
    void everyStyleLoads_data() { AddStyles(); }
    void everyStyleLoads();
    void everyValueIsWellWritten_data() { AddStyles(); }
    void everyValueIsWellWritten();
    void everySectionAndKeyIsReadBySomeStyle();
    void captionsAndButtonsNameImagesThatExist_data() { AddStyles(); }
    void captionsAndButtonsNameImagesThatExist();
    void backgroundsNameBrushesThatExist_data() { AddStyles(); }
    void backgroundsNameBrushesThatExist();
    void glyphsNameImagesThatExist_data() { AddStyles(); }
    void glyphsNameImagesThatExist();
    void theContextMenuFontIsThere();

private:
    void AddStyles();
    std::unique_ptr<StyleRecord> Load(const Style& style) const
    {
        std::unique_ptr<StyleRecord> record;
        LoadTrackStyle(skinPath.toStdWString(), style.number, style.type, record);
        return record;
    }
    /// The section of a key of the schema in the given track section.
    QString SectionOf(const QString& track, const SchemaKey& key) const
    {
        return key.via.isEmpty() ? track : m_skin.Text(track, key.via);
    }
    QVector<SchemaKey> KeysOf(const Style& style) const
    {
        return SchemaOf(style.type, m_skin.ButtonCount(TrackSection(style.type, style.number)));
    }

    SkinMap m_skin;
    QVector<Style> m_styles;
    ImageTables m_images;
};

Q_DECLARE_METATYPE(Style)

void tst_DefaultSkin::initTestCase()
{
    QFile file(skinPath);
    QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(skinPath));
    m_skin = SkinMap(file.readAll());
    const QStringList sections = m_skin.Sections();
    for (int type = kFirstTrackType; type <= kLastTrackType; ++type) {
        const bool numbered = type != 2;
        for (int number = 1; sections.contains(TrackSection(type, number).toLower()); ++number) {
            m_styles << Style{type, number};
            if (!numbered)
                break;
        }
    }
    QVERIFY(!m_styles.isEmpty());
    QVERIFY(m_images.Load());
}

void tst_DefaultSkin::AddStyles()
{
    QTest::addColumn<Style>("style");
    for (const Style& style : m_styles)
        QTest::newRow(qPrintable(TrackSection(style.type, style.number))) << style;
}

void tst_DefaultSkin::everyKindHasStylesFromOneWithoutAGap_data()
{
    QTest::addColumn<int>("type");
    for (int type = kFirstTrackType; type <= kLastTrackType; ++type)
        QTest::newRow(qPrintable(TrackSection(type, 1))) << type;
}

void tst_DefaultSkin::everyKindHasStylesFromOneWithoutAGap()
{
    QFETCH(int, type);
    if (type == 2) {
        QVERIFY(m_skin.Sections().contains(QStringLiteral("ticktrack")));
        return;
    }
    const QRegularExpression numbered(
        QStringLiteral("^%1(.*)$").arg(TrackSection(type, 1).chopped(1).toLower()));
    QSet<QString> numbers;
    for (const QString& section : m_skin.Sections()) {
        const auto match = numbered.match(section);
        if (match.hasMatch())
            numbers << match.captured(1);
    }
    QVERIFY2(numbers.size() >= 2, "a kind of track offers a choice of styles");
    for (int number = 1; number <= numbers.size(); ++number)
        QVERIFY(numbers.contains(QString::number(number)));
}

void tst_DefaultSkin::noSectionIsShortOfAKey()
{
    QFETCH(Style, style);
    QCOMPARE(m_skin.FirstMissing(style.type, style.number), QString());
}

void tst_DefaultSkin::everyStyleLoads()
{
    QFETCH(Style, style);
    std::unique_ptr<StyleRecord> record;
    QVERIFY(LoadTrackStyle(skinPath.toStdWString(), style.number, style.type, record));
    QVERIFY(record);
}

void tst_DefaultSkin::everyValueIsWellWritten()
{
    QFETCH(Style, style);
    const QString track = TrackSection(style.type, style.number);
    for (const SchemaKey& key : KeysOf(style)) {
        const QString section = SectionOf(track, key);
        const QString text = m_skin.Text(section, key.key);
        const QRegularExpression pattern(QRegularExpression::anchoredPattern(PatternOf(key.value)));
        QVERIFY2(pattern.match(text).hasMatch(),
                 qPrintable(QStringLiteral("[%1] %2 = %3").arg(section, key.key, text)));
    }
}

void tst_DefaultSkin::everySectionAndKeyIsReadBySomeStyle()
{
    QSet<QString> read = {"[trackrightmenu] txtface", "[trackrightmenu] txtsize"};
    const auto name = [](const QString& section, const QString& key) {
        return QStringLiteral("[%1] %2").arg(section, key).toLower();
    };
    for (const Style& style : m_styles) {
        const QString track = TrackSection(style.type, style.number);
        for (const SchemaKey& key : KeysOf(style))
            read << name(SectionOf(track, key), key.key);
    }
    for (const QString& section : m_skin.Sections()) {
        QVERIFY2(!m_skin.Keys(section).isEmpty(), qPrintable(section));
        for (const QString& key : m_skin.Keys(section))
            QVERIFY2(read.contains(name(section, key)), qPrintable(name(section, key)));
    }
}

void tst_DefaultSkin::captionsAndButtonsNameImagesThatExist()
{
    constexpr int kFirstCaption = 4;
    constexpr int kPushStates = 3;
    constexpr int kToggleStates = 4;
    QFETCH(Style, style);
    const auto record = Load(style);
    const auto* track = dynamic_cast<const TrackStyle*>(record.get());
    if (!track) {
        QCOMPARE(style.type, 2); // the ruler alone has no caption
        return;
    }
    for (const int id : {track->caption.bitmapId, track->caption.bitmapFocusId}) {
        QVERIFY(id >= 0);
        QVERIFY(!m_images.Picture(kCaptionPictures, kFirstCaption + id).isNull());
    }
    for (const CaptionButtonStyle& button : track->captionButtons) {
        QVERIFY(button.type == 0 || button.type == 1);
        const int group = button.type == 0 ? kPushButtonPictures : kToggleButtonPictures;
        const int states = button.type == 0 ? kPushStates : kToggleStates;
        for (int state = 0; state < states; ++state)
            QVERIFY(!m_images.Picture(group, button.bitmapId * states + state).isNull());
    }
    if (const auto* row = dynamic_cast<const SwitchTrackStyle*>(track)) {
        constexpr int kButtonStates = 4;
        constexpr int kArrowStates = 8;
        for (int state = 0; state < kButtonStates; ++state)
            QVERIFY(
                !m_images.Picture(kSwitchButtonPictures, row->buttonBmpType * kButtonStates + state)
                     .isNull());
        for (int state = 0; state < kArrowStates; ++state)
            QVERIFY(
                !m_images.Picture(kScrollArrowPictures, row->scrollBmpType * kArrowStates + state)
                     .isNull());
    }
}

void tst_DefaultSkin::backgroundsNameBrushesThatExist()
{
    constexpr int kGridBrushesPerStyle = 7;
    constexpr int kBandedBrushesPerStyle = 3;
    QFETCH(Style, style);
    const auto record = Load(style);
    const auto* track = dynamic_cast<const TrackStyle*>(record.get());
    if (!track) {
        QCOMPARE(style.type, 2); // the ruler's background is no matter of the skin
        return;
    }
    const bool isGrid = track->backgroundType == 0;
    const int perStyle = isGrid ? kGridBrushesPerStyle : kBandedBrushesPerStyle;
    const int group = isGrid ? kGridBrushes : kBandedBrushes;
    for (int i = 0; i < perStyle; ++i)
        QCOMPARE(m_images.Brush(group, track->backgroundId * perStyle + i).style(),
                 Qt::TexturePattern);
}

void tst_DefaultSkin::glyphsNameImagesThatExist()
{
    /// The glyph groups of a kind: from its offset to the next kind's.
    struct GlyphRange
    {
        int type, first, end;
    };
    constexpr GlyphRange kRanges[] = {
        {4, kKeyGlyphs, kTransitionGlyphs},
        {5, kTransitionGlyphs, kLinkGlyphs},
        {6, kLinkGlyphs, kVisemeGlyphs},
        {7, kVisemeGlyphs, kTimeMarkGlyphs},
    };
    QFETCH(Style, style);
    const auto record = Load(style);
    const auto* track = dynamic_cast<const KeyTrackStyle*>(record.get());
    const bool hasGlyphs = style.type >= 4 && style.type <= 7;
    QCOMPARE(track != nullptr, hasGlyphs);
    if (!hasGlyphs)
        return;
    QVector<int> groups = {track->keyBmpType, track->relatedKeyBmpType};
    if (const auto* lined = dynamic_cast<const LineKeyTrackStyle*>(track))
        groups << lined->line.keyBmpType << lined->line.relatedKeyBmpType;
    for (const GlyphRange& range : kRanges) {
        if (range.type != style.type)
            continue;
        for (const int group : groups) {
            QVERIFY(group >= 0 && range.first + group < range.end);
            QVERIFY(m_images.GlyphCount(range.first + group) > 0);
        }
    }
}

void tst_DefaultSkin::theContextMenuFontIsThere()
{
    QString face;
    int size = 0;
    QVERIFY(ReadContextMenuFont(skinPath.toStdWString(), face, size));
    QVERIFY(!face.isEmpty());
    QVERIFY(size > 0);
}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    int failures = 0;
    for (const char* const skin : {"default.ini", "contrast.ini"}) {
        skinPath = QStringLiteral(KESTOVA_SOURCE_DIR "/skins/") + QLatin1String(skin);
        std::printf("%s\n", qPrintable(skinPath));
        tst_DefaultSkin test;
        failures += QTest::qExec(&test, argc, argv);
    }
    return failures;
}

#include "tst_DefaultSkin.moc"
