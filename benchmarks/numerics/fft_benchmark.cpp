// The transform helper against bare FFTW with one pass of square roots and arc tangents.

#include "benchmarks/support/ratio.h"
#include "platform/kfr/arrayptr.h"
#include "plugins/modelingplugin/utilities/numerics/ffthelper.h"

#include <fftw3.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace {

using orlo::bench::keep;
using orlo::bench::Ratios;
using Array = KFR::DynamicArray::ArrayPtr1<double>;
using vrn::orlo::plugin::modeling::FFTHelper;

Array someSignal(std::size_t n)
{
    std::vector<double> values(n);
    for (std::size_t i = 0; i < n; ++i) {
        values[i] = static_cast<double>(i * 7919 % 10007) / 5003.5 - 1.0;
    }
    return Array(std::move(values));
}

void compareForward(Ratios& ratios, std::size_t n, std::size_t repeats)
{
    Array const times;
    Array const values = someSignal(n);
    Array frequencies;
    Array magnitudes;
    Array phases;

    double* const input = fftw_alloc_real(n);
    fftw_complex* const bins = fftw_alloc_complex(n / 2 + 1);
    std::vector<double> peerMagnitudes(n / 2 + 1);
    std::vector<double> peerPhases(n / 2 + 1);
    fftw_plan const plan = fftw_plan_dft_r2c_1d(static_cast<int>(n), input, bins, FFTW_ESTIMATE);
    std::copy(values.begin(), values.end(), input);

    std::string const name = "forward transform, n = " + std::to_string(n);
    ratios.compare(
        name.c_str(), 1.3,
        [&] {
            for (std::size_t i = 0; i < repeats; ++i) {
                FFTHelper::forwardFFT1(times, values, frequencies, magnitudes, phases);
                keep(magnitudes[0]);
            }
        },
        [&] {
            for (std::size_t i = 0; i < repeats; ++i) {
                fftw_execute(plan);
                for (std::size_t k = 0; k <= n / 2; ++k) {
                    double const real = bins[k][0];
                    double const imaginary = bins[k][1];
                    peerMagnitudes[k] = std::sqrt(real * real + imaginary * imaginary);
                    peerPhases[k] = std::atan2(imaginary, real);
                }
                keep(peerMagnitudes[0]);
            }
        });
    fftw_destroy_plan(plan);
    fftw_free(bins);
    fftw_free(input);
}

}  // namespace

int main()
{
    Ratios ratios;
    compareForward(ratios, 1024, 100);
    compareForward(ratios, 100000, 2);
    compareForward(ratios, 99991, 1);  // prime
    return ratios.exitStatus();
}
