/// \file
/// One entity of the geometry server.

#pragma once

#include "platform/appfw/entity.h"
#include "platform/caedata/caedata.h"
#include "platform/deps/btree.h"
#include "platform/eom/eom.h"
#include "platform/gsc/geometryserver.h"
#include "platform/kfr/kfrrecords.h"
#include "platform/kfr/kfrresult.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <compare>
#include <vector>

namespace vrn::orlo::plugin::modeling {

using gsc::GSCPointList;
using gsc::GSCPointStruct;
using gsc::GSCVectorStruct;

/// Names a body, volume, face, edge, sub-edge or vertex by its number in the geometry server, and
/// answers what there is to ask about it. The one class that knows the server's class numbers.
///
/// Units      The model's length unit, in coordinates of the part; directions have length 1.
/// Shape      Children and parents ascend by number, each once.
/// Order      By number, as signed integers.
/// Failure    Nothing throws and nothing is reported. An entity, a service or a mesh that is not
///            there gives the empty answer of the type: false, null, 0, no members, -1 from the two
///            tryGet operations, KFR::notDone. Points that are handed in are then left as they
///            were.
/// Ownership  Keeps nothing but the number.
/// Threads    Any on which the platform's services may be called.
/// Cost       Four bytes. Every question looks its service up and asks it; code in a loop keeps
///            answers in locals.
class MODELING_API GeomTopo {
public:
    /// No entity.
    constexpr GeomTopo() = default;
    /// The number as it stands.
    constexpr GeomTopo(int vtkId) : m_vtkId(vtkId) {}  // NOLINT: a number is an entity here
    GeomTopo(KFRSmartPointer<CAE::IGeometryInterface> const& geometry);  // NOLINT: likewise
    GeomTopo(KFRSmartPointer<CAE::IGeomBodyInterface> const& body);      // NOLINT: likewise

    [[nodiscard]] constexpr int getVTKId() const { return m_vtkId; }
    friend constexpr auto operator<=>(GeomTopo const&, GeomTopo const&) = default;

    // What it is.

    /// 3, 2, 1 or 0 of a body; -1 for anything else.
    [[nodiscard]] int tryGetBodyDimension() const;
    /// The server's class number, of any entity; -1 without one.
    [[nodiscard]] int tryGetBodyType() const;
    [[nodiscard]] bool isBody() const { return tryGetBodyDimension() >= 0; }
    [[nodiscard]] bool is3DBody() const { return tryGetBodyDimension() == 3; }
    [[nodiscard]] bool is2DBody() const { return tryGetBodyDimension() == 2; }
    [[nodiscard]] bool is1DBody() const { return tryGetBodyDimension() == 1; }
    /// A point body.
    [[nodiscard]] bool isAcornBody() const { return tryGetBodyDimension() == 0; }
    [[nodiscard]] bool isSheetBody() const;
    [[nodiscard]] bool isFacetSheetBody() const;
    /// A body of facets, of whatever dimension.
    [[nodiscard]] bool isFacetBody() const;
    /// A volume.
    [[nodiscard]] bool isRegion() const;
    [[nodiscard]] bool isFace() const;
    [[nodiscard]] bool isEdge() const;
    [[nodiscard]] bool isSubEdge() const;
    [[nodiscard]] bool isVertex() const;

    [[nodiscard]] bool isValidInGSC() const;
    [[nodiscard]] bool isVirtual() const;
    /// Neither the entity nor what contains it is hidden.
    [[nodiscard]] bool isVisible() const;
    [[nodiscard]] bool isSuppressedEntity() const;
    [[nodiscard]] bool isStraingtLine() const;

    // What is around it.

    [[nodiscard]] std::vector<GeomTopo> getChildRegions() const;
    [[nodiscard]] std::vector<GeomTopo> getChildFaces() const;
    [[nodiscard]] std::vector<GeomTopo> getChildEdges() const;
    [[nodiscard]] std::vector<GeomTopo> getChildVertices() const;
    [[nodiscard]] std::vector<GeomTopo> getChildHardPoints() const;
    [[nodiscard]] std::vector<GeomTopo> getParentRegions() const;
    [[nodiscard]] std::vector<GeomTopo> getParentFaces() const;
    [[nodiscard]] std::vector<GeomTopo> getParentEdges() const;
    /// The body that it belongs to; of a body itself.
    [[nodiscard]] GeomTopo getParentBody() const;
    /// What an edge was split into, or of more the edges below.
    [[nodiscard]] std::vector<GeomTopo> getSubEdges() const;
    [[nodiscard]] std::vector<KFRSmartPointer<gsc::KFRIVTKEntity>> getSubEdgeEntities() const;

    /// Sets of faces that are connected over shared edges. Sets are in the order of their least
    /// faces, faces ascend; a face that is given twice comes once.
    /// Cost  One look at each face's edges.
    [[nodiscard]] static std::vector<std::vector<GeomTopo>> getContinuousFaces(
        std::vector<GeomTopo> const& faces);
    /// Nulls are left out.
    [[nodiscard]] static btree::btree_set<GeomTopo> toGTFaces(
        CAE::IGeometrySequence const& geometries);

    // The objects behind it.

    [[nodiscard]] KFRSmartPointer<CAE::IGeometryInterface> getIGeometry() const;
    /// The same; where the geometry session does not know it, by way of the current model.
    [[nodiscard]] KFRSmartPointer<CAE::IGeometryInterface> getIGeometryEx() const;
    /// Null for what is no body.
    [[nodiscard]] KFRSmartPointer<CAE::IGeomBodyInterface> getIGeomBody() const;
    /// The same; of what is no body the body that it belongs to.
    [[nodiscard]] KFRSmartPointer<CAE::IGeomBodyInterface> getIGeomBodyEx() const;
    [[nodiscard]] KFRSmartPointer<CAE::IPartInterface> getIPart() const;
    [[nodiscard]] KFRSmartPointer<appfw::IEntityInterface> getIEntity() const;
    /// The type registry's id of its kind.
    [[nodiscard]] unsigned int getTypeId() const;
    /// The entity and all below it, as objects of the object model, ascending by number. A body
    /// has faces, edges, vertices, hard points and sub-edges below it but no volumes, a face edges
    /// and hard points but no vertices. That is meant.
    [[nodiscard]] KFR::EOM::IEOMGeometrySequence getAuxGeometries() const;

    // Where it is.

    /// Of a face.
    [[nodiscard]] double getArea() const;
    /// Of an edge.
    [[nodiscard]] double getLength() const;
    /// Whether a face's surface or an edge's curve closes on itself.
    [[nodiscard]] bool getPeriodic() const;
    /// In the middle of the parameters of a face or an edge; of a vertex the point.
    bool getMidPoint(KFRDouble3DPoint& point) const;
    bool getPointOfVertex(KFRDouble3DPoint& point) const;
    bool getEndPointsOfEdge(KFRDouble3DPoint& start, KFRDouble3DPoint& end) const;
    /// Out of the body; of faces only.
    bool getNormal(KFRDouble3DPoint const& point, KFRDouble3DPoint& normal) const;
    /// A few points of a face, an edge or a vertex.
    bool getSeedPoints(KFRDouble3DPointSequence& points) const;
    /// The nearest point of a face or an edge.
    bool getProjectPoint(KFRDouble3DPoint const& point, KFRDouble3DPoint& projection) const;

    /// The point of a vertex, edge or face that is nearest to the line of sight through a pixel; of
    /// a face the first one on that line.
    KFRResult getNearestPoint(float screenX, float screenY, KFRDouble3DPoint& point) const;

    /// The nearest projection on any of the faces, with the face's normal there. A face that has no
    /// normal there is passed over, however near it is.
    static bool getNearestPointAndNormal(KFRDouble3DPoint const& point,
                                         std::vector<GeomTopo> const& faces,
                                         KFRDouble3DPoint& nearest, KFRDouble3DPoint& normal);

    /// Moves a point along a direction to about three diagonals of the entity's box before it,
    /// backwards where it stands nearer.
    static bool movePointCloseToFace(GSCPointStruct& point, GSCVectorStruct const& direction,
                                     int vtkId);
    /// Of the points within 0.1 degrees of the ray the one nearest to its origin; the first of all
    /// where there is none. False for an empty list.
    /// \param direction  of length 1
    static bool getBetterPointToEdge(GSCPointList const& points, GSCPointStruct const& origin,
                                     GSCVectorStruct const& direction, GSCPointStruct& out);

    // The mesh on it.

    /// The mesh body of the body that it belongs to.
    /// \param alsoByMesh  where that has none, the owner of the entity's own mesh
    [[nodiscard]] KFRSmartPointer<CAE::IMeshBodyInterface> getIMeshBody(
        bool alsoByMesh = false) const;
    [[nodiscard]] KFRSmartPointer<CAE::IContinuousMeshInterface> getContinuousMesh(
        unsigned char dimension) const;
    [[nodiscard]] KFRSmartPointer<CAE::IContinuousMeshInterface> get1DConMesh() const;
    [[nodiscard]] KFRSmartPointer<CAE::IContinuousMeshInterface> get2DConMesh() const;
    [[nodiscard]] KFRSmartPointer<CAE::IContinuousMeshInterface> get3DConMesh() const;
    /// The continuous mesh with elements on the entity itself; of an edge without one, that of a
    /// sub-edge.
    [[nodiscard]] KFRSmartPointer<CAE::IFEMeshInterface> getMesh() const;
    /// The elements on the entity itself.
    [[nodiscard]] KFRSmartPointer<CAE::IFEMeshInterface> getSubMesh() const;
    /// External ids; of a body those of its highest dimension.
    [[nodiscard]] KFRSequence<unsigned long long> getElementIds() const;
    /// The nodes on it and on what bounds it.
    [[nodiscard]] CAE::INodeSequence getNodes() const;
    [[nodiscard]] bool has2DMesh() const;
    [[nodiscard]] bool has3DMesh() const;
    /// Whether elements lie on the entity itself.
    [[nodiscard]] bool hasMesh() const;
    /// Whether nodes lie on it, be they of elements of its own or of a mesh that it bounds.
    [[nodiscard]] bool isMeshed() const;
    /// Whether every volume of a body has a mesh or, where there are none, every face. Of what is
    /// no body whether it has a mesh. A body of neither volumes nor faces lacks none.
    [[nodiscard]] bool isFullMeshed() const;

    /// The meshes of the geometry; without any those of its sub-edges; of a face without either
    /// those of its body.
    [[nodiscard]] CAE::IMeshSequence getAllGeometryRefMesh() const;
    /// The meshes of the geometry; of an edge without any those of the geometries on its curve.
    [[nodiscard]] CAE::IMeshSequence getIGeometryRefMesh() const;
    /// getAllGeometryRefMesh() of a body's vertices, edges or faces, by its dimension, one after
    /// the other with what comes twice; of anything else its own.
    [[nodiscard]] CAE::IMeshSequence getAuxMeshes() const;

private:
    [[nodiscard]] bool isOfClass(int entityClass) const;
    [[nodiscard]] std::vector<GeomTopo> children(int entityClass) const;
    [[nodiscard]] std::vector<GeomTopo> parents(int entityClass) const;

    int m_vtkId = 0;
};

}  // namespace vrn::orlo::plugin::modeling
