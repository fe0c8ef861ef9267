#include "plugins/modelingplugin/utilities/identity/entitytypeid.h"

#include "platform/registry/typeregistry.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"

#include <utility>

namespace vrn::orlo::plugin::modeling {

using KFR::Services::TypeRegistry::ITypeRegistryInterface;

btree::btree_map<icu::UnicodeString, unsigned int> EntityTypeID::m_name2id;
btree::btree_map<unsigned int, icu::UnicodeString> EntityTypeID::m_id2name;
btree::btree_map<icu::UnicodeString, unsigned int> EntityTypeID::m_name2groupid;

namespace {

/// The registry, cast at every use. Null when the service is missing.
KFRSmartPointer<ITypeRegistryInterface> typeRegistry()
{
    return ServiceHelper::getTypeRegistry();
}

/// The same where it must be there: a missing registry fails like one of another kind.
KFRSmartPointer<ITypeRegistryInterface> requiredTypeRegistry()
{
    auto registry = typeRegistry();
    if (registry == KFR::NULLSP) {
        KFR::detail::throwCastFailure(ITypeRegistryInterface::kfrTypeName(),
                                      KFR::kInterfaceNotImplemented);
    }
    return registry;
}

}  // namespace

EntityTypeID::EntityTypeID(icu::UnicodeString name) : m_typeName(std::move(name))
{
    if (auto const known = m_name2id.find(m_typeName); known != m_name2id.end()) {
        m_typeID = known->second;
        return;
    }
    m_typeID = requiredTypeRegistry()->getTypeId(m_typeName);
    m_name2id[m_typeName] = m_typeID;
}

EntityTypeID::EntityTypeID(unsigned int id) : m_typeID(id), m_typeName(nameOf(id))
{
}

EntityTypeID::EntityTypeID(icu::UnicodeString& name, KFRSequence<unsigned int>& ids)
    : m_typeName(name)
{
    if (auto const known = m_name2groupid.find(m_typeName); known != m_name2groupid.end()) {
        m_typeID = known->second;
        return;
    }
    m_typeID = requiredTypeRegistry()->getGroupTypeId(m_typeName, ids);
    m_name2groupid[m_typeName] = m_typeID;
}

icu::UnicodeString const& EntityTypeID::nameOf(unsigned int id)
{
    if (auto const known = m_id2name.find(id); known != m_id2name.end()) {
        return known->second;
    }
    auto const registry = KFR::loose_cast<ITypeRegistryInterface>(ServiceHelper::getTypeRegistry());
    if (registry == KFR::NULLSP) {
        static icu::UnicodeString const unknown;
        return unknown;
    }
    // An id that the registry never gave has an empty name, and that is kept like any other.
    icu::UnicodeString name = registry->getTypeName(id);
    return m_id2name[id] = std::move(name);
}

void EntityTypeID::unRegister()
{
    for (auto const& [name, id] : m_name2id) {
        if (auto const registry = typeRegistry(); registry != KFR::NULLSP) {
            registry->unregisterType(name);
        }
    }
    m_name2id.clear();
    m_id2name.clear();
    m_name2groupid.clear();
}

}  // namespace vrn::orlo::plugin::modeling
