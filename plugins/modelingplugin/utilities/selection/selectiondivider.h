/// \file
/// A mixed selection, sorted by kind.

#pragma once

#include "platform/caedata/caedata.h"
#include "platform/caedata/entityreferencelist.h"
#include "platform/caedata/pocompare.h"
#include "platform/deps/btree.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

namespace vrn::orlo::plugin::modeling {

/// Divides a selection into eight buckets by the types of its references, and gives each as the
/// objects that commands want.
///
/// A part counts as the first place where it stands. Vertices, nodes, element faces, assemblies,
/// mesh bodies and shell behaviours fit no bucket and are left out: the last bucket, for behaviours,
/// is always empty.
///
/// Order      Of the selection, in each bucket; nothing is made unique.
/// Failure    What does not resolve is left out in silence.
/// Threads    Main thread.
/// Cost       Division asks the type of each reference, and an object only for parts.
class MODELING_API SelectionDivider {
public:
    using ElementsByBody = btree::btree_map<KFRSmartPointer<CAE::IMeshBodyInterface>,
                                            KFRSequence<unsigned long long>, POCompare>;

    explicit SelectionDivider(CAE::EntityReferenceSequence const& selection);
    explicit SelectionDivider(
        KFRSmartPointer<CAE::IEntityReferenceConstListInterface> const& selection);

    [[nodiscard]] CAE::IPartSequence getParts() const;
    [[nodiscard]] CAE::IGeomBodySequence getGeomBodies() const;
    [[nodiscard]] CAE::IMeshSequence getMeshes() const;
    /// The mesh body of each mesh; one may come several times.
    [[nodiscard]] CAE::IMeshBodySequence getMeshBodies() const;
    [[nodiscard]] CAE::IGeometrySequence getGeometries() const;
    [[nodiscard]] CAE::IMaterialSequence getMaterials() const;
    [[nodiscard]] CAE::ISectionPropertySequence getSections() const;
    [[nodiscard]] CAE::IBehaviorPropertySequence getBehaviors() const;

    /// The elements by their external ids, as SelectionMakeup takes them. References under an
    /// instance are left out.
    /// \param flag  passed on to the bodies, which find an element by a reference's number: false
    ///              where that is the local one
    [[nodiscard]] ElementsByBody getElementIds(bool flag) const;

    // The buckets themselves.
    [[nodiscard]] CAE::EntityReferenceSequence const& parts() const { return m_parts; }
    [[nodiscard]] CAE::EntityReferenceSequence const& bodies() const { return m_bodies; }
    [[nodiscard]] CAE::EntityReferenceSequence const& meshes() const { return m_meshes; }
    [[nodiscard]] CAE::EntityReferenceSequence const& elements() const { return m_elements; }
    [[nodiscard]] CAE::EntityReferenceSequence const& geometries() const { return m_geometries; }
    [[nodiscard]] CAE::EntityReferenceSequence const& materials() const { return m_materials; }
    [[nodiscard]] CAE::EntityReferenceSequence const& sections() const { return m_sections; }
    [[nodiscard]] CAE::EntityReferenceSequence const& behaviors() const { return m_behaviors; }

private:
    /// How the tests for bodies and mesh groups are made; the answers are the same.
    enum class Tests { predicates, table };

    void divide(CAE::EntityReferenceSequence const& selection, Tests tests);

    CAE::EntityReferenceSequence m_parts;  ///< Part instances, never bare parts.
    CAE::EntityReferenceSequence m_bodies;
    CAE::EntityReferenceSequence m_meshes;
    CAE::EntityReferenceSequence m_elements;
    CAE::EntityReferenceSequence m_geometries;
    CAE::EntityReferenceSequence m_materials;
    CAE::EntityReferenceSequence m_sections;
    CAE::EntityReferenceSequence m_behaviors;
};

}  // namespace vrn::orlo::plugin::modeling
