/// \file
/// Names of what can be picked, and the stage of a pick.

#pragma once

#include "host/geometry/geometrymodel.h"
#include "host/selection/pickfiltermanager.h"
#include "plugins/modelingplugin/utilities/selection/selectfiltertype.h"

#include <string>
#include <string_view>
#include <vector>

namespace vrn::orlo::app {

/// The kind of a name, in any case of letters: "Face" for FilterFace.
///
/// Failure    UsageError, with the names that there are.
[[nodiscard]] plugin::modeling::SelectFilterType filterOf(std::string const& name);

/// All names.
[[nodiscard]] std::vector<std::string> filterNames();

/// Opens a stage with pick filters, as a tool would; closes it with the object.
class PickStage {
public:
    static constexpr char const* kName = "orlo.pick";

    /// Failure    UsageError for a name that is no filter's.
    PickStage(std::vector<std::string> const& filters, bool allowsMany);
    PickStage(PickStage const&) = delete;
    PickStage& operator=(PickStage const&) = delete;
    ~PickStage();
};

/// The classes of geometry that the filters of the stage allow.
[[nodiscard]] std::vector<host::geometry::EntityClass> pickableClasses(
    host::selection::PickFilterManager const& filter);

}  // namespace vrn::orlo::app
