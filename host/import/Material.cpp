#include "Material.h"

#include "BvhReader.h"
#include "CueTextReader.h"
#include "LineSound.h"
#include "MouthCueReader.h"
#include "SceneBuilder.h"
#include "WavReader.h"
#include "playback/WavFile.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>

namespace host {

namespace {

constexpr qint64 kLargestFile = 1 << 30; ///< bytes; texts are taken into memory
constexpr qint64 kPiece = 1 << 22;       ///< bytes between two words about the progress
constexpr double kReadingShare = 0.6;    ///< of the time; the rest makes the rows
constexpr double kLoadingShare = 0.1;    ///< of a file's time; the rest makes sense of its text

std::optional<QByteArray> ReadFile(const QString& path, ImportError& error,
                                   const ImportProgress& progress)
{
    const auto refuse = [&](const QString& expected) {
        error = {path, 0, expected};
        return std::nullopt;
    };
    QFile file(path);
    if (QFileInfo(path).isDir())
        return refuse(QStringLiteral("a readable file, found a directory"));
    if (!file.open(QIODevice::ReadOnly))
        return refuse(QStringLiteral("a readable file (%1)").arg(file.errorString()));
    if (file.size() > kLargestFile)
        return refuse(QStringLiteral("a file of at most a gigabyte"));
    QByteArray text;
    while (!file.atEnd() && file.error() == QFileDevice::NoError) {
        if (!progress.Advance(double(file.pos()) / kLargestFile)) {
            error = {path, 0, {}, true};
            return std::nullopt;
        }
        text += file.read(kPiece);
    }
    if (file.error() != QFileDevice::NoError)
        return refuse(QStringLiteral("a readable file (%1)").arg(file.errorString()));
    return text;
}

/// What the files read so far have brought.
struct Sources
{
    std::optional<Motion> motion;
    std::optional<SpokenLine> line;
    std::optional<Sound> soundOfLine;
    QString problemOfLine; ///< with its sound
    QVector<Sound> sounds;
    QStringList problems;
};

void AddProblem(QStringList& problems, const QString& problem)
{
    if (!problem.isEmpty())
        problems.append(problem);
}

bool ReadMotion(const QString& path, Sources& sources, ImportError& error,
                const ImportProgress& progress)
{
    if (sources.motion) {
        error = {path, 0, QStringLiteral("at most one motion capture")};
        return false;
    }
    if (const auto text = ReadFile(path, error, progress.Part(0, kLoadingShare)))
        sources.motion = ReadBvh(*text, path, error, progress.Part(kLoadingShare, 1));
    return sources.motion.has_value();
}

using CueReader = std::optional<SpokenLine> (*)(const QByteArray&, const QString&, ImportError&,
                                                const ImportProgress&);

template <CueReader Read>
bool ReadLine(const QString& path, Sources& sources, ImportError& error,
              const ImportProgress& progress)
{
    if (sources.line) {
        error = {path, 0, QStringLiteral("at most one file of mouth cues")};
        return false;
    }
    if (const auto text = ReadFile(path, error, progress.Part(0, kLoadingShare))) {
        sources.line = Read(*text, path, error, progress.Part(kLoadingShare, 1));
        sources.soundOfLine = SoundOfLine(*text, path, sources.problemOfLine);
    }
    return sources.line.has_value();
}

bool ReadSound(const QString& path, Sources& sources, ImportError& error, const ImportProgress&)
{
    const auto seconds = ReadWavSeconds(path, error);
    if (!seconds)
        return false;
    sources.sounds.append({QFileInfo(path).absoluteFilePath(), *seconds});
    AddProblem(sources.problems, SilenceOf(path));
    return true;
}

/// A kind of file, by the end of its name.
struct Kind
{
    const char* suffix;
    bool (*read)(const QString& path, Sources& sources, ImportError& error,
                 const ImportProgress& progress);
};

constexpr std::array<Kind, 4> kKinds{{{"bvh", ReadMotion},
                                      {"json", ReadLine<ReadMouthCues>},
                                      {"tsv", ReadLine<ReadCueText>},
                                      {"wav", ReadSound}}};

const Kind* KindOf(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    const auto found = std::find_if(kKinds.begin(), kKinds.end(), [&suffix](const Kind& kind) {
        return suffix == QLatin1String(kind.suffix);
    });
    return found == kKinds.end() ? nullptr : &*found;
}

bool ReadInto(Sources& sources, const QString& path, ImportError& error,
              const ImportProgress& progress)
{
    const Kind* const kind = KindOf(path);
    if (!kind) {
        error = {path, 0, KindsOfMaterial()};
        return false;
    }
    if (!progress.Advance(0)) {
        error = {path, 0, {}, true};
        return false;
    }
    return kind->read(path, sources, error, progress);
}

} // namespace

bool IsMaterial(const QString& path)
{
    return KindOf(path) != nullptr;
}

QString KindsOfMaterial()
{
    return QStringLiteral("a motion capture (.bvh), mouth cues (.json, .tsv) or a sound (.wav)");
}

QStringList PatternsOfMaterial()
{
    QStringList patterns;
    for (const Kind& kind : kKinds)
        patterns.append(QStringLiteral("*.") + QLatin1String(kind.suffix));
    return patterns;
}

std::optional<Material> ReadMaterial(const QStringList& files, int frameRate, ImportError& error,
                                     const ImportProgress& progress)
{
    Sources sources;
    const ImportProgress reading = progress.Part(0, kReadingShare);
    for (int i = 0; i < files.size(); ++i) {
        const ImportProgress part =
            reading.Part(double(i) / files.size(), double(i + 1) / files.size());
        if (!ReadInto(sources, files[i], error, part))
            return std::nullopt;
    }
    // Whoever gives sounds has chosen.
    if (sources.sounds.isEmpty()) {
        AddProblem(sources.problems, sources.problemOfLine);
        if (sources.soundOfLine)
            sources.sounds.append(*sources.soundOfLine);
    }
    const auto rows =
        BuildScene(sources.motion.value_or(Motion()), sources.line.value_or(SpokenLine()),
                   {frameRate, !sources.sounds.isEmpty(), progress.Part(kReadingShare, 1)});
    if (!rows || !progress.Advance(1)) {
        error = {};
        error.isCancelled = true;
        return std::nullopt;
    }
    return Material{*rows, sources.sounds, sources.problems};
}

} // namespace host
