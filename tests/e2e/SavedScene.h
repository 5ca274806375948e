#pragma once

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>
#include <QVector>

/// What stands in a saved document, read without the program's help.
class SavedScene
{
public:
    explicit SavedScene(const QString& path)
    {
        QFile file(path);
        if (file.open(QFile::ReadOnly))
            m_json = QJsonDocument::fromJson(file.readAll()).object();
    }

    /// Whether there is a scene.
    bool IsThere() const { return !Rows().isEmpty(); }
    QJsonArray Rows() const { return m_json[QStringLiteral("tracks")].toArray(); }
    int CurrentFrame() const
    {
        return m_json[QStringLiteral("view")].toObject()[QStringLiteral("frame")].toInt(-1);
    }

    QJsonObject Row(const QString& caption) const
    {
        for (const QJsonValue& row : Rows()) {
            if (row.toObject()[QStringLiteral("caption")].toString() == caption)
                return row.toObject();
        }
        return {};
    }

    /// The frames of the row's keys, in the file's order.
    QVector<int> Frames(const QString& caption) const
    {
        QVector<int> frames;
        for (const QJsonValue& key : Row(caption)[QStringLiteral("keys")].toArray())
            frames.append(key.toObject()[QStringLiteral("frame")].toInt(-1));
        return frames;
    }

    /// All rows but that one.
    QJsonArray OtherRows(const QString& caption) const
    {
        QJsonArray others;
        for (const QJsonValue& row : Rows()) {
            if (row.toObject()[QStringLiteral("caption")].toString() != caption)
                others.append(row);
        }
        return others;
    }

private:
    QJsonObject m_json;
};
