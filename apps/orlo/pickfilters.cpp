#include "apps/orlo/pickfilters.h"

#include "apps/orlo/usageerror.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

namespace vrn::orlo::app {

using namespace plugin::modeling;  // NOLINT: the table is made of its names

namespace {

struct Row {
    std::string_view m_name;
    SelectFilterType m_type;
};

/// What a geometry or a mesh file can have.
// clang-format off
constexpr std::array kRows{
    Row{"Vertex",       FilterVertex},
    Row{"Edge",         FilterEdge},
    Row{"Face",         FilterFace},
    Row{"Region",       FilterRegion},
    Row{"Body",         FilterBody},
    Row{"SolidBody",    FilterSolidBody},
    Row{"SheetBody",    FilterSheetBody},
    Row{"WireBody",     FilterWireBody},
    Row{"GeneralBody",  FilterGeneralBody},
    Row{"FacetSheet",   FilterFacetSheet},
    Row{"Part",         FilterPart},
    Row{"PartInstance", FilterPartInstance},
    Row{"1DElement",    Filter1DElement},
    Row{"2DElement",    Filter2DElement},
    Row{"3DElement",    Filter3DElement},
    Row{"MeshGroup",    FilterMeshGroup},
};
// clang-format on

bool isSameWord(std::string_view left, std::string_view right)
{
    auto const lower = [](unsigned char c) {
        return std::tolower(c);
    };
    return std::ranges::equal(left, right, {}, lower, lower);
}

}  // namespace

std::vector<std::string> filterNames()
{
    std::vector<std::string> names;
    for (Row const& row : kRows) {
        names.emplace_back(row.m_name);
    }
    return names;
}

SelectFilterType filterOf(std::string const& name)
{
    auto const row = std::ranges::find_if(
        kRows, [&name](Row const& candidate) { return isSameWord(candidate.m_name, name); });
    if (row != kRows.end()) {
        return row->m_type;
    }
    std::string known;
    for (std::string const& candidate : filterNames()) {
        known.append(known.empty() ? "" : ", ").append(candidate);
    }
    throw UsageError("--filter: \"" + name + "\" is no filter; the filters are " + known);
}

}  // namespace vrn::orlo::app
