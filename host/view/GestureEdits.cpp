#include "GestureEdits.h"

#include "SceneTracks.h"
#include "document/ClipEdits.h"
#include "document/EditNames.h"
#include "document/KeyList.h"

#include <algorithm>

namespace host {

namespace {

constexpr int kDone = 0;
constexpr int kRefused = -1;

} // namespace

struct GestureEdits::Handler
{
    TLEditType type;
    int (GestureEdits::*handle)(const Message& message);
};

const GestureEdits::Handler GestureEdits::kHandlers[] = {
    {TL_EDIT_BEGIN, &GestureEdits::Begin},
    {TL_EDIT_END, &GestureEdits::End},
    {TL_EDIT_MOVE_KEYS, &GestureEdits::MoveStep},
    {TL_EDIT_CLIP_LOOP, &GestureEdits::ChangeLoop},
    {TL_EDIT_CLIP_SPEED, &GestureEdits::ChangeSpeed},
    {TL_EDIT_CLIP_TRIM, &GestureEdits::ChangeTrim},
    {TL_EDIT_MOVE_KEYS_END, &GestureEdits::MoveEnd},
    {TL_EDIT_CLIP_LOOP_END, &GestureEdits::EndClipEdge},
    {TL_EDIT_CLIP_SPEED_END, &GestureEdits::EndClipEdge},
    {TL_EDIT_CLIP_TRIM_END, &GestureEdits::EndClipEdge},
};

GestureEdits::GestureEdits(SceneTracks& tracks, EditSession& session)
    : m_tracks(tracks), m_session(session)
{
}

int GestureEdits::Handle(TLEditType type, const TrackList& list, int value1, int value2)
{
    const Message message{TracksOf(m_tracks, list), value1, value2};
    if (message.rows.isEmpty())
        return kRefused;
    const auto handler = std::find_if(std::begin(kHandlers), std::end(kHandlers),
                                      [type](const Handler& each) { return each.type == type; });
    return handler == std::end(kHandlers) ? kRefused : (this->*handler->handle)(message);
}

int GestureEdits::Begin(const Message& message)
{
    m_told = 0;
    TakeSelection(message.rows);
    return kDone;
}

int GestureEdits::End(const Message&)
{
    // Dragged keys stand beside those that they replace until now.
    m_tracks.ShowKeys(m_session.Current(), m_rows);
    m_session.Commit();
    return kDone;
}

int GestureEdits::MoveStep(const Message& message)
{
    m_told += message.value1;
    return MoveBy(message.value1, message.rows);
}

int GestureEdits::MoveEnd(const Message& message)
{
    // The end gives the whole way, the last piece of which no step has told of.
    const int frames = message.value1 - m_told;
    m_told = message.value1;
    return MoveBy(frames, message.rows);
}

int GestureEdits::ChangeLoop(const Message& message)
{
    Scene scene = m_session.Current();
    const TrackId row = message.rows.first();
    const KeyId clip = KeyOf(message);
    if (!ChangeLoops(scene, row, clip, message.value2))
        return kRefused;
    return Step(LoopName(FindKey(qAsConst(scene), row, clip)->clip->loops), scene);
}

int GestureEdits::ChangeSpeed(const Message& message)
{
    const TrackId row = message.rows.first();
    const SceneKey* const clip = FindKey(m_session.Current(), row, KeyOf(message));
    if (!clip || !clip->clip)
        return kRefused;
    // From the clip as it was: keys inside would gather rounding errors from step to step.
    Scene scene = m_session.Before();
    const KeyId id = clip->id;
    if (!SetClipLength(scene, row, id, clip->clip->length + message.value2))
        return kRefused;
    const int before = FindKey(m_session.Before(), row, id)->clip->length;
    return Step(SpeedName(before, FindKey(qAsConst(scene), row, id)->clip->length), scene);
}

int GestureEdits::ChangeTrim(const Message& message)
{
    const TrackId row = message.rows.first();
    const KeyId key = KeyOf(message);
    Scene scene = m_session.Current();
    const bool isClip = ChangeLeadIn(scene, row, key, message.value2);
    if (!isClip && !ChangeTransition(scene, row, key, message.value2))
        return kRefused;
    const SceneKey* const before = FindKey(m_session.Before(), row, key);
    const SceneKey* const after = FindKey(qAsConst(scene), row, key);
    return isClip ? Step(TrimName(after->clip->leadIn - before->clip->leadIn), scene)
                  : Step(BlendName(after->transition->frames - before->transition->frames), scene);
}

int GestureEdits::EndClipEdge(const Message&)
{
    return kDone; // every step was applied when it came
}

void GestureEdits::TakeSelection(const QVector<TrackId>& rows)
{
    m_session.Begin();
    m_rows = rows;
    m_moved = 0;
    m_moving = SelectionOn(m_tracks, m_session.Current(), rows);
    const auto isLocked = [this](const KeySelection& keys) { return IsLocked(keys.track); };
    m_moving.erase(std::remove_if(m_moving.begin(), m_moving.end(), isLocked), m_moving.end());
}

int GestureEdits::MoveBy(int frames, const QVector<TrackId>& rows)
{
    if (!m_session.IsOpen()) // a command has committed the drag so far; it goes on from there
        TakeSelection(rows);
    m_moved += frames;
    // From the scene as it was: a key that was only passed over must not be replaced.
    Scene scene = m_session.Before();
    const int moved = MoveKeys(scene, m_moving, m_moved);
    m_session.Step(MoveName(ItemsOf(m_session.Before(), m_moving), moved), scene);
    return kDone;
}

int GestureEdits::Step(const QString& name, const Scene& scene)
{
    m_session.Step(name, scene);
    m_tracks.ShowKeys(scene);
    return kDone;
}

bool GestureEdits::IsLocked(TrackId row) const
{
    const SceneTrack* const track = m_session.Current().FindTrack(row);
    return track && track->locked;
}

KeyId GestureEdits::KeyOf(const Message& message) const
{
    const CTimelineKeyArray* const keys = m_tracks.KeysOf(message.rows.first());
    return keys && !IsLocked(message.rows.first()) ? KeyIdAt(*keys, message.value1) : kNoKey;
}

} // namespace host
