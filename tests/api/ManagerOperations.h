#pragma once

#include "CTimelineManager.h"

namespace KestovaTest {

/// What an operation of the manager has to have before it acts.
enum OperationNeeds : unsigned
{
    NeedsTheTrack = 1,    ///< a track that exists
    NeedsTheTimeline = 2, ///< the window and the timeline widget in it
    TakesNull = 4,        ///< though it needs a track, null is a value of its own
    RefusesWhatever = 8,  ///< answers the refused value also when it acts, or never acts
    NeedsASwitch = 16,    ///< refused for every other kind of track
    ActsUnseen = 32       ///< what it does shows only later
};

/// One operation, called for a track (@p other is a second one, always in order); the call answers
/// whether the refused value came back. Operations without an answer give "yes": what they did is
/// to be seen in the timeline.
struct ManagerOperation
{
    const char* name;
    unsigned needs;
    bool (*isRefused)(CTimelineManager& manager, CTimelineTrackBase* track,
                      CTimelineTrackBase* other);
};

using M = CTimelineManager;
using T = CTimelineTrackBase;

// clang-format off
const ManagerOperation kManagerOperations[] = {
    {"CreateTrack", NeedsTheTimeline, [](M& m, T*, T*) { return !m.CreateTrack(TL_TRACK_KEY, "x", 1); }},
    {"DeleteTrack", NeedsTheTrack, [](M& m, T* t, T*) { return !m.DeleteTrack(t); }},
    {"IsTrackExist", NeedsTheTrack, [](M& m, T* t, T*) { return !m.IsTrackExist(t); }},
    {"GetTrackType", NeedsTheTrack, [](M& m, T* t, T*) { return m.GetTrackType(t) == -1; }},
    {"GetKeyDataArray", NeedsTheTrack, [](M& m, T* t, T*) { return m.GetKeyDataArray(t) == nullptr; }},
    {"ShowRootTrack", NeedsTheTrack | NeedsTheTimeline, [](M& m, T* t, T*) { return !m.ShowRootTrack(t, 0, true); }},
    {"ShowChildTrack of the parent", NeedsTheTrack | NeedsTheTimeline, [](M& m, T* t, T* o) { return !m.ShowChildTrack(t, o, 0, true); }},
    {"ShowChildTrack of the child", NeedsTheTrack | NeedsTheTimeline, [](M& m, T* t, T* o) { return !m.ShowChildTrack(o, t, 0, true); }},
    {"HideRootTrack", NeedsTheTrack | NeedsTheTimeline, [](M& m, T* t, T*) { return !m.HideRootTrack(t, true); }},
    {"HideChildTrack", NeedsTheTrack | NeedsTheTimeline, [](M& m, T* t, T*) { return !m.HideChildTrack(t, true); }},
    {"GetRootTrackSortIndex", NeedsTheTrack | NeedsTheTimeline, [](M& m, T* t, T*) { return m.GetRootTrackSortIndex(t) == -1; }},
    {"GetChildTrackSortIndex", NeedsTheTrack | NeedsTheTimeline, [](M& m, T* t, T*) { return m.GetChildTrackSortIndex(t) == 0; }},
    {"SetRootTrackSortIndex", NeedsTheTrack | NeedsTheTimeline, [](M& m, T* t, T*) { return !m.SetRootTrackSortIndex(t, 0, true); }},
    {"SetChildTrackSortIndex", NeedsTheTrack | NeedsTheTimeline, [](M& m, T* t, T*) { return !m.SetChildTrackSortIndex(t, 0, true); }},
    {"SetActiveChildTrack", NeedsTheTrack | NeedsTheTimeline, [](M& m, T* t, T*) { return !m.SetActiveChildTrack(t); }},
    {"SetActiveRootTrack", NeedsTheTrack | NeedsTheTimeline | TakesNull, [](M& m, T* t, T*) { return !m.SetActiveRootTrack(t); }},
    {"SetTrackName", NeedsTheTrack | NeedsTheTimeline, [](M& m, T* t, T*) { return !m.SetTrackName(t, "x"); }},
    {"SetTrackSelFrame", NeedsTheTrack | NeedsTheTimeline, [](M& m, T* t, T*) { m.SetTrackSelFrame(t, 3, 4); return true; }},
    {"GetTrackSelFrame", NeedsTheTrack, [](M& m, T* t, T*) { int a = 77; int b = 78; m.GetTrackSelFrame(t, a, b); return a == 77 && b == 78; }},
    {"SetTrackEditMode", NeedsTheTrack | NeedsTheTimeline, [](M& m, T* t, T*) { VZ::CArrayList<TLEditType> e; e.Add(TL_EDIT_CUT); return !m.SetTrackEditMode(t, e); }},
    {"GetTrackCaptionBtnState", NeedsTheTrack, [](M& m, T* t, T*) { int s = 77; return !m.GetTrackCaptionBtnState(t, 4, s) && s == 77; }},
    {"SetTrackCaptionBtnState", NeedsTheTrack | RefusesWhatever, [](M& m, T* t, T*) { int s = 2; return !m.SetTrackCaptionBtnState(t, 4, s); }},
    {"GetTrackSwitchBtnList", NeedsTheTrack | NeedsASwitch, [](M& m, T* t, T*) { std::vector<_tmpTLSwitchBtnData> b(3); return !m.GetTrackSwitchBtnList(t, b) && b.size() == 3; }},
    {"SetTrackSwitchBtnList", NeedsTheTrack | NeedsASwitch, [](M& m, T* t, T*) { std::vector<_tmpTLSwitchBtnData> b; return !m.SetTrackSwitchBtnList(t, b); }},
    {"GetTrackSwitchScrollState", NeedsTheTrack | NeedsASwitch, [](M& m, T* t, T*) { bool s = true; return !m.GetTrackSwitchScrollState(t, s) && s; }},
    {"SetTrackSwitchScrollState", NeedsTheTrack | NeedsASwitch, [](M& m, T* t, T*) { return !m.SetTrackSwitchScrollState(t, true); }},
    {"ResetClipboard", NeedsTheTrack, [](M& m, T* t, T*) { return !m.ResetClipboard(t); }},
    {"CopySelectionToClipboard", NeedsTheTrack, [](M& m, T* t, T*) { return !m.CopySelectionToClipboard(t); }},
    {"GetClipboardKeys", NeedsTheTrack, [](M& m, T* t, T*) { std::vector<VZ::CPointer<CTimelineKey>> k; int v = 77; return !m.GetClipboardKeys(t, k, v) && v == 77 && k.empty(); }},
    {"GetActiveRootTrack", NeedsTheTimeline, [](M& m, T*, T*) { return !m.GetActiveRootTrack(); }},
    {"GetActiveChildTrack", NeedsTheTimeline, [](M& m, T*, T*) { return !m.GetActiveChildTrack(); }},
    {"GetSelectedKeyTrack", NeedsTheTimeline, [](M& m, T*, T*) { VZ::CArrayList<T*> l; m.GetSelectedKeyTrack(l); return l.GetSize() == 0; }},
    {"CanDoTrackEdit", NeedsTheTimeline, [](M& m, T* t, T*) { return !m.CanDoTrackEdit(t, TL_EDIT_SELECT_ALL); }},
    {"DoTrackEdit", NeedsTheTimeline, [](M& m, T* t, T*) { return !m.DoTrackEdit(t, TL_EDIT_SELECT_ALL); }},
    {"CheckIdleClip", NeedsTheTimeline, [](M& m, T* t, T*) { return !m.CheckIdleClip(t, 5); }},
    {"CheckDragFileUnderVisemeClip", NeedsTheTimeline, [](M& m, T*, T*) { return !m.CheckDragFileUnderVisemeClip(5); }},
    {"SetEnableDragEnterFiletype", NeedsTheTimeline | ActsUnseen, [](M& m, T*, T*) { m.SetEnableDragEnterFiletype(true, true, true, true, true, true); return true; }},
    {"SetDropTrackFocusAndPickJustLoadClip", NeedsTheTimeline, [](M& m, T* t, T*) { m.SetDropTrackFocusAndPickJustLoadClip(t); return true; }},
    {"ScrollToFrame", NeedsTheTimeline, [](M& m, T*, T*) { return !m.ScrollToFrame(5, 0); }},
    {"ScrollToTrack", NeedsTheTimeline | RefusesWhatever | ActsUnseen, [](M& m, T* t, T*) { return !m.ScrollToTrack(t); }},
    {"GetScrollInfo", NeedsTheTimeline, [](M& m, T*, T*) { float l = 7; float r = 8; m.GetScrollInfo(l, r); return l == 7.0f && r == 8.0f; }},
    {"SetScrollInfo", NeedsTheTimeline, [](M& m, T*, T*) { m.SetScrollInfo(0.25f, 0.75f); return true; }},
    {"GetTrackRelMapTable", NeedsTheTimeline, [](M& m, T*, T*) { std::vector<_tmpTLRelatedMap> t(3); return !m.GetTrackRelMapTable(t) && t.size() == 3; }},
    {"SetTrackRelMapTable", NeedsTheTimeline, [](M& m, T*, T*) { return !m.SetTrackRelMapTable(std::vector<_tmpTLRelatedMap>(2)); }},
    {"GetLipsTrack", NeedsTheTimeline, [](M& m, T*, T*) { return !m.GetLipsTrack(); }},
    {"GetCurrentFrame", NeedsTheTimeline, [](M& m, T*, T*) { return m.GetCurrentFrame() == 0; }},
    {"GetTimeMarkFrame", NeedsTheTimeline, [](M& m, T*, T*) { int a = 7; int b = 7; m.GetTimeMarkFrame(a, b); return a == 0 && b == 1; }},
    {"GetVisibleRootTrackList", NeedsTheTimeline, [](M& m, T*, T*) { std::vector<T*> l; m.GetVisibleRootTrackList(l); return l.empty(); }},
};
// clang-format on

} // namespace KestovaTest
