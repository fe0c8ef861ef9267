#include "plugins/modelingplugin/utilities/identity/pluginhelper.h"

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

}  // namespace vrn::orlo::plugin::modeling
