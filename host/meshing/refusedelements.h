/// \file
/// Elements that mesh files know and the store does not take.

#pragma once

#include <string>
#include <string_view>

namespace vrn::orlo::host::meshing {

/// Why an element is not taken.
struct RefusedElement {
    std::string_view m_wrong;  ///< Behind the name of the element: "is a pyramid, ...".
    std::string_view m_mend;
};

inline constexpr RefusedElement kPyramid{
    "is a pyramid, which a mesh here does not take",
    "remesh without pyramids, with tetrahedra all through or hexahedra and wedges alone"};
inline constexpr RefusedElement kFullSecondOrder{
    "has nodes in the middle of faces or cells, which a mesh here does not take",
    "write elements with nodes at corners and sides only (quadrilaterals with 8 nodes, wedges "
    "with 15, hexahedra with 20)"};
inline constexpr RefusedElement kThirdOrder{
    "is of third or higher order, or incomplete, which a mesh here does not take",
    "remesh with elements of first or second order"};

}  // namespace vrn::orlo::host::meshing
