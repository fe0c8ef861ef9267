/// \file
/// External ids and local numbers.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace vrn::orlo::host::meshing {

/// Number of a node or element within its part: from 1, without gaps, in the order of the file.
/// 0 is none.
using LocalNumber = std::uint32_t;

/// The number of a node or element in its file, which the user and the solver see.
using ExternalId = std::int64_t;

/// The external ids of the nodes or the elements of a part, both ways.
///
/// Cost       External id of a number: an array access. The number of an id: the same where the ids
///            lie dense, otherwise a binary search. 12 to 24 bytes each.
class Numbering {
public:
    Numbering() = default;
    /// \param ids  above 0, in the order of the local numbers. Of an id that comes twice the first
    ///             counts, and repeated() tells.
    explicit Numbering(std::vector<ExternalId> ids);

    struct Repeated {
        LocalNumber m_first;
        LocalNumber m_second;
    };
    /// The first id in the order of the numbers that an earlier number has.
    [[nodiscard]] std::optional<Repeated> const& repeated() const noexcept { return m_repeated; }

    [[nodiscard]] LocalNumber size() const noexcept
    {
        return static_cast<LocalNumber>(m_ids.size());
    }
    /// Failure    std::out_of_range for a number that is not there.
    [[nodiscard]] ExternalId idOf(LocalNumber number) const
    {
        return m_ids.at(std::size_t{number} - 1);
    }
    /// 0 for an id that is not there.
    [[nodiscard]] LocalNumber numberOf(ExternalId id) const noexcept;
    [[nodiscard]] std::vector<ExternalId> const& ids() const noexcept { return m_ids; }

private:
    void fillDense();
    void fillSorted();

    std::vector<ExternalId> m_ids;
    ExternalId m_smallest = 0;
    std::vector<LocalNumber> m_dense;   // number by id - m_smallest; empty where ids are scattered
    std::vector<LocalNumber> m_sorted;  // numbers by ascending id; empty where ids are dense
    std::optional<Repeated> m_repeated;
};

}  // namespace vrn::orlo::host::meshing
