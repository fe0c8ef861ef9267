// What the part, its geometry and the host ask of a mesh part.

#include "host/meshing/meshpart.h"

#include "host/meshing/storesubset.h"

#include <algorithm>
#include <numeric>

namespace vrn::orlo::host::meshing {

namespace {

bool isThere(KFRSmartPointer<MeshBody> const& body)
{
    return body != KFR::NULLSP && !body->isDeleted();
}

}  // namespace

CAE::IMeshBodySequence MeshPart::bodies() const
{
    CAE::IMeshBodySequence found;
    for (KFRSmartPointer<MeshBody> const& body : m_bodies) {
        if (isThere(body)) {
            found.append(KFRSmartPointer<CAE::IMeshBodyInterface>(body));
        }
    }
    return found;
}

KFRSmartPointer<MeshBody> MeshPart::bodyOn(unsigned entity) const
{
    auto const found = std::find_if(m_bodies.begin(), m_bodies.end(), [entity](auto const& body) {
        return entity != 0 && body->row().m_entity == entity && isThere(body);
    });
    return found != m_bodies.end() ? *found : KFRSmartPointer<MeshBody>();
}

CAE::IMeshBodySequence MeshPart::bodiesOn(unsigned entity) const
{
    CAE::IMeshBodySequence found;
    if (auto const body = bodyOn(entity); body != KFR::NULLSP) {
        found.append(KFRSmartPointer<CAE::IMeshBodyInterface>(body));
    }
    return found;
}

CAE::IMeshSequence MeshPart::meshesOn(unsigned entity) const
{
    CAE::IMeshSequence found;
    if (auto const body = bodyOn(entity); body != KFR::NULLSP) {
        static_cast<void>(body->getMeshList(found));
    }
    for (MeshIndex const group : m_tables->groupsOn(entity)) {
        auto const& body = m_present[m_tables->store().groups()[group].m_body];
        if (auto const mesh = body->subMeshOf(m_tables->store(), group);
            mesh != KFR::NULLSP && !mesh->isDeleted()) {
            found.append(KFRSmartPointer<CAE::IMeshInterface>(mesh));
        }
    }
    return found;
}

bool MeshPart::isMeshed(unsigned entity) const
{
    if (bodyOn(entity) != KFR::NULLSP || !m_tables->groupsOn(entity).empty()) {
        return true;
    }
    EntityMesh const* const mesh = m_tables->store().meshOn(entity);
    return mesh != nullptr && !mesh->m_nodes.empty();
}

KFRSmartPointer<appfw::IEntityInterface> MeshPart::entity(unsigned typeId, unsigned number)
{
    if (isDeleted() || number == 0) {
        return {};
    }
    if (typeId == types().m_meshPart) {
        return number == 1 ? model::EntityService::Entity(this) : model::EntityService::Entity();
    }
    if (typeId == types().m_subMesh) {
        return subMesh(number);
    }
    bool const isBody = typeId == types().m_meshBody;
    // Numbers of continuous meshes: four to a body, by their dimension.
    std::size_t const body = isBody ? number - 1 : number / 4;
    if (body >= m_bodies.size() || !isThere(m_bodies[body])) {
        return {};
    }
    if (isBody) {
        return m_bodies[body];
    }
    auto const dimension = static_cast<std::uint8_t>(number % 4);
    return typeId == types().m_displayMesh[dimension]
               ? model::EntityService::Entity(m_bodies[body]->meshOf(dimension))
               : model::EntityService::Entity();
}

KFRSmartPointer<SubMesh> MeshPart::subMesh(unsigned number) const
{
    for (KFRSmartPointer<MeshBody> const& body : m_bodies) {
        for (KFRSmartPointer<SubMesh> const& mesh : body->subMeshes()) {
            if (mesh->number() == number) {
                return mesh;
            }
        }
    }
    return {};
}

std::vector<model::EntityService::Entity> MeshPart::entities()
{
    std::vector<model::EntityService::Entity> all;
    if (isDeleted()) {
        return all;
    }
    all.emplace_back(this);
    for (KFRSmartPointer<MeshBody> const& body : m_bodies) {
        if (!isThere(body)) {
            continue;
        }
        all.emplace_back(body);
        for (std::uint8_t dimension = 1; dimension <= 3; ++dimension) {
            if (auto const mesh = body->meshOf(dimension); mesh != KFR::NULLSP) {
                all.emplace_back(mesh);
            }
        }
        all.insert(all.end(), body->subMeshes().begin(), body->subMeshes().end());
    }
    return all;
}

void MeshPart::deleteBodiesOn(unsigned entity)
{
    if (auto const body = bodyOn(entity); body != KFR::NULLSP) {
        auto const row = std::find(m_present.begin(), m_present.end(), body);
        static_cast<void>(
            replace(withoutBody(*m_store, static_cast<std::size_t>(row - m_present.begin()))));
    }
}

void MeshPart::deleteAll()
{
    static_cast<void>(replace(nullptr));
    leavePart();
}

void MeshPart::leavePart() noexcept
{
    setDeleted(true);
    detach();
    m_part = nullptr;
    for (KFRSmartPointer<MeshBody> const& body : m_bodies) {
        body->leavePart();
    }
}

std::vector<LocalNumber> MeshPart::elements() const
{
    std::vector<LocalNumber> all(m_tables->store().elements().size());
    std::iota(all.begin(), all.end(), LocalNumber{1});
    return all;
}

}  // namespace vrn::orlo::host::meshing
