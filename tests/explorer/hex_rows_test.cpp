#include "explorer/hex_rows.h"

#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)

TEST(HexRows, padARowThatIsNotFull)
{
    const std::vector<std::uint8_t> bytes{0x47, 0x41, 0x11};
    EXPECT_EQ(hexRow(bytes, 0),
              "00000000h: 47 41 11" + std::string(39, ' ') + " ; GA." + std::string(13, ' '));
}

TEST(HexRows, areAllAsWideAsTheFullest)
{
    std::vector<std::uint8_t> bytes(17, 0x7E);
    bytes[1] = 0x7F;
    bytes[2] = 0x20;
    bytes[3] = 0x1F;
    bytes[4] = 0xFF;
    ASSERT_EQ(hexRowCount(bytes.size()), 2U);
    EXPECT_EQ(hexRow(bytes, 0),
              "00000000h: 7e 7f 20 1f ff 7e 7e 7e 7e 7e 7e 7e 7e 7e 7e 7e ; ~. ..~~~~~~~~~~~");
    EXPECT_EQ(hexRow(bytes, 1),
              "00000010h: 7e" + std::string(45, ' ') + " ; ~" + std::string(15, ' '));
    for (const std::size_t row : {0U, 1U})
        EXPECT_EQ(hexRow(bytes, row).size(), kHexRowWidth);
}

TEST(HexRows, areNoneForNoBytesAndOneForSixteen)
{
    EXPECT_EQ(hexRowCount(0), 0U);
    EXPECT_EQ(hexRowCount(16), 1U);
    const std::vector<std::uint8_t> bytes(0x10001, 0);
    EXPECT_EQ(hexRow(bytes, 0x1000).substr(0, 13), "00010000h: 00");
}

} // namespace
