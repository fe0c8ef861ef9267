#include "host/model/model.h"

#include "platform/typenames/objectmodel.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace vrn::orlo::host::model {

using KFR::Services::TypeRegistry::ITypeRegistryInterface;

namespace {

class StoreLink final : public GeometryLink {
public:
    explicit StoreLink(std::weak_ptr<GeometryStore> store) : m_store(std::move(store)) {}

    KFRSmartPointer<CAE::IGeometryInterface> geometry(unsigned number) override
    {
        auto const store = m_store.lock();
        return store != nullptr ? store->object(number) : GeometryStore::Object();
    }

private:
    std::weak_ptr<GeometryStore> m_store;
};

/// Tells assemblies what stands in them.
void nest(std::vector<EntityService::Entity> const& nodes)
{
    for (EntityService::Entity const& node : nodes) {
        KFRSmartPointer<CAE::IPersistentObjectInterface> above;
        static_cast<void>(
            KFR::strict_cast<CAE::IPersistentObjectInterface>(node)->getParent(above));
        if (auto* const assembly = dynamic_cast<Assembly*>(above.get()); assembly != nullptr) {
            assembly->addChild(node);
        }
    }
}

}  // namespace

Model::Model(geometry::GeometryModel geometry, ITypeRegistryInterface& types,
             std::shared_ptr<EntityService> const& service, RootManager* entities)
    : m_types(&types), m_service(service), m_entities(entities)
{
    EntityService::Batch const batch(m_service);
    std::string const first = firstStepOf(geometry.m_sourceFile);
    m_root = KFR::make<ModelRoot>(std::filesystem::path(geometry.m_sourceFile).stem().string(),
                                  first, types.getTypeId(typenames::kSimulationModel), m_service);
    if (m_entities != KFR::NULLSP) {
        static_cast<void>(m_entities->add(m_root));
    }

    SiblingNames partNames(first + "/Part");
    unsigned const partTypeId = types.getTypeId(typenames::kSimulationPart);
    m_parts.reserve(geometry.m_parts.size());
    for (geometry::Part const& part : geometry.m_parts) {
        auto const number = static_cast<unsigned>(m_parts.size()) + 1;
        m_parts.push_back(KFR::make<Part>(part.m_name, partNames.next(part.m_name), partTypeId,
                                          number, m_service));
        m_parts.back()->attach(m_root.get());
        enter(m_parts.back());
    }
    AssemblyTree tree =
        makeAssemblyTree(geometry, m_parts, first + "/Instance", *m_root, types, m_service);
    m_instances = std::move(tree.m_partInstances);
    nest(tree.m_nodes);
    for (Entity const& node : tree.m_nodes) {
        enter(node);
    }
    m_geometry = std::make_shared<GeometryStore>(std::move(geometry), types, m_parts, m_service);
    if (m_entities != KFR::NULLSP) {
        m_resolver = m_entities->addResolver(
            [this](auto const& reference) { return entityInParts(reference); });
    }
    setUpParts();
    m_root->answerWith({[this](auto const& reference) { return this->entity(reference); },
                        [this] {
                            return highestNodeId();
                        }});
}

void Model::setUpParts()
{
    m_link = std::make_shared<StoreLink>(m_geometry);
    for (std::size_t part = 0; part < m_parts.size(); ++part) {
        std::vector<unsigned> bodies;
        for (geometry::Entity const& entity : this->geometry().entitiesOf(part)) {
            if (geometry::isBodyClass(entity.m_class)) {
                bodies.push_back(entity.m_number);
            }
        }
        m_parts[part]->setGeometry(m_link, std::move(bodies));
    }
}

Model::~Model()
{
    auto const close = [this](Entity const& entity) {
        if (m_entities != KFR::NULLSP) {
            static_cast<void>(m_entities->withdraw(entity->getEntityReference()));
        }
        auto const object = KFR::strict_cast<ModelObjectInterface>(entity);
        object->setDeleted(true);
        object->detach();
    };
    m_root->answerWith({});
    for (auto const& [name, entity] : m_byName) {
        close(entity);
    }
    for (auto const& part : m_parts) {
        part->meshBodies().deleteAll();
        if (part->meshPart() != KFR::NULLSP) {
            part->meshPart()->leavePart();
        }
    }
    close(m_root);
}

GeometryStore::Object Model::object(unsigned number) const
{
    return m_geometry->object(number);
}

KFRSmartPointer<CAE::IPersistentObjectInterface> Model::byPersistentName(
    std::string const& name) const
{
    auto found = ownByName(name);
    for (auto part = m_parts.begin(); found == KFR::NULLSP && part != m_parts.end(); ++part) {
        if ((*part)->mesh() == KFR::NULLSP || !name.starts_with((*part)->persistentName() + '/')) {
            continue;
        }
        for (Entity const& entity : (*part)->mesh()->entities()) {
            if (KFR::strict_cast<ModelObjectInterface>(entity)->persistentName() == name) {
                found = KFR::strict_cast<CAE::IPersistentObjectInterface>(entity);
            }
        }
    }
    return found;
}

KFRSmartPointer<CAE::IPersistentObjectInterface> Model::ownByName(std::string const& name) const
{
    if (name == m_root->persistentName()) {
        return m_root;
    }
    if (auto const row = m_byName.find(name); row != m_byName.end()) {
        return KFR::strict_cast<CAE::IPersistentObjectInterface>(row->second);
    }
    return KFR::loose_cast<CAE::IPersistentObjectInterface>(object(m_geometry->numberOf(name)));
}

Model::Entity Model::entity(CAE::EntityReference const& reference) const
{
    Entity found =
        m_entities != KFR::NULLSP ? m_entities->getEntity(reference) : entityInParts(reference);
    // Without a manager nothing finds the rest by reference but a walk.
    if (found == KFR::NULLSP && m_entities == KFR::NULLSP) {
        if (m_root->getEntityReference() == reference) {
            return m_root;
        }
        auto const row = std::find_if(m_byName.begin(), m_byName.end(), [&](auto const& known) {
            return known.second->getEntityReference() == reference;
        });
        found = row != m_byName.end() ? row->second : found;
    }
    return isDeleted(found) ? Entity() : found;
}

Model::Entity Model::entityInParts(CAE::EntityReference const& reference) const
{
    if (auto const object = m_geometry->object(m_geometry->numberOf(reference));
        object != KFR::NULLSP) {
        return KFR::loose_cast<appfw::IEntityInterface>(object);
    }
    KFRIService owner = reference.service;
    if (auto const instance = KFR::loose_cast<KFR::EOM::IEOMInstanceInterface>(owner);
        instance != KFR::NULLSP) {
        static_cast<void>(instance->getPart(owner));
    }
    auto const part = std::find_if(m_parts.begin(), m_parts.end(),
                                   [&owner](auto const& known) { return known == owner; });
    bool const isMesh =
        part != m_parts.end() && reference.subId == 0 && (*part)->mesh() != KFR::NULLSP;
    return isMesh ? (*part)->mesh()->entity(reference.typeId, reference.id) : Entity();
}

unsigned long long Model::highestNodeId() const
{
    unsigned long long highest = 0;
    for (auto const& part : m_parts) {
        if (auto const mesh = part->mesh(); !isDeleted(part) && mesh != KFR::NULLSP) {
            highest = std::max(highest, mesh->highestNodeId());
        }
    }
    return highest;
}

template <class Property>
KFRSmartPointer<Property> Model::addProperty(std::string const& name)
{
    std::string const above = m_root->persistentName() + '/' + Property::kKind;
    SiblingNames& names = m_propertyNames.try_emplace(above, above).first->second;
    auto const number = ++m_lastProperty;
    auto property =
        KFR::make<Property>(name, names.next(name), m_root,
                            m_types->getTypeId(Property::typeName()), number, m_service);
    property->attach(m_root.get());
    m_properties.push_back(property);
    enter(property);
    return property;
}

KFRSmartPointer<Material> Model::addMaterial(std::string const& name)
{
    return addProperty<Material>(name);
}

KFRSmartPointer<SectionProperty> Model::addSection(std::string const& name)
{
    return addProperty<SectionProperty>(name);
}

KFRSmartPointer<BehaviorProperty> Model::addBehavior(std::string const& name)
{
    return addProperty<BehaviorProperty>(name);
}

KFRResult Model::remove(Entity const& entity)
{
    auto const object = KFR::loose_cast<ModelObjectInterface>(entity);
    if (object == KFR::NULLSP || entity == m_root ||
        !(ownByName(object->persistentName()) == entity)) {
        return KFRResult(kUnknownEntity)
            .addParam(entity == KFR::NULLSP
                          ? std::string("There is no entity to remove.")
                          : entity->getObjectName() + " is not in the model " +
                                m_root->persistentName() + ", or is the model itself.");
    }
    EntityService::Batch const batch(m_service);
    removeBelow(entity);
    take(entity);
    auto const isGone = [](auto const& known) {
        return isDeleted(known);
    };
    std::erase_if(m_properties, isGone);
    std::erase_if(m_instances, isGone);
    return KFR::ok;
}

void Model::removeBelow(Entity const& entity)
{
    std::vector<Entity> below;
    // Nodes in an assembly have its name before their own; '/' separates names and is in none.
    std::string const above =
        KFR::strict_cast<ModelObjectInterface>(entity)->persistentName() + '/';
    for (auto row = m_byName.lower_bound(above);
         row != m_byName.end() && row->first.starts_with(above); ++row) {
        below.push_back(row->second);
    }
    for (auto const& part : m_parts) {
        if (part == entity) {
            CAE::IInstanceSequence instances;
            part->getInstances(instances);
            for (auto const& instance : std::as_const(instances)) {
                below.push_back(KFR::strict_cast<appfw::IEntityInterface>(instance));
            }
            m_geometry->removeAllOf(*part);
            part->meshBodies().deleteAll();
            if (part->mesh() != KFR::NULLSP) {
                part->mesh()->deleteAll();
            }
        }
    }
    for (Entity const& gone : below) {
        take(gone);
    }
}

void Model::enter(Entity const& entity)
{
    m_byName.emplace(KFR::strict_cast<ModelObjectInterface>(entity)->persistentName(), entity);
    if (m_entities != KFR::NULLSP) {
        static_cast<void>(m_entities->add(entity));  // no two have one reference
    }
}

void Model::take(Entity const& entity)
{
    auto const object = KFR::strict_cast<ModelObjectInterface>(entity);
    CAE::EntityReference const reference = entity->getEntityReference();
    bool const isTold = m_entities != KFR::NULLSP && m_entities->remove(reference).isOk();
    if (!isTold && m_service != nullptr) {
        m_service->deleted(entity);
    }
    if (m_byName.erase(object->persistentName()) == 0) {
        if (auto const body = KFR::loose_cast<KFR::EOM::IEOMGeomBodyInterface>(entity);
            body != KFR::NULLSP) {
            deleteMeshOn(*body, reference.id);
        }
        m_geometry->remove(m_geometry->numberOf(reference));
        return;
    }
    object->setDeleted(true);
    object->detach();
}

void Model::deleteMeshOn(KFR::EOM::IEOMGeomBodyInterface& body, unsigned number)
{
    KFRSmartPointer<KFR::EOM::IEOMPartInterface> owner;
    static_cast<void>(body.getPart(owner));
    for (auto const& part : m_parts) {
        if (part == owner && part->mesh() != KFR::NULLSP) {
            part->mesh()->deleteBodiesOn(number);
        }
    }
}

CAE::EntityReference Model::reference(unsigned number) const
{
    return m_geometry->reference(number);
}

CAE::EntityReference Model::partReference(std::size_t part) const
{
    if (part >= m_parts.size()) {
        return {};
    }
    return m_parts[part]->getEntityReference();
}

}  // namespace vrn::orlo::host::model
