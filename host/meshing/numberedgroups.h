/// \file
/// Groups of elements by a number of the file.

#pragma once

#include "host/meshing/meshbuilder.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>

namespace vrn::orlo::host::meshing {

/// Finds a group by dimension and number without spelling its name for each element.
class NumberedGroups {
public:
    static constexpr std::uint16_t kNone = 0xFFFF;

    /// kNone where the builder has no room for one more.
    /// \param word  in front of the number
    [[nodiscard]] std::uint16_t of(MeshBuilder& builder, std::uint8_t dimension,
                                   std::int64_t number, char const* word)
    {
        Last& last = m_last[dimension];
        if (last.m_group != kNone && last.m_number == number) {
            return last.m_group;
        }
        auto found = m_groups[dimension].find(number);
        if (found == m_groups[dimension].end()) {
            if (builder.groupCount() == MeshBuilder::kMostGroups) {
                return kNone;
            }
            auto const group = builder.group(dimension, word + (" " + std::to_string(number)));
            found = m_groups[dimension].emplace(number, group).first;
        }
        last = {number, found->second};
        return last.m_group;
    }

private:
    struct Last {
        std::int64_t m_number = 0;
        std::uint16_t m_group = kNone;
    };
    std::array<std::unordered_map<std::int64_t, std::uint16_t>, 4> m_groups;
    std::array<Last, 4> m_last{};
};

}  // namespace vrn::orlo::host::meshing
