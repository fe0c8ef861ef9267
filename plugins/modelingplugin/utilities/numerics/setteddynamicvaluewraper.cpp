#include "plugins/modelingplugin/utilities/numerics/setteddynamicvaluewraper.h"

#include "plugins/modelingplugin/utilities/numerics/settedvalues.h"

#include <algorithm>
#include <cmath>

namespace vrn::orlo::plugin::modeling {

namespace {

using KFR::Util::Units::PairSample;
using KFR::Util::Units::TripleSample;

bool isNear(double left, double right)
{
    return std::fabs(left - right) < kSettedValueTolerance;
}

bool isNear(TripleSample const& left, TripleSample const& right)
{
    return isNear(left.m_first, right.m_first) && isNear(left.m_second, right.m_second) &&
           isNear(left.m_third, right.m_third);
}

bool isNear(PairSample const& left, PairSample const& right)
{
    return isNear(left.m_first, right.m_first) && isNear(left.m_second, right.m_second);
}

template <class Sample>
bool areNear(KFRSequence<Sample> const& left, KFRSequence<Sample> const& right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](Sample const& a, Sample const& b) { return isNear(a, b); });
}

template <class Sample>
double directionOf(KFRSequence<Sample> const& samples)
{
    bool const isUp = std::any_of(samples.begin(), samples.end(),
                                  [](Sample const& sample) { return sample.m_second > 0.0; });
    return isUp ? 1.0 : -1.0;
}

}  // namespace

SettedDynamicValueWraper::SettedDynamicValueWraper(bool isSetted, bool isTransfer)
{
    m_value.m_setted = isSetted;
    m_value.m_isTransfer = isTransfer;
}

void SettedDynamicValueWraper::setFullyDynamic()
{
    m_value.m_isTransfer = true;
    m_value.m_scale = 1.0;
    m_value.m_triples.clear();
    m_value.m_pairs.clear();
}

void SettedDynamicValueWraper::setTransferFunction()
{
    m_value.m_isTransfer = true;
    m_value.m_scale = 1.0;
    m_value.m_triples = {{0.0, 1.0, 0.0}, {100000.0, 1.0, 0.0}};
    m_value.m_pairs.clear();
}

double SettedDynamicValueWraper::dir() const
{
    if (!m_value.m_setted) {
        return 0.0;
    }
    if (!m_value.m_triples.empty()) {
        return directionOf(m_value.m_triples);
    }
    return m_value.m_pairs.empty() ? 0.0 : directionOf(m_value.m_pairs);
}

bool operator==(SettedDynamicValueWraper const& left, SettedDynamicValueWraper const& right)
{
    auto const& a = left.m_value;
    auto const& b = right.m_value;
    if (a.m_setted != b.m_setted) {
        return false;
    }
    if (!a.m_setted) {
        return true;
    }
    if (a.m_isTransfer != b.m_isTransfer) {
        return false;
    }
    return a.m_isTransfer ? areNear(a.m_triples, b.m_triples) : areNear(a.m_pairs, b.m_pairs);
}

}  // namespace vrn::orlo::plugin::modeling
