/// \file
/// Selections of faces, edges and vertices, packed for lists and for the display.

#pragma once

#include "platform/appfw/entref.h"
#include "platform/caedata/caedata.h"
#include "platform/caedata/pocompare.h"
#include "platform/ddm/display3ddatamanager.h"
#include "platform/deps/btree.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <vector>

namespace vrn::orlo::plugin::modeling {

/// Packs sub-entities by the body that they belong to, under the first instance of its part.
///
/// Order      Bodies in the order of POCompare, types by their ids, ids as added.
/// Failure    What cannot be found is left out in silence; a body whose part stands nowhere too.
/// Threads    Main thread.
class MODELING_API GeomSubEntRefMakeup {
public:
    void addGeometries(CAE::IGeometrySequence const& geometries);
    /// One container per body.
    void appendToEntRefSequence(appfw::IEntRefSequence& out);

private:
    using IdsByType = btree::btree_map<unsigned int, KFRSequence<unsigned int>>;

    btree::btree_map<KFRSmartPointer<CAE::IGeometryInterface>, IdsByType, POCompare> m_bodies;
};

/// Collects the numbers by which the display knows sub-entities, by displayed entity.
///
/// Order      Entities by number, then by type; numbers as added.
/// Failure    What is not displayed is left out in silence.
/// Threads    Main thread.
class MODELING_API SubEntitiesCollector {
public:
    void addGeometries(CAE::IGeometrySequence const& geometries);
    /// All that has been added; it stays.
    [[nodiscard]] ddm::subEntitySequence getSubEntities() const;

private:
    /// By the whole reference: two owners may each have an entity of one number and type.
    struct ByReference {
        bool operator()(CAE::EntityReference const& left, CAE::EntityReference const& right) const;
    };

    btree::btree_map<CAE::EntityReference, KFRSequence<unsigned int>, ByReference> m_numbers;
};

}  // namespace vrn::orlo::plugin::modeling
