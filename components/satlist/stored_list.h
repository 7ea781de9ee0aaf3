#pragma once

#include "satlist/satellite_list.h"

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace tessaview {

/// What a file holds beyond what this version knows; kept for who wrote it, as XML text.
struct ForeignParts {
    std::string attributes; ///< a blank before each
    std::string elements;   ///< child elements and texts

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
    std::int32_t system = ISatTransponderS2::kNotGiven;
    std::int32_t modulation = ISatTransponderS2::kNotGiven;
    std::int32_t rollOff = ISatTransponderS2::kNotGiven;
    std::int32_t pilot = ISatTransponderS2::kNotGiven;
    std::int32_t streamId = ISatTransponderS2::kNotGiven;
    /// Optional fields whose value was not understood, kept until they have one.
    std::vector<std::pair<std::string, std::string>> misread = {};
    ForeignParts foreign;

    bool isFor(std::int32_t aNid, std::int32_t aTsid) const { return nid == aNid && tsid == aTsid; }
    friend bool operator==(const StoredTransponder&, const StoredTransponder&) = default;
};

/// A value of a transponder that need not be given, and its attribute in the file.
struct OptionalField {
    const char* attribute;
    std::int32_t StoredTransponder::*member;
    std::int32_t most; ///< and 0 the least, unless told otherwise
    std::int32_t least = 0;

    constexpr bool takes(std::int32_t value) const { return value >= least && value <= most; }
};

inline constexpr OptionalField kSystemField{"system", &StoredTransponder::system, 1};
inline constexpr OptionalField kModulationField{"modulation", &StoredTransponder::modulation, 4, 1};
inline constexpr OptionalField kRollOffField{"rolloff", &StoredTransponder::rollOff, 2};
inline constexpr OptionalField kPilotField{"pilot", &StoredTransponder::pilot, 1};
inline constexpr OptionalField kStreamIdField{"streamid", &StoredTransponder::streamId, 255};
inline constexpr std::array kOptionalFields{kSystemField, kModulationField, kRollOffField,
                                            kPilotField, kStreamIdField};

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
