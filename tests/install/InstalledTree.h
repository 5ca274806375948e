#pragma once

#include <QImage>
#include <QTemporaryDir>

namespace KestovaTest {

/// The parts that are installed.
inline const QStringList kParts{"Runtime", "Development", "Host"};

/// The files that a part consists of, as paths below the prefix, in order.
QStringList FilesOfPart(const QString& part);

/// What @p files lack and have too many against those of a part, a line each; empty when they are
/// the same.
QString DifferenceFromPart(const QStringList& files, const QString& part);

/// A folder of its own for a test, and in it what is installed.
class InstalledTree
{
public:
    bool IsValid() const { return m_folder.isValid(); }
    /// A path in the folder.
    QString In(const QString& name) const { return m_folder.filePath(name); }

    /// Installs one part below In(@p prefix); false when it went wrong.
    bool Install(const QString& part, const QString& prefix) const;
    /// Installs all parts, and moves them to In("moved"): a tree has to work wherever it lies.
    bool InstallAndMove() const;
    QString Prefix() const { return In("moved"); }

    /// Configures and builds a copy of the smallest host into In(@p build).
    bool BuildMinimal(const QString& build, const QStringList& options) const;
    /// Runs the smallest host for a picture of its window; a null one when it fails.
    QImage PictureOf(const QString& program) const;

private:
    QTemporaryDir m_folder;
};

/// The picture that a reference host writes of its sample scene; a null one when it fails.
QImage PictureOfTheHost(const QString& program);

} // namespace KestovaTest
