#pragma once

#include "si/bat.h"
#include "si/cat.h"
#include "si/eit.h"
#include "si/nit.h"
#include "si/pat.h"
#include "si/pmt.h"
#include "si/rst.h"
#include "si/sdt.h"
#include "si/tdt.h"
#include "si/tot.h"
#include "tuning/tuning.h"

#include <cstdint>
#include <map>
#include <string>
#include <type_traits>
#include <vector>

namespace tessaview {

// Decoded sections by the fields that tell them apart, in ascending order; the innermost key is
// the section_number.

using NitSections = std::map<std::uint32_t, lib13818::Nit>;
using NitMap = std::map<std::uint32_t, NitSections>; ///< by network_id

using SdtSections = std::map<std::uint32_t, lib13818::Sdt>;
using SdtStreams = std::map<std::uint32_t, SdtSections>; ///< by transport_stream_id
using SdtMap = std::map<std::uint32_t, SdtStreams>;      ///< by original_network_id

/// The sections of one service; those of all the tables of a schedule share it, whatever their
/// table_id.
using EitSections = std::map<std::uint32_t, lib13818::Eit>;
using EitServices = std::map<std::uint32_t, EitSections>; ///< by service_id
using EitStreams = std::map<std::uint32_t, EitServices>;  ///< by transport_stream_id
using EitMap = std::map<std::uint32_t, EitStreams>;       ///< by original_network_id

/// The last transport_stream_id and original_network_id that can be broadcast; the numbers above
/// stand for streams and networks that no table names.
constexpr std::uint32_t kLastIdentifier = 0xFFFF;

/// What came of the tables without which a stream has no certain place in the tree.
struct NeededTables {
    enum class State : std::uint8_t { There, Missing, Undecodable };

    State pat = State::There;
    State nit = State::There; ///< of the actual network
    State sdt = State::There; ///< of the actual transport stream

    bool areThere() const;
    /// What is missing, as the object of a sentence: "no PAT and no SDT that can be decoded".
    /// Empty when all are there.
    std::string lack() const;
};

/// One transport stream: the decoded sections of every table that was read of it, and the
/// parameters under which it was received. Of a table that is a single object `parsed` tells
/// whether it was read.
///
/// Sections are moved in; a transponder can be moved but, large as it may be, not copied.
class Transponder {
public:
    Transponder() = default;
    Transponder(const Transponder&) = delete;
    Transponder(Transponder&&) = default;
    Transponder& operator=(const Transponder&) = delete;
    Transponder& operator=(Transponder&&) = default;
    ~Transponder() = default;

    lib13818::Cat cat;
    NitMap nitActual;
    NitMap nitOther;
    SdtMap sdtActual;
    SdtMap sdtOther;
    lib13818::Bat bat;
    lib13818::Pat pat;
    lib13818::Rst rst;
    lib13818::Tdt tdt;
    lib13818::Tot tot;
    EitMap eitPfActual;
    EitMap eitPfOther;
    EitMap eitScheduleActual;
    EitMap eitScheduleOther;
    NeededTables needed;                   ///< all there, but in a stream that was asked for
    std::vector<lib13818::Pmt> pmts;       ///< of the programs that answered, in the PAT's order
    std::uint32_t transport_stream_id = 0; ///< the PAT's
    Tuning tuning;                         ///< how it came in; none when that is unknown
    std::string satelliteName; ///< satellite, UTF-8: where the driver says it looks, else empty
};

// A growing list of sections must never copy them.
static_assert(std::is_nothrow_move_constructible_v<lib13818::Pmt>);

/// The label of a transport stream: "0451 - 11757V 3/4 27500" with MHz and kS/s for a satellite,
/// "0451 - 346000" with kHz for cable and terrestrial, "0451 - Unknown".
std::string transponderText(const Transponder& transponder);

} // namespace tessaview
