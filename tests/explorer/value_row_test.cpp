#include "explorer/value_row.h"

#include "tests/explorer/built_model.h"
#include "tests/multiplex/descriptors.h"
#include "tests/multiplex/sections.h"
#include "tests/support/bytes.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

using namespace test;
using tessaview::CharsetPolicy;
using tessaview::NodeView;
using tessaview::RowItem;
using tessaview::ValueRow;
using tessaview::valueRows;

namespace {

CharsetPolicy policyOf(const std::vector<const char*>& rules)
{
    CharsetPolicy policy;
    std::string problem;
    for (const char* const text : rules)
        policy.set(tessaview::parseCharsetRule(text, problem).value());
    return policy;
}

/// What a row says besides its name and data.
std::string itemText(const ValueRow& row)
{
    switch (row.item) {
    case RowItem::Bytes:
        return std::to_string(row.bytes.size()) + " bytes";
    case RowItem::Pid:
        return "PID " + std::to_string(row.pid);
    case RowItem::None:
        break;
    }
    return row.remark;
}

std::vector<std::string> itemTexts(const NodeView& node)
{
    std::vector<std::string> texts;
    for (const ValueRow& row : valueRows(node))
        texts.push_back(itemText(row));
    return texts;
}

using Texts = std::vector<std::string>;

} // namespace

TEST(ValueRows, showTheFirstHundredBytesAndKeepAll)
{
    const Bytes privateData(150, 0xA5);
    const BuiltModel built = modelOfService({conditionalAccess(0x0604, 0x1FFF, privateData)});
    const std::vector<ValueRow> rows = valueRows(serviceOf(built).child(0));
    ASSERT_EQ(rows.size(), 5U);
    std::string hundred = "A5";
    for (int i = 1; i < 100; ++i)
        hundred += " A5";
    EXPECT_EQ(rows[4].data, hundred);
    EXPECT_EQ(Bytes(rows[4].bytes.begin(), rows[4].bytes.end()), privateData);
    EXPECT_EQ(itemTexts(serviceOf(built).child(0)), (Texts{"", "", "", "PID 8191", "150 bytes"}));
}

TEST(ValueRows, areEmptyForNodesWithoutFields)
{
    const BuiltModel built = modelOfService({linkage(1, 2, 3, 4), linkage(1, 2, 3, 4)});
    for (const NodeView& node : {built.tree.root(), built.transportStream(),
                                 built.transportStream().child(0), serviceOf(built).child(0)})
        EXPECT_TRUE(valueRows(node).empty()) << node.label();
    EXPECT_FALSE(valueRows(serviceOf(built).child(0).child(0)).empty());
}

TEST(ValueRows, sayWhatTheCellsOfAMosaicHold)
{
    const BuiltModel built = modelOfService({hex(
        "51 1E 00 FFFF 01 3F 01 0085 0400 00 02 0085 0451 0001 0400 00 04 0085 0451 0001 ABCD")});
    const NodeView cells = serviceOf(built).child(0).child(0);
    EXPECT_EQ(itemTexts(cells.child(0)), (Texts{"logical_cell_id", "logical_cell_presentation_info",
                                                "elementary_cell_field_length", "1 bytes",
                                                "cell_linkage_info: bouquet 0085"}));
    EXPECT_EQ(valueRows(cells.child(1))[4].remark,
              "cell_linkage_info: service 0001 of transport stream 0451, network 0085");
    EXPECT_EQ(valueRows(cells.child(2))[4].remark,
              "cell_linkage_info: event ABCD of service 0001, transport stream 0451, network 0085");
}

TEST(ValueRows, showWestAndEast)
{
    for (const bool isEast : {false, true}) {
        const BuiltModel built = modelOfService(
            {satelliteDelivery({.frequency = 1, .orbitalPosition = 1, .isEast = isEast})});
        EXPECT_EQ(valueRows(serviceOf(built).child(0))[4].data, isEast ? "1 - east" : "0 - west");
    }
}

TEST(ValueRows, readTextsByTheRuleOfTheirNetwork)
{
    BuiltModel built({
        sdt(kSdtActual, kStream, kNetwork, {{.id = 1, .descriptors = {service(1, "", "\xB1")}}}),
        eit(0x4F, 1, 2, 0x42,
            {{.id = 1,
              .mjd = 0,
              .start = 0,
              .duration = 0,
              .descriptors = {shortEvent("eng", "\x05\xDE", "\xB1")}}}),
        pmt(1, 1, {}),
    });
    const NodeView name = serviceOf(built).child(0);
    const NodeView event =
        built.at({"EIT"}).child(1).child(0).child(0).child(0).child(0).child(0).child(0);
    ASSERT_EQ(event.label(), "SHORT_EVENT_DESCRIPTOR");
    const auto texts = [&] {
        return Texts{valueRows(name)[6].data, valueRows(event)[3].data, valueRows(event)[4].data,
                     built.at({"PMT"}).child(0).label()};
    };
    EXPECT_EQ(texts(), (Texts{"±", "Ş", "±", "0001 - ±"}));
    EXPECT_EQ(valueRows(event)[3].remark, "ISO/IEC 8859-9, by the text's selector 0x05");

    built.tree.setCharsetPolicy(policyOf({"iso-8859-2"}));
    EXPECT_EQ(texts(), (Texts{"ą", "Ş", "ą", "0001 - ą"}));
    built.tree.setCharsetPolicy(policyOf({"0x0042=iso-8859-2,always"}));
    EXPECT_EQ(texts(), (Texts{"±", "Ţ", "ą", "0001 - ±"}));
    EXPECT_EQ(valueRows(event)[3].remark,
              "ISO/IEC 8859-2, set to beat the selector for network 0x0042");
    EXPECT_EQ(valueRows(event)[2].remark, ""); // a language code has no table
}
