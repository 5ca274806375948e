#include "CReltedGroupBase.h"

CReltedGroupBase::CReltedGroupBase() : m_references(0) {}

CReltedGroupBase::CReltedGroupBase(const CReltedGroupBase& other) = default;

CReltedGroupBase& CReltedGroupBase::operator=(const CReltedGroupBase& other) = default;

void CReltedGroupBase::IncrementReferences()
{
    ++m_references;
}

void CReltedGroupBase::DecrementReferences()
{
    if (m_references-- == 1)
        delete this;
}

unsigned int CReltedGroupBase::GetReferences() const
{
    return m_references;
}
