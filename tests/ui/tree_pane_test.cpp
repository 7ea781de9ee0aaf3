#include "ui/tree_pane.h"

#include "tests/acquisition/recorder.h"
#include "tests/support/no_memory.h"
#include "tests/support/no_threads.h"
#include "tests/ui/window_test.h"
#include "ui/tree_model.h"

#include <latch>
#include <optional>

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QProgressDialog>

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)
using test::BoxAnswer;
using Items = std::vector<std::string>;

class TreePane : public test::WindowTest {
protected:
    Items menuOf(const std::string& label)
    {
        const std::unique_ptr<QMenu> menu(frame->treePane().contextMenu(node(label)));
        return itemsOf(*menu);
    }

    /// Right-clicks a node and chooses the first item of its menu.
    void chooseFirst(const std::string& label)
    {
        auto& pane = frame->treePane();
        select(label);
        QTimer::singleShot(0, [] {
            auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_TRUE(menu);
            QTest::keyClick(menu, Qt::Key_Down);
            QTest::keyClick(menu, Qt::Key_Return);
        });
        const QPoint place = pane.visualRect(pane.currentIndex()).center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, place,
                                pane.viewport()->mapToGlobal(place));
        QApplication::sendEvent(pane.viewport(), &event);
    }
};

TEST(TreeModel, isOneTheToolkitFindsNoFaultWith)
{
    NetworkMap networks;
    test::fillSmallModel(networks);
    TreeModel model;
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.rebuild(networks, nullptr);
    EXPECT_EQ(model.rowCount({}), 1);
    const QModelIndex stream = model.index(0, 0, model.index(0, 0, model.index(0, 0, {})));
    EXPECT_EQ(stream.data(), QStringLiteral("0451 - Unknown"));
    EXPECT_EQ(model.indexOf(model.node(stream)), stream);
    model.clear();
    EXPECT_EQ(model.rowCount({}), 0);
}

TEST_F(TreePane, tellsWhenThereIsNoMemoryForAllAndShowsTheRest)
{
    open();
    const BoxAnswer box(Qt::Key_Return);
    std::optional<test::NoMemory> none;
    dialogs.read = [&](NetworkMap& model) {
        for (std::uint32_t stream = 0; stream < 100; ++stream) {
            Transponder transponder;
            transponder.transport_stream_id = stream;
            model.store(1, std::move(transponder));
        }
        none.emplace(1500); // less than 64 nodes take
        return true;
    };
    scan();
    none.reset();
    EXPECT_TRUE(box.text().startsWith("There is not enough memory for the whole tree"))
        << box.text().toStdString();
    EXPECT_EQ(frame->treePane().model()->rowCount(), 1);
}

TEST_F(TreePane, offersWhatBelongsToTheKindOfANodeFirst)
{
    openAndScan();
    const Items all{"Copy path", "Expand all below here", "Collapse all below here"};
    const auto behind = [&](Items own, std::size_t common) {
        own.emplace_back("-");
        own.insert(own.end(), all.begin(), all.begin() + static_cast<std::ptrdiff_t>(common));
        return own;
    };
    EXPECT_EQ(menuOf("0451 - "),
              behind({"[EMM Streaming ...]", "[ECM streaming ...]", "[EMM+ECM streaming ...]"}, 3));
    EXPECT_EQ(menuOf("1001 - "), behind({"[ECM streaming...]", "[Video streaming...]",
                                         "[Audio streaming...]", "[Private section streaming...]"},
                                        3));
    EXPECT_EQ(menuOf("SATELLITEDELIVERYSYSTEM"), behind({"Set tuner..."}, 1));
    EXPECT_EQ(menuOf("CABLEDELIVERYSYSTEM"), behind({"[Set tuner...]"}, 1));
    EXPECT_EQ(menuOf("TERRESTRIALDELIVERYSYSTEM"), behind({"[Set tuner...]"}, 1));
    EXPECT_EQ(menuOf("ALL NETWORKS"), all);
    EXPECT_EQ(menuOf("SERVICE_DESCRIPTOR"), Items{"Copy path"});
}

TEST_F(TreePane, setsTheTunerOfTheKindThatTheDescriptorIsFor)
{
    struct Case {
        int tuner;
        const char* label;
        const char* call;
    };
    openAndScan();
    for (const auto& [tuner, label, call] :
         {Case{1, "SATELLITEDELIVERYSYSTEM", " 1175725"},
          Case{2, "CABLEDELIVERYSYSTEM", "cable 3460000"},
          Case{3, "TERRESTRIALDELIVERYSYSTEM", "terrestrial 49000000"}}) {
        driver->tunerType = tuner;
        settle();
        chooseFirst(label);
        EXPECT_EQ(tunedText(driver->tunings.back()), call);
        EXPECT_TRUE(driver->tunings.back().owner);
    }
    driver->tunerType = 1;
    settle();
    chooseFirst("CABLEDELIVERYSYSTEM"); // disabled: what is chosen is the item behind it
    EXPECT_EQ(driver->tunings.size(), 3U);
}

TEST_F(TreePane, reportsATunerThatCannotBeSet)
{
    const test::Recorder recorder;
    openAndScan();
    driver->failAlways("SetSatelliteTuning", status::kFail);
    const BoxAnswer answer(Qt::Key_Return);
    chooseFirst("SATELLITEDELIVERYSYSTEM");
    EXPECT_EQ(answer.text(), "Failed to set tuner");

    driver->missing = {ISetTuner::kId};
    chooseFirst("SATELLITEDELIVERYSYSTEM");
    EXPECT_EQ(recorder.logged().back(), "<2> - Failed to query settuner interface: 0X80004002");
}

TEST_F(TreePane, reportsATunerThatCannotBeSetForWantOfAThread)
{
    openAndScan();
    const BoxAnswer answer(Qt::Key_Return);
    {
        const test::NoThreads noThreads;
        chooseFirst("SATELLITEDELIVERYSYSTEM");
    }
    EXPECT_EQ(answer.text(), "Failed to set tuner");
    EXPECT_FALSE(document->driverCall().isBusy());
}

TEST_F(TreePane, letsTheUserStopWaitingForATunerThatHangs)
{
    std::latch goesOn{1};
    driver->duringCall = [&](std::string_view call, int) {
        if (call == "SetSatelliteTuning")
            goesOn.wait();
    };
    openAndScan();
    QTimer stop;
    QObject::connect(&stop, &QTimer::timeout, [&] {
        if (auto* const box = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget()))
            box->cancel();
    });
    stop.start(0);
    chooseFirst("SATELLITEDELIVERYSYSTEM");
    frame->refresh();
    EXPECT_FALSE(frame->action(Command::ScanTransponder)->isEnabled()) << "the driver is busy";
    goesOn.count_down();
    EXPECT_TRUE(test::waitFor([&] { return !document->driverCall().isBusy(); }));
    frame->refresh();
    EXPECT_TRUE(frame->action(Command::ScanTransponder)->isEnabled());
}

TEST_F(TreePane, showsNoMenuOnEmptySpace)
{
    openAndScan();
    auto& pane = frame->treePane();
    const QPoint place(5, pane.viewport()->height() - 5);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, pane.viewport()->mapToGlobal(place));
    QApplication::sendEvent(pane.viewport(), &event); // a menu would not return
    EXPECT_FALSE(pane.selectedNode());
}

TEST_F(TreePane, opensAndClosesAWholeBranch)
{
    openAndScan();
    auto& pane = frame->treePane();
    select("PMT");
    pane.expandBelow();
    const auto isOpen = [&](const std::string& label) {
        return pane.isExpanded(pane.treeModel().indexOf(node(label)));
    };
    EXPECT_TRUE(isOpen("1001 - "));
    EXPECT_TRUE(isOpen("STREAM_INFO") || isOpen("ISO639LANGUAGE"));
    EXPECT_FALSE(isOpen("NIT - actual"));
    select("ALL NETWORKS");
    pane.collapseBelow();
    for (const char* const label : {"ALL NETWORKS", "PMT", "1001 - "})
        EXPECT_FALSE(isOpen(label)) << label;
}

TEST_F(TreePane, copiesThePathByKey)
{
    openAndScan();
    select("PMT");
    test::pressIn(frame->treePane(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QApplication::clipboard()->text().endsWith(" > 0451 - Unknown > PMT"));
}

} // namespace
