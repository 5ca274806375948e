#include "SceneFiles.h"

#include "BvhReader.h"
#include "LineSound.h"
#include "MouthCueReader.h"
#include "SceneBuilder.h"

#include <QFile>
#include <QFileInfo>

namespace host {

namespace {

std::optional<QByteArray> ReadFile(const QString& path, ImportError& error)
{
    QFile file(path);
    if (QFileInfo(path).isDir()) {
        error = {path, 0, QStringLiteral("a readable file, found a directory")};
        return std::nullopt;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        error = {path, 0, QStringLiteral("a readable file (%1)").arg(file.errorString())};
        return std::nullopt;
    }
    const QByteArray text = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        error = {path, 0, QStringLiteral("a readable file (%1)").arg(file.errorString())};
        return std::nullopt;
    }
    return text;
}

/// What the files given so far have brought.
struct Sources
{
    std::optional<Motion> motion;
    std::optional<SpokenLine> line;
    QByteArray lineText;
    QString linePath;
};

bool ReadInto(Sources& sources, const QString& path, ImportError& error)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    const bool isMotion = suffix == QLatin1String("bvh");
    if (!isMotion && suffix != QLatin1String("json")) {
        error = {path, 0, QStringLiteral("a motion capture (.bvh) or mouth cues (.json)")};
        return false;
    }
    if (isMotion ? sources.motion.has_value() : sources.line.has_value()) {
        error = {path, 0, QStringLiteral("at most one .bvh and one .json file")};
        return false;
    }
    const std::optional<QByteArray> text = ReadFile(path, error);
    if (!text)
        return false;
    if (isMotion) {
        sources.motion = ReadBvh(*text, path, error);
        return sources.motion.has_value();
    }
    sources.line = ReadMouthCues(*text, path, error);
    sources.lineText = *text;
    sources.linePath = path;
    return sources.line.has_value();
}

} // namespace

std::optional<Scene> LoadScene(const QStringList& files, ImportError& error)
{
    Sources sources;
    for (const QString& path : files) {
        if (!ReadInto(sources, path, error))
            return std::nullopt;
    }
    Scene scene =
        BuildScene(sources.motion.value_or(Motion()), sources.line.value_or(SpokenLine()));
    AddLineSound(scene, sources.lineText, sources.linePath);
    return scene;
}

} // namespace host
