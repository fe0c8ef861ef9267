/// \file
/// An imported geometry with its entities as objects.

#pragma once

#include "host/geometry/geometrymodel.h"
#include "host/model/entityservice.h"
#include "host/model/geometryobjects.h"
#include "platform/caedata/caedata.h"
#include "platform/caedata/entityreference.h"
#include "platform/registry/typeregistry.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace vrn::orlo::host::model {

/// Makes the objects of topological entities when they are first asked for, and keeps them. Finds
/// entities by number, by reference and by persistent name; the latter two make no object.
///
/// Failure    Null, 0 or nothing for what is not there or has been deleted.
/// Ownership  Owns the geometry and holds parts and objects.
/// Threads    Main thread.
/// Cost       Construction and deletion: linear in the number of entities. By number and by
///            reference: constant, but for the making of the object. By name: a logarithm.
class GeometryStore {
public:
    using Object = KFRSmartPointer<CAE::IGeometryInterface>;

    /// \param types    asked for the ids of the classes that the geometry has, once each
    /// \param parts    those of the geometry, in its order
    /// \param service  told of changes to objects; may be null
    GeometryStore(geometry::GeometryModel geometry,
                  KFR::Services::TypeRegistry::ITypeRegistryInterface& types,
                  std::vector<KFRSmartPointer<Part>> parts, std::shared_ptr<EntityService> service);
    GeometryStore(GeometryStore const&) = delete;
    GeometryStore& operator=(GeometryStore const&) = delete;
    /// Marks all objects deleted, for those who hold on to them.
    ~GeometryStore();

    [[nodiscard]] geometry::GeometryModel const& geometry() const noexcept { return m_geometry; }

    /// Whether the number is that of an entity, and has not been deleted.
    [[nodiscard]] bool exists(unsigned number) const noexcept;
    [[nodiscard]] Object object(unsigned number);
    /// The part of an index in the geometry, deleted or not.
    [[nodiscard]] KFRSmartPointer<Part> const& part(std::size_t index) const
    {
        return m_parts.at(index);
    }
    /// A reference is made also for what has been deleted.
    [[nodiscard]] CAE::EntityReference reference(unsigned number) const;

    /// \param reference  its service is the part, or an instance of the part
    [[nodiscard]] unsigned numberOf(CAE::EntityReference const& reference) const;
    [[nodiscard]] unsigned numberOf(std::string const& persistentName) const;
    /// How many sub-entities a body has, of all classes.
    [[nodiscard]] std::size_t subEntityCount(unsigned body) const;

    /// Deletes an entity with all that belongs to it.
    void remove(unsigned number);
    /// Deletes all of a part.
    void removeAllOf(Part& part);

private:
    /// A part's index, and the type name of a class.
    using ClassKey = std::pair<unsigned, std::string_view>;

    [[nodiscard]] std::size_t indexOf(unsigned number) const noexcept
    {
        return number - m_geometry.firstNumber();
    }
    [[nodiscard]] Object made(geometry::Entity const& entity);
    void erase(unsigned number);
    [[nodiscard]] std::string nameOf(geometry::Entity const& entity) const;
    /// Index of the part that a reference's service is or places; nothing for any other.
    [[nodiscard]] std::optional<unsigned> partOf(KFRIService const& service) const;

    geometry::GeometryModel m_geometry;
    std::vector<KFRSmartPointer<Part>> m_parts;
    std::shared_ptr<EntityService> m_service;
    std::map<geometry::EntityClass, unsigned> m_typeIds;
    std::unordered_map<long long, unsigned> m_partByInstance;
    std::unordered_map<std::string, unsigned> m_partByName;
    std::map<ClassKey, std::vector<unsigned>> m_ofClass;           // numbers, ascending
    std::unordered_map<unsigned, std::vector<unsigned>> m_ofBody;  // without the body's own
    std::vector<Object> m_objects;  // in the geometry's order; null until asked for
    std::vector<bool> m_isDeleted;  // in the same order
};

}  // namespace vrn::orlo::host::model
