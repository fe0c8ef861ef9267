/// \file
/// Questions about the model that have no home of their own.

#pragma once

#include "platform/caedata/caedata.h"
#include "platform/caedata/entityreference.h"
#include "platform/deps/btree.h"
#include "platform/eom/eom.h"
#include "platform/kfr/kfrrecords.h"
#include "platform/kfr/kfrsequence.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

namespace vrn::orlo::plugin::modeling {

/// Ways from one object of the model to another, and what there is to know of them.
///
/// Units      Locations: the model's length unit, in coordinates of the part.
/// Failure    What cannot be found is null, empty or 0. Where a precondition is noted, the note
///            goes to the validation log and the answer is the empty one.
/// Threads    Main thread.
class MODELING_API PluginHelper {
public:
    PluginHelper() = delete;

    /// The part that contains an object, however deep; a part itself. Null for an object that is
    /// in none.
    static KFRSmartPointer<CAE::IPersistentObjectInterface> getPart(
        KFRSmartPointer<CAE::IPersistentObjectInterface> const& object);
    static KFRSmartPointer<CAE::IPersistentObjectInterface> getPart(
        KFRSmartPointer<CAE::IMeshBodyInterface> const& body);
    /// The part that holds what a reference names; of an instance the part that it places.
    static KFRSmartPointer<CAE::IPersistentObjectInterface> getPart(
        CAE::EntityReference const& reference);

    /// The first place where a part stands.
    static KFRSmartPointer<CAE::IInstanceInterface> getPartInstancebyPart(
        KFRSmartPointer<CAE::IPersistentObjectInterface> const& part);

    /// The object of the object model that stands for a persistent one.
    static KFRSmartPointer<KFR::EOM::IEOMObjectInterface> pfwObject2EOMObject(
        KFRSmartPointer<CAE::IPersistentObjectInterface> const& object);
    /// The persistent object that a reference names.
    static KFRSmartPointer<CAE::IPersistentObjectInterface> getPFWObject(
        CAE::EntityReference const& reference);
    /// The reference under which a geometry is picked: its part's first instance and its number.
    /// The empty one for a geometry without a number or a type.
    static CAE::EntityReference getDisplayEnityReference(
        KFRSmartPointer<CAE::IGeometryInterface> const& geometry);

    // Meshes and what holds them.

    /// The mesh part of a reference's owner: of an instance that of the part that it places, of a
    /// part the first one.
    static KFRSmartPointer<CAE::IMeshPartInterface> getMeshPart(
        CAE::EntityReference const& reference);
    static KFRSmartPointer<CAE::IMeshPartInterface> getMeshPart(
        KFRSmartPointer<CAE::IPersistentObjectInterface> const& object);
    /// The same for nodes, elements and faces of elements; null for any other reference.
    static KFRSmartPointer<CAE::IMeshPartInterface> getMeshPartByNode(
        CAE::EntityReference const& reference);

    /// The mesh body of a node, an element or a face of an element; of any other reference the
    /// mesh body that it names.
    static KFRSmartPointer<CAE::IMeshBodyInterface> getMeshBody(
        CAE::EntityReference const& reference);
    /// The mesh of an element of 1, 2 or 3 dimensions or of a face of one. Left alone for any other
    /// reference.
    static void getMeshByElement(CAE::EntityReference const& reference,
                                 KFRSmartPointer<CAE::IMeshInterface>& mesh);
    /// The first mesh of a geometry. The precondition that there is a geometry is noted.
    static KFRSmartPointer<CAE::IPersistentObjectInterface> getMeshForGeometry(
        KFRSmartPointer<CAE::IPersistentObjectInterface> const& object);
    /// The same; of a body its first mesh body.
    static KFRSmartPointer<CAE::IPersistentObjectInterface> getMeshForGeometry(
        CAE::EntityReference const& reference);
    /// What the mesh of an element, or a mesh, lies on.
    static KFRSmartPointer<CAE::IGeometryInterface> getMeshRelatedGeometry(
        CAE::EntityReference const& reference);
    /// The face that a surface element lies on, as getDisplayEnityReference() gives it.
    static CAE::EntityReference getFaceByElement(CAE::EntityReference const& reference);

    /// Those of the external ids that the mesh body has, in the order given and as often.
    /// Cost  Reads all ids of the body: for whole selections, not for one id at a time.
    static KFRSequence<unsigned long long> getValidElements(
        KFRSmartPointer<KFR::EOM::IEOMMeshBodyInterface> const& meshBody,
        KFRSequence<unsigned long long> const& ids);
    static KFRSequence<unsigned long long> getValidNodes(
        KFRSmartPointer<KFR::EOM::IEOMMeshBodyInterface> const& meshBody,
        KFRSequence<unsigned long long> const& ids);

    /// The mesh bodies of a part that have a mesh with elements.
    static CAE::IMeshBodySequence getValidMeshBodySequence(
        KFRSmartPointer<CAE::IPartInterface> const& part);
    static unsigned int getValidMeshBodyNumber(KFRSmartPointer<CAE::IPartInterface> const& part);
    /// How many geometry bodies of a part are there.
    static unsigned int getValidGeomBodyNumber(KFRSmartPointer<CAE::IPartInterface> const& part);
    /// The meshes with elements of a part's mesh bodies.
    static CAE::IMeshSequence getValidMeshesofPart(
        KFRSmartPointer<CAE::IPartInterface> const& part);

    /// The origin for a node that is not there.
    static KFRDouble3DPoint getNodeLocation(CAE::EntityReference const& reference);

    /// A mesh of dimension 2, or one that says that it covers a surface.
    static bool isSurfaceMesh(KFRSmartPointer<CAE::IPersistentObjectInterface> const& object);
    /// How many faces of a body have a surface mesh.
    static unsigned int checkFaceMeshForBody(CAE::EntityReference const& reference);
    /// The dimension of the first mesh that answers, of a continuous one that of its sub-meshes;
    /// -1 where none does. Deleted meshes are passed over.
    static int getMeshDimension(CAE::IMeshSequence const& meshes);
    /// Adds the external ids of all meshes that are not deleted.
    static void getElementIdsfromMesh(CAE::IMeshSequence const& meshes,
                                      btree::btree_set<unsigned long long>& ids);
};

}  // namespace vrn::orlo::plugin::modeling
