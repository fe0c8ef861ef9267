#include "plugins/modelingplugin/utilities/geometrymesh/geometryaccess.h"
#include "plugins/modelingplugin/utilities/geometrymesh/geomtopo.h"

#include <algorithm>

namespace vrn::orlo::plugin::modeling {

using KFR::NULLSP;

namespace {

using FEMesh = KFRSmartPointer<CAE::IFEMeshInterface>;

CAE::IMeshSequence meshesOf(KFRSmartPointer<CAE::IGeometryInterface> const& geometry)
{
    CAE::IMeshSequence meshes;
    if (geometry != NULLSP) {
        static_cast<void>(geometry->getMeshes(meshes));
    }
    return meshes;
}

bool areAllMeshed(std::vector<GeomTopo> const& topos)
{
    return std::all_of(topos.begin(), topos.end(),
                       [](GeomTopo const& topo) { return topo.hasMesh(); });
}

}  // namespace

KFRSmartPointer<CAE::IMeshBodyInterface> GeomTopo::getIMeshBody(bool alsoByMesh) const
{
    CAE::IMeshBodySequence bodies;
    if (auto const body = getIGeomBodyEx(); body != NULLSP) {
        static_cast<void>(body->getMeshBodies(bodies));
    }
    if (!bodies.empty()) {
        return bodies[0];
    }
    KFRSmartPointer<CAE::IMeshBodyInterface> owner;
    if (alsoByMesh) {
        auto const mesh = KFR::loose_cast<CAE::IMeshInterface>(getMesh());
        if (mesh != NULLSP) {
            static_cast<void>(mesh->getMeshBody(owner));
        }
    }
    return owner;
}

KFRSmartPointer<CAE::IContinuousMeshInterface> GeomTopo::getContinuousMesh(
    unsigned char dimension) const
{
    KFRSmartPointer<CAE::IContinuousMeshInterface> mesh;
    if (auto const wrapper = geometryaccess::meshWrapper(); wrapper != NULLSP) {
        static_cast<void>(wrapper->getContinuousMesh(m_vtkId, dimension, mesh));
    }
    return mesh;
}

KFRSmartPointer<CAE::IContinuousMeshInterface> GeomTopo::get1DConMesh() const
{
    return getContinuousMesh(1);
}

KFRSmartPointer<CAE::IContinuousMeshInterface> GeomTopo::get2DConMesh() const
{
    return getContinuousMesh(2);
}

KFRSmartPointer<CAE::IContinuousMeshInterface> GeomTopo::get3DConMesh() const
{
    return getContinuousMesh(3);
}

FEMesh GeomTopo::getMesh() const
{
    auto const wrapper = geometryaccess::meshWrapper();
    FEMesh mesh;
    if (wrapper == NULLSP || wrapper->getMesh(m_vtkId, mesh).isOk() || !isEdge()) {
        return mesh;
    }
    for (GeomTopo const& subEdge : getSubEdges()) {
        if (wrapper->getMesh(subEdge.m_vtkId, mesh).isOk()) {
            return mesh;
        }
    }
    return {};
}

FEMesh GeomTopo::getSubMesh() const
{
    FEMesh mesh;
    if (auto const wrapper = geometryaccess::meshWrapper(); wrapper != NULLSP) {
        static_cast<void>(wrapper->getSubMesh(m_vtkId, mesh));
    }
    return mesh;
}

KFRSequence<unsigned long long> GeomTopo::getElementIds() const
{
    auto mesh = KFR::loose_cast<CAE::IMeshInterface>(getSubMesh());
    if (mesh == NULLSP && isBody()) {
        mesh = KFR::loose_cast<CAE::IMeshInterface>(getMesh());
    }
    KFRSequence<unsigned long long> ids;
    if (mesh != NULLSP) {
        static_cast<void>(mesh->getElementIds(ids));
    }
    return ids;
}

CAE::INodeSequence GeomTopo::getNodes() const
{
    CAE::INodeSequence nodes;
    if (auto const wrapper = geometryaccess::meshWrapper(); wrapper != NULLSP) {
        static_cast<void>(wrapper->getNodes(m_vtkId, nodes));
    }
    return nodes;
}

bool GeomTopo::has2DMesh() const
{
    return get2DConMesh() != NULLSP;
}

bool GeomTopo::has3DMesh() const
{
    return get3DConMesh() != NULLSP;
}

bool GeomTopo::hasMesh() const
{
    return getMesh() != NULLSP;
}

bool GeomTopo::isMeshed() const
{
    auto const geometry = getIGeometry();
    bool answer = false;
    return geometry != NULLSP && geometry->isMeshed(answer).isOk() && answer;
}

bool GeomTopo::isFullMeshed() const
{
    if (!isBody()) {
        return hasMesh();
    }
    auto const volumes = getChildRegions();
    return areAllMeshed(volumes.empty() ? getChildFaces() : volumes);
}

CAE::IMeshSequence GeomTopo::getAllGeometryRefMesh() const
{
    auto const geometry = getIGeometry();
    if (geometryaccess::queryTool() == NULLSP || geometryaccess::commonService() == NULLSP ||
        geometry == NULLSP) {
        return {};
    }
    CAE::IMeshSequence meshes = meshesOf(geometry);
    if (!meshes.empty()) {
        return meshes;
    }
    for (auto const& subEdge : getSubEdgeEntities()) {
        int number = 0;
        if (subEdge->getNumber(number).isOk()) {
            meshes.append(meshesOf(GeomTopo(number).getIGeometry()));
        }
    }
    if (meshes.empty() && isFace()) {
        meshes = meshesOf(getParentBody().getIGeometry());
    }
    return meshes;
}

CAE::IMeshSequence GeomTopo::getIGeometryRefMesh() const
{
    CAE::IMeshSequence meshes = meshesOf(getIGeometry());
    auto const entity = geometryaccess::entity(m_vtkId);
    auto const curve = KFR::loose_cast<gsc::KFRIVTKCurve>(entity);
    if (!meshes.empty() || curve == NULLSP || KFR::loose_cast<gsc::KFRIVTKEdge>(entity) == NULLSP) {
        return meshes;
    }
    CAE::IGeometrySequence geometries;
    static_cast<void>(curve->getGeometries(geometries));
    for (auto const& geometry : std::as_const(geometries)) {
        meshes.append(meshesOf(geometry));
    }
    return meshes;
}

CAE::IMeshSequence GeomTopo::getAuxMeshes() const
{
    std::vector<GeomTopo> topos;
    switch (tryGetBodyDimension()) {
        case 0:
            topos = getChildVertices();
            break;
        case 1:
            topos = getChildEdges();
            break;
        case 2:
        case 3:
            topos = getChildFaces();
            break;
        default:
            return getAllGeometryRefMesh();
    }
    CAE::IMeshSequence meshes;
    for (GeomTopo const& topo : topos) {
        meshes.append(topo.getAllGeometryRefMesh());
    }
    return meshes;
}

}  // namespace vrn::orlo::plugin::modeling
