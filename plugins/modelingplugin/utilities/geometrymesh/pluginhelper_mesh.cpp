#include "platform/appfw/appfw.h"
#include "platform/appfw/entity.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "plugins/modelingplugin/utilities/componentframe/validation.h"
#include "plugins/modelingplugin/utilities/geometrymesh/geometryaccess.h"
#include "plugins/modelingplugin/utilities/geometrymesh/geomtopo.h"
#include "plugins/modelingplugin/utilities/geometrymesh/idfilter.h"
#include "plugins/modelingplugin/utilities/geometrymesh/meshhelper.h"
#include "plugins/modelingplugin/utilities/identity/pluginhelper.h"
#include "plugins/modelingplugin/utilities/selection/selectfilter.h"

#include <utility>

namespace vrn::orlo::plugin::modeling {

using KFR::NULLSP;
using Ids = KFRSequence<unsigned long long>;
using Element = KFRSmartPointer<CAE::IElementInterface>;
using Geometry = KFRSmartPointer<CAE::IGeometryInterface>;
using Mesh = KFRSmartPointer<CAE::IMeshInterface>;
using MeshBody = KFRSmartPointer<CAE::IMeshBodyInterface>;
using MeshPart = KFRSmartPointer<CAE::IMeshPartInterface>;
using PersistentObject = KFRSmartPointer<CAE::IPersistentObjectInterface>;

namespace {

constexpr char const* kSource = "plugins/modelingplugin/utilities/pluginhelper";

bool isOfElement(CAE::EntityReference const& reference)
{
    return SelectFilter::isElement(reference) || SelectFilter::isElementFace(reference);
}

Element elementOf(CAE::EntityReference const& reference, MeshPart const& meshPart)
{
    Element element;
    if (meshPart != NULLSP && SelectFilter::isNode(reference)) {
        KFRSmartPointer<CAE::INodeInterface> node;
        CAE::IElementSequence elements;
        if (meshPart->getNodeById(reference.id, node, false).isOk() &&
            meshPart->getElementsConnectedTo(node, elements).isOk() && !elements.empty()) {
            element = std::as_const(elements)[0];
        }
    } else if (meshPart != NULLSP) {
        static_cast<void>(meshPart->getElementById(reference.id, element, false));
    }
    return element;
}

Mesh meshOf(Element const& element)
{
    Mesh mesh;
    if (element != NULLSP) {
        static_cast<void>(element->getMesh(mesh));
    }
    return mesh;
}

/// For what no mesh leads to: the body that has it.
MeshBody bodyThatHolds(CAE::EntityReference const& reference, CAE::IMeshPartInterface& meshPart)
{
    CAE::IMeshBodySequence bodies;
    static_cast<void>(meshPart.getMeshBodies(bodies));
    for (MeshBody const& body : std::as_const(bodies)) {
        if (body == NULLSP) {
            continue;
        }
        if (SelectFilter::isNode(reference)) {
            unsigned long long id = 0;
            if (body->getNodeId(static_cast<int>(reference.id), id).isOk()) {
                return body;
            }
        } else if (Element element;
                   body->getElement(reference.id, element, false).isOk() && element != NULLSP) {
            return body;
        }
    }
    return {};
}

bool hasElements(Mesh const& mesh)
{
    Ids ids;
    return !MeshHelper::isNullOrDeleted(KFR::loose_cast<CAE::IPersistentObjectInterface>(mesh)) &&
           mesh->getElementIds(ids).isOk() && !ids.empty();
}

CAE::IMeshSequence validMeshesOf(MeshBody const& body)
{
    CAE::IMeshSequence valid;
    CAE::IMeshSequence meshes;
    if (body != NULLSP) {
        static_cast<void>(body->getMeshList(meshes));
    }
    for (Mesh const& mesh : std::as_const(meshes)) {
        if (hasElements(mesh)) {
            valid.append(mesh);
        }
    }
    return valid;
}

CAE::IMeshBodySequence meshBodiesOf(KFRSmartPointer<CAE::IPartInterface> const& part)
{
    CAE::IMeshBodySequence bodies;
    if (part != NULLSP) {
        static_cast<void>(part->getMeshBodies(bodies));
    }
    return bodies;
}

/// The sub-meshes of a mesh that is continuous.
bool subMeshesOf(Mesh const& mesh, CAE::IMeshSequence& meshes)
{
    bool isContinuous = false;
    auto const continuous = KFR::loose_cast<CAE::IContinuousMeshInterface>(mesh);
    return continuous != NULLSP && mesh->isContinuous(isContinuous).isOk() && isContinuous &&
           continuous->getSubMeshes(meshes).isOk();
}

template <class I>
PersistentObject firstOf(KFRSequence<KFRSmartPointer<I>> const& objects)
{
    return objects.empty() ? PersistentObject()
                           : KFR::loose_cast<CAE::IPersistentObjectInterface>(objects[0]);
}

MeshBody persistentBodyOf(KFRSmartPointer<KFR::EOM::IEOMMeshBodyInterface> const& meshBody)
{
    PersistentObject object;
    if (meshBody != NULLSP) {
        static_cast<void>(meshBody->getPersistentObject(object));
    }
    return KFR::loose_cast<CAE::IMeshBodyInterface>(object);
}

}  // namespace

CAE::EntityReference PluginHelper::getDisplayEnityReference(Geometry const& geometry)
{
    GeomTopo const topo(geometry);
    unsigned int const typeId = topo.getTypeId();
    if (topo.getVTKId() == 0 || typeId == 0) {
        return {};
    }
    auto const part = KFR::loose_cast<CAE::IPersistentObjectInterface>(topo.getIPart());
    return {getPartInstancebyPart(part), typeId, static_cast<unsigned int>(topo.getVTKId()), 0};
}

MeshPart PluginHelper::getMeshPart(CAE::EntityReference const& reference)
{
    return MeshHelper::getMeshPart(reference.service);
}

MeshPart PluginHelper::getMeshPart(PersistentObject const& object)
{
    return MeshHelper::getMeshPart(object);
}

MeshPart PluginHelper::getMeshPartByNode(CAE::EntityReference const& reference)
{
    return SelectFilter::isNode(reference) || isOfElement(reference) ? getMeshPart(reference)
                                                                     : MeshPart();
}

MeshBody PluginHelper::getMeshBody(CAE::EntityReference const& reference)
{
    if (!SelectFilter::isNode(reference) && !isOfElement(reference)) {
        return KFR::loose_cast<CAE::IMeshBodyInterface>(getPFWObject(reference));
    }
    MeshPart const meshPart = getMeshPartByNode(reference);
    if (meshPart == NULLSP) {
        return {};
    }
    PersistentObject owner;
    auto const mesh =
        KFR::loose_cast<CAE::IPersistentObjectInterface>(meshOf(elementOf(reference, meshPart)));
    if (mesh != NULLSP) {
        static_cast<void>(mesh->getParent(owner));
    }
    auto const body = KFR::loose_cast<CAE::IMeshBodyInterface>(owner);
    return body != NULLSP ? body : bodyThatHolds(reference, *meshPart);
}

void PluginHelper::getMeshByElement(CAE::EntityReference const& reference, Mesh& mesh)
{
    // Elements of the persistence framework's own type are left out, and are meant to be.
    if (!isOfElement(reference) || SelectFilter::isPFWElement(reference)) {
        return;
    }
    if (Mesh const found = meshOf(elementOf(reference, getMeshPart(reference))); found != NULLSP) {
        mesh = found;
    }
}

PersistentObject PluginHelper::getMeshForGeometry(PersistentObject const& object)
{
    constexpr char const* kFunction =
        "vrn::orlo::plugin::modeling::PluginHelper::getMeshForGeometry";
    if (NULLSP == object) {
        validation("NULLSP != spObject", kSource, 1187, kFunction);
    }
    auto const geometry = KFR::loose_cast<CAE::IGeometryInterface>(object);
    if (NULLSP == geometry) {
        validation("NULLSP != spGeom", kSource, 1189, kFunction);
        return {};
    }
    CAE::IMeshSequence meshes;
    static_cast<void>(geometry->getMeshes(meshes));
    return firstOf(meshes);
}

PersistentObject PluginHelper::getMeshForGeometry(CAE::EntityReference const& reference)
{
    PersistentObject const object = getPFWObject(reference);
    if (!SelectFilter::isBody(reference)) {
        return getMeshForGeometry(object);
    }
    auto const body = KFR::loose_cast<CAE::IGeomBodyInterface>(object);
    CAE::IMeshBodySequence bodies;
    if (body != NULLSP) {
        static_cast<void>(body->getMeshBodies(bodies));
    }
    return firstOf(bodies);
}

Geometry PluginHelper::getMeshRelatedGeometry(CAE::EntityReference const& reference)
{
    KFRIService mesh;
    if (isOfElement(reference)) {
        mesh = meshOf(elementOf(reference, getMeshPartByNode(reference)));
    } else {
        mesh = getPFWObject(reference);
    }
    Geometry geometry;
    if (auto const feMesh = KFR::loose_cast<CAE::IFEMeshInterface>(mesh); feMesh != NULLSP) {
        static_cast<void>(feMesh->getGeometry(geometry));
    }
    return geometry;
}

CAE::EntityReference PluginHelper::getFaceByElement(CAE::EntityReference const& reference)
{
    if (!SelectFilter::is2DElement(reference)) {
        return {};
    }
    Geometry const geometry = getMeshRelatedGeometry(reference);
    return GeomTopo(geometry).isFace() ? getDisplayEnityReference(geometry)
                                       : CAE::EntityReference();
}

Ids PluginHelper::getValidElements(KFRSmartPointer<KFR::EOM::IEOMMeshBodyInterface> const& meshBody,
                                   Ids const& ids)
{
    Ids known;
    if (MeshBody const body = persistentBodyOf(meshBody); body != NULLSP) {
        static_cast<void>(body->getElementIds(known));
    }
    return keepKnown(ids, known);
}

Ids PluginHelper::getValidNodes(KFRSmartPointer<KFR::EOM::IEOMMeshBodyInterface> const& meshBody,
                                Ids const& ids)
{
    Ids known;
    if (MeshBody const body = persistentBodyOf(meshBody); body != NULLSP) {
        static_cast<void>(body->getNodeIds(known));
    }
    return keepKnown(ids, known);
}

CAE::IMeshBodySequence PluginHelper::getValidMeshBodySequence(
    KFRSmartPointer<CAE::IPartInterface> const& part)
{
    CAE::IMeshBodySequence valid;
    CAE::IMeshBodySequence const bodies = meshBodiesOf(part);
    for (MeshBody const& body : bodies) {
        if (!validMeshesOf(body).empty()) {
            valid.append(body);
        }
    }
    return valid;
}

unsigned int PluginHelper::getValidMeshBodyNumber(KFRSmartPointer<CAE::IPartInterface> const& part)
{
    return static_cast<unsigned int>(getValidMeshBodySequence(part).size());
}

unsigned int PluginHelper::getValidGeomBodyNumber(KFRSmartPointer<CAE::IPartInterface> const& part)
{
    CAE::IPersistentObjectSequence bodies;
    if (part != NULLSP) {
        static_cast<void>(part->getBodies(bodies));
    }
    unsigned int count = 0;
    for (PersistentObject const& object : std::as_const(bodies)) {
        auto const body = KFR::loose_cast<CAE::IGeomBodyInterface>(object);
        bool const isThere =
            body != NULLSP && !MeshHelper::isDeleted(object) && GeomTopo(body).isValidInGSC();
        count += isThere ? 1 : 0;
    }
    return count;
}

CAE::IMeshSequence PluginHelper::getValidMeshesofPart(
    KFRSmartPointer<CAE::IPartInterface> const& part)
{
    CAE::IMeshSequence meshes;
    CAE::IMeshBodySequence const bodies = meshBodiesOf(part);
    for (MeshBody const& body : bodies) {
        meshes.append(validMeshesOf(body));
    }
    return meshes;
}

KFRDouble3DPoint PluginHelper::getNodeLocation(CAE::EntityReference const& reference)
{
    MeshPart const meshPart = getMeshPartByNode(reference);
    KFRSmartPointer<CAE::INodeInterface> node;
    KFRDouble3DPoint location;
    if (meshPart != NULLSP && meshPart->getNodeById(reference.id, node, false).isOk() &&
        node != NULLSP) {
        static_cast<void>(node->getLocation(location));
    }
    return location;
}

bool PluginHelper::isSurfaceMesh(PersistentObject const& object)
{
    auto const mesh = KFR::loose_cast<CAE::IMeshInterface>(object);
    if (mesh == NULLSP) {
        return false;
    }
    unsigned char dimension = 0;
    if (mesh->getDimension(dimension).isOk() && dimension == 2) {
        return true;
    }
    bool isSurface = false;
    return mesh->isSurface(isSurface).isOk() && isSurface;
}

unsigned int PluginHelper::checkFaceMeshForBody(CAE::EntityReference const& reference)
{
    auto const wrapper = geometryaccess::meshWrapper();
    if (wrapper == NULLSP) {
        return 0;
    }
    unsigned int count = 0;
    for (GeomTopo const& face : GeomTopo(static_cast<int>(reference.id)).getChildFaces()) {
        KFRSmartPointer<CAE::IFEMeshInterface> mesh;
        bool const isCounted =
            wrapper->getMesh(face.getVTKId(), mesh).isOk() &&
            isSurfaceMesh(KFR::loose_cast<CAE::IPersistentObjectInterface>(mesh));
        count += isCounted ? 1 : 0;
    }
    return count;
}

int PluginHelper::getMeshDimension(CAE::IMeshSequence const& meshes)
{
    for (Mesh const& mesh : meshes) {
        if (MeshHelper::isNullOrDeleted(KFR::loose_cast<CAE::IPersistentObjectInterface>(mesh))) {
            continue;
        }
        if (CAE::IMeshSequence subMeshes; subMeshesOf(mesh, subMeshes)) {
            return getMeshDimension(subMeshes);
        }
        if (unsigned char dimension = 0; mesh->getDimension(dimension).isOk()) {
            return dimension;
        }
    }
    return -1;
}

void PluginHelper::getElementIdsfromMesh(CAE::IMeshSequence const& meshes,
                                         btree::btree_set<unsigned long long>& ids)
{
    for (Mesh const& mesh : meshes) {
        if (MeshHelper::isNullOrDeleted(KFR::loose_cast<CAE::IPersistentObjectInterface>(mesh))) {
            continue;
        }
        if (CAE::IMeshSequence subMeshes; subMeshesOf(mesh, subMeshes)) {
            getElementIdsfromMesh(subMeshes, ids);
            continue;
        }
        Ids own;
        static_cast<void>(mesh->getElementIds(own));
        // In their order each goes to the end, which is where the hint says.
        for (unsigned long long const id : std::as_const(own)) {
            ids.insert(ids.end(), id);
        }
    }
}

}  // namespace vrn::orlo::plugin::modeling
