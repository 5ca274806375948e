#pragma once

#include "KestovaExport.h"

/// The counting part of every reference-counted object, and by itself the token of a related group:
/// keys that share one token belong together. A host's token is a trivial class derived from this
/// one (no members, no virtual functions: it is freed as the base), made with new and held only
/// through VZ::CPointer. The count is a plain integer: GUI thread only.
class KESTOVA_EXPORT CReltedGroupBase
{
public:
    /// Copies the count. A derived class that wants a fresh count for its copies uses the default
    /// constructor instead.
    CReltedGroupBase(const CReltedGroupBase& other);
    /// Copies the count, which then no longer says who holds this object; see
    /// CTimelineKey::operator=.
    CReltedGroupBase& operator=(const CReltedGroupBase& other);

    /// Adds one reference.
    void IncrementReferences();
    /// Takes one reference off; an object whose count was 1 deletes itself, without a virtual call.
    /// A count of 0 wraps to the largest unsigned value and frees nothing.
    void DecrementReferences();
    /// The number of references held at present.
    unsigned int GetReferences() const;

protected:
    /// A new object has a count of 0; the first VZ::CPointer raises it to 1.
    CReltedGroupBase();
    ~CReltedGroupBase() = default;

    unsigned int m_references; ///< who holds this object: that many pointers
};
