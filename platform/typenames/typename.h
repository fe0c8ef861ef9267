/// \file
/// What a type name is.

#pragma once

#include <unicode/unistr.h>

/// The names of the entity types, spelt once each. They are the application's vocabulary and
/// stable; the numeric ids behind them differ from run to run and are never written down.
namespace vrn::orlo::typenames {

/// A type name. The constants refer to their literals and own no memory. They are made when a
/// library loads: do not read one from another library's start-up code.
using TypeName = icu::UnicodeString;

}  // namespace vrn::orlo::typenames
