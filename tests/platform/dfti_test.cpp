#include "platform/deps/dfti.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <cstddef>
#include <thread>
#include <vector>

namespace {

DFTI_DESCRIPTOR_HANDLE committed(std::size_t n, double backwardScale)
{
    DFTI_DESCRIPTOR_HANDLE handle = nullptr;
    EXPECT_EQ(DftiCreateDescriptor(&handle, DFTI_DOUBLE, DFTI_REAL, 1, static_cast<MKL_LONG>(n)),
              0);
    EXPECT_EQ(DftiSetValue(handle, DFTI_PLACEMENT, DFTI_NOT_INPLACE), 0);
    EXPECT_EQ(DftiSetValue(handle, DFTI_PACKED_FORMAT, DFTI_CCS_FORMAT), 0);
    EXPECT_EQ(DftiSetValue(handle, DFTI_CONJUGATE_EVEN_STORAGE, DFTI_COMPLEX_COMPLEX), 0);
    EXPECT_EQ(DftiSetValue(handle, DFTI_BACKWARD_SCALE, backwardScale), 0);
    EXPECT_EQ(DftiCommitDescriptor(handle), 0);
    return handle;
}

/// The largest difference after a transform there and back, `shift` doubles into the arrays.
double roundTripError(std::size_t n, std::size_t shift)
{
    std::vector<double> input(n + shift);
    for (std::size_t i = 0; i < n; ++i) {
        input[shift + i] = std::sin(static_cast<double>(i * i));
    }
    std::vector<double> const before = input;
    std::vector<double> bins(n + 2 + shift);
    std::vector<double> output(n + shift);
    auto* handle = committed(n, 1.0 / static_cast<double>(n));
    EXPECT_EQ(DftiComputeForward(handle, input.data() + shift, bins.data() + shift), 0);
    std::vector<double> const binsBefore = bins;
    EXPECT_EQ(DftiComputeBackward(handle, bins.data() + shift, output.data() + shift), 0);
    EXPECT_EQ(DftiFreeDescriptor(&handle), 0);
    EXPECT_EQ(input, before);
    EXPECT_EQ(bins, binsBefore);
    double largest = 0.0;
    for (std::size_t i = shift; i < n + shift; ++i) {
        largest = std::max(largest, std::abs(output[i] - input[i]));
    }
    return largest;
}

TEST(Dfti, ComputesWithACommittedDescriptorOnlyAndRefusesALengthOfZero)
{
    std::array<double, 4> input{};
    std::array<double, 6> output{};
    auto* handle = committed(4, 1.0);
    EXPECT_EQ(DftiSetValue(handle, DFTI_BACKWARD_SCALE, 2.0), 0);
    EXPECT_NE(DftiComputeForward(handle, input.data(), output.data()), 0);
    EXPECT_EQ(DftiFreeDescriptor(&handle), 0);
    EXPECT_NE(DftiCreateDescriptor(&handle, DFTI_DOUBLE, DFTI_REAL, 1, 0), 0);
    EXPECT_NE(DftiFreeDescriptor(&handle), 0);
}

TEST(Dfti, LeavesInputsAloneWhateverTheirAlignment)
{
    for (std::size_t const n : {1u, 2u, 15u, 64u, 101u}) {
        EXPECT_LT(roundTripError(n, 0), 1e-13) << n;
        EXPECT_LT(roundTripError(n, 1), 1e-13) << n;
    }
}

TEST(Dfti, ScalesBackwardAndTakesTheEndBinsAsReal)
{
    std::array<double, 6> bins{4.0, 99.0, 0.0, 0.0, 8.0, 99.0};
    std::array<double, 4> output{};
    auto* handle = committed(4, 0.25);
    EXPECT_EQ(DftiComputeBackward(handle, bins.data(), output.data()), 0);
    EXPECT_EQ(DftiFreeDescriptor(&handle), 0);
    EXPECT_EQ(output, (std::array<double, 4>{3.0, -1.0, 3.0, -1.0}));
}

TEST(Dfti, PlansAndForgetsOnSeveralThreadsAtOnce)
{
    std::atomic<int> wrong = 0;
    std::vector<std::jthread> threads;
    for (std::size_t t = 0; t < 4; ++t) {
        threads.emplace_back([t, &wrong] {
            for (std::size_t i = 0; i < 60; ++i) {  // more lengths than plans are kept
                wrong += roundTripError(1 + (i * 7 + t * 5) % 23, 0) < 1e-13 ? 0 : 1;
            }
        });
    }
    threads.clear();  // joins
    EXPECT_EQ(wrong, 0);
}

}  // namespace
