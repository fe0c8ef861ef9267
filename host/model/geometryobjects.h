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
          m_part(std::move(part)),
          m_body(std::move(body)),
          m_number(number),
          m_numberInBody(numberInBody)
    {
        if (m_body == KFR::NULLSP) {
            this->attach(m_part.get());
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

    KFRResult getNumber(int& number) override
    {
        number = static_cast<int>(m_number);
        return KFR::ok;
    }
    KFRResult getMeshes(CAE::IMeshSequence& meshes) override
    {
        auto const mesh = m_part->mesh();
        meshes = mesh != KFR::NULLSP ? mesh->meshesOn(m_number) : CAE::IMeshSequence();
        return KFR::ok;
    }
    KFRResult isMeshed(bool& meshed) override
    {
        auto const mesh = m_part->mesh();
        meshed = mesh != KFR::NULLSP && mesh->isMeshed(m_number);
        return KFR::ok;
    }

    std::string getObjectName() override { return "Geometry " + this->persistentName(); }

protected:
    [[nodiscard]] KFRSmartPointer<Part> const& part() const noexcept { return m_part; }
    [[nodiscard]] unsigned int number() const noexcept { return m_number; }

private:
    KFRSmartPointer<Part> m_part;
    BodyHandle m_body;
    unsigned int m_number;
    unsigned int m_numberInBody;
};

/// A volume, face, edge or vertex.
using Geometry = GeometryOf<>;

/// A body.
///
/// Ownership  Holds the mesh bodies that others gave it, as MeshBodies says; those of the part's mesh
///            it asks for.
class GeomBody final : public GeometryOf<CAE::IGeomBodyInterface, KFR::EOM::IEOMGeomBodyInterface,
                                         MeshBodyOwnerInterface> {
public:
    /// \param persistentName, typeId, number, service  as for ModelObjectOf
    GeomBody(std::string persistentName, KFRSmartPointer<Part> part, unsigned int typeId,
             unsigned int number, std::shared_ptr<EntityService> service);

    [[nodiscard]] MeshBodies& meshBodies() noexcept override { return m_meshBodies; }

    /// Those that others gave it, then those of the part's mesh.
    KFRResult getMeshBodies(CAE::IMeshBodySequence& bodies) override;
    KFRResult getPart(KFRSmartPointer<KFR::EOM::IEOMPartInterface>& part) override;

private:
    MeshBodies m_meshBodies;
};

}  // namespace vrn::orlo::host::model
