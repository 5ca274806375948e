#include "DocumentFile.h"

#include "SceneJson.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace host {

namespace {

/// Gives each sound of the keys the path that @p change makes of it. Keys that play none are not
/// touched and stay shared.
template <class Change>
void ChangeSounds(Scene& scene, const Change& change)
{
    for (int row = 0; row < scene.tracks.size(); ++row) {
        for (int i = 0; i < qAsConst(scene).tracks[row].keys.size(); ++i) {
            const QString sound = qAsConst(scene).tracks[row].keys[i].sound;
            const QString changed = sound.isEmpty() ? sound : change(sound);
            if (changed != sound)
                scene.tracks[row].keys[i].sound = changed;
        }
    }
}

/// The sound's path as seen from the folder, when it lies inside; else as it is.
QString PlaceIn(const QDir& folder, const QString& sound)
{
    if (QDir::isRelativePath(sound))
        return sound;
    const QString place = folder.relativeFilePath(sound);
    const bool isInside = QDir::isRelativePath(place) && place != QLatin1String("..") &&
                          !place.startsWith(QLatin1String("../"));
    return isInside ? place : sound;
}

QString Told(const QString& path, const QString& what)
{
    return QFileInfo(path).fileName() + QStringLiteral(": ") + what;
}

} // namespace

bool IsDocument(const QString& path)
{
    return QFileInfo(path).suffix().compare(QLatin1String(kDocumentSuffix), Qt::CaseInsensitive) ==
           0;
}

FileStamp StampOf(const QString& path)
{
    const QFileInfo file(path);
    return file.exists() ? FileStamp{file.size(), file.lastModified()} : FileStamp{};
}

std::optional<SceneDocument> ReadDocument(const QString& path, QString& error)
{
    QFile file(path);
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly)) {
        error = Told(path, QStringLiteral("expected a readable file (%1)").arg(file.errorString()));
        return std::nullopt;
    }
    const QByteArray text = file.readAll();
    QString fault;
    if (file.error() != QFileDevice::NoError)
        fault = QStringLiteral("expected a readable file (%1)").arg(file.errorString());
    std::optional<SceneDocument> document =
        fault.isEmpty() ? ReadSceneJson(text, fault) : std::nullopt;
    if (!document) {
        error = Told(path, fault);
        return std::nullopt;
    }
    const QDir folder = QFileInfo(path).absoluteDir();
    ChangeSounds(document->scene, [&folder](const QString& sound) {
        return QDir::isRelativePath(sound) ? QDir::cleanPath(folder.filePath(sound)) : sound;
    });
    return document;
}

bool WriteDocument(const QString& path, const SceneDocument& document, QString& error)
{
    SceneDocument placed = document;
    const QDir folder = QFileInfo(path).absoluteDir();
    ChangeSounds(placed.scene, [&folder](const QString& sound) { return PlaceIn(folder, sound); });
    const QByteArray text = WriteSceneJson(placed);
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit())
        return true;
    error = Told(
        path, QStringLiteral("expected a file that can be written (%1)").arg(file.errorString()));
    return false;
}

} // namespace host
