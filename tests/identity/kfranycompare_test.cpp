#include "plugins/modelingplugin/utilities/identity/kfranycompare.h"

#include "platform/kfr/floatvalue.h"
#include "platform/kfr/kfrrecords.h"
#include "tests/support/fakeservices.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace vrn::orlo::plugin::modeling {
namespace {

using KFR::Util::Units::FloatValue;

constexpr auto Equal = KFRAnyCompare::Equal;
constexpr auto Different = KFRAnyCompare::Different;
constexpr auto Unknown = KFRAnyCompare::Unknown;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr KFRTypeCodeRecord kNamelessRecord("", {});

template <class L, class R>
void expectResult(KFRAnyCompare::CompResult expected, L const& left, R const& right)
{
    SCOPED_TRACE(KFRAny(left).getTypeID());
    EXPECT_EQ(KFRAnyCompare().compare(KFRAny(left), KFRAny(right)), expected);
}

/// Two values of an exact kind.
template <class T>
void expectExact(T const& one, T const& other)
{
    expectResult(Equal, one, one);
    expectResult(Different, one, other);
}

TEST(KFRAnyCompare, IsExactForIntegersCharactersTruthValuesAndTexts)
{
    expectExact<char>('a', 'b');
    expectExact<unsigned char>(1, 2);
    expectExact<short>(-1, 1);
    expectExact<unsigned short>(1, 2);
    expectExact(1, 2);
    expectExact(1U, 2U);
    expectExact(1LL << 40, 0LL);
    expectExact(1ULL << 40, 0ULL);
    expectExact(std::string("a"), std::string("a\0b", 3));
    expectExact(L'a', L'b');
    expectExact(std::wstring(L"a"), std::wstring(L"ab"));
    expectExact(true, false);
    expectExact(KFRUChar{1}, KFRUChar{2});
    expectExact(icu::UnicodeString(u"\u00e9"), icu::UnicodeString(u"e\u0301"));
    expectExact(test::IStrangerInterface::kfrTypeCode(), KFRIServiceInterface::kfrTypeCode());
    expectResult(Different, 1, 1L);  // the kinds differ
    expectResult(Different, 1, KFRResult(1));
}

TEST(KFRAnyCompare, HoldsRealNumbersAgainstTheToleranceOfTheirKind)
{
    expectResult(Equal, 1.0F, 1.00004F);
    expectResult(Different, 1.0F, 1.0001F);
    expectResult(Different, static_cast<float>(kNaN), static_cast<float>(kNaN));
    expectResult(Equal, 0.0, 9e-19);
    expectResult(Different, 0.0, -1e-18);
    expectResult(Different, 1.0, 1.0 + 1e-15);
    expectResult(Different, 1.0, kNaN);
}

TEST(KFRAnyCompare, ReadsRecordsAsTheLeftOneSays)
{
    FloatValue const one{3, 1, 2, 1.0};
    expectExact(one, FloatValue{4, 1, 2, 1.0});
    expectExact(one, FloatValue{3, 0, 2, 1.0});
    expectExact(one, FloatValue{3, 1, 0, 1.0});
    expectExact(one, FloatValue{3, 1, 2, 1.0 + 1e-15});
    expectResult(Equal, FloatValue{3, 1, 2, 0.0}, FloatValue{3, 1, 2, 9e-19});
    KFRDouble3DPoint const point{1, 2, 3};
    expectExact(point, {1.5, 2, 3});
    expectExact(point, {1, 2.5, 3});
    expectExact(point, {1, 2, 3.5});
    expectResult(Unknown, KFRFloat3DPoint{}, KFRFloat3DPoint{});
    // What is no such record counts as an empty one.
    expectResult(Different, point, one);
    expectResult(Equal, KFRDouble3DPoint{}, one);
}

TEST(KFRAnyCompare, ComparesTypeCodesAndTheCodesOfResults)
{
    expectResult(Equal, KFRTypeCode(), KFRTypeCode());
    expectResult(Equal, KFRTypeCode(), KFRTypeCode(kNamelessRecord));
    expectResult(Different, KFRTypeCode(), KFRIServiceInterface::kfrTypeCode());
    expectResult(Equal, KFRResult(5, 1, 2), KFRResult(5, 3, 4));
    expectResult(Different, KFRResult(5), KFRResult(6));
}

TEST(KFRAnyCompare, KnowsNothingOfOtherKinds)
{
    KFRIService const service = KFR::make<test::Stranger>();
    expectResult(Unknown, service, service);
    expectResult(Unknown, KFRSequence<int>{1}, KFRSequence<int>{1});
    EXPECT_EQ(KFRAnyCompare().compare(KFRAny(), KFRAny()), Unknown);
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
