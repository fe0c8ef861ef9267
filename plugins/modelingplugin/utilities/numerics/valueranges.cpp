#include "plugins/modelingplugin/utilities/numerics/valueranges.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace vrn::orlo::plugin::modeling {

namespace {

using KFR::Util::Units::FloatValue;

/// What a bound lets pass: all, its own value as well, or only what lies beyond it.
enum class Bound : int { none, inclusive, exclusive };

struct RangeRow {
    std::string_view m_name;
    Bound m_lowKind;
    double m_low;
    Bound m_highKind;
    double m_high;
    unsigned m_unitCode;  ///< First 32 bits of a FloatValue, told as one number.
};

using enum Bound;

/// Gxy has to be above zero while Gxz and Gyz may be zero: that is meant.
// clang-format off
constexpr std::array kRanges{
    //       name                                  low               high            unit code
    RangeRow{"getBehaviorMomentRange",             exclusive, 0.0, none,      0.0, 0x60000},
    RangeRow{"getBehaviorThicknessRange",          exclusive, 0.0, none,      0.0, 0x60000},
    RangeRow{"getMaterialDampingCoefficientRange", inclusive, 0.0, none,      0.0, 0x60000},
    RangeRow{"getMaterialDensityRange",            exclusive, 0.0, none,      0.0, 0x603E1},
    RangeRow{"getMaterialPoissonRatioRange",       exclusive, 0.0, inclusive, 0.5, 0x60000},
    RangeRow{"getMaterialShearModulusGxyRange",    exclusive, 0.0, none,      0.0, 0x603DC},
    RangeRow{"getMaterialShearModulusGxzRange",    inclusive, 0.0, none,      0.0, 0x603DC},
    RangeRow{"getMaterialShearModulusGyzRange",    inclusive, 0.0, none,      0.0, 0x603DC},
    RangeRow{"getMaterialYoungsModulusRange",      exclusive, 0.0, none,      0.0, 0x603DC},
    RangeRow{"getMatrixConditionLimit",            exclusive, 0.0, none,      0.0, 0x60000},
    RangeRow{"getPlyThicknessRange",               exclusive, 0.0, none,      0.0, 0x603E8},
    RangeRow{"getPointMassInertiaRange",           inclusive, 0.0, none,      0.0, 0x603CF},
    RangeRow{"getPointMassMassRange",              inclusive, 0.0, none,      0.0, 0x603E7},
    RangeRow{"getSectionThicknessRange",           exclusive, 0.0, none,      0.0, 0x603E8},
    RangeRow{"getStressLimitRange",                exclusive, 0.0, none,      0.0, 0x603DC},
    RangeRow{"getSolverMemoryRange",               inclusive, 200.0, none,    0.0, 0x603C2},
};
// clang-format on

enum Row : std::size_t {
#define VALUE_RANGE(name) k_##name,
#include "plugins/modelingplugin/utilities/numerics/valueranges.def"
    kRowCount
};
static_assert(kRanges.size() == 16 && kRanges.size() == kRowCount);

#define VALUE_RANGE(name) static_assert(kRanges[k_##name].m_name == #name);
#include "plugins/modelingplugin/utilities/numerics/valueranges.def"

constexpr FloatValue valueOf(double value, unsigned unitCode)
{
    return {static_cast<unsigned short>(unitCode & 0xFFFFU),
            static_cast<unsigned char>(unitCode >> 16 & 0xFFU),
            static_cast<unsigned char>(unitCode >> 24), value};
}

FloatValueRange rangeOf(RangeRow const& row)
{
    FloatValue const low = valueOf(row.m_low, row.m_unitCode);
    bool const lowOpen = row.m_lowKind == Bound::exclusive;
    if (row.m_highKind == Bound::none) {
        return {low, true, lowOpen};
    }
    return {low, lowOpen, valueOf(row.m_high, row.m_unitCode), row.m_highKind == Bound::exclusive};
}

}  // namespace

#define VALUE_RANGE(name)                  \
    FloatValueRange ValueRanges::name()    \
    {                                      \
        return rangeOf(kRanges[k_##name]); \
    }
#include "plugins/modelingplugin/utilities/numerics/valueranges.def"

}  // namespace vrn::orlo::plugin::modeling
