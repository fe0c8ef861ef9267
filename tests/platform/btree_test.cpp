#include "platform/deps/btree.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>

namespace btree {
namespace {

template <int bytes>
using MapOfNodes = absl::container_internal::btree_map_container<
    absl::container_internal::btree<absl::container_internal::map_params<
        int, std::string, std::less<int>, std::allocator<std::pair<int const, std::string>>, bytes,
        false>>>;

// The node size is the packaged library's own; it is relied upon, and not to be set from here.
static_assert(std::is_base_of_v<MapOfNodes<256>, btree_map<int, std::string>>);
static_assert(!std::is_base_of_v<MapOfNodes<512>, btree_map<int, std::string>>);

TEST(BTree, KeepsItsKeysInOrderOverManyNodes)
{
    btree_map<int, std::string> map;
    for (int i = 0; i < 1000; ++i) {
        map[i * 7919 % 1000] = std::to_string(i);
    }
    int expected = 0;
    for (auto const& [key, value] : map) {
        EXPECT_EQ(key, expected++);
    }
    EXPECT_EQ(expected, 1000);
}

}  // namespace
}  // namespace btree
