#include "LineSound.h"

#include "WavReader.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

namespace host {

std::optional<Sound> SoundOfLine(const QByteArray& cues, const QString& path)
{
    const QJsonObject metadata =
        QJsonDocument::fromJson(cues).object().value(QLatin1String("metadata")).toObject();
    const QString name = metadata.value(QLatin1String("soundFile")).toString();
    if (name.isEmpty())
        return std::nullopt;
    const QString sound = QDir::cleanPath(QFileInfo(path).absoluteDir().absoluteFilePath(name));
    ImportError ignored;
    const std::optional<double> seconds = ReadWavSeconds(sound, ignored);
    return seconds ? std::make_optional(Sound{sound, *seconds}) : std::nullopt;
}

} // namespace host
