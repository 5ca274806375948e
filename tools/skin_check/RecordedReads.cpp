#include "RecordedReads.h"

#include "skin/TrackStyleReader.h"

#include <memory>

const QString kMenuSection = QStringLiteral("TrackRightMenu");

namespace {

constexpr int kMenuTrackType = 0;
/// No section of a file can be called so.
const QString kUnnamedSection = QStringLiteral("\n");

/// Lets the readers read on where the skin lacks something, and writes down what they ask for.
class RecordingSkin final : public SkinSource
{
public:
    /// @p inventedButtons: how many buttons a caption has that the skin does not name.
    RecordingSkin(const SkinLines& skin, int inventedButtons)
        : m_skin(skin), m_inventedButtons(inventedButtons)
    {
    }

    void AboutToRead(const SkinRead& read) const override
    {
        const QString section = QString::fromStdWString(read.section);
        m_last = {section, QString::fromStdWString(read.key), QString::fromStdWString(read.via),
                  read.kind, section != kUnnamedSection};
        for (const RecordedRead& earlier : qAsConst(m_reads)) {
            if (earlier.section == m_last.section && earlier.key == m_last.key &&
                earlier.via == m_last.via)
                return;
        }
        m_reads << m_last;
    }

    bool ReadText(const std::wstring& section, const std::wstring& key,
                  std::wstring& text) const override
    {
        if (const SkinLines::Entry* const entry = Find(section, key)) {
            text = entry->value.toStdWString();
            return true;
        }
        if (m_last.kind == SkinValueKind::OptionalSection && m_inventedButtons-- <= 0) {
            m_reads.removeLast();
            return false;
        }
        text = m_last.NamesSection() ? kUnnamedSection.toStdWString() : std::wstring();
        return true;
    }
    /// No reader decides anything by a number.
    bool ReadInt(const std::wstring& /*section*/, const std::wstring& /*key*/,
                 int& number) const override
    {
        number = 0;
        return true;
    }

    const QVector<RecordedRead>& Reads() const { return m_reads; }

private:
    const SkinLines::Entry* Find(const std::wstring& section, const std::wstring& key) const
    {
        return m_skin.FindEntry(QString::fromStdWString(section), QString::fromStdWString(key));
    }

    const SkinLines& m_skin;
    mutable int m_inventedButtons;
    mutable RecordedRead m_last;
    mutable QVector<RecordedRead> m_reads;
};

QVector<RecordedRead> Record(const SkinStyle& style, const SkinLines& skin, int inventedButtons)
{
    const RecordingSkin recorder(skin, inventedButtons);
    if (style.trackType == kMenuTrackType) {
        QString face;
        int points = 0;
        ReadContextMenuFont(recorder, face, points);
    } else {
        std::unique_ptr<StyleRecord> record;
        LoadTrackStyle(recorder, style.number, style.trackType, record);
    }
    return recorder.Reads();
}

SkinStyle StyleOf(const SkinTrackKind& kind, int number)
{
    const QString name = QString::fromWCharArray(kind.section);
    return {name, kind.trackType, number, kind.numbered ? name + QString::number(number) : name};
}

SkinStyle MenuStyle()
{
    return {kMenuSection, kMenuTrackType, 1, kMenuSection};
}

} // namespace

QVector<SkinStyle> FirstStyles()
{
    QVector<SkinStyle> styles;
    for (const SkinTrackKind& kind : SkinTrackKinds())
        styles << StyleOf(kind, 1);
    return styles << MenuStyle();
}

QVector<SkinStyle> StylesOf(const SkinLines& skin)
{
    QVector<SkinStyle> styles;
    for (const SkinTrackKind& kind : SkinTrackKinds()) {
        if (!kind.numbered) {
            styles << StyleOf(kind, 1);
            continue;
        }
        const QString base = QString::fromWCharArray(kind.section);
        for (const SkinLines::Section& section : skin.Sections()) {
            bool isNumber = false;
            const SkinStyle style = StyleOf(kind, section.name.mid(base.size()).toInt(&isNumber));
            // Compared whole, since the library writes numbers in one way only: "KeyTrack01" is
            // never looked for.
            if (isNumber && FoldedName(style.section) == FoldedName(section.name))
                styles << style;
        }
    }
    return styles << MenuStyle();
}

QVector<RecordedRead> ReadsOf(const SkinStyle& style, const SkinLines& skin)
{
    return Record(style, skin, 0);
}

QVector<RecordedRead> AllReadsOf(const SkinStyle& style)
{
    return Record(style, SkinLines(), 1);
}
