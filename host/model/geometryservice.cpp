#include "host/model/geometryservice.h"

#include <utility>

namespace vrn::orlo::host::model {

KFRResult GeometryDisplayService::getDisplayReference(CAE::EntityReference const& entity,
                                                      unsigned int number,
                                                      CAE::EntityReference& reference)
{
    auto const geometry = m_geometry.lock();
    unsigned const body = geometry != nullptr ? geometry->numberOf(entity) : 0;
    if (body == 0 || !geometry::isBodyClass(geometry->geometry().entity(body)->m_class) ||
        number > geometry->subEntityCount(body)) {
        return KFR::notDone;
    }
    reference = geometry->reference(body);
    return KFR::ok;
}

void GeometryCommonService::setModel(std::weak_ptr<GeometryStore> const& geometry)
{
    m_geometry = geometry;
    m_display->setModel(geometry);
}

KFRResult GeometryCommonService::getReferenceByName(std::string const& name,
                                                    CAE::EntityReference& reference)
{
    auto const geometry = m_geometry.lock();
    unsigned const number = geometry != nullptr ? geometry->numberOf(name) : 0;
    if (number == 0) {
        return KFR::notDone;
    }
    reference = geometry->reference(number);
    return KFR::ok;
}

KFRResult GeometryCommonService::getDisplayService(
    KFRSmartPointer<plugin::geometry::IGeometryDisplayServiceInterface>& service)
{
    service = m_display;
    return KFR::ok;
}

KFRResult GeometryCommonService::getSession(KFRSmartPointer<plugin::geometry::KFRIGeomSession>&)
{
    return KFR::notDone;
}

KFRResult GeometryCommonService::getProgress(KFRIService&)
{
    return KFR::notDone;
}

}  // namespace vrn::orlo::host::model
