#include "tests/ui/window_test.h"
#include "ui/value_model.h"

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)
using test::BoxAnswer;

/// Commands that read, and what becomes of model and tree.
class Scan : public test::WindowTest {
protected:
    std::size_t streams() const
    {
        std::size_t count = 0;
        for (const auto& [id, network] : document->model())
            count += network.transponders.size();
        return count;
    }

    /// A read that adds another stream than the one before.
    static bool readAnother(NetworkMap& model)
    {
        Transponder other;
        other.transport_stream_id = 0x0999;
        model.store(test::kSmallNetwork, std::move(other));
        return true;
    }
};

TEST_F(Scan, runsTheDialogInTheModeOfItsCommand)
{
    open();
    dialogs.read = [](NetworkMap&) { return true; };
    for (const Command command : {Command::ScanTransponder, Command::ScanNit,
                                  Command::ScanSatellite, Command::ScanAllSatellites})
        frame->action(command)->trigger();
    EXPECT_EQ(dialogs.opened,
              (std::vector<std::string>{"reading 0", "reading 1", "reading 2", "reading 3"}));
    EXPECT_EQ(tree().size(), 1U) << "an empty model has only the root";
}

TEST_F(Scan, showsTheModelWhenTheDialogEndsWithOk)
{
    open();
    EXPECT_TRUE(tree().empty());
    scan();
    EXPECT_GT(tree().size(), 10U);
    EXPECT_FALSE(frame->treePane().selectedNode());
}

TEST_F(Scan, clearsTheTreeFirstAndLeavesItEmptyWhenTheDialogIsCancelled)
{
    openAndScan();
    select("1001");
    dialogs.read = [this](NetworkMap&) {
        EXPECT_TRUE(tree().empty());
        EXPECT_TRUE(frame->valuePane().valueModel().rows().empty());
        return false;
    };
    const BoxAnswer keep(Qt::Key_Y);
    scan();
    EXPECT_EQ(keep.text(),
              QStringLiteral("Data is already loaded.\nDo you want to keep existing data ?"));
    EXPECT_TRUE(tree().empty());
    EXPECT_EQ(streams(), 1U);
}

TEST_F(Scan, keepsTheModelOrEmptiesItAsTheUserSays)
{
    openAndScan();
    dialogs.read = readAnother;
    const BoxAnswer keep(Qt::Key_Y);
    scan();
    EXPECT_EQ(streams(), 2U);
    EXPECT_EQ(tree().root().child(0).childCount(), 2U);
    const BoxAnswer discard(Qt::Key_N);
    scan();
    EXPECT_EQ(streams(), 1U);
    EXPECT_EQ(node("0999").kind().name, std::string("transport-stream"));
}

TEST_F(Scan, leavesModelAndTreeUntouchedOnCancel)
{
    openAndScan();
    select("1001");
    const std::size_t nodes = tree().size();
    dialogs.opened.clear();
    const BoxAnswer cancel(Qt::Key_Escape);
    scan();
    EXPECT_TRUE(dialogs.opened.empty());
    EXPECT_EQ(tree().size(), nodes);
    EXPECT_TRUE(frame->treePane().selectedNode());
}

} // namespace
