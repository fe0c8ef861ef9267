#include "plugins/modelingplugin/utilities/identity/modelingentitycompare.h"

namespace vrn::orlo::plugin::modeling {

using KFR::NULLSP;

bool ModelingEntityCompare::operator()(KFRSmartPointer<IBaseEntityInterface> const& left,
                                       KFRSmartPointer<IBaseEntityInterface> const& right) const
{
    auto const leftEntity = KFR::loose_cast<IEntityInterface>(left);
    auto const rightEntity = KFR::loose_cast<IEntityInterface>(right);
    return leftEntity != NULLSP && rightEntity != NULLSP &&
           (*this)(leftEntity->getEntityReference(), rightEntity->getEntityReference());
}

bool ModelingEntityCompare::equals(KFRSmartPointer<IEntityInterface> const& left,
                                   KFRSmartPointer<IEntityInterface> const& right) const
{
    return left != NULLSP && right != NULLSP &&
           equals(left->getEntityReference(), right->getEntityReference());
}

ModelingEntityCompareEx::ModelingEntityCompareEx(KFRSmartPointer<IEntityInterface> const& entity)
    : m_reference(entity != NULLSP ? entity->getEntityReference() : CAE::EntityReference())
{
}

bool ModelingEntityCompareEx::operator()(KFRSmartPointer<IEntityInterface> const& entity) const
{
    return entity != NULLSP && (*this)(entity->getEntityReference());
}

}  // namespace vrn::orlo::plugin::modeling
