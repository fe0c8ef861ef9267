#include "apps/orlo/spectrumcommand.h"

#include "apps/orlo/console.h"
#include "apps/orlo/csvtable.h"
#include "platform/kfr/arrayptr.h"
#include "plugins/modelingplugin/utilities/numerics/ffthelper.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <initializer_list>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

namespace vrn::orlo::app {

namespace {

using plugin::modeling::FFTHelper;
using Array = KFR::DynamicArray::ArrayPtr1<double>;

constexpr std::array<std::string_view, 2> kSignal{"time", "value"};
constexpr std::array<std::string_view, 3> kSpectrum{"frequency", "magnitude", "phase"};

/// By how much a step may differ from the first one, relative, before it is called uneven.
constexpr double kStepTolerance = 1e-6;

/// The transform reads the first and the last position only, so what lies between is checked here.
void checkAxis(CsvTable const& table, std::string const& name)
{
    auto const& axis = table.m_columns[0];
    if (axis.size() < 2) {
        throw CsvError(table.at(0, "is the only row; a transform needs two or more"));
    }
    for (std::size_t row = 1; row < axis.size(); ++row) {
        if (axis[row] == axis[row - 1]) {
            throw CsvError(
                table.at(row, "the " + name + " of the row before comes again; take one out"));
        }
        if (axis[row] < axis[row - 1]) {
            throw CsvError(table.at(row, "the " + name + " goes back; sort the rows by " + name));
        }
    }
    double const step = axis[1] - axis[0];
    double const largest = std::max(std::abs(axis.front()), std::abs(axis.back()));
    // The positions' own rounding is not unevenness.
    double const tolerance =
        kStepTolerance * step + 4.0 * std::numeric_limits<double>::epsilon() * largest;
    for (std::size_t row = 2; row < axis.size(); ++row) {
        if (!(std::abs(axis[row] - axis[row - 1] - step) <= tolerance)) {
            reportWarning(table.at(row, "the step of the " + name +
                                            " differs from the first one; the transform takes all "
                                            "steps as even, resample for a true result"));
            return;
        }
    }
}

/// Rows of the mirror half that say something else than "the same again" look as if they counted.
void checkUnusedRows(CsvTable const& table)
{
    auto const& magnitudes = table.m_columns[1];
    auto const& phases = table.m_columns[2];
    std::size_t const last = magnitudes.size() / 2;
    for (std::size_t row = last + 1; row < magnitudes.size(); ++row) {
        if (magnitudes[row] != magnitudes[last] || phases[row] != phases[last]) {
            reportWarning(table.at(row,
                                   "magnitudes and phases are not used from the second half "
                                   "of the rows on"));
            return;
        }
    }
}

void checkFinite(CsvTable const& table, std::initializer_list<Array> results)
{
    for (Array const& result : results) {
        if (!std::all_of(result.begin(), result.end(), [](double x) { return std::isfinite(x); })) {
            throw CsvError(table.m_file.string() +
                           ": the result is out of the range of a number; change the units");
        }
    }
}

/// Shortest numbers that read back as the same doubles.
void appendNumber(std::string& text, double number)
{
    std::array<char, 32> digits;
    auto const result = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    text.append(digits.data(), result.ptr);
}

int printTable(std::string_view header, std::initializer_list<Array> columns)
{
    std::string text(header);
    for (std::size_t row = 0; row < columns.begin()->size(); ++row) {
        char before = '\n';
        for (Array const& column : columns) {
            text.push_back(before);
            appendNumber(text, column[row]);
            before = ',';
        }
    }
    text.push_back('\n');
    bool const isWritten = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (!isWritten || std::fflush(stdout) != 0) {
        reportError("the result cannot be written; is the disk full?");
        return kToolFailed;
    }
    return kDone;
}

int transformFailed()
{
    reportError("the transform failed");
    return kToolFailed;
}

int forward(SpectrumOptions const& options)
{
    CsvTable table = readCsv(options.m_file, kSignal);
    checkAxis(table, "time");
    Array const times(std::move(table.m_columns[0]));
    Array const values(std::move(table.m_columns[1]));
    Array frequencies;
    Array magnitudes;
    Array phases;
    if (!FFTHelper::forwardFFT1(times, values, frequencies, magnitudes, phases)) {
        return transformFailed();
    }
    checkFinite(table, {frequencies, magnitudes, phases});
    return printTable("frequency,magnitude,phase", {frequencies, magnitudes, phases});
}

int inverse(SpectrumOptions const& options)
{
    CsvTable table = readCsv(options.m_file, kSpectrum);
    checkAxis(table, "frequency");
    checkUnusedRows(table);
    Array const frequencies(std::move(table.m_columns[0]));
    Array const magnitudes(std::move(table.m_columns[1]));
    Array const phases(std::move(table.m_columns[2]));
    Array times;
    Array values;
    if (!FFTHelper::inverseFFT(frequencies, magnitudes, phases, times, values)) {
        return transformFailed();
    }
    checkFinite(table, {times, values});
    return printTable("time,value", {times, values});
}

}  // namespace

int spectrum(SpectrumOptions const& options)
{
    return options.m_inverse ? inverse(options) : forward(options);
}

}  // namespace vrn::orlo::app
