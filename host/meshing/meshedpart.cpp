#include "host/meshing/meshedpart.h"

#include <algorithm>
#include <utility>

namespace vrn::orlo::host::meshing {

namespace {

KFRAny textValue(std::string const& text)
{
    return KFRAny(icu::UnicodeString::fromUTF8(text));
}

/// The part, its mesh, its instances.
std::vector<model::RootManager::Entity> entitiesOf(MeshedPart& part)
{
    std::vector<model::RootManager::Entity> entities{KFRSmartPointer<MeshedPart>(&part)};
    auto const meshes = part.meshPart()->entities();
    entities.insert(entities.end(), meshes.begin(), meshes.end());
    entities.insert(entities.end(), part.instances().begin(), part.instances().end());
    return entities;
}

}  // namespace

MeshedInstance::MeshedInstance(std::string const& fileStem, MeshedPart& part,
                               MeshInstance const& instance, unsigned number,
                               MeshTypes const& types,
                               std::shared_ptr<model::EntityService> service)
    : ModelObjectOf(fileStem + "/instance/" + instance.m_name, KFR::NULLSP, types.m_partInstance,
                    number, std::move(service)),
      m_part(&part),
      m_placement(instance.m_placement)
{
    declareProperty(model::kNameProperty, textValue(instance.m_name));
    declareProperty("visible", KFRAny(true));
}

KFRResult MeshedInstance::getReferenceObject(
    KFRSmartPointer<CAE::IPersistentObjectInterface>& object)
{
    if (m_part == nullptr) {
        return model::kUnknownEntity;
    }
    object = KFRSmartPointer<CAE::IPersistentObjectInterface>(m_part);
    return KFR::ok;
}

KFRResult MeshedInstance::getReferenceObject(KFRSmartPointer<KFR::EOM::IEOMObjectInterface>& object)
{
    if (m_part == nullptr) {
        return model::kUnknownEntity;
    }
    object = KFRSmartPointer<KFR::EOM::IEOMObjectInterface>(m_part);
    return KFR::ok;
}

KFRResult MeshedInstance::getPart(KFRIService& part)
{
    if (m_part == nullptr) {
        return model::kUnknownEntity;
    }
    part = KFRSmartPointer<MeshedPart>(m_part);
    return KFR::ok;
}

MeshedPart::MeshedPart(std::string const& fileStem, std::shared_ptr<MeshStore const> store,
                       unsigned number, MeshTypes const& types,
                       std::shared_ptr<model::EntityService> const& service)
    : ModelObjectOf(fileStem + "/part/" + store->name(), KFR::NULLSP, types.m_part, number, service)
{
    std::string const name = store->name();
    declareProperty(model::kNameProperty, textValue(name));
    declareProperty("description", KFRAny(icu::UnicodeString()));
    declareProperty("visible", KFRAny(true));
    auto const context = std::make_shared<MeshContext>(MeshContext{types, service, {}});
    MeshPart::Names const names{fileStem + "/meshpart/" + name, fileStem + "/mesh/" + name};
    m_mesh = KFR::make<MeshPart>(*this, names, context, std::move(store));
    auto const& rows = m_mesh->bodyRows();
    auto const first = std::find_if(rows.begin(), rows.end(),
                                    [](auto const& body) { return body != KFR::NULLSP; });
    m_firstBody = first != rows.end() ? *first : KFRSmartPointer<MeshBody>();
}

MeshedPart::~MeshedPart()
{
    m_mesh->leavePart();
    for (KFRSmartPointer<MeshedInstance> const& instance : m_instances) {
        instance->leavePart();
    }
}

KFRResult MeshedPart::getMeshBodies(CAE::IMeshBodySequence& bodies)
{
    bodies = m_mesh->bodies();
    return KFR::ok;
}

KFRResult MeshedPart::getMeshParts(CAE::IMeshPartSequence& meshParts)
{
    meshParts = {KFRSmartPointer<CAE::IMeshPartInterface>(m_mesh)};
    return KFR::ok;
}

KFRResult MeshedPart::getMeshParts(KFR::EOM::IEOMMeshPartSequence& meshParts)
{
    meshParts = {KFRSmartPointer<KFR::EOM::IEOMMeshPartInterface>(m_mesh)};
    return KFR::ok;
}

KFRResult MeshedPart::getBodies(CAE::IPersistentObjectSequence& bodies)
{
    CAE::IPersistentObjectSequence found;
    for (KFRSmartPointer<MeshBody> const& body : m_mesh->bodyRows()) {
        if (body != KFR::NULLSP) {
            found.append(KFRSmartPointer<CAE::IPersistentObjectInterface>(body));
        }
    }
    bodies = found;
    return KFR::ok;
}

KFRResult MeshedPart::getChild(std::string const& name,
                               KFRSmartPointer<KFR::EOM::IEOMObjectInterface>& child)
{
    if (model::nameOf(*m_mesh) != name) {
        return KFR::notDone;
    }
    child = KFRSmartPointer<KFR::EOM::IEOMObjectInterface>(m_mesh);
    return KFR::ok;
}

KFRResult MeshedPart::getInstances(CAE::IInstanceSequence& instances)
{
    instances = CAE::IInstanceSequence(m_instances.begin(), m_instances.end());
    return KFR::ok;
}

KFRResult MeshedPart::getInstances(KFR::EOM::IEOMInstanceSequence& instances)
{
    instances = KFR::EOM::IEOMInstanceSequence(m_instances.begin(), m_instances.end());
    return KFR::ok;
}

CAE::EntityReference MeshedPart::elementReference(LocalNumber element)
{
    MeshStore const& store = m_mesh->tables()->store();
    if (element == 0 || element > store.elements().size()) {
        return {};
    }
    int const shape = traitsOf(store.typeOf(element)).m_shape;
    if (shape == kNoShape) {
        return {};
    }
    return {KFRSmartPointer<CAE::IPersistentObjectInterface>(this),
            m_mesh->types().elementOf(shape), element, 0};
}

void MeshedPart::addInstance(KFRSmartPointer<MeshedInstance> const& instance)
{
    m_instances.push_back(instance);
}

LoadedMesh loadMesh(std::filesystem::path const& file,
                    KFR::Services::TypeRegistry::ITypeRegistryInterface& typeRegistry,
                    std::shared_ptr<model::EntityService> const& entityService,
                    model::RootManager* rootManager)
{
    MeshFile mesh = readMeshFile(file);
    MeshTypes const types(typeRegistry);
    LoadedMesh loaded{{}, std::move(mesh.m_warnings)};
    for (std::shared_ptr<MeshStore const> const& store : mesh.m_parts) {
        auto const number = static_cast<unsigned>(loaded.m_parts.size()) + 1;
        loaded.m_parts.push_back(
            KFR::make<MeshedPart>(mesh.m_stem, store, number, types, entityService));
    }
    unsigned number = 0;
    for (MeshInstance const& instance : mesh.m_instances) {
        MeshedPart& part = *loaded.m_parts[instance.m_part];
        part.addInstance(
            KFR::make<MeshedInstance>(mesh.m_stem, part, instance, ++number, types, entityService));
    }
    if (rootManager != nullptr) {
        model::EntityService::Batch const batch(entityService);
        for (KFRSmartPointer<MeshedPart> const& part : loaded.m_parts) {
            for (model::RootManager::Entity const& entity : entitiesOf(*part)) {
                // Cannot fail: the service of every reference is an object that is new.
                static_cast<void>(rootManager->add(entity));
            }
        }
    }
    return loaded;
}

void removeMesh(MeshedPart& part, model::RootManager& rootManager)
{
    auto const entities = entitiesOf(part);
    for (auto entity = entities.rbegin(); entity != entities.rend(); ++entity) {
        static_cast<void>(rootManager.remove((*entity)->getEntityReference()));
    }
}

}  // namespace vrn::orlo::host::meshing
