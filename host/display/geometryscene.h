/// \file
/// The faces of a placed geometry along a line of sight. For the sources of this module only.

#pragma once

#include "host/display/boxtree.h"
#include "host/display/frame.h"
#include "host/geometry/geometrypicker.h"
#include "host/geometry/geometryqueries.h"
#include "host/geometry/keptbynumber.h"

#include <memory>
#include <optional>
#include <vector>

namespace vrn::orlo::host::display {

[[nodiscard]] inline Box boxOf(geometry::Box const& box)
{
    return {box.m_min, box.m_max};
}

/// A part as an instance shows it.
struct ShownPart {
    unsigned m_part = 0;
    Frame m_frame;
};

/// All instances of a model, ready for lines of sight.
///
/// Ownership  Refers to the model and the queries.
/// Threads    Const operations may run on several threads.
/// Cost       The boxes of a part's faces are found when the first ray comes near to it.
class GeometryScene {
public:
    struct Crossing {
        unsigned m_face = 0;
        unsigned m_instance = 0;
        double m_depth = 0.0;
    };

    GeometryScene(geometry::GeometryModel const& model, geometry::GeometryPicker const& instances,
                  geometry::GeometryQueries const& queries);

    /// By the indices of the picker's instances.
    [[nodiscard]] std::vector<ShownPart> const& instances() const noexcept { return m_instances; }

    /// Where the ray meets each face first, at depths from 0; in no particular order.
    [[nodiscard]] std::vector<Crossing> crossings(Ray const& ray) const;
    /// True when the ray meets a face at a depth from 0 to below the limit.
    [[nodiscard]] bool isMet(Ray const& ray, double limit) const;

private:
    /// The faces of a part.
    struct Faces {
        std::vector<unsigned> m_numbers;
        std::vector<Box> m_boxes;
        BoxTree m_tree;
    };

    [[nodiscard]] Faces const& facesOf(unsigned part) const;
    [[nodiscard]] std::optional<double> depthOn(unsigned face, Ray const& inPart) const;
    template <typename Visit>
    void visitAlong(unsigned instance, Ray const& ray, double deepest, Visit const& visit) const;

    geometry::GeometryModel const& m_model;
    geometry::GeometryQueries const& m_queries;
    std::vector<ShownPart> m_instances;
    std::vector<Box> m_partBoxes;
    std::unique_ptr<geometry::KeptByNumber<Faces>> m_faces;  // by part
};

}  // namespace vrn::orlo::host::display
