/// \file
/// Conversions between the forms in which the application keeps a selection.

#pragma once

#include "platform/appfw/entity.h"
#include "platform/appfw/entref.h"
#include "platform/caedata/entityreferencelist.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

namespace vrn::orlo::plugin::modeling {

using appfw::IEntityInterface;

/// From any of four forms to any other: sequence of references, list object of references,
/// entities, list object of entities.
///
/// Order      That of the source; a list object may have one of its own.
/// Failure    Nothing is reported: what does not resolve is left out, so that an answer may be
///            shorter than the question. KFRSystemException for a service of another kind.
/// Threads    Main thread.
class MODELING_API EntConvert {
public:
    using ConstList = KFRSmartPointer<CAE::IEntityReferenceConstListInterface>;
    using List = KFRSmartPointer<CAE::IEntityReferenceListInterface>;
    using EntityList = KFRSmartPointer<appfw::IEntityListInterface>;

    CAE::EntityReferenceSequence toEntRefSeq(ConstList const& list);
    /// A null entity has the empty reference.
    CAE::EntityReferenceSequence toEntRefSeq(appfw::IEntities const& entities);

    appfw::IEntities toEntities(CAE::EntityReferenceSequence const& references);
    appfw::IEntities toEntities(ConstList const& list);

    EntityList toEntList(appfw::IEntities const& entities);
    EntityList toEntList(CAE::EntityReferenceSequence const& references);
    EntityList toEntList(ConstList const& list);

    List toEntRefList(CAE::EntityReferenceSequence const& references);
    List toEntRefList(appfw::IEntities const& entities);
    /// A list that keeps the order.
    List toOrderEntRefList(CAE::EntityReferenceSequence const& references);
    /// Many sub-entities of one owner, packed. An empty list without an owner or ids, and for an
    /// owner that is no entity.
    List toEntRefList(KFRIService const& owner, unsigned int typeId,
                      KFRSequence<unsigned int> const& ids,
                      KFRSequence<unsigned int> const& subIds);

    /// The entity of the container's first id; null without one.
    KFRSmartPointer<IEntityInterface> toEntity(
        KFRSmartPointer<appfw::IEntRefInterface> const& container);
};

}  // namespace vrn::orlo::plugin::modeling
