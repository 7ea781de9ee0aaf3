#pragma once

#include "si/bit_reader.h"
#include "si/error.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace lib13818 {

/// The next `length` bytes, cut at the end.
inline std::vector<uint8_t> readBytes(BitReader& in, int length)
{
    const auto bytes = in.take(length);
    return {bytes.begin(), bytes.end()};
}

/// The error of a range that is no whole number of records.
struct Refusal {
    int code = -1;
    const char* message = kLengthMismatch;
};

/// The records of fixed size that fill what is left of `in`, each built from the reader; throws
/// the refusal when the last one would be cut.
template <class Record>
std::vector<Record> readRecords(BitReader& in, int recordBytes, Refusal refusal = {})
{
    if (in.bytesLeft() % recordBytes != 0)
        throw error(refusal.code, refusal.message);
    std::vector<Record> records;
    records.reserve(static_cast<std::size_t>(in.bytesLeft() / recordBytes));
    while (!in.atEnd())
        records.emplace_back(in);
    return records;
}

/// The records of varying size up to the end of `in`, each built from the reader; throws the
/// refusal when the last one does not end there.
template <class Record>
std::vector<Record> readRecordsToEnd(BitReader& in, Refusal refusal)
{
    std::vector<Record> records;
    while (!in.atEnd())
        records.emplace_back(in);
    if (!in.exactlyAtEnd())
        throw error(refusal.code, refusal.message);
    records.shrink_to_fit(); // an event keeps its items for as long as the model lives
    return records;
}

/// What most lists of records of varying size throw at an end that is not the descriptor's.
inline constexpr Refusal kRecordsMissTheEnd{.code = kMalformedHeader, .message = ""};

} // namespace lib13818
