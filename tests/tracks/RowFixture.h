#pragma once

#include "model/TimelineKeyValues.h"
#include "support/TimelineFixture.h"
#include "tracks/CTimelineTrackBaseInterface.h"
#include "tracks/CTimelineTrackClip.h"
#include "tracks/CTimelineTrackKey.h"
#include "tracks/CTimelineTrackLinkKey.h"
#include "tracks/CTimelineTrackTransKey.h"
#include "tracks/CTimelineTrackVisemeKey.h"

#include <functional>
#include <memory>
#include <vector>

namespace KestovaTest {

/// A token that makes keys belong to a related group.
class GroupToken : public CReltedGroupBase
{
};

/// An owner that writes down what its tracks report.
class OwnerSpy : public CTimelineTrackBaseInterface
{
public:
    struct Message
    {
        int code;
        CTimelineTrackBase* track;
        int number;
        QVariant values[3];
    };

    int OnTrackMessage(int code, CTimelineTrackBase* track, int number, QVariant value1,
                       QVariant value2, QVariant value3) override
    {
        messages.push_back({code, track, number, {value1, value2, value3}});
        return 0;
    }
    bool OnTrackDrop(QDropEvent*, CTimelineTrackBase*) override { return false; }
    bool OnTrackDragCheck(QDropEvent*, CTimelineTrackBase*, int) override { return false; }

    std::vector<Message> messages;
};

using Change = std::function<void(CTimelineKey&)>;

/// A new key at @p frame, changed by @p change.
inline VZ::CPointer<CTimelineKey> NewKey(int frame, const Change& change = {})
{
    VZ::CPointer<CTimelineKey> key(new CTimelineKey);
    key->frame = frame;
    if (change)
        change(*key);
    return key;
}

inline CTimelineKey& AddKey(CTimelineTrackBase& track, int frame, const Change& change = {})
{
    const auto key = NewKey(frame, change);
    track.Keys().Add(key, false);
    return *key;
}

inline void AddRelated(CTimelineTrackBase& track, int frame, const Change& change = {})
{
    const auto key = NewKey(frame, change);
    track.Keys().RelatedAdd(key.Get(), false);
}

/// A clip with sub-keys at @p subFrames, on any track.
inline CTimelineKey& AddClip(CTimelineTrackBase& track, int frame, int clipLength, int loopCount,
                             const std::vector<int>& subFrames, const Change& change = {})
{
    return AddKey(track, frame, [&](CTimelineKey& clip) {
        clip.clipLength = clipLength;
        clip.loopCount = loopCount;
        clip.subKeys = new CTimelineKeyArray;
        for (const int subFrame : subFrames)
            clip.subKeys->Add(NewKey(subFrame), false);
        if (change)
            change(clip);
    });
}

inline void Select(CTimelineKey& key)
{
    key.selected = true;
}
inline void Lock(CTimelineKey& key)
{
    key.lockState = 1;
}
inline void Join(CTimelineKey& key)
{
    key.group = new GroupToken;
}

/// A bar of one or more passes, drawn.
inline Change Bar(int clipLength, int loopCount = 1)
{
    return [=](CTimelineKey& key) {
        key.clipLength = clipLength;
        key.loopCount = loopCount;
        key.hostSwitch = true;
    };
}

/// The colour of the bars of a key, viseme, transition or wave row.
inline QRgb BarBorder(const CTimelineTrackBase& row, int selected = 0)
{
    if (const auto* wave = row.StyleAs<WaveTrackStyle>())
        return wave->clipBorder[selected].color().rgb();
    return row.StyleAs<KeyTrackStyle>()->clipBorder[selected].color().rgb();
}

inline void SetModes(CTimelineTrackBase& track, const std::vector<TLEditType>& modes)
{
    CTimelineTrackBase::EditModes list;
    for (const TLEditType mode : modes)
        list.Add(mode);
    track.SetEditModes(list);
}

inline void RelateTracks(int kind, const std::vector<CTimelineTrackBase*>& tracks)
{
    TimelineLibrary::Instance().relations.Set({_tmpTLRelatedMap{kind, tracks}});
}

inline void UnrelateTracks()
{
    TimelineLibrary::Instance().relations.Set({});
}

/// What a row shows on the screen: what its DrawTrack paints and, over it, what its own paint event
/// paints. With @p columns (x, width) only those are painted, in both.
inline QImage ShowRow(CTimelineTrackBase& track, const QSize& size, const QRect& clip = QRect())
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    if (!clip.isNull())
        painter.setClipRect(clip);
    track.DrawTrack(&painter, image.rect());
    if (track.GetTrackType() == TL_TRACK_TRANSITION_KEY) {
        const QRect part = clip.isNull() ? track.rect() : clip & track.rect();
        track.render(&painter, part.topLeft(), part, QWidget::RenderFlags());
    }
    painter.end();
    return image;
}

inline std::unique_ptr<CTimelineTrackBase> MakeTrack(int type, int styleNumber = 1)
{
    std::unique_ptr<CTimelineTrackBase> track;
    switch (type) {
    case TL_TRACK_KEY:
        track = std::make_unique<CTimelineTrackKey>();
        break;
    case TL_TRACK_TRANSITION_KEY:
        track = std::make_unique<CTimelineTrackTransKey>();
        break;
    case TL_TRACK_LINK_KEY:
        track = std::make_unique<CTimelineTrackLinkKey>();
        break;
    case TL_TRACK_VISEME_KEY:
        track = std::make_unique<CTimelineTrackVisemeKey>();
        break;
    default:
        track = std::make_unique<CTimelineTrackClip>();
        break;
    }
    track->Init(nullptr);
    if (type == TL_TRACK_WAVE)
        static_cast<CTimelineTrackClip*>(track.get())->MakeWave();
    track->MarkAsOwnTrack();
    if (!track->LoadStyle(styleNumber))
        return nullptr;
    return track;
}

} // namespace KestovaTest
