#pragma once

#include "document/MouthShapes.h"
#include "document/Scene.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>
#include <limits>

/// What an edit did to the keys of a scene.
struct KeyChanges
{
    struct Place
    {
        host::SceneKey key;
        host::KeyId clip = host::kNoKey; ///< in which it is
        int frame = 0;                   ///< of the scene
    };
    using Places = QHash<host::KeyId, Place>;

    KeyChanges(const host::Scene& a, const host::Scene& b) : before(PlacesIn(a)), after(PlacesIn(b))
    {
        for (auto each = before.cbegin(); each != before.cend(); ++each) {
            if (!after.contains(each.key()))
                gone += before.contains(each->clip) && !after.contains(each->clip) ? 0 : 1;
            else if (after[each.key()].key.frame != each->key.frame)
                moved.append(each.key());
            if (after.contains(each.key()) && after[each.key()].key != each->key)
                changed.append(each.key());
        }
        for (auto each = after.cbegin(); each != after.cend(); ++each) {
            const bool isMade = !before.contains(each.key());
            const bool isInMade = after.contains(each->clip) && !before.contains(each->clip);
            if (isMade && !isInMade)
                made.append(each.key());
        }
    }

    static Places PlacesIn(const host::Scene& scene)
    {
        Places places;
        for (const host::SceneTrack& track : scene.tracks) {
            for (const host::SceneKey& key : track.keys) {
                places.insert(key.id, {key, host::kNoKey, key.frame});
                for (const host::SceneKey& inner : key.subKeys)
                    places.insert(inner.id, {inner, key.id, key.frame + inner.frame});
            }
        }
        return places;
    }

    bool AllMovedBy(int frames) const
    {
        return std::all_of(moved.cbegin(), moved.cend(), [&](host::KeyId id) {
            return after[id].key.frame - before[id].key.frame == frames;
        });
    }
    bool IsMadeAt(int frame) const
    {
        return std::any_of(made.cbegin(), made.cend(),
                           [&](host::KeyId id) { return after[id].frame == frame; });
    }
    int FirstMade() const
    {
        int frame = std::numeric_limits<int>::max();
        for (const host::KeyId id : made)
            frame = std::min(frame, after[id].frame);
        return frame;
    }
    /// Whether a number of the one clip, or blend, that changed grew by that much.
    template <class Number>
    bool GrewBy(int amount, Number number) const
    {
        return std::any_of(changed.cbegin(), changed.cend(), [&](host::KeyId id) {
            return number(after[id].key) - number(before[id].key) == amount;
        });
    }

    Places before;
    Places after;
    int gone = 0;                 ///< without the keys inside clips that are gone
    QVector<host::KeyId> moved;   ///< those that have another frame in their row or clip
    QVector<host::KeyId> changed; ///< in any way
    QVector<host::KeyId> made;    ///< without the keys inside clips that were made
};

/// Whether the name of an edit says what it did: reads the name as a person would, and looks
/// whether the scene tells the same.
class EntryName
{
public:
    EntryName(const QString& name, const host::Scene& before, const host::Scene& after)
        : m_name(name), m_before(before), m_after(after), m_keys(before, after)
    {
    }

    bool IsTrue()
    {
        static const struct
        {
            const char* pattern;
            bool (EntryName::*check)() const;
        } kKinds[] = {
            {"^Move (.+?) (back by|by) (\\d+) frames?$", &EntryName::IsMove},
            {"^(?:Copy|Paste) (.+) (?:to|at) frame (\\d+)$", &EntryName::IsPaste},
            {"^(?:Delete|Cut) (.+)$", &EntryName::IsDelete},
            {"^Insert (?:key|mouth shape) at frame (\\d+)$", &EntryName::IsInsert},
            {"^Change (.+) to (\\w+)$", &EntryName::IsChange},
            {"^Break clip at frame (\\d+)$", &EntryName::IsBreak},
            {"^Loop clip (?:(\\d+) times|once)$", &EntryName::IsLoop},
            {"^(Speed clip up|Slow clip down) by (\\d+) frames?$", &EntryName::IsSpeed},
            {"^(Give|Trim) (\\d+) frames? (?:back to|off) clip's start$", &EntryName::IsTrim},
            {"^(Shorten|Lengthen) blend by (\\d+) frames?$", &EntryName::IsBlend},
            {"^(Show|Hide) (.+)$", &EntryName::IsSwitch},
            {"^Move (start|end) marker to frame (\\d+)$", &EntryName::IsMarker},
            {"^Mark (?:frames (\\d+) to (\\d+)|whole scene)$", &EntryName::IsMark},
            {"^(Mute|Unmute|Solo|Unsolo|Lock|Unlock) (.+)$", &EntryName::IsRowState},
            {"^(?:Import|Drop) .+\\.\\w+$", &EntryName::IsImport},
        };
        for (const auto& kind : kKinds) {
            m_match = QRegularExpression(QLatin1String(kind.pattern)).match(m_name);
            if (m_match.hasMatch() && (this->*kind.check)())
                return true;
        }
        return false;
    }

private:
    QString Text(int group) const { return m_match.captured(group); }
    int Number(int group) const { return Text(group).toInt(); }
    /// "3 keys and 1 clip" are 4.
    int Items(int group) const
    {
        static const QRegularExpression part(
            QStringLiteral("(\\d+) (?:key|clip|mouth shape)s?\\b"));
        int sum = 0;
        for (auto parts = part.globalMatch(Text(group)); parts.hasNext();)
            sum += parts.next().captured(1).toInt();
        return sum;
    }
    bool IsMove() const
    {
        const int way = Text(2) == QLatin1String("by") ? Number(3) : -Number(3);
        return m_keys.moved.size() == Items(1) && m_keys.AllMovedBy(way) && m_keys.made.isEmpty();
    }
    bool IsPaste() const
    {
        return m_keys.made.size() == Items(1) && m_keys.FirstMade() == Number(2) &&
               m_keys.moved.isEmpty();
    }
    bool IsDelete() const
    {
        return m_keys.gone == Items(1) && m_keys.made.isEmpty() && m_keys.moved.isEmpty();
    }
    bool IsInsert() const { return m_keys.made.size() == 1 && m_keys.IsMadeAt(Number(1)); }
    bool IsChange() const
    {
        int shapes = 0;
        for (const host::KeyId id : m_keys.changed) {
            const KeyChanges::Place& place = m_keys.after[id];
            if (place.clip == host::kNoKey)
                continue; // the line that it is in
            ++shapes;
            if (host::ShortNameOfMouthShape(place.key.mouthShape) != Text(2))
                return false;
        }
        return shapes > 0 && shapes <= Items(1); // some may have been so already
    }
    bool IsBreak() const { return m_keys.IsMadeAt(Number(1)); }
    bool IsLoop() const
    {
        const int loops = std::max(1, Number(1));
        return m_keys.changed.size() == 1 &&
               m_keys.after[m_keys.changed.first()].key.clip->loops == loops;
    }
    bool IsSpeed() const
    {
        const int way = Text(1) == QLatin1String("Slow clip down") ? Number(2) : -Number(2);
        return m_keys.GrewBy(
            way, [](const host::SceneKey& key) { return key.clip ? key.clip->length : 0; });
    }
    bool IsTrim() const
    {
        const int way = Text(1) == QLatin1String("Trim") ? Number(2) : -Number(2);
        return m_keys.GrewBy(
            way, [](const host::SceneKey& key) { return key.clip ? key.clip->leadIn : 0; });
    }
    bool IsBlend() const
    {
        const int way = Text(1) == QLatin1String("Lengthen") ? Number(2) : -Number(2);
        return m_keys.GrewBy(way, [](const host::SceneKey& key) {
            return key.transition ? key.transition->frames : 0;
        });
    }
    bool IsSwitch() const
    {
        const bool on = Text(1) == QLatin1String("Show");
        for (const host::SceneTrack& track : m_after.tracks) {
            const host::SceneTrack* const known = m_before.FindTrack(track.id);
            for (int i = 0; known && i < track.buttons.size(); ++i) {
                if (track.buttons[i].on == on && known->buttons[i].on != on)
                    return track.buttons[i].text == Text(2);
            }
        }
        return false;
    }
    bool IsMarker() const
    {
        const bool isStart = Text(1) == QLatin1String("start");
        return (isStart ? m_after.timeMark.start : m_after.timeMark.end) == Number(2);
    }
    bool IsMark() const
    {
        const bool isWhole = m_name.endsWith(QLatin1String("scene"));
        const int last = m_after.frameCount - 1;
        return m_after.timeMark ==
               (isWhole ? host::TimeMark{0, last} : host::TimeMark{Number(1), Number(2)});
    }
    bool IsRowState() const
    {
        for (const host::SceneTrack& track : m_after.tracks) {
            const host::SceneTrack* const known = m_before.FindTrack(track.id);
            if (!known || *known == track)
                continue;
            const struct
            {
                const char* on;
                const char* off;
                bool before;
                bool after;
            } states[] = {{"Mute", "Unmute", known->muted, track.muted},
                          {"Solo", "Unsolo", known->soloed, track.soloed},
                          {"Lock", "Unlock", known->locked, track.locked}};
            for (const auto& state : states) {
                if (state.before != state.after)
                    return track.caption == Text(2) &&
                           Text(1) == QLatin1String(state.after ? state.on : state.off);
            }
        }
        return false;
    }
    bool IsImport() const { return !m_keys.made.isEmpty(); }

    QString m_name;
    const host::Scene& m_before;
    const host::Scene& m_after;
    KeyChanges m_keys;
    QRegularExpressionMatch m_match;
};

/// A line when the name of the edit does not say what it did; empty when it does.
inline QString NameProblem(const QString& name, const host::Scene& before, const host::Scene& after)
{
    if (EntryName(name, before, after).IsTrue())
        return {};
    const KeyChanges keys(before, after);
    return QStringLiteral(
               "the entry \"%1\" did something else: %2 keys gone, %3 made, %4 moved, %5 "
               "changed; %6 rows, %7 before; %8 frames, %9 before")
        .arg(name)
        .arg(keys.gone)
        .arg(keys.made.size())
        .arg(keys.moved.size())
        .arg(keys.changed.size())
        .arg(after.tracks.size())
        .arg(before.tracks.size())
        .arg(after.frameCount)
        .arg(before.frameCount);
}
