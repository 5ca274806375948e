#pragma once

#include "document/Scene.h"

#include <KestovaTimelineQU/KestovaTimelineQU.h>

#include <QHash>

namespace host {

/// Translates between the scene's keys and the timeline's. A timeline key carries the number of the
/// scene key that it stands for, and keeps it when the timeline moves or copies it.
class TimelineKeys
{
public:
    using KeyVector = CTimelineKeyArray::KeyVector;

    /// New keys for all of @p keys, in their order. Keys of one group share one token over all
    /// calls.
    KeyVector Make(const QVector<SceneKey>& keys);
    /// Makes @p array hold just @p keys. Keys that it holds already stay the same objects, and stay
    /// selected.
    void Update(CTimelineKeyArray& array, const QVector<SceneKey>& keys);

    /// A copy of another row's key, in the look of those that belong to others.
    VZ::CPointer<CTimelineKey> Related(const CTimelineKey& key);

    /// The number of the scene key that @p key stands for, or is a copy of.
    static KeyId IdOf(const CTimelineKey& key);
    /// What @p key says, as a scene key without a number and without a group.
    static SceneKey Read(const CTimelineKey& key);

private:
    void Write(CTimelineKey& made, const SceneKey& key);
    void WriteSubKeys(CTimelineKey& made, const QVector<SceneKey>& subKeys);
    VZ::CPointer<CReltedGroupBase> TokenOf(GroupId group);

    QHash<GroupId, VZ::CPointer<CReltedGroupBase>> m_tokens;
    VZ::CPointer<CReltedGroupBase> m_relatedToken;
};

} // namespace host
