/// \file
/// A command line that cannot be followed.

#pragma once

#include <stdexcept>

namespace vrn::orlo::app {

/// The text names the argument and says what would be right.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace vrn::orlo::app
