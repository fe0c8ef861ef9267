#include "host/selection/pickfiltermanager.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>

namespace vrn::orlo::host::test {
namespace {

using selection::PickFilterManager;
using ::testing::ElementsAre;
using Targets = KFRSequence<unsigned int>;
constexpr int kOwner = 20130711;

class PickFilterTest : public ::testing::Test {
protected:
    KFRSmartPointer<PickFilterManager> const m_filters = KFR::make<PickFilterManager>();

    void set(Targets const& allowed, Targets const& active, int userSet = 0, int owner = kOwner)
    {
        m_filters->setPickFilter(owner, allowed, userSet, active, true, 0);
    }
    void open(Targets const& allowed, Targets const& overwritable, std::string const& stage)
    {
        m_filters->initStagePickFilter(kOwner, allowed, 0, overwritable, true, stage);
    }
    /// What a user's choice does: it hands the targets back, with new signs added.
    void choose(Targets const& types)
    {
        Targets handedBack = targets();
        for (unsigned int& target : handedBack) {
            if (std::find(types.begin(), types.end(), target) != types.end()) {
                target = -target;
            }
        }
        set(handedBack, types, 1);
    }

    [[nodiscard]] Targets targets() const
    {
        Targets targets{99};
        m_filters->getPickTargets(targets);
        return targets;
    }
    [[nodiscard]] Targets active() const
    {
        Targets targets{99};
        m_filters->getActiveTargets(targets);
        return targets;
    }
    /// Which of the types 1 to 9 can be picked.
    [[nodiscard]] Targets pickable() const
    {
        Targets types;
        for (unsigned int type = 1; type <= 9; ++type) {
            if (m_filters->isPickable({{}, type, 1, 0})) {
                types.append(type);
            }
        }
        return types;
    }
};

TEST_F(PickFilterTest, WhatIsSwitchedOnIsNegativeAndAloneCanBePicked)
{
    struct Row {
        char const* m_name;
        Targets m_allowed, m_active;
        int m_userSet;
        Targets m_targets, m_activeTargets, m_pickable;
    };
    // clang-format off
    Row const rows[] = {
        {"nothing allowed",          {},         {},     0, {},          {},     {}},
        {"none on",                  {7, 5, 7},  {},     0, {7, 5, 7},   {},     {5, 7}},
        {"one on",                   {7, 5, 9},  {5},    0, {7, -5U, 9}, {5},    {5}},
        {"active with a sign",       {7, 5},     {-5U},  0, {7, -5U},    {5},    {5}},
        {"on by its sign",           {-7U, 9},   {},     0, {-7U, 9},    {},     {7}},
        {"active over sign",         {-7U, 9},   {9},    0, {7, -9U},    {9},    {9}},
        {"choice of nothing",        {-7U, 9},   {},     1, {7, 9},      {},     {7, 9}},
        {"choice beyond the filter", {7, 9},     {3},    1, {7, 9},      {3},    {7, 9}},
    };
    // clang-format on
    for (Row const& row : rows) {
        SCOPED_TRACE(row.m_name);
        set(row.m_allowed, row.m_active, row.m_userSet);
        EXPECT_EQ(targets(), row.m_targets);
        EXPECT_EQ(active(), row.m_activeTargets);
        EXPECT_EQ(pickable(), row.m_pickable);
    }
}

TEST_F(PickFilterTest, AStageStartsAsItSaysAndLeavesTheChoiceToBeAskedFor)
{
    set({4, 5, 6}, {});
    choose({6});
    choose({4, 5});
    EXPECT_THAT(pickable(), ElementsAre(4, 5));

    open({5, 6, -7U}, {-5U, 6}, "faces");
    EXPECT_THAT(active(), ElementsAre(4, 5));
    EXPECT_THAT(targets(), ElementsAre(-5U, 6, 7));

    open({5, 6, -7U}, {6}, "edges");
    EXPECT_THAT(targets(), ElementsAre(5, 6, -7U));
    choose({5});  // 7 is on, and not overwritable
    EXPECT_THAT(pickable(), ElementsAre(5, 7));

    open({1}, {}, "faces");
    EXPECT_THAT(m_filters->state()->m_stages, ElementsAre("edges", "faces"));
    EXPECT_THAT(pickable(), ElementsAre(1));
}

TEST_F(PickFilterTest, TheFilterSetLastIsTheCurrentOneUntilItIsCleared)
{
    EXPECT_EQ(pickable().size(), 9U);
    set({1}, {}, 0, 1);
    open({2}, {}, "two");
    m_filters->setMultiSelection(3, false);  // flags are no filter
    m_filters->setContiguousPick(kOwner, true);
    EXPECT_THAT(pickable(), ElementsAre(2));
    EXPECT_TRUE(m_filters->isMulti());
    EXPECT_TRUE(m_filters->state()->m_contiguous);

    m_filters->clearPickFilter(kOwner);
    EXPECT_THAT(pickable(), ElementsAre(1));
    EXPECT_EQ(m_filters->stage(), "");
    m_filters->clearPickFilter(1);
    EXPECT_EQ(pickable().size(), 9U);
    EXPECT_FALSE(m_filters->isMulti());
    EXPECT_FALSE(m_filters->state().has_value());
}

}  // namespace
}  // namespace vrn::orlo::host::test
