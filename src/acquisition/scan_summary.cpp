#include "acquisition/scan_summary.h"

#include "platform/format.h"

#include <algorithm>

namespace tessaview {

namespace {

/// Nothing for a stream that was stored, or of which nothing can be said.
std::optional<UnstoredReason> reasonOf(ReadOutcome outcome)
{
    switch (outcome) {
    case ReadOutcome::AlreadyThere:
        return UnstoredReason::AlreadyThere;
    case ReadOutcome::NoPat:
        return UnstoredReason::NoPat;
    case ReadOutcome::NoNit:
        return UnstoredReason::NoNit;
    case ReadOutcome::NoSdt:
        return UnstoredReason::NoSdt;
    case ReadOutcome::TunerFailed:
        return UnstoredReason::TunerFailed;
    case ReadOutcome::ReadFailed:
        return UnstoredReason::ReadFailed;
    case ReadOutcome::Stored:
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

std::string padded(const std::string& text, std::size_t width)
{
    return text + std::string(width - std::min(width, widthOf(text)), ' ');
}

} // namespace

const char* unstoredReasonText(UnstoredReason reason)
{
    switch (reason) {
    case UnstoredReason::AlreadyThere:
        return "it was there already";
    case UnstoredReason::NotTuned:
        return "the tuner could not be set to it";
    case UnstoredReason::NoParameters:
        return "the NIT has no parameters of this kind of tuner for it";
    case UnstoredReason::NoPat:
        return "the stream carries no PAT that can be decoded";
    case UnstoredReason::NoNit:
        return "the stream carries no NIT of the actual network";
    case UnstoredReason::NoSdt:
        return "the stream carries no SDT of the actual transport stream that can be decoded";
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

void ScanSummary::add(const ScannedStream& stream, ReadOutcome outcome)
{
    if (outcome == ReadOutcome::Stored) {
        stored_.insert(stream);
        unstored_.erase(stream);
    } else if (const auto reason = reasonOf(outcome)) {
        add(stream, *reason);
    }
}

void ScanSummary::add(const ScannedStream& stream, UnstoredReason reason)
{
    if (!stored_.contains(stream))
        unstored_.emplace(stream, reason);
}

std::size_t ScanSummary::failedCount() const
{
    return static_cast<std::size_t>(
        std::count_if(unstored_.begin(), unstored_.end(), [](const auto& entry) {
            return entry.second != UnstoredReason::AlreadyThere;
        }));
}

std::vector<std::string> ScanSummary::lines() const
{
    std::vector<std::string> lines;
    if (empty())
        return lines;
    const std::size_t failures = failedCount();
    lines.push_back(formatted("Transport streams: %zu stored, %zu already there, %zu not stored",
                              storedCount(), unstored_.size() - failures, failures));
    std::size_t satellites = 0;
    std::size_t frequencies = 0;
    for (const auto& [stream, reason] : unstored_) {
        satellites = std::max(satellites, widthOf(stream.satellite));
        frequencies = std::max(frequencies, widthOf(stream.frequency));
    }
    for (const auto& [stream, reason] : unstored_)
        if (reason != UnstoredReason::AlreadyThere)
            lines.push_back("  " + padded(stream.satellite, satellites) + "  " +
                            padded(identifier(stream.original_network_id), 4) + "  " +
                            padded(identifier(stream.transport_stream_id), 4) + "  " +
                            padded(stream.frequency, frequencies) + "  " +
                            unstoredReasonText(reason));
    return lines;
}

} // namespace tessaview
