#include "plugins/modelingplugin/utilities/selection/geomsubentrefmakeup.h"

#include "platform/appfw/entity.h"
#include "platform/eom/eom.h"
#include "platform/geometry/geometryservice.h"
#include "platform/servicecaches/servicecachemodelingplugin.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"

#include <string>
#include <tuple>

namespace vrn::orlo::plugin::modeling {

using appfw::IEntityInterface;
using KFR::NULLSP;

namespace {

using Geometry = KFRSmartPointer<CAE::IGeometryInterface>;
using GeometryService = KFRSmartPointer<geometry::IGeometryCommonServiceInterface>;

GeometryService geometryService()
{
    return KFR::strict_cast<geometry::IGeometryCommonServiceInterface>(
        ServiceHelper::getGeomCommonService());
}

/// The entity of the first place where the body's part stands; null when it stands nowhere.
KFRSmartPointer<IEntityInterface> firstInstanceOf(
    KFRSmartPointer<KFR::EOM::IEOMObjectInterface> const& body)
{
    auto const geomBody = KFR::loose_cast<KFR::EOM::IEOMGeomBodyInterface>(body);
    KFRSmartPointer<KFR::EOM::IEOMPartInterface> part;
    KFR::EOM::IEOMInstanceSequence instances;
    if (geomBody == NULLSP || !geomBody->getPart(part).isOk() || part == NULLSP ||
        !part->getInstances(instances).isOk() || instances.empty()) {
        return {};
    }
    return KFR::loose_cast<IEntityInterface>(instances[0]);
}

}  // namespace

void GeomSubEntRefMakeup::addGeometries(CAE::IGeometrySequence const& geometries)
{
    GeometryService const service = geometryService();
    if (service == NULLSP) {
        return;
    }
    for (Geometry const& item : geometries) {
        Geometry body;
        std::string name;
        CAE::EntityReference reference;
        if (item != NULLSP && item->getOwningBody(body).isOk() && body != NULLSP &&
            item->getPersistentName(name).isOk() &&
            service->getReferenceByName(name, reference).isOk()) {
            m_bodies[body][reference.typeId].append(reference.id);
        }
    }
}

void GeomSubEntRefMakeup::appendToEntRefSequence(appfw::IEntRefSequence& out)
{
    auto const objects = KFR::strict_cast<KFR::EOM::IEOMObjectFactoryInterface>(
        ServiceHelper::getEOMObjectFactory());
    auto const containers = KFR::strict_cast<appfw::IEntRefContainerFactoryInterface>(
        ServiceHelper::getIEntRefFactory());
    if (objects == NULLSP || containers == NULLSP) {
        return;
    }
    for (auto const& [body, idsByType] : m_bodies) {
        KFRSmartPointer<KFR::EOM::IEOMObjectInterface> object;
        static_cast<void>(
            objects->getEOMObject(KFR::loose_cast<CAE::IPersistentObjectInterface>(body), object));
        auto const bodyEntity = KFR::loose_cast<IEntityInterface>(object);
        auto const instance = firstInstanceOf(object);
        if (bodyEntity == NULLSP || instance == NULLSP) {
            continue;
        }
        // The body by its words, under the instance.
        constexpr int kEmpty = 1;
        CAE::EntityReference const words = bodyEntity->getEntityReference();
        auto const container = containers->create(instance->getEntityReference().service,
                                                  words.typeId, words.id, words.subId, kEmpty);
        if (container == NULLSP) {
            continue;
        }
        for (auto const& [typeId, ids] : idsByType) {
            static_cast<void>(container->addIds(typeId, ids, {}));
        }
        out.append(container);
    }
}

bool SubEntitiesCollector::ByReference::operator()(CAE::EntityReference const& left,
                                                   CAE::EntityReference const& right) const
{
    auto const keyOf = [](CAE::EntityReference const& reference) {
        long long const owner =
            reference.service != NULLSP ? reference.service->getInstanceID() : 0;
        return std::tuple(reference.id, reference.typeId, reference.subId, owner);
    };
    return keyOf(left) < keyOf(right);
}

void SubEntitiesCollector::addGeometries(CAE::IGeometrySequence const& geometries)
{
    GeometryService const service = geometryService();
    KFRSmartPointer<geometry::IGeometryDisplayServiceInterface> display;
    if (service != NULLSP) {
        static_cast<void>(service->getDisplayService(display));
    }
    if (display == NULLSP) {
        return;
    }
    for (Geometry const& item : geometries) {
        CAE::EntityReference entity;
        CAE::EntityReference shown;
        unsigned int number = 0;
        if (item != NULLSP && item->getDisplayEntity(entity, number).isOk() &&
            display->getDisplayReference(entity, number, shown).isOk()) {
            m_numbers[shown].append(number);
        }
    }
}

ddm::subEntitySequence SubEntitiesCollector::getSubEntities() const
{
    ddm::subEntitySequence entities;
    for (auto const& [reference, numbers] : m_numbers) {
        entities.append(
            {reference.service, reference.typeId, reference.id, reference.subId, numbers});
    }
    return entities;
}

}  // namespace vrn::orlo::plugin::modeling
