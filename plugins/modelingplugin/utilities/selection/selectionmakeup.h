/// \file
/// Selections of model objects as references.

#pragma once

#include "platform/caedata/caedata.h"
#include "platform/caedata/pocompare.h"
#include "platform/deps/btree.h"
#include "platform/eom/eom.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

namespace vrn::orlo::plugin::modeling {

/// Collects references of parts, geometry, meshes, properties and elements.
///
/// Order      Of the calls, and within a call of its items.
/// Failure    What has no reference is left out in silence. KFRSystemException for an object of the
///            object model that should be an entity and is none, and for a service of another kind.
/// Threads    Main thread.
/// Cost       Linear; per element one look-up in its mesh body.
class MODELING_API SelectionMakeup {
public:
    using ElementIds = KFRSequence<unsigned long long>;
    using ElementsByBody =
        btree::btree_map<KFRSmartPointer<CAE::IMeshBodyInterface>, ElementIds, POCompare>;

    void add(CAE::IPartSequence const& parts);
    void add(CAE::IBehaviorPropertySequence const& behaviors);
    void add(CAE::ISectionPropertySequence const& sections);
    void add(CAE::IMaterialSequence const& materials);
    void add(CAE::IGeometrySequence const& geometries);
    void add(CAE::IGeomBodySequence const& bodies);
    void add(KFR::EOM::IEOMGeometrySequence const& geometries);
    void add(CAE::IMeshSequence const& meshes);
    /// All continuous meshes of the bodies.
    void add(CAE::IMeshBodySequence const& bodies);

    /// Elements: of each body the element with the id at the same place. Nothing at all when the
    /// two differ in length.
    /// \param flag  passed on to the bodies
    void add(CAE::IMeshBodySequence const& bodies, ElementIds ids, bool flag);
    /// Elements of the part's first mesh body.
    void add(KFRSmartPointer<CAE::IPartInterface> part, ElementIds ids, bool flag);
    /// Elements by their external ids.
    void add(ElementsByBody const& elements);

    [[nodiscard]] CAE::EntityReferenceSequence getEntRefs() const { return m_references; }

private:
    CAE::EntityReferenceSequence m_references;
};

}  // namespace vrn::orlo::plugin::modeling
