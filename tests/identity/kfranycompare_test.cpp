#include "plugins/modelingplugin/utilities/identity/kfranycompare.h"

#include "platform/kfr/floatvalue.h"
#include "platform/kfr/kfrrecords.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <string>

namespace vrn::orlo::plugin::modeling {
namespace {

using KFR::Util::Units::FloatValue;
using Point = KFRDouble3DPoint;
using Unicode = icu::UnicodeString;
using Result = KFRAnyCompare::CompResult;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr KFRTypeCodeRecord kNameless("", {});

template <class L, class R>
void expectResult(Result expected, L const& left, R const& right)
{
    EXPECT_EQ(KFRAnyCompare().compare(KFRAny(left), KFRAny(right)), expected)
        << "kind " << KFRAny(left).getTypeID();
}

/// Pairs of different values, each of which is the same as itself.
template <class... Pairs>
void expectApart(Pairs const&... pairs)
{
    (expectResult(Result::Equal, pairs[0], pairs[0]), ...);
    (expectResult(Result::Different, pairs[0], pairs[1]), ...);
}

TEST(KFRAnyCompare, TellsValuesOfOneKindApart)
{
    expectApart(std::to_array<char>({1, 2}), std::to_array<unsigned char>({1, 2}),
                std::to_array<short>({-1, 1}), std::to_array<unsigned short>({1, 2}),
                std::to_array({1, 2}), std::to_array({1U, 2U}), std::to_array({1LL << 40, 0LL}),
                std::to_array({1ULL << 40, 0ULL}), std::to_array({1.0F, 1.0001F}),
                std::to_array({1.0, 1.0 + 1e-15}), std::to_array({1.0, kNaN}),
                std::to_array<std::string>({"a", std::string("a\0b", 3)}),
                std::to_array({L'a', L'b'}), std::to_array<std::wstring>({L"a", L"ab"}),
                std::to_array({true, false}), std::to_array<KFRUChar>({{1}, {2}}),
                std::to_array<Unicode>({u"\u00e9", u"e\u0301"}),
                std::to_array({KFRTypeCode(), KFRIServiceInterface::kfrTypeCode()}),
                std::to_array<KFRResult>({5, 6}));
    FloatValue const one{3, 1, 2, 1.0};
    expectApart(std::to_array({one, {4, 1, 2, 1.0}}), std::to_array({one, {3, 0, 2, 1.0}}),
                std::to_array({one, {3, 1, 0, 1.0}}), std::to_array({one, {3, 1, 2, 1 + 1e-15}}),
                std::to_array<Point>({{1, 2, 3}, {4, 2, 3}}),
                std::to_array<Point>({{1, 2, 3}, {1, 4, 3}}),
                std::to_array<Point>({{1, 2, 3}, {1, 2, 4}}));
}

TEST(KFRAnyCompare, HasTolerancesAndOddities)
{
    expectResult(Result::Equal, 1.0F, 1.00004F);
    expectResult(Result::Equal, 0.0, 9e-19);
    expectResult(Result::Different, 0.0, -1e-18);
    expectResult(Result::Equal, KFRTypeCode(), KFRTypeCode(kNameless));
    expectResult(Result::Equal, KFRResult(5, 1, 2), KFRResult(5, 3, 4));
    expectResult(Result::Equal, Point{}, FloatValue{3, 1, 2, 1.0});  // no point counts as zero
    expectResult(Result::Different, 1, 1L);                          // two kinds
    expectResult(Result::Unknown, KFRFloat3DPoint{}, KFRFloat3DPoint{});
    expectResult(Result::Unknown, KFRIService(), KFRIService());
    EXPECT_EQ(KFRAnyCompare().compare(KFRAny(), KFRAny()), Result::Unknown);
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
