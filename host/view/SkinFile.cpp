#include "SkinFile.h"

#include <QSettings>

#include <array>

namespace host {

namespace {

/// The name of a style's section without its number, for each TrackKind in the order of the
/// enumeration.
constexpr std::array<const char*, 6> kSections{"SwitchTrack",  "KeyTrack",       "TransKeyTrack",
                                               "LinkKeyTrack", "VisemeKeyTrack", "ClipTrack"};

// Pixels of the library's pictures.
constexpr int kCaptionButtonWidth = 17; ///< of the widest
constexpr int kArrowWidth = 7;
constexpr std::array<int, 2> kSwitchWidths{84, 110}; ///< by BtnBmpType

constexpr int kMostStyles = 64; ///< numbers beyond are not looked for

class Reader
{
public:
    explicit Reader(const QString& path) : m_file(path, QSettings::IniFormat) {}

    bool Has(const QString& section) const { return m_file.childGroups().contains(section); }
    QString Text(const QString& section, const QString& key) const
    {
        return m_file.value(section + u'/' + key).toString().trimmed();
    }
    int Number(const QString& section, const QString& key) const
    {
        return Text(section, key).toInt();
    }

private:
    QSettings m_file; // nothing is ever set
};

QVector<SkinFile::CaptionButton> ReadButtons(const Reader& skin, const QString& style)
{
    QVector<SkinFile::CaptionButton> buttons;
    for (int i = 1;; ++i) {
        const QString section = skin.Text(style, QStringLiteral("CaptionBtn%1").arg(i));
        if (section.isEmpty())
            return buttons;
        buttons.append({skin.Number(section, QStringLiteral("BtnID")),
                        skin.Number(section, QStringLiteral("BtnPos"))});
    }
}

} // namespace

SkinFile::SkinFile(const QString& path)
{
    if (path.isEmpty())
        return;
    const Reader skin(path);
    for (std::size_t kind = 0; kind < kSections.size(); ++kind) {
        for (int style = 1; style <= kMostStyles; ++style) {
            const QString section = QString::fromLatin1(kSections[kind]) + QString::number(style);
            if (!skin.Has(section))
                break;
            m_captions.insert({static_cast<int>(kind), style}, ReadButtons(skin, section));
            if (static_cast<TrackKind>(kind) != TrackKind::Switch)
                continue;
            const QString look = skin.Text(section, QStringLiteral("TrackKey"));
            const auto picture =
                static_cast<std::size_t>(skin.Number(look, QStringLiteral("BtnBmpType")));
            m_switches.insert(style, {kSwitchWidths[picture < kSwitchWidths.size() ? picture : 0],
                                      skin.Number(look, QStringLiteral("BtnGapSize"))});
        }
    }
}

std::optional<int> SkinFile::CaptionButtonAt(TrackKind kind, int style, int x) const
{
    std::optional<CaptionButton> found;
    for (const CaptionButton& button : m_captions.value({static_cast<int>(kind), style})) {
        const bool isHit = x >= button.left && x < button.left + kCaptionButtonWidth;
        if (isHit && (!found || button.left > found->left)) // narrow ones stand closer
            found = button;
    }
    return found ? std::optional<int>(found->number) : std::nullopt;
}

int SkinFile::WidthOfSwitches(int style, int buttons) const
{
    const Switches sizes = m_switches.value(style);
    return buttons * (sizes.button + sizes.gap) - sizes.gap + 2 * kArrowWidth;
}

int SkinFile::WidthOfArrow()
{
    return kArrowWidth;
}

} // namespace host
