#include "container/SelectionFollowing.h"

#include "container/CTimelineContainer.h"
#include "library/TimelineLibrary.h"
#include "model/FrameOrder.h"
#include "model/TimelineKeyValues.h"
#include "tracks/CTimelineTrackBase.h"

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace {

/// What the keys of the sender, one after the other, tell the keys that follow them to be. There is
/// no snapshot: the first key decides for all that are not locked, and these include later keys of
/// the sender. Only a locked key, which keeps its own state, changes that again.
class Decisions
{
public:
    /// Each round that goes the other way changes the followers once more. After the second one a
    /// further pair of rounds leaves everything as it is.
    static constexpr int kMostRounds = 3;

    void Add(bool selected)
    {
        if (m_rounds > 0 && selected == m_last)
            return;
        if (m_rounds++ == 0)
            m_first = selected;
        m_last = selected;
    }

    bool IsMade() const { return m_rounds > 0; }
    bool Last() const { return m_last; }
    int Rounds() const { return m_rounds <= kMostRounds ? m_rounds : 2 + m_rounds % 2; }
    bool InRound(int round) const { return round % 2 == 0 ? m_first : !m_first; }

private:
    int m_rounds = 0;
    bool m_first = false;
    bool m_last = false;
};

/// The arrays whose keys follow those of a sender.
class Followers
{
public:
    Followers(const CTimelineKeyArray& sender, std::vector<CTimelineKeyArray*> arrays)
        : m_arrays(std::move(arrays)),
          m_includeSender(std::find(m_arrays.begin(), m_arrays.end(), &sender) != m_arrays.end())
    {
    }

    /// Makes @p key, the next one of the sender, decide, unless it follows an earlier one itself.
    void Decide(const CTimelineKey& key, Decisions& decisions)
    {
        const bool agrees = decisions.IsMade() && decisions.Last() == key.selected;
        const bool follows =
            decisions.IsMade() && key.lockState != TL_KEY_LOCKED && (agrees || Hold(key));
        if (!follows)
            decisions.Add(key.selected);
    }

    /// Lets the keys follow, round by round; @p decisionsFor gives what was decided for a key, or
    /// null.
    template <class DecisionsFor>
    void Follow(const DecisionsFor& decisionsFor) const
    {
        bool isThereMore = true;
        for (int round = 0; isThereMore && round < Decisions::kMostRounds; ++round) {
            isThereMore = false;
            for (CTimelineKeyArray* const keys : m_arrays) {
                const auto choices = ChoicesOf(*keys, round, decisionsFor);
                keys->SetSelectionOfKeys(choices);
                isThereMore |= !choices.empty();
            }
        }
    }

private:
    template <class DecisionsFor>
    static std::vector<CTimelineKeyArray::Choice>
    ChoicesOf(const CTimelineKeyArray& keys, int round, const DecisionsFor& decisionsFor)
    {
        std::vector<CTimelineKeyArray::Choice> choices;
        int index = 0;
        for (const auto& key : keys.Keys()) {
            const Decisions* const decisions = decisionsFor(*key);
            if (decisions && round < decisions->Rounds())
                choices.push_back({index, decisions->InRound(round)});
            ++index;
        }
        return choices;
    }

    /// Whether a key of the sender stands in one of the arrays, too. Hardly ever asked.
    bool Hold(const CTimelineKey& key)
    {
        if (m_includeSender)
            return true;
        if (!m_keys) {
            m_keys.emplace();
            for (const CTimelineKeyArray* const keys : m_arrays) {
                for (const auto& each : keys->Keys())
                    m_keys->insert(each.Get());
            }
        }
        return m_keys->count(&key) > 0;
    }

    const std::vector<CTimelineKeyArray*> m_arrays;
    const bool m_includeSender;
    std::optional<std::unordered_set<const CTimelineKey*>> m_keys; ///< of all arrays
};

void FollowGroups(const CTimelineContainer& container, const CTimelineKeyArray& sender)
{
    std::vector<CTimelineKeyArray*> arrays;
    for (CTimelineTrackBase* const track : container.Tree().AllTracks())
        arrays.push_back(&track->Keys());
    Followers followers(sender, std::move(arrays));

    std::unordered_map<const CReltedGroupBase*, Decisions> groups;
    for (const auto& key : sender.Keys()) {
        if (key->group)
            followers.Decide(*key, groups[key->group.Get()]);
    }
    if (groups.empty())
        return;
    followers.Follow([&groups](const CTimelineKey& key) -> const Decisions* {
        const auto found = key.group ? groups.find(key.group.Get()) : groups.end();
        return found == groups.end() ? nullptr : &found->second;
    });
}

/// Where frames were written in place, only the search itself can tell which keys are found.
void ShareKeyByKey(const CTimelineKeyArray& sender, const std::vector<CTimelineKeyArray*>& arrays)
{
    for (const auto& key : sender.Keys()) {
        for (CTimelineKeyArray* const keys : arrays)
            keys->SetSelection(key->frame, key->frame, key->selected, TL_KEY_ANY_KIND);
    }
}

void ShareSelection(const CTimelineKeyArray& sender, const std::vector<CTimelineKeyArray*>& arrays)
{
    const auto isInOrder = [](const CTimelineKeyArray* keys) {
        return IsInFrameOrder(keys->Keys());
    };
    if (!std::all_of(arrays.begin(), arrays.end(), isInOrder)) {
        ShareKeyByKey(sender, arrays);
        return;
    }
    Followers followers(sender, arrays);
    std::unordered_map<int, Decisions> frames;
    for (const auto& key : sender.Keys())
        followers.Decide(*key, frames[key->frame]);
    followers.Follow([&frames](const CTimelineKey& key) -> const Decisions* {
        const auto found = frames.find(key.frame);
        return found == frames.end() ? nullptr : &found->second;
    });
}

void FollowSharedSelection(CTimelineTrackBase& track)
{
    for (const _tmpTLRelatedMap& row : TimelineLibrary::Instance().relations.Rows()) {
        if (row.kind != RelationTable::kSharedSelection ||
            std::find(row.tracks.begin(), row.tracks.end(), &track) == row.tracks.end())
            continue;
        std::vector<CTimelineKeyArray*> others;
        for (CTimelineTrackBase* const other : row.tracks) {
            if (other != &track && CTimelineTrackBase::IsAlive(other))
                others.push_back(&other->Keys());
        }
        ShareSelection(track.Keys(), others);
    }
}

} // namespace

void FollowSelection(const CTimelineContainer& container, CTimelineTrackBase& track)
{
    FollowGroups(container, track.Keys());
    FollowSharedSelection(track);
}
