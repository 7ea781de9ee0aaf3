#include "si/descriptors/descriptor.h"

#include "si/dump.h"
#include "si/error.h"

#include <iomanip>

namespace lib13818 {

void DescriptorReader::requireRecordsOf(int recordBytes, int headBytes) const
{
    if ((length - headBytes) % recordBytes != 0)
        throw error(kLengthMismatch);
}

Code readCode(BitReader& in) noexcept
{
    Code code{};
    for (std::size_t i = 0; i < 3; ++i)
        code[i] = static_cast<char>(in.u8());
    return code;
}

StrippedText readStripped(BitReader& in, int length) noexcept
{
    return stripSelector(in.text(length));
}

StrippedText readCountedStripped(BitReader& in) noexcept
{
    return readStripped(in, in.u8());
}

void Descriptor::dump(std::ostream& out) const
{
    out << "descriptor_tag: " << std::hex << std::setfill('0') << std::setw(2) << descriptor_tag;
    line(out, " ", name());
    dumpBody(out);
}

const char* DescriptorUserPrivate::name() const
{
    return descriptor_tag >= 0x40 ? "User Private" : "Reserved";
}

void DescriptorUserPrivate::dumpBody(std::ostream& out) const
{
    line(out, "data:", "");
    hexDump(out, data);
}

} // namespace lib13818
