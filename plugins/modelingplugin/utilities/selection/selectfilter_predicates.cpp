// The questions of SelectFilter about a type.

#include "platform/typenames/femdisplay.h"
#include "platform/typenames/femesh.h"
#include "platform/typenames/geometry.h"
#include "platform/typenames/modeling.h"
#include "platform/typenames/objectmodel.h"
#include "plugins/modelingplugin/utilities/identity/entitytypeid.h"
#include "plugins/modelingplugin/utilities/selection/selectfilter.h"

#include <algorithm>

namespace vrn::orlo::plugin::modeling {

namespace {

using namespace typenames;  // NOLINT: the rows below are written with these names

/// Test of a type id by its name: exact, one of several.
template <class... Names>
auto named(Names const&... names)
{
    return [&names...](unsigned int typeId) {
        icu::UnicodeString const& name = EntityTypeID::nameOf(typeId);
        return ((name == names) || ...);
    };
}

/// Test of a type id by the table: under one of several kinds, asked in their order.
template <class... Kinds>
auto listed(Kinds... kinds)
{
    return [kinds...](unsigned int typeId) {
        return (SelectFilter::isSelectFilter(kinds, typeId) || ...);
    };
}

constexpr auto isDisplacementConstraint = [](icu::UnicodeString const& name) {
    return name == kModelingDisplacementConstraintGeneral ||
           name == kModelingDisplacementConstraintCylindrical ||
           name == kModelingDisplacementConstraintAxial ||
           name == kModelingDisplacementConstraintPinned ||
           name == kModelingDisplacementConstraintClamped ||
           name == kModelingDisplacementConstraintSymmetry;
};

}  // namespace

#define ORLO_DEFINE_Reference(name, test)                          \
    bool SelectFilter::name(CAE::EntityReference const& reference) \
    {                                                              \
        return (test)(reference.typeId);                           \
    }
#define ORLO_DEFINE_Id(name, test)               \
    bool SelectFilter::name(unsigned int typeId) \
    {                                            \
        return (test)(typeId);                   \
    }
#define ORLO_DEFINE_Both(name, test) ORLO_DEFINE_Reference(name, test) ORLO_DEFINE_Id(name, test)
#define TYPE_PREDICATE(forms, name, test) ORLO_DEFINE_##forms(name, test)
#include "plugins/modelingplugin/utilities/selection/typepredicates.def"

bool SelectFilter::isConstraint(icu::UnicodeString const& typeName)
{
    return isDisplacementConstraint(typeName);
}

bool SelectFilter::isConstraint(unsigned int typeId)
{
    return isDisplacementConstraint(EntityTypeID::nameOf(typeId));
}

bool SelectFilter::isSelectFilter(SelectFilterType type, unsigned int typeId)
{
    std::vector<unsigned int> const& ids = instance()->m_table[type];  // enters an absent kind
    return std::find(ids.begin(), ids.end(), typeId) != ids.end();
}

}  // namespace vrn::orlo::plugin::modeling
