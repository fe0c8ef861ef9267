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

void GeometryCommonService::addModel(KFRSmartPointer<CAE::IModelInterface> const& root,
                                     std::weak_ptr<GeometryStore> const& geometry)
{
    std::erase_if(m_models, [](auto const& row) { return row.second.expired(); });
    m_models.insert_or_assign(root->getInstanceID(), geometry);
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

KFRResult GeometryCommonService::getSession(
    KFRSmartPointer<plugin::geometry::KFRIGeomSession>& session)
{
    if (m_session == KFR::NULLSP) {
        return KFR::notDone;
    }
    session = m_session;
    return KFR::ok;
}

KFRResult GeometryCommonService::getProgress(KFRIService&)
{
    return KFR::notDone;
}

KFRResult GeometryCommonService::findInModel(KFRSmartPointer<CAE::IModelInterface> const& model,
                                             int number, CAE::EntityReference& reference)
{
    auto const row = model != KFR::NULLSP ? m_models.find(model->getInstanceID()) : m_models.end();
    auto const geometry = row != m_models.end() ? row->second.lock() : nullptr;
    if (geometry == nullptr || !geometry->exists(static_cast<unsigned>(number))) {
        return KFR::notDone;
    }
    reference = geometry->reference(static_cast<unsigned>(number));
    return KFR::ok;
}

}  // namespace vrn::orlo::host::model
