/// \file
/// Views of the platform that answer nothing, as bases for fakes: a test writes only the operations
/// that it is about.

#pragma once

#include "platform/caedata/caedata.h"
#include "platform/ddm/display3ddatamanager.h"
#include "platform/eom/eom.h"
#include "platform/geometry/geometryservice.h"
#include "platform/gsc/geometryserver.h"

#include <span>
#include <string>

namespace vrn::orlo::plugin::modeling::test::silent {

template <class I>
using P = KFRSmartPointer<I>;
using Ids = KFRSequence<unsigned long long>;

/// An operation that fails and writes nothing.
#define SAYS_NOTHING(operation, ...)          \
    KFRResult operation(__VA_ARGS__) override \
    {                                         \
        return KFR::notDone;                  \
    }

struct PersistentView : CAE::IPersistentObjectInterface {
    SAYS_NOTHING(getIdentifier, CAE::GUIDDATA&)
    SAYS_NOTHING(getParent, P<CAE::IPersistentObjectInterface>&)
    SAYS_NOTHING(isDeleted, bool&)
};

struct PartView : CAE::IPartInterface {
    SAYS_NOTHING(getMeshBodies, CAE::IMeshBodySequence&)
    SAYS_NOTHING(getInstances, CAE::IInstanceSequence&)
    SAYS_NOTHING(getMeshParts, CAE::IMeshPartSequence&)
    SAYS_NOTHING(getBodies, CAE::IPersistentObjectSequence&)
};

struct GeometryView : CAE::IGeometryInterface {
    SAYS_NOTHING(getPersistentName, std::string&)
    SAYS_NOTHING(getOwningBody, P<CAE::IGeometryInterface>&)
    SAYS_NOTHING(getDisplayEntity, CAE::EntityReference&, unsigned int&)
    SAYS_NOTHING(getNumber, int&)
    SAYS_NOTHING(getMeshes, CAE::IMeshSequence&)
    SAYS_NOTHING(isMeshed, bool&)
};

struct MeshView : CAE::IMeshInterface {
    SAYS_NOTHING(getDimension, unsigned char&)
    SAYS_NOTHING(getMeshBody, P<CAE::IMeshBodyInterface>&)
    SAYS_NOTHING(isContinuous, bool&)
    SAYS_NOTHING(getElementIds, Ids&)
    SAYS_NOTHING(isSurface, bool&)
};

struct FEMeshView : CAE::IFEMeshInterface {
    SAYS_NOTHING(getGeometry, P<CAE::IGeometryInterface>&)
};

struct ElementView : CAE::IElementInterface {
    SAYS_NOTHING(getId, unsigned long long&)
    SAYS_NOTHING(getNumber, int&)
    SAYS_NOTHING(getNodeCount, int&)
    SAYS_NOTHING(getShape, int&)
    SAYS_NOTHING(getNodes, CAE::INodeSequence&)
    SAYS_NOTHING(getMesh, P<CAE::IMeshInterface>&)
};

struct MeshBodyView : CAE::IMeshBodyInterface {
    SAYS_NOTHING(getMeshes, unsigned int, CAE::IMeshSequence&)
    SAYS_NOTHING(getElement, unsigned long long, P<CAE::IElementInterface>&, bool)
    SAYS_NOTHING(getMeshList, CAE::IMeshSequence&)
    SAYS_NOTHING(getElementIds, Ids&)
    SAYS_NOTHING(getNodeIds, Ids&)
    SAYS_NOTHING(getElementId, int, unsigned long long&)
    SAYS_NOTHING(getNodeId, int, unsigned long long&)
    SAYS_NOTHING(getGeomBody, P<CAE::IGeomBodyInterface>&)
};

struct MeshPartView : CAE::IMeshPartInterface {
    SAYS_NOTHING(getNodeById, unsigned long long, P<CAE::INodeInterface>&, bool)
    SAYS_NOTHING(getElementById, unsigned long long, P<CAE::IElementInterface>&, bool)
    SAYS_NOTHING(getElementNumbers, Ids const&, KFRSequence<unsigned int>&)
    SAYS_NOTHING(getNodeNumbers, Ids const&, KFRSequence<unsigned int>&)
    SAYS_NOTHING(getElementsConnectedTo, P<CAE::INodeInterface> const&, CAE::IElementSequence&)
    SAYS_NOTHING(getMeshBodies, CAE::IMeshBodySequence&)
    SAYS_NOTHING(getElementNodes, std::span<long long const>, CAE::ElementNodes&)
};

struct ModelView : CAE::IModelInterface {
    SAYS_NOTHING(getDesignPart, P<CAE::IPartInterface>&)
    SAYS_NOTHING(getNextAvaialbleNodeID, unsigned long long&)
};

struct EOMPartView : KFR::EOM::IEOMPartInterface {
    SAYS_NOTHING(getPersistentObject, P<CAE::IPersistentObjectInterface>&)
    SAYS_NOTHING(getInstances, KFR::EOM::IEOMInstanceSequence&)
    SAYS_NOTHING(getMeshParts, KFR::EOM::IEOMMeshPartSequence&)
    SAYS_NOTHING(getChild, std::string const&, P<KFR::EOM::IEOMObjectInterface>&)
};

struct EOMInstanceView : KFR::EOM::IEOMInstanceInterface {
    SAYS_NOTHING(getPart, KFRIService&)
    SAYS_NOTHING(getReferenceObject, P<KFR::EOM::IEOMObjectInterface>&)
};

struct DisplayView : ddm::KFRIDisplay3DDataManager {
    SAYS_NOTHING(clearHighlights, KFRSequence<int> const&)
    SAYS_NOTHING(getPickingSettings, P<ddm::KFRIPickingSettingAdapter>&)
    SAYS_NOTHING(getViewportAdapter, P<ddm::KFRIDisplayViewportAdapter>&)
};

struct QueryToolView : gsc::GSCIQueryTool {
    using Entity = P<gsc::KFRIVTKEntity>;
    SAYS_NOTHING(getEntity, int, Entity&)
    SAYS_NOTHING(getClass, int, int&)
    SAYS_NOTHING(getChildren, int, int, KFRSequence<int>&)
    SAYS_NOTHING(getParents, int, int, KFRSequence<int>&)
    SAYS_NOTHING(getBoundingBox, int, gsc::GSCPointStruct&, gsc::GSCPointStruct&)
    SAYS_NOTHING(getCurve, Entity const&, P<gsc::GSCICurve>&)
    SAYS_NOTHING(getSurface, Entity const&, P<gsc::GSCISurface>&)
    SAYS_NOTHING(getLeastDistance, Entity const&, Entity const&, gsc::GSCPointStruct&,
                 gsc::GSCPointStruct&)
    SAYS_NOTHING(getIntersections, Entity const&, Entity const&, gsc::GSCPointList&)
};

struct ModifyToolView : gsc::GSCIModifyTool {
    using Entity = P<gsc::KFRIVTKEntity>;
    SAYS_NOTHING(makeLine, gsc::GSCPointStruct const&, gsc::GSCVectorStruct const&, Entity&)
    SAYS_NOTHING(makeLineForFace, gsc::GSCPointStruct const&, gsc::GSCVectorStruct const&,
                 Entity const&, Entity&)
    SAYS_NOTHING(deleteEntity, Entity const&)
};

struct GeomSessionView : geometry::KFRIGeomSession {
    SAYS_NOTHING(getQueryTool, P<gsc::GSCIQueryTool>&)
    SAYS_NOTHING(getModifyTool, P<gsc::GSCIModifyTool>&)
    SAYS_NOTHING(getGeometry, int, P<CAE::IGeometryInterface>&)
    SAYS_NOTHING(getGeomBody, int, P<CAE::IGeomBodyInterface>&)
    SAYS_NOTHING(getPart, int, P<CAE::IPartInterface>&)
    SAYS_NOTHING(getTypeId, int, unsigned int&)
};

struct GeomCommonServiceView : geometry::KFRIGeomCommonService {
    SAYS_NOTHING(getSession, P<geometry::KFRIGeomSession>&)
    SAYS_NOTHING(getProgress, KFRIService&)
    SAYS_NOTHING(findInModel, P<CAE::IModelInterface> const&, int, CAE::EntityReference&)
};

#undef SAYS_NOTHING

}  // namespace vrn::orlo::plugin::modeling::test::silent
