#include "plugins/modelingplugin/utilities/numerics/ffthelper.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstddef>
#include <numbers>
#include <vector>

namespace vrn::orlo::plugin::modeling {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Array = KFR::DynamicArray::ArrayPtr1<double>;

std::vector<double> elementsOf(Array const& array)
{
    return {array.begin(), array.end()};
}

Array someSignal(std::size_t n)
{
    std::vector<double> values(n);
    for (std::size_t i = 0; i < n; ++i) {
        values[i] = static_cast<double>(i * 7919 % 1009) / 504.5 - 1.0;
    }
    return Array(values);
}

Array evenTimes(std::size_t n, double step)
{
    std::vector<double> times(n);
    for (std::size_t i = 0; i < n; ++i) {
        times[i] = 3.0 + step * static_cast<double>(i);
    }
    return Array(times);
}

struct Spectrum {
    Array m_frequencies;
    Array m_magnitudes;
    Array m_phases;
};

Spectrum spectrumOf(Array const& values, Array const& times = Array())
{
    Spectrum result;
    EXPECT_TRUE(FFTHelper::forwardFFT1(times, values, result.m_frequencies, result.m_magnitudes,
                                       result.m_phases));
    return result;
}

TEST(ForwardFft, AgreesWithTheSumAndRepeatsTheLastComputedBin)
{
    for (std::size_t const n : {1u, 2u, 3u, 7u, 8u, 13u, 60u, 97u, 128u}) {
        SCOPED_TRACE(n);
        Array const values = someSignal(n);
        auto const result = spectrumOf(values);
        ASSERT_EQ(result.m_magnitudes.size(), n);
        ASSERT_EQ(result.m_phases.size(), n);
        EXPECT_THAT(result.m_frequencies, IsEmpty());  // left alone without times
        for (std::size_t k = 0; k <= n / 2 && k < n; ++k) {
            std::complex<double> sum = 0.0;
            for (std::size_t i = 0; i < n; ++i) {
                double const turns = static_cast<double>(i * k % n) / static_cast<double>(n);
                sum += std::polar(1.0, -2.0 * std::numbers::pi * turns) * values[i];
            }
            auto const bin = std::polar(result.m_magnitudes[k], result.m_phases[k]);
            EXPECT_NEAR(std::abs(bin - sum), 0.0, 1e-12);
        }
        for (std::size_t k = n / 2 + 1; k < n; ++k) {
            EXPECT_EQ(result.m_magnitudes[k], result.m_magnitudes[n / 2]);
            EXPECT_EQ(result.m_phases[k], result.m_phases[n / 2]);
        }
    }
}

TEST(ForwardFft, StepsTheFrequenciesByOneOverTheWholeLengthOfTime)
{
    auto const result = spectrumOf(someSignal(5), evenTimes(5, 0.5));
    EXPECT_THAT(elementsOf(result.m_frequencies), ElementsAre(0.0, 0.5, 1.0, 1.5, 2.0));
}

TEST(ForwardFft, WithEqualEndTimesGivesInfiniteFrequencies)
{
    auto const result = spectrumOf(someSignal(3), Array(std::vector<double>{1.0, 2.0, 1.0}));
    EXPECT_TRUE(std::isnan(result.m_frequencies[0]));
    EXPECT_TRUE(std::isinf(result.m_frequencies[2]));
}

TEST(ForwardFft, OfNothingFailsAndEmptiesTheSpectrumOnly)
{
    Array frequencies(std::vector<double>{7.0});
    Array magnitudes(std::vector<double>{7.0});
    Array phases(std::vector<double>{7.0});
    EXPECT_FALSE(
        FFTHelper::forwardFFT1(evenTimes(2, 1.0), Array(), frequencies, magnitudes, phases));
    EXPECT_THAT(elementsOf(frequencies), ElementsAre(7.0));
    EXPECT_THAT(magnitudes, IsEmpty());
    EXPECT_THAT(phases, IsEmpty());
}

TEST(Fft, MayWriteIntoItsInputs)
{
    auto const expected = spectrumOf(someSignal(9), evenTimes(9, 0.5));
    Array times = evenTimes(9, 0.5);
    Array values = someSignal(9);
    Array phases;
    ASSERT_TRUE(FFTHelper::forwardFFT1(times, values, times, values, phases));
    EXPECT_TRUE(std::equal(times.begin(), times.end(), expected.m_frequencies.begin()));
    EXPECT_TRUE(std::equal(values.begin(), values.end(), expected.m_magnitudes.begin()));

    ASSERT_TRUE(FFTHelper::inverseFFT(times, values, phases, values, phases));
    for (std::size_t i = 0; i < 9; ++i) {
        EXPECT_NEAR(values[i], 0.5 * static_cast<double>(i), 1e-14);
        EXPECT_NEAR(phases[i], someSignal(9)[i], 1e-14);
    }
}

TEST(InverseFft, GivesTheSamplesOfTheForwardTransformBack)
{
    std::vector<std::size_t> lengths{997, 4096};
    for (std::size_t n = 1; n <= 64; ++n) {
        lengths.push_back(n);
    }
    for (std::size_t const n : lengths) {
        SCOPED_TRACE(n);
        Array const input = someSignal(n);
        auto const there = spectrumOf(input, evenTimes(n, 0.25));
        Array times;
        Array values;
        ASSERT_TRUE(FFTHelper::inverseFFT(there.m_frequencies, there.m_magnitudes, there.m_phases,
                                          times, values));
        ASSERT_EQ(values.size(), n);
        for (std::size_t i = 0; i < n; ++i) {
            ASSERT_NEAR(values[i], input[i], 1e-13);
            if (n > 1) {
                ASSERT_NEAR(times[i], 0.25 * static_cast<double>(i), 1e-9);
            }
        }
    }
}

TEST(InverseFft, RefusesMissingFrequenciesAndPhasesAndWritesNothing)
{
    Array const two(std::vector<double>{1.0, 2.0});
    Array const one(std::vector<double>{1.0});
    Array times(std::vector<double>{7.0});
    Array values(std::vector<double>{8.0});
    EXPECT_FALSE(FFTHelper::inverseFFT(Array(), two, two, times, values));
    EXPECT_FALSE(FFTHelper::inverseFFT(two, two, one, times, values));
    EXPECT_THAT(elementsOf(times), ElementsAre(7.0));
    EXPECT_FALSE(FFTHelper::inverseFFT(two, Array(), two, times, values));
    EXPECT_THAT(elementsOf(values), ElementsAre(8.0));
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
