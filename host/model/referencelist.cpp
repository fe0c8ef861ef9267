#include "host/model/referencelist.h"

#include <optional>
#include <utility>

namespace vrn::orlo::host::model {

namespace {

/// Goes through the references of one container.
class ContainerWalk {
public:
    explicit ContainerWalk(ReferenceList::Container container)
        : m_container(std::move(container)),
          m_own(dynamic_cast<ReferenceContainer const*>(m_container.get()))
    {
        static_cast<void>(m_container->getOwner(m_owner));
        static_cast<void>(m_container->getTypes(m_types));
    }

    bool next(CAE::EntityReference& reference)
    {
        for (;;) {
            if (m_position < m_ids.size()) {
                if (read(m_position++, reference)) {
                    return true;
                }
            } else if (!openNextType()) {
                return false;
            }
        }
    }

private:
    bool openNextType()
    {
        if (m_nextType == m_types.size()) {
            return false;
        }
        m_typeId = std::as_const(m_types)[m_nextType++];
        m_ids = {};
        static_cast<void>(m_container->getIds(m_typeId, m_ids));
        m_subIds = m_own != nullptr ? m_own->subIdsOf(m_typeId) : KFRSequence<unsigned int>();
        m_position = 0;
        return true;
    }

    bool read(std::size_t position, CAE::EntityReference& reference)
    {
        unsigned int const id = std::as_const(m_ids)[position];
        if (m_own == nullptr) {
            return m_container->getReference(m_typeId, id, reference).isOk();
        }
        // By position, for an id may be there with several sub-ids.
        reference = {m_owner.service, m_typeId, id,
                     position < m_subIds.size() ? std::as_const(m_subIds)[position] : 0};
        return true;
    }

    ReferenceList::Container m_container;
    ReferenceContainer const* m_own;  // null for a container of somebody else's making
    CAE::EntityReference m_owner;
    KFRSequence<unsigned int> m_types;
    std::size_t m_nextType = 0;
    unsigned int m_typeId = 0;
    KFRSequence<unsigned int> m_ids;
    KFRSequence<unsigned int> m_subIds;
    std::size_t m_position = 0;
};

class ReferenceIterator final
    : public KFRServiceObjectImpl<CAE::IEntityReferenceIteratorInterface> {
public:
    explicit ReferenceIterator(std::vector<ReferenceList::Stretch> stretches)
        : m_stretches(std::move(stretches))
    {
    }

    KFRResult next(CAE::EntityReference& reference) override
    {
        for (; m_stretch < m_stretches.size(); ++m_stretch, m_position = 0, m_walk.reset()) {
            ReferenceList::Stretch const& stretch = m_stretches[m_stretch];
            if (stretch.m_container == KFR::NULLSP) {
                if (m_position < stretch.m_references.size()) {
                    reference = stretch.m_references[m_position++];
                    return KFR::ok;
                }
                continue;
            }
            if (!m_walk.has_value()) {
                m_walk.emplace(stretch.m_container);
            }
            if (m_walk->next(reference)) {
                return KFR::ok;
            }
        }
        return kAtEnd;
    }

    std::string getObjectName() override { return "vrn.orlo.host.model:ReferenceIterator"; }

private:
    std::vector<ReferenceList::Stretch> m_stretches;
    std::size_t m_stretch = 0;
    std::size_t m_position = 0;
    std::optional<ContainerWalk> m_walk;
};

/// The reference of a service that is an entity and its own owner; else one that names the service
/// alone.
CAE::EntityReference referenceOfOwner(KFRIService const& service)
{
    KFRSmartPointer<appfw::IEntityInterface> const entity =
        KFR::loose_cast<appfw::IEntityInterface>(service);
    if (entity != KFR::NULLSP) {
        CAE::EntityReference reference = entity->getEntityReference();
        if (reference.service == service) {
            return reference;
        }
    }
    return {service, 0, 0, 0};
}

}  // namespace

KFRSmartPointer<CAE::IEntityReferenceIteratorInterface> ReferenceList::getIterator()
{
    return KFR::make<ReferenceIterator>(m_stretches);
}

KFRResult ReferenceList::getContainers(appfw::IEntRefSequence& containers)
{
    appfw::IEntRefSequence all;
    all.reserve(m_stretches.size());
    for (Stretch const& stretch : m_stretches) {
        if (stretch.m_container == KFR::NULLSP) {
            return KFRResult(kNotOfContainers)
                .addParam(
                    "The list keeps references in their order and has no form as "
                    "containers; read it by its iterator.");
        }
        all.append(stretch.m_container);
    }
    containers = std::move(all);
    return KFR::ok;
}

KFRResult ReferenceList::add(CAE::EntityReference const& reference)
{
    if (m_kind == Kind::ordered) {
        if (m_stretches.empty() || m_stretches.back().m_container != KFR::NULLSP) {
            m_stretches.emplace_back();
        }
        m_stretches.back().m_references.append(reference);
        return KFR::ok;
    }
    // The container keeps the owner, and so the owner its number.
    KFRSmartPointer<ReferenceContainer>& container = m_byOwner[ownerNumberOf(reference.service)];
    if (container == KFR::NULLSP) {
        auto const made =
            KFR::make<ReferenceContainer>(referenceOfOwner(reference.service), m_rootManager);
        m_stretches.push_back({{}, made});
        container = made;
    }
    container->add(reference.typeId, reference.id, reference.subId);
    return KFR::ok;
}

KFRResult ReferenceList::addContainer(Container const& container)
{
    if (container == KFR::NULLSP) {
        return KFRResult(kNoContainer)
            .addParam("There is no container to add to the list of references.");
    }
    m_stretches.push_back({{}, container});
    return KFR::ok;
}

KFRSmartPointer<CAE::IEntityReferenceListInterface> ReferenceListFactory::createList()
{
    return KFR::make<ReferenceList>(ReferenceList::Kind::packed, m_rootManager);
}

KFRSmartPointer<CAE::IEntityReferenceListInterface> ReferenceListFactory::createOrderedList()
{
    return KFR::make<ReferenceList>(ReferenceList::Kind::ordered, m_rootManager);
}

}  // namespace vrn::orlo::host::model
