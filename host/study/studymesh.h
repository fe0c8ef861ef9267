/// \file
/// What a study says of its mesh.

#pragma once

#include "host/study/studyerror.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vrn::orlo::host::study {

struct DocumentNode;

/// A mesh that a study asks for. Each number is one that can be; what cannot go together is the
/// mesher's to say.
///
/// Units      mm.
struct StudyMesh {
    struct PartSize {
        std::string m_part;
        double m_size = 0.0;
    };

    double m_size = 0.0;
    std::optional<double> m_minimum;
    std::optional<int> m_order;
    std::optional<int> m_dimension;
    std::optional<bool> m_faces;
    std::optional<int> m_curvature;
    std::vector<PartSize> m_partSizes;       ///< In the order of the file; no part twice.
    std::map<unsigned, double> m_faceSizes;  ///< By the number of the face.
};

/// Reads the map of the key "mesh". Throws StudyError for the first thing that is wrong.
[[nodiscard]] StudyMesh readStudyMesh(KeyPlace const& place, DocumentNode const& value);

}  // namespace vrn::orlo::host::study
