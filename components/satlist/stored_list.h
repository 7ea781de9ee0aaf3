#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace tessaview {

/// What a file holds beyond what this version knows; kept for who wrote it.
struct ForeignParts {
    std::vector<std::pair<std::string, std::string>> attributes;
    std::string elements; ///< child elements as XML text

    friend bool operator==(const ForeignParts&, const ForeignParts&) = default;
};

/// One transponder entry, in the units of `ISatTransponder`.
struct StoredTransponder {
    std::int32_t nid = 0;  ///< 16 bits
    std::int32_t tsid = 0; ///< 16 bits
    std::int32_t frequency = 0;
    std::int32_t polarization = 0;
    std::int32_t symbolRate = 0;
    std::int32_t fec = 0;
    std::int32_t flag = 0;
    ForeignParts foreign;

    bool isFor(std::int32_t aNid, std::int32_t aTsid) const { return nid == aNid && tsid == aTsid; }
    friend bool operator==(const StoredTransponder&, const StoredTransponder&) = default;
};

struct StoredSatellite {
    std::string name; ///< UTF-8
    std::int32_t selected = 0;
    std::int32_t addedByUser = 0;
    std::vector<StoredTransponder> transponders; ///< NID and TSID occur once
    ForeignParts foreign;

    friend bool operator==(const StoredSatellite&, const StoredSatellite&) = default;
};

struct StoredList {
    std::vector<StoredSatellite> satellites; ///< a name occurs once
    ForeignParts foreign;

    friend bool operator==(const StoredList&, const StoredList&) = default;
};

/// Whether a text can be the name of a satellite: not empty, at most 1,000 bytes, and without
/// characters that an XML file cannot hold.
bool isSatelliteName(const std::string& utf8);

/// NID and TSID are 16 bits wide.
constexpr bool isIdentifier(std::int32_t value)
{
    return value >= 0 && value <= 0xFFFF;
}

} // namespace tessaview
