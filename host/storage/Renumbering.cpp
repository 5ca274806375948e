#include "Renumbering.h"

#include <QHash>

namespace host {

namespace {

/// Gives each number a new one, always the same.
class NewNumbers
{
public:
    void Change(int& number)
    {
        if (number == 0) // stands for nothing
            return;
        int& changed = m_numbers[number];
        if (changed == 0)
            changed = ++m_last;
        number = changed;
    }
    void Change(QVector<int>& numbers)
    {
        for (int& number : numbers)
            Change(number);
    }
    void Change(QVector<SceneKey>& keys)
    {
        for (SceneKey& key : keys) {
            Change(key.id);
            Change(key.group);
            Change(key.subKeys);
        }
    }
    int Last() const { return m_last; }

private:
    QHash<int, int> m_numbers;
    int m_last = 0;
};

} // namespace

void Renumber(Scene& scene)
{
    NewNumbers numbers;
    for (SceneGroup& group : scene.groups)
        numbers.Change(group.id);
    for (SceneTrack& track : scene.tracks) {
        numbers.Change(track.id);
        numbers.Change(track.parent);
        numbers.Change(track.keys);
        for (SwitchButton& button : track.buttons)
            numbers.Change(button.tracks);
    }
    for (TrackRelation& relation : scene.relations)
        numbers.Change(relation.tracks);
    scene.lastId = numbers.Last();
}

} // namespace host
