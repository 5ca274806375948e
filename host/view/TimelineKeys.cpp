#include "TimelineKeys.h"

namespace host {

namespace {

/// Stands for a group; that keys share it is all there is to it.
class GroupToken : public CReltedGroupBase
{
};

/// The sound files seen so far. A timeline key has no room for a path, but for its place here: so
/// copies in a clipboard keep their sound, even when the clip that they were made of is gone.
QStringList& KnownSounds()
{
    static QStringList sounds{QString()}; // 0 stands for none
    return sounds;
}

int NumberOfSound(const QString& sound)
{
    QStringList& known = KnownSounds();
    const int number = known.indexOf(sound);
    if (number >= 0)
        return number;
    known.append(sound);
    return known.size() - 1;
}

void WriteClip(CTimelineKey& made, const ClipSpan& clip)
{
    made.clipLength = clip.length;
    made.loopCount = clip.loops;
    made.transitionFrames = clip.leadIn;
    made.hostValue2 = clip.longest;
    made.hostValue3 = clip.shortest;
    made.hostValue4 = clip.material;
    made.hostSwitch = true; // rows of keys draw the clip's frame
}

void WriteTransition(CTimelineKey& made, const Transition& transition)
{
    made.transitionFrames = transition.frames;
    made.kindMask |=
        transition.direction == BlendDirection::Into ? TL_KEY_TRANSITION_IN : TL_KEY_TRANSITION_OUT;
}

ClipSpan ReadClip(const CTimelineKey& key)
{
    return {key.clipLength, key.loopCount,  key.transitionFrames,
            key.hostValue3, key.hostValue2, key.hostValue4};
}

std::optional<Transition> ReadTransition(const CTimelineKey& key)
{
    if (key.kindMask & TL_KEY_TRANSITION_OUT)
        return Transition{BlendDirection::OutOf, key.transitionFrames};
    if (key.kindMask & TL_KEY_TRANSITION_IN)
        return Transition{BlendDirection::Into, key.transitionFrames};
    return std::nullopt;
}

/// The keys of the array by their numbers. While copies are dragged a number stands for several
/// keys: then for none, as the copies are the timeline's to take away again.
QHash<KeyId, VZ::CPointer<CTimelineKey>> KeysByNumber(const CTimelineKeyArray& array)
{
    QHash<KeyId, VZ::CPointer<CTimelineKey>> found;
    for (const VZ::CPointer<CTimelineKey>& key : array.Keys()) {
        const KeyId id = TimelineKeys::IdOf(*key);
        const bool isNew = !found.contains(id);
        found[id] = isNew ? key : VZ::CPointer<CTimelineKey>();
    }
    return found;
}

} // namespace

TimelineKeys::KeyVector TimelineKeys::Make(const QVector<SceneKey>& keys)
{
    KeyVector made;
    made.reserve(static_cast<std::size_t>(keys.size()));
    for (const SceneKey& key : keys) {
        made.emplace_back(new CTimelineKey);
        Write(*made.back(), key);
    }
    return made;
}

void TimelineKeys::Update(CTimelineKeyArray& array, const QVector<SceneKey>& keys)
{
    const QHash<KeyId, VZ::CPointer<CTimelineKey>> known = KeysByNumber(array);
    array.RemoveAll(); // the frames of keys that an array holds are not to be written
    KeyVector updated;
    updated.reserve(static_cast<std::size_t>(keys.size()));
    for (const SceneKey& key : keys) {
        const VZ::CPointer<CTimelineKey> held = known.value(key.id);
        updated.push_back(held ? held : VZ::CPointer<CTimelineKey>(new CTimelineKey));
        Write(*updated.back(), key);
    }
    array.AddKeys(updated, false);
}

VZ::CPointer<CTimelineKey> TimelineKeys::Related(const CTimelineKey& key)
{
    if (!m_relatedToken)
        m_relatedToken = new GroupToken; // keys of a group are drawn in that look
    VZ::CPointer<CTimelineKey> copy(new CTimelineKey(key));
    copy->group = m_relatedToken;
    return copy;
}

KeyId TimelineKeys::IdOf(const CTimelineKey& key)
{
    return key.hostValue7;
}

SceneKey TimelineKeys::Read(const CTimelineKey& key)
{
    SceneKey read;
    read.frame = key.frame;
    read.name = key.name;
    read.priority = key.priority;
    read.locked = key.lockState == TL_KEY_LOCKED;
    read.alternate = key.alternateStyle;
    read.sound = KnownSounds().value(key.hostValue5);
    read.mouthShape = key.hostValue6;
    read.startsLink = (key.keyType & TL_KEY_LINK_START) != 0;
    read.transition = ReadTransition(key);
    if (key.clipLength > 0)
        read.clip = ReadClip(key);
    if (key.subKeys) {
        for (const VZ::CPointer<CTimelineKey>& subKey : key.subKeys->Keys())
            read.subKeys.append(Read(*subKey));
    }
    return read;
}

void TimelineKeys::Write(CTimelineKey& made, const SceneKey& key)
{
    static const CTimelineKey plain;
    made.hostValue7 = key.id;
    made.name = key.name;
    made.frame = key.frame;
    made.priority = key.priority;
    made.lockState = key.locked ? TL_KEY_LOCKED : TL_KEY_UNLOCKED;
    made.alternateStyle = key.alternate;
    made.hostValue5 = key.sound.isEmpty() ? 0 : NumberOfSound(key.sound);
    made.hostValue6 = key.mouthShape;
    made.keyType = plain.keyType | (key.startsLink ? TL_KEY_LINK_START : 0);
    made.kindMask = plain.kindMask;
    made.transitionFrames = plain.transitionFrames;
    if (key.clip)
        WriteClip(made, *key.clip);
    if (key.transition)
        WriteTransition(made, *key.transition);
    WriteSubKeys(made, key.subKeys);
    made.group = TokenOf(key.group);
}

void TimelineKeys::WriteSubKeys(CTimelineKey& made, const QVector<SceneKey>& subKeys)
{
    if (subKeys.isEmpty() && !made.subKeys)
        return;
    if (!made.subKeys)
        made.subKeys = new CTimelineKeyArray;
    Update(*made.subKeys, subKeys);
}

VZ::CPointer<CReltedGroupBase> TimelineKeys::TokenOf(GroupId group)
{
    if (group == kNoGroup)
        return {};
    VZ::CPointer<CReltedGroupBase>& token = m_tokens[group];
    if (!token)
        token = new GroupToken;
    return token;
}

} // namespace host
