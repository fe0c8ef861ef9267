#include "host/meshing/numbering.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace vrn::orlo::host::meshing {

Numbering::Numbering(std::vector<ExternalId> ids) : m_ids(std::move(ids))
{
    if (m_ids.empty()) {
        return;
    }
    m_ids.shrink_to_fit();
    auto const [smallest, largest] = std::minmax_element(m_ids.begin(), m_ids.end());
    m_smallest = *smallest;
    constexpr std::uint64_t kSparsest = 4;  // slots per id, at 4 bytes each
    auto const range = static_cast<std::uint64_t>(*largest - *smallest) + 1;
    if (range <= kSparsest * m_ids.size()) {
        m_dense.resize(range);
        fillDense();
    } else {
        fillSorted();
    }
}

void Numbering::fillDense()
{
    for (LocalNumber number = 1; number <= size(); ++number) {
        LocalNumber& slot = m_dense[static_cast<std::size_t>(m_ids[number - 1] - m_smallest)];
        if (slot == 0) {
            slot = number;
        } else if (!m_repeated.has_value()) {
            m_repeated = Repeated{slot, number};
        }
    }
}

void Numbering::fillSorted()
{
    m_sorted.resize(m_ids.size());
    std::iota(m_sorted.begin(), m_sorted.end(), LocalNumber{1});
    std::sort(m_sorted.begin(), m_sorted.end(), [this](LocalNumber a, LocalNumber b) {
        return std::pair(m_ids[a - 1], a) < std::pair(m_ids[b - 1], b);
    });
    // Of the ids that come twice, the one whose second coming stands first in the file.
    for (std::size_t i = 1; i < m_sorted.size(); ++i) {
        LocalNumber const first = m_sorted[i - 1];
        LocalNumber const second = m_sorted[i];
        if (m_ids[first - 1] == m_ids[second - 1] &&
            (!m_repeated.has_value() || second < m_repeated->m_second)) {
            m_repeated = Repeated{first, second};
        }
    }
}

LocalNumber Numbering::numberOf(ExternalId id) const noexcept
{
    if (!m_dense.empty()) {
        if (id < m_smallest) {
            return 0;
        }
        auto const slot = static_cast<std::uint64_t>(id) - static_cast<std::uint64_t>(m_smallest);
        return slot < m_dense.size() ? m_dense[slot] : 0;
    }
    auto const found = std::lower_bound(
        m_sorted.begin(), m_sorted.end(), id,
        [this](LocalNumber a, ExternalId wanted) { return m_ids[a - 1] < wanted; });
    return found != m_sorted.end() && m_ids[*found - 1] == id ? *found : 0;
}

}  // namespace vrn::orlo::host::meshing
