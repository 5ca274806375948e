#pragma once

#include <QByteArray>
#include <QColor>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVector>

namespace KestovaTest {

/// How a value is written in a skin.
enum class Value
{
    Int,
    Text,
    Point,
    Colour,
    ColourWithAlpha,
    Section ///< the name of another section
};

/// One key that a kind of track reads.
struct SchemaKey
{
    QString via; ///< the key of the track section that names the section; empty: the track section
    QString key;
    Value value;
};

/// The keys that a track type (2 to 9) reads, in the order of reading, with as many caption
/// buttons. A key that is read twice stands twice. Written down for the tests, apart from the
/// readers.
QVector<SchemaKey> SchemaOf(int trackType, int buttonCount);

/// The section of a track type and style number; of the context menu for track type 0.
QString TrackSection(int trackType, int styleNumber);

constexpr int kFirstTrackType = 2;
constexpr int kLastTrackType = 9;

/// One line of a skin, filled with a value that no other line has.
struct SkinLine
{
    QString section;
    QString key;
    QString value;
};

/// A complete section of a track and all the sections it names, in the order of reading. Nothing is
/// shared with another track; the value of a key that is read twice is the same both times.
QVector<SkinLine> CompleteSkin(int trackType, int styleNumber, int buttonCount);

/// The lines as the text of a skin; repeated lines once, and those of @p leftOut not at all.
QByteArray SkinText(const QVector<SkinLine>& lines, const QVector<SkinLine>& leftOut = {});

/// A little reader of skins in complete lines, which shares nothing with the library's.
class SkinMap
{
public:
    SkinMap() = default;
    explicit SkinMap(const QByteArray& text);

    /// Takes one line: a section, a key with its value, or anything else, which is ignored.
    void AddLine(const QString& line);
    bool Has(const QString& section, const QString& key) const;
    QString Text(const QString& section, const QString& key) const;
    /// The number of caption buttons in a row from 1 that a track section names.
    int ButtonCount(const QString& trackSection) const;
    /// Whether every key is there that a track of this type and style number reads.
    bool IsComplete(int trackType, int styleNumber) const;
    /// The first key that is not there, as "[section] key"; empty when complete.
    QString FirstMissing(int trackType, int styleNumber) const;
    /// Names of all sections, in lower case.
    QStringList Sections() const;
    QStringList Keys(const QString& section) const;

    /// The sections, in lower case, whose names are @p kind followed by a number.
    QStringList StylesOf(const QString& kind) const;
    int Number(const QString& section, const QString& key) const;
    /// The components of a point or a colour.
    QList<int> Numbers(const QString& section, const QString& key) const;
    /// Invalid when the key is absent.
    QColor Colour(const QString& section, const QString& key) const;

private:
    QString m_section;
    QHash<QString, QHash<QString, QString>> m_sections;
};

} // namespace KestovaTest
