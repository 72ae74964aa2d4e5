#pragma once

#include <cstddef>
#include <initializer_list>
#include <utility>
#include <vector>

// The kernel's growing array. A value type.
template <class T>
class OdArray
{
public:
    using size_type = unsigned int;
    using value_type = T;
    using iterator = typename std::vector<T>::iterator;
    using const_iterator = typename std::vector<T>::const_iterator;

    OdArray() = default;
    OdArray(std::initializer_list<T> items) : m_items(items) {}
    explicit OdArray(std::vector<T>&& items) noexcept : m_items(std::move(items)) {}

    size_type size() const noexcept { return static_cast<size_type>(m_items.size()); }
    size_type length() const noexcept { return size(); }
    bool isEmpty() const noexcept { return m_items.empty(); }
    bool empty() const noexcept { return m_items.empty(); }

    // New items are value-initialised.
    void resize(size_type count) { m_items.resize(count); }
    void reserve(size_type count) { m_items.reserve(count); }
    void clear() noexcept { m_items.clear(); }
    void append(const T& item) { m_items.push_back(item); }
    void push_back(const T& item) { m_items.push_back(item); }

    // Null when the array is empty.
    const T* getPtr() const noexcept { return m_items.empty() ? nullptr : m_items.data(); }
    const T* asArrayPtr() const noexcept { return getPtr(); }
    T* asArrayPtr() noexcept { return m_items.empty() ? nullptr : m_items.data(); }

    const T& operator[](size_type index) const { return m_items[index]; }
    T& operator[](size_type index) { return m_items[index]; }

    iterator begin() noexcept { return m_items.begin(); }
    iterator end() noexcept { return m_items.end(); }
    const_iterator begin() const noexcept { return m_items.begin(); }
    const_iterator end() const noexcept { return m_items.end(); }

    friend bool operator==(const OdArray& a, const OdArray& b) { return a.m_items == b.m_items; }

private:
    std::vector<T> m_items;
};
