/// \file
/// The framework's sequence: counted, copy-on-write, one pointer wide.

#pragma once

#include "platform/kfr/kfrreferencecount.h"
#include "platform/kfr/kfrrelocation.h"

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>
#include <type_traits>
#include <utility>

/// Sequence of elements that is passed by value at the cost of a pointer.
///
/// Copies share one block and count its holders. A change through a holder that shares its block
/// copies the block first; the others keep what they had. Empty sequences of one element type share
/// one static block, which each library has for itself.
///
/// Shape      Any number of elements up to 2^31 - 1.
/// Order      As appended.
/// Failure    std::out_of_range from at(), std::length_error and std::bad_alloc from growth, and
///            what the copy of an element throws, with the sequence as it was. Indexing is not
///            checked.
/// Ownership  References and iterators hold until the next change of this sequence. One that
///            changes elements holds only until the sequence is copied: what is written through it
///            later is seen by the copies as well.
/// Threads    Copies of one block may be read, copied and dropped on any thread; one sequence
///            object is one thread's.
/// Cost       Copy: one count. Append: amortised constant. First change of a shared block: its
///            copy.
template <class T>
class KFRSequence {
public:
    using value_type = T;
    using size_type = std::size_t;
    using const_iterator = T const*;
    using iterator = T*;

    KFRSequence() noexcept : m_block(shareEmptyBlock()) {}
    KFRSequence(std::initializer_list<T> elements) : KFRSequence(elements.begin(), elements.end())
    {
    }
    template <std::input_iterator It>
    KFRSequence(It first, It last) : KFRSequence()
    {
        if constexpr (std::forward_iterator<It>) {
            if (auto const count = static_cast<size_type>(std::distance(first, last)); count > 0) {
                reserve(count);
                std::uninitialized_copy(first, last, elements());
                m_block->m_size = static_cast<unsigned>(count);
            }
        } else {
            for (; first != last; ++first) {
                append(*first);
            }
        }
    }
    /// `count` elements of the default value.
    explicit KFRSequence(size_type count) : KFRSequence() { resize(count); }

    KFRSequence(KFRSequence const& other) noexcept : m_block(other.m_block)
    {
        m_block->m_holders.add();
    }
    KFRSequence(KFRSequence&& other) noexcept
        : m_block(std::exchange(other.m_block, shareEmptyBlock()))
    {
    }
    KFRSequence& operator=(KFRSequence const& other) noexcept
    {
        KFRSequence(other).swap(*this);
        return *this;
    }
    KFRSequence& operator=(KFRSequence&& other) noexcept
    {
        KFRSequence(std::move(other)).swap(*this);
        return *this;
    }
    ~KFRSequence() { drop(m_block); }

    void swap(KFRSequence& other) noexcept { std::swap(m_block, other.m_block); }

    // --- reading -------------------------------------------------------------------------------

    [[nodiscard]] size_type size() const noexcept { return m_block->m_size; }
    [[nodiscard]] bool empty() const noexcept { return m_block->m_size == 0; }
    [[nodiscard]] size_type capacity() const noexcept { return m_block->m_capacity; }

    [[nodiscard]] T const& operator[](size_type index) const noexcept { return elements()[index]; }
    [[nodiscard]] T const& at(size_type index) const
    {
        if (index >= size()) {
            throw std::out_of_range("KFRSequence: index past the end");
        }
        return elements()[index];
    }
    [[nodiscard]] T const& front() const noexcept { return elements()[0]; }
    [[nodiscard]] T const& back() const noexcept { return elements()[size() - 1]; }
    [[nodiscard]] T const* data() const noexcept { return elements(); }
    [[nodiscard]] const_iterator begin() const noexcept { return elements(); }
    [[nodiscard]] const_iterator end() const noexcept { return elements() + size(); }
    [[nodiscard]] const_iterator cbegin() const noexcept { return begin(); }
    [[nodiscard]] const_iterator cend() const noexcept { return end(); }

    /// True when both stand on one block, as copies do until one of them changes.
    [[nodiscard]] bool sharesWith(KFRSequence const& other) const noexcept
    {
        return m_block == other.m_block;
    }
    /// How many sequences stand on this block; the static empty block counts one more.
    [[nodiscard]] int holders() const noexcept { return m_block->m_holders.value(); }

    friend bool operator==(KFRSequence const& left,
                           KFRSequence const& right) requires std::equality_comparable<T>
    {
        return left.m_block == right.m_block ||
               std::equal(left.begin(), left.end(), right.begin(), right.end());
    }

    // --- changing: each detaches from a shared block first ---------------------------------------

    [[nodiscard]] T& operator[](size_type index) { return own()[index]; }
    [[nodiscard]] T* data() { return own(); }
    [[nodiscard]] iterator begin() { return own(); }
    [[nodiscard]] iterator end() { return own() + size(); }

    void append(T const& element)
    {
        if (hasRoom()) {
            place(element);
        } else {
            T copy(element);  // the element may stand in the block that is about to go
            makeRoom(size() + 1);
            place(std::move(copy));
        }
    }
    void append(T&& element)
    {
        if (!hasRoom()) {
            T moved(std::move(element));
            makeRoom(size() + 1);
            place(std::move(moved));
        } else {
            place(std::move(element));
        }
    }
    void append(KFRSequence const& others)
    {
        if (others.empty()) {
            return;
        }
        KFRSequence const kept(others);  // others may be this sequence
        makeRoom(size() + kept.size());
        std::uninitialized_copy_n(kept.elements(), kept.size(), elements() + size());
        m_block->m_size += static_cast<unsigned>(kept.size());
    }

    /// Makes room for `count` elements in all, in a block of its own.
    void reserve(size_type count)
    {
        if (count > capacity() || (count > 0 && !isOwner())) {
            relocate(std::max(count, size()));
        }
    }

    void resize(size_type count, T const& fill = T())
    {
        if (count < size()) {
            erase(count, size() - count);
            return;
        }
        if (count > size()) {
            T const copy(fill);
            makeRoom(count);
            std::uninitialized_fill_n(elements() + size(), count - size(), copy);
            m_block->m_size = static_cast<unsigned>(count);
        }
    }

    /// Removes `count` elements from `index` on; what lies past the end is not counted.
    void erase(size_type index, size_type count = 1)
    {
        if (index >= size() || count == 0) {
            return;
        }
        count = std::min(count, size() - index);
        T* const first = own() + index;
        T* const last = elements() + size();
        std::move(first + count, last, first);
        std::destroy(last - count, last);
        m_block->m_size -= static_cast<unsigned>(count);
    }

    /// Inserts before `index`, which may be size().
    void insert(size_type index, T const& element)
    {
        append(element);
        std::rotate(begin() + index, end() - 1, end());
    }

    /// Empties the sequence. A block that others share is left to them, and this sequence takes the
    /// empty one; a block of its own is kept, with its elements destroyed.
    void clear() noexcept
    {
        if (isOwner()) {
            std::destroy_n(elements(), size());
            m_block->m_size = 0;
        } else if (m_block != emptyBlock()) {
            drop(std::exchange(m_block, shareEmptyBlock()));
        }
    }

private:
    struct Block {
        KFRReferenceCount m_holders;
        unsigned m_size = 0;
        unsigned m_capacity = 0;
    };
    static constexpr std::size_t kAlign = std::max(alignof(Block), alignof(T));
    static constexpr std::size_t kHeader = (sizeof(Block) + kAlign - 1) / kAlign * kAlign;
    static constexpr size_type kMaxSize = std::numeric_limits<int>::max();
    static_assert(kAlign <= alignof(std::max_align_t), "over-aligned elements are not supported");

    struct EmptyBlock {
        alignas(kAlign) Block m_block;  // its own first holder: it never goes
    };
    static Block* emptyBlock() noexcept
    {
        static constinit EmptyBlock empty;
        Block* block = &empty.m_block;
        // Hides from the compiler where the block stands: it would warn of freeing a static object,
        // which the holder of its own makes impossible.
        __asm__("" : "+r"(block));
        return block;
    }
    static Block* shareEmptyBlock() noexcept
    {
        Block* const block = emptyBlock();
        block->m_holders.add();
        return block;
    }

    [[nodiscard]] T* elements() const noexcept
    {
        return std::launder(
            reinterpret_cast<T*>(reinterpret_cast<unsigned char*>(m_block) + kHeader));
    }
    [[nodiscard]] bool isOwner() const noexcept { return m_block->m_holders.isUnique(); }
    [[nodiscard]] bool hasRoom() const noexcept
    {
        return m_block->m_size < m_block->m_capacity && isOwner();
    }

    template <class U>
    void place(U&& element)
    {
        ::new (static_cast<void*>(elements() + m_block->m_size)) T(std::forward<U>(element));
        ++m_block->m_size;
    }

    /// The elements, in a block of this sequence's own.
    T* own()
    {
        if (!isOwner() && !empty()) {
            relocate(size());
        }
        return elements();
    }

    void makeRoom(size_type count)
    {
        checkCount(count);
        if (count > capacity()) {
            size_type const grown = capacity() + capacity() / 2 + 4;
            relocate(std::max(count, std::min(grown, kMaxSize)));
        } else if (!isOwner()) {
            relocate(capacity());
        }
    }

    static void checkCount(size_type count)
    {
        if (count > kMaxSize) {
            throw std::length_error("KFRSequence: too many elements");
        }
    }

    /// Moves, or when the block is shared copies, the elements into a block of `capacity`.
    void relocate(size_type capacity)
    {
        checkCount(capacity);
        std::size_t const bytes = kHeader + capacity * sizeof(T);
        if constexpr (kKfrMovesByBytes<T>) {
            if (isOwner()) {
                void* const grown = std::realloc(static_cast<void*>(m_block), bytes);
                if (grown == nullptr) {
                    throw std::bad_alloc();
                }
                m_block = static_cast<Block*>(grown);
                m_block->m_capacity = static_cast<unsigned>(capacity);
                return;
            }
        }
        std::unique_ptr<void, decltype(&std::free)> memory(std::malloc(bytes), &std::free);
        if (memory == nullptr) {
            throw std::bad_alloc();
        }
        T* const target = reinterpret_cast<T*>(static_cast<unsigned char*>(memory.get()) + kHeader);
        if constexpr (std::is_trivially_copyable_v<T>) {
            std::memcpy(static_cast<void*>(target), static_cast<void const*>(elements()),
                        size() * sizeof(T));
        } else if (isOwner() && std::is_nothrow_move_constructible_v<T>) {
            std::uninitialized_move_n(elements(), size(), target);
        } else {
            std::uninitialized_copy_n(elements(), size(), target);
        }
        auto* const block = ::new (memory.get()) Block;
        block->m_size = m_block->m_size;
        block->m_capacity = static_cast<unsigned>(capacity);
        static_cast<void>(memory.release());
        drop(std::exchange(m_block, block));
    }

    static void drop(Block* block) noexcept
    {
        if (block->m_holders.release()) {
            auto* const bytes = reinterpret_cast<unsigned char*>(block);
            std::destroy_n(std::launder(reinterpret_cast<T*>(bytes + kHeader)), block->m_size);
            std::free(block);
        }
    }

    Block* m_block;
};

template <class T>
inline constexpr bool kKfrMovesByBytes<KFRSequence<T>> = true;
