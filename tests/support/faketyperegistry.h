/// \file
/// A type registry whose ids are known to the test only, and which counts what it is asked.

#pragma once

#include "platform/kfr/kfrserviceobject.h"
#include "platform/registry/typeregistry.h"

#include <unicode/unistr.h>

#include <map>
#include <ostream>
#include <stdexcept>
#include <utility>
#include <vector>

namespace vrn::orlo::plugin::modeling::test {

/// How often each operation of the registry was called.
struct RegistryCalls {
    int typeId = 0;
    int groupTypeId = 0;
    int typeName = 0;
    int unregister = 0;

    friend bool operator==(RegistryCalls const&, RegistryCalls const&) = default;
};

inline void PrintTo(RegistryCalls const& calls, std::ostream* out)
{
    *out << "getTypeId " << calls.typeId << ", getGroupTypeId " << calls.groupTypeId
         << ", getTypeName " << calls.typeName << ", unregisterType " << calls.unregister;
}

/// What becomes of the id of a name that was unregistered.
enum class Unregistered {
    forgotten,  ///< the name gets another id when it comes again
    kept        ///< the name keeps its id, so that the tests of one process agree on it
};

/// Hands out ids from `firstId` upwards.
class FakeTypeRegistry final
    : public KFRServiceObjectImpl<KFR::Services::TypeRegistry::ITypeRegistryInterface> {
public:
    using Name = icu::UnicodeString;

    explicit FakeTypeRegistry(unsigned int firstId, Unregistered policy = Unregistered::forgotten)
        : m_nextId(firstId), m_policy(policy)
    {
    }

    /// The id of a name, for the test itself: not counted.
    unsigned int idOf(Name const& name) { return idIn(m_types, name); }
    /// Gives every name another id from now on.
    void renumber()
    {
        m_types.clear();
        m_groups.clear();
    }
    /// The next counted operation throws std::runtime_error.
    void failOnce() { m_fails = true; }

    [[nodiscard]] RegistryCalls const& calls() const { return m_calls; }
    RegistryCalls takeCalls() { return std::exchange(m_calls, {}); }
    [[nodiscard]] std::vector<Name> const& unregistered() const { return m_unregistered; }
    [[nodiscard]] KFRSequence<unsigned int> const& lastGroup() const { return m_lastGroup; }

    unsigned int getTypeId(Name const& name) override
    {
        count(m_calls.typeId);
        return idIn(m_types, name);
    }
    unsigned int getGroupTypeId(Name const& name, KFRSequence<unsigned int> const& ids) override
    {
        count(m_calls.groupTypeId);
        m_lastGroup = ids;
        return idIn(m_groups, name);
    }
    Name getTypeName(unsigned int id) override
    {
        count(m_calls.typeName);
        for (auto const& [name, known] : m_types) {
            if (known == id) {
                return name;
            }
        }
        return {};
    }
    void unregisterType(Name const& name) override
    {
        count(m_calls.unregister);
        m_unregistered.push_back(name);
        if (m_policy == Unregistered::forgotten) {
            m_types.erase(name);
        }
    }

private:
    void count(int& calls)
    {
        ++calls;
        if (std::exchange(m_fails, false)) {
            throw std::runtime_error("the registry does not answer");
        }
    }
    unsigned int idIn(std::map<Name, unsigned int>& ids, Name const& name)
    {
        auto const [entry, isNew] = ids.try_emplace(name, m_nextId);
        m_nextId += isNew ? 1 : 0;
        return entry->second;
    }

    unsigned int m_nextId;
    Unregistered m_policy;
    bool m_fails = false;
    RegistryCalls m_calls;
    std::map<Name, unsigned int> m_types;
    std::map<Name, unsigned int> m_groups;
    std::vector<Name> m_unregistered;
    KFRSequence<unsigned int> m_lastGroup;
};

}  // namespace vrn::orlo::plugin::modeling::test
