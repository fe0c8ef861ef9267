#include "plugins/modelingplugin/utilities/identity/pluginhelper.h"

#include "platform/appfw/entity.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"

namespace vrn::orlo::plugin::modeling {

using KFR::NULLSP;
using PersistentObject = KFRSmartPointer<CAE::IPersistentObjectInterface>;

PersistentObject PluginHelper::getPart(PersistentObject const& object)
{
    PersistentObject found = object;
    while (found != NULLSP && KFR::loose_cast<CAE::IPartInterface>(found) == NULLSP) {
        PersistentObject parent;
        if (!found->getParent(parent).isOk()) {
            return {};
        }
        found = parent;
    }
    return found;
}

PersistentObject PluginHelper::getPart(KFRSmartPointer<CAE::IMeshBodyInterface> const& body)
{
    return getPart(KFR::loose_cast<CAE::IPersistentObjectInterface>(body));
}

PersistentObject PluginHelper::getPart(CAE::EntityReference const& reference)
{
    auto const manager = ServiceHelper::getRootManager();
    auto const entity = manager != NULLSP ? manager->getEntity(reference)
                                          : KFRSmartPointer<appfw::IEntityInterface>();
    if (auto const instance = KFR::loose_cast<CAE::IInstanceInterface>(entity);
        instance != NULLSP) {
        PersistentObject placed;
        static_cast<void>(instance->getReferenceObject(placed));
        return getPart(placed);
    }
    // Elements and nodes are no entities of their own: their owner says where they are.
    auto const object = KFR::loose_cast<CAE::IPersistentObjectInterface>(entity);
    return getPart(object != NULLSP
                       ? object
                       : KFR::loose_cast<CAE::IPersistentObjectInterface>(reference.service));
}

KFRSmartPointer<CAE::IInstanceInterface> PluginHelper::getPartInstancebyPart(
    PersistentObject const& part)
{
    auto const placed = KFR::loose_cast<CAE::IPartInterface>(part);
    CAE::IInstanceSequence instances;
    if (placed == NULLSP || !placed->getInstances(instances).isOk() || instances.empty()) {
        return {};
    }
    return instances[0];
}

KFRSmartPointer<KFR::EOM::IEOMObjectInterface> PluginHelper::pfwObject2EOMObject(
    PersistentObject const& object)
{
    auto const factory =
        KFR::loose_cast<KFR::EOM::IEOMObjectFactoryInterface>(ServiceHelper::getEOMObjectFactory());
    KFRSmartPointer<KFR::EOM::IEOMObjectInterface> found;
    if (factory != NULLSP && object != NULLSP) {
        static_cast<void>(factory->getEOMObject(object, found));
    }
    return found;
}

PersistentObject PluginHelper::getPFWObject(CAE::EntityReference const& reference)
{
    auto const manager = ServiceHelper::getRootManager();
    auto const entity = manager != NULLSP ? manager->getEntity(reference)
                                          : KFRSmartPointer<appfw::IEntityInterface>();
    PersistentObject object;
    if (auto const support = KFR::loose_cast<appfw::IPFWSupportInterface>(entity);
        support != NULLSP) {
        static_cast<void>(support->getPFWObject(object));
    }
    // Many an entity is the persistent object itself.
    return object != NULLSP ? object : KFR::loose_cast<CAE::IPersistentObjectInterface>(entity);
}

}  // namespace vrn::orlo::plugin::modeling
