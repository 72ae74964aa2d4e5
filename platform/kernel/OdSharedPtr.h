#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <type_traits>
#include <utility>

// The kernel's shared pointer: an object pointer and a separately allocated 32-bit atomic count that starts at 1. The
// last owner deletes the object and the count. A null pointer has no count.
//
// The object has no lock: one thread uses it at a time; only the count may be shared.
template <class T>
class OdSharedPtr
{
public:
    OdSharedPtr() noexcept = default;
    OdSharedPtr(std::nullptr_t) noexcept {}

    // Takes ownership; deletes the object when the count cannot be allocated.
    OdSharedPtr(T* object)
    {
        std::unique_ptr<T> guard(object);
        if (object)
            m_count = new std::atomic<std::int32_t>(1);
        m_object = guard.release();
    }

    OdSharedPtr(const OdSharedPtr& other) noexcept : m_object(other.m_object), m_count(other.m_count)
    {
        addReference();
    }
    OdSharedPtr(OdSharedPtr&& other) noexcept
        : m_object(std::exchange(other.m_object, nullptr)), m_count(std::exchange(other.m_count, nullptr))
    {
    }

    template <class U>
    requires(std::is_convertible_v<U*, T*> && !std::is_same_v<U, T>) OdSharedPtr(const OdSharedPtr<U>& other)
    noexcept : m_object(other.m_object), m_count(other.m_count) { addReference(); }

    ~OdSharedPtr() { release(); }

    OdSharedPtr& operator=(OdSharedPtr other) noexcept
    {
        std::swap(m_object, other.m_object);
        std::swap(m_count, other.m_count);
        return *this;
    }

    T* get() const noexcept { return m_object; }
    T* operator->() const noexcept { return m_object; }
    T& operator*() const noexcept { return *m_object; }
    bool isNull() const noexcept { return !m_object; }
    explicit operator bool() const noexcept { return m_object != nullptr; }

    // How many owners there are; 0 for a null pointer.
    std::int32_t refCount() const noexcept { return m_count ? m_count->load(std::memory_order_relaxed) : 0; }

    // The same object under a derived type. The caller knows that it has that type.
    template <class U>
    OdSharedPtr<U> staticCast() const noexcept
    {
        OdSharedPtr<U> result;
        result.m_object = static_cast<U*>(m_object);
        result.m_count = m_count;
        result.addReference();
        return result;
    }

    friend bool operator==(const OdSharedPtr& a, const OdSharedPtr& b) noexcept { return a.m_object == b.m_object; }
    friend bool operator==(const OdSharedPtr& a, std::nullptr_t) noexcept { return a.isNull(); }

private:
    template <class U>
    friend class OdSharedPtr;

    void addReference() const noexcept
    {
        if (m_count)
            m_count->fetch_add(1, std::memory_order_relaxed);
    }

    void release() noexcept
    {
        if (m_count && m_count->fetch_sub(1, std::memory_order_acq_rel) == 1)
        {
            delete m_object;
            delete m_count;
        }
    }

    T* m_object = nullptr;
    std::atomic<std::int32_t>* m_count = nullptr;
};
