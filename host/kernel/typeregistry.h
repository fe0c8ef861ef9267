/// \file
/// The ids of entity types.

#pragma once

#include "platform/kfr/kfrserviceobject.h"
#include "platform/registry/typeregistry.h"

#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <random>
#include <unordered_map>

namespace vrn::orlo::host::kernel {

/// Hands out ids that nobody can guess: they start anywhere and go on by random steps, so that code
/// which relies on a number, a difference or an order fails soon.
///
/// Shape      Ids are 1 to 2^31 - 1. Types and groups have one space of names.
/// Threads    Any thread.
class TypeRegistry final
    : public KFRServiceObjectImpl<KFR::Services::TypeRegistry::ITypeRegistryInterface> {
public:
    /// \param seed  makes the ids repeatable, as far as the names come in the same order
    explicit TypeRegistry(std::optional<std::uint32_t> seed = std::nullopt);

    unsigned int getTypeId(icu::UnicodeString const& name) override;
    /// A known name keeps its id; `ids` replaces what the group held.
    unsigned int getGroupTypeId(icu::UnicodeString const& name,
                                KFRSequence<unsigned int> const& ids) override;
    icu::UnicodeString getTypeName(unsigned int id) override;
    /// The id stays taken: the name gets another one when it comes back.
    void unregisterType(icu::UnicodeString const& name) override;

    /// The types that a group stands for, as they were given; empty for an id that is no group's.
    [[nodiscard]] KFRSequence<unsigned int> groupMembers(unsigned int id);

private:
    struct Type {
        icu::UnicodeString m_name;  // empty once the type is unregistered
        KFRSequence<unsigned int> m_members;
    };

    unsigned int idOf(icu::UnicodeString const& name);

    std::mutex m_mutex;  // guards all below
    std::mt19937 m_random;
    unsigned int m_last;
    std::map<icu::UnicodeString, unsigned int> m_ids;
    std::unordered_map<unsigned int, Type> m_types;  // every id that was ever given
};

}  // namespace vrn::orlo::host::kernel
