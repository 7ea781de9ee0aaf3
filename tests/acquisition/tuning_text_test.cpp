#include "acquisition/tuning_text.h"

#include "platform/format.h"

#include <gmock/gmock.h>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)
using testing::StartsWith;

/// The fields that people can give, in the order of the record.
std::string fieldsOf(const Transponder::Tuning& tuning)
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

TEST(TuningText, givesTheCodesOfTheRecords)
{
    struct Case {
        TunerType type;
        const char* text;
        const char* fields;
    };
    const std::vector<Case> cases{
        {TunerType::Satellite, "12187.5 H 27500", "1218750 0 0x00 275000 0"},
        {TunerType::Satellite, " 11347\tv  22000 2/3 s2 8psk", "1134700 1 0x06 220000 2"},
        {TunerType::Satellite, "12224 L 20000.5 8PSK", "1222400 2 0x06 200005 0"},
        {TunerType::Satellite, "11347 R 22000 0.20 QPSK 9/10", "1134700 3 0x15 220000 9"},
        {TunerType::Satellite, "11347 V 22000 S2 0.25", "1134700 1 0x0C 220000 0"},
        {TunerType::Satellite, "11347 V 22000 S QPSK 7/8", "1134700 1 0x01 220000 5"},
        {TunerType::Cable, "346 6900 64qam", "3460000 3 69000"},
        {TunerType::Cable, "113.0625 6875", "1130625 0 68750"},
        {TunerType::Terrestrial, "474", "47400000 0"},
        {TunerType::Terrestrial, "177.5 7", "17750000 1"},
    };
    for (const Case& each : cases) {
        std::string problem = "old";
        EXPECT_EQ(fieldsOf(parseTuning(each.type, each.text, problem)), each.fields) << each.text;
        EXPECT_EQ(problem, "");
    }
}

TEST(TuningText, saysWhatIsWrongAndGivesAnExample)
{
    constexpr TunerType satellite = TunerType::Satellite;
    struct Case {
        TunerType type;
        const char* text;
        const char* problem;
    };
    for (const Case& each : std::vector<Case>{
             {satellite, "", "the frequency is missing\na satellite tuner takes, for example, \""},
             {satellite, "12187500 H 27500", "'12187500' is no frequency from 500 to 50000 MHz"},
             {satellite, "nan H 27500", "'NAN' is no frequency"},
             {satellite, "12187MHz H 27500", "'12187MHZ' is no frequency"},
             {satellite, "12187 X 27500", "'X' is no polarization: H, V, L, R\n"},
             {satellite, "12187 H", "the symbol rate is missing\n"},
             {satellite, "12187 H 27.5", "'27.5' is no symbol rate from 100 to 100000 kS/s"},
             {satellite, "12187 H 27500 S3", "'S3' is none of these: code rate 1/2, "},
             {satellite, "12187 H 27500 S2 S", "'S' is a second system\n"},
             {TunerType::Cable, "346 6900 8", "'8' is none of these: modulation 16QAM, "},
             {TunerType::Terrestrial, "474 9", "'9' is none of these: bandwidth in MHz 8, 7, "},
             {static_cast<TunerType>(4), "474", "the tuner is of an unknown kind"}}) {
        std::string problem;
        EXPECT_EQ(fieldsOf(parseTuning(each.type, each.text, problem)), "none") << each.text;
        EXPECT_THAT(problem, StartsWith(each.problem));
    }
}

} // namespace
