#include "SkinFiles.h"
#include "SkinSchema.h"
#include "skin/TrackStyleReader.h"

#include <QTextCodec>
#include <QtTest>

#include <random>

using namespace KestovaTest;

namespace {

/// The kernel gives this file a size of one page and only a few bytes to read.
const QString kShortFile = QStringLiteral("/sys/class/net/lo/mtu");

struct Style
{
    int type;
    int number;
};

QByteArray DefaultSkin()
{
    QFile file(QStringLiteral(KESTOVA_SOURCE_DIR "/skins/default.ini"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read the default skin");
    return file.readAll();
}

/// Every style that the skin holds a section of.
QVector<Style> StylesOf(const SkinMap& skin)
{
    QVector<Style> styles = {{2, 1}};
    for (int type = kFirstTrackType + 1; type <= kLastTrackType; ++type) {
        for (int number = 1; skin.Sections().contains(TrackSection(type, number).toLower());
             ++number)
            styles << Style{type, number};
    }
    return styles;
}

/// The names, in lower case, of all sections that a style reads.
QSet<QString> SectionsOf(const SkinMap& skin, const Style& style)
{
    const QString track = TrackSection(style.type, style.number);
    QSet<QString> sections;
    for (const SchemaKey& key : SchemaOf(style.type, skin.ButtonCount(track)))
        sections << (key.via.isEmpty() ? track : skin.Text(track, key.via)).toLower();
    return sections;
}

bool IsUtf8(const QByteArray& text)
{
    QTextCodec::ConverterState state;
    QTextCodec::codecForName("UTF-8")->toUnicode(text.constData(), text.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

/// A skin file that grows byte by byte, and what an independent reader says of it so far.
class GrowingSkin
{
public:
    GrowingSkin(const SkinDirectory& files, const QByteArray& whole)
        : m_whole(whole), m_path(files.Write("growing.ini", {})),
          m_file(QString::fromStdWString(m_path))
    {
        if (!m_file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            qFatal("cannot write a skin");
    }

    bool Grow()
    {
        if (m_size == m_whole.size())
            return false;
        const char next = m_whole[m_size++];
        if (m_file.write(&next, 1) != 1)
            qFatal("cannot write a skin");
        m_line += next;
        if (next == '\n') {
            m_complete.AddLine(QString::fromUtf8(m_line));
            m_line.clear();
        }
        return true;
    }

    int Size() const { return m_size; }
    const std::wstring& Path() const { return m_path; }
    /// What the text so far holds, the last line as far as it is written.
    SkinMap Map() const
    {
        if (!IsUtf8(m_whole.left(m_size)))
            return {};
        SkinMap map = m_complete;
        map.AddLine(QString::fromUtf8(m_line));
        return map;
    }
    /// The name before the equals sign of the line that is being written.
    QString CurrentKey() const
    {
        return QString::fromUtf8(m_line.left(m_line.indexOf('='))).trimmed();
    }

private:
    const QByteArray m_whole;
    const std::wstring m_path;
    QFile m_file;
    int m_size = 0;
    QByteArray m_line;
    SkinMap m_complete;
};

/// For every byte of a skin, the section that it lies in, in lower case.
QVector<QString> SectionAtEachByte(const QByteArray& text)
{
    QVector<QString> sections;
    QString current;
    for (const QByteArray& line : text.split('\n')) {
        const QByteArray trimmed = line.trimmed();
        if (trimmed.startsWith('['))
            current =
                QString::fromUtf8(trimmed.mid(1, trimmed.indexOf(']') - 1)).trimmed().toLower();
        for (int i = 0; i <= line.size(); ++i)
            sections << current;
    }
    return sections;
}

} // namespace

class tst_BadSkins : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void aSkinThatCannotBeReadFailsEveryKind_data();
    void aSkinThatCannotBeReadFailsEveryKind();
    void aSkinThatMayNotBeOpenedFailsEveryKind();
    void badUtf8AnywhereFailsEveryKind_data();
    void badUtf8AnywhereFailsEveryKind();
    void aMissingSectionFailsTheStylesThatNameIt();
    void aMissingKeyFailsTheStylesThatReadIt();
    void aZeroByteEndsTheSkin();
    void aVeryLongLineDoesNoHarm();
    void aSkinThatNamesItselfEndsItsReading();
    void aSkinCutAtAnyByteLoadsWhatIsComplete_data();
    void aSkinCutAtAnyByteLoadsWhatIsComplete();
    void aSkinWithWrongBytesIsReadWithoutHarm();

private:
    void CheckEveryKindFails(const std::wstring& path);

    SkinDirectory m_files;
    QByteArray m_text;
    SkinMap m_map;
    QVector<Style> m_styles;
};

void tst_BadSkins::initTestCase()
{
    m_text = DefaultSkin();
    m_map = SkinMap(m_text);
    m_styles = StylesOf(m_map);
    QVERIFY(m_styles.size() >= kLastTrackType - kFirstTrackType + 1);
    const auto path = m_files.Write("skin.ini", m_text);
    for (const Style& style : m_styles) {
        std::unique_ptr<StyleRecord> record;
        QVERIFY(LoadTrackStyle(path, style.number, style.type, record));
    }
}

/// Every kind gets its record and the answer false; types without a section are not affected.
void tst_BadSkins::CheckEveryKindFails(const std::wstring& path)
{
    for (int type = kFirstTrackType; type <= kLastTrackType; ++type) {
        std::unique_ptr<StyleRecord> record;
        QVERIFY(!LoadTrackStyle(path, 1, type, record));
        QVERIFY(record);
    }
    std::unique_ptr<StyleRecord> none;
    QVERIFY(LoadTrackStyle(path, 1, 1, none));
    QString face = "unchanged";
    int size = -3;
    QVERIFY(!ReadContextMenuFont(path, face, size));
    QCOMPARE(face, QString("unchanged"));
    QCOMPARE(size, -3);
}

void tst_BadSkins::aSkinThatCannotBeReadFailsEveryKind_data()
{
    QTest::addColumn<QString>("path");
    const auto row = [](const char* name, const std::wstring& path) {
        QTest::newRow(name) << QString::fromStdWString(path);
    };
    row("no path", L"");
    row("missing file", m_files.Path("missing.ini"));
    row("missing directory", m_files.Path("missing/skin.ini"));
    row("directory", m_files.MakeDirectory("directory"));
    row("directory with a slash", m_files.Path("directory") + L"/");
    row("file with a slash", m_files.Path("skin.ini") + L"/");
    row("file with a backslash", m_files.Path("skin.ini") + L"\\");
    row("a device", L"/dev/null");
    row("a file shorter than its size", kShortFile.toStdWString());
    row("empty file", m_files.Write("empty.ini", ""));
    row("byte-order mark alone", m_files.Write("bom.ini", "\xEF\xBB\xBF"));
    row("half a byte-order mark", m_files.Write("halfbom.ini", "\xEF\xBB" + m_text));
    row("UTF-16", m_files.Write("utf16.ini", QTextCodec::codecForName("UTF-16LE")
                                                 ->fromUnicode(QString::fromUtf8(m_text))));
    row("zero bytes", m_files.Write("zeros.ini", QByteArray(5000, '\0')));
    row("zero byte in front", m_files.Write("zero.ini", QByteArray(1, '\0') + m_text));
    row("one line", m_files.Write("oneline.ini", QByteArray(m_text).replace('\n', ' ')));
    row("one very long line", m_files.Write("long.ini", QByteArray(5'000'000, '=')));
    row("brackets", m_files.Write("brackets.ini", QByteArray(50'000, '[')));
    row("only comments",
        m_files.Write("comments.ini", ";" + QByteArray(m_text).replace("\n", "\n;")));
}

void tst_BadSkins::aSkinThatCannotBeReadFailsEveryKind()
{
    QFETCH(QString, path);
    if (path == kShortFile && QFileInfo(path).size() <= 0)
        QSKIP("no file here whose size is more than it holds");
    CheckEveryKindFails(path.toStdWString());
}

void tst_BadSkins::aSkinThatMayNotBeOpenedFailsEveryKind()
{
#ifdef Q_OS_WIN
    QSKIP("reading cannot be forbidden by a permission bit here");
#else
    const auto path = m_files.Write("secret.ini", m_text);
    QVERIFY(QFile::setPermissions(QString::fromStdWString(path), QFileDevice::WriteOwner));
    const OrdinaryUser notTheSuperuser(m_files);
    CheckEveryKindFails(path);
#endif
}

void tst_BadSkins::badUtf8AnywhereFailsEveryKind_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("overlong") << QByteArray("\xC0\xAF");
    QTest::newRow("long overlong") << QByteArray("\xF0\x80\x80\xAF");
    QTest::newRow("surrogate") << QByteArray("\xED\xA0\x80");
    QTest::newRow("cut sequence") << QByteArray("\xE2\x82");
    QTest::newRow("stray continuation") << QByteArray("\x80");
    QTest::newRow("0xFF") << QByteArray("\xFF");
    QTest::newRow("beyond the last code point") << QByteArray("\xF5\x80\x80\x80");
}

void tst_BadSkins::badUtf8AnywhereFailsEveryKind()
{
    QFETCH(QByteArray, bytes);
    const int places[] = {0, m_text.size() / 2, m_text.size()};
    for (const int place : places) {
        CheckEveryKindFails(m_files.Write("bad.ini", QByteArray(m_text).insert(place, bytes)));
        if (QTest::currentTestFailed())
            return;
    }
}

void tst_BadSkins::aMissingSectionFailsTheStylesThatNameIt()
{
    for (const QString& section : m_map.Sections()) {
        // Renamed, so that its keys do not fall to the section before it.
        QByteArray text;
        for (const QByteArray& line : m_text.split('\n')) {
            const QString header = QString::fromUtf8(line.trimmed()).toLower();
            text += header == '[' + section + ']' ? QByteArray("[Gone]") : line;
            text += '\n';
        }
        const ParsedSkin skin(m_files.Write("missing-section.ini", text));
        for (const Style& style : m_styles) {
            std::unique_ptr<StyleRecord> record;
            const bool loaded = LoadTrackStyle(skin, style.number, style.type, record);
            QVERIFY2(loaded != SectionsOf(m_map, style).contains(section), qPrintable(section));
        }
    }
}

void tst_BadSkins::aMissingKeyFailsTheStylesThatReadIt()
{
    const QList<QByteArray> lines = m_text.split('\n');
    for (int gone = 0; gone < lines.size(); ++gone) {
        const QByteArray trimmed = lines[gone].trimmed();
        if (trimmed.isEmpty() || trimmed.startsWith(';') || trimmed.startsWith('['))
            continue;
        QList<QByteArray> others = lines;
        others.removeAt(gone);
        const QByteArray text = others.join('\n');
        const SkinMap map(text);
        const ParsedSkin skin(m_files.Write("missing-key.ini", text));
        for (const Style& style : m_styles) {
            std::unique_ptr<StyleRecord> record;
            const bool loaded = LoadTrackStyle(skin, style.number, style.type, record);
            QVERIFY2(loaded == map.IsComplete(style.type, style.number), trimmed.constData());
        }
    }
}

void tst_BadSkins::aZeroByteEndsTheSkin()
{
    for (int place = 0; place < m_text.size(); place += 499) {
        const ParsedSkin skin(
            m_files.Write("zero.ini", QByteArray(m_text).insert(place, QByteArray(1, '\0'))));
        const SkinMap map(m_text.left(place));
        for (const Style& style : m_styles) {
            std::unique_ptr<StyleRecord> record;
            QCOMPARE(LoadTrackStyle(skin, style.number, style.type, record),
                     map.IsComplete(style.type, style.number));
        }
    }
}

void tst_BadSkins::aVeryLongLineDoesNoHarm()
{
    const QByteArray filler(1'000'000, 'x');
    const auto path = m_files.Write("long.ini", ";" + filler + "\n" + m_text + "\n" + filler +
                                                    "\n[TickTrack]\nTxtFace=" + filler + "\n[" +
                                                    filler + "]\n" + filler + "=" + filler);
    const ParsedSkin skin(path);
    for (const Style& style : m_styles) {
        std::unique_ptr<StyleRecord> record;
        QVERIFY(LoadTrackStyle(skin, style.number, style.type, record));
        if (style.type == 2)
            QCOMPARE(dynamic_cast<TickTrackStyle&>(*record).textFace, QString::fromLatin1(filler));
    }
}

void tst_BadSkins::aSkinThatNamesItselfEndsItsReading()
{
    // The track section is its own caption and its own buttons, but has no keys of those.
    const auto path = m_files.Write("self.ini", "[KeyTrack1]\nTrackBgType=0\nTrackBgID=0\n"
                                                "Disable=(1,2,3,4)\nDisableSel=(1,2,3,4)\n"
                                                "Caption=KeyTrack1\nTrackKey=KeyTrack1\n"
                                                "CaptionBtn1=KeyTrack1\n");
    std::unique_ptr<StyleRecord> record;
    QVERIFY(!LoadTrackStyle(path, 1, 4, record));
    QVERIFY(record);
}

void tst_BadSkins::aSkinCutAtAnyByteLoadsWhatIsComplete_data()
{
    QTest::addColumn<QByteArray>("whole");
    QTest::newRow("default skin") << m_text;
    // With a byte-order mark and texts of two, three and four bytes a letter.
    QVector<SkinLine> lines = CompleteSkin(2, 1, 0) + CompleteSkin(4, 1, 2) + CompleteSkin(8, 1, 0);
    for (SkinLine& line : lines) {
        if (line.key == "TxtFace" || line.key == "BtnTipTxt")
            line.value = QStringLiteral("\"\u00E9\u4E16\U0001F600\"");
    }
    QTest::newRow("skin of many alphabets") << "\xEF\xBB\xBF" + SkinText(lines);
}

void tst_BadSkins::aSkinCutAtAnyByteLoadsWhatIsComplete()
{
    constexpr int kEveryWhichCutThroughTheFile = 61; // prime, so that it meets every style
    QFETCH(QByteArray, whole);
    const SkinMap wholeMap(whole);
    const QVector<Style> styles = StylesOf(wholeMap);
    const QVector<QString> sectionAt = SectionAtEachByte(whole);
    QHash<QString, QVector<int>> stylesReading;
    for (int i = 0; i < styles.size(); ++i) {
        for (const QString& section : SectionsOf(wholeMap, styles[i]))
            stylesReading[section] << i;
    }

    GrowingSkin skin(m_files, whole);
    int checked = 0;
    int complete = 0;
    while (skin.Grow()) {
        const int cut = skin.Size();
        const SkinMap map = skin.Map();
        const ParsedSkin parsed(skin.Path());
        const QString& section = sectionAt[cut - 1];

        // One value through the file itself: the one that is being written.
        std::wstring text;
        const bool hasKey =
            SkinFile(skin.Path())
                .ReadText(section.toStdWString(), skin.CurrentKey().toStdWString(), text);
        QCOMPARE(hasKey, map.Has(section, skin.CurrentKey()));
        QCOMPARE(QString::fromStdWString(text), map.Text(section, skin.CurrentKey()));

        // The styles that the current section is part of, and each other one in its turn.
        QVector<int> candidates = stylesReading.value(section);
        const int inTurn = cut % styles.size();
        if (!candidates.contains(inTurn))
            candidates << inTurn;
        for (const int candidate : candidates) {
            const Style& style = styles[candidate];
            std::unique_ptr<StyleRecord> record;
            const bool loaded = LoadTrackStyle(parsed, style.number, style.type, record);
            QVERIFY(record);
            QVERIFY2(loaded == map.IsComplete(style.type, style.number),
                     qPrintable(QStringLiteral("type %1 style %2, cut behind byte %3")
                                    .arg(style.type)
                                    .arg(style.number)
                                    .arg(cut)));
            ++checked;
            complete += loaded ? 1 : 0;
        }
        if (cut % kEveryWhichCutThroughTheFile == 0) {
            const Style& style = styles[(cut / kEveryWhichCutThroughTheFile) % styles.size()];
            std::unique_ptr<StyleRecord> record;
            QCOMPARE(LoadTrackStyle(skin.Path(), style.number, style.type, record),
                     map.IsComplete(style.type, style.number));
        }
    }
    QCOMPARE(skin.Size(), whole.size());
    QVERIFY(checked >= whole.size());
    QVERIFY(complete > 0 && complete < checked); // both answers were met
}

void tst_BadSkins::aSkinWithWrongBytesIsReadWithoutHarm()
{
    constexpr int kSkins = 400;
    constexpr int kWrongBytes = 20;
    // Every other skin gets only bytes that leave it a text.
    const QByteArray likely("[]=;#\"\r\n\t (),<\0\xC3\xA9\xFF", 18);
    constexpr int kLeavingText = 14;
    std::mt19937 random(20); // the same skins in every run
    const auto below = [&random](int end) {
        return static_cast<int>(random() % static_cast<unsigned>(end));
    };
    int loads = 0;
    for (int i = 0; i < kSkins; ++i) {
        QByteArray text = m_text;
        for (int n = 0; n < kWrongBytes; ++n)
            text[below(text.size())] = likely[below(i % 2 == 0 ? kLeavingText : likely.size())];
        const bool isUtf8 = IsUtf8(text);
        QVERIFY(isUtf8 || i % 2 != 0);
        const ParsedSkin skin(m_files.Write("wrong.ini", text));
        for (const Style& style : m_styles) {
            std::unique_ptr<StyleRecord> record;
            const bool loaded = LoadTrackStyle(skin, style.number, style.type, record);
            QVERIFY(record);
            QVERIFY(isUtf8 || !loaded);
            loads += loaded ? 1 : 0;
        }
    }
    QVERIFY(loads > 0); // the skins are not so bad that nothing is read
}

QTEST_MAIN(tst_BadSkins)
#include "tst_BadSkins.moc"
