#include "LongScene.h"

#include "document/MouthShapes.h"
#include "import/RowDefaults.h"

#include <cmath>

using namespace host;

namespace {

constexpr int kJoints = 25;          // of the figure
constexpr int kThingsPerButton = 24; // rows that a button shows
constexpr int kRowsOfThing = 8;      // under a root of their own
constexpr int kKeysOfGroup = 6;
constexpr int kShapesOfClip = 150; // of the mouth, in the clip of half a minute

/// Every row below a root in its turn; a quarter of them clips, links or blends.
constexpr TrackKind kKindsOfThing[] = {TrackKind::Key,  TrackKind::Key, TrackKind::Link,
                                       TrackKind::Clip, TrackKind::Key, TrackKind::Transition,
                                       TrackKind::Key};

SceneKey KeyOfKind(TrackKind kind, int frame, int number, int room)
{
    SceneKey key;
    key.frame = frame;
    key.locked = number % 97 == 0;
    key.alternate = number % 13 == 0;
    if (kind == TrackKind::Link)
        key.startsLink = number % 2 == 0;
    if (kind == TrackKind::Transition)
        key.transition = Transition{number % 2 ? BlendDirection::Into : BlendDirection::OutOf,
                                    std::max(0, room / 3)};
    if (kind == TrackKind::Clip) {
        const int length = std::max(1, room - 2);
        key.name = QStringLiteral("Take %1").arg(number);
        key.clip = ClipSpan{length, 1, number % 5, std::max(1, length / 4), length * 4, length};
    }
    return key;
}

/// @p count keys from the first frame to the last one.
QVector<SceneKey> KeysOfRow(TrackKind kind, int count)
{
    QVector<SceneKey> keys;
    keys.reserve(count);
    const int room = LongScene::kFrames / count;
    for (int i = 0; i < count; ++i) {
        const auto frame = static_cast<int>(qint64(i) * LongScene::kFrames / count);
        keys.append(KeyOfKind(kind, frame, i, room));
    }
    return keys;
}

void FillMouth(SceneKey& clip)
{
    for (int i = 0; i < kShapesOfClip; ++i) {
        SceneKey shape;
        shape.frame = i * clip.clip->length / kShapesOfClip;
        shape.mouthShape = (i * 5) % kMouthShapeCount;
        clip.subKeys.append(shape);
    }
}

class SceneMaker
{
public:
    Scene Make(Capture capture)
    {
        m_scene.frameCount = LongScene::kFrames;
        m_scene.timeMark = {0, LongScene::kFrames - 1};
        AddRow(TrackKind::Switch, QStringLiteral("Layers"), kNoTrack);
        AddFace();
        AddBody();
        while (m_scene.tracks.size() < LongScene::kTracks)
            AddThing();
        SpreadKeys();
        AddButtons();
        if (capture == Capture::WholeScene)
            m_scene.motion = MakeMotion();
        return m_scene;
    }

private:
    TrackId AddRow(TrackKind kind, const QString& name, TrackId parent)
    {
        return m_scene.AddTrack(MakeRow(kind, name, CaptionOfJoint(name), parent));
    }

    void AddFace()
    {
        const TrackId root = AddRow(TrackKind::Key, QStringLiteral("Face"), kNoTrack);
        const TrackId lips = AddRow(TrackKind::Viseme, QStringLiteral("Lips"), root);
        const TrackId rests = AddRow(TrackKind::Transition, QStringLiteral("MouthRest"), root);
        AddRow(TrackKind::Clip, QStringLiteral("Sound"), root);
        Relate(RelationKind::ClipBars, {lips, rests});
    }

    void AddBody()
    {
        const TrackId root = AddRow(TrackKind::Key, QStringLiteral("Body"), kNoTrack);
        const TrackId motion = AddRow(TrackKind::Clip, QStringLiteral("Motion"), root);
        const TrackId blends = AddRow(TrackKind::Transition, QStringLiteral("MotionBlend"), root);
        const TrackId contact = AddRow(TrackKind::Link, QStringLiteral("LeftContact"), root);
        QVector<TrackId> joints;
        for (int i = 0; i < kJoints; ++i)
            joints.append(AddRow(TrackKind::Key, NameOfJoint(i), root));
        Relate(RelationKind::ClipBars, {motion, blends});
        Relate(RelationKind::RelatedKeys, {contact, joints[4]});
        Relate(RelationKind::SharedSelection, joints.mid(1, 4));
        Relate(RelationKind::SharedTimeRange, QVector<TrackId>{motion} + joints);
    }

    void AddThing()
    {
        const int number = m_scene.tracks.size();
        const TrackId root =
            AddRow(TrackKind::Key, QStringLiteral("Thing%1").arg(number), kNoTrack);
        for (int i = 1; i < kRowsOfThing && m_scene.tracks.size() < LongScene::kTracks; ++i) {
            const TrackKind kind = kKindsOfThing[i - 1];
            m_things.append(AddRow(kind, QStringLiteral("Part%1").arg(number + i), root));
        }
    }

    void Relate(RelationKind kind, const QVector<TrackId>& tracks)
    {
        m_scene.relations.append({kind, tracks});
    }

    /// As many on each row of keys as make up the number in all.
    void SpreadKeys()
    {
        QVector<SceneTrack*> open; // rows that take as many as are left
        int left = LongScene::kKeys;
        for (SceneTrack& track : m_scene.tracks) {
            const bool isFew = track.kind == TrackKind::Viseme || track.kind == TrackKind::Clip;
            if (track.kind == TrackKind::Switch || track.parent == kNoTrack)
                continue;
            if (!isFew) {
                open.append(&track);
                continue;
            }
            track.keys = KeysOfRow(track.kind, 2 * LongScene::kMinutes);
            left -= track.keys.size();
            if (track.kind == TrackKind::Viseme)
                FillLips(track.keys);
        }
        for (int i = 0; i < open.size(); ++i) {
            const int count = left / (open.size() - i);
            open[i]->keys = KeysOfRow(open[i]->kind, count);
            left -= count;
        }
        for (SceneTrack& track : m_scene.tracks)
            m_scene.NumberKeys(track.keys);
        for (SceneTrack* const track : open)
            GroupSome(*track);
    }

    static void FillLips(QVector<SceneKey>& clips)
    {
        const int length = LongScene::kFrames / clips.size() - 1;
        for (SceneKey& clip : clips) {
            clip.name = QStringLiteral("Line");
            clip.clip = ClipSpan{length, 1, 0, length, length, 0};
            FillMouth(clip);
        }
    }

    void GroupSome(SceneTrack& track)
    {
        const GroupId group = m_scene.AddGroup(track.caption);
        for (int i = 0; i < kKeysOfGroup; ++i)
            track.keys[i * 2].group = group;
    }

    void AddButtons()
    {
        for (int first = 0; first < m_things.size(); first += kThingsPerButton) {
            SwitchButton button;
            button.text = QStringLiteral("Things %1").arg(first);
            button.on = true;
            button.tracks = m_things.mid(first, kThingsPerButton);
            m_scene.tracks.first().buttons.append(button);
        }
    }

    static QString NameOfJoint(int joint) { return QStringLiteral("Joint%1").arg(joint); }

    static Motion MakeMotion()
    {
        constexpr float kDegrees = 30;
        constexpr float kSpeed = 0.05F; // radians a frame
        Motion motion;
        motion.name = QStringLiteral("Hour");
        motion.sampleTime = 1.0 / kSceneFrameRate;
        motion.sampleCount = LongScene::kFrames;
        for (int i = 0; i < kJoints; ++i) {
            Joint joint;
            joint.name = NameOfJoint(i);
            joint.parent = i - 1;
            joint.offset = QVector3D(0, i == 0 ? 90 : 6, 0);
            if (i == 0)
                joint.channels = {Channel::XPosition, Channel::YPosition, Channel::ZPosition};
            joint.channels += {Channel::ZRotation, Channel::XRotation, Channel::YRotation};
            joint.firstChannel = motion.channelCount;
            motion.channelCount += joint.channels.size();
            motion.joints.append(joint);
        }
        motion.samples.reserve(motion.sampleCount * motion.channelCount);
        for (int sample = 0; sample < motion.sampleCount; ++sample) {
            for (int channel = 0; channel < motion.channelCount; ++channel)
                motion.samples.append(kDegrees *
                                      std::sin(kSpeed * static_cast<float>(sample + channel * 7)));
        }
        return motion;
    }

    Scene m_scene;
    QVector<TrackId> m_things;
};

} // namespace

Scene MakeLongScene(Capture capture)
{
    return SceneMaker().Make(capture);
}

KeyCount CountKeys(const Scene& scene)
{
    KeyCount count;
    for (const SceneTrack& track : scene.tracks) {
        count.onRows += track.keys.size();
        for (const SceneKey& key : track.keys)
            count.inside += key.subKeys.size();
    }
    return count;
}
