#include "CTimelineKey.h"

#include "CTimelineKeyArray.h"

namespace {
constexpr int kDefaultKeyType = 1;
constexpr int kDefaultKindMask = 1;
constexpr int kDefaultLoopCount = 1;
constexpr int kDefaultPriority = 100;
} // namespace

CTimelineKey::CTimelineKey()
    : hostFlag(false), keyType(kDefaultKeyType), frame(0), selected(false),
      kindMask(kDefaultKindMask), transitionFrames(0), hostValue1(0), hostSwitch(false),
      clipLength(0), hostValue2(0), hostValue3(0), hostValue4(0), displayLength(0),
      loopCount(kDefaultLoopCount), hostValue5(0), hostValue6(0), hostValue7(0), lockState(0),
      alternateStyle(false), priority(kDefaultPriority), relatedCopy(0)
{
}

// The base is default-constructed on purpose: a snapshot has holders of its own. Segments stay
// behind, since a snapshot is drawn as a plain key.
CTimelineKey::CTimelineKey(const CTimelineKey& other)
    : CReltedGroupBase(), name(other.name), hostFlag(other.hostFlag), keyType(other.keyType),
      frame(other.frame), selected(other.selected), kindMask(other.kindMask),
      transitionFrames(other.transitionFrames), hostValue1(other.hostValue1),
      hostSwitch(other.hostSwitch), clipLength(other.clipLength), hostValue2(other.hostValue2),
      hostValue3(other.hostValue3), hostValue4(other.hostValue4),
      displayLength(other.displayLength), loopCount(other.loopCount), hostValue5(other.hostValue5),
      hostValue6(other.hostValue6), hostValue7(other.hostValue7), lockState(other.lockState),
      alternateStyle(other.alternateStyle), priority(other.priority),
      relatedCopy(other.relatedCopy), subKeys(other.subKeys), group(other.group)
{
}

CTimelineKey& CTimelineKey::operator=(const CTimelineKey& other)
{
    // The other key can be one of this key's own sub-keys: it must live until all is copied.
    const VZ::CPointer<CTimelineKeyArray> formerSubKeys = subKeys;
    CReltedGroupBase::operator=(other);
    name = other.name;
    hostFlag = other.hostFlag;
    keyType = other.keyType;
    frame = other.frame;
    selected = other.selected;
    kindMask = other.kindMask;
    transitionFrames = other.transitionFrames;
    hostValue1 = other.hostValue1;
    hostSwitch = other.hostSwitch;
    clipLength = other.clipLength;
    hostValue2 = other.hostValue2;
    hostValue3 = other.hostValue3;
    hostValue4 = other.hostValue4;
    displayLength = other.displayLength;
    loopCount = other.loopCount;
    hostValue5 = other.hostValue5;
    hostValue6 = other.hostValue6;
    hostValue7 = other.hostValue7;
    lockState = other.lockState;
    alternateStyle = other.alternateStyle;
    priority = other.priority;
    relatedCopy = other.relatedCopy;
    subKeys = other.subKeys;
    group = other.group;
    segments = other.segments;
    return *this;
}

CTimelineKey::~CTimelineKey() = default;

void CTimelineKey::IncrementReferences()
{
    ++m_references;
}

void CTimelineKey::DecrementReferences()
{
    if (m_references-- == 1)
        delete this;
}

unsigned int CTimelineKey::GetReferences() const
{
    return m_references;
}
