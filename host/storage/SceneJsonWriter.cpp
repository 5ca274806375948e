#include "JsonWriter.h"
#include "SceneJson.h"
#include "SceneJsonNames.h"

namespace host {

namespace {

using Layout = JsonWriter::Layout;

/// Most members have their usual value nearly everywhere; leaving them out keeps files small.
template <class T>
void MemberUnless(JsonWriter& json, const char* name, const T& value, const T& usual)
{
    if (!(value == usual))
        json.Member(name, value);
}

void WriteIds(JsonWriter& json, const char* name, const QVector<int>& ids)
{
    json.Name(name);
    json.BeginArray(Layout::Inline);
    for (const int id : ids)
        json.Value(id);
    json.EndArray();
}

void Write(JsonWriter& json, const Transition& transition)
{
    json.BeginObject(Layout::Inline);
    json.Member("direction", NameOf(kBlendDirectionNames, transition.direction));
    json.Member("frames", transition.frames);
    json.EndObject();
}

void Write(JsonWriter& json, const ClipSpan& clip)
{
    static const ClipSpan usual;
    json.BeginObject(Layout::Inline);
    json.Member("length", clip.length);
    MemberUnless(json, "material", clip.material, usual.material);
    json.Member("loops", clip.loops);
    json.Member("leadIn", clip.leadIn);
    json.Member("shortest", clip.shortest);
    json.Member("longest", clip.longest);
    json.EndObject();
}

void WriteKeys(JsonWriter& json, const char* name, const QVector<SceneKey>& keys);

void Write(JsonWriter& json, const SceneKey& key)
{
    static const SceneKey usual;
    json.BeginObject(Layout::Inline);
    json.Member("id", key.id);
    json.Member("frame", key.frame);
    MemberUnless(json, "name", key.name, usual.name);
    MemberUnless(json, "priority", key.priority, usual.priority);
    MemberUnless(json, "locked", key.locked, usual.locked);
    MemberUnless(json, "alternate", key.alternate, usual.alternate);
    MemberUnless(json, "group", key.group, usual.group);
    MemberUnless(json, "mouthShape", key.mouthShape, usual.mouthShape);
    MemberUnless(json, "startsLink", key.startsLink, usual.startsLink);
    MemberUnless(json, "sound", key.sound, usual.sound);
    if (key.transition) {
        json.Name("transition");
        Write(json, *key.transition);
    }
    if (key.clip) {
        json.Name("clip");
        Write(json, *key.clip);
    }
    if (!key.subKeys.isEmpty())
        WriteKeys(json, "subKeys", key.subKeys);
    json.EndObject();
}

void WriteKeys(JsonWriter& json, const char* name, const QVector<SceneKey>& keys)
{
    json.Name(name);
    json.BeginArray(Layout::Lines);
    for (const SceneKey& key : keys)
        Write(json, key);
    json.EndArray();
}

void Write(JsonWriter& json, const SwitchButton& button)
{
    json.BeginObject(Layout::Inline);
    json.Member("text", button.text);
    json.Member("on", button.on);
    WriteIds(json, "tracks", button.tracks);
    json.EndObject();
}

void Write(JsonWriter& json, const SceneTrack& track)
{
    static const SceneTrack usual;
    json.BeginObject(Layout::Lines);
    json.Member("id", track.id);
    json.Member("kind", NameOf(kTrackKindNames, track.kind));
    json.Member("name", track.name);
    json.Member("caption", track.caption);
    json.Member("style", track.styleNumber);
    MemberUnless(json, "parent", track.parent, usual.parent);
    MemberUnless(json, "muted", track.muted, usual.muted);
    MemberUnless(json, "soloed", track.soloed, usual.soloed);
    MemberUnless(json, "locked", track.locked, usual.locked);
    json.Name("editModes");
    json.BeginArray(Layout::Inline);
    for (const EditMode mode : track.editModes)
        json.Value(NameOf(kEditModeNames, mode));
    json.EndArray();
    if (!track.buttons.isEmpty()) {
        json.Name("buttons");
        json.BeginArray(Layout::Lines);
        for (const SwitchButton& button : track.buttons)
            Write(json, button);
        json.EndArray();
    }
    if (!track.keys.isEmpty())
        WriteKeys(json, "keys", track.keys);
    json.EndObject();
}

void Write(JsonWriter& json, const QVector3D& way)
{
    json.BeginArray(Layout::Inline);
    for (int i = 0; i < 3; ++i)
        json.Value(way[i]);
    json.EndArray();
}

void Write(JsonWriter& json, const Joint& joint)
{
    json.BeginObject(Layout::Inline);
    json.Member("name", joint.name);
    json.Member("parent", joint.parent);
    json.Name("offset");
    Write(json, joint.offset);
    json.Member("firstChannel", joint.firstChannel);
    json.Name("channels");
    json.BeginArray(Layout::Inline);
    for (const Channel channel : joint.channels)
        json.Value(NameOf(kChannelNames, channel));
    json.EndArray();
    if (!joint.ends.isEmpty()) {
        json.Name("ends");
        json.BeginArray(Layout::Inline);
        for (const QVector3D& end : joint.ends)
            Write(json, end);
        json.EndArray();
    }
    json.EndObject();
}

void Write(JsonWriter& json, const Motion& motion)
{
    json.BeginObject(Layout::Lines);
    json.Member("name", motion.name);
    json.Member("sampleTime", motion.sampleTime);
    json.Member("channelCount", motion.channelCount);
    json.Member("sampleCount", motion.sampleCount);
    json.Name("joints");
    json.BeginArray(Layout::Lines);
    for (const Joint& joint : motion.joints)
        Write(json, joint);
    json.EndArray();
    json.Name("samples");
    json.BeginArray(Layout::Lines);
    for (int sample = 0; motion.channelCount > 0 && sample < motion.sampleCount; ++sample) {
        json.BeginArray(Layout::Inline);
        for (int channel = 0; channel < motion.channelCount; ++channel)
            json.Value(motion.At(sample, channel));
        json.EndArray();
    }
    json.EndArray();
    json.EndObject();
}

void Write(JsonWriter& json, const SpokenLine& line)
{
    json.BeginObject(Layout::Lines);
    json.Member("name", line.name);
    json.Member("duration", line.duration);
    json.Name("cues");
    json.BeginArray(Layout::Lines);
    for (const MouthCue& cue : line.cues) {
        json.BeginObject(Layout::Inline);
        json.Member("start", cue.start);
        json.Member("end", cue.end);
        json.Member("shape", cue.shape);
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
}

void WriteGroups(JsonWriter& json, const QVector<SceneGroup>& groups)
{
    json.Name("groups");
    json.BeginArray(Layout::Lines);
    for (const SceneGroup& group : groups) {
        json.BeginObject(Layout::Inline);
        json.Member("id", group.id);
        json.Member("name", group.name);
        json.EndObject();
    }
    json.EndArray();
}

void WriteRelations(JsonWriter& json, const QVector<TrackRelation>& relations)
{
    json.Name("relations");
    json.BeginArray(Layout::Lines);
    for (const TrackRelation& relation : relations) {
        json.BeginObject(Layout::Inline);
        json.Member("kind", NameOf(kRelationKindNames, relation.kind));
        WriteIds(json, "tracks", relation.tracks);
        json.EndObject();
    }
    json.EndArray();
}

void WriteHead(JsonWriter& json, const SceneDocument& document)
{
    const Scene& scene = document.scene;
    json.Member("format", kFormatName);
    json.Member("version", kSceneFormatVersion);
    MemberUnless(json, "recoveryOf", document.recoveryOf, QString());
    json.Member("frameRate", scene.frameRate);
    json.Member("frameCount", scene.frameCount);
    json.Member("lastId", scene.lastId);
    json.Name("timeMark");
    json.BeginObject(Layout::Inline);
    json.Member("start", scene.timeMark.start);
    json.Member("end", scene.timeMark.end);
    json.EndObject();
    json.Name("view");
    json.BeginObject(Layout::Inline);
    json.Member("left", document.view.left);
    json.Member("right", document.view.right);
    json.Member("frame", document.view.frame);
    json.EndObject();
}

} // namespace

QByteArray WriteSceneJson(const SceneDocument& document)
{
    JsonWriter json;
    json.BeginObject(Layout::Lines);
    WriteHead(json, document);
    WriteGroups(json, document.scene.groups);
    json.Name("tracks");
    json.BeginArray(Layout::Lines);
    for (const SceneTrack& track : document.scene.tracks)
        Write(json, track);
    json.EndArray();
    WriteRelations(json, document.scene.relations);
    if (!(document.scene.motion == Motion())) {
        json.Name("motion");
        Write(json, document.scene.motion);
    }
    if (!(document.scene.line == SpokenLine())) {
        json.Name("line");
        Write(json, document.scene.line);
    }
    json.EndObject();
    return json.Text();
}

} // namespace host
