#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QVarLengthArray>

#include <array>
#include <limits>

namespace host {

/// The first thing found wrong in a JSON text: "tracks[3].keys[7].frame: expected a whole number".
/// Empty as long as nothing is.
using JsonFault = QString;

/// The whole numbers that a value may be.
struct WholeRange
{
    int least = std::numeric_limits<int>::min();
    int most = std::numeric_limits<int>::max();
};

/// Nobody reads longer names; drawing them takes its time.
constexpr int kLongestText = 1000;
/// For texts that mean nothing when they are cut, such as paths.
constexpr int kAnyLength = std::numeric_limits<int>::max();

/// A value of a JSON text that knows its place there. Reading one that is of another type than
/// expected gives a harmless value and notes the fault; only the first one is kept, so that a
/// reader may go on and ask at the end.
class JsonNode
{
public:
    /// The outermost value. @p fault is kept and outlives this object, and so do the nodes above a
    /// node.
    JsonNode(const QJsonValue& value, JsonFault& fault) : m_value(value), m_fault(fault) {}

    int Whole(WholeRange range = {}) const;
    double Real() const;
    bool Flag() const;
    /// Longer ones are cut.
    QString Text(int longest = kLongestText) const;
    /// The place of the text among @p names; 0 when it is none of them.
    template <std::size_t N>
    int Choice(const std::array<const char*, N>& names) const
    {
        return ChoiceOf(names.data(), static_cast<int>(N));
    }
    /// Calls @p deed with each element and its index, until there is a fault.
    template <class Deed>
    void ForEach(Deed deed) const
    {
        if (!m_value.isArray())
            Refuse(QStringLiteral("an array"));
        const QJsonArray array = m_value.toArray();
        for (int i = 0; i < array.size() && m_fault.isEmpty(); ++i)
            deed(JsonNode(array.at(i), *this, nullptr, i), i);
    }

    /// Notes that something else was expected here.
    void Refuse(const QString& expected) const;
    bool HasFault() const { return !m_fault.isEmpty(); }

private:
    friend class JsonMembers;

    JsonNode(const QJsonValue& value, const JsonNode& above, const char* name, int index)
        : m_value(value), m_fault(above.m_fault), m_above(&above), m_name(name), m_index(index)
    {
    }
    int ChoiceOf(const char* const* names, int count) const;
    QString Path() const;

    QJsonValue m_value;
    JsonFault& m_fault;
    const JsonNode* m_above = nullptr;
    const char* m_name = nullptr; ///< of a member; null for an element
    int m_index = 0;
};

/// The members of an object. Those that nobody has asked for are a fault: a name that is misspelt
/// must not cost the value.
class JsonMembers
{
public:
    /// @p node is kept and outlives this object.
    explicit JsonMembers(const JsonNode& node);

    /// The member, which is required. @p name outlives what is returned.
    JsonNode At(const char* name);
    /// Refuses members that were not asked for.
    void Finish() const;

    // Members that may be left out, and what they are then.
    int Whole(const char* name, int otherwise, WholeRange range = {});
    bool Flag(const char* name);
    QString Text(const char* name, int longest = kLongestText);
    /// Calls @p deed with the member, or not at all when it is left out.
    template <class Deed>
    void With(const char* name, Deed deed)
    {
        if (Find(name))
            deed(Found(name));
    }
    /// The same with each of its elements.
    template <class Deed>
    void ForEach(const char* name, Deed deed)
    {
        if (Find(name))
            Found(name).ForEach(deed);
    }

private:
    bool Find(const char* name);
    JsonNode Found(const char* name) const;

    const JsonNode& m_node;
    QJsonObject m_object;
    QVarLengthArray<const char*, 24> m_known; ///< each asked for once
    int m_found = 0;                          ///< of them, how many there are
};

} // namespace host
