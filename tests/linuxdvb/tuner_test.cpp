#include "drivers/linuxdvb/dvb_tuner.h"
#include "drivers/linuxdvb/status_text.h"
#include "platform/settings.h"
#include "tests/linuxdvb/fake_kernel.h"
#include "tests/support/tests.h"
#include "tools/multiplex/sections.h"

// The tuner over receivers that behave and that do not.

namespace {

using ::testing::ThrowsMessage;

constexpr const char* kKey = "drivers";

Channel astra()
{
    SatelliteTuning tuning{};
    tuning.frequency = 1218700;
    tuning.symbol_rate = 275000;
    return {"Astra", tuning, {}};
}

bool isDvbS2(const Tuned& tuned)
{
    return tuned.at(DTV_DELIVERY_SYSTEM) == SYS_DVBS2;
}

class LinuxDvbTuner : public ::testing::Test {
protected:
    FakeFrontend& receiver() { return kernel_.frontends[{}]; }
    DvbTuner& tuner()
    {
        if (!tuner_) {
            tuner_.emplace(kernel_);
            tuner_->open(kKey);
        }
        return *tuner_;
    }
    std::string status() { return statusText(tuner().state(), tuner().signal()); }
    /// Begins anew, as the next run of a program does.
    void restart() { tuner_.reset(); }

    TemporaryFolder folder_;
    Environment config_{"XDG_CONFIG_HOME", folder_.path().c_str()};
    FakeKernel kernel_;
    std::optional<DvbTuner> tuner_;
};

TEST_F(LinuxDvbTuner, triesDvbS2WhenDvbSFails)
{
    receiver().receives = isDvbS2;
    receiver().statistics = {{DTV_STAT_SIGNAL_STRENGTH, {FE_SCALE_RELATIVE, 46530}},
                             {DTV_STAT_CNR, {FE_SCALE_DECIBEL, 12400}}};
    EXPECT_EQ(status(), "adapter0 not tuned");
    ReceiverStore(kKey).storeDish("Astra", *dishOf("universal; diseqc 2"));
    tuner().tune(astra());
    EXPECT_EQ(receiver().tunings.size(), 2U);
    EXPECT_THAT(receiver().lineCalls, ElementsAre("tone off", "18 V", "E01038F7", "tone on"));
    EXPECT_EQ(status(), "adapter0 DVB-S2 12187 H 27500 locked 71 % 12.4 dB");
    receiver().receives = receivesNothing;
    EXPECT_THAT(status(), HasSubstr("12187 H 27500 no lock"));
}

TEST_F(LinuxDvbTuner, failsWithTheDeviceAndTheStep)
{
    const auto fails = [this](const std::string& text, void (*prepare)(FakeFrontend&),
                              const Channel& channel = astra()) {
        restart();
        receiver() = {};
        prepare(receiver());
        EXPECT_THAT([&] { tuner().tune(channel); },
                    ThrowsMessage<DeviceError>("adapter0/frontend0: " + text));
        EXPECT_EQ(status(), "adapter0 not tuned (adapter0/frontend0: " + text + ")");
        EXPECT_FALSE(tuner().state().system);
    };
    fails("no signal at 12187 MHz H within 10 s",
          [](FakeFrontend& r) { r.receives = receivesNothing; });
    fails("in use by another program", [](FakeFrontend& r) { r.isInUse = true; });
    fails("no permission; add your user to the group 'video' and log in again",
          [](FakeFrontend& r) { r.openProblem = EACCES; });
    fails("no such device; plug it in, or choose another under Device, Settings...",
          [](FakeFrontend& r) { r.isGone = true; });
    fails("switching the LNB's voltage: Input/output error",
          [](FakeFrontend& r) { r.voltageProblem = EIO; });
    fails("tuning to DVB-S2: the receiver refuses the parameters; is the frequency in its range?",
          [](FakeFrontend& r) { r.tuneProblem = EINVAL; });
    fails("no receiver for a frequency that is not known; choose another under Device, Settings...",
          [](FakeFrontend&) {}, {"", TerrestrialTuning{0xFFFFFFFF, 0, 0, 0, 0, 0, 0, 0, 0}, {}});
}

TEST_F(LinuxDvbTuner, needsNoLineThatTheReceiverDoesNotFeed)
{
    receiver().voltageProblem = EOPNOTSUPP;
    EXPECT_NO_THROW(tuner().tune(astra()));
    EXPECT_EQ(status(), "adapter0 DVB-S 12187 H 27500 locked 50 % 25 %"); // by the older calls
}

TEST_F(LinuxDvbTuner, endsSoonWhenItIsInterruptedAndWorksAgainAfterwards)
{
    receiver().lockTime = 1min;
    kernel_.at(2s, [this] { tuner().setInterrupted(true); });
    EXPECT_THROW(tuner().tune(astra()), Interrupted);
    EXPECT_LE(kernel_.elapsed(), 2200ms);
    EXPECT_THROW(tuner().tune(astra()), Interrupted);
    tuner().setInterrupted(false);
    receiver().lockTime = 0ms;
    tuner().tune(astra());
    EXPECT_TRUE(tuner().signal()->isLocked());
}

TEST_F(LinuxDvbTuner, takesUpWhatItReceivedLast)
{
    tuner().tune(astra());
    restart();
    EXPECT_EQ(kernel_.openFiles(), 0U);
    kernel_.air = {{0x00, pat(1, {}), 100ms}};
    const TableRequest patRequest{};
    EXPECT_EQ(tuner().read({&patRequest, 1}, 30s).lists.at(0).size(), 1U);
    EXPECT_EQ(tuner().state().channel->satellite, "Astra");
    EXPECT_EQ(receiver().tunings.size(), 2U);
}

TEST_F(LinuxDvbTuner, takesAChannelOfANitForOneOfTheSatelliteThatIsReceived)
{
    ReceiverStore(kKey).storeDish("Astra", *dishOf("universal; diseqc 3"));
    tuner().tune(astra());
    receiver().lineCalls.clear();
    Channel listed = astra();
    listed.satellite.clear();
    tuner().tune(listed);
    EXPECT_THAT(receiver().lineCalls, ElementsAre("tone off", "18 V", "E01038FB", "tone on"));
    EXPECT_EQ(tuner().state().channel->satellite, "Astra");
}

TEST_F(LinuxDvbTuner, readsNothingWithoutALock)
{
    const TableRequest patRequest{};
    const auto read = [&] { tuner().read({&patRequest, 1}, 30s); };
    const auto failsWith = [](const char* text) {
        return ThrowsMessage<DeviceError>(HasSubstr(text));
    };
    EXPECT_THAT(read, failsWith("not tuned; choose a channel"));
    tuner().tune(astra());
    receiver().receives = receivesNothing;
    EXPECT_THAT(read, failsWith("no signal at 12187 MHz H within 5 s"));
    receiver().isGone = true;
    EXPECT_THAT(read, failsWith("the device was removed"));
    EXPECT_EQ(kernel_.openFiles(), 0U);
}

TEST_F(LinuxDvbTuner, letsGoOfTheDeviceWhenAnotherIsChosen)
{
    kernel_.frontends[{0, 1}].systems = {SYS_DVBC_ANNEX_A, SYS_DVBT};
    tuner().tune(astra());
    EXPECT_EQ(tuner().state().type, TunerType::Satellite);
    ReceiverSettings settings = tuner().state().settings;
    settings.device.frontend = 1;
    tuner().useAndStore(settings);
    EXPECT_FALSE(receiver().isInUse);
    EXPECT_EQ(tuner().state().type, TunerType::Cable);
    settings.type = TunerType::Terrestrial;
    tuner().useAndStore(settings);
    restart();
    EXPECT_EQ(tuner().state().type, TunerType::Terrestrial);
    EXPECT_THAT(status(), HasSubstr("adapter0/frontend1"));
}

TEST_F(LinuxDvbTuner, bringsStoredTimesIntoTheirRange)
{
    Settings file(defaultSettingsFile());
    file.setNumber("drivers\\linuxdvb", "locklimit", 0);
    file.setNumber("drivers\\linuxdvb", "readceiling", 0xFFFFFFFF);
    file.setNumber("drivers\\linuxdvb", "tunertype", 4);
    const ReceiverSettings read = ReceiverStore(kKey).settings();
    EXPECT_EQ(read.lockLimit, 1s);
    EXPECT_EQ(read.readCeiling, 1h);
    EXPECT_FALSE(read.type);
}

TEST_F(LinuxDvbTuner, tellsErrorRatesOfWhatCameSinceTheLastReport)
{
    auto& statistics = receiver().statistics;
    const auto count = [&](std::int64_t errors, std::int64_t total) {
        statistics[DTV_STAT_POST_ERROR_BIT_COUNT] = {FE_SCALE_COUNTER, errors};
        statistics[DTV_STAT_POST_TOTAL_BIT_COUNT] = {FE_SCALE_COUNTER, total};
        return tuner().signal()->postBitErrorRate;
    };
    tuner().tune(astra());
    EXPECT_DOUBLE_EQ(count(1000, 1'000'000).value(), 0.001);
    EXPECT_DOUBLE_EQ(count(1010, 2'000'000).value(), 0.00001);
    EXPECT_DOUBLE_EQ(count(1010, 2'000'000).value(), 0.00001); // nothing new
    EXPECT_DOUBLE_EQ(count(1, 10).value(), 0.1);               // began anew
    EXPECT_FALSE(tuner().signal()->bitErrors);
}

} // namespace
