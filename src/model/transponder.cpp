#include "model/transponder.h"

#include "platform/format.h"
#include "si/texts/value_texts.h"

#include <string_view>
#include <utility>

namespace tessaview {

namespace {

char polarizationLetter(unsigned polarization)
{
    constexpr std::string_view letters = "HVLR";
    return polarization < letters.size() ? letters[polarization] : 'U';
}

/// What follows the transport_stream_id.
struct DeliveryText {
    const Transponder& transponder;

    std::string operator()(const SatelliteTuning& tuning) const
    {
        return formatted("%u%c %s %u", tuning.frequency / 100,
                         polarizationLetter(tuning.polarization), transponder.fecText.c_str(),
                         tuning.symbol_rate / 10);
    }
    std::string operator()(const CableTuning& tuning) const
    {
        return formatted("%u", tuning.frequency / 10);
    }
    std::string operator()(const TerrestrialTuning& tuning) const
    {
        return formatted("%u", tuning.centre_frequency / 100);
    }
    std::string operator()(std::monostate /*unknown*/) const { return "Unknown"; }
};

} // namespace

void Transponder::setSatelliteTuning(const SatelliteTuning& record, std::string satellite)
{
    fecText = lib13818::fecInnerText(record.FEC_inner);
    satelliteName = std::move(satellite);
    tuning_ = record;
}

bool NeededTables::areThere() const
{
    return pat == State::There && nit == State::There && sdt == State::There;
}

std::string NeededTables::lack() const
{
    std::vector<std::string> parts;
    const auto add = [&parts](State state, const char* table) {
        if (state != State::There)
            parts.push_back(std::string("no ") + table +
                            (state == State::Undecodable ? " that can be decoded" : ""));
    };
    add(pat, "PAT");
    add(nit, "NIT");
    add(sdt, "SDT");
    std::string text;
    for (std::size_t i = 0; i < parts.size(); ++i)
        text += (i == 0 ? "" : i + 1 == parts.size() ? " and " : ", ") + parts[i];
    return text;
}

std::string transponderText(const Transponder& transponder)
{
    const bool isNamed = transponder.transport_stream_id <= kLastIdentifier;
    return (isNamed ? formatted("%04X - ", transponder.transport_stream_id)
                    : std::string("No table names it - ")) +
           std::visit(DeliveryText{transponder}, transponder.tuning());
}

} // namespace tessaview
