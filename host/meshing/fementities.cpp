#include "host/meshing/fementities.h"

#include "host/meshing/meshobjects.h"
#include "host/model/entityobject.h"
#include "platform/typenames/femdisplay.h"

#include <array>
#include <utility>

namespace vrn::orlo::host::meshing {

using appfw::IEntityInterface;
using plugin::fem::IFEMeshDataInterface;

namespace {

enum OwnerKind : unsigned { kTriangles = 1, kQuads = 2, kSolids = 3 };

class MeshData final : public KFRServiceObjectImpl<IFEMeshDataInterface> {
public:
    MeshData(KFRSmartPointer<CAE::IMeshInterface> mesh, unsigned char dimension, unsigned typeId)
        : m_mesh(std::move(mesh)), m_dimension(dimension), m_typeId(typeId)
    {
    }

    KFRResult getTriangleOwner(KFRSmartPointer<IEntityInterface>& owner) override
    {
        return ownerOf(kTriangles, 2, owner);
    }
    KFRResult getQuadOwner(KFRSmartPointer<IEntityInterface>& owner) override
    {
        return ownerOf(kQuads, 2, owner);
    }
    KFRResult getSolidOwner(KFRSmartPointer<IEntityInterface>& owner) override
    {
        return ownerOf(kSolids, 3, owner);
    }

private:
    KFRResult ownerOf(OwnerKind kind, unsigned char dimension,
                      KFRSmartPointer<IEntityInterface>& owner)
    {
        if (m_dimension != dimension) {
            return kNoOwner;
        }
        KFRSmartPointer<IEntityInterface>& kept = m_owners.at(kind - 1);
        if (kept == KFR::NULLSP) {
            kept = KFR::make<model::EntityObject>(m_mesh, m_typeId, kind, nullptr);
        }
        owner = kept;
        return KFR::ok;
    }

    KFRSmartPointer<CAE::IMeshInterface> m_mesh;
    unsigned char m_dimension;
    unsigned m_typeId;
    std::array<KFRSmartPointer<IEntityInterface>, 3> m_owners;
};

}  // namespace

FEMEntities::FEMEntities(
    KFRSmartPointer<KFR::Services::TypeRegistry::ITypeRegistryInterface> registry)
    : m_registry(std::move(registry))
{
}

KFRResult FEMEntities::getEntity(KFRSmartPointer<CAE::IFEMeshInterface> const& mesh,
                                 KFRSmartPointer<IEntityInterface>& entity)
{
    auto const found = KFR::loose_cast<IEntityInterface>(mesh);
    if (found == KFR::NULLSP) {
        return model::kUnknownEntity;
    }
    entity = found;
    return KFR::ok;
}

KFRResult FEMEntities::getMeshData(KFRSmartPointer<CAE::IMeshInterface> const& mesh,
                                   KFRSmartPointer<IFEMeshDataInterface>& data)
{
    unsigned char dimension = 0;
    if (mesh == KFR::NULLSP || !mesh->getDimension(dimension).isOk()) {
        return kNoMesh;
    }
    auto& kept = m_dataByMesh[mesh->getInstanceID()];
    if (kept == KFR::NULLSP) {
        auto const& type = dimension == 2 ? typenames::kDisplay2DContinuousMesh
                                          : typenames::kDisplay3DContinuousMesh;
        kept = KFR::make<MeshData>(mesh, dimension, m_registry->getTypeId(type));
    }
    data = kept;
    return KFR::ok;
}

void FEMEntities::forget(KFRSmartPointer<CAE::IMeshInterface> const& mesh)
{
    if (mesh != KFR::NULLSP) {
        m_dataByMesh.erase(mesh->getInstanceID());
    }
}

FEMPropertyStore::FEMPropertyStore()
{
    m_properties.declare("Nodes", KFRAny(false));
}

KFRResult FEMPropertyStore::getProperty(std::string const& name, KFRAny& value)
{
    KFRAny const* const held = m_properties.find(name);
    if (held == nullptr) {
        return m_properties.unknown("the settings of meshes", name);
    }
    value = *held;
    return KFR::ok;
}

KFRResult FEMPropertyStore::setProperty(std::string const& name, KFRAny const& value)
{
    KFRResult const answer = m_properties.check("the settings of meshes", name, value);
    if (answer.isOk()) {
        m_properties.replace(name, value);
    }
    return answer;
}

KFRResult FEMPluginManager::getPropertyStore(
    KFRSmartPointer<plugin::fem::IPropertyStoreInterface>& store)
{
    store = m_store;
    return KFR::ok;
}

}  // namespace vrn::orlo::host::meshing
