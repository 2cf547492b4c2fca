#include "client/tree.h"

#include <unordered_map>
#include <utility>

namespace zef::client {
namespace {

using Places = std::vector<std::size_t>;

/// Draws with a stack of its own: the depth of a tree is the database's matter.
class Painter {
 public:
  explicit Painter(const std::vector<TreeNode>& nodes) : nodes_(nodes), drawn_(nodes.size()) {
    for (std::size_t i = 0; i < nodes.size(); ++i) places_[nodes[i].id] = i;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
      if (!IsRoot(nodes[i])) children_[nodes[i].parent].push_back(i);
    }
  }

  std::vector<TreeLine> Draw() {
    for (std::size_t i = 0; i < nodes_.size(); ++i) {
      if (IsRoot(nodes_[i])) DrawFrom(i);
    }
    // What is left hangs in a ring.
    for (std::size_t i = 0; i < nodes_.size(); ++i) DrawFrom(i);
    return std::move(lines_);
  }

 private:
  struct Pending {
    std::size_t node;
    std::string branches;  ///< in front of the node
    std::string below;     ///< in front of its children's own branches
  };

  bool IsRoot(const TreeNode& node) const { return !places_.contains(node.parent); }

  void DrawFrom(std::size_t root) {
    std::vector<Pending> stack{{root, "", ""}};
    while (!stack.empty()) {
      Pending next = std::move(stack.back());
      stack.pop_back();
      if (drawn_[next.node]) continue;
      drawn_[next.node] = true;
      lines_.push_back({next.branches, next.node});
      PushChildren(stack, next);
    }
  }

  void PushChildren(std::vector<Pending>& stack, const Pending& parent) const {
    const auto found = children_.find(nodes_[parent.node].id);
    if (found == children_.end()) return;
    const Places& children = found->second;
    for (std::size_t i = children.size(); i-- > 0;) {
      const bool last = i + 1 == children.size();
      stack.push_back({children[i], parent.below + (last ? "└── " : "├── "), parent.below + (last ? "    " : "│   ")});
    }
  }

  const std::vector<TreeNode>& nodes_;
  std::vector<bool> drawn_;
  std::unordered_map<std::int32_t, std::size_t> places_;
  std::unordered_map<std::int32_t, Places> children_;
  std::vector<TreeLine> lines_;
};

}  // namespace

std::vector<TreeLine> DrawTree(const std::vector<TreeNode>& nodes) { return Painter(nodes).Draw(); }

}  // namespace zef::client
