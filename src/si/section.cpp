#include "si/section.h"

#include "si/crc32.h"
#include "si/dump.h"
#include "si/error.h"

#include <memory>
#include <utility>

namespace lib13818 {

namespace {

constexpr int kHeaderAfterLength = 5;
constexpr int kCrcBytes = 4;

} // namespace

void Section::parse(Bytes section)
{
    if (section.size() < 3 || section.size() < sectionSize(section.data()))
        throw error(kTooLittleData);
    parse(section.data());
}

void Section::parse(const SectionBytes& section)
{
    if (section.empty())
        throw error(kTooLittleData);
    decode(section.data(), section);
}

const uint8_t* Section::keep(const uint8_t* section, const SectionBytes& given)
{
    SectionBytes kept = given.empty() ? SectionBytes::copyOf(section) : given;
    if (!bytes_.empty()) { // what an earlier parse left points into them
        using Both = std::pair<SectionBytes, SectionBytes>;
        const uint8_t* const first = kept.data();
        kept = SectionBytes(std::make_shared<const Both>(bytes_, std::move(kept)), first);
    }
    bytes_ = std::move(kept);
    return bytes_.data();
}

Bytes Section::keep(std::vector<uint8_t> more)
{
    using Both = std::pair<SectionBytes, std::vector<uint8_t>>;
    const uint8_t* const first = bytes_.data();
    auto both = std::make_shared<const Both>(bytes_, std::move(more));
    const Bytes kept = both->second;
    bytes_ = SectionBytes(std::move(both), first);
    return kept;
}

void LongSection::decode(const uint8_t* section, const SectionBytes& given)
{
    section_syntax_indicator = section[1] >> 7;
    section_length = (section[1] & 0x0F) << 8 | section[2];
    // First of all, so that a damaged section is reported as damaged whatever else is wrong.
    if (crc32Mpeg2(section, sectionSize(section)) != 0)
        throw error(-1, "crc error", section + sectionSize(section) - kCrcBytes);
    if (section_syntax_indicator == 0)
        throw error(kMalformedHeader, section);
    if (!isValidSyntaxIndicator(section_syntax_indicator))
        throw error(kMalformedHeader, section + 1);
    if (!isValidReservedBits(section[1] >> 4 & 3))
        throw error(kMalformedHeader, section + 1);
    table_id = section[0];
    if (!isValidTableId())
        throw error(-1, "invalid table id", section);
    if (section_length < kHeaderAfterLength + kCrcBytes)
        throw error(kTooLittleData);

    BitReader in({section + 3, static_cast<std::size_t>(section_length)});
    table_id_extension = in.u16();
    version_number = in.skip(2).bits(5);
    current_next_indicator = in.bits(1);
    section_number = in.u8();
    last_section_number = in.u8();
    CRC_32 = in.skip(8 * (section_length - kHeaderAfterLength - kCrcBytes)).u32();

    parsePayload(keep(section, given) + 8);
    parsed = true;
}

BitReader LongSection::payload(const uint8_t* body) const
{
    const int length = section_length - kHeaderAfterLength - kCrcBytes;
    return BitReader({body, length < 0 ? 0U : static_cast<std::size_t>(length)});
}

void ShortSection::decode(const uint8_t* section, const SectionBytes& given)
{
    if (!isValidSyntaxIndicator(section[1] >> 7))
        throw error(kMalformedHeader, section);
    if ((section[1] & 0x0C) != 0)
        throw error(kMalformedHeader, section + 1);
    table_id = section[0];
    if (!isValidTableId())
        throw error(-1, "invalid table id", section);
    section_length = (section[1] & 0x0F) << 8 | section[2];
    parsePayload(keep(section, given) + 3);
    parsed = true;
}

BitReader ShortSection::payload(const uint8_t* body) const
{
    return BitReader({body, static_cast<std::size_t>(section_length)});
}

void ShortSection::dump(std::ostream& out) const
{
    line(out, "table_id: ", table_id);
    line(out, "section_length: ", section_length);
}

BitReader& require(BitReader& in, int bytes, int code)
{
    if (in.bytesLeft() < bytes)
        throw error(code, kTooLittleData, in.place());
    return in;
}

void requireExactEnd(const BitReader& loop)
{
    if (!loop.exactlyAtEnd())
        throw error(-1, kStartEndMismatch, loop.place());
}

BitReader takeLoop(BitReader& in, int length, int code)
{
    return BitReader(require(in, length, code).take(length));
}

} // namespace lib13818
