/// \file
/// The library's soft assertion.

#pragma once

#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

namespace vrn::orlo::plugin::modeling {

/// Notes a precondition that failed, and lets the program go on. Validations have a log file of
/// their own, made at the first one.
/// \param expression  the condition's text, as it stands in the source
/// \param file        source path, "plugins/modelingplugin/utilities/<file>"
/// \param function    full name with namespace
/// \return 0, always
MODELING_API int validation(char const* expression, char const* file, int line,
                            char const* function);

}  // namespace vrn::orlo::plugin::modeling
