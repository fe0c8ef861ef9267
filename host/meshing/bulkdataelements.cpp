#include "host/meshing/bulkdataelements.h"

#include <algorithm>
#include <array>

namespace vrn::orlo::host::meshing {

namespace {

// Springs between scalar points (CELAS3, CELAS4) have no place in space and are not here.
// clang-format off
constexpr std::array kElements{
    BulkDataElement{"CTETRA", ElementType::tetra4,    ElementType::tetra10,   2, 1, true,  false},
    BulkDataElement{"CPENTA", ElementType::wedge6,    ElementType::wedge15,   2, 1, true,  false},
    BulkDataElement{"CHEXA",  ElementType::hexa8,     ElementType::hexa20,    2, 1, true,  false},
    BulkDataElement{"CTRIA3", ElementType::triangle3, ElementType::triangle3, 2, 1, true,  false},
    BulkDataElement{"CTRIAR", ElementType::triangle3, ElementType::triangle3, 2, 1, true,  false},
    BulkDataElement{"CTRIA6", ElementType::triangle3, ElementType::triangle6, 2, 1, true,  false},
    BulkDataElement{"CQUAD4", ElementType::quad4,     ElementType::quad4,     2, 1, true,  false},
    BulkDataElement{"CQUADR", ElementType::quad4,     ElementType::quad4,     2, 1, true,  false},
    BulkDataElement{"CQUAD8", ElementType::quad4,     ElementType::quad8,     2, 1, true,  false},
    BulkDataElement{"CBAR",   ElementType::line2,     ElementType::line2,     2, 1, true,  false},
    BulkDataElement{"CBEAM",  ElementType::line2,     ElementType::line2,     2, 1, true,  false},
    BulkDataElement{"CROD",   ElementType::line2,     ElementType::line2,     2, 1, true,  false},
    BulkDataElement{"CTUBE",  ElementType::line2,     ElementType::line2,     2, 1, true,  false},
    BulkDataElement{"CONROD", ElementType::line2,     ElementType::line2,     1, 1, false, false},
    BulkDataElement{"CBUSH",  ElementType::line2,     ElementType::line2,     2, 1, true,  true},
    BulkDataElement{"CELAS1", ElementType::line2,     ElementType::line2,     2, 2, true,  true},
    BulkDataElement{"CELAS2", ElementType::line2,     ElementType::line2,     2, 2, false, true},
    BulkDataElement{"CONM2",  ElementType::point1,    ElementType::point1,    1, 1, false, false},
};
// clang-format on

}  // namespace

BulkDataElement const* bulkDataElement(std::string_view name) noexcept
{
    auto const* const found =
        std::find_if(kElements.begin(), kElements.end(),
                     [name](BulkDataElement const& row) { return row.m_name == name; });
    return found != kElements.end() ? found : nullptr;
}

std::optional<RefusedElement> refusedBulkDataElement(std::string_view name) noexcept
{
    if (name == "CPYRAM" || name == "CPYRA") {
        return kPyramid;
    }
    return name == "CQUAD" ? std::optional(kFullSecondOrder) : std::nullopt;
}

}  // namespace vrn::orlo::host::meshing
