#include "tuning/parse_tuning.h"

#include "platform/format.h"
#include "tests/support/worked_cases.h"

#include <map>

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)

/// The fields that people can give, in the order of the record.
std::string fieldsOf(const Tuning& tuning)
{
    if (const auto* s = std::get_if<SatelliteTuning>(&tuning))
        return formatted("%u %d 0x%02X %u %d", s->frequency, s->polarization, s->modulation,
                         s->symbol_rate, s->FEC_inner);
    if (const auto* c = std::get_if<CableTuning>(&tuning))
        return formatted("%u %d %u", c->frequency, c->modulation, c->symbol_rate);
    if (const auto* t = std::get_if<TerrestrialTuning>(&tuning))
        return formatted("%u %d", t->centre_frequency, t->bandwidth);
    return "none";
}

TEST(TuningText, givesTheCodesOfTheRecordsOrSaysWhatIsWrong)
{
    const std::map<std::string, TunerType> types{{"satellite", TunerType::Satellite},
                                                 {"cable", TunerType::Cable},
                                                 {"terrestrial", TunerType::Terrestrial},
                                                 {"unknown", static_cast<TunerType>(4)}};
    test::expectWorked("tuning/tunings.txt", [&](const std::string& input) {
        const std::size_t colon = input.find(':');
        std::string problem = "old";
        const auto tuning =
            parseTuning(types.at(input.substr(0, colon)), input.substr(colon + 1), problem);
        EXPECT_EQ(fieldsOf(tuning) == "none", !problem.empty()) << input;
        return problem.empty() ? fieldsOf(tuning) : problem;
    });
}

} // namespace
