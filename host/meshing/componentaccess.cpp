#include "host/meshing/componentaccess.h"

#include "host/meshing/elementobjects.h"

#include <algorithm>

namespace vrn::orlo::host::meshing {

namespace {

constexpr int kHighestDimension = 3;

KFRResult noMesh(int number)
{
    return KFRResult(kNoMesh).addParam("Nothing of the kind is meshed on geometry number " +
                                       std::to_string(number) + ".");
}

unsigned entityOf(int number)
{
    return static_cast<unsigned>(number);
}

/// The sub-mesh on an entity, of the highest dimension if there are several; null for none.
KFRSmartPointer<SubMesh> subMeshOn(MeshPart const& part, unsigned entity)
{
    MeshStore const& store = part.tables()->store();
    KFRSmartPointer<SubMesh> found;
    for (MeshIndex const group : part.tables()->groupsOn(entity)) {
        auto const mesh = part.bodyRows()[store.groups()[group].m_body]->subMeshOf(store, group);
        if (mesh != KFR::NULLSP && !mesh->isDeleted() &&
            (found == KFR::NULLSP || mesh->dimension() > found->dimension())) {
            found = mesh;
        }
    }
    return found;
}

/// The body that has the entity's elements, or those that the entity bounds.
KFRSmartPointer<MeshBody> bodyAt(MeshPart const& part, unsigned entity)
{
    if (auto body = part.bodyOn(entity); body != KFR::NULLSP) {
        return body;
    }
    MeshTables const& tables = *part.tables();
    if (auto const groups = tables.groupsOn(entity); !groups.empty()) {
        return part.bodyRows()[tables.store().groups()[groups.front()].m_body];
    }
    EntityMesh const* const mesh = tables.store().meshOn(entity);
    if (mesh != nullptr && !mesh->m_faces.empty()) {
        return part.bodyRows()[tables.bodyOf(mesh->m_faces.front().m_element)];
    }
    for (LocalNumber const node : mesh != nullptr ? mesh->m_nodes : std::vector<LocalNumber>()) {
        if (auto const elements = tables.elementsAt(node); !elements.empty()) {
            return part.bodyRows()[tables.bodyOf(elements.front())];
        }
    }
    return {};
}

/// Ascending.
std::vector<LocalNumber> nodesOn(MeshPart const& part, unsigned entity)
{
    MeshTables const& tables = *part.tables();
    if (auto const body = part.bodyOn(entity); body != KFR::NULLSP) {
        auto const nodes = body->nodes();
        return {nodes.begin(), nodes.end()};
    }
    if (EntityMesh const* const mesh = tables.store().meshOn(entity); mesh != nullptr) {
        return mesh->m_nodes;
    }
    std::vector<LocalNumber> numbers;
    for (LocalNumber const element : tables.elementsOfGroups(tables.groupsOn(entity))) {
        auto const nodes = tables.store().nodesOf(element);
        numbers.insert(numbers.end(), nodes.begin(), nodes.end());
    }
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
}

/// The continuous mesh of the highest dimension; null for none.
KFRSmartPointer<Mesh> highestOf(MeshBody const& body)
{
    for (std::uint8_t dimension = kHighestDimension; dimension > 0; --dimension) {
        if (auto mesh = body.meshOf(dimension); mesh != KFR::NULLSP) {
            return mesh;
        }
    }
    return {};
}

/// The continuous mesh that a sub-mesh is part of.
KFRSmartPointer<Mesh> meshAround(SubMesh const& mesh)
{
    return mesh.body() != nullptr ? mesh.body()->meshOf(mesh.dimension()) : KFRSmartPointer<Mesh>();
}

}  // namespace

KFRSmartPointer<MeshPart> FEMeshWrapper::meshPartOf(int number) const
{
    KFRSmartPointer<MeshPart> part;
    if (number > 0 && m_finder) {
        part = m_finder(number);
    }
    return model::isDeleted(part) ? KFRSmartPointer<MeshPart>() : part;
}

KFRResult FEMeshWrapper::getMesh(int number, KFRSmartPointer<CAE::IFEMeshInterface>& mesh)
{
    auto const part = meshPartOf(number);
    if (part == KFR::NULLSP) {
        return noMesh(number);
    }
    KFRSmartPointer<Mesh> found;
    if (auto const body = part->bodyOn(entityOf(number)); body != KFR::NULLSP) {
        found = highestOf(*body);
    } else if (auto const own = subMeshOn(*part, entityOf(number)); own != KFR::NULLSP) {
        found = meshAround(*own);
    }
    if (found == KFR::NULLSP) {
        return noMesh(number);
    }
    mesh = found;
    return KFR::ok;
}

KFRResult FEMeshWrapper::getSubMesh(int number, KFRSmartPointer<CAE::IFEMeshInterface>& mesh)
{
    auto const part = meshPartOf(number);
    auto const own =
        part != KFR::NULLSP ? subMeshOn(*part, entityOf(number)) : KFRSmartPointer<SubMesh>();
    if (own == KFR::NULLSP) {
        return noMesh(number);
    }
    mesh = own;
    return KFR::ok;
}

KFRResult FEMeshWrapper::getContinuousMesh(int number, unsigned char dimension,
                                           KFRSmartPointer<CAE::IContinuousMeshInterface>& mesh)
{
    auto const part = meshPartOf(number);
    if (part == KFR::NULLSP || dimension > kHighestDimension) {
        return noMesh(number);
    }
    KFRSmartPointer<Mesh> found;
    if (auto const body = part->bodyOn(entityOf(number)); body != KFR::NULLSP) {
        found = body->meshOf(dimension);
    } else if (auto const own = subMeshOn(*part, entityOf(number));
               own != KFR::NULLSP && own->dimension() == dimension) {
        found = meshAround(*own);
    }
    if (found == KFR::NULLSP) {
        return noMesh(number);
    }
    mesh = found;
    return KFR::ok;
}

KFRResult FEMeshWrapper::getMeshBody(int number, KFRSmartPointer<CAE::IMeshBodyInterface>& body)
{
    auto const part = meshPartOf(number);
    auto const found =
        part != KFR::NULLSP ? bodyAt(*part, entityOf(number)) : KFRSmartPointer<MeshBody>();
    if (found == KFR::NULLSP || found->isDeleted()) {
        return noMesh(number);
    }
    body = found;
    return KFR::ok;
}

KFRResult FEMeshWrapper::getNodes(int number, CAE::INodeSequence& nodes)
{
    return readNodes(number, [&nodes](auto const& tables, std::vector<LocalNumber> const& numbers) {
        CAE::INodeSequence found;
        found.reserve(numbers.size());
        for (LocalNumber const node : numbers) {
            found.append(KFR::make<Node>(tables, node));
        }
        nodes = found;
    });
}

KFRResult FEMeshWrapper::getNodeIds(int number, KFRSequence<unsigned long long>& ids)
{
    return readNodes(number, [&ids](auto const& tables, std::vector<LocalNumber> const& numbers) {
        ids = idsOf(tables->store().nodes(), numbers);
    });
}

KFRResult FEMeshWrapper::readNodes(int number, NodeReader const& read) const
{
    auto const part = meshPartOf(number);
    auto const numbers =
        part != KFR::NULLSP ? nodesOn(*part, entityOf(number)) : std::vector<LocalNumber>();
    if (numbers.empty()) {
        return KFRResult(kNoNode).addParam("No nodes lie on geometry number " +
                                           std::to_string(number) + ".");
    }
    read(part->tables(), numbers);
    return KFR::ok;
}

KFRResult FEMeshWrapper::getElementFaces(int number, KFRSequence<unsigned long long>& elementIds,
                                         KFRSequence<int>& faceNumbers)
{
    auto const part = meshPartOf(number);
    EntityMesh const* const mesh =
        part != KFR::NULLSP ? part->tables()->store().meshOn(entityOf(number)) : nullptr;
    if (mesh == nullptr || mesh->m_faces.empty()) {
        return noMesh(number);
    }
    KFRSequence<unsigned long long> ids;
    KFRSequence<int> faces;
    for (ElementFace const& face : mesh->m_faces) {
        ids.append(static_cast<unsigned long long>(
            part->tables()->store().elements().idOf(face.m_element)));
        faces.append(face.m_face);
    }
    elementIds = ids;
    faceNumbers = faces;
    return KFR::ok;
}

}  // namespace vrn::orlo::host::meshing
