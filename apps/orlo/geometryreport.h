/// \file
/// Reports on an imported geometry.

#pragma once

#include "host/model/model.h"

#include <string>

namespace vrn::orlo::app {

struct MeshSummary;

/// How much a text report tells.
enum class ReportDepth {
    tree,      ///< File, sizes, the assembly tree.
    entities,  ///< That, and every entity of every part.
};

/// The report for people.
///
/// Units      mm, mm2, mm3.
/// Order      Parts in the order of their first use, entities by number.
[[nodiscard]] std::string textReport(host::model::Model const& model, ReportDepth depth);

/// The same as a JSON document, every entity included, ending in a line end. Type ids are left out:
/// they hold for one run only.
///
/// \param mesh  null for a model without one
[[nodiscard]] std::string jsonReport(host::model::Model const& model,
                                     MeshSummary const* mesh = nullptr);

}  // namespace vrn::orlo::app
