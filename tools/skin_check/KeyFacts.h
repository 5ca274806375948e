#pragma once

#include "RecordedReads.h"

#include <QVector>

#include <functional>
#include <limits>

/// The numbers that make sense: of a number itself, of each number of a point, of a text's length.
struct ValueRange
{
    int least = std::numeric_limits<int>::min();
    int most = std::numeric_limits<int>::max();

    constexpr bool Contains(int number) const { return number >= least && number <= most; }
    constexpr bool IsSingle() const { return least == most; }
};

/// What a key is for. How its value is written, and that it is read at all, is not said here: that
/// is what the library's readers do.
struct KeyFact
{
    const char* track; ///< base name of the track's section; "*": any
    const char* via;   ///< the key that names the section, "CaptionBtn" for all buttons
    const char* key;   ///< "CaptionBtn" for all keys that name a button
    ValueRange range;
    const char* unit;    ///< of the number; empty: none
    const char* meaning; ///< in a sentence
    /// The fact holds while this key of the same section has this value; null: always.
    const char* whenKey = nullptr;
    int whenValue = 0;
};

/// A key or via with the number taken off, where it is that of a button.
QString ButtonlessName(const QString& name, bool namesButton);

/// All facts about a read, in a fixed order: more than one when it depends on another key's value.
QVector<const KeyFact*> FactsOf(const QString& trackKind, const RecordedRead& read);

/// The fact that holds where the keys of the read's section have the numbers that @p numberOf
/// answers; null when none does.
const KeyFact* FactOf(const QString& trackKind, const RecordedRead& read,
                      const std::function<int(const QString& key)>& numberOf);

/// Every fact there is, to find those that no reader reads any more.
QVector<const KeyFact*> AllFacts();

/// "0 to 3", "1 or more", "0"; "any" for a range without ends.
QString RangeText(const ValueRange& range);
/// How a value of a kind is written, in words: "a whole number".
QString KindText(SkinValueKind kind);
