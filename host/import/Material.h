#pragma once

#include "ImportError.h"
#include "ImportProgress.h"
#include "document/Scene.h"

#include <QStringList>

#include <optional>

namespace host {

/// A sound file and its length.
struct Sound
{
    QString path;
    double seconds = 0;
};

/// What some files bring into a scene.
struct Material
{
    Scene rows; ///< the motion and the line, if the files had them, with the rows made for them
    QVector<Sound> sounds; ///< in the order of the files
    QStringList problems;  ///< one line for the user about each sound that will not be heard
};

/// Whether the file is of a kind that can be read, by the end of its name.
bool IsMaterial(const QString& path);
/// The kinds that can be read, for a message: "a motion capture (.bvh), mouth cues (...) ...".
QString KindsOfMaterial();
/// The ends of names, as patterns for a file dialog: "*.bvh", "*.json" ...
QStringList PatternsOfMaterial();

/// Reads files, at most one motion capture and one file of mouth cues among them, and makes the
/// rows for a scene of that frame rate. Nothing is returned, and @p error is filled, when a file
/// cannot be read or the progress cancels. Touches nothing but the files: may run in any thread.
std::optional<Material> ReadMaterial(const QStringList& files, int frameRate, ImportError& error,
                                     const ImportProgress& progress = {});

} // namespace host
