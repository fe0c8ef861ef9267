/// \file
/// One-dimensional array that is handed on without a copy.

#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace KFR::DynamicArray {

/// Shared, resizable array: copies are the same array, and a callee's resize is seen by the caller.
///
/// Ownership  The array lives as long as its last handle. A handle always has an array.
/// Threads    The handles count safely; the elements are one thread's.
template <class T>
class ArrayPtr1 {
public:
    ArrayPtr1() : m_elements(std::make_shared<std::vector<T>>()) {}
    explicit ArrayPtr1(std::size_t count) : m_elements(std::make_shared<std::vector<T>>(count)) {}
    explicit ArrayPtr1(std::vector<T> elements)
        : m_elements(std::make_shared<std::vector<T>>(std::move(elements)))
    {
    }

    [[nodiscard]] std::size_t size() const noexcept { return m_elements->size(); }
    [[nodiscard]] bool empty() const noexcept { return m_elements->empty(); }
    void resize(std::size_t count) const { m_elements->resize(count); }

    T& operator[](std::size_t index) const noexcept { return (*m_elements)[index]; }
    [[nodiscard]] T* data() const noexcept { return m_elements->data(); }
    [[nodiscard]] auto begin() const noexcept { return m_elements->begin(); }
    [[nodiscard]] auto end() const noexcept { return m_elements->end(); }

    /// True when both are the same array.
    [[nodiscard]] bool sharesWith(ArrayPtr1 const& other) const noexcept
    {
        return m_elements == other.m_elements;
    }

private:
    std::shared_ptr<std::vector<T>> m_elements;
};

}  // namespace KFR::DynamicArray
