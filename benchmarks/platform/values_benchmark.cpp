// The framework's value types against the standard library's.

#include "benchmarks/support/ratio.h"
#include "platform/caedata/entityreference.h"
#include "platform/kfr/kfrany.h"
#include "platform/kfr/kfrrecords.h"
#include "platform/kfr/kfrserviceobject.h"

#include <any>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <thread>
#include <vector>

namespace {

using orlo::bench::keep;
using orlo::bench::Ratios;

constexpr std::size_t kMillion = 1000000;

/// 32 bytes without an owner: a node's number and its place.
struct NodeRecord {
    long long m_id = 0;
    double m_x = 0.0;
    double m_y = 0.0;
    double m_z = 0.0;
};
static_assert(sizeof(KFRDouble3DPoint) == 24 && sizeof(NodeRecord) == 32);

class Owner final : public KFRServiceObjectImpl<KFRIServiceInterface> {};

template <class T>
void compareAppend(Ratios& ratios, char const* name, double bound, T const& element)
{
    ratios.compare(
        name, bound,
        [&element] {
            KFRSequence<T> sequence;
            for (std::size_t i = 0; i < kMillion; ++i) {
                sequence.append(element);
            }
            keep(sequence);
        },
        [&element] {
            std::vector<T> vector;
            for (std::size_t i = 0; i < kMillion; ++i) {
                vector.push_back(element);
            }
            keep(vector);
        });
}

template <class Held>
void copyManyTimes(Held const& held)
{
    for (std::size_t i = 0; i < kMillion; ++i) {
        Held const copy(held);
        keep(copy);
    }
}

void compareCopy(Ratios& ratios, char const* name)
{
    KFRSequence<double> const sequence(std::size_t{100});
    auto const shared = std::make_shared<std::vector<double>>(100);
    ratios.compare(
        name, 1.0, [&sequence] { copyManyTimes(sequence); }, [&shared] { copyManyTimes(shared); });
}

void compareDetach(Ratios& ratios)
{
    KFRSequence<double> const source(kMillion);
    ratios.compare(
        "detach of a shared sequence, 1e6 doubles", 1.0,
        [&source] {
            KFRSequence<double> copy(source);
            copy[0] = 1.0;
            keep(copy);
        },
        [&source] {
            std::size_t const bytes = kMillion * sizeof(double);
            auto* const copy = static_cast<double*>(std::malloc(bytes));
            std::memcpy(copy, source.data(), bytes);
            copy[0] = 1.0;
            keep(*copy);
            std::free(copy);
        });
}

void compareAny(Ratios& ratios)
{
    ratios.compare(
        "any: put and get of an int, 1e6 times", 1.5,
        [] {
            int sum = 0;
            for (std::size_t i = 0; i < kMillion; ++i) {
                KFRAny any;
                any <<= static_cast<int>(i);
                keep(any);
                int value = 0;
                sum += (any >>= value) ? value & 1 : 0;
            }
            keep(sum);
        },
        [] {
            int sum = 0;
            for (std::size_t i = 0; i < kMillion; ++i) {
                std::any any;
                any = static_cast<int>(i);
                keep(any);
                int const* const value = std::any_cast<int>(&any);
                sum += value != nullptr ? *value & 1 : 0;
            }
            keep(sum);
        });
}

}  // namespace

int main()
{
    Ratios ratios;
    compareAppend(ratios, "append of 1e6 elements of 24 bytes", 0.8,
                  KFRDouble3DPoint{1.0, 2.0, 3.0});
    compareAppend(ratios, "append of 1e6 elements of 32 bytes", 0.8, NodeRecord{1, 1.0, 2.0, 3.0});
    auto const owner = KFR::make<Owner>();
    compareAppend(ratios, "append of 1e6 entity references", 1.0,
                  CAE::EntityReference{KFRIService(owner), 1, 2, 0});
    compareCopy(ratios, "copy of a sequence, one thread, 1e6 times");
    compareDetach(ratios);
    compareAny(ratios);

    // From the first thread on, counts are kept with the bus lock.
    std::thread([] {}).join();
    compareCopy(ratios, "copy of a sequence, threads about, 1e6 times");
    return ratios.exitStatus();
}
