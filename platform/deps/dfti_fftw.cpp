// The transform calls over FFTW 3. FFTW is under the GPL: it is used in this file only, so that
// another transform can take its place here.

#include "platform/deps/dfti.h"

#include <fftw3.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <memory>
#include <mutex>
#include <new>
#include <utility>

struct DFTI_DESCRIPTOR {
    MKL_LONG m_length = 0;
    double m_forwardScale = 1.0;
    double m_backwardScale = 1.0;
    // The interface's defaults, which commit refuses: this layer has to be asked for what it does.
    DFTI_CONFIG_VALUE m_placement = DFTI_INPLACE;
    DFTI_CONFIG_VALUE m_storage = DFTI_COMPLEX_REAL;
    bool m_isCommitted = false;
};

namespace {

/// Two doubles of a complex number are added to n, and FFTW counts bytes.
constexpr MKL_LONG kLongest =
    std::numeric_limits<MKL_LONG>::max() / static_cast<MKL_LONG>(sizeof(double)) - 2;

/// FFTW executes on any number of threads, but plans and destroys plans on one at a time.
constinit std::mutex plannerMutex;

enum class Direction { forward, backward };

struct FreeByFftw {
    void operator()(void* memory) const noexcept { fftw_free(memory); }
};

template <class T>
using Buffer = std::unique_ptr<T[], FreeByFftw>;

std::size_t binCount(MKL_LONG length)
{
    return static_cast<std::size_t>(length / 2 + 1);
}

Buffer<double> realBuffer(MKL_LONG length)
{
    Buffer<double> buffer(fftw_alloc_real(static_cast<std::size_t>(length)));
    return buffer ? std::move(buffer) : throw std::bad_alloc();
}

Buffer<fftw_complex> complexBuffer(MKL_LONG length)
{
    Buffer<fftw_complex> buffer(fftw_alloc_complex(binCount(length)));
    return buffer ? std::move(buffer) : throw std::bad_alloc();
}

/// A plan for arrays that are aligned as FFTW's own are.
class Plan {
public:
    /// The planner's mutex is held. \throws std::bad_alloc
    Plan(MKL_LONG length, Direction direction) : m_length(length), m_direction(direction)
    {
        // An estimate reads and writes nothing, it looks at the addresses.
        Buffer<double> const real = realBuffer(length);
        Buffer<fftw_complex> const bins = complexBuffer(length);
        fftw_iodim64 const line{length, 1, 1};
        m_plan = direction == Direction::forward
                     ? fftw_plan_guru64_dft_r2c(1, &line, 0, nullptr, real.get(), bins.get(),
                                                FFTW_ESTIMATE)
                     : fftw_plan_guru64_dft_c2r(1, &line, 0, nullptr, bins.get(), real.get(),
                                                FFTW_ESTIMATE);
        if (m_plan == nullptr) {
            throw std::bad_alloc();
        }
    }
    Plan(Plan const&) = delete;
    Plan& operator=(Plan const&) = delete;
    ~Plan()
    {
        std::lock_guard const planning(plannerMutex);
        fftw_destroy_plan(m_plan);
    }

    [[nodiscard]] fftw_plan get() const noexcept { return m_plan; }
    [[nodiscard]] bool isFor(MKL_LONG length, Direction direction) const noexcept
    {
        return m_length == length && m_direction == direction;
    }

private:
    MKL_LONG m_length;
    Direction m_direction;
    fftw_plan m_plan = nullptr;
};

using SharedPlan = std::shared_ptr<Plan const>;

/// The plans that were used last.
class PlanCache {
public:
    /// Null when there is none.
    [[nodiscard]] SharedPlan find(MKL_LONG length, Direction direction)
    {
        std::lock_guard const lock(m_mutex);
        auto const found = std::find_if(
            m_plans.begin(), m_plans.end(),
            [=](SharedPlan const& plan) { return plan && plan->isFor(length, direction); });
        if (found == m_plans.end()) {
            return nullptr;
        }
        std::rotate(m_plans.begin(), found, found + 1);
        return m_plans.front();
    }

    /// Puts the plan in front. \return the one that had to go
    [[nodiscard]] SharedPlan insert(SharedPlan plan)
    {
        std::lock_guard const lock(m_mutex);
        std::rotate(m_plans.begin(), m_plans.end() - 1, m_plans.end());
        return std::exchange(m_plans.front(), std::move(plan));
    }

private:
    std::mutex m_mutex;
    std::array<SharedPlan, 8> m_plans;  // last used first
};

SharedPlan planFor(MKL_LONG length, Direction direction)
{
    static PlanCache cache;
    if (SharedPlan plan = cache.find(length, direction)) {
        return plan;
    }
    SharedPlan evicted;  // goes after the lock: a plan's end takes the planner's mutex
    std::lock_guard const planning(plannerMutex);
    SharedPlan plan = cache.find(length, direction);
    if (!plan) {
        plan = std::make_shared<Plan const>(length, direction);
        evicted = cache.insert(plan);
    }
    return plan;
}

bool isAligned(void const* array)
{
    return fftw_alignment_of(static_cast<double*>(const_cast<void*>(array))) == 0;
}

void scale(double* values, std::size_t count, double factor)
{
    if (factor != 1.0) {
        std::transform(values, values + count, values,
                       [=](double value) { return value * factor; });
    }
}

void forward(MKL_LONG length, double factor, double* input, double* output)
{
    SharedPlan const plan = planFor(length, Direction::forward);
    std::size_t const count = 2 * binCount(length);
    Buffer<double> ownInput;
    if (!isAligned(input)) {
        ownInput = realBuffer(length);
        std::copy_n(input, length, ownInput.get());
        input = ownInput.get();
    }
    if (isAligned(output)) {
        fftw_execute_dft_r2c(plan->get(), input, reinterpret_cast<fftw_complex*>(output));
    } else {
        Buffer<fftw_complex> const bins = complexBuffer(length);
        fftw_execute_dft_r2c(plan->get(), input, bins.get());
        std::copy_n(&bins[0][0], count, output);
    }
    scale(output, count, factor);
}

void backward(MKL_LONG length, double factor, double const* input, double* output)
{
    SharedPlan const plan = planFor(length, Direction::backward);
    std::size_t const last = binCount(length) - 1;
    Buffer<fftw_complex> const bins = complexBuffer(length);  // the transform destroys its input
    std::copy_n(input, 2 * (last + 1), &bins[0][0]);
    bins[0][1] = 0.0;
    if (length % 2 == 0) {
        bins[last][1] = 0.0;
    }
    if (isAligned(output)) {
        fftw_execute_dft_c2r(plan->get(), bins.get(), output);
    } else {
        Buffer<double> const values = realBuffer(length);
        fftw_execute_dft_c2r(plan->get(), bins.get(), values.get());
        std::copy_n(values.get(), length, output);
    }
    scale(output, static_cast<std::size_t>(length), factor);
}

template <class Transform>
MKL_LONG compute(DFTI_DESCRIPTOR const* handle, void const* input, void const* output,
                 Transform const& transform) noexcept
{
    if (handle == nullptr || !handle->m_isCommitted) {
        return DFTI_BAD_DESCRIPTOR;
    }
    if (input == nullptr || output == nullptr || input == output) {
        return DFTI_INCONSISTENT_CONFIGURATION;
    }
    try {
        transform();
        return DFTI_NO_ERROR;
    } catch (std::bad_alloc const&) {
        return DFTI_MEMORY_ERROR;
    } catch (...) {  // a lock that the system refused
        return DFTI_MKL_INTERNAL_ERROR;
    }
}

}  // namespace

MKL_LONG DftiCreateDescriptor(DFTI_DESCRIPTOR_HANDLE* handle, DFTI_CONFIG_VALUE precision,
                              DFTI_CONFIG_VALUE domain, MKL_LONG dimension,
                              MKL_LONG length) noexcept
{
    if (handle == nullptr) {
        return DFTI_BAD_DESCRIPTOR;
    }
    *handle = nullptr;
    if (dimension < 1 || length < 1 || length > kLongest) {
        return DFTI_INVALID_CONFIGURATION;
    }
    if (precision != DFTI_DOUBLE || domain != DFTI_REAL || dimension != 1) {
        return DFTI_UNIMPLEMENTED;
    }
    *handle = new (std::nothrow) DFTI_DESCRIPTOR{.m_length = length};
    return *handle == nullptr ? DFTI_MEMORY_ERROR : DFTI_NO_ERROR;
}

MKL_LONG DftiSetValue(DFTI_DESCRIPTOR_HANDLE handle, DFTI_CONFIG_PARAM param,
                      DFTI_CONFIG_VALUE value) noexcept
{
    if (handle == nullptr) {
        return DFTI_BAD_DESCRIPTOR;
    }
    handle->m_isCommitted = false;
    if (param == DFTI_PLACEMENT && (value == DFTI_INPLACE || value == DFTI_NOT_INPLACE)) {
        handle->m_placement = value;
        return DFTI_NO_ERROR;
    }
    if (param == DFTI_CONJUGATE_EVEN_STORAGE &&
        (value == DFTI_COMPLEX_REAL || value == DFTI_COMPLEX_COMPLEX)) {
        handle->m_storage = value;
        return DFTI_NO_ERROR;
    }
    // With complex storage the packed format has no say: CCS and CCE are the same numbers then.
    if (param == DFTI_PACKED_FORMAT && (value == DFTI_CCS_FORMAT || value == DFTI_CCE_FORMAT)) {
        return DFTI_NO_ERROR;
    }
    bool const isFormat =
        param == DFTI_PACKED_FORMAT && (value == DFTI_PACK_FORMAT || value == DFTI_PERM_FORMAT);
    return isFormat ? DFTI_UNIMPLEMENTED : DFTI_INCONSISTENT_CONFIGURATION;
}

MKL_LONG DftiSetValue(DFTI_DESCRIPTOR_HANDLE handle, DFTI_CONFIG_PARAM param, double scale) noexcept
{
    if (handle == nullptr) {
        return DFTI_BAD_DESCRIPTOR;
    }
    handle->m_isCommitted = false;
    if (param != DFTI_FORWARD_SCALE && param != DFTI_BACKWARD_SCALE) {
        return DFTI_INCONSISTENT_CONFIGURATION;
    }
    (param == DFTI_FORWARD_SCALE ? handle->m_forwardScale : handle->m_backwardScale) = scale;
    return DFTI_NO_ERROR;
}

MKL_LONG DftiCommitDescriptor(DFTI_DESCRIPTOR_HANDLE handle) noexcept
{
    if (handle == nullptr) {
        return DFTI_BAD_DESCRIPTOR;
    }
    if (handle->m_placement != DFTI_NOT_INPLACE || handle->m_storage != DFTI_COMPLEX_COMPLEX) {
        return DFTI_UNIMPLEMENTED;
    }
    handle->m_isCommitted = true;
    return DFTI_NO_ERROR;
}

MKL_LONG DftiComputeForward(DFTI_DESCRIPTOR_HANDLE handle, void* input, void* output) noexcept
{
    return compute(handle, input, output, [=] {
        forward(handle->m_length, handle->m_forwardScale, static_cast<double*>(input),
                static_cast<double*>(output));
    });
}

MKL_LONG DftiComputeBackward(DFTI_DESCRIPTOR_HANDLE handle, void* input, void* output) noexcept
{
    return compute(handle, input, output, [=] {
        backward(handle->m_length, handle->m_backwardScale, static_cast<double const*>(input),
                 static_cast<double*>(output));
    });
}

MKL_LONG DftiFreeDescriptor(DFTI_DESCRIPTOR_HANDLE* handle) noexcept
{
    if (handle == nullptr || *handle == nullptr) {
        return DFTI_BAD_DESCRIPTOR;
    }
    delete std::exchange(*handle, nullptr);
    return DFTI_NO_ERROR;
}
