/// \file
/// Where elements, their faces and their nodes are, and which node ids are free.

#pragma once

#include "platform/caedata/caedata.h"
#include "platform/caedata/entityreference.h"
#include "platform/eom/eom.h"
#include "platform/kfr/arrayptr.h"
#include "platform/kfr/kfrrecords.h"
#include "platform/kfr/kfrresult.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

namespace vrn::orlo::plugin::modeling {

using KFR::DynamicArray::ArrayPtr1;

/// Questions about a mesh.
///
/// A location is the plain mean of all nodes. A normal comes from the first four nodes or, where
/// there are three, from those; of fewer it is zero. The forms for one element give it as the
/// product of two directions, the forms for lists of elements with length 1.
///
/// Units      The model's length unit, in coordinates of the part.
/// Shape      Lists: exactly one entry per id is appended to each sequence, zeros for an element
///            that is not there.
/// Order      Of the ids.
/// Failure    Void operations leave zeros. Operations with a status answer KFR::notDone without a
///            mesh part or a service, otherwise what the platform answered; nothing throws.
/// Threads    Main thread.
/// Cost       Lists are read in blocks, without an object per element.
class MODELING_API MeshHelper {
public:
    // Elements by external ids.

    static void getElemLocationAndNormal(KFRSmartPointer<CAE::IMeshPartInterface> const& meshPart,
                                         unsigned long long elementId, KFRDouble3DPoint& location,
                                         KFRDouble3DPoint& normal, KFRSequence<long long>& nodeIds);
    /// The last two arguments are not read; they are what callers pass.
    static void getElemLocNormal(KFRSmartPointer<CAE::IMeshPartInterface> const& meshPart,
                                 ArrayPtr1<long long> const& ids,
                                 KFRDouble3DPointSequence& locations,
                                 KFRDouble3DPointSequence& normals,
                                 KFRInt64SequenceSequence& nodeIds, int const& option,
                                 ArrayPtr1<long long> const& others);
    static void getElemLocations(KFRSmartPointer<CAE::IMeshPartInterface> const& meshPart,
                                 ArrayPtr1<long long>& ids, KFRDouble3DPointSequence& locations);
    static void getElemNormals(KFRSmartPointer<CAE::IMeshPartInterface> const& meshPart,
                               ArrayPtr1<long long>& ids, KFRDouble3DPointSequence& normals);
    static void getElemLocationsAndNormals(KFRSmartPointer<CAE::IMeshPartInterface> const& meshPart,
                                           ArrayPtr1<long long>& ids,
                                           KFRDouble3DPointSequence& locations,
                                           KFRDouble3DPointSequence& normals);

    /// An element by its reference.
    static void getElemLocNormal(CAE::EntityReference const& reference, KFRDouble3DPoint& location,
                                 KFRDouble3DPoint& normal);

    // Faces of elements. Face numbers count from 0.

    static KFRResult getElemFaceLocNormal(KFRSmartPointer<CAE::IMeshPartInterface> const& meshPart,
                                          unsigned long long elementId, int faceNumber,
                                          KFRDouble3DPoint& location, KFRDouble3DPoint& normal);
    static KFRResult getElemFaceLocNormal(KFRSmartPointer<CAE::IMeshPartInterface> const& meshPart,
                                          unsigned long long elementId, int faceNumber,
                                          KFRDouble3DPoint& location, KFRDouble3DPoint& normal,
                                          KFRSequence<long long>& nodeIds);
    /// A face by its reference, whose subId holds the face number in its low byte. Writes nothing
    /// for a reference to anything else.
    static void getElemFaceLocNormal(CAE::EntityReference const& reference,
                                     KFRDouble3DPoint& location, KFRDouble3DPoint& normal);

    // Nodes.

    /// Location and local number of a node, and the normal of the corners of an element.
    static KFRResult getNodeLocationAndNormal(
        KFRSmartPointer<CAE::IMeshPartInterface> const& meshPart, unsigned long long elementId,
        unsigned long long nodeId, unsigned long long& nodeNumber, KFRDouble3DPoint& location,
        KFRDouble3DPoint& normal);

    /// Centre and unit normal of each element on a geometry entity, as places for markers. Clears
    /// the sequences first. False where no elements lie on it: the caller takes the geometry then.
    static bool getDistributedPointsOnExistMesh(CAE::EntityReference reference,
                                                KFRDouble3DPointSequence& points,
                                                KFRDouble3DPointSequence& normals);
    /// The same, with the node ids of each element.
    static bool getDistributedPointsOnExistMesh(CAE::EntityReference reference,
                                                KFRDouble3DPointSequence& points,
                                                KFRDouble3DPointSequence& normals,
                                                KFRInt64SequenceSequence& nodeIds);

    /// An id that no node of the current model has.
    static KFRResult getNextAvailableNodeId(unsigned long long& id);
    /// An id that no node has of what stands in an instance.
    static KFRResult getNextAvailableNodeId(
        KFRSmartPointer<KFR::EOM::IEOMInstanceInterface> const& instance, unsigned long long& id);
    /// The wanted id where it is free; otherwise the next one, which need not follow it.
    static KFRResult getNextAvailableNodeId(
        KFRSmartPointer<KFR::EOM::IEOMInstanceInterface> const& instance, unsigned long long wanted,
        unsigned long long& id);
    /// Gives a point region its node number. Whatever the platform throws, the point stays as it
    /// was then.
    static void setEOMPointId(KFRSmartPointer<KFR::EOM::IEOMPointInterface>& point);

    /// The first node on a geometry entity, such as a vertex, as a reference.
    static KFRResult getNodeByGeometryId(int number, CAE::EntityReference& node);
    /// External ids of the nodes on a geometry entity and on what bounds it.
    static void getNodesByGeometryId(int number, KFRSequence<unsigned long long>& ids);
    /// The node of a point body, which may be named by its vertex.
    static KFRResult getNodeFromAcornBody(CAE::EntityReference const& body,
                                          CAE::EntityReference& node);
    /// The nodes of nodes, elements, faces of elements and meshed geometry, each once, in the order
    /// of their first coming. What has none adds none. Appended.
    static void getNodes(CAE::EntityReferenceSequence const& references,
                         CAE::EntityReferenceSequence& nodes);
    /// Whether a node has an element.
    static bool isConnectedNode(CAE::EntityReference const& node);

    // Objects.

    /// Null is not deleted.
    static bool isDeleted(KFRSmartPointer<CAE::IPersistentObjectInterface> const& object);
    static bool isNullOrDeleted(KFRSmartPointer<CAE::IPersistentObjectInterface> const& object);
    /// The mesh part of an instance, a part or anything in a part; a mesh part itself.
    static KFRSmartPointer<CAE::IMeshPartInterface> getMeshPart(KFRIService owner);
};

}  // namespace vrn::orlo::plugin::modeling
