#include "plugins/modelingplugin/utilities/geometrymesh/idfilter.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace vrn::orlo::plugin::modeling {

namespace {

using Id = unsigned long long;
using Ids = std::span<Id const>;

class Bitmap {
public:
    Bitmap(Ids known, Id smallest, Id largest)
        : m_smallest(smallest), m_range(largest - smallest), m_words(m_range / kWordBits + 1)
    {
        for (Id const id : known) {
            m_words[(id - smallest) / kWordBits] |= Id{1} << ((id - smallest) % kWordBits);
        }
    }
    [[nodiscard]] bool has(Id id) const noexcept
    {
        Id const place = id - m_smallest;  // wraps around to beyond the range for a smaller id
        return place <= m_range && ((m_words[place / kWordBits] >> (place % kWordBits)) & 1) != 0;
    }
    void prefetch(Id) const noexcept {}

    /// The bitmap is no larger than the ids themselves.
    [[nodiscard]] static bool fits(Ids known, Id smallest, Id largest) noexcept
    {
        return (largest - smallest) / kWordBits <= known.size();
    }

private:
    static constexpr Id kWordBits = 64;

    Id m_smallest;
    Id m_range;
    std::vector<Id> m_words;
};

/// Open addressing. What is far apart in memory is asked for in time.
class HashTable {
public:
    explicit HashTable(Ids known) : m_slots(std::bit_ceil(known.size() * 2))
    {
        m_shift = static_cast<unsigned>(64 - std::countr_zero(m_slots.size()));
        for (std::size_t i = 0; i < known.size(); ++i) {
            prefetch(known[std::min(i + kAhead, known.size() - 1)]);
            insert(known[i]);
        }
    }
    [[nodiscard]] bool has(Id id) const noexcept
    {
        if (id == kFree) {
            return m_hasFree;
        }
        std::size_t slot = home(id);
        while (m_slots[slot] != id && m_slots[slot] != kFree) {
            slot = (slot + 1) & (m_slots.size() - 1);
        }
        return m_slots[slot] == id;
    }
    void prefetch(Id id) const noexcept { __builtin_prefetch(&m_slots[home(id)]); }

    static constexpr std::size_t kAhead = 16;

private:
    static constexpr Id kFree = 0;  // no id of a mesh; kept apart should it come all the same

    [[nodiscard]] std::size_t home(Id id) const noexcept
    {
        constexpr Id kGolden = 0x9E3779B97F4A7C15ULL;
        return static_cast<std::size_t>((id * kGolden) >> m_shift);
    }
    void insert(Id id) noexcept
    {
        if (id == kFree) {
            m_hasFree = true;
            return;
        }
        std::size_t slot = home(id);
        while (m_slots[slot] != kFree && m_slots[slot] != id) {
            slot = (slot + 1) & (m_slots.size() - 1);
        }
        m_slots[slot] = id;
    }

    std::vector<Id> m_slots;
    unsigned m_shift = 0;
    bool m_hasFree = false;
};

template <class Set>
KFRSequence<Id> keep(Ids given, Set const& set)
{
    KFRSequence<Id> kept;
    kept.resize(given.size());
    Id* const out = kept.data();
    std::size_t count = 0;
    for (std::size_t i = 0; i < given.size(); ++i) {
        set.prefetch(given[std::min(i + HashTable::kAhead, given.size() - 1)]);
        out[count] = given[i];
        count += set.has(given[i]) ? 1 : 0;
    }
    kept.resize(static_cast<KFRSequence<Id>::size_type>(count));
    return kept;
}

Ids spanOf(KFRSequence<Id> const& ids)
{
    return {std::as_const(ids).data(), ids.size()};
}

}  // namespace

KFRSequence<Id> keepKnown(KFRSequence<Id> const& given, KFRSequence<Id> const& known)
{
    if (given.empty() || known.empty()) {
        return {};
    }
    Ids const ids = spanOf(known);
    auto const [smallest, largest] = std::minmax_element(ids.begin(), ids.end());
    if (Bitmap::fits(ids, *smallest, *largest)) {
        return keep(spanOf(given), Bitmap(ids, *smallest, *largest));
    }
    return keep(spanOf(given), HashTable(ids));
}

}  // namespace vrn::orlo::plugin::modeling
