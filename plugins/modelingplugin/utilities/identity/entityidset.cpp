#include "plugins/modelingplugin/utilities/identity/entityidset.h"

namespace vrn::orlo::plugin::modeling {

EntityIDSet& EntityIDSet::instance()
{
    static EntityIDSet set;
    return set;
}

unsigned int EntityIDSet::nextID()
{
    return m_next++;
}

void EntityIDSet::reset()
{
    m_next = 1;
}

}  // namespace vrn::orlo::plugin::modeling
