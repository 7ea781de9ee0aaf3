#pragma once

#include "tools/multiplex/bytes_writer.h"

#include <vector>

// Whole sections with a correct CRC_32, of every table.

namespace test {

/// The header fields that most sections leave at these values.
struct Header {
    unsigned version = 0;
    unsigned currentNext = 1;
    unsigned number = 0;
    unsigned last = 0;
};

/// CRC_32 of ISO/IEC 13818-1, bit by bit.
uint32_t crc32(std::span<const uint8_t> bytes);

Bytes longSection(unsigned tableId, unsigned extension, std::span<const uint8_t> body,
                  const Header& header = {});
Bytes shortSection(unsigned tableId, std::span<const uint8_t> body);

struct Program {
    unsigned number;
    unsigned pid;
};
Bytes pat(unsigned stream, const std::vector<Program>& programs, const Header& header = {});

Bytes cat(const std::vector<Bytes>& descriptors, const Header& header = {});

struct ElementaryStream {
    unsigned type;
    unsigned pid;
    std::vector<Bytes> descriptors = {};
};
Bytes pmt(unsigned program, unsigned pcrPid, const std::vector<ElementaryStream>& streams,
          const std::vector<Bytes>& descriptors = {}, const Header& header = {});

struct ListedStream {
    unsigned stream;
    unsigned network;
    std::vector<Bytes> descriptors = {};
};
constexpr unsigned kNitActual = 0x40;
constexpr unsigned kNitOther = 0x41;
Bytes nit(unsigned tableId, unsigned network, const std::vector<Bytes>& descriptors,
          const std::vector<ListedStream>& streams, const Header& header = {});
Bytes bat(unsigned bouquet, const std::vector<Bytes>& descriptors,
          const std::vector<ListedStream>& streams, const Header& header = {});

struct Service {
    unsigned id;
    std::vector<Bytes> descriptors = {};
    unsigned eitFlags = 3; ///< schedule, present/following
    unsigned runningStatus = 4;
    bool isScrambled = false;
};
constexpr unsigned kSdtActual = 0x42;
constexpr unsigned kSdtOther = 0x46;
Bytes sdt(unsigned tableId, unsigned stream, unsigned network, const std::vector<Service>& services,
          const Header& header = {});

struct Event {
    unsigned id;
    unsigned mjd;
    unsigned start;    ///< hhmmss, decimal
    unsigned duration; ///< hhmmss, decimal
    std::vector<Bytes> descriptors = {};
    unsigned runningStatus = 1;
};
Bytes eit(unsigned tableId, unsigned service, unsigned stream, unsigned network,
          const std::vector<Event>& events, const Header& header = {});

Bytes tdt(unsigned mjd, unsigned time);
Bytes tot(unsigned mjd, unsigned time, const std::vector<Bytes>& descriptors);

struct RunningStatus {
    unsigned stream;
    unsigned network;
    unsigned service;
    unsigned event;
    unsigned status;
};
Bytes rst(const std::vector<RunningStatus>& entries);

} // namespace test
