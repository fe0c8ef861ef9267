/// \file
/// The verb `orlo query`.

#pragma once

#include "apps/orlo/meshsettings.h"
#include "apps/orlo/pixelview.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vrn::orlo::app {

struct SessionOptions;

struct QueryOptions {
    std::filesystem::path m_file;                ///< Geometry, a model file or a mesh.
    std::optional<unsigned long long> m_entity;  ///< Number; in a mesh an element's id.
    std::optional<unsigned long long> m_node;    ///< Id, in a mesh file.
    std::string m_part;                          ///< Of the element or node; empty for any.
    PixelOptions m_pixel;
    std::vector<std::string> m_filters;  ///< Kinds that the pixel may hit; none for the usual.
    MeshArguments m_mesh;                ///< Geometry is meshed first where there is a size.
    bool m_json = false;
};

/// Prints what the library's classes say of an entity of the geometry, of an element or of a node.
/// \return an ExitStatus
[[nodiscard]] int query(QueryOptions const& options, SessionOptions const& session);

}  // namespace vrn::orlo::app
