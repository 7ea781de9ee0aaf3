#include "tests/explorer/every_descriptor.h"

#include "tests/support/bytes.h"

namespace test {

namespace {

// clang-format off
constexpr const char* kDescriptors[] = {
    "02 03 CBFFFF",
    "03 01 A8",
    "04 04 FFFEFDFC",
    "05 06 FF432D33 01FF",
    "06 01 02",
    "07 04 FFFC001F",
    "08 04 8006001F",
    "09 06 0604 FFFF AB00",
    "0A 00", "0A 04 656E67 FF", "0A 08 646575 00 667261 01",
    "0B 02 BFE0",
    "0C 04 FFFF7FFE",
    "0D 06 80000001 DEAD",
    "0E 03 FFFFFF",
    "0F 04 FFFFFFFF",
    "10 06 FFFFFF E00001",
    "11 01 FF",
    "12 02 BFFF",
    "13 01 00", "30 00",
    "40 04 4EC8754E",                              // Nüu
    "41 00", "41 03 FFFF 01", "41 06 0001 80 0002 FF",
    "42 02 FF00",
    "43 0B 01175725 0192 41 02750003",
    "44 0B 03460000 FFF2 FF 00690007",
    "45 00", "45 04 01 02 AABB", "45 05 FF 00 06 01 C3",
    "46 00", "46 05 646575 FF 88", "46 0A 646575 09 FF 656E67 10 01",
    "47 03 05DE41",                                // ŞA, by the selector of ISO 8859-9
    "48 0B FF 03 415244 05 05DE41C9FF",
    "49 04 80 646575",
    "4A 09 FFFF 0085 8001 FF ABCD",
    "4B 00", "4B 06 FFFF 0085 8001", "4B 0C 0001 0002 0003 FFFE FFFD FFFC",
    "4C 02 FFFF",
    "4D 0C 656E67 03 05DE41 04 54657874",
    "4E 12 F1 646575 08 03 05DE41 03 05C941 04 54657874",
    "4F 04 FFFF FFFE",
    "50 09 FF FE FD 646575 05DE41",
    "51 01 F7", "51 0D 7F FFFF 02 FFC1 02 0085 0451 FFFE", "51 14 00 0401 00 01 FFFF F805 01 3F 04 0001 0002 0003 FFFF",
    "52 01 FF",
    "53 04 0604 FFFF",
    "54 00", "54 02 11 F1", "54 04 F4 0F A0 00",
    "55 00", "55 04 646575 FF", "55 08 667261 00 676272 0F",
    "56 00", "56 05 646575 0F 88", "56 0A 646575 11 FF 656E67 FF 01",
    "57 09 3F 25 12 30 31 32 33 3435",
    "58 0D 646575 0D 0200 C079 124500 0100",
    "59 00", "59 08 646575 FF FFFF FFFE", "59 10 646575 01 0001 0002 656E67 10 8000 8001",
    "5A 0B FFFFFFFF E0 FF FF 00000000",
    "5B 00", "5B 06 646575 02 C875", "5B 0C 656E67 02 4142 667261 02 43C2",
    "5C 00", "5C 05 646575 01 41", "5C 0B 656E67 00 667261 03 05DE41",
    "5D 00", "5D 07 646575 01 41 01 42", "5D 0D 656E67 00 00 667261 03 05DE41 00",
    "5E 01 FF", "5E 06 FE 646575 01 41", "5E 0A FD 656E67 00 667261 01 42",
    "5F 04 FFFFFFFE",
    "60 06 FFFF 0085 8001",
    "61 03 FF 01FF",
    "62 05 FF 01175725",
    "63 00",
    "64 0E 000A FF 02 ABCD 656E67 04 05DE4142",
    "66 04 FFFF FF00",
    "67 02 FF01",
    "68 02 01FF",
    "69 03 FF2345",
    "6A 05 50 44 55 FF01",
    "6B 01 FF",
    "6C 00",
    "6C 0A FFFF 8001 8002 FFEFFD 00",
    "6C 2C 0001 0002 0003 004005 08 FF 8001 8002 FFEFFD 0002 0003 0004005006 10 01 0002 0003 004005 06 0007 0008 00900A",
    "6D 00",
    "6D 07 FFFF 80000000 00",
    "6D 1D 0001 00000002 05 FF FFFFFFFF 0002 00000003 0A 01 00000002 02 00000003",
    "6E 02 FFFF", "6E 0A 0001 F1 FFFF 0085 8001 FF", "6E 0B 8000 2B 0001 0002 0003 FE 30",
    "6F 00", "6F 03 0001 FF", "6F 06 0000 01 FFFF 1F",
    "70 01 FF",
    "71 00",
    "72 05 FF FFFF 0001",
    "80 03 FF0001", "FE 00",
};
// clang-format on

} // namespace

std::vector<Bytes> everyDescriptor()
{
    std::vector<Bytes> descriptors;
    for (const char* const text : kDescriptors)
        descriptors.push_back(hex(text));
    return descriptors;
}

} // namespace test
