#include "platform/kfr/kfrexception.h"
#include "platform/muc/meshutilities.h"
#include "platform/typenames/femesh.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "plugins/modelingplugin/utilities/componentframe/userexception.h"
#include "plugins/modelingplugin/utilities/geometrymesh/geometryaccess.h"
#include "plugins/modelingplugin/utilities/geometrymesh/geomtopo.h"
#include "plugins/modelingplugin/utilities/geometrymesh/meshhelper.h"
#include "plugins/modelingplugin/utilities/identity/entitytypeid.h"
#include "plugins/modelingplugin/utilities/identity/pluginhelper.h"
#include "plugins/modelingplugin/utilities/selection/selectfilter.h"

#include <unordered_set>
#include <utility>

namespace vrn::orlo::plugin::modeling {

using KFR::NULLSP;
using KFR::EOM::IEOMMeshPartInterface;
using MeshPart = KFRSmartPointer<CAE::IMeshPartInterface>;
using Node = KFRSmartPointer<CAE::INodeInterface>;

namespace {

/// The first mesh part of a part or an assembly; where the list is empty, the child of that name.
template <class Owner>
KFRSmartPointer<IEOMMeshPartInterface> meshPartIn(Owner& owner)
{
    KFR::EOM::IEOMMeshPartSequence meshParts;
    static_cast<void>(owner.getMeshParts(meshParts));
    if (!meshParts.empty()) {
        return std::as_const(meshParts)[0];
    }
    KFRSmartPointer<KFR::EOM::IEOMObjectInterface> child;
    static_cast<void>(owner.getChild("MeshPart", child));
    return KFR::loose_cast<IEOMMeshPartInterface>(child);
}

KFRSmartPointer<IEOMMeshPartInterface> meshPartOf(
    KFRSmartPointer<KFR::EOM::IEOMInstanceInterface> const& instance)
{
    KFRSmartPointer<KFR::EOM::IEOMObjectInterface> placed;
    if (instance != NULLSP) {
        static_cast<void>(instance->getReferenceObject(placed));
    }
    if (auto const part = KFR::loose_cast<KFR::EOM::IEOMPartInterface>(placed); part != NULLSP) {
        return meshPartIn(*part);
    }
    if (auto const assembly = KFR::loose_cast<KFR::EOM::IEOMAssemblyInterface>(placed);
        assembly != NULLSP) {
        return meshPartIn(*assembly);
    }
    return KFR::loose_cast<IEOMMeshPartInterface>(placed);
}

/// Collects references to nodes, each once.
class NodeCollector {
public:
    explicit NodeCollector(CAE::EntityReferenceSequence& nodes)
        : m_nodes(nodes), m_nodeType(EntityTypeID(typenames::kFemNode).typeID())
    {
    }
    void add(KFRIService const& service, unsigned int number)
    {
        long long const owner = service != NULLSP ? service->getInstanceID() : 0;
        if (number != 0 && m_seen[owner].insert(number).second) {
            m_nodes.append({service, m_nodeType, number, 0});
        }
    }
    void add(KFRIService const& service, Node const& node)
    {
        int number = 0;
        if (node != NULLSP && node->getNumber(number).isOk()) {
            add(service, static_cast<unsigned int>(number));
        }
    }
    void add(KFRIService const& service, CAE::INodeSequence const& nodes)
    {
        for (Node const& node : nodes) {
            add(service, node);
        }
    }

private:
    CAE::EntityReferenceSequence& m_nodes;
    unsigned int m_nodeType;
    btree::btree_map<long long, std::unordered_set<unsigned int>> m_seen;  // by owner
};

void addNodesOfFace(CAE::EntityReference const& reference, CAE::IMeshPartInterface& meshPart,
                    unsigned long long elementId, NodeCollector& nodes)
{
    constexpr unsigned kFaceNumber = 0xFF;
    KFRDouble3DPoint location;
    KFRDouble3DPoint normal;
    KFRSequence<long long> ids;
    static_cast<void>(MeshHelper::getElemFaceLocNormal(
        MeshPart(&meshPart), elementId, static_cast<int>(reference.subId & kFaceNumber), location,
        normal, ids));
    for (long long const id : std::as_const(ids)) {
        Node node;
        static_cast<void>(meshPart.getNodeById(static_cast<unsigned long long>(id), node, true));
        nodes.add(reference.service, node);
    }
}

void addNodesOfElement(CAE::EntityReference const& reference, MeshPart const& meshPart,
                       NodeCollector& nodes)
{
    KFRSmartPointer<CAE::IElementInterface> element;
    unsigned long long id = 0;
    if (meshPart == NULLSP || !meshPart->getElementById(reference.id, element, false).isOk() ||
        element == NULLSP) {
        return;
    }
    if (SelectFilter::isElementFace(reference) && element->getId(id).isOk()) {
        addNodesOfFace(reference, *meshPart, id, nodes);
        return;
    }
    CAE::INodeSequence ofElement;
    static_cast<void>(element->getNodes(ofElement));
    nodes.add(reference.service, ofElement);
}

}  // namespace

// --- Free ids -----------------------------------------------------------------------------------

KFRResult MeshHelper::getNextAvailableNodeId(unsigned long long& id)
{
    try {
        return ServiceHelper::getCurrentModel()->getNextAvaialbleNodeID(id);
    } catch (UserException const&) {  // there is no model
        return KFR::notDone;
    } catch (KFRException const&) {
        return KFR::notDone;
    }
}

KFRResult MeshHelper::getNextAvailableNodeId(
    KFRSmartPointer<KFR::EOM::IEOMInstanceInterface> const& instance, unsigned long long& id)
{
    auto const meshPart = meshPartOf(instance);
    return meshPart != NULLSP ? meshPart->getNextAvaialbleNodeID(id) : KFRResult(KFR::notDone);
}

KFRResult MeshHelper::getNextAvailableNodeId(
    KFRSmartPointer<KFR::EOM::IEOMInstanceInterface> const& instance, unsigned long long wanted,
    unsigned long long& id)
{
    auto const meshPart = meshPartOf(instance);
    if (meshPart == NULLSP) {
        return KFR::notDone;
    }
    bool isFree = false;
    if (meshPart->isNodeIdFree(wanted, isFree).isOk() && isFree) {
        id = wanted;
        return KFR::ok;
    }
    return meshPart->getNextAvaialbleNodeID(id);
}

void MeshHelper::setEOMPointId(KFRSmartPointer<KFR::EOM::IEOMPointInterface>& point)
{
    KFRSmartPointer<KFR::EOM::IEOMPointOwnerInterface> owner;
    if (point == NULLSP || !point->getOwner(owner).isOk() || owner == NULLSP) {
        return;
    }
    try {
        int number = 0;
        unsigned long long id = 0;
        if (point->getStoredNumber(number).isOk() && owner->getNextAvaialbleNodeID(id).isOk()) {
            static_cast<void>(owner->assignNodeId(number, id));
        }
    } catch (KFRException const&) {
        return;  // the point stays as it was
    }
}

// --- Nodes of geometry and of references --------------------------------------------------------

KFRResult MeshHelper::getNodeByGeometryId(int number, CAE::EntityReference& node)
{
    CAE::INodeSequence const nodes = GeomTopo(number).getNodes();
    int local = 0;
    if (nodes.empty() || !nodes[0]->getNumber(local).isOk()) {
        return KFR::notDone;
    }
    auto const part = KFR::loose_cast<CAE::IPersistentObjectInterface>(GeomTopo(number).getIPart());
    node = {PluginHelper::getPartInstancebyPart(part), EntityTypeID(typenames::kFemNode).typeID(),
            static_cast<unsigned int>(local), 0};
    return KFR::ok;
}

void MeshHelper::getNodesByGeometryId(int number, KFRSequence<unsigned long long>& ids)
{
    KFRSequence<unsigned long long> found;
    if (auto const wrapper = geometryaccess::meshWrapper(); wrapper != NULLSP) {
        static_cast<void>(wrapper->getNodeIds(number, found));
    }
    ids = std::move(found);
}

KFRResult MeshHelper::getNodeFromAcornBody(CAE::EntityReference const& body,
                                           CAE::EntityReference& node)
{
    GeomTopo const topo(static_cast<int>(body.id));
    if (topo.isVertex()) {
        return getNodeByGeometryId(topo.getVTKId(), node);
    }
    auto const vertices = topo.isAcornBody() ? topo.getChildVertices() : std::vector<GeomTopo>();
    return vertices.empty() ? KFRResult(KFR::notDone)
                            : getNodeByGeometryId(vertices.front().getVTKId(), node);
}

void MeshHelper::getNodes(CAE::EntityReferenceSequence const& references,
                          CAE::EntityReferenceSequence& nodes)
{
    NodeCollector collector(nodes);
    KFRIService owner;
    MeshPart meshPart;
    for (CAE::EntityReference const& reference : references) {
        if (SelectFilter::isNode(reference)) {
            collector.add(reference.service, reference.id);
        } else if (SelectFilter::isElement(reference) || SelectFilter::isElementFace(reference)) {
            // Picks come in runs of one owner.
            if (meshPart == NULLSP || !(owner == reference.service)) {
                owner = reference.service;
                meshPart = PluginHelper::getMeshPart(reference);
            }
            addNodesOfElement(reference, meshPart, collector);
        } else {
            collector.add(reference.service, GeomTopo(static_cast<int>(reference.id)).getNodes());
        }
    }
}

bool MeshHelper::isConnectedNode(CAE::EntityReference const& node)
{
    MeshPart const meshPart =
        SelectFilter::isNode(node) ? PluginHelper::getMeshPart(node) : MeshPart();
    Node found;
    CAE::IElementSequence elements;
    return meshPart != NULLSP && meshPart->getNodeById(node.id, found, false).isOk() &&
           meshPart->getElementsConnectedTo(found, elements).isOk() && !elements.empty();
}

// --- Objects ------------------------------------------------------------------------------------

bool MeshHelper::isDeleted(KFRSmartPointer<CAE::IPersistentObjectInterface> const& object)
{
    bool deleted = false;
    return object != NULLSP && object->isDeleted(deleted).isOk() && deleted;
}

bool MeshHelper::isNullOrDeleted(KFRSmartPointer<CAE::IPersistentObjectInterface> const& object)
{
    return object == NULLSP || isDeleted(object);
}

MeshPart MeshHelper::getMeshPart(KFRIService owner)
{
    if (auto const meshPart = KFR::loose_cast<CAE::IMeshPartInterface>(owner); meshPart != NULLSP) {
        return meshPart;
    }
    auto object = KFR::loose_cast<CAE::IPersistentObjectInterface>(owner);
    if (auto const instance = KFR::loose_cast<CAE::IInstanceInterface>(owner); instance != NULLSP) {
        object = {};
        static_cast<void>(instance->getReferenceObject(object));
    }
    auto const part = KFR::loose_cast<CAE::IPartInterface>(PluginHelper::getPart(object));
    CAE::IMeshPartSequence meshParts;
    if (part != NULLSP) {
        static_cast<void>(part->getMeshParts(meshParts));
    }
    return meshParts.empty() ? MeshPart() : std::as_const(meshParts)[0];
}

}  // namespace vrn::orlo::plugin::modeling
