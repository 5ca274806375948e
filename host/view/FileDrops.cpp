#include "FileDrops.h"

#include "import/SoundClips.h"
#include "import/WavReader.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <array>

namespace host {

namespace {

QString Translated(const char* text)
{
    return QCoreApplication::translate("FileDrops", text);
}

/// Why a sound may not be dropped on a row of that kind, in the order of TrackKind; null where it
/// may.
constexpr std::array<const char*, 6> kReasons{
    QT_TRANSLATE_NOOP("FileDrops", "%1: a row of buttons takes no files"),
    QT_TRANSLATE_NOOP("FileDrops", "%1: sounds go on a row of clips"),
    QT_TRANSLATE_NOOP("FileDrops", "%1: sounds go on a row of clips"),
    QT_TRANSLATE_NOOP("FileDrops", "%1: sounds go on a row of clips"),
    QT_TRANSLATE_NOOP("FileDrops",
                      "%1: mouth shapes come from mouth cues, sounds go on a row of clips"),
    nullptr,
};

} // namespace

FileDrops::FileDrops(CTimelineManager& manager, SceneTracks& tracks, EditSession& session)
    : m_manager(manager), m_tracks(tracks), m_session(session)
{
}

void FileDrops::Hold(CTimelineTrackBase* track, const QString& path, int frame)
{
    const QString reason = ReasonAgainst(track, path, frame);
    const bool isWelcome = reason.isEmpty();
    m_manager.SetEnableDragEnterFiletype(false, false, false, false, isWelcome, false);
    if (!isWelcome)
        Tell(reason);
}

bool FileDrops::Drop(TLDropFileType type, const QString& path)
{
    CTimelineTrackBase* const track = m_manager.GetActiveChildTrack();
    const QString reason = ReasonAgainst(track, path, m_manager.GetCurrentFrame());
    if (type != TL_DROP_SOUND_FIRST || !reason.isEmpty()) {
        Tell(reason);
        return false;
    }
    ImportError error;
    const std::optional<double> seconds = ReadWavSeconds(path, error);
    if (!seconds) {
        Tell(error.Message());
        return false;
    }
    Scene scene = m_session.Current();
    AddSoundClip(scene, m_tracks.IdOf(track), {QFileInfo(path).absoluteFilePath(), *seconds},
                 m_manager.GetCurrentFrame());
    m_session.Begin();
    m_session.Step(Translated("Drop %1").arg(QFileInfo(path).fileName()), scene);
    if (sceneChanged)
        sceneChanged();
    m_session.Commit();
    m_manager.SetDropTrackFocusAndPickJustLoadClip(track);
    return true;
}

QString FileDrops::ReasonAgainst(CTimelineTrackBase* track, const QString& path, int frame) const
{
    const QFileInfo file(path);
    const auto because = [&file](const char* reason) {
        return Translated(reason).arg(file.fileName());
    };
    if (file.suffix().compare(QLatin1String("wav"), Qt::CaseInsensitive) != 0)
        return because("%1: expected a sound file (.wav)");
    const Scene& scene = m_session.Current();
    const SceneTrack* const row = scene.FindTrack(m_tracks.IdOf(track));
    if (!row)
        return because("%1: sounds go on a row of clips");
    if (const char* const reason = kReasons.at(static_cast<std::size_t>(row->kind)))
        return because(reason);
    if (row->locked)
        return because("%1: the row is locked");
    if (frame < 0 || frame >= scene.frameCount)
        return because("%1: the scene ends before this frame");
    if (m_manager.CheckIdleClip(track, frame))
        return because("%1: a locked clip is in the way");
    return {};
}

void FileDrops::Tell(const QString& text) const
{
    if (told)
        told(text);
}

} // namespace host
