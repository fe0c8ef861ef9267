/// \file
/// Elements of bulk data files by the names of their cards.

#pragma once

#include "host/meshing/elementtype.h"
#include "host/meshing/refusedelements.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace vrn::orlo::host::meshing {

/// How a card gives an element.
struct BulkDataElement {
    std::string_view m_name;
    ElementType m_first;       ///< With its corners only.
    ElementType m_second;      ///< With all its nodes; m_first where there is no such.
    std::uint8_t m_nodeField;  ///< Where its nodes begin, from 0 behind the name.
    std::uint8_t m_step;       ///< Fields from node to node.
    bool m_hasProperty;        ///< Field 1 names its property; it is the element's id if blank.
    bool m_mayBeGrounded;      ///< Without its second node it is a point.
};

/// Null for cards of other kinds.
/// \param name  in capitals
[[nodiscard]] BulkDataElement const* bulkDataElement(std::string_view name) noexcept;

/// Why an element that is known is not taken; nothing for any other card.
[[nodiscard]] std::optional<RefusedElement> refusedBulkDataElement(std::string_view name) noexcept;

}  // namespace vrn::orlo::host::meshing
