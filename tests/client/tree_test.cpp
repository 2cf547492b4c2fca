#include "client/tree.h"

#include <gmock/gmock.h>

namespace zef::client {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Each line of the drawing: its branches and the identifier of its node.
std::vector<std::string> Drawn(const std::vector<TreeNode>& nodes) {
  std::vector<std::string> lines;
  for (const TreeLine& line : DrawTree(nodes)) lines.push_back(line.branches + std::to_string(nodes[line.node].id));
  return lines;
}

TEST(Tree, WithoutNodesHasNoLines) { EXPECT_THAT(Drawn({}), IsEmpty()); }

TEST(Tree, RootsHaveNoBranches) { EXPECT_THAT(Drawn({{1, 0}, {2, 0}}), ElementsAre("1", "2")); }

TEST(Tree, OnlyTheLastChildHasACorner) {
  EXPECT_THAT(Drawn({{1, 0}, {2, 1}, {3, 1}}), ElementsAre("1", "├── 2", "└── 3"));
}

TEST(Tree, LineGoesOnBesideGrandchildrenOfAnEarlierChild) {
  EXPECT_THAT(Drawn({{1, 0}, {2, 1}, {3, 1}, {4, 2}}), ElementsAre("1", "├── 2", "│   └── 4", "└── 3"));
}

TEST(Tree, NoLineGoesOnBelowALastChild) {
  EXPECT_THAT(Drawn({{1, 0}, {2, 1}, {3, 2}}), ElementsAre("1", "└── 2", "    └── 3"));
}

TEST(Tree, ChildMayComeBeforeItsParentInTheList) { EXPECT_THAT(Drawn({{2, 1}, {1, 0}}), ElementsAre("1", "└── 2")); }

TEST(Tree, NodeWithAMissingParentIsARoot) { EXPECT_THAT(Drawn({{2, 99}}), ElementsAre("2")); }

TEST(Tree, RingOfParentsIsDrawnOnce) { EXPECT_THAT(Drawn({{1, 2}, {2, 1}}), ElementsAre("1", "└── 2")); }

TEST(Tree, NodeThatIsItsOwnParentIsDrawnOnce) { EXPECT_THAT(Drawn({{1, 1}}), ElementsAre("1")); }

TEST(Tree, LongChainIsDrawnWhole) {
  std::vector<TreeNode> chain;
  for (std::int32_t id = 1; id <= 2000; ++id) chain.push_back({id, id - 1});
  EXPECT_EQ(DrawTree(chain).size(), 2000U);
}

}  // namespace
}  // namespace zef::client
