#include "plugins/modelingplugin/utilities/numerics/degreefreedom.h"

#include <algorithm>

namespace vrn::orlo::plugin::modeling {

namespace {

constexpr std::array<unsigned long long, DegreeFreedomFlags::kCount> kWeights{32, 16, 8, 4, 2, 1};

template <class T>
void copyFlags(T const (&flags)[DegreeFreedomFlags::kCount],
               std::array<bool, DegreeFreedomFlags::kCount>& fixed)
{
    std::transform(std::begin(flags), std::end(flags), fixed.begin(),
                   [](T flag) { return flag != 0; });
}

}  // namespace

bool DegreeFreedomFlags::isClamped() const
{
    return std::find(m_fixed.begin(), m_fixed.end(), false) == m_fixed.end();
}

void DegreeFreedomFlags::set(int const (&flags)[kCount])
{
    copyFlags(flags, m_fixed);
}

void DegreeFreedomFlags::set(long const (&flags)[kCount])
{
    copyFlags(flags, m_fixed);
}

void DegreeFreedomFlags::set(long long const (&flags)[kCount])
{
    copyFlags(flags, m_fixed);
}

void DegreeFreedomFlags::set(std::string const& digits)
{
    m_fixed.fill(false);
    for (char const digit : digits) {
        if (digit >= '1' && digit <= '6') {
            m_fixed[static_cast<std::size_t>(digit - '1')] = true;
        }
    }
}

std::string DegreeFreedomFlags::toString() const
{
    constexpr char const* kDigits = "123456";
    std::string text;
    for (std::size_t i = 0; i < kCount; ++i) {
        if (m_fixed[i]) {
            text += kDigits[i];
        }
    }
    return text;
}

DegreeFreedom::DegreeFreedom(BitDegreeFreedom const& other) : DegreeFreedomFlags(other)
{
}

int DegreeFreedom::toInt() const
{
    int number = 0;
    for (int i = 0; i < static_cast<int>(kCount); ++i) {
        if (get(i)) {
            number = 10 * number + i + 1;
        }
    }
    return number;
}

void BitDegreeFreedom::set(unsigned long long mask)
{
    for (std::size_t i = 0; i < kCount; ++i) {
        fixed()[i] = mask / kWeights[i] != 0;
        mask %= kWeights[i];
    }
}

unsigned long long BitDegreeFreedom::toInt() const
{
    unsigned long long mask = 0;
    for (std::size_t i = 0; i < kCount; ++i) {
        mask += fixed()[i] ? kWeights[i] : 0;
    }
    return mask;
}

icu::UnicodeString BitDegreeFreedom::toUString() const
{
    icu::UnicodeString text;
    for (bool const isFixed : fixed()) {
        text.append(isFixed ? u'1' : u'0');
    }
    return text;
}

}  // namespace vrn::orlo::plugin::modeling
