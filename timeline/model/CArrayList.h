#pragma once

#include <new>
#include <vector>

namespace VZ {

/// The growable array of the library's boundary, laid out as a std::vector. No operation throws.
template <class T>
class CArrayList
{
public:
    /// Appends; 0 on success, 0x80000002 when the storage cannot grow (the list is then unchanged).
    unsigned int Add(const T& item) noexcept
    {
        try {
            m_items.push_back(item);
        } catch (...) {
            return 0x80000002u;
        }
        return 0;
    }

    /// Empties the list and keeps its storage; always 0.
    unsigned int RemoveAll() noexcept
    {
        m_items.clear();
        return 0;
    }

    int GetSize() const noexcept { return static_cast<int>(m_items.size()); }
    /// The item at @p index, 0 to GetSize() - 1; not checked.
    const T& operator[](int index) const { return m_items[static_cast<std::size_t>(index)]; }
    bool Contains(const T& item) const
    {
        for (const T& each : m_items) {
            if (each == item)
                return true;
        }
        return false;
    }

    typename std::vector<T>::const_iterator begin() const { return m_items.begin(); }
    typename std::vector<T>::const_iterator end() const { return m_items.end(); }

private:
    std::vector<T> m_items;
};

} // namespace VZ
