#pragma once

#include <QColor>
#include <QFile>
#include <QMap>
#include <QString>
#include <QStringList>

/// The default skin as its author wrote it: section, key, text. Read line by line and independently
/// of the library's own reader, so that a check of the skin's looks leans on nothing else.
class SkinText
{
public:
    /// False when the file cannot be read.
    bool Load(const QString& path)
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
            return false;
        QString section;
        const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
        for (const QString& line : lines) {
            const QString text = line.trimmed();
            const int equals = static_cast<int>(text.indexOf(QLatin1Char('=')));
            if (text.isEmpty() || text.startsWith(QLatin1Char(';')))
                continue;
            if (text.startsWith(QLatin1Char('[')))
                section = text.mid(1, text.size() - 2);
            else if (equals > 0)
                m_sections[section][text.left(equals).trimmed()] = text.mid(equals + 1).trimmed();
        }
        return true;
    }

    /// The sections whose names are @p kind followed by a number.
    QStringList StylesOf(const QString& kind) const
    {
        QStringList styles;
        for (auto it = m_sections.keyBegin(); it != m_sections.keyEnd(); ++it) {
            bool isNumber = false;
            if (it->startsWith(kind))
                it->midRef(kind.size()).toInt(&isNumber);
            if (isNumber)
                styles.append(*it);
        }
        return styles;
    }

    bool Has(const QString& section, const QString& key) const
    {
        return m_sections.value(section).contains(key);
    }
    QString Text(const QString& section, const QString& key) const
    {
        return m_sections.value(section).value(key);
    }
    int Number(const QString& section, const QString& key) const
    {
        return Text(section, key).toInt();
    }
    /// The components of a point or a colour.
    QList<int> Numbers(const QString& section, const QString& key) const
    {
        const QString text = Text(section, key);
        QList<int> numbers;
        for (const QString& piece : text.mid(1, text.size() - 2).split(QLatin1Char(',')))
            numbers.append(piece.toInt());
        return numbers;
    }
    /// Invalid when the key is absent.
    QColor Colour(const QString& section, const QString& key) const
    {
        const QList<int> numbers = Numbers(section, key);
        if (numbers.size() < 3)
            return QColor();
        return QColor(numbers[0], numbers[1], numbers[2]);
    }

private:
    QMap<QString, QMap<QString, QString>> m_sections;
};
