#include "FileDrops.h"

#include "import/SoundClips.h"
#include "import/WavReader.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace host {

namespace {

QString Translated(const char* text)
{
    return QCoreApplication::translate("FileDrops", text);
}

} // namespace

FileDrops::FileDrops(CTimelineManager& manager, SceneTracks& tracks, EditSession& session)
    : m_manager(manager), m_tracks(tracks), m_session(session)
{
}

void FileDrops::Hold(CTimelineTrackBase* track, const QString& path)
{
    const QString reason = ReasonAgainst(track, path);
    const bool isWelcome = reason.isEmpty();
    m_manager.SetEnableDragEnterFiletype(false, false, false, false, isWelcome, false);
    if (!isWelcome)
        Tell(reason);
}

bool FileDrops::Drop(TLDropFileType type, const QString& path)
{
    CTimelineTrackBase* const track = m_manager.GetActiveChildTrack();
    const QString reason = ReasonAgainst(track, path);
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
    m_session.Step(Translated("Drop Sound"), scene);
    if (sceneChanged)
        sceneChanged();
    m_session.Commit();
    m_manager.SetDropTrackFocusAndPickJustLoadClip(track);
    return true;
}

QString FileDrops::ReasonAgainst(CTimelineTrackBase* track, const QString& path) const
{
    const QFileInfo file(path);
    if (file.suffix().compare(QLatin1String("wav"), Qt::CaseInsensitive) != 0)
        return Translated("%1: expected a sound file (.wav)").arg(file.fileName());
    const SceneTrack* const row = m_session.Current().FindTrack(m_tracks.IdOf(track));
    if (!row || row->kind != TrackKind::Clip)
        return Translated("%1: sounds go on a row of clips").arg(file.fileName());
    return {};
}

void FileDrops::Tell(const QString& text) const
{
    if (told)
        told(text);
}

} // namespace host
