#include "host/meshing/elementobjects.h"
#include "host/meshing/meshobjects.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace vrn::orlo::host::meshing {

namespace {

/// What a body shows before it shows anything.
std::shared_ptr<MeshTables const> noTables()
{
    static auto const none =
        std::make_shared<MeshTables const>(std::make_shared<MeshStore const>(MeshStore::Content{}));
    return none;
}

}  // namespace

MeshBody::MeshBody(std::string persistentName, MeshBodyRow const& row, unsigned number,
                   std::shared_ptr<MeshContext> context)
    : ModelObjectOf(std::move(persistentName), KFR::NULLSP, context->m_types.m_meshBody, number,
                    context->m_service),
      m_context(std::move(context)),
      m_row(row),
      m_number(number),
      m_tables(noTables())
{
    setDeleted(true);
    declareProperty(model::kNameProperty, KFRAny(icu::UnicodeString::fromUTF8(row.m_name)));
    declareProperty("visible", KFRAny(true));
}

MeshBody::~MeshBody()
{
    for (KFRSmartPointer<Mesh> const& mesh : m_meshes) {
        if (mesh != KFR::NULLSP) {
            mesh->leaveBody();
        }
    }
    for (auto const& [key, mesh] : m_subMeshes) {
        mesh->leaveBody();
    }
}

void MeshBody::show(std::shared_ptr<MeshTables const> const& tables, std::optional<MeshIndex> index,
                    MeshChanges& changes)
{
    m_tables = tables;
    m_index = index;
    changes.settle(*this, index.has_value());
    std::vector<MeshIndex> const groups =
        index.has_value() ? tables->groupsOf(*index) : std::vector<MeshIndex>();
    for (std::uint8_t dimension = 1; dimension < m_meshes.size(); ++dimension) {
        std::vector<MeshIndex> ofDimension;
        std::copy_if(groups.begin(), groups.end(), std::back_inserter(ofDimension),
                     [&](MeshIndex group) {
                         return tables->store().groups()[group].m_dimension == dimension;
                     });
        KFRSmartPointer<Mesh>& mesh = m_meshes[dimension];
        if (mesh == KFR::NULLSP && !ofDimension.empty()) {
            mesh = KFR::make<Mesh>(*this, dimension);
        }
        if (mesh != KFR::NULLSP) {
            mesh->show(tables, std::move(ofDimension), changes);
        }
    }
    showSubMeshes(groups, changes);
}

void MeshBody::showSubMeshes(std::vector<MeshIndex> const& groups, MeshChanges& changes)
{
    m_present.clear();
    std::map<SubMesh*, std::vector<MeshIndex>> groupsBySubMesh;
    for (MeshIndex const index : groups) {
        MeshGroup const& group = m_tables->store().groups()[index];
        if (group.m_dimension == 0) {
            continue;
        }
        SubMesh& mesh = subMesh(group);
        std::vector<MeshIndex>& ofMesh = groupsBySubMesh[&mesh];
        if (ofMesh.empty()) {
            m_present.push_back(KFRSmartPointer<SubMesh>(&mesh));
        }
        ofMesh.push_back(index);
    }
    for (KFRSmartPointer<SubMesh> const& mesh : m_present) {
        mesh->show(m_tables, std::move(groupsBySubMesh[mesh.get()]), changes);
    }
    for (auto const& [key, mesh] : m_subMeshes) {
        if (!groupsBySubMesh.contains(mesh.get())) {
            mesh->show(m_tables, {}, changes);
        }
    }
}

SubMesh& MeshBody::subMesh(MeshGroup const& group)
{
    auto& mesh = m_subMeshes[GroupKey(group.m_dimension, group.m_entity, group.m_name)];
    if (mesh == KFR::NULLSP) {
        model::SiblingNames& names =
            m_subMeshNames
                .try_emplace(group.m_dimension,
                             persistentName() + "/" + std::to_string(group.m_dimension) + "D")
                .first->second;
        mesh = KFR::make<SubMesh>(*this, names.next(group.m_name.empty() ? "mesh" : group.m_name),
                                  group);
    }
    return *mesh;
}

KFRSmartPointer<SubMesh> MeshBody::subMeshOf(MeshStore const& store, MeshIndex group) const
{
    MeshGroup const& wanted = store.groups().at(group);
    auto const row = m_subMeshes.find(
        std::tuple(wanted.m_dimension, wanted.m_entity, std::string_view(wanted.m_name)));
    return row != m_subMeshes.end() ? row->second : KFRSmartPointer<SubMesh>();
}

void MeshBody::leavePart() noexcept
{
    setDeleted(true);
    detach();
    for (KFRSmartPointer<Mesh> const& mesh : m_meshes) {
        if (mesh != KFR::NULLSP) {
            mesh->setDeleted(true);
        }
    }
    for (auto const& [key, mesh] : m_subMeshes) {
        mesh->setDeleted(true);
    }
}

CAE::EntityReference MeshBody::getEntityReference()
{
    CAE::EntityReference reference = ModelObjectOf::getEntityReference();
    reference.service = partAbove(*this);
    return reference;
}

KFRResult MeshBody::getMeshes(unsigned int typeId, CAE::IMeshSequence& meshes)
{
    CAE::IMeshSequence found;
    for (std::uint8_t dimension = 1; dimension < m_meshes.size(); ++dimension) {
        bool const isWanted =
            typeId == types().m_continuousMesh || typeId == types().m_displayMesh[dimension];
        if (auto const mesh = meshOf(dimension); isWanted && mesh != KFR::NULLSP) {
            found.append(KFRSmartPointer<CAE::IMeshInterface>(mesh));
        }
    }
    if (found.empty()) {
        return KFRResult(kNoMesh).addParam("Mesh body " + persistentName() +
                                           " has no mesh of type " + std::to_string(typeId) + ".");
    }
    meshes = found;
    return KFR::ok;
}

KFRResult MeshBody::getMeshList(CAE::IMeshSequence& meshes)
{
    CAE::IMeshSequence found;
    for (std::uint8_t dimension = 1; dimension < m_meshes.size(); ++dimension) {
        if (auto const mesh = meshOf(dimension); mesh != KFR::NULLSP) {
            found.append(KFRSmartPointer<CAE::IMeshInterface>(mesh));
        }
    }
    meshes = found;
    return KFR::ok;
}

KFRResult MeshBody::getElement(unsigned long long id,
                               KFRSmartPointer<CAE::IElementInterface>& element, bool flag)
{
    KFRResult result;
    LocalNumber const number =
        findElement(store(), id, flag, "Mesh body " + persistentName(), result);
    if (number != 0 && !hasElement(number)) {
        return KFRResult(kNoElement)
            .addParam("Element " + std::to_string(id) + " is in another mesh body than " +
                      persistentName() + ".");
    }
    if (number != 0) {
        element = KFR::make<Element>(m_tables, KFRSmartPointer<MeshBody>(this), number);
    }
    return result;
}

KFRResult MeshBody::getElementIds(KFRSequence<unsigned long long>& ids)
{
    ids = idsOf(store().elements(), elements());
    return KFR::ok;
}

KFRResult MeshBody::getNodeIds(KFRSequence<unsigned long long>& ids)
{
    ids = idsOf(store().nodes(), nodes());
    return KFR::ok;
}

KFRResult MeshBody::getElementId(int number, unsigned long long& id)
{
    auto const wanted = static_cast<LocalNumber>(number);
    if (number < 1 || !hasElement(wanted)) {
        return kNoElement;
    }
    id = static_cast<unsigned long long>(store().elements().idOf(wanted));
    return KFR::ok;
}

KFRResult MeshBody::getNodeId(int number, unsigned long long& id)
{
    auto const wanted = static_cast<LocalNumber>(number);
    auto const own = nodes();
    if (number < 1 || !std::binary_search(own.begin(), own.end(), wanted)) {
        return kNoNode;
    }
    id = static_cast<unsigned long long>(store().nodes().idOf(wanted));
    return KFR::ok;
}

KFRResult MeshBody::getGeomBody(KFRSmartPointer<CAE::IGeomBodyInterface>& body)
{
    auto const found = KFR::loose_cast<CAE::IGeomBodyInterface>(geometry(m_row.m_entity));
    if (found == KFR::NULLSP) {
        return KFRResult(kNoGeometry)
            .addParam("Mesh body " + persistentName() + " lies on no geometry body.");
    }
    body = found;
    return KFR::ok;
}

std::vector<LocalNumber> MeshBody::elements() const
{
    return m_index.has_value() ? m_tables->elementsOfGroups(m_tables->groupsOf(*m_index))
                               : std::vector<LocalNumber>();
}

std::span<LocalNumber const> MeshBody::nodes() const
{
    return m_index.has_value() ? m_tables->nodesOfBody(*m_index) : std::span<LocalNumber const>();
}

KFRSmartPointer<Mesh> MeshBody::meshOf(std::uint8_t dimension) const
{
    KFRSmartPointer<Mesh> const& mesh = m_meshes.at(dimension);
    return mesh != KFR::NULLSP && mesh->elementCount() > 0 ? mesh : KFRSmartPointer<Mesh>();
}

KFRSmartPointer<CAE::IGeometryInterface> MeshBody::geometry(unsigned number) const
{
    auto const link = m_context->m_geometry.lock();
    return number != 0 && link != nullptr ? link->geometry(number)
                                          : KFRSmartPointer<CAE::IGeometryInterface>();
}

bool MeshBody::hasElement(LocalNumber number) const
{
    return m_index.has_value() && number >= 1 && number <= store().elements().size() &&
           m_tables->bodyOf(number) == *m_index;
}

}  // namespace vrn::orlo::host::meshing
