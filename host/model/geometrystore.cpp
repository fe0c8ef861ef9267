#include "host/model/geometrystore.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace vrn::orlo::host::model {

using geometry::Entity;
using geometry::isBodyClass;

namespace {

/// Where a number stands among ascending ones that have it, from 1.
unsigned ordinalOf(unsigned number, std::vector<unsigned> const& numbers)
{
    auto const place = std::lower_bound(numbers.begin(), numbers.end(), number);
    return static_cast<unsigned>(place - numbers.begin()) + 1;
}

}  // namespace

GeometryStore::GeometryStore(geometry::GeometryModel geometry,
                             KFR::Services::TypeRegistry::ITypeRegistryInterface& types,
                             std::vector<KFRSmartPointer<Part>> parts,
                             std::shared_ptr<EntityService> service)
    : m_geometry(std::move(geometry)),
      m_parts(std::move(parts)),
      m_service(std::move(service)),
      m_objects(m_geometry.m_entities.size()),
      m_isDeleted(m_geometry.m_entities.size())
{
    for (unsigned part = 0; part < m_parts.size(); ++part) {
        m_partByInstance.emplace(m_parts[part]->getInstanceID(), part);
        m_partByName.emplace(m_parts[part]->persistentName(), part);
    }
    for (Entity const& entity : m_geometry.m_entities) {
        if (auto const [row, isNew] = m_typeIds.try_emplace(entity.m_class); isNew) {
            std::string const name(geometry::typeNameOf(entity.m_class));
            row->second = types.getTypeId(icu::UnicodeString::fromUTF8(name));
        }
        m_ofClass[{entity.m_part, geometry::typeNameOf(entity.m_class)}].push_back(entity.m_number);
        if (!isBodyClass(entity.m_class)) {
            m_ofBody[entity.m_body].push_back(entity.m_number);
        }
    }
}

GeometryStore::~GeometryStore()
{
    for (Entity const& entity : m_geometry.m_entities) {
        erase(entity.m_number);
    }
}

GeometryStore::Object GeometryStore::object(unsigned number)
{
    return exists(number) ? made(*m_geometry.entity(number)) : Object();
}

GeometryStore::Object GeometryStore::made(Entity const& entity)
{
    Object& object = m_objects[indexOf(entity.m_number)];
    if (object != KFR::NULLSP) {
        return object;
    }
    KFRSmartPointer<Part> const& part = m_parts[entity.m_part];
    unsigned const typeId = m_typeIds.at(entity.m_class);
    if (isBodyClass(entity.m_class)) {
        object = KFR::make<GeomBody>(nameOf(entity), part, typeId, entity.m_number, m_service);
    } else {
        unsigned const ordinal = ordinalOf(entity.m_number, m_ofBody.at(entity.m_body));
        object = KFR::make<Geometry>(nameOf(entity), part, made(*m_geometry.entity(entity.m_body)),
                                     ordinal, typeId, entity.m_number, m_service);
    }
    return object;
}

CAE::EntityReference GeometryStore::reference(unsigned number) const
{
    Entity const* const entity = m_geometry.entity(number);
    if (entity == nullptr) {
        return {};
    }
    return {m_parts[entity->m_part], m_typeIds.at(entity->m_class), number, 0};
}

unsigned GeometryStore::numberOf(CAE::EntityReference const& reference) const
{
    if (!exists(reference.id) || reference.subId != 0) {
        return 0;
    }
    Entity const& entity = *m_geometry.entity(reference.id);
    bool const isMeant = m_typeIds.at(entity.m_class) == reference.typeId &&
                         partOf(reference.service) == entity.m_part;
    return isMeant ? entity.m_number : 0;
}

unsigned GeometryStore::numberOf(std::string const& persistentName) const
{
    // PART/CLASS/ORDINAL, where the part's name has steps of its own.
    std::size_t const last = persistentName.rfind('/');
    if (last == std::string::npos || last == 0) {
        return 0;
    }
    std::size_t const middle = persistentName.rfind('/', last - 1);
    if (middle == std::string::npos) {
        return 0;
    }
    auto const part = m_partByName.find(persistentName.substr(0, middle));
    if (part == m_partByName.end()) {
        return 0;
    }
    std::string_view const rest(persistentName);
    auto const row = m_ofClass.find({part->second, rest.substr(middle + 1, last - middle - 1)});
    std::size_t ordinal = 0;
    std::from_chars(rest.data() + last + 1, rest.data() + rest.size(), ordinal);
    if (row == m_ofClass.end() || ordinal == 0 || ordinal > row->second.size()) {
        return 0;
    }
    unsigned const number = row->second[ordinal - 1];
    // Names such as "FACE/07" and "FACE/7x" are nobody's.
    bool const isItsName = nameOf(*m_geometry.entity(number)) == persistentName;
    return isItsName && exists(number) ? number : 0;
}

std::size_t GeometryStore::subEntityCount(unsigned body) const
{
    auto const row = m_ofBody.find(body);
    return row != m_ofBody.end() && exists(body) ? row->second.size() : 0;
}

void GeometryStore::remove(unsigned number)
{
    if (!exists(number)) {
        return;
    }
    if (auto const row = m_ofBody.find(number); row != m_ofBody.end()) {
        for (unsigned const below : row->second) {
            erase(below);
        }
    }
    erase(number);
}

void GeometryStore::removeAllOf(Part& part)
{
    auto const index = m_partByInstance.find(part.getInstanceID());
    if (index == m_partByInstance.end()) {
        return;
    }
    for (Entity const& entity : m_geometry.entitiesOf(index->second)) {
        erase(entity.m_number);
    }
}

void GeometryStore::erase(unsigned number)
{
    m_isDeleted[indexOf(number)] = true;
    Object const object = std::exchange(m_objects[indexOf(number)], {});
    if (auto const gone = KFR::loose_cast<ModelObjectInterface>(object); gone != KFR::NULLSP) {
        gone->setDeleted(true);
    }
    if (auto const body = KFR::loose_cast<MeshBodyOwnerInterface>(object); body != KFR::NULLSP) {
        body->meshBodies().deleteAll();
    }
}

bool GeometryStore::exists(unsigned number) const noexcept
{
    return m_geometry.entity(number) != nullptr && !m_isDeleted[indexOf(number)];
}

std::string GeometryStore::nameOf(Entity const& entity) const
{
    std::string_view const typeName = geometry::typeNameOf(entity.m_class);
    unsigned const ordinal = ordinalOf(entity.m_number, m_ofClass.at({entity.m_part, typeName}));
    return m_parts[entity.m_part]->persistentName() + '/' + std::string(typeName) + '/' +
           std::to_string(ordinal);
}

std::optional<unsigned> GeometryStore::partOf(KFRIService const& service) const
{
    KFRIService part = service;
    if (auto const instance = KFR::loose_cast<KFR::EOM::IEOMInstanceInterface>(service);
        instance != KFR::NULLSP) {
        static_cast<void>(instance->getPart(part));
    }
    if (part == KFR::NULLSP) {
        return std::nullopt;
    }
    auto const row = m_partByInstance.find(part->getInstanceID());
    return row != m_partByInstance.end() ? std::optional(row->second) : std::nullopt;
}

}  // namespace vrn::orlo::host::model
