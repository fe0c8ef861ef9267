/// \file
/// Study files: what a user wants done with a model.

#pragma once

#include "host/study/studyerror.h"
#include "host/study/studymesh.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vrn::orlo::host::study {

/// Files to write, relative to the output folder and never outside it. Empty: not asked for. No two
/// are the same.
struct StudyOutputs {
    std::filesystem::path m_tree;  ///< The assembly as a tree of text.
    std::filesystem::path m_json;  ///< The same for programs.
    std::filesystem::path m_mesh;  ///< The meshes, by its ending: .inp, .msh or .orlo.
};

/// A study as its file gives it.
struct Study {
    std::filesystem::path m_file;      ///< As it was given.
    std::string m_name;                ///< UTF-8, one line, never empty.
    std::filesystem::path m_geometry;  ///< From the folder of the study file; was there when read.
    std::optional<StudyMesh> m_mesh;   ///< None for a study of geometry alone.
    StudyOutputs m_outputs;
    std::vector<KeyPlace> m_places;  ///< Every key of the file, in its order.

    /// The place of a key as KeyPlace writes it, "outputs.tree". For a key that the file leaves
    /// out: the file, the key, and no line. For errors that show only later: throw
    /// StudyError(study.placeOf("geometry"), "...").
    [[nodiscard]] KeyPlace placeOf(std::string_view key) const;
};

/// Reads a study file: YAML in UTF-8.
///
///     study: NAME          optional, the name of the file without its ending if left out
///     geometry: PATH       required, from the folder of the study file
///     mesh:                optional
///       size: MM           required
///       minimum: MM        optional, and so the next
///       order: 1 | 2
///       dimension: 2 | 3
///       faces: true | false
///       curvature: N
///       parts: [{part: NAME, size: MM}]
///       face-sizes: [{face: NUMBER, size: MM}]
///     outputs:             optional
///       tree: NAME         optional
///       json: NAME         optional
///       mesh: NAME         optional; needs the key mesh above
///
/// Failure    StudyError, for the first thing that is wrong: a file that cannot be read or is no
///            study, a key that is not known, missing, given twice or of the wrong kind, a geometry
///            file that is not there, a size that cannot be, an output outside the output folder.
/// Threads    Any; calls share nothing.
[[nodiscard]] Study loadStudy(std::filesystem::path const& file);

}  // namespace vrn::orlo::host::study
