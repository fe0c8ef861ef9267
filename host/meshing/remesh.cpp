#include "host/meshing/remesh.h"

namespace vrn::orlo::host::meshing {

KFRSmartPointer<MeshPart> meshPartOf(model::Part const& part)
{
    return KFRSmartPointer<MeshPart>(dynamic_cast<MeshPart*>(part.meshPart().get()));
}

KFRResult MeshReplacement::show(Store const& store)
{
    if (model::isDeleted(m_part)) {
        return KFRResult(model::kDeleted)
            .addParam(m_part->getObjectName() + " is deleted; its mesh stays as it is.");
    }
    static_cast<void>(m_meshPart->replace(store));
    return KFR::ok;
}

std::shared_ptr<MeshReplacement> installMesh(KFRSmartPointer<model::Part> const& part,
                                             std::shared_ptr<MeshStore const> store,
                                             MeshTypes const& types,
                                             std::shared_ptr<model::EntityService> const& service)
{
    if (part == KFR::NULLSP || model::isDeleted(part)) {
        return nullptr;
    }
    KFRSmartPointer<MeshPart> meshPart = meshPartOf(*part);
    if (meshPart == KFR::NULLSP) {
        auto const context =
            std::make_shared<MeshContext>(MeshContext{types, service, part->geometry()});
        MeshPart::Names const names{part->persistentName() + "/MeshPart",
                                    part->persistentName() + "/MeshBody"};
        meshPart = KFR::make<MeshPart>(*part, names, context, nullptr);
        part->setMeshPart(meshPart);
    }
    auto before = meshPart->replace(store);
    return std::make_shared<MeshReplacement>(part, meshPart, std::move(before), std::move(store));
}

}  // namespace vrn::orlo::host::meshing
