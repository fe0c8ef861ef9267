// Which ids a mesh body has.

#include "plugins/modelingplugin/utilities/identity/pluginhelper.h"
#include "tests/support/meshfakes.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <set>

namespace vrn::orlo::plugin::modeling::test {
namespace {

constexpr LongId kGreatest = std::numeric_limits<LongId>::max();

/// A mesh body of both worlds.
struct BodyOfIds final : ObjectOf<silent::MeshBodyView, KFR::EOM::IEOMMeshBodyInterface> {
    HANDS_OUT(getElementIds, LongIds, elementIds)
    HANDS_OUT(getNodeIds, LongIds, nodeIds)
};

std::set<LongId> range(LongId first, LongId count, LongId step)
{
    std::set<LongId> ids;
    for (LongId i = 0; i < count; ++i) {
        ids.insert(first + i * step);
    }
    return ids;
}

TEST(ValidIds, KeepsTheOrderAndTheRepeatsOfTheIdsGiven)
{
    struct {
        char const* name;
        std::set<LongId> known;
    } const rows[] = {
        {"empty", {}},
        {"nothing but 0", {0}},
        {"nothing but the greatest", {kGreatest}},
        {"one", {nodeId(5)}},
        {"from end to end", {0, kGreatest}},
        {"far apart without 0", {1, nodeId(1), kGreatest}},
        {"dense", range(nodeId(0), 300, 1)},
        {"dense at 0", range(0, 65, 1)},
        {"dense at the end", range(kGreatest - 63, 64, 1)},
        {"every second", range(1, 200, 2)},
        {"just close enough", range(1000, 100, 64)},
        {"just too far apart", range(1000, 100, 66)},
        {"in one home", range(1ULL << 40, 50, 1ULL << 58)},
        {"sparse", range(7, 1000, 0x1'0000'0001)},
    };
    std::mt19937_64 random(1);  // NOLINT: always the same
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        // All that are there, their neighbours, the ends and the middle of nowhere; each twice.
        std::vector<LongId> asked{0, 1, 63, 64, kGreatest, kGreatest - 1, 1ULL << 32, 1ULL << 63};
        for (LongId const id : row.known) {
            asked.insert(asked.end(), {id, id + 1, id - 1, id + 64, id ^ (1ULL << 32)});
        }
        asked.insert(asked.end(), asked.begin(), asked.end());
        std::shuffle(asked.begin(), asked.end(), random);
        std::vector<LongId> known(row.known.begin(), row.known.end());
        std::shuffle(known.begin(), known.end(), random);
        LongIds expected;
        for (LongId const id : asked) {
            if (row.known.count(id) > 0) {
                expected.append(id);
            }
        }
        auto const body = KFR::make<BodyOfIds>();
        LongIds const ids(asked.begin(), asked.end());
        body->elementIds = LongIds(known.begin(), known.end());
        EXPECT_EQ(PluginHelper::getValidElements(body, ids), expected);
        EXPECT_TRUE(PluginHelper::getValidNodes(body, ids).empty());
        std::swap(body->elementIds, body->nodeIds);
        EXPECT_EQ(PluginHelper::getValidNodes(body, ids), expected);
        EXPECT_TRUE(PluginHelper::getValidElements(body, ids).empty());
        EXPECT_TRUE(PluginHelper::getValidNodes(body, {}).empty());
        EXPECT_EQ(ids, LongIds(asked.begin(), asked.end()));
    }
}

TEST(ValidIds, AreNoneWithoutAMeshBodyBehindTheObject)
{
    struct NoMeshBody final : ObjectOf<KFR::EOM::IEOMMeshBodyInterface> {};
    SP<KFR::EOM::IEOMMeshBodyInterface> const bodies[] = {{}, KFR::make<NoMeshBody>()};
    for (auto const& body : bodies) {
        EXPECT_TRUE(PluginHelper::getValidElements(body, {1, 2}).empty());
        EXPECT_TRUE(PluginHelper::getValidNodes(body, {1, 2}).empty());
    }
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling::test
