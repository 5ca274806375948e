#pragma once

#include "document/Scene.h"

#include <KestovaTimelineQU/KestovaTimelineQU.h>

#include <QHash>

namespace host {

/// Makes the timeline's keys from the scene's.
class TimelineKeys
{
public:
    using KeyVector = CTimelineKeyArray::KeyVector;

    /// New keys for all of @p keys, in their order. Keys of one group share one token over all
    /// calls.
    KeyVector Make(const QVector<SceneKey>& keys);

private:
    VZ::CPointer<CTimelineKey> Make(const SceneKey& key);
    VZ::CPointer<CReltedGroupBase> TokenOf(GroupId group);

    QHash<GroupId, VZ::CPointer<CReltedGroupBase>> m_tokens;
};

} // namespace host
