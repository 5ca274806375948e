#pragma once

namespace VZ {

/// A pointer that keeps a reference-counted object alive: one T*, which may be null. T offers
/// IncrementReferences and DecrementReferences. GUI thread only.
template <class T>
class CPointer
{
public:
    CPointer() = default;
    CPointer(T* object) : m_object(object) { Hold(m_object); }
    CPointer(const CPointer& other) : m_object(other.m_object) { Hold(m_object); }
    ~CPointer() { Release(m_object); }

    CPointer& operator=(const CPointer& other) { return *this = other.m_object; }

    /// Holds the new object before it lets the old one go, so that assigning what only the old
    /// object keeps alive is safe.
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

    T* operator->() const { return m_object; }
    T& operator*() const { return *m_object; }
    T* Get() const { return m_object; }
    explicit operator bool() const { return m_object != nullptr; }

    friend bool operator==(const CPointer& a, const CPointer& b)
    {
        return a.m_object == b.m_object;
    }
    friend bool operator!=(const CPointer& a, const CPointer& b)
    {
        return a.m_object != b.m_object;
    }
    friend bool operator==(const CPointer& a, const T* b) { return a.m_object == b; }
    friend bool operator!=(const CPointer& a, const T* b) { return a.m_object != b; }

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
