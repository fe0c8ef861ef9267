#include "host/model/model.h"

#include "platform/typenames/objectmodel.h"

#include <filesystem>
#include <utility>

namespace vrn::orlo::host::model {

using KFR::Services::TypeRegistry::ITypeRegistryInterface;

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
    for (Entity const& node : tree.m_nodes) {
        enter(node);
    }
    m_geometry = std::make_shared<GeometryStore>(std::move(geometry), types, m_parts, m_service);
    if (m_entities != KFR::NULLSP) {
        m_resolver = m_entities->addResolver([store = m_geometry.get()](auto const& reference) {
            return KFR::loose_cast<appfw::IEntityInterface>(
                store->object(store->numberOf(reference)));
        });
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
    for (auto const& [name, entity] : m_byName) {
        close(entity);
    }
    for (auto const& part : m_parts) {
        part->meshBodies().deleteAll();
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
    if (name == m_root->persistentName()) {
        return m_root;
    }
    if (auto const row = m_byName.find(name); row != m_byName.end()) {
        return KFR::strict_cast<CAE::IPersistentObjectInterface>(row->second);
    }
    return KFR::loose_cast<CAE::IPersistentObjectInterface>(object(m_geometry->numberOf(name)));
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
        !(byPersistentName(object->persistentName()) == entity)) {
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
        m_geometry->remove(m_geometry->numberOf(reference));
        return;
    }
    object->setDeleted(true);
    object->detach();
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
