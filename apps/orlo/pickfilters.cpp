#include "apps/orlo/pickfilters.h"

#include "apps/orlo/usageerror.h"
#include "plugins/modelingplugin/utilities/identity/entitytypeid.h"
#include "plugins/modelingplugin/utilities/selection/selectfilter.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <iterator>
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

using host::geometry::EntityClass;

constexpr std::array kClasses{
    EntityClass::solidBody,  EntityClass::sheetBody,   EntityClass::wireBody,
    EntityClass::pointBody,  EntityClass::generalBody, EntityClass::facetSolid,
    EntityClass::facetSheet, EntityClass::facetWire,   EntityClass::facetGeneral,
    EntityClass::volume,     EntityClass::face,        EntityClass::edge,
    EntityClass::vertex};

/// A reference that has nothing but its type: what a filter looks at.
CAE::EntityReference typeReference(std::string_view typeName)
{
    return {{}, EntityTypeID(icu::UnicodeString::fromUTF8(std::string(typeName))).typeID(), 0, 0};
}

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

PickStage::PickStage(std::vector<std::string> const& filters, bool allowsMany)
{
    KFRSequence<unsigned int> types;
    for (std::string const& filter : filters) {
        types.append(static_cast<unsigned int>(filterOf(filter)));
    }
    SelectFilter::instance()->initStageFilter(types, allowsMany, kName);
}

PickStage::~PickStage()
{
    SelectFilter::instance()->clearFilters();
}

std::vector<EntityClass> pickableClasses(host::selection::PickFilterManager const& filter)
{
    std::vector<EntityClass> classes;
    std::ranges::copy_if(kClasses, std::back_inserter(classes), [&](EntityClass entityClass) {
        return filter.isPickable(typeReference(host::geometry::typeNameOf(entityClass)));
    });
    return classes;
}

}  // namespace vrn::orlo::app
