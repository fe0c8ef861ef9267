#include "host/meshing/meshobjects.h"

#include <utility>

namespace vrn::orlo::host::meshing {

namespace {

KFRAny nameValue(std::string const& name)
{
    return KFRAny(icu::UnicodeString::fromUTF8(name));
}

std::string dimensionText(std::uint8_t dimension)
{
    return std::to_string(dimension) + "D";
}

}  // namespace

void MeshChanges::tell(std::shared_ptr<model::EntityService> const& service) const
{
    if (service == nullptr) {
        return;
    }
    model::EntityService::Batch const batch(service);
    for (Entity const& entity : m_made) {
        service->created(entity);
    }
    for (Entity const& entity : m_kept) {
        service->refresh(entity);
    }
    for (Entity const& entity : m_gone) {
        service->deleted(entity);
    }
}

KFRIService partAbove(CAE::IPersistentObjectInterface& object)
{
    KFRSmartPointer<CAE::IPersistentObjectInterface> above(&object);
    for (KFRSmartPointer<CAE::IPersistentObjectInterface> parent; above->getParent(parent).isOk();
         parent.release()) {
        above = parent;
        if (KFR::loose_cast<CAE::IPartInterface>(above) != KFR::NULLSP) {
            break;
        }
    }
    return above;
}

// --- Both kinds of meshes ----------------------------------------------------------------------

template <class... Further>
MeshOf<Further...>::MeshOf(MeshBody& body, Traits traits)
    : Base(std::move(traits.m_persistentName), KFR::NULLSP, traits.m_typeId, traits.m_number,
           body.context()->m_service),
      m_body(&body),
      m_number(traits.m_number),
      m_dimension(traits.m_dimension),
      m_entity(traits.m_entity),
      m_tables(body.tables())
{
    this->attach(&body);
    this->setDeleted(true);
    this->declareProperty(model::kNameProperty, nameValue(traits.m_name));
    this->declareProperty("visible", KFRAny(true));
}

template <class... Further>
CAE::EntityReference MeshOf<Further...>::getEntityReference()
{
    CAE::EntityReference reference = Base::getEntityReference();
    reference.service = partAbove(*this);
    return reference;
}

template <class... Further>
KFRResult MeshOf<Further...>::getDimension(unsigned char& dimension)
{
    dimension = m_dimension;
    return KFR::ok;
}

template <class... Further>
KFRResult MeshOf<Further...>::getMeshBody(KFRSmartPointer<CAE::IMeshBodyInterface>& body)
{
    if (m_body == nullptr) {
        return KFRResult(kBodyIsGone)
            .addParam("The mesh body of " + this->persistentName() + " is gone.");
    }
    body = KFRSmartPointer<MeshBody>(m_body);
    return KFR::ok;
}

template <class... Further>
KFRResult MeshOf<Further...>::getElementIds(KFRSequence<unsigned long long>& ids)
{
    ids = idsOf(m_tables->store().elements(), elements());
    return KFR::ok;
}

template <class... Further>
KFRResult MeshOf<Further...>::isSurface(bool& surface)
{
    surface = m_dimension == 2;
    return KFR::ok;
}

template <class... Further>
KFRResult MeshOf<Further...>::getGeometry(KFRSmartPointer<CAE::IGeometryInterface>& geometry)
{
    auto const found =
        m_body != nullptr ? m_body->geometry(m_entity) : KFRSmartPointer<CAE::IGeometryInterface>();
    if (found == KFR::NULLSP) {
        return KFRResult(kNoGeometry)
            .addParam("Mesh " + this->persistentName() + " lies on no geometry.");
    }
    geometry = found;
    return KFR::ok;
}

template <class... Further>
std::vector<LocalNumber> MeshOf<Further...>::elements() const
{
    return m_tables->elementsOfGroups(m_groups);
}

template <class... Further>
LocalNumber MeshOf<Further...>::elementCount() const
{
    std::size_t count = 0;
    for (MeshIndex const group : m_groups) {
        count += m_tables->elementsOfGroup(group).size();
    }
    return static_cast<LocalNumber>(count);
}

template <class... Further>
void MeshOf<Further...>::show(std::shared_ptr<MeshTables const> const& tables,
                              std::vector<MeshIndex> groups, MeshChanges& changes)
{
    m_tables = tables;
    m_groups = std::move(groups);
    changes.settle(*this, !m_groups.empty());
}

template <class... Further>
void MeshOf<Further...>::leaveBody() noexcept
{
    m_body = nullptr;
    this->detach();
}

template class MeshOf<>;
template class MeshOf<CAE::IContinuousMeshInterface>;

Mesh::Mesh(MeshBody& body, std::uint8_t dimension)
    : MeshOf(body, {body.persistentName() + "/" + dimensionText(dimension),
                    body.row().m_name + " " + dimensionText(dimension),
                    body.types().m_displayMesh.at(dimension), 4 * (body.number() - 1) + dimension,
                    dimension, body.row().m_entity})
{
}

KFRResult Mesh::isContinuous(bool& continuous)
{
    continuous = true;
    return KFR::ok;
}

KFRResult Mesh::getSubMeshes(CAE::IMeshSequence& meshes)
{
    CAE::IMeshSequence found;
    if (body() != nullptr) {
        for (KFRSmartPointer<SubMesh> const& mesh : body()->subMeshes()) {
            if (mesh->dimension() == dimension()) {
                found.append(KFRSmartPointer<CAE::IMeshInterface>(mesh));
            }
        }
    }
    meshes = found;
    return KFR::ok;
}

SubMesh::SubMesh(MeshBody& body, std::string persistentName, MeshGroup const& group)
    : MeshOf(body,
             {std::move(persistentName),
              group.m_name.empty() ? body.row().m_name + " " + dimensionText(group.m_dimension)
                                   : group.m_name,
              body.types().m_subMesh, ++body.context()->m_lastSubMesh, group.m_dimension,
              group.m_entity})
{
}

KFRResult SubMesh::isContinuous(bool& continuous)
{
    continuous = false;
    return KFR::ok;
}

}  // namespace vrn::orlo::host::meshing
