#pragma once

#include "CTimelineKeyArray.h"

#include <QString>
#include <QVector>

/// Short ways to make keys and to look at arrays, shared by the tests of the key model.

constexpr unsigned int kEveryKind = 0xFFFFFFFFu;

inline VZ::CPointer<CTimelineKey> MakeKey(int frame, const char* name = "")
{
    VZ::CPointer<CTimelineKey> key(new CTimelineKey);
    key->frame = frame;
    key->name = QString::fromLatin1(name);
    return key;
}

inline VZ::CPointer<CTimelineKey> MakeClip(int frame, int clipLength, int loopCount = 1)
{
    VZ::CPointer<CTimelineKey> clip = MakeKey(frame);
    clip->clipLength = clipLength;
    clip->loopCount = loopCount;
    return clip;
}

inline void AddFrames(CTimelineKeyArray& array, const QVector<int>& frames)
{
    for (int frame : frames)
        array.Add(MakeKey(frame), false);
}

inline QVector<int> FramesOf(const CTimelineKeyArray::KeyVector& keys)
{
    QVector<int> frames;
    for (const auto& key : keys)
        frames.append(key->frame);
    return frames;
}

inline QVector<int> FramesOf(const CTimelineKeyArray& array)
{
    return FramesOf(array.Keys());
}

inline QVector<int> DisplayLengthsOf(const CTimelineKeyArray& array)
{
    QVector<int> lengths;
    for (const auto& key : array.Keys())
        lengths.append(key->displayLength);
    return lengths;
}

/// The selection list, through its public accessors.
inline QVector<int> SelectionOf(const CTimelineKeyArray& array)
{
    QVector<int> selection;
    for (int position = 0; position < static_cast<int>(array.SelGetSize()); ++position)
        selection.append(array.SelGetAt(position));
    return selection;
}

/// The indexes of the keys that are marked selected.
inline QVector<int> MarkedOf(const CTimelineKeyArray& array)
{
    QVector<int> marked;
    for (int index = 0; index < static_cast<int>(array.GetSize()); ++index) {
        if (array.GetAt(index)->selected)
            marked.append(index);
    }
    return marked;
}

/// A key that tells when it is deleted through its virtual destructor.
class WatchedKey : public CTimelineKey
{
public:
    explicit WatchedKey(int& deletions) : m_deletions(deletions) {}
    ~WatchedKey() override { ++m_deletions; }

private:
    int& m_deletions;
};

/// A key array that does the same.
class WatchedKeyArray : public CTimelineKeyArray
{
public:
    explicit WatchedKeyArray(int& deletions) : m_deletions(deletions) {}
    ~WatchedKeyArray() override { ++m_deletions; }

private:
    int& m_deletions;
};

/// A group token as a host makes it.
class GroupToken : public CReltedGroupBase
{
};
