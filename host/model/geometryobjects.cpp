#include "host/model/geometryobjects.h"

namespace vrn::orlo::host::model {

GeomBody::GeomBody(std::string persistentName, KFRSmartPointer<Part> part, unsigned int typeId,
                   unsigned int number, std::shared_ptr<EntityService> service)
    : GeometryOf(std::move(persistentName), std::move(part), KFR::NULLSP, 0, typeId, number,
                 std::move(service))
{
}

KFRResult GeomBody::getMeshBodies(CAE::IMeshBodySequence& bodies)
{
    CAE::IMeshBodySequence found = m_meshBodies.all();
    if (auto const mesh = this->part()->mesh(); mesh != KFR::NULLSP) {
        found.append(mesh->bodiesOn(number()));
    }
    bodies = found;
    return KFR::ok;
}

KFRResult GeomBody::getPart(KFRSmartPointer<KFR::EOM::IEOMPartInterface>& part)
{
    part = this->part();
    return KFR::ok;
}

}  // namespace vrn::orlo::host::model
