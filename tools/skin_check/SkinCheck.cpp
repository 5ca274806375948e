#include "SkinCheck.h"

#include "KeyFacts.h"
#include "RecordedReads.h"
#include "ValueCheck.h"

#include "skin/CProfile.h"
#include "skin/StrictUtf8.h"

#include <QFile>
#include <QSet>

#include <algorithm>

QString SkinFault::Text(const QString& file) const
{
    QString place = QStringLiteral("%1:%2: ").arg(file).arg(line);
    if (weight == Warning)
        place += QStringLiteral("warning: ");
    if (!section.isEmpty())
        place += QStringLiteral("[%1]").arg(section) + (key.isEmpty() ? ": " : " ");
    if (!key.isEmpty())
        place += key + ": ";
    return place + message;
}

namespace {

/// One run over a skin.
class Check
{
public:
    explicit Check(const SkinLines& skin) : m_skin(skin) {}

    QVector<SkinFault> Run()
    {
        for (const SkinStyle& style : StylesOf(m_skin))
            CheckStyle(style);
        CheckKinds();
        CheckUse();
        CheckLines();
        std::stable_sort(m_faults.begin(), m_faults.end(),
                         [](const SkinFault& left, const SkinFault& right) {
                             return std::make_pair(left.weight, left.line) <
                                    std::make_pair(right.weight, right.line);
                         });
        return m_faults;
    }

private:
    void Add(SkinFault::Weight weight, int line, const QString& section, const QString& key,
             const QString& message)
    {
        // Looks are shared by many styles, and what is wrong with one is said once.
        const SkinFault fault = {weight, line, section, key, message};
        const QString text = fault.Text({});
        if (m_said.contains(text))
            return;
        m_said << text;
        m_faults << fault;
    }

    void CheckStyle(const SkinStyle& style)
    {
        for (const RecordedRead& read : ReadsOf(style, m_skin)) {
            m_used << UsedName(read.section, {}) << UsedName(read.section, read.key);
            if (!read.sectionIsNamed)
                continue; // the key that should name it was reported
            const SkinLines::Section* const section = m_skin.FindSection(read.section);
            const SkinLines::Entry* const entry = m_skin.FindEntry(read.section, read.key);
            if (!section)
                ReportMissingSection(style, read);
            else if (!entry)
                ReportMissingKey(style, read, *section);
            else
                CheckValue(style, read, *section, *entry);
        }
    }

    void ReportMissingSection(const SkinStyle& style, const RecordedRead& read)
    {
        if (read.via.isEmpty()) {
            Add(SkinFault::Error, m_skin.LineCount(), read.section, {},
                QStringLiteral("the section is missing"));
            return;
        }
        const SkinLines::Entry* const naming = m_skin.FindEntry(style.section, read.via);
        Add(SkinFault::Error, naming ? naming->line : m_skin.LineCount(), style.section, read.via,
            QStringLiteral("expected the name of a section, found \"%1\", which is missing")
                .arg(read.section));
    }

    void ReportMissingKey(const SkinStyle& style, const RecordedRead& read,
                          const SkinLines::Section& section)
    {
        const KeyFact* const fact = FactIn(style, read);
        const QString meaning = fact ? QLatin1String(fact->meaning) : QString();
        Add(SkinFault::Error, section.line, section.name, read.key,
            QStringLiteral("the key is missing: expected %1. %2")
                .arg(KindText(read.kind), meaning)
                .trimmed());
    }

    void CheckValue(const SkinStyle& style, const RecordedRead& read,
                    const SkinLines::Section& section, const SkinLines::Entry& entry)
    {
        const KeyFact* const fact = FactIn(style, read);
        // Where another key is out of its range, this one may have no meaning left to check.
        static constexpr KeyFact kNothingKnown = {"", "", "", {}, "", ""};
        const QString fault = FaultOfValue(entry.value, read.kind, fact ? *fact : kNothingKnown);
        if (!fault.isEmpty())
            Add(SkinFault::Error, entry.line, section.name, read.key, fault);
    }

    const KeyFact* FactIn(const SkinStyle& style, const RecordedRead& read) const
    {
        return FactOf(style.kind, read, [&](const QString& key) {
            const SkinLines::Entry* const entry = m_skin.FindEntry(read.section, key);
            return entry ? entry->value.toInt() : 0;
        });
    }

    /// Every kind of track has a style, or no host can show a track of it.
    void CheckKinds()
    {
        const QVector<SkinStyle> styles = StylesOf(m_skin);
        for (const SkinStyle& first : FirstStyles()) {
            const bool has = std::any_of(styles.begin(), styles.end(), [&](const SkinStyle& style) {
                return style.kind == first.kind;
            });
            if (!has) {
                Add(SkinFault::Warning, m_skin.LineCount(), first.section, {},
                    QStringLiteral("the section is missing, and so is every other style of this "
                                   "kind: no track of it can be shown"));
            }
        }
    }

    void CheckUse()
    {
        for (const SkinLines::Section& section : m_skin.Sections()) {
            for (const int again : section.openedAgainAt) {
                Add(SkinFault::Warning, again, section.name, {},
                    QStringLiteral("opened again; it continues the section of line %1")
                        .arg(section.line));
            }
            if (!m_used.contains(UsedName(section.name, {}))) {
                Add(SkinFault::Warning, std::max(1, section.line), section.name, {},
                    section.line == 0
                        ? QStringLiteral("keys before the first section are not used")
                        : QStringLiteral("not used: it is no style of a track, and no used style "
                                         "names it"));
                continue;
            }
            CheckEntries(section);
        }
    }

    void CheckEntries(const SkinLines::Section& section)
    {
        for (const SkinLines::Entry& entry : section.entries) {
            if (!m_used.contains(UsedName(section.name, entry.name))) {
                Add(SkinFault::Warning, entry.line, section.name, entry.name,
                    QStringLiteral("not used"));
            }
            if (entry.repeatedAt != 0) {
                Add(SkinFault::Warning, entry.line, section.name, entry.name,
                    QStringLiteral("repeated; it replaces the value of line %1")
                        .arg(entry.repeatedAt));
            }
        }
    }

    void CheckLines()
    {
        for (const SkinLines::StrayLine& stray : m_skin.StrayLines()) {
            const QString expected =
                stray.text.startsWith('[')
                    ? QStringLiteral("expected a ] at the end of the section's name, without which "
                                     "the keys below it are lost")
                    : QStringLiteral("expected a [Section], a key = value or a ; comment");
            Add(SkinFault::Error, stray.line, {}, {},
                QStringLiteral("%1; found \"%2\"").arg(expected, stray.text.trimmed()));
        }
    }

    static QString UsedName(const QString& section, const QString& key)
    {
        return FoldedName(section) + '\n' + FoldedName(key);
    }

    const SkinLines& m_skin;
    QSet<QString> m_used;
    QSet<QString> m_said;
    QVector<SkinFault> m_faults;
};

/// The line of the first bytes that are not UTF-8, counted from 1.
int FirstBadLine(const QByteArray& bytes)
{
    const StrictUtf8<wchar_t> decoder(true);
    int number = 1;
    for (const QByteArray& line : bytes.split('\n')) {
        if (decoder.SizeFromStore(line.constData(), static_cast<std::size_t>(line.size())) ==
            static_cast<std::size_t>(-1))
            return number;
        ++number;
    }
    return number;
}

} // namespace

QVector<SkinFault> CheckSkin(const SkinLines& skin)
{
    return Check(skin).Run();
}

bool ReadSkin(const QString& path, SkinLines& skin, QString& trouble)
{
    constexpr int kNotWellFormed = -1;
    VZ::CProfile profile; // whether the library can read the file is for its own reader to say
    const unsigned int result = profile.Load(path.toStdWString(), true);
    if (result == VZ::CProfile::kFileNotFound) {
        trouble = QStringLiteral("there is no such file");
        return false;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        trouble = file.errorString();
        return false;
    }
    const QByteArray bytes = file.readAll();
    if (result == VZ::CProfile::kSuccess) {
        skin = SkinLines(QString::fromUtf8(bytes));
        return true;
    }
    trouble = profile.LoadResult() == kNotWellFormed
                  ? QStringLiteral("line %1 is not well-formed UTF-8").arg(FirstBadLine(bytes))
                  : QStringLiteral("it cannot be read");
    return false;
}
