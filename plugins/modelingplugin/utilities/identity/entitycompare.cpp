#include "plugins/modelingplugin/utilities/identity/entitycompare.h"

#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "plugins/modelingplugin/utilities/identity/eomcompare.h"

namespace vrn::orlo::plugin::modeling {

using Entity = KFRSmartPointer<IEntityInterface>;
using KFR::NULLSP;
using KFR::EOM::IEOMObjectInterface;

KFRSmartPointer<appfw::IRootManagerInterface> EntityCompare::m_spRootMgr;
KFRSmartPointer<appfw::IInterfaceAdapterManagerInterface> EntityCompare::m_spAdpMgr;

EntityCompare::EntityCompare()
{
    if (m_spRootMgr != NULLSP && m_spAdpMgr != NULLSP) {
        return;
    }
    m_spRootMgr = ServiceHelper::getRootManager();
    // The root manager itself, not the service of that name.
    m_spAdpMgr = KFR::strict_cast<appfw::IInterfaceAdapterManagerInterface>(m_spRootMgr);
}

void EntityCompare::release()
{
    m_spRootMgr.release();
    m_spAdpMgr.release();
}

bool EntityCompare::equals(CAE::EntityReference const& left,
                           CAE::EntityReference const& right) const
{
    return m_spAdpMgr->equals(left, right);
}

bool EntityCompare::equals(Entity const& left, Entity const& right) const
{
    return equals(getEntityReferenceSafe(left), getEntityReferenceSafe(right));
}

bool EntityCompare::lessThan(CAE::EntityReference const& left,
                             CAE::EntityReference const& right) const
{
    return m_spAdpMgr->lessThan(left, right);
}

bool EntityCompare::lessThan(Entity const& left, Entity const& right) const
{
    return lessThan(getEntityReferenceSafe(left), getEntityReferenceSafe(right));
}

int EntityCompare::hashCode(CAE::EntityReference const& reference) const
{
    return m_spAdpMgr->hashCode(reference);
}

int EntityCompare::hashCode(Entity const& entity) const
{
    return hashCode(getEntityReferenceSafe(entity));
}

Entity EntityCompare::getByEntityReference(CAE::EntityReference const& reference) const
{
    return m_spRootMgr->getEntity(reference);
}

CAE::EntityReference EntityCompare::getEntityReferenceSafe(Entity const& entity) const
{
    return entity != NULLSP ? entity->getEntityReference() : CAE::EntityReference();
}

unsigned long long EntityHashCompare::operator()(CAE::EntityReference const& reference) const
{
    return static_cast<unsigned long long>(
        static_cast<long long>(EntityCompare().hashCode(reference)));
}

unsigned long long EntityHashCompare::operator()(Entity const& entity) const
{
    return static_cast<unsigned long long>(
        static_cast<long long>(EntityCompare().hashCode(entity)));
}

bool EntityHashCompare::operator()(CAE::EntityReference const& left,
                                   CAE::EntityReference const& right) const
{
    return EntityCompare().lessThan(left, right);
}

bool EntityHashCompare::operator()(Entity const& left, Entity const& right) const
{
    return EntityCompare().lessThan(left, right);
}

EntityEquanPred::EntityEquanPred(CAE::EntityReference const& reference)
    : m_entity(getByEntityReference(reference)), m_reference(reference)
{
}

EntityEquanPred::EntityEquanPred(Entity const& entity)
    : m_entity(entity), m_reference(getEntityReferenceSafe(entity))
{
}

bool EntityEquanPred::operator()(CAE::EntityReference const& reference) const
{
    return equals(m_reference, reference);
}

bool EntityEquanPred::operator()(Entity const& entity) const
{
    return equals(m_entity, entity);
}

bool EntityW2Compare::lessThan(Entity const& left, Entity const& right) const
{
    auto const leftObject = KFR::loose_cast<IEOMObjectInterface>(left);
    auto const rightObject = KFR::loose_cast<IEOMObjectInterface>(right);
    if (leftObject == NULLSP && rightObject == NULLSP) {
        return EntityCompare().lessThan(left, right);
    }
    return EOMCompare().lessThan(leftObject, rightObject);
}

bool EntityW2Compare::equal(Entity const& left, Entity const& right) const
{
    auto const leftObject = KFR::loose_cast<IEOMObjectInterface>(left);
    auto const rightObject = KFR::loose_cast<IEOMObjectInterface>(right);
    if (leftObject == NULLSP && rightObject == NULLSP) {
        return EntityCompare().equals(left, right);
    }
    return leftObject != NULLSP && leftObject->isSameObject(rightObject);
}

}  // namespace vrn::orlo::plugin::modeling
