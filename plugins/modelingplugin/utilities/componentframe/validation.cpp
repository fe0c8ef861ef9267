#include "plugins/modelingplugin/utilities/componentframe/validation.h"

#include "plugins/modelingplugin/utilities/componentframe/logimpl.h"

#include <array>
#include <cstdio>

namespace vrn::orlo::plugin::modeling {

int validation(char const* expression, char const* file, int line, char const* function)
{
    static LogFileImpl log;
    std::array<char, 512> text{};  // a longer text is cut at 511 characters
    std::snprintf(text.data(), text.size(),
                  "Validation failed with expression : %s, at File : %s, Line : %d, in Function : "
                  "%s.\n",
                  expression, file, line, function);
    // The text ends a line and the sink ends another: readers of these files expect both.
    log.write(text.data(), 3);
    return 0;
}

}  // namespace vrn::orlo::plugin::modeling
