#include "FileDrops.h"

#include "import/SoundClips.h"
#include "import/SoundRows.h"
#include "import/WavReader.h"
#include "playback/WavFile.h"

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
    const int frame = m_manager.GetCurrentFrame();
    const Sound sound{QFileInfo(path).absoluteFilePath(), *seconds};
    Scene scene = m_session.Current();
    QString also = CoveredOn(*qAsConst(scene).FindTrack(m_tracks.IdOf(track)), frame,
                             LastFrameOf(sound, frame, scene.frameRate));
    AddSoundClip(scene, m_tracks.IdOf(track), sound, frame);
    const QString name = Translated("Drop %1").arg(QFileInfo(path).fileName());
    m_session.Begin();
    m_session.Step(name, scene);
    if (sceneChanged)
        sceneChanged();
    m_session.Commit();
    if (also.isEmpty())
        also = SilenceOf(path);
    if (!also.isEmpty()) // in place of the name of the edit, which is told by others
        Tell(name + QStringLiteral(": ") + also);
    m_manager.SetDropTrackFocusAndPickJustLoadClip(track);
    return true;
}

QString FileDrops::ReasonAgainst(CTimelineTrackBase* track, const QString& path, int frame) const
{
    const QFileInfo file(path);
    const auto because = [&file](const QString& reason) {
        return file.fileName() + QStringLiteral(": ") + reason;
    };
    if (file.suffix().compare(QLatin1String("wav"), Qt::CaseInsensitive) != 0)
        return because(Translated("expected a sound file (.wav)"));
    const Scene& scene = m_session.Current();
    const SceneTrack* const row = scene.FindTrack(m_tracks.IdOf(track));
    const QString reason = ReasonAgainstSound(scene, row, frame);
    if (!reason.isEmpty())
        return because(reason);
    if (frame < 0 || frame >= scene.frameCount)
        return because(Translated("the scene ends before this frame"));
    return {};
}

void FileDrops::Tell(const QString& text) const
{
    if (told)
        told(text);
}

} // namespace host
