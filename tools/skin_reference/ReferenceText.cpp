#include "ReferenceText.h"

#include "skin_check/KeyFacts.h"

#include <QStringList>

#include <algorithm>

namespace {

/// What is said of a kind of track before its keys.
struct KindIntro
{
    const char* kind;
    const char* title;
    const char* intro;
    const char* picture; ///< empty: none
};

constexpr KindIntro kIntros[] = {
    {"TickTrack", "The ruler",
     "One section for the ruler at the top. Loading it also sets the colour of the current-frame "
     "line of all rows.",
     ""},
    {"SwitchTrack", "Switch tracks", "Rows of buttons that are on or off.",
     "images/skin-switch.png"},
    {"KeyTrack", "Key tracks",
     "Keys that stand at one frame, and bars of those that have a length.", "images/skin-key.png"},
    {"TransKeyTrack", "Transition tracks",
     "Keys with a blend into or out of them: the span, with a handle at its far end.",
     "images/skin-transition.png"},
    {"LinkKeyTrack", "Link tracks",
     "Keys that are joined to the next one by a bar. Their pictures are 24 pixels high: use "
     "captions of 26 pixels.",
     "images/skin-link.png"},
    {"VisemeKeyTrack", "Mouth-shape tracks", "The shapes of a spoken line.",
     "images/skin-viseme.png"},
    {"ClipTrack", "Clip tracks",
     "Stretches of motion or sound, with their names and the dividers of their loops. Locked clips "
     "and clips in the alternate style have looks of their own.",
     "images/skin-clip.png"},
    {"WaveTrack", "Wave tracks",
     "A clip track whose row and caption are painted from colours instead of pictures.", ""},
    {"TrackRightMenu", "The menu of a row", "One section for the context menus of all rows.", ""},
};

constexpr auto kPreamble =
    "# Skin reference\n"
    "\n"
    "<!-- Written by kestova-skin-reference (tools/skin_reference); a test compares. -->\n"
    "\n"
    "A skin is a text file of sections and keys: colours, sizes, fonts and numbers of pictures.\n"
    "`skins/default.ini` explains how the sections hang together, and is the skin that the values\n"
    "below are from. A track of the kind and style number of a section, `KeyTrack2` say, reads it\n"
    "when it is made; the sections that it names may be shared. Every key is required, painted or\n"
    "not. `kestova-skin-check FILE` says what is wrong with a skin.\n"
    "\n"
    "| written as | for example |\n"
    "|---|---|\n"
    "| a whole number | `12` |\n"
    "| a text, the name of a section | `DejaVu Sans`, `\"DejaVu Sans\"` |\n"
    "| a point | `(10,114)` |\n"
    "| a colour | `(88,216,192)`: red, green, blue, each 0 to 255 |\n"
    "| a colour with alpha | `(150,160,172,48)`: 0 is clear, 255 is opaque |\n";

bool IsSameKey(const RecordedRead& left, const RecordedRead& right)
{
    return left.key == right.key && left.via == right.via && left.kind == right.kind;
}

QString NumberOrSection(SkinValueKind kind)
{
    switch (kind) {
    case SkinValueKind::Number:
        return QStringLiteral("number");
    case SkinValueKind::Text:
        return QStringLiteral("text");
    case SkinValueKind::Point:
        return QStringLiteral("point");
    case SkinValueKind::Colour:
        return QStringLiteral("colour");
    case SkinValueKind::ColourWithAlpha:
        return QStringLiteral("colour with alpha");
    case SkinValueKind::Section:
    case SkinValueKind::OptionalSection:
        break;
    }
    return QStringLiteral("section");
}

/// The range of a number, or how long a text may be.
QString RangeCell(const KeyFact& fact, SkinValueKind kind)
{
    const bool isName = kind == SkinValueKind::Section || kind == SkinValueKind::OptionalSection;
    if (isName)
        return {};
    const QString unit =
        kind == SkinValueKind::Text ? QStringLiteral("characters") : QString::fromLatin1(fact.unit);
    constexpr ValueRange kAny;
    const bool isAny = fact.range.least == kAny.least && fact.range.most == kAny.most;
    const QString joint = isAny && !unit.isEmpty() ? QStringLiteral(", in ") : QStringLiteral(" ");
    return (RangeText(fact.range) + joint + unit).trimmed();
}

/// Writes the page from the top.
class Page
{
public:
    explicit Page(const SkinLines& skin) : m_skin(skin) {}

    QString Write()
    {
        m_text = QLatin1String(kPreamble);
        FindCommonKeys();
        WriteCommonPart();
        for (const SkinStyle& first : FirstStyles())
            WriteKind(first);
        return m_text;
    }

private:
    void FindCommonKeys()
    {
        const QVector<SkinStyle> kinds = FirstStyles();
        for (const SkinStyle& kind : kinds) {
            if (kind.section == kind.kind)
                continue; // no numbers: the ruler and the menu
            const QVector<RecordedRead> reads = AllReadsOf(kind);
            if (m_commonKind.kind.isEmpty()) {
                m_commonKind = kind;
                m_common = reads;
                continue;
            }
            const auto isElsewhere = [&](const RecordedRead& common) {
                return std::none_of(reads.begin(), reads.end(), [&](const RecordedRead& read) {
                    return IsSameKey(common, read);
                });
            };
            m_common.erase(std::remove_if(m_common.begin(), m_common.end(), isElsewhere),
                           m_common.end());
        }
        // What is drawn in a row is of the row's kind, though all of them have such a section.
        m_common.erase(std::remove_if(m_common.begin(), m_common.end(),
                                      [](const RecordedRead& read) {
                                          return !read.via.isEmpty() &&
                                                 read.via != QLatin1String("Caption") &&
                                                 ButtonlessName(read.via, true) == read.via;
                                      }),
                       m_common.end());
    }

    bool IsCommon(const RecordedRead& read) const
    {
        return std::any_of(m_common.begin(), m_common.end(),
                           [&](const RecordedRead& common) { return IsSameKey(common, read); });
    }

    void WriteCommonPart()
    {
        m_text += QStringLiteral("\n## What every track section begins with\n\n"
                                 "All kinds but the ruler, in the order of reading.\n");
        QVector<SkinStyle> styles;
        for (const SkinStyle& style : StylesOf(m_skin)) {
            if (style.section != style.kind)
                styles << style;
        }
        WriteTables(m_commonKind.kind, m_common, styles);
    }

    void WriteKind(const SkinStyle& first)
    {
        for (const KindIntro& intro : kIntros) {
            if (first.kind != QLatin1String(intro.kind))
                continue;
            const bool isNumbered = first.section != first.kind;
            m_text += QStringLiteral("\n## %1\n\n`[%2]`%3. %4\n")
                          .arg(intro.title, first.section,
                               isNumbered ? QStringLiteral(" and on") : QString(), intro.intro);
            if (*intro.picture)
                m_text += QStringLiteral("\n![%1 in the styles of the default skin](%2)\n")
                              .arg(intro.title, intro.picture);
        }
        QVector<SkinStyle> styles;
        for (const SkinStyle& style : StylesOf(m_skin)) {
            if (style.kind == first.kind)
                styles << style;
        }
        QVector<RecordedRead> own;
        for (const RecordedRead& read : AllReadsOf(first)) {
            if (!IsCommon(read) || FactsOf(first.kind, read) != FactsOf(m_commonKind.kind, read))
                own << read;
        }
        WriteTables(first.kind, own, styles);
    }

    /// A table for each section that the reads are from.
    void WriteTables(const QString& kind, const QVector<RecordedRead>& reads,
                     const QVector<SkinStyle>& styles)
    {
        QStringList vias;
        for (const RecordedRead& read : reads) {
            if (!vias.contains(read.via))
                vias << read.via;
        }
        for (const QString& via : vias) {
            if (!via.isEmpty()) {
                m_text += QStringLiteral("\nIn the section that `%1` names:\n")
                              .arg(ButtonlessName(via, true) == via
                                       ? via
                                       : ButtonlessName(via, true) + "1`, `CaptionBtn2`, `...");
            }
            m_text += QStringLiteral("\n| key | written as | range | meaning | default skin |\n"
                                     "|---|---|---|---|---|\n");
            for (const RecordedRead& read : reads) {
                if (read.via == via)
                    WriteRows(kind, read, styles);
            }
        }
    }

    void WriteRows(const QString& kind, const RecordedRead& read, const QVector<SkinStyle>& styles)
    {
        for (const KeyFact* fact : FactsOf(kind, read)) {
            QString key = '`' + read.key + '`';
            if (fact->whenKey)
                key += QStringLiteral(", `%1` %2").arg(fact->whenKey).arg(fact->whenValue);
            m_text += QStringLiteral("| %1 | %2 | %3 | %4 | %5 |\n")
                          .arg(key, NumberOrSection(read.kind), RangeCell(*fact, read.kind),
                               QString::fromLatin1(fact->meaning), ValuesOf(read, *fact, styles));
        }
    }

    /// The values that the styles give to a key, each once, where the fact holds.
    QString ValuesOf(const RecordedRead& read, const KeyFact& fact,
                     const QVector<SkinStyle>& styles) const
    {
        QStringList values;
        for (const SkinStyle& style : styles) {
            for (const RecordedRead& own : ReadsOf(style, m_skin)) {
                const bool isButton = read.kind == SkinValueKind::OptionalSection;
                const bool isSame =
                    ButtonlessName(own.via, true) == ButtonlessName(read.via, true) &&
                    ButtonlessName(own.key, isButton) == ButtonlessName(read.key, isButton) &&
                    own.kind == read.kind;
                const SkinLines::Entry* const entry = m_skin.FindEntry(own.section, own.key);
                if (!isSame || !entry || FactIn(style, own) != &fact)
                    continue;
                const QString value = '`' + entry->value + '`';
                if (!values.contains(value))
                    values << value;
            }
        }
        return values.join(QStringLiteral(", "));
    }

    const KeyFact* FactIn(const SkinStyle& style, const RecordedRead& read) const
    {
        return FactOf(style.kind, read, [&](const QString& key) {
            const SkinLines::Entry* const entry = m_skin.FindEntry(read.section, key);
            return entry ? entry->value.toInt() : 0;
        });
    }

    const SkinLines& m_skin;
    SkinStyle m_commonKind;
    QVector<RecordedRead> m_common;
    QString m_text;
};

} // namespace

QString ReferenceText(const SkinLines& defaultSkin)
{
    return Page(defaultSkin).Write();
}

QString PictureName(const QString& trackKind)
{
    for (const KindIntro& intro : kIntros) {
        if (trackKind == QLatin1String(intro.kind))
            return QString::fromLatin1(intro.picture);
    }
    return {};
}
