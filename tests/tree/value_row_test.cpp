#include "tree/value_row.h"

#include "tests/support/bytes.h"
#include "tests/tree/built_model.h"
#include "tools/multiplex/descriptors.h"
#include "tools/multiplex/sections.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

using namespace test;
using tessaview::CharsetPolicy;
using tessaview::NodeView;
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
    EXPECT_EQ(rows[4].remark, "… 150 bytes");
    EXPECT_EQ(tessaview::dataText(rows[4]).size(), 3 * 150U - 1) << "copied whole";
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
