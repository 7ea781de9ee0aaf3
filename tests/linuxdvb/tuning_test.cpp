#include "drivers/linuxdvb/attempts.h"
#include "drivers/linuxdvb/dish.h"
#include "tests/support/tests.h"

// What a tuning record becomes for the receiver and for the dish.

namespace {

using Properties = decltype(Attempt::properties);
using ::testing::IsSupersetOf;

constexpr std::uint32_t kFrequency = 1'587'000; // kHz, behind the LNB

SatelliteTuning satellite(std::uint8_t modulation, std::uint8_t fec = 3)
{
    SatelliteTuning tuning{};
    tuning.frequency = 1218700;
    tuning.symbol_rate = 275000;
    tuning.modulation = modulation;
    tuning.FEC_inner = fec;
    return tuning;
}

Channel onAir(const Tuning& tuning, const S2Parameters& s2 = {})
{
    Channel channel;
    channel.tuning = tuning;
    channel.s2 = s2;
    return channel;
}

FrontendFacts receiver(std::vector<fe_delivery_system> systems, std::uint32_t capabilities = 0)
{
    return {{}, {}, std::move(systems), capabilities, {}};
}

/// The systems are in the order in which they are tried, the properties among those of the first.
void tries(const char* name, const Channel& channel, const FrontendFacts& facts,
           const std::vector<fe_delivery_system>& systems, const Properties& first)
{
    SCOPED_TRACE(name);
    const std::vector<Attempt> attempts = attemptsFor(channel, facts, kFrequency);
    std::vector<fe_delivery_system> tried;
    for (const Attempt& attempt : attempts)
        tried.push_back(attempt.system);
    ASSERT_EQ(tried, systems);
    EXPECT_TRUE(systems.empty() || testing::Value(attempts[0].properties, IsSupersetOf(first)));
}

TEST(Tuning, triesInThisOrder)
{
    const FrontendFacts both = receiver({SYS_DVBS, SYS_DVBS2});
    CableTuning cable{};
    cable.frequency = 4740000;
    cable.symbol_rate = 69000;
    CableTuning cable256 = cable;
    cable256.modulation = 5;
    cable256.FEC_inner = 15;
    TerrestrialTuning terrestrial{};
    terrestrial.centre_frequency = 47400000;
    terrestrial.bandwidth = 1;
    terrestrial.constellation = 2;
    terrestrial.code_rate_HP_stream = 4;
    terrestrial.guard_interval = 3;
    terrestrial.transmission_mode = 1;
    TerrestrialTuning reserved{};
    reserved.centre_frequency = 0xFFFFFFFF;
    reserved.bandwidth = reserved.constellation = reserved.code_rate_HP_stream = 7;
    reserved.transmission_mode = 3;
    const S2Parameters multistream{
        .system = 1, .modulation = 4, .rollOff = 1, .pilot = 1, .streamId = 255};
    tries("dvbSFirstWhereNothingSaysOtherwise", onAir(satellite(0x01)), both, {SYS_DVBS, SYS_DVBS2},
          {{DTV_FREQUENCY, kFrequency},
           {DTV_SYMBOL_RATE, 27'500'000},
           {DTV_INNER_FEC, FEC_3_4},
           {DTV_MODULATION, QPSK}});
    tries("dvbS2FirstWhereItIsDescribed", onAir(satellite(0x16, 9)), both, {SYS_DVBS2, SYS_DVBS},
          {{DTV_MODULATION, PSK_8},
           {DTV_ROLLOFF, ROLLOFF_20},
           {DTV_INNER_FEC, FEC_9_10},
           {DTV_PILOT, PILOT_AUTO},
           {DTV_STREAM_ID, NO_STREAM_ID_FILTER}});
    tries("asTheSatelliteListSays", onAir(satellite(0), multistream), both, {SYS_DVBS2, SYS_DVBS},
          {{DTV_MODULATION, APSK_32},
           {DTV_ROLLOFF, ROLLOFF_25},
           {DTV_PILOT, PILOT_ON},
           {DTV_STREAM_ID, 255}});
    tries("withTheCodeRateLeftToWhoCanFindIt", onAir(satellite(0, 1)),
          receiver({SYS_DVBS}, FE_CAN_FEC_AUTO), {SYS_DVBS}, {{DTV_INNER_FEC, FEC_AUTO}});
    tries("withNoCodeRateThatDvbSDoesNotHave", onAir(satellite(0, 7)), receiver({SYS_DVBS}),
          {SYS_DVBS}, {{DTV_INNER_FEC, FEC_AUTO}});
    tries("cableAsDescribed", onAir(cable256), receiver({SYS_DVBC_ANNEX_A}), {SYS_DVBC_ANNEX_A},
          {{DTV_FREQUENCY, 474'000'000},
           {DTV_SYMBOL_RATE, 6'900'000},
           {DTV_MODULATION, QAM_256},
           {DTV_INNER_FEC, FEC_NONE}});
    tries("cableByTheUsualModulations", onAir(cable), receiver({SYS_DVBC_ANNEX_C, SYS_DVBT}),
          {SYS_DVBC_ANNEX_C, SYS_DVBC_ANNEX_C, SYS_DVBC_ANNEX_C}, {{DTV_MODULATION, QAM_256}});
    tries("terrestrialAsDescribed", onAir(terrestrial), receiver({SYS_DVBT, SYS_DVBT2}),
          {SYS_DVBT, SYS_DVBT2},
          {{DTV_FREQUENCY, 474'000'000},
           {DTV_BANDWIDTH_HZ, 7'000'000},
           {DTV_MODULATION, QAM_64},
           {DTV_CODE_RATE_HP, FEC_7_8},
           {DTV_CODE_RATE_LP, FEC_1_2},
           {DTV_GUARD_INTERVAL, GUARD_INTERVAL_1_4},
           {DTV_TRANSMISSION_MODE, TRANSMISSION_MODE_8K}});
    tries("terrestrialLeftToWhoCanReadTheSignalling", onAir(terrestrial),
          receiver({SYS_DVBT}, FE_CAN_QAM_AUTO | FE_CAN_GUARD_INTERVAL_AUTO), {SYS_DVBT},
          {{DTV_MODULATION, QAM_AUTO},
           {DTV_GUARD_INTERVAL, GUARD_INTERVAL_AUTO},
           {DTV_CODE_RATE_HP, FEC_7_8}});
    tries("terrestrialOfWhichOnlyTheFrequencyIsKnown", onAir(TerrestrialTuning{}),
          receiver({SYS_DVBT}), {SYS_DVBT},
          {{DTV_MODULATION, QAM_AUTO}, {DTV_TRANSMISSION_MODE, TRANSMISSION_MODE_AUTO}});
    tries("whatIsReservedLeftToTheReceiver", onAir(reserved), receiver({SYS_DVBT}), {SYS_DVBT},
          {{DTV_FREQUENCY, 0xFFFFFFFF},
           {DTV_BANDWIDTH_HZ, 8'000'000},
           {DTV_MODULATION, QAM_AUTO},
           {DTV_CODE_RATE_HP, FEC_AUTO},
           {DTV_TRANSMISSION_MODE, TRANSMISSION_MODE_AUTO}});
    tries("nothingOfAnotherTunerType", onAir(cable), both, {}, {});
}

template <std::uint8_t TerrestrialTuning::*field>
Channel terrestrialWith(std::uint8_t code)
{
    TerrestrialTuning tuning{};
    tuning.guard_interval = tuning.transmission_mode = 1; // so that it is described
    tuning.*field = code;
    return onAir(tuning);
}

/// A channel with one code of its description becomes these values by their codes, up to the first
/// reserved one.
void tells(const char* name, fe_delivery_system system, std::uint32_t property,
           Channel (*described)(std::uint8_t code), const std::vector<std::uint32_t>& values)
{
    for (std::uint8_t code = 0; code < values.size(); ++code)
        EXPECT_THAT(attemptsFor(described(code), receiver({system})).at(0).properties,
                    Contains(std::pair(property, values[code])))
            << name << ' ' << int{code};
}

TEST(Codes, areToldAsTheReceiverHasThem)
{
    tells("innerFec", SYS_DVBS2, DTV_INNER_FEC,
          [](std::uint8_t code) { return onAir(satellite(0x06, code)); },
          {FEC_AUTO, FEC_1_2, FEC_2_3, FEC_3_4, FEC_5_6, FEC_7_8, FEC_8_9, FEC_3_5, FEC_4_5,
           FEC_9_10, FEC_AUTO});
    tells("rollOff", SYS_DVBS2, DTV_ROLLOFF,
          [](std::uint8_t code) {
              return onAir(satellite(static_cast<std::uint8_t>(code << 3 | 4)));
          },
          {ROLLOFF_35, ROLLOFF_25, ROLLOFF_20, ROLLOFF_AUTO});
    tells("listedModulation", SYS_DVBS2, DTV_MODULATION,
          [](std::uint8_t code) {
              return onAir(satellite(0), {true, code, {}, {}, {}});
          },
          {PSK_8, QPSK, PSK_8, APSK_16, APSK_32});
    // What is not described begins with the first of the usual ones.
    tells("cableModulation", SYS_DVBC_ANNEX_A, DTV_MODULATION,
          [](std::uint8_t code) {
              return onAir(CableTuning{0, 0, code, {}, 0, 0, {}});
          },
          {QAM_256, QAM_16, QAM_32, QAM_64, QAM_128, QAM_256, QAM_256});
    tells("bandwidth", SYS_DVBT, DTV_BANDWIDTH_HZ, terrestrialWith<&TerrestrialTuning::bandwidth>,
          {8000000, 7000000, 6000000, 5000000, 8000000});
    tells("constellation", SYS_DVBT, DTV_MODULATION,
          terrestrialWith<&TerrestrialTuning::constellation>, {QPSK, QAM_16, QAM_64, QAM_AUTO});
    // The codes behind are those of an interleaver.
    tells("hierarchy", SYS_DVBT, DTV_HIERARCHY,
          terrestrialWith<&TerrestrialTuning::hierarchy_information>,
          {HIERARCHY_NONE, HIERARCHY_1, HIERARCHY_2, HIERARCHY_4, HIERARCHY_NONE});
    tells("codeRate", SYS_DVBT, DTV_CODE_RATE_HP,
          terrestrialWith<&TerrestrialTuning::code_rate_HP_stream>,
          {FEC_1_2, FEC_2_3, FEC_3_4, FEC_5_6, FEC_7_8, FEC_AUTO});
    tells("guardInterval", SYS_DVBT, DTV_GUARD_INTERVAL,
          terrestrialWith<&TerrestrialTuning::guard_interval>,
          {GUARD_INTERVAL_1_32, GUARD_INTERVAL_1_16, GUARD_INTERVAL_1_8, GUARD_INTERVAL_1_4,
           GUARD_INTERVAL_AUTO});
    tells(
        "transmissionMode", SYS_DVBT, DTV_TRANSMISSION_MODE,
        terrestrialWith<&TerrestrialTuning::transmission_mode>,
        {TRANSMISSION_MODE_2K, TRANSMISSION_MODE_8K, TRANSMISSION_MODE_4K, TRANSMISSION_MODE_AUTO});
}

using Messages = std::vector<std::array<std::uint8_t, 4>>;

/// Frequencies: in units of 10 kHz, and behind the LNB in kHz.
void switches(const char* stored, std::uint32_t frequency, std::uint8_t polarization,
              std::uint32_t behindLnb, bool isHighVoltage, bool hasTone, const Messages& messages)
{
    SCOPED_TRACE(stored);
    const auto dish = dishOf(stored);
    ASSERT_TRUE(dish);
    EXPECT_EQ(storedText(*dish), stored);
    SatelliteTuning tuning{};
    tuning.frequency = frequency;
    tuning.polarization = polarization;
    const DishPlan plan = planFor(*dish, tuning);
    EXPECT_EQ(plan.frequency, behindLnb);
    EXPECT_EQ(plan.isHighVoltage, isHighVoltage);
    EXPECT_EQ(plan.hasTone, hasTone);
    EXPECT_EQ(plan.messages, messages);
}

TEST(Dish, switchesAsItNeeds)
{
    switches("universal", 1169999, 1, 1949990, false, false, {});
    switches("universal", 1170000, 0, 1100000, true, true, {});
    switches("universal; diseqc 4", 1169999, 0, 1949990, true, false, {{0xE0, 0x10, 0x38, 0xFE}});
    switches("universal; diseqc 1; uncommitted 16", 1170000, 1, 1100000, false, true,
             {{0xE0, 0x10, 0x39, 0xFF}, {0xE0, 0x10, 0x38, 0xF1}});
    switches("single 5150", 384000, 3, 1310000, false, false, {}); // C band
    switches("wide 10410; uncommitted 1", 1275000, 2, 2340000, true, false,
             {{0xE0, 0x10, 0x39, 0xF0}});
}

TEST(StoredTexts, areRefusedWhenTheyAreNone)
{
    for (const char* text : {"", "single", "single x", "wide 4294967296", "universal; diseqc 5",
                             "universal; uncommitted 17", "universal; diseqc", "other 1"})
        EXPECT_FALSE(dishOf(text)) << text;
    for (const char* text : {"", "1", "1 2 3", "2 1 1 1 1 x", "9 1 1 1 1 1"})
        EXPECT_FALSE(channelOf(text)) << text;
    for (const Channel& channel :
         {onAir(satellite(0x1F, 15)), onAir(CableTuning{1, 2, 3, {}, 4, 5, {}}),
          onAir(TerrestrialTuning{1, 2, 3, 4, 5, 6, 7, 8, 9})}) {
        const auto read = channelOf(storedText(channel));
        ASSERT_TRUE(read);
        EXPECT_EQ(read->tuning.index(), channel.tuning.index());
        EXPECT_EQ(storedText(*read), storedText(channel));
    }
}

} // namespace
