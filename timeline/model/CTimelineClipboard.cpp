#include "CTimelineClipboard.h"

CTimelineClipboard::CTimelineClipboard() : m_sourceValue(0) {}

CTimelineClipboard::~CTimelineClipboard()
{
    Reset();
}

bool CTimelineClipboard::HasData() const
{
    return !m_keys.empty();
}

void CTimelineClipboard::Reset()
{
    m_keys.clear();
    m_sourceValue = 0;
}

void CTimelineClipboard::Fill(const KeyVector& keys, int sourceValue)
{
    m_keys = keys;
    m_sourceValue = m_keys.empty() ? 0 : sourceValue;
}

const CTimelineClipboard::KeyVector& CTimelineClipboard::GetKeys() const
{
    return m_keys;
}

int CTimelineClipboard::GetSourceValue() const
{
    return m_sourceValue;
}
