#pragma once

namespace VZ {

/// A pointer that keeps a reference-counted object alive: one T*, which may be null. T offers
/// IncrementReferences and DecrementReferences. A new object counts 0 references; the first pointer
/// that takes it raises that to 1, and the last one that lets go frees it. Never point a
/// CPointer<CReltedGroupBase> at a key or a key array: it would free them as a plain group. GUI
/// thread only.
template <class T>
class CPointer
{
public:
    CPointer() = default;
    /// Adds a reference to @p object, which may be null.
    CPointer(T* object) : m_object(object) { Hold(m_object); }
    /// Adds a reference to what @p other holds.
    CPointer(const CPointer& other) : m_object(other.m_object) { Hold(m_object); }
    /// Takes over the reference of @p other, which is null afterwards; the object is not touched,
    /// so that a vector can shift its pointers without a look at what they point to.
    CPointer(CPointer&& other) noexcept : m_object(other.m_object) { other.m_object = nullptr; }
    ~CPointer() { Release(m_object); }

    /// Holds what @p other holds, as assigning the plain pointer does.
    CPointer& operator=(const CPointer& other) { return *this = other.m_object; }

    /// Takes over the reference of @p other, which is null afterwards, and lets the old object go.
    /// When both hold the same object, one of its references is dropped: that of @p other. Moving a
    /// pointer onto itself changes nothing.
    CPointer& operator=(CPointer&& other) noexcept
    {
        if (this == &other)
            return *this;
        T* const old = m_object;
        m_object = other.m_object;
        other.m_object = nullptr;
        Release(old);
        return *this;
    }

    /// Holds the new object, stores it, and lets the old one go last. So assigning what only the
    /// old object keeps alive is safe, and whatever runs while the old object is deleted finds this
    /// pointer at the new one already. Assigning the object that is held already changes nothing.
    CPointer& operator=(T* object)
    {
        if (m_object == object)
            return *this;
        Hold(object);
        T* const old = m_object;
        m_object = object;
        Release(old);
        return *this;
    }

    T* operator->() const { return m_object; } ///< not to be asked of a null pointer
    T& operator*() const { return *m_object; } ///< not to be asked of a null pointer
    /// The plain pointer, null or valid for as long as this one holds it.
    T* Get() const { return m_object; }
    /// Whether it holds an object.
    explicit operator bool() const { return m_object != nullptr; }

    /// @name Comparisons: of the addresses
    /// @{

    /// The same object, or both null.
    friend bool operator==(const CPointer& a, const CPointer& b)
    {
        return a.m_object == b.m_object;
    }
    /// The opposite.
    friend bool operator!=(const CPointer& a, const CPointer& b)
    {
        return a.m_object != b.m_object;
    }
    // Both orders, because a plain pointer on the left would otherwise become a temporary CPointer,
    // which frees an object that nobody holds yet.
    /// With a plain pointer.
    friend bool operator==(const CPointer& a, const T* b) { return a.m_object == b; }
    /// With a plain pointer.
    friend bool operator!=(const CPointer& a, const T* b) { return a.m_object != b; }
    /// With a plain pointer.
    friend bool operator==(const T* a, const CPointer& b) { return a == b.m_object; }
    /// With a plain pointer.
    friend bool operator!=(const T* a, const CPointer& b) { return a != b.m_object; }
    /// @}

private:
    static void Hold(T* object)
    {
        if (object)
            object->IncrementReferences();
    }
    static void Release(T* object)
    {
        if (object)
            object->DecrementReferences();
    }

    T* m_object = nullptr;
};

} // namespace VZ
