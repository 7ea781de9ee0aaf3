#include "ui/find_bar.h"

#include "tests/ui/window_test.h"
#include "ui/value_model.h"

#include <QLineEdit>

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)

class Finding : public test::WindowTest {
protected:
    void openBar()
    {
        openAndScan();
        frame->action(Command::Find)->trigger();
    }

    void type(const QString& text)
    {
        QTest::keyClicks(&bar().field(), text);
        settleSearch();
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(&bar().field(), key, modifiers);
        settleSearch();
    }

    void settleSearch()
    {
        ASSERT_TRUE(test::waitFor([this] { return !bar().isSearching(); }));
    }

    FindBar& bar() { return frame->findBar(); }

    /// The label of the node that is selected, or the value of its row.
    std::string found() const
    {
        const auto node = frame->treePane().selectedNode();
        const auto row = frame->valuePane().selectedRow();
        if (!node)
            return {};
        return row ? frame->valuePane().valueModel().rows()[*row].data : node->label();
    }
};

TEST_F(Finding, goesToTheTextWhileItIsTypedAndThenFromHitToHit)
{
    openBar();
    type("harbour");
    EXPECT_EQ(found(), "Harbour");
    type(" o");
    EXPECT_EQ(found(), "Harbour One");
    press(Qt::Key_Return);
    EXPECT_EQ(found(), "1001 - Harbour One");
    press(Qt::Key_Return);
    EXPECT_EQ(found(), "Harbour One");
    EXPECT_EQ(bar().message(), "Went on from the other end");
    press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(found(), "1001 - Harbour One");
}

TEST_F(Finding, opensOnlyTheWayToWhatItFinds)
{
    openBar();
    type("1 - digital television");
    EXPECT_EQ(found(), "1 - digital television service");
    auto& pane = frame->treePane();
    EXPECT_TRUE(pane.isExpanded(pane.treeModel().indexOf(node("SDT"))));
    EXPECT_FALSE(pane.isExpanded(pane.treeModel().indexOf(node("PMT"))));
}

TEST_F(Finding, givesTheKeysBackToTheTree)
{
    openBar();
    type("SERVICE_DESCRIPTOR");
    press(Qt::Key_Escape);
    EXPECT_TRUE(frame->treePane().hasFocus());
    EXPECT_FALSE(frame->valuePane().selectedRow()) << "the other pane was not passed on the way";
}

TEST_F(Finding, goesBackFromWhatIsNotThere)
{
    for (const char* const start : {"", "PMT"}) {
        openBar();
        if (*start)
            select(start);
        const std::string before = found();
        type("harbour one");
        EXPECT_NE(found(), before);
        type(" not there");
        EXPECT_EQ(bar().message(), "Not found");
        EXPECT_EQ(found(), before);
        auto& pane = frame->treePane();
        for (const char* const way : {"SDT", "PMT"})
            EXPECT_FALSE(pane.isExpanded(pane.treeModel().indexOf(node(way)))) << way;
        EXPECT_EQ(pane.isExpanded(pane.treeModel().indexOf(tree().root())), *start != 0);
    }
}

TEST_F(Finding, findsARowByItsName)
{
    openBar();
    type("provider_name_length");
    EXPECT_EQ(frame->valuePane().selectedRow(), 3U);
}

TEST_F(Finding, endsWithTheTreeItSearches)
{
    openBar();
    QTest::keyClicks(&bar().field(), "x");
    frame->ClearTree();
    EXPECT_FALSE(bar().isSearching());
    press(Qt::Key_F3);
    EXPECT_EQ(bar().message(), "Nothing has been read yet");
    press(Qt::Key_Escape);
    EXPECT_FALSE(bar().isVisible());
}

} // namespace
