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
    int left = 0;   ///< first column
    int top = 0;    ///< first row
    int right = 0;  ///< last column
    int bottom = 0; ///< last row
};

/// Coloured rectangles drawn over a key's glyph when bit 64 of its kind mask is set.
struct TimelineKeySegment
{
    float red = 0;                      ///< 0 to 1
    float green = 0;                    ///< 0 to 1
    float blue = 0;                     ///< 0 to 1
    float alpha = 0;                    ///< 0 to 1; 1 is opaque
    std::vector<TimelineKeyRect> rects; ///< what is filled with the colour
};

/// One item on a track: a key at one frame, or a clip that starts at a frame and runs for a number
/// of frames, possibly repeated. Made by the host with new and shared through VZ::CPointer; the
/// last pointer that lets go deletes it. The host assigns the members; the library changes only
/// `selected`, `displayLength` and, when it moves keys, `frame`. What is called a host value is
/// stored and copied, and read only where its comment says so. The order and widths of the members
/// are part of the binary interface. Include CTimelineKeyArray.h to use `subKeys`.
class KESTOVA_EXPORT CTimelineKey : public CReltedGroupBase
{
public:
    /// A plain key at frame 0 with the defaults named beside the members below, and a count of 0.
    CTimelineKey();
    /// A fresh object: count 0, no segments; sub-keys and group are shared. Used for every
    /// snapshot.
    CTimelineKey(const CTimelineKey& other);
    /// Overwrites in place: everything is copied, the reference count and the segments included.
    /// The count then no longer says who holds this key, so never assign to a key that several
    /// pointers hold.
    CTimelineKey& operator=(const CTimelineKey& other);
    /// Releases the sub-keys and the group.
    virtual ~CTimelineKey();

    /// Adds one reference.
    void IncrementReferences();
    /// Takes one reference off; the last release deletes the key through its virtual destructor. A
    /// count of 0 wraps and deletes nothing.
    void DecrementReferences();
    /// The number of references held at present.
    unsigned int GetReferences() const;

    QString name;         ///< label text; empty
    bool hostFlag;        ///< not read by the library; false
    int keyType;          ///< kind as the host classifies it; link rows read it by TLKeyType; 1
    int frame;            ///< the key's frame or a clip's first; what a key array is ordered by; 0
    bool selected;        ///< set only through CTimelineKeyArray's selection operations; false
    int kindMask;         ///< tested against a selection's mask; drawn by the bits of TLKeyMask; 1
    int transitionFrames; ///< frames of a span before or after a key, or of a clip's lead-in; 0
    int hostValue1;       ///< on the copies a clip track draws of sub-keys, the clip's frame; 0
    bool hostSwitch;      ///< true lets a row of keys draw the key's bar; false
    int clipLength;       ///< frames of one pass; below 1 the key is not a clip; 0
    int hostValue2;       ///< longest clip length of a speed drag, in frames; 0
    int hostValue3;       ///< shortest clip length of a speed drag, in frames; 0
    int hostValue4;       ///< not read by the library; 0
    int displayLength;    ///< frames drawn of a clip; computed by the key array, never the host; 0
    int loopCount;        ///< passes of a clip; 1
    int hostValue5;       ///< not read by the library; 0
    int hostValue6;       ///< mouth shape on a viseme track; 0
    int hostValue7;       ///< not read by the library; 0
    int lockState;        ///< see TLKeyLock: selection passes over a locked key; 0
    bool alternateStyle;  ///< drawn in the track's alternate colours; false
    int priority;         ///< decides which of two keys on one frame is displayed; 100
    int relatedCopy;      ///< 1 on a copy shown for another track, see RelatedAdd; 0
    VZ::CPointer<CTimelineKeyArray>
        subKeys;                          ///< keys inside a clip, owned jointly with the host; null
    VZ::CPointer<CReltedGroupBase> group; ///< token shared by the keys that belong together; null
    std::vector<TimelineKeySegment> segments; ///< drawn when kind mask bit 64 is set; none
};
