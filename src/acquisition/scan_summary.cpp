#include "acquisition/scan_summary.h"

#include "platform/format.h"

#include <algorithm>
#include <utility>

namespace tessaview {

namespace {

/// The stream that was received where another was expected, or nothing.
std::optional<std::string> otherStream(const ScannedStream& expected, const Reading& received)
{
    if (!expected.transport_stream_id || !received.transport_stream_id)
        return std::nullopt;
    if (*expected.transport_stream_id != *received.transport_stream_id)
        return formatted("%04X", *received.transport_stream_id);
    if (expected.original_network_id && received.original_network_id &&
        *expected.original_network_id != *received.original_network_id)
        return formatted("%04X of network %04X", *received.transport_stream_id,
                         *received.original_network_id);
    return std::nullopt;
}

/// Nothing for a stream that was stored, or of which nothing can be said.
std::optional<Unstored> reasonOf(const ScannedStream& expected, const Reading& reading)
{
    switch (reading.outcome) {
    case ReadOutcome::Stored:
    case ReadOutcome::AlreadyThere:
        if (const auto other = otherStream(expected, reading))
            return Unstored(UnstoredReason::OtherStream,
                            "another stream was received there: " + *other);
        if (reading.outcome == ReadOutcome::AlreadyThere)
            return UnstoredReason::AlreadyThere;
        break;
    case ReadOutcome::Incomplete: {
        const std::string lack = reading.needed.lack();
        return Unstored(UnstoredReason::Incomplete, "the stream carries " + lack);
    }
    case ReadOutcome::TunerFailed:
        return UnstoredReason::TunerFailed;
    case ReadOutcome::ReadFailed:
        return Unstored(
            UnstoredReason::ReadFailed,
            formatted("the driver could not read the stream: %08X", statusCode(reading.status)));
    case ReadOutcome::Cancelled:
        break;
    }
    return std::nullopt;
}

std::string identifier(const std::optional<std::uint32_t>& value)
{
    return value ? formatted("%04X", *value) : "-";
}

/// Characters of a UTF-8 text.
std::size_t widthOf(const std::string& text)
{
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
    }));
}

/// Where a stream was looked for: on a satellite or in a source.
const std::string& placeOf(const ScannedStream& stream)
{
    return stream.source.empty() ? stream.satellite : stream.source;
}

std::string padded(const std::string& text, std::size_t width)
{
    return text + std::string(width - std::min(width, widthOf(text)), ' ');
}

const char* textOf(UnstoredReason reason)
{
    switch (reason) {
    case UnstoredReason::AlreadyThere:
        return "it was there already";
    case UnstoredReason::NotTuned:
        return "the tuner could not be set to it";
    case UnstoredReason::NoParameters:
        return "the NIT has no parameters of this kind of tuner for it";
    case UnstoredReason::Incomplete:
        return "the stream lacks a table";
    case UnstoredReason::OtherStream:
        return "another stream was received there";
    case UnstoredReason::NitFailed:
        return "its NIT could not be read";
    case UnstoredReason::ReadFailed:
        return "the driver could not read the stream";
    case UnstoredReason::TunerFailed:
        return "the driver does not tell what kind of tuner it has";
    case UnstoredReason::UnknownTuner:
        return "the tuner is of an unknown kind";
    case UnstoredReason::NoTransponders:
        return "the satellite list does not tell its transponders";
    }
    return "";
}

} // namespace

Unstored::Unstored(UnstoredReason why) : reason(why), text(textOf(why)) {}

Unstored::Unstored(UnstoredReason why, std::string words) : reason(why), text(std::move(words)) {}

void ScanSummary::add(const ScannedStream& stream, const Reading& reading)
{
    const auto reason = reasonOf(stream, reading);
    addLack(reading.mayLackSome);
    if (reading.outcome == ReadOutcome::Stored) {
        ScannedStream received = stream;
        if (reason) {
            received.original_network_id = reading.original_network_id;
            received.transport_stream_id = reading.transport_stream_id;
        }
        unstored_.erase(received);
        stored_.insert(std::move(received));
    }
    if (reason)
        add(stream, *reason);
}

void ScanSummary::add(const ScannedStream& stream, Unstored reason)
{
    if (!stored_.contains(stream))
        unstored_.emplace(stream, std::move(reason));
}

bool ScanSummary::hasIncomplete() const
{
    return std::any_of(unstored_.begin(), unstored_.end(), [](const auto& entry) {
        return entry.second.reason == UnstoredReason::Incomplete;
    });
}

bool ScanSummary::mayLackSome() const
{
    return mayLackSome_ || std::any_of(unstored_.begin(), unstored_.end(), [](const auto& entry) {
               return entry.second.reason == UnstoredReason::ReadFailed;
           });
}

std::size_t ScanSummary::failedCount() const
{
    return static_cast<std::size_t>(
        std::count_if(unstored_.begin(), unstored_.end(), [](const auto& entry) {
            return entry.second.reason != UnstoredReason::AlreadyThere;
        }));
}

std::vector<std::string> ScanSummary::reasons() const
{
    std::vector<std::string> reasons;
    for (const auto& [stream, unstored] : unstored_) {
        std::string line = placeOf(stream);
        if (stream.transport_stream_id)
            line.append(line.empty() ? "" : " ").append(identifier(stream.transport_stream_id));
        line.append(line.empty() ? "" : ": ").append(unstored.text);
        reasons.push_back(std::move(line));
    }
    return reasons;
}

std::vector<std::string> ScanSummary::lines() const
{
    std::vector<std::string> lines;
    if (empty())
        return lines;
    const std::size_t failures = failedCount();
    lines.push_back(formatted("Transport streams: %zu stored, %zu already there, %zu not stored",
                              storedCount(), unstored_.size() - failures, failures));
    std::size_t places = 0;
    std::size_t frequencies = 0;
    for (const auto& [stream, reason] : unstored_) {
        places = std::max(places, widthOf(placeOf(stream)));
        frequencies = std::max(frequencies, widthOf(stream.frequency));
    }
    for (const auto& [stream, unstored] : unstored_)
        if (unstored.reason != UnstoredReason::AlreadyThere)
            lines.push_back("  " + padded(placeOf(stream), places) + "  " +
                            padded(identifier(stream.original_network_id), 4) + "  " +
                            padded(identifier(stream.transport_stream_id), 4) + "  " +
                            padded(stream.frequency, frequencies) + "  " + unstored.text);
    return lines;
}

} // namespace tessaview
