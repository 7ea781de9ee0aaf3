#pragma once

#include "si/bit_reader.h"
#include "si/section_bytes.h"

#include <cstdint>
#include <ostream>
#include <vector>

namespace lib13818 {

/// One decoded section: a value, filled by `parse`, that keeps the bytes of its section. Texts,
/// byte runs and descriptors are views into them, so they live as long as the table or a copy of it
/// does. A table that is parsed again appends what it finds and keeps the bytes of both.
class Section {
public:
    /// Decodes the whole section that starts at its table_id; 3 + section_length bytes must be
    /// readable there, none beyond is read, and the table keeps a copy of them. Throws
    /// lib13818::error; what was decoded before the failure stays, `parsed` stays false.
    void parse(const uint8_t* section) { decode(section, {}); }
    /// The same over a range that need not be trusted: throws "too little data" when it is
    /// shorter than its section_length says.
    void parse(Bytes section);
    /// The same without a copy: the table shares the bytes. Throws "too little data" for none.
    void parse(const SectionBytes& section);

    /// The bytes of the section that was parsed last, as they came; none before the first whose
    /// header was sound.
    Bytes bytes() const { return bytes_.get(); }

protected:
    Section() = default;
    Section(const Section&) = default;
    Section(Section&&) = default;
    Section& operator=(const Section&) = default;
    Section& operator=(Section&&) = default;
    ~Section() = default;

    /// Decodes a section. What is kept of it is `given`, or a copy where that is empty.
    virtual void decode(const uint8_t* section, const SectionBytes& given) = 0;
    /// Keeps the bytes of a section whose header is sound; gives its first.
    const uint8_t* keep(const uint8_t* section, const SectionBytes& given);
    /// The loop itself for an empty set; else what an earlier parse left in the set and the loop
    /// behind it, in memory of its own that the table keeps.
    template <class Set>
    Bytes behind(const Set& set, Bytes loop)
    {
        if (set.empty())
            return loop;
        std::vector<uint8_t> both;
        set.forEach([&](Bytes descriptor) {
            both.insert(both.end(), descriptor.begin(), descriptor.end());
        });
        both.insert(both.end(), loop.begin(), loop.end());
        return keep(std::move(both));
    }

private:
    Bytes keep(std::vector<uint8_t> more);

    SectionBytes bytes_;
};

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
    void decode(const uint8_t* section, const SectionBytes& given) override;
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

    virtual bool isValidSyntaxIndicator(int ssi) const { return ssi == 0; }
    virtual void clear() = 0;
    virtual const char* name() const = 0;
    /// The lines every short table's dump starts with.
    virtual void dump(std::ostream& out) const;
    /// Decodes the body that starts at byte 3, section_length bytes.
    virtual void parsePayload(const uint8_t* body) = 0;
    virtual bool isValidTableId() const = 0;

protected:
    void decode(const uint8_t* section, const SectionBytes& given) override;
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
