#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace zef::client {

/// A node of a tree as the database tells it: its parent is an identifier, 0 for a root.
struct TreeNode {
  std::int32_t id = 0;
  std::int32_t parent = 0;
};

/// A line of a drawn tree: the branches in front of a node and the node's place in the list.
struct TreeLine {
  std::string branches;
  std::size_t node = 0;
};

/// One line for each node, parents before their children, brothers in the order of the list. A node whose parent is not
/// there is drawn as a root, and so is one node of a ring of parents.
std::vector<TreeLine> DrawTree(const std::vector<TreeNode>& nodes);

}  // namespace zef::client
