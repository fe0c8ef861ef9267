/// \file
/// Reference containers, and the factory that knows them by their owners.

#pragma once

#include "host/model/referencekey.h"
#include "platform/appfw/entity.h"
#include "platform/appfw/entref.h"
#include "platform/kfr/kfrserviceobject.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace vrn::orlo::host::model {

/// Codes of what containers and lists of references refuse. But for kAtEnd, which is no mistake,
/// each comes with a text as its first parameter.
enum ReferenceFailure : int {
    kNotInContainer = 1,  ///< The container has no such type, or no such id of the type.
    kNoEntityOfId = 2,    ///< The id is there, but the root manager knows no entity of it.
    kSubIdCount = 3,
    kNoContainer = 4,      ///< A null handle.
    kNotOfContainers = 5,  ///< The list has plain references.
    kAtEnd = 6,
};

/// Ids of one owner, by type. The reference of an id is the owner's service with the id's own three
/// words.
///
/// Order      As of every container. Where an id of a type stands more than once, getReference and
///            getEntity mean the first.
/// Failure    As ReferenceFailure says, with outputs as they were and nothing added.
/// Ownership  Holds the owner and the root manager. Sequences that are given and got share their
///            block with the container until one side changes it.
/// Threads    Main thread; asking for a reference may build an index.
/// Cost       An id takes four bytes; sub-ids, where one is not 0, another four; and another four
///            once references are asked for of a type whose ids do not ascend. Adding: linear in
///            what is added. getReference: a binary search, after n log n for the index where ids
///            came in between. Types are scanned.
class ReferenceContainer final : public KFRServiceObjectImpl<appfw::IEntRefInterface> {
public:
    using RootManager = KFRSmartPointer<appfw::IRootManagerInterface>;

    /// \param owner        reference of the owner
    /// \param rootManager  null for a container that knows no entities
    ReferenceContainer(CAE::EntityReference owner, RootManager rootManager)
        : m_owner(std::move(owner)), m_rootManager(std::move(rootManager))
    {
    }

    KFRResult getOwner(CAE::EntityReference& owner) override;
    KFRResult getTypes(KFRSequence<unsigned int>& typeIds) override;
    KFRResult getIds(unsigned int typeId, KFRSequence<unsigned int>& ids) override;
    KFRResult getReference(unsigned int typeId, unsigned int id,
                           CAE::EntityReference& reference) override;
    KFRResult getEntity(unsigned int typeId, unsigned int id,
                        KFRSmartPointer<appfw::IEntityInterface>& entity) override;
    /// No ids: nothing is added, not even the type.
    KFRResult addIds(unsigned int typeId, KFRSequence<unsigned int> const& ids,
                     KFRSequence<unsigned int> const& subIds) override;

    void add(unsigned int typeId, unsigned int id, unsigned int subId);

    /// The sub-ids of a type's ids, in their order; ids past its end have the sub-id 0.
    [[nodiscard]] KFRSequence<unsigned int> subIdsOf(unsigned int typeId) const;

    std::string getObjectName() override { return "vrn.orlo.host.model:ReferenceContainer"; }

private:
    struct OfType {
        unsigned int m_typeId;
        KFRSequence<unsigned int> m_ids;
        KFRSequence<unsigned int> m_subIds;  // may be shorter; the rest are 0
        bool m_ascends = true;
        std::vector<std::uint32_t> m_byId;  // positions by id; to be built where sizes differ

        void note(std::size_t added);
        [[nodiscard]] std::optional<std::size_t> positionOf(unsigned int id);
    };

    [[nodiscard]] OfType const* find(unsigned int typeId) const;
    OfType& ofType(unsigned int typeId);
    [[nodiscard]] KFRResult notHere(unsigned int typeId, std::optional<unsigned int> id);

    CAE::EntityReference m_owner;
    RootManager m_rootManager;
    std::vector<OfType> m_types;
};

/// Makes containers, and finds the one made last for an owner as long as somebody holds it.
///
/// Failure    An owner without a service has no container: null.
/// Ownership  Holds no container; each goes with its last handle.
/// Threads    Main thread.
/// Cost       One search in a hash table; what has gone is swept out now and then.
class ReferenceContainerFactory final
    : public KFRServiceObjectImpl<appfw::IEntRefContainerFactoryInterface> {
public:
    /// \param rootManager  for the containers
    explicit ReferenceContainerFactory(ReferenceContainer::RootManager rootManager)
        : m_rootManager(std::move(rootManager))
    {
    }

    KFRSmartPointer<appfw::IEntRefInterface> find(KFRIService const& owner, unsigned int typeId,
                                                  unsigned int id, unsigned int subId) override;
    /// A new one each time; find() gives the newest.
    /// \param empty  0: the container starts with the owner itself
    KFRSmartPointer<appfw::IEntRefInterface> create(KFRIService const& owner, unsigned int typeId,
                                                    unsigned int id, unsigned int subId,
                                                    int empty) override;

    std::string getObjectName() override { return "vrn.orlo.host.model:ReferenceContainerFactory"; }

private:
    using Weak = KFRSmartPointer<KFR::Framework::KFRIWeakReferenceInterface>;

    void sweep();

    ReferenceContainer::RootManager m_rootManager;
    std::unordered_map<ReferenceKey, Weak, ReferenceKey::Hash> m_made;
    std::size_t m_sweepAt = 64;
};

}  // namespace vrn::orlo::host::model
