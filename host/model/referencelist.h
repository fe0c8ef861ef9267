/// \file
/// List objects of references.

#pragma once

#include "host/model/referencecontainer.h"
#include "platform/caedata/entityreferencelist.h"
#include "platform/kfr/kfrserviceobject.h"

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace vrn::orlo::host::model {

/// A list of references: as they come, or packed into one container per owner.
///
/// Order      Ordered: as added, duplicates and containers included. Packed: owners and added
///            containers as they came first, within an owner types as they came first, within a
///            type ids as added, duplicates included.
/// Failure    As ReferenceFailure says, with outputs as they were.
/// Ownership  Holds what is added. Containers are handed out as they are: ids that are added to one
///            are in the list. A reference is never put into a container that came from outside.
/// Threads    Main thread.
/// Cost       Adding: constant, whatever the kind. A packed reference takes four bytes, see
///            ReferenceContainer, and an ordered one its full size.
class ReferenceList final : public KFRServiceObjectImpl<CAE::IEntityReferenceListInterface> {
public:
    using Container = KFRSmartPointer<appfw::IEntRefInterface>;
    enum class Kind { ordered, packed };

    /// \param rootManager  for the containers that the list makes
    ReferenceList(Kind kind, ReferenceContainer::RootManager rootManager)
        : m_kind(kind), m_rootManager(std::move(rootManager))
    {
    }

    /// Reads the list as it is now; of a container, what is in it when its turn comes.
    KFRSmartPointer<CAE::IEntityReferenceIteratorInterface> getIterator() override;
    /// Fails for an ordered list with a reference that was added as such.
    KFRResult getContainers(appfw::IEntRefSequence& containers) override;
    KFRResult add(CAE::EntityReference const& reference) override;
    /// The container stays one of its own, also beside others of the same owner. Fails for null.
    KFRResult addContainer(Container const& container) override;

    std::string getObjectName() override { return "vrn.orlo.host.model:ReferenceList"; }

    /// A stretch of the list: references, or a container.
    struct Stretch {
        CAE::EntityReferenceSequence m_references;
        Container m_container;  // null for a stretch of references
    };

private:
    Kind m_kind;
    ReferenceContainer::RootManager m_rootManager;
    std::vector<Stretch> m_stretches;
    std::unordered_map<long long, KFRSmartPointer<ReferenceContainer>> m_byOwner;  // packed only
};

/// Makes lists.
///
/// Threads    Main thread.
class ReferenceListFactory final
    : public KFRServiceObjectImpl<CAE::IEntityReferenceListFactoryInterface> {
public:
    /// \param rootManager  for the containers of the lists
    explicit ReferenceListFactory(ReferenceContainer::RootManager rootManager)
        : m_rootManager(std::move(rootManager))
    {
    }

    /// A packed list.
    KFRSmartPointer<CAE::IEntityReferenceListInterface> createList() override;
    KFRSmartPointer<CAE::IEntityReferenceListInterface> createOrderedList() override;

    std::string getObjectName() override { return "vrn.orlo.host.model:ReferenceListFactory"; }

private:
    ReferenceContainer::RootManager m_rootManager;
};

}  // namespace vrn::orlo::host::model
