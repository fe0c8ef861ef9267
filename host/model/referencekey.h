/// \file
/// References as keys of maps and sets.

#pragma once

#include "platform/caedata/entityreference.h"

#include <compare>
#include <cstddef>

namespace vrn::orlo::host::model {

/// The number of an owner; 0 for none.
[[nodiscard]] inline long long ownerNumberOf(KFRIService const& owner)
{
    return owner != KFR::NULLSP ? owner->getInstanceID() : 0;
}

/// A reference with its owner as a number. Keys are equal where their references are.
///
/// Order      Of the words: total, and of no other meaning; another one in another run.
/// Ownership  Does not hold the owner: a key is good as long as something else does.
struct ReferenceKey {
    long long m_owner;
    unsigned int m_typeId;
    unsigned int m_id;
    unsigned int m_subId;

    explicit ReferenceKey(CAE::EntityReference const& reference)
        : m_owner(ownerNumberOf(reference.service)),
          m_typeId(reference.typeId),
          m_id(reference.id),
          m_subId(reference.subId)
    {
    }

    friend auto operator<=>(ReferenceKey const&, ReferenceKey const&) = default;

    struct Hash {
        std::size_t operator()(ReferenceKey const& key) const noexcept
        {
            // Ids run on by one within an owner and a type: the factors spread the words.
            std::size_t hash = static_cast<std::size_t>(key.m_owner);
            for (std::size_t const word : {key.m_typeId, key.m_id, key.m_subId}) {
                hash = (hash ^ (hash >> 32U)) * 0x9E3779B97F4A7C15U + word;
            }
            return hash;
        }
    };
};

}  // namespace vrn::orlo::host::model
