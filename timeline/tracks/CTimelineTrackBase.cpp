#include "tracks/CTimelineTrackBase.h"

#include "library/TimelineLibrary.h"
#include "model/KeyArrayRevision.h"
#include "model/MessageCodes.h"
#include "model/TimelineKeyValues.h"
#include "skin/TrackStyleReader.h"
#include "tracks/CTimelineTrackBaseInterface.h"

#include <algorithm>
#include <unordered_set>

namespace {

constexpr int kFewestEditModes = 2; ///< of a row whose keys can be selected

/// Every track that exists. Qt deletes a track with its parent widget without asking the manager,
/// so whoever holds a plain pointer asks here first.
std::unordered_set<const CTimelineTrackBase*>& LiveTracks()
{
    static std::unordered_set<const CTimelineTrackBase*> tracks;
    return tracks;
}

} // namespace

CTimelineTrackBase::CTimelineTrackBase()
    : m_keys(new CTimelineKeyArray), m_gesture(*this, [this] { EndGesture(); }),
      m_keyGesture(*this, m_gesture)
{
    LiveTracks().insert(this);
    setFocusPolicy(Qt::ClickFocus);
    setAcceptDrops(true);
}

CTimelineTrackBase::~CTimelineTrackBase()
{
    LiveTracks().erase(this);
    CountKeyArrayChange(); // other rows may have shown its keys, though it was hidden itself
    LeaveDrag();
}

bool CTimelineTrackBase::IsAlive(const CTimelineTrackBase* track)
{
    return LiveTracks().count(track) > 0;
}

bool CTimelineTrackBase::Init(QWidget*)
{
    return false;
}

bool CTimelineTrackBase::InitAs(QWidget* parent, int trackType, int width)
{
    setParent(parent);
    m_trackType = trackType;
    resize(width, m_rowHeight);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return true;
}

FrameAxis& CTimelineTrackBase::Axis()
{
    return TimelineLibrary::Instance().axis;
}

bool CTimelineTrackBase::LoadStyle(int styleIndex)
{
    TimelineLibrary& library = TimelineLibrary::Instance();
    const bool complete = LoadTrackStyle(library.skinPath, styleIndex, m_trackType, m_style);
    if (const auto* tick = StyleAs<TickTrackStyle>(); tick && complete)
        library.currentFrameLine = tick->markLine.ToColor();
    return complete;
}

int CTimelineTrackBase::FrameToPixel(long long frame) const
{
    return Axis().FrameToPixel(frame);
}

int CTimelineTrackBase::PixelToFrame(int x) const
{
    return Axis().PixelToFrame(x);
}

void CTimelineTrackBase::GetRangeFrames(int& lo, int& hi) const
{
    lo = std::min(m_rangeStart, m_rangeEnd);
    hi = std::max(m_rangeStart, m_rangeEnd);
}

void CTimelineTrackBase::SetRange(int start, int end)
{
    m_rangeStart = start;
    m_rangeEnd = end;
}

void CTimelineTrackBase::SetActive(bool active)
{
    if (active != m_active && HasEditMode(TL_EDIT_SUB_KEYS))
        m_keys->ClearAllSelection();
    if (!active && HasEditMode(TL_EDIT_TIME_RANGE))
        m_rangeStart = -1;
    m_active = active;
}

void CTimelineTrackBase::ClearRangeOrSubSelection()
{
    const int lastFrame = Axis().frameCount;
    if (!HasEditMode(TL_EDIT_SUB_KEYS) && m_editModes.GetSize() > 0) {
        m_rangeStart = -1;
        m_keys->SetSelection(0, lastFrame, false, TL_KEY_ANY_KIND);
        Send(kTrackSelectionChanged);
        return;
    }
    // A copy: sub-keys may lead back to these keys.
    for (const int index : std::vector<int>(m_keys->SelectedIndexes())) {
        // A removal of an unselected key may leave an entry that points past the end.
        if (index < 0 || static_cast<std::size_t>(index) >= m_keys->GetSize())
            continue;
        const CTimelineKey* key = m_keys->Keys()[static_cast<std::size_t>(index)].Get();
        if (key->subKeys)
            key->subKeys->SetSelection(0, lastFrame, false, TL_KEY_ANY_KIND);
    }
}

bool CTimelineTrackBase::IsFrameOnlyRow() const
{
    return m_editModes.GetSize() < kFewestEditModes;
}

bool CTimelineTrackBase::CopySelectionToClipboard()
{
    return FillClipboard(m_keys->CopySelected());
}

bool CTimelineTrackBase::FillClipboard(const KeyVector& copies)
{
    if (copies.empty())
        return false;
    m_clipboard.Fill(copies, copies.front()->frame);
    return true;
}

int CTimelineTrackBase::Send(int code, const QVariant& value2, const QVariant& value3)
{
    return m_owner ? m_owner->OnTrackMessage(code, m_trackId, 0, QVariant(0), value2, value3) : -1;
}

void CTimelineTrackBase::enterEvent(QEvent* event)
{
    if (!testAttribute(Qt::WA_MouseTracking))
        setMouseTracking(true);
    QWidget::enterEvent(event);
}

void CTimelineTrackBase::leaveEvent(QEvent* event)
{
    if (testAttribute(Qt::WA_MouseTracking))
        setMouseTracking(false);
    QWidget::leaveEvent(event);
}
