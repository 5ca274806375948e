#include "LineSound.h"

#include "WavReader.h"
#include "playback/WavFile.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

namespace host {

std::optional<Sound> SoundOfLine(const QByteArray& cues, const QString& path, QString& problem)
{
    const QJsonObject metadata =
        QJsonDocument::fromJson(cues).object().value(QLatin1String("metadata")).toObject();
    const QString name = metadata.value(QLatin1String("soundFile")).toString();
    if (name.isEmpty())
        return std::nullopt;
    const QString sound = QDir::cleanPath(QFileInfo(path).absoluteDir().absoluteFilePath(name));
    ImportError error;
    const std::optional<double> seconds = ReadWavSeconds(sound, error);
    problem = seconds ? SilenceOf(sound) : error.Message();
    return seconds ? std::make_optional(Sound{sound, *seconds}) : std::nullopt;
}

} // namespace host
