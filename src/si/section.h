#pragma once

#include "si/bit_reader.h"

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <span>

namespace lib13818 {

/// One decoded section: a value, filled by one `parse`, that owns all it holds.
class Section {
public:
    /// Decodes the whole section that starts at its table_id; 3 + section_length bytes must be
    /// readable there, none beyond is read. Throws lib13818::error; what was decoded before the
    /// failure stays, `parsed` stays false.
    virtual void parse(const uint8_t* section) = 0;

    /// The same over a range that need not be trusted: throws "too little data" when it is
    /// shorter than its section_length says.
    void parse(std::span<const uint8_t> section);

protected:
    Section() = default;
    Section(const Section&) = default;
    Section(Section&&) = default;
    Section& operator=(const Section&) = default;
    Section& operator=(Section&&) = default;
    ~Section() = default;
};

/// The size in bytes that the section starting here declares: 3 + section_length.
constexpr std::size_t sectionSize(const uint8_t* section)
{
    return 3U + static_cast<std::size_t>((section[1] & 0x0F) << 8 | section[2]);
}

/// A section with the eight-byte header and a tested CRC_32 (ISO/IEC 13818-1, 2.4.4).
class LongSection : public Section {
public:
    int table_id = 0;
    int section_syntax_indicator = 0;
    int section_length = 0; ///< bytes that follow this field, 0 to 4095
    int table_id_extension = 0;
    int version_number = 0;
    int section_number = 0;
    int last_section_number = 0;
    int current_next_indicator = 0;
    bool parsed = false; ///< a `parse` has completed
    uint32_t CRC_32 = 0;

    using Section::parse;
    void parse(const uint8_t* section) override;
    /// What the table is called.
    virtual const char* name() const = 0;
    /// Empties the lists of entries and leaves the header fields alone.
    virtual void clear() = 0;
    /// A diagnostic text rendering in the stream's current format.
    virtual void dump(std::ostream& out) const = 0;
    /// Decodes the body that starts at byte 8, section_length - 9 bytes before the CRC_32.
    virtual void parsePayload(const uint8_t* body) = 0;
    virtual bool isValidTableId() const = 0;
    virtual bool isValidSyntaxIndicator(int ssi) const { return ssi == 1; }
    /// The two reserved bits of byte 1.
    virtual bool isValidReservedBits(int /*bits*/) const { return true; }

protected:
    /// The bytes between the header and CRC_32.
    BitReader payload(const uint8_t* body) const;

    LongSection() = default;
    LongSection(const LongSection&) = default;
    LongSection(LongSection&&) = default;
    LongSection& operator=(const LongSection&) = default;
    LongSection& operator=(LongSection&&) = default;
    ~LongSection() = default;
};

/// A section with the three-byte header, whose CRC, if it has one, is not tested.
class ShortSection : public Section {
public:
    int table_id = 0;
    int section_length = 0; ///< bytes that follow this field
    bool parsed = false;

    using Section::parse;
    void parse(const uint8_t* section) override;
    virtual bool isValidSyntaxIndicator(int ssi) const { return ssi == 0; }
    virtual void clear() = 0;
    virtual const char* name() const = 0;
    /// The lines every short table's dump starts with.
    virtual void dump(std::ostream& out) const;
    /// Decodes the body that starts at byte 3, section_length bytes.
    virtual void parsePayload(const uint8_t* body) = 0;
    virtual bool isValidTableId() const = 0;

protected:
    BitReader payload(const uint8_t* body) const;

    ShortSection() = default;
    ShortSection(const ShortSection&) = default;
    ShortSection(ShortSection&&) = default;
    ShortSection& operator=(const ShortSection&) = default;
    ShortSection& operator=(ShortSection&&) = default;
    ~ShortSection() = default;
};

/// Returns the reader if it holds `bytes` more, for use before the first field of a fixed part;
/// throws "too little data" with this code otherwise.
BitReader& require(BitReader& in, int bytes, int code = -1);

/// Throws "descriptor start end mismatch" unless a loop was left exactly at its end.
void requireExactEnd(const BitReader& loop);

/// A loop inside a section's body: like `BitReader::take`, but a declared length that runs past
/// the body throws "too little data" with this code.
BitReader takeLoop(BitReader& in, int length, int code = -1);

} // namespace lib13818
