#include "host/model/geometryobjects.h"

namespace vrn::orlo::host::model {

GeomBody::GeomBody(std::string persistentName, KFRSmartPointer<Part> part, unsigned int typeId,
                   unsigned int number, std::shared_ptr<EntityService> service)
    : GeometryOf(std::move(persistentName), part, KFR::NULLSP, 0, typeId, number,
                 std::move(service)),
      m_part(std::move(part))
{
}

KFRResult GeomBody::getMeshBodies(CAE::IMeshBodySequence& bodies)
{
    bodies = m_meshBodies.all();
    return KFR::ok;
}

KFRResult GeomBody::getPart(KFRSmartPointer<KFR::EOM::IEOMPartInterface>& part)
{
    part = m_part;
    return KFR::ok;
}

}  // namespace vrn::orlo::host::model
