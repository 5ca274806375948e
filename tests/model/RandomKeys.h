#pragma once

#include "KeyMakers.h"

#include <random>
#include <vector>

/// Random keys in two equal worlds, for tests that hold the real key array against a plain one.

/// Random numbers of one case.
class Dice
{
public:
    explicit Dice(int number) : m_engine(static_cast<unsigned int>(number)) {}
    int Between(int lowest, int highest)
    {
        return std::uniform_int_distribution<int>(lowest, highest)(m_engine);
    }
    bool OneIn(int chances) { return Between(1, chances) == 1; }

private:
    std::mt19937 m_engine;
};

/// A key with anything that the array looks at; `hostValue1` is its number, to tell it again.
inline VZ::CPointer<CTimelineKey> RandomKey(Dice& dice, int number, int highestFrame)
{
    const auto key = MakeKey(dice.Between(-3, highestFrame));
    key->hostValue1 = number;
    key->selected = dice.OneIn(4);
    key->lockState = dice.OneIn(6) ? 1 : 0;
    key->kindMask = dice.Between(0, 7);
    key->displayLength = 1000 + number; // a value that no computation gives
    if (dice.OneIn(2)) {
        key->clipLength = dice.Between(-2, 12);
        key->loopCount = dice.Between(0, 3);
    }
    return key;
}

/// Two worlds of equal keys: what happens in one leaves the other alone.
class TwinKeys
{
public:
    using KeyVector = CTimelineKeyArray::KeyVector;

    void Make(Dice& dice, int count, int highestFrame)
    {
        for (int i = 0; i < count; ++i) {
            m_first.push_back(RandomKey(dice, static_cast<int>(m_first.size()), highestFrame));
            m_second.push_back(new CTimelineKey(*m_first.back()));
        }
    }

    int Count() const { return static_cast<int>(m_first.size()); }

    /// Numbers to add: some twice, some -1 for null.
    std::vector<int> RandomPick(Dice& dice, int count) const
    {
        std::vector<int> numbers;
        for (int i = 0; i < count; ++i) {
            numbers.push_back(
                dice.OneIn(12) ? -1 : dice.Between(0, static_cast<int>(m_first.size()) - 1));
        }
        return numbers;
    }

    KeyVector First(const std::vector<int>& numbers) const { return Pick(m_first, numbers); }
    KeyVector Second(const std::vector<int>& numbers) const { return Pick(m_second, numbers); }

    /// True when no key of one world differs from its twin in what the array may change, the keys
    /// included that the array has let go.
    bool AreEqual() const
    {
        for (std::size_t i = 0; i < m_first.size(); ++i) {
            if (m_first[i]->frame != m_second[i]->frame ||
                m_first[i]->selected != m_second[i]->selected ||
                m_first[i]->displayLength != m_second[i]->displayLength)
                return false;
        }
        return true;
    }

private:
    static KeyVector Pick(const KeyVector& keys, const std::vector<int>& numbers)
    {
        KeyVector picked;
        for (int number : numbers)
            picked.push_back(number < 0 ? nullptr : keys[static_cast<std::size_t>(number)]);
        return picked;
    }

    KeyVector m_first;
    KeyVector m_second;
};

inline std::vector<int> NumbersOf(const CTimelineKeyArray::KeyVector& keys)
{
    std::vector<int> numbers;
    for (const auto& key : keys)
        numbers.push_back(key->hostValue1);
    return numbers;
}
