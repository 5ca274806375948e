#pragma once

#include "CPointer.h"
#include "CReltedGroupBase.h"
#include "KestovaExport.h"

#include <QString>

#include <vector>

class CTimelineKeyArray;

/// A rectangle of a key segment, in pixels from the glyph's top-left corner.
struct TimelineKeyRect
{
    int left = 0, top = 0, right = 0, bottom = 0;
};

/// Coloured rectangles drawn over a key's glyph when bit 64 of its kind mask is set.
struct TimelineKeySegment
{
    float red = 0, green = 0, blue = 0, alpha = 0; ///< 0 to 1
    std::vector<TimelineKeyRect> rects;
};

/// One item on a track: a key at one frame, or a clip that starts at a frame and runs for a number
/// of frames, possibly repeated. Made by the host with new and shared through VZ::CPointer; the
/// last pointer that lets go deletes it. The order and widths of the members are part of the binary
/// interface.
class KESTOVA_EXPORT CTimelineKey : public CReltedGroupBase
{
public:
    CTimelineKey();
    /// A fresh object: count 0, no segments; sub-keys and group are shared. Used for every
    /// snapshot.
    CTimelineKey(const CTimelineKey& other);
    /// Overwrites in place: everything is copied, the reference count and the segments included.
    CTimelineKey& operator=(const CTimelineKey& other);
    virtual ~CTimelineKey();

    void IncrementReferences();
    void DecrementReferences(); ///< the last release deletes through the virtual destructor
    unsigned int GetReferences() const;

    QString name;
    bool hostFlag;
    int keyType;
    int frame;
    bool selected;
    int kindMask;
    int transitionFrames;
    int hostValue1;
    bool hostSwitch;
    int clipLength;
    int hostValue2;
    int hostValue3;
    int hostValue4;
    int displayLength;
    int loopCount;
    int hostValue5;
    int hostValue6;
    int hostValue7;
    int lockState;
    bool alternateStyle;
    int priority;
    int relatedCopy;
    VZ::CPointer<CTimelineKeyArray> subKeys;
    VZ::CPointer<CReltedGroupBase> group;
    std::vector<TimelineKeySegment> segments;
};
