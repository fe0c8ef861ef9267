/// \file
/// Persistence framework: meshes, their elements and nodes.
///
/// A node or an element has an external id of 64 bits, which the user and the solver see, and a
/// local number of 32 bits within its part, which references carry. Both count from 1.

#pragma once

#include "platform/kfr/kfrrecords.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsequence.h"
#include "platform/kfr/kfrsmartpointer.h"

#include <cstddef>
#include <span>
#include <vector>

namespace KFR::PersistenceFW::CAEData {

class IElementInterface;
class IGeomBodyInterface;
class IGeometryInterface;
class IMeshBodyInterface;
class IMeshInterface;

class INodeInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.INode")

    /// The external id.
    virtual KFRResult getId(unsigned long long& id) = 0;
    /// The local number.
    virtual KFRResult getNumber(int& number) = 0;
    /// In coordinates of the part.
    virtual KFRResult getLocation(KFRDouble3DPoint& location) = 0;
};

using INodeSequence = KFRSequence<KFRSmartPointer<INodeInterface>>;

class IElementInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.IElement")

    /// The external id.
    virtual KFRResult getId(unsigned long long& id) = 0;
    /// The local number.
    virtual KFRResult getNumber(int& number) = 0;
    virtual KFRResult getNodeCount(int& count) = 0;
    /// 0 line, 1 triangle, 2 quadrilateral, any other a solid.
    virtual KFRResult getShape(int& shape) = 0;
    /// Corners first, then the nodes in the middle of sides.
    virtual KFRResult getNodes(INodeSequence& nodes) = 0;
    /// The sub-mesh that holds the element, or the mesh where there are none.
    virtual KFRResult getMesh(KFRSmartPointer<IMeshInterface>& mesh) = 0;
};

using IElementSequence = KFRSequence<KFRSmartPointer<IElementInterface>>;
using IMeshSequence = KFRSequence<KFRSmartPointer<IMeshInterface>>;
using IMeshBodySequence = KFRSequence<KFRSmartPointer<IMeshBodyInterface>>;

/// Elements of one dimension.
class IMeshInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.IMesh")

    virtual KFRResult getDimension(unsigned char& dimension) = 0;
    virtual KFRResult getMeshBody(KFRSmartPointer<IMeshBodyInterface>& body) = 0;
    /// Whether the mesh is the union of sub-meshes; the object is an IContinuousMeshInterface then.
    virtual KFRResult isContinuous(bool& continuous) = 0;
    /// External ids in the order of the local numbers.
    virtual KFRResult getElementIds(KFRSequence<unsigned long long>& ids) = 0;
    /// Whether the mesh covers a surface, whatever its dimension.
    virtual KFRResult isSurface(bool& surface) = 0;
};

/// A finite-element mesh; the object is an IMeshInterface as well.
class IFEMeshInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.IFEMesh")

    /// What the mesh lies on. Fails for a mesh without geometry.
    virtual KFRResult getGeometry(KFRSmartPointer<IGeometryInterface>& geometry) = 0;
};

/// All elements of one dimension of a mesh body; the object is an IMeshInterface as well.
class IContinuousMeshInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.IContinuousMesh")

    /// One per geometry entity that has elements of the dimension.
    virtual KFRResult getSubMeshes(IMeshSequence& meshes) = 0;
};

/// The mesh of a geometry body, or one without geometry.
class IMeshBodyInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.IMeshBody")

    /// The meshes of a type.
    virtual KFRResult getMeshes(unsigned int typeId, IMeshSequence& meshes) = 0;
    /// \param id    external id where `flag` is true, local number where it is false
    virtual KFRResult getElement(unsigned long long id, KFRSmartPointer<IElementInterface>& element,
                                 bool flag) = 0;
    /// The continuous meshes by ascending dimension; none is no failure.
    virtual KFRResult getMeshList(IMeshSequence& meshes) = 0;
    /// External ids in the order of the local numbers.
    virtual KFRResult getElementIds(KFRSequence<unsigned long long>& ids) = 0;
    virtual KFRResult getNodeIds(KFRSequence<unsigned long long>& ids) = 0;
    /// External ids of local numbers.
    virtual KFRResult getElementId(int number, unsigned long long& id) = 0;
    virtual KFRResult getNodeId(int number, unsigned long long& id) = 0;
    /// What the mesh body lies on. Fails for one without geometry.
    virtual KFRResult getGeomBody(KFRSmartPointer<IGeomBodyInterface>& body) = 0;
};

/// The nodes of many elements, one element after the other. A buffer that is passed again keeps its
/// memory.
struct ElementNodes {
    std::vector<std::size_t> m_first;           ///< Where each element begins, and the end.
    std::vector<long long> m_ids;               ///< External ids.
    std::vector<KFRDouble3DPoint> m_locations;  ///< In step with m_ids.
};

/// The nodes and elements of a part, across its mesh bodies.
class IMeshPartInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.IMeshPart")

    /// \param id    external id where `flag` is true, local number where it is false
    virtual KFRResult getNodeById(unsigned long long id, KFRSmartPointer<INodeInterface>& node,
                                  bool flag) = 0;
    /// \param id    as for getNodeById()
    virtual KFRResult getElementById(unsigned long long id,
                                     KFRSmartPointer<IElementInterface>& element, bool flag) = 0;
    /// Local numbers of external ids in the order of the ids. Ids that are not there are left out.
    virtual KFRResult getElementNumbers(KFRSequence<unsigned long long> const& ids,
                                        KFRSequence<unsigned int>& numbers) = 0;
    virtual KFRResult getNodeNumbers(KFRSequence<unsigned long long> const& ids,
                                     KFRSequence<unsigned int>& numbers) = 0;
    /// By ascending local number; none is no failure.
    virtual KFRResult getElementsConnectedTo(KFRSmartPointer<INodeInterface> const& node,
                                             IElementSequence& elements) = 0;
    virtual KFRResult getMeshBodies(IMeshBodySequence& bodies) = 0;
    /// Nodes of elements by their external ids. An element that is not there has none.
    virtual KFRResult getElementNodes(std::span<long long const> elementIds,
                                      ElementNodes& nodes) = 0;
};

using IMeshPartSequence = KFRSequence<KFRSmartPointer<IMeshPartInterface>>;

}  // namespace KFR::PersistenceFW::CAEData
