#include "ui/value_pane.h"

#include "tests/ui/window_test.h"
#include "ui/hex_view.h"
#include "ui/output_bar.h"
#include "ui/value_model.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QMenu>

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)
using Items = std::vector<std::string>;

class ValuePane : public test::WindowTest {
protected:
    std::size_t rowCount() const { return frame->valuePane().valueModel().rows().size(); }

    Items menuOfRow(std::size_t row)
    {
        frame->valuePane().selectRow(row);
        const std::unique_ptr<QMenu> menu(frame->valuePane().contextMenu());
        return itemsOf(*menu);
    }
};

TEST(ValueModel, isOneTheToolkitFindsNoFaultWith)
{
    ValueModel model;
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.fill({{.name = "NAME", .data = "<b>&", .remark = "read as <i>"}});
    EXPECT_EQ(model.index(0, ValueModel::kData).data(), QStringLiteral("<b>&"));
    const auto tip = model.index(0, ValueModel::kData).data(Qt::ToolTipRole).toString();
    EXPECT_TRUE(tip.contains("&lt;b&gt;&amp;")) << tip.toStdString();
    EXPECT_TRUE(tip.contains("read as &lt;i&gt;")) << tip.toStdString();
    model.fill({});
    EXPECT_EQ(model.rowCount({}), 0);
}

TEST_F(ValuePane, showsTheRowsOfTheNodeThatIsSelected)
{
    open();
    EXPECT_EQ(frame->valuePane().columnWidth(ValueModel::kName), 100);
    EXPECT_GE(frame->valuePane().columnWidth(ValueModel::kData), 500);
    scan();
    select("SERVICE_DESCRIPTOR");
    EXPECT_EQ(rowCount(), 7U);
    EXPECT_LE(frame->valuePane().header()->length(), frame->valuePane().viewport()->width())
        << "short texts need no scroll bar";
    select("CA_DESCRIPTOR"); // a long one
    EXPECT_GE(frame->valuePane().columnWidth(ValueModel::kData),
              frame->valuePane().fontMetrics().horizontalAdvance(QString(200, '0')));
    select("PMT"); // a heading
    EXPECT_EQ(rowCount(), 0U);
}

TEST_F(ValuePane, staysAsItIsForAMereGroup)
{
    open();
    dialogs.read = [](NetworkMap& model) {
        return model.store(1, test::decodedStream({test::cat({test::conditionalAccess(1, 2),
                                                              test::conditionalAccess(3, 4)})}));
    };
    scan();
    select("CAT");
    const std::size_t rows = rowCount();
    ASSERT_GT(rows, 0U);
    select("CA_DESCRIPTORS");
    EXPECT_EQ(rowCount(), rows);
}

TEST_F(ValuePane, showsTheBytesOfARowInFull)
{
    openAndScan();
    select("CA_DESCRIPTOR");
    constexpr std::size_t kPrivateBytes = 4;
    const auto& row = frame->valuePane().valueModel().rows().at(kPrivateBytes);
    EXPECT_EQ(row.data.size(), 299U) << "a hundred bytes";
    frame->valuePane().selectRow(kPrivateBytes);
    frame->valuePane().copyValue();
    EXPECT_EQ(QApplication::clipboard()->text().size(), 449) << "all of them";
    EXPECT_EQ(frame->outputBar().hexView().bytes().size(), 150U);
    frame->valuePane().selectRow(0);
    EXPECT_EQ(frame->outputBar().hexView().bytes().size(), 150U) << "kept until others come";
}

TEST_F(ValuePane, offersTheMenuOfAPid)
{
    openAndScan();
    select("CA_DESCRIPTOR");
    const Items copying{"Copy value", "Copy row", "Copy all rows"};
    EXPECT_EQ(menuOfRow(3), (Items{"[PID streaming...]", "-", copying[0], copying[1], copying[2]}));
    EXPECT_EQ(menuOfRow(0), copying);
}

TEST_F(ValuePane, copiesByKey)
{
    openAndScan();
    select("SERVICE_DESCRIPTOR");
    auto& pane = frame->valuePane();
    frame->treePane().setFocus();
    frame->action(Command::NextPane)->trigger();
    EXPECT_EQ(pane.selectedRow(), 0U) << "where the keys act is seen";
    pane.selectRow(6);
    const auto copied = [&](auto press) {
        press();
        return QApplication::clipboard()->text();
    };
    EXPECT_EQ(copied([&] { test::pressIn(pane, Qt::Key_C, Qt::ControlModifier); }), "Harbour One");
    EXPECT_EQ(copied([&] { pane.copyRow(); }), "SERVICE_NAME\tHarbour One\n");
    const QString all =
        copied([&] { test::pressIn(pane, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier); });
    EXPECT_TRUE(all.startsWith("DESCRIPTOR_TAG\t"));
    EXPECT_EQ(all.count('\n'), 7);
}

} // namespace
