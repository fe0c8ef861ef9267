#include "host/display/meshpixelpicker.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace vrn::orlo::host::display {

namespace {

/// Share of what is shown by which a face must lie before a node to hide it.
constexpr double kHiding = 1e-6;

}  // namespace

MeshPixelPicker::MeshPixelPicker(meshing::MeshStore const& store, std::vector<Frame> instances)
    : m_store(store), m_instances(std::move(instances)), m_surface(store)
{
    for (Frame const& frame : m_instances) {
        m_box.add(frame.toModel(m_surface.box()));
    }
}

std::vector<MeshHit> MeshPixelPicker::at(Camera const& camera, double x, double y,
                                         std::span<MeshClass const> classes,
                                         double pickSizePixels) const
{
    requirePixel(camera, x, y, pickSizePixels);
    auto const isAsked = [&](MeshClass what) {
        return std::find(classes.begin(), classes.end(), what) != classes.end();
    };
    std::vector<MeshHit> hits;
    if (isAsked(MeshClass::element)) {
        hits = elementsAt(camera.sight(x, y));
    }
    if (isAsked(MeshClass::node)) {
        for (PixelHit const& node : nodesNear(camera, x, y, pickSizePixels)) {
            if (!isHidden(camera, node)) {
                putNode(node, hits);
                break;
            }
        }
    }
    return hits;
}

std::vector<MeshHit> MeshPixelPicker::elementsAt(Ray const& ray) const
{
    std::vector<MeshHit> hits;
    for (unsigned instance = 0; instance < m_instances.size(); ++instance) {
        if (!m_instances[instance].isUsable()) {
            continue;
        }
        for (auto const& [face, depth] : m_surface.crossings(m_instances[instance].toPart(ray))) {
            Vector const point = sum(ray.m_origin, ray.m_direction, depth);
            hits.push_back(
                {MeshClass::element, face.m_face, {face.m_element, instance, depth, point, 0.0}});
        }
    }
    auto const key = [](MeshHit const& hit) {
        return std::pair(hit.m_hit.m_instance, hit.m_hit.m_number);
    };
    std::sort(hits.begin(), hits.end(), [&](MeshHit const& a, MeshHit const& b) {
        return std::tuple(key(a), a.m_hit.m_depth, a.m_face) <
               std::tuple(key(b), b.m_hit.m_depth, b.m_face);
    });
    auto const isSame = [&](MeshHit const& a, MeshHit const& b) {
        return key(a) == key(b);
    };
    hits.erase(std::unique(hits.begin(), hits.end(), isSame), hits.end());
    std::stable_sort(hits.begin(), hits.end(), [](MeshHit const& a, MeshHit const& b) {
        return a.m_hit.m_depth < b.m_hit.m_depth;
    });
    return hits;
}

/// The best one first.
std::vector<PixelHit> MeshPixelPicker::nodesNear(Camera const& camera, double x, double y,
                                                 double pixels) const
{
    std::vector<PixelHit> near;
    for (unsigned instance = 0; instance < m_instances.size(); ++instance) {
        if (!mayShow(camera, m_instances[instance].toModel(m_surface.box()), x, y, pixels)) {
            continue;
        }
        for (meshing::LocalNumber const node : m_surface.nodes()) {
            Vector const point = m_instances[instance].toModel(m_store.position(node));
            if (auto hit = hitAt(camera, point, x, y, pixels)) {
                hit->m_number = node;
                hit->m_instance = instance;
                near.push_back(*hit);
            }
        }
    }
    std::stable_sort(near.begin(), near.end(), isBetter);
    return near;
}

bool MeshPixelPicker::isHidden(Camera const& camera, PixelHit const& node) const
{
    auto const screen = camera.modelToScreen(node.m_point);
    Ray const ray = camera.sight((*screen)[0], (*screen)[1]);
    double const limit = node.m_depth - kHiding * m_box.diagonal();
    return std::any_of(m_instances.begin(), m_instances.end(), [&](Frame const& frame) {
        return frame.isUsable() && m_surface.isMet(frame.toPart(ray), limit);
    });
}

void MeshPixelPicker::putNode(PixelHit const& node, std::vector<MeshHit>& hits) const
{
    auto const has = [&](MeshHit const& hit) {
        auto const nodes = m_store.nodesOf(hit.m_hit.m_number);
        return hit.m_hit.m_instance == node.m_instance &&
               std::find(nodes.begin(), nodes.end(), node.m_number) != nodes.end();
    };
    auto place = std::find_if(hits.begin(), hits.end(), has);
    if (place == hits.end()) {
        place = std::find_if(hits.begin(), hits.end(),
                             [&](MeshHit const& hit) { return hit.m_hit.m_depth > node.m_depth; });
    }
    hits.insert(place, {MeshClass::node, 0, node});
}

}  // namespace vrn::orlo::host::display
