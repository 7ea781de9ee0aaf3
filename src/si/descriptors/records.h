#pragma once

#include "si/bit_reader.h"
#include "si/error.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>

namespace lib13818 {

/// The base of what stands in a list of a descriptor, built from a reader at its first byte.
struct Record {};

/// One record at the front of `in`. A list of `int` holds 16-bit numbers, one of `uint32_t` 32-bit
/// ones, and one of texts codes of three bytes.
template <class T>
T readRecord(BitReader& in)
{
    if constexpr (std::derived_from<T, Record>)
        return T(in);
    else if constexpr (std::same_as<T, int>)
        return in.u16();
    else if constexpr (std::same_as<T, uint32_t>)
        return in.u32();
    else {
        static_assert(std::same_as<T, std::string_view>);
        return in.text(3);
    }
}

/// A list in a descriptor: the bytes of its records, which were checked when the descriptor was
/// built, and are decoded as one walks over them.
template <class T>
class Records {
public:
    using value_type = T;

    class Iterator {
    public:
        using iterator_category = std::input_iterator_tag;
        using iterator_concept = std::forward_iterator_tag;
        using value_type = T;
        using difference_type = std::ptrdiff_t;
        using pointer = void;
        using reference = T;

        Iterator() = default;
        explicit Iterator(BitReader in) : in_(in) {}
        T operator*() const
        {
            BitReader in = in_;
            return readRecord<T>(in);
        }
        Iterator& operator++()
        {
            readRecord<T>(in_);
            return *this;
        }
        Iterator operator++(int)
        {
            const Iterator before = *this;
            ++*this;
            return before;
        }
        /// The first byte of the record.
        const uint8_t* place() const { return in_.place(); }
        friend bool operator==(const Iterator& a, const Iterator& b)
        {
            return a.in_.bytesLeft() == b.in_.bytesLeft();
        }

    private:
        BitReader in_;
    };

    Records() = default;
    explicit Records(Bytes bytes) noexcept : bytes_(bytes) {}

    Iterator begin() const { return Iterator(BitReader(bytes_)); }
    Iterator end() const { return Iterator(); }
    bool empty() const { return bytes_.empty(); }
    /// Counts: linear.
    std::size_t size() const { return static_cast<std::size_t>(std::distance(begin(), end())); }

private:
    Bytes bytes_;
};

/// The error of a range that is no whole number of records.
struct Refusal {
    int code = -1;
    const char* message = kLengthMismatch;
};

/// The records of fixed size that fill what is left of `in`; throws the refusal when the last one
/// would be cut.
template <class T>
Records<T> readRecords(BitReader& in, int recordBytes, Refusal refusal = {})
{
    if (in.bytesLeft() % recordBytes != 0)
        throw error(refusal.code, refusal.message);
    return Records<T>(in.rest());
}

/// The records of varying size up to the end of `in`; throws what a record throws, and the refusal
/// when the last one does not end there.
template <class T>
Records<T> readRecordsToEnd(BitReader& in, Refusal refusal)
{
    BitReader each = in;
    while (!each.atEnd())
        readRecord<T>(each);
    if (!each.exactlyAtEnd())
        throw error(refusal.code, refusal.message);
    return Records<T>(in.rest());
}

/// What most lists of records of varying size throw at an end that is not the descriptor's.
inline constexpr Refusal kRecordsMissTheEnd{.code = kMalformedHeader, .message = ""};

} // namespace lib13818
