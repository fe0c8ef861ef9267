/// \file
/// Mesh bodies and meshes as objects of the platform.

#pragma once

#include "host/meshing/meshsource.h"
#include "host/meshing/meshtables.h"
#include "host/meshing/meshtypes.h"
#include "host/model/entityservice.h"
#include "host/model/geometrylink.h"
#include "host/model/modelobject.h"
#include "host/model/persistentname.h"
#include "platform/caedata/caedata.h"
#include "platform/eom/eom.h"
#include "platform/kfr/kfrserviceobject.h"

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace vrn::orlo::host::meshing {

class MeshBody;

/// What all mesh objects of a part share.
struct MeshContext {
    MeshTypes m_types;
    std::shared_ptr<model::EntityService> m_service;  ///< Null: nobody is told.
    std::weak_ptr<model::GeometryLink> m_geometry;    ///< Gone, or none, for meshes without.
    unsigned m_lastSubMesh = 0;                       ///< Number of the sub-mesh made last.
};

/// What a new mesh has made of the objects that show it.
struct MeshChanges {
    using Entity = model::EntityService::Entity;

    std::vector<Entity> m_made;  ///< Also those that came back.
    std::vector<Entity> m_kept;
    std::vector<Entity> m_gone;

    /// Marks an object as deleted or not, and notes what that means.
    template <class Object>
    void settle(Object& object, bool exists)
    {
        bool const existed = !object.isDeleted();
        object.setDeleted(!exists);
        if (existed || exists) {
            (!existed ? m_made : exists ? m_kept : m_gone).push_back(Entity(&object));
        }
    }
    /// Creations, refreshes and deletions, in one batch.
    void tell(std::shared_ptr<model::EntityService> const& service) const;
};

/// The part that an object stands in; the topmost object above where there is none.
[[nodiscard]] KFRIService partAbove(CAE::IPersistentObjectInterface& object);

/// Elements of one dimension of a body. Stands in the body; its reference has the part as its
/// service. Properties: "name" and "visible".
///
/// A mesh that a new revision leaves without elements is deleted; it comes back with the next
/// revision in which it has some.
template <class... Further>
class MeshOf : public model::ModelObjectOf<CAE::IMeshInterface, CAE::IFEMeshInterface,
                                           MeshSourceInterface, Further...> {
    using Base = model::ModelObjectOf<CAE::IMeshInterface, CAE::IFEMeshInterface,
                                      MeshSourceInterface, Further...>;

public:
    CAE::EntityReference getEntityReference() override;

    KFRResult getDimension(unsigned char& dimension) override;
    KFRResult getMeshBody(KFRSmartPointer<CAE::IMeshBodyInterface>& body) override;
    KFRResult getElementIds(KFRSequence<unsigned long long>& ids) override;
    /// True of dimension 2 only: a solid mesh fills its skin and is no surface.
    KFRResult isSurface(bool& surface) override;
    KFRResult getGeometry(KFRSmartPointer<CAE::IGeometryInterface>& geometry) override;

    [[nodiscard]] std::shared_ptr<MeshTables const> const& tables() const noexcept override
    {
        return m_tables;
    }
    [[nodiscard]] std::vector<LocalNumber> elements() const override;

    [[nodiscard]] LocalNumber elementCount() const;
    /// Of its reference.
    [[nodiscard]] unsigned number() const noexcept { return m_number; }
    /// Number of the geometry that the mesh lies on; 0 for none.
    [[nodiscard]] unsigned entity() const noexcept { return m_entity; }

    // For the body.

    /// \param groups  that the mesh consists of; none deletes it
    void show(std::shared_ptr<MeshTables const> const& tables, std::vector<MeshIndex> groups,
              MeshChanges& changes);
    /// To be called when the body goes.
    void leaveBody() noexcept;

    /// Null once it has gone.
    [[nodiscard]] MeshBody* body() const noexcept { return m_body; }
    [[nodiscard]] std::uint8_t dimension() const noexcept { return m_dimension; }

protected:
    struct Traits {
        std::string m_persistentName;
        std::string m_name;
        unsigned m_typeId;
        unsigned m_number;
        std::uint8_t m_dimension;
        unsigned m_entity;
    };
    MeshOf(MeshBody& body, Traits traits);

private:
    MeshBody* m_body;
    unsigned m_number;
    std::uint8_t m_dimension;
    unsigned m_entity;
    std::shared_ptr<MeshTables const> m_tables;
    std::vector<MeshIndex> m_groups;
};

/// All elements of one dimension of a body. Lies on what the body lies on.
///
/// Its reference has the display's type for the dimension; its id is the dimension, and four more
/// for each body before.
class Mesh final : public MeshOf<CAE::IContinuousMeshInterface> {
public:
    /// \param body  tells the mesh when it goes
    Mesh(MeshBody& body, std::uint8_t dimension);

    KFRResult isContinuous(bool& continuous) override;
    KFRResult getSubMeshes(CAE::IMeshSequence& meshes) override;
};

/// The elements of one dimension of a body that lie on one geometry entity, or that a file holds
/// together.
///
/// Its reference has the type "Simulation.FEM.FEMesh"; its id is unique in the part.
class SubMesh final : public MeshOf<> {
public:
    /// \param body            tells the sub-mesh when it goes
    /// \param persistentName  as for ModelObjectOf
    SubMesh(MeshBody& body, std::string persistentName, MeshGroup const& group);

    KFRResult isContinuous(bool& continuous) override;
};

/// The mesh of a geometry body, or one without geometry. Elements are made as they are asked for.
///
/// Its reference has the part as its service, where it stands in one. Properties: "name" and
/// "visible".
///
/// Ownership  Holds its meshes, those that are deleted too; they hold the mesh's data.
class MeshBody final
    : public model::ModelObjectOf<CAE::IMeshBodyInterface, KFR::EOM::IEOMMeshBodyInterface,
                                  MeshSourceInterface> {
public:
    /// Shows nothing yet.
    /// \param number  of the reference, from 1
    MeshBody(std::string persistentName, MeshBodyRow const& row, unsigned number,
             std::shared_ptr<MeshContext> context);

    CAE::EntityReference getEntityReference() override;

    /// \param typeId  that of "Simulation.FEM.ContinuousMesh" for all meshes, by ascending
    ///                dimension; that of the display's type for one dimension's
    KFRResult getMeshes(unsigned int typeId, CAE::IMeshSequence& meshes) override;
    KFRResult getElement(unsigned long long id, KFRSmartPointer<CAE::IElementInterface>& element,
                         bool flag) override;
    KFRResult getMeshList(CAE::IMeshSequence& meshes) override;
    KFRResult getElementIds(KFRSequence<unsigned long long>& ids) override;
    KFRResult getNodeIds(KFRSequence<unsigned long long>& ids) override;
    KFRResult getElementId(int number, unsigned long long& id) override;
    KFRResult getNodeId(int number, unsigned long long& id) override;
    KFRResult getGeomBody(KFRSmartPointer<CAE::IGeomBodyInterface>& body) override;

    [[nodiscard]] std::shared_ptr<MeshTables const> const& tables() const noexcept override
    {
        return m_tables;
    }
    [[nodiscard]] std::vector<LocalNumber> elements() const override;
    /// Of the body's elements; ascending.
    [[nodiscard]] std::span<LocalNumber const> nodes() const;

    /// Of the part, with the elements of all of its bodies.
    [[nodiscard]] MeshStore const& store() const noexcept { return m_tables->store(); }
    [[nodiscard]] MeshTypes const& types() const noexcept { return m_context->m_types; }
    [[nodiscard]] std::shared_ptr<MeshContext> const& context() const noexcept { return m_context; }
    [[nodiscard]] MeshBodyRow const& row() const noexcept { return m_row; }
    [[nodiscard]] unsigned number() const noexcept { return m_number; }
    /// Null where the body has no elements of the dimension; always for 0.
    [[nodiscard]] KFRSmartPointer<Mesh> meshOf(std::uint8_t dimension) const;
    /// Those with elements.
    [[nodiscard]] std::vector<KFRSmartPointer<SubMesh>> const& subMeshes() const noexcept
    {
        return m_present;
    }
    /// The sub-mesh of a group of this or another revision; null for a group that has none.
    [[nodiscard]] KFRSmartPointer<SubMesh> subMeshOf(MeshStore const& store, MeshIndex group) const;
    /// The geometry of a number; null where there is none.
    [[nodiscard]] KFRSmartPointer<CAE::IGeometryInterface> geometry(unsigned number) const;

    /// \param index  of the body in the store; nothing for a body that is no more
    void show(std::shared_ptr<MeshTables const> const& tables, std::optional<MeshIndex> index,
              MeshChanges& changes);
    /// To be called when the part goes: the body and its meshes are deleted, of which nobody is
    /// told, and keep their data.
    void leavePart() noexcept;

private:
    /// Dimension, geometry entity, name: by which a sub-mesh is the same in the next revision.
    using GroupKey = std::tuple<std::uint8_t, unsigned, std::string>;

    ~MeshBody() override;
    void showSubMeshes(std::vector<MeshIndex> const& groups, MeshChanges& changes);
    [[nodiscard]] SubMesh& subMesh(MeshGroup const& group);
    [[nodiscard]] bool hasElement(LocalNumber number) const;

    std::shared_ptr<MeshContext> m_context;
    MeshBodyRow m_row;
    unsigned m_number;
    std::shared_ptr<MeshTables const> m_tables;
    std::optional<MeshIndex> m_index;
    std::array<KFRSmartPointer<Mesh>, 4> m_meshes;
    std::map<GroupKey, KFRSmartPointer<SubMesh>, std::less<>> m_subMeshes;
    std::vector<KFRSmartPointer<SubMesh>> m_present;  // by dimension and group
    std::map<std::uint8_t, model::SiblingNames> m_subMeshNames;
};

}  // namespace vrn::orlo::host::meshing
