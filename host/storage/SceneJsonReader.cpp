#include "DoubleMembers.h"
#include "JsonNode.h"
#include "KeyJson.h"
#include "MotionJson.h"
#include "Renumbering.h"
#include "SceneJson.h"
#include "SceneJsonNames.h"
#include "document/MouthShapes.h"

#include <QJsonDocument>
#include <QSet>

#include <algorithm>

namespace host {

namespace {

constexpr WholeRange kAnId{1};
constexpr int kManyIds = 1'000'000'000; ///< from here on there is no room for later keys
constexpr WholeRange kShape{0, kMouthShapeCount - 1};
constexpr WholeRange kFrameRate{1, 1000};

/// Reads a scene from the parsed text and notes the first thing that no scene can be.
class SceneReader
{
public:
    SceneDocument Read(const JsonNode& root);

private:
    void ReadHead(JsonMembers& members, SceneDocument& document);
    SceneGroup ReadGroup(const JsonNode& node);
    SceneTrack ReadTrack(const JsonNode& node);
    TrackId ReadParent(const JsonNode& node) const;
    QVector<SceneKey> ReadKeys(const JsonNode& node);
    SceneKey ReadKey(const JsonNode& node);
    TrackRelation ReadRelation(const JsonNode& node) const;
    QVector<TrackId> ReadTrackIds(const JsonNode& node) const;
    SwitchButton ReadButton(const JsonNode& node) const;
    int NewId(const JsonNode& node);

    Scene m_scene;
    QSet<int> m_ids; ///< of everything read so far
    QSet<TrackId> m_tracks;
    QSet<TrackId> m_roots;
    QSet<GroupId> m_groups;
};

SceneDocument SceneReader::Read(const JsonNode& root)
{
    JsonMembers members(root);
    SceneDocument document;
    ReadHead(members, document);
    members.At("groups").ForEach(
        [this](const JsonNode& node, int) { m_scene.groups.append(ReadGroup(node)); });
    const JsonNode tracks = members.At("tracks");
    tracks.ForEach([this](const JsonNode& node, int) { m_scene.tracks.append(ReadTrack(node)); });
    // Buttons speak of rows that stand below them.
    tracks.ForEach([this](const JsonNode& node, int index) {
        JsonMembers(node).ForEach("buttons", [this, index](const JsonNode& button, int) {
            m_scene.tracks[index].buttons.append(ReadButton(button));
        });
    });
    members.At("relations").ForEach([this](const JsonNode& node, int) {
        m_scene.relations.append(ReadRelation(node));
    });
    members.With("motion", [this](const JsonNode& node) { m_scene.motion = ReadMotion(node); });
    members.With("line", [this](const JsonNode& node) { m_scene.line = ReadSpokenLine(node); });
    members.Finish();
    if (m_scene.lastId > kManyIds)
        Renumber(m_scene);
    document.scene = m_scene;
    return document;
}

void SceneReader::ReadHead(JsonMembers& members, SceneDocument& document)
{
    members.At("format");
    members.At("version");
    document.recoveryOf = members.Text("recoveryOf", kAnyLength);
    m_scene.frameRate = members.At("frameRate").Whole(kFrameRate);
    m_scene.frameCount = members.At("frameCount").Whole(kFrameSpan);
    m_scene.lastId = members.At("lastId").Whole({0, kAnId.most});
    const JsonNode timeMark = members.At("timeMark");
    JsonMembers marks(timeMark);
    const WholeRange inScene{0, std::max(0, m_scene.frameCount - 1)};
    m_scene.timeMark.start = marks.At("start").Whole(inScene);
    m_scene.timeMark.end = marks.At("end").Whole(inScene);
    marks.Finish();
    document.view = ReadView(members.At("view"), std::max(1, m_scene.frameCount));
}

int SceneReader::NewId(const JsonNode& node)
{
    const int id = node.Whole({kAnId.least, m_scene.lastId});
    if (m_ids.contains(id))
        node.Refuse(QStringLiteral("a number that nothing else has, found %1 again").arg(id));
    m_ids.insert(id);
    return id;
}

SceneGroup SceneReader::ReadGroup(const JsonNode& node)
{
    JsonMembers members(node);
    SceneGroup group;
    group.id = NewId(members.At("id"));
    group.name = members.At("name").Text();
    members.Finish();
    m_groups.insert(group.id);
    return group;
}

SceneTrack SceneReader::ReadTrack(const JsonNode& node)
{
    JsonMembers members(node);
    SceneTrack track;
    track.id = NewId(members.At("id"));
    track.kind = static_cast<TrackKind>(members.At("kind").Choice(kTrackKindNames));
    track.name = members.At("name").Text();
    track.caption = members.At("caption").Text();
    track.styleNumber = members.At("style").Whole({0});
    members.With("parent", [&](const JsonNode& parent) { track.parent = ReadParent(parent); });
    track.muted = members.Flag("muted");
    track.soloed = members.Flag("soloed");
    track.locked = members.Flag("locked");
    members.At("editModes").ForEach([&track](const JsonNode& mode, int) {
        track.editModes.append(static_cast<EditMode>(mode.Choice(kEditModeNames)));
    });
    members.With("buttons", [](const JsonNode&) {}); // read when all tracks are known
    members.With("keys", [&](const JsonNode& keys) { track.keys = ReadKeys(keys); });
    members.Finish();
    m_tracks.insert(track.id);
    if (track.parent == kNoTrack)
        m_roots.insert(track.id);
    return track;
}

TrackId SceneReader::ReadParent(const JsonNode& node) const
{
    const TrackId parent = node.Whole();
    if (!m_roots.contains(parent))
        node.Refuse(QStringLiteral("the id of a root track before this one, found %1").arg(parent));
    return parent;
}

QVector<SceneKey> SceneReader::ReadKeys(const JsonNode& node)
{
    QVector<SceneKey> keys;
    node.ForEach([&](const JsonNode& element, int) {
        const SceneKey key = ReadKey(element);
        if (!keys.isEmpty() && key.frame < keys.last().frame)
            element.Refuse(QStringLiteral("keys in the order of their frames, found frame %1 "
                                          "after frame %2")
                               .arg(key.frame)
                               .arg(keys.last().frame));
        keys.append(key);
    });
    return keys;
}

SceneKey SceneReader::ReadKey(const JsonNode& node)
{
    JsonMembers members(node);
    SceneKey key;
    key.id = NewId(members.At("id"));
    key.frame = members.At("frame").Whole(kFrames);
    key.name = members.Text("name");
    key.priority = members.Whole("priority", key.priority);
    key.locked = members.Flag("locked");
    key.alternate = members.Flag("alternate");
    members.With("group", [&](const JsonNode& group) {
        key.group = group.Whole();
        if (!m_groups.contains(key.group))
            group.Refuse(QStringLiteral("the id of a group, found %1").arg(key.group));
    });
    key.mouthShape = members.Whole("mouthShape", key.mouthShape, kShape);
    key.startsLink = members.Flag("startsLink");
    key.sound = members.Text("sound", kAnyLength);
    members.With("transition",
                 [&](const JsonNode& blend) { key.transition = ReadTransition(blend); });
    members.With("clip", [&](const JsonNode& clip) { key.clip = ReadClip(clip); });
    members.With("subKeys", [&](const JsonNode& keys) { key.subKeys = ReadKeys(keys); });
    members.Finish();
    return key;
}

QVector<TrackId> SceneReader::ReadTrackIds(const JsonNode& node) const
{
    QVector<TrackId> ids;
    node.ForEach([&](const JsonNode& element, int) {
        ids.append(element.Whole());
        if (!m_tracks.contains(ids.last()))
            element.Refuse(QStringLiteral("the id of a track, found %1").arg(ids.last()));
    });
    return ids;
}

SwitchButton SceneReader::ReadButton(const JsonNode& node) const
{
    JsonMembers members(node);
    SwitchButton button;
    button.text = members.At("text").Text();
    button.on = members.At("on").Flag();
    button.tracks = ReadTrackIds(members.At("tracks"));
    members.Finish();
    return button;
}

TrackRelation SceneReader::ReadRelation(const JsonNode& node) const
{
    JsonMembers members(node);
    TrackRelation relation;
    relation.kind = static_cast<RelationKind>(members.At("kind").Choice(kRelationKindNames));
    relation.tracks = ReadTrackIds(members.At("tracks"));
    members.Finish();
    return relation;
}

/// Whether the text says of itself that it is a scene that can be read here.
void CheckFormat(const JsonNode& root)
{
    JsonMembers members(root);
    if (root.HasFault())
        return;
    const JsonNode format = members.At("format");
    if (format.Text() != QLatin1String(kFormatName))
        format.Refuse(QStringLiteral("\"%1\"").arg(QLatin1String(kFormatName)));
    const JsonNode version = members.At("version");
    const int number = version.Whole({1});
    if (number > kSceneFormatVersion) {
        version.Refuse(QStringLiteral("%1 at most, found %2: written by a newer program")
                           .arg(kSceneFormatVersion)
                           .arg(number));
    }
}

/// The line, from 1, of the last token before byte @p offset: the parser notices what is missing
/// only behind the space that follows.
int LineOf(const QByteArray& text, int offset)
{
    const auto isSpace = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
    int end = std::clamp(offset, 0, text.size());
    while (end > 0 && isSpace(text.at(end - 1)))
        --end;
    return 1 + static_cast<int>(std::count(text.begin(), text.begin() + end, '\n'));
}

/// Names in a damaged file may hold anything.
QString OneLine(QString text)
{
    std::replace_if(
        text.begin(), text.end(), [](QChar c) { return !c.isPrint(); }, QChar(u' '));
    return text;
}

} // namespace

std::optional<SceneDocument> ReadSceneJson(const QByteArray& text, QString& error)
{
    error.clear();
    QJsonParseError parseError;
    const QJsonDocument json = QJsonDocument::fromJson(text, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        error = QStringLiteral("line %1: expected a whole JSON text (%2)")
                    .arg(LineOf(text, parseError.offset))
                    .arg(parseError.errorString());
        return std::nullopt;
    }
    const DoubleMember again = FindDoubleMember(text);
    if (again.offset >= 0) {
        error = OneLine(QStringLiteral("line %1: expected every member once, found \"%2\" again")
                            .arg(LineOf(text, again.offset + 1))
                            .arg(QString::fromUtf8(again.name)));
        return std::nullopt;
    }
    const JsonNode root(json.isObject() ? QJsonValue(json.object()) : QJsonValue(), error);
    CheckFormat(root);
    if (!error.isEmpty())
        return std::nullopt;
    const SceneDocument document = SceneReader().Read(root);
    if (!error.isEmpty()) {
        error = OneLine(error);
        return std::nullopt;
    }
    return document;
}

} // namespace host
