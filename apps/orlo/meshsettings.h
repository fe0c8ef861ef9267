/// \file
/// How a model is to be meshed, as the command line and a study say it.

#pragma once

#include "host/model/model.h"
#include "host/modelspace/modelmesher.h"
#include "host/study/study.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vrn::orlo::app {

/// Options of the command line.
struct MeshArguments {
    std::optional<double> m_size;
    std::optional<double> m_minimum;
    std::optional<int> m_order;
    std::optional<int> m_dimension;
    bool m_faces = false;
    std::optional<int> m_curvature;
    std::vector<std::string> m_partSizes;  ///< "PART=MM"
    std::vector<std::string> m_faceSizes;  ///< "NUMBER=MM"
};

/// The same, read. What is left out is left to others.
///
/// Units      mm.
struct MeshSettings {
    struct PartSize {
        std::string m_place;  ///< Where it is said, for messages.
        std::string m_part;
        double m_size = 0.0;
    };

    std::optional<double> m_size;
    std::optional<double> m_minimum;
    std::optional<int> m_order;
    std::optional<int> m_dimension;
    std::optional<bool> m_faces;
    std::optional<int> m_curvature;
    std::vector<PartSize> m_partSizes;  ///< Of two for one part the later counts.
    std::map<unsigned, double> m_faceSizes;
};

/// Failure    UsageError for a size that is not written as it should be.
[[nodiscard]] MeshSettings settingsOf(MeshArguments const& arguments);

/// Nothing is set for a study that asks for no mesh.
[[nodiscard]] MeshSettings settingsOf(host::study::Study const& study);

/// Whether anything is set.
[[nodiscard]] bool isAnySet(MeshSettings const& settings) noexcept;

/// What the first says, and where it says nothing, what the other does. Sizes of parts and faces
/// are those of both.
[[nodiscard]] MeshSettings overridden(MeshSettings first, MeshSettings const& other);

/// The settings for a model.
///
/// Failure    UsageError without a mesh size, and for a part that is not there.
[[nodiscard]] host::modelspace::MeshRequest requestOf(MeshSettings const& settings,
                                                      host::model::Model const& model);

}  // namespace vrn::orlo::app
