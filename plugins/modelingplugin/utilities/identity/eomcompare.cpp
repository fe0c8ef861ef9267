#include "plugins/modelingplugin/utilities/identity/eomcompare.h"

namespace vrn::orlo::plugin::modeling {

namespace {

CAE::GUIDDATA guidOf(EOMCompare::Object const& object)
{
    return object != KFR::NULLSP ? object->getGuid() : CAE::GUIDDATA();
}

}  // namespace

bool EOMCompare::lessThan(Object const& left, Object const& right) const
{
    return guidOf(left) < guidOf(right);
}

bool EOMCompare::equals(Object const& left, Object const& right) const
{
    return left != KFR::NULLSP && left->isSameObject(right);
}

}  // namespace vrn::orlo::plugin::modeling
