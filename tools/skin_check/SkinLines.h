#pragma once

#include <QMap>
#include <QString>
#include <QVector>

/// A name of a section or key as skins compare it: the ASCII letters folded and no others.
QString FoldedName(const QString& name);

/// The text of a skin as the library's reader takes it, but with the number of every line: the
/// reader itself answers values alone.
class SkinLines
{
public:
    struct Entry
    {
        QString name; ///< as it is written
        QString value;
        int line = 0;
        int repeatedAt = 0; ///< an earlier line whose value this one replaces; 0: none
    };
    struct Section
    {
        QString name; ///< as it is written first
        int line = 0; ///< 0: the keys before the first section
        QVector<int> openedAgainAt;
        QMap<QString, Entry> entries; ///< by folded name
    };
    /// A line that is neither section nor key nor comment. Below one that begins like a section,
    /// all keys up to the next section are lost.
    struct StrayLine
    {
        int line;
        QString text;
    };

    SkinLines() = default;
    explicit SkinLines(const QString& text);

    /// All sections by folded name.
    const QMap<QString, Section>& Sections() const { return m_sections; }
    /// Null when there is none.
    const Section* FindSection(const QString& name) const;
    const Entry* FindEntry(const QString& section, const QString& key) const;
    const QVector<StrayLine>& StrayLines() const { return m_strayLines; }
    int LineCount() const { return m_line; }

private:
    class Scanner;

    void OpenSection(const QString& name, int line);
    void AddEntry(const QString& key, const QString& value, int line);

    QMap<QString, Section> m_sections;
    QString m_current;
    bool m_isLost = false; ///< below a line that should have opened a section
    QVector<StrayLine> m_strayLines;
    int m_line = 1;
};
