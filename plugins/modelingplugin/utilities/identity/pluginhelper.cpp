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

}  // namespace vrn::orlo::plugin::modeling
