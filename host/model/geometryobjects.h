/// \file
/// The geometry of parts as objects: bodies and what they are made of.

#pragma once

#include "host/model/meshbodies.h"
#include "host/model/modelobject.h"
#include "host/model/parts.h"
#include "platform/caedata/caedata.h"
#include "platform/eom/eom.h"

#include <memory>
#include <string>
#include <utility>

namespace vrn::orlo::host::model {

/// A topological entity of a part. It stands in its body, and a body in its part.
///
/// Ownership  Holds the part and the body. Neither holds it, nor do they know of it.
/// \tparam Body  further interfaces of a body; none for the rest
template <class... Body>
class GeometryOf
    : public ModelObjectOf<CAE::IGeometryInterface, KFR::EOM::IEOMGeometryInterface, Body...> {
    using Base = ModelObjectOf<CAE::IGeometryInterface, KFR::EOM::IEOMGeometryInterface, Body...>;

public:
    using BodyHandle = KFRSmartPointer<CAE::IGeometryInterface>;

    /// \param body          null for a body
    /// \param numberInBody  from 1; 0 for a body
    /// \param persistentName, typeId, number, service  as for ModelObjectOf
    GeometryOf(std::string persistentName, KFRSmartPointer<Part> part, BodyHandle body,
               unsigned int numberInBody, unsigned int typeId, unsigned int number,
               std::shared_ptr<EntityService> service)
        : Base(std::move(persistentName), part, typeId, number, std::move(service)),
          m_body(std::move(body)),
          m_numberInBody(numberInBody)
    {
        if (m_body == KFR::NULLSP) {
            this->attach(part.get());
        } else {
            this->attach(KFR::strict_cast<CAE::IPersistentObjectInterface>(m_body).get());
        }
    }

    // Of both views of the geometry.
    KFRResult getPersistentName(std::string& name) override
    {
        name = this->persistentName();
        return KFR::ok;
    }
    KFRResult getOwningBody(KFRSmartPointer<CAE::IGeometryInterface>& body) override
    {
        body = m_body != KFR::NULLSP ? m_body : BodyHandle(this);
        return KFR::ok;
    }
    /// Bodies are what is displayed, so a body's number in itself is 0.
    KFRResult getDisplayEntity(CAE::EntityReference& entity, unsigned int& number) override
    {
        BodyHandle body;
        static_cast<void>(getOwningBody(body));
        entity = KFR::strict_cast<appfw::IEntityInterface>(body)->getEntityReference();
        number = m_numberInBody;
        return KFR::ok;
    }

    std::string getObjectName() override { return "Geometry " + this->persistentName(); }

private:
    BodyHandle m_body;
    unsigned int m_numberInBody;
};

/// A volume, face, edge or vertex.
using Geometry = GeometryOf<>;

/// A body.
///
/// Ownership  Holds its mesh bodies, as MeshBodies says.
class GeomBody final : public GeometryOf<CAE::IGeomBodyInterface, KFR::EOM::IEOMGeomBodyInterface,
                                         MeshBodyOwnerInterface> {
public:
    /// \param persistentName, typeId, number, service  as for ModelObjectOf
    GeomBody(std::string persistentName, KFRSmartPointer<Part> part, unsigned int typeId,
             unsigned int number, std::shared_ptr<EntityService> service);

    [[nodiscard]] MeshBodies& meshBodies() noexcept override { return m_meshBodies; }

    KFRResult getMeshBodies(CAE::IMeshBodySequence& bodies) override;
    KFRResult getPart(KFRSmartPointer<KFR::EOM::IEOMPartInterface>& part) override;

private:
    KFRSmartPointer<Part> m_part;
    MeshBodies m_meshBodies;
};

}  // namespace vrn::orlo::host::model
