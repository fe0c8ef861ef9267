#include "host/meshing/abaquselements.h"

#include <array>
#include <cstddef>

namespace vrn::orlo::host::meshing {

namespace {

/// A family of names, "CPS" and a number of nodes, "4"; the number is empty where the stem is the
/// whole name.
struct NameRow {
    std::string_view m_stem;
    std::string_view m_nodes;
    ElementType m_type;
};

// clang-format off
constexpr std::array kSolidStems{"C3D", "DC3D", "AC3D"};
constexpr std::array kPlaneStems{"S",   "DS",   "CPS",  "CPE", "CPEG",
                                 "CAX", "DC2D", "DCAX", "M3D", "R3D"};

constexpr std::array kSolids{
    NameRow{"", "4",  ElementType::tetra4},
    NameRow{"", "6",  ElementType::wedge6},
    NameRow{"", "8",  ElementType::hexa8},
    NameRow{"", "10", ElementType::tetra10},
    NameRow{"", "15", ElementType::wedge15},
    NameRow{"", "20", ElementType::hexa20},
};
constexpr std::array kPlanes{
    NameRow{"", "3", ElementType::triangle3},
    NameRow{"", "4", ElementType::quad4},
    NameRow{"", "6", ElementType::triangle6},
    NameRow{"", "8", ElementType::quad8},
};
constexpr std::array kOthers{
    NameRow{"STRI",     "3",  ElementType::triangle3},
    NameRow{"STRI",     "65", ElementType::triangle6},
    NameRow{"SC",       "6",  ElementType::wedge6},
    NameRow{"SC",       "8",  ElementType::hexa8},
    NameRow{"COH3D",    "6",  ElementType::wedge6},
    NameRow{"COH3D",    "8",  ElementType::hexa8},
    NameRow{"B",        "21", ElementType::line2},
    NameRow{"B",        "22", ElementType::line3},
    NameRow{"B",        "23", ElementType::line2},
    NameRow{"B",        "31", ElementType::line2},
    NameRow{"B",        "32", ElementType::line3},
    NameRow{"B",        "33", ElementType::line2},
    NameRow{"T2D",      "2",  ElementType::line2},
    NameRow{"T2D",      "3",  ElementType::line3},
    NameRow{"T3D",      "2",  ElementType::line2},
    NameRow{"T3D",      "3",  ElementType::line3},
    NameRow{"R2D",      "2",  ElementType::line2},
    NameRow{"GAPUNI",   "",   ElementType::line2},
    NameRow{"SPRING",   "1",  ElementType::point1},
    NameRow{"SPRING",   "2",  ElementType::line2},
    NameRow{"SPRINGA",  "",   ElementType::line2},
    NameRow{"DASHPOT",  "1",  ElementType::point1},
    NameRow{"DASHPOT",  "2",  ElementType::line2},
    NameRow{"DASHPOTA", "",   ElementType::line2},
    NameRow{"MASS",     "",   ElementType::point1},
    NameRow{"ROTARYI",  "",   ElementType::point1},
    NameRow{"DCOUP3D",  "",   ElementType::point1},
};
// clang-format on

constexpr std::string_view kDigits = "0123456789";

/// What may follow the number of nodes: reduced, hybrid, incompatible, modified and the like.
bool isFormulation(std::string_view letters) noexcept
{
    constexpr std::size_t kMost = 4;
    if (letters == "R5") {  // shells with five degrees of freedom
        return true;
    }
    return letters.size() <= kMost && letters.find_first_not_of("RHIMTPESWO") == letters.npos;
}

template <class Rows>
std::optional<ElementType> typeIn(Rows const& rows, std::string_view stem, std::string_view nodes)
{
    for (NameRow const& row : rows) {
        if (row.m_stem == stem && row.m_nodes == nodes) {
            return row.m_type;
        }
    }
    return std::nullopt;
}

template <class Stems>
bool isOneOf(Stems const& stems, std::string_view stem)
{
    for (std::string_view const known : stems) {
        if (known == stem) {
            return true;
        }
    }
    return false;
}

/// The parts of "C3D20RH".
struct NameParts {
    std::string_view m_stem;
    std::string_view m_nodes;
};

/// Nothing where letters follow that stand for no formulation.
std::optional<NameParts> partsOf(std::string_view name) noexcept
{
    bool const hasFive = name.ends_with("R5");
    std::size_t const lastDigit =
        name.substr(0, hasFive ? name.size() - 2 : name.size()).find_last_of(kDigits);
    if (lastDigit == name.npos || !isFormulation(name.substr(lastDigit + 1))) {
        return std::nullopt;
    }
    std::string_view const bare = name.substr(0, lastDigit + 1);
    std::size_t const stemSize = bare.find_last_not_of(kDigits) + 1;
    return NameParts{bare.substr(0, stemSize), bare.substr(stemSize)};
}

// clang-format off
constexpr std::array<std::string_view, kElementTraits.size()> kPlainNames{
    "B31", "B32", "S3", "S6", "S4", "S8", "C3D4", "C3D10", "C3D6", "C3D15", "C3D8", "C3D20", "MASS",
};
// clang-format on

}  // namespace

std::optional<ElementType> abaqusElementType(std::string_view name) noexcept
{
    if (auto const whole = typeIn(kOthers, name, "")) {
        return whole;
    }
    auto const parts = partsOf(name);
    if (!parts.has_value()) {
        return std::nullopt;
    }
    if (isOneOf(kSolidStems, parts->m_stem)) {
        return typeIn(kSolids, "", parts->m_nodes);
    }
    if (isOneOf(kPlaneStems, parts->m_stem)) {
        return typeIn(kPlanes, "", parts->m_nodes);
    }
    return typeIn(kOthers, parts->m_stem, parts->m_nodes);
}

std::optional<RefusedElement> refusedAbaqusElement(std::string_view name) noexcept
{
    auto const parts = partsOf(name);
    if (!parts.has_value()) {
        return std::nullopt;
    }
    if (isOneOf(kSolidStems, parts->m_stem)) {
        if (parts->m_nodes == "5" || parts->m_nodes == "13") {
            return kPyramid;
        }
        if (parts->m_nodes == "18" || parts->m_nodes == "21" || parts->m_nodes == "27") {
            return kFullSecondOrder;
        }
    } else if (isOneOf(kPlaneStems, parts->m_stem) && parts->m_nodes == "9") {
        return kFullSecondOrder;
    }
    return std::nullopt;
}

std::string_view plainAbaqusName(ElementType type) noexcept
{
    return kPlainNames[static_cast<std::size_t>(type)];
}

}  // namespace vrn::orlo::host::meshing
