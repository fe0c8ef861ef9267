/// \file
/// The FE plug-in's services: entities of meshes, and what the user has set.

#pragma once

#include "host/model/propertytable.h"
#include "platform/fem/fementities.h"
#include "platform/kfr/kfrserviceobject.h"
#include "platform/registry/typeregistry.h"

#include <map>
#include <string>

namespace vrn::orlo::host::meshing {

/// Finds the entities of meshes, and makes the owners of their elements.
///
/// A surface mesh has an owner for triangles and one for quadrilaterals, whether it has such
/// elements or not; a solid mesh has one for solids. The owners' references have the mesh as their
/// service, its display type, and 1, 2 or 3 for the kind.
///
/// Failure    An entity of a mesh that is null or no entity; mesh data of null; owners that a mesh
///            of its dimension does not have: kNoOwner.
/// Ownership  Holds the meshes whose data was asked for, and their owners, until forget().
/// Threads    Main thread.
class FEMEntities final : public KFRServiceObjectImpl<plugin::fem::IFEMEntitiesInterface> {
public:
    explicit FEMEntities(
        KFRSmartPointer<KFR::Services::TypeRegistry::ITypeRegistryInterface> registry);

    KFRResult getEntity(KFRSmartPointer<CAE::IFEMeshInterface> const& mesh,
                        KFRSmartPointer<appfw::IEntityInterface>& entity) override;
    KFRResult getMeshData(KFRSmartPointer<CAE::IMeshInterface> const& mesh,
                          KFRSmartPointer<plugin::fem::IFEMeshDataInterface>& data) override;

    /// Lets go of a mesh and of the owners of its elements.
    void forget(KFRSmartPointer<CAE::IMeshInterface> const& mesh);

    std::string getObjectName() override { return "vrn.orlo.plugin.fem.FEMEntities"; }

private:
    KFRSmartPointer<KFR::Services::TypeRegistry::ITypeRegistryInterface> m_registry;
    std::map<long long, KFRSmartPointer<plugin::fem::IFEMeshDataInterface>> m_dataByMesh;
};

/// What the user has set for meshes.
///
/// Properties: "Nodes", whether nodes are shown; false at the start.
///
/// Failure    As EntityFailure says.
/// Threads    Main thread.
class FEMPropertyStore final : public KFRServiceObjectImpl<plugin::fem::IPropertyStoreInterface> {
public:
    FEMPropertyStore();

    KFRResult getProperty(std::string const& name, KFRAny& value) override;
    KFRResult setProperty(std::string const& name, KFRAny const& value);

private:
    model::PropertyTable m_properties;
};

/// Hands out the one store.
class FEMPluginManager final
    : public KFRServiceObjectImpl<plugin::fem::IFEMPluginManagerInterface> {
public:
    KFRResult getPropertyStore(
        KFRSmartPointer<plugin::fem::IPropertyStoreInterface>& store) override;
    [[nodiscard]] FEMPropertyStore& properties() noexcept { return *m_store; }

    std::string getObjectName() override { return "vrn.orlo.plugin.fem.FEMPluginPM"; }

private:
    KFRSmartPointer<FEMPropertyStore> m_store = KFR::make<FEMPropertyStore>();
};

}  // namespace vrn::orlo::host::meshing
