#include "explorer/find.h"

#include "explorer/copy_text.h"
#include "tests/support/small_model.h"
#include "tree/value_row.h"

#include <string>

#include <gtest/gtest.h>

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)
using Direction = TreeSearch::Direction;
using Result = TreeSearch::Result;

class Find : public testing::Test {
protected:
    Find()
    {
        test::fillSmallModel(model_);
        tree_.rebuild(model_);
    }

    TreeSearch search(std::string text, TreePlace start, Direction direction, bool takesStart) const
    {
        return {tree_,
                [text = std::move(text)](std::string_view candidate) {
                    return candidate.find(text) != std::string_view::npos;
                },
                start, direction, takesStart};
    }

    /// The text that a search ends at.
    std::string textAt(const TreePlace& place) const
    {
        const NodeView node(tree_, place.node);
        return place.text == TreePlace::kLabel ? node.label()
                                               : valueRows(node).at(place.text - 1).data;
    }

    /// All hits one after the other, until the first comes again.
    std::vector<std::string> hits(const std::string& text, Direction direction) const
    {
        std::vector<std::string> found;
        TreePlace place;
        for (TreePlace first;;) {
            TreeSearch next = search(text, place, direction, false);
            if (next.step(2 * tree_.size()) != Result::Found)
                return found;
            place = next.hit();
            if (found.empty())
                first = place;
            else if (place == first)
                return found;
            found.push_back(textAt(place));
        }
    }

    NetworkMap model_;
    Tree tree_;
};

TEST_F(Find, goesThroughLabelsAndValuesInTheOrderOfTheTree)
{
    const std::vector<std::string> forward{"Harbour", "Harbour One", "1001 - Harbour One"};
    EXPECT_EQ(hits("Harbour", Direction::Forward), forward);
    EXPECT_EQ(hits("Harbour", Direction::Backward),
              std::vector<std::string>(forward.rbegin(), forward.rend()));
}

TEST_F(Find, takesTheStartFirstOrLast)
{
    TreeSearch first = search("ALL NET", {}, Direction::Forward, true);
    EXPECT_EQ(first.step(1), Result::Found);
    EXPECT_FALSE(first.hasWrapped());
    for (const auto direction : {Direction::Forward, Direction::Backward}) {
        TreeSearch last = search("ALL NET", {}, direction, false);
        ASSERT_EQ(last.step(2 * tree_.size()), Result::Found);
        EXPECT_EQ(last.hit(), TreePlace());
        EXPECT_TRUE(last.hasWrapped());
    }
}

TEST_F(Find, worksInStepsAndEndsWithoutAMatch)
{
    TreeSearch all = search("not there", {}, Direction::Forward, true);
    std::size_t steps = 0;
    while (all.step(1) == Result::Running)
        ++steps;
    EXPECT_EQ(steps, tree_.size());
    EXPECT_EQ(all.step(1), Result::Nothing);
}

TEST_F(Find, walksTheTreeBothWays)
{
    NodeView node = tree_.root();
    std::size_t count = 0;
    do {
        EXPECT_EQ(nodeAbove(nodeBelow(node)).id(), node.id());
        node = nodeBelow(node);
        ++count;
    } while (!node.isRoot());
    EXPECT_EQ(count, tree_.size());
}

TEST_F(Find, copiesThePathOfANodeAndItsRows)
{
    TreeSearch program = search("1001 - ", {}, Direction::Forward, true);
    ASSERT_EQ(program.step(tree_.size()), Result::Found);
    const std::string path = pathText(NodeView(tree_, program.hit().node));
    EXPECT_TRUE(path.starts_with("ALL NETWORKS > 0001 - ")) << path;
    EXPECT_TRUE(path.ends_with(" > 0451 - Unknown > PMT > 1001 - Harbour One")) << path;
    const std::vector<ValueRow> rows{{.name = "NAME", .data = "one"}, {.name = "B", .data = ""}};
    EXPECT_EQ(rowsText(rows), "NAME\tone\nB\t\n");
}

} // namespace
