#include "host/display/geometryscene.h"

#include <limits>
#include <utility>

namespace vrn::orlo::host::display {

namespace {

constexpr double kNever = std::numeric_limits<double>::infinity();

/// Boxes are exact to about a tenth of this; no ray may pass a face by for it.
constexpr double kBoxDoubt = 1e-6;

Box grown(Box const& box)
{
    return box.isEmpty()
               ? box
               : Box{sum(box.m_low, {1, 1, 1}, -kBoxDoubt), sum(box.m_high, {1, 1, 1}, kBoxDoubt)};
}

}  // namespace

GeometryScene::GeometryScene(geometry::GeometryModel const& model,
                             geometry::GeometryPicker const& instances,
                             geometry::GeometryQueries const& queries)
    : m_model(model), m_queries(queries), m_faces(std::make_unique<geometry::KeptByNumber<Faces>>())
{
    for (geometry::PlacedInstance const& instance : instances.instances()) {
        m_instances.push_back({instance.m_part, Frame(instance.m_placement.m_rows)});
    }
    for (geometry::Part const& part : model.m_parts) {
        m_partBoxes.push_back(grown(boxOf(part.m_box)));
    }
}

std::vector<GeometryScene::Crossing> GeometryScene::crossings(Ray const& ray) const
{
    std::vector<Crossing> found;
    for (unsigned i = 0; i < m_instances.size(); ++i) {
        visitAlong(i, ray, kNever, [&](unsigned face, double depth) {
            found.push_back({face, i, depth});
            return kNever;
        });
    }
    return found;
}

bool GeometryScene::isMet(Ray const& ray, double limit) const
{
    bool isMet = false;
    for (unsigned i = 0; i < m_instances.size() && !isMet; ++i) {
        visitAlong(i, ray, limit, [&](unsigned, double depth) {
            isMet = isMet || depth < limit;
            return isMet ? -1.0 : limit;
        });
    }
    return isMet;
}

template <typename Visit>
void GeometryScene::visitAlong(unsigned instance, Ray const& ray, double deepest,
                               Visit const& visit) const
{
    auto const& [part, frame] = m_instances[instance];
    if (!frame.isUsable()) {
        return;
    }
    Ray const inPart = frame.toPart(ray);
    BoxCrossing const crossing(inPart);
    if (!crossing.meets(m_partBoxes[part], deepest)) {
        return;
    }
    Faces const& faces = facesOf(part);
    faces.m_tree.along(inPart, deepest, [&](std::uint32_t index) {
        // Faces cost much more than boxes.
        std::optional<double> const depth = crossing.meets(faces.m_boxes[index], deepest)
                                                ? depthOn(faces.m_numbers[index], inPart)
                                                : std::nullopt;
        return depth ? visit(faces.m_numbers[index], *depth) : deepest;
    });
}

GeometryScene::Faces const& GeometryScene::facesOf(unsigned part) const
{
    return m_faces->at(part, [&] {
        std::vector<unsigned> numbers;
        std::vector<Box> boxes;
        for (geometry::Entity const& entity : m_model.entitiesOf(part)) {
            if (entity.m_class == geometry::EntityClass::face) {
                numbers.push_back(entity.m_number);
                boxes.push_back(
                    grown(boxOf(m_queries.box(entity.m_number).value_or(geometry::Box()))));
            }
        }
        BoxTree tree(boxes);
        return Faces{std::move(numbers), std::move(boxes), std::move(tree)};
    });
}

std::optional<double> GeometryScene::depthOn(unsigned face, Ray const& inPart) const
{
    for (Vector const& point :
         m_queries.intersections(face, {inPart.m_origin, inPart.m_direction})) {
        double const depth = depthOf(inPart, point);
        if (depth >= 0.0) {
            return depth;
        }
    }
    return std::nullopt;
}

}  // namespace vrn::orlo::host::display
