#include "plugins/modelingplugin/utilities/numerics/ffthelper.h"

#include "platform/deps/dfti.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace vrn::orlo::plugin::modeling {

namespace {

using Array = KFR::DynamicArray::ArrayPtr1<double>;

/// A committed descriptor for n samples.
///
/// The statuses of its calls are not looked at, on purpose: only that of the last one, free(),
/// decides what the operations answer. It fails when the descriptor could not be made.
class Descriptor {
public:
    explicit Descriptor(std::size_t n)
    {
        DftiCreateDescriptor(&m_handle, DFTI_DOUBLE, DFTI_REAL, 1, static_cast<MKL_LONG>(n));
        DftiSetValue(m_handle, DFTI_PLACEMENT, DFTI_NOT_INPLACE);
        DftiSetValue(m_handle, DFTI_PACKED_FORMAT, DFTI_CCS_FORMAT);
        DftiSetValue(m_handle, DFTI_CONJUGATE_EVEN_STORAGE, DFTI_COMPLEX_COMPLEX);
        DftiSetValue(m_handle, DFTI_BACKWARD_SCALE, 1.0 / static_cast<double>(n));
        DftiCommitDescriptor(m_handle);
    }
    Descriptor(Descriptor const&) = delete;
    Descriptor& operator=(Descriptor const&) = delete;
    ~Descriptor()
    {
        if (m_handle != nullptr) {
            DftiFreeDescriptor(&m_handle);
        }
    }

    [[nodiscard]] DFTI_DESCRIPTOR_HANDLE get() const noexcept { return m_handle; }
    [[nodiscard]] bool free() { return DftiFreeDescriptor(&m_handle) == DFTI_NO_ERROR; }

private:
    DFTI_DESCRIPTOR_HANDLE m_handle = nullptr;
};

double lengthOf(Array const& axis)
{
    return axis[axis.size() - 1] - axis[0];
}

/// The axis of the other side: i over the length of this one.
void writeAxis(Array const& axis, std::size_t n, double length)
{
    axis.resize(n);
    double* const positions = axis.data();
    for (std::size_t i = 0; i < n; ++i) {
        positions[i] = static_cast<double>(i) / length;
    }
}

void writeMagnitudes(double const* bins, std::size_t binCount, double* magnitudes)
{
    for (std::size_t k = 0; k < binCount; ++k) {
        double const real = bins[2 * k];
        double const imaginary = bins[2 * k + 1];
        magnitudes[k] = std::sqrt(real * real + imaginary * imaginary);
    }
}

void writePhases(double const* bins, std::size_t binCount, double* phases)
{
    for (std::size_t k = 0; k < binCount; ++k) {
        phases[k] = std::atan2(bins[2 * k + 1], bins[2 * k]);
    }
}

/// The mirror half is not computed: its entries repeat the last computed one, on purpose.
void repeatLast(Array const& array, std::size_t binCount)
{
    std::fill(array.begin() + static_cast<std::ptrdiff_t>(binCount), array.end(),
              array[binCount - 1]);
}

}  // namespace

bool FFTHelper::forwardFFT1(Array const& times, Array const& values, Array& frequencies,
                            Array& magnitudes, Array& phases)
{
    std::size_t const n = values.size();
    std::size_t const binCount = n / 2 + 1;
    // Whatever is read is read before the first resize: a result may be an input.
    bool const hasTimes = !times.empty();
    double const duration = hasTimes ? lengthOf(times) : 0.0;
    std::vector<double> bins(n + 2);
    Descriptor descriptor(n);
    DftiComputeForward(descriptor.get(), values.data(), bins.data());

    magnitudes.resize(n);
    phases.resize(n);
    if (n != 0) {
        writeMagnitudes(bins.data(), binCount, magnitudes.data());
        writePhases(bins.data(), binCount, phases.data());
        repeatLast(magnitudes, binCount);
        repeatLast(phases, binCount);
    }
    if (!descriptor.free()) {
        return false;
    }
    if (hasTimes) {
        writeAxis(frequencies, n, duration);
    }
    return true;
}

bool FFTHelper::inverseFFT(Array const& frequencies, Array const& magnitudes, Array const& phases,
                           Array& times, Array& values)
{
    std::size_t const n = magnitudes.size();
    if (frequencies.empty() || phases.size() < n) {
        return false;
    }
    double const bandwidth = lengthOf(frequencies);
    Descriptor descriptor(n);
    // Half of the entries is all that a real signal's transform reads.
    std::vector<double> bins(n + 2);
    for (std::size_t i = 0; i < std::min(n, n / 2 + 1); ++i) {
        bins[2 * i] = magnitudes[i] * std::cos(phases[i]);
        bins[2 * i + 1] = magnitudes[i] * std::sin(phases[i]);
    }
    std::vector<double> samples(n);
    DftiComputeBackward(descriptor.get(), bins.data(), samples.data());

    writeAxis(times, n, bandwidth);
    if (!descriptor.free()) {
        return false;
    }
    values.resize(n);
    std::copy(samples.begin(), samples.end(), values.begin());
    return true;
}

}  // namespace vrn::orlo::plugin::modeling
