#include "host/kernel/typeregistry.h"

#include <utility>

namespace vrn::orlo::host::kernel {

namespace {

constexpr unsigned int kLargestId = 0x7FFFFFFF;

}  // namespace

TypeRegistry::TypeRegistry(std::optional<std::uint32_t> seed)
    : m_random(seed ? *seed : std::random_device()()),
      m_last(static_cast<unsigned int>(m_random()) & kLargestId)
{
}

unsigned int TypeRegistry::idOf(icu::UnicodeString const& name)
{
    auto const [entry, isNew] = m_ids.try_emplace(name, 0U);
    if (isNew) {
        do {
            m_last = (m_last + static_cast<unsigned int>(m_random() | 1U)) & kLargestId;
        } while (m_last == 0 || m_types.contains(m_last));
        m_types[m_last].m_name = name;
        entry->second = m_last;
    }
    return entry->second;
}

unsigned int TypeRegistry::getTypeId(icu::UnicodeString const& name)
{
    std::lock_guard const guard(m_mutex);
    return idOf(name);
}

unsigned int TypeRegistry::getGroupTypeId(icu::UnicodeString const& name,
                                          KFRSequence<unsigned int> const& ids)
{
    std::lock_guard const guard(m_mutex);
    unsigned int const id = idOf(name);
    m_types[id].m_members = ids;
    return id;
}

icu::UnicodeString TypeRegistry::getTypeName(unsigned int id)
{
    std::lock_guard const guard(m_mutex);
    auto const type = m_types.find(id);
    return type != m_types.end() ? type->second.m_name : icu::UnicodeString();
}

void TypeRegistry::unregisterType(icu::UnicodeString const& name)
{
    std::lock_guard const guard(m_mutex);
    if (auto const entry = m_ids.find(name); entry != m_ids.end()) {
        m_types[entry->second] = Type();
        m_ids.erase(entry);
    }
}

KFRSequence<unsigned int> TypeRegistry::groupMembers(unsigned int id)
{
    std::lock_guard const guard(m_mutex);
    auto const type = m_types.find(id);
    return type != m_types.end() ? type->second.m_members : KFRSequence<unsigned int>();
}

}  // namespace vrn::orlo::host::kernel
