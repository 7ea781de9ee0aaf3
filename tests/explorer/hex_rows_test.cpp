#include "explorer/hex_rows.h"

#include "tests/support/tests.h"

namespace {

TEST(HexRows, areAllAsWideAsTheFullest)
{
    std::vector<std::uint8_t> bytes(17, 0x7E);
    bytes[1] = 0x7F;
    bytes[2] = 0x20;
    bytes[3] = 0x1F;
    bytes[4] = 0xFF;
    EXPECT_EQ(hexRowCount(0), 0U);
    EXPECT_EQ(hexRowCount(16), 1U);
    ASSERT_EQ(hexRowCount(bytes.size()), 2U);
    EXPECT_EQ(hexRow(bytes, 0),
              "00000000h: 7e 7f 20 1f ff 7e 7e 7e 7e 7e 7e 7e 7e 7e 7e 7e ; ~. ..~~~~~~~~~~~");
    EXPECT_EQ(hexRow(bytes, 1),
              "00000010h: 7e" + std::string(45, ' ') + " ; ~" + std::string(15, ' '));
    EXPECT_EQ(hexRow(bytes, 1).size(), kHexRowWidth);
}

} // namespace
