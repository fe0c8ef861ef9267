#include "plugins/modelingplugin/utilities/selection/elementselectionmakeup.h"

#include "platform/appfw/entity.h"
#include "platform/caedata/pocompare.h"
#include "platform/deps/btree.h"
#include "platform/fem/fementities.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "plugins/modelingplugin/utilities/selection/elementtypes.h"

#include <vector>

namespace vrn::orlo::plugin::modeling {

using appfw::IEntityInterface;
using appfw::IEntRefSequence;
using KFR::NULLSP;

namespace {

using Ids = KFRSequence<unsigned int>;
using Mesh = KFRSmartPointer<CAE::IMeshInterface>;
using ContainerFactory = KFRSmartPointer<appfw::IEntRefContainerFactoryInterface>;
using Owner = KFRResult (fem::IFEMeshDataInterface::*)(KFRSmartPointer<IEntityInterface>&);

/// What is needed of an element once its mesh is known. The elements themselves are not kept:
/// hundreds of thousands of them may be picked.
struct Picked {
    unsigned int m_number;
    int m_nodeCount;
};
using PickedByMesh = btree::btree_map<Mesh, std::vector<Picked>, CAE::POCompare>;

PickedByMesh byMesh(CAE::IMeshBodyInterface& body, KFRSequence<unsigned long long> const& ids)
{
    constexpr bool kExternal = true;
    PickedByMesh meshes;
    std::vector<Picked>* last = nullptr;
    CAE::IMeshInterface* lastMesh = nullptr;
    for (unsigned long long const id : ids) {
        KFRSmartPointer<CAE::IElementInterface> element;
        Mesh mesh;
        static_cast<void>(body.getElement(id, element, kExternal));
        if (element == NULLSP || !element->getMesh(mesh).isOk() || mesh == NULLSP) {
            continue;
        }
        int number = -1;
        int nodeCount = 0;
        if (!element->getNumber(number).isOk() || !element->getNodeCount(nodeCount).isOk()) {
            continue;
        }
        if (mesh.get() != lastMesh) {
            lastMesh = mesh.get();
            last = &meshes[mesh];
        }
        last->push_back({static_cast<unsigned int>(number), nodeCount});
    }
    return meshes;
}

/// Adds a container on one of the mesh's owners, if there are ids for it.
void appendContainer(fem::IFEMeshDataInterface& data, Owner askOwner, unsigned int typeId,
                     Ids const& ids, ContainerFactory const& factory, IEntRefSequence& out)
{
    KFRSmartPointer<IEntityInterface> owner;
    if (ids.empty() || !(data.*askOwner)(owner).isOk() || owner == NULLSP) {
        return;
    }
    constexpr int kEmpty = 1;
    CAE::EntityReference const reference = owner->getEntityReference();
    auto const container =
        factory->create(reference.service, reference.typeId, reference.id, reference.subId, kEmpty);
    if (container != NULLSP) {
        static_cast<void>(container->addIds(typeId, ids, {}));
        out.append(container);
    }
}

void appendSurface(fem::IFEMeshDataInterface& data, std::vector<Picked> const& elements,
                   unsigned int typeId, ContainerFactory const& factory, IEntRefSequence& out)
{
    Ids triangles;
    Ids quads;
    for (Picked const& element : elements) {
        // In this order: twelve nodes are a triangle's.
        if (element.m_nodeCount % 3 == 0) {
            triangles.append(element.m_number);
        } else if (element.m_nodeCount % 4 == 0) {
            quads.append(element.m_number);
        }
    }
    appendContainer(data, &fem::IFEMeshDataInterface::getTriangleOwner, typeId, triangles, factory,
                    out);
    appendContainer(data, &fem::IFEMeshDataInterface::getQuadOwner, typeId, quads, factory, out);
}

void appendSolids(fem::IFEMeshDataInterface& data, std::vector<Picked> const& elements,
                  unsigned int typeId, ContainerFactory const& factory, IEntRefSequence& out)
{
    Ids solids;
    solids.reserve(elements.size());
    for (Picked const& element : elements) {
        solids.append(element.m_number);
    }
    appendContainer(data, &fem::IFEMeshDataInterface::getSolidOwner, typeId, solids, factory, out);
}

}  // namespace

void ElementSelectionMakeup::append2EntRefSequence(
    KFRSmartPointer<CAE::IMeshBodyInterface> const& body,
    KFRSequence<unsigned long long> const& ids, IEntRefSequence& out)
{
    if (body == NULLSP || ids.empty()) {
        return;
    }
    PickedByMesh const meshes = byMesh(*body, ids);
    auto const service =
        KFR::strict_cast<fem::IFEMEntitiesInterface>(ServiceHelper::getFEMEntities());
    auto const factory = KFR::strict_cast<appfw::IEntRefContainerFactoryInterface>(
        ServiceHelper::getIEntRefFactory());
    if (service == NULLSP || factory == NULLSP) {
        return;
    }
    ElementTypes const types;
    for (auto const& [mesh, elements] : meshes) {
        KFRSmartPointer<IEntityInterface> entity;
        KFRSmartPointer<fem::IFEMeshDataInterface> data;
        unsigned char dimension = 0;
        auto const feMesh = KFR::loose_cast<CAE::IFEMeshInterface>(mesh);
        if (feMesh == NULLSP || !service->getEntity(feMesh, entity).isOk() || entity == NULLSP ||
            !mesh->getDimension(dimension).isOk() || (dimension != 2 && dimension != 3) ||
            !service->getMeshData(mesh, data).isOk() || data == NULLSP) {
            continue;
        }
        if (dimension == 2) {
            appendSurface(*data, elements, types.m_surface, factory, out);
        } else {
            appendSolids(*data, elements, types.m_solid, factory, out);
        }
    }
}

void ElementSelectionMakeup::appendToEntRefSequence(
    KFRSmartPointer<CAE::IMeshBodyInterface> const& body,
    KFRSequence<unsigned long long> const& ids, IEntRefSequence& out)
{
    append2EntRefSequence(body, ids, out);
}

}  // namespace vrn::orlo::plugin::modeling
