/// \file
/// The verb `orlo spectrum`.

#pragma once

#include <filesystem>

namespace vrn::orlo::app {

struct SpectrumOptions {
    std::filesystem::path m_file;
    bool m_inverse = false;  ///< From frequency,magnitude,phase to time,value.
};

/// Transforms a table of samples, time and value, to frequency, magnitude and phase, or back.
///
/// Both tables have one row for each sample, so that a table that went forward knows on its way
/// back how many samples there were and how far they lay apart. Times begin at 0 after that.
///
/// Failure    Throws CsvError for a file that cannot be used. Uneven steps are only warned of.
/// \return an ExitStatus
[[nodiscard]] int spectrum(SpectrumOptions const& options);

}  // namespace vrn::orlo::app
