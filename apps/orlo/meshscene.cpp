#include "apps/orlo/meshscene.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vrn::orlo::app {

namespace {

using host::display::Frame;
using host::display::Vector;
using host::meshing::MeshPlacement;

/// Moved first, then turned about the axis.
Frame frameOf(MeshPlacement const& placement)
{
    Vector const along = host::display::difference(placement.m_axis[1], placement.m_axis[0]);
    double const length = host::display::length(along);
    Vector const start = length > 0.0 ? placement.m_axis[0] : Vector{};
    double const angle = length > 0.0 ? placement.m_degrees * std::numbers::pi / 180.0 : 0.0;
    Vector const from = host::display::difference(placement.m_translation, start);
    auto const turned = [&](Vector const& point) {
        if (angle == 0.0) {
            return point;
        }
        Vector const axis = host::display::sum({}, along, 1.0 / length);
        Vector const across = host::display::cross(axis, point);
        Vector result = host::display::sum({}, point, std::cos(angle));
        result = host::display::sum(result, across, std::sin(angle));
        return host::display::sum(result, axis,
                                  host::display::dot(axis, point) * (1.0 - std::cos(angle)));
    };
    Vector const shift = host::display::sum(start, turned(from));
    std::array<Vector, 3> const columns{turned({1, 0, 0}), turned({0, 1, 0}), turned({0, 0, 1})};
    Frame::Rows rows{};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            rows[4 * row + column] = columns[column][row];
        }
        rows[4 * row + 3] = shift[row];
    }
    return Frame(rows);
}

}  // namespace

MeshScene::MeshScene(host::meshing::LoadedMesh const& mesh)
{
    for (auto const& part : mesh.m_parts) {
        std::vector<Frame> frames;
        for (auto const& instance : part->instances()) {
            frames.push_back(frameOf(instance->placement()));
        }
        m_parts.emplace_back(part->meshPart()->tables()->store(), std::move(frames));
        m_box.add(m_parts.back().box());
    }
}

std::vector<MeshScene::Hit> MeshScene::at(PixelOptions const& pixel,
                                          std::span<host::display::MeshClass const> classes) const
{
    host::display::Camera const camera = cameraOf(pixel, m_box).withNearBefore(m_box);
    std::vector<Hit> hits;
    for (std::size_t part = 0; part < m_parts.size(); ++part) {
        for (auto const& hit :
             m_parts[part].at(camera, pixel.m_pixel[0], pixel.m_pixel[1], classes)) {
            hits.push_back({part, hit});
        }
    }
    std::ranges::stable_sort(hits, {}, [](Hit const& hit) { return hit.m_hit.m_hit.m_depth; });
    return hits;
}

}  // namespace vrn::orlo::app
