/// \file
/// FE plug-in: entities of meshes, and its manager.

#pragma once

#include "platform/appfw/entity.h"
#include "platform/caedata/caedata.h"
#include "platform/kfr/kfrany.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsmartpointer.h"

#include <string>

namespace vrn::orlo::plugin::fem {

/// The element tables of a mesh: the display keeps triangles, quadrilaterals and solids apart, each
/// with an owner of its own.
///
/// Failure    What a mesh does not have: a failure, with the argument as it was.
class IFEMeshDataInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.plugin.fem.IFEMeshData")

    virtual KFRResult getTriangleOwner(KFRSmartPointer<appfw::IEntityInterface>& owner) = 0;
    virtual KFRResult getQuadOwner(KFRSmartPointer<appfw::IEntityInterface>& owner) = 0;
    virtual KFRResult getSolidOwner(KFRSmartPointer<appfw::IEntityInterface>& owner) = 0;
};

class IFEMEntitiesInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.plugin.fem.IFEMEntities")

    virtual KFRResult getEntity(KFRSmartPointer<CAE::IFEMeshInterface> const& mesh,
                                KFRSmartPointer<appfw::IEntityInterface>& entity) = 0;
    virtual KFRResult getMeshData(KFRSmartPointer<CAE::IMeshInterface> const& mesh,
                                  KFRSmartPointer<IFEMeshDataInterface>& data) = 0;
};

/// What the user has set for the plug-in.
class IPropertyStoreInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.plugin.fem.IPropertyStore")

    virtual KFRResult getProperty(std::string const& name, KFRAny& value) = 0;
};

class IFEMPluginManagerInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.plugin.fem.IFEMPluginManager")

    virtual KFRResult getPropertyStore(KFRSmartPointer<IPropertyStoreInterface>& store) = 0;
};

}  // namespace vrn::orlo::plugin::fem
