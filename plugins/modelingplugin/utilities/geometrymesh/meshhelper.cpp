#include "plugins/modelingplugin/utilities/geometrymesh/meshhelper.h"

#include "platform/muc/meshutilities.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "plugins/modelingplugin/utilities/geometrymesh/elementgeometry.h"
#include "plugins/modelingplugin/utilities/geometrymesh/geomtopo.h"
#include "plugins/modelingplugin/utilities/identity/pluginhelper.h"
#include "plugins/modelingplugin/utilities/selection/selectfilter.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace vrn::orlo::plugin::modeling {

using KFR::NULLSP;
using Element = KFRSmartPointer<CAE::IElementInterface>;
using MeshPart = KFRSmartPointer<CAE::IMeshPartInterface>;
using Points = std::vector<KFRDouble3DPoint>;

namespace {

/// The nodes of a block of elements stay in the processor's cache.
constexpr std::size_t kBlock = 1024;

/// Calls `use` with the nodes of each element: external ids and locations.
template <class Use>
void forEachElement(MeshPart const& meshPart, ArrayPtr1<long long> const& ids, Use const& use)
{
    CAE::ElementNodes nodes;
    std::span<long long const> const all(ids.data(), ids.size());
    for (std::size_t begin = 0; begin < all.size(); begin += kBlock) {
        auto const block = all.subspan(begin, std::min(kBlock, all.size() - begin));
        bool const isRead = meshPart != NULLSP && meshPart->getElementNodes(block, nodes).isOk() &&
                            nodes.m_first.size() == block.size() + 1;
        for (std::size_t i = 0; i < block.size(); ++i) {
            std::size_t const first = isRead ? nodes.m_first[i] : 0;
            std::size_t const count = isRead ? nodes.m_first[i + 1] - first : 0;
            use(std::span<long long const>(nodes.m_ids).subspan(first, count),
                std::span<KFRDouble3DPoint const>(nodes.m_locations).subspan(first, count));
        }
    }
}

/// Room at the end of a sequence for one entry per id.
template <class T>
T* extend(KFRSequence<T>& sequence, std::size_t count)
{
    std::size_t const before = sequence.size();
    sequence.resize(before + count);
    return sequence.data() + before;
}

/// Up to `most` nodes of an element.
Points locationsOf(Element const& element, std::size_t most = static_cast<std::size_t>(-1))
{
    CAE::INodeSequence nodes;
    if (element != NULLSP) {
        static_cast<void>(element->getNodes(nodes));
    }
    Points points;
    for (auto const& node : std::as_const(nodes)) {
        KFRDouble3DPoint point;
        if (points.size() < most && node != NULLSP && node->getLocation(point).isOk()) {
            points.push_back(point);
        }
    }
    return points;
}

/// How many of an element's nodes are corners.
std::size_t cornerCountOf(Element const& element)
{
    struct SolidRow {
        int m_nodes;
        std::size_t m_corners;
    };
    constexpr std::array kSolids{SolidRow{10, 4}, SolidRow{15, 6}, SolidRow{20, 8}};
    constexpr std::array<std::size_t, 3> kFlat{2, 3, 4};
    int shape = -1;
    int count = 0;
    if (element == NULLSP || !element->getShape(shape).isOk() ||
        !element->getNodeCount(count).isOk()) {
        return 0;
    }
    if (shape >= 0 && shape < static_cast<int>(kFlat.size())) {
        return kFlat[static_cast<std::size_t>(shape)];
    }
    auto const* const row =
        std::find_if(kSolids.begin(), kSolids.end(),
                     [count](SolidRow const& known) { return known.m_nodes == count; });
    return row != kSolids.end() ? row->m_corners : static_cast<std::size_t>(count);
}

/// External ids of the nodes of an element's face.
KFRResult faceNodesOf(MeshPart const& meshPart, unsigned long long elementId, int faceNumber,
                      ArrayPtr1<long long>& nodeIds)
{
    auto const service =
        KFR::loose_cast<muc::IFreeFaceService>(ServiceHelper::getFreeFaceService());
    if (meshPart == NULLSP || service == NULLSP) {
        return KFR::notDone;
    }
    ArrayPtr1<long long> const elements(std::vector<long long>{static_cast<long long>(elementId)});
    ArrayPtr1<int> const faces(std::vector<int>{faceNumber});
    ArrayPtr1<long long> faceElements;
    KFRInt64SequenceSequence nodeLists;
    ArrayPtr1<int> topologies;
    KFRResult const result =
        service->getFaceData(meshPart, elements, KFR::NULLSP, faces, faceElements, nodeLists,
                             topologies, nodeIds, KFR::NULLSP, true);
    return result.isOk() && nodeIds.empty() ? KFRResult(KFR::notDone) : result;
}

}  // namespace

// --- Elements -----------------------------------------------------------------------------------

void MeshHelper::getElemLocationAndNormal(MeshPart const& meshPart, unsigned long long elementId,
                                          KFRDouble3DPoint& location, KFRDouble3DPoint& normal,
                                          KFRSequence<long long>& nodeIds)
{
    ArrayPtr1<long long> const one(std::vector<long long>{static_cast<long long>(elementId)});
    forEachElement(meshPart, one, [&](auto ids, auto points) {
        location = centreOf(points);
        normal = normalOf(points);
        nodeIds = KFRSequence<long long>(ids.begin(), ids.end());
    });
}

void MeshHelper::getElemLocNormal(MeshPart const& meshPart, ArrayPtr1<long long> const& ids,
                                  KFRDouble3DPointSequence& locations,
                                  KFRDouble3DPointSequence& normals,
                                  KFRInt64SequenceSequence& nodeIds, int const&,
                                  ArrayPtr1<long long> const&)
{
    KFRDouble3DPoint* location = extend(locations, ids.size());
    KFRDouble3DPoint* normal = extend(normals, ids.size());
    KFRSequence<long long>* nodes = extend(nodeIds, ids.size());
    forEachElement(meshPart, ids, [&](auto ofElement, auto points) {
        *location++ = centreOf(points);
        *normal++ = unitNormalOf(points);
        *nodes++ = KFRSequence<long long>(ofElement.begin(), ofElement.end());
    });
}

void MeshHelper::getElemLocations(MeshPart const& meshPart, ArrayPtr1<long long>& ids,
                                  KFRDouble3DPointSequence& locations)
{
    KFRDouble3DPoint* location = extend(locations, ids.size());
    forEachElement(meshPart, ids, [&](auto, auto points) { *location++ = centreOf(points); });
}

void MeshHelper::getElemNormals(MeshPart const& meshPart, ArrayPtr1<long long>& ids,
                                KFRDouble3DPointSequence& normals)
{
    KFRDouble3DPoint* normal = extend(normals, ids.size());
    forEachElement(meshPart, ids, [&](auto, auto points) { *normal++ = unitNormalOf(points); });
}

void MeshHelper::getElemLocationsAndNormals(MeshPart const& meshPart, ArrayPtr1<long long>& ids,
                                            KFRDouble3DPointSequence& locations,
                                            KFRDouble3DPointSequence& normals)
{
    KFRDouble3DPoint* location = extend(locations, ids.size());
    KFRDouble3DPoint* normal = extend(normals, ids.size());
    forEachElement(meshPart, ids, [&](auto, auto points) {
        *location++ = centreOf(points);
        *normal++ = unitNormalOf(points);
    });
}

void MeshHelper::getElemLocNormal(CAE::EntityReference const& reference, KFRDouble3DPoint& location,
                                  KFRDouble3DPoint& normal)
{
    MeshPart const meshPart = PluginHelper::getMeshPartByNode(reference);
    Element element;
    if (meshPart != NULLSP) {
        static_cast<void>(meshPart->getElementById(reference.id, element, false));
    }
    Points const points = locationsOf(element);
    location = centreOf(points);
    normal = normalOf(points);
}

// --- Faces of elements --------------------------------------------------------------------------

KFRResult MeshHelper::getElemFaceLocNormal(MeshPart const& meshPart, unsigned long long elementId,
                                           int faceNumber, KFRDouble3DPoint& location,
                                           KFRDouble3DPoint& normal)
{
    KFRSequence<long long> nodeIds;
    return getElemFaceLocNormal(meshPart, elementId, faceNumber, location, normal, nodeIds);
}

KFRResult MeshHelper::getElemFaceLocNormal(MeshPart const& meshPart, unsigned long long elementId,
                                           int faceNumber, KFRDouble3DPoint& location,
                                           KFRDouble3DPoint& normal,
                                           KFRSequence<long long>& nodeIds)
{
    ArrayPtr1<long long> ids;
    KFRResult const result = faceNodesOf(meshPart, elementId, faceNumber, ids);
    if (!result.isOk()) {
        return result;
    }
    Points points;
    for (long long const id : ids) {
        KFRSmartPointer<CAE::INodeInterface> node;
        KFRDouble3DPoint point;
        if (meshPart->getNodeById(static_cast<unsigned long long>(id), node, true).isOk() &&
            node->getLocation(point).isOk()) {
            points.push_back(point);
        }
    }
    location = centreOf(points);
    normal = normalOf(points);
    nodeIds = KFRSequence<long long>(ids.begin(), ids.end());
    return result;
}

void MeshHelper::getElemFaceLocNormal(CAE::EntityReference const& reference,
                                      KFRDouble3DPoint& location, KFRDouble3DPoint& normal)
{
    constexpr unsigned kFaceNumber = 0xFF;
    if (!SelectFilter::isElementFace(reference)) {
        return;
    }
    MeshPart const meshPart = PluginHelper::getMeshPartByNode(reference);
    Element element;
    unsigned long long id = 0;
    if (meshPart != NULLSP && meshPart->getElementById(reference.id, element, false).isOk() &&
        element != NULLSP && element->getId(id).isOk()) {
        static_cast<void>(getElemFaceLocNormal(
            meshPart, id, static_cast<int>(reference.subId & kFaceNumber), location, normal));
    }
}

// --- Nodes --------------------------------------------------------------------------------------

KFRResult MeshHelper::getNodeLocationAndNormal(MeshPart const& meshPart,
                                               unsigned long long elementId,
                                               unsigned long long nodeId,
                                               unsigned long long& nodeNumber,
                                               KFRDouble3DPoint& location, KFRDouble3DPoint& normal)
{
    if (meshPart == NULLSP) {
        return KFR::notDone;
    }
    Element element;
    if (KFRResult const found = meshPart->getElementById(elementId, element, true); !found.isOk()) {
        return found;
    }
    KFRSmartPointer<CAE::INodeInterface> node;
    if (KFRResult const found = meshPart->getNodeById(nodeId, node, true); !found.isOk()) {
        return found;
    }
    int number = 0;
    static_cast<void>(node->getNumber(number));
    nodeNumber = static_cast<unsigned long long>(number);
    KFRResult const located = node->getLocation(location);
    normal = normalOf(locationsOf(element, cornerCountOf(element)));
    return located;
}

bool MeshHelper::getDistributedPointsOnExistMesh(CAE::EntityReference reference,
                                                 KFRDouble3DPointSequence& points,
                                                 KFRDouble3DPointSequence& normals)
{
    KFRInt64SequenceSequence nodeIds;
    return getDistributedPointsOnExistMesh(std::move(reference), points, normals, nodeIds);
}

bool MeshHelper::getDistributedPointsOnExistMesh(CAE::EntityReference reference,
                                                 KFRDouble3DPointSequence& points,
                                                 KFRDouble3DPointSequence& normals,
                                                 KFRInt64SequenceSequence& nodeIds)
{
    points.clear();
    normals.clear();
    nodeIds.clear();
    GeomTopo const topo(static_cast<int>(reference.id));
    MeshPart const meshPart = PluginHelper::getMeshPart(
        KFR::loose_cast<CAE::IPersistentObjectInterface>(topo.getIMeshBody()));
    KFRSequence<unsigned long long> const elements = topo.getElementIds();
    if (meshPart == NULLSP || elements.empty()) {
        return false;
    }
    ArrayPtr1<long long> const ids(std::vector<long long>(elements.begin(), elements.end()));
    getElemLocNormal(meshPart, ids, points, normals, nodeIds, 0, ArrayPtr1<long long>());
    return true;
}

}  // namespace vrn::orlo::plugin::modeling
