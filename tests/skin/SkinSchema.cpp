#include "SkinSchema.h"

#include <QStringList>

namespace KestovaTest {

namespace {

constexpr auto I = Value::Int;
constexpr auto T = Value::Text;
constexpr auto P = Value::Point;
constexpr auto C = Value::Colour;
constexpr auto A = Value::ColourWithAlpha;
constexpr auto S = Value::Section;

QVector<SchemaKey> CommonPart(int buttonCount)
{
    QVector<SchemaKey> keys = {
        {"", "TrackBgType", I},          {"", "TrackBgID", I},      {"", "Disable", A},
        {"", "DisableSel", A},           {"", "Caption", S},        {"Caption", "BitmapID", I},
        {"Caption", "BitmapFocusID", I}, {"Caption", "TxtPos", P},  {"Caption", "TxtColor", C},
        {"Caption", "TxtColorFocus", C}, {"Caption", "TxtSize", I}, {"Caption", "TxtPixSize", I},
        {"Caption", "TxtFace", T},
    };
    for (int number = 1; number <= buttonCount; ++number) {
        const QString name = QStringLiteral("CaptionBtn%1").arg(number);
        keys << SchemaKey{"", name, S} << SchemaKey{name, "BtnID", I}
             << SchemaKey{name, "BtnType", I} << SchemaKey{name, "BtnBmpID", I}
             << SchemaKey{name, "BtnPos", I} << SchemaKey{name, "BtnTipTxt", T};
    }
    return keys;
}

const QVector<SchemaKey> kTick = {
    {"", "MarkLine", C},   {"", "TxtOffset", I}, {"", "TxtSizeRatio", I},
    {"", "TxtMinSize", I}, {"", "TxtFace", T},   {"", "TxtColor", C},
};

const QVector<SchemaKey> kSwitch = {
    {"", "TrackKey", S},           {"TrackKey", "ScrollBmpType", I}, {"TrackKey", "BtnBmpType", I},
    {"TrackKey", "BtnGapSize", I}, {"TrackKey", "TxtColor", C},      {"TrackKey", "TxtColorOn", C},
    {"TrackKey", "TxtSize", I},    {"TrackKey", "TxtFace", T},
};

const QVector<SchemaKey> kKey = {
    {"", "TrackKey", S},
    {"TrackKey", "KeyAlign", I},
    {"TrackKey", "KeyBmpType", I},
    {"TrackKey", "RelKeyBmpType", I},
    {"TrackKey", "ClipHeight", I},
    {"TrackKey", "ClipBorder", C},
    {"TrackKey", "ClipBorderSel", C},
};

const QVector<SchemaKey> kLine = {
    {"", "TrackKey", S},
    {"TrackKey", "KeyBmpType", I},
    {"TrackKey", "LineHeight", I},
    {"TrackKey", "ClipHeight", I},
    {"TrackKey", "LineBorder", C},
    {"TrackKey", "LineBorderSel", C},
    {"TrackKey", "LineFill", C},
    {"TrackKey", "LineFillSel", C},
    {"TrackKey", "LineBorder1", C},
    {"TrackKey", "LineBorderSel1", C},
    {"TrackKey", "LineFill1", C},
    {"TrackKey", "LineFillSel1", C},
    {"TrackKey", "Disable", A},
    {"TrackKey", "DisableSel", A},
    {"TrackKey", "RelKeyBmpType", I},
    {"TrackKey", "RelLineBorder", C},
    {"TrackKey", "RelLineBorderSel", C},
    {"TrackKey", "RelLineFill", C},
    {"TrackKey", "RelLineFillSel", C},
    {"TrackKey", "ClipBorder", C},
    {"TrackKey", "ClipBorderSel", C},
};

const QStringList kLook = {
    "Border",     "BorderSel",     "Fill",          "FillSel",
    "TxtColor",   "TxtColorSel",   "TxtColorTrial", "TxtColorSelTrial",
    "GradientUp", "GradientUpSel", "GradientDown",  "GradientDownSel",
};

QVector<SchemaKey> ClipLooks()
{
    QVector<SchemaKey> keys;
    for (const QString via : {"TrackKey", "TrackKey1", "3DTrackKey"}) {
        keys << SchemaKey{"", via, S};
        if (via == "TrackKey")
            keys << SchemaKey{via, "Height", I};
        for (const QString& key : kLook)
            keys << SchemaKey{via, key, C};
    }
    return keys << SchemaKey{"3DTrackKey", "TxtSize", I} << SchemaKey{"3DTrackKey", "TxtFace", T};
}

const QVector<SchemaKey> kWave = {
    {"", "TrackKey", S},
    {"TrackKey", "WaveColor", C},
    {"TrackKey", "WaveColorSel", C},
    {"TrackKey", "ClipHeight", I},
    {"TrackKey", "ClipBorder", C},
    {"TrackKey", "ClipBorderSel", C},
    {"TrackKey", "CaptionFill", C},
    {"TrackKey", "CaptionBorder", C},
    {"TrackKey", "CaptionTop", C},
    {"TrackKey", "CaptionBtn1", C},
    {"TrackKey", "CaptionBtn2", C},
    {"TrackKey", "CaptionLeft", C},
    {"TrackKey", "WaveTrackBg", C},
    {"TrackKey", "WaveTrackBgTopLine", C},
    {"TrackKey", "WaveTrackBgBtnLine1", C},
    {"TrackKey", "WaveTrackBgBtnLine2", C},
};

/// A value of the given kind that differs from those of other numbers and from every default.
QString DistinctValue(Value kind, int number)
{
    const int component = 1 + number;
    switch (kind) {
    case Value::Int:
        return QString::number(100 + number);
    case Value::Text:
        return QStringLiteral("Text %1").arg(number);
    case Value::Point:
        return QStringLiteral("(%1,%2)").arg(1000 + number).arg(2000 + number);
    case Value::Colour:
        return QStringLiteral("(%1,%2,%3)").arg(component).arg(255 - component).arg(7);
    case Value::ColourWithAlpha:
        return QStringLiteral("(%1,%2,%3,%4)").arg(component).arg(255 - component).arg(7).arg(90);
    case Value::Section:
        break;
    }
    return {};
}

} // namespace

QVector<SchemaKey> SchemaOf(int trackType, int buttonCount)
{
    switch (trackType) {
    case 2:
        return kTick;
    case 3:
        return CommonPart(buttonCount) + kSwitch;
    case 4:
    case 7:
        return CommonPart(buttonCount) + kKey;
    case 5:
    case 6:
        return CommonPart(buttonCount) + kKey + kLine;
    case 8:
        return CommonPart(buttonCount) + ClipLooks();
    case 9:
        return CommonPart(buttonCount) + kWave;
    default:
        return {};
    }
}

QString TrackSection(int trackType, int styleNumber)
{
    static const QHash<int, QString> names = {
        {3, "SwitchTrack"},    {4, "KeyTrack"},  {5, "TransKeyTrack"}, {6, "LinkKeyTrack"},
        {7, "VisemeKeyTrack"}, {8, "ClipTrack"}, {9, "WaveTrack"},
    };
    return trackType == 2 ? QStringLiteral("TickTrack")
                          : names.value(trackType) + QString::number(styleNumber);
}

QVector<SkinLine> CompleteSkin(int trackType, int styleNumber, int buttonCount)
{
    const QString track = TrackSection(trackType, styleNumber);
    QVector<SkinLine> lines;
    QHash<QString, QString> values;
    for (const SchemaKey& key : SchemaOf(trackType, buttonCount)) {
        const QString section = key.via.isEmpty() ? track : key.via + " of " + track;
        QString& value = values[section + '/' + key.key];
        if (value.isEmpty()) {
            value = key.value == Value::Section ? key.key + " of " + track
                                                : DistinctValue(key.value, lines.size());
        }
        lines << SkinLine{section, key.key, value};
    }
    return lines;
}

QByteArray SkinText(const QVector<SkinLine>& lines, const QVector<SkinLine>& leftOut)
{
    const auto isSame = [](const SkinLine& a, const SkinLine& b) {
        return a.section == b.section && a.key == b.key;
    };
    QVector<SkinLine> written = leftOut;
    QString text;
    for (const SkinLine& line : lines) {
        bool skip = false;
        for (const SkinLine& other : written)
            skip = skip || isSame(line, other);
        if (skip)
            continue;
        written << line;
        text += QStringLiteral("[%1]\n%2 = %3\n").arg(line.section, line.key, line.value);
    }
    return text.toUtf8();
}

SkinMap::SkinMap(const QByteArray& text)
{
    for (const QString& line : QString::fromUtf8(text).split('\n'))
        AddLine(line);
}

void SkinMap::AddLine(const QString& line)
{
    const QString trimmed = line.trimmed();
    if (trimmed.isEmpty() || trimmed[0] == ';' || trimmed[0] == '#')
        return;
    if (trimmed[0] == '[') {
        const int end = trimmed.indexOf(']');
        if (end > 0) {
            m_section = trimmed.mid(1, end - 1).trimmed().toLower();
            m_sections[m_section];
        }
        return;
    }
    const int equals = trimmed.indexOf('=');
    if (equals > 0)
        m_sections[m_section][trimmed.left(equals).trimmed().toLower()] =
            trimmed.mid(equals + 1).trimmed();
}

bool SkinMap::Has(const QString& section, const QString& key) const
{
    const auto found = m_sections.constFind(section.toLower());
    return found != m_sections.constEnd() && found->contains(key.toLower());
}

QString SkinMap::Text(const QString& section, const QString& key) const
{
    const QString text = m_sections.value(section.toLower()).value(key.toLower());
    const bool quoted = text.size() >= 2 && text.startsWith('"') && text.endsWith('"');
    return quoted ? text.mid(1, text.size() - 2) : text;
}

int SkinMap::ButtonCount(const QString& trackSection) const
{
    int count = 0;
    while (Has(trackSection, QStringLiteral("CaptionBtn%1").arg(count + 1)))
        ++count;
    return count;
}

QString SkinMap::FirstMissing(int trackType, int styleNumber) const
{
    const QString track = TrackSection(trackType, styleNumber);
    for (const SchemaKey& key : SchemaOf(trackType, ButtonCount(track))) {
        const QString section = key.via.isEmpty() ? track : Text(track, key.via);
        if (!Has(section, key.key))
            return QStringLiteral("[%1] %2").arg(section, key.key);
    }
    return {};
}

bool SkinMap::IsComplete(int trackType, int styleNumber) const
{
    return FirstMissing(trackType, styleNumber).isEmpty();
}

QStringList SkinMap::Sections() const
{
    return m_sections.keys();
}

QStringList SkinMap::Keys(const QString& section) const
{
    return m_sections.value(section.toLower()).keys();
}

QStringList SkinMap::StylesOf(const QString& kind) const
{
    QStringList styles;
    for (const QString& section : Sections()) {
        bool isNumber = false;
        if (section.startsWith(kind.toLower()))
            section.midRef(kind.size()).toInt(&isNumber);
        if (isNumber)
            styles << section;
    }
    styles.sort();
    return styles;
}

int SkinMap::Number(const QString& section, const QString& key) const
{
    return Text(section, key).toInt();
}

QList<int> SkinMap::Numbers(const QString& section, const QString& key) const
{
    const QString text = Text(section, key);
    QList<int> numbers;
    for (const QString& piece : text.mid(1, text.size() - 2).split(','))
        numbers << piece.toInt();
    return numbers;
}

QColor SkinMap::Colour(const QString& section, const QString& key) const
{
    const QList<int> numbers = Numbers(section, key);
    return numbers.size() < 3 ? QColor() : QColor(numbers[0], numbers[1], numbers[2]);
}

} // namespace KestovaTest
