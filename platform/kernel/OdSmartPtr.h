#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>

using OdRefCount = std::int32_t;

// Marks a pointer that comes with its reference.
enum OdRxObjMod
{
    kOdRxObjAttach = 0
};

// Holds one reference to an object that counts its own. Constructed from a plain pointer it adds a reference; with
// kOdRxObjAttach it adopts the caller's.
template <class T>
class OdSmartPtr
{
public:
    OdSmartPtr() noexcept = default;
    OdSmartPtr(std::nullptr_t) noexcept {}
    OdSmartPtr(T* object) noexcept : m_object(object) { addReference(); }
    OdSmartPtr(T* object, OdRxObjMod) noexcept : m_object(object) {}

    OdSmartPtr(const OdSmartPtr& other) noexcept : m_object(other.m_object) { addReference(); }
    OdSmartPtr(OdSmartPtr&& other) noexcept : m_object(other.detach()) {}

    template <class U>
    requires(std::is_convertible_v<U*, T*> && !std::is_same_v<U, T>) OdSmartPtr(const OdSmartPtr<U>& other)
    noexcept : m_object(other.get()) { addReference(); }

    template <class U>
    requires(std::is_convertible_v<U*, T*> && !std::is_same_v<U, T>) OdSmartPtr(OdSmartPtr<U>&& other)
    noexcept : m_object(other.detach()) {}

    ~OdSmartPtr() { release(); }

    OdSmartPtr& operator=(OdSmartPtr other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }

    // Adopts the caller's reference and releases the one held so far.
    void attach(T* object) noexcept { *this = OdSmartPtr(object, kOdRxObjAttach); }

    // Hands the reference to the caller.
    [[nodiscard]] T* detach() noexcept { return std::exchange(m_object, nullptr); }

    // Releases the reference. The pointer is set to null first, so an object that looks at this pointer while it is
    // destroyed finds nothing.
    void release() noexcept
    {
        if (T* object = detach())
            object->release();
    }

    T* get() const noexcept { return m_object; }
    T* operator->() const noexcept { return m_object; }
    T& operator*() const noexcept { return *m_object; }
    bool isNull() const noexcept { return !m_object; }
    explicit operator bool() const noexcept { return m_object != nullptr; }

    friend bool operator==(const OdSmartPtr& a, const OdSmartPtr& b) noexcept { return a.m_object == b.m_object; }
    friend bool operator==(const OdSmartPtr& a, const T* b) noexcept { return a.m_object == b; }
    friend bool operator==(const OdSmartPtr& a, std::nullptr_t) noexcept { return a.isNull(); }

private:
    void addReference() const noexcept
    {
        if (m_object)
            m_object->addRef();
    }

    T* m_object = nullptr;
};
