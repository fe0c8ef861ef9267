#include "host/display/pixelpicker.h"

#include "host/display/edgepoints.h"
#include "host/display/geometryscene.h"

#include <algorithm>
#include <set>
#include <tuple>
#include <utility>

namespace vrn::orlo::host::display {

namespace {

using geometry::EntityClass;
using geometry::GeometryModel;
using geometry::GeometryQueries;

/// Share of the model's diagonal by which a face must lie before an edge or a vertex to hide it:
/// in files they lie beside each other by as much as the maker's tolerance.
constexpr double kHiding = 1e-4;

/// The order of hits that go together.
enum class Rank { vertex, edge, face, volume, body };

struct Found {
    PixelHit m_hit;
    Rank m_rank = Rank::face;
    double m_order = 0.0;  // the depth that it is sorted by
};

bool isBefore(Found const& a, Found const& b)
{
    auto const key = [](Found const& found) {
        PixelHit const& hit = found.m_hit;
        return std::tuple(found.m_order, found.m_rank, hit.m_pixels, hit.m_depth, hit.m_number,
                          hit.m_instance);
    };
    return key(a) < key(b);
}

bool isWireClass(EntityClass entityClass)
{
    return entityClass == EntityClass::wireBody || entityClass == EntityClass::facetWire;
}

/// One pick.
class PixelSearch {
public:
    PixelSearch(GeometryModel const& model, GeometryQueries const& queries,
                GeometryScene const& scene, PickSpot const& spot)
        : m_model(model),
          m_queries(queries),
          m_scene(scene),
          m_spot(spot),
          m_hiding(kHiding * model.m_box.diagonal())
    {
    }

    [[nodiscard]] std::vector<PixelHit> run(std::set<EntityClass> const& classes)
    {
        auto const asks = [&](auto const& isWanted) {
            return std::any_of(classes.begin(), classes.end(), isWanted);
        };
        findFaces();
        // Vertices go with edges, hence these are needed for them.
        bool const needsVertices = asks(
            [](EntityClass c) { return c == EntityClass::vertex || c == EntityClass::pointBody; });
        if (needsVertices ||
            asks([](EntityClass c) { return c == EntityClass::edge || isWireClass(c); })) {
            findEdges();
        }
        if (needsVertices) {
            findVertices();
        }
        std::vector<Found> found;
        for (EntityClass const entityClass : classes) {
            addClass(entityClass, found);
        }
        std::sort(found.begin(), found.end(), isBefore);
        std::vector<PixelHit> hits;
        hits.reserve(found.size());
        for (Found const& one : found) {
            hits.push_back(one.m_hit);
        }
        return hits;
    }

private:
    void findFaces()
    {
        Ray const ray = m_spot.m_camera.sight(m_spot.m_x, m_spot.m_y);
        for (auto const& [face, instance, depth] : m_scene.crossings(ray)) {
            Vector const point = sum(ray.m_origin, ray.m_direction, depth);
            m_faces.push_back({{face, instance, depth, point, 0.0}, Rank::face, depth});
        }
        std::sort(m_faces.begin(), m_faces.end(), isBefore);
    }

    void findEdges()
    {
        visitNear(EntityClass::edge, [&](unsigned edge, unsigned instance) {
            auto const box = m_queries.box(edge);
            Frame const& frame = m_scene.instances()[instance].m_frame;
            if (!box || !mayShow(m_spot.m_camera, frame.toModel(boxOf(*box)), m_spot.m_x,
                                 m_spot.m_y, m_spot.m_pixels)) {
                return;
            }
            for (PixelHit const& hit : edgePointsNear(m_queries, edge, frame, m_spot)) {
                if (!isHidden(hit)) {
                    add(m_edges, hit, edge, instance, Rank::edge);
                    break;
                }
            }
        });
        for (Found& edge : m_edges) {
            goWith(m_faces, edge);
        }
        std::sort(m_edges.begin(), m_edges.end(), isBefore);
    }

    void findVertices()
    {
        visitNear(EntityClass::vertex, [&](unsigned vertex, unsigned instance) {
            auto const point = m_queries.pointOfVertex(vertex);
            Frame const& frame = m_scene.instances()[instance].m_frame;
            auto const hit = point ? hitAt(m_spot.m_camera, frame.toModel(*point), m_spot.m_x,
                                           m_spot.m_y, m_spot.m_pixels)
                                   : std::nullopt;
            if (hit && !isHidden(*hit)) {
                add(m_vertices, *hit, vertex, instance, Rank::vertex);
            }
        });
        for (Found& vertex : m_vertices) {
            goWith(m_edges, vertex);
        }
    }

    /// Entities of a class in the instances that may show at the spot.
    template <typename Visit>
    void visitNear(EntityClass entityClass, Visit const& visit) const
    {
        auto const& instances = m_scene.instances();
        for (unsigned i = 0; i < instances.size(); ++i) {
            Box const inPart = boxOf(m_model.m_parts[instances[i].m_part].m_box);
            if (!instances[i].m_frame.isUsable() ||
                !mayShow(m_spot.m_camera, instances[i].m_frame.toModel(inPart), m_spot.m_x,
                         m_spot.m_y, m_spot.m_pixels)) {
                continue;
            }
            for (geometry::Entity const& entity : m_model.entitiesOf(instances[i].m_part)) {
                if (entity.m_class == entityClass) {
                    visit(entity.m_number, i);
                }
            }
        }
    }

    static void add(std::vector<Found>& to, PixelHit hit, unsigned number, unsigned instance,
                    Rank rank)
    {
        hit.m_number = number;
        hit.m_instance = instance;
        to.push_back({hit, rank, hit.m_depth});
    }

    [[nodiscard]] bool isHidden(PixelHit const& hit) const
    {
        auto const screen = m_spot.m_camera.modelToScreen(hit.m_point);
        return screen && m_scene.isMet(m_spot.m_camera.sight((*screen)[0], (*screen)[1]),
                                       hit.m_depth - m_hiding);
    }

    [[nodiscard]] std::vector<unsigned> verticesOf(Found const& found) const
    {
        unsigned const number = found.m_hit.m_number;
        return found.m_rank == Rank::vertex ? std::vector{number}
                                            : m_model.children(number, EntityClass::vertex);
    }

    /// Sorts an entity with the first of the others that it has a vertex in common with.
    /// \param others  sorted
    void goWith(std::vector<Found> const& others, Found& found) const
    {
        std::vector<unsigned> const own = verticesOf(found);
        for (Found const& other : others) {
            if (other.m_hit.m_instance != found.m_hit.m_instance) {
                continue;
            }
            std::vector<unsigned> const its = verticesOf(other);
            if (std::find_first_of(own.begin(), own.end(), its.begin(), its.end()) != own.end()) {
                found.m_order = other.m_order;
                return;
            }
        }
    }

    void addClass(EntityClass entityClass, std::vector<Found>& to) const
    {
        switch (entityClass) {
            case EntityClass::vertex:
                to.insert(to.end(), m_vertices.begin(), m_vertices.end());
                break;
            case EntityClass::edge:
                to.insert(to.end(), m_edges.begin(), m_edges.end());
                break;
            case EntityClass::face:
                to.insert(to.end(), m_faces.begin(), m_faces.end());
                break;
            case EntityClass::pointBody:
                addWholes(m_vertices, entityClass, to);
                break;
            default:
                addWholes(isWireClass(entityClass) ? m_edges : m_faces, entityClass, to);
        }
    }

    /// What the hits belong to, each where it is hit first.
    void addWholes(std::vector<Found> const& hits, EntityClass entityClass,
                   std::vector<Found>& to) const
    {
        std::size_t const first = to.size();
        for (Found const& hit : hits) {
            for (unsigned const number : m_model.parents(hit.m_hit.m_number, entityClass)) {
                bool const isKnown =
                    std::any_of(to.begin() + static_cast<std::ptrdiff_t>(first), to.end(),
                                [&](Found const& known) {
                                    return known.m_hit.m_number == number &&
                                           known.m_hit.m_instance == hit.m_hit.m_instance;
                                });
                if (!isKnown) {
                    Found whole = hit;
                    whole.m_hit.m_number = number;
                    whole.m_rank = entityClass == EntityClass::volume ? Rank::volume : Rank::body;
                    to.push_back(whole);
                }
            }
        }
    }

    GeometryModel const& m_model;
    GeometryQueries const& m_queries;
    GeometryScene const& m_scene;
    PickSpot m_spot;
    double m_hiding;             // mm
    std::vector<Found> m_faces;  // the nearest first
    std::vector<Found> m_edges;  // by isBefore()
    std::vector<Found> m_vertices;
};

}  // namespace

struct PixelPicker::Kept {
    GeometryModel const& m_model;
    GeometryQueries const& m_queries;
    GeometryScene m_scene;
};

PixelPicker::PixelPicker(GeometryModel const& model, geometry::GeometryPicker const& instances,
                         GeometryQueries const& queries)
    : m_kept(std::make_unique<Kept>(Kept{model, queries, GeometryScene(model, instances, queries)}))
{
}

PixelPicker::PixelPicker(PixelPicker&&) noexcept = default;
PixelPicker& PixelPicker::operator=(PixelPicker&&) noexcept = default;
PixelPicker::~PixelPicker() = default;

std::vector<PixelHit> PixelPicker::at(Camera const& camera, double x, double y,
                                      std::span<EntityClass const> classes,
                                      double pickSizePixels) const
{
    requirePixel(camera, x, y, pickSizePixels);
    return PixelSearch(m_kept->m_model, m_kept->m_queries, m_kept->m_scene,
                       {camera, x, y, pickSizePixels})
        .run({classes.begin(), classes.end()});
}

}  // namespace vrn::orlo::host::display
