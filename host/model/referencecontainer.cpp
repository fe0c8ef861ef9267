#include "host/model/referencecontainer.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <string>
#include <utility>

namespace vrn::orlo::host::model {

KFRResult ReferenceContainer::getOwner(CAE::EntityReference& owner)
{
    owner = m_owner;
    return KFR::ok;
}

KFRResult ReferenceContainer::getTypes(KFRSequence<unsigned int>& typeIds)
{
    KFRSequence<unsigned int> types;
    types.reserve(m_types.size());
    for (OfType const& type : m_types) {
        types.append(type.m_typeId);
    }
    typeIds = std::move(types);
    return KFR::ok;
}

KFRResult ReferenceContainer::getIds(unsigned int typeId, KFRSequence<unsigned int>& ids)
{
    OfType const* const type = find(typeId);
    if (type == nullptr) {
        return notHere(typeId, std::nullopt);
    }
    ids = type->m_ids;
    return KFR::ok;
}

KFRResult ReferenceContainer::getReference(unsigned int typeId, unsigned int id,
                                           CAE::EntityReference& reference)
{
    if (find(typeId) == nullptr) {
        return notHere(typeId, std::nullopt);
    }
    OfType& type = ofType(typeId);
    std::optional<std::size_t> const position = type.positionOf(id);
    if (!position.has_value()) {
        return notHere(typeId, id);
    }
    KFRSequence<unsigned int> const& subIds = type.m_subIds;
    reference = {m_owner.service, typeId, id, *position < subIds.size() ? subIds[*position] : 0};
    return KFR::ok;
}

KFRResult ReferenceContainer::getEntity(unsigned int typeId, unsigned int id,
                                        KFRSmartPointer<appfw::IEntityInterface>& entity)
{
    CAE::EntityReference reference;
    if (KFRResult const found = getReference(typeId, id, reference); !found.isOk()) {
        return found;
    }
    KFRSmartPointer<appfw::IEntityInterface> known;
    if (m_rootManager != KFR::NULLSP) {
        known = m_rootManager->getEntity(reference);
    }
    if (known == KFR::NULLSP) {
        return KFRResult(kNoEntityOfId)
            .addParam("The root manager knows no entity with type " + std::to_string(typeId) +
                      " and number " + std::to_string(id) + ".");
    }
    entity = known;
    return KFR::ok;
}

KFRResult ReferenceContainer::addIds(unsigned int typeId, KFRSequence<unsigned int> const& ids,
                                     KFRSequence<unsigned int> const& subIds)
{
    if (!subIds.empty() && subIds.size() != ids.size()) {
        return KFRResult(kSubIdCount)
            .addParam(std::to_string(subIds.size()) + " sub-ids came with " +
                      std::to_string(ids.size()) + " ids of type " + std::to_string(typeId) +
                      ": give one for each id, or none.");
    }
    if (ids.empty()) {
        return KFR::ok;
    }
    OfType& type = ofType(typeId);
    std::size_t const start = type.m_ids.size();
    if (std::any_of(subIds.begin(), subIds.end(), std::identity())) {
        if (start > 0) {
            type.m_subIds.resize(start);
            type.m_subIds.append(subIds);
        } else {
            type.m_subIds = subIds;
        }
    }
    if (start > 0) {
        type.m_ids.append(ids);
    } else {
        type.m_ids = ids;
    }
    type.note(ids.size());
    return KFR::ok;
}

void ReferenceContainer::add(unsigned int typeId, unsigned int id, unsigned int subId)
{
    OfType& type = ofType(typeId);
    if (subId != 0) {
        type.m_subIds.resize(type.m_ids.size());
        type.m_subIds.append(subId);
    }
    type.m_ids.append(id);
    type.note(1);
}

KFRSequence<unsigned int> ReferenceContainer::subIdsOf(unsigned int typeId) const
{
    OfType const* const type = find(typeId);
    return type != nullptr ? type->m_subIds : KFRSequence<unsigned int>();
}

/// Looks whether the last `added` ids go on ascending.
void ReferenceContainer::OfType::note(std::size_t added)
{
    if (m_ascends) {
        KFRSequence<unsigned int> const& ids = m_ids;
        auto const from = ids.end() - static_cast<std::ptrdiff_t>(std::min(added + 1, ids.size()));
        m_ascends = std::is_sorted(from, ids.end());
    }
}

std::optional<std::size_t> ReferenceContainer::OfType::positionOf(unsigned int id)
{
    KFRSequence<unsigned int> const& ids = m_ids;
    if (m_ascends) {
        auto const found = std::lower_bound(ids.begin(), ids.end(), id);
        return found != ids.end() && *found == id
                   ? std::optional(static_cast<std::size_t>(found - ids.begin()))
                   : std::nullopt;
    }
    if (m_byId.size() != ids.size()) {
        m_byId.resize(ids.size());
        std::iota(m_byId.begin(), m_byId.end(), 0U);
        std::sort(m_byId.begin(), m_byId.end(), [&ids](std::uint32_t left, std::uint32_t right) {
            return std::pair(ids[left], left) < std::pair(ids[right], right);
        });
    }
    auto const found = std::lower_bound(
        m_byId.begin(), m_byId.end(), id,
        [&ids](std::uint32_t at, unsigned int wanted) { return ids[at] < wanted; });
    return found != m_byId.end() && ids[*found] == id ? std::optional<std::size_t>(*found)
                                                      : std::nullopt;
}

ReferenceContainer::OfType const* ReferenceContainer::find(unsigned int typeId) const
{
    auto const type = std::find_if(m_types.begin(), m_types.end(), [typeId](OfType const& held) {
        return held.m_typeId == typeId;
    });
    return type != m_types.end() ? &*type : nullptr;
}

ReferenceContainer::OfType& ReferenceContainer::ofType(unsigned int typeId)
{
    if (OfType const* const known = find(typeId)) {
        return m_types[static_cast<std::size_t>(known - m_types.data())];
    }
    return m_types.emplace_back(OfType{typeId, {}, {}, true, {}});
}

KFRResult ReferenceContainer::notHere(unsigned int typeId, std::optional<unsigned int> id)
{
    std::string const owner =
        m_owner.service != KFR::NULLSP ? m_owner.service->getObjectName() : "no owner";
    return KFRResult(kNotInContainer)
        .addParam("The container of " + owner + " has no " +
                  (id.has_value() ? "id " + std::to_string(*id) : std::string("ids")) +
                  " of type " + std::to_string(typeId) + ".");
}

KFRSmartPointer<appfw::IEntRefInterface> ReferenceContainerFactory::find(KFRIService const& owner,
                                                                         unsigned int typeId,
                                                                         unsigned int id,
                                                                         unsigned int subId)
{
    auto const made = m_made.find(ReferenceKey({owner, typeId, id, subId}));
    if (made == m_made.end()) {
        return {};
    }
    return KFR::loose_cast<appfw::IEntRefInterface>(made->second->lock());
}

KFRSmartPointer<appfw::IEntRefInterface> ReferenceContainerFactory::create(
    KFRIService const& owner, unsigned int typeId, unsigned int id, unsigned int subId, int empty)
{
    if (owner == KFR::NULLSP) {
        return {};
    }
    CAE::EntityReference const reference{owner, typeId, id, subId};
    KFRSmartPointer<ReferenceContainer> const container =
        KFR::make<ReferenceContainer>(reference, m_rootManager);
    if (empty == 0) {
        container->add(typeId, id, subId);
    }
    sweep();
    m_made.insert_or_assign(ReferenceKey(reference), container->weakReference());
    return container;
}

void ReferenceContainerFactory::sweep()
{
    if (m_made.size() < m_sweepAt) {
        return;
    }
    std::erase_if(m_made, [](auto& row) { return row.second->lock() == KFR::NULLSP; });
    m_sweepAt = std::max<std::size_t>(64, 2 * m_made.size());
}

}  // namespace vrn::orlo::host::model
