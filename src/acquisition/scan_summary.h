#pragma once

#include "acquisition/reader.h"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tessaview {

/// Why a transport stream that a scan came to was not stored.
enum class UnstoredReason : std::uint8_t {
    AlreadyThere,
    NotTuned,
    NoParameters,
    Incomplete, ///< a table is missing without which it has no certain place
    OtherStream,
    NitFailed, ///< the NIT that describes the network could not be had
    ReadFailed,
    TunerFailed,
    UnknownTuner,
    NoTransponders
};

/// Why a transport stream was not stored, also as a clause: "the stream carries no PAT".
struct Unstored {
    Unstored(UnstoredReason why); // NOLINT(google-explicit-constructor): the reason says it all
    Unstored(UnstoredReason why, std::string words);

    UnstoredReason reason;
    std::string text;
};

/// A transport stream as a scan comes to it: by a NIT's entry, or by a transponder of the
/// satellite list or a source of the driver, whose identifiers are not known.
struct ScannedStream {
    std::string satellite = {}; ///< UTF-8; empty for none
    std::optional<std::uint32_t> original_network_id = {};
    std::optional<std::uint32_t> transport_stream_id = {};
    std::string frequency = {}; ///< "11757 MHz V"; empty when there are no parameters
    std::string source = {};    ///< of a driver's list of sources; empty for none

    // NOLINTNEXTLINE(modernize-use-nullptr): the comparison with zero is the compiler's
    friend auto operator<=>(const ScannedStream&, const ScannedStream&) = default;
};

/// What became of the transport streams that a scan came to. One that it comes to again, because
/// several NITs list it, counts once: as stored when it was ever stored.
class ScanSummary {
public:
    void add(const ScannedStream& stream, const Reading& reading);
    void add(const ScannedStream& stream, Unstored reason);

    std::size_t storedCount() const { return stored_.size(); }
    const std::map<ScannedStream, Unstored>& unstored() const { return unstored_; }
    /// Streams that could not be stored, without those that the model had before.
    std::size_t failedCount() const;
    /// Whether reading itself failed somewhere: a stream could not be read, or not all of it.
    bool mayLackSome() const;
    /// Notes what else was not read in full.
    void addLack(bool isThere) { mayLackSome_ = mayLackSome_ || isThere; }
    /// Whether a stream was left out for want of a table, though it may hold others.
    bool hasIncomplete() const;
    bool empty() const { return stored_.empty() && unstored_.empty(); }

    /// A line of counts and a table, a line each, of the streams that could not be stored. Nothing
    /// when the scan came to no stream.
    std::vector<std::string> lines() const;
    /// Why each stream was not stored, a line each, with its place where there are several.
    std::vector<std::string> reasons() const;

private:
    std::set<ScannedStream> stored_;
    std::map<ScannedStream, Unstored> unstored_;
    bool mayLackSome_ = false;
};

} // namespace tessaview
