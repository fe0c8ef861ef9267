#include "platform/kfr/kfrresult.h"

#include "platform/kfr/kfrany.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace KFR {
namespace {

using ::testing::IsEmpty;

TEST(KFRResult, IsNotDoneUntilSomebodySaysOtherwise)
{
    EXPECT_EQ(KFRResult().getCode(), 0x7FFFFFFF);
    EXPECT_FALSE(KFRResult().isOk());
    EXPECT_TRUE(KFRResult(0).isOk());
    EXPECT_FALSE(KFRResult(-1).isOk());
    EXPECT_FALSE(KFRResult(1).isOk());
}

TEST(KFRResult, KeepsDomainAndMessageIdOrHasNeither)
{
    EXPECT_EQ(KFRResult(5).getDomain(), -1);
    EXPECT_EQ(KFRResult(5).getMessageId(), 0);
    KFRResult const result(5, 12, 34);
    EXPECT_EQ(result.getCode(), 5);
    EXPECT_EQ(result.getDomain(), 12);
    EXPECT_EQ(result.getMessageId(), 34);
}

TEST(KFRResult, KeepsParametersInOrderWithTheirKinds)
{
    KFRResult result(5);
    char const* const nothing = nullptr;
    result.addParam(1).addParam(2L).addParam(3LL).addParam(4.0).addParam("five");
    result.addParam(std::string("six")).addParam(icu::UnicodeString(u"sieben")).addParam(nothing);
    int const kinds[] = {5, 7, 7, 10, 12, 12, 22, 12};
    auto const params = result.getParams();
    ASSERT_EQ(params.size(), std::size(kinds));
    for (std::size_t i = 0; i < params.size(); ++i) {
        EXPECT_EQ(params[i].getTypeID(), kinds[i]) << "parameter " << i;
    }
    EXPECT_EQ(*params[1].get<long long>(), 2);
    EXPECT_EQ(*params[6].get<icu::UnicodeString>(), icu::UnicodeString(u"sieben"));
    EXPECT_EQ(*params[7].get<std::string>(), "");
    EXPECT_EQ(result.getDomain(), -1);  // parameters alone make no message
}

TEST(KFRResult, CopiesShareTheirBlock)
{
    KFRResult first(5, 1, 2);
    KFRResult second(first);
    KFRResult third;
    third = second;
    auto const before = first.getParams();
    second.addParam("seen by all");
    EXPECT_EQ(first.getParams().size(), 1U);
    EXPECT_EQ(third.getParams().size(), 1U);
    EXPECT_THAT(before, IsEmpty());  // what was handed out stays
    KFRResult const bare(5);
    KFRResult(bare).addParam(1);  // without a block the copies part
    EXPECT_THAT(bare.getParams(), IsEmpty());
}

TEST(KFRResult, MovedFromIsNotDoneAndWithoutABlock)
{
    KFRResult from(5, 1, 2);
    from.addParam(3);
    KFRResult to(std::move(from));
    EXPECT_EQ(from.getCode(), notDone);  // NOLINT: what it is now is the question
    EXPECT_EQ(from.getDomain(), -1);
    EXPECT_EQ(to.getParams().size(), 1U);
    from.addParam(4);
    EXPECT_EQ(to.getParams().size(), 1U);

    KFRResult& same = to;
    to = same;
    to = std::move(same);
    EXPECT_EQ(to.getDomain(), 1);
}

}  // namespace
}  // namespace KFR
