#include "plugins/modelingplugin/utilities/identity/entconvert.h"

#include "platform/eom/eom.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"

#include <optional>

namespace vrn::orlo::plugin::modeling {

using KFR::NULLSP;

namespace {

KFRSmartPointer<CAE::IEntityReferenceListFactoryInterface> listFactory()
{
    return KFR::strict_cast<CAE::IEntityReferenceListFactoryInterface>(
        ServiceHelper::getEntityRefListFactory());
}

EntConvert::List filled(EntConvert::List const& list,
                        CAE::EntityReferenceSequence const& references)
{
    if (list != NULLSP) {
        for (CAE::EntityReference const& reference : references) {
            static_cast<void>(list->add(reference));
        }
    }
    return list;
}

/// The reference of an owner that is an entity, or has one in the object model.
std::optional<CAE::EntityReference> referenceOf(KFRIService const& owner)
{
    auto entity = KFR::loose_cast<IEntityInterface>(owner);
    if (entity == NULLSP && KFR::loose_cast<KFR::EOM::IEOMObjectInterface>(owner) != NULLSP) {
        if (auto const manager = ServiceHelper::getRootManager(); manager != NULLSP) {
            entity = manager->getEntityOfObject(owner);
        }
    }
    return entity != NULLSP ? std::optional(entity->getEntityReference()) : std::nullopt;
}

}  // namespace

CAE::EntityReferenceSequence EntConvert::toEntRefSeq(ConstList const& list)
{
    CAE::EntityReferenceSequence references;
    auto const iterator = list != NULLSP
                              ? list->getIterator()
                              : KFRSmartPointer<CAE::IEntityReferenceIteratorInterface>();
    CAE::EntityReference reference;
    while (iterator != NULLSP && iterator->next(reference).isOk()) {
        references.append(reference);
    }
    return references;
}

CAE::EntityReferenceSequence EntConvert::toEntRefSeq(appfw::IEntities const& entities)
{
    CAE::EntityReferenceSequence references;
    references.reserve(entities.size());
    for (auto const& entity : entities) {
        references.append(entity != NULLSP ? entity->getEntityReference() : CAE::EntityReference());
    }
    return references;
}

appfw::IEntities EntConvert::toEntities(CAE::EntityReferenceSequence const& references)
{
    appfw::IEntities entities;
    auto const manager = ServiceHelper::getRootManager();
    if (manager == NULLSP) {
        return entities;
    }
    for (CAE::EntityReference const& reference : references) {
        if (auto const entity = manager->getEntity(reference); entity != NULLSP) {
            entities.append(entity);
        }
    }
    return entities;
}

appfw::IEntities EntConvert::toEntities(ConstList const& list)
{
    return toEntities(toEntRefSeq(list));
}

EntConvert::EntityList EntConvert::toEntList(appfw::IEntities const& entities)
{
    auto const manager = ServiceHelper::getRootManager();
    return manager != NULLSP ? manager->createEntityList(entities) : EntityList();
}

EntConvert::EntityList EntConvert::toEntList(CAE::EntityReferenceSequence const& references)
{
    return toEntList(toEntities(references));
}

EntConvert::EntityList EntConvert::toEntList(ConstList const& list)
{
    return toEntList(toEntities(toEntRefSeq(list)));
}

EntConvert::List EntConvert::toEntRefList(CAE::EntityReferenceSequence const& references)
{
    auto const factory = listFactory();
    return factory != NULLSP ? filled(factory->createList(), references) : List();
}

EntConvert::List EntConvert::toEntRefList(appfw::IEntities const& entities)
{
    return toEntRefList(toEntRefSeq(entities));
}

EntConvert::List EntConvert::toOrderEntRefList(CAE::EntityReferenceSequence const& references)
{
    auto const factory = listFactory();
    return factory != NULLSP ? filled(factory->createOrderedList(), references) : List();
}

EntConvert::List EntConvert::toEntRefList(KFRIService const& owner, unsigned int typeId,
                                          KFRSequence<unsigned int> const& ids,
                                          KFRSequence<unsigned int> const& subIds)
{
    List list = toEntRefList(CAE::EntityReferenceSequence());
    if (list == NULLSP || owner == NULLSP || ids.empty()) {
        return list;
    }
    auto const reference = referenceOf(owner);
    auto const factory = KFR::strict_cast<appfw::IEntRefContainerFactoryInterface>(
        ServiceHelper::getEntRefContainerFactory());
    if (!reference.has_value() || factory == NULLSP) {
        return list;
    }
    constexpr int kEmpty = 1;
    auto container = factory->find(owner, reference->typeId, reference->id, reference->subId);
    if (container == NULLSP) {
        container =
            factory->create(owner, reference->typeId, reference->id, reference->subId, kEmpty);
    }
    if (container != NULLSP) {
        static_cast<void>(container->addIds(typeId, ids, subIds));
        static_cast<void>(list->addContainer(container));
    }
    return list;
}

KFRSmartPointer<IEntityInterface> EntConvert::toEntity(
    KFRSmartPointer<appfw::IEntRefInterface> const& container)
{
    KFRSmartPointer<IEntityInterface> entity;
    KFRSequence<unsigned int> types;
    if (container == NULLSP || !container->getTypes(types).isOk()) {
        return entity;
    }
    for (unsigned int const type : types) {
        KFRSequence<unsigned int> ids;
        if (container->getIds(type, ids).isOk() && !ids.empty()) {
            static_cast<void>(container->getEntity(type, ids[0], entity));
            return entity;
        }
    }
    return entity;
}

}  // namespace vrn::orlo::plugin::modeling
