/// \file
/// The ordered containers under the name by which the library knows them.

#pragma once

#include <absl/container/btree_map.h>
#include <absl/container/btree_set.h>

#include <functional>

/// B-tree containers with nodes of 256 bytes. An insertion or removal invalidates every iterator,
/// pointer and reference into the container.
namespace btree {

template <class Key, class Value, class Compare = std::less<Key>>
using btree_map = absl::btree_map<Key, Value, Compare>;

template <class Key, class Compare = std::less<Key>>
using btree_set = absl::btree_set<Key, Compare>;

}  // namespace btree
