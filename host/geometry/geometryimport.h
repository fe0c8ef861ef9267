/// \file
/// Reads geometry files into a GeometryModel.

#pragma once

#include "host/geometry/geometrymodel.h"

#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>

namespace vrn::orlo::host::geometry {

/// A file that cannot be taken. what() is one line for the user: it names the file, says what is
/// wrong with it, and where there is a mend, the mend.
class ImportError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Called as the import goes on: a fraction from 0 to 1 and what is being done. May be empty.
using ImportProgress = std::function<void(double fraction, std::string const& step)>;

/// Imports a STEP file (.stp, .step, .p21, in any case of letters) or an STL file (.stl).
///
/// Units      The model is in mm; the file's own unit is reported. An STL file has no unit: mm.
/// Failure    ImportError for a file that is missing, empty, a folder, unreadable, of an unknown
///            ending, no STEP or STL file inside, cut off before its end, or without any shape.
/// Threads    One import at a time: the kernel's reader keeps its parameters per process.
/// Cost       STEP: the kernel's own reader takes over nine tenths of the time. STL: about half. A
///            STEP file with damaged records is built twice, first in a child process.
[[nodiscard]] GeometryModel importGeometry(std::filesystem::path const& file,
                                           ImportProgress const& progress = {});

}  // namespace vrn::orlo::host::geometry
