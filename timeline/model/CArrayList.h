#pragma once

#include <cstddef>
#include <vector>

namespace VZ {

/// The growable array of the library's boundary, laid out as a std::vector. No operation throws.
template <class T>
class CArrayList
{
public:
    /// Appends a copy of @p item. @return 0 on success, 0x80000002 when the storage cannot grow or
    /// the copy cannot be made (the list is then unchanged).
    unsigned int Add(const T& item) noexcept
    {
        try {
            m_items.push_back(item);
        } catch (...) {
            return kOutOfMemory;
        }
        return kSuccess;
    }

    /// Empties the list and keeps its storage; always 0.
    unsigned int RemoveAll() noexcept
    {
        m_items.clear();
        return kSuccess;
    }

    /// Number of items.
    int GetSize() const noexcept { return static_cast<int>(m_items.size()); }
    /// The item at @p index, 0 to GetSize() - 1; not checked.
    const T& operator[](int index) const { return m_items[static_cast<std::size_t>(index)]; }
    /// True when an item equal to @p item is in the list.
    bool Contains(const T& item) const
    {
        for (const T& each : m_items) {
            if (each == item)
                return true;
        }
        return false;
    }

    /// For range-based loops over the items in their order; valid until the next change.
    typename std::vector<T>::const_iterator begin() const { return m_items.begin(); }
    /// The end of such a loop.
    typename std::vector<T>::const_iterator end() const { return m_items.end(); }

private:
    static constexpr unsigned int kSuccess = 0;
    static constexpr unsigned int kOutOfMemory = 0x80000002u;

    std::vector<T> m_items;
};

} // namespace VZ
