/// \file
/// Picking on the command line.

#pragma once

#include "apps/orlo/pixelview.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vrn::orlo::app {

struct SessionOptions;

/// What a user would click. Criteria that are given together must all hold.
///
/// Units      mm, mm2 and degrees, in model coordinates; of a mesh file, its own units.
struct PickOptions {
    std::filesystem::path m_file;        ///< Geometry, a model file or a mesh.
    std::vector<std::string> m_filters;  ///< Names of kinds: "Face", "Edge", "2DElement".
    bool m_all = false;
    std::vector<double> m_at;  ///< x, y, z: the nearest, within m_within.
    double m_within = 1.0;
    PixelOptions m_pixel;          ///< What shows there in front.
    std::vector<double> m_box;     ///< x, y, z of one corner and of the other.
    bool m_touching = false;       ///< Takes also what the box only touches.
    std::vector<double> m_normal;  ///< x, y, z: faces that look there, within m_angle.
    double m_angle = 1.0;
    std::vector<double> m_area;             ///< Least and greatest, of faces.
    std::string m_name;                     ///< Of a part or an instance; of a set in a mesh.
    std::vector<unsigned long long> m_ids;  ///< Numbers of entities; external ids of elements.
    std::optional<double> m_grow;           ///< Goes on over faces up to this angle.
    std::size_t m_limit = 20;               ///< Lines per bucket.
    bool m_single = false;                  ///< Only one pick is allowed.
};

/// Opens a stage for the filters, picks, makes the picks up and divides them. \return an ExitStatus
[[nodiscard]] int pick(PickOptions const& options, SessionOptions const& session);

}  // namespace vrn::orlo::app
